#include "sbdfile/repairs.h"
#include "tests/sbdfile/sections.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace sbd {

namespace {

using namespace literals;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kControl = "自動計算(YES_NO)";

std::vector<std::string> SwayNames(const CSbdData& data)
{
    std::vector<std::string> names;
    for (const std::string& name : data.gridNames.swayNames)
        names.push_back(FromCp932(name));
    return names;
}

/// A block's only row before the repairs, its control row of these words, as it is after them; the switch is a row of 301.
std::string ControlRowBehind(std::size_t switchRow, const std::string& value, int block, const std::string& words)
{
    CSbdData data;
    data.SetOption(301, switchRow, Cp932(value));
    const std::string bytes = Cp932(words);
    data.Table(block)->AppendRow(SplitWords(bytes));
    RepairAfterRead(data);
    return TableText(data, block).at(0);
}

} // namespace

// --- name lists --------------------------------------------------------------------------------

TEST(RepairNames, BeamsOf501JoinThoseOfTheBridgeUpToTheirUnderscore)
{
    CSbdData data = Load("[CBD_GRID]\n 横桁(対傾構) 7 A1 C1_1 C1_2 _X_1 ダム_2 ポ C9\n[END]\n",
                         "[GRID_GRID]\nSWAY_N_NAME = 3 A1 -C5 A2\n[END]\n");
    EXPECT_THAT(SwayNames(data), ElementsAre("A1", "C5", "A2", "C1", "_X", "ダム", "ポ", "C9"));
    EXPECT_EQ(data.swayNameCount, 3U);
}

TEST(RepairNames, WithoutNamesOfTheBridgeEveryOtherNameIsAddedOnce)
{
    EXPECT_THAT(SwayNames(Load("[CBD_GRID]\n 横桁(対傾構) 4 A1 A1 A2_1 A2\n[END]\n")), ElementsAre("A1", "A2"));
}

TEST(RepairNames, TheNamesOf501AreTakenAwayAgainBeforeTheyAreAdded)
{
    CSbdData data = Load("[CBD_GRID]\n 横桁(対傾構) 2 C1 C2\n[END]\n", "[GRID_GRID]\nSWAY_N_NAME = 1 A1\n[END]\n");
    data.Names(501)->lists[1] = {"C3"};
    RefreshSwayNames(data);
    EXPECT_THAT(SwayNames(data), ElementsAre("A1", "C3"));
}

TEST(RepairNames, AnUnderscoreInsideADoubleByteCharacterDoesNotCutAName)
{
    EXPECT_THAT(SwayNames(Load("[CBD_GRID]\n 横桁(対傾構) 3 A一ダ_1 ダ __1\n[END]\n")),
                ElementsAre("A一ダ", "ダ", "_"));
}

TEST(RepairNames, StringersAreAtMostAsManyAsTheirNumberSays)
{
    const auto names = [](const std::string& number, const std::string& list) {
        return Load("[STRINGER_COMMON]\n NUMBER_STRINGER x " + number + "\n NAME_STRINGER x " + list + "\n[END]\n")
            .stringerNames;
    };
    EXPECT_THAT(names("2", "ST1, ST2,ST3"), ElementsAre("ST1", "ST2"));
    EXPECT_THAT(names("3本", "ST1"), ElementsAre("ST1"));
    EXPECT_THAT(names("0", "ST1"), IsEmpty());
    EXPECT_THAT(names("x", "ST1"), IsEmpty());
    EXPECT_THAT(names("-1", "ST1"), IsEmpty());
    EXPECT_THAT(names("2000000000", "ST1 ST2"), ElementsAre("ST1", "ST2"));
}

TEST(RepairNames, StringersAreListedAnewAtEachLoad)
{
    CSbdData data;
    data.stringerNames = {"old"};
    RepairAfterRead(data);
    EXPECT_THAT(data.stringerNames, IsEmpty());
}

// --- rows that are added -----------------------------------------------------------------------

