#include "upperview/book_table.h"

#include "project/sbd_data.h"

#include <algorithm>

namespace sbd {

namespace {

using book_page::kPadding;

// 0.1 mm
constexpr double kWidestCell = 560; // longer texts take several lines
constexpr double kWidestHead = 260;
constexpr double kLeastCell = 40;
constexpr std::size_t kOptionColumns = 3; // row, item, value

} // namespace

double WidthOf(const BookTable& table, std::size_t column, std::size_t count)
{
    double width = 0;
    for (std::size_t i = column; i < column + count; ++i)
        width += table.widths[i];
    return width;
}

CBookTables::CBookTables(const CSbdData& data, const std::vector<int>& blocks, const BookLook& look)
    : data_(data)
    , blocks_(blocks)
    , room_(BookPage(look).Room())
    , measure_(BookFont(look, book_page::kTextSize))
{
}

const BookTable& CBookTables::At(int index)
{
    if (index != tableIndex_) {
        table_ = Make(index);
        tableIndex_ = index;
    }
    return table_;
}

double CBookTables::ColumnWidth(const BookBlock& block, std::size_t column)
{
    double width = 0;
    for (const auto& row : block.rows)
        width = std::max(width, measure_.Width(BookText(row[column])));
    double head = 0;
    for (const QString& line : BookText(block.columns[column].head).split(u'\n'))
        head = std::max(head, measure_.Width(line));
    const bool option =
        block.columns.size() == kOptionColumns; // its texts are sentences, and it is not broken by columns
    const double widest = option ? room_ * (column == 1 ? 0.58 : 0.34) : kWidestCell;
    return std::max({std::min(width, widest), std::min(head, kWidestHead), kLeastCell}) + 2 * kPadding;
}

BookTable CBookTables::Make(int index)
{
    BookTable table;
    table.block = MakeBookBlock(data_, BlockAt(index));
    const BookBlock& block = table.block;
    const std::size_t columns = block.columns.size();
    qsizetype headLines = 1;
    for (std::size_t column = 0; column < columns; ++column) {
        table.widths.push_back(ColumnWidth(block, column));
        headLines = std::max(headLines, HeadLines(table, column).size());
    }
    table.headHeight = static_cast<double>(headLines) * measure_.LineHeight() + kPadding;
    for (const auto& row : block.rows) {
        qsizetype lines = 1;
        for (std::size_t column = 0; column < columns; ++column)
            lines = std::max(lines, CellLines(table, column, row[column]).size());
        table.heights.push_back(static_cast<double>(lines) * measure_.LineHeight() + kPadding);
    }
    table.repeated = std::min(block.nameColumns, columns);
    if (columns > kOptionColumns && WidthOf(table, 0, table.repeated) > room_ / 2)
        table.repeated = std::min<std::size_t>(1, columns);
    return table;
}

QStringList CBookTables::HeadLines(const BookTable& table, std::size_t column)
{
    return measure_.Lines(BookText(table.block.columns[column].head), table.widths[column] - 2 * kPadding + 1);
}

QStringList CBookTables::CellLines(const BookTable& table, std::size_t column, const std::string& text)
{
    return measure_.Lines(BookText(text), table.widths[column] - 2 * kPadding + 1);
}

} // namespace sbd
