#include "drawing/girder_joints.h"

#include "project/text.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace sbd {

namespace {

constexpr int kSplices = 321;
constexpr int kSections = 322;
constexpr int kWebs = 331;
constexpr int kFlanges = 332;
constexpr double kMillimetres = 1000;
constexpr double kTouch = 0.5;         // mm
constexpr double kMostThickness = 500; // mm
constexpr double kMostWidth = 30'000;

/// Columns of 321 and 322.
enum PointColumn : std::size_t { kName, kSide, kGirder, kStation = 4, kLength = 4, kNumber = 5, kDistance = 6 };

struct GirderPoint {
    std::size_t row = 0;
    double x = 0;
    bool isEnd = false; ///< the word for the rest of the girder
};

/// The place that a row names by cross beam, stiffener and distance.
std::optional<double> NamedPlace(CDrawingBuild& build, const CTableRows& rows, std::size_t row, const CGirderLine& line,
                                 const GirderStiffeners& stiffeners)
{
    const std::string_view name = rows.Cell(row, kStation);
    const std::optional<std::size_t> station = line.Find(name);
    if (!station) {
        build.Omit(rows.Place(row, kStation), "という横桁がこの桁にないため，位置を図にできません．", name);
        return std::nullopt;
    }
    if (*station >= line.BayCount()) {
        build.Omit(rows.Place(row, kStation), "の右に格間がないため，位置を図にできません．", name);
        return std::nullopt;
    }
    const std::string_view numberCell = rows.Cell(row, kNumber);
    const std::optional<double> number = NumberIn(numberCell);
    const BayStiffeners& bay = stiffeners.bays[*station];
    if (!number || *number < 0 || *number != std::floor(*number)
        || *number > static_cast<double>(bay.stiffeners.size())) {
        build.Omit(rows.Place(row, kNumber), "番の垂直補剛材がこの格間にないため，位置を図にできません．",
                   numberCell.empty() ? std::string_view("?") : numberCell);
        return std::nullopt;
    }
    const auto i = static_cast<std::size_t>(*number);
    if (i > 0 && !bay.numbered) {
        build.Omit(rows.Place(row, kNumber),
                   "左右の垂直補剛材の位置が異なり，番号の位置が決まらないため，図にできません．", {},
                   OmissionKind::Limit);
        return std::nullopt;
    }
    const double left = i == 0 ? line.X(*station) : bay.stiffeners[i - 1].x;
    const double bayEnd = line.X(*station + 1);
    const std::string_view distance = rows.Cell(row, kDistance);
    if (distance == "C" || distance == "CENTER" || distance == "c" || distance == "center")
        return (left + (i < bay.stiffeners.size() ? bay.stiffeners[i].x : bayEnd)) / 2;
    const std::optional<double> value = NumberIn(distance);
    if (!value) {
        build.Omit(rows.Place(row, kDistance), "間隔が数値でも CENTER でもないため，位置を図にできません．");
        return std::nullopt;
    }
    const double x = left + *value * kMillimetres;
    if (x < line.X(*station) - kTouch || x > bayEnd + kTouch) {
        build.Omit(rows.Place(row, kDistance), "位置が格間の外になるため，図にできません．間隔の単位はmです．", {},
                   OmissionKind::Length);
        return std::nullopt;
    }
    return x;
}

/// The points of 321 or 322 on the girder, in the order of the rows.
std::vector<GirderPoint> PointsOf(CDrawingBuild& build, const CTableRows& rows, const CGirderLine& line,
                                  const GirderStiffeners& stiffeners)
{
    static const std::string lengthWords[] = {Cp932("継手長"), Cp932("断面長")};
    static const std::string rest = Cp932("終断面");
    const std::string_view method = rows.Count() > 1 ? rows.Cell(1, 1) : std::string_view();
    const bool byLength = Holds(method, lengthWords[0]) || Holds(method, lengthWords[1]);
    std::vector<GirderPoint> points;
    double from = 0;
    bool lost = false; // a length before is missing
    for (std::size_t row = rows.First(); row < rows.Count(); ++row) {
        if (rows.IsEmpty(row) || !line.IsNamed(build, rows, row, kGirder))
            continue;
        if (!line.Shows(line.SidesOf(build, rows.Cell(row, kSide), rows.Place(row, kSide))))
            continue;
        if (rows.Cell(row, kLength) == rest) {
            points.push_back({row, line.End(), true});
            continue;
        }
        if (!byLength) {
            if (const auto x = NamedPlace(build, rows, row, line, stiffeners))
                points.push_back({row, *x});
            continue;
        }
        const std::optional<double> length = NumberIn(rows.Cell(row, kLength));
        if (lost || !length || *length <= 0) {
            build.Omit(rows.Place(row, kLength), lost ? "前の行の長さがないため，位置を図にできません．"
                                                      : "長さが正の数ではないため，位置を図にできません．");
            lost = true;
            continue;
        }
        from += *length * kMillimetres;
        if (from > line.End() + kTouch) {
            build.Omit(rows.Place(row, kLength), "位置が桁の終わりより先になるため，図にできません．単位はmです．", {},
                       OmissionKind::Length);
            lost = true;
            continue;
        }
        points.push_back({row, from});
    }
    return points;
}

/// "SEC10" behind "SEC9"; empty if a name has no number at its end.
std::string NextName(std::string_view name)
{
    std::size_t digits = name.size();
    while (digits > 0 && name[digits - 1] >= '0' && name[digits - 1] <= '9')
        --digits;
    constexpr std::size_t mostDigits = 6;
    if (digits == name.size() || name.size() - digits > mostDigits)
        return {};
    return std::string(name.substr(0, digits)) + std::to_string(LeadingInteger(name.substr(digits)) + 1);
}

std::vector<GirderSection> SectionsOf(CDrawingBuild& build, const CSbdData& data, const CGirderLine& line,
                                      const GirderStiffeners& stiffeners)
{
    const CTableRows rows(data, kSections, 2);
    std::vector<GirderSection> sections;
    double from = line.Begin();
    for (const GirderPoint& point : PointsOf(build, rows, line, stiffeners)) {
        if (point.x <= from + kTouch) {
            build.Omit(rows.Place(point.row, kStation), "断面の終わりが前の断面の終わりより左のため，図にできません．",
                       {}, OmissionKind::Length);
            continue;
        }
        sections.push_back({std::string(rows.Cell(point.row, kName)), from, point.x, rows.Place(point.row, kStation)});
        from = point.x;
    }
    if (sections.empty()) {
        build.Omit({kSections, 0, 0}, "断面の位置が入力されていないため，「331」「332」の板厚を図にできません．");
        return sections;
    }
    if (from < line.End() - kTouch) {
        // The sections are numbered from the begin on, so the rest has the next number.
        sections.push_back({NextName(sections.back().name), from, line.End(), sections.back().source});
        build.Omit({kSections, 0, 0}, "終断面の行がありません．最後の断面は次の番号の断面としています．");
    }
    return sections;
}

/// Numbers of the sections by name, the first of equal ones.
using SectionIndex = std::unordered_map<std::string_view, std::size_t>;

SectionIndex IndexOf(const std::vector<GirderSection>& sections)
{
    SectionIndex index;
    for (std::size_t i = 0; i < sections.size(); ++i)
        if (!sections[i].name.empty())
            index.try_emplace(sections[i].name, i);
    return index;
}

/// Where a block of plates has its cells.
struct PlateColumns {
    std::size_t material = 5;
    std::optional<std::size_t> width;
    std::optional<std::size_t> widthEnd;
    std::size_t thickness = 0;
    std::size_t thicknessEnd = 0;
};
constexpr PlateColumns kWebColumns{5, {}, {}, 6, 8};
constexpr PlateColumns kFlangeColumns{5, 6, 9, 7, 10};

std::optional<SectionPlate> PlateOf(CDrawingBuild& build, const CTableRows& rows, std::size_t row, std::size_t section,
                                    const PlateColumns& columns)
{
    const auto size = [&](std::size_t column, double most, std::optional<double> otherwise) -> std::optional<double> {
        const std::string_view cell = rows.Cell(row, column);
        if (cell.empty() && otherwise)
            return otherwise;
        const std::optional<double> value = NumberIn(cell);
        if (value && *value > 0 && *value <= most)
            return value;
        build.Omit(rows.Place(row, column),
                   "板の寸法が正の数ではないか，大きすぎるため，板を図にできません．単位はmmです．");
        return std::nullopt;
    };
    SectionPlate plate;
    plate.section = section;
    plate.material = rows.Cell(row, columns.material);
    plate.source = rows.Place(row, columns.thickness);
    const auto thick = size(columns.thickness, kMostThickness, {});
    const auto thickEnd = thick ? size(columns.thicknessEnd, kMostThickness, thick) : std::nullopt;
    if (!thick || !thickEnd)
        return std::nullopt;
    plate.thickFrom = *thick;
    plate.thickTo = *thickEnd;
    if (columns.width) {
        const auto width = size(*columns.width, kMostWidth, {});
        const auto widthEnd = width ? size(*columns.widthEnd, kMostWidth, width) : std::nullopt;
        if (!width || !widthEnd)
            return std::nullopt;
        plate.widthFrom = *width;
        plate.widthTo = *widthEnd;
    }
    return plate;
}

struct PlateRow {
    std::size_t row = 0;
    std::size_t first = 0;
    std::size_t last = 0;
};

/// Plates from the winning rows. `rows` come in their order.
std::vector<std::optional<SectionPlate>> WinningPlates(CDrawingBuild& build, const CTableRows& rows,
                                                       const std::vector<PlateRow>& named,
                                                       const std::vector<GirderSection>& sections,
                                                       const PlateColumns& columns)
{
    CLastRowWins wins(sections.size());
    for (auto row = named.rbegin(); row != named.rend(); ++row) {
        const std::size_t taken = wins.Take(row->row, row->first, row->last + 1);
        build.Use(rows.Place(row->row, 0), {{sections[row->first].from, 0}, {sections[row->last].to, 0}}, taken == 0);
    }
    std::vector<std::optional<SectionPlate>> plates(sections.size());
    for (std::size_t section = 0; section < sections.size(); ++section)
        if (const std::size_t row = wins.At(section); row != CLastRowWins::kNone)
            plates[section] = PlateOf(build, rows, row, section, columns);
    return plates;
}

std::optional<PlateRow> NamedSections(CDrawingBuild& build, const CTableRows& rows, std::size_t row,
                                      const SectionIndex& sections)
{
    constexpr std::size_t fromColumn = 2;
    std::array<std::size_t, 2> numbers{};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const std::string_view name = rows.Cell(row, fromColumn + i);
        const auto section = sections.find(name);
        if (section == sections.end()) {
            build.Omit(rows.Place(row, fromColumn + i), "という断面が「322」にないため，板を図にできません．", name);
            return std::nullopt;
        }
        numbers[i] = section->second;
    }
    return PlateRow{row, std::min(numbers[0], numbers[1]), std::max(numbers[0], numbers[1])};
}

} // namespace

