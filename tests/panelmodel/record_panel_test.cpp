#include "tests/panelmodel/panel_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace sbd {
namespace {

using namespace test;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

HGirderRecord Height(std::initializer_list<std::string> names, std::initializer_list<double> numbers)
{
    HGirderRecord record;
    std::ranges::copy(names, record.names.begin());
    std::ranges::copy(numbers, record.numbers.begin());
    return record;
}

TEST(HeightPanel, ShowsTypesAndRecordsAndWritesThemBack)
{
    CSbdData data;
    data.hGirder.records = {Height({"G1", "G2", "A1", "A2"}, {2.2, 1.5, kNotGiven})};
    const auto panel = MakePanelModel(data, 311);
    EXPECT_EQ(panel->BlockRows(), 5);
    EXPECT_EQ(panel->SpareRows(), 100);
    EXPECT_EQ(Text(*panel, 1, 1), "上フランジ厚のタイプ");
    EXPECT_EQ(Text(*panel, 3, 2), "線形(入力)");
    EXPECT_EQ(Text(*panel, 5, 5), "2.2");
    EXPECT_EQ(Text(*panel, 5, 7), "");
    Set(*panel, 5, 7, "0.75");
    Set(*panel, 6, 1, "G2");
    CommitPanel(*panel, data);
    ASSERT_EQ(data.hGirder.records.size(), 2U);
    EXPECT_EQ(data.hGirder.records[0].numbers[2], 0.75);
    EXPECT_EQ(data.hGirder.records[1].names[0], "G2");
    EXPECT_FALSE(IsGiven(data.hGirder.records[1].numbers[0]));
}

TEST(HeightPanel, TheTypesDecideWhichNumbersThereAre)
{
    CSbdData data;
    data.hGirder.records = {Height({"G1", "G2", "A1", "A2"}, {1, 2, 3, 4, 5, 6, 7})};
    const auto panel = MakePanelModel(data, 311);
    EXPECT_TRUE(panel->IsLocked(5, 8)) << "線形(入力) with 線形(入力): three numbers";
    EXPECT_EQ(Text(*panel, 5, 8), "");
    EXPECT_EQ(Set(*panel, 4, 2, "２次"), CellEffect::Panel);
    EXPECT_FALSE(panel->IsLocked(5, 9));
    EXPECT_TRUE(panel->IsLocked(5, 10));
    Set(*panel, 3, 2, "直線");
    EXPECT_EQ(Text(*panel, 5, 11), "7") << "trying another type cost what had been typed";
    CommitPanel(*panel, data);
    EXPECT_EQ(data.hGirder.records[0].numbers[6], 7);
    Set(*panel, 3, 2, "線形(入力)");
    Set(*panel, 4, 2, "線形(入力)");
    CommitPanel(*panel, data);
    EXPECT_EQ(data.hGirder.records[0].numbers[2], 3);
    EXPECT_FALSE(IsGiven(data.hGirder.records[0].numbers[3]));
}

TEST(HeightPanel, NumbersThatAreNotTouchedKeepAllTheirDigits)
{
    CSbdData data;
    data.hGirder.records = {Height({"G1", "G2", "A1", "A2"}, {2.123456789})};
    const auto panel = MakePanelModel(data, 311);
    EXPECT_EQ(Text(*panel, 5, 5), "2.123457");
    Set(*panel, 5, 6, "1");
    CommitPanel(*panel, data);
    EXPECT_EQ(data.hGirder.records[0].numbers[0], 2.123456789);
    Set(*panel, 5, 6, "");
    EXPECT_FALSE(panel->IsChanged());
}

TEST(HeightPanel, ARowGoesWhenAllItsCellsAreEmpty)
{
    CSbdData data;
    data.hGirder.records = {Height({"G1", "", "", ""}, {2}), Height({"G2", "", "", ""}, {3})};
    const auto panel = MakePanelModel(data, 311);
    Set(*panel, 5, 1, "");
    CommitPanel(*panel, data);
    EXPECT_EQ(data.hGirder.records.size(), 2U) << "a record without a name still has its number";
    Set(*panel, 5, 5, "");
    EXPECT_THAT(CommitPanel(*panel, data), Contains(ChangedRow{311, -1}));
    ASSERT_EQ(data.hGirder.records.size(), 1U);
    EXPECT_EQ(data.hGirder.records[0].names[0], "G2");
}

TEST(HeightPanel, SingleSectionsGetTheirFixedNamesUnasked)
{
    CSbdData data;
    SetOption(data, 301, 3, "断面1のみ");
    const auto panel = MakePanelModel(data, 311);
    EXPECT_EQ(Text(*panel, 5, 1), "G");
    EXPECT_EQ(Text(*panel, 5, 4), "右");
    EXPECT_EQ(FromCp932(panel->Head(5)), "\n桁高(m)");
    CommitPanel(*panel, data);
    EXPECT_FALSE(panel->IsChanged());
    ASSERT_EQ(data.hGirder.records.size(), 1U);
    EXPECT_EQ(data.hGirder.records[0].names[1], "G");
}

TEST(HeightPanel, WhatIsNoNumberIsRefusedAndTheNumberStays)
{
    CSbdData data;
    const auto panel = MakePanelModel(data, 311);
    Set(*panel, 5, 5, "2.5");
    for (const char* text :
         {"abc", "1,2", "1 2", "1e50", "-1e40", "1e", "2.5m", "--1", ".", "inf", "nan", "０ｘ１", "一"}) {
        EXPECT_TRUE(panel->WhyNot(5, 5, Cp932(text))) << text;
        Set(*panel, 5, 5, text);
        EXPECT_EQ(Text(*panel, 5, 5), "2.5") << text;
    }
    EXPECT_FALSE(panel->WhyNot(5, 1, "abc")) << "a name is any text";
    EXPECT_FALSE(panel->WhyNot(5, 5, "")) << "a number may be taken away";
    EXPECT_FALSE(panel->WhyNot(5, 5, Cp932("　 "))) << "blanks are nothing";
}

TEST(HeightPanel, FullWidthDigitsAndSignsAreNumbers)
{
    CSbdData data;
    const auto panel = MakePanelModel(data, 311);
    for (const auto& [typed, shown] : std::vector<std::pair<const char*, const char*>>{{"２．５", "2.5"},
                                                                                       {"－１", "-1"},
                                                                                       {"＋３．２５", "3.25"},
                                                                                       {"１ｅ３", "1000"},
                                                                                       {"　4.5 ", "4.5"},
                                                                                       {"１2.５", "12.5"},
                                                                                       {"0", "0"}}) {
        Set(*panel, 5, 5, typed);
        EXPECT_EQ(Text(*panel, 5, 5), shown) << typed;
    }
    Set(*panel, 5, 1, "Ｇ１");
    EXPECT_EQ(Text(*panel, 5, 1), "Ｇ１") << "a name stays as it was typed";
}

TEST(CrossRibPanel, TheCellsOfNumbersFoldAndRefuse)
{
    CSbdData data;
    const auto panel = MakePanelModel(data, 324);
    Set(*panel, 2, 6, "２５０");
    Set(*panel, 2, 10, "２");
    Set(*panel, 2, 11, "１．２，　1.3");
    Set(*panel, 2, 12, "等間隔");
    EXPECT_EQ(Text(*panel, 2, 6), "250");
    EXPECT_EQ(Text(*panel, 2, 10), "2");
    EXPECT_EQ(Text(*panel, 2, 11), "1.2, 1.3");
    for (const auto& [column, text] : std::vector<std::pair<int, const char*>>{{6, "x"},
                                                                               {10, "2.5"},
                                                                               {10, "-1"},
                                                                               {10, "1e2"},
                                                                               {11, "1.2 x"},
                                                                               {11, "基準線"},
                                                                               {12, "間隔"},
                                                                               {13, "9 a"}}) {
        EXPECT_TRUE(panel->WhyNot(2, column, Cp932(text))) << text;
        const std::string before = Text(*panel, 2, column);
        Set(*panel, 2, column, text);
        EXPECT_EQ(Text(*panel, 2, column), before) << text;
    }
    EXPECT_FALSE(panel->WhyNot(2, 12, Cp932("基準線"))) << "the right side has this word, the left has not";
}

TEST(CrossRibPanel, TheCountSaysHowManySpacingsAreShown)
{
    CSbdData data;
    CrossRibRecord record;
    record.names = {"G1", "G1", "S1", "S2", "LFLG"};
    record.n = 2;
    record.left.numbers = {1.5}; // a zero at its end is not held
    data.crossRibs = {record};
    const auto panel = MakePanelModel(data, 324);
    EXPECT_EQ(Text(*panel, 2, 11), "1.5, 0");
    EXPECT_EQ(Text(*panel, 2, 12), "0, 0");
    EXPECT_EQ(panel->SetCell(2, 10, "3"), CellEffect::Panel) << "the spacings beside the count are shown anew";
    EXPECT_EQ(Text(*panel, 2, 11), "1.5, 0, 0");
    Set(*panel, 2, 10, "1");
    EXPECT_EQ(Text(*panel, 2, 11), "1.5");
    Set(*panel, 2, 10, "2");
    CommitPanel(*panel, data);
    EXPECT_FALSE(panel->IsChanged());
}

TEST(CrossRibPanel, ACountThatNoRowCanHaveShowsNoMoreThanIsWritten)
{
    for (const auto& [n, commas] : std::vector<std::pair<int, int>>{{-5, 0}, {2147483647, 99}, {100, 99}}) {
        CSbdData data;
        CrossRibRecord record;
        record.names[0] = "G1";
        record.n = n;
        data.crossRibs = {record};
        const std::string shown = Text(*MakePanelModel(data, 324), 2, 11);
        EXPECT_EQ(std::ranges::count(shown, ','), commas) << n;
    }
}

TEST(LRibPanel, TheCountsSayHowManySpacingsAreShown)
{
    CSbdData data;
    LRibRecord record;
    record.names = {"G1", "S1", "LFLG", "", ""};
    record.n1 = 3;
    record.n2 = 1;
    record.left.numbers = {300, 0, 250.5};
    data.lRibs = {record};
    const auto panel = MakePanelModel(data, 325);
    EXPECT_EQ(Text(*panel, 2, 8), "300, 0, 250.5");
    EXPECT_EQ(Text(*panel, 2, 9), "0");
    EXPECT_EQ(panel->SetCell(2, 7, "2"), CellEffect::Panel);
    EXPECT_EQ(Text(*panel, 2, 9), "0, 0");
    EXPECT_TRUE(panel->WhyNot(2, 8, Cp932("三百")));
}

TEST(CrossRibPanel, ShowsARecordAndItsAutomaticRow)
{
    CSbdData data;
    SetOption(data, 301, 18, "配置自動");
    CrossRibRecord record;
    record.names = {"G1", "G2", "A1", "A2", "UFLG"};
    record.sizes = {250, 9, 200.5, 10};
    record.n = 2;
    record.left.word = Cp932("等間隔");
    record.right.numbers = {1.5, 2};
    record.furtherSizes = {{150, 10, 110, 12}};
    data.crossRibs = {record};
    const auto panel = MakePanelModel(data, 324);
    EXPECT_EQ(Text(*panel, 1, 1), "自動計算");
    EXPECT_EQ(Text(*panel, 1, 2), "配置自動");
    EXPECT_EQ(Text(*panel, 1, 4), "LINE18");
    EXPECT_TRUE(panel->IsLocked(1, 7));
    EXPECT_EQ(Text(*panel, 2, 8), "200.5");
    EXPECT_EQ(Text(*panel, 2, 10), "2");
    EXPECT_EQ(Text(*panel, 2, 11), "等間隔");
    EXPECT_EQ(Text(*panel, 2, 12), "1.5, 2");
    EXPECT_EQ(Text(*panel, 2, 13), "150, 10, 110, 12");
    EXPECT_EQ(Text(*panel, 3, 6), "");
    EXPECT_THAT(CommitPanel(*panel, data), IsEmpty());
    EXPECT_EQ(data.crossRibs[0], record);
}

TEST(CrossRibPanel, WhatIsTypedBecomesAWholeRecord)
{
    CSbdData data;
    const auto panel = MakePanelModel(data, 324);
    Set(*panel, 2, 1, "G1");
    Set(*panel, 2, 6, "250");
    Set(*panel, 2, 10, "3");
    Set(*panel, 2, 11, "1.2, 1.3");
    Set(*panel, 2, 12, "基準線");
    Set(*panel, 2, 13, "100,9");
    CommitPanel(*panel, data);
    ASSERT_EQ(data.crossRibs.size(), 1U);
    const CrossRibRecord& record = data.crossRibs[0];
    EXPECT_THAT(record.sizes, ElementsAre(250, 0, 0, 0));
    EXPECT_EQ(record.n, 3);
    EXPECT_THAT(record.left.numbers, ElementsAre(1.2, 1.3)) << "zeros at the end are not held";
    EXPECT_EQ(Text(*MakePanelModel(data, 324), 2, 11), "1.2, 1.3, 0") << "as many as the count says";
    EXPECT_EQ(FromCp932(record.right.word), "基準線");
    ASSERT_EQ(record.furtherSizes.size(), 2U);
    EXPECT_EQ(record.furtherSizes[0][1], 9);
    EXPECT_FALSE(IsGiven(record.furtherSizes[0][2]));
}

TEST(LRibPanel, WritesBothSides)
{
    CSbdData data;
    const auto panel = MakePanelModel(data, 325);
    for (int column = 1; column <= 5; ++column)
        Set(*panel, 2, column, "N");
    Set(*panel, 2, 6, "2");
    Set(*panel, 2, 7, "1");
    Set(*panel, 2, 8, "312.5 300");
    Set(*panel, 2, 9, "等間隔");
    CommitPanel(*panel, data);
    ASSERT_EQ(data.lRibs.size(), 1U);
    EXPECT_THAT(data.lRibs[0].left.numbers, ElementsAre(312.5, 300));
    EXPECT_EQ(FromCp932(data.lRibs[0].right.word), "等間隔");
    EXPECT_EQ(Text(*panel, 2, 8), "312.5, 300");
}

TEST(NamePanel, TheListsCloseUpWhenWritten)
{
    CSbdData data;
    data.Names(501)->lists = {{"G1", "G2"}, {"A1", "C1", "A2"}, {}};
    const auto panel = MakePanelModel(data, 501);
    EXPECT_EQ(panel->BlockRows(), 4);
    EXPECT_EQ(Text(*panel, 1, 1), "自動取得");
    EXPECT_TRUE(panel->IsLocked(1, 3));
    EXPECT_EQ(Text(*panel, 4, 2), "A2");
    Set(*panel, 3, 2, "");
    Set(*panel, 6, 3, "CL");
    EXPECT_THAT(CommitPanel(*panel, data), ElementsAre(ChangedRow{501, -1}));
    EXPECT_THAT(data.Names(501)->lists[1], ElementsAre("A1", "A2"));
    EXPECT_THAT(data.Names(501)->lists[2], ElementsAre("CL"));
    EXPECT_TRUE(panel->IsChanged());
}

TEST(NamePanel, TheSwitchOfRow1IsAValueOfTheBlock)
{
    CSbdData data;
    const auto panel = MakePanelModel(data, 702);
    EXPECT_EQ(panel->ColumnCount(), 5);
    EXPECT_THAT(Words(*panel, 1, 2), ElementsAre("YES", "NO"));
    Set(*panel, 1, 2, "NO");
    CommitPanel(*panel, data);
    EXPECT_EQ(data.Names(702)->autoValue, "NO");
}

TEST(NamePanel, TheGridGrowsBeforeItsSpareRowsRunOut)
{
    CSbdData data;
    const auto panel = MakePanelModel(data, 501);
    const int last = panel->GridRows();
    EXPECT_EQ(Set(*panel, last - 5, 1, "G1"), CellEffect::Panel);
    EXPECT_EQ(panel->GridRows(), last + 10);
}

} // namespace
} // namespace sbd
