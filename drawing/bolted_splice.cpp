#include "drawing/bolted_splice.h"

#include "project/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace sbd {

namespace {

constexpr double kTouch = 0.5;         // mm
constexpr double kMostSize = 20'000;   // mm
constexpr std::size_t kMostLines = 60; // of bolts

enum class BoltForm { Whole, Few, Staggered };

struct FormRow {
    std::string word; ///< CP932
    BoltForm form = BoltForm::Whole;
    std::vector<std::size_t> outer{}; ///< of the outermost columns, the outermost last, on each side of the web
    bool fromTheEdge = true;
};

const FormRow* FormOf(std::string_view word)
{
    static const FormRow forms[] = {{Cp932("全孔引き")},
                                    {Cp932("2孔引き"), BoltForm::Few, {1}},
                                    {Cp932("4孔引き"), BoltForm::Few, {2}},
                                    {Cp932("6孔引き"), BoltForm::Few, {3}},
                                    {Cp932("24孔引き"), BoltForm::Few, {2, 1}},
                                    {Cp932("46孔引き"), BoltForm::Few, {3, 2}},
                                    {Cp932("68孔引き"), BoltForm::Few, {4, 3}},
                                    {Cp932("千鳥_外"), BoltForm::Staggered, {}, true},
                                    {Cp932("千鳥_内"), BoltForm::Staggered, {}, false}};
    const auto* found = std::ranges::find(forms, word, &FormRow::word);
    return found == std::end(forms) ? nullptr : found;
}

bool HasBoltAt(const FormRow& form, std::size_t column, std::size_t row, std::size_t columns, std::size_t rows)
{
    const std::size_t fromOutermost = columns - 1 - column;
    switch (form.form) {
    case BoltForm::Few:
        return fromOutermost >= form.outer.size() || row < form.outer[form.outer.size() - 1 - fromOutermost];
    case BoltForm::Staggered:
        return (fromOutermost + (form.fromTheEdge ? rows - 1 - row : row)) % 2 == 0;
    default:
        return true;
    }
}

/// Bolts that may be meant: columns and rows at equal steps.
struct Arrangement {
    std::size_t columns = 0;
    double columnStep = 0;
    std::size_t rows = 0;
    double rowStep = 0;
    std::size_t count = 0; ///< of one side of the splice
};

std::vector<std::pair<std::size_t, double>> LinesIn(double length, double step, bool mayBeHalf)
{
    std::vector<std::pair<std::size_t, double>> lines;
    if (const auto steps = StepsIn(length, step))
        lines.emplace_back(*steps + 1, step);
    // Of staggered bolts the pages do not say whether a step is that of one row or that of neighbouring rows.
    if (const auto steps = mayBeHalf && step > 0 ? StepsIn(length, step / 2) : std::nullopt; steps && *steps > 0)
        lines.emplace_back(*steps + 1, step / 2);
    return lines;
}

/// Rows that share a length: any number of them may be meant.
std::vector<std::pair<std::size_t, double>> RowsSharing(double length)
{
    constexpr std::size_t most = 12;
    if (length > -kTouch && length < kTouch)
        return {{1, 0.0}};
    std::vector<std::pair<std::size_t, double>> rows;
    for (std::size_t count = 2; length > 0 && count <= most; ++count)
        rows.emplace_back(count, length / static_cast<double>(count - 1));
    return rows;
}

} // namespace

std::optional<double> SpliceRow::Size(std::size_t column) const
{
    const std::optional<double> value = NumberIn(Cell(column));
    return value && std::abs(*value) <= kMostSize ? std::optional(std::abs(*value)) : std::nullopt;
}

void OmitInnerPlates(CDrawingBuild& build, const SpliceRow& plate, std::size_t thick)
{
    if (plate.Size(thick).value_or(0) > 0)
        build.Omit(plate.Place(thick), "内側の添接板は板厚だけを記し，形は図に表していません．", {},
                   OmissionKind::Limit);
}

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

double BoltRadius(CDrawingBuild& build, const SpliceRow& row, std::size_t column)
{
    std::string_view word = row.Cell(column);
    if (word.starts_with('M')) {
        word.remove_prefix(1);
        word = word.substr(0, word.find('('));
        if (const std::optional<double> value = NumberIn(word); value && *value >= 10 && *value <= 50)
            return *value / 2;
    }
    build.Omit(row.Place(column), "ボルトの呼びが M と数値の形ではないため，ボルトを図にできません．");
    return 0;
}

