#include "panelmodel/height_panel.h"

#include "panelmodel/project_type.h"
#include "project/text.h"

#include <algorithm>
#include <cmath>

namespace sbd {

namespace {

using namespace literals;

constexpr int kTypeRows = 4;
constexpr int kNames = 4;
constexpr int kColumns = 12;
constexpr int kTypeColumn = 2;

bool Contains(std::string_view text, const std::string& word)
{
    return text.find(word) != std::string_view::npos;
}

} // namespace

double CellNumber(std::string_view text)
{
    return LeadingNumber(text).value_or(kNotGiven);
}

CDown311Model::CDown311Model(const CSbdData& data, const PanelSettings& settings)
    : CRecordPanelModel(data, 311, settings, kTypeRows, data.hGirder.records)
    , types_(data.hGirder.types)
    , baselineTypes_(types_)
    , flangeTypes_{"桁高に含む"_cp932, "桁高に含まない"_cp932}
    , lineTypes_{"線形(入力)"_cp932, "直線"_cp932, "２次"_cp932}
{
    if (IsSectionType(data.Type()))
        for (const int column : {1, 2})
            ColumnWords(column).push_back("G");
    Start();
    NameSingleSection();
}

/// Single sections have one girder between the ends "左" and "右".
void CDown311Model::NameSingleSection()
{
    if (!IsSectionType(Data().Type()))
        return;
    const std::array<std::string, kNames> names{"G", "G", "左"_cp932, "右"_cp932};
    for (int column = 1; column <= kNames; ++column)
        if (Text(kTypeRows + 1, column).empty())
            SetCell(kTypeRows + 1, column, names[static_cast<std::size_t>(column) - 1]);
    CRecordPanelModel::TakeBaseline();
}

int CDown311Model::ColumnWidth(int column) const
{
    constexpr int lowerLimit = -70;
    const int base = Panel().widths[static_cast<std::size_t>(column)];
    const int mode = Settings().rowWidthMode;
    if (column == 0)
        return base;
    return base + (column <= 2 ? std::clamp(mode, 0, 100) : std::max(mode, lowerLimit));
}

std::string CDown311Model::Head(int column, int) const
{
    const RecordPanel& panel = Panel();
    const bool sections = !panel.sectionHeads.empty() && IsSectionType(Data().Type());
    return (sections ? panel.sectionHeads : panel.heads)[static_cast<std::size_t>(column)];
}

int CDown311Model::FirstUnusedColumn() const
{
    static const std::string line = "線形"_cp932;
    static const std::string input = "入力"_cp932;
    if (!Contains(types_[2], line))
        return kColumns;
    return Contains(types_[3], input) ? 8 : 10;
}

bool CDown311Model::IsLocked(int row, int column) const
{
    if (!IsInside(row, column))
        return true;
    return row <= kTypeRows ? column != kTypeColumn : column >= FirstUnusedColumn();
}

const WordList& CDown311Model::DoWords(int row, int column) const
{
    if (row <= kTypeRows)
        return row <= 2 ? flangeTypes_ : lineTypes_;
    return CRecordPanelModel::DoWords(row, column);
}

CellTakes CDown311Model::Takes(int row, int column) const
{
    return row > kTypeRows && column > kNames ? CellTakes::Number : CellTakes::Text;
}

std::string CDown311Model::HeadRowText(int row, int column) const
{
    static const std::array<std::string, kTypeRows> labels{"上フランジ厚のタイプ"_cp932, "下フランジ厚のタイプ"_cp932,
                                                           "上フランジＺ座標のタイプ"_cp932,
                                                           "下フランジＺ座標のタイプ"_cp932};
    const std::size_t index = static_cast<std::size_t>(row) - 1;
    if (column == 1)
        return labels[index];
    return column == kTypeColumn ? types_[index] : std::string();
}

CellEffect CDown311Model::SetHeadRowCell(int row, int, std::string_view text)
{
    const int firstUnused = FirstUnusedColumn();
    types_[static_cast<std::size_t>(row) - 1] = text;
    if (FirstUnusedColumn() == firstUnused)
        return CellEffect::Cell;
    TouchAll();
    return CellEffect::Panel;
}

std::string CDown311Model::Field(const HGirderRecord& record, int column) const
{
    if (column <= kNames)
        return record.names[static_cast<std::size_t>(column) - 1];
    return column >= FirstUnusedColumn() ? std::string()
                                         : NumberCell(record.numbers[static_cast<std::size_t>(column - kNames) - 1]);
}

void CDown311Model::SetField(HGirderRecord& record, int column, std::string_view text) const
{
    if (column <= kNames)
        record.names[static_cast<std::size_t>(column) - 1] = text;
    else
        record.numbers[static_cast<std::size_t>(column - kNames) - 1] = CellNumber(text);
}

HGirderRecord CDown311Model::ToBeStored(const HGirderRecord& record) const
{
    HGirderRecord stored = record;
    for (int column = FirstUnusedColumn(); column < kColumns; ++column)
        stored.numbers[static_cast<std::size_t>(column - kNames) - 1] = kNotGiven;
    return stored;
}

bool CDown311Model::Same(const HGirderRecord& a, const HGirderRecord& b) const
{
    constexpr double tolerance = 1e-7;
    return a.names == b.names && std::ranges::equal(a.numbers, b.numbers, [](double x, double y) {
               return (!IsGiven(x) && !IsGiven(y)) || std::abs(x - y) <= tolerance;
           });
}

void CDown311Model::Commit(CProjectWriter& writer)
{
    CRecordPanelModel::Commit(writer);
    writer.SetHeightTypes(types_);
}

bool CDown311Model::IsChanged() const
{
    return types_ != baselineTypes_ || CRecordPanelModel::IsChanged();
}

void CDown311Model::TakeBaseline()
{
    baselineTypes_ = types_;
    CRecordPanelModel::TakeBaseline();
}

} // namespace sbd
