#include "drawing/girder_stiffeners.h"

#include "project/text.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace sbd {

namespace {

constexpr int kVertical = 313;
constexpr int kAtStations = 314;
constexpr double kMillimetres = 1000;
constexpr double kTouch = 0.5;    // mm
constexpr std::size_t kSides = 2; // of a web: of an I girder its faces, of a box girder its webs

/// Columns that the three blocks share.
enum Column : std::size_t { kGirder = 0, kStation = 2, kSide = 4 };
enum VerticalColumn : std::size_t { kThickness = 6, kCount = 7, kSpacings = 8 };

/// The rows of a block that speak of the girder, last one first.
struct NamedRow {
    std::size_t row = 0;
    IndexRange stations;
    int sides = 0;
};

std::vector<NamedRow> NamedRows(CDrawingBuild& build, const CTableRows& rows, const CGirderLine& line)
{
    std::vector<NamedRow> named;
    for (std::size_t row = rows.First(); row < rows.Count(); ++row) {
        if (rows.IsEmpty(row) || !line.IsNamed(build, rows, row, kGirder))
            continue;
        const std::optional<IndexRange> stations = line.NamedStations(build, rows, row, kStation);
        if (!stations)
            continue;
        if (const int sides = line.SidesOf(build, rows.Cell(row, kSide), rows.Place(row, kSide)); line.Shows(sides))
            named.push_back({row, *stations, sides});
    }
    std::ranges::reverse(named);
    return named;
}

/// The winning row of each place on each side of the web, and the uses of all rows.
using SideWinners = std::array<CLastRowWins, kSides>;

SideWinners Winners(CDrawingBuild& build, const CTableRows& rows, const CGirderLine& line,
                    const std::vector<NamedRow>& named, bool ofBays)
{
    const std::size_t places = ofBays ? line.BayCount() : line.StationCount();
    SideWinners winners{CLastRowWins(places), CLastRowWins(places)};
    for (const NamedRow& row : named) {
        const CGirderLine::Part part = ofBays ? line.BaysIn(row.stations) : line.StationsIn(row.stations);
        if (part.IsEmpty()) {
            build.Omit(rows.Place(row.row, kStation), "この桁に該当する区間がないため，図にできません．");
            continue;
        }
        std::size_t taken = 0;
        for (std::size_t side = 0; side < kSides; ++side)
            if ((row.sides >> side & 1) != 0)
                taken += winners[side].Take(row.row, part.first, part.end);
        const std::size_t last = ofBays ? part.end : part.end - 1;
        build.Use(rows.Place(row.row, 0), {{line.X(part.first), 0}, {line.X(last), 0}}, taken == 0);
    }
    return winners;
}

// --- between the stations ----------------------------------------------------------------------------

/// What a row of 313 says: how many, where, how thick.
struct SpacingRow {
    int count = 0;
    bool equal = false;
    std::vector<double> spacings;    ///< mm; `count` of them unless equal
    std::vector<double> thicknesses; ///< mm; from the second one on where given
    double thickness = 0;
};

std::optional<SpacingRow> ReadSpacings(CDrawingBuild& build, const CTableRows& rows, std::size_t row)
{
    static const std::string equal = Cp932("等間隔");
    SpacingRow spacing;
    const std::optional<double> count = NumberIn(rows.Cell(row, kCount));
    if (!count || *count < 0 || *count != std::floor(*count)) {
        build.Omit(rows.Place(row, kCount), "本数が0以上の整数ではないため，補剛材を図にできません．");
        return std::nullopt;
    }
    if (*count > kMostPerBay) {
        build.Omit(rows.Place(row, kCount), "本数が多すぎるため(1格間200本まで)，補剛材を図にできません．");
        return std::nullopt;
    }
    spacing.count = static_cast<int>(*count);
    spacing.thickness = NumberIn(rows.Cell(row, kThickness)).value_or(0);
    std::vector<std::string_view> words = CellWords(rows.Cell(row, kSpacings));
    if (words.empty() || words.front() == equal) {
        spacing.equal = true;
        if (!words.empty())
            words.erase(words.begin());
    }
    std::vector<double> numbers;
    for (const std::string_view word : words) {
        const std::optional<double> number = NumberIn(word);
        if (!number) {
            build.Omit(rows.Place(row, kSpacings), "は数値ではないため，間隔と寸法を図にできません．", word);
            return std::nullopt;
        }
        numbers.push_back(*number);
    }
    const std::size_t given = spacing.equal ? 0 : static_cast<std::size_t>(spacing.count);
    if (numbers.size() < given) {
        build.Omit(rows.Place(row, kSpacings), "間隔の数が本数より少ないため，補剛材を図にできません．");
        return std::nullopt;
    }
    for (std::size_t i = 0; i < given; ++i)
        spacing.spacings.push_back(numbers[i] * kMillimetres);
    const std::size_t sizes = numbers.size() - given;
    const std::size_t most = spacing.count > 1 ? 2 * (static_cast<std::size_t>(spacing.count) - 1) : 0;
    if (sizes > most || sizes % 2 != 0)
        build.Omit(rows.Place(row, kSpacings),
                   "間隔の後の数値が，2本目からの幅と厚の組になりません．寸法は1本目の値としています．", {},
                   OmissionKind::Limit);
    else
        for (std::size_t i = given + 1; i < numbers.size(); i += 2)
            spacing.thicknesses.push_back(numbers[i]);
    return spacing;
}

BayStiffeners InBay(CDrawingBuild& build, const SpacingRow& spacing, double from, double to, SourceCell source)
{
    BayStiffeners bay;
    double x = from;
    for (int i = 0; i < spacing.count; ++i) {
        const auto number = static_cast<std::size_t>(i);
        if (spacing.equal)
            x = from + (to - from) * (i + 1) / (spacing.count + 1);
        else
            x += spacing.spacings[number];
        if (x < from - kTouch || x > to + kTouch) {
            build.Omit(source, "間隔の合計が格間より長いため，格間の外の補剛材を図にできません．", {},
                       OmissionKind::Length);
            break;
        }
        const double thickness =
            i > 0 && number <= spacing.thicknesses.size() ? spacing.thicknesses[number - 1] : spacing.thickness;
        bay.stiffeners.push_back({x, thickness > 0 && thickness < kMillimetres ? thickness : 0, source});
    }
    return bay;
}

bool SamePlaces(const BayStiffeners& a, const BayStiffeners& b)
{
    return std::ranges::equal(a.stiffeners, b.stiffeners,
                              [](const auto& left, const auto& right) { return std::abs(left.x - right.x) < kTouch; });
}

std::vector<BayStiffeners> BetweenStations(CDrawingBuild& build, const CSbdData& data, const CGirderLine& line)
{
    const CTableRows rows(data, kVertical, 1);
    const std::vector<NamedRow> named = NamedRows(build, rows, line);
    const SideWinners winners = Winners(build, rows, line, named, true);
    std::map<std::size_t, std::optional<SpacingRow>> read;
    const auto bayOf = [&](std::size_t row, std::size_t bay) {
        if (row == CLastRowWins::kNone)
            return BayStiffeners();
        const auto [found, isNew] = read.try_emplace(row);
        if (isNew)
            found->second = ReadSpacings(build, rows, row);
        if (!found->second)
            return BayStiffeners();
        return InBay(build, *found->second, line.X(bay), line.X(bay + 1), rows.Place(row, kSpacings));
    };
    std::vector<BayStiffeners> bays;
    for (std::size_t bay = 0; bay < line.BayCount(); ++bay) {
        const std::size_t leftRow = winners[0].At(bay);
        const std::size_t rightRow = winners[1].At(bay);
        if (line.IsBox() || leftRow == rightRow) {
            bays.push_back(bayOf(line.IsBox() && line.Side() == GirderSide::Right ? rightRow : leftRow, bay));
            continue;
        }
        BayStiffeners both = bayOf(leftRow, bay);
        const BayStiffeners other = bayOf(rightRow, bay);
        if (!SamePlaces(both, other) && !both.stiffeners.empty() && !other.stiffeners.empty())
            both.numbered = false;
        both.stiffeners.insert(both.stiffeners.end(), other.stiffeners.begin(), other.stiffeners.end());
        std::ranges::stable_sort(both.stiffeners, {}, &VerticalStiffener::x);
        if (both.numbered) // one number a place
            both.stiffeners.erase(
                std::unique(both.stiffeners.begin(), both.stiffeners.end(),
                            [](const auto& left, const auto& right) { return std::abs(left.x - right.x) < kTouch; }),
                both.stiffeners.end());
        bays.push_back(std::move(both));
    }
    return bays;
}

// --- at the stations ---------------------------------------------------------------------------------

std::vector<VerticalStiffener> AtStations(CDrawingBuild& build, const CSbdData& data, const CGirderLine& line)
{
    constexpr std::size_t thicknessColumn = 6;
    const CTableRows rows(data, kAtStations, 1);
    const SideWinners winners = Winners(build, rows, line, NamedRows(build, rows, line), false);
    std::vector<VerticalStiffener> stiffeners;
    for (std::size_t station = 0; station < line.StationCount(); ++station) {
        const std::size_t shown = line.IsBox() && line.Side() == GirderSide::Right ? 1 : 0;
        std::size_t row = winners[shown].At(station);
        if (row == CLastRowWins::kNone && !line.IsBox())
            row = winners[1].At(station);
        if (row == CLastRowWins::kNone)
            continue;
        const double thickness = NumberIn(rows.Cell(row, thicknessColumn)).value_or(0);
        stiffeners.push_back({line.X(station), thickness > 0 && thickness < kMillimetres ? thickness : 0,
                              rows.Place(row, thicknessColumn)});
    }
    return stiffeners;
}

} // namespace

