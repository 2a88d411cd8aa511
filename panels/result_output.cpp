#include "panels/result_output.h"

#include "document/section_doc.h"
#include "results/figure_heading.h"
#include "results/result_title.h"

#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>

#include <algorithm>
#include <vector>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr double kPixelsPerInch = 96; // of the column widths
constexpr double kPadding = 3;        // pixels between a line and a text
constexpr std::size_t kHeadRows = 3;  // a blank line, the heads, their units; below the title

QString CellOf(const CResultTable& table, std::size_t row, std::size_t column)
{
    return toQString(table.CellText(row, column)).trimmed();
}

/// "[kN]"; empty for a column without a unit.
QString UnitOf(const CResultTable& table, std::size_t column)
{
    const QString unit = toQString(table.Unit(column));
    return unit.isEmpty() ? unit : u'[' + unit + u']';
}

/// What stands over the table: its title, from where it is, and words of warning where the input is newer or the files
/// have faults.
QStringList HeadLines(const CResultTable& table, const ResultSelection& selection, const ResultState& state)
{
    QStringList lines{ResultTitle(selection)};
    for (const std::string& line : {OriginText(state), StaleLine(state)})
        if (!line.empty())
            lines << toQString(line);
    if (const QString warning = toQString(table.FaultLine()); !warning.isEmpty())
        lines << warning;
    return lines;
}

/// The lines in a width, broken between their parts.
QStringList Wrapped(const QStringList& lines, const QFontMetricsF& metrics, double width)
{
    QStringList wrapped;
    for (const QString& line : lines) {
        QString row;
        for (const QString& part : line.split(u'　')) {
            const QString longer = row.isEmpty() ? part : row + u'　' + part;
            if (!row.isEmpty() && metrics.horizontalAdvance(longer) > width) {
                wrapped << row;
                row = part;
            } else {
                row = longer;
            }
        }
        wrapped << row;
    }
    return wrapped;
}

/// Rows of the grid that are filled, the heads included.
std::size_t FilledRows(const CResultTable& table)
{
    return table.RowCount() > 0 ? kFirstValueRow + table.RowCount() : std::min<std::size_t>(table.GridRowCount(), 1);
}

QString CsvCell(QString text)
{
    if (!text.contains(u',') && !text.contains(u'"') && !text.contains(u'\n'))
        return text;
    return u'"' + text.replace(u'"', u"\"\""_s) + u'"';
}

/// Lays the table out in pixels; the painter is scaled.
class TablePrinter {
public:
    TablePrinter(QPainter& painter, const CResultTable& table, const QFont& font)
        : painter_(painter)
        , table_(table)
        , metrics_(font)
    {
        double width = 0;
        for (std::size_t column = 0; column < table.GridColumnCount(); ++column) {
            lefts_.push_back(width);
            width += ColumnWidth(column);
        }
        lefts_.push_back(width);
        rowHeight_ = metrics_.height() + kPadding;
    }

    [[nodiscard]] double Width() const { return lefts_.back(); }
    [[nodiscard]] double RowHeight() const { return rowHeight_; }

    void Row(std::size_t row, double top)
    {
        for (std::size_t column = 0; column < table_.GridColumnCount(); ++column) {
            const double lines = row == 0 ? 2 : 1;
            const QRectF cell(lefts_[column], top, lefts_[column + 1] - lefts_[column], lines * rowHeight_);
            if (table_.CellBackground(row, column))
                painter_.fillRect(cell, QColor(0xE0, 0xE0, 0xE0));
            painter_.drawRect(cell);
            const Qt::Alignment side = row == 0                ? Qt::AlignHCenter
                                       : column == kNameColumn ? Qt::AlignLeft
                                                               : Qt::AlignRight;
            painter_.drawText(cell.adjusted(kPadding, 0, -kPadding, 0), int(side | Qt::AlignVCenter),
                              row == 0 ? CellOf(table_, 0, column) + u'\n' + UnitOf(table_, column)
                                       : CellOf(table_, row, column));
        }
    }

private:
    /// That of the grid, or that of the widest of its texts.
    [[nodiscard]] double ColumnWidth(std::size_t column) const
    {
        double width = std::max<double>(table_.GridColumnWidth(column),
                                        metrics_.horizontalAdvance(UnitOf(table_, column)) + 2 * kPadding);
        for (std::size_t row = 0; row < FilledRows(table_); ++row)
            width = std::max(width, metrics_.horizontalAdvance(CellOf(table_, row, column)) + 2 * kPadding);
        return width;
    }

