#include "drawing/section_girder.h"

#include "drawing/girder_depth.h"
#include "project/text.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace sbd {

namespace {

void Rectangle(CDrawingBuild& build, DrawingLayer layer, double left, double right, double bottom, double top,
               SourceCell source)
{
    build.Shape(layer, ShapeKind::Polygon, {{left, bottom}, {right, bottom}, {right, top}, {left, top}}, source);
}

} // namespace

std::optional<SectionGirder> SectionGirderAt(const CSbdData& data, const CBridgeGrid& grid, std::size_t girder,
                                             std::size_t station)
{
    CDrawingBuild apart; // what cannot be drawn along the girder is told in its elevation
    const CGirderLine line(apart, data, grid, girder, GirderSide::Left);
    const std::optional<std::size_t> at = line.Find(grid.stations.Name(station));
    if (!at || line.BayCount() == 0)
        return std::nullopt;
    const double x = line.X(*at);
    SectionGirder result;
    result.girder = girder;
    result.name = grid.girders.Name(girder);
    result.box = line.IsBox();
    const GirderDepth depth = DepthOf(apart, data, line);
    result.upperFlangeIncluded = depth.upperFlangeIncluded;
    result.lowerFlangeIncluded = depth.lowerFlangeIncluded;
    result.depth = depth.At(x);
    for (const DepthPiece& piece : depth.pieces)
        if (piece.points.front().x <= x + 1)
            result.depthSource = piece.source;
    const GirderPlates plates = PlatesOf(apart, data, line, StiffenersOf(apart, data, line));
    const std::optional<std::size_t> section = plates.SectionAt(x);
    if (!section)
        return result;
    const GirderSection& within = plates.sections[*section];
    result.section = within.name;
    result.upperThick = GirderPlates::ThicknessAt(plates.upper[*section], within, x);
    result.lowerThick = GirderPlates::ThicknessAt(plates.lower[*section], within, x);
    result.webThick = GirderPlates::ThicknessAt(plates.web[*section], within, x);
    result.upperWidth = GirderPlates::WidthAt(plates.upper[*section], within, x);
    result.lowerWidth = GirderPlates::WidthAt(plates.lower[*section], within, x);
    const auto sourceOf = [](const std::optional<SectionPlate>& plate) { return plate ? plate->source : SourceCell(); };
    result.upperSource = sourceOf(plates.upper[*section]);
    result.lowerSource = sourceOf(plates.lower[*section]);
    result.webSource = sourceOf(plates.web[*section]);
    return result;
}

void DrawPlateGirder(CDrawingBuild& build, const SectionGirder& girder)
{
    if (!girder.depth) {
        build.Omit({311, 0, 0}, "のこの位置の桁高が決まらないため，桁を図にできません．", girder.name);
        return;
    }
    if (girder.webThick > 0)
        Rectangle(build, DrawingLayer::Web, girder.x - girder.webThick / 2, girder.x + girder.webThick / 2,
                  girder.WebBottom(), girder.WebTop(), girder.webSource);
    else {
        build.Shape(DrawingLayer::Girder, ShapeKind::Line, {{girder.x, girder.y}, {girder.x, girder.LowerEdge()}},
                    girder.depthSource, true);
        build.Omit({331, 0, 0}, "のこの位置の腹板の板厚が決まらないため，中心の線だけを描きます．", girder.name);
    }
    if (girder.upperThick > 0)
        Rectangle(build, DrawingLayer::Flange, girder.x - girder.upperWidth / 2, girder.x + girder.upperWidth / 2,
                  girder.WebTop(), girder.FlangeTop(), girder.upperSource);
    else
        build.Omit({332, 0, 0}, "のこの位置の上フランジの寸法が決まらないため，図にできません．", girder.name);
    if (girder.lowerThick > 0)
        Rectangle(build, DrawingLayer::Flange, girder.x - girder.lowerWidth / 2, girder.x + girder.lowerWidth / 2,
                  girder.FlangeBottom(), girder.WebBottom(), girder.lowerSource);
    else
        build.Omit({332, 0, 0}, "のこの位置の下フランジの寸法が決まらないため，図にできません．", girder.name);
}

