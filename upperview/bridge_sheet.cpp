#include "upperview/bridge_sheet.h"

#include "project/text.h"
#include "upperview/page/draw_primitives.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <span>

namespace sbd {

namespace {

// Units of 0.1 mm.
constexpr int kMargin = 150;
constexpr int kLeftMargin = 320; // titles of chains and bands stand there
constexpr int kBroadSheet = 7600;
constexpr int kGap = 60;
constexpr int kChainStep = 95;
constexpr int kBandHeight = 90; // the thickest plate
constexpr int kListed = 40;
constexpr int kMostSheet = 30'000; // a side, so that a slip of a unit makes no endless sheet

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
};
static_assert(std::size(kLooks) == kDrawingLayers);

struct Bounds {
    double left = std::numeric_limits<double>::infinity();
    double right = -std::numeric_limits<double>::infinity();
    double bottom = std::numeric_limits<double>::infinity();
    double top = -std::numeric_limits<double>::infinity();
    [[nodiscard]] bool IsEmpty() const { return !(left <= right && bottom <= top); }
};

Bounds BoundsOf(const BridgeDrawing& drawing)
{
    Bounds bounds;
    const auto widen = [&](double x, double y, double r) {
        bounds.left = std::min(bounds.left, x - r);
        bounds.right = std::max(bounds.right, x + r);
        bounds.bottom = std::min(bounds.bottom, y - r);
        bounds.top = std::max(bounds.top, y + r);
    };
    for (const DrawnShape& shape : drawing.shapes)
        for (const DrawnPoint& point : shape.points)
            widen(point.x, point.y, shape.radius);
    for (const DimensionChain& chain : drawing.chains)
        for (const ChainPart& part : chain.parts)
            if (!bounds.IsEmpty()) {
                bounds.left = std::min({bounds.left, part.from, part.to});
                bounds.right = std::max({bounds.right, part.from, part.to});
            }
    return bounds;
}

/// Texts beside each other in two lines; one that would lie on another is left out.
class CTextRow {
public:
    CTextRow(CDrawContext& dc, int top, int lines)
        : dc_(dc)
        , top_(top)
        , ends_(static_cast<std::size_t>(lines), std::numeric_limits<int>::min())
    {
    }

    /// `x` is the middle of the text. Called from left to right.
    bool Put(int x, std::string_view text)
    {
        const TextMetrics metrics = dc_.Metrics();
        const int left = x - metrics.Width(text) / 2;
        for (std::size_t line = 0; line < ends_.size(); ++line)
            if (left >= ends_[line]) {
                dc_.Text({left, top_ - static_cast<int>(line) * metrics.height}, text);
                ends_[line] = left + metrics.Width(text) + metrics.aveCharWidth;
                return true;
            }
        return false;
    }

private:
    CDrawContext& dc_;
    int top_;
    std::vector<int> ends_;
};

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

class CSheet {
public:
    CSheet(CDrawContext& dc, const BridgeDrawing& drawing, const SheetLook& look)
        : dc_(dc)
        , drawing_(drawing)
        , look_(look)
        , bounds_(BoundsOf(drawing))
        , scale_(look.scale > 0 ? look.scale : UsualScale(drawing))
        , height_(dc.Metrics().height)
    {
    }

    SheetExtent Draw();

private:
    [[nodiscard]] int X(double x) const { return Unit((x - bounds_.left) * kUnits / scale_) + kLeftMargin; }
    [[nodiscard]] int Y(double y) const
    {
        return top_ - Unit((bounds_.top - y) * kUnits * look_.exaggeration / scale_);
    }
    [[nodiscard]] DrawPoint At(const DrawnPoint& point) const { return {X(point.x), Y(point.y)}; }
    [[nodiscard]] static int Unit(double value)
    {
        return static_cast<int>(std::lround(std::clamp<double>(value, -kMostSheet, kMostSheet)));
    }
    [[nodiscard]] bool IsSelected(const CellPlace& place) const
    {
        return look_.selected.block != 0 && look_.selected.row != 0 && place.SameRow(look_.selected);
    }
    [[nodiscard]] bool IsCovered() const;

