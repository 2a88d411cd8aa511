#include "drawing/beam_end_detail.h"

#include "drawing/bolted_splice.h"
#include "drawing/cross_members.h"
#include "drawing/cross_section.h"
#include "project/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <set>

namespace sbd {

namespace {

constexpr int kConnections = 551;
constexpr int kPlateTypes = 552;
constexpr int kPlateShapes = 553;
constexpr int kPlateBolts = 554;
constexpr int kPlateSpacings = 555;
constexpr int kLappedWebs = 556;
constexpr int kSplicePlates = 557;
constexpr int kSpliceBolts = 558;
constexpr int kFlangeSpacings = 559;
constexpr int kWebSpacings = 560;
constexpr int kBrackets = 561;
constexpr int kGussets = 562;
constexpr int kGussetBolts = 563;
constexpr int kSections = 533;

constexpr double kTouch = 0.5;      // mm
constexpr double kMostSize = 5'000; // of a plate, mm
constexpr double kApart = 300;      // between parts
constexpr double kLeastHalf = 400;  // of the beam's plates from the middle of a splice
constexpr double kBeyond = 300;     // of the beam's plates beyond the splice plates
constexpr double kBeside = 300;     // names of the parts, behind those of the measures

enum class Part { Upper, Lower };

/// Bolts in columns of unequal steps: blocks 556 and 563.
struct LappedBolts {
    std::vector<double> columns; ///< from the edge at the girder
    std::vector<double> levels;  ///< down from the first bolt's edge
};

class MemberEndDrawer {
public:
    MemberEndDrawer(const CSbdData& data, const AnalysisResults& results, const MemberEnd& end)
        : data_(data)
        , results_(results)
        , end_(end)
        , grid_(data, results)
        , toBeam_(end.end == 0 ? 1 : -1)
        , sections_(data, kSections, 1)
    {
    }

    BridgeDrawing Make();

private:
    /// The row of a block for this end; nothing, and omitted, without any. `parts`: as LastMemberRow takes them.
    [[nodiscard]] std::optional<SpliceRow> RowOf(const CTableRows& rows, int block,
                                                 std::span<const std::string> parts = {}, std::string_view name = {});
    /// A length above 0 of a row; 0, and omitted, if it is none.
    [[nodiscard]] double Length(const SpliceRow& row, std::size_t column);
    [[nodiscard]] std::optional<double> WebHeight(std::optional<SpliceRow> spacings);
    /// Of a label at the end of the beam's plates.
    [[nodiscard]] LabelRow Outward() const { return toBeam_ > 0 ? LabelRow::Behind : LabelRow::Ahead; }
    void Rectangle(DrawingLayer layer, double from, double to, double bottom, double top, SourceCell source);
    void GirderLine(double x, double bottom, double top, SourceCell source);

    void Bracket();
    void BracketFlange(Part part, double middle, const std::optional<SpliceRow>& bracket);
    void BracketWeb(double height, const std::optional<SpliceRow>& spacings, const std::optional<SpliceRow>& bracket);
    [[nodiscard]] bool IsEvenSided(const SpliceRow& row, std::span<const std::array<std::size_t, 2>> columns);
    void LappedWeb(double begin, double top);
    void WeldedPlate(Part part, double middle);
    [[nodiscard]] std::optional<LappedBolts> LappedBoltsOf(const SpliceRow& row, std::size_t first);
    void Gussets();
    void Gusset(Part part, double chord);

