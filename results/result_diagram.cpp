#include "results/result_diagram.h"

#include "project/text.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace sbd {

namespace {

constexpr double kPerMille = 1000;
constexpr double kOneLabelStep = 50;
constexpr double kLeastLabel = 1e-6;
constexpr double kLeastReaction = 0.001; // as in the table
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

/// An ordinate and the load case that decides it.
struct Ordinate {
    double value = 0;
    std::int32_t loadCase = -1;
};

/// Reads the ordinates at both ends of a member: in one load case, or the largest or smallest of several.
class Ordinates {
public:
    Ordinates(const AnalysisResults& results, std::span<const std::size_t> cases, std::optional<EnvelopeSide> side,
              const GirderDiagram& diagram)
        : cube_(CubeOf(results, diagram.kind))
        , cases_(cases)
        , side_(side)
        , loads_(static_cast<std::size_t>(std::max(results.model.loadCaseCount, 0)))
        , kind_(diagram.kind)
        , component_(diagram.component)
        , factor_(kind_ == ResultKind::Displacement ? diagram.sign * kPerMille : diagram.sign)
    {
    }

    /// Nothing if the results hold no such values.
    [[nodiscard]] std::optional<std::array<Ordinate, 2>> Of(const Member& member) const
    {
        const bool isForce = kind_ == ResultKind::Force;
        const auto left = Value(isForce ? member.element : member.nodes[0], component_, factor_);
        const auto right = isForce ? Value(member.element, component_ + kNodeComponents, -factor_)
                                   : Value(member.nodes[1], component_, factor_);
        if (!left || !right)
            return std::nullopt;
        return std::array{*left, *right};
    }

private:
    [[nodiscard]] std::optional<Ordinate> Value(std::size_t item, std::size_t place, double factor) const
    {
        if (!side_) {
            const auto value = cases_.empty() ? std::nullopt : At(item, cases_.front(), place);
            return value ? std::optional(Ordinate{factor * *value}) : std::nullopt;
        }
        Ordinate best{std::numeric_limits<double>::quiet_NaN()};
        for (const std::size_t loadCase : cases_) {
            const std::optional<double> value = At(item, loadCase, place);
            if (!value)
                return std::nullopt;
            const double own = factor * *value;
            if (std::isfinite(own)
                && (best.loadCase < 0 || (*side_ == EnvelopeSide::Greatest ? own > best.value : own < best.value)))
                best = {own, static_cast<std::int32_t>(loadCase)};
        }
        return best;
    }
    [[nodiscard]] std::optional<double> At(std::size_t item, std::size_t loadCase, std::size_t place) const
    {
        return cube_.At(item, loadCase, place, loads_, ValuesOfItem(kind_));
    }

    const ResultCube& cube_;
    std::span<const std::size_t> cases_;
    std::optional<EnvelopeSide> side_;
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
    diagram.pointCases.resize(point + 1);
    diagram.pointCases[point - 1] = bay.leftCase;
    diagram.pointCases[point] = bay.rightCase;
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

/// Writes the values at the points of a diagram, with the number of the load case that decides.
class LabelWriter {
public:
    explicit LabelWriter(const GirderDiagram& diagram) : diagram_(diagram) {}

    void Append(std::vector<DiagramLabel>& labels, Ordinate ordinate) const
    {
        if (!std::isfinite(ordinate.value) || std::abs(ordinate.value) < kLeastLabel)
            return;
        std::string number;
        AppendFixed(number, ordinate.value, 0, 1);
        const auto loadCase = static_cast<std::size_t>(ordinate.loadCase);
        if (ordinate.loadCase >= 0 && loadCase < diagram_.caseNumbers.size() && diagram_.caseNumbers[loadCase] > 0)
            number += "[" + std::to_string(diagram_.caseNumbers[loadCase]) + "]";
        std::string text;
        AppendPadded(text, number, kLabelWidth, true);
        labels.push_back({ordinate.value, std::move(text)});
    }