    void Title();
    void LabelsAbove(LabelPlace place, int lines);
    void Shade();
    void Webs();
    void Shapes(bool selected);
    void Shape(const DrawnShape& shape, bool selected);
    void LabelsWithin();
    void LabelsBelow();
    void Bands();
    void Chains();
    void List();
    void Line(std::string_view text);
    void Widen(int right) { right_ = std::max(right_, right); }

    static constexpr double kUnits = 10; // of a millimetre of paper
    CDrawContext& dc_;
    const BridgeDrawing& drawing_;
    SheetLook look_;
    Bounds bounds_;
    double scale_;
    int height_;
    int top_ = 0;    // of the shapes
    int cursor_ = 0; // the next free line
    int right_ = 0;
};

bool CSheet::IsCovered() const
{
    const RowUse* use = drawing_.UseOf(look_.selected.block, look_.selected.row);
    return use != nullptr && use->covered;
}

void CSheet::Line(std::string_view text)
{
    dc_.Text({kMargin, cursor_}, text);
    Widen(kMargin + dc_.Metrics().Width(text));
    cursor_ -= height_ + height_ / 5;
}

void CSheet::Title()
{
    std::string text = drawing_.title + Cp932("   縮尺 1:");
    AppendFixed(text, scale_, 0, 0);
    if (look_.exaggeration > 1)
        text += Cp932("   高さは") + std::to_string(look_.exaggeration) + Cp932("倍");
    if (drawing_.provisional)
        text += Cp932("   寸法は仮");
    Line(text);
    for (const std::string& note : drawing_.notes)
        Line(note);
    cursor_ -= kGap;
}

void CSheet::LabelsAbove(LabelPlace place, int lines)
{
    std::vector<const DrawnLabel*> labels;
    for (const DrawnLabel& label : drawing_.labels)
        if (label.place == place)
            labels.push_back(&label);
    if (labels.empty())
        return;
    std::ranges::stable_sort(labels, {}, [](const DrawnLabel* label) { return label->at.x; });
    CTextRow row(dc_, cursor_, lines);
    for (const DrawnLabel* label : labels) {
        dc_.SetTextColour(IsSelected(label->source) ? colours::kRed : colours::kBlack);
        row.Put(X(label->at.x), label->text);
    }
    dc_.SetTextColour(colours::kBlack);
    cursor_ -= lines * height_ + height_ / 3;
}

void CSheet::Shade()
{
    const RowUse* use = drawing_.UseOf(look_.selected.block, look_.selected.row);
    if (use == nullptr || look_.selected.row == 0 || use->area.size() < 2)
        return;
    constexpr int least = 20; // a range of one station is seen too
    int left = std::numeric_limits<int>::max();
    int right = std::numeric_limits<int>::min();
    std::vector<DrawPoint> corners;
    for (const DrawnPoint& point : use->area) {
        corners.push_back(At(point));
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
    dc_.SetBrush({BrushStyle::Solid, use->covered ? kPaleGrey : kShade});
    dc_.FillPolygon(corners);
}

void CSheet::Shape(const DrawnShape& shape, bool selected)
{
    const LayerLook& look = kLooks[static_cast<std::size_t>(shape.layer)];
    const DrawColour line = selected ? colours::kRed : look.line;
    dc_.SetPen({shape.open ? PenStyle::Dash : look.style, selected ? look.width + 1 : look.width, line});
    if (shape.kind == ShapeKind::Circle) {
        if (shape.points.empty())
            return;
        const int r = std::max(1, Unit(shape.radius * kUnits / scale_));
        dc_.SetBrush({look.filled ? BrushStyle::Solid : BrushStyle::None, look.fill});
        dc_.Ellipse(At(shape.points.front()), r, r);
        return;
    }
    std::vector<DrawPoint> points;
    points.reserve(shape.points.size() + 1);
    for (const DrawnPoint& point : shape.points)
        points.push_back(At(point));
    if (shape.kind == ShapeKind::Polygon && points.size() > 2) {
        if (const auto thin = ThinLine(points)) {
            dc_.Line((*thin)[0], (*thin)[1]);
            return;
        }
        if (look.filled) {
            dc_.SetBrush({BrushStyle::Solid, selected ? colours::kRed : look.fill});
            if (shape.layer != DrawingLayer::Web)
                dc_.FillPolygon(points);
        }
        points.push_back(points.front());
    }
    if (points.size() == 2)
        dc_.Line(points[0], points[1]);
    else
        dc_.Polyline(points);
}

/// The webs' surfaces lie below the shading, all else above it.
void CSheet::Webs()
{
    dc_.SetBrush({BrushStyle::Solid, kLooks[static_cast<std::size_t>(DrawingLayer::Web)].fill});
    std::vector<DrawPoint> corners;
    for (const DrawnShape& shape : drawing_.shapes)
        if (shape.layer == DrawingLayer::Web && shape.kind == ShapeKind::Polygon) {
            corners.clear();
            for (const DrawnPoint& point : shape.points)
                corners.push_back(At(point));
            dc_.FillPolygon(corners);
        }
}

void CSheet::Shapes(bool selected)
{
    for (const DrawnShape& shape : drawing_.shapes)
        if (IsSelected(shape.source) == selected)
            Shape(shape, selected);
}

void CSheet::LabelsWithin()
{
    // Labels at points avoid each other: a later one that would lie on an earlier one is left out.
    std::vector<std::array<int, 4>> taken;
    const TextMetrics metrics = dc_.Metrics();
    for (const DrawnLabel& label : drawing_.labels) {
        if (label.place != LabelPlace::AtPoint)
            continue;
        const int width = metrics.Width(label.text);
        const int left = X(label.at.x) - width / 2;
        const int top = Y(label.at.y) + height_ / 2;
        const std::array<int, 4> box{left, top, left + width, top - height_};
        constexpr std::size_t most = 2'000; // more than can be read
        if (taken.size() >= most || std::ranges::any_of(taken, [&](const auto& other) {
                return box[0] < other[2] && other[0] < box[2] && box[3] < other[1] && other[3] < box[1];
            }))
            continue;
        taken.push_back(box);
        dc_.SetTextColour(IsSelected(label.source) ? colours::kRed : colours::kBlack);
        dc_.Text({left, top}, label.text);
        Widen(left + width);
    }
    dc_.SetTextColour(colours::kBlack);
}

void CSheet::LabelsBelow()
{
    LabelsAbove(LabelPlace::Below, 2);
}

void CSheet::Bands()
{
    if (drawing_.bands.empty())
        return;
    double most = 0;
    for (const PlateBand& band : drawing_.bands)
        for (const BandPart& part : band.parts)
            most = std::max({most, part.thickFrom, part.thickTo});
    constexpr std::array<double, 6> usual{1, 2, 5, 10, 20, 50};
    double scale = usual.back();
    for (const double each : usual)
        if (most * kUnits / each <= kBandHeight) {
            scale = each;
            break;
        }
    std::string text = Cp932("板厚は縮尺 1:");
    AppendFixed(text, scale, 0, 0);
    Line(text + Cp932(" で描いています．"));
    for (const PlateBand& band : drawing_.bands) {
        const int foot = cursor_ - kBandHeight;
        dc_.Text({kMargin, foot + height_}, band.title);
        CTextRow row(dc_, foot - height_ / 8, 2);
        for (const BandPart& part : band.parts) {
            const bool selected = IsSelected(part.source);
            const auto heightOf = [&](double thickness) {
                return std::min(kBandHeight, Unit(thickness * kUnits / scale));
            };
            const std::array<DrawPoint, 4> corners{{{X(part.from), foot},
                                                    {X(part.from), foot + heightOf(part.thickFrom)},
                                                    {X(part.to), foot + heightOf(part.thickTo)},
                                                    {X(part.to), foot}}};
            dc_.SetBrush({BrushStyle::Solid,
                          selected ? colours::kRed : kLooks[static_cast<std::size_t>(DrawingLayer::Flange)].fill});
            dc_.FillPolygon(corners);
            dc_.SetPen({PenStyle::Solid, 1, colours::kBlack});
            const std::array<DrawPoint, 5> outline{corners[0], corners[1], corners[2], corners[3], corners[0]};
            dc_.Polyline(outline);
            dc_.SetTextColour(selected ? colours::kRed : colours::kBlack);
            row.Put((X(part.from) + X(part.to)) / 2, part.text);
            dc_.SetTextColour(colours::kBlack);
        }
        cursor_ = foot - 2 * height_ - kGap / 2;
    }
    cursor_ -= kGap / 2;
}

void CSheet::Chains()
{
    for (const DimensionChain& chain : drawing_.chains) {
        const int y = cursor_ - kChainStep + height_ / 2;
        dc_.SetTextColour(colours::kBlack);
        dc_.Text({kMargin, y + height_}, chain.title);
        CTextRow above(dc_, y + height_ + 4, 1);
        CTextRow below(dc_, y - 4, 1);
        for (const ChainPart& part : chain.parts) {
            const int from = X(part.from);
            const int to = X(part.to);
            const bool selected = IsSelected(part.source);
            dc_.SetPen({PenStyle::Solid, 1, selected ? colours::kRed : colours::kBlack});
            dc_.SetTextColour(selected ? colours::kRed : colours::kBlack);
            DrawDimension(dc_, from, y, to, y, false);
            const int middle = (from + to) / 2;
            if (!above.Put(middle, part.text))
                below.Put(middle, part.text);
        }
        cursor_ -= kChainStep;
    }
    dc_.SetTextColour(colours::kBlack);
    cursor_ -= kGap + height_;
}

void CSheet::List()
{
    if (look_.selected.row != 0 && IsCovered())
        Line(Cp932("現在の行は，後の行がすべての範囲で優先されるため，図に表れません．"));
    if (drawing_.omissions.empty())
        return;
    Line(Cp932("図にできないもの (") + std::to_string(drawing_.omissions.size()) + Cp932("件)"));
    std::size_t listed = 0;
    for (const Omission& omission : drawing_.omissions) {
        if (++listed > kListed) {
            Line(Cp932("  ほか ") + std::to_string(drawing_.omissions.size() - kListed) + Cp932("件"));
            break;
        }
        std::string text = "  ";
        if (omission.place.block != 0) {
            text += std::to_string(omission.place.block);
            if (omission.place.row != 0)
                text += Cp932(" の ") + std::to_string(omission.place.row) + Cp932("行目");
            if (omission.place.row != 0 && omission.place.column != 0)
                text += " " + std::to_string(omission.place.column) + Cp932("列目");
            text += Cp932("： ");
        }
        Line(text + omission.reason);
    }
}

SheetExtent CSheet::Draw()
{
    cursor_ = -kMargin;
    dc_.SetTextColour(colours::kBlack);
    Title();
    if (!bounds_.IsEmpty()) {
        LabelsAbove(LabelPlace::FarAbove, 2);
        LabelsAbove(LabelPlace::Above, 2);
        top_ = cursor_;
        Webs();
        Shade();
        Shapes(false);
        Shapes(true);
        LabelsWithin();
        cursor_ = Y(bounds_.bottom) - kGap / 3;
        LabelsBelow();
        cursor_ -= kGap;
        Bands();
        Chains();
        Widen(X(bounds_.right));
    }
    List();
    return {right_ + kMargin, -cursor_ + kMargin};
}

} // namespace

double UsualScale(const BridgeDrawing& drawing)
{
    constexpr std::array<double, 14> usual{10, 20, 30, 50, 100, 150, 200, 250, 300, 400, 500, 1000, 2000, 5000};
    constexpr double mostHeight = 2500;
    const Bounds bounds = BoundsOf(drawing);
    if (bounds.IsEmpty())
        return usual.front();
    for (const double scale : usual)
        if ((bounds.right - bounds.left) * 10 / scale <= kBroadSheet
            && (bounds.top - bounds.bottom) * 10 / scale <= mostHeight)
            return scale;
    return std::max(usual.back(), std::ceil((bounds.right - bounds.left) * 10 / kBroadSheet));
}

SheetExtent DrawBridgeSheet(CDrawContext& dc, const BridgeDrawing& drawing, const SheetLook& look)
{
    return CSheet(dc, drawing, look).Draw();
}

} // namespace sbd
