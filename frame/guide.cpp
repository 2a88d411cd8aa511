#include "frame/guide.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

QStringList CellsOf(const QString& text)
{
    QStringList cells = text.split(u'|');
    for (QString& cell : cells)
        cell = cell.trimmed();
    return cells;
}

/// Takes a line that belongs to a step. False: it does not.
bool TakeStepLine(GuideStep& step, const QString& word, const QString& rest)
{
    using enum GuideLine::Kind;
    if (word == u"do" || word == u"see" || word == u"note") {
        step.lines.append({word == u"do" ? Do : word == u"see" ? See : Note, rest, {}});
        return true;
    }
    if (word == u"table") {
        GuideLine line{Table, {}, {}};
        line.table.block = rest.section(u' ', 0, 0).toInt();
        line.table.heads = CellsOf(rest.section(u' ', 1));
        step.lines.append(line);
        return line.table.block > 0;
    }
    if (word == u"row") {
        if (step.lines.isEmpty() || step.lines.last().kind != Table)
            return false;
        GuideTable& table = step.lines.last().table;
        const QStringList cells = CellsOf(rest.section(u'|', 1));
        table.rows.append({rest.section(u'|', 0, 0).trimmed().toInt(), cells});
        return table.rows.last().row > 0 && cells.size() == table.heads.size();
    }
    if (word == u"act")
        step.acts.append({rest.section(u' ', 0, 0), rest.section(u' ', 1)});
    return word == u"act" && !rest.isEmpty();
}

bool TakeLine(Guide& guide, const QString& word, const QString& rest)
{
    if (word == u"title")
        guide.title = rest;
    else if (word == u"intro")
        guide.intro.append(rest);
    else if (word == u"step")
        guide.steps.append({rest.section(u' ', 0, 0), rest.section(u' ', 1), {}, {}});
    else
        return !guide.steps.isEmpty() && TakeStepLine(guide.steps.last(), word, rest);
    return !rest.isEmpty();
}

QString Numbered(qsizetype step, const GuideStep& of)
{
    return u"%1. %2"_s.arg(step + 1).arg(of.title);
}

/// "行" and the heads of a table.
QStringList HeadsOf(const GuideTable& table)
{
    return QStringList(u"行"_s) + table.heads;
}

QString HtmlTable(const GuideTable& table)
{
    QString html = u"<table border='1' cellspacing='0' cellpadding='4'><tr>"_s;
    for (const QString& head : HeadsOf(table))
        html += u"<th>"_s + head.toHtmlEscaped() + u"</th>"_s;
    html += u"</tr>"_s;
    for (const GuideTable::Row& row : table.rows) {
        html += u"<tr><td align='right'>%1</td>"_s.arg(row.row);
        for (const QString& cell : row.cells)
            html += (IsGiven(cell) ? u"<td>%1</td>"_s : u"<td><b>%1</b></td>"_s).arg(CellText(cell).toHtmlEscaped());
        html += u"</tr>"_s;
    }
    return html + u"</table>"_s;
}

QString MarkdownTable(const GuideTable& table)
{
    const auto line = [](const QStringList& cells) { return u"| "_s + cells.join(u" | "_s) + u" |\n"_s; };
    QString text = line(HeadsOf(table)) + line(QStringList(table.heads.size() + 1, u"---"_s));
    for (const GuideTable::Row& row : table.rows) {
        QStringList cells{QString::number(row.row)};
        for (const QString& cell : row.cells)
            cells << (IsGiven(cell) ? CellText(cell) : u'`' + cell + u'`');
        text += line(cells);
    }
    return text;
}

// What is read ahead of a line's text.
struct LineLook {
    GuideLine::Kind kind;
    const char16_t* html;
    const char16_t* markdown;
};
constexpr LineLook kLooks[] = {
    {GuideLine::Kind::Do, u"<p><b>操作</b>　%1</p>", u"- 操作: %1\n"},
    {GuideLine::Kind::See, u"<p><b>画面</b>　%1</p>", u"- 画面: %1\n"},
    {GuideLine::Kind::Note, u"<p><small>（補足）%1</small></p>", u"- 補足: %1\n"},
};

QString LineText(const GuideLine& line, const char16_t* LineLook::*form)
{
    for (const LineLook& look : kLooks)
        if (look.kind == line.kind)
            return QString::fromUtf16(look.*form);
    return {};
}

