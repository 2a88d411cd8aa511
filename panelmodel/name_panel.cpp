#include "panelmodel/name_panel.h"

#include "project/text.h"

#include <algorithm>

namespace sbd {

namespace {

using namespace literals;

constexpr int kValueColumn = 2;
constexpr int kLeastWidth = 10;
constexpr int kSpareRows = 50;
constexpr int kLeastSpareRows = 10;

const WordList kFreeText;

const WordList& YesNo()
{
    static const WordList words{"YES", "NO"};
    return words;
}

} // namespace

CNameListModel::CNameListModel(CSbdData& data, int block, const PanelSettings& settings)
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
    return column == 0 ? base : std::max(kLeastWidth, base + Settings().rowWidthMode);
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

std::vector<ChangedRow> CNameListModel::WriteBack()
{
    if (!dirty_)
        return {};
    dirty_ = false;
    NameLists lists = Lists();
    NameLists& target = *Data().Names(Block());
    if (lists == target)
        return {};
    target = std::move(lists);
    return {{Block(), -1}};
}

} // namespace sbd
