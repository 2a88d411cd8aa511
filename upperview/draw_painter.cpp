#include "upperview/draw_painter.h"

#include "document/section_doc.h"
#include "upperview/paper.h"

#include <QBrush>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QPolygonF>

#include <cmath>

namespace sbd {

namespace {

constexpr double kInkContrast = 2; // on white

QColor ColourOf(DrawColour colour)
{
    return QColor(static_cast<int>(colour & 0xFF), static_cast<int>((colour >> 8) & 0xFF),
                  static_cast<int>((colour >> 16) & 0xFF));
}

/// The page's y grows upward, the painter's downward.
QPointF PointOf(DrawPoint point)
{
    return QPointF(point.x, -point.y);
}

Qt::PenStyle StyleOf(PenStyle style)
{
    switch (style) {
    case PenStyle::Dash:
        return Qt::DashLine;
    case PenStyle::Dot:
        return Qt::DotLine;
    case PenStyle::DashDot:
        return Qt::DashDotLine;
    default:
        return Qt::SolidLine;
    }
}

Qt::BrushStyle StyleOf(BrushStyle style)
{
    switch (style) {
    case BrushStyle::Solid:
        return Qt::SolidPattern;
    case BrushStyle::Horizontal:
        return Qt::HorPattern;
    case BrushStyle::UpwardDiagonal:
        return Qt::BDiagPattern;
    case BrushStyle::DiagonalCross:
        return Qt::DiagCrossPattern;
    default:
        return Qt::NoBrush;
    }
}

} // namespace

TextMetrics MetricsOf(const QFont& font)
{
    const QFontMetricsF metrics(font);
    TextMetrics result;
    result.height = qRound(metrics.height());
    result.externalLeading = qRound(metrics.leading());
    result.aveCharWidth = qRound(metrics.horizontalAdvance(u'0'));
    return result;
}

CPainterContext::CPainterContext(QPainter& painter, const QFont& font)
    : painter_(painter)
    , ascent_(QFontMetricsF(font).ascent())
    , metrics_(MetricsOf(font))
{
    const double scale = std::abs(painter.combinedTransform().m22());
    pixel_ = scale > 0 ? 1 / scale : 1;
    painter_.setFont(font);
}

QColor CPainterContext::Paper() const
{
    return painter_.background().color();
}

QColor CPainterContext::InkOf(DrawColour colour) const
{
    return Ink(ColourOf(colour), Paper());
}

void CPainterContext::UsePen(bool smooth)
{
    // A drawing has thousands of lines of one pen.
    if (penInUse_ == std::pair(Pen(), smooth))
        return;
    penInUse_ = {Pen(), smooth};
    // A line of no width is one pixel wide in any scale.
    QPen pen(InkOf(Pen().colour), Pen().width <= pixel_ ? 0 : Pen().width, StyleOf(Pen().style), Qt::FlatCap);
    pen.setJoinStyle(Qt::MiterJoin);
    painter_.setPen(pen);
    painter_.setRenderHint(QPainter::Antialiasing, smooth);
}

void CPainterContext::UseBrush()
{
    // Hatching is lines; what is filled with the colour of lines is an arrow's head or the like.
    const QColor colour = ColourOf(Brush().colour);
    const bool isInk = Brush().style != BrushStyle::Solid || Contrast(colour, Qt::white) > kInkContrast;
    QBrush brush(isInk ? Ink(colour, Paper()) : Surface(colour, Paper()), StyleOf(Brush().style));
    brush.setTransform(painter_.transform().inverted()); // hatching keeps its step
    painter_.setBrush(brush);
}

void CPainterContext::Line(DrawPoint from, DrawPoint to)
{
    UsePen(from.x != to.x && from.y != to.y);
    painter_.drawLine(PointOf(from), PointOf(to));
}

void CPainterContext::Polyline(std::span<const DrawPoint> points)
{
    UsePen(true);
    QPolygonF line;
    for (const DrawPoint& point : points)
        line.append(PointOf(point));
    painter_.drawPolyline(line);
}

void CPainterContext::Arc(DrawPoint centre, int rx, int ry, double start, double sweep)
{
    constexpr double steps = 16; // of a degree
    UsePen(true);
    const QRectF square(centre.x - rx, -centre.y - ry, 2 * rx, 2 * ry);
    painter_.drawArc(square, qRound(start * steps), qRound(sweep * steps));
}

void CPainterContext::Ellipse(DrawPoint centre, int rx, int ry)
{
    UsePen(true);
    UseBrush();
    painter_.drawEllipse(PointOf(centre), rx, ry);
}

void CPainterContext::FillPolygon(std::span<const DrawPoint> corners)
{
    QPolygonF polygon;
    for (const DrawPoint& corner : corners)
        polygon.append(PointOf(corner));
    penInUse_.reset();
    painter_.setPen(Qt::NoPen);
    painter_.setRenderHint(QPainter::Antialiasing, true);
    UseBrush();
    painter_.drawPolygon(polygon, Qt::OddEvenFill);
}

void CPainterContext::FillCircle(DrawPoint centre, int r, DrawColour colour)
{
    penInUse_.reset();
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(InkOf(colour));
    painter_.setRenderHint(QPainter::Antialiasing, true);
    painter_.drawEllipse(PointOf(centre), r, r);
}

void CPainterContext::Text(DrawPoint at, std::string_view text)
{
    penInUse_.reset();
    painter_.setPen(InkOf(TextColour()));
    painter_.drawText(QPointF(at.x, ascent_ - at.y), toQString(text));
}

} // namespace sbd
