// CPainterContext: a drawing context on a QPainter.
#pragma once

#include "upperview/page/draw_context.h"

#include <QColor>
#include <QFont>
#include <QFontMetricsF>

#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

class QPainter;

namespace sbd {

/// Draws to a painter whose unit is 0.1 mm and whose y grows downward from the top of the page; the context's y grows
/// upward. Colours are those for white paper; they are turned where the painter's background is dark. No line is thinner
/// than a pixel. Takes the painter's pen, brush and font as its own.
class CPainterContext : public CDrawContext {
public:
    /// `font` has its size in page units.
    CPainterContext(QPainter& painter, const QFont& font);

    [[nodiscard]] TextMetrics Metrics() const override { return metrics_; }
    void Line(DrawPoint from, DrawPoint to) override;
    void Polyline(std::span<const DrawPoint> points) override;
    void Arc(DrawPoint centre, int rx, int ry, double start, double sweep) override;
    void Ellipse(DrawPoint centre, int rx, int ry) override;
    void FillPolygon(std::span<const DrawPoint> corners) override;
    void FillCircle(DrawPoint centre, int r, DrawColour colour) override;
    void Text(DrawPoint at, std::string_view text) override;

private:
    /// A colour as it is on the paper, and whether it is one of lines.
    struct OnPaper {
        QColor ink;
        QColor surface;
        bool isInk = true;
    };
    [[nodiscard]] QColor Paper() const;
    const OnPaper& ColourOnPaper(DrawColour colour);
    [[nodiscard]] QColor InkOf(DrawColour colour) { return ColourOnPaper(colour).ink; }
    void UsePen(bool smooth);
    void UseBrush();
    /// Is a line with the pen that runs along the pixels' edges a rectangle of whole pixels?
    [[nodiscard]] bool IsPixelLine() const;
    /// Such a line: a painter sets the pixels of a line one by one. `isJoined`: its ends are corners.
    void FillLine(DrawPoint from, DrawPoint to, bool isJoined);
    void Unsmooth();
    [[nodiscard]] const std::vector<QPointF>& PointsOf(std::span<const DrawPoint> points);

    QPainter& painter_;
    /// The pen that the painter has by UsePen, and its smoothness; none if something else was set since.
    std::optional<std::pair<DrawPen, bool>> penInUse_;
    /// The pen that the painter has for texts.
    std::optional<QColor> textPenInUse_;
    /// The brush that the painter has by UseBrush.
    std::optional<DrawBrush> brushInUse_;
    /// Colours that were turned already: how well one is read takes longer than a line.
    std::unordered_map<DrawColour, OnPaper> colours_;
    std::optional<QColor> coloursPaper_; // for which they were turned
    std::vector<QPointF> points_;        // of the line or surface that is drawn
    bool isScreen_;                      // pixels, for which lines and surfaces along them need no smoothing
    double pixel_;                       // page units of a device pixel
    double ascent_;
    TextMetrics metrics_;
};

/// Sizes of a font whose size is in page units.
[[nodiscard]] TextMetrics MetricsOf(const QFont& font);

} // namespace sbd
