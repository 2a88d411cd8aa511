#include "upperview/sheet_parts.h"

#include <algorithm>
#include <array>

namespace sbd {

namespace {

struct LayerLook {
    DrawColour line;
    PenStyle style;
    int width;
    bool filled;
    DrawColour fill;
};

constexpr DrawColour kGrey = 0x808080;
constexpr DrawColour kPaleGrey = 0xD8D8D8;
constexpr DrawColour kShade = 0xB0F0FF; // pale yellow
constexpr DrawColour kBrown = 0x004080;

constexpr LayerLook kLooks[] = {
    {colours::kBlack, PenStyle::Solid, 2, false, 0},                      // Girder
    {kGrey, PenStyle::DashDot, 1, false, 0},                              // CrossLine
    {kGrey, PenStyle::Solid, 1, false, 0},                                // Line
    {colours::kBlack, PenStyle::Solid, 1, true, 0xF8F4EC},                // Web
    {colours::kBlack, PenStyle::Solid, 1, true, 0xC8A078},                // Flange
    {colours::kBlack, PenStyle::Solid, 1, true, 0x606060},                // VerticalStiffener
    {colours::kBlue, PenStyle::Solid, 2, true, colours::kBlue},           // SupportStiffener
    {colours::kDarkGreen, PenStyle::Solid, 2, true, colours::kDarkGreen}, // HorizontalStiffener
    {colours::kPink, PenStyle::Solid, 3, false, 0},                       // Splice
    {kBrown, PenStyle::Dash, 1, false, 0},                                // Section
    {colours::kBlack, PenStyle::Solid, 2, true, 0xA0A0A0},                // Support
    {colours::kBlue, PenStyle::Solid, 2, false, 0},                       // Break
    {colours::kBlack, PenStyle::Solid, 2, true, 0xFFFFFF},                // ManHole
    {kBrown, PenStyle::Solid, 1, false, 0},                               // Stud
    {colours::kBlue, PenStyle::Solid, 2, false, 0},                       // Camber
    {colours::kBlack, PenStyle::Solid, 3, true, 0xE0D0B8},                // CrossBeam
    {colours::kDarkGreen, PenStyle::Solid, 3, false, 0},                  // SwayBracing
    {colours::kBlue, PenStyle::Solid, 1, false, 0},                       // LateralBracing
    {kGrey, PenStyle::Solid, 1, true, 0xE8E8E8},                          // Slab
    {kGrey, PenStyle::Solid, 1, true, 0xB0B0B0},                          // Pavement
    {colours::kBlack, PenStyle::Solid, 1, true, 0x808080},                // Rib
    {kBrown, PenStyle::Solid, 1, true, 0xA8D8F4},                         // SplicePlate
    {colours::kDarkGreen, PenStyle::Solid, 1, true, 0xFFFFFF},            // Bolt
    {kBrown, PenStyle::Solid, 1, true, 0xA8D8F4},                         // Gusset
};
static_assert(std::size(kLooks) == kDrawingLayers);

/// The line that a plate is at a scale at which its thickness is not to be seen: its outline would be two lines on each
/// other.
std::optional<std::array<DrawPoint, 2>> ThinLine(std::span<const DrawPoint> corners)
{
    constexpr int thin = 2; // units
    const auto horizontal = std::minmax_element(corners.begin(), corners.end(),
                                                [](const DrawPoint& a, const DrawPoint& b) { return a.x < b.x; });
    const auto vertical = std::minmax_element(corners.begin(), corners.end(),
                                              [](const DrawPoint& a, const DrawPoint& b) { return a.y < b.y; });
    const int left = horizontal.first->x;
    const int right = horizontal.second->x;
    const int low = vertical.first->y;
    const int high = vertical.second->y;
    if (right - left <= thin)
        return std::array<DrawPoint, 2>{{{left, low}, {left, high}}};
    if (high - low <= thin)
        return std::array<DrawPoint, 2>{{{left, low}, {right, low}}};
    return std::nullopt;
}

void Shade(CSheetFrame& frame)
{
    const RowUse* use = frame.drawing.UseOf(frame.look.selected.block, frame.look.selected.row);
    if (use == nullptr || frame.look.selected.row == 0 || use->area.size() < 2)
        return;
    constexpr int least = 20; // a range of one station is seen too
    int left = std::numeric_limits<int>::max();
    int right = std::numeric_limits<int>::min();
    std::vector<DrawPoint> corners;
    for (const DrawnPoint& point : use->area) {
        corners.push_back(frame.At(point));
        left = std::min(left, corners.back().x);
        right = std::max(right, corners.back().x);
    }
    if (corners.size() == 2 || right - left < least) {
        const int low = std::ranges::min(corners, {}, &DrawPoint::y).y;
        const int high = std::ranges::max(corners, {}, &DrawPoint::y).y;
        corners = {{left - least, high + least},
                   {right + least, high + least},
                   {right + least, low - least},
                   {left - least, low - least}};
    }
    frame.dc.SetBrush({BrushStyle::Solid, use->covered ? kPaleGrey : kShade});
    frame.dc.FillPolygon(corners);
}

class PartsOnSheet {
public:
    explicit PartsOnSheet(CSheetFrame& frame) : frame_(frame) {}

