#include "results/model_overlay.h"

#include "project/text.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace sbd {

namespace {

constexpr int kLateralBlock = 573;
constexpr int kCrossBlock = 523;
constexpr std::int32_t kNoResults = -1;
constexpr std::int32_t kSupportMark = 1;
constexpr double kGirderLabelWidths = 5;
constexpr double kStationLabelWidths = 2;
constexpr double kLeastLabelOffset = 20;

using NameIndex = std::unordered_map<std::string_view, std::size_t>;

/// Columns of block 573, from 0.
enum LateralColumn : std::size_t { kGirder1, kGirder2, kStation1, kStation2, kStartPosition, kEndPosition };
/// Columns of block 523, from 0.
enum CrossColumn : std::size_t { kStationFrom, kStationTo, kGirderFrom, kGirderTo, kType };

/// The pens of the types of block 523: the first word that a type holds counts.
struct TypePen {
    std::string_view word;
    FigurePen pen;
};
constexpr TypePen kTypePens[] = {
    {"対傾構", FigurePen::Sway}, {"横桁", FigurePen::Member}, {"要素無し", FigurePen::Background}};

/// Is `word` in `text`, from the first byte of a character on?
bool Holds(std::string_view text, std::string_view word)
{
    for (std::size_t pos = 0; pos < text.size(); pos += CharacterLength(text, pos))
        if (text.substr(pos).starts_with(word))
            return true;
    return false;
}

std::string_view CellOf(const TableBlock& table, std::size_t row, std::size_t column)
{
    return column < table.columns.size() && row < table.columns[column].size() ? table.columns[column][row]
                                                                               : std::string_view();
}

bool IsSelected(const FigureSelection& selection, int block, std::size_t row)
{
    return selection.block == block && selection.row >= 1 && static_cast<std::size_t>(selection.row) - 1 == row;
}

/// The first of equal names.
NameIndex IndexOf(const std::vector<std::string>& names)
{
    NameIndex index;
    index.reserve(names.size());
    for (std::size_t i = 0; i < names.size(); ++i)
        index.try_emplace(names[i], i);
    return index;
}

std::size_t Stations(const AnalysisModel& model)
{
    return static_cast<std::size_t>(std::max(model.stationCount, 0));
}

/// Number of the node of a girder at a station; 0 if there is none.
std::int32_t GridNode(const AnalysisModel& model, std::size_t girder, std::size_t station, std::size_t nodeCount)
{
    const std::size_t at = girder * Stations(model) + station;
    if (station >= Stations(model) || at >= model.gridNodes.size())
        return 0;
    const std::int32_t node = model.gridNodes[at];
    return node >= 1 && static_cast<std::size_t>(node) <= nodeCount ? node : 0;
}

void AppendCrossLine(std::vector<CrossLine>& lines, const AnalysisModel& model, const CrossBeamRow& row,
                     std::size_t girder, std::size_t station, std::size_t nodeCount)
{
    const std::int32_t node1 = GridNode(model, girder, station, nodeCount);
    const std::int32_t node2 = GridNode(model, girder + 1, station, nodeCount);
    if (node1 != 0 && node2 != 0)
        lines.push_back({row.row, node1, node2, row.pen});
}

/// Gives each place on a line once, however often ranges are taken.
class FreePlaces {
public:
    explicit FreePlaces(std::size_t count) : next_(count + 1) { std::iota(next_.begin(), next_.end(), std::size_t{0}); }

    /// Calls `take` for the places from `first` to one before `end` that were not taken yet.
    template <typename Take>
    void TakeRange(std::size_t first, std::size_t end, Take take)
    {
        for (std::size_t place = FreeFrom(first); place < end; place = FreeFrom(place)) {
            take(place);
            next_[place] = place + 1;
        }
    }

private:
    std::size_t FreeFrom(std::size_t place)
    {
        while (next_[place] != place) {
            next_[place] = next_[next_[place]];
            place = next_[place];
        }
        return place;
    }

