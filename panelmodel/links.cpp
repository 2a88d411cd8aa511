#include "panelmodel/links.h"

#include "project/block_rules.h"
#include "project/sbd_data.h"

#include <algorithm>
#include <array>
#include <initializer_list>

namespace sbd {

namespace {

void SetOptionAt(CSbdData& data, OptionPlace place, std::string_view value, std::vector<ChangedRow>& changed)
{
    const std::size_t row = static_cast<std::size_t>(place.row) - 1;
    if (data.Option(place.block, row) == value)
        return;
    data.SetOption(place.block, row, value);
    changed.push_back({place.block, place.row - 1});
}

void ShareOptions(CSbdData& data, int block, std::vector<ChangedRow>& changed)
{
    for (const SharedOption& places : SharedOptions()) {
        const auto source = std::ranges::find(places, block, &OptionPlace::block);
        if (source == places.end())
            continue;
        const std::string value(data.Option(block, static_cast<std::size_t>(source->row) - 1));
        for (const OptionPlace& place : places)
            if (place.block != 0 && place.block != block)
                SetOptionAt(data, place, value, changed);
    }
}

/// Sets cell (row, column) of a table block.
void SetTableCell(CSbdData& data, int block, std::size_t row, std::size_t column, std::string_view value,
                  std::vector<ChangedRow>& changed)
{
    ColumnVector& cells = data.Table(block)->columns[column];
    if (cells[row] == value)
        return;
    cells.Set(row, value);
    changed.push_back({block, static_cast<int>(row)});
}

/// Column 1 of the automatic row of a table block takes the value; a block without rows gets the row.
void SetAutomaticRow(CSbdData& data, int block, std::string_view value, std::vector<ChangedRow>& changed)
{
    TableBlock* table = data.Table(block);
    if (!table) // 324 and 325 hold no automatic row of their own
        return;
    if (table->RowCount() > 0) {
        SetTableCell(data, block, 0, 1, value, changed);
        return;
    }
    table->AppendRow({AutomaticWordOf(block), value});
    changed.push_back({block, -1});
}

/// Row 1 (upper flange) or 2 (lower flange) of block 511 and the value of 721 that says the same.
void SetFlangeInHeight(CSbdData& data, int row, std::string_view value, std::vector<ChangedRow>& changed)
{
    if (data.Table(511)->RowCount() > 2)
        SetTableCell(data, 511, static_cast<std::size_t>(row), 1, value, changed);
    SetOptionAt(data, {721, row}, value, changed);
}

void AddHeightRows(CSbdData& data, std::vector<ChangedRow>& changed)
{
    TableBlock& table = *data.Table(511);
    if (table.RowCount() > 0)
        return;
    AppendHeadRows(511, table);
    changed.push_back({511, -1});
}

void LinkFlanges(CSbdData& data, int block, std::vector<ChangedRow>& changed)
{
    if (block != 311 && block != 721)
        return;
    AddHeightRows(data, changed);
    for (int row = 1; row <= 2; ++row) {
        const std::size_t index = static_cast<std::size_t>(row) - 1;
        const std::string value = block == 721 ? std::string(data.Option(721, index))
                                               : (data.hGirder.types[index] == OutsideOfHeight() ? "NO" : "YES");
        SetFlangeInHeight(data, row, value, changed);
    }
}

void LinkFromTable(CSbdData& data, int block, std::vector<ChangedRow>& changed)
{
    const TableBlock* table = data.Table(block);
    const int optionRow = AutomaticOptionRow(block);
    if (!table || optionRow == 0 || table->RowCount() == 0)
        return;
    const std::string value(table->columns[1][0]);
    if (value.empty())
        return;
    const std::vector<ChangedRow> linked = LinkAutomaticValue(data, optionRow, value);
    changed.insert(changed.end(), linked.begin(), linked.end());
}

} // namespace

std::vector<ChangedRow> LinkAutomaticValue(CSbdData& data, int optionRow, std::string_view value)
{
    std::vector<ChangedRow> changed;
    const std::string copy(value); // it may be a view of a cell that is set here
    SetOptionAt(data, {301, optionRow}, copy, changed);
    for (const AutomaticLink& link : AutomaticLinks())
        if (link.optionRow == optionRow)
            for (const int block : link.blocks)
                SetAutomaticRow(data, block, copy, changed);
    return changed;
}

std::vector<ChangedRow> ApplyLinks(CSbdData& data, int block)
{
    std::vector<ChangedRow> changed;
    ShareOptions(data, block, changed);
    LinkFlanges(data, block, changed);
    if (block != 301) {
        LinkFromTable(data, block, changed);
        return changed;
    }
    for (const AutomaticLink& link : AutomaticLinks()) {
        const std::vector<ChangedRow> linked =
            LinkAutomaticValue(data, link.optionRow, data.Option(301, static_cast<std::size_t>(link.optionRow) - 1));
        changed.insert(changed.end(), linked.begin(), linked.end());
    }
    return changed;
}

} // namespace sbd
