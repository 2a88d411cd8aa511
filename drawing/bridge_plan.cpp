#include "drawing/bridge_plan.h"

#include "drawing/bolted_splice.h"
#include "drawing/cross_members.h"
#include "drawing/girder_elevation.h"
#include "drawing/girder_joints.h"
#include "project/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace sbd {

namespace {

constexpr double kMillimetres = 1000;
constexpr double kTick = 300; // mm, half of a mark across a girder

class PlanDrawer {
public:
    PlanDrawer(const CSbdData& data, const AnalysisResults& results) : data_(data), grid_(data, results) {}

    BridgeDrawing Make();

private:
    void Turn();
    void Girders();
    void Lines();
    void Members();
    void BeamFlange(const CTableRows& sizes, std::size_t row, const DrawnPoint& from, const DrawnPoint& to);
    void Laterals();
    void Gussets();
    void GussetsOf(const CGirderLine& line, const CTableRows& rows);
    void Gusset(const CGirderLine& line, std::size_t station, const SpliceRow& row, double side);
    void GirderParts();
    void Skews(const CGirderLine& line, const std::vector<GirderSupport>& supports);
    /// The girder's direction at one of its stations, in radians: that of the arc through the bays beside it.
    [[nodiscard]] double TangentAt(const CGirderLine& line, std::size_t station) const;
    void Chain(const CGirderLine& line);

    [[nodiscard]] DrawnPoint Turned(const GridPoint& place) const;
    [[nodiscard]] std::optional<DrawnPoint> GirderAt(std::size_t girder, std::size_t station) const;
    [[nodiscard]] std::optional<DrawnPoint> NamedAt(std::string_view name, std::size_t station) const;
    /// A place along a girder, and the direction there.
    [[nodiscard]] std::optional<std::array<DrawnPoint, 2>> AlongGirder(const CGirderLine& line, double x) const;
    /// The place of one end of a row of 573; nothing, and omitted, if it is not known.
    [[nodiscard]] std::optional<DrawnPoint> LateralEnd(const CTableRows& rows, std::size_t row,
                                                       std::size_t girderColumn, std::size_t placeColumn);