void AddChain(CDrawingBuild& build, std::string_view title, const std::vector<double>& xs,
              const std::vector<SourceCell>& sources)
{
    DimensionChain chain{Cp932(title), {}};
    for (std::size_t i = 0; i + 1 < xs.size(); ++i)
        if (xs[i + 1] - xs[i] > kTouch)
            chain.parts.push_back({xs[i], xs[i + 1], LengthText(xs[i + 1] - xs[i]), sources[i]});
    build.drawing.chains.push_back(std::move(chain));
}

std::optional<FlangeBolts> FlangeBoltsOf(CDrawingBuild& build, const FlangeBoltCells& cells)
{
    const SpliceRow& spacings = cells.spacings;
    for (const std::size_t column : {cells.lc, cells.ld, cells.le, cells.bc, cells.be})
        if (!spacings.Size(column)) {
            build.Omit(spacings.Place(column), "ボルトの間隔が数値ではないため，ボルトを図にできません．");
            return std::nullopt;
        }
    const auto size = [&](std::size_t column) { return spacings.Size(column).value_or(0); };
    const FormRow* form = FormOf(cells.numbers.Cell(cells.form));
    const bool isStaggered = form != nullptr && form->form == BoltForm::Staggered;
    const double across = cells.width / 2 - size(cells.bc) / 2 - size(cells.be);
    const auto columns = LinesIn(cells.length / 2 - size(cells.lc) / 2 - size(cells.le), size(cells.ld), isStaggered);
    const auto rows = cells.bd ? LinesIn(across, size(*cells.bd), isStaggered) : RowsSharing(across);
    if (columns.empty() || rows.empty()) {
        build.Omit(spacings.Place(columns.empty() ? cells.ld : cells.bd.value_or(cells.be)),
                   columns.empty() ? "Lc，LD，Leの合計が添接板の長さに合わないため，ボルトを図にできません．"
                                   : "Bc，BD，Beの合計が添接板の外側幅に合わないため，ボルトを図にできません．");
        return std::nullopt;
    }
    const auto limit = [&](std::string_view reason) {
        build.Omit(cells.numbers.Place(cells.form), reason, {}, OmissionKind::Limit);
        return std::nullopt;
    };
    if (form == nullptr)
        return limit("この孔引き形式のボルトの位置は図に表していません．");
    const double told = NumberIn(cells.numbers.Cell(cells.count)).value_or(-1);
    std::vector<Arrangement> all;
    std::vector<Arrangement> fitting;
    for (const auto& [columnCount, columnStep] : columns)
        for (const auto& [rowCount, rowStep] : rows) {
            if (form->outer.size() > columnCount || (isStaggered && rowCount < 2))
                continue;
            // The inner one of an odd number of rows: text and figure of the page differ.
            if (isStaggered && !form->fromTheEdge && rowCount % 2 != 0)
                continue;
            Arrangement each{columnCount, columnStep, rowCount, rowStep, 0};
            for (std::size_t column = 0; column < columnCount; ++column)
                for (std::size_t row = 0; row < rowCount; ++row)
                    each.count += HasBoltAt(*form, column, row, columnCount, rowCount) ? 2 : 0;
            all.push_back(each);
            if (static_cast<double>(each.count) == told)
                fitting.push_back(each);
        }
    if (all.empty())
        return limit("この孔引き形式のボルトの位置は図に表していません．");
    if (fitting.size() > 1)
        return limit("この本数に合うボルトの並びが2通り以上あるため，図にできません．");
    if (fitting.empty()) {
        std::string counts;
        for (const Arrangement& each : all)
            if (const std::string text = std::to_string(each.count) + "本"; counts.find(text) == std::string::npos)
                counts += (counts.empty() ? "" : "か") + text;
        build.Omit(cells.numbers.Place(cells.count), std::string(cells.fits) + "が，添接板とボルト間隔から決まる本数("
                                                         + counts + ")と違うため，ボルトを図にできません．");
        return std::nullopt;
    }
    FlangeBolts bolts;
    bolts.radius = BoltRadius(build, cells.numbers, cells.kind);
    if (!(bolts.radius > 0))
        return std::nullopt;
    const Arrangement& only = fitting.front();
    for (std::size_t column = 0; column < only.columns; ++column) {
        bolts.columns.push_back(size(cells.lc) / 2 + static_cast<double>(column) * only.columnStep);
        auto& has = bolts.has.emplace_back();
        for (std::size_t row = 0; row < only.rows; ++row)
            has.push_back(HasBoltAt(*form, column, row, only.columns, only.rows));
    }
    for (std::size_t row = 0; row < only.rows; ++row)
        bolts.rows.push_back(size(cells.bc) / 2 + static_cast<double>(row) * only.rowStep);
    return bolts;
}

