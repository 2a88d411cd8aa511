#include "sbdfile/writer.h"
#include "tests/sbdfile/sections.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace sbd {

namespace {

using namespace literals;
using testing::ElementsAre;
using testing::IsEmpty;

} // namespace

TEST(WriterRecords, Block311HasThreeShapes)
{
    CSbdData data;
    HGirderRecord& record = data.hGirder.records.emplace_back();
    record.names = {"G1", "G2", "A1", "A2"};
    record.numbers = {1, 2, 3, 4, 5, 6, 7};
    const auto rows = [&](const char* upper, const char* lower) {
        data.hGirder.types[2] = Cp932(upper);
        data.hGirder.types[3] = Cp932(lower);
        return WrittenRows(WriteProject(data), "[SEC_H_GIRDER]").at(4);
    };
    const std::string names = "       G1        G2        A1        A2";
    EXPECT_EQ(rows("線形(入力)", "線形(入力)"), names + "     1.000000     2.000000     3.000000");
    EXPECT_EQ(rows("線形", "入力"), names + "     1.000000     2.000000     3.000000");
    EXPECT_EQ(rows("線形(入力)", "直線"), names + "     1.000000     2.000000     3.000000     4.000000     5.000000");
    const std::string seven = "  G1     G2     A1     A2         1.000000     2.000000     3.000000     4.000000     "
                              "5.000000     6.000000     7.000000";
    EXPECT_EQ(rows("直線", "線形(入力)"), seven);
    EXPECT_EQ(rows("２次", "２次"), seven);
}

TEST(WriterRecords, ANumberThatIsNotGivenIsThirteenBlanks)
{
    CSbdData data;
    data.hGirder.records.emplace_back().numbers[1] = -0.5;
    EXPECT_EQ(WrittenRows(WriteProject(data), "[SEC_H_GIRDER]").at(4),
              std::string(39, ' ') + std::string(13, ' ') + "    -0.500000" + std::string(13, ' '));
}

TEST(WriterRecords, HeadsOfTheThirdShapeAreAsWideAsTheLongestNames)
{
    CSbdData data;
    data.hGirder.records.emplace_back();
    data.hGirder.types[2] = "直線"_cp932;
    const auto comment = [&] { return SectionOf(WriteProject(data), "[SEC_H_GIRDER]").at(7); };
    const std::string numbers =
        "       桁高始       桁高終          DXB          DXE   X(-H)_LFLG      DZ_LFLG   X(-H)_UFLG";
    EXPECT_EQ(comment(), "! 主桁始 主桁終 横桁始 横桁終" + numbers) << "three bytes are less than the heads have";
    data.gridNames.girderNameWidth = 10;
    data.gridNames.swayNameWidth = 7;
    EXPECT_EQ(comment(), "! 主桁始   主桁終     横桁始  横桁終 " + numbers);
}

TEST(WriterRecords, Block324WritesAtMostAHundredRibs)
{
    CSbdData data;
    CrossRibRecord& record = data.crossRibs.emplace_back();
    record.n = 2000000000;
    record.right.word = "基準線"_cp932;
    for (int i = 0; i < 300; ++i) {
        record.left.Append(i + 0.5);
        record.furtherSizes.push_back({1, 2, kNotGiven, 4});
    }
    const std::string row = WrittenRows(WriteProject(data), "[SEC_CROSS_RIB]").at(0);
    EXPECT_TRUE(row.starts_with(std::string(39, ' ') + "   0.0   0.0   0.0   0.0   100   0.5000   1.5000"))
        << row.substr(0, 90);
    EXPECT_NE(row.find("  99.5000   基準線   1.0   2.0   4.0   1.0"), std::string::npos)
        << "a size not given is left out";
    EXPECT_EQ(row.find("100.5000"), std::string::npos);
    EXPECT_EQ(Cp932(row).size(), 39U + 24U + 6U + 100 * 9U + 9U + 99 * 3 * 6U);
}

