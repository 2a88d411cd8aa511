// The book of a project's input on paper.
#pragma once

#include "book/book_sheets.h"
#include "book/input_book.h"
#include "sbdfile/project_file.h"
#include "upperview/book_page.h"

#include <QString>

#include <optional>
#include <vector>

namespace sbd {

class CSbdData;

/// What a written book has.
struct BookReport {
    FileResult result;
    int pages = 0;
    bool bookmarks = true; ///< false: the PDF is of a form that they could not be added to
};

/// Cover, contents with links, each block as a table with heads, broken by rows and by columns; bookmarks. Wide tables
/// repeat the columns that name the row. The file is put in place as a whole. Nothing if `progress` gave up. Beside the
/// book itself no more than one block is held at a time.
[[nodiscard]] std::optional<BookReport> WriteBookPdf(const QString& path, const CSbdData& data,
                                                     const std::vector<int>& blocks, const BookFacts& facts,
                                                     const BookLook& look, const BookProgress& progress = {});

} // namespace sbd
