// A web lapped on a stiffener, and plates welded to the girder's web: blocks 552 to 556.
#include "drawing/member_end_drawer.h"
#include "project/text.h"

#include <algorithm>
#include <cmath>

namespace sbd {

namespace {

constexpr int kPlateTypes = 552;
constexpr int kPlateShapes = 553;
constexpr int kPlateBolts = 554;
constexpr int kPlateSpacings = 555;
constexpr int kLappedWebs = 556;

} // namespace

/// Bolts by the number of columns and parts, Ld, Le, the distance of the first one (its column `first` + 4) and the steps
/// in the last cell.
std::optional<LappedBolts> CMemberEndDrawer::LappedBoltsOf(const SpliceRow& row, std::size_t first)
{
    const std::size_t columnsAt = first;
    const std::size_t partsAt = first + 1;
    const std::size_t apartAt = first + 2;
    const std::size_t edgeAt = first + 3;
    const std::size_t beginAt = first + 4;
    constexpr std::size_t stepsAt = 12;
    constexpr double most = 60;
    for (const std::size_t column : {columnsAt, partsAt}) {
        const auto value = NumberIn(row.Cell(column));
        if (!value || *value < 1 || *value != std::floor(*value) || *value > most) {
            build_.Omit(row.Place(column), "列数または割数が1から60の整数ではないため，ボルトを図にできません．");
            return std::nullopt;
        }
    }
    const auto columns = static_cast<std::size_t>(*NumberIn(row.Cell(columnsAt)));
    const auto parts = static_cast<std::size_t>(*NumberIn(row.Cell(partsAt)));
    LappedBolts bolts;
    for (const std::size_t column : {edgeAt, beginAt})
        if (!row.Size(column)) {
            build_.Omit(row.Place(column), "ボルトの間隔が数値ではないため，ボルトを図にできません．");
            return std::nullopt;
        }
    if (columns > 1 && !(row.Size(apartAt).value_or(0) > 0)) {
        build_.Omit(row.Place(apartAt), "列と列の間隔が正の数ではないため，ボルトを図にできません．");
        return std::nullopt;
    }
    for (std::size_t column = 0; column < columns; ++column)
        bolts.columns.push_back(*row.Size(edgeAt) + static_cast<double>(column) * row.Size(apartAt).value_or(0));
    bolts.levels.push_back(*row.Size(beginAt));
    for (const std::string_view word : CellWords(row.Cell(stepsAt))) {
        const auto step = NumberIn(word);
        if (!step || !(*step > 0) || *step > kMostSize || bolts.levels.size() > parts) {
            bolts.levels.clear();
            break;
        }
        bolts.levels.push_back(bolts.levels.back() + *step);
    }
    if (bolts.levels.size() != parts + 1) {
        build_.Omit(row.Place(stepsAt), "ピッチの数が割数(" + std::to_string(parts)
                                            + "個)と違うか，正の数ではないため，ボルトを図にできません．");
        return std::nullopt;
    }
    return bolts;
}

/// The web's upper edge at `top`, its end at `begin`.
void CMemberEndDrawer::LappedWeb(double begin, double top)
{
    constexpr std::size_t kind = 5;
    constexpr std::size_t first = 6;
    constexpr std::size_t upperAt = 10;
    constexpr std::size_t lowerAt = 11;
    constexpr std::size_t stepsAt = 12;
    constexpr std::size_t webThick = 8;
    const CTableRows rows(data_, kLappedWebs, 1);
    const auto row = RowOf(rows, kLappedWebs);
    const auto height = WebHeight({});
    if (!row || !height) {
        return;
    }
    Rectangle(DrawingLayer::Web, begin, begin + toBeam_ * half_, top - *height, top,
              section_ ? section_->Place(webThick) : SourceCell());
    build_.Label({begin + toBeam_ * half_, top - *height / 2}, Cp932("ウェブ"), Outward(), {});
    // Blocks 556 and 563 have the same cells up to Le; here the distance of the first bolt is DU.
    const auto bolts = LappedBoltsOf(*row, first);
    const auto lower = row->Size(lowerAt);
    if (!bolts)
        return;
    if (bolts->levels.back() > *height) {
        build_.Omit(row->Place(stepsAt), "DUとピッチの合計がウェブの高さ(" + LengthText(*height)
                                             + "mm)を超えるため，ボルトを図にできません．");
        return;
    }
    if (!lower || std::abs(bolts->levels.back() + *lower - *height) > kTouch)
        build_.Omit(row->Place(lowerAt),
                    "DU，ピッチの合計，DLを足した長さがウェブの高さ(" + LengthText(*height) + "mm)と違います．");
    const double radius = BoltRadius(build_, *row, kind);
    if (!(radius > 0))
        return;
    for (const double x : bolts->columns)
        for (const double level : bolts->levels)
            build_.Circle(DrawingLayer::Bolt, {begin + toBeam_ * x, top - level}, radius, row->Place(stepsAt));
    const auto beside = [&](double from, double to, std::string_view name, std::size_t column) {
        build_.Label({begin + toBeam_ * (bolts->columns.back() + kBeyond / 4), top - (from + to) / 2},
                     std::string(name) + LengthText(to - from), Outward(), row->Place(column));
    };
    beside(0, bolts->levels.front(), "DU ", upperAt);
    for (std::size_t i = 0; i + 1 < bolts->levels.size(); ++i)
        beside(bolts->levels[i], bolts->levels[i + 1], "", stepsAt);
    if (lower)
        beside(bolts->levels.back(), bolts->levels.back() + *lower, "DL ", lowerAt);
    std::vector<double> xs{begin};
    std::vector<SourceCell> sources(bolts->columns.size() + 1, row->Place(first + 2));
    for (const double x : bolts->columns)
        xs.push_back(begin + toBeam_ * x);
    std::ranges::sort(xs);
    (toBeam_ > 0 ? sources.front() : sources[xs.size() - 2]) = row->Place(first + 3);
    AddChain(build_, "ウェブ", xs, sources);
}

/// A plate that is welded to the girder's web (W1, W2), from above; x from that web.
void CMemberEndDrawer::WeldedPlate(MemberPart part, double middle)
{
    const CTableRows types(data_, kPlateTypes, 1);
    const CTableRows shapes(data_, kPlateShapes, 1);
    const CTableRows numbers(data_, kPlateBolts, 1);
    const CTableRows spacings(data_, kPlateSpacings, 1);
    const auto type = RowOf(types, kPlateTypes, ChordWords(part), FlangeName(part));
    const auto shape = RowOf(shapes, kPlateShapes, ChordWords(part), FlangeName(part));
    const auto bolts = RowOf(numbers, kPlateBolts, ChordWords(part), FlangeName(part));
    const auto pitches = RowOf(spacings, kPlateSpacings, ChordWords(part), FlangeName(part));
    if (!type || !shape || !bolts || !pitches)
        return;
    constexpr std::size_t typeColumn = 6;
    if (!type->Cell(typeColumn).starts_with('W')) {
        build_.Omit(type->Place(typeColumn), "コネクション(C1～C5)の連結板は図に表していません．", {},
                    OmissionKind::Limit);
        return;
    }
    enum ShapeColumn : std::size_t { kWidth = 6, kThick = 7, kNotchRadius = 10 };
    enum BoltColumn : std::size_t { kKind = 6, kForm = 7, kCount = 8, kRows = 9 };
    enum SpacingColumn : std::size_t { kLc = 6, kLd = 7, kLeftEdge = 8, kRightEdge = 9, kBc = 10, kBe = 11 };
    const double width = Length(*shape, kWidth);
    if (!(width > 0))
        return;
    for (const std::size_t column : {kLc, kLd, kLeftEdge, kRightEdge, kBc, kBe})
        if (!pitches->Size(column)) {
            build_.Omit(pitches->Place(column), "ボルトの間隔が数値ではないため，連結板を図にできません．");
            return;
        }
    const auto size = [&](std::size_t column) { return pitches->Size(column).value_or(0); };
    static const std::string whole = Cp932("全孔引き");
    if (NumberIn(bolts->Cell(kRows)) != 1.0 || bolts->Cell(kForm) != whole) {
        build_.Omit(bolts->Place(NumberIn(bolts->Cell(kRows)) != 1.0 ? kRows : kForm),
                    "片側2行以上または千鳥のボルトは，行の間隔が入力にないため図に表していません．", {},
                    OmissionKind::Limit);
        return;
    }
    if (std::abs(size(kBc) + 2 * size(kBe) - width) > kTouch) {
        build_.Omit(shape->Place(kWidth), "連結板の幅Bが Bfc + 2×Bfe (" + LengthText(size(kBc) + 2 * size(kBe))
                                              + "mm)と違うため，連結板を図にできません．");
        return;
    }
    const double count = NumberIn(bolts->Cell(kCount)).value_or(0);
    constexpr double most = 120;
    if (!(count >= 2) || count > most || std::fmod(count, 2) != 0) {
        build_.Omit(bolts->Place(kCount), "FLG本数(全)が2から120の偶数ではないため，連結板を図にできません．");
        return;
    }
    const auto columns = static_cast<std::size_t>(count / 2);
    // The page tells the left end: there the flange ends on the left and the plate on the right.
    const std::size_t flangeEdge = end_.end == 0 ? kLeftEdge : kRightEdge;
    const std::size_t plateEdge = end_.end == 0 ? kRightEdge : kLeftEdge;
    const double first = size(kLc) / 2;
    const double last = first + static_cast<double>(columns - 1) * size(kLd);
    const double plateEnd = last + size(plateEdge);
    const double flangeBegin = first - size(flangeEdge);
    half_ = std::max(half_, plateEnd + kBeyond);
    if (shape->Size(kNotchRadius).value_or(0) > 0)
        build_.Omit(shape->Place(kNotchRadius), "連結板の切込み(R)は図に表していません．", {}, OmissionKind::Limit);
    const double flangeWidth = section_ ? section_->Size(part == MemberPart::Upper ? 4 : 6).value_or(0) : 0;
    if (flangeWidth > 0)
        Rectangle(DrawingLayer::Flange, toBeam_ * flangeBegin, toBeam_ * half_, middle - flangeWidth / 2,
                  middle + flangeWidth / 2, section_->Place(part == MemberPart::Upper ? 4 : 6));
    Rectangle(DrawingLayer::SplicePlate, 0, toBeam_ * plateEnd, middle - width / 2, middle + width / 2,
              shape->Place(kWidth));
    GirderLine(0, middle - width, middle + width, {});
    build_.Label({toBeam_ * half_, middle}, Cp932(FlangeName(part)), Outward(), {});
    build_.Label({toBeam_ * plateEnd / 2, middle + std::max(width, flangeWidth) / 2 + kApart / 4},
                 LengthText(shape->Size(kThick).value_or(0)) + "x" + LengthText(width) + "  "
                     + std::string(bolts->Cell(kKind)) + " n=" + std::string(bolts->Cell(kCount)),
                 LabelRow::AtPoint, shape->Place(kThick));
    const double radius = BoltRadius(build_, *bolts, kKind);
    if (!(radius > 0))
        return;
    std::vector<double> xs{0};
    std::vector<SourceCell> sources{pitches->Place(kLc)};
    for (std::size_t column = 0; column < columns; ++column) {
        const double x = first + static_cast<double>(column) * size(kLd);
        for (const double side : {-1.0, 1.0})
            build_.Circle(DrawingLayer::Bolt, {toBeam_ * x, middle + side * size(kBc) / 2}, radius,
                          pitches->Place(column == 0 ? kLc : kLd));
        xs.push_back(x);
        sources.push_back(pitches->Place(column + 1 == columns ? plateEdge : kLd));
    }
    xs.push_back(plateEnd);
    sources.pop_back();
    sources.push_back(pitches->Place(plateEdge));
    if (toBeam_ < 0) {
        std::ranges::transform(xs, xs.begin(), [](double x) { return -x; });
        std::ranges::reverse(xs);
        std::ranges::reverse(sources);
    }
    AddChain(build_, FlangeName(part), xs, sources);
}

} // namespace sbd
