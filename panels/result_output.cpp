#include "panels/result_output.h"

#include "document/section_doc.h"
#include "results/result_csv.h"
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
constexpr double kLeastShrink = 0.6;  // of columns that do not fit on a sheet
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

/// What stands over the table.
QStringList HeadLines(const CResultTable& table, const ResultSelection& selection, const ResultState& state)
{
    QStringList lines;
    for (const std::string& line : TableHeadLines(table, selection, state))
        lines << toQString(line);
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

/// Lays the table out in pixels; the painter is scaled.
class TablePrinter {
public:
    /// The columns that stand on one sheet, from the left.
    using Columns = std::vector<std::size_t>;

    TablePrinter(QPainter& painter, const CResultTable& table, const QFont& font)
        : painter_(painter)
        , table_(table)
        , metrics_(font)
    {
        for (std::size_t column = 0; column < table.GridColumnCount(); ++column)
            widths_.push_back(ColumnWidth(column));
        rowHeight_ = metrics_.height() + kPadding;
    }

    [[nodiscard]] double RowHeight() const { return rowHeight_; }
    [[nodiscard]] double Width(const Columns& columns) const
    {
        double width = 0;
        for (const std::size_t column : columns)
            width += widths_[column];
        return width;
    }

    /// Number and name stand on each sheet, a load case beside the value that it decides.
    [[nodiscard]] std::vector<Columns> Sheets(double width) const
    {
        std::vector<Columns> sheets(1);
        for (std::size_t column = 0; column < widths_.size();) {
            Columns next{column};
            while (++column < widths_.size() && column > kFirstValueColumn && table_.HasWords(column))
                next.push_back(column);
            Columns& last = sheets.back();
            if (last.size() > kFirstValueColumn && Width(last) + Width(next) > width)
                sheets.push_back({kNumberColumn, kNameColumn});
            sheets.back().insert(sheets.back().end(), next.begin(), next.end());
        }
        return sheets;
    }

    void Row(const Columns& columns, std::size_t row, double top)
    {
        double left = 0;
        for (const std::size_t column : columns) {
            const double lines = row == 0 ? 2 : 1;
            const QRectF cell(left, top, widths_[column], lines * rowHeight_);
            left += widths_[column];
            if (table_.CellBackground(row, column))
                painter_.fillRect(cell, QColor(0xE0, 0xE0, 0xE0));
            painter_.drawRect(cell);
            const Qt::Alignment side = row == 0                  ? Qt::AlignHCenter
                                       : table_.HasWords(column) ? Qt::AlignLeft
                                                                 : Qt::AlignRight;
            painter_.drawText(cell.adjusted(kPadding, 0, -kPadding, 0), int(side | Qt::AlignVCenter),
                              row == 0 ? CellOf(table_, 0, column) + u'\n' + UnitOf(table_, column)
                                       : CellOf(table_, row, column));
        }
    }

private:
    /// That of the grid, of load cases only where they need it, or that of the widest of its texts.
    [[nodiscard]] double ColumnWidth(std::size_t column) const
    {
        const bool isCase = column > kNameColumn && table_.HasWords(column);
        double width = std::max<double>(isCase ? 0 : table_.GridColumnWidth(column),
                                        metrics_.horizontalAdvance(UnitOf(table_, column)) + 2 * kPadding);
        for (std::size_t row = 0; row < FilledRows(table_); ++row)
            width = std::max(width, metrics_.horizontalAdvance(CellOf(table_, row, column)) + 2 * kPadding);
        return width;
    }

    QPainter& painter_;
    const CResultTable& table_;
    QFontMetricsF metrics_;
    std::vector<double> widths_;
    double rowHeight_ = 0;
};

} // namespace

QString ResultTitle(const ResultSelection& selection)
{
    return toQString(TableTitle(selection));
}

QByteArray ResultCsv(const CResultTable& table, const ResultSelection& selection, const ResultState& state)
{
    return QByteArray::fromStdString(CsvOfTable(table, selection, state));
}

bool IsWideTable(const CResultTable& table)
{
    constexpr int portrait = 700; // pixels between the margins of a sheet of A4
    int width = 0;
    for (std::size_t column = 0; column < table.GridColumnCount(); ++column)
        width += table.GridColumnWidth(column);
    return width > portrait;
}

bool PrintResultTable(QPagedPaintDevice& device, const CResultTable& table, const ResultSelection& selection,
                      const QFont& font, const ResultState& state, const PrintProgress& progress)
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
    // Somewhat smaller letters rather than more sheets, but never smaller than can be read.
    const std::vector<TablePrinter::Columns> sheets = printer.Sheets(paper.width() / kLeastShrink);
    double widest = paper.width();
    for (const TablePrinter::Columns& columns : sheets)
        widest = std::max(widest, printer.Width(columns));
    const double shrink = paper.width() / widest;
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
    const std::size_t rowPages = end > 1 ? (end - 2) / rowsOnPage + 1 : 1;
    const std::size_t pages = rowPages * sheets.size();
    const QRectF titleLine(0, 0, page.width(), height);
    for (std::size_t number = 0; number < pages; ++number) {
        if (progress && !progress(static_cast<int>(number), static_cast<int>(pages)))
            return false;
        if (number > 0 && !device.newPage())
            return false;
        const std::size_t first = number / sheets.size() * rowsOnPage + 1;
        const TablePrinter::Columns& columns = sheets[number % sheets.size()];
        for (qsizetype line = 0; line < title.size(); ++line)
            painter.drawText(titleLine.translated(0, static_cast<double>(line) * height),
                             int(Qt::AlignLeft | Qt::AlignVCenter), title[line]);
        painter.drawText(titleLine, int(Qt::AlignRight | Qt::AlignVCenter), u"%1 / %2"_s.arg(number + 1).arg(pages));
        if (end == 0)
            break;
        printer.Row(columns, 0, static_cast<double>(headRows - 2) * height);
        for (std::size_t i = 0; i < rowsOnPage && first + i < end; ++i)
            printer.Row(columns, first + i, static_cast<double>(headRows + i) * height);
    }
    return painter.end();
}

} // namespace sbd
