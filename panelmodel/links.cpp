#include "panelmodel/links.h"

#include "project/sbd_data.h"
#include "project/text.h"

#include <algorithm>
#include <array>
#include <initializer_list>

namespace sbd {

namespace {

using namespace literals;

/// A row (from 1) of an option block.
struct OptionPlace {
    int block;
    int row;
};

/// Rows of option blocks that hold one value: whichever is written last counts.
constexpr std::array<std::array<OptionPlace, 4>, 11> kSharedOptions{{
    {{{301, 30}, {521, 3}}},
    {{{301, 31}, {521, 4}}},
    {{{301, 17}, {521, 5}, {721, 10}, {701, 17}}},
    {{{301, 29}, {721, 3}}},
    {{{302, 35}, {521, 34}}},
    {{{303, 31}, {521, 35}}},
    {{{401, 12}, {701, 10}, {721, 5}}},
    {{{401, 13}, {701, 11}, {721, 6}}},
    {{{401, 14}, {701, 12}, {721, 7}}},
    {{{401, 15}, {701, 13}, {721, 8}}},
    {{{401, 16}, {701, 14}, {721, 9}}},
}};

/// A row (from 1) of block 301 and the blocks whose automatic row shows its value.
struct AutomaticLink {
    int optionRow;
    std::array<int, 4> blocks;
};

constexpr std::array<AutomaticLink, 8> kAutomaticLinks{{
    {9, {331, 332}},
    {10, {341, 342, 343, 344}},
    {11, {315}},
    {12, {313}},
    {13, {327}},
    {14, {328}},
    {18, {324}},
    {19, {325, 326}},
}};

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
    for (const std::array<OptionPlace, 4>& places : kSharedOptions) {
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
    table->AppendRow({"自動計算(YES_NO)"_cp932, value});
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
    table.AppendRow({"自動計算(YES_NO)"_cp932, "YES"});
    table.AppendRow({"上FLG厚を主桁高に含むか"_cp932, "YES"});
    table.AppendRow({"下FLG厚を主桁高に含むか"_cp932, "YES"});
    changed.push_back({511, -1});
}

void LinkFlanges(CSbdData& data, int block, std::vector<ChangedRow>& changed)
{
    if (block != 311 && block != 721)
        return;
    AddHeightRows(data, changed);
    static const std::string notIncluded = "桁高に含まない"_cp932;
    for (int row = 1; row <= 2; ++row) {
        const std::size_t index = static_cast<std::size_t>(row) - 1;
        const std::string value = block == 721 ? std::string(data.Option(721, index))
                                               : (data.hGirder.types[index] == notIncluded ? "NO" : "YES");
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

int AutomaticOptionRow(int block)
{
    for (const AutomaticLink& link : kAutomaticLinks)
        if (block != 0 && std::ranges::find(link.blocks, block) != link.blocks.end())
            return link.optionRow;
    return 0;
}

std::vector<ChangedRow> LinkAutomaticValue(CSbdData& data, int optionRow, std::string_view value)
{
    std::vector<ChangedRow> changed;
    const std::string copy(value); // it may be a view of a cell that is set here
    SetOptionAt(data, {301, optionRow}, copy, changed);
    for (const AutomaticLink& link : kAutomaticLinks)
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
    for (const AutomaticLink& link : kAutomaticLinks) {
        const std::vector<ChangedRow> linked =
            LinkAutomaticValue(data, link.optionRow, data.Option(301, static_cast<std::size_t>(link.optionRow) - 1));
        changed.insert(changed.end(), linked.begin(), linked.end());
    }
    return changed;
}

} // namespace sbd
