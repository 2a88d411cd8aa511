#include "drawing/girder_elevation.h"

#include "drawing/girder_depth.h"
#include "drawing/girder_fittings.h"
#include "drawing/girder_joints.h"
#include "project/text.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace sbd {

namespace {

constexpr double kTouch = 0.5; // mm

class ElevationDrawer {
public:
    ElevationDrawer(const CSbdData& data, const AnalysisResults& results, const ElevationOptions& options)
        : data_(data)
        , results_(results)
        , options_(options)
        , grid_(data, results)
        , line_(build_, data, grid_, options.girder, options.side)
    {
    }

    BridgeDrawing Make();

private:
    void Title();
    void Outline();
    void Plates();
    void PlateShape(DrawingLayer layer, std::size_t section, const std::optional<SectionPlate>& plate,
                    double (ElevationDrawer::*top)(double, const GirderSection&, std::size_t) const,
                    double (ElevationDrawer::*bottom)(double, const GirderSection&, std::size_t) const);
    void Bands();
    void Stiffeners();
    void HorizontalShapes();
    void Joints();
    void Supports();
    void Stations();
    void Chains();
    void SpreadUses();

    [[nodiscard]] double DepthAt(double x) const { return depth_.At(x).value_or(0); }
    /// Levels of the plates at x; the upper reference edge is 0.
    [[nodiscard]] double FlangeTop(double x, const GirderSection& section, std::size_t i) const;
    [[nodiscard]] double WebTop(double x, const GirderSection& section, std::size_t i) const;
    [[nodiscard]] double WebBottom(double x, const GirderSection& section, std::size_t i) const;
    [[nodiscard]] double FlangeBottom(double x, const GirderSection& section, std::size_t i) const;
    /// The web's ends at x, of whichever section.
    [[nodiscard]] std::array<double, 2> WebAt(double x) const;