    const CSbdData& data_;
    CDrawingBuild build_;
    CBridgeGrid grid_;
    struct LateralAt {
        DrawnPoint end;
        DrawnPoint other;
    };
    std::vector<LateralAt> laterals_; ///< each from both of its ends
    GridPoint origin_{};
    double cos_ = 1;
    double sin_ = 0;
};

DrawnPoint PlanDrawer::Turned(const GridPoint& place) const
{
    const double x = (place[0] - origin_[0]) * kMillimetres;
    const double y = (place[1] - origin_[1]) * kMillimetres;
    return {x * cos_ + y * sin_, y * cos_ - x * sin_};
}

std::optional<DrawnPoint> PlanDrawer::GirderAt(std::size_t girder, std::size_t station) const
{
    const std::optional<GridPoint> place = grid_.GirderPlace(girder, station);
    return place ? std::optional(Turned(*place)) : std::nullopt;
}

std::optional<DrawnPoint> PlanDrawer::NamedAt(std::string_view name, std::size_t station) const
{
    if (const auto girder = grid_.girders.Find(name))
        return GirderAt(*girder, station);
    const std::optional<GridPoint> place = grid_.Place(name, station);
    return place ? std::optional(Turned(*place)) : std::nullopt;
}

/// The longest girder's ends give the direction of the sheet.
void PlanDrawer::Turn()
{
    for (std::size_t girder = 0; girder < grid_.girders.Count(); ++girder) {
        std::optional<GridPoint> first;
        std::optional<GridPoint> last;
        for (std::size_t station = 0; station < grid_.stations.Count(); ++station)
            if (const auto place = grid_.GirderPlace(girder, station)) {
                if (!first)
                    first = place;
                last = place;
            }
        if (!first || !last)
            continue;
        const double dx = (*last)[0] - (*first)[0];
        const double dy = (*last)[1] - (*first)[1];
        const double length = std::hypot(dx, dy);
        if (!(length > 0))
            continue;
        origin_ = *first;
        cos_ = dx / length;
        sin_ = dy / length;
        return;
    }
}

void PlanDrawer::Girders()
{
    for (std::size_t girder = 0; girder < grid_.girders.Count(); ++girder) {
        std::vector<DrawnPoint> points;
        for (std::size_t station = 0; station < grid_.stations.Count(); ++station)
            if (const auto point = GirderAt(girder, station))
                points.push_back(*point);
        if (points.size() < 2) {
            build_.Omit({}, "の座標がないため，この桁を図にできません．", grid_.girders.Name(girder));
            continue;
        }
        const double before = 1500; // mm ahead of the girder
        build_.Label({points.front().x - before, points.front().y}, std::string(grid_.girders.Name(girder)),
                     LabelRow::AtPoint, {});
        build_.Shape(DrawingLayer::Girder, ShapeKind::Line, std::move(points), {});
    }
}

void PlanDrawer::Lines()
{
    for (std::size_t line = 0; line < grid_.lines.Count(); ++line) {
        std::vector<DrawnPoint> points;
        for (std::size_t station = 0; station < grid_.stations.Count(); ++station)
            if (const auto place = grid_.Place(grid_.lines.Name(line), station))
                points.push_back(Turned(*place));
        if (points.size() >= 2)
            build_.Shape(DrawingLayer::Line, ShapeKind::Line, std::move(points), {});
        else
            build_.Omit({}, "の座標が解析にも「504」にもないため，この線を図にできません．", grid_.lines.Name(line));
    }
}

/// The flanges of a cross beam in true width, so that a width that is out of line is seen.
void PlanDrawer::BeamFlange(const CTableRows& sizes, std::size_t row, const DrawnPoint& from, const DrawnPoint& to)
{
    constexpr std::array<std::size_t, 2> widthColumns{4, 6}; // upper, lower
    constexpr double most = 10'000;                          // mm
    double width = 0;
    std::size_t column = widthColumns[0];
    for (const std::size_t each : widthColumns)
        if (const double value = NumberIn(sizes.Cell(row, each)).value_or(0); value > width && value < most) {
            width = value;
            column = each;
        }
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    if (!(width > 0) || !(length > 0))
        return;
    const double x = (to.y - from.y) / length * width / 2;
    const double y = -(to.x - from.x) / length * width / 2;
    build_.Shape(DrawingLayer::Flange, ShapeKind::Polygon,
                 {{from.x - x, from.y - y}, {from.x + x, from.y + y}, {to.x + x, to.y + y}, {to.x - x, to.y - y}},
                 sizes.Place(row, column));
}

void PlanDrawer::Members()
{
    const CCrossMembers members(build_, data_, grid_);
    constexpr int sizeBlock = 533;
    CDrawingBuild apart; // what its rows cannot name is told in the cross section
    const CTableRows sizes(data_, sizeBlock, 1);
    std::vector<CLastRowWins> sizeRows(grid_.girders.Count(), CLastRowWins(grid_.stations.Count()));
    for (std::size_t row = sizes.Count(); row-- > sizes.First();) {
        if (sizes.IsEmpty(row))
            continue;
        const auto stations =
            RangeOfNames(apart, grid_.stations, sizes.Cell(row, 0), sizes.Cell(row, 1), sizes.Place(row, 0), "横桁");
        const auto girders =
            RangeOfNames(apart, grid_.girders, sizes.Cell(row, 2), sizes.Cell(row, 3), sizes.Place(row, 2), "主桁");
        for (std::size_t gap = girders ? girders->from : 0; stations && girders && gap < girders->to; ++gap)
            sizeRows[gap].Take(row, stations->from, stations->to + 1);
    }
    for (const CCrossMembers::Row& row : members.Rows()) {
        std::vector<DrawnPoint> area;
        const std::array<std::array<std::size_t, 2>, 4> corners{{{row.girders.from, row.stations.from},
                                                                 {row.girders.from, row.stations.to},
                                                                 {row.girders.to, row.stations.to},
                                                                 {row.girders.to, row.stations.from}}};
        for (const auto& corner : corners)
            if (const auto point = GirderAt(corner[0], corner[1]))
                area.push_back(*point);
        build_.Use(row.place, std::move(area), row.covered);
    }
    for (std::size_t station = 0; station < grid_.stations.Count(); ++station) {
        std::optional<DrawnPoint> top;
        for (std::size_t girder = 0; girder < grid_.girders.Count(); ++girder) {
            const auto from = GirderAt(girder, station);
            if (!from)
                continue;
            if (!top || from->y > top->y)
                top = from;
            if (girder + 1 >= grid_.girders.Count())
                continue;
            const auto to = GirderAt(girder + 1, station);
            if (!to)
                continue;
            const CrossMember member = members.At(girder, station);
            const DrawingLayer layer = member.kind == CrossMemberKind::Beam   ? DrawingLayer::CrossBeam
                                       : member.kind == CrossMemberKind::Sway ? DrawingLayer::SwayBracing
                                                                              : DrawingLayer::CrossLine;
            if (const std::size_t row = sizeRows[girder].At(station);
                member.kind == CrossMemberKind::Beam && row != CLastRowWins::kNone)
                BeamFlange(sizes, row, *from, *to);
            build_.Shape(layer, ShapeKind::Line, {*from, *to}, member.source);
        }
        if (top)
            build_.Label(*top, std::string(grid_.stations.Name(station)), LabelRow::Above, {});
    }
}

std::optional<DrawnPoint> PlanDrawer::LateralEnd(const CTableRows& rows, std::size_t row, std::size_t girderColumn,
                                                 std::size_t placeColumn)
{
    constexpr std::size_t stationColumn = 2;
    const std::string_view girder = rows.Cell(row, girderColumn);
    std::array<std::optional<DrawnPoint>, 2> ends;
    for (std::size_t i = 0; i < ends.size(); ++i) {
        const std::string_view name = rows.Cell(row, stationColumn + i);
        const auto station = grid_.stations.Find(name);
        if (station)
            ends[i] = NamedAt(girder, *station);
        if (!ends[i]) {
            build_.Omit(rows.Place(row, station ? girderColumn : stationColumn + i),
                        station ? "の格点がないため，下横構を図にできません．"
                                : "という横桁がないため，下横構を図にできません．",
                        station ? girder : name);
            return std::nullopt;
        }
    }
    const std::string_view place = rows.Cell(row, placeColumn);
    if (place == "B")
        return ends[0];
    if (place == "E")
        return ends[1];
    if (place == "C")
        return DrawnPoint{(ends[0]->x + ends[1]->x) / 2, (ends[0]->y + ends[1]->y) / 2};
    build_.Omit(rows.Place(row, placeColumn), "始位置，終位置が B，C，E のどれでもないため，下横構を図にできません．");
    return std::nullopt;
}

void PlanDrawer::Laterals()
{
    constexpr int block = 573;
    constexpr int middles = 574;
    constexpr std::size_t startColumn = 4;
    constexpr std::size_t endColumn = 5;
    const CTableRows rows(data_, block, 1);
    bool usesMiddle = false;
    for (std::size_t row = rows.First(); row < rows.Count(); ++row) {
        if (rows.IsEmpty(row))
            continue;
        const auto from = LateralEnd(rows, row, 0, startColumn);
        const auto to = from ? LateralEnd(rows, row, 1, endColumn) : std::nullopt;
        if (!to)
            continue;
        if (*from == *to) {
            build_.Omit(rows.Place(row, 0), "始めと終わりが同じ位置のため，下横構を図にできません．");
            continue;
        }
        usesMiddle = usesMiddle || rows.Cell(row, startColumn) == "C" || rows.Cell(row, endColumn) == "C";
        build_.Shape(DrawingLayer::LateralBracing, ShapeKind::Line, {*from, *to}, rows.Place(row, 0));
        laterals_.push_back({*from, *to});
        laterals_.push_back({*to, *from});
        build_.Use(rows.Place(row, 0), {*from, *to}, false);
    }
    const CTableRows moved(data_, middles, 1);
    for (std::size_t row = moved.First(); usesMiddle && row < moved.Count(); ++row)
        if (const std::string_view cell = moved.Cell(row, 4); !cell.empty() && cell != "C")
            build_.Omit(moved.Place(row, 4), "中間位置の変更は図に表していません(格間の中央としています)．", {},
                        OmissionKind::Limit);
}

std::optional<std::array<DrawnPoint, 2>> PlanDrawer::AlongGirder(const CGirderLine& line, double x) const
{
    if (line.BayCount() == 0)
        return std::nullopt;
    std::size_t bay = 0;
    while (bay + 1 < line.BayCount() && x > line.X(bay + 1))
        ++bay;
    const auto from = GirderAt(line.Girder(), line.GridStation(bay));
    const auto to = GirderAt(line.Girder(), line.GridStation(bay + 1));
    if (!from || !to)
        return std::nullopt;
    const double length = line.X(bay + 1) - line.X(bay);
    const DrawnPoint direction{(to->x - from->x) / length, (to->y - from->y) / length};
    const double on = x - line.X(bay);
    return std::array{DrawnPoint{from->x + direction.x * on, from->y + direction.y * on}, direction};
}

/// The edges of a gusset along the girder's web and across it: the others follow from the members. `side`: 1 left, -1
/// right.
void PlanDrawer::Gusset(const CGirderLine& line, std::size_t station, const SpliceRow& row, double side)
{
    constexpr std::array<std::size_t, 2> lengthColumns{7, 8}; // towards the begin, towards the end
    constexpr std::array<std::size_t, 2> riseColumns{11, 12};
    constexpr double most = 5'000; // mm
    static const std::string square = Cp932("直角");
    std::array<double, 2> lengths{};
    for (std::size_t end = 0; end < lengths.size(); ++end) {
        const auto length = NumberIn(row.Cell(lengthColumns[end]));
        if (!length || !(*length > 0) || *length > most) {
            const bool isSquare = row.Cell(lengthColumns[end]) == square;
            build_.Omit(row.Place(lengthColumns[end]),
                        isSquare ? "縁が部材に直角のガセットは，幅が入力にないため図に表していません．"
                                 : "ガセットの幅が正の数ではないか，大きすぎるため，図にできません．単位はmmです．",
                        {}, isSquare ? OmissionKind::Limit : OmissionKind::Input);
            return;
        }
        lengths[end] = *length;
    }
    const auto begin = AlongGirder(line, line.X(station) - lengths[0]);
    const auto middle = AlongGirder(line, line.X(station));
    const auto end = AlongGirder(line, line.X(station) + lengths[1]);
    if (!begin || !middle || !end)
        return;
    const auto risen = [&](const std::array<DrawnPoint, 2>& from, std::size_t column) {
        const double rise = std::min(row.Size(column).value_or(0), most) * side;
        return DrawnPoint{from[0].x - from[1].y * rise, from[0].y + from[1].x * rise};
    };
    build_.Shape(DrawingLayer::Gusset, ShapeKind::Line,
                 {risen(*begin, riseColumns[0]), (*begin)[0], (*middle)[0], (*end)[0], risen(*end, riseColumns[1])},
                 row.Place(lengthColumns[0]));
}

void PlanDrawer::GussetsOf(const CGirderLine& line, const CTableRows& rows)
{
    constexpr std::size_t placeColumn = 4;
    constexpr std::size_t sideColumn = 5;
    static const std::string nodes = Cp932("格点");
    static const std::string between = Cp932("中間");
    static const std::string both = Cp932("両");
    std::vector<CLastRowWins> winners(2, CLastRowWins(line.StationCount()));
    for (std::size_t row = rows.Count(); row-- > rows.First();) {
        if (rows.IsEmpty(row) || !line.IsNamed(build_, rows, row, 0))
            continue;
        const std::string_view place = rows.Cell(row, placeColumn);
        if (place != nodes && place != both) {
            build_.Omit(rows.Place(row, placeColumn),
                        place == between ? "横桁の間のガセットは図に表していません．"
                                         : "が格点，中間，両のどれでもないため，ガセットを図にできません．",
                        place == between ? std::string_view() : place,
                        place == between ? OmissionKind::Limit : OmissionKind::Input);
            continue;
        }
        const auto stations = line.NamedStations(build_, rows, row, 2);
        const int sides = line.SidesOf(build_, rows.Cell(row, sideColumn), rows.Place(row, sideColumn));
        if (!stations || sides == 0)
            continue;
        const CGirderLine::Part part = line.StationsIn(*stations);
        for (std::size_t side = 0; side < winners.size(); ++side)
            if ((sides & (1 << side)) != 0)
                winners[side].Take(row, part.first, part.end);
    }
    constexpr double near = 1; // mm
    for (std::size_t station = 0; station < line.StationCount(); ++station) {
        const auto along = AlongGirder(line, line.X(station));
        if (!along)
            continue;
        const auto& [at, direction] = *along;
        for (std::size_t side = 0; side < winners.size(); ++side) {
            const double sign = side == 0 ? 1 : -1;
            const std::size_t row = winners[side].At(station);
            // A gusset is where a member is: a row may name more places.
            bool hasMember = false;
            const auto xOf = [](const LateralAt& lateral) { return lateral.end.x; };
            for (auto lateral = std::ranges::lower_bound(laterals_, at.x - near, {}, xOf);
                 row != CLastRowWins::kNone && !hasMember && lateral != laterals_.end() && lateral->end.x < at.x + near;
                 ++lateral) {
                const double across = direction.x * (lateral->other.y - at.y) - direction.y * (lateral->other.x - at.x);
                hasMember = std::abs(lateral->end.y - at.y) < near && sign * across > 0;
            }
            if (hasMember)
                Gusset(line, station, SpliceRow{&rows, row}, sign);
        }
    }
}

void PlanDrawer::Gussets()
{
    constexpr int block = 578;
    constexpr std::size_t mostLaterals = 4'000; // each is looked for at each node
    const CTableRows rows(data_, block, 1);
    if (rows.First() >= rows.Count() || laterals_.size() > mostLaterals)
        return;
    std::ranges::sort(laterals_, {}, [](const LateralAt& lateral) { return lateral.end.x; });
    for (std::size_t girder = 0; girder < grid_.girders.Count(); ++girder) {
        CDrawingBuild apart; // what a girder cannot draw is told in its elevation
        const CGirderLine line(apart, data_, grid_, girder, GirderSide::Left);
        if (line.StationCount() >= 2)
            GussetsOf(line, rows);
    }
    build_.Note("下横構のガセットは，主桁に沿う縁と立上だけを描いています．");
}

double PlanDrawer::TangentAt(const CGirderLine& line, std::size_t station) const
{
    const auto directionOf = [&](std::size_t bay) {
        const auto along = AlongGirder(line, (line.X(bay) + line.X(bay + 1)) / 2);
        return along ? std::atan2((*along)[1].y, (*along)[1].x) : 0;
    };
    const std::size_t last = line.BayCount() - 1;
    if (last == 0)
        return directionOf(0);
    const std::size_t right = std::clamp<std::size_t>(station, 1, last); // the bays beside: right - 1 and right
    const double before = line.X(right) - line.X(right - 1);
    const double after = line.X(right + 1) - line.X(right);
    const double turn = std::remainder(directionOf(right) - directionOf(right - 1), 2 * std::numbers::pi);
    // A chord has the direction of its arc's middle.
    const double between = before / (before + after);
    const double share = station == 0 ? -between : station > last ? 2 - between : between;
    return directionOf(right - 1) + turn * share;
}

void PlanDrawer::Skews(const CGirderLine& line, const std::vector<GirderSupport>& supports)
{
    for (const GirderSupport& support : supports) {
        const std::size_t station = line.GridStation(support.station);
        const auto here = GirderAt(line.Girder(), station);
        const auto there = GirderAt(line.Girder() + 1, station);
        const auto along = AlongGirder(line, line.X(support.station));
        if (!here || !there || !along || (!support.bearing && !support.bearingLine))
            continue;
        const double cross = std::atan2(there->y - here->y, there->x - here->x);
        const double girder = TangentAt(line, support.station);
        constexpr double halfTurn = 180;
        double angle = std::abs(std::remainder(cross - girder, 2 * std::numbers::pi)) * halfTurn / std::numbers::pi;
        std::string text = Cp932("θ=");
        AppendFixed(text, angle, 0, 2);
        build_.Label({there->x, there->y - kTick}, text + Cp932("°"), LabelRow::Below, support.source);
    }
}

void PlanDrawer::Chain(const CGirderLine& line)
{
    DimensionChain chain{std::string(grid_.girders.Name(line.Girder())) + Cp932(" 格間"), {}};
    for (std::size_t bay = 0; bay < line.BayCount(); ++bay) {
        const auto from = GirderAt(line.Girder(), line.GridStation(bay));
        const auto to = GirderAt(line.Girder(), line.GridStation(bay + 1));
        if (from && to)
            chain.parts.push_back({from->x, to->x, LengthText(line.X(bay + 1) - line.X(bay)), {}});
    }
    build_.drawing.chains.push_back(std::move(chain));
}

void PlanDrawer::GirderParts()
{
    bool first = true;
    for (std::size_t girder = 0; girder < grid_.girders.Count(); ++girder) {
        CDrawingBuild apart; // what a girder cannot draw is told in its elevation
        const CGirderLine line(apart, data_, grid_, girder, GirderSide::Left);
        if (line.StationCount() < 2)
            continue;
        const GirderStiffeners stiffeners = StiffenersOf(apart, data_, line);
        for (const GirderSplice& splice : SplicesOf(apart, data_, line, stiffeners)) {
            const auto along = AlongGirder(line, splice.x);
            if (!along)
                continue;
            const auto& [at, direction] = *along;
            build_.Shape(DrawingLayer::Splice, ShapeKind::Line,
                         {{at.x - direction.y * kTick, at.y + direction.x * kTick},
                          {at.x + direction.y * kTick, at.y - direction.x * kTick}},
                         splice.source);
            if (first)
                build_.Label(at, splice.name, LabelRow::FarAbove, splice.source);
        }
        const std::vector<GirderSupport> supports = SupportsOf(apart, data_, line);
        for (const GirderSupport& support : supports)
            if (const auto at = GirderAt(girder, line.GridStation(support.station)))
                build_.Circle(support.bearing || support.bearingLine ? DrawingLayer::Support : DrawingLayer::Break, *at,
                              support.bearing ? kTick : kTick / 2, support.source);
        if (first) {
            Skews(line, supports);
            Chain(line);
        }
        first = false;
    }
}

BridgeDrawing PlanDrawer::Make()
{
    build_.drawing.title = Cp932("平面図");
    build_.drawing.provisional = grid_.Source() == GridSource::Provisional;
    if (build_.drawing.provisional)
        build_.Note("寸法は仮です(格間は5m，桁間隔は3mとしています)．");
    else
        build_.Note(grid_.Source() == GridSource::Analysis ? "位置は解析の格点座標です．"
                                                           : "解析結果がないため，位置は「504」の座標です．");
    build_.Note("斜角θは，前後の格点を通る円弧の接線と横断線の角度です．");
    build_.Note("○は支点，小さい○は支承の無い支承線上の点です．");
    Turn();
    Lines();
    Girders();
    Members();
    Laterals();
    Gussets();
    GirderParts();
    return build_.Take();
}

} // namespace

BridgeDrawing BridgePlan(const CSbdData& data, const AnalysisResults& results)
{
    return PlanDrawer(data, results).Make();
}

} // namespace sbd