GirderStiffeners StiffenersOf(CDrawingBuild& build, const CSbdData& data, const CGirderLine& line)
{
    GirderStiffeners stiffeners;
    stiffeners.bays = BetweenStations(build, data, line);
    stiffeners.stations = AtStations(build, data, line);
    return stiffeners;
}

// --- horizontal --------------------------------------------------------------------------------------

namespace {

constexpr int kHorizontal = 315;
constexpr int kSectionOptions = 302;
constexpr std::size_t kShares = 23; // option row, from 0
constexpr int kDrawingOptions = 401;
constexpr std::size_t kShareOf = 7;
constexpr std::size_t kStages = 2;
constexpr std::size_t kHorizontalSides = 2; // upper, lower

enum HorizontalColumn : std::size_t { kStage = 5, kUpperCount = 6, kLowerCount = 7, kSizes = 8 };

/// Shares of the depth: of a single stage, of the first and of the second of two.
struct Shares {
    double single = 0;
    std::array<double, kStages> ofTwo{};
};

std::optional<Shares> ReadShares(CDrawingBuild& build, const CSbdData& data)
{
    const SourceCell place{kSectionOptions, static_cast<int>(kShares) + 1, 2};
    std::vector<double> values;
    for (const std::string_view word : CellWords(data.Option(kSectionOptions, kShares)))
        if (const std::optional<double> value = NumberIn(word))
            values.push_back(*value);
    constexpr std::size_t group = 3;
    if (values.size() < group) {
        build.Omit(place, "水平補剛材の設置位置の値が3個に足りないため，水平補剛材を図にできません．");
        return std::nullopt;
    }
    for (std::size_t i = group; i < values.size(); ++i)
        if (values[i] != values[i % group]) {
            // Which of the four groups a girder takes is not told.
            build.Omit(place, "4組の設置位置が異なり，どの組を使用するか決まらないため，水平補剛材を図にできません．",
                       {}, OmissionKind::Limit);
            return std::nullopt;
        }
    const Shares shares{values[0], {values[1], values[2]}};
    for (const double share : {shares.single, shares.ofTwo[0], shares.ofTwo[1]})
        if (!(share > 0 && share < 1)) {
            build.Omit(place, "水平補剛材の設置位置が0と1の間にないため，水平補剛材を図にできません．");
            return std::nullopt;
        }
    return shares;
}

/// "L3", "R2", "0": how many panels of a bay, counted from which end.
struct PanelCount {
    bool fromLeft = true;
    int count = 0;
};

std::optional<PanelCount> ReadCount(CDrawingBuild& build, const CTableRows& rows, std::size_t row, std::size_t column)
{
    std::string_view cell = rows.Cell(row, column);
    if (cell.empty() || cell == "0")
        return PanelCount{};
    PanelCount count;
    count.fromLeft = cell.front() == 'L' || cell.front() == 'l';
    const bool fromRight = cell.front() == 'R' || cell.front() == 'r';
    cell.remove_prefix(1);
    const std::optional<double> number = NumberIn(cell);
    if ((!count.fromLeft && !fromRight) || !number || *number < 0 || *number != std::floor(*number)) {
        build.Omit(rows.Place(row, column), "本数が L または R と整数の形ではないため，水平補剛材を図にできません．");
        return std::nullopt;
    }
    count.count = static_cast<int>(std::min<double>(*number, kMostPerBay));
    return count;
}

struct HorizontalRow {
    std::array<PanelCount, kHorizontalSides> counts;
    std::vector<double> thicknesses;
};

std::optional<HorizontalRow> ReadHorizontal(CDrawingBuild& build, const CTableRows& rows, std::size_t row)
{
    HorizontalRow result;
    for (std::size_t side = 0; side < kHorizontalSides; ++side) {
        const std::optional<PanelCount> count = ReadCount(build, rows, row, kUpperCount + side);
        if (!count)
            return std::nullopt;
        result.counts[side] = *count;
    }
    const std::vector<std::string_view> words = CellWords(rows.Cell(row, kSizes));
    for (std::size_t i = 1; i < words.size() && i < 2 * static_cast<std::size_t>(kMostPerBay); i += 2)
        result.thicknesses.push_back(NumberIn(words[i]).value_or(0));
    return result;
}

/// Rows of one stage of the shown side by bay; the first side that has one counts on an I girder.
std::vector<std::size_t> StageWinners(CDrawingBuild& build, const CTableRows& rows, const CGirderLine& line,
                                      const std::vector<NamedRow>& named)
{
    const SideWinners winners = Winners(build, rows, line, named, true);
    std::vector<std::size_t> result(line.BayCount(), CLastRowWins::kNone);
    for (std::size_t bay = 0; bay < result.size(); ++bay) {
        result[bay] = winners[line.IsBox() && line.Side() == GirderSide::Right ? 1 : 0].At(bay);
        if (result[bay] == CLastRowWins::kNone && !line.IsBox())
            result[bay] = winners[1].At(bay);
    }
    return result;
}

/// The thickness of each panel's stiffener in a bay by one row, none where there is no stiffener.
std::vector<std::optional<double>> PanelsOf(const HorizontalRow& row, std::size_t side, std::size_t panels)
{
    std::vector<std::optional<double>> result(panels);
    const PanelCount& count = row.counts[side];
    const std::size_t most = std::min(panels, static_cast<std::size_t>(count.count));
    for (std::size_t i = 0; i < most; ++i) {
        double thickness = 0;
        if (!row.thicknesses.empty())
            thickness = row.thicknesses[std::min(i, row.thicknesses.size() - 1)];
        result[count.fromLeft ? i : panels - 1 - i] = thickness > 0 && thickness < kMillimetres ? thickness : 0;
    }
    return result;
}

} // namespace

