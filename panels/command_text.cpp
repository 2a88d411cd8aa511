#include "panels/command_text.h"

#include <QMenu>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

/// True for the "&" of "(&X)".
bool MarksLetter(const QString& text, qsizetype ampersand)
{
    return ampersand > 0 && ampersand + 2 < text.size() && text[ampersand - 1] == u'('
           && text[ampersand + 1].isLetterOrNumber() && text[ampersand + 2] == u')';
}

/// A text for reading: without the letter of a menu and without the points that announce a question.
QString PlainText(std::string_view text)
{
    QString plain = CommandWords(text);
    for (qsizetype at = plain.indexOf(u'&'); at >= 0; at = plain.indexOf(u'&', at + 1)) {
        if (MarksLetter(plain, at)) {
            plain.remove(at - 1, 4);
            break;
        }
    }
    if (plain.endsWith(u"..."_s))
        plain.chop(3);
    return plain;
}

} // namespace

QString CommandWords(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString EntryText(std::string_view text)
{
    QString entry = CommandWords(text);
    for (qsizetype at = entry.indexOf(u'&'); at >= 0; at = entry.indexOf(u'&', at + 1)) {
        if (!MarksLetter(entry, at))
            entry.insert(at++, u'&');
    }
    return entry;
}

QString EntryText(const CommandRow& command)
{
    const QString text = EntryText(command.text);
    if (command.scope == KeyScope::Window || command.keys.empty())
        return text;
    return text + u'\t' + KeysOf(command).constFirst().toString(QKeySequence::NativeText);
}

QList<QKeySequence> KeysOf(const CommandRow& command)
{
    if (command.keys.empty())
        return {};
    return QKeySequence::listFromString(CommandWords(command.keys), QKeySequence::PortableText);
}

QString TipOf(const CommandRow& command)
{
    const QString tip = command.tip.empty() ? PlainText(command.text) : CommandWords(command.tip);
    if (command.keys.empty())
        return tip;
    return u"%1 (%2)"_s.arg(tip, KeysOf(command).constFirst().toString(QKeySequence::NativeText));
}

void FillContextMenu(QMenu& menu, MenuId which, const std::vector<ContextStep>& steps)
{
    for (const MenuItem& item : MenuOf(which).items) {
        const Command command = std::get<Command>(item);
        if (command == kSeparator) {
            menu.addSeparator();
            continue;
        }
        const CommandRow& row = RowOf(command);
        QAction* entry = menu.addAction(EntryText(row.text));
        entry->setShortcuts(KeysOf(row));
        const auto step = std::ranges::find(steps, command, &ContextStep::command);
        entry->setEnabled(step != steps.end() && step->may);
        if (step != steps.end())
            QObject::connect(entry, &QAction::triggered, &menu, step->run);
    }
}

} // namespace sbd
