#include "upperview/book_layout.h"

#include "upperview/book_sketches.h"
#include "upperview/book_table.h"

#include <algorithm>

namespace sbd {

namespace {

using book_page::kPadding;
using book_page::kTitleHeight;
using book_page::kTop;

constexpr double kAboveBlock = 60; // 0.1 mm
constexpr int kLeastRows = 3;      // a block begins on a page that has room for so many

} // namespace

CBookLayout::CBookLayout(CBookTables& tables, const CBookSketches& sketches, const BookLook& look)
    : tables_(tables)
    , sketches_(sketches)
    , page_(look)
{
}

double CBookLayout::NoteHeight() const
{
    return tables_.Measure().LineHeight() + 6;
}

bool CBookLayout::LayOut(const BookProgress& progress)
{
    const int count = tables_.Count();
    contentsPages_ = std::max(1, (count + page_.ContentsLines() - 1) / page_.ContentsLines());
    for (int i = 0; i < count; ++i) {
        if (progress && !progress(kBookSteps / 2 * i / count, kBookSteps))
            return false;
        Place(i);
    }
    return true;
}

void CBookLayout::NewPage()
{
    pieces_.emplace_back();
    y_ = kTop;
}

void CBookLayout::Place(int index)
{
    const BookTable& table = tables_.At(index);
    const std::size_t rows = table.block.rows.size();
    double least = kTitleHeight + table.headHeight;
    for (std::size_t row = 0; row < std::min<std::size_t>(rows, kLeastRows); ++row)
        least += table.heights[row];
    const double sketches = sketches_.HeightOf(tables_.BlockAt(index));
    const double above = pieces_.empty() || pieces_.back().empty() ? 0 : kAboveBlock;
    if (pieces_.empty() || y_ + above + least + sketches > page_.Foot())
        NewPage();
    else
        y_ += above;
    starts_.push_back({table.block.name, contentsPages_ + static_cast<int>(pieces_.size()), y_});
    bool first = true;
    if (sketches > 0) {
        pieces_.back().push_back({index, y_, true, true});
        y_ += kTitleHeight + sketches;
        first = false;
    }
    const std::size_t columns = table.widths.size();
    for (std::size_t column = table.repeated; first || column < columns;) {
        const std::size_t count = ColumnsThatFit(table, column);
        PlaceColumns(index, table, column, count, first);
        first = false;
        column += std::max<std::size_t>(count, 1);
        if (column < columns)
            y_ += kPadding * 3;
    }
}

std::size_t CBookLayout::ColumnsThatFit(const BookTable& table, std::size_t column) const
{
    double left = page_.Room() - WidthOf(table, 0, table.repeated);
    std::size_t count = 0;
    while (column + count < table.widths.size() && (count == 0 || table.widths[column + count] <= left)) {
        left -= table.widths[column + count];
        ++count;
    }
    return count;
}

/// One group of columns, with all rows, over as many pages as it takes.
void CBookLayout::PlaceColumns(int index, const BookTable& table, std::size_t column, std::size_t count, bool first)
{
    const std::size_t rows = table.block.rows.size();
    std::size_t row = 0;
    do {
        const double head = (first ? kTitleHeight : NoteHeight()) + table.headHeight;
        const double least = row < rows ? table.heights[row] : 0;
        if (y_ + head + least > page_.Foot() && y_ > kTop)
            NewPage();
        BookPiece piece{index, y_, first, false, row, 0, column, count};
        y_ += head;
        do {
            if (row == rows)
                break;
            y_ += table.heights[row];
            ++row;
            ++piece.rows;
        } while (row < rows && y_ + table.heights[row] <= page_.Foot());
        pieces_.back().push_back(piece);
        first = false;
    } while (row < rows);
}

} // namespace sbd
