#include "drawing/girder_fittings.h"

#include "drawing/girder_elevation.h"
#include "project/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <unordered_map>

namespace sbd {

namespace {

constexpr double kMillimetres = 1000;
constexpr double kTouch = 0.5;
constexpr double kMostSize = 10'000; // mm, of an opening or a stud

// --- man holes ---------------------------------------------------------------------------------------

struct Opening {
    double width = 0;
    double height = 0;
};

/// "TYPE_400_600" or "400_600_600_800": width and height come first.
std::optional<Opening> OpeningOf(std::string_view type)
{
    std::vector<double> numbers;
    for (std::size_t pos = 0; pos <= type.size();) {
        const std::size_t end = std::min(type.find('_', pos), type.size());
        const std::string_view part = type.substr(pos, end - pos);
        const std::optional<double> value = NumberIn(part);
        if (!value && !(numbers.empty() && part == "TYPE"))
            return std::nullopt;
        if (value)
            numbers.push_back(*value);
        pos = end + 1;
    }
    if (numbers.size() < 2 || !(numbers[0] > 0 && numbers[0] < kMostSize)
        || !(numbers[1] > 0 && numbers[1] < kMostSize))
        return std::nullopt;
    return Opening{numbers[0], numbers[1]};
}

} // namespace

void DrawManHoles(CDrawingBuild& build, const CSbdData& data, const CGirderLine& line, const LevelAt& webFoot)
{
    constexpr int block = 408;
    constexpr std::size_t typeColumn = 4;
    constexpr std::size_t placeColumn = 5;
    constexpr std::size_t dxColumn = 6;
    constexpr std::size_t dyColumn = 7;
    const CTableRows rows(data, block, 1);
    for (std::size_t row = rows.First(); row < rows.Count(); ++row) {
        if (rows.IsEmpty(row) || !line.IsNamed(build, rows, row, 0))
            continue;
        const std::string_view place = rows.Cell(row, placeColumn);
        if (place == "U_FLG" || place == "L_FLG")
            continue; // seen in plan
        if (place != "L_WEB" && place != "R_WEB") {
            build.Omit(rows.Place(row, placeColumn), "がどの位置か分からないため，マンホールを図にできません．", place);
            continue;
        }
        if ((place == "L_WEB") != (line.Side() == GirderSide::Left))
            continue;
        const auto stations = line.NamedStations(build, rows, row, 2);
        const auto opening = OpeningOf(rows.Cell(row, typeColumn));
        const auto dx = NumberIn(rows.Cell(row, dxColumn));
        const auto dy = NumberIn(rows.Cell(row, dyColumn));
        if (!opening)
            build.Omit(rows.Place(row, typeColumn), "開口の幅と高さが読めないため，マンホールを図にできません．");
        if (!dx || !dy)
            build.Omit(rows.Place(row, dx ? dyColumn : dxColumn),
                       "DXまたはDYが数値ではないため，マンホールを図にできません．");
        if (!stations || !opening || !dx || !dy)
            continue;
        const CGirderLine::Part bays = line.BaysIn(*stations);
        if (bays.IsEmpty()) {
            build.Omit(rows.Place(row, 2), "格間がないため，マンホールを図にできません．");
            continue;
        }
        build.Use(rows.Place(row, 0), {{line.X(bays.first), 0}, {line.X(bays.end), 0}}, false);
        for (std::size_t bay = bays.first; bay < bays.end; ++bay) {
            const double x = line.X(bay) + *dx;
            if (x < line.X(bay) - kTouch || x > line.X(bay + 1) + kTouch) {
                build.Omit(rows.Place(row, dxColumn),
                           "DXが格間の外になるため，マンホールを図にできません．単位はmmです．", {},
                           OmissionKind::Length);
                break;
            }
            const double y = webFoot(x) + *dy;
            const double halfWidth = opening->width / 2;
            const double halfHeight = opening->height / 2;
            build.Shape(DrawingLayer::ManHole, ShapeKind::Polygon,
                        {{x - halfWidth, y - halfHeight},
                         {x + halfWidth, y - halfHeight},
                         {x + halfWidth, y + halfHeight},
                         {x - halfWidth, y + halfHeight}},
                        rows.Place(row, dxColumn));
        }
    }
}

// --- studs -------------------------------------------------------------------------------------------

namespace {

/// The number ahead of "_": how many spaces, or where the first row stands.
std::optional<double> Leading(std::string_view cell)
{
    return NumberIn(cell.substr(0, cell.find('_')));
}

/// The spaces of a row, one after the other, as count and distance.
std::vector<std::array<double, 2>> SpacesOf(const CTableRows& rows, std::size_t row)
{
    constexpr std::size_t first = 5;
    constexpr std::size_t last = 10;
    constexpr std::size_t further = 11; // "n4,distance,n5,distance,...", behind them the last row's number
    std::vector<std::array<double, 2>> spaces;
    std::vector<std::string_view> cells;
    for (std::size_t column = first; column <= last; ++column)
        cells.push_back(rows.Cell(row, column));
    const std::string_view more = rows.Cell(row, further);
    for (const std::string_view word : CellWords(more))
        cells.push_back(word);
    for (std::size_t i = 0; i + 1 < cells.size(); i += 2) {
        const auto count = Leading(cells[i]);
        const auto distance = NumberIn(cells[i + 1]);
        if (!count || !distance || *count < 1 || *count != std::floor(*count) || !(*distance > 0))
            break;
        spaces.push_back({*count, *distance});
    }
    return spaces;
}

} // namespace

void DrawStuds(CDrawingBuild& build, const CSbdData& data, const CGirderLine& line,
               const std::vector<GirderSplice>& splices, const LevelAt& flangeTop)
{
    constexpr int block = 402;
    constexpr std::size_t sideColumn = 2;
    constexpr std::size_t spliceColumn = 3;
    constexpr std::size_t beginColumn = 4;
    constexpr std::size_t spaceColumn = 5;
    constexpr std::size_t lengthColumn = 3; // of the head row
    constexpr double unknownHeight = 100;   // mm
    static const std::string crossBeam = Cp932("横桁");
    const CTableRows rows(data, block, 1);
    const double told = NumberIn(rows.Cell(0, lengthColumn)).value_or(0);
    static const std::string stud = Cp932("スタッド");
    const bool isStud = Holds(rows.Cell(0, 1), stud);
    const double height = isStud && told > 0 && told < kMillimetres ? told : unknownHeight;
    for (std::size_t row = rows.First(); row < rows.Count(); ++row) {
        if (rows.IsEmpty(row) || rows.Cell(row, sideColumn) == crossBeam) // those on cross beams are seen elsewhere
            continue;
        if (!line.IsNamed(build, rows, row, 0)
            || !line.Shows(line.SidesOf(build, rows.Cell(row, sideColumn), rows.Place(row, sideColumn))))
            continue;
        const std::string_view name = rows.Cell(row, spliceColumn);
        const auto splice = std::ranges::find_if(splices, [&](const GirderSplice& each) { return each.name == name; });
        if (splice == splices.end()) {
            build.Omit(rows.Place(row, spliceColumn),
                       "から始まるずれ止めの位置が決まらないため，図にできません(継手名の行だけを描きます)．", name,
                       OmissionKind::Limit);
            continue;
        }
        const auto begin = Leading(rows.Cell(row, beginColumn));
        const auto spaces = SpacesOf(rows, row);
        if (!begin || spaces.empty()) {
            build.Omit(rows.Place(row, begin ? spaceColumn : beginColumn),
                       "開始位置または間隔が読めないため，ずれ止めを図にできません．");
            continue;
        }
        double x = splice->x + *begin;
        const double first = x;
        bool fits = x <= line.End() + kTouch && x >= line.Begin() - kTouch;
        const auto mark = [&] {
            const double foot = flangeTop(x);
            build.Shape(DrawingLayer::Stud, ShapeKind::Line, {{x, foot}, {x, foot + height}},
                        rows.Place(row, beginColumn), !isStud);
        };
        if (fits)
            mark();
        for (const auto& [count, distance] : spaces)
            for (double i = 0; fits && i < count; ++i) {
                x += distance;
                fits = x <= line.End() + kTouch && build.drawing.shapes.size() < kMostShapes;
                if (fits)
                    mark();
            }
        if (!fits)
            build.Omit(rows.Place(row, spaceColumn),
                       "間隔の合計が桁の終わりを超えるため，残りのずれ止めを図にできません．", {},
                       OmissionKind::Length);
        build.Use(rows.Place(row, 0), {{first, 0}, {std::min(x, line.End()), 0}}, false);
    }
}

// --- camber ------------------------------------------------------------------------------------------

void DrawCamber(CDrawingBuild& build, const CSbdData& data, const AnalysisResults& results, const CGirderLine& line)
{
    constexpr int block = 259;
    constexpr std::size_t classColumn = 0;
    constexpr std::size_t loadColumn = 1;
    constexpr std::size_t uz = 2;
    constexpr double above = 800; // mm, the line of no deflection
    const CTableRows rows(data, block, 0);
    const AnalysisModel& model = results.model;
    std::unordered_map<std::string_view, std::size_t> nodes;
    for (std::size_t i = 0; i < model.nodeNames.size(); ++i)
        nodes.try_emplace(model.nodeNames[i], i);
    bool any = false;
    for (std::size_t row = rows.First(); row < rows.Count(); ++row) {
        const std::string_view load = rows.Cell(row, loadColumn);
        if (load.empty())
            continue;
        const auto found = std::ranges::find(model.loadCaseNames, load);
        if (found == model.loadCaseNames.end()) {
            build.Omit(rows.Place(row, loadColumn), "という荷重が解析にないため，キャンバーを図にできません．", load);
            continue;
        }
        const auto loadCase = static_cast<std::size_t>(found - model.loadCaseNames.begin());
        std::vector<DrawnPoint> points;
        for (std::size_t station = 0; station < line.StationCount(); ++station) {
            const std::string name =
                std::string(line.Grid().girders.Name(line.Girder())) + "-" + std::string(line.StationName(station));
            const auto node = nodes.find(name);
            if (node == nodes.end())
                continue;
            if (const auto value = results.displacement.At(node->second, loadCase, uz,
                                                           static_cast<std::size_t>(std::max(model.loadCaseCount, 0)),
                                                           kNodeComponents))
                points.push_back({line.X(station), above - *value * kMillimetres * kCamberScale});
        }
        if (points.size() < 2) {
            build.Omit(rows.Place(row, loadColumn), "のたわみがこの桁にないため，キャンバーを図にできません．", load,
                       OmissionKind::Limit);
            continue;
        }
        any = true;
        const DrawnPoint most = std::ranges::max(points, {}, [](const DrawnPoint& p) { return std::abs(p.y - above); });
        build.Shape(DrawingLayer::Camber, ShapeKind::Line, std::move(points), rows.Place(row, loadColumn));
        build.Label(most, std::string(rows.Cell(row, classColumn)), LabelRow::AtPoint, rows.Place(row, loadColumn));
    }
    if (any) {
        build.Shape(DrawingLayer::Camber, ShapeKind::Line,
                    {{line.X(0), above}, {line.X(line.StationCount() - 1), above}}, {block, 0, 0}, true);
        build.Note("キャンバーはたわみの50倍で，上向きに描いています．");
    }
}

} // namespace sbd