TEST(RepairRows, HandHolesGetTheirTwoTypes)
{
    const std::string a = "TYPE_H_A|6|19|16|9|300|340|240 150 180 SS400 SUS304";
    const std::string b = "TYPE_H_B|6|19|16|9|430|250|630 270 300 120 330 150 390 210 SS400 SUS304";
    EXPECT_THAT(TableText(Load(""), 409), ElementsAre(std::string(kControl) + "|YES", a, b));
    EXPECT_THAT(TableText(Load("[DRAW_HAND_HOLE]\n 自動 NO\n[END]\n"), 409), ElementsAre("自動|NO", a, b));
    EXPECT_THAT(TableText(Load("[DRAW_HAND_HOLE]\n 自動 NO\n TYPE_X 1\n[END]\n"), 409),
                ElementsAre("自動|NO", "TYPE_X|1"));
}

TEST(RepairRows, FlangeRowsOf511FollowTheTypesOf311)
{
    const auto flanges = [](const std::string& upper, const std::string& lower) {
        CSbdData data;
        data.hGirder.types[0] = Cp932(upper);
        data.hGirder.types[1] = Cp932(lower);
        RepairAfterRead(data);
        EXPECT_EQ(RowText(data, 511, 0), std::string(kControl) + "|YES|||");
        EXPECT_EQ(data.Table(511)->columns[1][1], data.Option(721, 0));
        EXPECT_EQ(data.Table(511)->columns[1][2], data.Option(721, 1));
        return OptionText(data, 721, 0) + " " + OptionText(data, 721, 1);
    };
    EXPECT_EQ(flanges("桁高に含む", "桁高に含む"), "YES YES");
    EXPECT_EQ(flanges("桁高に含まない", "桁高に含む"), "NO YES");
    EXPECT_EQ(flanges("", "桁高に含まない"), "YES NO");
    EXPECT_EQ(flanges("桁高に含まない ", "含まない"), "YES YES") << "that word exactly";
}

TEST(RepairRows, FlangeValuesOfTheFileDoNotSurvive)
{
    const CSbdData data = Load("[CBD_GIRDER_H]\n 上FLG厚を主桁高に含むか NO\n G1\n[END]\n");
    EXPECT_THAT(TableText(data, 511), ElementsAre(std::string(kControl) + "|YES", "上FLG厚を主桁高に含むか|YES",
                                                  "下FLG厚を主桁高に含むか|YES", "G1"));
}

TEST(RepairRows, ATable511WithFewRowsIsNotOverrun)
{
    CSbdData data;
    data.Table(511)->AppendRow({"自動"_cp932, "NO"});
    RepairAfterRead(data);
    EXPECT_THAT(TableText(data, 511), ElementsAre("自動|NO"));
}

// --- values from block to block ----------------------------------------------------------------

TEST(RepairLinks, EveryTargetTakesTheValueOfItsSource)
{
    struct Link {
        int from;
        std::size_t fromRow;
        int to;
        std::size_t toRow;
    };
    constexpr Link links[] = {
        {301, 29, 521, 2},  {301, 30, 521, 3},  {301, 16, 521, 4},  {301, 16, 721, 9}, {301, 16, 701, 16},
        {301, 28, 721, 2},  {302, 34, 521, 33}, {303, 30, 521, 34}, {701, 9, 401, 11}, {701, 10, 401, 12},
        {701, 11, 401, 13}, {701, 12, 401, 14}, {701, 13, 401, 15}, {701, 9, 721, 4},  {701, 10, 721, 5},
        {701, 11, 721, 6},  {701, 12, 721, 7},  {701, 13, 721, 8},
    };
    CSbdData data;
    int number = 0;
    for (const Link& link : links) {
        data.SetOption(link.from, link.fromRow,
                       "source " + std::to_string(link.from) + " " + std::to_string(link.fromRow));
        data.SetOption(link.to, link.toRow, "target " + std::to_string(++number));
    }
    data.SetOption(721, 0, "from 311");
    data.SetOption(721, 1, "from 311");
    const CSbdData before = data;
    RepairAfterRead(data);
    std::size_t changed = 0;
    for (const int block : {301, 302, 303, 401, 521, 701, 721})
        for (std::size_t row = 0; row < data.Options(block)->size(); ++row)
            changed += data.Option(block, row) != before.Option(block, row) ? 1 : 0;
    for (const Link& link : links)
        EXPECT_EQ(OptionText(data, link.to, link.toRow),
                  "source " + std::to_string(link.from) + " " + std::to_string(link.fromRow));
    EXPECT_EQ(changed, std::size(links) + 2) << "and rows 0 and 1 of 721";
}

// --- control rows ------------------------------------------------------------------------------

