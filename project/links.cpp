#include "project/links.h"

#include "project/block_rules.h"

#include <algorithm>
#include <array>
#include <initializer_list>

namespace sbd {

namespace {

void SetOptionAt(CProjectWriter& writer, OptionPlace place, std::string_view value)
{
    writer.SetOption(place.block, static_cast<std::size_t>(place.row) - 1, value);
}

void ShareOptions(CProjectWriter& writer, int block)
{
    for (const SharedOption& places : SharedOptions()) {
        const auto source = std::ranges::find(places, block, &OptionPlace::block);
        if (source == places.end())
            continue;
        const std::string value(writer.Data().Option(block, static_cast<std::size_t>(source->row) - 1));
        for (const OptionPlace& place : places)
            if (place.block != 0 && place.block != block)
                SetOptionAt(writer, place, value);
    }
}

/// Column 1 of the automatic row of a table block takes the value; a block without rows gets the row.
void SetAutomaticRow(CProjectWriter& writer, int block, const std::string& value)
{
    const TableBlock* table = writer.Data().Table(block);
    if (table == nullptr) // 324 and 325 hold no automatic row of their own
        return;
    if (table->RowCount() > 0)
        writer.SetCell(block, 0, 1, value);
    else
        writer.InsertRow(block, 0, {std::string(AutomaticWordOf(block)), value});
}

/// Row 1 (upper flange) or 2 (lower flange) of block 511 and the value of 721 that says the same.
void SetFlangeInHeight(CProjectWriter& writer, int row, std::string_view value)
{
    if (writer.Data().Table(511)->RowCount() > 2)
        writer.SetCell(511, static_cast<std::size_t>(row), 1, value);
    SetOptionAt(writer, {721, row}, value);
}

void AddHeightRows(CProjectWriter& writer)
{
    if (writer.Data().Table(511)->RowCount() > 0)
        return;
    TableBlock table = *writer.Data().Table(511);
    AppendHeadRows(511, table);
    writer.ReplaceTable(511, std::move(table));
}

void LinkFlanges(CProjectWriter& writer, int block)
{
    if (block != 311 && block != 721)
        return;
    AddHeightRows(writer);
    for (int row = 1; row <= 2; ++row) {
        const CSbdData& data = writer.Data();
        const std::size_t index = static_cast<std::size_t>(row) - 1;
        const std::string value = block == 721 ? std::string(data.Option(721, index))
                                               : (data.hGirder.types[index] == OutsideOfHeight() ? "NO" : "YES");
        SetFlangeInHeight(writer, row, value);
    }
}

/// Sets row `optionRow` (from 1) of block 301 and the automatic rows of the table blocks that go with it.
void LinkAutomaticValue(CProjectWriter& writer, int optionRow, const std::string& value)
{
    SetOptionAt(writer, {301, optionRow}, value);
    for (const AutomaticLink& link : AutomaticLinks())
        if (link.optionRow == optionRow)
            for (const int block : link.blocks)
                SetAutomaticRow(writer, block, value);
}

std::string SwitchOf301(const CSbdData& data, int optionRow)
{
    return std::string(data.Option(301, static_cast<std::size_t>(optionRow) - 1));
}

/// The value that a block shows in its automatic row; blocks of records show that of block 301 itself.
std::string AutomaticValue(const CSbdData& data, int block, int optionRow)
{
    const TableBlock* table = data.Table(block);
    if (table == nullptr)
        return SwitchOf301(data, optionRow);
    return table->RowCount() > 0 ? std::string(table->columns[1][0]) : std::string();
}

void LinkFromBlock(CProjectWriter& writer, int block)
{
    const int optionRow = AutomaticOptionRow(block);
    if (optionRow == 0)
        return;
    if (const std::string value = AutomaticValue(writer.Data(), block, optionRow); !value.empty())
        LinkAutomaticValue(writer, optionRow, value);
}

} // namespace

void FollowLinks(CProjectWriter& writer, int block)
{
    ShareOptions(writer, block);
    LinkFlanges(writer, block);
    if (block != 301) {
        LinkFromBlock(writer, block);
        return;
    }
    for (const AutomaticLink& link : AutomaticLinks())
        LinkAutomaticValue(writer, link.optionRow, SwitchOf301(writer.Data(), link.optionRow));
}

} // namespace sbd
