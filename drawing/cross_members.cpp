#include "drawing/cross_members.h"

#include "project/text.h"

#include <algorithm>
#include <array>

namespace sbd {

namespace {

constexpr int kTypes = 523;
enum Column : std::size_t { kStation = 0, kGirder = 2, kType = 4 };

/// The kind by the first word that a type holds; nothing for other texts.
std::optional<CrossMemberKind> KindOf(std::string_view type)
{
    static const std::string sway = Cp932("対傾構");
    static const std::string beam = Cp932("横桁");
    static const std::string none = Cp932("要素無し");
    if (Holds(type, sway))
        return CrossMemberKind::Sway;
    if (Holds(type, beam))
        return CrossMemberKind::Beam;
    if (Holds(type, none))
        return CrossMemberKind::None;
    return std::nullopt;
}

} // namespace

std::optional<std::size_t> LastMemberRow(CDrawingBuild& build, const CTableRows& rows, const CBridgeGrid& grid,
                                         std::size_t gap, std::size_t station, int end,
                                         std::span<const std::string> parts)
{
    static const std::array<std::string, 2> ends{Cp932("要素左側"), Cp932("要素右側")};
    static const std::string both = Cp932("要素両側");
    constexpr std::size_t endColumn = 4;
    std::optional<std::size_t> winner;
    for (std::size_t row = rows.First(); row < rows.Count(); ++row) {
        if (rows.IsEmpty(row))
            continue;
        if (end >= 0 && rows.Cell(row, endColumn) != both
            && rows.Cell(row, endColumn) != ends[static_cast<std::size_t>(end)])
            continue;
        if (!parts.empty() && std::ranges::find(parts, rows.Cell(row, endColumn + 1)) == parts.end())
            continue;
        const auto stations =
            RangeOfNames(build, grid.stations, rows.Cell(row, 0), rows.Cell(row, 1), rows.Place(row, 0), "横桁");
        const auto girders =
            RangeOfNames(build, grid.girders, rows.Cell(row, 2), rows.Cell(row, 3), rows.Place(row, 2), "主桁");
        if (stations && girders && stations->Has(station) && girders->from <= gap && gap + 1 <= girders->to)
            winner = row;
    }
    return winner;
}

CCrossMembers::CCrossMembers(CDrawingBuild& build, const CSbdData& data, const CBridgeGrid& grid)
    : rows_(data, kTypes, 1)
    , gaps_(grid.girders.Count() > 1 ? grid.girders.Count() - 1 : 0, CLastRowWins(grid.stations.Count()))
{
    for (std::size_t row = rows_.First(); row < rows_.Count(); ++row) {
        if (rows_.IsEmpty(row))
            continue;
        const auto stations = RangeOfNames(build, grid.stations, rows_.Cell(row, kStation),
                                           rows_.Cell(row, kStation + 1), rows_.Place(row, kStation), "横桁");
        const auto girders = RangeOfNames(build, grid.girders, rows_.Cell(row, kGirder), rows_.Cell(row, kGirder + 1),
                                          rows_.Place(row, kGirder), "主桁");
        if (!stations || !girders)
            continue;
        if (girders->from == girders->to) {
            build.Omit(rows_.Place(row, kGirder), "主桁始と主桁終が同じ桁のため，部材を図にできません．", {},
                       OmissionKind::Limit);
            continue;
        }
        if (!KindOf(rows_.Cell(row, kType))) {
            build.Omit(rows_.Place(row, kType), "がどの種別か分からないため，部材を図にできません．",
                       rows_.Cell(row, kType));
            continue;
        }
        named_.push_back({rows_.Place(row, 0), *girders, *stations, false});
    }
    for (auto row = named_.rbegin(); row != named_.rend(); ++row) {
        std::size_t taken = 0;
        for (std::size_t gap = row->girders.from; gap < row->girders.to; ++gap)
            taken +=
                gaps_[gap].Take(static_cast<std::size_t>(row->place.row) - 1, row->stations.from, row->stations.to + 1);
        row->covered = taken == 0;
    }
}

CrossMember CCrossMembers::At(std::size_t gap, std::size_t station) const
{
    if (gap >= gaps_.size() || gaps_[gap].At(station) == CLastRowWins::kNone)
        return {};
    const std::size_t row = gaps_[gap].At(station);
    const std::string_view type = rows_.Cell(row, kType);
    return {KindOf(type).value_or(CrossMemberKind::None), std::string(type), rows_.Place(row, kType)};
}

} // namespace sbd
