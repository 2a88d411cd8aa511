#include "drawing/joint_detail.h"

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

constexpr double kTouch = 0.5;         // mm
constexpr double kMostSize = 20'000;   // mm
constexpr double kBeyond = 300;        // of the girder's plates beyond the splice plates
constexpr double kApart = 500;         // between the three parts
constexpr double kBeside = 350;        // names of the parts
constexpr std::size_t kMostLines = 60; // of bolts

enum class Part { Upper, Web, Lower };

/// A row of one of the four blocks that speaks of the joint's part.
struct JointRow {
    const CTableRows* rows = nullptr;
    std::size_t row = 0;

    [[nodiscard]] std::string_view Cell(std::size_t column) const { return rows->Cell(row, column); }
    [[nodiscard]] SourceCell Place(std::size_t column) const { return rows->Place(row, column); }
    /// A length of 0 or more; what is written with a minus stands for one that was set by hand.
    [[nodiscard]] std::optional<double> Size(std::size_t column) const
    {
        const std::optional<double> value = NumberIn(Cell(column));
        return value && std::abs(*value) <= kMostSize ? std::optional(std::abs(*value)) : std::nullopt;
    }
};

/// How many steps a length has; nothing if they do not come out even, or are too many.
std::optional<std::size_t> StepsIn(double length, double step)
{
    if (length > -kTouch && length < kTouch)
        return 0;
    if (!(step > 0) || length < 0)
        return std::nullopt;
    const double steps = std::round(length / step);
    if (steps > static_cast<double>(kMostLines) || std::abs(steps * step - length) > kTouch)
        return std::nullopt;
    return static_cast<std::size_t>(steps);
}

class CJoint {
public:
    CJoint(const CSbdData& data, const AnalysisResults& results, std::size_t girder, GirderSide side, std::size_t joint)
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
    [[nodiscard]] std::optional<JointRow> RowOf(const CTableRows& rows, int block, Part part);
    [[nodiscard]] double BoltRadius(const JointRow& row);
    void Flange(Part part, const std::optional<SectionPlate>& left, const std::optional<SectionPlate>& right,
                double middle);
    void FlangeBolts(Part part, const JointRow& bolts, const JointRow& pitches, double length, double width,
                     double middle);
    void Web();
    void WebBolts(const JointRow& bolts, const JointRow& pitches, std::optional<JointRow> plate);
    void Rectangle(DrawingLayer layer, double left, double right, double bottom, double top, SourceCell source);
    void Chain(std::string_view title, const std::vector<double>& xs, const std::vector<SourceCell>& sources);

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
    double half_ = 0;   // of the girder's plates, along it
    double webTop_ = 0; // levels
    double webBottom_ = 0;
};

bool CJoint::IsOfPart(std::string_view word, Part part, SourceCell place)
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

/// The one row of a block that speaks of a part; nothing, and omitted, if there is none or more than one: which one is used
/// the pages do not say.
std::optional<JointRow> CJoint::RowOf(const CTableRows& rows, int block, Part part)
{
    constexpr std::size_t fromColumn = 2;
    const auto numberOf = [&](std::string_view name) {
        const auto found = std::ranges::find(splices_, name, &GirderSplice::name);
        return found == splices_.end() ? std::nullopt
                                       : std::optional(static_cast<std::size_t>(found - splices_.begin()));
    };
    std::optional<JointRow> result;
    for (std::size_t row = rows.First(); row < rows.Count(); ++row) {
        if (rows.IsEmpty(row) || !IsOfPart(rows.Cell(row, kPart), part, rows.Place(row, kPart))
            || !line_.IsNamed(build_, rows, row, 0))
            continue;
        std::array<std::optional<std::size_t>, 2> ends;
        for (std::size_t i = 0; i < ends.size(); ++i)
            ends[i] = numberOf(rows.Cell(row, fromColumn + i));
        if (!ends[0] || !ends[1]) // of another girder perhaps: told only if it means this joint
            continue;
        if (joint_ < std::min(*ends[0], *ends[1]) || joint_ > std::max(*ends[0], *ends[1]))
            continue;
        if (result) {
            build_.Omit(rows.Place(row, kPart),
                        "この継手の同じ部位の行が2行以上あり，どの行か決まらないため，図にできません．");
            return std::nullopt;
        }
        result = JointRow{&rows, row};
    }
    static constexpr const char* names[] = {"上フランジ", "腹板", "下フランジ"};
    if (!result)
        build_.Omit({block, 0, 0},
                    std::string(names[static_cast<int>(part)]) + "の行がこの継手にないため，図にできません．");
    else
        build_.Use(result->Place(0), {{-half_, 0}, {half_, webBottom_}}, false);
    return result;
}