    const CSbdData& data_;
    const AnalysisResults& results_;
    MemberEnd end_;
    CDrawingBuild build_;
    CBridgeGrid grid_;
    double toBeam_; ///< x grows towards the beam, or falls
    CTableRows sections_;
    std::optional<SpliceRow> section_;
    double half_ = kLeastHalf;
    std::set<double> namedAt_; // where a line of the girder has its name already
};

const std::array<std::string, 2>& FlangeWords(Part part)
{
    static const std::array<std::string, 2> upper{"UFLG", "FLG"};
    static const std::array<std::string, 2> lower{"LFLG", "FLG"};
    return part == Part::Upper ? upper : lower;
}

const std::array<std::string, 2>& ChordWords(Part part)
{
    static const std::array<std::string, 2> upper{Cp932("上"), Cp932("上下")};
    static const std::array<std::string, 2> lower{Cp932("下"), Cp932("上下")};
    return part == Part::Upper ? upper : lower;
}

const char* FlangeName(Part part)
{
    return part == Part::Upper ? "上フランジ" : "下フランジ";
}

std::optional<SpliceRow> MemberEndDrawer::RowOf(const CTableRows& rows, int block, std::span<const std::string> parts,
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

double MemberEndDrawer::Length(const SpliceRow& row, std::size_t column)
{
    const std::optional<double> value = NumberIn(row.Cell(column));
    if (value && *value > 0 && *value <= kMostSize)
        return *value;
    build_.Omit(row.Place(column), "寸法が正の数ではないか，大きすぎるため，図にできません．単位はmmです．");
    return 0;
}

void MemberEndDrawer::Rectangle(DrawingLayer layer, double from, double to, double bottom, double top,
                                SourceCell source)
{
    build_.Shape(layer, ShapeKind::Polygon, {{from, top}, {to, top}, {to, bottom}, {from, bottom}}, source);
}

void MemberEndDrawer::GirderLine(double x, double bottom, double top, SourceCell source)
{
    build_.Shape(DrawingLayer::Girder, ShapeKind::Line, {{x, top}, {x, bottom}}, source);
    if (namedAt_.insert(x).second)
        build_.Label({x, top}, std::string(grid_.girders.Name(end_.gap + static_cast<std::size_t>(end_.end))),
                     LabelRow::Above, source);
}

/// The height of the beam's web: by its depth at the splice (560), else by that at its ends where these are equal.
std::optional<double> MemberEndDrawer::WebHeight(std::optional<SpliceRow> spacings)
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

// --- splice of a bracket -----------------------------------------------------------------------------

/// Has the girder's side no measures of its own? Pairs of columns: of that side, of the beam's side.
bool MemberEndDrawer::IsEvenSided(const SpliceRow& row, std::span<const std::array<std::size_t, 2>> columns)
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

void MemberEndDrawer::BracketFlange(Part part, double middle, const std::optional<SpliceRow>& bracket)
{
    enum PlateColumn : std::size_t { kOuterThick = 6, kInnerThick = 7, kWidth = 8, kPlateLength = 10 };
    enum BoltColumn : std::size_t { kKind = 6, kCount = 7, kForm = 8 };
    static constexpr std::array<std::size_t, 2> plateSides[] = {{11, 8}, {12, 9}, {13, 10}};
    static constexpr std::array<std::size_t, 2> boltSides[] = {{9, 7}, {10, 8}};
    static constexpr std::array<std::size_t, 2> spacingSides[] = {{11, 6}, {12, 7}, {13, 8}, {14, 9}, {15, 10}};
    const bool isUpper = part == Part::Upper;
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

void MemberEndDrawer::BracketWeb(double height, const std::optional<SpliceRow>& spacings,
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

void MemberEndDrawer::Bracket()
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
    BracketFlange(Part::Upper, kApart + widthOf(4) / 2, bracket);
    BracketFlange(Part::Lower, -height.value_or(0) - kApart - widthOf(6) / 2, bracket);
    build_.Note("フランジは上から見た図です．仕口の側のフランジは継手側の幅(BU2，BL2)で描いています．");
}

// --- web lapped on a stiffener, plates welded to the girder's web ------------------------------------

/// Bolts by the number of columns and parts, Ld, Le, the distance of the first one (its column `first` + 4) and the steps
/// in the last cell.
std::optional<LappedBolts> MemberEndDrawer::LappedBoltsOf(const SpliceRow& row, std::size_t first)
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
void MemberEndDrawer::LappedWeb(double begin, double top)
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
void MemberEndDrawer::WeldedPlate(Part part, double middle)
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
    enum ShapeColumn : std::size_t { kWidth = 6, kThick = 7 };
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
    const double flangeWidth = section_ ? section_->Size(part == Part::Upper ? 4 : 6).value_or(0) : 0;
    if (flangeWidth > 0)
        Rectangle(DrawingLayer::Flange, toBeam_ * flangeBegin, toBeam_ * half_, middle - flangeWidth / 2,
                  middle + flangeWidth / 2, section_->Place(part == Part::Upper ? 4 : 6));
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

// --- gussets of a sway bracing -----------------------------------------------------------------------

/// A gusset whose outer line the cells tell whole: the lower edge level (TYPE1 = 1), the free edge upright (TYPE2 = 1).
/// `chord`: the level of the chord's axis.
void MemberEndDrawer::Gusset(Part part, double chord)
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
    const auto row = RowOf(rows, kGussets, ChordWords(part), part == Part::Upper ? "上弦材側" : "下弦材側");
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
    const double up = part == Part::Upper ? 1 : -1; // outward from the chord
    const auto at = [&](double x, double y) { return DrawnPoint{toBeam_ * x, chord + up * y}; };
    build_.Shape(DrawingLayer::Gusset, ShapeKind::Polygon,
                 {at(0, d1), at(width, d1), at(width, -d2), at(d5, -d4), at(0, -d4)}, row->Place(kWidth));
    build_.Shape(DrawingLayer::CrossLine, ShapeKind::Line, {at(0, 0), at(width + kBeyond, 0)}, {});
    build_.Label(at(width, d1 / 2), "d1 " + LengthText(d1), Outward(), row->Place(kD1));
    build_.Label(at(width, -d2 / 2), "d2 " + LengthText(d2), Outward(), row->Place(kD2));
    build_.Label(at(0, -d4 / 2), "d4 " + LengthText(d4), toBeam_ > 0 ? LabelRow::Ahead : LabelRow::Behind,
                 row->Place(kD4));
    build_.Label(at((width + d5) / 4, -d4 / 2),
                 Cp932(part == Part::Upper ? "上 " : "下 ") + "t=" + LengthText(row->Size(kThick).value_or(0)),
                 LabelRow::AtPoint, row->Place(kThick));
    std::vector<double> xs{0, toBeam_ * width};
    std::ranges::sort(xs);
    AddChain(build_, part == Part::Upper ? "上 W" : "下 W", xs, {row->Place(kWidth)});

    const CTableRows boltRows(data_, kGussetBolts, 1);
    const auto boltRow = RowOf(boltRows, kGussetBolts, ChordWords(part), part == Part::Upper ? "上弦材側" : "下弦材側");
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

void MemberEndDrawer::Gussets()
{
    constexpr double apart = 1'000; // between both chords: their true distance stands in the section
    Gusset(Part::Upper, 0);
    Gusset(Part::Lower, -apart);
    build_.Note("ガセットは取付縁から描いています．上下の間隔は実際と違います．");
}

// -----------------------------------------------------------------------------------------------------

BridgeDrawing MemberEndDrawer::Make()
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
            WeldedPlate(Part::Upper, 0);
        if (hasLower)
            WeldedPlate(Part::Lower, hasUpper ? -level : 0);
        // Beside the plates: how far its end is from the girder is not told.
        LappedWeb(toBeam_ * (half_ + 3 * kApart), 0);
        build_.Note(
            "連結板は主桁ウェブの中心から，ウェブは端から描いています(両者の間隔は実際と違います)．切込みは描いていません．");
    } else {
        build_.Omit(connection->Place(typeColumn), "がどの連結形式か分からないため，図にできません．", type);
    }
    return build_.Take();
}

} // namespace

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
    return MemberEndDrawer(data, results, end).Make();
}

} // namespace sbd
