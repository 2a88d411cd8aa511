#include "panelmodel/panel_model.h"

#include "project/catalogue.h"
#include "project/links.h"
#include "project/text.h"

#include <algorithm>

namespace sbd {

namespace {

const WordList kNoWords;

} // namespace

CPanelModel::CPanelModel(const CSbdData& data, int block, const PanelSettings& settings)
    : data_(data)
    , block_(block)
    , className_(PanelOfBlock(block))
    , settings_(settings)
{
}

CellColor CPanelModel::HeadColor(int, int) const
{
    return std::nullopt;
}

bool CPanelModel::IsWritten(int row) const
{
    return row >= 1 && row <= BlockRows();
}

bool CPanelModel::AddRows(int)
{
    return false;
}

void CPanelModel::TakeBackRows(int count)
{
    if (!TakesRows())
        return;
    for (int i = 0; i < count && IsBlankRow(GridRows()); ++i)
        DropLastRow();
}

std::string CPanelModel::RowNumber(int row) const
{
    std::string number;
    AppendFixed(number, row, 0, 0);
    return number;
}

int CPanelModel::RowLines(int) const
{
    return 1;
}

bool CPanelModel::IsInside(int row, int column) const
{
    return row >= 1 && row <= GridRows() && column >= 1 && column < ColumnCount();
}

const WordList& CPanelModel::Words(int row, int column) const
{
    return settings_.wordLists && IsInside(row, column) && !IsLocked(row, column) ? DoWords(row, column) : kNoWords;
}

const WordList& CPanelModel::DoWords(int, int) const
{
    return kNoWords;
}

bool CPanelModel::IsEditable(int row, int column) const
{
    return IsInside(row, column) && !IsLocked(row, column) && DoIsEditable(row, column);
}

bool CPanelModel::DoIsEditable(int, int) const
{
    return true;
}

CellColor CPanelModel::TextColor(int, int) const
{
    return std::nullopt;
}

bool CPanelModel::IsRightAligned(int, int) const
{
    return false;
}

std::string CPanelModel::WhyLocked(int, int) const
{
    return Cp932("このセルには入力できません。");
}

CellTakes CPanelModel::Takes(int, int) const
{
    return CellTakes::Text;
}

bool CPanelModel::TakesNumbers(int row, int column) const
{
    return IsInside(row, column) && Takes(row, column) != CellTakes::Text;
}

/// A word of the cell's list that is no number, anywhere in `text`.
bool CPanelModel::HoldsWordOf(int row, int column, std::string_view text) const
{
    return std::ranges::any_of(DoWords(row, column), [text](const std::string& word) {
        return !IsNumber(word) && text.find(word) != std::string_view::npos;
    });
}

std::optional<CPanelModel::Refusal> CPanelModel::WhyNot(int row, int column, std::string_view text) const
{
    const CellTakes takes = IsInside(row, column) ? Takes(row, column) : CellTakes::Text;
    if (takes == CellTakes::Text || HoldsWordOf(row, column, text))
        return std::nullopt;
    if (std::optional<std::string> part = NotTaken(takes, FoldNumber(text)))
        return Refusal{*std::move(part), takes};
    return std::nullopt;
}

CellEffect CPanelModel::SetCell(int row, int column, std::string_view text)
{
    if (!IsEditable(row, column) || Text(row, column) == text || WhyNot(row, column, text))
        return CellEffect::None;
    if (Takes(row, column) == CellTakes::Text || HoldsWordOf(row, column, text))
        return DoSetCell(row, column, text);
    const std::string folded = FoldNumber(text);
    return Text(row, column) == folded ? CellEffect::None : DoSetCell(row, column, folded);
}

std::vector<ChangedRow> CommitPanel(CPanelModel& panel, CSbdData& data)
{
    CProjectWriter writer(data);
    panel.Commit(writer);
    FollowLinks(writer, panel.Block());
    return ChangedRows(writer.Changes());
}

bool CPanelModel::CanMoveUp(int) const
{
    return false;
}

bool CPanelModel::CanMoveDown(int) const
{
    return false;
}

bool CPanelModel::CanInsert(int) const
{
    return false;
}

void CPanelModel::MoveRow(int, int) {}

void CPanelModel::RemoveRow(int) {}

bool CPanelModel::IsBlankRow(int row) const
{
    for (int column = 1; column < ColumnCount(); ++column)
        if (!TrimRight(Text(row, column)).empty())
            return false;
    return true;
}

} // namespace sbd
