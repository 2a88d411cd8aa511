#include "drawing/girder_line.h"

#include "project/text.h"

#include <algorithm>
#include <cmath>

namespace sbd {

namespace {

constexpr int kEnds = 404;
constexpr double kMillimetres = 1000; // of a metre
constexpr double kLeastBay = 1;       // mm

} // namespace

CGirderLine::CGirderLine(CDrawingBuild& build, const CSbdData& data, const CBridgeGrid& grid, std::size_t girder,
                         GirderSide side)
    : grid_(grid)
    , girder_(girder)
    , webs_(WebsOf(data, girder < grid.girders.Count() ? grid.girders.Name(girder) : std::string_view()))
    , side_(side)
{
    std::optional<GridPoint> before;
    std::string_view missing;
    for (std::size_t station = 0; station < grid.stations.Count(); ++station) {
        const std::optional<GridPoint> place = grid.GirderPlace(girder, station);
        if (!place) {
            missing = grid.stations.Name(station);
            continue;
        }
        double x = 0;
        if (before) {
            const double bay = std::hypot((*place)[0] - (*before)[0], (*place)[1] - (*before)[1]) * kMillimetres;
            if (!missing.empty())
                build.Omit({}, "の座標がないため，この横断線を図にできません．", missing);
            if (bay < kLeastBay) {
                build.Omit({}, "は前の横断線と同じ位置にあるため，図にできません．", grid.stations.Name(station));
                continue;
            }
            x = x_.back() + bay;
        }
        missing = {};
        before = place;
        stations_.push_back(station);
        x_.push_back(x);
    }
    end_ = x_.empty() ? 0 : x_.back();
    ReadEnds(build, data);
}

void CGirderLine::ReadEnds(CDrawingBuild& build, const CSbdData& data)
{
    const CTableRows rows(data, kEnds, 0);
    std::optional<std::size_t> winner;
    for (std::size_t row = rows.First(); row < rows.Count(); ++row) {
        // Lines may stand here too; their ends are none of the girder's.
        const auto first = grid_.girders.Find(rows.Cell(row, 0));
        const auto last = grid_.girders.Find(rows.Cell(row, 1));
        if (first && last && std::min(*first, *last) <= girder_ && girder_ <= std::max(*first, *last))
            winner = row;
    }
    if (!winner || x_.empty())
        return;
    const auto length = [&](std::size_t column) {
        const std::string_view cell = rows.Cell(*winner, column);
        const std::optional<double> value = NumberIn(cell);
        if ((!value && !cell.empty()) || value.value_or(0) < 0) {
            build.Omit(rows.Place(*winner, column), "桁端寸法が正の数ではないため，桁端を図にできません．");
            return 0.0;
        }
        return value.value_or(0);
    };
    constexpr std::size_t atBegin = 2;
    constexpr std::size_t atEnd = 3;
    begin_ = -length(atBegin);
    end_ += length(atEnd);
}

std::optional<std::size_t> CGirderLine::Find(std::string_view station) const
{
    const std::optional<std::size_t> index = grid_.stations.Find(station);
    if (!index)
        return std::nullopt;
    const auto found = std::ranges::lower_bound(stations_, *index);
    return found == stations_.end() || *found != *index
               ? std::nullopt
               : std::optional(static_cast<std::size_t>(found - stations_.begin()));
}

CGirderLine::Part CGirderLine::StationsIn(IndexRange range) const
{
    const auto first = std::ranges::lower_bound(stations_, range.from) - stations_.begin();
    const auto end = std::ranges::upper_bound(stations_, range.to) - stations_.begin();
    return {static_cast<std::size_t>(first), static_cast<std::size_t>(end)};
}

CGirderLine::Part CGirderLine::BaysIn(IndexRange range) const
{
    Part part = StationsIn(range);
    if (!part.IsEmpty())
        --part.end;
    return part;
}

bool CGirderLine::IsNamed(CDrawingBuild& build, const CTableRows& rows, std::size_t row, std::size_t column) const
{
    const std::optional<IndexRange> range = RangeOfNames(build, grid_.girders, rows.Cell(row, column),
                                                         rows.Cell(row, column + 1), rows.Place(row, column), "主桁");
    return range && range->Has(girder_);
}

std::optional<IndexRange> CGirderLine::NamedStations(CDrawingBuild& build, const CTableRows& rows, std::size_t row,
                                                     std::size_t column) const
{
    return RangeOfNames(build, grid_.stations, rows.Cell(row, column), rows.Cell(row, column + 1),
                        rows.Place(row, column), "横桁");
}

int CGirderLine::SidesOf(CDrawingBuild& build, std::string_view word, SourceCell place) const
{
    struct SideWord {
        std::string word;
        bool box;
        int sides;
    };
    static const SideWord words[] = {{Cp932("I桁"), false, 3},     {Cp932("I桁左側"), false, 1},
                                     {Cp932("I桁右側"), false, 2}, {Cp932("I桁両側"), false, 3},
                                     {Cp932("両腹板"), true, 3},   {Cp932("左腹板"), true, 1},
                                     {Cp932("右腹板"), true, 2}};
    for (const SideWord& known : words)
        if (word == known.word) {
            if (known.box == IsBox())
                return known.sides;
            build.Omit(place,
                       IsBox() ? "は箱桁の腹板の語ではないため，図にできません．"
                               : "は鈑桁の語ではないため，図にできません．「305」を確認してください．",
                       word);
            return 0;
        }
    build.Omit(place, "がどの側か分からないため，図にできません．", word);
    return 0;
}

} // namespace sbd