std::optional<std::size_t> GirderPlates::SectionAt(double x) const
{
    const auto found =
        std::ranges::partition_point(sections, [&](const GirderSection& each) { return each.to < x - kTouch; });
    if (found == sections.end() || x < found->from - kTouch)
        return std::nullopt;
    return static_cast<std::size_t>(found - sections.begin());
}

double GirderPlates::ThicknessAt(const std::optional<SectionPlate>& plate, const GirderSection& section, double x)
{
    if (!plate)
        return 0;
    const double share = std::clamp((x - section.from) / (section.to - section.from), 0.0, 1.0);
    return plate->thickFrom + (plate->thickTo - plate->thickFrom) * share;
}

double GirderPlates::WidthAt(const std::optional<SectionPlate>& plate, const GirderSection& section, double x)
{
    if (!plate)
        return 0;
    const double share = std::clamp((x - section.from) / (section.to - section.from), 0.0, 1.0);
    return plate->widthFrom + (plate->widthTo - plate->widthFrom) * share;
}

std::vector<GirderSplice> SplicesOf(CDrawingBuild& build, const CSbdData& data, const CGirderLine& line,
                                    const GirderStiffeners& stiffeners)
{
    static const std::string length = Cp932("継手長");
    const CTableRows rows(data, kSplices, 2);
    // By lengths the type stands beside the length.
    const std::size_t typeColumn = rows.Count() > 1 && Holds(rows.Cell(1, 1), length) ? 5 : 7;
    std::vector<GirderSplice> splices;
    for (const GirderPoint& point : PointsOf(build, rows, line, stiffeners))
        if (!point.isEnd)
            splices.push_back({std::string(rows.Cell(point.row, kName)), std::string(rows.Cell(point.row, typeColumn)),
                               point.x, rows.Place(point.row, kStation)});
    std::ranges::stable_sort(splices, {}, &GirderSplice::x);
    return splices;
}

