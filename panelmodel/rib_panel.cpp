#include "panelmodel/rib_panel.h"

#include "panelmodel/panel_parts.h"
#include "project/block_rules.h"
#include "project/sbd_data.h"
#include "project/text.h"

#include <algorithm>
#include <initializer_list>

namespace sbd {

namespace {

using namespace literals;

constexpr int kNames = 5; // columns 1 to 5
constexpr int kAutomaticColumn = 2;
constexpr int kFixedTextColumn = 3;
constexpr int kNoCount = -1; // a count whose cell is empty

std::string CountCell(int count)
{
    std::string text;
    if (count != kNoCount)
        AppendFixed(text, count, 0, 0);
    return text;
}

int CellCount(std::string_view text)
{
    return Trim(text).empty() ? kNoCount : std::clamp(LeadingInteger(text), 0, kMostRibs);
}

/// The numbers of a list cell.
std::vector<double> CellNumbers(std::string_view text)
{
    std::vector<double> numbers;
    for (const std::string_view word : SplitWords(text))
        numbers.push_back(LeadingNumber(word).value_or(0.0));
    return numbers;
}

void AppendNumber(std::string& list, double number)
{
    if (!IsGiven(number))
        return;
    if (!list.empty())
        list += ", ";
    list += NumberCell(number);
}

/// At most `count` numbers are shown; while the count is empty, all that there are. Fewer stay as they were typed until
/// the panel is closed: the zeros that are written for them are told, not put in under the user's hand.
std::string SpacingCell(const RibSpacing& spacing, int count)
{
    if (!spacing.word.empty())
        return spacing.word;
    const std::size_t most = static_cast<std::size_t>(count == kNoCount ? kMostRibs : std::clamp(count, 0, kMostRibs));
    const std::size_t shown = std::min(spacing.numbers.size(), most);
    std::string text;
    for (std::size_t i = 0; i < shown; ++i)
        AppendNumber(text, spacing.At(i));
    return text;
}

RibSpacing CellSpacing(std::string_view text)
{
    for (const std::string& word : {"等間隔"_cp932, "基準線"_cp932})
        if (text.find(word) != std::string_view::npos)
            return {word, {}};
    return {{}, CellNumbers(text)};
}

int FullCount(int count)
{
    return std::clamp(count, 0, kMostRibs);
}

/// As the data hold it: a word, or `count` numbers; zeros at the end are left out.
RibSpacing FullSpacing(const RibSpacing& spacing, int count)
{
    if (!spacing.word.empty())
        return {spacing.word, {}};
    RibSpacing full = spacing;
    full.numbers.resize(static_cast<std::size_t>(count), 0.0);
    full.Tidy();
    return full;
}

/// The zeros at the end, which the data do not hold: the cell shows as many numbers as the count says.
void UnfoldSpacing(RibSpacing& spacing, int count)
{
    const std::size_t shown = static_cast<std::size_t>(FullCount(count));
    if (spacing.word.empty() && spacing.numbers.size() < shown)
        spacing.numbers.resize(shown, 0.0);
}

/// A new count, and the zeros that it adds to the spacings beside it.
void TakeCount(int& count, std::string_view text, std::initializer_list<RibSpacing*> spacings)
{
    count = CellCount(text);
    for (RibSpacing* spacing : spacings)
        UnfoldSpacing(*spacing, count);
}

} // namespace

// --- what both share ---------------------------------------------------------------------------------

template <typename Record>
CRibPanelModel<Record>::CRibPanelModel(const CSbdData& data, int block, const PanelSettings& settings,
                                       const std::vector<Record>& stored, WordList texts, std::vector<int> limits)
    : CRecordPanelModel<Record>(data, block, settings, 1, stored)
    , optionRow_(AutomaticOptionRow(block))
    , automatic_(data.Option(301, static_cast<std::size_t>(optionRow_) - 1))
    , baselineAutomatic_(automatic_)
    , texts_(std::move(texts))
    , limits_(std::move(limits))
{
    if (const OptionPanel* panel = FindOptionPanel(301))
        automaticWords_ = panel->words[static_cast<std::size_t>(optionRow_) - 1];
}

template <typename Record>
int CRibPanelModel<Record>::ColumnWidth(int column) const
{
    const int base = this->Panel().widths[static_cast<std::size_t>(column)];
    const int place = column - (this->ColumnCount() - static_cast<int>(limits_.size()));
    if (place < 0)
        return base;
    return base + std::max(this->Settings().rowWidthMode, limits_[static_cast<std::size_t>(place)]);
}

template <typename Record>
std::string CRibPanelModel<Record>::Head(int column, int) const
{
    return this->Panel().heads[static_cast<std::size_t>(column)];
}

template <typename Record>
bool CRibPanelModel<Record>::IsLocked(int row, int column) const
{
    return !this->IsInside(row, column) || (row == 1 && column >= kFixedTextColumn);
}

template <typename Record>
CellColor CRibPanelModel<Record>::TextColor(int row, int column) const
{
    return row == 1 && column >= kFixedTextColumn ? CellColor(kMandatoryColor) : std::nullopt;
}

template <typename Record>
bool CRibPanelModel<Record>::DoIsEditable(int row, int column) const
{
    return row > 1 || column == kAutomaticColumn;
}

template <typename Record>
const WordList& CRibPanelModel<Record>::DoWords(int row, int column) const
{
    if (row == 1)
        return column == kAutomaticColumn ? automaticWords_ : kFreeText;
    return CRecordPanelModel<Record>::DoWords(row, column);
}

template <typename Record>
std::string CRibPanelModel<Record>::HeadRowText(int, int column) const
{
    if (column == 1)
        return "自動計算"_cp932;
    if (column == kAutomaticColumn)
        return automatic_;
    const std::size_t place = static_cast<std::size_t>(column - kFixedTextColumn);
    return place < texts_.size() ? texts_[place] : std::string();
}

template <typename Record>
CellEffect CRibPanelModel<Record>::SetHeadRowCell(int, int, std::string_view text)
{
    automatic_ = text;
    return CellEffect::Cell;
}

template <typename Record>
void CRibPanelModel<Record>::Commit(CProjectWriter& writer)
{
    CRecordPanelModel<Record>::Commit(writer);
    if (!automatic_.empty())
        writer.SetOption(301, static_cast<std::size_t>(optionRow_) - 1, automatic_);
}

template <typename Record>
bool CRibPanelModel<Record>::IsChanged() const
{
    return automatic_ != baselineAutomatic_ || CRecordPanelModel<Record>::IsChanged();
}

template <typename Record>
void CRibPanelModel<Record>::TakeBaseline()
{
    baselineAutomatic_ = automatic_;
    CRecordPanelModel<Record>::TakeBaseline();
}

template class CRibPanelModel<CrossRibRecord>;
template class CRibPanelModel<LRibRecord>;

// --- 324 ---------------------------------------------------------------------------------------------

namespace {

constexpr int kLastSizeColumn = 9;
constexpr int kRibsColumn = 10;
constexpr int kCrossLeftColumn = 11;
constexpr int kCrossRightColumn = 12;

std::string FurtherSizesCell(const CrossRibRecord& record)
{
    std::string text;
    for (const std::array<double, 4>& sizes : record.furtherSizes)
        for (const double size : sizes)
            AppendNumber(text, size);
    return text;
}

std::vector<std::array<double, 4>> CellFurtherSizes(std::string_view text)
{
    std::vector<std::array<double, 4>> sizes;
    const std::vector<double> numbers = CellNumbers(text);
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (i % 4 == 0)
            sizes.push_back({kNotGiven, kNotGiven, kNotGiven, kNotGiven});
        sizes.back()[i % 4] = numbers[i];
    }
    return sizes;
}

} // namespace

