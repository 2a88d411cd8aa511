#include "project/option_rows.h"
#include "project/text.h"
#include "upperview/page/column_head.h"
#include "upperview/page/draw_primitives.h"
#include "upperview/page/draw_recorder.h"
#include "upperview/page/page_drawing.h"

#include <algorithm>
#include <map>
#include <set>

namespace sbd {

namespace {

constexpr int kLabelGap = 15; // between a label and what it names
constexpr int kBalloonRadius = 50;
constexpr int kBalloonDrop = 60; // centre below the point

/// Draws the elements of one sketch, in their colours or in red.
class SketchDrawing {
public:
    SketchDrawing(CDrawContext& dc, const Sketch& sketch, const PageView& view, DrawPoint corner)
        : dc_(dc)
        , view_(view)
        , scaleX_(dc.unitX * sketch.fx)
        , scaleY_(dc.unitY * sketch.fy)
        , corner_(corner)
        , metrics_(dc.Metrics())
    {
    }

    /// `value` is the text of the current row's cell; empty: none.
    void Draw(const SketchElement& element, const std::string& value, bool red, bool withLabel)
    {
        label_ = withLabel ? element.label.Text(view_) : std::string();
        if (withLabel && !value.empty())
            label_ += "=" + value;
        DrawPen pen = element.pen;
        if (red)
            pen.colour = colours::kRed;
        dc_.SetPen(pen);
        dc_.SetTextColour(pen.colour);
        switch (element.kind) {
        case ElementKind::Line:
        case ElementKind::Path:
            DrawPath(Points(element), false);
            break;
        case ElementKind::Rect:
            DrawShape(Corners(element), element.brush, red);
            break;
        case ElementKind::Polygon:
            DrawShape(Points(element), element.brush, red);
            break;
        case ElementKind::Circle:
            dc_.SetBrush(red ? DrawBrush{} : element.brush);
            DrawCircle(dc_, X(element, 0), Y(element, 1), Size(element, 2));
            break;
        case ElementKind::Dot:
            DrawFilledCircle(dc_, X(element, 0), Y(element, 1), Size(element, 2), DiscColour(element, red));
            break;
        case ElementKind::Bolts:
            DrawBolts(element, red);
            break;
        case ElementKind::Arc:
            dc_.Arc({X(element, 0), Y(element, 1)}, Size(element, 2), static_cast<int>(element.numbers[3] * scaleY_),
                    element.numbers[4], element.numbers[5]);
            break;
        case ElementKind::Dimension:
            DrawLabelledDimension(element);
            break;
        case ElementKind::Arrow:
            DrawArrow(dc_, X(element, 0), Y(element, 1), X(element, 2), Y(element, 3));
            break;
        case ElementKind::BlockArrow:
            DrawBlockArrow(dc_, X(element, 0), Y(element, 1), X(element, 2), Y(element, 3), element.numbers[4]);
            break;
        case ElementKind::Text:
            DrawLabel(element, {X(element, 0), Y(element, 1)}, element.place);
            break;
        case ElementKind::Balloon:
            DrawBalloon(element);
            break;
        }
    }

private:
    [[nodiscard]] int X(const SketchElement& element, std::size_t i) const
    {
        return static_cast<int>(element.numbers[i] * scaleX_) + corner_.x;
    }
    [[nodiscard]] int Y(const SketchElement& element, std::size_t i) const
    {
        return static_cast<int>(element.numbers[i] * scaleY_) + corner_.y;
    }
    [[nodiscard]] int Size(const SketchElement& element, std::size_t i) const
    {
        return static_cast<int>(element.numbers[i] * scaleX_);
    }

    [[nodiscard]] std::vector<DrawPoint> Points(const SketchElement& element) const
    {
        std::vector<DrawPoint> points;
        for (std::size_t i = 0; i + 1 < element.numbers.size(); i += 2)
            points.push_back({X(element, i), Y(element, i + 1)});
        return points;
    }

    [[nodiscard]] std::vector<DrawPoint> Corners(const SketchElement& element) const
    {
        const DrawPoint a{X(element, 0), Y(element, 1)};
        const DrawPoint b{X(element, 2), Y(element, 3)};
        return {a, {b.x, a.y}, b, {a.x, b.y}};
    }

