#include "results/result_diagram.h"

#include "project/text.h"

#include <algorithm>
#include <cmath>

namespace sbd {

namespace {

constexpr double kPerMille = 1000;
constexpr double kOneLabelStep = 50;
constexpr double kLeastLabel = 1e-6;
constexpr std::size_t kLabelWidth = 10;

/// A member between two nodes of the figure, which count from 0.
struct Member {
    std::size_t element = 0;
    std::array<std::size_t, 2> nodes{};
};

std::optional<Member> MemberOf(const AnalysisResults& results, std::int32_t element)
{
    const std::vector<std::array<std::int32_t, 3>>& ends = results.elementTable.ends;
    if (element < 1 || static_cast<std::size_t>(element) > ends.size())
        return std::nullopt;
    Member member{.element = static_cast<std::size_t>(element) - 1};
    for (std::size_t end = 0; end < member.nodes.size(); ++end) {
        const std::int32_t node = ends[member.element][end];
        if (node < 1 || static_cast<std::size_t>(node) > results.nodeTable.coordinates.size())
            return std::nullopt;
        member.nodes[end] = static_cast<std::size_t>(node) - 1;
    }
    return member;
}

double PlanLength(const NodeTable& table, const Member& member)
{
    const auto& from = table.coordinates[member.nodes[0]];
    const auto& to = table.coordinates[member.nodes[1]];
    return std::hypot(to[0] - from[0], to[1] - from[1]);
}

/// Reads the ordinates at both ends of a member.
class Ordinates {
public:
    Ordinates(const AnalysisResults& results, std::size_t loadCase, const GirderDiagram& diagram)
        : cube_(CubeOf(results, diagram.kind))
        , loadCase_(loadCase)
        , loads_(static_cast<std::size_t>(std::max(results.model.loadCaseCount, 0)))
        , kind_(diagram.kind)
        , component_(diagram.component)
        , factor_(kind_ == ResultKind::Displacement ? diagram.sign * kPerMille : diagram.sign)
    {
    }

    /// Nothing if the results hold no such values.
    [[nodiscard]] std::optional<std::array<double, 2>> Of(const Member& member) const
    {
        const bool isForce = kind_ == ResultKind::Force;
        const auto left = Value(isForce ? member.element : member.nodes[0], component_);
        const auto right =
            isForce ? Value(member.element, component_ + kNodeComponents) : Value(member.nodes[1], component_);
        if (!left || !right)
            return std::nullopt;
        return std::array{factor_ * *left, isForce ? -factor_ * *right : factor_ * *right};
    }

private:
    [[nodiscard]] std::optional<double> Value(std::size_t item, std::size_t place) const
    {
        return cube_.At(item, loadCase_, place, loads_, ValuesOfItem(kind_));
    }