    std::vector<std::size_t> next_; ///< the place itself while it is free, else one behind it
};

/// A place and the direction in which it was found.
struct LabelPlace {
    FigurePoint at;
    FigurePoint away;
};

/// `distance` pixels from `end` away from `other`; nothing if both lie at the same place or are no numbers.
std::optional<LabelPlace> Beyond(FigurePoint end, FigurePoint other, double distance)
{
    const double dx = end.x - other.x;
    const double dy = end.y - other.y;
    const double length = std::hypot(dx, dy);
    if (!(length > 0) || !std::isfinite(length))
        return std::nullopt;
    return LabelPlace{{end.x + dx * distance / length, end.y + dy * distance / length}, {dx / length, dy / length}};
}

/// The two nodes of a member by its number; nothing if member or nodes are not there.
std::optional<NodePlace> EndsOf(const ElementTable& table, std::int32_t element, const CModelProjection& projection)
{
    if (element < 1 || static_cast<std::size_t>(element) > table.ends.size())
        return std::nullopt;
    const auto& ends = table.ends[static_cast<std::size_t>(element) - 1];
    if (!projection.HasNode(ends[0]) || !projection.HasNode(ends[1]))
        return std::nullopt;
    return NodePlace{ends[0], ends[1]};
}

std::optional<LabelPlace> GirderLabelPlace(std::span<const std::int32_t> elements, const ElementTable& table,
                                           const CModelProjection& projection, const ModelScale& scale, double distance)
{
    const auto isThere = [&](std::int32_t element) { return EndsOf(table, element, projection).has_value(); };
    const auto first = std::ranges::find_if(elements, isThere);
    if (first == elements.end())
        return std::nullopt;
    const bool atEnd = first != elements.begin() && isThere(elements.back());
    const NodePlace ends = *EndsOf(table, atEnd ? elements.back() : *first, projection);
    const FigurePoint p1 = ScreenOf(ends.node1, projection, scale);
    const FigurePoint p2 = ScreenOf(ends.node2, projection, scale);
    return atEnd ? Beyond(p2, p1, distance) : Beyond(p1, p2, distance);
}

} // namespace

std::vector<LateralLine> LateralBracing(const AnalysisModel& model, const CSbdData& data, std::size_t nodeCount,
                                        FigureSelection selection)
{
    const TableBlock& table = *data.Table(kLateralBlock);
    std::vector<LateralLine> lines;
    if (table.RowCount() == 0)
        return lines;

    NameIndex numbers;
    const std::size_t named = std::min(nodeCount, model.nodeNames.size());
    numbers.reserve(named);
    for (std::size_t i = 0; i < named; ++i)
        numbers[model.nodeNames[i]] = i + 1;

    std::string name;
    const auto nodeOf = [&](std::string_view girder, std::string_view station) {
        name.assign(girder).append("-").append(station);
        const auto found = numbers.find(name);
        return found == numbers.end() ? 0 : static_cast<std::int32_t>(found->second);
    };
    for (std::size_t row = 0; row < table.RowCount(); ++row) {
        const auto cell = [&](std::size_t column) { return CellOf(table, row, column); };
        const std::int32_t a = nodeOf(cell(kGirder1), cell(kStation1));
        const std::int32_t b = nodeOf(cell(kGirder1), cell(kStation2));
        const std::int32_t c = nodeOf(cell(kGirder2), cell(kStation1));
        const std::int32_t d = nodeOf(cell(kGirder2), cell(kStation2));
        if (a == 0 || b == 0 || c == 0 || d == 0)
            continue;
        const std::string_view start = cell(kStartPosition);
        const std::string_view end = cell(kEndPosition);
        lines.push_back({row,
                         start == "B"   ? NodePlace{a, a}
                         : start == "C" ? NodePlace{a, b}
                                        : NodePlace{b, b},
                         end == "B"   ? NodePlace{c, c}
                         : end == "C" ? NodePlace{c, d}
                                      : NodePlace{d, d},
                         IsSelected(selection, kLateralBlock, row) ? FigurePen::Selected : FigurePen::Lateral});
    }
    return lines;
}

