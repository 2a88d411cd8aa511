#include "tests/sbdfile/sections.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace sbd {

namespace {

using namespace literals;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

std::vector<std::string> Utf8(const std::vector<std::string>& texts)
{
    std::vector<std::string> result;
    for (const std::string& text : texts)
        result.push_back(FromCp932(text));
    return result;
}

const std::vector<std::string> List(const CSbdData& data, int block, std::size_t list)
{
    return Utf8(data.Names(block)->lists.at(list));
}

} // namespace

// --- 311 ---------------------------------------------------------------------------------------

TEST(ReadHGirder, ARecordIsFourNamesAndUpToSevenNumbers)
{
    const CSbdData data = ReadOnly("[SEC_H_GIRDER]\n G1 G2 A1 A2 1.8 -0.5 .25 4 5 6 7 8 9\n G1\n");
    ASSERT_THAT(data.hGirder.records, SizeIs(2));
    EXPECT_THAT(data.hGirder.records[0].names, ElementsAre("G1", "G2", "A1", "A2"));
    EXPECT_THAT(data.hGirder.records[0].numbers, ElementsAre(1.8, -0.5, 0.25, 4, 5, 6, 7));
    EXPECT_THAT(data.hGirder.records[1].names, ElementsAre("G1", "", "", ""));
    EXPECT_THAT(data.hGirder.records[1].numbers, Each(kNotGiven));
}

TEST(ReadHGirder, AWordThatIsNoNumberIsNotGivenAndTheNextKeepsItsPlace)
{
    const CSbdData data = ReadOnly("[SEC_H_GIRDER]\n G1 G2 A1 A2 自動 2 inf 1e400 1e39\n");
    const std::array<double, 7>& numbers = data.hGirder.records.at(0).numbers;
    EXPECT_FALSE(IsGiven(numbers[0]));
    EXPECT_EQ(numbers[1], 2.0);
    EXPECT_FALSE(IsGiven(numbers[2]));
    EXPECT_FALSE(IsGiven(numbers[3])) << "out of range";
    EXPECT_EQ(numbers[4], 1e39);
}

TEST(ReadHGirder, ATypeIsTheSecondWordOfALineThatHoldsItsLettersAnywhere)
{
    const CSbdData data =
        ReadOnly("[SEC_H_GIRDER]\n T_U_FLG_TYPE 桁高に含まない x\n xT_Lx a\n Z_U_FLG_TYPE，直線\n x y Z_L\n");
    EXPECT_THAT(data.hGirder.types, ElementsAre("桁高に含まない"_cp932, "a", "直線"_cp932, "y"));
    EXPECT_THAT(data.hGirder.records, IsEmpty());
}

TEST(ReadHGirder, ATypeLineWithoutASecondWordLeavesTheType)
{
    const CSbdData data = ReadOnly("[SEC_H_GIRDER]\n T_U_FLG_TYPE\n Z_L\n");
    EXPECT_EQ(data.hGirder.types, CSbdData().hGirder.types);
}

TEST(ReadHGirder, CommasAreBlanksAndASecondSectionAppends)
{
    const CSbdData data = ReadOnly("[SEC_H_GIRDER]\n G1,G2,A1,A2,1.8\n[END]\n[SEC_H_GIRDER]\n G3 G3 A1 A2 2\n[END]\n");
    ASSERT_THAT(data.hGirder.records, SizeIs(2));
    EXPECT_EQ(data.hGirder.records[0].numbers[0], 1.8);
    EXPECT_EQ(data.hGirder.records[1].names[0], "G3");
}

// --- 324 ---------------------------------------------------------------------------------------

TEST(ReadCrossRibs, WordsAndNumbersStandForSpacings)
{
    const CSbdData data =
        ReadOnly("[SEC_CROSS_RIB]\n G1 G2 A1 A2 UFLG 250 9 200 10 3 等間隔 1 2 3 4 5 6 7 8 9 10 11 12\n"
                 " G1 G2 A1 A2 LFLG 250 9 200 10 2 1.5 2.5 基準線 1 2 3 4\n");
    ASSERT_THAT(data.crossRibs, SizeIs(2));
    const CrossRibRecord& first = data.crossRibs[0];
    EXPECT_THAT(first.names, ElementsAre("G1", "G2", "A1", "A2", "UFLG"));
    EXPECT_THAT(first.sizes, ElementsAre(250, 9, 200, 10));
    EXPECT_EQ(first.n, 3);
    EXPECT_EQ(first.left.word, "等間隔"_cp932);
    EXPECT_EQ(first.right.word, "");
    EXPECT_THAT(first.right.numbers, ElementsAre(1, 2, 3));
    EXPECT_THAT(first.furtherSizes, ElementsAre(ElementsAre(4, 5, 6, 7), ElementsAre(8, 9, 10, 11))) << "n - 1 of them";
    const CrossRibRecord& second = data.crossRibs[1];
    EXPECT_THAT(second.left.numbers, ElementsAre(1.5, 2.5));
    EXPECT_EQ(second.right.word, "基準線"_cp932);
    EXPECT_THAT(second.furtherSizes, ElementsAre(ElementsAre(1, 2, 3, 4)));
}