HorizontalStiffeners HorizontalStiffenersOf(CDrawingBuild& build, const CSbdData& data, const CGirderLine& line,
                                            const GirderStiffeners& vertical)
{
    static const std::string webWord = Cp932("腹板");
    static const std::array<std::string, kStages> stageWords{Cp932("1段目"), Cp932("2段目")};
    HorizontalStiffeners result;
    result.ofWholeDepth = !Holds(data.Option(kDrawingOptions, kShareOf), webWord);
    const CTableRows rows(data, kHorizontal, 1);
    std::array<std::vector<NamedRow>, kStages> named;
    for (const NamedRow& row : NamedRows(build, rows, line)) {
        const auto* stage = std::ranges::find(stageWords, rows.Cell(row.row, kStage));
        if (stage == stageWords.end())
            build.Omit(rows.Place(row.row, kStage), "1段目か2段目か分からないため，水平補剛材を図にできません．");
        else
            named[static_cast<std::size_t>(stage - stageWords.begin())].push_back(row);
    }
    if (named[0].empty() && named[1].empty())
        return result;
    const std::optional<Shares> shares = ReadShares(build, data);
    if (!shares)
        return result;
    const std::array<std::vector<std::size_t>, kStages> winners{StageWinners(build, rows, line, named[0]),
                                                                StageWinners(build, rows, line, named[1])};
    std::map<std::size_t, std::optional<HorizontalRow>> read;
    const auto rowOf = [&](std::size_t row) -> const std::optional<HorizontalRow>& {
        const auto [found, isNew] = read.try_emplace(row);
        if (isNew)
            found->second = ReadHorizontal(build, rows, row);
        return found->second;
    };
    std::size_t lonelyRow = CLastRowWins::kNone; // told of already
    for (std::size_t bay = 0; bay < line.BayCount(); ++bay) {
        std::vector<double> bounds = {line.X(bay)};
        for (const VerticalStiffener& stiffener : vertical.bays[bay].stiffeners)
            if (stiffener.x > bounds.back() + kTouch)
                bounds.push_back(stiffener.x);
        if (line.X(bay + 1) > bounds.back() + kTouch)
            bounds.push_back(line.X(bay + 1));
        const std::size_t panels = bounds.size() - 1;
        for (std::size_t side = 0; side < kHorizontalSides; ++side) {
            std::array<std::vector<std::optional<double>>, kStages> stages;
            for (std::size_t stage = 0; stage < kStages; ++stage) {
                const std::size_t row = winners[stage][bay];
                stages[stage].resize(panels);
                if (row != CLastRowWins::kNone && rowOf(row))
                    stages[stage] = PanelsOf(*rowOf(row), side, panels);
            }
            for (std::size_t panel = 0; panel < panels; ++panel) {
                const bool isSecond = stages[1][panel].has_value();
                if (isSecond && !stages[0][panel]) {
                    if (winners[1][bay] != lonelyRow)
                        build.Omit(rows.Place(winners[1][bay], kStage),
                                   "同じパネルに1段目がないため，2段目の水平補剛材を図にできません．", {},
                                   OmissionKind::Limit);
                    lonelyRow = winners[1][bay];
                    continue;
                }
                for (std::size_t stage = 0; stage < kStages; ++stage)
                    if (stages[stage][panel])
                        result.stiffeners.push_back({bounds[panel], bounds[panel + 1], side == 0,
                                                     isSecond ? shares->ofTwo[stage] : shares->single,
                                                     *stages[stage][panel],
                                                     rows.Place(winners[stage][bay], kUpperCount + side)});
            }
        }
    }
    return result;
}

} // namespace sbd
