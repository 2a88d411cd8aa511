#include "results/result_table.h"

#include "project/text.h"
#include "results/result_faults.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <unordered_set>
#include <utility>

namespace sbd {

using namespace literals;

namespace {

constexpr int kNumberWidth = 35;
constexpr std::size_t kMarginRows = 100;
constexpr int kDecimals = 3;
constexpr double kPerMille = 1000;
constexpr std::size_t kDeflection = 2; // Uz, shown positive downward
constexpr double kLeastReaction = 0.001;
constexpr std::int32_t kNoResults = -1;

using NameSet = std::unordered_set<std::string_view>;

/// The values of one load case lie far from each other: none is in the cache when its turn comes, unless it was asked for.
void WantSoon([[maybe_unused]] const double* first, [[maybe_unused]] const double* last)
{
#if defined(__GNUC__)
    __builtin_prefetch(first);
    __builtin_prefetch(last);
#endif
}

/// Tells of one name after the other whether it is taken.
class NameTest {
public:
    NameTest(const AnalysisModel& model, const ResultSelection& selection)
        : girder_(selection.girder + "-")
        , station_(selection.station)
        , takesAll_(selection.station == AllWord())
        , excluded_(selection.excludedNames.begin(), selection.excludedNames.end())
    {
        if (selection.girder == AllWord())
            girders_.insert(model.girderNames.begin(), model.girderNames.end());
    }

    [[nodiscard]] bool Takes(std::string_view name)
    {
        if (!excluded_.empty() && excluded_.contains(name))
            return false;
        return takesAll_ || BeginsWith(name, girder_) || BeginsWith(name, station_)
               || (!girders_.empty() && BeginsWithGirder(name));
    }

private:
    /// Most names differ in their first byte already.
    static bool BeginsWith(std::string_view name, std::string_view beginning)
    {
        return beginning.empty() || (!name.empty() && name.front() == beginning.front() && name.starts_with(beginning));
    }

    /// Names of a girder follow each other, so the one found last is asked first.
    bool BeginsWithGirder(std::string_view name)
    {
        if (!lastFound_.empty() && BeginsWith(name, lastFound_))
            return true;
        for (std::size_t dash = name.find('-'); dash != std::string_view::npos; dash = name.find('-', dash + 1))
            if (girders_.contains(name.substr(0, dash))) {
                lastFound_ = name.substr(0, dash + 1);
                return true;
            }
        return false;
    }

