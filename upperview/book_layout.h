// Where the blocks of the book stand: broken by rows and by columns over pages.
#pragma once

#include "book/book_sheets.h"
#include "upperview/book_page.h"

#include <string>
#include <vector>

namespace sbd {

class CBookSketches;
class CBookTables;
struct BookTable;

/// What the progress of a book counts to: the places take the first half, the ink the second, page by page.
inline constexpr int kBookSteps = 1000;

/// A part of a block on a page.
struct BookPiece {
    int block = 0; ///< place in the list of blocks
    double top = 0;
    bool first = false;  ///< the block begins here
    bool sketch = false; ///< a title with the sketches, no table
    std::size_t row = 0;
    std::size_t rows = 0;
    std::size_t column = 0; ///< the first one behind those that are repeated
    std::size_t columns = 0;
};

/// Where a block begins.
struct BookStart {
    std::string name; ///< of the block
    int page = 0;     ///< from 0, in the whole book
    double top = 0;
};

/// The places of everything: cover, contents, blocks.
class CBookLayout {
public:
    /// Finds them. Tables and sketches must outlive it.
    CBookLayout(CBookTables& tables, const CBookSketches& sketches, const BookLook& look);
    /// False if the user gave up.
    [[nodiscard]] bool LayOut(const BookProgress& progress);

    [[nodiscard]] int Pages() const { return 1 + contentsPages_ + static_cast<int>(pieces_.size()); }
    [[nodiscard]] int ContentsPages() const { return contentsPages_; }
    /// The pieces of each page behind the contents.
    [[nodiscard]] const std::vector<std::vector<BookPiece>>& Pieces() const { return pieces_; }
    [[nodiscard]] const std::vector<BookStart>& Starts() const { return starts_; }
    [[nodiscard]] const BookPage& Page() const { return page_; }
    /// Height of the line above a part that is not the first of its block.
    [[nodiscard]] double NoteHeight() const;

private:
    void NewPage();
    void Place(int index);
    [[nodiscard]] std::size_t ColumnsThatFit(const BookTable& table, std::size_t column) const;
    void PlaceColumns(int index, const BookTable& table, std::size_t column, std::size_t count, bool first);

    CBookTables& tables_;
    const CBookSketches& sketches_;
    BookPage page_;
    int contentsPages_ = 1;
    std::vector<std::vector<BookPiece>> pieces_;
    std::vector<BookStart> starts_;
    double y_ = book_page::kTop;
};

} // namespace sbd
