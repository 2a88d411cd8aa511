#include "results/figure_pick.h"

#include "project/text.h"

#include <algorithm>
#include <cmath>

namespace sbd {

using namespace literals;

namespace {

constexpr int kLateralBlock = 573;
constexpr int kCrossBlock = 523;
constexpr double kTipReach = 8; // pixels
constexpr double kBarReach = 4; // on both sides of a bar or a line
constexpr double kNodeReach = 7;
constexpr double kLineReach = 5;
constexpr int kDecimals = 3;
constexpr double kPerMille = 1000;

double Distance(FigurePoint a, FigurePoint b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

double DistanceToLine(FigurePoint point, FigurePoint from, FigurePoint to)
{
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const double square = dx * dx + dy * dy;
    const double share =
        square > 0 ? std::clamp(((point.x - from.x) * dx + (point.y - from.y) * dy) / square, 0.0, 1.0) : 0;
    return Distance(point, {from.x + dx * share, from.y + dy * share});
}

std::string Fixed(double value)
{
    std::string text;
    AppendFixed(text, value, 0, kDecimals);
    return text;
}

std::string NameAt(const std::vector<std::string>& names, std::int64_t number)
{
    return number >= 1 && static_cast<std::uint64_t>(number) <= names.size()
               ? names[static_cast<std::size_t>(number) - 1]
               : std::string();
}

/// An ordinate of a diagram by its bay and end, and where it is drawn.
struct Ordinate {
    std::size_t bay;
    bool rightEnd;
    double value;
    FigurePoint tip;
};

std::vector<Ordinate> OrdinatesOf(const GirderDiagram& diagram, const DiagramScale& scale)
{
    std::vector<Ordinate> ordinates;
    for (std::size_t i = 0; i < diagram.bays.size(); ++i) {
        const DiagramBay& bay = diagram.bays[i];
        for (const bool right : {false, true}) {
            const double value = right ? bay.right : bay.left;
            const FigurePoint tip{scale.X(right ? bay.x1 : bay.x0), scale.Y(value)};
            if (std::isfinite(tip.x) && std::isfinite(tip.y))
                ordinates.push_back({i, right, value, tip});
        }
    }
    return ordinates;
}

std::string RowName(const AnalysisModel& model, const GirderDiagram& diagram, const Ordinate& ordinate)
{
    if (diagram.kind == ResultKind::Force)
        return NameAt(model.elementNames, diagram.bays[ordinate.bay].element);
    return NameAt(model.nodeNames, diagram.nodes[ordinate.bay + (ordinate.rightEnd ? 1 : 0)]);
}

DiagramPick PickOf(const AnalysisResults& results, const GirderDiagram& diagram, const Ordinate& ordinate)
{
    const std::size_t point = ordinate.bay + (ordinate.rightEnd ? 1 : 0);
    const std::string node = NameAt(results.model.nodeNames, diagram.nodes[point]);
    DiagramPick pick{.name = RowName(results.model, diagram, ordinate),
                     .rightEnd = ordinate.rightEnd,
                     .value = ordinate.value,
                     .at = ordinate.tip,
                     .words = {}};
    if (diagram.kind == ResultKind::Force)
        pick.words = "要素 "_cp932 + pick.name + (ordinate.rightEnd ? " 右端\n"_cp932 : " 左端\n"_cp932);
    pick.words += "格点 "_cp932 + node + " (" + diagram.stationNames[point] + ")\n"
                  + ComponentWord(diagram.kind, diagram.component) + " = " + Fixed(ordinate.value) + " "
                  + UnitWord(diagram.kind, diagram.component);
    const DiagramBay& bay = diagram.bays[ordinate.bay];
    if (const std::string load = ShownLoadAt(results.model, ordinate.rightEnd ? bay.rightCase : bay.leftCase);
        !load.empty())
        pick.words += "\n荷重 "_cp932 + load;
    return pick;
}

/// Is the pointer between the axis and the line of the bay of two ordinates?
bool IsInBay(FigurePoint pointer, const Ordinate& left, const Ordinate& right, double axisY)
{
    const double run = right.tip.x - left.tip.x;
    if (!(run > 0) || pointer.x < left.tip.x || pointer.x > right.tip.x)
        return false;
    const double y = left.tip.y + (right.tip.y - left.tip.y) * (pointer.x - left.tip.x) / run;
    return pointer.y >= std::min(y, axisY) - kBarReach && pointer.y <= std::max(y, axisY) + kBarReach;
}

} // namespace

std::optional<DiagramPick> PickOrdinate(const AnalysisResults& results, const GirderDiagram& diagram,
                                        const DiagramScale& scale, FigurePoint pointer)
{
    const std::vector<Ordinate> ordinates = OrdinatesOf(diagram, scale);
    const double axisY = scale.AxisY();
    const Ordinate* best = nullptr;
    double bestDistance = kTipReach;
    const auto offer = [&](const Ordinate& ordinate, double distance) {
        if (distance > bestDistance || (best != nullptr && distance == bestDistance))
            return;
        best = &ordinate;
        bestDistance = distance;
    };
    for (const Ordinate& ordinate : ordinates)
        offer(ordinate, Distance(pointer, ordinate.tip));
    if (best == nullptr) {
        bestDistance = kBarReach;
        for (const Ordinate& ordinate : ordinates)
            offer(ordinate, DistanceToLine(pointer, ordinate.tip, {ordinate.tip.x, axisY}));
    }
    for (std::size_t i = 0; best == nullptr && i + 1 < ordinates.size(); ++i)
        if (ordinates[i].bay == ordinates[i + 1].bay && IsInBay(pointer, ordinates[i], ordinates[i + 1], axisY)) {
            const bool right = pointer.x - ordinates[i].tip.x > ordinates[i + 1].tip.x - pointer.x;
            best = &ordinates[right ? i + 1 : i];
        }
    return best == nullptr ? std::nullopt : std::optional(PickOf(results, diagram, *best));
}

std::optional<DiagramPick> PickOrdinate(const AnalysisResults& results, std::span<const DiagramCurve> curves,
                                        const DiagramScale& scale, FigurePoint pointer)
{
    std::optional<DiagramPick> best;
    double bestDistance = 0;
    for (const DiagramCurve& curve : curves) {
        std::optional<DiagramPick> own = PickOrdinate(results, curve.diagram, scale, pointer);
        const double distance = own ? Distance(pointer, own->at) : 0;
        // Of two laid over each other the first one is that of the table; of an envelope the last one lies on top.
        const bool isBehind = curve.pen == FigurePen::Second ? distance >= bestDistance : distance > bestDistance;
        if (!own || (best && isBehind))
            continue;
        if (!curve.name.empty())
            own->words = curve.name + "\n" + own->words;
        own->pen = curve.pen;
        best = std::move(own);
        bestDistance = distance;
    }
    return best;
}

std::vector<FigurePoint> OrdinatesOf(const AnalysisResults& results, const GirderDiagram& diagram,
                                     const DiagramScale& scale, std::string_view name)
{
    std::vector<FigurePoint> places;
    if (name.empty())
        return places;
    for (const Ordinate& ordinate : OrdinatesOf(diagram, scale))
        if (RowName(results.model, diagram, ordinate) == name
            && std::ranges::find(places, ordinate.tip) == places.end())
            places.push_back(ordinate.tip);
    return places;
}

FramePlaces PlacesOnScreen(const AnalysisResults& results, const CSbdData& data, const CModelProjection& projection,
                           const ModelScale& scale)
{
    FramePlaces places;
    places.nodes.reserve(projection.NodeCount());
    for (std::size_t number = 1; number <= projection.NodeCount(); ++number)
        places.nodes.push_back(ScreenOf(static_cast<std::int32_t>(number), projection, scale));
    for (const LateralLine& line : LateralBracing(results.model, data, projection.NodeCount()))
        places.lines.push_back(
            {ScreenOf(line.from, projection, scale), ScreenOf(line.to, projection, scale), kLateralBlock, line.row});
    for (const CrossLine& line :
         VisibleCrossLines(results.model, CrossBeamRows(results.model, data), projection.NodeCount()))
        places.lines.push_back(
            {ScreenOf(line.node1, projection, scale), ScreenOf(line.node2, projection, scale), kCrossBlock, line.row});
    return places;
}

std::optional<std::int32_t> PickNode(const FramePlaces& places, FigurePoint pointer)
{
    std::optional<std::int32_t> best;
    double bestDistance = kNodeReach;
    for (std::size_t i = 0; i < places.nodes.size(); ++i)
        if (const double distance = Distance(pointer, places.nodes[i]); distance < bestDistance) {
            best = static_cast<std::int32_t>(i) + 1;
            bestDistance = distance;
        }
    return best;
}

std::optional<PickLine> PickRow(const FramePlaces& places, FigurePoint pointer)
{
    std::optional<PickLine> best;
    double bestDistance = kLineReach;
    for (const PickLine& line : places.lines)
        if (const double distance = DistanceToLine(pointer, line.from, line.to); distance <= bestDistance) {
            best = line;
            bestDistance = distance;
        }
    return best;
}

std::string NodeWords(const AnalysisResults& results, std::int32_t node, std::optional<std::size_t> loadCase)
{
    const auto item = static_cast<std::size_t>(node) - 1;
    std::string words = "格点 "_cp932 + NameAt(results.model.nodeNames, node) + " (" + std::to_string(node) + ")";
    if (item < results.nodeTable.coordinates.size()) {
        const std::array<double, 3>& at = results.nodeTable.coordinates[item];
        words += "\nx = " + Fixed(at[0]) + "  y = " + Fixed(at[1]) + "  z = " + Fixed(at[2]) + " m";
    }
    if (!loadCase)
        return words;
    const auto loads = static_cast<std::size_t>(std::max(results.model.loadCaseCount, 0));
    constexpr std::size_t moves = 3;
    constexpr std::size_t deflection = 2; // Uz, positive downward as in the table
    for (std::size_t k = 0; k < moves; ++k)
        if (const auto move = results.displacement.At(item, *loadCase, k, loads, kNodeComponents))
            words += (k == 0 ? "\n" : "  ") + ComponentWord(ResultKind::Displacement, k) + " = "
                     + Fixed(*move * (k == deflection ? -kPerMille : kPerMille));
    return words + " mm";
}

} // namespace sbd