/// Half of the diameter that "M22(S10T)" names; 0, and omitted, if it names none.
double CJoint::BoltRadius(const JointRow& row)
{
    constexpr std::size_t column = 5;
    std::string_view word = row.Cell(column);
    if (word.starts_with('M')) {
        word.remove_prefix(1);
        word = word.substr(0, word.find('('));
        if (const std::optional<double> value = NumberIn(word); value && *value >= 10 && *value <= 50)
            return *value / 2;
    }
    build_.Omit(row.Place(column), "ボルトの呼びが M と数値の形ではないため，ボルトを図にできません．");
    return 0;
}

void CJoint::Rectangle(DrawingLayer layer, double left, double right, double bottom, double top, SourceCell source)
{
    build_.Shape(layer, ShapeKind::Polygon, {{left, top}, {right, top}, {right, bottom}, {left, bottom}}, source);
}

void CJoint::Chain(std::string_view title, const std::vector<double>& xs, const std::vector<SourceCell>& sources)
{
    DimensionChain chain{Cp932(title), {}};
    for (std::size_t i = 0; i + 1 < xs.size(); ++i)
        if (xs[i + 1] - xs[i] > kTouch)
            chain.parts.push_back({xs[i], xs[i + 1], LengthText(xs[i + 1] - xs[i]), sources[i]});
    build_.drawing.chains.push_back(std::move(chain));
}

/// A flange from above, its middle at the level `middle`.
void CJoint::Flange(Part part, const std::optional<SectionPlate>& left, const std::optional<SectionPlate>& right,
                    double middle)
{
    if (left)
        Rectangle(DrawingLayer::Web, -half_, 0, middle - left->widthTo / 2, middle + left->widthTo / 2, left->source);
    if (right)
        Rectangle(DrawingLayer::Web, 0, half_, middle - right->widthFrom / 2, middle + right->widthFrom / 2,
                  right->source);
    build_.Label({-half_ - kBeside, middle}, Cp932(part == Part::Upper ? "上フランジ" : "下フランジ"),
                 LabelRow::AtPoint, {});
    const std::optional<JointRow> bolts = RowOf(bolts_, kBolts, part);
    constexpr std::size_t form = 7;
    if (bolts && bolts->Cell(form) == Cp932("溶接"))
        return; // no plates
    const std::optional<JointRow> plate = RowOf(plates_, kPlates, part);
    const std::optional<JointRow> pitches = RowOf(flangePitches_, kFlangePitches, part);
    constexpr std::size_t outerThick = 5;
    constexpr std::size_t innerThick = 6;
    constexpr std::size_t outerWidth = 7;
    constexpr std::size_t lengthColumn = 9;
    if (!plate)
        return;
    const double width = plate->Size(outerWidth).value_or(0);
    const double length = plate->Size(lengthColumn).value_or(0);
    if (!(width > 0) || !(length > 0)) {
        build_.Omit(plate->Place(width > 0 ? lengthColumn : outerWidth),
                    "添接板の幅または長さが入力されていないため，添接板とボルトを図にできません．", {},
                    OmissionKind::Limit);
        return;
    }
    Rectangle(DrawingLayer::SplicePlate, -length / 2, length / 2, middle - width / 2, middle + width / 2,
              plate->Place(outerWidth));
    std::string text = Cp932("外 ") + LengthText(plate->Size(outerThick).value_or(0)) + "x" + LengthText(width) + "x"
                       + LengthText(length);
    if (const double inner = plate->Size(innerThick).value_or(0); inner > 0)
        text += Cp932("  内 t=") + LengthText(inner);
    if (bolts)
        text += "  " + std::string(bolts->Cell(5)) + " n=" + std::string(bolts->Cell(6));
    build_.Label({half_ / 2, middle + width / 2 + kApart / 4}, std::move(text), LabelRow::AtPoint,
                 plate->Place(outerThick));
    if (bolts && pitches)
        FlangeBolts(part, *bolts, *pitches, length, width, middle);
}