// --- box girders -------------------------------------------------------------------------------------

namespace {

constexpr int kBoxSizes = 333;
constexpr int kLongRibs = 325;
constexpr int kRibSizes = 326;
constexpr double kMostSize = 20'000; // mm

bool IsFor(std::string_view word, BoxFlange flange)
{
    return word == "FLG" || word == (flange == BoxFlange::Upper ? "UFLG" : "LFLG");
}

/// A flange of a box: ends beyond the webs, and levels of its face at the webs from that at the girder's line.
struct BoxSizes {
    double leftOut = 0;
    double rightOut = 0;
    double leftLevel = 0;
    double rightLevel = 0;
    SourceCell source;
};

std::optional<BoxSizes> BoxSizesAt(CDrawingBuild& build, const CSbdData& data, const CBridgeGrid& grid,
                                   std::size_t girder, std::size_t station, BoxFlange flange)
{
    static const std::string automatic = Cp932("自動");
    constexpr std::size_t flangeColumn = 4;
    constexpr std::size_t leftOutColumn = 5;
    constexpr std::size_t rightOutColumn = 6;
    constexpr std::size_t leftLevelColumn = 7;
    constexpr std::size_t rightLevelColumn = 10;
    const CTableRows rows(data, kBoxSizes, 1);
    std::optional<std::size_t> winner;
    for (std::size_t row = rows.First(); row < rows.Count(); ++row) {
        if (rows.IsEmpty(row) || !IsFor(rows.Cell(row, flangeColumn), flange))
            continue;
        const auto girders =
            RangeOfNames(build, grid.girders, rows.Cell(row, 0), rows.Cell(row, 1), rows.Place(row, 0), "主桁");
        const auto stations =
            RangeOfNames(build, grid.stations, rows.Cell(row, 2), rows.Cell(row, 3), rows.Place(row, 2), "横桁");
        if (girders && stations && girders->Has(girder) && stations->Has(station))
            winner = row;
    }
    if (!winner) {
        build.Omit({kBoxSizes, 0, 0}, "のこの位置の突出長が入力されていないため，フランジを図にできません．",
                   grid.girders.Name(girder));
        return std::nullopt;
    }
    const auto size = [&](std::size_t column, bool mayBeAutomatic) -> std::optional<double> {
        const std::string_view cell = rows.Cell(*winner, column);
        if (mayBeAutomatic && (cell == automatic || cell.empty()))
            return 0; // "自動" of a difference of levels is 0
        const auto value = NumberIn(cell);
        if (value && std::abs(*value) < kMostSize)
            return value;
        build.Omit(rows.Place(*winner, column), "寸法が数値ではないため，フランジを図にできません．単位はmmです．");
        return std::nullopt;
    };
    const auto leftOut = size(leftOutColumn, false);
    const auto rightOut = size(rightOutColumn, false);
    const auto leftLevel = size(leftLevelColumn, true);
    const auto rightLevel = size(rightLevelColumn, true);
    if (!leftOut || !rightOut || !leftLevel || !rightLevel)
        return std::nullopt;
    build.Use(rows.Place(*winner, 0), {}, false);
    return BoxSizes{*leftOut, *rightOut, *leftLevel, *rightLevel, rows.Place(*winner, leftOutColumn)};
}

/// How many ribs a flange has at a station, and their places from the left web.
struct RibPlaces {
    std::vector<double> places; ///< mm
    SourceCell source;
};

/// The number of a rib in a cell of 325; -1 if it is none.
int RibNumber(std::string_view cell)
{
    const auto value = NumberIn(cell);
    constexpr double most = 1000;
    return value && *value >= 0 && *value <= most ? static_cast<int>(*value) : -1;
}

RibPlaces RibsAt(CDrawingBuild& build, const CSbdData& data, const CBridgeGrid& grid, const SectionGirder& girder,
                 std::size_t station, BoxFlange flange)
{
    static const std::string equal = Cp932("等間隔");
    constexpr int headRows = 1;
    constexpr std::size_t countColumn = 6;
    // The change nearest on the left goes on to the right; ahead of the first one its left side holds.
    const LRibRecord* nearest = nullptr;
    bool fromLeft = false;
    std::array<std::size_t, 2> best{};
    SourceCell source;
    for (std::size_t i = 0; i < data.lRibs.size(); ++i) {
        const LRibRecord& record = data.lRibs[i];
        const SourceCell place{kLongRibs, headRows + static_cast<int>(i) + 1, static_cast<int>(countColumn) + 1};
        if (!IsFor(Trim(record.names[3]), flange))
            continue;
        const auto girders = RangeOfNames(build, grid.girders, Trim(record.names[0]), Trim(record.names[1]),
                                          {place.block, place.row, 1}, "主桁");
        if (!girders || !girders->Has(girder.girder))
            continue;
        const auto change = grid.stations.Find(Trim(record.names[2]));
        const int rib = RibNumber(Trim(record.names[4]));
        if (!change || rib < 0) {
            build.Omit({place.block, place.row, change ? 5 : 3},
                       "縦リブの変化位置が読めないため，縦リブを図にできません．");
            continue;
        }
        const std::array<std::size_t, 2> at{*change, static_cast<std::size_t>(rib)};
        const bool isLeft = at <= std::array<std::size_t, 2>{station, 0};
        const bool better =
            nearest == nullptr || (isLeft && (!fromLeft || at >= best)) || (!isLeft && !fromLeft && at < best);
        if (better) {
            nearest = &record;
            fromLeft = isLeft;
            best = at;
            source = place;
        }
    }
    RibPlaces ribs;
    ribs.source = source;
    if (nearest == nullptr)
        return ribs;
    const int count = fromLeft ? nearest->n2 : nearest->n1;
    const RibSpacing& spacing = fromLeft ? nearest->right : nearest->left;
    if (count < 0 || count > kMostRibs) {
        build.Omit(source, "縦リブの本数が0から100の間にないため，図にできません．");
        return ribs;
    }
    const double width = girder.rightWeb - girder.leftWeb;
    double x = 0;
    for (int i = 0; i < count; ++i) {
        if (spacing.word == equal)
            x = width * (i + 1) / (count + 1);
        else if (static_cast<std::size_t>(i) < spacing.numbers.size())
            x += spacing.numbers[static_cast<std::size_t>(i)];
        else {
            build.Omit(source, "縦リブの間隔の数が本数より少ないため，残りの縦リブを図にできません．");
            break;
        }
        if (!(x >= 0 && x <= width)) {
            build.Omit(source, "縦リブの位置が腹板の外になるため，図にできません．間隔の単位はmmです．");
            break;
        }
        ribs.places.push_back(x);
    }
    return ribs;
}

struct RibSize {
    double height = 0;
    double thick = 0;
    SourceCell source;
};

/// The size of a flat rib of the girder's section; nothing for other forms, which are omitted.
std::optional<RibSize> RibSizeOf(CDrawingBuild& build, const CSbdData& data, const CBridgeGrid& grid,
                                 const SectionGirder& girder, BoxFlange flange)
{
    constexpr std::size_t flangeColumn = 4;
    constexpr std::size_t heightColumn = 5;
    constexpr std::size_t uColumn = 6;
    constexpr std::size_t thickColumn = 7;
    constexpr std::size_t radiusColumn = 8;
    const CTableRows rows(data, kRibSizes, 1);
    std::optional<std::size_t> winner;
    for (std::size_t row = rows.First(); row < rows.Count(); ++row) {
        if (rows.IsEmpty(row) || !IsFor(rows.Cell(row, flangeColumn), flange))
            continue;
        const auto first = grid.girders.Find(rows.Cell(row, 0));
        const auto last = grid.girders.Find(rows.Cell(row, 1));
        if (!first || !last || girder.girder < std::min(*first, *last) || girder.girder > std::max(*first, *last))
            continue;
        // Names of sections stand in their order only in 322; a range counts where its ends have the section's name.
        if (rows.Cell(row, 2) == girder.section || rows.Cell(row, 3) == girder.section)
            winner = row;
    }
    if (!winner) {
        build.Omit({kRibSizes, 0, 0}, "の縦リブの寸法が，この断面名では入力されていないため，線だけを描きます．",
                   girder.name);
        return std::nullopt;
    }
    const auto height = NumberIn(rows.Cell(*winner, heightColumn));
    const auto thick = NumberIn(rows.Cell(*winner, thickColumn));
    const bool flat = NumberIn(rows.Cell(*winner, uColumn)).value_or(0) == 0
                      && NumberIn(rows.Cell(*winner, radiusColumn)).value_or(0) == 0;
    if (!flat) {
        build.Omit(rows.Place(*winner, uColumn), "平リブ以外の縦リブは形が決まらないため，線だけを描きます．", {},
                   OmissionKind::Limit);
        return std::nullopt;
    }
    if (!height || !thick || !(*height > 0 && *height < kMostSize) || !(*thick > 0 && *thick < kMostSize)) {
        build.Omit(rows.Place(*winner, heightColumn), "縦リブの寸法が正の数ではないため，線だけを描きます．");
        return std::nullopt;
    }
    return RibSize{*height, *thick, rows.Place(*winner, heightColumn)};
}

} // namespace

