#include "upperview/cell_help.h"

#include "project/catalogue.h"
#include "project/option_rows.h"
#include "project/page_titles.h"
#include "project/panel_columns.h"
#include "project/sbd_data.h"
#include "project/text.h"

#include <algorithm>
#include <vector>

namespace sbd {

namespace {

/// A head in one line: its lines, but for those that say nothing new.
std::string OneLine(std::string_view head)
{
    std::vector<std::string> seen = {"", "---", Cp932("〃")};
    std::string line;
    while (!head.empty()) {
        const std::size_t end = std::min(head.find('\n'), head.size());
        std::string part(Trim(head.substr(0, end)));
        head.remove_prefix(std::min(end + 1, head.size()));
        if (std::ranges::find(seen, part) != seen.end())
            continue;
        line += (line.empty() ? "" : " ") + part;
        seen.push_back(std::move(part));
    }
    return line;
}

template <typename Texts>
std::string TextAt(const Texts& texts, int index)
{
    return index >= 0 && static_cast<std::size_t>(index) < texts.size() ? texts[static_cast<std::size_t>(index)]
                                                                        : std::string();
}

std::string ColumnHead(const CSbdData& data, int block, int column)
{
    const bool section = data.Type().starts_with(Cp932("断面"));
    if (const RecordPanel* record = FindRecordPanel(block))
        return TextAt(section && !record->sectionHeads.empty() ? record->sectionHeads : record->heads, column);
    const PanelTable* table = FindPanelTable(block);
    if (table == nullptr || column < 0 || static_cast<std::size_t>(column) >= table->columns.size())
        return {};
    const PanelColumn& panelColumn = table->columns[static_cast<std::size_t>(column)];
    return section && table->hasSectionHeads ? panelColumn.sectionHead : panelColumn.head;
}

} // namespace

std::string_view PageTitleOf(int block)
{
    const std::string_view title = FindPageTitle(block);
    if (!title.empty())
        return title;
    const CatalogueRow* row = FindBlock(block);
    return row == nullptr ? std::string_view() : row->menuText;
}

std::string CellTitle(const CSbdData& data, int block, int row, int column)
{
    if (row < 1 || column < 1)
        return {};
    if (const OptionBlock* options = FindOptionBlock(block)) {
        const auto index = static_cast<std::size_t>(row - 1);
        return index < options->rows.size() ? std::string(Trim(options->rows[index].panelLabel)) : std::string();
    }
    return OneLine(ColumnHead(data, block, column));
}

} // namespace sbd
