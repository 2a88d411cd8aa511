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
constexpr int kListed = 40;
constexpr int kMostSheet = 30'000;   // a side, so that a slip of a unit makes no endless sheet
constexpr int kMostPane = 2'000'000; // likewise where only a part of it is seen

/// Steps of a sheet, in units.
struct Steps {
    int margin; ///< above and below
    int gap;
    int chain;
    int band;       ///< height of the thickest plate
    int labelLines; ///< in a row of labels
    int bandLines;  ///< of texts below a band
};
constexpr Steps kOpenSteps{kMargin, 60, 95, 90, 2, 2};
constexpr Steps kCloseSteps{40, 24, 66, 44, 1, 1};

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

constexpr double kUnits = 10; // of a millimetre of paper

double UsualScaleOf(const Bounds& bounds)
{
    constexpr std::array<double, 14> usual{10, 20, 30, 50, 100, 150, 200, 250, 300, 400, 500, 1000, 2000, 5000};
    constexpr double mostHeight = 2500;
    if (bounds.IsEmpty())
        return usual.front();
    for (const double scale : usual)
        if ((bounds.right - bounds.left) * 10 / scale <= kBroadSheet
            && (bounds.top - bounds.bottom) * 10 / scale <= mostHeight)
            return scale;
    return std::max(usual.back(), std::ceil((bounds.right - bounds.left) * 10 / kBroadSheet));
}

int LineStep(int height)
{
    return height + height / 5;
}

int LabelStep(int height, int lines)
{
    return lines * height + height / 3;
}

/// What a band takes below its plates.
int BandFoot(int height, const Steps& steps)
{
    return steps.bandLines * height + steps.gap / 2;
}

/// Texts beside each other in some lines; one that would lie on another is left out.
class CTextRow {
public:
    CTextRow(CDrawContext& dc, int top, int lines)
        : dc_(dc)
        , top_(top)
        , ends_(static_cast<std::size_t>(lines), std::numeric_limits<int>::min())
    {
    }

