#include "sbdfile/grid_names.h"
#include "tests/sbdfile/sections.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace sbd {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

GridNames NamesOfBytes(std::string_view bytes)
{
    CSbdData data;
    ReadGridNamesFromBytes(bytes, data);
    return data.gridNames;
}

/// The names of a file whose section holds these lines.
GridNames Names(std::string_view lines)
{
    return NamesOfBytes("[GRID_GRID]\r\n" + FileOf(lines) + "[END]\r\n");
}

std::vector<std::string> Girders(std::string_view lines)
{
    std::vector<std::string> names;
    for (const std::string& name : Names(lines).girderNames)
        names.push_back(FromCp932(name));
    return names;
}

} // namespace

TEST(GridNames, ThreeListsWithMarksForTheBeams)
{
    const GridNames names = Names("GIRDER_N_NAME = 3 G1 G2 G3\nSWAY_N_NAME = 3 C1 -C2 -+C3\nLINE_N_NAME = 1 CL\n");
    EXPECT_THAT(names.girderNames, ElementsAre("G1", "G2", "G3"));
    EXPECT_THAT(names.swayNames, ElementsAre("C1", "C2", "C3"));
    EXPECT_THAT(names.swayMarks, ElementsAre(0, 1, 2));
    EXPECT_THAT(names.lineNames, ElementsAre("CL"));
}

TEST(GridNames, ANameOfOneCharacterIsANameLikeAnother)
{
    EXPECT_THAT(Girders("GIRDER_N_NAME = 1 A\n"), ElementsAre("A"));
    EXPECT_THAT(Girders("GIRDER_N_NAME = 3   A  桁,B\n"), ElementsAre("A", "桁", "B"));
    EXPECT_THAT(Girders("GIRDER_N_NAME = 2\n A\n,B,\n"), ElementsAre("A", "B"));
}

TEST(GridNames, TheSecondWordOfAKeywordLineIsNotLookedAt)
{
    for (const char* line : {"GIRDER_N_NAME : 2 G1 G2\n", "GIRDER_N_NAME x 2 G1 G2\n", "GIRDER_N_NAME, =, 2, G1, G2\n"})
        EXPECT_THAT(Girders(line), ElementsAre("G1", "G2")) << line;
}

TEST(GridNames, IfTheCountsTextStandsEarlierTheNamesBeginThere)
{
    const GridNames names = Names("LINE_N_NAME 2 2 A B\nGIRDER_N_NAME =1 1 G1\n");
    EXPECT_THAT(names.lineNames, ElementsAre("2", "A"));
    EXPECT_THAT(names.girderNames, ElementsAre("1"));
}

TEST(GridNames, BlanksCommasAndFullWidthBlanksDivideNames)
{
    EXPECT_THAT(Girders("GIRDER_N_NAME = 4　G1,G2，  ,,G3\n"), ElementsAre("G1", "G2，", "G3", ""));
    EXPECT_THAT(Girders("　GIRDER_N_NAME　=　2　G1　G2\n"), ElementsAre("G1", "G2"));
}

TEST(GridNames, ATabIsTrimmedButDividesNothing)
{
    EXPECT_THAT(Girders("GIRDER_N_NAME = 3 \tG1\t G\t2 G3\n"), ElementsAre("G1", "G\t2", "G3"));
    EXPECT_THAT(Girders("GIRDER_N_NAME\t= 2 G1 G2\n"), IsEmpty()) << "the first word is another one";
}

TEST(GridNames, NamesRunOverFurtherLinesUntilTheListIsFull)
{
    EXPECT_THAT(Girders("GIRDER_N_NAME = 5 G1\n\n  G2,G3\nG4　G5 G6\nG7\n"), ElementsAre("G1", "G2", "G3", "G4", "G5"));
    EXPECT_THAT(Girders("GIRDER_N_NAME = 2\nG1 G2\n"), ElementsAre("G1", "G2"));
}

TEST(GridNames, InsideAListNothingButTheEndWordIsSpecial)
{
    const GridNames names = Names("GIRDER_N_NAME = 4 G1\n! G2\n[EXTRA]\nSWAY_N_NAME = 1 C1\n");
    EXPECT_THAT(names.girderNames, ElementsAre("G1", "!", "G2", "[EXTRA]"));
    EXPECT_THAT(names.swayNames, ElementsAre("C1"));
}