CDown324Model::CDown324Model(const CSbdData& data, const PanelSettings& settings)
    : CRibPanelModel(data, 324, settings, data.crossRibs,
                     {" (301の"_cp932, "LINE18"_cp932, "と自動"_cp932, "リンク)"_cp932}, {-200, -250, -350})
{
    Start();
}

CellTakes CDown324Model::Takes(int row, int column) const
{
    if (row == 1 || column <= kNames)
        return CellTakes::Text;
    return column <= kLastSizeColumn ? CellTakes::Number
           : column == kRibsColumn   ? CellTakes::Count
                                     : CellTakes::Numbers;
}

bool CDown324Model::RulesOthers(int column) const
{
    return column == kRibsColumn;
}

CrossRibRecord CDown324Model::Empty() const
{
    CrossRibRecord record;
    record.sizes.fill(kNotGiven);
    record.n = kNoCount;
    return record;
}

std::string CDown324Model::Field(const CrossRibRecord& record, int column) const
{
    if (column <= kNames)
        return record.names[static_cast<std::size_t>(column) - 1];
    if (column <= kLastSizeColumn)
        return NumberCell(record.sizes[static_cast<std::size_t>(column - kNames) - 1]);
    if (column == kRibsColumn)
        return CountCell(record.n);
    if (column <= kCrossRightColumn)
        return SpacingCell(column == kCrossLeftColumn ? record.left : record.right, record.n);
    return FurtherSizesCell(record);
}