    QPainter& painter_;
    const CResultTable& table_;
    QFontMetricsF metrics_;
    std::vector<double> lefts_;
    double rowHeight_ = 0;
};

} // namespace

QString ResultTitle(const ResultSelection& selection)
{
    return toQString(TableTitle(selection));
}

QByteArray ResultCsv(const CResultTable& table, const ResultSelection& selection, const ResultState& state)
{
    QString text;
    for (const QString& line : HeadLines(table, selection, state))
        text += CsvCell(line) + u"\r\n"_s;
    for (std::size_t row = 0; row < FilledRows(table); ++row) {
        for (std::size_t column = kNameColumn; column < table.GridColumnCount(); ++column) {
            if (column > kNameColumn)
                text += u',';
            const QString unit = row == 0 ? UnitOf(table, column) : QString();
            text += CsvCell(CellOf(table, row, column) + (unit.isEmpty() ? unit : u' ' + unit));
        }
        text += u"\r\n";
    }
    return QByteArrayLiteral("\xEF\xBB\xBF") + text.toUtf8();
}

bool PrintResultTable(QPagedPaintDevice& device, const CResultTable& table, const ResultSelection& selection,
                      const QFont& font, const ResultState& state)
{
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    QFont pixels = font;
    pixels.setPixelSize(QFontInfo(font).pixelSize());
    painter.setFont(pixels);
    painter.setPen(QPen(Qt::black, 0));
    const double inch = device.logicalDpiX() / kPixelsPerInch;
    const QSizeF paper(device.width() / inch, device.height() / inch);
    TablePrinter printer(painter, table, pixels);
    const double shrink = printer.Width() > paper.width() ? paper.width() / printer.Width() : 1;
    const QSizeF page = paper / shrink;
    painter.scale(inch * shrink, inch * shrink);

    const double height = printer.RowHeight();
    const QString widestNumber = u"　9999 / 9999"_s;
    const QFontMetricsF metrics(pixels);
    const QStringList title =
        Wrapped(HeadLines(table, selection, state), metrics, page.width() - metrics.horizontalAdvance(widestNumber));
    const std::size_t headRows = static_cast<std::size_t>(title.size()) + kHeadRows;
    const auto fitting = static_cast<std::size_t>(page.height() / height);
    const std::size_t rowsOnPage = fitting > headRows ? fitting - headRows : 1;
    const std::size_t end = FilledRows(table);
    const std::size_t pages = end > 1 ? (end - 2) / rowsOnPage + 1 : 1;
    const QRectF titleLine(0, 0, page.width(), height);
    for (std::size_t number = 0; number < pages; ++number) {
        if (number > 0 && !device.newPage())
            return false;
        for (qsizetype line = 0; line < title.size(); ++line)
            painter.drawText(titleLine.translated(0, static_cast<double>(line) * height),
                             int(Qt::AlignLeft | Qt::AlignVCenter), title[line]);
        painter.drawText(titleLine, int(Qt::AlignRight | Qt::AlignVCenter), u"%1 / %2"_s.arg(number + 1).arg(pages));
        if (end == 0)
            break;
        printer.Row(0, static_cast<double>(headRows - 2) * height);
        for (std::size_t i = 0; i < rowsOnPage && number * rowsOnPage + i + 1 < end; ++i)
            printer.Row(number * rowsOnPage + i + 1, static_cast<double>(headRows + i) * height);
    }
    return painter.end();
}

} // namespace sbd