    std::string girder_;
    std::string_view station_;
    bool takesAll_;
    NameSet excluded_;
    NameSet girders_;
    std::string_view lastFound_;
};

constexpr int kCaseWidth = 170; // for names of 20 bytes

/// The columns of an envelope for one of values.
void AppendEnvelope(std::vector<ResultColumn>& columns, const ResultColumn& value)
{
    for (const auto& [part, word] : {std::pair(ResultPart::Greatest, "最大"), std::pair(ResultPart::GreatestCase, ""),
                                     std::pair(ResultPart::Least, "最小"), std::pair(ResultPart::LeastCase, "")}) {
        ResultColumn own = value;
        own.part = part;
        own.head = own.IsCase() ? "荷重"_cp932 : value.head + Cp932(word);
        own.width = own.IsCase() ? kCaseWidth : value.width + 20;
        columns.push_back(std::move(own));
    }
}

std::vector<ResultColumn> ColumnsOf(const ResultSelection& selection)
{
    const ResultKind kind = selection.kind;
    const ResultKindInfo& info = InfoOf(kind);
    std::vector<ResultColumn> columns;
    const auto add = [&](std::string_view prefix, std::size_t component, std::size_t place, double factor) {
        const ResultColumn column{Cp932(prefix) + ComponentWord(kind, component), info.valueWidth, component, place,
                                  factor};
        if (selection.envelope)
            AppendEnvelope(columns, column);
        else
            columns.push_back(column);
    };
    for (std::size_t component = 0; component < kNodeComponents; ++component) {
        if (!selection.columnOn[component])
            continue;
        if (info.bothEnds) {
            add("左", component, component, 1);
            add("右", component, component + kNodeComponents, -1);
        } else if (kind == ResultKind::Displacement) {
            add(info.headPrefix, component, component, component == kDeflection ? -kPerMille : kPerMille);
        } else {
            add(info.headPrefix, component, component, 1);
        }
    }
    return columns;
}

/// With what the load cases of a column decide.
std::string HeadOf(const std::vector<ResultColumn>& columns, std::size_t column)
{
    return columns[column].IsCase() && column > 0 ? columns[column - 1].head + "の荷重"_cp932 : columns[column].head;
}

} // namespace

std::string SortHead(const ResultSelection& selection)
{
    if (selection.sortColumn == kNameColumn)
        return Cp932(InfoOf(selection.kind).nameHead);
    const std::vector<ResultColumn> columns = ColumnsOf(selection);
    return selection.sortColumn >= kFirstValueColumn && selection.sortColumn - kFirstValueColumn < columns.size()
               ? HeadOf(columns, selection.sortColumn - kFirstValueColumn)
               : std::string();
}

std::size_t SortColumnOf(const ResultSelection& selection, std::string_view head)
{
    ResultSelection sorted = selection;
    const std::size_t end = kFirstValueColumn + ColumnsOf(selection).size();
    for (sorted.sortColumn = kNameColumn; sorted.sortColumn < end; ++sorted.sortColumn)
        if (SortHead(sorted) == head)
            return sorted.sortColumn;
    return 0;
}

CResultTable::CResultTable(const AnalysisResults& results, const ResultSelection& selection)
    : results_(&results)
    , kind_(selection.kind)
    , load_(LoadCaseOf(results.model, selection.load))
{
    if (selection.envelope) {
        cases_ = EnvelopeCases(results.model, selection);
        load_ = cases_.empty() ? std::nullopt : std::optional(cases_.front());
    }
    if (!load_)
        return;
    const std::uint64_t values = ValuesOfItem(kind_);
    valuesOfItem_ = values * static_cast<std::uint32_t>(std::max(results.model.loadCaseCount, 1));
    valuesBefore_ = values * (cases_.empty() ? *load_ : cases_.back());
    columns_ = ColumnsOf(selection);
    for (const ResultColumn& column : columns_)
        valuesBehind_ = std::max<std::uint64_t>(valuesBehind_, column.place + 1);
    if (!cases_.empty())
        valuesBehind_ = values; // of each item all
    TakeNames(selection);
    Filter(selection.filter);
    if (!cases_.empty())
        FindEnvelope();
    if (kind_ == ResultKind::Reaction)
        DropSmallReactions();
    Sort(selection.sortColumn, selection.descending);
    if (cases_.empty())
        FindExtremes();
    else
        FindEnvelopeExtremes();
}

void CResultTable::FindEnvelope()
{
    const std::size_t values = ValuesOfItem(kind_);
    const ResultValues& all = CubeOf(*results_, kind_).values;
    envelope_.resize(items_.size() * values);
    envelopeOf_.resize(items_.empty() ? 0 : items_.back() + std::size_t{1});
    for (std::size_t i = 0; i < items_.size(); ++i) {
        const std::span own = std::span(envelope_).subspan(i * values, values);
        envelopeOf_[items_[i]] = static_cast<std::uint32_t>(i);
        const double* const first = all.data() + items_[i] * valuesOfItem_;
        if (EnvelopeOfItem(first, cases_, own) == 0)
            continue;
        for (const ResultColumn& column : columns_) // of the columns that are shown
            if (column.part == ResultPart::Greatest)
                notNumbers_ += static_cast<std::size_t>(std::ranges::count_if(cases_, [&](std::size_t loadCase) {
                    return !std::isfinite(first[loadCase * values + column.place]);
                }));
    }
}

double CResultTable::EnvelopeValueOf(std::uint32_t item, const ResultColumn& column) const
{
    const EnvelopeValue value = envelope_[envelopeOf_[item] * ValuesOfItem(kind_) + column.place].Times(column.factor);
    if (!value.IsThere())
        return std::numeric_limits<double>::quiet_NaN();
    switch (column.part) {
    case ResultPart::GreatestCase:
        return value.greatestCase;
    case ResultPart::Least:
        return value.least;
    case ResultPart::LeastCase:
        return value.leastCase;
    default:
        return value.greatest;
    }
}

void CResultTable::FindEnvelopeExtremes()
{
    constexpr std::size_t columnsOfValue = 4; // see AppendEnvelope
    constexpr std::size_t least = 2;
    const auto take = [](ColumnExtremes& own, double value, std::size_t row) {
        if (value > own.max) {
            own.max = value;
            own.maxRow = row;
        }
        if (value < own.min) {
            own.min = value;
            own.minRow = row;
        }
    };
    const std::size_t values = ValuesOfItem(kind_);
    extremes_.resize(columns_.size());
    for (std::size_t row = 0; row < items_.size(); ++row) {
        const EnvelopeValue* const own = envelope_.data() + envelopeOf_[items_[row]] * values;
        for (std::size_t column = 0; column < columns_.size(); column += columnsOfValue) {
            const EnvelopeValue& value = own[columns_[column].place];
            const double factor = columns_[column].factor;
            if (!value.IsThere())
                continue;
            take(extremes_[column], (factor < 0 ? value.least : value.greatest) * factor, row);
            take(extremes_[column + least], (factor < 0 ? value.greatest : value.least) * factor, row);
        }
    }
}

std::string CResultTable::FaultLine() const
{
    return results_ == nullptr ? std::string() : ResultFaultLine(*results_);
}

std::size_t CResultTable::ItemsThere() const
{
    const std::uint64_t values = CubeOf(*results_, kind_).values.size();
    const std::uint64_t behind = valuesBefore_ + valuesBehind_;
    return values < behind ? 0 : static_cast<std::size_t>((values - behind) / valuesOfItem_ + 1);
}

const double* CResultTable::ValuesOf(std::size_t item) const
{
    return CubeOf(*results_, kind_).values.data() + item * valuesOfItem_ + valuesBefore_;
}

/// By the names and flags alone, which lie close together in memory.
void CResultTable::TakeNames(const ResultSelection& selection)
{
    const std::vector<std::string>& names = NamesOf(results_->model, kind_);
    const std::vector<std::int32_t>& flags = results_->nodeTable.nodeFlags;
    const std::size_t count = std::min(names.size(), ItemsThere());
    const std::size_t flagged = kind_ == ResultKind::Force ? 0 : std::min(flags.size(), count);
    NameTest test(results_->model, selection);
    items_.reserve(std::min<std::size_t>(count, 65'536));
    for (std::size_t item = 0; item < count; ++item)
        if ((item >= flagged || flags[item] != kNoResults) && test.Takes(names[item]))
            items_.push_back(static_cast<std::uint32_t>(item));
}

/// What is no number stays: it has to be seen.
void CResultTable::DropSmallReactions()
{
    if (!cases_.empty()) {
        std::erase_if(items_, [&](std::uint32_t item) {
            return std::ranges::none_of(columns_, [&](const ResultColumn& column) {
                return !column.IsCase() && !(std::abs(EnvelopeValueOf(item, column)) <= kLeastReaction);
            });
        });
        return;
    }
    std::erase_if(items_, [&](std::uint32_t item) {
        const double* const values = ValuesOf(item);
        return std::ranges::none_of(
            columns_, [&](const ResultColumn& column) { return !(std::abs(values[column.place]) <= kLeastReaction); });
    });
}

void CResultTable::Filter(std::string_view text)
{
    if (text.empty())
        return;
    const std::vector<std::string>& names = NamesOf(results_->model, kind_);
    const auto holds = [text](std::string_view name) {
        for (std::size_t at = 0; at < name.size(); at += CharacterLength(name, at))
            if (name.substr(at).starts_with(text))
                return true;
        return false;
    };
    std::erase_if(items_, [&](std::uint32_t item) { return !holds(names[item]); });
}

void CResultTable::Sort(std::size_t gridColumn, bool descending)
{
    if (gridColumn < kNameColumn || gridColumn >= GridColumnCount())
        return;
    if (gridColumn == kNameColumn) {
        const std::vector<std::string>& names = NamesOf(results_->model, kind_);
        std::ranges::stable_sort(items_, [&](std::uint32_t a, std::uint32_t b) {
            return descending ? names[b] < names[a] : names[a] < names[b];
        });
        return;
    }
    const ResultColumn& column = columns_[gridColumn - kFirstValueColumn];
    const auto valueOf = [&](std::uint32_t item) {
        return cases_.empty() ? ValuesOf(item)[column.place] * column.factor : EnvelopeValueOf(item, column);
    };
    std::ranges::stable_sort(items_, [&](std::uint32_t a, std::uint32_t b) {
        const double first = valueOf(a);
        const double second = valueOf(b);
        if (std::isnan(first) || std::isnan(second))
            return !std::isnan(first) && std::isnan(second);
        return descending ? second < first : first < second;
    });
}

void CResultTable::FindExtremes()
{
    struct Probe {
        std::size_t place;
        double factor;
        double max;
        double min;
        std::size_t maxRow;
        std::size_t minRow;
    };
    constexpr auto nowhere = static_cast<std::size_t>(-1);
    std::vector<Probe> probes;
    for (const ResultColumn& column : columns_)
        probes.push_back({column.place, column.factor, ColumnExtremes().max, ColumnExtremes().min, nowhere, nowhere});
    constexpr std::size_t ahead = 12; // rows whose values are on their way while those of a row are compared
    const double* const all = items_.empty() ? nullptr : ValuesOf(0);
    for (std::size_t row = 0; row < items_.size(); ++row) {
        if (!probes.empty() && row + ahead < items_.size()) {
            const double* const next = all + items_[row + ahead] * valuesOfItem_;
            WantSoon(next, next + valuesBehind_ - 1);
        }
        const double* const values = all + items_[row] * valuesOfItem_;
        for (Probe& probe : probes) {
            // Null only where there is no row. NOLINTNEXTLINE(clang-analyzer-core.NullDereference)
            const double value = values[probe.place] * probe.factor;
            if (!std::isfinite(value)) {
                ++notNumbers_;
                continue;
            }
            if (value > probe.max) {
                probe.max = value;
                probe.maxRow = row;
            }
            if (value < probe.min) {
                probe.min = value;
                probe.minRow = row;
            }
        }
    }
    const auto rowOf = [](std::size_t row) { return row == nowhere ? std::nullopt : std::optional(row); };
    for (const Probe& probe : probes)
        extremes_.push_back({rowOf(probe.maxRow), rowOf(probe.minRow), probe.max, probe.min});
}

std::string_view CResultTable::Name(std::size_t row) const
{
    return NamesOf(results_->model, kind_)[items_[row]];
}

double CResultTable::Value(std::size_t row, std::size_t column) const
{
    return cases_.empty() ? ValuesOf(items_[row])[columns_[column].place] * columns_[column].factor
                          : EnvelopeValueOf(items_[row], columns_[column]);
}

std::size_t CResultTable::GridRowCount() const
{
    return load_ ? NamesOf(results_->model, kind_).size() + kMarginRows : 0;
}

std::size_t CResultTable::GridColumnCount() const
{
    return load_ ? kFirstValueColumn + columns_.size() : 0;
}

int CResultTable::GridColumnWidth(std::size_t gridColumn) const
{
    if (gridColumn == kNumberColumn)
        return kNumberWidth;
    return gridColumn == kNameColumn ? InfoOf(kind_).nameWidth : columns_[gridColumn - kFirstValueColumn].width;
}

std::string CResultTable::HeadText(std::size_t gridColumn) const
{
    if (gridColumn == kNumberColumn)
        return "253";
    return gridColumn == kNameColumn ? Cp932(InfoOf(kind_).nameHead) : columns_[gridColumn - kFirstValueColumn].head;
}

bool CResultTable::HasWords(std::size_t gridColumn) const
{
    return gridColumn == kNameColumn
           || (gridColumn >= kFirstValueColumn && gridColumn < GridColumnCount()
               && columns_[gridColumn - kFirstValueColumn].IsCase());
}

std::string CResultTable::CellOf(const ResultColumn& column, double value) const
{
    if (!column.IsCase())
        return ValueText(value);
    return std::isnan(value) ? std::string() : ShownLoadAt(results_->model, static_cast<std::int64_t>(value));
}

std::string CResultTable::Unit(std::size_t gridColumn) const
{
    return gridColumn >= kFirstValueColumn && gridColumn < GridColumnCount() && !HasWords(gridColumn)
               ? UnitWord(kind_, columns_[gridColumn - kFirstValueColumn].component)
               : std::string();
}

std::string CResultTable::ValueText(double value) const
{
    std::string text;
    if (!std::isfinite(value)) { // the sign of what is no number says nothing
        AppendPadded(text,
                     std::isnan(value) ? "NaN"
                     : value > 0       ? "Inf"
                                       : "-Inf",
                     static_cast<std::size_t>(InfoOf(kind_).textWidth), false);
        return text;
    }
    AppendFixed(text, value, InfoOf(kind_).textWidth, kDecimals);
    return text;
}

std::string CResultTable::ExtremeText(std::size_t gridRow, std::size_t gridColumn) const
{
    if (gridColumn == kNameColumn)
        return gridRow == kMaxRow ? "最大値"_cp932 : "最小値"_cp932;
    const std::size_t column = gridColumn - kFirstValueColumn;
    const bool isCase = columns_[column].IsCase(); // that of the extreme value beside it
    const ColumnExtremes& extremes = extremes_[isCase ? column - 1 : column];
    const std::optional<std::size_t> row = gridRow == kMaxRow ? extremes.maxRow : extremes.minRow;
    if (!row)
        return {};
    if (isCase)
        return *row < items_.size() && items_[*row] < ItemsThere() ? CellOf(columns_[column], Value(*row, column))
                                                                   : std::string();
    return ValueText(gridRow == kMaxRow ? extremes.max : extremes.min);
}

bool CResultTable::IsFilled(std::size_t gridRow, std::size_t gridColumn) const
{
    if (gridColumn < kNameColumn || gridColumn >= GridColumnCount() || items_.empty() || gridRow < kMaxRow
        || gridRow >= kFirstValueRow + items_.size())
        return false;
    if (gridRow < kFirstValueRow)
        return true;
    const std::size_t item = items_[gridRow - kFirstValueRow];
    return item < NamesOf(results_->model, kind_).size() && item < ItemsThere();
}

std::string CResultTable::CellText(std::size_t gridRow, std::size_t gridColumn) const
{
    if (gridRow >= GridRowCount() || gridColumn >= GridColumnCount())
        return {};
    if (gridRow == 0)
        return HeadText(gridColumn);
    if (gridColumn == kNumberColumn)
        return std::to_string(gridRow);
    if (!IsFilled(gridRow, gridColumn))
        return {};
    if (gridRow < kFirstValueRow)
        return ExtremeText(gridRow, gridColumn);
    const std::size_t row = gridRow - kFirstValueRow;
    return gridColumn == kNameColumn
               ? std::string(Name(row))
               : CellOf(columns_[gridColumn - kFirstValueColumn], Value(row, gridColumn - kFirstValueColumn));
}

std::optional<std::uint32_t> CResultTable::CellColor(std::size_t gridRow, std::size_t gridColumn) const
{
    if (!IsFilled(gridRow, gridColumn))
        return std::nullopt;
    if (gridRow < kFirstValueRow)
        return gridRow == kMaxRow ? kMaxColor : kMinColor;
    if (gridColumn == kNameColumn)
        return std::nullopt;
    const ColumnExtremes& extremes = extremes_[gridColumn - kFirstValueColumn];
    const std::size_t row = gridRow - kFirstValueRow;
    // A value that is both is shown as the smallest, which is coloured last.
    if (extremes.minRow == row)
        return kMinColor;
    return extremes.maxRow == row ? std::optional(kMaxColor) : std::nullopt;
}

std::optional<std::uint32_t> CResultTable::CellBackground(std::size_t gridRow, std::size_t gridColumn) const
{
    return gridRow < kFirstValueRow && IsFilled(gridRow, gridColumn) ? std::optional(kExtremesBackground)
                                                                     : std::nullopt;
}

} // namespace sbd
