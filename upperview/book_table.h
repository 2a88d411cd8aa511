// A block of the book as it is put on paper: widths and heights of its cells.
#pragma once

#include "book/input_book.h"
#include "upperview/book_page.h"

#include <vector>

namespace sbd {

class CSbdData;

struct BookTable {
    BookBlock block;
    std::vector<double> widths;
    std::vector<double> heights; ///< of the rows
    double headHeight = 0;
    std::size_t repeated = 1; ///< columns at the left that each part has
};

/// Width of `count` columns from `column` on.
[[nodiscard]] double WidthOf(const BookTable& table, std::size_t column, std::size_t count);

/// The tables of a book, one at a time.
class CBookTables {
public:
    /// Data and blocks must outlive it.
    CBookTables(const CSbdData& data, const std::vector<int>& blocks, const BookLook& look);

    /// The table of a block by its place in the list; the last one is kept.
    [[nodiscard]] const BookTable& At(int index);
    [[nodiscard]] int Count() const { return static_cast<int>(blocks_.size()); }
    [[nodiscard]] int BlockAt(int index) const { return blocks_[static_cast<std::size_t>(index)]; }
    [[nodiscard]] const CSbdData& Data() const { return data_; }

    [[nodiscard]] QStringList HeadLines(const BookTable& table, std::size_t column);
    [[nodiscard]] QStringList CellLines(const BookTable& table, std::size_t column, const std::string& text);
    /// Of the texts in cells.
    [[nodiscard]] CBookMeasure& Measure() { return measure_; }

private:
    [[nodiscard]] BookTable Make(int index);
    [[nodiscard]] double ColumnWidth(const BookBlock& block, std::size_t column);

    const CSbdData& data_;
    const std::vector<int>& blocks_;
    double room_;
    CBookMeasure measure_;
    BookTable table_;
    int tableIndex_ = -1;
};

} // namespace sbd
