#include "project/block_rules.h"
#include "project/catalogue.h"
#include "project/option_rows.h"
#include "project/panel_columns.h"
#include "project/text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace sbd {

namespace {

bool IsKnown(int block, std::string_view word)
{
    if (const ControlRowRule* rule = ControlRowOf(block))
        return std::ranges::any_of(rule->words, [=](const std::string& w) { return word.starts_with(w); });
    return FindHeadRow(HeadRowsOf(block), word) >= 0;
}

} // namespace

TEST(BlockRules, TheRowThatAPanelPutsInIsKnownByTheReaderInEveryBlock)
{
    for (const PanelTable& panel : PanelTables()) {
        if (panel.automaticRows == 0)
            continue;
        const bool heads = panel.automaticRows > 1;
        const std::string_view word = heads ? HeadRowsOf(panel.block)[0].word : AutomaticWordOf(panel.block);
        EXPECT_TRUE(IsKnown(panel.block, word))
            << panel.block << ": \"" << FromCp932(word) << "\" would come back as a data row";
    }
}

TEST(BlockRules, EverySharedOptionIsARowOfItsBlockAndStandsInOneGroup)
{
    std::set<std::pair<int, int>> seen;
    for (const SharedOption& places : SharedOptions()) {
        EXPECT_GT(std::ranges::count_if(places, [](const OptionPlace& place) { return place.block != 0; }), 1);
        for (const OptionPlace& place : places) {
            if (place.block == 0)
                continue;
            const OptionBlock* block = FindOptionBlock(place.block);
            ASSERT_NE(block, nullptr) << place.block;
            EXPECT_LE(static_cast<std::size_t>(place.row), block->rows.size()) << place.block;
            EXPECT_TRUE(seen.emplace(place.block, place.row).second) << place.block << " row " << place.row;
        }
    }
}

TEST(BlockRules, EveryLinkedBlockGoesWithOneRowOf301AndHasAnAutomaticRowOrRecords)
{
    std::set<int> seen;
    for (const AutomaticLink& link : AutomaticLinks()) {
        EXPECT_LE(static_cast<std::size_t>(link.optionRow), FindOptionBlock(301)->rows.size());
        for (const int block : link.blocks) {
            if (block == 0)
                continue;
            EXPECT_TRUE(seen.insert(block).second) << block << " follows two rows";
            EXPECT_EQ(AutomaticOptionRow(block), link.optionRow);
            EXPECT_TRUE(ControlRowOf(block) != nullptr || FindRecordPanel(block) != nullptr) << block;
        }
    }
}

TEST(BlockRules, EveryBlockOfTheFileStandsInTheTreeAndInTheMenuOrIsAnItemOfItsOwn)
{
    const std::set<int> items = {259, 801}; // beside the groups
    for (const CatalogueRow& row : Catalogue()) {
        const bool canonical = CanonicalBlock(row.block) == row.block;
        if (row.kind == BlockKind::None || !canonical)
            continue;
        EXPECT_TRUE(row.tree[0] != 0 || items.contains(row.block)) << row.block << " stands in no group of the tree";
        EXPECT_TRUE(row.menu[0] != 0 || items.contains(row.block)) << row.block << " stands in no group of the menu";
        EXPECT_FALSE(row.menuText.empty()) << row.block << " has no title";
        EXPECT_FALSE(PanelOfBlock(row.block).empty()) << row.block << " has no panel class";
    }
}

TEST(BlockRules, TheMarkOfABlockCountsNoMoreRowsThanItsOwnFixedOnes)
{
    const std::set<int> byCustom = {402, 403, 421}; // two rows of types; nine rows of options
    for (const CatalogueRow& row : Catalogue()) {
        if (byCustom.contains(row.block) || row.kind == BlockKind::Option)
            continue;
        EXPECT_LE(row.mark.rows, static_cast<std::size_t>(std::max(WordRowsOf(row.block), 1))) << row.block;
    }
}

} // namespace sbd
