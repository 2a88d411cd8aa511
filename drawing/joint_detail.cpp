#include "drawing/joint_detail.h"

#include "drawing/beam_end_detail.h"
#include "drawing/bolted_splice.h"
#include "drawing/box_flange_splice.h"
#include "drawing/girder_depth.h"
#include "drawing/girder_joints.h"
#include "drawing/girder_stiffeners.h"
#include "project/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace sbd {

namespace {

constexpr int kBolts = 341;
constexpr int kPlates = 342;
constexpr int kFlangePitches = 343;
constexpr int kWebPitches = 344;
constexpr std::size_t kPart = 4; // column of the part's word in each of them
/// Columns of 341, 342 and 343.
enum BoltColumn : std::size_t { kKind = 5, kCount = 6, kForm = 7 };
enum PlateColumn : std::size_t { kOuterThick = 5, kInnerThick = 6, kOuterWidth = 7, kPlateLength = 9 };
enum SpacingColumn : std::size_t { kLc = 5, kLd = 6, kLe = 7, kBc = 8, kBe = 9, kBd = 10 };

constexpr double kBeyond = 300; // of the girder's plates beyond the splice plates
constexpr double kApart = 500;  // between the three parts

enum class Part { Upper, Web, Lower };

class JointDrawer {
public:
    JointDrawer(const CSbdData& data, const AnalysisResults& results, std::size_t girder, GirderSide side,
                std::size_t joint)
        : data_(data)
        , joint_(joint)
        , grid_(data, results)
        , line_(apart_, data, grid_, girder, side)
        , bolts_(data, kBolts, 1)
        , plates_(data, kPlates, 1)
        , flangePitches_(data, kFlangePitches, 1)
        , webPitches_(data, kWebPitches, 1)
    {
    }

    BridgeDrawing Make();

private:
    [[nodiscard]] bool IsOfPart(std::string_view word, Part part, SourceCell place);
    [[nodiscard]] std::vector<DrawnPoint> AreaOf(Part part) const;
    [[nodiscard]] bool IsOfThisJoint(const CTableRows& rows, std::size_t row);
    [[nodiscard]] std::optional<SpliceRow> RowOf(const CTableRows& rows, int block, Part part);
    void OmitRibs();
    void Flange(Part part, const std::optional<SectionPlate>& left, const std::optional<SectionPlate>& right,
                double middle);
    void BoxFlange(Part part, const std::optional<SectionPlate>& left, const std::optional<SectionPlate>& right,
                   double middle, const BoxFlangeWidths& widths);
    void Web();
    [[nodiscard]] bool HasPlateSize(const SpliceRow& plate);
    [[nodiscard]] static std::string PlateText(const SpliceRow& plate, const std::optional<SpliceRow>& bolts);
    void Rectangle(DrawingLayer layer, double left, double right, double bottom, double top, SourceCell source);

