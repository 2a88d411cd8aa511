#include "drawing/girder_depth.h"

#include "project/text.h"

#include <algorithm>
#include <cmath>

namespace sbd {

namespace {

constexpr int kHeights = 311;
constexpr int kTypeRows = 4; // rows of the grid above the first record
constexpr double kMillimetres = 1000;
constexpr double kMostDepth = 50'000; // mm; deeper is a slip of the unit and would make the picture a line
constexpr int kCurveSteps = 24;
constexpr double kTouch = 0.5; // mm

/// Numbers of a record.
enum HeightNumber : std::size_t {
    kHeight = 0, ///< form 1: height, DXL, DXR
    kDxl = 1,
    kDxr = 2,
    kHeightBegin = 0, ///< forms 2 and 3
    kHeightEnd = 1,
    kDxb = 2,
    kDxe = 3,
    kXLower = 4,
    kDzLower = 5, ///< form 3
    kXUpper = 6,
};

SourceCell PlaceOf(std::size_t record, std::size_t number)
{
    constexpr int names = 4;
    return {kHeights, kTypeRows + static_cast<int>(record) + 1, names + static_cast<int>(number) + 1};
}

double LengthOf(const HGirderRecord& record, HeightNumber number)
{
    return IsGiven(record.numbers[number]) ? record.numbers[number] * kMillimetres : 0;
}

/// A depth in mm; nothing, and omitted, if it is missing or none.
std::optional<double> DepthIn(CDrawingBuild& build, const HGirderRecord& record, std::size_t index, HeightNumber number)
{
    if (!IsGiven(record.numbers[number])) {
        build.Omit(PlaceOf(index, number), "桁高が空白のため，この範囲の桁を図にできません．");
        return std::nullopt;
    }
    const double depth = LengthOf(record, number);
    if (!(depth > 0) || depth > kMostDepth) {
        build.Omit(PlaceOf(index, number),
                   "桁高が0以下または50mを超えるため，この範囲の桁を図にできません．単位はmです．");
        return std::nullopt;
    }
    return depth;
}

struct NamedRecord {
    std::size_t index = 0;
    IndexRange stations;
};

/// The records of the girder, in their order.
std::vector<NamedRecord> RecordsOf(CDrawingBuild& build, const CSbdData& data, const CGirderLine& line)
{
    std::vector<NamedRecord> named;
    const std::vector<HGirderRecord>& records = data.hGirder.records;
    for (std::size_t i = 0; i < records.size(); ++i) {
        const auto& names = records[i].names;
        if (std::ranges::all_of(names, [](const std::string& name) { return Trim(name).empty(); }))
            continue;
        SourceCell place = PlaceOf(i, 0);
        place.column = 1;
        const auto girders = RangeOfNames(build, line.Grid().girders, Trim(names[0]), Trim(names[1]), place, "主桁");
        if (!girders || !girders->Has(line.Girder()))
            continue;
        place.column = 3;
        const auto stations = RangeOfNames(build, line.Grid().stations, Trim(names[2]), Trim(names[3]), place, "横桁");
        if (stations)
            named.push_back({i, *stations});
    }
    return named;
}

void Use(CDrawingBuild& build, const CGirderLine& line, std::size_t record, std::size_t firstStation,
         std::size_t lastStation, bool covered)
{
    build.Use(PlaceOf(record, 0), {{line.X(firstStation), 0}, {line.X(lastStation), 0}}, covered);
}

// --- form 1: a depth at each station -----------------------------------------------------------------

std::vector<DepthPiece> StationDepths(CDrawingBuild& build, const CSbdData& data, const CGirderLine& line,
                                      const std::vector<NamedRecord>& named)
{
    CLastRowWins wins(line.StationCount());
    for (auto record = named.rbegin(); record != named.rend(); ++record) {
        const CGirderLine::Part part = line.StationsIn(record->stations);
        const std::size_t taken = wins.Take(record->index, part.first, part.end);
        if (!part.IsEmpty())
            Use(build, line, record->index, part.first, part.end - 1, taken == 0);
    }
    struct StationDepth {
        std::optional<double> depth;
        double left = 0;
        double right = 0;
        std::size_t record = CLastRowWins::kNone;
    };
    std::vector<StationDepth> depths(line.StationCount());
    for (std::size_t i = 0; i < depths.size(); ++i) {
        depths[i].record = wins.At(i);
        if (depths[i].record == CLastRowWins::kNone) {
            build.Omit({kHeights, 0, 0}, "の桁高が入力されていないため，前後の桁を図にできません．",
                       line.StationName(i));
            continue;
        }
        const HGirderRecord& record = data.hGirder.records[depths[i].record];
        depths[i].depth = i > 0 && depths[i].record == depths[i - 1].record
                              ? depths[i - 1].depth
                              : DepthIn(build, record, depths[i].record, kHeight);
        depths[i].left = std::max(0.0, LengthOf(record, kDxl));
        depths[i].right = std::max(0.0, LengthOf(record, kDxr));
    }
    std::vector<DepthPiece> pieces;
    for (std::size_t bay = 0; bay < line.BayCount(); ++bay) {
        const StationDepth& left = depths[bay];
        const StationDepth& right = depths[bay + 1];
        if (!left.depth || !right.depth)
            continue;
        DepthPiece piece;
        piece.source = PlaceOf(left.record, kHeight);
        piece.points = {{line.X(bay), *left.depth}, {line.X(bay + 1), *right.depth}};
        if (left.right + right.left > line.X(bay + 1) - line.X(bay) + kTouch) {
            build.Omit(PlaceOf(left.record, kDxr), "からの一定長さDXR，DXLが格間より長いため，図では直線としています．",
                       line.StationName(bay), OmissionKind::Length);
        } else {
            if (right.left > 0)
                piece.points.insert(piece.points.begin() + 1, {line.X(bay + 1) - right.left, *right.depth});
            if (left.right > 0)
                piece.points.insert(piece.points.begin() + 1, {line.X(bay) + left.right, *left.depth});
        }
        pieces.push_back(std::move(piece));
    }
    return pieces;
}

// --- forms 2 and 3: depths over intervals ------------------------------------------------------------

/// The depth over an interval as it changes between its constant ends: c0 + c1 t + c2 t^2, t from the interval's begin.
struct IntervalDepth {
    double begin = 0;
    double end = 0;
    double changeBegin = 0;
    double changeEnd = 0;
    double depthBegin = 0;
    double depthEnd = 0;
    std::array<double, 3> c{};
    bool curved = false;