TEST(RepairControlRows, FollowTheSwitchesOf301)
{
    CSbdData data;
    for (const std::size_t row : {8U, 9U, 10U, 11U, 12U, 13U, 18U})
        data.SetOption(301, row, "S" + std::to_string(row));
    for (const int block : {313, 331})
        data.Table(block)->AppendRow({"自動"_cp932, "old", "rest"});
    RepairAfterRead(data);
    const auto control = [&](int block) { return TableText(data, block).at(0); };
    EXPECT_EQ(control(326), std::string(kControl) + "|S18");
    EXPECT_EQ(control(313), "自動|S11|rest");
    EXPECT_EQ(control(315), std::string(kControl) + "|S10");
    EXPECT_EQ(control(327), std::string(kControl) + "|S12");
    EXPECT_EQ(control(328), std::string(kControl) + "|S13");
    EXPECT_EQ(control(331), "自動|S8|rest");
    EXPECT_EQ(control(332), std::string(kControl) + "|S8");
    for (const int block : {341, 342, 343, 344})
        EXPECT_EQ(control(block), std::string(kControl) + "|S9") << block;
}

TEST(RepairControlRows, OtherBlocksGetNone)
{
    const CSbdData data = Load("");
    for (const int block : {314, 316, 321, 333, 359, 408, 502, 512, 573, 602, 641, 671, 703})
        EXPECT_EQ(data.RowCount(block), 0U) << block;
}

TEST(RepairControlRows, ARowThatIsNoControlRowIsGivenOneByTheReaderFirst)
{
    const CSbdData data = Load("[SEC_CONTROL]\n AUTOMATIC_SECTION x NO\n[END]\n[SEC_FLG_B_T_MAT]\n G1 G1\n[END]\n");
    EXPECT_THAT(TableText(data, 332), ElementsAre(std::string(kControl) + "|NO", "G1|G1"));
}

TEST(RepairControlRows, FurtherWordsOfASwitchAreTakenOutOfTheCellsBehindIt)
{
    EXPECT_EQ(ControlRowBehind(10, "YES, 3", 315, "自動 YES 3"), "自動|YES, 3");
    EXPECT_EQ(ControlRowBehind(10, "YES, 3", 315, "自動 OLD 3 L1 x"), "自動|YES, 3|L1|x");
    EXPECT_EQ(ControlRowBehind(10, "YES, 3, 4", 315, "自動 YES 3 4 5"), "自動|YES, 3, 4|5");
    EXPECT_EQ(ControlRowBehind(10, "YES", 315, "自動 YES 3"), "自動|YES|3") << "one word takes none";
}

TEST(RepairControlRows, IfOneWordDiffersNoCellIsTouched)
{
    EXPECT_EQ(ControlRowBehind(10, "YES, 3, 4", 315, "自動 YES 3 5"), "自動|YES, 3, 4|3|5");
    EXPECT_EQ(ControlRowBehind(10, "YES, 3", 315, "自動 YES x 3"), "自動|YES, 3|x|3");
    EXPECT_EQ(ControlRowBehind(10, "YES, 3", 315, "自動 YES"), "自動|YES, 3");
    EXPECT_EQ(ControlRowBehind(10, "YES, 3", 315, "自動 YES 33"), "自動|YES, 3|33");
}

TEST(RepairControlRows, TheLastColumnCountsWordByWord)
{
    // 328 has five columns; the cells behind the value are columns 2, 3 and the rest of the line.
    const auto row = [](const std::string& value, const std::string& line) {
        return TableText(
            Load("[SEC_CONTROL]\n AUTOMATIC_RADIUS x " + value + "\n[END]\n[SEC_RADIUS]\n " + line + "\n[END]\n"),
            328)[0];
    };
    EXPECT_EQ(row("YES 1 2", "自動 YES 1 2 3 4 5"), "自動|YES 1 2|3|4|5");
    EXPECT_EQ(row("YES 1 2 3", "自動 YES 1 2 3 4  5 6"), "自動|YES 1 2 3|4|5|6");
    EXPECT_EQ(row("YES 1 2 3 4", "自動 YES 1 2 3 4 5"), "自動|YES 1 2 3 4|5");
    EXPECT_EQ(row("YES 1 2 3 4 5 6", "自動 YES 1 2 3 4 5 6"), "自動|YES 1 2 3 4 5 6");
    EXPECT_EQ(row("YES 1 2 3 4 6", "自動 YES 1 2 3 4 5"), "自動|YES 1 2 3 4 6|1|2|3 4 5") << "nothing touched";
}