    static DrawColour DiscColour(const SketchElement& element, bool red)
    {
        if (red)
            return colours::kRed;
        return element.brush.style == BrushStyle::Solid ? element.brush.colour : colours::kDarkGreen;
    }

    void DrawPath(const std::vector<DrawPoint>& points, bool closed)
    {
        for (std::size_t i = 1; i < points.size(); ++i)
            DrawLine(dc_, points[i - 1].x, points[i - 1].y, points[i].x, points[i].y);
        if (closed)
            DrawLine(dc_, points.back().x, points.back().y, points.front().x, points.front().y);
    }

    /// Inside first, so that the outline stays whole. The red one has its outline alone.
    void DrawShape(const std::vector<DrawPoint>& corners, const DrawBrush& brush, bool red)
    {
        if (brush.style != BrushStyle::None && !red) {
            dc_.SetBrush(brush);
            dc_.FillPolygon(corners);
        }
        DrawPath(corners, true);
    }

    void DrawBolts(const SketchElement& element, bool red)
    {
        const std::vector<double>& n = element.numbers; // x, y, count in x, count in y, pitch in x, pitch in y, radius
        for (int row = 0; row < static_cast<int>(n[3]); ++row)
            for (int column = 0; column < static_cast<int>(n[2]); ++column)
                DrawFilledCircle(dc_, static_cast<int>((n[0] + column * n[4]) * scaleX_) + corner_.x,
                                 static_cast<int>((n[1] - row * n[5]) * scaleY_) + corner_.y, Size(element, 6),
                                 DiscColour(element, red));
    }

    void DrawLabelledDimension(const SketchElement& element)
    {
        const DrawPoint a{X(element, 0), Y(element, 1)};
        const DrawPoint b{X(element, 2), Y(element, 3)};
        DrawDimension(dc_, a.x, a.y, b.x, b.y, element.arrows);
        const DrawPoint middle{(a.x + b.x) / 2, (a.y + b.y) / 2};
        LabelPlace place = element.place;
        if (place == LabelPlace::Default)
            place = a.x == b.x ? LabelPlace::Right : LabelPlace::Below;
        DrawLabel(element, middle, place);
    }

    void DrawLabel(const SketchElement& element, DrawPoint at, LabelPlace place)
    {
        if (label_.empty())
            return;
        const int width = metrics_.Width(label_);
        const int half = metrics_.height / 2;
        switch (place) {
        case LabelPlace::Default:
            break;
        case LabelPlace::Centre:
            at = {at.x - width / 2, at.y + half};
            break;
        case LabelPlace::Left:
            at = {at.x - width - kLabelGap, at.y + half};
            break;
        case LabelPlace::Right:
            at = {at.x + kLabelGap, at.y + half};
            break;
        case LabelPlace::Above:
            at = {at.x - width / 2, at.y + kLabelGap + metrics_.height};
            break;
        case LabelPlace::Below:
            at = {at.x - width / 2, at.y - kLabelGap};
            break;
        }
        dc_.Text({at.x + element.offset.x, at.y + element.offset.y}, label_);
    }

    void DrawBalloon(const SketchElement& element)
    {
        const DrawPoint centre{X(element, 0) + element.offset.x, Y(element, 1) - kBalloonDrop + element.offset.y};
        dc_.SetBrush({});
        dc_.Ellipse(centre, kBalloonRadius, kBalloonRadius);
        if (!label_.empty())
            dc_.Text({centre.x - metrics_.Width(label_) / 2, centre.y + metrics_.height / 2}, label_);
    }

