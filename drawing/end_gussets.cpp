// Gussets of a sway bracing: blocks 562 and 563.
#include "drawing/cross_members.h"
#include "drawing/member_end_drawer.h"
#include "project/text.h"

#include <algorithm>

namespace sbd {

namespace {

constexpr int kGussets = 562;
constexpr int kGussetBolts = 563;

} // namespace

/// A gusset whose outer line the cells tell whole: the lower edge level (TYPE1 = 1), the free edge upright (TYPE2 = 1).
/// `chord`: the level of the chord's axis.
void CMemberEndDrawer::Gusset(MemberPart part, double chord)
{
    enum Column : std::size_t {
        kThick = 6,
        kWidth = 7,
        kD1 = 8,
        kD2 = 9,
        kD4 = 11,
        kD5 = 12,
        kType1 = 13,
        kType2 = 14
    };
    const CTableRows rows(data_, kGussets, 1);
    const auto row = RowOf(rows, kGussets, ChordWords(part), part == MemberPart::Upper ? "上弦材側" : "下弦材側");
    if (!row)
        return;
    for (const std::size_t column : {kType1, kType2})
        if (NumberIn(row->Cell(column)) != 1.0) {
            build_.Omit(row->Place(column),
                        "TYPE1，TYPE2がともに1のガセットだけを描きます．その他の外形は図に表していません．", {},
                        OmissionKind::Limit);
            return;
        }
    std::array<double, 5> sizes{};
    constexpr std::array<std::size_t, 5> columns{kWidth, kD1, kD2, kD4, kD5};
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const auto value = NumberIn(row->Cell(columns[i]));
        if (!value || *value < 0 || *value > kMostSize || (i == 0 && !(*value > 0))) {
            build_.Omit(row->Place(columns[i]), "寸法が数値ではないため，ガセットを図にできません．単位はmmです．", {},
                        row->Cell(columns[i]) == "YES" ? OmissionKind::Limit : OmissionKind::Input);
            return;
        }
        sizes[i] = *value;
    }
    const auto [width, d1, d2, d4, d5] = sizes;
    if (d5 > width + kTouch || d2 > d4 + kTouch) {
        build_.Omit(row->Place(d5 > width + kTouch ? kD5 : kD2),
                    "斜材側の縁がガセットの幅または取付縁の長さを超えるため，図にできません．");
        return;
    }
    const double up = part == MemberPart::Upper ? 1 : -1; // outward from the chord
    const auto at = [&](double x, double y) { return DrawnPoint{toBeam_ * x, chord + up * y}; };
    build_.Shape(DrawingLayer::Gusset, ShapeKind::Polygon,
                 {at(0, d1), at(width, d1), at(width, -d2), at(d5, -d4), at(0, -d4)}, row->Place(kWidth));
    build_.Shape(DrawingLayer::CrossLine, ShapeKind::Line, {at(0, 0), at(width + kBeyond, 0)}, {});
    build_.Label(at(width, d1 / 2), "d1 " + LengthText(d1), Outward(), row->Place(kD1));
    build_.Label(at(width, -d2 / 2), "d2 " + LengthText(d2), Outward(), row->Place(kD2));
    build_.Label(at(0, -d4 / 2), "d4 " + LengthText(d4), toBeam_ > 0 ? LabelRow::Ahead : LabelRow::Behind,
                 row->Place(kD4));
    build_.Label(at((width + d5) / 4, -d4 / 2),
                 Cp932(part == MemberPart::Upper ? "上 " : "下 ") + "t=" + LengthText(row->Size(kThick).value_or(0)),
                 LabelRow::AtPoint, row->Place(kThick));
    std::vector<double> xs{0, toBeam_ * width};
    std::ranges::sort(xs);
    AddChain(build_, part == MemberPart::Upper ? "上 W" : "下 W", xs, {row->Place(kWidth)});

    const CTableRows boltRows(data_, kGussetBolts, 1);
    const auto boltRow =
        RowOf(boltRows, kGussetBolts, ChordWords(part), part == MemberPart::Upper ? "上弦材側" : "下弦材側");
    constexpr std::size_t kind = 6;
    constexpr std::size_t first = 7;
    constexpr std::size_t stepsAt = 12;
    const auto bolts = boltRow ? LappedBoltsOf(*boltRow, first) : std::nullopt;
    if (!bolts)
        return;
    if (bolts->levels.back() > d1 + d4 || bolts->columns.back() > width) {
        build_.Omit(boltRow->Place(stepsAt), "ボルトの位置がガセットの外になるため，ボルトを図にできません．");
        return;
    }
    const double radius = BoltRadius(build_, *boltRow, kind);
    for (const double x : bolts->columns)
        for (const double level : bolts->levels)
            if (radius > 0)
                build_.Circle(DrawingLayer::Bolt, at(x, d1 - level), radius, boltRow->Place(stepsAt));
}

void CMemberEndDrawer::Gussets()
{
    constexpr double apart = 1'000; // between both chords: their true distance stands in the section
    Gusset(MemberPart::Upper, 0);
    Gusset(MemberPart::Lower, -apart);
    for (const int block : {552, 553, 554, 555}) {
        CDrawingBuild apartBuild; // unknown names are told where the cross members are
        const CTableRows rows(data_, block, 1);
        if (const auto row = LastMemberRow(apartBuild, rows, grid_, end_.gap, end_.station, end_.end))
            build_.Omit(rows.Place(*row, 0), "対傾構の弦材の連結板は図に表していません．", {}, OmissionKind::Limit);
    }
    build_.Note("ガセットは取付縁から描いています．上下の間隔は実際と違います．");
}

} // namespace sbd
