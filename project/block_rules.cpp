#include "project/block_rules.h"

#include "project/panel_columns.h"
#include "project/sbd_data.h"

#include <algorithm>

namespace sbd {

int FindHeadRow(std::span<const HeadRow> rows, std::string_view word)
{
    for (const bool whole : {true, false})
        for (std::size_t row = 0; row < rows.size(); ++row)
            for (const HeadKey& key : rows[row].keys)
                if (key.whole == whole && (whole ? word == key.text : word.starts_with(key.text)))
                    return static_cast<int>(row);
    return -1;
}

void AppendHeadRows(int block, TableBlock& table)
{
    for (const HeadRow& head : HeadRowsOf(block))
        table.AppendRow({head.word, head.value});
}

int WordRowsOf(int block)
{
    const PanelTable* panel = FindPanelTable(block);
    return std::max(panel != nullptr ? panel->automaticRows : 0, static_cast<int>(HeadRowsOf(block).size()));
}

int AutomaticOptionRow(int block)
{
    for (const AutomaticLink& link : AutomaticLinks())
        if (block != 0 && std::ranges::find(link.blocks, block) != link.blocks.end())
            return link.optionRow;
    return 0;
}

} // namespace sbd