    const ResultCube& cube_;
    std::size_t loadCase_;
    std::size_t loads_;
    ResultKind kind_;
    std::size_t component_;
    double factor_;
};

std::string_view StationName(const AnalysisModel& model, std::size_t station)
{
    return station < model.stationNames.size() ? std::string_view(model.stationNames[station]) : std::string_view();
}

void AppendBay(GirderDiagram& diagram, const AnalysisModel& model, const DiagramBay& bay, const Member& member)
{
    diagram.bays.push_back(bay);
    diagram.positions.push_back(bay.x1);
    const std::size_t point = diagram.bays.size();
    diagram.stationNames.resize(point + 1);
    diagram.stationNames[point - 1] = StationName(model, bay.bay);
    diagram.stationNames[point] = StationName(model, bay.bay + 1);
    diagram.nodes.resize(point + 1);
    diagram.nodes[point - 1] = static_cast<std::int32_t>(member.nodes[0] + 1);
    diagram.nodes[point] = static_cast<std::int32_t>(member.nodes[1] + 1);
    if (diagram.kind == ResultKind::Force)
        return;
    diagram.points.resize(point + 1);
    diagram.points[point - 1] = bay.left;
    diagram.points[point] = bay.right;
}

void FindExtremes(GirderDiagram& diagram)
{
    bool any = false;
    const auto count = [&diagram](double value) { diagram.notNumbers += std::isfinite(value) ? 0 : 1; };
    std::ranges::for_each(diagram.points, count);
    for (const DiagramBay& bay : diagram.bays)
        for (const double value : {bay.left, bay.right}) {
            if (diagram.points.empty())
                count(value);
            if (!std::isfinite(value))
                continue;
            diagram.least = any ? std::min(diagram.least, value) : value;
            diagram.greatest = any ? std::max(diagram.greatest, value) : value;
            any = true;
        }
}

void FindSupports(GirderDiagram& diagram, const NodeTable& table)
{
    constexpr std::int32_t supportMark = 1;
    for (std::size_t point = 0; point < diagram.nodes.size(); ++point) {
        const auto node = static_cast<std::size_t>(diagram.nodes[point]) - 1;
        if (node < table.nodeValues.size() && table.nodeValues[node][2] == supportMark)
            diagram.supports.push_back(point);
    }
}

std::size_t GirderOf(const AnalysisModel& model, std::string_view name)
{
    const auto found = std::ranges::find(model.girderNames, name);
    return found == model.girderNames.end() ? 0 : static_cast<std::size_t>(found - model.girderNames.begin());
}

void AppendLabel(std::vector<DiagramLabel>& labels, double value)
{
    if (!std::isfinite(value) || std::abs(value) < kLeastLabel)
        return;
    std::string number;
    AppendFixed(number, value, 0, 1);
    std::string text;
    AppendPadded(text, number, kLabelWidth, true);
    labels.push_back({value, std::move(text)});
}

/// The values of a force in front of and behind each point.
void AppendJump(std::vector<DiagramLabel>& labels, double before, double behind)
{
    if (std::isfinite(before) != std::isfinite(behind))
        AppendLabel(labels, std::isfinite(before) ? before : behind);
    else if (std::abs(behind - before) <= kOneLabelStep) {
        AppendLabel(labels, std::abs(before) > std::abs(behind) ? before : behind);
    } else {
        AppendLabel(labels, before);
        AppendLabel(labels, behind);
    }
}

} // namespace

double GirderDiagram::Amplitude() const
{
    return std::max(std::abs(least), std::abs(greatest));
}

std::string StationOf(const GirderDiagram& diagram, double ordinate)
{
    for (std::size_t i = 0; i < diagram.bays.size(); ++i) {
        if (diagram.bays[i].left == ordinate)
            return diagram.stationNames[i];
        if (diagram.bays[i].right == ordinate)
            return diagram.stationNames[i + 1];
    }
    return {};
}

GirderDiagram MakeGirderDiagram(const AnalysisResults& results, std::size_t loadCase, std::string_view girder,
                                ResultKind kind, std::size_t component)
{
    const AnalysisModel& model = results.model;
    GirderDiagram diagram;
    diagram.kind = kind;
    diagram.girder = GirderOf(model, girder);
    diagram.component = component;
    diagram.sign = kind == ResultKind::Displacement ? -1.0 : 1.0;
    const Ordinates ordinates(results, loadCase, diagram);
    const std::size_t bays = model.stationCount > 1 ? static_cast<std::size_t>(model.stationCount) - 1 : 0;
    for (std::size_t bay = 0; bay < bays; ++bay) {
        const std::size_t at = diagram.girder * bays + bay;
        if (at >= model.girderElements.size())
            break;
        const std::optional<Member> member = MemberOf(results, model.girderElements[at]);
        const auto values = member ? ordinates.Of(*member) : std::nullopt;
        const double length = values ? PlanLength(results.nodeTable, *member) : 0;
        if (!values || !std::isfinite(length))
            continue;
        const double x0 = diagram.Length();
        AppendBay(diagram, model, {bay, model.girderElements[at], x0, x0 + length, (*values)[0], (*values)[1]},
                  *member);
    }
    FindExtremes(diagram);
    FindSupports(diagram, results.nodeTable);
    return diagram;
}

std::vector<std::vector<DiagramLabel>> LabelsOf(const GirderDiagram& diagram)
{
    std::vector<std::vector<DiagramLabel>> labels(diagram.bays.empty() ? 0 : diagram.positions.size());
    for (std::size_t point = 0; point < labels.size(); ++point) {
        if (diagram.kind != ResultKind::Force)
            AppendLabel(labels[point], diagram.points[point]);
        else if (point == 0)
            AppendLabel(labels[point], diagram.bays.front().left);
        else if (point == diagram.bays.size())
            AppendLabel(labels[point], diagram.bays.back().right);
        else
            AppendJump(labels[point], diagram.bays[point - 1].right, diagram.bays[point].left);
    }
    return labels;
}

DiagramScale FitDiagram(const GirderDiagram& diagram, const FigureScreen& screen, double zoom, FigurePan pan)
{
    DiagramScale scale{.screen = screen, .pan = pan, .length = diagram.Length()};
    if (scale.length > 0)
        scale.sxScale = 2 * screen.HalfWidth() / scale.length / zoom;
    if (const double amplitude = diagram.Amplitude(); amplitude > 0)
        scale.syScale = 2 * screen.HalfHeight() / (2 * amplitude) / zoom;
    return scale;
}

} // namespace sbd
