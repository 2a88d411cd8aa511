#include "tests/expected_totals.h"
#include "tools/listing.h"

#include <gtest/gtest.h>

namespace sbd {

using nlohmann::json;

TEST(Listing, TheCatalogueNamesBlocksCommandsAliasesAndPanels)
{
    const json listing = CatalogueListing();
    EXPECT_EQ(listing.at("blocks").size(), expected::kCatalogueRows);
    EXPECT_EQ(listing.at("commands").size(), expected::kCommandPairs);
    EXPECT_EQ(listing.at("aliases").at(0), json::array({406, 713}));
    EXPECT_EQ(listing.at("panels").at("614"), "CDown_DATA_600") << "a number that is no block";
    EXPECT_EQ(listing.at("blocks").at(0).at("tag"), nullptr);
}

TEST(Listing, ARowWithoutWordsHasANullList)
{
    const json row = OptionsListing(301)->at("blocks").at(0).at("rows").at(0);
    EXPECT_EQ(row.at("row"), 1);
    EXPECT_EQ(row.at("words"), nullptr);
}

TEST(Listing, OneBlockIsListedAsInTheWhole)
{
    const json all = ColumnsListing();
    for (const json& block : all.at("blocks")) {
        const auto one = ColumnsListing(block.at("block").get<int>());
        ASSERT_TRUE(one) << block.at("block");
        EXPECT_EQ(one->at("blocks"), json::array({block}));
    }
}

TEST(Listing, AnAliasListsItsCanonicalBlock)
{
    EXPECT_EQ(ColumnsListing(406)->at("blocks").at(0).at("block"), 713);
}

TEST(Listing, ANumberWithoutAnEntryListsNothing)
{
    EXPECT_FALSE(ColumnsListing(301));
    EXPECT_FALSE(ColumnsListing(100));
    EXPECT_FALSE(OptionsListing(313));
}

TEST(Listing, PagesAreListedWithTheirNumber)
{
    const json listing = PagesListing();
    EXPECT_EQ(listing.at("pages").size(), expected::kPageTitles);
    EXPECT_EQ(listing.at("pages").at(0).at("block"), 259);
}

} // namespace sbd
