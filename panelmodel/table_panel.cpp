#include "panelmodel/table_panel.h"

#include "panelmodel/panel_parts.h"
#include "panelmodel/project_type.h"
#include "project/block_rules.h"
#include "project/bridge_names.h"
#include "project/text.h"

#include <algorithm>

namespace sbd {

namespace {

using namespace literals;

constexpr int kWordColumn = 1; // "自動計算(YES_NO)" and other words at the head of a row
constexpr int kFixedTextColumn = 3;

/// Rows at the top that stay where they are.
int FixedRowsOf(int block)
{
    return FindOwnFirstRow(block) != nullptr ? 1 : WordRowsOf(block);
}

std::string ControlValue(int block, const CSbdData& data)
{
    if (const int optionRow = AutomaticOptionRow(block))
        return std::string(data.Option(301, static_cast<std::size_t>(optionRow) - 1));
    return std::string(AutomaticValueOf(block));
}

} // namespace

CTablePanelModel::CTablePanelModel(const CSbdData& data, int block, const PanelSettings& settings)
    : CRowPanelModel(data, block, settings, 0, FixedRowsOf(block))
    , panel_(*FindPanelTable(block))
    , cells_(*data.Table(block))
{
    CListNames names(data, settings.listNames);
    ResolveColumns(settings.names != nullptr ? *settings.names : names);
    const int stored = static_cast<int>(cells_.RowCount());
    const bool added = AddAutomaticRows();
    const bool filled = PutFixedTexts();
    StartEntries(static_cast<int>(cells_.RowCount()), kSpareRows);
    for (int entry = stored; added && entry < panel_.automaticRows; ++entry)
        StartWithNewEntry(entry);
    if (filled && !added)
        Touch(0);
}

void CTablePanelModel::ResolveColumns(CListNames& names)
{
    words_.clear();
    for (const PanelColumn& column : panel_.columns)
        words_.push_back(ResolveWords(column.words, names));
}

/// The names that are entered in this block are offered in its next row.
void CTablePanelModel::Commit(CProjectWriter& writer)
{
    CRowPanelModel::Commit(writer);
    if (!GivesNames(Block()))
        return;
    CListNames names(Data(), Settings().listNames);
    ResolveColumns(names);
}

/// A block without rows begins with its automatic row. True if rows were added.
bool CTablePanelModel::AddAutomaticRows()
{
    if (panel_.automaticRows == 0 || cells_.RowCount() > 0)
        return false;
    if (panel_.automaticRows > 1)
        AppendHeadRows(Block(), cells_);
    else
        cells_.AppendRow({AutomaticWordOf(Block()), ControlValue(Block(), Data())});
    return true;
}

/// The automatic row tells where its value comes from. True if that changed a cell.
bool CTablePanelModel::PutFixedTexts()
{
    bool changed = false;
    for (std::size_t i = 0; i < panel_.fixedTexts.size() && cells_.RowCount() > 0; ++i) {
        const std::size_t column = static_cast<std::size_t>(kFixedTextColumn) - 1 + i;
        if (column >= cells_.columns.size() || cells_.columns[column][0] == panel_.fixedTexts[i])
            continue;
        cells_.columns[column].Set(0, panel_.fixedTexts[i]);
        changed = true;
    }
    return changed;
}

int CTablePanelModel::ColumnWidth(int column) const
{
    const int base = panel_.columns[static_cast<std::size_t>(column)].width;
    return column == 0 ? base : WidenedWidth(base, Settings().rowWidthMode);
}

int CTablePanelModel::NameColumns() const
{
    int column = 1;
    while (column < ColumnCount()
           && IsNameColumn(panel_.columns[static_cast<std::size_t>(column)].head,
                           panel_.columns[static_cast<std::size_t>(column)].words))
        ++column;
    return std::max(1, column - 1);
}

std::string CTablePanelModel::Head(int column, int) const
{
    const PanelColumn& definition = panel_.columns[static_cast<std::size_t>(column)];
    return panel_.hasSectionHeads && column > 0 && IsSectionType(Data().Type()) ? definition.sectionHead
                                                                                : definition.head;
}

std::string CTablePanelModel::RowNumber(int row) const
{
    const std::string number = CPanelModel::RowNumber(row);
    return Block() == 412 && row == 1 ? "自動計算(YES_NO)"_cp932 + number : number;
}

std::string_view CTablePanelModel::Cell(int row, int column) const
{
    const std::size_t index = static_cast<std::size_t>(column) - 1;
    if (!IsInside(row, column) || index >= cells_.columns.size())
        return {};
    return cells_.columns[index][static_cast<std::size_t>(EntryOf(row))];
}

std::string CTablePanelModel::Text(int row, int column) const
{
    return IsMasked(row, column) ? std::string() : std::string(Cell(row, column));
}

bool CTablePanelModel::IsMasked(int, int) const
{
    return false;
}

bool CTablePanelModel::IsLocked(int row, int column) const
{
    if (!IsInside(row, column))
        return true;
    return (IsAutomaticRow(row) && column >= panel_.usable) || IsMasked(row, column);
}

bool CTablePanelModel::DoIsEditable(int row, int column) const
{
    if (static_cast<std::size_t>(column) > cells_.columns.size())
        return false; // a column that the block does not store
    // The word at the head of an automatic row is what makes it one.
    return column != kWordColumn || row > WordRowsOf(Block()) || Cell(row, column).empty();
}

CellColor CTablePanelModel::TextColor(int row, int column) const
{
    return row == 1 && IsAutomaticRow(row) && column >= panel_.usable ? CellColor(kMandatoryColor) : std::nullopt;
}

bool CTablePanelModel::IsRightAligned(int row, int column) const
{
    if (!IsInside(row, column))
        return false;
    const int from = panel_.columns[static_cast<std::size_t>(column)].rightAlignedFromRow;
    return from > 0 && row >= from;
}

const WordList& CTablePanelModel::DoWords(int row, int column) const
{
    const WordList& words = words_[static_cast<std::size_t>(column)];
    if (!IsAutomaticRow(row))
        return words;
    if (column != kValueColumn)
        return kFreeText;
    // Some blocks have switch words of their own, as "YES-1" or "NO幅ONLY".
    return !words.empty() && words.front().starts_with("YES") ? words : YesNo();
}

CellEffect CTablePanelModel::DoSetCell(int row, int column, std::string_view text)
{
    const int entry = EntryOf(row);
    cells_.columns[static_cast<std::size_t>(column) - 1].Set(static_cast<std::size_t>(entry), text);
    Touch(entry);
    const OwnFirstRow* const first = FindOwnFirstRow(Block());
    if (first == nullptr || first->value.empty() || row == 1 || !Cell(1, kWordColumn).empty())
        return CellEffect::Cell;
    cells_.columns.front().Set(0, first->value);
    Touch(0);
    return CellEffect::Panel;
}

void CTablePanelModel::TouchMasked()
{
    for (int row = 1; row <= GridRows(); ++row)
        for (int column = 1; column < ColumnCount(); ++column)
            if (IsMasked(row, column) && !Cell(row, column).empty())
                Touch(EntryOf(row));
}

// --- entries -----------------------------------------------------------------------------------------

void CTablePanelModel::AppendEmptyEntries(int count)
{
    for (CColumnVector& column : cells_.columns)
        for (int i = 0; i < count; ++i)
            column.Append({});
}

void CTablePanelModel::CopyToBaseline()
{
    baseline_ = cells_;
    for (int entry = 0; entry < EntryCount(); ++entry)
        for (std::size_t column = 0; column < cells_.columns.size(); ++column)
            if (ToBeStored(entry, column) != cells_.columns[column][static_cast<std::size_t>(entry)])
                baseline_.columns[column].Set(static_cast<std::size_t>(entry), {});
}

void CTablePanelModel::MoveEntry(int from, int to)
{
    for (CColumnVector& column : cells_.columns) {
        const std::string text(column[static_cast<std::size_t>(from)]);
        column.Erase(static_cast<std::size_t>(from));
        column.Insert(static_cast<std::size_t>(to), text);
    }
}

void CTablePanelModel::ClearEntry(int entry)
{
    for (CColumnVector& column : cells_.columns)
        column.Set(static_cast<std::size_t>(entry), {});
}

bool CTablePanelModel::IsKept(int entry) const
{
    return !cells_.columns.front()[static_cast<std::size_t>(entry)].empty();
}

std::string_view CTablePanelModel::ToBeStored(int entry, std::size_t column) const
{
    if (IsMasked(HeadRows() + entry + 1, static_cast<int>(column) + 1))
        return {};
    return cells_.columns[column][static_cast<std::size_t>(entry)];
}

bool CTablePanelModel::SameAsBaseline(int entry, int baseline) const
{
    for (std::size_t column = 0; column < cells_.columns.size(); ++column)
        if (ToBeStored(entry, column) != baseline_.columns[column][static_cast<std::size_t>(baseline)])
            return false;
    return true;
}

void CTablePanelModel::Store(CProjectWriter& writer, int entry, int storedRow)
{
    for (std::size_t column = 0; column < cells_.columns.size(); ++column)
        writer.SetCell(Block(), static_cast<std::size_t>(storedRow), column, ToBeStored(entry, column));
}

void CTablePanelModel::InsertStored(CProjectWriter& writer, int entry, int storedRow)
{
    std::vector<std::string> cells;
    for (std::size_t column = 0; column < cells_.columns.size(); ++column)
        cells.emplace_back(ToBeStored(entry, column));
    writer.InsertRow(Block(), static_cast<std::size_t>(storedRow), std::move(cells));
}

void CTablePanelModel::EraseStored(CProjectWriter& writer, int storedRow)
{
    writer.EraseRow(Block(), static_cast<std::size_t>(storedRow));
}

void CTablePanelModel::StoreAll(CProjectWriter& writer, const std::vector<int>& entries)
{
    TableBlock table;
    for (std::size_t column = 0; column < cells_.columns.size(); ++column) {
        CColumnVector& rebuilt = table.columns.emplace_back();
        for (const int entry : entries)
            rebuilt.Append(ToBeStored(entry, column));
    }
    writer.ReplaceTable(Block(), std::move(table));
}

} // namespace sbd
