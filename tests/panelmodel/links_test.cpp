#include "tests/panelmodel/panel_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

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
    const std::vector<ChangedRow> changed = CommitPanel(*panel, data);
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
        CommitPanel(*panel, data);
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

/// One copy: whoever commits the source writes the target. Rows of option blocks, from 1.
struct OptionCopy {
    int source;
    int sourceRow;
    int target;
    int targetRow;
};

std::string PrintToString(const OptionCopy& copy)
{
    return std::to_string(copy.source) + " row " + std::to_string(copy.sourceRow) + " to " + std::to_string(copy.target)
           + " row " + std::to_string(copy.targetRow);
}

class OptionCopies : public ::testing::TestWithParam<OptionCopy> {};

TEST_P(OptionCopies, ACommitOfTheSourceWritesTheTarget)
{
    const OptionCopy& copy = GetParam();
    CSbdData data;
    const auto panel = MakePanelModel(data, copy.source);
    Set(*panel, copy.sourceRow, 2, "自由な値");
    EXPECT_THAT(CommitPanel(*panel, data), Contains(ChangedRow{copy.target, copy.targetRow - 1}));
    EXPECT_EQ(Option(data, copy.target, copy.targetRow), "自由な値");
}

TEST_P(OptionCopies, AnEmptyValueIsCopiedToo)
{
    const OptionCopy& copy = GetParam();
    CSbdData data;
    SetOption(data, copy.target, copy.targetRow, "x");
    SetOption(data, copy.source, copy.sourceRow, "y");
    const auto panel = MakePanelModel(data, copy.source);
    Set(*panel, copy.sourceRow, 2, "");
    CommitPanel(*panel, data);
    EXPECT_EQ(Option(data, copy.target, copy.targetRow), "");
}

constexpr OptionCopy kOptionCopies[] = {
    {301, 30, 521, 3},  {521, 3, 301, 30},  {301, 31, 521, 4},  {521, 4, 301, 31},  {301, 17, 521, 5},
    {301, 17, 721, 10}, {301, 17, 701, 17}, {521, 5, 301, 17},  {521, 5, 721, 10},  {521, 5, 701, 17},
    {701, 17, 521, 5},  {701, 17, 301, 17}, {701, 17, 721, 10}, {721, 10, 521, 5},  {721, 10, 301, 17},
    {721, 10, 701, 17}, {301, 29, 721, 3},  {721, 3, 301, 29},  {302, 35, 521, 34}, {521, 34, 302, 35},
    {303, 31, 521, 35}, {521, 35, 303, 31}, {401, 12, 701, 10}, {401, 13, 701, 11}, {401, 14, 701, 12},
    {401, 15, 701, 13}, {401, 16, 701, 14}, {401, 12, 721, 5},  {401, 13, 721, 6},  {401, 14, 721, 7},
    {401, 15, 721, 8},  {401, 16, 721, 9},  {701, 10, 401, 12}, {701, 11, 401, 13}, {701, 12, 401, 14},
    {701, 13, 401, 15}, {701, 14, 401, 16}, {701, 10, 721, 5},  {701, 11, 721, 6},  {701, 12, 721, 7},
    {701, 13, 721, 8},  {701, 14, 721, 9},  {721, 5, 701, 10},  {721, 6, 701, 11},  {721, 7, 701, 12},
    {721, 8, 701, 13},  {721, 9, 701, 14},  {721, 5, 401, 12},  {721, 6, 401, 13},  {721, 7, 401, 14},
    {721, 8, 401, 15},  {721, 9, 401, 16},
};
INSTANTIATE_TEST_SUITE_P(Links, OptionCopies, ::testing::ValuesIn(kOptionCopies));

/// A row of block 301 and a table block whose automatic row shows its value.
struct AutomaticRow {
    int optionRow;
    int block;
};

std::string PrintToString(const AutomaticRow& row)
{
    return "301 row " + std::to_string(row.optionRow) + " and " + std::to_string(row.block);
}

class AutomaticRows : public ::testing::TestWithParam<AutomaticRow> {};

TEST_P(AutomaticRows, TheSwitchOf301MakesTheRowWhereTheBlockIsEmpty)
{
    CSbdData data;
    ASSERT_EQ(data.RowCount(GetParam().block), 0U);
    const auto panel = MakePanelModel(data, 301);
    Set(*panel, GetParam().optionRow, 2, "値");
    EXPECT_THAT(CommitPanel(*panel, data), Contains(ChangedRow{GetParam().block, -1}));
    EXPECT_THAT(Rows(data, GetParam().block), ElementsAre(ElementsAre("自動計算(YES_NO)", "値")));
}

TEST_P(AutomaticRows, TheSwitchOf301SetsTheValueAndKeepsTheRest)
{
    CSbdData data;
    AddRow(data, GetParam().block, {"自動計算(YES_NO)", "YES", "a"});
    AddRow(data, GetParam().block, {"G1", "G2", "b"});
    const auto panel = MakePanelModel(data, 301);
    Set(*panel, GetParam().optionRow, 2, "値");
    EXPECT_THAT(CommitPanel(*panel, data), Contains(ChangedRow{GetParam().block, 0}));
    EXPECT_THAT(Rows(data, GetParam().block),
                ElementsAre(ElementsAre("自動計算(YES_NO)", "値", "a"), ElementsAre("G1", "G2", "b")));
}