    const CSbdData& data_;
    const AnalysisResults& results_;
    ElevationOptions options_;
    CDrawingBuild build_;
    CBridgeGrid grid_;
    CGirderLine line_;
    GirderDepth depth_;
    GirderStiffeners stiffeners_;
    GirderPlates plates_;
    std::vector<GirderSplice> splices_;
    std::vector<GirderSupport> supports_;
};

double ElevationDrawer::FlangeTop(double x, const GirderSection& section, std::size_t i) const
{
    return depth_.upperFlangeIncluded ? 0 : GirderPlates::ThicknessAt(plates_.upper[i], section, x);
}

double ElevationDrawer::WebTop(double x, const GirderSection& section, std::size_t i) const
{
    return depth_.upperFlangeIncluded ? -GirderPlates::ThicknessAt(plates_.upper[i], section, x) : 0;
}

double ElevationDrawer::WebBottom(double x, const GirderSection& section, std::size_t i) const
{
    return -DepthAt(x) + (depth_.lowerFlangeIncluded ? GirderPlates::ThicknessAt(plates_.lower[i], section, x) : 0);
}

double ElevationDrawer::FlangeBottom(double x, const GirderSection& section, std::size_t i) const
{
    return -DepthAt(x) - (depth_.lowerFlangeIncluded ? 0 : GirderPlates::ThicknessAt(plates_.lower[i], section, x));
}

std::array<double, 2> ElevationDrawer::WebAt(double x) const
{
    if (const auto section = plates_.SectionAt(x))
        return {WebTop(x, plates_.sections[*section], *section), WebBottom(x, plates_.sections[*section], *section)};
    return {0, -DepthAt(x)};
}

void ElevationDrawer::Title()
{
    build_.drawing.title = std::string(grid_.girders.Name(options_.girder)) + Cp932(" 桁側面図");
    if (line_.IsBox())
        build_.drawing.title += Cp932(line_.Side() == GirderSide::Left ? " (左腹板)" : " (右腹板)");
    build_.drawing.provisional = grid_.Source() == GridSource::Provisional;
    switch (grid_.Source()) {
    case GridSource::Analysis:
        build_.Note("長さは解析の格点座標による平面上の長さ(格点間は直線)です．");
        break;
    case GridSource::Input:
        build_.Note("解析結果がないため，長さは「504」の座標による平面上の長さ(格点間は直線)です．");
        break;
    case GridSource::Provisional:
        build_.Note("寸法は仮です(解析結果も「504」もないため，格間はすべて5mとしています)．");
        break;
    }
    build_.Note("縦断勾配は描かず，桁の上縁を水平としています．");
}

void ElevationDrawer::Outline()
{
    for (const DepthPiece& piece : depth_.pieces) {
        std::vector<DrawnPoint> corners;
        for (const DepthPoint& point : piece.points)
            corners.push_back({point.x, 0});
        for (auto point = piece.points.rbegin(); point != piece.points.rend(); ++point)
            corners.push_back({point->x, -point->depth});
        build_.Shape(DrawingLayer::Girder, ShapeKind::Polygon, std::move(corners), piece.source);
    }
}

void ElevationDrawer::PlateShape(DrawingLayer layer, std::size_t section, const std::optional<SectionPlate>& plate,
                                 double (ElevationDrawer::*top)(double, const GirderSection&, std::size_t) const,
                                 double (ElevationDrawer::*bottom)(double, const GirderSection&, std::size_t) const)
{
    if (!plate)
        return;
    const GirderSection& within = plates_.sections[section];
    // Pieces stand side by side; where the depth is not known nothing is drawn.
    auto piece = std::ranges::partition_point(
        depth_.pieces, [&](const DepthPiece& each) { return each.points.back().x <= within.from + kTouch; });
    std::vector<double> xs;
    const auto close = [&] {
        if (xs.size() >= 2) {
            std::vector<DrawnPoint> corners;
            corners.reserve(2 * xs.size());
            for (const double x : xs)
                corners.push_back({x, (this->*top)(x, within, section)});
            for (auto x = xs.rbegin(); x != xs.rend(); ++x)
                corners.push_back({*x, (this->*bottom)(*x, within, section)});
            build_.Shape(layer, ShapeKind::Polygon, std::move(corners), plate->source);
        }
        xs.clear();
    };
    for (; piece != depth_.pieces.end() && piece->points.front().x < within.to - kTouch; ++piece) {
        const double from = std::max(within.from, piece->points.front().x);
        const double to = std::min(within.to, piece->points.back().x);
        if (!xs.empty() && from > xs.back() + kTouch)
            close();
        const auto add = [&](double x) {
            if (xs.empty() || x > xs.back() + kTouch / 10)
                xs.push_back(x);
        };
        add(from);
        for (const DepthPoint& point : piece->points)
            if (point.x > from && point.x < to)
                add(point.x);
        add(to);
    }
    close();
}

void ElevationDrawer::Plates()
{
    for (std::size_t i = 0; i < plates_.sections.size(); ++i) {
        PlateShape(DrawingLayer::Web, i, plates_.web[i], &ElevationDrawer::WebTop, &ElevationDrawer::WebBottom);
        PlateShape(DrawingLayer::Flange, i, plates_.upper[i], &ElevationDrawer::FlangeTop, &ElevationDrawer::WebTop);
        PlateShape(DrawingLayer::Flange, i, plates_.lower[i], &ElevationDrawer::WebBottom,
                   &ElevationDrawer::FlangeBottom);
        constexpr int webBlock = 331;
        constexpr int flangeBlock = 332;
        const std::string& name = plates_.sections[i].name;
        if (!plates_.web[i])
            build_.Omit({webBlock, 0, 0}, "の腹板の板厚が決まらないため，図にできません．", name);
        if (!plates_.upper[i])
            build_.Omit({flangeBlock, 0, 0}, "の上フランジの寸法が決まらないため，図にできません．", name);
        if (!plates_.lower[i])
            build_.Omit({flangeBlock, 0, 0}, "の下フランジの寸法が決まらないため，図にできません．", name);
    }
}

std::string PlateText(const SectionPlate& plate)
{
    const auto fromTo = [](double from, double to) {
        return from == to ? LengthText(from) : LengthText(from) + "-" + LengthText(to);
    };
    std::string text;
    if (plate.widthFrom > 0)
        text = fromTo(plate.widthFrom, plate.widthTo) + "x";
    else
        text = "t=";
    return text + fromTo(plate.thickFrom, plate.thickTo) + " " + plate.material;
}

void ElevationDrawer::Bands()
{
    const struct {
        const char* title;
        const std::vector<std::optional<SectionPlate>>& plates;
    } bands[] = {{"U.FLG", plates_.upper}, {"WEB", plates_.web}, {"L.FLG", plates_.lower}};
    for (const auto& band : bands) {
        PlateBand made{band.title, {}};
        PlateBand widths{std::string(band.title) + Cp932("幅"), {}, true};
        bool differ = false;
        for (std::size_t i = 0; i < band.plates.size(); ++i)
            if (const auto& plate = band.plates[i]) {
                made.parts.push_back({plates_.sections[i].from, plates_.sections[i].to, plate->thickFrom,
                                      plate->thickTo, PlateText(*plate), plate->source});
                const BandPart width{plates_.sections[i].from, plates_.sections[i].to,       plate->widthFrom,
                                     plate->widthTo,           LengthText(plate->widthFrom), plate->source};
                differ = differ || width.thickFrom != width.thickTo
                         || (!widths.parts.empty() && widths.parts.back().thickTo != width.thickFrom);
                widths.parts.push_back(width);
            }
        if (!made.parts.empty())
            build_.drawing.bands.push_back(std::move(made));
        if (differ) // a width that is out of line is seen
            build_.drawing.bands.push_back(std::move(widths));
    }
}

void ElevationDrawer::Stiffeners()
{
    const auto draw = [&](const VerticalStiffener& stiffener, DrawingLayer layer) {
        if (!depth_.At(stiffener.x))
            return;
        const auto [top, bottom] = WebAt(stiffener.x);
        const double half = stiffener.thickness / 2;
        if (half > 0)
            build_.Shape(layer, ShapeKind::Polygon,
                         {{stiffener.x - half, top},
                          {stiffener.x + half, top},
                          {stiffener.x + half, bottom},
                          {stiffener.x - half, bottom}},
                         stiffener.source);
        else // its thickness is not known
            build_.Shape(layer, ShapeKind::Line, {{stiffener.x, top}, {stiffener.x, bottom}}, stiffener.source, true);
    };
    for (const BayStiffeners& bay : stiffeners_.bays)
        for (const VerticalStiffener& stiffener : bay.stiffeners)
            draw(stiffener, DrawingLayer::VerticalStiffener);
    for (const VerticalStiffener& stiffener : stiffeners_.stations)
        draw(stiffener, DrawingLayer::SupportStiffener);
    HorizontalShapes();
}

void ElevationDrawer::HorizontalShapes()
{
    const HorizontalStiffeners horizontal = HorizontalStiffenersOf(build_, data_, line_, stiffeners_);
    for (const HorizontalStiffener& stiffener : horizontal.stiffeners) {
        if (!depth_.At(stiffener.from) || !depth_.At(stiffener.to))
            continue;
        const auto levelAt = [&](double x) {
            const auto [top, bottom] = WebAt(x);
            const double height = horizontal.ofWholeDepth ? DepthAt(x) : top - bottom;
            return stiffener.upper ? top - stiffener.share * height : bottom + stiffener.share * height;
        };
        const DrawnPoint left{stiffener.from, levelAt(stiffener.from)};
        const DrawnPoint right{stiffener.to, levelAt(stiffener.to)};
        const double half = stiffener.thickness / 2;
        if (half > 0)
            build_.Shape(DrawingLayer::HorizontalStiffener, ShapeKind::Polygon,
                         {{left.x, left.y + half},
                          {right.x, right.y + half},
                          {right.x, right.y - half},
                          {left.x, left.y - half}},
                         stiffener.source);
        else
            build_.Shape(DrawingLayer::HorizontalStiffener, ShapeKind::Line, {left, right}, stiffener.source, true);
    }
}

void ElevationDrawer::Joints()
{
    for (std::size_t i = 0; i < plates_.sections.size(); ++i) {
        const GirderSection& section = plates_.sections[i];
        if (i + 1 < plates_.sections.size())
            build_.Shape(DrawingLayer::Section, ShapeKind::Line, {{section.to, 0}, {section.to, -DepthAt(section.to)}},
                         section.source);
    }
    for (const GirderSplice& splice : splices_) {
        const double over = 100; // mm beyond the flanges, so that the joint is seen
        build_.Shape(DrawingLayer::Splice, ShapeKind::Line, {{splice.x, over}, {splice.x, -DepthAt(splice.x) - over}},
                     splice.source);
        const std::string type = splice.type.substr(0, splice.type.find('(')); // without "(省略可)"
        build_.Label({splice.x, 0}, type.empty() ? splice.name : splice.name + " " + type, LabelRow::FarAbove,
                     splice.source);
    }
}

void ElevationDrawer::Supports()
{
    constexpr double halfWidth = 200; // mm, a mark
    constexpr double height = 300;
    for (const GirderSupport& support : supports_) {
        const double x = line_.X(support.station);
        const double foot = -DepthAt(x);
        if (support.bearing)
            build_.Shape(DrawingLayer::Support, ShapeKind::Polygon,
                         {{x, foot}, {x + halfWidth, foot - height}, {x - halfWidth, foot - height}}, support.source);
        else if (support.bearingLine)
            build_.Circle(DrawingLayer::Support, {x, foot - halfWidth}, halfWidth, support.source);
        else
            build_.Shape(DrawingLayer::Break, ShapeKind::Polygon,
                         {{x, foot},
                          {x + halfWidth, foot - halfWidth},
                          {x, foot - 2 * halfWidth},
                          {x - halfWidth, foot - halfWidth}},
                         support.source);
        build_.Label({x, foot - height}, support.word, LabelRow::Below, support.source);
    }
}

void ElevationDrawer::Stations()
{
    for (std::size_t i = 0; i < line_.StationCount(); ++i) {
        const double over = 300; // mm beyond the girder
        build_.Shape(DrawingLayer::CrossLine, ShapeKind::Line,
                     {{line_.X(i), over}, {line_.X(i), -DepthAt(line_.X(i)) - over}}, {}, false);
        build_.Label({line_.X(i), 0}, std::string(line_.StationName(i)), LabelRow::Above, {});
    }
}

/// A chain through points from left to right; equal ones once.
DimensionChain ChainOf(std::string_view title, std::vector<double> xs, const std::vector<SourceCell>& sources)
{
    DimensionChain chain{Cp932(title), {}};
    for (std::size_t i = 0; i + 1 < xs.size(); ++i)
        if (xs[i + 1] - xs[i] > kTouch)
            chain.parts.push_back(
                {xs[i], xs[i + 1], LengthText(xs[i + 1] - xs[i]), i < sources.size() ? sources[i] : SourceCell()});
    return chain;
}

void ElevationDrawer::Chains()
{
    std::vector<DimensionChain>& chains = build_.drawing.chains;
    std::vector<double> xs;
    for (const GirderSection& section : plates_.sections)
        xs.push_back(section.from);
    if (!plates_.sections.empty()) {
        xs.push_back(plates_.sections.back().to);
        std::vector<SourceCell> sources;
        for (const GirderSection& section : plates_.sections)
            sources.push_back(section.source);
        chains.push_back(ChainOf("断面", xs, sources));
        for (std::size_t i = 0; i < chains.back().parts.size() && i < plates_.sections.size(); ++i)
            chains.back().parts[i].text = plates_.sections[i].name + " " + chains.back().parts[i].text;
    }
    if (!splices_.empty()) {
        xs = {line_.Begin()};
        std::vector<SourceCell> sources;
        for (const GirderSplice& splice : splices_) {
            xs.push_back(splice.x);
            sources.push_back(splice.source);
        }
        xs.push_back(line_.End());
        chains.push_back(ChainOf("継手", xs, sources));
    }
    xs = {line_.Begin()};
    for (std::size_t i = 0; i < line_.StationCount(); ++i)
        xs.push_back(line_.X(i));
    xs.push_back(line_.End());
    chains.push_back(ChainOf("格間", xs, {}));
    xs = {line_.Begin()};
    for (const GirderSupport& support : supports_)
        if ((support.bearing || support.bearingLine) && line_.X(support.station) > xs.back())
            xs.push_back(line_.X(support.station));
    xs.push_back(line_.End());
    if (xs.size() > 2)
        chains.push_back(ChainOf("支間", xs, {}));
    chains.push_back(ChainOf("桁長", {line_.Begin(), line_.End()}, {}));
}

/// Uses come as stretches of the girder; they take its whole depth.
void ElevationDrawer::SpreadUses()
{
    const double most = depth_.Most();
    for (RowUse& use : build_.drawing.rows)
        if (use.area.size() == 2) {
            const double from = use.area[0].x;
            const double to = use.area[1].x;
            use.area = {{from, 0}, {to, 0}, {to, -most}, {from, -most}};
        }
}

BridgeDrawing ElevationDrawer::Make()
{
    if (options_.girder >= grid_.girders.Count()) {
        build_.Note("主桁の名称がないため，図にできません．");
        return build_.Take();
    }
    Title();
    if (line_.StationCount() < 2) {
        build_.Note("この桁の横断線が2本に足りないため，図にできません．");
        return build_.Take();
    }
    depth_ = DepthOf(build_, data_, line_);
    stiffeners_ = StiffenersOf(build_, data_, line_);
    plates_ = PlatesOf(build_, data_, line_, stiffeners_);
    splices_ = SplicesOf(build_, data_, line_, stiffeners_);
    supports_ = SupportsOf(build_, data_, line_);
    Stations();
    Outline();
    Plates();
    Stiffeners();
    Joints();
    Supports();
    DrawManHoles(build_, data_, line_, [&](double x) { return WebAt(x)[1]; });
    DrawStuds(build_, data_, line_, splices_, [&](double x) {
        const auto section = plates_.SectionAt(x);
        return section ? FlangeTop(x, plates_.sections[*section], *section) : 0.0;
    });
    if (options_.camber)
        DrawCamber(build_, data_, results_, line_);
    Bands();
    Chains();
    SpreadUses();
    return build_.Take();
}

} // namespace

