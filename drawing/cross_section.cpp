#include "drawing/cross_section.h"

#include "drawing/cross_members.h"
#include "drawing/section_girder.h"
#include "project/text.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace sbd {

namespace {

constexpr double kMillimetres = 1000;
constexpr double kMostLevel = 20'000; // mm
constexpr std::size_t kEnds = 2;

/// A level at one end of a member, and the cell that gives it.
struct EndLevel {
    double y = 0;
    SourceCell source;
};

/// Upper and lower edges of a cross beam at both ends.
struct BeamLevels {
    std::array<double, kEnds> tops{};
    std::array<double, kEnds> feet{};
};

class SectionDrawer {
public:
    SectionDrawer(const CSbdData& data, const AnalysisResults& results, std::size_t station)
        : data_(data)
        , grid_(data, results)
        , station_(station)
    {
    }

    BridgeDrawing Make();
    [[nodiscard]] std::optional<std::array<double, kEnds>> BeamDepths(std::size_t gap);

private:
    void Title();
    void PlaceGirders();
    void PlaceWebs(SectionGirder& girder, const GridPoint& first, double cos, double sin);
    void Members();
    [[nodiscard]] std::optional<BeamLevels> LevelsOf(const SectionGirder& left, const SectionGirder& right);
    void Beam(const SectionGirder& left, const SectionGirder& right, const CrossMember& member);
    void Sway(const SectionGirder& left, const SectionGirder& right, const CrossMember& member);
    void Deck();
    void Chains();
    void NotDrawn();

    /// The last row of a block of members that names the gap and the station on an end; nothing without any.
    [[nodiscard]] std::optional<std::size_t> MemberRow(const CTableRows& rows, std::size_t gap, int end);
    /// Upper and lower level of a member at an end by block 532 or 542.
    [[nodiscard]] std::optional<EndLevel> UpperLevel(const CTableRows& rows, std::size_t row,
                                                     const SectionGirder& girder);
    [[nodiscard]] std::optional<EndLevel> LowerLevel(const CTableRows& rows, std::size_t row,
                                                     const SectionGirder& girder);