void CJoint::FlangeBolts(Part part, const JointRow& bolts, const JointRow& pitches, double length, double width,
                         double middle)
{
    enum Column : std::size_t { kLc = 5, kLd = 6, kLe = 7, kBc = 8, kBe = 9, kBd = 10 };
    constexpr std::size_t countColumn = 6;
    constexpr std::size_t formColumn = 7;
    const auto size = [&](std::size_t column) { return pitches.Size(column).value_or(-1); };
    for (const std::size_t column : {kLc, kLd, kLe, kBc, kBe})
        if (size(column) < 0) {
            build_.Omit(pitches.Place(column), "ボルトの間隔が数値ではないため，ボルトを図にできません．");
            return;
        }
    const double bd = pitches.Size(kBd).value_or(0);
    const std::optional<std::size_t> along = StepsIn(length / 2 - size(kLc) / 2 - size(kLe), size(kLd));
    const std::optional<std::size_t> across = StepsIn(width / 2 - size(kBc) / 2 - size(kBe), bd);
    if (!along || !across) {
        build_.Omit(pitches.Place(along ? kBd : kLd),
                    along ? "Bc，BD，Beの合計が添接板の外側幅に合わないため，ボルトを図にできません．"
                          : "Lc，LD，Leの合計が添接板の長さに合わないため，ボルトを図にできません．");
        return;
    }
    const std::size_t columns = *along + 1;
    const std::size_t rows = *across + 1; // on each side of the web
    // Bolts of a column on each side of the web, the outermost columns last.
    struct Form {
        std::string word;
        std::vector<std::size_t> outer;
    };
    static const Form forms[] = {{Cp932("全孔引き"), {}},    {Cp932("2孔引き"), {1}},     {Cp932("4孔引き"), {2}},
                                 {Cp932("6孔引き"), {3}},    {Cp932("24孔引き"), {2, 1}}, {Cp932("46孔引き"), {3, 2}},
                                 {Cp932("68孔引き"), {4, 3}}};
    const auto* form = std::ranges::find(forms, bolts.Cell(formColumn), &Form::word);
    if (form == std::end(forms) || form->outer.size() > columns) {
        build_.Omit(bolts.Place(formColumn), "この孔引き形式のボルトの位置は図に表していません．", {},
                    OmissionKind::Limit);
        return;
    }
    std::vector<std::size_t> counts(columns, rows);
    for (std::size_t i = 0; i < form->outer.size(); ++i)
        counts[columns - form->outer.size() + i] = std::min(rows, form->outer[i]);
    std::size_t sum = 0;
    for (const std::size_t count : counts)
        sum += 2 * count;
    if (const std::optional<double> told = NumberIn(bolts.Cell(countColumn));
        !told || *told != static_cast<double>(sum)) {
        build_.Omit(bolts.Place(countColumn), "FLG本数が，添接板とボルト間隔から決まる本数(" + std::to_string(sum)
                                                  + "本)と違うため，ボルトを図にできません．");
        return;
    }
    const double radius = BoltRadius(bolts);
    if (!(radius > 0))
        return;
    for (std::size_t column = 0; column < columns; ++column)
        for (std::size_t row = 0; row < counts[column]; ++row)
            for (const double sx : {-1.0, 1.0})
                for (const double sy : {-1.0, 1.0})
                    build_.Circle(DrawingLayer::Bolt,
                                  {sx * (size(kLc) / 2 + static_cast<double>(column) * size(kLd)),
                                   middle + sy * (size(kBc) / 2 + static_cast<double>(row) * bd)},
                                  radius, pitches.Place(column == 0 ? kLc : kLd));
    std::vector<double> xs;
    std::vector<SourceCell> sources;
    const auto add = [&](double x, std::size_t ahead) {
        xs.push_back(x);
        sources.push_back(pitches.Place(ahead));
    };
    add(-length / 2, kLe);
    for (std::size_t column = columns; column-- > 0;)
        add(-size(kLc) / 2 - static_cast<double>(column) * size(kLd), column == 0 ? kLc : kLd);
    for (std::size_t column = 0; column < columns; ++column)
        add(size(kLc) / 2 + static_cast<double>(column) * size(kLd), column + 1 == columns ? kLe : kLd);
    add(length / 2, kLe);
    Chain(part == Part::Upper ? "上フランジ" : "下フランジ", xs, sources);
    const auto right = [&](double y, std::string_view name, double value, std::size_t column) {
        build_.Label({length / 2 + kBeyond / 2, y}, std::string(name) + " " + LengthText(value), LabelRow::AtPoint,
                     pitches.Place(column));
    };
    right(middle, "Bc", size(kBc), kBc);
    if (rows > 1)
        right(middle + size(kBc) / 2 + bd * static_cast<double>(rows - 1) / 2, "BD", bd, kBd);
    right(middle - width / 2 + size(kBe) / 2, "Be", size(kBe), kBe);
}

