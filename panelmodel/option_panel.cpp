#include "panelmodel/option_panel.h"

#include "panelmodel/panel_parts.h"
#include "panelmodel/project_type.h"
#include "project/option_rows.h"
#include "project/sbd_data.h"
#include "project/text.h"

#include <algorithm>

namespace sbd {

namespace {

constexpr int kNumberColumn = 0;
constexpr int kLabelColumn = 1;

} // namespace

COptionPanelModel::COptionPanelModel(const CSbdData& data, int block, const PanelSettings& settings)
    : CPanelModel(data, block, settings)
    , rows_(*FindOptionBlock(block))
    , panel_(FindOptionPanel(block))
    , table_(FindPanelTable(block))
{
    for (std::size_t row = 0; row < rows_.rows.size(); ++row)
        values_.emplace_back(data.Option(block, row));
    baseline_ = values_;
}

int COptionPanelModel::ColumnWidth(int column) const
{
    constexpr int numberWidth = 35;
    const int mode = Settings().rowWidthMode;
    if (column == kNumberColumn)
        return numberWidth;
    if (panel_ != nullptr)
        return column == kLabelColumn ? panel_->labelWidth + std::clamp(mode, 0, 100)
                                      : panel_->valueWidth + std::max(mode, panel_->lowerLimit);
    return table_ != nullptr ? WidenedWidth(table_->columns[static_cast<std::size_t>(column)].width, mode)
                             : numberWidth;
}

std::string COptionPanelModel::Head(int column, int) const
{
    const std::size_t index = static_cast<std::size_t>(column);
    if (panel_ != nullptr)
        return panel_->heads[index];
    return table_ != nullptr ? table_->columns[index].head : std::string();
}

std::string COptionPanelModel::Label(int row) const
{
    return rows_.rows[static_cast<std::size_t>(row) - 1].panelLabel;
}

int COptionPanelModel::RowLines(int row) const
{
    const std::string label = Text(row, kLabelColumn);
    return 1 + static_cast<int>(std::ranges::count(label, '\n'));
}

std::string COptionPanelModel::Text(int row, int column) const
{
    if (!IsInside(row, column) || row > BlockRows())
        return {};
    return column == kLabelColumn ? Label(row) : std::string(Value(row));
}

bool COptionPanelModel::IsLocked(int row, int column) const
{
    return !IsInside(row, column) || column == kLabelColumn;
}

std::string COptionPanelModel::WhyLocked(int row, int) const
{
    return Cp932(row > BlockRows() ? "この行には項目がないため、入力できません。"
                                   : "項目名の欄には入力できません。値は右の欄に入力してください。");
}

bool COptionPanelModel::DoIsEditable(int row, int column) const
{
    return column == kValueColumn && row <= BlockRows();
}

const WordList& COptionPanelModel::DoWords(int row, int column) const
{
    const std::size_t index = static_cast<std::size_t>(row) - 1;
    if (panel_ == nullptr || column != kValueColumn || index >= panel_->words.size())
        return kFreeText;
    return panel_->words[index];
}

CellEffect COptionPanelModel::DoSetCell(int row, int, std::string_view text)
{
    values_[static_cast<std::size_t>(row) - 1] = text;
    dirty_.insert(row - 1);
    return CellEffect::Cell;
}

void COptionPanelModel::Commit(CProjectWriter& writer)
{
    for (const int row : dirty_)
        writer.SetOption(Block(), static_cast<std::size_t>(row), values_[static_cast<std::size_t>(row)]);
    dirty_.clear();
}

// --- 301 ---------------------------------------------------------------------------------------------

namespace {

constexpr int kTypeRow = 3;

/// What block 301 says of a type, in the order of its tests. Texts are UTF-8.
struct TypeHead {
    std::string_view type;
    std::string_view head;
};
constexpr TypeHead kTypeHeads[] = {
    {"断面", "タイプ\n301,302については，ピンク色の項目のみ入力必要"},
    {"ブラケット", "タイプ\n３行目以外の入力は必要ありません．501及び670～699を入力して下さい"},
    {"床組", "タイプ\n３行目以外の入力は必要ありません．501及び640～699を入力して下さい"},
    {"縦桁", "タイプ\n３行目以外の入力は必要ありません．501及び640～669を入力して下さい"},
};

/// Rows that mean something else for single sections.
struct SectionLabel {
    int row;
    std::string_view label;
};
constexpr SectionLabel kSectionLabels[] = {
    {13, "フランジ固定点間距離(UFLG値&LFLG値単位m)"},
    {14, "格点曲率半径(単位m)"},
    {19, "縦リブ自動設計本数間隔\n(YES[NO]_上RIB数_下RIB数_上間隔_下間隔)"},
};

constexpr int kSectionRows[] = {9, 10, 13, 14, 15, 16, 17, 18, 19};
constexpr int kSectionRowsOfBoxes[] = {22, 23, 24};

const TypeHead* FindTypeHead(std::string_view type)
{
    for (const TypeHead& head : kTypeHeads)
        if (type.starts_with(Cp932(head.type)))
            return &head;
    return nullptr;
}

/// Head of the value column: tells how the value of the focused row is put together; empty: the usual head.
std::string_view ValueHead(int focusRow, bool sections)
{
    switch (focusRow) {
    case 19:
        return sections ? "YES[NO]_上RIB数_下RIB数_上間隔_下間隔)"
                        : "YES[NO_配置_寸法], 引張RIB数, 圧縮RIB数 \n(引張縁端,  圧縮縁端)";
    case 20:
    case 21:
        return "入力データ(YES[NO], Group数, 幅1,厚1,幅2,厚2,......)";
    default:
        return {};
    }
}

} // namespace

CDown301Model::CDown301Model(const CSbdData& data, const PanelSettings& settings)
    : COptionPanelModel(data, 301, settings)
    , boxWebsGiven_(data.RowCount(305) > 0)
{
}

std::string CDown301Model::Head(int column, int focusRow) const
{
    if (column == kLabelColumn)
        if (const TypeHead* head = FindTypeHead(Value(kTypeRow)))
            return Cp932(head->head);
    if (column == kValueColumn) {
        const std::string_view head = ValueHead(focusRow, IsSectionType(Value(kTypeRow)));
        if (!head.empty())
            return Cp932(head);
    }
    return COptionPanelModel::Head(column, focusRow);
}

CellColor CDown301Model::HeadColor(int column, int focusRow) const
{
    const bool told = column == kLabelColumn   ? FindTypeHead(Value(kTypeRow)) != nullptr
                      : column == kValueColumn ? !ValueHead(focusRow, false).empty()
                                               : false;
    return told ? CellColor(kMandatoryColor) : std::nullopt;
}

CellColor CDown301Model::TextColor(int row, int) const
{
    if (row == kTypeRow)
        return kEmphasisColor;
    if (!IsSectionType(Value(kTypeRow)))
        return std::nullopt;
    const bool mandatory =
        std::ranges::find(kSectionRows, row) != std::end(kSectionRows)
        || (boxWebsGiven_ && std::ranges::find(kSectionRowsOfBoxes, row) != std::end(kSectionRowsOfBoxes));
    return mandatory ? CellColor(kMandatoryColor) : std::nullopt;
}

std::string CDown301Model::Label(int row) const
{
    if (IsSectionType(Value(kTypeRow)))
        for (const SectionLabel& label : kSectionLabels)
            if (label.row == row)
                return Cp932(label.label);
    return COptionPanelModel::Label(row);
}

CellEffect CDown301Model::DoSetCell(int row, int column, std::string_view text)
{
    const CellEffect effect = COptionPanelModel::DoSetCell(row, column, text);
    return row == kTypeRow ? CellEffect::Panel : effect;
}

// --- 302 ---------------------------------------------------------------------------------------------

CDown302Model::CDown302Model(const CSbdData& data, const PanelSettings& settings)
    : COptionPanelModel(data, 302, settings)
    , sections_(IsSectionType(data.Type()))
{
}

std::string CDown302Model::Head(int column, int focusRow) const
{
    if (column == kLabelColumn && sections_)
        return Cp932("タイプ(n301,302については，ピンク色の項目のみ入力必要)");
    return COptionPanelModel::Head(column, focusRow);
}

CellColor CDown302Model::HeadColor(int column, int) const
{
    return column == kLabelColumn && sections_ ? CellColor(kMandatoryColor) : std::nullopt;
}

CellColor CDown302Model::TextColor(int row, int) const
{
    constexpr int lastMandatoryRow = 11;
    return sections_ && row >= 1 && row <= lastMandatoryRow ? CellColor(kMandatoryColor) : std::nullopt;
}

} // namespace sbd