TEST(WriterRecords, Block325CutsItsNumbersAndWritesAtMostAHundred)
{
    CSbdData data;
    LRibRecord& record = data.lRibs.emplace_back();
    record.names = {"G1", "G2", "A1", "UFLG", "0"};
    record.n1 = 6;
    record.n2 = 2;
    record.left.numbers = {300, 312.5, 0.000001, 0.0000001, 1000000, -0.25};
    record.right.word = "等間隔"_cp932;
    EXPECT_EQ(WrittenRows(WriteProject(data), "[SEC_NUMBER_L_RIB]").at(0),
              "  G1     G2     A1     UFLG        0     6     2 300 312.5 0.000001 0 1000000 -0.25    等間隔");
    record.n2 = 2000000000;
    record.right = {};
    const std::string row = WrittenRows(WriteProject(data), "[SEC_NUMBER_L_RIB]").at(0);
    EXPECT_NE(row.find("     6   100 300"), std::string::npos);
    EXPECT_EQ(std::ranges::count(row.substr(row.find("  0 0")), '0'), 100);
}

TEST(WriterRecords, TwoBlanksStandBetweenTheSidesOf325)
{
    CSbdData data;
    LRibRecord& record = data.lRibs.emplace_back();
    record.n1 = record.n2 = 1;
    record.left.numbers = record.right.numbers = {300};
    EXPECT_TRUE(WrittenRows(WriteProject(data), "[SEC_NUMBER_L_RIB]").at(0).ends_with("     1     1 300  300"));
}

TEST(WriterRecords, NamesStandFiveALine)
{
    const auto rows = [](std::size_t count) {
        CSbdData data;
        for (std::size_t i = 1; i <= count; ++i)
            data.Names(501)->lists[1].push_back("C" + std::to_string(i));
        std::vector<std::string> lines = WrittenRows(WriteProject(data), "[CBD_GRID]");
        lines.erase(lines.begin(), lines.begin() + 2); // the automatic line, the first list
        lines.pop_back();                              // the last list
        return lines;
    };
    const std::string line1 = "C1        C2        C3        C4        C5";
    const std::string blanks(26, ' ');
    EXPECT_THAT(rows(0), ElementsAre("  横桁(対傾構)  0"));
    EXPECT_THAT(rows(4), ElementsAre("  横桁(対傾構)  4         C1        C2        C3        C4"));
    EXPECT_THAT(rows(5), ElementsAre("  横桁(対傾構)  5         " + line1));
    EXPECT_THAT(rows(6), ElementsAre("  横桁(対傾構)  6         " + line1, blanks + "C6"));
    EXPECT_THAT(rows(10), ElementsAre("  横桁(対傾構)  10        " + line1,
                                      blanks + "C6        C7        C8        C9        C10"));
    EXPECT_EQ(rows(11).size(), 3U);
}

TEST(WriterRecords, NamesEndAtTheFirstEmptyOne)
{
    CSbdData data;
    data.Names(501)->lists[0] = {"G1", "G2", "", "G4"};
    EXPECT_EQ(WrittenRows(WriteProject(data), "[CBD_GRID]").at(1), "  主桁          2         G1        G2");
}

TEST(WriterRecords, Block702IsWrittenIfAnyOfItsListsHasAName)
{
    CSbdData data;
    data.Names(702)->autoValue = "NO";
    EXPECT_THAT(SectionOf(WriteProject(data), "[2BD_GRID]"), IsEmpty()) << "the value alone is lost";
    data.Names(702)->lists[2] = {"S1"};
    EXPECT_THAT(WrittenRows(WriteProject(data), "[2BD_GRID]"),
                ElementsAre("  自動取得(YES_NO)        NO", "  主桁          0", "  横桁(対傾構)  0",
                            "  支承線        1         S1", "  箱桁          0"));
    data.Names(702)->lists[3] = {"B1"};
    EXPECT_EQ(WrittenRows(WriteProject(data), "[2BD_GRID]").at(4), "  箱桁          1         B1");
}

TEST(WriterRecords, Block501IsWrittenWithoutANameAndItsLinesAreCut)
{
    CSbdData data;
    data.Names(501)->autoValue = "";
    EXPECT_THAT(WrittenRows(WriteProject(data), "[CBD_GRID]"),
                ElementsAre("  自動取得(YES_NO)", "  主桁          0", "  横桁(対傾構)  0", "  ライン        0"));
}

} // namespace sbd