TEST(ReadCrossRibs, TheBaseLineIsAWordOfTheRightSideAlone)
{
    const CSbdData data = ReadOnly("[SEC_CROSS_RIB]\n G1 G2 A1 A2 UFLG 250 9 200 10 1 基準線 等間隔\n");
    EXPECT_EQ(data.crossRibs.at(0).left.word, "");
    EXPECT_EQ(data.crossRibs[0].right.word, "等間隔"_cp932);
}

TEST(ReadCrossRibs, ALineThatEndsEarlyHasZerosAndSizesThatAreNotGiven)
{
    const CSbdData data = ReadOnly("[SEC_CROSS_RIB]\n G1 G2 A1 A2 UFLG 250\n G1 G2 A1 A2 UFLG 1 2 3 4 3 1.5\n"
                                   " G1 G2 A1 A2 UFLG 1 2 3 4 2 等間隔 等間隔 5 6\n");
    EXPECT_THAT(data.crossRibs.at(0).sizes, ElementsAre(250, 0, 0, 0));
    EXPECT_EQ(data.crossRibs[0].n, 0);
    EXPECT_EQ(data.crossRibs[1].left.At(0), 1.5);
    EXPECT_EQ(data.crossRibs[1].left.At(2), 0.0);
    EXPECT_EQ(data.crossRibs[1].right.At(0), 0.0);
    EXPECT_FALSE(IsGiven(data.crossRibs[1].FurtherSizesAt(0)[0]));
    EXPECT_THAT(data.crossRibs[2].furtherSizes, ElementsAre(ElementsAre(5, 6, kNotGiven, kNotGiven)));
}

TEST(ReadCrossRibs, ACountIsNoPromise)
{
    const CSbdData data = ReadOnly("[SEC_CROSS_RIB]\n G1 G2 A1 A2 UFLG 1 2 3 4 2000000000 1 2 3\n"
                                   " G1 G2 A1 A2 UFLG 1 2 3 4 -5 1 2 3\n G1 G2 A1 A2 UFLG 1 2 3 4 99999999999999 1\n");
    EXPECT_EQ(data.crossRibs.at(0).n, 2000000000);
    EXPECT_THAT(data.crossRibs[0].left.numbers, ElementsAre(1, 2, 3));
    EXPECT_THAT(data.crossRibs[0].furtherSizes, IsEmpty());
    EXPECT_EQ(data.crossRibs[1].n, -5);
    EXPECT_THAT(data.crossRibs[1].left.numbers, IsEmpty());
    EXPECT_EQ(data.crossRibs[2].n, std::numeric_limits<int>::max());
}

// --- 325 ---------------------------------------------------------------------------------------

TEST(ReadLRibs, TwoCountsAndTwoSides)
{
    const CSbdData data =
        ReadOnly("[SEC_NUMBER_L_RIB]\n G1,G2,A1,UFLG,0,2,1,312.5,300,250\n G1 G2 A1 LFLG 1 3 2 等間隔 等間隔\n"
                 " G1 G2 A1 LFLG 2 2000000000 1 5 6\n");
    ASSERT_THAT(data.lRibs, SizeIs(3));
    EXPECT_THAT(data.lRibs[0].names, ElementsAre("G1", "G2", "A1", "UFLG", "0"));
    EXPECT_EQ(data.lRibs[0].n1, 2);
    EXPECT_EQ(data.lRibs[0].n2, 1);
    EXPECT_THAT(data.lRibs[0].left.numbers, ElementsAre(312.5, 300));
    EXPECT_THAT(data.lRibs[0].right.numbers, ElementsAre(250));
    EXPECT_EQ(data.lRibs[1].left.word, "等間隔"_cp932);
    EXPECT_EQ(data.lRibs[1].right.word, "等間隔"_cp932);
    EXPECT_THAT(data.lRibs[2].left.numbers, ElementsAre(5, 6)) << "the count takes all that is there";
    EXPECT_THAT(data.lRibs[2].right.numbers, IsEmpty());
}

