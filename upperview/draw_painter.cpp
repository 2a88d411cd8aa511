#include "upperview/draw_painter.h"

#include "document/section_doc.h"
#include "upperview/paper.h"
#include "upperview/wide_registers.h"

#include <QBrush>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QStaticText>

#include <algorithm>
#include <cmath>
#include <string>

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

/// Do all lines between the points run along the sheet's edges?
bool IsAlongEdges(std::span<const DrawPoint> points)
{
    for (std::size_t i = 1; i < points.size(); ++i)
        if (points[i - 1].x != points[i].x && points[i - 1].y != points[i].y)
            return false;
    return true;
}

/// The rectangle that four corners are.
std::optional<QRectF> RectangleOf(std::span<const DrawPoint> corners)
{
    constexpr std::size_t count = 4;
    if (corners.size() != count || !IsAlongEdges(corners)
        || (corners.front().x != corners.back().x && corners.front().y != corners.back().y)
        || (corners[0].x == corners[1].x) == (corners[1].x == corners[2].x))
        return std::nullopt;
    return QRectF(PointOf(corners[0]), PointOf(corners[2])).normalized();
}

/// Texts that were laid out for a font: the same ones are painted at each paint of a page.
struct LaidTexts {
    QFont font;
    std::unordered_map<std::string, QStaticText> texts;
};