std::vector<GirderSupport> SupportsOf(CDrawingBuild& build, const CSbdData& data, const CGirderLine& line)
{
    constexpr int block = 307;
    constexpr std::size_t wordColumns[] = {5, 4}; // older files have the word ahead of the reduction
    struct Kind {
        std::string word;
        bool bearing;
        bool bearingLine;
    };
    static const Kind kinds[] = {{Cp932("支承線上点"), false, true},
                                 {Cp932("支点"), true, false},
                                 {Cp932("不連続点追加"), false, false},
                                 {Cp932("Z不連続点"), false, false},
                                 {Cp932("XY不連続点"), false, false}};
    const CTableRows rows(data, block, 0);
    std::vector<std::optional<GirderSupport>> at(line.StationCount());
    for (std::size_t row = rows.First(); row < rows.Count(); ++row) {
        if (rows.IsEmpty(row))
            continue;
        const Kind* kind = nullptr;
        for (const std::size_t column : wordColumns)
            for (const Kind& each : kinds)
                if (kind == nullptr && rows.Cell(row, column) == each.word)
                    kind = &each;
        // A kink of the line may name lines instead of girders.
        if (kind != nullptr && !kind->bearing && !kind->bearingLine && line.Grid().lines.Find(rows.Cell(row, 0)))
            continue;
        if (!line.IsNamed(build, rows, row, 0))
            continue;
        const auto stations = line.NamedStations(build, rows, row, 2);
        if (!stations)
            continue;
        const CGirderLine::Part part = line.StationsIn(*stations);
        if (part.IsEmpty()) {
            build.Omit(rows.Place(row, 2), "この桁にない横桁のため，支点を図にできません．");
            continue;
        }
        build.Use(rows.Place(row, 0), {{line.X(part.first), 0}, {line.X(part.end - 1), 0}}, false);
        // A row without a word only reduces moments.
        for (std::size_t i = part.first; kind != nullptr && i < part.end; ++i)
            at[i] = GirderSupport{i, kind->bearing, kind->bearingLine, kind->word, rows.Place(row, wordColumns[0])};
    }
    std::vector<GirderSupport> supports;
    for (std::optional<GirderSupport>& support : at)
        if (support)
            supports.push_back(std::move(*support));
    return supports;
}

BridgeDrawing GirderElevation(const CSbdData& data, const AnalysisResults& results, const ElevationOptions& options)
{
    return ElevationDrawer(data, results, options).Make();
}

} // namespace sbd
