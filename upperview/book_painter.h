// Puts the pages of the book on a painter whose unit is 0.1 mm.
#pragma once

#include "book/book_sheets.h"
#include "book/input_book.h"
#include "upperview/book_page.h"

#include <QFont>
#include <QRectF>

#include <functional>

class QPainter;

namespace sbd {

class CBookLayout;
class CBookSketches;
class CBookTables;
struct BookPiece;
struct BookTable;

class CBookPainter {
public:
    /// All must outlive it.
    CBookPainter(CBookTables& tables, const CBookSketches& sketches, const CBookLayout& layout, const BookFacts& facts,
                 const BookLook& look);

    /// Paints all pages; `newPage` opens the next one. False if the user gave up.
    [[nodiscard]] bool Paint(QPainter& painter, const std::function<void()>& newPage, const BookProgress& progress);

private:
    void PaintCover(QPainter& painter) const;
    void PaintContents(QPainter& painter, int page) const;
    void PaintFrame(QPainter& painter, int page, const QString& what);
    void PaintPiece(QPainter& painter, const BookPiece& piece);
    void PaintTitle(QPainter& painter, const BookBlock& block, double y) const;
    void PaintTable(QPainter& painter, const BookTable& table, const BookPiece& piece, double y);
    void PaintLines(QPainter& painter, const QFont& font, const QStringList& lines, QRectF cell, Qt::Alignment side);

    CBookTables& tables_;
    const CBookSketches& sketches_;
    const CBookLayout& layout_;
    const BookFacts& facts_;
    const BookLook& look_;
    BookPage page_;
    QFont font_;
    QFont boldFont_;
    QFont titleFont_;
};

} // namespace sbd