std::optional<BoxFlangeWidths> BoxFlangeIn(CDrawingBuild& build, const CSbdData& data, const CBridgeGrid& grid,
                                           std::size_t girder, std::size_t station, std::size_t nextStation,
                                           BoxFlange flange)
{
    constexpr double slack = 1; // mm
    constexpr double millimetres = 1000;
    const GirderWebs webs = WebsOf(data, grid.girders.Name(girder));
    const std::array<std::size_t, 2> stations{station, nextStation};
    std::array<std::optional<GridPoint>, 2> left;
    std::array<std::optional<GridPoint>, 2> right;
    for (std::size_t end = 0; end < stations.size(); ++end) {
        left[end] = grid.Place(webs.left, stations[end]);
        right[end] = grid.Place(webs.right, stations[end]);
        if (!left[end] || !right[end]) {
            build.Omit({305, 0, 0}, "の腹板の線の座標がないため，フランジを図にできません．",
                       grid.girders.Name(girder));
            return std::nullopt;
        }
    }
    // Across the bay, whatever the skew of its cross lines.
    const double x = (*left[1])[0] - (*left[0])[0];
    const double y = (*left[1])[1] - (*left[0])[1];
    const double length = std::hypot(x, y);
    std::array<double, 2> apart{};
    for (std::size_t end = 0; length > 0 && end < apart.size(); ++end)
        apart[end] = std::abs(((*right[end])[0] - (*left[0])[0]) * y - ((*right[end])[1] - (*left[0])[1]) * x) / length
                     * millimetres;
    SectionGirder across;
    across.girder = girder;
    across.rightWeb = apart[0];
    std::array<std::optional<BoxSizes>, 2> sizes;
    std::array<RibPlaces, 2> ribs;
    for (std::size_t end = 0; end < stations.size(); ++end) {
        sizes[end] = BoxSizesAt(build, data, grid, girder, stations[end], flange);
        if (!sizes[end])
            return std::nullopt;
        ribs[end] = RibsAt(build, data, grid, across, stations[end], flange);
    }
    const auto near = [&](double a, double b) { return std::abs(a - b) <= slack; };
    const bool isEven = near(apart[0], apart[1]) && apart[0] > 0 && near(sizes[0]->leftOut, sizes[1]->leftOut)
                        && near(sizes[0]->rightOut, sizes[1]->rightOut)
                        && std::ranges::equal(ribs[0].places, ribs[1].places, near);
    if (!isEven) {
        build.Omit({kBoxSizes, 0, 0},
                   "のこの格間で腹板の間隔，突出長または縦リブが変わるため，フランジを図にできません．",
                   grid.girders.Name(girder), OmissionKind::Limit);
        return std::nullopt;
    }
    return BoxFlangeWidths{apart[0],         sizes[0]->leftOut, sizes[0]->rightOut,
                           sizes[0]->source, ribs[0].places,    ribs[0].source};
}