void DrawFlangeBolts(CDrawingBuild& build, const FlangeBoltCells& cells, const FlangeBolts& bolts, double middle,
                     std::string_view title)
{
    const SpliceRow& spacings = cells.spacings;
    for (std::size_t column = 0; column < bolts.columns.size(); ++column)
        for (std::size_t row = 0; row < bolts.rows.size(); ++row) {
            if (!bolts.has[column][row])
                continue;
            for (const double sx : {-1.0, 1.0})
                for (const double sy : {-1.0, 1.0})
                    build.Circle(DrawingLayer::Bolt, {sx * bolts.columns[column], middle + sy * bolts.rows[row]},
                                 bolts.radius, spacings.Place(column == 0 ? cells.lc : cells.ld));
        }
    std::vector<double> xs;
    std::vector<SourceCell> sources;
    const auto add = [&](double x, std::size_t ahead) {
        xs.push_back(x);
        sources.push_back(spacings.Place(ahead));
    };
    const std::size_t count = bolts.columns.size();
    add(-cells.length / 2, cells.le);
    for (std::size_t column = count; column-- > 0;)
        add(-bolts.columns[column], column == 0 ? cells.lc : cells.ld);
    for (std::size_t column = 0; column < count; ++column)
        add(bolts.columns[column], column + 1 == count ? cells.le : cells.ld);
    add(cells.length / 2, cells.le);
    AddChain(build, title, xs, sources);
    const auto right = [&](double y, std::string_view name, double value, std::size_t column) {
        build.Label({cells.labelsAt, y}, std::string(name) + " " + LengthText(value),
                    cells.labelsAt < 0 ? LabelRow::Ahead : LabelRow::Behind, spacings.Place(column));
    };
    const double bc = 2 * bolts.rows.front();
    const double be = spacings.Size(cells.be).value_or(0);
    right(middle, "Bc", bc, cells.bc);
    if (cells.bd && bolts.rows.size() > 1)
        right(middle + (bolts.rows.front() + bolts.rows.back()) / 2, "BD", spacings.Size(*cells.bd).value_or(0),
              *cells.bd);
    right(middle - cells.width / 2 + be / 2, "Be", be, cells.be);
}

