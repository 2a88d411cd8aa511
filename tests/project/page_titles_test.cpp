#include "project/catalogue.h"
#include "project/page_titles.h"
#include "project/text.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace sbd {

TEST(PageTitles, EachBeginsWithTheNumberOfABlock)
{
    std::set<int> blocks;
    for (const PageTitle& title : PageTitles()) {
        EXPECT_TRUE(title.title.starts_with(std::to_string(title.block))) << title.title;
        EXPECT_NE(FindBlock(title.block), nullptr) << title.title;
        blocks.insert(title.block);
    }
    EXPECT_EQ(blocks.size(), PageTitles().size()) << "two titles have the same number";
}

TEST(PageTitles, TheyStandInOrderOfTheBlockWhosePageTheyHead)
{
    int last = 0;
    for (const PageTitle& title : PageTitles()) {
        const int block = CanonicalBlock(title.block);
        EXPECT_GT(block, last) << title.title;
        last = block;
    }
}

TEST(PageTitles, EveryTitleCanBeStoredAndShown)
{
    for (const PageTitle& title : PageTitles())
        EXPECT_EQ(FromCp932(Cp932(title.title)), title.title);
}

TEST(PageTitles, APageHasItsOwnTitle)
{
    EXPECT_EQ(FindPageTitle(301), "301.CONTROL [SEC_CONTROL]");
    EXPECT_EQ(FindPageTitle(344), "344. WEBボルト間隔 [SEC_WEB_DIS_SPLICE]");
}

TEST(PageTitles, ASharedPageIsFoundByEachOfItsNumbers)
{
    const std::string_view rib = "406.(713,733共用) [2BD_RIB]  鈑桁・箱桁補強リブ";
    EXPECT_EQ(FindPageTitle(406), rib);
    EXPECT_EQ(FindPageTitle(713), rib);
    EXPECT_EQ(FindPageTitle(733), rib);
    EXPECT_TRUE(FindPageTitle(514).starts_with("714(=514)."));
    EXPECT_EQ(FindPageTitle(567), FindPageTitle(482));
}

TEST(PageTitles, SomeBlocksHaveNone)
{
    for (const int block : {0, 100, 253, 256, 309, 312, 401, 535, 999})
        EXPECT_TRUE(FindPageTitle(block).empty()) << block;
}

} // namespace sbd
