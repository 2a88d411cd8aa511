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

/// Appends them to a whole PDF of QPdfWriter, as an update behind what stands there. `pdf` is open for reading and
/// writing. False, and nothing appended, if it is not as QPdfWriter writes it (cut off by a full disk, for instance), a
/// page does not exist, or it cannot be written to.
[[nodiscard]] bool AppendPdfOutline(QIODevice& pdf, const std::vector<PdfBookmark>& bookmarks,
                                    const std::vector<PdfLink>& links = {});

} // namespace sbd