    const CSbdData& data_;
    CDrawingBuild build_;
    CBridgeGrid grid_;
    std::size_t station_;
    std::vector<SectionGirder> girders_; ///< from left to right
};

void SectionDrawer::Title()
{
    build_.drawing.title = std::string(grid_.stations.Name(station_)) + Cp932(" 横断面図");
    build_.drawing.provisional = grid_.Source() == GridSource::Provisional;
    if (build_.drawing.provisional)
        build_.Note("寸法は仮です(桁間隔は3mとし，高さの差はないものとしています)．");
    else
        build_.Note("桁の位置は横断線に沿う平面上の距離，高さの差は格点のZ座標(主桁上縁)によります．");
    build_.Note("始端から終端を見た図です．");
}

void SectionDrawer::PlaceWebs(SectionGirder& girder, const GridPoint& first, double cos, double sin)
{
    const GirderWebs webs = WebsOf(data_, girder.name);
    const auto left = grid_.Place(webs.left, station_);
    const auto right = grid_.Place(webs.right, station_);
    girder.websKnown = left && right;
    if (!girder.websKnown)
        return;
    const auto along = [&](const GridPoint& place) {
        return ((place[0] - first[0]) * cos + (place[1] - first[1]) * sin) * kMillimetres;
    };
    girder.leftWeb = std::min(along(*left), along(*right));
    girder.rightWeb = std::max(along(*left), along(*right));
}

void SectionDrawer::PlaceGirders()
{
    std::vector<std::pair<std::size_t, GridPoint>> places;
    for (std::size_t girder = 0; girder < grid_.girders.Count(); ++girder)
        if (const auto place = grid_.GirderPlace(girder, station_))
            places.emplace_back(girder, *place);
    if (places.empty())
        return;
    const GridPoint& first = places.front().second;
    const GridPoint& last = places.back().second;
    double cos = last[0] - first[0];
    double sin = last[1] - first[1];
    const double length = std::hypot(cos, sin);
    if (length > 0) {
        cos /= length;
        sin /= length;
    } else {
        // One girder: across its own run is as good as any, for nothing lies beside it but its webs.
        cos = 0;
        sin = -1;
    }
    for (const auto& [number, place] : places) {
        auto girder = SectionGirderAt(data_, grid_, number, station_);
        if (!girder) {
            build_.Omit({}, "がこの横断線まで届かないため，図にできません．", grid_.girders.Name(number));
            continue;
        }
        girder->x = ((place[0] - first[0]) * cos + (place[1] - first[1]) * sin) * kMillimetres;
        girder->y = (place[2] - first[2]) * kMillimetres;
        girder->leftWeb = girder->rightWeb = girder->x;
        if (girder->box)
            PlaceWebs(*girder, first, cos, sin);
        girders_.push_back(std::move(*girder));
    }
}

std::optional<std::size_t> SectionDrawer::MemberRow(const CTableRows& rows, std::size_t gap, int end)
{
    return LastMemberRow(build_, rows, grid_, gap, station_, end);
}

std::optional<EndLevel> SectionDrawer::UpperLevel(const CTableRows& rows, std::size_t row, const SectionGirder& girder)
{
    constexpr std::size_t column = 5;
    const std::string_view cell = rows.Cell(row, column);
    std::string_view number = cell;
    double from = girder.y; // the upper edge, as the depth of the girder is measured
    if (cell.starts_with("UU"))
        from = girder.FlangeTop();
    else if (cell.starts_with("UL"))
        from = girder.WebTop();
    else if (cell.starts_with("LL"))
        from = girder.FlangeBottom();
    if (cell.starts_with("UU") || cell.starts_with("UL") || cell.starts_with("LL"))
        number.remove_prefix(2);
    const auto value = NumberIn(number);
    if (!value || std::abs(*value) > kMostLevel) {
        build_.Omit(rows.Place(row, column),
                    "上側の位置がSZ_U(数値)でもDIS_ZU(UU，UL，LLと数値)でもないため，図にできません．");
        return std::nullopt;
    }
    return EndLevel{from - *value, rows.Place(row, column)};
}

std::optional<EndLevel> SectionDrawer::LowerLevel(const CTableRows& rows, std::size_t row, const SectionGirder& girder)
{
    constexpr std::size_t column = 6;
    const auto value = NumberIn(rows.Cell(row, column));
    if (!value || std::abs(*value) > kMostLevel) {
        build_.Omit(rows.Place(row, column), "下側の位置がSZ_L(数値)ではないため，図にできません．");
        return std::nullopt;
    }
    return EndLevel{girder.LowerEdge() + *value, rows.Place(row, column)};
}

std::optional<BeamLevels> SectionDrawer::LevelsOf(const SectionGirder& left, const SectionGirder& right)
{
    constexpr int block = 532;
    const CTableRows rows(data_, block, 1);
    const std::array<const SectionGirder*, kEnds> girders{&left, &right};
    const std::array<double, kEnds> x{left.rightWeb, right.leftWeb};
    BeamLevels levels;
    for (std::size_t end = 0; end < kEnds; ++end) {
        const auto row = MemberRow(rows, left.girder, static_cast<int>(end));
        if (!row || !girders[end]->depth) {
            build_.Omit({row ? 311 : block, 0, 0}, "の横の横桁の高さの位置が決まらないため，横桁を図にできません．",
                        girders[end]->name);
            return std::nullopt;
        }
        const auto top = UpperLevel(rows, *row, *girders[end]);
        const auto foot = LowerLevel(rows, *row, *girders[end]);
        if (!top || !foot)
            return std::nullopt;
        if (top->y <= foot->y) {
            build_.Omit(foot->source, "横桁の上側が下側より低くなるため，図にできません．");
            return std::nullopt;
        }
        levels.tops[end] = top->y;
        levels.feet[end] = foot->y;
        build_.Use(rows.Place(*row, 0), {{x[0], top->y}, {x[1], foot->y}}, false);
    }
    return levels;
}

std::optional<std::array<double, kEnds>> SectionDrawer::BeamDepths(std::size_t gap)
{
    PlaceGirders();
    for (std::size_t i = 0; i + 1 < girders_.size(); ++i)
        if (girders_[i].girder == gap && girders_[i + 1].girder == gap + 1)
            if (const auto levels = LevelsOf(girders_[i], girders_[i + 1]))
                return std::array<double, kEnds>{levels->tops[0] - levels->feet[0], levels->tops[1] - levels->feet[1]};
    return std::nullopt;
}

void SectionDrawer::Beam(const SectionGirder& left, const SectionGirder& right, const CrossMember& member)
{
    constexpr int sizes = 533;
    constexpr std::size_t upperThickColumn = 5;
    constexpr std::size_t lowerThickColumn = 7;
    const auto levels = LevelsOf(left, right);
    if (!levels)
        return;
    const std::array<double, kEnds> x{left.rightWeb, right.leftWeb};
    const std::array<double, kEnds> tops = levels->tops;
    const std::array<double, kEnds> feet = levels->feet;
    const auto strip = [&](DrawingLayer layer, std::array<double, kEnds> top, std::array<double, kEnds> foot,
                           SourceCell source, bool open) {
        build_.Shape(layer, ShapeKind::Polygon, {{x[0], top[0]}, {x[1], top[1]}, {x[1], foot[1]}, {x[0], foot[0]}},
                     source, open);
    };
    const CTableRows sizeRows(data_, sizes, 1);
    const auto row = MemberRow(sizeRows, left.girder, -1);
    const auto thick = [&](std::size_t column) {
        const double value = row ? NumberIn(sizeRows.Cell(*row, column)).value_or(0) : 0;
        return value > 0 && value < (tops[0] - feet[0]) / 2 ? value : 0;
    };
    const double upperThick = thick(upperThickColumn);
    const double lowerThick = thick(lowerThickColumn);
    strip(DrawingLayer::CrossBeam, tops, feet, member.source, upperThick <= 0 || lowerThick <= 0);
    if (upperThick <= 0 || lowerThick <= 0) {
        build_.Omit(row ? sizeRows.Place(*row, upperThickColumn) : SourceCell{sizes, 0, 0},
                    "の右の横桁の断面が決まらないため，外形だけを描きます．", left.name);
        return;
    }
    strip(DrawingLayer::Flange, tops, {tops[0] - upperThick, tops[1] - upperThick},
          sizeRows.Place(*row, upperThickColumn), false);
    strip(DrawingLayer::Flange, {feet[0] + lowerThick, feet[1] + lowerThick}, feet,
          sizeRows.Place(*row, lowerThickColumn), false);
    build_.Use(sizeRows.Place(*row, 0), {{x[0], tops[0]}, {x[1], feet[1]}}, false);
    build_.Label({(x[0] + x[1]) / 2, (tops[0] + feet[0]) / 2}, member.type + " H=" + LengthText(tops[0] - feet[0]),
                 LabelRow::AtPoint, member.source);
}

void SectionDrawer::Sway(const SectionGirder& left, const SectionGirder& right, const CrossMember& member)
{
    constexpr int block = 542;
    constexpr std::size_t upperTypeColumn = 7;
    constexpr std::size_t lowerTypeColumn = 8;
    constexpr std::size_t offsetColumn = 9;
    constexpr std::size_t dropColumn = 10;
    const CTableRows rows(data_, block, 1);
    const std::array<const SectionGirder*, kEnds> girders{&left, &right};
    const std::array<double, kEnds> x{left.rightWeb, right.leftWeb};
    std::array<DrawnPoint, kEnds> upper;
    std::array<DrawnPoint, kEnds> lower;
    std::array<std::optional<DrawnPoint>, kEnds> diagonal;
    SourceCell source;
    for (std::size_t end = 0; end < kEnds; ++end) {
        const auto row = MemberRow(rows, left.girder, static_cast<int>(end));
        if (!row || !girders[end]->depth) {
            build_.Omit({row ? 311 : block, 0, 0},
                        "の横の対傾構の骨組線の位置が決まらないため，対傾構を図にできません．", girders[end]->name);
            return;
        }
        const bool sloped = left.y != right.y;
        for (const std::size_t column : {upperTypeColumn, lowerTypeColumn})
            if (sloped && rows.Cell(*row, column) == "BOLT") {
                build_.Omit(rows.Place(*row, column), "ボルトの位置で測る高さは，横断勾配があるため図にできません．",
                            {}, OmissionKind::Limit);
                return;
            }
        const auto top = UpperLevel(rows, *row, *girders[end]);
        const auto foot = LowerLevel(rows, *row, *girders[end]);
        if (!top || !foot)
            return;
        if (top->y <= foot->y) {
            build_.Omit(foot->source, "上弦材が下弦材より低くなるため，図にできません．");
            return;
        }
        upper[end] = {x[end], top->y};
        lower[end] = {x[end], foot->y};
        source = rows.Place(*row, 5);
        build_.Use(rows.Place(*row, 0), {upper[end], lower[end]}, false);
        const std::string_view offset = rows.Cell(*row, offsetColumn);
        const auto distance = offset == "G" ? std::optional(0.0) : NumberIn(offset);
        const auto drop =
            rows.Cell(*row, dropColumn).empty() ? std::optional(0.0) : NumberIn(rows.Cell(*row, dropColumn));
        if (distance && drop && std::abs(*distance) < kMostLevel && std::abs(*drop) < kMostLevel)
            diagonal[end] = DrawnPoint{x[end] + (end == 0 ? *distance : -*distance), top->y - *drop};
        else
            build_.Omit(rows.Place(*row, offsetColumn),
                        "斜材の端の位置が決まらないため(Bはボルトの位置)，斜材を図にできません．", {},
                        OmissionKind::Limit);
    }
    const auto line = [&](DrawnPoint from, DrawnPoint to) {
        build_.Shape(DrawingLayer::SwayBracing, ShapeKind::Line, {from, to}, source);
    };
    line(upper[0], upper[1]);
    line(lower[0], lower[1]);
    const DrawnPoint middle{(lower[0].x + lower[1].x) / 2, (lower[0].y + lower[1].y) / 2};
    for (const auto& end : diagonal)
        if (end)
            line(*end, middle);
    build_.Label({middle.x, (upper[0].y + upper[1].y + lower[0].y + lower[1].y) / 4}, member.type, LabelRow::AtPoint,
                 member.source);
}

void SectionDrawer::Members()
{
    const CCrossMembers members(build_, data_, grid_);
    for (std::size_t i = 0; i + 1 < girders_.size(); ++i) {
        if (girders_[i + 1].girder != girders_[i].girder + 1)
            continue;
        const CrossMember member = members.At(girders_[i].girder, station_);
        if (member.kind == CrossMemberKind::None)
            continue;
        if (girders_[i].rightWeb >= girders_[i + 1].leftWeb) {
            build_.Omit(member.source, "の右の桁が左にあるため，部材を図にできません．", girders_[i].name);
            continue;
        }
        if (member.kind == CrossMemberKind::Beam)
            Beam(girders_[i], girders_[i + 1], member);
        else
            Sway(girders_[i], girders_[i + 1], member);
    }
    for (const CCrossMembers::Row& row : members.Rows())
        if (row.stations.Has(station_))
            build_.Use(row.place, {}, row.covered);
}

/// Heights of the deck at a place, by a row of 312.
struct DeckHeights {
    double x = 0;
    double top = 0;                 ///< of the girder
    std::array<double, 4> layers{}; ///< mm: haunch, slab, fill, pavement
    SourceCell source;
};

/// The rows of 312 for girders and webs; -9 and -1 of a web stand for other values.
void SectionDrawer::Deck()
{
    constexpr int block = 312;
    constexpr std::array<std::size_t, 4> columns{8, 7, 6, 5}; // haunch, slab, fill, pavement
    const CTableRows rows(data_, block, 0);
    std::vector<DeckHeights> heights;
    const auto rowOf = [&](std::string_view name, const CNameIndex& names) {
        const auto index = names.Find(name);
        std::optional<std::size_t> winner;
        for (std::size_t row = rows.First(); index && row < rows.Count(); ++row) {
            const auto first = names.Find(rows.Cell(row, 0));
            const auto last = names.Find(rows.Cell(row, 1));
            const auto from = grid_.stations.Find(rows.Cell(row, 2));
            const auto to = grid_.stations.Find(rows.Cell(row, 3));
            if (first && last && from && to && std::min(*first, *last) <= *index && *index <= std::max(*first, *last)
                && std::min(*from, *to) <= station_ && station_ <= std::max(*from, *to))
                winner = row;
        }
        return winner;
    };
    const auto add = [&](const SectionGirder& girder, double x, std::optional<std::size_t> row) {
        if (!row) {
            build_.Omit({block, 0, 0}, "のこの位置の床版の高さが入力されていないため，床版を図にできません．",
                        girder.name);
            return;
        }
        DeckHeights deck{x, girder.y, {}, rows.Place(*row, columns[1])};
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const auto value = NumberIn(rows.Cell(*row, columns[i]));
            constexpr double most = 10; // m
            if (!value || *value < 0 || *value > most) {
                build_.Omit(rows.Place(*row, columns[i]),
                            "高さが0から10mの間の数値ではないため，床版を図にできません．単位はmです．");
                return;
            }
            deck.layers[i] = *value * kMillimetres;
        }
        heights.push_back(deck);
        build_.Use(rows.Place(*row, 0), {}, false);
    };
    for (const SectionGirder& girder : girders_) {
        const GirderWebs webs = WebsOf(data_, girder.name);
        const auto left = girder.box ? rowOf(webs.left, grid_.lines) : std::nullopt;
        const auto right = girder.box ? rowOf(webs.right, grid_.lines) : std::nullopt;
        if (left || right) {
            add(girder, girder.leftWeb, left);
            add(girder, girder.rightWeb, right);
        } else {
            add(girder, girder.x, rowOf(girder.name, grid_.girders));
        }
    }
    if (heights.size() < 2)
        return;
    // Each layer lies on those below it, from the upper edge of the girders on.
    const std::array<std::optional<DrawingLayer>, 4> layers{std::nullopt, DrawingLayer::Slab, DrawingLayer::Slab,
                                                            DrawingLayer::Pavement};
    static const std::array<std::string, 4> names{Cp932("ハンチ"), Cp932("床版"), Cp932("詰材"), Cp932("舗装")};
    std::vector<double> levels;
    levels.reserve(heights.size());
    for (const DeckHeights& deck : heights)
        levels.push_back(deck.top);
    for (std::size_t layer = 0; layer < layers.size(); ++layer) {
        std::vector<DrawnPoint> corners;
        double most = 0;
        for (std::size_t i = 0; i < heights.size(); ++i) {
            corners.push_back({heights[i].x, levels[i]});
            levels[i] += heights[i].layers[layer];
            most = std::max(most, heights[i].layers[layer]);
        }
        for (std::size_t i = heights.size(); i > 0; --i)
            corners.push_back({heights[i - 1].x, levels[i - 1]});
        if (most <= 0)
            continue;
        const SourceCell source = rows.Place(static_cast<std::size_t>(heights.front().source.row) - 1, columns[layer]);
        const DrawnPoint middle{(heights[0].x + heights[1].x) / 2,
                                (corners[0].y + corners[1].y + levels[0] + levels[1]) / 4};
        build_.Label(middle, names[layer] + " " + LengthText(heights.front().layers[layer]), LabelRow::AtPoint, source);
        if (layers[layer])
            build_.Shape(*layers[layer], ShapeKind::Polygon, std::move(corners), source);
    }
    build_.Omit({block, 0, 0},
                "床版の張出しと地覆は，端の線の位置が分からないため図にできません(外桁の間だけを描きます)．");
}