    /// `x` is the middle of the text. Called from left to right. Gives where the text's top is; nothing if it has no
    /// room. One that is not seen has its room too, so that what is seen stays as it was while the view moves.
    std::optional<int> Put(int x, std::string_view text, bool seen)
    {
        const TextMetrics metrics = dc_.Metrics();
        const int left = x - metrics.Width(text) / 2;
        for (std::size_t line = 0; line < ends_.size(); ++line)
            if (left >= ends_[line]) {
                const int top = top_ - static_cast<int>(line) * metrics.height;
                if (seen)
                    dc_.Text({left, top}, text);
                ends_[line] = left + metrics.Width(text) + metrics.aveCharWidth;
                return top;
            }
        return std::nullopt;
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
    CSheet(CDrawContext& dc, const BridgeDrawing& drawing, const SheetLook& look, std::vector<SheetHit>* hits)
        : dc_(dc)
        , drawing_(drawing)
        , look_(look)
        , hits_(hits)
        , steps_(look.compact ? kCloseSteps : kOpenSteps)
        , bounds_(BoundsOf(drawing))
        , scale_(look.scale > 0 ? look.scale : UsualScaleOf(bounds_))
        , perX_(kUnits / scale_)
        , perY_(kUnits * look.exaggeration / scale_)
        , most_(look.visible ? kMostPane : kMostSheet)
        , height_(dc.Metrics().height)
    {
    }

    SheetExtent Draw();

private:
    [[nodiscard]] int X(double x) const { return Unit((x - bounds_.left) * perX_) + kLeftMargin; }
    [[nodiscard]] int Y(double y) const { return top_ - Unit((bounds_.top - y) * perY_); }
    [[nodiscard]] DrawPoint At(const DrawnPoint& point) const { return {X(point.x), Y(point.y)}; }
    [[nodiscard]] int Unit(double value) const
    {
        const double within = value < -most_ ? -most_ : value > most_ ? most_ : value;
        return static_cast<int>(within + (within < 0 ? -0.5 : 0.5)); // rounds
    }
    [[nodiscard]] bool IsSelected(const SourceCell& place) const
    {
        return look_.selected.block != 0 && look_.selected.row != 0 && place.SameRow(look_.selected);
    }
    [[nodiscard]] bool IsCovered() const;
    /// May anything between these units be seen?
    [[nodiscard]] bool IsSeen(int left, int right) const
    {
        return !look_.visible || (left <= look_.visible->right && right >= look_.visible->left);
    }
    [[nodiscard]] bool IsSeen(std::span<const DrawPoint> points, int around) const;
    void Hit(SheetBox box, const SourceCell& source, std::string_view text)
    {
        if (hits_ != nullptr && source.block != 0)
            hits_->push_back({box, source, std::string(text)});
    }

    void Title();
    void LabelsBeside(LabelRow place, int lines);
    void Shade();
    void Webs();
    void Shapes(bool selected);
    void Shape(const DrawnShape& shape, bool selected);
    void LabelsWithin();
    void Bands();
    void Band(const PlateBand& band, double scale);
    void Chains();
    void List();
    void Line(std::string_view text);
    void Widen(int right) { right_ = std::max(right_, right); }
    /// Puts a text whose middle is `x` into a row, and tells where it stands.
    bool PutLabel(CTextRow& row, int x, std::string_view text, const SourceCell& source);

    CDrawContext& dc_;
    const BridgeDrawing& drawing_;
    SheetLook look_;
    std::vector<SheetHit>* hits_;
    Steps steps_;
    Bounds bounds_;
    double scale_;
    double perX_; // units a mm
    double perY_;
    double most_;
    int height_;
    int top_ = 0;    // of the shapes
    int cursor_ = 0; // the next free line
    int right_ = 0;
    std::vector<DrawPoint> points_; // of the shape that is drawn
};

bool CSheet::IsCovered() const
{
    const RowUse* use = drawing_.UseOf(look_.selected.block, look_.selected.row);
    return use != nullptr && use->covered;
}

bool CSheet::IsSeen(std::span<const DrawPoint> points, int around) const
{
    if (!look_.visible || points.empty())
        return true;
    SheetBox box{points.front().x, points.front().y, points.front().x, points.front().y};
    for (const DrawPoint& point : points) {
        box.left = std::min(box.left, point.x);
        box.right = std::max(box.right, point.x);
        box.bottom = std::min(box.bottom, point.y);
        box.top = std::max(box.top, point.y);
    }
    const SheetBox& seen = *look_.visible;
    return box.left - around <= seen.right && box.right + around >= seen.left && box.bottom - around <= seen.top
           && box.top + around >= seen.bottom;
}

void CSheet::Line(std::string_view text)
{
    dc_.Text({kMargin, cursor_}, text);
    Widen(kMargin + dc_.Metrics().Width(text));
    cursor_ -= LineStep(height_);
}

void CSheet::Title()
{
    std::string text = drawing_.title;
    if (!look_.visible) { // in a pane it is any
        text += Cp932("   縮尺 1:");
        AppendFixed(text, scale_, 0, 0);
    }
    if (look_.exaggeration > 1)
        text += Cp932("   高さは") + std::to_string(look_.exaggeration) + Cp932("倍");
    if (drawing_.provisional)
        text += Cp932("   寸法は仮");
    Line(text);
    if (!look_.compact)
        for (const std::string& note : drawing_.notes)
            Line(note);
    cursor_ -= steps_.gap;
}

bool CSheet::PutLabel(CTextRow& row, int x, std::string_view text, const SourceCell& source)
{
    const TextMetrics metrics = dc_.Metrics();
    const int half = metrics.Width(text) / 2;
    const bool seen = IsSeen(x - half, x + half);
    dc_.SetTextColour(IsSelected(source) ? colours::kRed : colours::kBlack);
    const std::optional<int> top = row.Put(x, text, seen);
    if (top && seen)
        Hit({x - half, *top - metrics.height, x + half, *top}, source, text);
    return top.has_value();
}

void CSheet::LabelsBeside(LabelRow place, int lines)
{
    std::vector<const DrawnLabel*> labels;
    for (const DrawnLabel& label : drawing_.labels)
        if (label.place == place)
            labels.push_back(&label);
    if (labels.empty())
        return;
    std::ranges::stable_sort(labels, {}, [](const DrawnLabel* label) { return label->at.x; });
    CTextRow row(dc_, cursor_, lines);
    for (const DrawnLabel* label : labels)
        PutLabel(row, X(label->at.x), label->text, label->source);
    dc_.SetTextColour(colours::kBlack);
    cursor_ -= LabelStep(height_, lines);
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
    const DrawPen pen{shape.open ? PenStyle::Dash : look.style, selected ? look.width + 1 : look.width, line};
    if (shape.kind == ShapeKind::Circle) {
        if (shape.points.empty())
            return;
        const int r = std::max(1, Unit(shape.radius * kUnits / scale_));
        const DrawPoint centre = At(shape.points.front());
        if (!IsSeen(std::span(&centre, 1), r))
            return;
        dc_.SetPen(pen);
        dc_.SetBrush({look.filled ? BrushStyle::Solid : BrushStyle::None, look.fill});
        dc_.Ellipse(centre, r, r);
        return;
    }
    points_.clear();
    for (const DrawnPoint& point : shape.points)
        points_.push_back(At(point));
    if (!IsSeen(points_, pen.width))
        return;
    dc_.SetPen(pen);
    if (shape.kind == ShapeKind::Polygon && points_.size() > 2) {
        if (const auto thin = ThinLine(points_)) {
            dc_.Line((*thin)[0], (*thin)[1]);
            return;
        }
        if (look.filled && shape.layer != DrawingLayer::Web) {
            dc_.SetBrush({BrushStyle::Solid, selected ? colours::kRed : look.fill});
            dc_.FillPolygon(points_);
        }
        points_.push_back(points_.front());
    }
    if (points_.size() == 2)
        dc_.Line(points_[0], points_[1]);
    else
        dc_.Polyline(points_);
}

/// The webs' surfaces lie below the shading, all else above it.
void CSheet::Webs()
{
    dc_.SetBrush({BrushStyle::Solid, kLooks[static_cast<std::size_t>(DrawingLayer::Web)].fill});
    for (const DrawnShape& shape : drawing_.shapes)
        if (shape.layer == DrawingLayer::Web && shape.kind == ShapeKind::Polygon) {
            points_.clear();
            for (const DrawnPoint& point : shape.points)
                points_.push_back(At(point));
            if (IsSeen(points_, 0))
                dc_.FillPolygon(points_);
        }
}

void CSheet::Shapes(bool selected)
{
    for (const DrawnShape& shape : drawing_.shapes)
        if (look_.selected.row == 0 || IsSelected(shape.source) == selected)
            Shape(shape, selected);
}

void CSheet::LabelsWithin()
{
    // Labels at points avoid each other: a later one that would lie on an earlier one is left out.
    std::vector<SheetBox> taken;
    const TextMetrics metrics = dc_.Metrics();
    for (const DrawnLabel& label : drawing_.labels) {
        if (label.place != LabelRow::AtPoint)
            continue;
        const int width = metrics.Width(label.text);
        const int left = X(label.at.x) - width / 2;
        const int top = Y(label.at.y) + height_ / 2;
        const SheetBox box{left, top - height_, left + width, top};
        const std::array<DrawPoint, 2> corners{{{box.left, box.bottom}, {box.right, box.top}}};
        constexpr std::size_t most = 2'000; // more than can be read
        if (!IsSeen(corners, 0) || taken.size() >= most || std::ranges::any_of(taken, [&](const SheetBox& other) {
                return box.left < other.right && other.left < box.right && box.bottom < other.top
                       && other.bottom < box.top;
            }))
            continue;
        taken.push_back(box);
        dc_.SetTextColour(IsSelected(label.source) ? colours::kRed : colours::kBlack);
        dc_.Text({left, top}, label.text);
        Hit(box, label.source, label.text);
        Widen(left + width);
    }
    dc_.SetTextColour(colours::kBlack);
}

/// The scale at which the thickest, or the widest, plate has its height.
double BandScale(const BridgeDrawing& drawing, int height, bool ofWidths)
{
    double most = 0;
    for (const PlateBand& band : drawing.bands)
        if (band.ofWidths == ofWidths)
            for (const BandPart& part : band.parts)
                most = std::max({most, part.thickFrom, part.thickTo});
    constexpr std::array<double, 10> usual{1, 2, 5, 10, 20, 50, 100, 200, 500, 1000};
    for (const double each : usual)
        if (most * kUnits / each <= height)
            return each;
    return usual.back();
}

void CSheet::Bands()
{
    if (drawing_.bands.empty())
        return;
    const std::array<double, 2> scales{BandScale(drawing_, steps_.band, false), BandScale(drawing_, steps_.band, true)};
    std::string text = Cp932("板厚は縮尺 1:");
    AppendFixed(text, scales[0], 0, 0);
    if (std::ranges::any_of(drawing_.bands, &PlateBand::ofWidths)) {
        text += Cp932("，幅は 1:");
        AppendFixed(text, scales[1], 0, 0);
    }
    Line(text + Cp932(" で描いています．"));
    for (const PlateBand& band : drawing_.bands)
        Band(band, scales[band.ofWidths ? 1 : 0]);
    cursor_ -= steps_.gap / 2;
}

void CSheet::Band(const PlateBand& band, double scale)
{
    const int foot = cursor_ - steps_.band;
    dc_.Text({kMargin, foot + height_}, band.title);
    const auto heightOf = [&](double thickness) { return std::min(steps_.band, Unit(thickness * kUnits / scale)); };
    const auto isSeen = [&](const BandPart& part) { return IsSeen(X(part.from), X(part.to)); };
    dc_.SetPen({PenStyle::Solid, 1, colours::kBlack});
    for (const BandPart& part : band.parts) {
        if (!isSeen(part))
            continue;
        const std::array<DrawPoint, 5> outline{{{X(part.from), foot},
                                                {X(part.from), foot + heightOf(part.thickFrom)},
                                                {X(part.to), foot + heightOf(part.thickTo)},
                                                {X(part.to), foot},
                                                {X(part.from), foot}}};
        dc_.SetBrush({BrushStyle::Solid, IsSelected(part.source)
                                             ? colours::kRed
                                             : kLooks[static_cast<std::size_t>(DrawingLayer::Flange)].fill});
        dc_.FillPolygon(std::span(outline).first(4));
        Hit({outline[0].x, foot, outline[2].x, std::max(outline[1].y, outline[2].y)}, part.source, part.text);
    }
    // The outlines of parts beside each other are one: foot, steps, and the ends.
    std::vector<DrawPoint> top;
    const auto close = [&] {
        if (top.size() >= 2) {
            dc_.Polyline(top);
            dc_.Line({top.front().x, foot}, {top.back().x, foot});
        }
        top.clear();
    };
    for (const BandPart& part : band.parts) {
        if (!isSeen(part))
            continue;
        const int from = X(part.from);
        if (!top.empty() && top.back().x != from)
            close();
        for (const DrawPoint& point :
             {DrawPoint{from, foot}, DrawPoint{from, foot + heightOf(part.thickFrom)},
              DrawPoint{X(part.to), foot + heightOf(part.thickTo)}, DrawPoint{X(part.to), foot}})
            if (top.empty() || !(top.back() == point))
                top.push_back(point);
    }
    close();
    CTextRow row(dc_, foot - height_ / 8, steps_.bandLines);
    for (const BandPart& part : band.parts)
        PutLabel(row, (X(part.from) + X(part.to)) / 2, part.text, part.source);
    dc_.SetTextColour(colours::kBlack);
    cursor_ = foot - BandFoot(height_, steps_);
}

void CSheet::Chains()
{
    for (const DimensionChain& chain : drawing_.chains) {
        const int y = cursor_ - steps_.chain + height_ / 2;
        dc_.SetTextColour(colours::kBlack);
        dc_.Text({kMargin, y + height_}, chain.title);
        const int tick = 5 * dc_.unitY;
        int end = std::numeric_limits<int>::min(); // of the part before
        for (const ChainPart& part : chain.parts) {
            const int from = std::min(X(part.from), X(part.to));
            const int to = std::max(X(part.from), X(part.to));
            if (from == to || !IsSeen(from, to))
                continue;
            dc_.SetPen({PenStyle::Solid, 1, IsSelected(part.source) ? colours::kRed : colours::kBlack});
            dc_.Line({from, y}, {to, y});
            if (from != end || IsSelected(part.source))
                dc_.Line({from, y - tick}, {from, y + tick});
            dc_.Line({to, y - tick}, {to, y + tick});
            end = to;
            Hit({from, y - tick, to, y + tick}, part.source, part.text);
        }
        CTextRow above(dc_, y + height_ + 4, 1);
        CTextRow below(dc_, y - 4, 1);
        for (const ChainPart& part : chain.parts) {
            const int middle = (X(part.from) + X(part.to)) / 2;
            if (!PutLabel(above, middle, part.text, part.source) && !look_.compact)
                PutLabel(below, middle, part.text, part.source);
        }
        cursor_ -= steps_.chain;
    }
    dc_.SetTextColour(colours::kBlack);
    cursor_ -= steps_.gap + height_;
}

void CSheet::List()
{
    if (look_.selected.row != 0 && IsCovered())
        Line(Cp932("現在の行は，後の行がすべての範囲で優先されるため，図に表れません．"));
    if (drawing_.omissions.empty() || look_.compact)
        return;
    Line(Cp932("図にできないもの (") + std::to_string(drawing_.omissions.size()) + Cp932("件)"));
    std::size_t listed = 0;
    for (const Omission& omission : drawing_.omissions) {
        if (++listed > kListed) {
            Line(Cp932("  ほか ") + std::to_string(drawing_.omissions.size() - kListed) + Cp932("件"));
            break;
        }
        Line("  " + OmissionText(omission));
    }
}

SheetExtent CSheet::Draw()
{
    cursor_ = -steps_.margin;
    dc_.SetTextColour(colours::kBlack);
    Title();
    if (!bounds_.IsEmpty()) {
        LabelsBeside(LabelRow::FarAbove, steps_.labelLines);
        LabelsBeside(LabelRow::Above, steps_.labelLines);
        top_ = cursor_;
        Webs();
        Shade();
        Shapes(false);
        if (look_.selected.row != 0)
            Shapes(true);
        LabelsWithin();
        cursor_ = Y(bounds_.bottom) - steps_.gap / 3;
        LabelsBeside(LabelRow::Below, steps_.labelLines);
        cursor_ -= steps_.gap;
        Bands();
        Chains();
        Widen(X(bounds_.right));
    }
    List();
    return {right_ + kMargin, -cursor_ + steps_.margin};
}

} // namespace

