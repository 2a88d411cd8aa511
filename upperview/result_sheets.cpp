#include "upperview/result_sheets.h"

#include "document/section_doc.h"
#include "results/figure_heading.h"
#include "upperview/figure_texts.h"
#include "upperview/pdf_outline.h"
#include "upperview/result_diagram.h"

#include <QBuffer>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr double kPixelsPerInch = 96;
constexpr double kMillimetresPerInch = 25.4;
constexpr double kMargin = 12; // mm
constexpr double kGap = 6;     // pixels between figures
constexpr int kPdfDpi = 600;   // of places: lines and letters are those of the PDF itself

/// Paints one sheet of `pixels`, at 96 an inch.
void PaintSheet(QPainter& painter, QSizeF pixels, const AnalysisResults& results, const ResultSheet& sheet,
                const FigureLook& look, const ResultState& state, const QString& foot)
{
    const QFont small = SmallFont(look);
    const double footHeight = QFontMetricsF(small, painter.device()).height() + kGap;
    const double count = std::max<double>(1, static_cast<double>(sheet.figures.size()));
    const double height = (pixels.height() - footHeight) / count;
    for (std::size_t i = 0; i < sheet.figures.size(); ++i) {
        const QRectF pane(0, static_cast<double>(i) * height, pixels.width(), height - kGap);
        painter.save();
        painter.translate(pane.topLeft());
        painter.setClipRect(QRectF(QPointF(0, 0), pane.size()));
        FigureScreen screen{.clientWidth = pane.width(), .clientHeight = pane.height()};
        screen.isPaper = true;
        screen.millimetresPerPixel = kMillimetresPerInch / kPixelsPerInch;
        FigureView view;
        DrawResultPage(painter, screen, results, sheet.figures[i], look, view, state);
        painter.restore();
        if (i + 1 < sheet.figures.size()) {
            painter.setPen(PenOf(FigurePen::Faint, look));
            painter.drawLine(pane.bottomLeft() + QPointF(0, kGap / 2), pane.bottomRight() + QPointF(0, kGap / 2));
        }
    }
    painter.setFont(small);
    painter.setPen(Qt::black);
    const QRectF line(0, pixels.height() - footHeight, pixels.width(), footHeight);
    painter.drawText(line, int(Qt::AlignLeft | Qt::AlignBottom), u"主桁 "_s + toQString(sheet.title));
    painter.drawText(line, int(Qt::AlignRight | Qt::AlignBottom), foot);
}

} // namespace

QPageLayout::Orientation OrientationOf(std::span<const ResultSheet> sheets)
{
    constexpr std::size_t mostWide = 2;
    return std::ranges::all_of(sheets, [](const ResultSheet& sheet) { return sheet.figures.size() <= mostWide; })
               ? QPageLayout::Landscape
               : QPageLayout::Portrait;
}

QPageLayout SheetLayout(QPageSize::PageSizeId size, QPageLayout::Orientation orientation)
{
    return {QPageSize(size), orientation, QMarginsF(kMargin, kMargin, kMargin, kMargin), QPageLayout::Millimeter};
}

bool PaintSheets(QPagedPaintDevice& device, const AnalysisResults& results, std::span<const ResultSheet> sheets,
                 const QFont& font, const ResultState& state, const SheetProgress& progress)
{
    QPainter painter;
    if (sheets.empty() || !painter.begin(&device))
        return false;
    const double inch = device.logicalDpiX() / kPixelsPerInch;
    const QSizeF pixels(device.width() / inch, device.height() / inch);
    const FigureLook look{Qt::white, font};
    const int all = static_cast<int>(sheets.size());
    for (int i = 0; i < all; ++i) {
        if (progress && !progress(i, all))
            return false;
        if (i > 0 && !device.newPage())
            return false;
        painter.save();
        painter.scale(inch, inch);
        PaintSheet(painter, pixels, results, sheets[static_cast<std::size_t>(i)], look, state,
                   u"%1 / %2"_s.arg(i + 1).arg(all));
        painter.restore();
    }
    if (progress && !progress(all, all))
        return false;
    return painter.end();
}

QByteArray SheetsPdf(const QPageLayout& layout, const AnalysisResults& results, std::span<const ResultSheet> sheets,
                     const QFont& font, const ResultState& state, const SheetProgress& progress)
{
    QBuffer buffer;
    buffer.open(QIODevice::ReadWrite);
    std::vector<PdfBookmark> bookmarks;
    const QRectF area = layout.paintRect(QPageLayout::Point);
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        const int page = static_cast<int>(i);
        bookmarks.push_back({.title = u"主桁 "_s + toQString(sheets[i].title), .page = page});
        const auto figures = static_cast<double>(sheets[i].figures.size());
        for (std::size_t k = 0; k < sheets[i].figures.size(); ++k)
            bookmarks.push_back({.title = toQString(FigureName(sheets[i].figures[k])),
                                 .page = page,
                                 .fromTop = area.top() + area.height() * static_cast<double>(k) / figures,
                                 .level = 1});
    }
    {
        QPdfWriter writer(&buffer);
        writer.setResolution(kPdfDpi);
        writer.setPageLayout(layout);
        writer.setTitle(toQString(OriginText(state)));
        if (!PaintSheets(writer, results, sheets, font, state, progress))
            return {};
    }
    (void)AppendPdfOutline(buffer, bookmarks); // where it cannot be done, the sheets are without
    return buffer.data();
}

} // namespace sbd
