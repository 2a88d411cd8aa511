#include "tests/panelmodel/panel_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace sbd {
namespace {

using namespace test;
using ::testing::Contains;
using ::testing::ElementsAre;

TEST(Links, ASharedOptionIsCopiedToAllItsPlaces)
{
    CSbdData data;
    const auto panel = MakePanelModel(data, 301);
    Set(*panel, 17, 2, "東北");
    const std::vector<ChangedRow> changed = panel->Commit();
    EXPECT_EQ(Option(data, 521, 5), "東北");
    EXPECT_EQ(Option(data, 721, 10), "東北");
    EXPECT_EQ(Option(data, 701, 17), "東北");
    EXPECT_THAT(changed, Contains(ChangedRow{521, 4}));
    EXPECT_THAT(changed, Contains(ChangedRow{721, 9}));
}

TEST(Links, EachPlaceOfASharedOptionWritesTheOthers)
{
    CSbdData data;
    const auto write = [&data](int block, int row, std::string_view text) {
        const auto panel = MakePanelModel(data, block);
        Set(*panel, row, 2, text);
        panel->Commit();
    };
    write(521, 3, "横桁腹板");
    EXPECT_EQ(Option(data, 301, 30), "横桁腹板");
    write(521, 34, "NO");
    EXPECT_EQ(Option(data, 302, 35), "NO");
    write(303, 31, "NO");
    EXPECT_EQ(Option(data, 521, 35), "NO");
    write(721, 3, "合成桁");
    EXPECT_EQ(Option(data, 301, 29), "合成桁");
    write(401, 12, "なし");
    EXPECT_EQ(Option(data, 701, 10), "なし");
    EXPECT_EQ(Option(data, 721, 5), "なし");
    write(721, 9, "すみ肉");
    EXPECT_EQ(Option(data, 701, 14), "すみ肉");
    EXPECT_EQ(Option(data, 401, 16), "すみ肉");
}

TEST(Links, ASwitchOf301SetsTheAutomaticRowsAndMakesThemWhereMissing)
{
    CSbdData data;
    AddRow(data, 332, {"自動計算(YES_NO)", "YES", "keep"});
    const auto panel = MakePanelModel(data, 301);
    Set(*panel, 9, 2, "NO");
    const std::vector<ChangedRow> changed = panel->Commit();
    EXPECT_THAT(Rows(data, 331), ElementsAre(ElementsAre("自動計算(YES_NO)", "NO")));
    EXPECT_THAT(Rows(data, 332), ElementsAre(ElementsAre("自動計算(YES_NO)", "NO", "keep")));
    EXPECT_THAT(changed, Contains(ChangedRow{331, -1}));
    EXPECT_THAT(changed, Contains(ChangedRow{332, 0}));
}

TEST(Links, AnAutomaticRowSetsTheSwitchAndItsSiblings)
{
    CSbdData data;
    for (const int block : {341, 342, 343, 344})
        AddRow(data, block, {"自動計算(YES_NO)", "YES"});
    const auto panel = MakePanelModel(data, 343);
    Set(*panel, 1, 2, "NO");
    panel->Commit();
    EXPECT_EQ(Option(data, 301, 10), "NO");
    for (const int block : {341, 342, 343, 344})
        EXPECT_EQ(Rows(data, block)[0][1], "NO") << block;
}

TEST(Links, AnEmptyAutomaticValueIsNotPassedOn)
{
    CSbdData data;
    AddRow(data, 313, {"自動計算(YES_NO)", "NO_1"});
    SetOption(data, 301, 12, "NO_1");
    const auto panel = MakePanelModel(data, 313);
    Set(*panel, 1, 2, "");
    panel->Commit();
    EXPECT_EQ(Option(data, 301, 12), "NO_1");
}

TEST(Links, TheRibPanelsShowAndSetTheirSwitchOf301)
{
    CSbdData data;
    SetOption(data, 301, 19, "YES");
    const auto panel = MakePanelModel(data, 325);
    EXPECT_EQ(Text(*panel, 1, 2), "YES");
    Set(*panel, 1, 2, "NO");
    EXPECT_TRUE(panel->IsChanged());
    panel->Commit();
    EXPECT_EQ(Option(data, 301, 19), "NO");
    EXPECT_EQ(Rows(data, 326)[0][1], "NO");
    EXPECT_TRUE(data.lRibs.empty());
}

TEST(Links, TheFlangeTypesOf311Reach511And721)
{
    CSbdData data;
    const auto panel = MakePanelModel(data, 311);
    Set(*panel, 1, 2, "桁高に含まない");
    panel->Commit();
    EXPECT_THAT(Rows(data, 511),
                ElementsAre(ElementsAre("自動計算(YES_NO)", "YES"), ElementsAre("上FLG厚を主桁高に含むか", "NO"),
                            ElementsAre("下FLG厚を主桁高に含むか", "YES")));
    EXPECT_EQ(Option(data, 721, 1), "NO");
    EXPECT_EQ(Option(data, 721, 2), "YES");
    const auto box = MakePanelModel(data, 721);
    Set(*box, 2, 2, "NO");
    box->Commit();
    EXPECT_EQ(Rows(data, 511)[2][1], "NO");
}

} // namespace
} // namespace sbd
