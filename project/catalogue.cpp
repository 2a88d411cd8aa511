#include "project/catalogue.h"

#include "project/catalogue_table.h"
#include "project/text.h"

#include <algorithm>
#include <vector>

namespace sbd {

namespace {

constexpr std::pair<int, int> kAliases[] = {
    {406, 713}, {567, 482}, {584, 483}, {712, 405}, {714, 514}, {722, 702}, {727, 707}, {732, 405}, {733, 713},
};

/// A block that stands among the numbers of a foreign group, behind one of them.
struct Guest {
    int block;
    int group;
    int behind;
};
constexpr Guest kGuests[] = {{671, 640, 642}};

/// Numbers from..to of a group whose blocks share a panel class.
struct PanelRange {
    int from;
    int to;
    std::string_view panel;
};

constexpr std::string_view k400 = "CDown_DATA_400";
constexpr std::string_view k500 = "CDown_DATA_500";
constexpr std::string_view k600 = "CDown_DATA_600";
constexpr std::string_view k700 = "CDown_DATA_700";

constexpr PanelRange kRanges[] = {
    {259, 259, k600}, {291, 296, k600}, {391, 396, k600}, {602, 689, k600}, {304, 307, k400}, {312, 316, k400},
    {321, 323, k400}, {326, 329, k400}, {331, 359, k400}, {402, 420, k400}, {422, 429, k400}, {481, 486, k400},
    {502, 507, k500}, {511, 517, k500}, {523, 524, k500}, {532, 535, k500}, {542, 543, k500}, {551, 566, k500},
    {572, 579, k500}, {581, 583, k500}, {703, 713, k700}, {723, 799, k700},
};

/// Numbers outside the ranges that open a panel; the group heads 400, 500, 600, 700 open the table panels.
constexpr std::pair<int, std::string_view> kPanels[] = {
    {400, k400},       {500, k500},       {600, k600},       {700, k700},       {253, "CDown253"}, {254, "CDown254"},
    {255, "CDown255"}, {256, "CDown256"}, {301, "CDown301"}, {302, "CDown302"}, {303, "CDown303"}, {308, "CDown308"},
    {309, "CDown309"}, {310, "CDown310"}, {311, "CDown311"}, {324, "CDown324"}, {325, "CDown325"}, {361, "CDown521"},
    {362, "CDown531"}, {363, "CDown541"}, {401, "CDown401"}, {421, "CDown421"}, {501, "CDown501"}, {521, "CDown521"},
    {522, "CDown522"}, {531, "CDown531"}, {541, "CDown541"}, {569, "CDown521"}, {570, "CDown522"}, {571, "CDown571"},
    {601, "CDown601"}, {701, "CDown701"}, {702, "CDown702"}, {721, "CDown721"}, {722, "CDown702"}, {801, "CDown801"},
    {999, "CDown999"},
};

} // namespace

std::span<const CatalogueRow> Catalogue()
{
    return CatalogueRows();
}

const CatalogueRow* FindBlock(int block)
{
    const std::span<const CatalogueRow> rows = Catalogue();
    const auto row = std::ranges::lower_bound(rows, block, {}, &CatalogueRow::block);
    return row != rows.end() && row->block == block ? &*row : nullptr;
}

std::span<const std::pair<int, int>> Commands()
{
    static const std::vector<std::pair<int, int>> commands = [] {
        std::vector<std::pair<int, int>> pairs;
        for (const CatalogueRow& row : Catalogue())
            if (row.commandOpens)
                pairs.emplace_back(row.command, row.block);
        return pairs;
    }();
    return commands;
}

std::vector<int> BlocksOfGroup(BlockGroups CatalogueRow::*where, int group)
{
    std::vector<int> blocks;
    for (const CatalogueRow& row : Catalogue())
        if (std::ranges::count(row.*where, group) > 0)
            blocks.push_back(row.block);
    for (const Guest& guest : kGuests) {
        const auto from = std::ranges::find(blocks, guest.block);
        if (guest.group != group || from == blocks.end())
            continue;
        blocks.erase(from);
        blocks.insert(std::ranges::upper_bound(blocks, guest.behind), guest.block);
    }
    return blocks;
}

std::span<const int> SectionOrder()
{
    static const std::vector<int> order = [] {
        std::vector<const CatalogueRow*> rows;
        for (const CatalogueRow& row : Catalogue())
            if (row.kind != BlockKind::None)
                rows.push_back(&row);
        const auto place = [](const CatalogueRow* row) { return row->fileBehind ? row->fileBehind : row->block; };
        std::ranges::stable_sort(rows, [&](const CatalogueRow* a, const CatalogueRow* b) {
            return std::pair(place(a), a->fileBehind != 0) < std::pair(place(b), b->fileBehind != 0);
        });
        std::vector<int> blocks;
        for (const CatalogueRow* row : rows)
            blocks.push_back(row->block);
        return blocks;
    }();
    return order;
}

std::span<const std::pair<int, int>> Aliases()
{
    return kAliases;
}

int CanonicalBlock(int block)
{
    for (const auto& [alias, canonical] : kAliases)
        if (block == alias)
            block = canonical;
    return block;
}

std::string_view PanelOfBlock(int block)
{
    const int canonical = CanonicalBlock(block);
    if (canonical < 252 || canonical > 999)
        return {};
    for (const PanelRange& range : kRanges)
        if (canonical >= range.from && canonical <= range.to)
            return range.panel;
    for (const auto& [number, panel] : kPanels)
        if (canonical == number)
            return panel;
    return {};
}

int BlockOnPanel(int block)
{
    constexpr std::string_view classPrefix = "CDown";
    constexpr std::string_view tablePrefix = "CDown_DATA_";
    const std::string_view panel = PanelOfBlock(block);
    if (panel.empty() || panel.starts_with(tablePrefix))
        return panel.empty() ? 0 : CanonicalBlock(block);
    return LeadingInteger(panel.substr(classPrefix.size()));
}

} // namespace sbd