    /// The values of a force in front of and behind a point.
    void AppendJump(std::vector<DiagramLabel>& labels, Ordinate before, Ordinate behind) const
    {
        if (std::isfinite(before.value) != std::isfinite(behind.value))
            Append(labels, std::isfinite(before.value) ? before : behind);
        else if (std::abs(behind.value - before.value) <= kOneLabelStep) {
            Append(labels, std::abs(before.value) > std::abs(behind.value) ? before : behind);
        } else {
            Append(labels, before);
            Append(labels, behind);
        }
    }

private:
    const GirderDiagram& diagram_;
};

GirderDiagram MakeDiagram(const AnalysisResults& results, std::span<const std::size_t> cases,
                          std::optional<EnvelopeSide> side, std::string_view girder, ResultKind kind,
                          std::size_t component)
{
    const AnalysisModel& model = results.model;
    GirderDiagram diagram;
    diagram.kind = kind;
    diagram.girder = GirderOf(model, girder);
    diagram.component = component;
    diagram.sign = kind == ResultKind::Displacement ? -1.0 : 1.0;
    const Ordinates ordinates(results, cases, side, diagram);
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
        const auto [left, right] = *values;
        AppendBay(
            diagram, model,
            {bay, model.girderElements[at], x0, x0 + length, left.value, right.value, left.loadCase, right.loadCase},
            *member);
    }
    FindExtremes(diagram);
    FindSupports(diagram, results.nodeTable);
    return diagram;
}

} // namespace

double GirderDiagram::Amplitude() const
{
    return std::max(std::abs(least), std::abs(greatest));
}

std::optional<DiagramExtreme> ExtremeOf(const GirderDiagram& diagram, EnvelopeSide side)
{
    std::optional<DiagramExtreme> best;
    const auto offer = [&](double value, std::size_t point, std::int32_t loadCase) {
        if (std::isfinite(value)
            && (!best || (side == EnvelopeSide::Greatest ? value > best->value : value < best->value)))
            best = {value, diagram.stationNames[point], loadCase};
    };
    const auto offerAll = [&](const auto& isMeant) {
        for (std::size_t i = 0; i < diagram.bays.size(); ++i) {
            const DiagramBay& bay = diagram.bays[i];
            if (isMeant(i, bay.left))
                offer(bay.left, i, bay.leftCase);
            if (isMeant(i + 1, bay.right))
                offer(bay.right, i + 1, bay.rightCase);
        }
    };
    if (diagram.kind == ResultKind::Reaction)
        offerAll([&](std::size_t point, double value) {
            return std::abs(value) > kLeastReaction || std::ranges::binary_search(diagram.supports, point);
        });
    if (!best)
        offerAll([](std::size_t, double) { return true; });
    return best;
}

GirderDiagram MakeGirderDiagram(const AnalysisResults& results, std::size_t loadCase, std::string_view girder,
                                ResultKind kind, std::size_t component)
{
    return MakeDiagram(results, {&loadCase, 1}, std::nullopt, girder, kind, component);
}

GirderDiagram MakeEnvelopeDiagram(const AnalysisResults& results, std::span<const std::size_t> cases, EnvelopeSide side,
                                  std::string_view girder, ResultKind kind, std::size_t component)
{
    return MakeDiagram(results, cases, side, girder, kind, component);
}

std::vector<std::vector<DiagramLabel>> LabelsOf(const GirderDiagram& diagram)
{
    const LabelWriter writer(diagram);
    std::vector<std::vector<DiagramLabel>> labels(diagram.bays.empty() ? 0 : diagram.positions.size());
    const auto left = [](const DiagramBay& bay) { return Ordinate{bay.left, bay.leftCase}; };
    const auto right = [](const DiagramBay& bay) { return Ordinate{bay.right, bay.rightCase}; };
    for (std::size_t point = 0; point < labels.size(); ++point) {
        if (diagram.kind != ResultKind::Force)
            writer.Append(labels[point],
                          {diagram.points[point], point < diagram.pointCases.size() ? diagram.pointCases[point] : -1});
        else if (point == 0)
            writer.Append(labels[point], left(diagram.bays.front()));
        else if (point == diagram.bays.size())
            writer.Append(labels[point], right(diagram.bays.back()));
        else
            writer.AppendJump(labels[point], right(diagram.bays[point - 1]), left(diagram.bays[point]));
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