void DrawWebBolts(CDrawingBuild& build, const WebBoltCells& cells)
{
    enum Column : std::size_t { kU1 = 5, kU12 = 6, kL12 = 7, kL1 = 8, kC = 9, kX = 10, kU23 = 12, kL23 = 13 };
    const SpliceRow& spacings = cells.spacings;
    const auto size = [&](std::size_t column) { return spacings.Size(column).value_or(-1); };
    for (const std::size_t column : {kU1, kU12, kL12, kL1, kC, kX})
        if (size(column) < 0) {
            build.Omit(spacings.Place(column), "ボルトの間隔が数値ではないため，ボルトを図にできません．");
            return;
        }
    const auto whole = [&](std::size_t column) -> std::size_t {
        const std::optional<double> value = NumberIn(cells.numbers.Cell(column));
        const bool sound =
            value && *value >= 1 && *value == std::floor(*value) && *value <= static_cast<double>(kMostLines);
        if (!sound)
            build.Omit(cells.numbers.Place(column),
                       "列数または割数が1から60の整数ではないため，ボルトを図にできません．");
        return sound ? static_cast<std::size_t>(*value) : 0;
    };
    std::size_t columns = whole(cells.columns);
    const std::size_t parts = columns > 0 ? whole(cells.parts) : 0;
    if (parts == 0)
        return;
    if (cells.columnsOfBothSides) {
        if (columns % 2 != 0) {
            build.Omit(cells.numbers.Place(cells.columns),
                       "WEB全列数は継手の両側の合計ですが，奇数のため，ボルトを図にできません．");
            return;
        }
        columns /= 2;
    }
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
    const std::vector<double> down = inward(cells.top, -1, kU1, kU12, kU23);
    const std::vector<double> up = inward(cells.bottom, 1, kL1, kL12, kL23);
    const double between = down.back() - up.back();
    if (!(between > 0)) {
        build.Omit(spacings.Place(kU1), "上下の間隔の合計が腹板の高さを超えるため，ボルトを図にできません．");
        return;
    }
    const double step = between / static_cast<double>(parts);
    // "17@105" is what was reckoned; another height of the web is seen by it.
    if (const std::string_view cell = cells.reckoned ? spacings.Cell(*cells.reckoned) : std::string_view();
        cell.find('@') != std::string_view::npos) {
        const std::optional<double> told = NumberIn(cell.substr(cell.find('@') + 1));
        constexpr double slack = 1; // mm: it is rounded
        if (told && std::abs(*told - step) > slack)
            build.Omit(spacings.Place(*cells.reckoned),
                       "この中間部間隔は，腹板の高さと割数から決まる間隔(" + LengthText(step) + "mm)と違います．");
    }
    std::vector<double> levels = down;
    for (std::size_t i = 1; i < parts; ++i)
        levels.push_back(down.back() - step * static_cast<double>(i));
    levels.insert(levels.end(), up.rbegin(), up.rend());

    if (cells.plate) {
        const SpliceRow& plate = *cells.plate;
        const double width = plate.Size(cells.plateWidth).value_or(0);
        const double length = plate.Size(cells.plateLength).value_or(0);
        const double middle = (cells.top + cells.bottom) / 2;
        if (!(width > 0) || !(length > 0))
            build.Omit(plate.Place(width > 0 ? cells.plateLength : cells.plateWidth),
                       "添接板の幅または長さが入力されていないため，添接板を図にできません．", {}, OmissionKind::Limit);
        else if (std::abs(size(kU1) - size(kL1)) > kTouch)
            build.Omit(plate.Place(cells.plateLength),
                       "DU1とDL1が異なり，腹板の添接板の高さの位置が決まらないため，図にできません．", {},
                       OmissionKind::Limit);
        else
            build.Shape(DrawingLayer::SplicePlate, ShapeKind::Polygon,
                        {{-width / 2, middle + length / 2},
                         {width / 2, middle + length / 2},
                         {width / 2, middle - length / 2},
                         {-width / 2, middle - length / 2}},
                        plate.Place(cells.plateWidth));
    }
    const double radius = BoltRadius(build, cells.numbers, cells.kind);
    if (!(radius > 0))
        return;
    for (const double level : levels)
        for (std::size_t column = 0; column < columns; ++column)
            for (const double sign : {-1.0, 1.0})
                build.Circle(DrawingLayer::Bolt,
                             {sign * (size(kC) / 2 + static_cast<double>(column) * size(kX)), level}, radius,
                             spacings.Place(column == 0 ? kC : kX));
    std::vector<double> xs;
    std::vector<SourceCell> sources;
    for (std::size_t column = columns; column-- > 0;) {
        xs.push_back(-size(kC) / 2 - static_cast<double>(column) * size(kX));
        sources.push_back(spacings.Place(column == 0 ? kC : kX));
    }
    for (std::size_t column = 0; column < columns; ++column) {
        xs.push_back(size(kC) / 2 + static_cast<double>(column) * size(kX));
        sources.push_back(spacings.Place(kX));
    }
    AddChain(build, "腹板", xs, sources);
    const auto beside = [&](double y, std::string_view name, double value, SourceCell source) {
        build.Label({cells.labelsAt, y}, std::string(name) + " " + LengthText(value),
                    cells.labelsAt < 0 ? LabelRow::Ahead : LabelRow::Behind, source);
    };
    const auto right = [&](double y, std::string_view name, double value, std::size_t column) {
        beside(y, name, value, spacings.Place(column));
    };
    right(cells.top - size(kU1) / 2, "DU1", size(kU1), kU1);
    if (size(kU12) > 0)
        right(cells.top - size(kU1) - size(kU12) / 2, "DU12", size(kU12), kU12);
    if (down.size() > 2)
        right(down[2] + size(kU23) / 2, "DU23", size(kU23), kU23);
    beside((down.back() + up.back()) / 2, std::to_string(parts) + "@", step,
           cells.reckoned ? spacings.Place(*cells.reckoned) : cells.numbers.Place(cells.parts));
    if (up.size() > 2)
        right(up[2] - size(kL23) / 2, "DL23", size(kL23), kL23);
    if (size(kL12) > 0)
        right(cells.bottom + size(kL1) + size(kL12) / 2, "DL12", size(kL12), kL12);
    right(cells.bottom + size(kL1) / 2, "DL1", size(kL1), kL1);
}

} // namespace sbd
