#include "tools/listing.h"

#include "project/catalogue.h"
#include "project/option_rows.h"
#include "project/page_titles.h"
#include "project/panel_columns.h"
#include "project/text.h"

#include <string>
#include <string_view>

namespace sbd {

namespace {

using nlohmann::json;

constexpr int kFirstNumber = 252; // of the numbers that the block switch takes
constexpr int kLastNumber = 999;

json TextOrNull(std::string_view text)
{
    return text.empty() ? json() : json(text);
}

json WordsOf(const WordList& words)
{
    json list = json::array();
    for (const std::string& word : words)
        list.push_back(FromCp932(word));
    return list;
}

json WordsOrNull(const WordList& words)
{
    return words.empty() ? json() : WordsOf(words);
}

std::string_view KindName(BlockKind kind)
{
    switch (kind) {
    case BlockKind::Option:
        return "option";
    case BlockKind::Table:
        return "table";
    case BlockKind::OwnTable:
        return "table*";
    case BlockKind::None:
        break;
    }
    return "-";
}

json CatalogueEntry(const CatalogueRow& row)
{
    json prefixes = json::array();
    for (const std::string_view prefix : row.prefixes)
        if (!prefix.empty())
            prefixes.push_back(prefix);
    return {{"block", row.block},
            {"command", row.command},
            {"title", TextOrNull(row.menuText)},
            {"tag", TextOrNull(row.tag)},
            {"prefixes", prefixes},
            {"kind", KindName(row.kind)},
            {"columns", row.columns > 0 ? json(row.columns) : json()},
            {"panel", PanelOfBlock(row.block)}};
}

json OptionRowEntry(const OptionBlock& block, std::size_t row)
{
    const OptionRow& option = block.rows[row];
    const OptionPanel* panel = FindOptionPanel(block.block);
    return {{"row", row + 1},
            {"keyword", FromCp932(option.keyword)},
            {"key", FromCp932(option.shortKey)},
            {"default", FromCp932(option.defaultValue)},
            {"label", block.shape == OptionShape::KeywordLabelValue ? json(FromCp932(option.label)) : json()},
            {"panelLabel", FromCp932(option.panelLabel)},
            {"words", (panel != nullptr) && row < panel->words.size() ? WordsOrNull(panel->words[row]) : json()}};
}

json OptionBlockEntry(const OptionBlock& block)
{
    json rows = json::array();
    for (std::size_t row = 0; row < block.rows.size(); ++row)
        rows.push_back(OptionRowEntry(block, row));
    const CatalogueRow* entry = FindBlock(block.block);
    return {{"block", block.block},
            {"tag", entry != nullptr ? TextOrNull(entry->tag) : json()},
            {"header", FromCp932(block.header)},
            {"end", FromCp932(block.end)},
            {"rows", rows}};
}

json ColumnEntry(const PanelTable& panel, std::size_t number)
{
    const PanelColumn& column = panel.columns[number];
    if (number == 0)
        return {{"column", 0}, {"width", column.width}};
    return {{"column", number},
            {"width", column.width},
            {"head", FromCp932(column.head)},
            {"sectionHead", panel.hasSectionHeads ? json(FromCp932(column.sectionHead)) : json()},
            {"name", TextOrNull(FromCp932(column.name))},
            {"words", WordsOrNull(column.words)}};
}

json PanelEntry(const PanelTable& panel)
{
    json columns = json::array();
    for (std::size_t number = 0; number < panel.columns.size(); ++number)
        columns.push_back(ColumnEntry(panel, number));
    return {{"block", panel.block},
            {"class", PanelOfBlock(panel.block)},
            {"headHeight", panel.headHeight},
            {"automaticRows", panel.automaticRows},
            {"usable", panel.usable},
            {"fixedTexts", WordsOf(panel.fixedTexts)},
            {"columns", columns}};
}

} // namespace

json CatalogueListing()
{
    json blocks = json::array();
    for (const CatalogueRow& row : Catalogue())
        blocks.push_back(CatalogueEntry(row));
    json panels = json::object();
    for (int number = kFirstNumber; number <= kLastNumber; ++number)
        if (const std::string_view panel = PanelOfBlock(number); !panel.empty())
            panels[json(number).dump()] = panel;
    json commands = json::array();
    for (const auto& [command, block] : Commands())
        commands.push_back({command, block});
    json aliases = json::array();
    for (const auto& [alias, block] : Aliases())
        aliases.push_back({alias, block});
    return {{"blocks", blocks}, {"commands", commands}, {"aliases", aliases}, {"panels", panels}};
}

json OptionsListing()
{
    json blocks = json::array();
    for (const OptionBlock& block : OptionBlocks())
        blocks.push_back(OptionBlockEntry(block));
    return {{"blocks", blocks}};
}

std::optional<json> OptionsListing(int block)
{
    const OptionBlock* found = FindOptionBlock(CanonicalBlock(block));
    if (found == nullptr)
        return std::nullopt;
    return json{{"blocks", json::array({OptionBlockEntry(*found)})}};
}

json ColumnsListing()
{
    json blocks = json::array();
    for (const PanelTable& panel : PanelTables())
        blocks.push_back(PanelEntry(panel));
    return {{"blocks", blocks}};
}

std::optional<json> ColumnsListing(int block)
{
    const PanelTable* found = FindPanelTable(CanonicalBlock(block));
    if (found == nullptr)
        return std::nullopt;
    return json{{"blocks", json::array({PanelEntry(*found)})}};
}

json PagesListing()
{
    json pages = json::array();
    for (const PageTitle& page : PageTitles())
        pages.push_back({{"block", page.block}, {"title", page.title}});
    return {{"pages", pages}};
}

} // namespace sbd
