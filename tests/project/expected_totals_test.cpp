#include "project/catalogue.h"
#include "project/option_rows.h"
#include "project/page_titles.h"
#include "project/panel_columns.h"
#include "tests/expected_totals.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace sbd {

TEST(ExpectedTotals, AreThoseOfTheTables)
{
    const auto ofKind = [](BlockKind kind) {
        return static_cast<std::size_t>(std::ranges::count(Catalogue(), kind, &CatalogueRow::kind));
    };
    std::size_t optionRows = 0;
    for (const OptionBlock& block : OptionBlocks())
        optionRows += block.rows.size();
    const auto named =
        std::ranges::count_if(PanelTables(), [](const PanelTable& p) { return !p.columns[1].name.empty(); });
    EXPECT_EQ(Catalogue().size(), expected::kCatalogueRows);
    EXPECT_EQ(Commands().size(), expected::kCommandPairs);
    EXPECT_EQ(ofKind(BlockKind::Option), expected::kOptionBlocks);
    EXPECT_EQ(OptionBlocks().size(), expected::kOptionBlocks);
    EXPECT_EQ(optionRows, expected::kOptionRows);
    EXPECT_EQ(ofKind(BlockKind::Table), expected::kTableBlocks);
    EXPECT_EQ(ofKind(BlockKind::OwnTable), expected::kOwnTableBlocks);
    EXPECT_EQ(PanelTables().size(), expected::kTablePanels);
    EXPECT_EQ(static_cast<std::size_t>(named), expected::kNamedTablePanels);
    EXPECT_EQ(PageTitles().size(), expected::kPageTitles);
}

} // namespace sbd
