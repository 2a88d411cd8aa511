#include "frame/shortcut_sheet.h"

#include "commands/commands.h"
#include "frame/tail_delegate.h"
#include "panels/command_text.h"
#include "search/fold.h"
#include "search/go_line.h"

#include <QDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kSize(760, 620);

struct OtherKey {
    const char16_t* place;
    const char16_t* keys;
    const char16_t* does;
};

/// Keys that are no commands of the table.
constexpr OtherKey kOtherKeys[] = {
    {u"入力欄", u"文字、F2", u"セルの編集を始める（打った場合は上書き）"},
    {u"入力欄", u"Enter / Shift+Enter", u"確定して下 / 上へ"},
    {u"入力欄", u"Tab / Shift+Tab", u"確定して右 / 左へ"},
    {u"入力欄", u"Esc", u"編集をやめる"},
    {u"入力欄", u"Ctrl+矢印、Ctrl+End", u"入力の端まで、最後のセルまで（Shift で範囲選択）"},
    {u"入力欄", u"Home / Ctrl+Home", u"行の最初の入力できるセルへ / 先頭へ"},
    {u"入力欄", u"PageUp / PageDown", u"1 画面ずつ上 / 下へ"},
    {u"入力欄", u"Alt+Down", u"選択肢のあるセルで一覧を開く"},
    {u"入力欄", u"Ctrl+ホイール", u"入力欄の拡大・縮小"},
    {u"ツリー", u"数字", u"その番号のブロックへ"},
    {u"ツリー", u"Enter", u"入力欄へ"},
    {u"ツリー", u"Tab", u"上の絞り込みの欄へ（Esc で絞り込みをやめる）"},
    {u"説明と図", u"↑ ↓ PageUp PageDown Home End", u"ページを送る"},
    {u"説明と図", u"Tab、Enter", u"次の下線のブロックへ、それを開く"},
    {u"説明と図", u"図で 矢印、+、-、Home", u"動かす、拡大、縮小、元の大きさ"},
    {u"マウス", u"戻る / 進むボタン", u"前にいた場所へ戻る / 進む"},
};

QTreeWidgetItem* Head(QTreeWidget& sheet, const QString& text)
{
    for (int i = 0; i < sheet.topLevelItemCount(); ++i)
        if (sheet.topLevelItem(i)->text(0) == text)
            return sheet.topLevelItem(i);
    auto* head = new QTreeWidgetItem(&sheet, {text});
    QFont font = head->font(0);
    font.setBold(true);
    head->setFont(0, font);
    head->setFirstColumnSpanned(true);
    return head;
}

void AddMenu(QTreeWidget& sheet, std::span<const MenuItem> items, const QString& title)
{
    for (const MenuItem& item : items) {
        if (const MenuId* menu = std::get_if<MenuId>(&item)) {
            QString name = CommandWords(MenuOf(*menu).title);
            name.truncate(name.contains(u"(&"_s) ? name.indexOf(u"(&"_s) : name.size());
            AddMenu(sheet, MenuOf(*menu).items, title.isEmpty() ? name : title);
            continue;
        }
        const Command* command = std::get_if<Command>(&item);
        if (command == nullptr || *command == kSeparator || RowOf(*command).keys.empty())
            continue;
        QStringList keys;
        for (const QKeySequence& key : KeysOf(RowOf(*command)))
            keys << key.toString(QKeySequence::NativeText);
        const QString where = RowOf(*command).scope == KeyScope::Grid ? u"（入力欄）"_s : QString();
        new QTreeWidgetItem(Head(sheet, title),
                            {keys.join(u"、"_s), QString::fromStdString(NameOf(RowOf(*command))) + where});
    }
}

void Filter(QTreeWidget& sheet, const QString& line)
{
    const std::vector<std::string> words = SearchWords(line.toStdString());
    for (int i = 0; i < sheet.topLevelItemCount(); ++i) {
        QTreeWidgetItem* head = sheet.topLevelItem(i);
        int left = 0;
        for (int k = 0; k < head->childCount(); ++k) {
            QTreeWidgetItem* row = head->child(k);
            const std::string text = Fold((row->text(0) + u' ' + row->text(1)).toStdString());
            const bool holds = std::ranges::all_of(
                words, [&text](const std::string& word) { return text.find(word) != std::string::npos; });
            row->setHidden(!holds);
            left += holds ? 1 : 0;
        }
        head->setHidden(left == 0);
    }
}

} // namespace

QWidget* MakeShortcutSheet(QWidget* parent)
{
    auto* dialog = new QDialog(parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(u"キー操作の一覧"_s);
    dialog->resize(kSize);
    auto* line = new QLineEdit;
    line->setPlaceholderText(u"キーや働きの言葉で絞り込み"_s);
    line->setAccessibleName(u"絞り込み"_s);
    line->setClearButtonEnabled(true);
    ShowHint(*line);
    auto* sheet = new QTreeWidget;
    sheet->setColumnCount(2);
    sheet->setHeaderLabels({u"キー"_s, u"働き"_s});
    sheet->setRootIsDecorated(false);
    sheet->setAccessibleName(u"キー操作"_s);
    AddMenu(*sheet, MenuBarItems(), {});
    for (const OtherKey& key : kOtherKeys)
        new QTreeWidgetItem(Head(*sheet, QString::fromUtf16(key.place)),
                            {QString::fromUtf16(key.keys), QString::fromUtf16(key.does)});
    sheet->expandAll();
    sheet->resizeColumnToContents(0);
    auto* layout = new QVBoxLayout(dialog);
    layout->addWidget(line);
    layout->addWidget(sheet, 1);
    QObject::connect(line, &QLineEdit::textChanged, sheet, [sheet](const QString& text) { Filter(*sheet, text); });
    return dialog;
}

} // namespace sbd