void SectionDrawer::Chains()
{
    DimensionChain spacing{Cp932("桁間隔"), {}};
    DimensionChain webs{Cp932("腹板"), {}};
    std::vector<double> webPlaces;
    for (std::size_t i = 0; i < girders_.size(); ++i) {
        const SectionGirder& girder = girders_[i];
        if (i > 0)
            spacing.parts.push_back({girders_[i - 1].x, girder.x, LengthText(girder.x - girders_[i - 1].x), {}});
        if (girder.box && girder.websKnown)
            webPlaces.insert(webPlaces.end(), {girder.leftWeb, girder.rightWeb});
        build_.Label({girder.x, 0}, girder.name, LabelRow::Above, {});
        if (girder.depth)
            build_.Label({girder.x, girder.LowerEdge()}, "H=" + LengthText(*girder.depth) + " " + girder.section,
                         LabelRow::Below, girder.depthSource);
        build_.Shape(DrawingLayer::CrossLine, ShapeKind::Line,
                     {{girder.x, girder.y + 500}, {girder.x, girder.LowerEdge() - 300}}, {});
    }
    for (std::size_t i = 0; i + 1 < webPlaces.size(); ++i)
        webs.parts.push_back({webPlaces[i], webPlaces[i + 1], LengthText(webPlaces[i + 1] - webPlaces[i]), {}});
    if (!webs.parts.empty())
        build_.drawing.chains.push_back(std::move(webs));
    if (!spacing.parts.empty())
        build_.drawing.chains.push_back(std::move(spacing));
}