TEST(GridNames, TheEndWordInsideAListEndsTheListAlone)
{
    const GridNames names = Names("GIRDER_N_NAME = 3 G1\n[END]\nSWAY_N_NAME = 1 C1\n");
    EXPECT_THAT(names.girderNames, ElementsAre("G1", "", ""));
    EXPECT_THAT(names.swayNames, ElementsAre("C1")) << "the section is still open";
}

TEST(GridNames, AnyWordOfTheEndMarkEndsTheSection)
{
    for (const char* end : {"[E", "[END]", "[EXTRA] x", "  [END"}) {
        const GridNames names = NamesOfBytes("[GRID_GRID]\n" + std::string(end) + "\nGIRDER_N_NAME = 1 G1\n");
        EXPECT_THAT(names.girderNames, IsEmpty()) << end;
    }
}

TEST(GridNames, OutsideTheSectionNothingIsRead)
{
    EXPECT_THAT(NamesOfBytes("GIRDER_N_NAME = 1 G1\n[GRID] \nGIRDER_N_NAME = 1 G1\n").girderNames, IsEmpty());
    EXPECT_THAT(NamesOfBytes("[GRID_GRID]x\nGIRDER_N_NAME = 1 G1\n").girderNames, IsEmpty()) << "that word exactly";
    EXPECT_THAT(NamesOfBytes("![GRID_GRID]\nGIRDER_N_NAME = 1 G1\n").girderNames, IsEmpty());
    EXPECT_THAT(NamesOfBytes("\t [GRID_GRID] 1\nGIRDER_N_NAME = 1 G1\n").girderNames, ElementsAre("G1"));
}

TEST(GridNames, CommentsAndOtherKeywordsArePassedOver)
{
    EXPECT_THAT(Girders("!GIRDER_N_NAME = 1 G9\n! GIRDER_N_NAME = 1 G9\nGIRDER_N_NAMES = 1 G9\nOTHER 1 2 "
                        "3\nGIRDER_N_NAME = 1 G1\n"),
                ElementsAre("G1"));
}

TEST(GridNames, ACountBelowOneOrNoneGivesNoNames)
{
    for (const char* count : {"0", "-3", "x", "G1"})
        EXPECT_THAT(Girders("GIRDER_N_NAME = " + std::string(count) + " G1 G2\n"), IsEmpty()) << count;
    EXPECT_THAT(Girders("GIRDER_N_NAME =\n"), IsEmpty());
    EXPECT_THAT(Girders("GIRDER_N_NAME\n"), IsEmpty());
    EXPECT_THAT(Girders("GIRDER_N_NAME = 2本 G1 G2\n"), ElementsAre("G1", "G2")) << "the number in front counts";
}

TEST(GridNames, SurplusNamesAreDroppedAndMissingOnesAreEmpty)
{
    EXPECT_THAT(Girders("GIRDER_N_NAME = 1 G1 G2\n"), ElementsAre("G1"));
    EXPECT_THAT(NamesOfBytes("[GRID_GRID]\nGIRDER_N_NAME = 3 G1").girderNames, ElementsAre("G1", "", ""))
        << "the end of the file ends list and section";
}

TEST(GridNames, AKeywordThatComesAgainFillsItsListFromTheStart)
{
    const GridNames names =
        Names("GIRDER_N_NAME = 3 G1 G2 G3\nGIRDER_N_NAME = 2 G4\n[END]\nSWAY_N_NAME = 2 -C1 C2\nSWAY_N_NAME = 3 C3\n");
    EXPECT_THAT(names.girderNames, ElementsAre("G4", "G2"));
    EXPECT_THAT(names.swayNames, ElementsAre("C3", "C2", ""));
    EXPECT_THAT(names.swayMarks, ElementsAre(0, 0, 0));
}

TEST(GridNames, ASecondSectionIsReadToo)
{
    EXPECT_THAT(NamesOfBytes("[GRID_GRID]\nGIRDER_N_NAME = 1 G1\n[END]\n[X]\n[GRID_GRID]\nLINE_N_NAME = 1 L\n[END]\n")
                    .lineNames,
                ElementsAre("L"));
}