TEST_P(AutomaticRows, TheValueOfTheRowReachesTheSwitchOf301)
{
    CSbdData data;
    const auto panel = MakePanelModel(data, GetParam().block);
    Set(*panel, 1, 2, "値");
    EXPECT_THAT(CommitPanel(*panel, data), Contains(ChangedRow{301, GetParam().optionRow - 1}));
    EXPECT_EQ(Option(data, 301, GetParam().optionRow), "値");
}

TEST_P(AutomaticRows, TheSiblingsOfTheBlockFollow)
{
    CSbdData data;
    const auto panel = MakePanelModel(data, GetParam().block);
    Set(*panel, 1, 2, "値");
    CommitPanel(*panel, data);
    for (const auto& siblings : {std::vector{331, 332}, std::vector{341, 342, 343, 344}}) {
        if (std::ranges::find(siblings, GetParam().block) == siblings.end())
            continue;
        for (const int block : siblings)
            EXPECT_EQ(Rows(data, block).at(0).at(1), "値") << block;
    }
}

constexpr AutomaticRow kAutomaticRows[] = {{9, 331},  {9, 332},  {10, 341}, {10, 342}, {10, 343}, {10, 344},
                                           {11, 315}, {12, 313}, {13, 327}, {14, 328}, {19, 326}};
INSTANTIATE_TEST_SUITE_P(Links, AutomaticRows, ::testing::ValuesIn(kAutomaticRows));

TEST(Links, TheRibBlocksShowTheirSwitchOf301AndSetIt)
{
    for (const auto& [block, row] : {std::pair{324, 18}, std::pair{325, 19}}) {
        CSbdData data;
        SetOption(data, 301, row, "寸法自動");
        const auto panel = MakePanelModel(data, block);
        EXPECT_EQ(Text(*panel, 1, 2), "寸法自動") << block;
        Set(*panel, 1, 2, "NO");
        EXPECT_THAT(CommitPanel(*panel, data), Contains(ChangedRow{301, row - 1})) << block;
        EXPECT_EQ(Option(data, 301, row), "NO") << block;
    }
}

TEST(Links, EachFlangeOf311And721IsThatOf511)
{
    for (const int row : {1, 2}) {
        for (const auto& [type, word] : {std::pair{"桁高に含まない", "NO"}, std::pair{"桁高に含む", "YES"}}) {
            CSbdData data;
            SetOption(data, 721, row, "x");
            const auto heights = MakePanelModel(data, 311);
            Set(*heights, row, 2, "");
            Set(*heights, row, 2, type);
            CommitPanel(*heights, data);
            EXPECT_EQ(Rows(data, 511).at(static_cast<std::size_t>(row)).at(1), word);
            EXPECT_EQ(Option(data, 721, row), word);

            const auto diaphragms = MakePanelModel(data, 721);
            Set(*diaphragms, row, 2, "自由");
            CommitPanel(*diaphragms, data);
            EXPECT_EQ(Rows(data, 511).at(static_cast<std::size_t>(row)).at(1), "自由");
        }
    }
}

TEST(Links, WhoeverCommitsLastIsRight)
{
    CSbdData data;
    const auto control = MakePanelModel(data, 301);
    const auto beams = MakePanelModel(data, 521);
    Set(*control, 17, 2, "一般");
    CommitPanel(*control, data);
    Set(*beams, 5, 2, "東北");
    CommitPanel(*beams, data);
    EXPECT_EQ(Option(data, 301, 17), "東北");
    EXPECT_EQ(Option(data, 701, 17), "東北");
}

TEST(Links, ASwitchOf301SetsTheAutomaticRowsAndMakesThemWhereMissing)
{
    CSbdData data;
    AddRow(data, 332, {"自動計算(YES_NO)", "YES", "keep"});
    const auto panel = MakePanelModel(data, 301);
    Set(*panel, 9, 2, "NO");
    const std::vector<ChangedRow> changed = CommitPanel(*panel, data);
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
    CommitPanel(*panel, data);
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
    CommitPanel(*panel, data);
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
    CommitPanel(*panel, data);
    EXPECT_EQ(Option(data, 301, 19), "NO");
    EXPECT_EQ(Rows(data, 326)[0][1], "NO");
    EXPECT_TRUE(data.lRibs.empty());
}

TEST(Links, TheFlangeTypesOf311Reach511And721)
{
    CSbdData data;
    const auto panel = MakePanelModel(data, 311);
    Set(*panel, 1, 2, "桁高に含まない");
    CommitPanel(*panel, data);
    EXPECT_THAT(Rows(data, 511),
                ElementsAre(ElementsAre("自動計算(YES_NO)", "YES"), ElementsAre("上FLG厚を主桁高に含むか", "NO"),
                            ElementsAre("下FLG厚を主桁高に含むか", "YES")));
    EXPECT_EQ(Option(data, 721, 1), "NO");
    EXPECT_EQ(Option(data, 721, 2), "YES");
    const auto box = MakePanelModel(data, 721);
    Set(*box, 2, 2, "NO");
    CommitPanel(*box, data);
    EXPECT_EQ(Rows(data, 511)[2][1], "NO");
}

} // namespace
} // namespace sbd