void CDown324Model::SetField(CrossRibRecord& record, int column, std::string_view text) const
{
    if (column <= kNames)
        record.names[static_cast<std::size_t>(column) - 1] = text;
    else if (column <= kLastSizeColumn)
        record.sizes[static_cast<std::size_t>(column - kNames) - 1] = CellNumber(text);
    else if (column == kRibsColumn)
        TakeCount(record.n, text, {&record.left, &record.right});
    else if (column <= kCrossRightColumn)
        (column == kCrossLeftColumn ? record.left : record.right) = CellSpacing(text);
    else
        record.furtherSizes = CellFurtherSizes(text);
}

void CDown324Model::Unfold(CrossRibRecord& record) const
{
    UnfoldSpacing(record.left, record.n);
    UnfoldSpacing(record.right, record.n);
}

CrossRibRecord CDown324Model::ToBeStored(const CrossRibRecord& record) const
{
    CrossRibRecord stored = record;
    for (double& size : stored.sizes)
        if (!IsGiven(size))
            size = 0.0;
    stored.n = FullCount(record.n);
    stored.left = FullSpacing(record.left, stored.n);
    stored.right = FullSpacing(record.right, stored.n);
    stored.furtherSizes.resize(static_cast<std::size_t>(std::max(0, stored.n - 1)),
                               {kNotGiven, kNotGiven, kNotGiven, kNotGiven});
    return stored;
}

// --- 325 ---------------------------------------------------------------------------------------------

namespace {

constexpr int kLeftCountColumn = 6;
constexpr int kRightCountColumn = 7;
constexpr int kLeftColumn = 8;

} // namespace

CDown325Model::CDown325Model(const CSbdData& data, const PanelSettings& settings)
    : CRibPanelModel(data, 325, settings, data.lRibs,
                     {" (301の"_cp932, "19行目と"_cp932, "325～326)"_cp932, "は同時自動"_cp932, "リンク)"_cp932},
                     {-150, -150})
{
    Start();
}

CellTakes CDown325Model::Takes(int row, int column) const
{
    if (row == 1 || column <= kNames)
        return CellTakes::Text;
    return RulesOthers(column) ? CellTakes::Count : CellTakes::Numbers;
}

bool CDown325Model::RulesOthers(int column) const
{
    return column == kLeftCountColumn || column == kRightCountColumn;
}

LRibRecord CDown325Model::Empty() const
{
    LRibRecord record;
    record.n1 = kNoCount;
    record.n2 = kNoCount;
    return record;
}

std::string CDown325Model::Field(const LRibRecord& record, int column) const
{
    if (column <= kNames)
        return record.names[static_cast<std::size_t>(column) - 1];
    if (column == kLeftCountColumn || column == kRightCountColumn)
        return CountCell(column == kLeftCountColumn ? record.n1 : record.n2);
    return column == kLeftColumn ? SpacingCell(record.left, record.n1) : SpacingCell(record.right, record.n2);
}

void CDown325Model::SetField(LRibRecord& record, int column, std::string_view text) const
{
    if (column <= kNames)
        record.names[static_cast<std::size_t>(column) - 1] = text;
    else if (column == kLeftCountColumn)
        TakeCount(record.n1, text, {&record.left});
    else if (column == kRightCountColumn)
        TakeCount(record.n2, text, {&record.right});
    else
        (column == kLeftColumn ? record.left : record.right) = CellSpacing(text);
}

void CDown325Model::Unfold(LRibRecord& record) const
{
    UnfoldSpacing(record.left, record.n1);
    UnfoldSpacing(record.right, record.n2);
}

LRibRecord CDown325Model::ToBeStored(const LRibRecord& record) const
{
    LRibRecord stored = record;
    stored.n1 = FullCount(record.n1);
    stored.n2 = FullCount(record.n2);
    stored.left = FullSpacing(record.left, stored.n1);
    stored.right = FullSpacing(record.right, stored.n2);
    return stored;
}

} // namespace sbd