TEST(GridNames, MarksAreStrippedByCharacter)
{
    const GridNames names = Names("SWAY_N_NAME = 8 -+-A --B +C - -+ -+- A-B A+\n");
    EXPECT_THAT(names.swayNames, ElementsAre("A", "B", "+C", "", "", "", "A-B", "A+"));
    EXPECT_THAT(names.swayMarks, ElementsAre(2, 1, 0, 1, 2, 2, 0, 0));
}

TEST(GridNames, ANameIsCutTo35BytesThroughACharacterIfNeedBe)
{
    const GridNames names = Names("GIRDER_N_NAME = 1 あいうえおかきくけこさしすせそたちつてと\nSWAY_N_NAME = 1 -+"
                                  + std::string(40, 'x') + "\n");
    EXPECT_EQ(names.girderNames.at(0).size(), 35U);
    EXPECT_EQ(FromCp932(names.girderNames[0]), "あいうえおかきくけこさしすせそたち\\x82");
    EXPECT_EQ(names.swayNames.at(0), std::string(35, 'x')) << "the mark goes first";
    EXPECT_EQ(names.girderNameWidth, 35);
    EXPECT_EQ(names.swayNameWidth, 35);
}

TEST(GridNames, WidthsAreThoseOfTheLongestNamesAndOnlyGrow)
{
    CSbdData data;
    ReadGridNamesFromBytes(
        FileOf("[GRID_GRID]\nGIRDER_N_NAME = 2 G1 主桁1\nSWAY_N_NAME = 1 -+C\nLINE_N_NAME = 1 abcdefgh\n"), data);
    EXPECT_EQ(data.gridNames.girderNameWidth, 5);
    EXPECT_EQ(data.gridNames.swayNameWidth, 3) << "three at least; lines are not measured";
    ReadGridNamesFromBytes("[GRID_GRID]\nGIRDER_N_NAME = 1 G1\nSWAY_N_NAME = 1 CROSS\n", data);
    EXPECT_EQ(data.gridNames.girderNameWidth, 5);
    EXPECT_EQ(data.gridNames.swayNameWidth, 5);
}

TEST(GridNames, AnEmptyFileEmptiesTheLists)
{
    CSbdData data;
    ReadGridNamesFromBytes("[GRID_GRID]\nGIRDER_N_NAME = 1 G1\nSWAY_N_NAME = 1 C1\nLINE_N_NAME = 1 L1\n", data);
    ReadGridNamesFromBytes("", data);
    EXPECT_THAT(data.gridNames.girderNames, IsEmpty());
    EXPECT_THAT(data.gridNames.swayNames, IsEmpty());
    EXPECT_THAT(data.gridNames.swayMarks, IsEmpty());
    EXPECT_THAT(data.gridNames.lineNames, IsEmpty());
    EXPECT_EQ(data.swayNameCount, 0U);
}

TEST(GridNames, AMissingFileIsNoError)
{
    CSbdData data;
    data.gridNames.girderNames = {"old"};
    ReadGridNames("no such folder/no file.abd", data);
    EXPECT_THAT(data.gridNames.girderNames, IsEmpty());
    ReadGridNames(std::filesystem::temp_directory_path(), data);
    EXPECT_THAT(data.gridNames.girderNames, IsEmpty()) << "a folder";
}

TEST(GridNames, AHugeCountTakesNoMemoryByItself)
{
    const GridNames names = Names("GIRDER_N_NAME = 2000000000 G1 G2\nEND\n");
    EXPECT_LT(names.girderNames.size(), 100000U);
    EXPECT_EQ(names.girderNames.at(1), "G2");
    EXPECT_EQ(names.girderNames.back(), "");
}

TEST(GridNames, ManyNamesAreAllRead)
{
    std::string lines = "GIRDER_N_NAME = 100000";
    for (int i = 0; i < 100000; ++i)
        lines += (i % 5 == 0 ? "\n" : " ") + std::to_string(i);
    const GridNames names = Names(lines + "\n");
    ASSERT_THAT(names.girderNames, SizeIs(100000));
    EXPECT_EQ(names.girderNames.back(), "99999");
}

TEST(GridNames, ACharacterWhoseBytesLookLikeABlankIsNotSplit)
{
    // 83 81 | 40: the character メ and an "@"
    EXPECT_THAT(Girders("GIRDER_N_NAME = 2 メ@1 メ@2\n"), ElementsAre("メ@1", "メ@2"));
}

} // namespace sbd