void CJoint::Web()
{
    Rectangle(DrawingLayer::Web, -half_, half_, webBottom_, webTop_, {});
    build_.Label({-half_ - kBeside, (webTop_ + webBottom_) / 2}, Cp932("腹板"), LabelRow::AtPoint, {});
    const std::optional<JointRow> bolts = RowOf(bolts_, kBolts, Part::Web);
    constexpr std::size_t form = 7;
    if (bolts && bolts->Cell(form) == Cp932("溶接"))
        return;
    const std::optional<JointRow> plate = RowOf(plates_, kPlates, Part::Web);
    const std::optional<JointRow> pitches = RowOf(webPitches_, kWebPitches, Part::Web);
    if (bolts && pitches)
        WebBolts(*bolts, *pitches, plate);
}

void CJoint::WebBolts(const JointRow& bolts, const JointRow& pitches, std::optional<JointRow> plate)
{
    enum Column : std::size_t { kU1 = 5, kU12 = 6, kL12 = 7, kL1 = 8, kC = 9, kX = 10, kU23 = 12, kL23 = 13 };
    constexpr std::size_t countColumn = 6;
    constexpr std::size_t partsColumn = 7;
    const auto size = [&](std::size_t column) { return pitches.Size(column).value_or(-1); };
    for (const std::size_t column : {kU1, kU12, kL12, kL1, kC, kX})
        if (size(column) < 0) {
            build_.Omit(pitches.Place(column), "ボルトの間隔が数値ではないため，ボルトを図にできません．");
            return;
        }
    const auto whole = [&](std::size_t column) -> std::size_t {
        const std::optional<double> value = NumberIn(bolts.Cell(column));
        const bool sound =
            value && *value >= 1 && *value == std::floor(*value) && *value <= static_cast<double>(kMostLines);
        if (!sound)
            build_.Omit(bolts.Place(column), "列数または割数が1から60の整数ではないため，ボルトを図にできません．");
        return sound ? static_cast<std::size_t>(*value) : 0;
    };
    const std::size_t columns = whole(countColumn);
    const std::size_t parts = columns > 0 ? whole(partsColumn) : 0;
    if (parts == 0)
        return;
    // Levels from both edges inward; 0 means that there is no such row, or that it belongs to the middle.
    const auto inward = [&](double edge, double sign, std::size_t first, std::size_t second, std::size_t third) {
        std::vector<double> levels{edge + sign * size(first)};
        if (size(second) > 0) {
            levels.push_back(levels.back() + sign * size(second));
            if (const double step = size(third); step > 0)
                levels.push_back(levels.back() + sign * step);
        }
        return levels;
    };
    const std::vector<double> down = inward(webTop_, -1, kU1, kU12, kU23);
    const std::vector<double> up = inward(webBottom_, 1, kL1, kL12, kL23);
    const double between = down.back() - up.back();
    if (!(between > 0)) {
        build_.Omit(pitches.Place(kU1), "上下の間隔の合計が腹板の高さを超えるため，ボルトを図にできません．");
        return;
    }
    const double step = between / static_cast<double>(parts);
    // "17@105" is what was reckoned; another height of the web is seen by it.
    constexpr std::size_t middleColumn = 11;
    if (const std::string_view cell = pitches.Cell(middleColumn); cell.find('@') != std::string_view::npos) {
        const std::optional<double> told = NumberIn(cell.substr(cell.find('@') + 1));
        constexpr double slack = 1; // mm: it is rounded
        if (told && std::abs(*told - step) > slack)
            build_.Omit(pitches.Place(middleColumn),
                        "この中間部間隔は，腹板の高さと割数から決まる間隔(" + LengthText(step) + "mm)と違います．");
    }
    std::vector<double> levels = down;
    for (std::size_t i = 1; i < parts; ++i)
        levels.push_back(down.back() - step * static_cast<double>(i));
    levels.insert(levels.end(), up.rbegin(), up.rend());

    constexpr std::size_t plateWidth = 7;
    constexpr std::size_t plateLength = 9;
    if (plate) {
        const double width = plate->Size(plateWidth).value_or(0);
        const double length = plate->Size(plateLength).value_or(0);
        if (!(width > 0) || !(length > 0))
            build_.Omit(plate->Place(width > 0 ? plateLength : plateWidth),
                        "添接板の幅または長さが入力されていないため，添接板を図にできません．", {},
                        OmissionKind::Limit);
        else if (std::abs(size(kU1) - size(kL1)) > kTouch)
            build_.Omit(plate->Place(plateLength),
                        "DU1とDL1が異なり，腹板の添接板の高さの位置が決まらないため，図にできません．", {},
                        OmissionKind::Limit);
        else
            Rectangle(DrawingLayer::SplicePlate, -width / 2, width / 2, (webTop_ + webBottom_) / 2 - length / 2,
                      (webTop_ + webBottom_) / 2 + length / 2, plate->Place(plateWidth));
    }
    const double radius = BoltRadius(bolts);
    if (!(radius > 0))
        return;
    for (const double level : levels)
        for (std::size_t column = 0; column < columns; ++column)
            for (const double sign : {-1.0, 1.0})
                build_.Circle(DrawingLayer::Bolt,
                              {sign * (size(kC) / 2 + static_cast<double>(column) * size(kX)), level}, radius,
                              pitches.Place(column == 0 ? kC : kX));
    std::vector<double> xs;
    std::vector<SourceCell> sources;
    for (std::size_t column = columns; column-- > 0;) {
        xs.push_back(-size(kC) / 2 - static_cast<double>(column) * size(kX));
        sources.push_back(pitches.Place(column == 0 ? kC : kX));
    }
    for (std::size_t column = 0; column < columns; ++column) {
        xs.push_back(size(kC) / 2 + static_cast<double>(column) * size(kX));
        sources.push_back(pitches.Place(kX));
    }
    Chain("腹板", xs, sources);
    const auto right = [&](double y, std::string_view name, double value, std::size_t column) {
        build_.Label({half_ - kBeyond / 2, y}, std::string(name) + " " + LengthText(value), LabelRow::AtPoint,
                     pitches.Place(column));
    };
    right(webTop_ - size(kU1) / 2, "DU1", size(kU1), kU1);
    if (size(kU12) > 0)
        right(webTop_ - size(kU1) - size(kU12) / 2, "DU12", size(kU12), kU12);
    if (down.size() > 2)
        right(down[2] + size(kU23) / 2, "DU23", size(kU23), kU23);
    right((down.back() + up.back()) / 2, std::to_string(parts) + "@", step, middleColumn);
    if (up.size() > 2)
        right(up[2] - size(kL23) / 2, "DL23", size(kL23), kL23);
    if (size(kL12) > 0)
        right(webBottom_ + size(kL1) + size(kL12) / 2, "DL12", size(kL12), kL12);
    right(webBottom_ + size(kL1) / 2, "DL1", size(kL1), kL1);
}

