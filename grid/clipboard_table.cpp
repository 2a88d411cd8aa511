#include "grid/clipboard_table.h"

#include <QMimeData>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>

#include <optional>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

/// A document of which only the text counts: nothing that it names is fetched.
class TextOnly : public QTextDocument {
protected:
    QVariant loadResource(int, const QUrl&) override { return {}; }
};

/// The only table of a page, if there is one and it has more than one cell.
std::optional<QList<QStringList>> TableIn(const QString& html)
{
    constexpr qsizetype most = 32 * 1024 * 1024; // characters
    if (html.size() > most || !html.contains(u"<table"_s, Qt::CaseInsensitive))
        return std::nullopt;
    TextOnly page;
    page.setHtml(html);
    const QTextTable* found = nullptr;
    for (QTextFrame* frame : page.rootFrame()->childFrames())
        if (const auto* table = qobject_cast<QTextTable*>(frame)) {
            if (found != nullptr)
                return std::nullopt;
            found = table;
        }
    if (found == nullptr || found->rows() * found->columns() < 2)
        return std::nullopt;
    QList<QStringList> rows;
    for (int row = 0; row < found->rows(); ++row) {
        QStringList& cells = rows.emplace_back();
        for (int column = 0; column < found->columns(); ++column) {
            const QTextTableCell cell = found->cellAt(row, column);
            QStringList lines;
            const bool own = cell.row() == row && cell.column() == column; // the rest of a joined cell is empty
            for (QTextFrame::iterator it = cell.begin(); own && it != cell.end(); ++it)
                if (it.currentBlock().isValid())
                    lines << it.currentBlock().text().simplified();
            lines.removeAll(QString());
            cells << lines.join(u' ');
        }
    }
    return rows;
}

/// True if the text has the rows and columns of the table.
bool HasShapeOf(const QString& text, const QList<QStringList>& table)
{
    QString lines = text;
    lines.remove(u'\r');
    if (lines.endsWith(u'\n'))
        lines.chop(1);
    const QStringList rows = lines.split(u'\n');
    if (rows.size() != table.size())
        return false;
    for (qsizetype row = 0; row < rows.size(); ++row)
        if (rows[row].count(u'\t') + 1 != table[row].size())
            return false;
    return true;
}

} // namespace

std::unique_ptr<QMimeData> ClipboardOf(const QString& text, bool heads)
{
    QString html = u"<html><head><meta charset=\"utf-8\"></head><body><table border=\"1\" cellspacing=\"0\">"_s;
    bool isHead = heads;
    for (const QString& line : text.split(u'\n')) {
        const QString cell = isHead ? u"th"_s : u"td"_s;
        html += u"<tr>"_s;
        for (const QString& part : line.split(u'\t'))
            html += u"<%1>%2</%1>"_s.arg(cell, part.toHtmlEscaped());
        html += u"</tr>"_s;
        isHead = false;
    }
    html += u"</table></body></html>"_s;
    auto data = std::make_unique<QMimeData>();
    data->setText(text);
    data->setHtml(html);
    return data;
}

QString ClipboardTable(const QMimeData& data)
{
    const QString text = data.text();
    if (!data.hasHtml() || text.contains(u'"')) // what stands between quotation marks may hold line ends
        return text;
    const std::optional<QList<QStringList>> table = TableIn(data.html());
    if (!table || HasShapeOf(text, *table))
        return text;
    QStringList lines;
    for (const QStringList& row : *table)
        lines << row.join(u'\t');
    return lines.join(u'\n');
}

} // namespace sbd