    void Webs();
    void Shapes(bool selected);

private:
    void Shape(const DrawnShape& shape, bool selected);

    CSheetFrame& frame_;
    std::vector<DrawPoint> points_; // of the shape that is drawn
};

void PartsOnSheet::Shape(const DrawnShape& shape, bool selected)
{
    const LayerLook& look = kLooks[static_cast<std::size_t>(shape.layer)];
    const DrawColour line = selected ? colours::kRed : look.line;
    const DrawPen pen{shape.open ? PenStyle::Dash : look.style, selected ? look.width + 1 : look.width, line};
    if (shape.kind == ShapeKind::Circle) {
        if (shape.points.empty())
            return;
        const int r = std::max(1, frame_.Size(shape.radius));
        const DrawPoint centre = frame_.At(shape.points.front());
        if (!frame_.IsSeen(std::span(&centre, 1), r))
            return;
        frame_.dc.SetPen(pen);
        frame_.dc.SetBrush({look.filled ? BrushStyle::Solid : BrushStyle::None, look.fill});
        frame_.dc.Ellipse(centre, r, r);
        return;
    }
    points_.clear();
    for (const DrawnPoint& point : shape.points)
        points_.push_back(frame_.At(point));
    if (!frame_.IsSeen(points_, pen.width))
        return;
    frame_.dc.SetPen(pen);
    if (shape.kind == ShapeKind::Polygon && points_.size() > 2) {
        if (const auto thin = ThinLine(points_)) {
            frame_.dc.Line((*thin)[0], (*thin)[1]);
            return;
        }
        if (look.filled && shape.layer != DrawingLayer::Web) {
            frame_.dc.SetBrush({BrushStyle::Solid, selected ? colours::kRed : look.fill});
            frame_.dc.FillPolygon(points_);
        }
        points_.push_back(points_.front());
    }
    if (points_.size() == 2)
        frame_.dc.Line(points_[0], points_[1]);
    else
        frame_.dc.Polyline(points_);
}

/// The webs' surfaces lie below the shading, all else above it.
void PartsOnSheet::Webs()
{
    frame_.dc.SetBrush({BrushStyle::Solid, kLooks[static_cast<std::size_t>(DrawingLayer::Web)].fill});
    for (const DrawnShape& shape : frame_.drawing.shapes)
        if (shape.layer == DrawingLayer::Web && shape.kind == ShapeKind::Polygon) {
            points_.clear();
            for (const DrawnPoint& point : shape.points)
                points_.push_back(frame_.At(point));
            if (frame_.IsSeen(points_, 0))
                frame_.dc.FillPolygon(points_);
        }
}

void PartsOnSheet::Shapes(bool selected)
{
    for (const DrawnShape& shape : frame_.drawing.shapes)
        if (frame_.look.selected.row == 0 || frame_.IsSelected(shape.source) == selected)
            Shape(shape, selected);
}

void LabelsWithin(CSheetFrame& frame)
{
    // Labels at points avoid each other: a later one that would lie on an earlier one is left out.
    std::vector<SheetBox> taken;
    const TextMetrics metrics = frame.dc.Metrics();
    for (const DrawnLabel& label : frame.drawing.labels) {
        const bool isCentred = label.place == LabelRow::AtPoint;
        if (!isCentred && label.place != LabelRow::Behind && label.place != LabelRow::Ahead)
            continue;
        const int width = metrics.Width(label.text);
        const int gap = metrics.aveCharWidth / 2;
        const int left = frame.X(label.at.x)
                         + (isCentred                         ? -width / 2
                            : label.place == LabelRow::Behind ? gap
                                                              : -width - gap);
        const int top = frame.Y(label.at.y) + frame.height / 2;
        const SheetBox box{left, top - frame.height, left + width, top};
        const std::array<DrawPoint, 2> corners{{{box.left, box.bottom}, {box.right, box.top}}};
        constexpr std::size_t most = 2'000; // more than can be read
        if (!frame.IsSeen(corners, 0) || taken.size() >= most || std::ranges::any_of(taken, [&](const SheetBox& other) {
                return box.left < other.right && other.left < box.right && box.bottom < other.top
                       && other.bottom < box.top;
            }))
            continue;
        taken.push_back(box);
        frame.dc.SetTextColour(frame.IsSelected(label.source) ? colours::kRed : colours::kBlack);
        frame.dc.Text({left, top}, label.text);
        frame.Hit(box, label.source, label.text);
        frame.Widen(left + width);
    }
    frame.dc.SetTextColour(colours::kBlack);
}

} // namespace

void DrawParts(CSheetFrame& frame)
{
    PartsOnSheet parts(frame);
    parts.Webs();
    Shade(frame);
    parts.Shapes(false);
    if (frame.look.selected.row != 0)
        parts.Shapes(true);
    LabelsWithin(frame);
}

DrawColour FillOf(DrawingLayer layer)
{
    return kLooks[static_cast<std::size_t>(layer)].fill;
}

} // namespace sbd