// --- 412 ---------------------------------------------------------------------------------------

TEST(ReadUnusedLines, TheControlRowIsItsSecondWordAndALineNameTheWholeLine)
{
    EXPECT_THAT(TableText(ReadOnly("[DRAW_LINE_NOUSED]\n 自動計算(YES_NO) NO more\n CL\n L 1,2　3\n"), 412),
                ElementsAre("NO", "CL", "L 1 2  3"));
}

TEST(ReadUnusedLines, WithoutAControlRowItIsPutIn)
{
    EXPECT_THAT(TableText(ReadOnly("[DRAW_LINE_NOUSED]\n CL\n 自動計算 NO\n"), 412),
                ElementsAre("YES", "CL", "自動計算 NO"));
    EXPECT_THAT(TableText(ReadOnly("[DRAW_LINE_NOUSED]\n 自動\n CL\n"), 412), ElementsAre("", "CL"));
}

TEST(ReadUnusedLines, EachSectionHasItsOwnControlRow)
{
    EXPECT_THAT(TableText(ReadOnly("[DRAW_LINE_NOUSED]\n 自動 NO\n CL\n[END]\n[DRAW_LINE_NOUSED]\n L1\n[END]\n"), 412),
                ElementsAre("NO", "CL", "YES", "L1"));
}

// --- 501, 702 ----------------------------------------------------------------------------------

TEST(ReadNames, HeadingCountAndNames)
{
    const CSbdData data =
        ReadOnly("[CBD_GRID]\n 自動取得(YES_NO) NO\n 主桁 2 G1 G2\n 横桁(対傾構) 3 A1,C1,A2\n ライン 1 CL\n[END]\n"
                 "[2BD_GRID]\n 自動 YES_2\n 主桁 1 G1\n 横桁(対傾構) 1 A1\n 支承線 1 S1\n 箱桁 1 B1\n[END]\n");
    EXPECT_EQ(data.Names(501)->autoValue, "NO");
    EXPECT_THAT(List(data, 501, 0), ElementsAre("G1", "G2"));
    EXPECT_THAT(List(data, 501, 1), ElementsAre("A1", "C1", "A2"));
    EXPECT_THAT(List(data, 501, 2), ElementsAre("CL"));
    EXPECT_EQ(data.Names(702)->autoValue, "YES_2");
    EXPECT_THAT(List(data, 702, 2), ElementsAre("S1"));
    EXPECT_THAT(List(data, 702, 3), ElementsAre("B1"));
}

TEST(ReadNames, AListHoldsTheNamesFoundAtMostItsCount)
{
    const CSbdData data = ReadOnly("[CBD_GRID]\n 主桁 2 G1 G2 G3\n 横桁(対傾構) 5 A1 A2\n[END]\n");
    EXPECT_THAT(List(data, 501, 0), ElementsAre("G1", "G2"));
    EXPECT_THAT(List(data, 501, 1), ElementsAre("A1", "A2"));
}

TEST(ReadNames, AListRunsOverFurtherLinesUntilItIsFull)
{
    const CSbdData data = ReadOnly("[CBD_GRID]\n 主桁 4\n! comment\n\n G1 G2\n G3 G4 G5\n G6\n ライン 1 L1\n");
    EXPECT_THAT(List(data, 501, 0), ElementsAre("G1", "G2", "G3", "G4"));
    EXPECT_THAT(List(data, 501, 2), ElementsAre("L1"));
}

TEST(ReadNames, AHeadingWithANumberStartsItsListInsideAnUnfilledOne)
{
    const CSbdData data =
        ReadOnly("[CBD_GRID]\n 主桁 9 G1\n ライン 1 L1\n 横桁(対傾構) 9 A1\n 自動取得(YES_NO) NO\n A2\n");
    EXPECT_THAT(List(data, 501, 0), ElementsAre("G1"));
    EXPECT_THAT(List(data, 501, 1), ElementsAre("A1"));
    EXPECT_THAT(List(data, 501, 2), ElementsAre("L1"));
    EXPECT_EQ(data.Names(501)->autoValue, "NO");
}

TEST(ReadNames, AHeadingWithANegativeNumberStartsItsListInsideAnUnfilledOneAndEmptiesIt)
{
    const CSbdData data = ReadOnly("[CBD_GRID]\n ライン 1 L1\n 主桁 9 G1\n ライン -5 L2\n G2\n[END]\n");
    EXPECT_THAT(List(data, 501, 0), ElementsAre("G1"));
    EXPECT_THAT(List(data, 501, 2), IsEmpty());
}

