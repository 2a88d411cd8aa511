#include "drawing/beam_end_detail.h"

#include "drawing/cross_members.h"
#include "drawing/cross_section.h"
#include "drawing/member_end_drawer.h"
#include "project/text.h"

#include <cmath>

namespace sbd {

namespace {

constexpr int kConnections = 551;

} // namespace

const std::array<std::string, 2>& CMemberEndDrawer::FlangeWords(MemberPart part)
{
    static const std::array<std::string, 2> upper{"UFLG", "FLG"};
    static const std::array<std::string, 2> lower{"LFLG", "FLG"};
    return part == MemberPart::Upper ? upper : lower;
}

const std::array<std::string, 2>& CMemberEndDrawer::ChordWords(MemberPart part)
{
    static const std::array<std::string, 2> upper{Cp932("上"), Cp932("上下")};
    static const std::array<std::string, 2> lower{Cp932("下"), Cp932("上下")};
    return part == MemberPart::Upper ? upper : lower;
}

const char* CMemberEndDrawer::FlangeName(MemberPart part)
{
    return part == MemberPart::Upper ? "上フランジ" : "下フランジ";
}

std::optional<SpliceRow> CMemberEndDrawer::RowOf(const CTableRows& rows, int block, std::span<const std::string> parts,
                                                 std::string_view name)
{
    const auto row = LastMemberRow(build_, rows, grid_, end_.gap, end_.station, end_.end, parts);
    if (!row) {
        build_.Omit({block, 0, 0}, std::string(name) + "の行がこの端にないため，図にできません．");
        return std::nullopt;
    }
    build_.Use(rows.Place(*row, 0), {}, false);
    return SpliceRow{&rows, *row};
}

double CMemberEndDrawer::Length(const SpliceRow& row, std::size_t column)
{
    const std::optional<double> value = NumberIn(row.Cell(column));
    if (value && *value > 0 && *value <= kMostSize)
        return *value;
    build_.Omit(row.Place(column), "寸法が正の数ではないか，大きすぎるため，図にできません．単位はmmです．");
    return 0;
}

void CMemberEndDrawer::Rectangle(DrawingLayer layer, double from, double to, double bottom, double top,
                                 SourceCell source)
{
    build_.Shape(layer, ShapeKind::Polygon, {{from, top}, {to, top}, {to, bottom}, {from, bottom}}, source);
}

void CMemberEndDrawer::GirderLine(double x, double bottom, double top, SourceCell source)
{
    build_.Shape(DrawingLayer::Girder, ShapeKind::Line, {{x, top}, {x, bottom}}, source);
    if (namedAt_.insert(x).second)
        build_.Label({x, top}, std::string(grid_.girders.Name(end_.gap + static_cast<std::size_t>(end_.end))),
                     LabelRow::Above, source);
}

/// The height of the beam's web: by its depth at the splice (560), else by that at its ends where these are equal.
std::optional<double> CMemberEndDrawer::WebHeight(std::optional<SpliceRow> spacings)
{
    constexpr std::size_t depthColumn = 11;
    constexpr std::size_t upperThick = 5;
    constexpr std::size_t lowerThick = 7;
    if (!section_)
        return std::nullopt;
    const double upper = section_->Size(upperThick).value_or(0);
    const double lower = section_->Size(lowerThick).value_or(0);
    double depth = spacings ? NumberIn(spacings->Cell(depthColumn)).value_or(0) : 0;
    if (!(depth > 0)) {
        const auto depths = BeamDepths(data_, results_, end_.gap, end_.station);
        constexpr double slack = 1; // mm
        if (!depths || std::abs((*depths)[0] - (*depths)[1]) > slack) {
            build_.Omit({532, 0, 0}, "横桁の高さが決まらないか，両端で違うため，ウェブを図にできません．", {},
                        OmissionKind::Limit);
            return std::nullopt;
        }
        depth = (*depths)[0];
    }
    if (!(upper > 0) || !(lower > 0) || !(depth > upper + lower) || depth > kMostSize) {
        build_.Omit(section_->Place(upper > 0 ? lowerThick : upperThick),
                    "横桁の高さとフランジの板厚からウェブの高さが決まらないため，図にできません．");
        return std::nullopt;
    }
    return depth - upper - lower;
}

BridgeDrawing CMemberEndDrawer::Make()
{
    const CCrossMembers members(build_, data_, grid_);
    const CrossMember member = members.At(end_.gap, end_.station);
    build_.drawing.title =
        MemberEndName(grid_, end_) + Cp932(member.kind == CrossMemberKind::Sway ? " 対傾構ガセット図" : " 横桁連結図");
    if (member.kind == CrossMemberKind::None) {
        build_.Note("この位置に横桁も対傾構もないため，図にできません．");
        return build_.Take();
    }
    if (member.kind == CrossMemberKind::Sway) {
        Gussets();
        return build_.Take();
    }
    if (const auto row = LastMemberRow(build_, sections_, grid_, end_.gap, end_.station, -1))
        section_ = SpliceRow{&sections_, *row};
    else
        build_.Omit({kSections, 0, 0}, "横桁の断面の行がこの位置にないため，フランジとウェブを図にできません．");
    const CTableRows connections(data_, kConnections, 1);
    const auto connection = RowOf(connections, kConnections, {}, "連結形式");
    if (!connection)
        return build_.Take();
    constexpr std::size_t typeColumn = 5;
    const std::string_view type = connection->Cell(typeColumn);
    static const std::string bracket = Cp932("仕口");
    static const std::string shear = Cp932("せん断");
    static const std::string both = Cp932("上下曲げ");
    static const std::string upper = Cp932("上曲げ");
    static const std::string lower = Cp932("下曲げ");
    build_.drawing.title += " " + std::string(type);
    if (type == bracket) {
        Bracket();
    } else if (type == shear) {
        LappedWeb(0, 0);
        build_.Note("ウェブの端からの寸法です(主桁との間隔は入力にないため描いていません)．");
    } else if (type.starts_with(both) || type.starts_with(upper) || type.starts_with(lower)) {
        const bool hasUpper = !type.starts_with(lower);
        const bool hasLower = !type.starts_with(upper);
        constexpr double level = 1'000; // of the flanges' axes from each other
        if (hasUpper)
            WeldedPlate(MemberPart::Upper, 0);
        if (hasLower)
            WeldedPlate(MemberPart::Lower, hasUpper ? -level : 0);
        // Beside the plates: how far its end is from the girder is not told.
        LappedWeb(toBeam_ * (half_ + 3 * kApart), 0);
        build_.Note("連結板は主桁ウェブの中心から，ウェブは端から描いています(両者の間隔は実際と違います)．");
    } else {
        build_.Omit(connection->Place(typeColumn), "がどの連結形式か分からないため，図にできません．", type);
    }
    return build_.Take();
}

std::vector<MemberEnd> MemberEndsAt(const CSbdData& data, const CBridgeGrid& grid, std::size_t girder)
{
    CDrawingBuild apart;
    const CCrossMembers members(apart, data, grid);
    std::vector<MemberEnd> ends;
    constexpr std::size_t most = 2 * kMostStations;
    for (std::size_t station = 0; station < grid.stations.Count() && ends.size() < most; ++station) {
        if (girder > 0 && members.At(girder - 1, station).kind != CrossMemberKind::None)
            ends.push_back({girder - 1, station, 1});
        if (members.At(girder, station).kind != CrossMemberKind::None)
            ends.push_back({girder, station, 0});
    }
    return ends;
}

std::string MemberEndName(const CBridgeGrid& grid, const MemberEnd& end)
{
    return std::string(grid.stations.Name(end.station)) + " " + std::string(grid.girders.Name(end.gap)) + "-"
           + std::string(grid.girders.Name(end.gap + 1)) + Cp932(end.end == 0 ? " 左端" : " 右端");
}

BridgeDrawing MemberEndDetail(const CSbdData& data, const AnalysisResults& results, const MemberEnd& end)
{
    return CMemberEndDrawer(data, results, end).Make();
}

} // namespace sbd
