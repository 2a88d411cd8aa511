#include "results/diagram_drawing.h"

#include <algorithm>
#include <cmath>

namespace sbd {

namespace {

constexpr std::size_t kVerticalReaction = 2;  // Fz
constexpr double kHeadHalfWidth = 8.0 / 1000; // of the pane's width
constexpr double kHeadLength = 2;             // half-widths
constexpr double kBarOffset = 6;              // pixels from the bar of another diagram

/// Puts lines and texts at positions and values.
class Drawing {
public:
    Drawing(const GirderDiagram& diagram, const DiagramScale& scale, FigurePen pen)
        : diagram_(diagram)
        , scale_(scale)
        , pen_(pen)
    {
    }

    void Axis() { Line({scale_.X(0), scale_.AxisY()}, {scale_.X(diagram_.Length()), scale_.AxisY()}); }
    void Between(FigurePoint from, FigurePoint to) { Line(from, to, pen_); }
    void ToAxis(FigurePoint point) { Line(point, {point.x, scale_.AxisY()}, FigurePen::Faint); }
    [[nodiscard]] FigurePoint At(double position, double value) const { return {scale_.X(position), scale_.Y(value)}; }

    /// A bar from the axis to its value; a vertical reaction gets a head there.
    void Bar(FigurePoint tip)
    {
        tip.x += pen_ == FigurePen::Plain || pen_ == FigurePen::Greatest ? 0 : kBarOffset;
        const FigurePoint foot{tip.x, scale_.AxisY()};
        Line(foot, tip, pen_);
        if (diagram_.component != kVerticalReaction)
            return;
        const double halfWidth = scale_.screen.clientWidth * kHeadHalfWidth;
        const double back =
            tip.y - std::copysign(std::min(halfWidth * kHeadLength, std::abs(tip.y - foot.y)), tip.y - foot.y);
        drawing_.heads.push_back({{tip, {tip.x - halfWidth, back}, {tip.x + halfWidth, back}}, pen_});
    }

    void Labels()
    {
        const std::vector<std::vector<DiagramLabel>> labels = LabelsOf(diagram_);
        const bool mostlyBelow = diagram_.greatest >= -diagram_.least;
        for (std::size_t point = 0; point < labels.size(); ++point) {
            const double position = diagram_.positions[point];
            const bool valuesBelow = labels[point].empty() ? mostlyBelow : labels[point].front().value > 0;
            drawing_.stationNames.push_back({diagram_.stationNames[point],
                                             {scale_.X(position), scale_.AxisY()},
                                             TextPlace::Middle,
                                             !valuesBelow,
                                             point,
                                             0});
            const bool apart = labels[point].size() > 1;
            for (std::size_t i = 0; i < labels[point].size(); ++i) {
                const DiagramLabel& label = labels[point][i];
                drawing_.values.push_back({label.text, At(position, label.value),
                                           !apart   ? TextPlace::Middle
                                           : i == 0 ? TextPlace::Left
                                                    : TextPlace::Right,
                                           label.value > 0, point, label.value});
            }
        }
    }

    [[nodiscard]] DiagramDrawing Take() { return std::move(drawing_); }

private:
    void Line(FigurePoint from, FigurePoint to, FigurePen pen = FigurePen::Plain)
    {
        drawing_.lines.push_back({from, to, pen});
    }

    const GirderDiagram& diagram_;
    const DiagramScale& scale_;
    FigurePen pen_;
    DiagramDrawing drawing_;
};

void DrawForces(Drawing& drawing, const std::vector<DiagramBay>& bays)
{
    for (std::size_t i = 0; i < bays.size(); ++i) {
        const FigurePoint left = drawing.At(bays[i].x0, bays[i].left);
        const FigurePoint right = drawing.At(bays[i].x1, bays[i].right);
        drawing.ToAxis(left);
        drawing.ToAxis(right);
        drawing.Between(left, right);
        if (i > 0)
            drawing.Between(drawing.At(bays[i - 1].x1, bays[i - 1].right), left);
    }
}

void DrawDisplacements(Drawing& drawing, const GirderDiagram& diagram)
{
    for (std::size_t i = 0; i < diagram.points.size(); ++i) {
        const FigurePoint point = drawing.At(diagram.positions[i], diagram.points[i]);
        drawing.ToAxis(point);
        if (i > 0)
            drawing.Between(drawing.At(diagram.positions[i - 1], diagram.points[i - 1]), point);
    }
}

void DrawReactions(Drawing& drawing, const GirderDiagram& diagram)
{
    for (std::size_t i = 0; i < diagram.points.size(); ++i)
        if (diagram.points[i] != 0)
            drawing.Bar(drawing.At(diagram.positions[i], diagram.points[i]));
}

} // namespace

DiagramDrawing DrawDiagram(const GirderDiagram& diagram, const DiagramScale& scale, FigurePen pen)
{
    if (diagram.bays.empty())
        return {};
    Drawing drawing(diagram, scale, pen);
    drawing.Axis();
    switch (diagram.kind) {
    case ResultKind::Force:
        DrawForces(drawing, diagram.bays);
        break;
    case ResultKind::Displacement:
        DrawDisplacements(drawing, diagram);
        break;
    case ResultKind::Reaction:
        DrawReactions(drawing, diagram);
        break;
    }
    drawing.Labels();
    return drawing.Take();
}

} // namespace sbd
