// The sketches of help pages in the book.
#pragma once

#include "upperview/book_page.h"

#include <vector>

class QPainter;

namespace sbd {

class CSbdData;

/// The sketches of a block's page, below each other.
class CBookSketches {
public:
    /// `data` and `look` must outlive it.
    CBookSketches(const CSbdData& data, const BookLook& look) : data_(data), look_(look), page_(look) {}

    /// What they take of the page; 0: the block has none, or the book is without.
    [[nodiscard]] double HeightOf(int block) const;
    void Paint(QPainter& painter, int block, double top) const;

private:
    struct Placed;
    [[nodiscard]] std::vector<Placed> PlacedOf(int block) const;

    const CSbdData& data_;
    const BookLook& look_;
    BookPage page_;
};

} // namespace sbd