GirderPlates PlatesOf(CDrawingBuild& build, const CSbdData& data, const CGirderLine& line,
                      const GirderStiffeners& stiffeners)
{
    constexpr std::size_t sideColumn = 4;
    GirderPlates plates;
    plates.sections = SectionsOf(build, data, line, stiffeners);
    if (plates.sections.empty())
        return plates;

    const SectionIndex index = IndexOf(plates.sections);
    const CTableRows webs(data, kWebs, 1);
    std::vector<PlateRow> webRows;
    for (std::size_t row = webs.First(); row < webs.Count(); ++row) {
        if (webs.IsEmpty(row) || !line.IsNamed(build, webs, row, 0)
            || !line.Shows(line.SidesOf(build, webs.Cell(row, sideColumn), webs.Place(row, sideColumn))))
            continue;
        if (const auto named = NamedSections(build, webs, row, index))
            webRows.push_back(*named);
    }
    plates.web = WinningPlates(build, webs, webRows, plates.sections, kWebColumns);

    const CTableRows flanges(data, kFlanges, 1);
    std::vector<PlateRow> upperRows;
    std::vector<PlateRow> lowerRows;
    for (std::size_t row = flanges.First(); row < flanges.Count(); ++row) {
        if (flanges.IsEmpty(row) || !line.IsNamed(build, flanges, row, 0))
            continue;
        const std::string_view word = flanges.Cell(row, sideColumn);
        const bool both = word == "FLG";
        if (!both && word != "UFLG" && word != "LFLG") {
            build.Omit(flanges.Place(row, sideColumn), "がどのフランジか分からないため，図にできません．", word);
            continue;
        }
        const auto named = NamedSections(build, flanges, row, index);
        if (!named)
            continue;
        if (word != "LFLG")
            upperRows.push_back(*named);
        if (word != "UFLG")
            lowerRows.push_back(*named);
    }
    plates.upper = WinningPlates(build, flanges, upperRows, plates.sections, kFlangeColumns);
    plates.lower = WinningPlates(build, flanges, lowerRows, plates.sections, kFlangeColumns);
    return plates;
}

} // namespace sbd
