#include "tools/views.h"

#include "panelmodel/panel_model.h"
#include "panelmodel/tree_rows.h"
#include "project/text.h"

#include <nlohmann/json.hpp>

#include <cstdio>
#include <map>

namespace sbd {

namespace {

using nlohmann::json;

std::string ColorText(std::uint32_t color)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text = "#";
    for (int shift = 20; shift >= 0; shift -= 4)
        text += digits[(color >> shift) & 0xFU];
    return text;
}

/// The word lists of a panel, each one once.
class Lists {
public:
    [[nodiscard]] std::size_t Number(const WordList& words)
    {
        const auto [place, isNew] = numbers_.try_emplace(words, lists_.size());
        if (isNew) {
            json list = json::array();
            for (const std::string& word : words)
                list.push_back(FromCp932(word));
            lists_.push_back(std::move(list));
        }
        return place->second;
    }
    [[nodiscard]] json Take() { return std::move(lists_); }

private:
    std::map<WordList, std::size_t> numbers_;
    json lists_ = json::array();
};

json Cell(const CPanelModel& panel, int row, int column, Lists& lists)
{
    json cell = {{"text", FromCp932(panel.Text(row, column))}};
    if (const WordList& words = panel.Words(row, column); !words.empty())
        cell["list"] = lists.Number(words);
    if (panel.IsLocked(row, column))
        cell["locked"] = true;
    if (const CellColor color = panel.TextColor(row, column))
        cell["color"] = ColorText(*color);
    if (panel.IsRightAligned(row, column))
        cell["align"] = "right";
    return cell;
}

} // namespace

json TreeListing(const CSbdData& data, const TreeView& view)
{
    json rows = json::array();
    for (const TreeRow& row : TreeRows(data, view))
        rows.push_back({{"level", row.level}, {"block", row.block}, {"text", row.text}, {"bold", row.bold}});
    return rows;
}

json PanelListing(const CPanelModel& panel)
{
    json columns = json::array();
    for (int column = 0; column < panel.ColumnCount(); ++column) {
        json entry = {{"head", FromCp932(panel.Head(column))}, {"width", panel.ColumnWidth(column)}};
        if (const CellColor color = panel.HeadColor(column))
            entry["color"] = ColorText(*color);
        columns.push_back(std::move(entry));
    }
    Lists lists;
    json grid = json::array();
    for (int row = 1; row <= panel.BlockRows(); ++row) {
        json cells = json::array();
        for (int column = 1; column < panel.ColumnCount(); ++column)
            cells.push_back(Cell(panel, row, column, lists));
        grid.push_back({{"number", FromCp932(panel.RowNumber(row))}, {"cells", std::move(cells)}});
    }
    return {{"block", panel.Block()},
            {"class", std::string(panel.ClassName())},
            {"headHeight", panel.HeadHeight()},
            {"columns", std::move(columns)},
            {"rows", panel.BlockRows()},
            {"spare", panel.SpareRows()},
            {"lists", lists.Take()},
            {"grid", std::move(grid)}};
}

} // namespace sbd