std::string OmissionText(const Omission& omission)
{
    std::string text;
    if (omission.place.block != 0) {
        text += std::to_string(omission.place.block);
        if (omission.place.row != 0)
            text += Cp932(" の ") + std::to_string(omission.place.row) + Cp932("行目");
        if (omission.place.row != 0 && omission.place.column != 0)
            text += " " + std::to_string(omission.place.column) + Cp932("列目");
        text += Cp932("： ");
    }
    return text + omission.reason;
}

std::optional<SheetPlaces> PlacesOnSheet(const TextMetrics& metrics, const BridgeDrawing& drawing,
                                         const SheetLook& look)
{
    const Bounds bounds = BoundsOf(drawing);
    if (bounds.IsEmpty())
        return std::nullopt;
    const Steps steps = look.compact ? kCloseSteps : kOpenSteps;
    const auto has = [&](LabelRow place) {
        return std::ranges::any_of(drawing.labels, [&](const DrawnLabel& label) { return label.place == place; });
    };
    const double scale = look.scale > 0 ? look.scale : UsualScale(drawing);
    SheetPlaces places;
    places.leftTop = {bounds.left, bounds.top};
    places.width = bounds.right - bounds.left;
    places.height = bounds.top - bounds.bottom;
    places.perX = kUnits / scale;
    places.perY = kUnits * look.exaggeration / scale;
    places.left = kLeftMargin;
    places.right = kMargin;
    places.top = -steps.margin
                 - LineStep(metrics.height) * (1 + (look.compact ? 0 : static_cast<int>(drawing.notes.size())))
                 - steps.gap;
    for (const LabelRow place : {LabelRow::FarAbove, LabelRow::Above})
        if (has(place))
            places.top -= LabelStep(metrics.height, steps.labelLines);
    places.below = steps.gap / 3 + steps.gap + (has(LabelRow::Below) ? LabelStep(metrics.height, steps.labelLines) : 0)
                   + static_cast<int>(drawing.chains.size()) * steps.chain + steps.gap + metrics.height;
    if (!drawing.bands.empty())
        places.below += LineStep(metrics.height) + steps.gap / 2
                        + static_cast<int>(drawing.bands.size()) * (steps.band + BandFoot(metrics.height, steps));
    return places;
}

double ScaleThatFills(const BridgeDrawing& drawing, const TextMetrics& metrics, const SheetLook& look, double width,
                      double height)
{
    const std::optional<SheetPlaces> places = PlacesOnSheet(metrics, drawing, look);
    if (!places)
        return 1;
    constexpr double leastShare = 0.3; // of the height: what lies below is scrolled to
    const double across = std::max(width - places->left - places->right, width / 4);
    const double down = std::max(height + places->top - places->below, height * leastShare);
    const double scale = std::max(places->width * kUnits / std::max(across, 1.0),
                                  places->height * kUnits * look.exaggeration / std::max(down, 1.0));
    return scale > 0 ? scale : 1;
}

double UsualScale(const BridgeDrawing& drawing)
{
    return UsualScaleOf(BoundsOf(drawing));
}

SheetExtent DrawBridgeSheet(CDrawContext& dc, const BridgeDrawing& drawing, const SheetLook& look,
                            std::vector<SheetHit>* hits)
{
    return CSheet(dc, drawing, look, hits).Draw();
}

} // namespace sbd