TEST(RepairControlRows, ASwitchOfSeveralWordsIsStableOverLoadAndSave)
{
    CSbdData data =
        Load("[SEC_CONTROL]\n AUTOMATIC_RADIUS x YES 1, 2 3\n[END]\n[SEC_RADIUS]\n 自動 NO 9\n G1 G1\n[END]\n");
    EXPECT_EQ(TableText(data, 328)[0], "自動|YES 1, 2 3|9");
    const std::string saved = WriteProject(data);
    CSbdData again = LoadBytes(saved);
    EXPECT_EQ(TableText(again, 328)[0], "自動|YES 1, 2 3|9");
    EXPECT_EQ(FirstDifference(saved, WriteProject(again)), "");
}

TEST(RepairControlRows, ASwitchOfCommasAloneGoesNowhere)
{
    CSbdData data = Load("[SEC_CONTROL]\n AUTOMATIC_H_STIFF x ,,\n[END]\n"
                         "[SEC_H_STIFF]\n 自動計算 Y 0 自動計算 Y 0 5\n G1 G2\n[END]\n");
    EXPECT_EQ(TableText(data, 315)[0], "自動計算|Y|0|自動計算|Y|0|5");
    std::string saved = WriteProject(data);
    for (int turn = 0; turn < 3; ++turn) {
        CSbdData again = LoadBytes(saved);
        const std::string next = WriteProject(again);
        EXPECT_EQ(FirstDifference(saved, next), "") << "a word of the row is gone in turn " << turn;
        saved = next;
    }
}

// --- tied blocks -------------------------------------------------------------------------------

TEST(RepairTiedBlocks, TheLetterInOneOfFourSetsAllFour)
{
    for (const std::array<int, 4>& group :
         {std::array{557, 558, 559, 560}, {657, 658, 659, 660}, {677, 678, 679, 680}}) {
        for (const int lettered : group) {
            for (const char* letter : {"Y", "y"}) {
                CSbdData data;
                data.Table(lettered)->AppendRow({"自動"_cp932, letter});
                const int other = lettered == group[0] ? group[1] : group[0];
                data.Table(other)->AppendRow({"自動"_cp932, "NO", "kept"});
                RepairAfterRead(data);
                for (const int block : group) {
                    ASSERT_EQ(data.RowCount(block), 1U) << block;
                    EXPECT_EQ(data.Table(block)->columns[1][0], "YES") << block;
                }
                EXPECT_EQ(data.Table(other)->columns[2][0], "kept");
            }
        }
    }
}

TEST(RepairTiedBlocks, TheWordYesDoesNotSetTheOthers)
{
    for (const char* word : {"YES", "Yes", "Y ", "YY", "ｙ", ""}) {
        CSbdData data;
        data.Table(557)->AppendRow({"自動"_cp932, Cp932(word)});
        data.Table(558)->AppendRow({"自動"_cp932, "NO"});
        RepairAfterRead(data);
        EXPECT_EQ(data.Table(558)->columns[1][0], "NO") << word;
        EXPECT_EQ(data.RowCount(559), 0U) << word;
    }
}

TEST(RepairTiedBlocks, GroupsDoNotReachIntoEachOther)
{
    CSbdData data;
    data.Table(657)->AppendRow({"自動"_cp932, "Y"});
    RepairAfterRead(data);
    EXPECT_EQ(data.RowCount(660), 1U);
    for (const int block : {557, 558, 559, 560, 677, 678, 679, 680})
        EXPECT_EQ(data.RowCount(block), 0U) << block;
}

// --- as a whole --------------------------------------------------------------------------------

TEST(Repairs, DoneAgainChangeNothing)
{
    CSbdData data = Load(
        "[SEC_CONTROL]\n AUTOMATIC_RADIUS x YES 1, 2 3\n AREA_CODE x 東北\n[END]\n[CBD_S_BOLT_SPLICE]\n 自動 Y\n[END]\n"
        "[SEC_H_GIRDER]\n T_U 桁高に含まない\n G1\n[END]\n");
    const CSbdData before = data;
    RepairAfterRead(data);
    EXPECT_TRUE(data.SameProject(before));
}

} // namespace sbd