const QStaticText& LaidText(std::string_view text, const QFont& font)
{
    constexpr std::size_t most = 4'000;
    thread_local LaidTexts laid;
    if (laid.font != font || laid.texts.size() >= most)
        laid = {font, {}};
    const auto [found, isNew] = laid.texts.try_emplace(std::string(text));
    if (isNew) {
        found->second = QStaticText(toQString(text));
        found->second.setTextFormat(Qt::PlainText);
        found->second.setPerformanceHint(QStaticText::AggressiveCaching);
    }
    return found->second;
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
    , isScreen_(painter.paintEngine() != nullptr && painter.paintEngine()->type() == QPaintEngine::Raster)
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

const CPainterContext::OnPaper& CPainterContext::ColourOnPaper(DrawColour colour)
{
    const QColor paper = Paper();
    if (coloursPaper_ != paper) {
        colours_.clear();
        penInUse_.reset();
        brushInUse_.reset();
        coloursPaper_ = paper;
    }
    const auto [found, isNew] = colours_.try_emplace(colour);
    if (isNew) {
        const QColor own = ColourOf(colour);
        found->second = {Ink(own, paper), Surface(own, paper), Contrast(own, Qt::white) > kInkContrast};
    }
    return found->second;
}

const std::vector<QPointF>& CPainterContext::PointsOf(std::span<const DrawPoint> points)
{
    points_.clear();
    for (const DrawPoint& point : points)
        points_.push_back(PointOf(point));
    return points_;
}

void CPainterContext::UsePen(bool smooth)
{
    const QColor ink = InkOf(Pen().colour);
    // A drawing has thousands of lines of one pen.
    if (penInUse_ == std::pair(Pen(), smooth))
        return;
    penInUse_ = {Pen(), smooth};
    textPenInUse_.reset();
    // A line of no width is one pixel wide in any scale.
    QPen pen(ink, Pen().width <= pixel_ ? 0 : Pen().width, StyleOf(Pen().style), Qt::FlatCap);
    pen.setJoinStyle(Qt::MiterJoin);
    painter_.setPen(pen);
    painter_.setRenderHint(QPainter::Antialiasing, smooth);
}

void CPainterContext::UseBrush()
{
    // Hatching is lines; what is filled with the colour of lines is an arrow's head or the like.
    const OnPaper& colour = ColourOnPaper(Brush().colour);
    if (brushInUse_ == Brush())
        return;
    const bool isSolid = Brush().style == BrushStyle::Solid;
    QBrush brush(!isSolid || colour.isInk ? colour.ink : colour.surface, StyleOf(Brush().style));
    if (!isSolid)
        brush.setTransform(painter_.transform().inverted()); // hatching keeps its step
    else
        brushInUse_ = Brush();
    painter_.setBrush(brush);
}

bool CPainterContext::IsPixelLine() const
{
    const QTransform& toPixels = painter_.deviceTransform();
    return isScreen_ && Pen().style == PenStyle::Solid && toPixels.type() <= QTransform::TxScale && toPixels.m11() > 0
           && toPixels.m22() > 0;
}

void CPainterContext::Unsmooth()
{
    if (!painter_.testRenderHint(QPainter::Antialiasing))
        return;
    painter_.setRenderHint(QPainter::Antialiasing, false);
    penInUse_.reset();
}

void CPainterContext::FillLine(DrawPoint from, DrawPoint to, bool isJoined)
{
    const QTransform& toPixels = painter_.deviceTransform();
    const QRectF ends = QRectF(toPixels.map(PointOf(from)), toPixels.map(PointOf(to))).normalized();
    const double width = std::max(1.0, std::round(Pen().width / pixel_));
    const double beside = (width - 1) / 2;
    const double beyond = isJoined ? beside : 0; // of the ends, so that corners are whole
    const double end = isJoined ? width : 1;
    const bool isLevel = from.y == to.y;
    const double left = std::round(ends.left() - (isLevel ? beyond : beside));
    const double top = std::round(ends.top() - (isLevel ? beside : beyond));
    const double right = isLevel ? std::round(ends.right() - beyond) + end : left + width;
    const double bottom = isLevel ? top + width : std::round(ends.bottom() - beyond) + end;
    const QPointF scale(toPixels.m11(), toPixels.m22());
    Unsmooth();
    painter_.fillRect(QRectF((left - toPixels.dx()) / scale.x(), (top - toPixels.dy()) / scale.y(),
                             (right - left) / scale.x(), (bottom - top) / scale.y()),
                      InkOf(Pen().colour));
    LeaveWideRegisters();
}

void CPainterContext::Line(DrawPoint from, DrawPoint to)
{
    if ((from.x == to.x || from.y == to.y) && IsPixelLine()) {
        FillLine(from, to, false);
        return;
    }
    UsePen(from.x != to.x && from.y != to.y);
    painter_.drawLine(PointOf(from), PointOf(to));
    LeaveWideRegisters();
}

void CPainterContext::Polyline(std::span<const DrawPoint> points)
{
    const bool isAlong = IsAlongEdges(points);
    if (isAlong && IsPixelLine()) {
        for (std::size_t i = 1; i < points.size(); ++i)
            FillLine(points[i - 1], points[i], true);
        return;
    }
    UsePen(!isScreen_ || !isAlong);
    const std::vector<QPointF>& line = PointsOf(points);
    painter_.drawPolyline(line.data(), static_cast<int>(line.size()));
    LeaveWideRegisters();
}

void CPainterContext::Arc(DrawPoint centre, int rx, int ry, double start, double sweep)
{
    constexpr double steps = 16; // of a degree
    UsePen(true);
    const QRectF square(centre.x - rx, -centre.y - ry, 2 * rx, 2 * ry);
    painter_.drawArc(square, qRound(start * steps), qRound(sweep * steps));
    LeaveWideRegisters();
}

void CPainterContext::Ellipse(DrawPoint centre, int rx, int ry)
{
    UsePen(true);
    UseBrush();
    painter_.drawEllipse(PointOf(centre), rx, ry);
    LeaveWideRegisters();
}

void CPainterContext::FillPolygon(std::span<const DrawPoint> corners)
{
    if (const std::optional<QRectF> box = isScreen_ ? RectangleOf(corners) : std::nullopt) {
        Unsmooth();
        if (Brush().style == BrushStyle::Solid) {
            const OnPaper& colour = ColourOnPaper(Brush().colour);
            painter_.fillRect(*box, colour.isInk ? colour.ink : colour.surface);
        } else {
            UseBrush();
            painter_.fillRect(*box, painter_.brush());
        }
        LeaveWideRegisters();
        return;
    }
    const std::vector<QPointF>& polygon = PointsOf(corners);
    penInUse_.reset();
    textPenInUse_.reset();
    painter_.setPen(Qt::NoPen);
    painter_.setRenderHint(QPainter::Antialiasing, true);
    UseBrush();
    painter_.drawPolygon(polygon.data(), static_cast<int>(polygon.size()), Qt::OddEvenFill);
    LeaveWideRegisters();
}

void CPainterContext::FillCircle(DrawPoint centre, int r, DrawColour colour)
{
    penInUse_.reset();
    brushInUse_.reset();
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(InkOf(colour));
    painter_.setRenderHint(QPainter::Antialiasing, true);
    painter_.drawEllipse(PointOf(centre), r, r);
    LeaveWideRegisters();
}

void CPainterContext::Text(DrawPoint at, std::string_view text)
{
    const QColor ink = InkOf(TextColour());
    if (textPenInUse_ != ink) {
        penInUse_.reset();
        textPenInUse_ = ink;
        painter_.setPen(ink);
    }
    if (isScreen_)
        painter_.drawStaticText(QPointF(at.x, -at.y), LaidText(text, painter_.font()));
    else
        painter_.drawText(QPointF(at.x, ascent_ - at.y), toQString(text));
    LeaveWideRegisters();
}

} // namespace sbd