void DrawBox(CDrawingBuild& build, const CSbdData& data, const CBridgeGrid& grid, const SectionGirder& girder,
             std::size_t station)
{
    if (!girder.depth) {
        build.Omit({311, 0, 0}, "のこの位置の桁高が決まらないため，桁を図にできません．", girder.name);
        return;
    }
    if (!girder.websKnown) {
        build.Omit({305, 0, 0}, "の腹板の線の座標がないため，箱桁を図にできません．", girder.name);
        return;
    }
    const auto upper = BoxSizesAt(build, data, grid, girder.girder, station, BoxFlange::Upper);
    const auto lower = BoxSizesAt(build, data, grid, girder.girder, station, BoxFlange::Lower);
    /// The level of a flange's face at x, from that at the girder's line.
    const auto levelAt = [&](const std::optional<BoxSizes>& sizes, double x) {
        if (!sizes || girder.rightWeb <= girder.leftWeb)
            return 0.0;
        const double share = (x - girder.leftWeb) / (girder.rightWeb - girder.leftWeb);
        return sizes->leftLevel + (sizes->rightLevel - sizes->leftLevel) * share;
    };
    const auto flange = [&](const std::optional<BoxSizes>& sizes, double bottom, double top, SourceCell source) {
        if (!sizes || !(top > bottom))
            return;
        const double left = girder.leftWeb - sizes->leftOut;
        const double right = girder.rightWeb + sizes->rightOut;
        build.Shape(DrawingLayer::Flange, ShapeKind::Polygon,
                    {{left, bottom + levelAt(sizes, left)},
                     {right, bottom + levelAt(sizes, right)},
                     {right, top + levelAt(sizes, right)},
                     {left, top + levelAt(sizes, left)}},
                    source);
    };
    flange(upper, girder.WebTop(), girder.FlangeTop(), girder.upperSource);
    flange(lower, girder.FlangeBottom(), girder.WebBottom(), girder.lowerSource);
    if (girder.upperThick <= 0 || girder.lowerThick <= 0)
        build.Omit({332, 0, 0}, "のこの位置のフランジの板厚が決まらないため，図にできません．", girder.name);
    for (const double x : {girder.leftWeb, girder.rightWeb}) {
        const double top = girder.WebTop() + levelAt(upper, x);
        const double bottom = girder.WebBottom() + levelAt(lower, x);
        build.Shape(DrawingLayer::Web, ShapeKind::Line, {{x, top}, {x, bottom}}, girder.webSource);
    }
    if (upper && upper->source.row != 0)
        build.Note("箱桁の腹板は箱桁基本線の位置に線で描いています(合わせの面と距離は描きません)．");
    for (const BoxFlange side : {BoxFlange::Upper, BoxFlange::Lower}) {
        const auto& sizes = side == BoxFlange::Upper ? upper : lower;
        const RibPlaces ribs = RibsAt(build, data, grid, girder, station, side);
        if (ribs.places.empty())
            continue;
        const auto size = RibSizeOf(build, data, grid, girder, side);
        constexpr double unknownHeight = 150; // mm, of a rib whose size is not known
        for (const double place : ribs.places) {
            const double x = girder.leftWeb + place;
            const double root = (side == BoxFlange::Upper ? girder.WebTop() : girder.WebBottom()) + levelAt(sizes, x);
            const double tip = root + (side == BoxFlange::Upper ? -1 : 1) * (size ? size->height : unknownHeight);
            if (size)
                Rectangle(build, DrawingLayer::Rib, x - size->thick / 2, x + size->thick / 2, std::min(root, tip),
                          std::max(root, tip), ribs.source);
            else
                build.Shape(DrawingLayer::Rib, ShapeKind::Line, {{x, root}, {x, tip}}, ribs.source, true);
        }
    }
}

} // namespace sbd
