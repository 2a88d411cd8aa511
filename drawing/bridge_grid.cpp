#include "drawing/bridge_grid.h"

#include "drawing/table_rows.h"
#include "project/text.h"

#include <algorithm>
#include <cmath>

namespace sbd {

namespace {

constexpr int kCoordinates = 504;
constexpr int kWebNames = 305;
constexpr double kFarthest = 1e5; // m

std::string KeyOf(std::string_view name, std::string_view station)
{
    return std::string(name).append("-").append(station);
}

bool IsPlace(const GridPoint& point)
{
    return std::ranges::all_of(point, [](double value) { return std::abs(value) < kFarthest; });
}

} // namespace

CNameIndex::CNameIndex(const std::vector<std::string>& names, std::size_t most)
{
    for (std::size_t i = 0; i < std::min(names.size(), most); ++i) {
        index_.try_emplace(names[i], names_.size());
        names_.emplace_back(names[i]);
    }
}

std::optional<std::size_t> CNameIndex::Find(std::string_view name) const
{
    const auto found = index_.find(name);
    return found == index_.end() || name.empty() ? std::nullopt : std::optional(found->second);
}

CBridgeGrid::CBridgeGrid(const CSbdData& data, const AnalysisResults& results)
    : girders(data.gridNames.girderNames, kMostGirders)
    , stations(data.gridNames.swayNames, kMostStations)
    , lines(data.gridNames.lineNames, kMostStations)
{
    ReadAnalysis(results);
    ReadInput(data);
    if (KnowsAGirder(analysis_))
        source_ = GridSource::Analysis;
    else if (KnowsAGirder(input_))
        source_ = GridSource::Input;
}

void CBridgeGrid::ReadAnalysis(const AnalysisResults& results)
{
    const AnalysisModel& model = results.model;
    const auto& nodes = results.nodeTable.coordinates;
    const auto keep = [&](std::string key, std::int32_t node) {
        if (node >= 1 && static_cast<std::size_t>(node) <= nodes.size() && IsPlace(nodes[node - 1]))
            analysis_.try_emplace(std::move(key), nodes[node - 1]);
    };
    const std::size_t perGirder = static_cast<std::size_t>(std::max(model.stationCount, 0));
    for (std::size_t girder = 0; girder < model.girderNames.size(); ++girder)
        for (std::size_t station = 0; station < std::min(perGirder, model.stationNames.size()); ++station) {
            const std::size_t at = girder * perGirder + station;
            if (at >= model.gridNodes.size())
                break;
            keep(KeyOf(model.girderNames[girder], model.stationNames[station]), model.gridNodes[at]);
        }
    for (std::size_t i = 0; i < std::min(model.nodeNames.size(), nodes.size()); ++i)
        keep(model.nodeNames[i], static_cast<std::int32_t>(i + 1));
}

void CBridgeGrid::ReadInput(const CSbdData& data)
{
    const CTableRows rows(data, kCoordinates, 1);
    for (std::size_t row = rows.First(); row < rows.Count(); ++row) {
        GridPoint point{};
        bool whole = !rows.Cell(row, 0).empty();
        for (std::size_t axis = 0; axis < point.size(); ++axis) {
            const std::optional<double> value = NumberIn(rows.Cell(row, 2 + axis));
            whole = whole && value;
            point[axis] = value.value_or(0);
        }
        if (whole && IsPlace(point))
            input_[KeyOf(rows.Cell(row, 0), rows.Cell(row, 1))] = point;
    }
}

bool CBridgeGrid::KnowsAGirder(const Places& places) const
{
    if (places.empty())
        return false;
    for (std::size_t girder = 0; girder < girders.Count(); ++girder)
        for (std::size_t station = 0; station < stations.Count(); ++station)
            if (places.contains(KeyOf(girders.Name(girder), stations.Name(station))))
                return true;
    return false;
}

std::optional<GridPoint> CBridgeGrid::Place(std::string_view name, std::size_t station) const
{
    if (station >= stations.Count() || source_ == GridSource::Provisional)
        return std::nullopt;
    const std::string key = KeyOf(name, stations.Name(station));
    if (source_ == GridSource::Analysis)
        if (const auto found = analysis_.find(key); found != analysis_.end())
            return found->second;
    // A line that the frame has not may stand in the input; a girder has its places from one source.
    if (source_ == GridSource::Analysis && girders.Find(name))
        return std::nullopt;
    const auto found = input_.find(key);
    return found == input_.end() ? std::nullopt : std::optional(found->second);
}

std::optional<GridPoint> CBridgeGrid::GirderPlace(std::size_t girder, std::size_t station) const
{
    if (girder >= girders.Count() || station >= stations.Count())
        return std::nullopt;
    if (source_ == GridSource::Provisional)
        return GridPoint{static_cast<double>(station) * kProvisionalBay,
                         -static_cast<double>(girder) * kProvisionalSpacing, 0};
    return Place(girders.Name(girder), station);
}

GirderWebs WebsOf(const CSbdData& data, std::string_view girder)
{
    static const std::string virtualGirder = Cp932("仮想主桁");
    static const std::string none = Cp932("無");
    const CTableRows rows(data, kWebNames, 0);
    GirderWebs webs;
    for (std::size_t row = rows.First(); row < rows.Count(); ++row) {
        if (rows.Cell(row, 0) != girder)
            continue;
        const std::string_view left = rows.Cell(row, 1);
        const std::string_view right = rows.Cell(row, 2);
        const bool named = !left.empty() && !right.empty() && !Holds(left, virtualGirder)
                           && !Holds(right, virtualGirder) && left != none && right != none;
        webs = named ? GirderWebs{left, right} : GirderWebs{};
    }
    return webs;
}

} // namespace sbd