TEST(ReadNames, OutsideAListTheHeadingMayBeTheBeginningOfALongerWord)
{
    const CSbdData data = ReadOnly("[CBD_GRID]\n 主桁名 2 G1 G2\n 横桁(対傾構)名 2 S1 S2\n ライン(縦) 1 L1\n[END]\n"
                                   "[2BD_GRID]\n 支承線名 1 S1\n 箱桁(左) 1 B1\n[END]\n");
    EXPECT_THAT(List(data, 501, 0), ElementsAre("G1", "G2"));
    EXPECT_THAT(List(data, 501, 1), ElementsAre("S1", "S2"));
    EXPECT_THAT(List(data, 501, 2), ElementsAre("L1"));
    EXPECT_THAT(List(data, 702, 2), ElementsAre("S1"));
    EXPECT_THAT(List(data, 702, 3), ElementsAre("B1"));
}

TEST(ReadNames, InsideAnUnfilledListALongerWordThanTheHeadingIsAName)
{
    const CSbdData data = ReadOnly("[CBD_GRID]\n 主桁 4 G1\n ライン名 2\n L1\n[END]\n");
    EXPECT_THAT(List(data, 501, 0), ElementsAre("G1", "ライン名", "2", "L1"));
}

TEST(ReadNames, AHeadingWordWithoutANumberIsANameInsideAList)
{
    const CSbdData data = ReadOnly("[CBD_GRID]\n 主桁 6 G1\n ライン\n 主桁 x1\n 横桁(対傾構)A 1\n[END]\n");
    EXPECT_THAT(List(data, 501, 0), ElementsAre("G1", "ライン", "主桁", "x1", "横桁(対傾構)A", "1"));
}

TEST(ReadNames, WordsOfTheOtherBlockAreNoHeadings)
{
    const CSbdData data =
        ReadOnly("[CBD_GRID]\n 主桁 3 G1\n 支承線 1\n[END]\n[2BD_GRID]\n 主桁 3 G1\n ライン 1\n[END]\n");
    EXPECT_THAT(List(data, 501, 0), ElementsAre("G1", "支承線", "1"));
    EXPECT_THAT(List(data, 702, 0), ElementsAre("G1", "ライン", "1"));
}

TEST(ReadNames, InsideAListOnlyTheWholeWordOfTheAutomaticLineCounts)
{
    const CSbdData data = ReadOnly("[CBD_GRID]\n 主桁 2 G1\n 自動車 NO\n 自動 NO\n[END]\n");
    EXPECT_THAT(List(data, 501, 0), ElementsAre("G1", "自動車"));
    EXPECT_EQ(data.Names(501)->autoValue, "NO") << "behind a full list the beginning counts";
}

TEST(ReadNames, TheAutomaticLineWithoutAValueLeavesIt)
{
    EXPECT_EQ(ReadOnly("[CBD_GRID]\n 自動取得(YES_NO) NO\n 自動取得(YES_NO)\n").Names(501)->autoValue, "NO");
}

TEST(ReadNames, ASecondLineOrSectionReplacesTheList)
{
    const CSbdData data =
        ReadOnly("[CBD_GRID]\n 主桁 2 G1 G2\n 主桁 1 G3\n ライン 2 L1 L2\n[END]\n[CBD_GRID]\n ライン 0\n[END]\n");
    EXPECT_THAT(List(data, 501, 0), ElementsAre("G3"));
    EXPECT_THAT(List(data, 501, 2), IsEmpty());
}

TEST(ReadNames, ACountThatIsNoneOrTooLargeIsNoPromise)
{
    const CSbdData data = ReadOnly("[CBD_GRID]\n 主桁 x G1\n 横桁(対傾構) -3 A1\n ライン 2000000000 L1\n[END]\n");
    EXPECT_THAT(List(data, 501, 0), IsEmpty());
    EXPECT_THAT(List(data, 501, 1), IsEmpty());
    EXPECT_THAT(List(data, 501, 2), ElementsAre("L1"));
}

TEST(ReadNames, TheEndMarkEndsListAndSection)
{
    const CSbdData data = ReadOnly("[CBD_GRID]\n 主桁 3 G1\n[EXTRA]\n G2\n 主桁 1 G9\n");
    EXPECT_THAT(List(data, 501, 0), ElementsAre("G1"));
}

} // namespace sbd
