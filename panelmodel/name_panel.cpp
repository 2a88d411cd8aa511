#include "panelmodel/name_panel.h"

#include "panelmodel/panel_parts.h"
#include "project/text.h"

#include <algorithm>
#include <utility>

namespace sbd {

namespace {

using namespace literals;

constexpr int kLeastSpareRows = 10;

} // namespace

CNameListModel::CNameListModel(const CSbdData& data, int block, const PanelSettings& settings)
    : CPanelModel(data, block, settings)
    , panel_(*FindRecordPanel(block))
    , cells_(*data.Names(block))
{
    rows_ = CNameListModel::BlockRows() + kSpareRows;
    baseline_ = Lists();
}

int CNameListModel::ColumnWidth(int column) const
{
    const int base = panel_.widths[static_cast<std::size_t>(column)];
    return column == 0 ? base : WidenedWidth(base, Settings().rowWidthMode);
}

std::string CNameListModel::Head(int column, int) const
{
    return panel_.heads[static_cast<std::size_t>(column)];
}

int CNameListModel::BlockRows() const
{
    std::size_t names = 0;
    for (const std::vector<std::string>& list : cells_.lists)
        for (std::size_t i = list.size(); i > names; --i)
            if (!list[i - 1].empty())
                names = i;
    return 1 + static_cast<int>(names);
}

bool CNameListModel::AddRows(int count)
{
    rows_ += count;
    return true;
}

std::string CNameListModel::Text(int row, int column) const
{
    if (!IsInside(row, column))
        return {};
    if (row == 1)
        return column == 1 ? "自動取得"_cp932 : column == kValueColumn ? cells_.autoValue : std::string();
    const std::vector<std::string>& list = cells_.lists[static_cast<std::size_t>(column) - 1];
    const std::size_t index = static_cast<std::size_t>(row) - 2;
    return index < list.size() ? list[index] : std::string();
}

bool CNameListModel::IsLocked(int row, int column) const
{
    return !IsInside(row, column) || (row == 1 && column > kValueColumn);
}

bool CNameListModel::DoIsEditable(int row, int column) const
{
    return row > 1 || column == kValueColumn;
}

const WordList& CNameListModel::DoWords(int row, int column) const
{
    return row == 1 && column == kValueColumn ? YesNo() : kFreeText;
}

CellEffect CNameListModel::DoSetCell(int row, int column, std::string_view text)
{
    dirty_ = true;
    changed_.reset();
    if (row == 1) {
        cells_.autoValue = text;
        return CellEffect::Cell;
    }
    std::vector<std::string>& list = cells_.lists[static_cast<std::size_t>(column) - 1];
    const std::size_t index = static_cast<std::size_t>(row) - 2;
    if (index >= list.size())
        list.resize(index + 1);
    list[index] = text;
    if (SpareRows() >= kLeastSpareRows)
        return CellEffect::Cell;
    AddRows(kLeastSpareRows);
    return CellEffect::Panel;
}

NameLists CNameListModel::Lists() const
{
    NameLists lists = cells_;
    for (std::vector<std::string>& list : lists.lists)
        std::erase_if(list, [](const std::string& name) { return name.empty(); });
    return lists;
}

bool CNameListModel::IsChanged() const
{
    if (!changed_)
        changed_ = !(Lists() == baseline_);
    return *changed_;
}

void CNameListModel::TakeBaseline()
{
    baseline_ = Lists();
    changed_ = false;
}

/// Names with empty cells between them stand in the data closed up: all rows are kept then.
LooseRows CNameListModel::Loose() const
{
    LooseRows loose{GridRows(), {}};
    if (cells_ == Lists())
        return loose;
    for (int row = 2; row <= BlockRows(); ++row) {
        LooseRow& kept = loose.rows.emplace_back(LooseRow{row, {}});
        for (int column = 1; column < ColumnCount(); ++column)
            kept.cells.push_back(Text(row, column));
    }
    return loose;
}

void CNameListModel::PutLoose(const LooseRows& loose)
{
    if (loose.gridRows > 0)
        rows_ = std::max(loose.gridRows, BlockRows());
    for (std::size_t list = 0; !loose.rows.empty() && list < cells_.lists.size(); ++list) {
        cells_.lists[list].clear();
        for (const LooseRow& row : loose.rows)
            cells_.lists[list].push_back(row.cells[list]);
    }
}

void CNameListModel::Commit(CProjectWriter& writer)
{
    if (std::exchange(dirty_, false))
        writer.SetNames(Block(), Lists());
}

} // namespace sbd