    CDrawContext& dc_;
    const PageView& view_;
    double scaleX_;
    double scaleY_;
    DrawPoint corner_;
    TextMetrics metrics_;
    std::string label_; // of the element being drawn
};

bool Explains(const SketchElement& element, const PageView& view)
{
    return std::ranges::find(element.columns, view.column) != element.columns.end()
           || std::ranges::find(element.rows, view.row) != element.rows.end();
}

bool IsShown(const SketchElement& element, const PageView& view)
{
    return element.when.Holds(view) && (!element.onlySelected || Explains(element, view));
}

/// A label that alone explains a column of a table may show the text of the current row's cell.
bool MayShowValue(const SketchElement& element, const PageView& view)
{
    const bool labelled = element.kind == ElementKind::Dimension || element.kind == ElementKind::Text;
    return labelled && element.value && element.columns.size() == 1 && !element.label.Empty()
           && FindOptionBlock(view.block) == nullptr && view.row > HeadRows(view.block) && IsShown(element, view);
}

/// The text that stands behind a label. Nothing for a cell of several words: a list of spacings is not the
/// value of one of them.
std::string ValueOf(const SketchElement& element, const PageView& view)
{
    constexpr std::size_t longest = 8;
    const std::string cell = CellText(view.data, view.block, view.row, element.columns.front());
    const std::string_view text = Trim(cell);
    return text.size() <= longest && text.find_first_of(" ,=") == std::string_view::npos ? std::string(text) : "";
}

using Values = std::map<const SketchElement*, std::string>;

/// The values that a sketch shows. Several labels that differ for one column are parts of a list, and no one knows which of
/// them the cell means: none has a value then.
Values FindValues(const Sketch& sketch, const PageView& view)
{
    std::map<int, std::set<std::string>> labels;
    for (const SketchElement& element : sketch.elements)
        if (MayShowValue(element, view))
            labels[element.columns.front()].insert(element.label.Text(view));
    Values values;
    for (const SketchElement& element : sketch.elements)
        if (MayShowValue(element, view) && labels[element.columns.front()].size() == 1)
            if (std::string value = ValueOf(element, view); !value.empty())
                values.emplace(&element, std::move(value));
    return values;
}

/// Takes away the values without room: their label would leave the sketch, overlap another or be crossed by a line.
void DropCrowded(Values& values, const CDrawContext& dc, const Sketch& sketch, const PageView& view, DrawPoint corner)
{
    CDrawRecorder trial(dc.Metrics());
    trial.unitX = dc.unitX;
    trial.unitY = dc.unitY;
    SketchDrawing drawing(trial, sketch, view, corner);
    std::map<const SketchElement*, std::size_t> labels; // place among the primitives
    for (const SketchElement& element : sketch.elements) {
        if (!IsShown(element, view))
            continue;
        const auto value = values.find(&element);
        drawing.Draw(element, value == values.end() ? std::string() : value->second, false, true);
        if (value != values.end())
            labels.emplace(&element, trial.Primitives().size() - 1); // the label is drawn last
    }
    const int rightEdge = corner.x + static_cast<int>(sketch.width * (dc.unitX * sketch.fx));
    for (const auto& [element, place] : labels) {
        const std::vector<Primitive>& all = trial.Primitives();
        const Primitive& label = all[place];
        const DrawBox box = trial.BoxOf(label);
        const auto disturbs = [&](const Primitive& other) {
            if (other.kind == PrimitiveKind::Line)
                return box.IsCrossedBy(other.points[0], other.points[1]);
            return other.kind == PrimitiveKind::Text && &other != &label && box.Overlaps(trial.BoxOf(other));
        };
        if (box.left < 0 || box.right > rightEdge || std::ranges::any_of(all, disturbs))
            values.erase(element);
    }
}

} // namespace

bool DrawSketch(CDrawContext& dc, const Sketch& sketch, const PageView& view, DrawPoint corner)
{
    Values values = FindValues(sketch, view);
    if (!values.empty())
        DropCrowded(values, dc, sketch, view, corner);
    const auto valueOf = [&values](const SketchElement& element) {
        const auto found = values.find(&element);
        return found == values.end() ? std::string() : found->second;
    };
    SketchDrawing drawing(dc, sketch, view, corner);
    for (const SketchElement& element : sketch.elements)
        if (!element.onlySelected && element.when.Holds(view)) // smoothed letters would shine through the red ones
            drawing.Draw(element, valueOf(element), false, !Explains(element, view));
    bool explained = false;
    for (const SketchElement& element : sketch.elements) {
        if (!Explains(element, view) || !element.when.Holds(view))
            continue;
        drawing.Draw(element, valueOf(element), true, true);
        explained = true;
    }
    return explained;
}

} // namespace sbd
