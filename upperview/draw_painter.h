// CPainterContext: a drawing context on a QPainter.
#pragma once

#include "upperview/page/draw_context.h"

#include <QColor>
#include <QFont>
#include <QFontMetricsF>

#include <optional>
#include <utility>

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
    [[nodiscard]] QColor Paper() const;
    [[nodiscard]] QColor InkOf(DrawColour colour) const;
    void UsePen(bool smooth);
    void UseBrush();

    QPainter& painter_;
    /// The pen that the painter has by UsePen, and its smoothness; none if something else was set since.
    std::optional<std::pair<DrawPen, bool>> penInUse_;
    double pixel_; // page units of a device pixel
    double ascent_;
    TextMetrics metrics_;
};

/// Sizes of a font whose size is in page units.
[[nodiscard]] TextMetrics MetricsOf(const QFont& font);

} // namespace sbd