    [[nodiscard]] double At(double x) const
    {
        if (x <= changeBegin)
            return depthBegin;
        if (x >= changeEnd)
            return depthEnd;
        const double t = x - begin;
        return c[0] + t * (c[1] + t * c[2]);
    }
};

void Straight(IntervalDepth& interval)
{
    const double length = interval.changeEnd - interval.changeBegin;
    interval.c[1] = length > 0 ? (interval.depthEnd - interval.depthBegin) / length : 0;
    interval.c[0] = interval.depthBegin - interval.c[1] * (interval.changeBegin - interval.begin);
    interval.c[2] = 0;
}

/// A parabola with its flat point at `flat` (from the interval's begin) through values at both ends of the change;
/// false if these do not determine one.
bool Parabola(double flat, double t0, double value0, double t1, double value1, std::array<double, 3>& c)
{
    const double divisor = (t1 - flat) * (t1 - flat) - (t0 - flat) * (t0 - flat);
    constexpr double least = 1; // mm2
    if (std::abs(divisor) < least)
        return false;
    const double a = (value1 - value0) / divisor;
    c = {value0 - a * (t0 - flat) * (t0 - flat) + a * flat * flat, -2 * a * flat, a};
    return true;
}

/// Where a parabola between the ends is flat if its value there is known.
std::optional<double> FlatPoint(double t0, double value0, double t1, double value1, double flatValue)
{
    const double left = value0 - flatValue;
    const double right = value1 - flatValue;
    if (left * right < 0 || (left == 0 && right == 0) || !(t1 - t0 > kTouch))
        return std::nullopt;
    const double a = std::sqrt(std::abs(left));
    const double b = std::sqrt(std::abs(right));
    return t0 + (t1 - t0) * a / (a + b);
}

struct FlangeForms {
    bool upperAligned = false; ///< the upper flange follows the line of the road
    bool upperCurved = false;
    bool lowerCurved = false;
};

/// Fills the change of depth; the reason if what is given does not tell it.
const char* Shape(IntervalDepth& interval, const HGirderRecord& record, FlangeForms forms)
{
    const double t0 = interval.changeBegin - interval.begin;
    const double t1 = interval.changeEnd - interval.begin;
    const double lowerFlat = LengthOf(record, kXLower);
    if (!forms.lowerCurved && !forms.upperCurved) {
        Straight(interval);
        return nullptr;
    }
    if (forms.upperAligned) {
        interval.curved = true;
        if (lowerFlat < 0) {
            const auto flat = FlatPoint(t0, interval.depthBegin, t1, interval.depthEnd, -lowerFlat);
            if (!flat)
                return "H_LFLGと両端の桁高から２次曲線が決まらないため，桁の形を図にできません．";
            // From the end that lies farther away, for at the other one the point itself may lie.
            const bool fromBegin = *flat - t0 >= t1 - *flat;
            const double run = fromBegin ? t0 - *flat : t1 - *flat;
            const double rise = (fromBegin ? interval.depthBegin : interval.depthEnd) + lowerFlat;
            const double a = rise / (run * run);
            interval.c = {-lowerFlat + a * *flat * *flat, -2 * a * *flat, a};
            return nullptr;
        }
        return Parabola(lowerFlat, t0, interval.depthBegin, t1, interval.depthEnd, interval.c)
                   ? nullptr
                   : "接線勾配0点が中央にあり，両端の桁高と合う２次曲線が決まらないため，桁の形を図にできません．";
    }
    // Both flanges have forms of their own. Which way DZ_LFLG counts is not told, so only a lower flange that ends where
    // it began is certain: it is level.
    if (!IsGiven(record.numbers[kDzLower]) || record.numbers[kDzLower] != 0)
        return "DZ_LFLGが0でない(または空白の)フランジの形は，図にできません．";
    const double upperFlat = LengthOf(record, kXUpper);
    const auto isInTheMiddle = [&](double flat) { return std::abs(t0 + t1 - 2 * flat) < kTouch; };
    if (lowerFlat < 0 || upperFlat < 0)
        return "負の値(桁高)による接線勾配0点は，上フランジも変化する場合は図にできません．";
    if (forms.lowerCurved && isInTheMiddle(lowerFlat))
        return "下フランジの２次曲線が決まらないため，桁の形を図にできません．";
    if (!forms.upperCurved) {
        Straight(interval);
        return nullptr;
    }
    interval.curved = true;
    return Parabola(upperFlat, t0, interval.depthBegin, t1, interval.depthEnd, interval.c)
               ? nullptr
               : "上フランジの２次曲線が決まらないため，桁の形を図にできません．";
}

DepthPiece PieceOf(const IntervalDepth& interval, double from, double to, SourceCell source)
{
    DepthPiece piece;
    piece.source = source;
    std::vector<double> xs = {from, interval.changeBegin, interval.changeEnd, to};
    if (interval.curved)
        for (int step = 1; step < kCurveSteps; ++step)
            xs.push_back(interval.changeBegin
                         + (interval.changeEnd - interval.changeBegin) * step / static_cast<double>(kCurveSteps));
    std::ranges::sort(xs);
    for (const double x : xs)
        if (x >= from && x <= to && (piece.points.empty() || x - piece.points.back().x > kTouch / 10))
            piece.points.push_back({x, interval.At(x)});
    return piece;
}

std::optional<IntervalDepth> IntervalOf(CDrawingBuild& build, const HGirderRecord& record, const NamedRecord& named,
                                        const CGirderLine& line, FlangeForms forms)
{
    const CGirderLine::Part part = line.StationsIn(named.stations);
    const auto begin = DepthIn(build, record, named.index, kHeightBegin);
    const auto end = DepthIn(build, record, named.index, kHeightEnd);
    if (!begin || !end)
        return std::nullopt;
    IntervalDepth interval;
    interval.begin = line.X(part.first);
    interval.end = line.X(part.end - 1);
    interval.depthBegin = *begin;
    interval.depthEnd = *end;
    interval.changeBegin = interval.begin + LengthOf(record, kDxb);
    interval.changeEnd = interval.end - LengthOf(record, kDxe);
    if (LengthOf(record, kDxb) < 0 || LengthOf(record, kDxe) < 0
        || interval.changeBegin > interval.changeEnd + kTouch) {
        build.Omit(PlaceOf(named.index, kDxb), "一定長さDXB，DXEが区間に合わないため，桁の形を図にできません．", {},
                   OmissionKind::Length);
        return std::nullopt;
    }
    if (const char* reason = Shape(interval, record, forms)) {
        build.Omit(PlaceOf(named.index, kXLower), reason, {}, OmissionKind::Limit);
        return std::nullopt;
    }
    return interval;
}

std::vector<DepthPiece> IntervalDepths(CDrawingBuild& build, const CSbdData& data, const CGirderLine& line,
                                       const std::vector<NamedRecord>& named, FlangeForms forms)
{
    CLastRowWins wins(line.BayCount());
    std::vector<std::optional<IntervalDepth>> intervals(data.hGirder.records.size());
    for (auto record = named.rbegin(); record != named.rend(); ++record) {
        const CGirderLine::Part bays = line.BaysIn(record->stations);
        if (bays.IsEmpty()) {
            build.Omit(PlaceOf(record->index, 0), "区間の始めと終わりが同じ横桁のため，図にできません．");
            continue;
        }
        const std::size_t taken = wins.Take(record->index, bays.first, bays.end);
        Use(build, line, record->index, bays.first, bays.end, taken == 0);
        intervals[record->index] = IntervalOf(build, data.hGirder.records[record->index], *record, line, forms);
    }
    std::vector<DepthPiece> pieces;
    for (std::size_t bay = 0; bay < line.BayCount(); ++bay) {
        const std::size_t record = wins.At(bay);
        if (record == CLastRowWins::kNone)
            build.Omit({kHeights, 0, 0}, "から始まる格間の桁高が入力されていないため，図にできません．",
                       line.StationName(bay));
        else if (intervals[record])
            pieces.push_back(PieceOf(*intervals[record], line.X(bay), line.X(bay + 1), PlaceOf(record, kHeightBegin)));
    }
    return pieces;
}

/// The depth goes on to both ends of the steel.
void Lengthen(std::vector<DepthPiece>& pieces, const CGirderLine& line)
{
    if (pieces.empty())
        return;
    std::vector<DepthPoint>& first = pieces.front().points;
    if (line.Begin() < line.X(0) && first.front().x <= line.X(0))
        first.insert(first.begin(), {line.Begin(), first.front().depth});
    std::vector<DepthPoint>& last = pieces.back().points;
    if (line.End() > line.X(line.StationCount() - 1) && last.back().x >= line.X(line.StationCount() - 1))
        last.push_back({line.End(), last.back().depth});
}

} // namespace

std::optional<double> GirderDepth::At(double x) const
{
    const auto piece =
        std::ranges::partition_point(pieces, [&](const DepthPiece& each) { return each.points.back().x < x - kTouch; });
    if (piece == pieces.end() || x < piece->points.front().x - kTouch)
        return std::nullopt;
    const auto& points = piece->points;
    const auto right = std::ranges::partition_point(points, [&](const DepthPoint& point) { return point.x < x; });
    if (right == points.begin())
        return right->depth;
    if (right == points.end())
        return points.back().depth;
    const DepthPoint& left = *(right - 1);
    const double share = right->x > left.x ? (x - left.x) / (right->x - left.x) : 0;
    return left.depth + (right->depth - left.depth) * share;
}

double GirderDepth::Most() const
{
    double most = 0;
    for (const DepthPiece& piece : pieces)
        for (const DepthPoint& point : piece.points)
            most = std::max(most, point.depth);
    return most;
}

GirderDepth DepthOf(CDrawingBuild& build, const CSbdData& data, const CGirderLine& line)
{
    static const std::string notIncluded = Cp932("含まない");
    static const std::string aligned = Cp932("線形");
    static const std::string given = Cp932("入力");
    static const std::string curved = Cp932("２次");
    const auto& types = data.hGirder.types;
    GirderDepth depth;
    depth.upperFlangeIncluded = !Holds(types[0], notIncluded);
    depth.lowerFlangeIncluded = !Holds(types[1], notIncluded);
    if (data.hGirder.records.empty()) {
        build.Omit({kHeights, 0, 0}, "桁高が入力されていないため，桁の形を図にできません．");
        return depth;
    }
    const std::vector<NamedRecord> named = RecordsOf(build, data, line);
    const bool upperAligned = Holds(types[2], aligned);
    if (upperAligned && Holds(types[3], given))
        depth.pieces = StationDepths(build, data, line, named);
    else
        depth.pieces =
            IntervalDepths(build, data, line, named, {upperAligned, Holds(types[2], curved), Holds(types[3], curved)});
    Lengthen(depth.pieces, line);
    return depth;
}

} // namespace sbd