std::vector<CrossBeamRow> CrossBeamRows(const AnalysisModel& model, const CSbdData& data, FigureSelection selection)
{
    std::array<std::string, std::size(kTypePens)> words;
    std::ranges::transform(kTypePens, words.begin(), [](const TypePen& type) { return Cp932(type.word); });
    const NameIndex girders = IndexOf(model.girderNames);
    const NameIndex stations = IndexOf(model.stationNames);

    const TableBlock& table = *data.Table(kCrossBlock);
    std::vector<CrossBeamRow> rows;
    FigurePen pen = FigurePen::Lateral;
    for (std::size_t row = 0; row < table.RowCount(); ++row) {
        const auto girder1 = girders.find(CellOf(table, row, kGirderFrom));
        const auto girder2 = girders.find(CellOf(table, row, kGirderTo));
        const auto station1 = stations.find(CellOf(table, row, kStationFrom));
        const auto station2 = stations.find(CellOf(table, row, kStationTo));
        if (girder1 == girders.end() || girder2 == girders.end() || station1 == stations.end()
            || station2 == stations.end())
            continue;
        const std::string_view type = CellOf(table, row, kType);
        const auto known = std::ranges::find_if(words, [&](const std::string& word) { return Holds(type, word); });
        if (IsSelected(selection, kCrossBlock, row))
            pen = FigurePen::Selected;
        else if (known != words.end())
            pen = kTypePens[known - words.begin()].pen;
        const auto [girderFrom, girderTo] = std::minmax(girder1->second, girder2->second);
        const auto [stationFrom, stationTo] = std::minmax(station1->second, station2->second);
        rows.push_back({row, girderFrom, girderTo, stationFrom, stationTo, pen});
    }
    return rows;
}

std::vector<CrossLine> CrossLines(const AnalysisModel& model, const std::vector<CrossBeamRow>& rows,
                                  std::size_t nodeCount)
{
    std::vector<CrossLine> lines;
    for (const CrossBeamRow& row : rows)
        for (std::size_t station = row.stationFrom; station <= row.stationTo; ++station)
            for (std::size_t girder = row.girderFrom; girder < row.girderTo; ++girder)
                AppendCrossLine(lines, model, row, girder, station, nodeCount);
    return lines;
}

std::vector<CrossLine> VisibleCrossLines(const AnalysisModel& model, const std::vector<CrossBeamRow>& rows,
                                         std::size_t nodeCount)
{
    // No larger than the nodes that the grid has, whatever the lists of names hold.
    const std::size_t stations = std::min(model.stationNames.size(), Stations(model));
    const std::size_t girders =
        stations == 0 ? 0 : std::min(model.girderNames.size(), model.gridNodes.size() / stations + 1);
    const bool alongStations = stations >= girders;
    const std::size_t count = alongStations ? girders : stations;
    std::vector<FreePlaces> free(count, FreePlaces(alongStations ? stations : girders));
    std::vector<CrossLine> lines;
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
        const std::size_t girderEnd = std::min(row->girderTo, girders);
        const std::size_t stationEnd = std::min(row->stationTo + 1, stations);
        for (std::size_t i = alongStations ? row->girderFrom : row->stationFrom;
             i < (alongStations ? girderEnd : stationEnd); ++i)
            free[i].TakeRange(alongStations ? row->stationFrom : row->girderFrom,
                              alongStations ? stationEnd : girderEnd, [&](std::size_t place) {
                                  AppendCrossLine(lines, model, *row, alongStations ? i : place,
                                                  alongStations ? place : i, nodeCount);
                              });
    }
    std::ranges::reverse(lines);
    return lines;
}

