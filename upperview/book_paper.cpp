#include "upperview/book_paper.h"

#include "document/path.h"
#include "project/sbd_data.h"
#include "sbdfile/output_file.h"
#include "upperview/book_layout.h"
#include "upperview/book_painter.h"
#include "upperview/book_sketches.h"
#include "upperview/book_table.h"
#include "upperview/pdf_outline.h"

#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryFile>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

// Lengths are in 0.1 mm.
constexpr double kUnitsPerInch = 254;
constexpr double kPointsPerUnit = 72 / kUnitsPerInch;
constexpr int kPdfDpi = 1200;

std::vector<PdfBookmark> BookmarksOf(const CBookLayout& layout)
{
    std::vector<PdfBookmark> bookmarks = {{u"表紙"_s, 0, 0, 0}, {u"目次"_s, 1, 0, 0}};
    for (const BookStart& start : layout.Starts())
        bookmarks.push_back({BookText(start.name), start.page, start.top * kPointsPerUnit, 0});
    return bookmarks;
}

/// From each line of the contents to its block.
std::vector<PdfLink> LinksOf(const CBookLayout& layout)
{
    std::vector<PdfLink> links;
    const int lines = layout.Page().ContentsLines();
    int number = 0;
    for (const BookStart& start : layout.Starts()) {
        const double top = book_page::kContentsTop + number % lines * book_page::kContentsLine;
        const QRectF place(book_page::kLeft, top, layout.Page().Room(), book_page::kContentsLine);
        links.push_back({1 + number / lines, QRectF(place.topLeft() * kPointsPerUnit, place.size() * kPointsPerUnit),
                         start.page, start.top * kPointsPerUnit});
        ++number;
    }
    return links;
}

FileResult NoRoom()
{
    FileResult result;
    result.error = FileError::DiskFull;
    result.detail = "作業用フォルダーに書き込めません";
    return result;
}

} // namespace

std::optional<BookReport> WriteBookPdf(const QString& path, const CSbdData& data, const std::vector<int>& blocks,
                                       const BookFacts& facts, const BookLook& look, const BookProgress& progress)
{
    CBookTables tables(data, blocks, look);
    const CBookSketches sketches(data, look);
    CBookLayout layout(tables, sketches, look);
    if (!layout.LayOut(progress))
        return std::nullopt;
    BookReport report;
    report.pages = layout.Pages();
    QTemporaryFile file;
    if (!file.open()) {
        report.result = NoRoom();
        return report;
    }
    {
        QPdfWriter writer(&file);
        writer.setResolution(kPdfDpi);
        writer.setTitle(u"入力データ "_s + BookText(facts.project));
        writer.setCreator(BookText(facts.program));
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setPageOrientation(look.landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
        writer.setPageMargins({0, 0, 0, 0});
        QPainter painter;
        if (!painter.begin(&writer)) {
            report.result = NoRoom();
            return report;
        }
        painter.scale(kPdfDpi / kUnitsPerInch, kPdfDpi / kUnitsPerInch);
        CBookPainter book(tables, sketches, layout, facts, look);
        const bool whole = book.Paint(
            painter, [&writer] { writer.newPage(); }, progress);
        painter.end();
        if (!whole)
            return std::nullopt;
    }
    // Without bookmarks it is the same book: what Qt has written is whole.
    const PdfOutlineResult outline = AppendPdfOutline(file, BookmarksOf(layout), LinksOf(layout));
    report.bookmarks = outline == PdfOutlineResult::Appended;
    if (outline == PdfOutlineResult::NotWhole || outline == PdfOutlineResult::NotWritten || !file.seek(0)) {
        report.result = NoRoom();
        return report;
    }
    const QByteArray bytes = file.readAll();
    report.result =
        WriteOutputFile(ToPath(path), std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
    return report;
}

} // namespace sbd
