// Bookmarks and links from page to page in a PDF that Qt has written. QPdfWriter has neither.
#pragma once

#include <QRectF>
#include <QString>

#include <vector>

class QIODevice;

namespace sbd {

/// A line of the list that a viewer shows beside the pages. Points are 1/72 inch.
struct PdfBookmark {
    QString title;
    int page = 0;       ///< from 0
    double fromTop = 0; ///< points
    int level = 0;      ///< at most one more than that of the line ahead of it
};

/// A place of a page that leads to another page.
struct PdfLink {
    int page = 0;   ///< from 0
    QRectF place;   ///< points, y downward from the top of the page
    int target = 0; ///< page, from 0
    double fromTop = 0;
};

enum class PdfOutlineResult {
    Appended,
    NotWhole,    ///< the file's end is missing: it was cut off, by a full disk for instance
    UnknownForm, ///< it is a form of PDF that is not known here
    NoSuchPage,  ///< a bookmark or a link leads to no page, or a level is left out
    NotWritten,  ///< the device does not take it; part of it may stand behind the file
};

/// Appends them to a whole PDF, as an update behind what stands there. `pdf` is open for reading and writing. Unless they
/// are appended, or cannot be written, it stays as it is.
[[nodiscard]] PdfOutlineResult AppendPdfOutline(QIODevice& pdf, const std::vector<PdfBookmark>& bookmarks,
                                                const std::vector<PdfLink>& links = {});

} // namespace sbd