    const CSbdData& data_;
    std::size_t joint_;
    CDrawingBuild build_;
    CDrawingBuild apart_; // what the whole girder cannot draw is told in its elevation
    CBridgeGrid grid_;
    CGirderLine line_;
    CTableRows bolts_;
    CTableRows plates_;
    CTableRows flangePitches_;
    CTableRows webPitches_;
    std::vector<GirderSplice> splices_;
    std::array<std::array<double, 2>, 3> levels_{}; // upper and lower edge of each part
    double half_ = 0;                               // of the girder's plates, along it
    double webTop_ = 0;                             // levels
    double webBottom_ = 0;
};

bool JointDrawer::IsOfPart(std::string_view word, Part part, SourceCell place)
{
    if (part == Part::Upper)
        return word == "UFLG" || word == "FLG";
    if (part == Part::Lower)
        return word == "LFLG" || word == "FLG";
    if (word == "LWEB" || word == "RWEB" || word == "WEB") {
        const bool left = line_.Side() == GirderSide::Left;
        return word == "WEB" || !line_.IsBox() || (word == "LWEB") == left;
    }
    if (word.ends_with("FLG") || word.ends_with("RIB"))
        return false;
    return line_.Shows(line_.SidesOf(build_, word, place));
}

/// A part's place on the drawing.
std::vector<DrawnPoint> JointDrawer::AreaOf(Part part) const
{
    const auto& [top, bottom] = levels_[static_cast<std::size_t>(part)];
    return {{-half_, top}, {half_, top}, {half_, bottom}, {-half_, bottom}};
}

/// Joints of another girder perhaps are not told: only a row that means this one is of interest.
bool JointDrawer::IsOfThisJoint(const CTableRows& rows, std::size_t row)
{
    constexpr std::size_t fromColumn = 2;
    if (!line_.IsNamed(build_, rows, row, 0))
        return false;
    const auto numberOf = [&](std::size_t column) {
        return std::ranges::find(splices_, rows.Cell(row, column), &GirderSplice::name) - splices_.begin();
    };
    const auto [first, last] = std::minmax({numberOf(fromColumn), numberOf(fromColumn + 1)});
    const auto joint = static_cast<std::ptrdiff_t>(joint_);
    return last < std::ssize(splices_) && first <= joint && joint <= last;
}

/// Splices of ribs are not drawn: the first row of each block says so.
void JointDrawer::OmitRibs()
{
    for (const CTableRows* rows : {&bolts_, &plates_, &flangePitches_, &webPitches_})
        for (std::size_t row = rows->First(); row < rows->Count(); ++row)
            if (rows->Cell(row, kPart).ends_with("RIB") && IsOfThisJoint(*rows, row)) {
                build_.Omit(rows->Place(row, kPart), "縦リブの継手は図に表していません．", {}, OmissionKind::Limit);
                break;
            }
}

/// The one row of a block that speaks of a part; nothing, and omitted, if there is none or more than one: which one is used
/// the pages do not say.
std::optional<SpliceRow> JointDrawer::RowOf(const CTableRows& rows, int block, Part part)
{
    std::optional<SpliceRow> result;
    for (std::size_t row = rows.First(); row < rows.Count(); ++row) {
        if (rows.IsEmpty(row) || !IsOfPart(rows.Cell(row, kPart), part, rows.Place(row, kPart))
            || !IsOfThisJoint(rows, row))
            continue;
        if (result) {
            build_.Omit(rows.Place(row, kPart),
                        "この継手の同じ部位の行が2行以上あり，どの行か決まらないため，図にできません．");
            return std::nullopt;
        }
        result = SpliceRow{&rows, row};
    }
    static constexpr const char* names[] = {"上フランジ", "腹板", "下フランジ"};
    if (!result)
        build_.Omit({block, 0, 0},
                    std::string(names[static_cast<int>(part)]) + "の行がこの継手にないため，図にできません．");
    else
        build_.Use(result->Place(0), AreaOf(part), false);
    return result;
}

void JointDrawer::Rectangle(DrawingLayer layer, double left, double right, double bottom, double top, SourceCell source)
{
    build_.Shape(layer, ShapeKind::Polygon, {{left, top}, {right, top}, {right, bottom}, {left, bottom}}, source);
}

/// Are width and length of a splice plate given? They need not be; then nothing of the splice is drawn.
bool JointDrawer::HasPlateSize(const SpliceRow& plate)
{
    for (const std::size_t column : {kOuterWidth, kPlateLength})
        if (!(plate.Size(column).value_or(0) > 0)) {
            build_.Omit(plate.Place(column),
                        "添接板の幅または長さが入力されていないため，添接板とボルトを図にできません．", {},
                        OmissionKind::Limit);
            return false;
        }
    return true;
}

/// "外 12x2420x540  内 t=12  M22(S10T) n=64" (CP932).
std::string JointDrawer::PlateText(const SpliceRow& plate, const std::optional<SpliceRow>& bolts)
{
    std::string text = Cp932("外 ") + LengthText(plate.Size(kOuterThick).value_or(0)) + "x"
                       + LengthText(plate.Size(kOuterWidth).value_or(0)) + "x"
                       + LengthText(plate.Size(kPlateLength).value_or(0));
    if (const double inner = plate.Size(kInnerThick).value_or(0); inner > 0)
        text += Cp932("  内 t=") + LengthText(inner);
    if (bolts)
        text += "  " + std::string(bolts->Cell(kKind)) + " n=" + std::string(bolts->Cell(kCount));
    return text;
}

/// A flange from above, its middle at the level `middle`.
void JointDrawer::Flange(Part part, const std::optional<SectionPlate>& left, const std::optional<SectionPlate>& right,
                         double middle)
{
    if (left)
        Rectangle(DrawingLayer::Web, -half_, 0, middle - left->widthTo / 2, middle + left->widthTo / 2, left->source);
    if (right)
        Rectangle(DrawingLayer::Web, 0, half_, middle - right->widthFrom / 2, middle + right->widthFrom / 2,
                  right->source);
    build_.Label({-half_, middle}, Cp932(part == Part::Upper ? "上フランジ" : "下フランジ"), LabelRow::Ahead, {});
    const std::optional<SpliceRow> bolts = RowOf(bolts_, kBolts, part);
    if (bolts && bolts->Cell(kForm) == Cp932("溶接"))
        return; // no plates
    const std::optional<SpliceRow> plate = RowOf(plates_, kPlates, part);
    const std::optional<SpliceRow> pitches = RowOf(flangePitches_, kFlangePitches, part);
    if (!plate)
        return;
    const double width = plate->Size(kOuterWidth).value_or(0);
    const double length = plate->Size(kPlateLength).value_or(0);
    if (!HasPlateSize(*plate))
        return;
    Rectangle(DrawingLayer::SplicePlate, -length / 2, length / 2, middle - width / 2, middle + width / 2,
              plate->Place(kOuterWidth));
    OmitInnerPlates(build_, *plate, kInnerThick);
    build_.Label({half_ / 2, middle + width / 2 + kApart / 4}, PlateText(*plate, bolts), LabelRow::AtPoint,
                 plate->Place(kOuterThick));
    if (!bolts || !pitches)
        return;
    const FlangeBoltCells cells{*pitches, kLc,   kLd,   kLe,    kBc,   kBe,       kBd,  *bolts,
                                kCount,   kForm, kKind, length, width, "FLG本数", half_};
    if (const auto places = FlangeBoltsOf(build_, cells))
        DrawFlangeBolts(build_, cells, *places, middle, part == Part::Upper ? "上フランジ" : "下フランジ");
}

/// A flange of a box from above; left is above. Webs and ribs lie below it or stand on it: broken lines.
void JointDrawer::BoxFlange(Part part, const std::optional<SectionPlate>& left,
                            const std::optional<SectionPlate>& right, double middle, const BoxFlangeWidths& widths)
{
    const char* const title = part == Part::Upper ? "上フランジ" : "下フランジ";
    const double leftWeb = middle + (widths.webs + widths.rightOut - widths.leftOut) / 2;
    const double top = leftWeb + widths.leftOut;
    const double bottom = leftWeb - widths.webs - widths.rightOut;
    if (left)
        Rectangle(DrawingLayer::Web, -half_, 0, bottom, top, left->source);
    if (right)
        Rectangle(DrawingLayer::Web, 0, half_, bottom, top, right->source);
    build_.Label({-half_, middle}, Cp932(title), LabelRow::Ahead, {});
    const auto along = [&](double place, SourceCell source) {
        build_.Shape(DrawingLayer::Rib, ShapeKind::Line, {{-half_, leftWeb - place}, {half_, leftWeb - place}}, source,
                     true);
    };
    along(0, widths.outSource);
    along(widths.webs, widths.outSource);
    for (const double rib : widths.ribs)
        along(rib, widths.ribSource);
    const auto beside = [&](double from, double to, std::string_view name, SourceCell source) {
        build_.Label({half_, (from + to) / 2}, std::string(name) + LengthText(from - to), LabelRow::Behind, source);
    };
    beside(top, leftWeb, Cp932("突出 "), widths.outSource);
    beside(leftWeb, leftWeb - widths.webs, Cp932("腹板間隔 "), widths.outSource);
    beside(leftWeb - widths.webs, bottom, Cp932("突出 "), widths.outSource);
    const std::optional<SpliceRow> bolts = RowOf(bolts_, kBolts, part);
    if (bolts && bolts->Cell(kForm) == Cp932("溶接"))
        return;
    const std::optional<SpliceRow> plate = RowOf(plates_, kPlates, part);
    const std::optional<SpliceRow> pitches = RowOf(flangePitches_, kFlangePitches, part);
    if (!plate || !pitches || !bolts || !HasPlateSize(*plate))
        return;
    const double length = plate->Size(kPlateLength).value_or(0);
    const auto rows =
        BoxFlangeRowsOf(build_, *pitches, widths, plate->Size(kOuterWidth).value_or(0), plate->Place(kOuterWidth));
    if (!rows)
        return;
    Rectangle(DrawingLayer::SplicePlate, -length / 2, length / 2, leftWeb - rows->right, leftWeb - rows->left,
              plate->Place(kOuterWidth));
    OmitInnerPlates(build_, *plate, kInnerThick);
    build_.Label({half_ / 2, leftWeb - rows->left + kApart / 4}, PlateText(*plate, bolts), LabelRow::AtPoint,
                 plate->Place(kOuterThick));
    const auto size = [&](std::size_t column) { return pitches->Size(column).value_or(-1); };
    for (const std::size_t column : {kLc, kLd, kLe})
        if (size(column) < 0) {
            build_.Omit(pitches->Place(column), "ボルトの間隔が数値ではないため，ボルトを図にできません．");
            return;
        }
    const auto steps = StepsIn(length / 2 - size(kLc) / 2 - size(kLe), size(kLd));
    if (!steps) {
        build_.Omit(pitches->Place(kLd), "Lc，LD，Leの合計が添接板の長さに合わないため，ボルトを図にできません．");
        return;
    }
    if (bolts->Cell(kForm) != Cp932("全孔引き")) {
        build_.Omit(bolts->Place(kForm), "この孔引き形式のボルトの位置は図に表していません．", {}, OmissionKind::Limit);
        return;
    }
    const std::size_t count = (*steps + 1) * rows->rows.size();
    if (NumberIn(bolts->Cell(kCount)).value_or(-1) != static_cast<double>(count)) {
        build_.Omit(bolts->Place(kCount), "FLG本数が，添接板とボルト間隔から決まる本数(" + std::to_string(count)
                                              + "本)と違うため，ボルトを図にできません．");
        return;
    }
    const double radius = BoltRadius(build_, *bolts, kKind);
    if (!(radius > 0))
        return;
    std::vector<double> xs{-length / 2};
    std::vector<SourceCell> sources{pitches->Place(kLe)};
    for (std::size_t i = 0; i < 2 * (*steps + 1); ++i) {
        const bool isLeft = i <= *steps;
        const auto fromMiddle = static_cast<double>(isLeft ? *steps - i : i - *steps - 1);
        const double x = (isLeft ? -1 : 1) * (size(kLc) / 2 + fromMiddle * size(kLd));
        for (const double row : rows->rows)
            build_.Circle(DrawingLayer::Bolt, {x, leftWeb - row}, radius, pitches->Place(fromMiddle == 0 ? kLc : kLd));
        xs.push_back(x);
        sources.push_back(pitches->Place(i == *steps ? kLc : i == 2 * *steps + 1 ? kLe : kLd));
    }
    xs.push_back(length / 2);
    sources.push_back(pitches->Place(kLe));
    AddChain(build_, title, xs, sources);
}

void JointDrawer::Web()
{
    Rectangle(DrawingLayer::Web, -half_, half_, webBottom_, webTop_, {});
    build_.Label({-half_, (webTop_ + webBottom_) / 2}, Cp932("腹板"), LabelRow::Ahead, {});
    const std::optional<SpliceRow> bolts = RowOf(bolts_, kBolts, Part::Web);
    if (bolts && bolts->Cell(kForm) == Cp932("溶接"))
        return;
    const std::optional<SpliceRow> plate = RowOf(plates_, kPlates, Part::Web);
    const std::optional<SpliceRow> pitches = RowOf(webPitches_, kWebPitches, Part::Web);
    if (!bolts || !pitches)
        return;
    WebBoltCells cells;
    cells.spacings = *pitches;
    cells.numbers = *bolts;
    cells.kind = kKind;
    cells.columns = kCount;
    cells.parts = kForm; // of a web the number of equal parts
    cells.top = webTop_;
    cells.bottom = webBottom_;
    cells.labelsAt = half_;
    constexpr std::size_t reckoned = 11;
    cells.reckoned = reckoned;
    cells.plate = plate;
    cells.plateWidth = kOuterWidth;
    cells.plateLength = kPlateLength;
    DrawWebBolts(build_, cells);
}

BridgeDrawing JointDrawer::Make()
{
    if (line_.StationCount() < 2) {
        build_.Note("この桁の横断線が2本に足りないため，図にできません．");
        return build_.Take();
    }
    const GirderStiffeners stiffeners = StiffenersOf(apart_, data_, line_);
    splices_ = SplicesOf(apart_, data_, line_, stiffeners);
    if (joint_ >= splices_.size()) {
        build_.Note("この桁に継手がないため，図にできません．");
        return build_.Take();
    }
    const GirderSplice& splice = splices_[joint_];
    build_.drawing.title = std::string(grid_.girders.Name(line_.Girder())) + " " + splice.name + Cp932(" 継手詳細図");
    if (line_.IsBox())
        build_.drawing.title += Cp932(line_.Side() == GirderSide::Left ? " (左腹板)" : " (右腹板)");
    const GirderPlates plates = PlatesOf(apart_, data_, line_, stiffeners);
    const GirderDepth depth = DepthOf(apart_, data_, line_);
    const std::optional<double> height = depth.At(splice.x);
    if (!height) {
        build_.Omit({311, 0, 0}, "の位置の桁高が決まらないため，継手を図にできません．", splice.name);
        return build_.Take();
    }
    constexpr double beside = 2; // mm
    const auto at = [&](const std::vector<std::optional<SectionPlate>>& of, double x) -> std::optional<SectionPlate> {
        const std::optional<std::size_t> section = plates.SectionAt(x);
        return section ? of[*section] : std::nullopt;
    };
    const auto upperLeft = at(plates.upper, splice.x - beside);
    const auto lowerLeft = at(plates.lower, splice.x - beside);
    const auto upperRight = at(plates.upper, splice.x + beside);
    const auto lowerRight = at(plates.lower, splice.x + beside);
    webTop_ = depth.upperFlangeIncluded && upperLeft ? -upperLeft->thickTo : 0;
    webBottom_ = -*height + (depth.lowerFlangeIncluded && lowerLeft ? lowerLeft->thickTo : 0);
    build_.Note("腹板の縁は，継手の左の断面の板厚で描いています．");
    constexpr double least = 700;
    half_ = least;
    for (const CTableRows* rows : {&plates_}) // as long as the longest splice plate that can be meant
        for (std::size_t row = rows->First(); row < rows->Count() && row < rows->First() + 2'000; ++row)
            if (const SpliceRow each{rows, row}; each.Cell(kPart).ends_with("FLG"))
                half_ = std::max(half_, std::min(each.Size(kPlateLength).value_or(0), 5'000.0) / 2 + kBeyond);
    // The upper flange lies above the web, the lower one below it.
    std::optional<BoxFlangeWidths> upperWidths;
    std::optional<BoxFlangeWidths> lowerWidths;
    if (line_.IsBox()) {
        std::size_t bay = 0;
        while (bay + 1 < line_.BayCount() && line_.X(bay + 1) < splice.x)
            ++bay;
        const auto widthsOf = [&](sbd::BoxFlange flange) {
            return BoxFlangeIn(build_, data_, grid_, line_.Girder(), line_.GridStation(bay), line_.GridStation(bay + 1),
                               flange);
        };
        upperWidths = widthsOf(sbd::BoxFlange::Upper);
        lowerWidths = widthsOf(sbd::BoxFlange::Lower);
    }
    const auto widest = [&](const std::optional<SectionPlate>& a, const std::optional<SectionPlate>& b,
                            const std::optional<BoxFlangeWidths>& box) {
        if (line_.IsBox())
            return box ? box->leftOut + box->webs + box->rightOut : 0.0;
        return std::max(a ? a->widthTo : 0, b ? b->widthFrom : 0);
    };
    const double upperWidth = widest(upperLeft, upperRight, upperWidths);
    const double lowerWidth = widest(lowerLeft, lowerRight, lowerWidths);
    build_.Shape(DrawingLayer::Splice, ShapeKind::Line,
                 {{0, kApart + upperWidth + kApart / 4}, {0, -*height - kApart - lowerWidth}}, splice.source);
    levels_ = {
        {{kApart + upperWidth, kApart}, {webTop_, webBottom_}, {-*height - kApart, -*height - kApart - lowerWidth}}};
    Web();
    const double upperMiddle = kApart + upperWidth / 2;
    const double lowerMiddle = -*height - kApart - lowerWidth / 2;
    if (!line_.IsBox()) {
        Flange(Part::Upper, upperLeft, upperRight, upperMiddle);
        Flange(Part::Lower, lowerLeft, lowerRight, lowerMiddle);
    } else {
        build_.Note("箱桁のフランジは上から見て，左腹板の側を上に描いています．");
        if (upperWidths)
            BoxFlange(Part::Upper, upperLeft, upperRight, upperMiddle, *upperWidths);
        if (lowerWidths)
            BoxFlange(Part::Lower, lowerLeft, lowerRight, lowerMiddle, *lowerWidths);
    }
    OmitRibs();
    return build_.Take();
}

std::vector<GirderSplice> SplicesAt(const CSbdData& data, const CBridgeGrid& grid, std::size_t girder, GirderSide side)
{
    CDrawingBuild apart;
    const CGirderLine line(apart, data, grid, girder, side);
    if (line.StationCount() < 2)
        return {};
    return SplicesOf(apart, data, line, StiffenersOf(apart, data, line));
}

} // namespace

std::vector<std::string> JointNames(const CSbdData& data, const AnalysisResults& results, std::size_t girder,
                                    GirderSide side)
{
    std::vector<std::string> names;
    if (girder >= data.gridNames.girderNames.size())
        return names;
    const CBridgeGrid grid(data, results);
    for (GirderSplice& splice : SplicesAt(data, grid, girder, side))
        names.push_back(std::move(splice.name));
    for (const MemberEnd& end : MemberEndsAt(data, grid, girder))
        names.push_back(MemberEndName(grid, end));
    return names;
}

BridgeDrawing JointDetail(const CSbdData& data, const AnalysisResults& results, std::size_t girder, GirderSide side,
                          std::size_t joint)
{
    if (girder >= data.gridNames.girderNames.size()) {
        CDrawingBuild build;
        build.Note("主桁の名称がないため，図にできません．");
        return build.Take();
    }
    const CBridgeGrid grid(data, results);
    const std::size_t splices = SplicesAt(data, grid, girder, side).size();
    if (const std::vector<MemberEnd> ends = MemberEndsAt(data, grid, girder);
        joint >= splices && joint - splices < ends.size())
        return MemberEndDetail(data, results, ends[joint - splices]);
    return JointDrawer(data, results, girder, side, joint).Make();
}

} // namespace sbd