/// Blocks that a section has and this one does not draw.
void SectionDrawer::NotDrawn()
{
    constexpr int stringers[] = {642, 643};
    constexpr int brackets[] = {671, 672};
    for (const int block : stringers)
        if (CTableRows(data_, block, 1).Count() > 1)
            build_.Omit({block, 0, 0}, "縦桁は断面図に表していません．");
    for (const int block : brackets)
        if (CTableRows(data_, block, 1).Count() > 1)
            build_.Omit({block, 0, 0}, "ブラケットは断面図に表していません．");
}

BridgeDrawing SectionDrawer::Make()
{
    if (station_ >= grid_.stations.Count()) {
        build_.Note("横桁の名称がないため，図にできません．");
        return build_.Take();
    }
    Title();
    PlaceGirders();
    if (girders_.empty()) {
        build_.Note("この横断線の座標がないため，図にできません．");
        return build_.Take();
    }
    Deck();
    Members();
    for (const SectionGirder& girder : girders_)
        if (girder.box)
            DrawBox(build_, data_, grid_, girder, station_);
        else
            DrawPlateGirder(build_, girder);
    Chains();
    NotDrawn();
    return build_.Take();
}

} // namespace

BridgeDrawing CrossSection(const CSbdData& data, const AnalysisResults& results, std::size_t station)
{
    return SectionDrawer(data, results, station).Make();
}

std::optional<std::array<double, 2>> BeamDepths(const CSbdData& data, const AnalysisResults& results, std::size_t gap,
                                                std::size_t station)
{
    return SectionDrawer(data, results, station).BeamDepths(gap);
}

} // namespace sbd