BridgeDrawing CJoint::Make()
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
            if (const JointRow each{rows, row}; each.Cell(kPart).ends_with("FLG"))
                half_ = std::max(half_, std::min(each.Size(9).value_or(0), 5'000.0) / 2 + kBeyond);
    const auto widest = [](const std::optional<SectionPlate>& a, const std::optional<SectionPlate>& b) {
        return std::max(a ? a->widthTo : 0, b ? b->widthFrom : 0);
    };
    build_.Shape(DrawingLayer::Splice, ShapeKind::Line,
                 {{0, kApart + widest(upperLeft, upperRight) + kApart / 4},
                  {0, -*height - kApart - widest(lowerLeft, lowerRight)}},
                 splice.source);
    Web();
    if (line_.IsBox()) {
        build_.Omit({kFlangePitches, 0, 0}, "箱桁のフランジの継手は図に表していません．", {}, OmissionKind::Limit);
    } else {
        Flange(Part::Upper, upperLeft, upperRight, kApart + widest(upperLeft, upperRight) / 2);
        Flange(Part::Lower, lowerLeft, lowerRight, -*height - kApart - widest(lowerLeft, lowerRight) / 2);
    }
    for (RowUse& use : build_.drawing.rows)
        if (use.area.size() == 2)
            use.area = {{-half_, 0}, {half_, 0}, {half_, -*height}, {-half_, -*height}};
    return build_.Take();
}

} // namespace

std::vector<std::string> JointNames(const CSbdData& data, const AnalysisResults& results, std::size_t girder,
                                    GirderSide side)
{
    std::vector<std::string> names;
    if (girder >= data.gridNames.girderNames.size())
        return names;
    CDrawingBuild apart;
    const CBridgeGrid grid(data, results);
    const CGirderLine line(apart, data, grid, girder, side);
    if (line.StationCount() < 2)
        return names;
    for (GirderSplice& splice : SplicesOf(apart, data, line, StiffenersOf(apart, data, line)))
        names.push_back(std::move(splice.name));
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
    return CJoint(data, results, girder, side, joint).Make();
}

} // namespace sbd