std::string SelectedRowName(const CSbdData& data, FigureSelection selection)
{
    std::string name = Cp932(std::to_string(selection.block) + " " + std::to_string(selection.row) + "行");
    if (selection.block != kCrossBlock || selection.row < 1)
        return name;
    const std::string_view type = CellOf(*data.Table(kCrossBlock), static_cast<std::size_t>(selection.row) - 1, kType);
    return type.empty() ? name : name + " " + std::string(type);
}

std::vector<std::int32_t> DottedNodes(const NodeTable& table, std::size_t nodeCount)
{
    std::vector<std::int32_t> nodes;
    for (std::size_t i = 0; i < std::min(nodeCount, table.nodeFlags.size()); ++i)
        if (table.nodeFlags[i] != kNoResults)
            nodes.push_back(static_cast<std::int32_t>(i + 1));
    return nodes;
}

std::vector<std::int32_t> SupportedNodes(const NodeTable& table, std::size_t nodeCount)
{
    std::vector<std::int32_t> nodes;
    for (std::size_t i = 0; i < std::min(nodeCount, table.nodeValues.size()); ++i)
        if (table.nodeValues[i][2] == kSupportMark)
            nodes.push_back(static_cast<std::int32_t>(i + 1));
    return nodes;
}

std::vector<FigureLabel> GirderLabels(const AnalysisResults& results, const CModelProjection& projection,
                                      const ModelScale& scale, double characterWidth)
{
    const AnalysisModel& model = results.model;
    const double distance = std::max(std::abs(characterWidth) * kGirderLabelWidths, kLeastLabelOffset);
    const std::size_t bays = Stations(model) > 1 ? Stations(model) - 1 : 0;
    std::vector<FigureLabel> labels;
    for (std::size_t girder = 0; girder < model.girderNames.size(); ++girder) {
        const std::size_t first = girder * bays;
        if (first >= model.girderElements.size())
            break;
        const std::span row(model.girderElements.begin() + static_cast<std::ptrdiff_t>(first),
                            std::min(bays, model.girderElements.size() - first));
        if (const auto at = GirderLabelPlace(row, results.elementTable, projection, scale, distance))
            labels.push_back({model.girderNames[girder], at->at, at->away});
    }
    return labels;
}

std::vector<FigureLabel> StationLabels(const AnalysisModel& model, const CModelProjection& projection,
                                       const ModelScale& scale, double characterWidth)
{
    const double distance = std::max(std::abs(characterWidth) * kStationLabelWidths, kLeastLabelOffset);
    std::vector<FigureLabel> labels;
    const std::size_t girders = static_cast<std::size_t>(std::max(model.girderCount, 0));
    if (girders < 2)
        return labels;
    for (std::size_t station = 0; station < model.stationNames.size(); ++station) {
        const std::int32_t last = GridNode(model, girders - 1, station, projection.NodeCount());
        const std::int32_t before = GridNode(model, girders - 2, station, projection.NodeCount());
        if (last == 0 || before == 0)
            continue;
        if (const auto at = Beyond(ScreenOf(last, projection, scale), ScreenOf(before, projection, scale), distance))
            labels.push_back({model.stationNames[station], at->at, at->away});
    }
    return labels;
}

FigurePoint ScreenOf(std::int32_t node, const CModelProjection& projection, const ModelScale& scale)
{
    const Point3& point = projection.Node(node);
    return scale.ToScreen(point[0], point[1]);
}

FigurePoint ScreenOf(NodePlace place, const CModelProjection& projection, const ModelScale& scale)
{
    const Point3& point1 = projection.Node(place.node1);
    const Point3& point2 = projection.Node(place.node2);
    return scale.ToScreen((point1[0] + point2[0]) * 0.5, (point1[1] + point2[1]) * 0.5);
}

} // namespace sbd
