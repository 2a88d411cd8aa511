#include "sbdfile/repairs.h"

#include "project/block_rules.h"
#include "project/bridge_names.h"
#include "project/sbd_data.h"
#include "project/text.h"

#include <algorithm>
#include <array>
#include <span>
#include <unordered_set>

namespace sbd {

namespace {

using namespace literals;

/// The rows of option blocks that hold one value take that of the first of them.
void ShareOptions(CSbdData& data)
{
    for (const SharedOption& places : SharedOptions()) {
        const std::string value(data.Option(places[0].block, static_cast<std::size_t>(places[0].row) - 1));
        for (const OptionPlace& place : places)
            if (place.block != 0)
                data.SetOption(place.block, static_cast<std::size_t>(place.row) - 1, value);
    }
}

void ReadStringerNames(CSbdData& data)
{
    const std::size_t count = static_cast<std::size_t>(std::max(0, LeadingInteger(data.Option(640, 0))));
    data.stringerNames.clear();
    for (const std::string_view name : SplitWords(data.Option(640, 1)))
        if (data.stringerNames.size() < count)
            data.stringerNames.emplace_back(name);
}

void AddHandHoleTypes(TableBlock& table)
{
    if (table.RowCount() > 1)
        return;
    if (table.RowCount() == 0)
        table.AppendRow({AutomaticWordOf(409), AutomaticValueOf(409)});
    table.AppendRow({"TYPE_H_A", "6", "19", "16", "9", "300", "340", "240 150 180 SS400 SUS304"});
    table.AppendRow({"TYPE_H_B", "6", "19", "16", "9", "430", "250", "630 270 300 120 330 150 390 210 SS400 SUS304"});
}

/// Does the flange's thickness count within the girder height? "YES" or "NO" for 511 and 721, from the type in 311.
void SetFlangeRows(CSbdData& data)
{
    TableBlock& table = *data.Table(511);
    if (table.RowCount() == 0)
        AppendHeadRows(511, table);
    for (std::size_t flange = 0; flange < 2; ++flange) {
        const std::string_view value = data.hGirder.types[flange] == OutsideOfHeight() ? "NO" : "YES";
        if (flange + 1 < table.RowCount())
            table.columns[1].Set(flange + 1, value);
        data.SetOption(721, flange, value);
    }
}

/// The words of `value` as a row's line gives them.
std::vector<std::string> WordsOfLine(std::string_view value)
{
    std::string line(value);
    std::ranges::replace(line, ',', ' ');
    std::vector<std::string> words;
    for (std::string_view rest = TrimLeft(line); !rest.empty(); rest = TrimLeft(rest))
        words.emplace_back(TakeToken(rest));
    return words;
}

/// Takes `words` off the control row's cells behind its value; the cells behind them move up. There is one word a
/// column, the last column has the rest of the line. Does nothing if one of the words is not there.
void TakeBehindValue(TableBlock& table, std::span<const std::string> words)
{
    constexpr std::size_t first = 2;
    const std::size_t last = table.columns.size() - 1;
    if (last < first)
        return;
    const std::string line(table.columns[last][0]);
    std::string_view rest = line;
    std::size_t from = first; // the first column that is left
    const auto takeNext = [&] {
        if (from < last)
            return std::string(table.columns[from++][0]);
        rest = TrimLeft(rest);
        return std::string(TakeToken(rest));
    };
    if (!std::ranges::all_of(words, [&](const std::string& word) { return takeNext() == word; }))
        return;
    for (std::size_t column = first; column < last; ++column)
        table.columns[column].Set(0, takeNext());
    table.columns[last].Set(0, TrimLeft(rest));
}

void SetControlValue(int block, TableBlock& table, std::string_view value)
{
    if (table.RowCount() == 0) {
        table.AppendRow({AutomaticWordOf(block), value});
        return;
    }
    // What holds commas alone is no word in the file: the row's next cell would take its place at the next load.
    const std::vector<std::string> words = WordsOfLine(value);
    if (words.empty())
        return;
    // A value of several words ("YES, 3") comes from the file as several cells. They are this value's own words and go.
    if (words.size() > 1)
        TakeBehindValue(table, std::span(words).subspan(1));
    table.columns[1].Set(0, value);
}

/// The automatic rows that follow a switch of block 301.
void LinkAutomaticRows(CSbdData& data)
{
    for (const AutomaticLink& link : AutomaticLinks())
        for (const int block : link.blocks)
            if (TableBlock* table = data.Table(block))
                SetControlValue(block, *table, data.Option(301, static_cast<std::size_t>(link.optionRow) - 1));
}

void TieSplices(const std::array<int, 4>& blocks, CSbdData& data)
{
    const bool tied = std::ranges::any_of(blocks, [&](int block) {
        const TableBlock& table = *data.Table(block);
        // The single letter only: the word "YES" stands for itself.
        return table.RowCount() > 0 && (table.columns[1][0] == "Y" || table.columns[1][0] == "y");
    });
    if (!tied)
        return;
    for (const int block : blocks) {
        TableBlock& table = *data.Table(block);
        if (table.RowCount() == 0)
            table.AppendRow({AutomaticWordOf(block), AutomaticValueOf(block)});
        else
            table.columns[1].Set(0, "YES");
    }
}

} // namespace

void RefreshSwayNames(CSbdData& data)
{
    std::vector<std::string>& names = data.gridNames.swayNames;
    names.resize(std::min(names.size(), data.swayNameCount));
    std::unordered_set<std::string> known(names.begin(), names.end());
    for (const std::string& full : data.Names(501)->lists[1])
        if (const std::string name(BeamNameOf(full)); known.insert(name).second)
            names.push_back(name);
}

void RepairAfterRead(CSbdData& data)
{
    RefreshSwayNames(data);
    ReadStringerNames(data);
    AddHandHoleTypes(*data.Table(409));
    ShareOptions(data);
    SetFlangeRows(data);
    LinkAutomaticRows(data);
    for (const std::array<int, 4>& blocks : TiedBlocks())
        TieSplices(blocks, data);
}

} // namespace sbd
