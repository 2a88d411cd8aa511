// The splice of a bracket (仕口): blocks 557 to 561.
#include "drawing/member_end_drawer.h"
#include "project/text.h"

#include <algorithm>

namespace sbd {

namespace {

constexpr int kSplicePlates = 557;
constexpr int kSpliceBolts = 558;
constexpr int kFlangeSpacings = 559;
constexpr int kWebSpacings = 560;
constexpr int kBrackets = 561;

} // namespace

/// Has the girder's side no measures of its own? Pairs of columns: of that side, of the beam's side.
bool CMemberEndDrawer::IsEvenSided(const SpliceRow& row, std::span<const std::array<std::size_t, 2>> columns)
{
    for (const auto& [own, other] : columns) {
        const std::string_view cell = row.Cell(own);
        if (cell.empty() || cell == "0" || cell == row.Cell(other)
            || (NumberIn(cell) && NumberIn(cell) == NumberIn(row.Cell(other))))
            continue;
        build_.Omit(row.Place(own), "主桁側の寸法が横桁側と違う継手は図に表していません．", {}, OmissionKind::Limit);
        return false;
    }
    return true;
}

void CMemberEndDrawer::BracketFlange(MemberPart part, double middle, const std::optional<SpliceRow>& bracket)
{
    enum PlateColumn : std::size_t { kOuterThick = 6, kInnerThick = 7, kWidth = 8, kPlateLength = 10 };
    enum BoltColumn : std::size_t { kKind = 6, kCount = 7, kForm = 8 };
    static constexpr std::array<std::size_t, 2> plateSides[] = {{11, 8}, {12, 9}, {13, 10}};
    static constexpr std::array<std::size_t, 2> boltSides[] = {{9, 7}, {10, 8}};
    static constexpr std::array<std::size_t, 2> spacingSides[] = {{11, 6}, {12, 7}, {13, 8}, {14, 9}, {15, 10}};
    const bool isUpper = part == MemberPart::Upper;
    const double width = section_ ? section_->Size(isUpper ? 4 : 6).value_or(0) : 0;
    if (width > 0)
        Rectangle(DrawingLayer::Flange, 0, toBeam_ * half_, middle - width / 2, middle + width / 2,
                  section_->Place(isUpper ? 4 : 6));
    if (bracket) {
        const std::size_t widthColumn = isUpper ? 6 : 15;
        const std::size_t lengthColumn = isUpper ? 8 : 7; // LU, L
        const double atSplice = Length(*bracket, widthColumn);
        const double length = Length(*bracket, lengthColumn);
        if (atSplice > 0 && length > 0) {
            Rectangle(DrawingLayer::Flange, 0, -toBeam_ * std::min(half_, length), middle - atSplice / 2,
                      middle + atSplice / 2, bracket->Place(widthColumn));
            GirderLine(-toBeam_ * length, middle - atSplice, middle + atSplice, bracket->Place(lengthColumn));
            std::vector<double> ends{0, -toBeam_ * length};
            std::ranges::sort(ends);
            AddChain(build_, isUpper ? "仕口長さ上" : "仕口長さ下", ends, {bracket->Place(lengthColumn)});
        }
    }
    build_.Label({toBeam_ * (half_ + kBeside), middle}, Cp932(FlangeName(part)), Outward(), {});
    const CTableRows plates(data_, kSplicePlates, 1);
    const CTableRows numbers(data_, kSpliceBolts, 1);
    const CTableRows spacings(data_, kFlangeSpacings, 1);
    const auto plate = RowOf(plates, kSplicePlates, FlangeWords(part), FlangeName(part));
    const auto bolts = RowOf(numbers, kSpliceBolts, FlangeWords(part), FlangeName(part));
    const auto pitches = RowOf(spacings, kFlangeSpacings, FlangeWords(part), FlangeName(part));
    if (!plate || !IsEvenSided(*plate, plateSides))
        return;
    const double plateWidth = Length(*plate, kWidth);
    const double length = Length(*plate, kPlateLength);
    if (!(plateWidth > 0) || !(length > 0))
        return;
    Rectangle(DrawingLayer::SplicePlate, -length / 2, length / 2, middle - plateWidth / 2, middle + plateWidth / 2,
              plate->Place(kWidth));
    OmitInnerPlates(build_, *plate, kInnerThick);
    std::string text = Cp932("外 ") + LengthText(plate->Size(kOuterThick).value_or(0)) + "x" + LengthText(plateWidth)
                       + "x" + LengthText(length);
    if (const double inner = plate->Size(kInnerThick).value_or(0); inner > 0)
        text += Cp932("  内 t=") + LengthText(inner);
    if (bolts)
        text += "  " + std::string(bolts->Cell(kKind)) + " n=" + std::string(bolts->Cell(kCount));
    build_.Label({0, middle + std::max(width, plateWidth) / 2 + kApart / 4}, std::move(text), LabelRow::AtPoint,
                 plate->Place(kOuterThick));
    if (!bolts || !pitches || !IsEvenSided(*bolts, boltSides) || !IsEvenSided(*pitches, spacingSides))
        return;
    const FlangeBoltCells cells{
        *pitches, 6, 7, 8, 9, 10, {}, *bolts, kCount, kForm, kKind, length, plateWidth, "FLG片側本数", toBeam_ * half_};
    if (const auto places = FlangeBoltsOf(build_, cells))
        DrawFlangeBolts(build_, cells, *places, middle, FlangeName(part));
}

void CMemberEndDrawer::BracketWeb(double height, const std::optional<SpliceRow>& spacings,
                                  const std::optional<SpliceRow>& bracket)
{
    static const std::array<std::string, 1> words{"WEB"};
    constexpr std::size_t webThick = 8;
    constexpr std::size_t lengthColumn = 7;
    const double length = bracket ? Length(*bracket, lengthColumn) : 0; // of the bracket
    const double toGirder = length > 0 ? std::min(half_, length) : half_;
    Rectangle(DrawingLayer::Web, -toBeam_ * toGirder, toBeam_ * half_, -height, 0,
              section_ ? section_->Place(webThick) : SourceCell());
    if (length > 0)
        GirderLine(-toBeam_ * length, -height, 0, bracket->Place(lengthColumn));
    build_.Label({toBeam_ * (half_ + kBeside), -height / 2}, Cp932("ウェブ"), Outward(), {});
    const CTableRows plates(data_, kSplicePlates, 1);
    const CTableRows numbers(data_, kSpliceBolts, 1);
    WebBoltCells cells;
    cells.plate = RowOf(plates, kSplicePlates, words, "ウェブ");
    const auto bolts = RowOf(numbers, kSpliceBolts, words, "ウェブ");
    if (!bolts || !spacings)
        return;
    cells.spacings = *spacings;
    cells.numbers = *bolts;
    cells.kind = 6;
    cells.columns = 7;
    cells.columnsOfBothSides = true;
    cells.parts = 8;
    cells.top = 0;
    cells.bottom = -height;
    cells.labelsAt = toBeam_ * half_;
    cells.plateWidth = 8;
    cells.plateLength = 10;
    DrawWebBolts(build_, cells);
}

void CMemberEndDrawer::Bracket()
{
    const CTableRows plates(data_, kSplicePlates, 1);
    constexpr std::size_t lengthColumn = 10;
    constexpr std::size_t most = 2'000; // rows
    for (std::size_t row = plates.First(); row < plates.Count() && row < plates.First() + most; ++row)
        if (plates.Cell(row, 5).ends_with("FLG"))
            half_ = std::max(half_,
                             std::min(NumberIn(plates.Cell(row, lengthColumn)).value_or(0), kMostSize) / 2 + kBeyond);
    const CTableRows webRows(data_, kWebSpacings, 1);
    const auto spacings = RowOf(webRows, kWebSpacings);
    const auto height = WebHeight(spacings);
    const CTableRows bracketRows(data_, kBrackets, 1);
    const auto bracket = RowOf(bracketRows, kBrackets);
    const auto widthOf = [&](std::size_t column) {
        return section_ ? std::clamp(section_->Size(column).value_or(0), kApart, kMostSize) : kApart;
    };
    const double upper = kApart + widthOf(4);
    const double lower = -height.value_or(0) - kApart - widthOf(6);
    build_.Shape(DrawingLayer::Splice, ShapeKind::Line, {{0, upper + kApart / 4}, {0, lower - kApart / 4}}, {});
    if (height)
        BracketWeb(*height, spacings, bracket);
    BracketFlange(MemberPart::Upper, kApart + widthOf(4) / 2, bracket);
    BracketFlange(MemberPart::Lower, -height.value_or(0) - kApart - widthOf(6) / 2, bracket);
    build_.Note("フランジは上から見た図です．仕口の側のフランジは継手側の幅(BU2，BL2)で描いています．");
}

} // namespace sbd