// What one practises with: an analysis input and its results. On the disk they have the names of their bridge.
struct PracticeFile {
    QStringView resource;
    QStringView path;
};
constexpr PracticeFile kPractice[] = {
    {u"plate4.abd", u"plate4.abd"},
    {u"plate4.Z1D", u"plate4_計算結果/plate4.Z1D"},
    {u"plate4.Z1F", u"plate4_計算結果/plate4.Z1F"},
    {u"plate4.Z1R", u"plate4_計算結果/plate4.Z1R"},
    {u"plate4.Z3D", u"plate4_計算結果/plate4.Z3D"},
    {u"plate4.Z3F", u"plate4_計算結果/plate4.Z3F"},
    {u"plate4.Z3R", u"plate4_計算結果/plate4.Z3R"},
};

bool CopyPractice(const QDir& folder)
{
    if (!folder.mkpath(u"plate4_計算結果"_s))
        return false;
    for (const PracticeFile& file : kPractice) {
        QFile from(u":/guide/practice/"_s + file.resource.toString());
        QFile to(folder.filePath(file.path.toString())); // not a copy, which would be as read-only as the resource
        if (!from.open(QFile::ReadOnly) || !to.open(QFile::WriteOnly | QFile::NewOnly))
            return false;
        const QByteArray bytes = from.readAll();
        if (to.write(bytes) != bytes.size() || !to.flush())
            return false;
    }
    return true;
}

} // namespace

Guide ReadGuide(const QByteArray& text)
{
    Guide guide;
    int number = 0;
    for (const QString& read : QString::fromUtf8(text).split(u'\n')) {
        ++number;
        const QString line = read.trimmed();
        if (line.isEmpty() || line.startsWith(u'#'))
            continue;
        if (!TakeLine(guide, line.section(u' ', 0, 0), line.section(u' ', 1)))
            guide.faults.append(u"%1: %2"_s.arg(number).arg(line));
    }
    return guide;
}

const Guide& FirstBridge()
{
    static const Guide guide = [] {
        QFile file(u":/guide/first_bridge.txt"_s);
        return ReadGuide(file.open(QFile::ReadOnly) ? file.readAll() : QByteArray());
    }();
    return guide;
}

bool IsGiven(const QString& cell)
{
    return cell.isEmpty() || cell.startsWith(u'=');
}

QString CellText(const QString& cell)
{
    return cell.startsWith(u'=') ? cell.mid(1) : cell;
}

QString GuideHtml(const Guide& guide)
{
    // Wide blanks, which titles have, would become narrow ones.
    QString html = u"<body style='white-space:pre-wrap'><h1>%1</h1>"_s.arg(guide.title.toHtmlEscaped());
    for (const QString& text : guide.intro)
        html += u"<p>%1</p>"_s.arg(text.toHtmlEscaped());
    html += u"<p>"_s;
    for (qsizetype i = 0; i < guide.steps.size(); ++i)
        html += u"<a href='#%1'>%2</a><br>"_s.arg(guide.steps[i].name, Numbered(i, guide.steps[i]).toHtmlEscaped());
    html += u"</p>"_s;
    for (qsizetype i = 0; i < guide.steps.size(); ++i) {
        const GuideStep& step = guide.steps[i];
        html += u"<h2><a name='%1'></a>%2</h2>"_s.arg(step.name, Numbered(i, step).toHtmlEscaped());
        for (const GuideLine& line : step.lines)
            html += line.kind == GuideLine::Kind::Table
                        ? HtmlTable(line.table)
                        : LineText(line, &LineLook::html).arg(line.text.toHtmlEscaped());
        html += u"<p><img src='%1.png'></p>"_s.arg(step.name);
    }
    return html + u"</body>"_s;
}

QString GuideMarkdown(const Guide& guide, const QString& folder)
{
    QString text = u"# %1\n"_s.arg(guide.title);
    for (const QString& intro : guide.intro)
        text += u'\n' + intro + u'\n';
    for (qsizetype i = 0; i < guide.steps.size(); ++i) {
        const GuideStep& step = guide.steps[i];
        text += u"\n## %1\n\n"_s.arg(Numbered(i, step));
        for (const GuideLine& line : step.lines)
            text += line.kind == GuideLine::Kind::Table ? u'\n' + MarkdownTable(line.table) + u'\n'
                                                        : LineText(line, &LineLook::markdown).arg(line.text);
        text += u"\n![%1](%2/%3.png)\n"_s.arg(step.title, folder, step.name);
    }
    return text;
}

QString MakePracticeFolder(const QString& place)
{
    constexpr int mostFolders = 100;
    if (!QFileInfo(place).isDir())
        return {};
    for (int i = 1; i <= mostFolders; ++i) {
        const QString name = i == 1 ? u"はじめての橋"_s : u"はじめての橋 %1"_s.arg(i);
        QDir folder(QDir(place).filePath(name));
        if (folder.exists())
            continue; // somebody's work
        if (CopyPractice(folder))
            return folder.path();
        folder.removeRecursively();
        return {};
    }
    return {};
}

} // namespace sbd
