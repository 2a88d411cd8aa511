#include "sbdfile/writer.h"
#include "project/catalogue.h"
#include "project/option_rows.h"
#include "sbdfile/layout.h"
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

/// The blocks whose header stands in a file, in its order.
std::vector<int> BlocksOf(std::string_view bytes)
{
    std::vector<int> blocks;
    for (const std::string& line : LinesOf(bytes))
        for (const CatalogueRow& row : Catalogue())
            if (!row.tag.empty() && line.starts_with("[" + std::string(row.tag) + "]"))
                blocks.push_back(row.block);
    return blocks;
}

std::string HeaderStart(int block)
{
    return "[" + std::string(FindBlock(block)->tag) + "]";
}

/// Adds `count` rows of whatever kind the block stores; true if it stores rows.
bool AddRows(CSbdData& data, int block, int count)
{
    for (int i = 0; i < count; ++i) {
        if (TableBlock* table = data.Table(block))
            table->AppendRow({"x", "x"});
        else if (block == 311)
            data.hGirder.records.emplace_back();
        else if (block == 324)
            data.crossRibs.emplace_back();
        else if (block == 325)
            data.lRibs.emplace_back();
        else if (block == 501 || block == 702)
            data.Names(block)->lists[2].push_back("x");
        else
            return false;
    }
    return true;
}

std::vector<std::string> RowsOfTable(int block, const std::vector<std::vector<std::string>>& rows)
{
    CSbdData data;
    for (const std::vector<std::string>& row : rows) {
        std::vector<std::string> bytes;
        std::vector<std::string_view> cells;
        for (const std::string& cell : row)
            bytes.push_back(Cp932(cell));
        for (const std::string& cell : bytes)
            cells.push_back(cell);
        data.Table(block)->AppendRow(cells);
    }
    return WrittenRows(WriteProject(data), HeaderStart(block));
}

} // namespace

// --- the file ----------------------------------------------------------------------------------

TEST(Writer, ANewDocumentHoldsOptionsForcesNamesAndTheLateralPositionsAlone)
{
    CSbdData data;
    std::vector<int> expected;
    for (const int block : SectionOrder())
        if (FindOptionBlock(block) || FindSectionLayout(block)->leastRows == 0)
            expected.push_back(block);
    EXPECT_EQ(BlocksOf(WriteProject(data)), expected);
    EXPECT_EQ(expected.size(), 19U + 12U + 2U);
}

TEST(Writer, EveryLineEndsInCrLf)
{
    CSbdData data = Load("TITLE:A\n[X]\n a\n[END]\n");
    for (const std::string& line : LinesOf(WriteProject(data)))
        EXPECT_EQ(line.find("(no CR LF)"), std::string::npos) << line;
}

TEST(Writer, TheTitleStandsFirstThenTheSectionsThenWhatIsNotKnown)
{
    CSbdData data;
    data.SetOption(301, 0, "県道"_cp932);
    data.unknownLines = {"[X]", "\t raw ", "[END]", ""};
    const std::vector<std::string> lines = LinesOf(WriteProject(data));
    EXPECT_EQ(lines.at(0), "TITLE:県道");
    EXPECT_EQ(lines.at(1), "[SEC_CONTROL] 301     入力必要");
    EXPECT_THAT(std::vector<std::string>(lines.end() - 6, lines.end()),
                ElementsAre("[END MBD_CONTROL]", "", "[X]", "\t raw ", "[END]", ""));
}

TEST(Writer, EverySectionIsClosedByItsEndLineAndAnEmptyLine)
{
    CSbdData data;
    for (const int block : SectionOrder())
        AddRows(data, block, 3);
    const std::vector<std::string> lines = LinesOf(WriteProject(data));
    std::size_t line = 1; // behind the title
    for (const int block : SectionOrder()) {
        const OptionBlock* options = FindOptionBlock(block);
        ASSERT_LT(line, lines.size());
        EXPECT_EQ(lines[line], FromCp932(options ? options->header : FindSectionLayout(block)->header));
        while (line < lines.size() && !lines[line].starts_with("[E"))
            ++line;
        ASSERT_LT(line + 1, lines.size());
        EXPECT_EQ(lines[line], FromCp932(options ? options->end : FindSectionLayout(block)->end));
        EXPECT_EQ(lines[line + 1], "");
        line += 2;
    }
    EXPECT_EQ(line, lines.size());
}

TEST(Writer, ASectionIsWrittenFromItsLeastNumberOfRowsOn)
{
    for (const SectionLayout& layout : SectionLayouts()) {
        for (int rows = 0; rows <= 3; ++rows) {
            CSbdData data;
            ASSERT_TRUE(AddRows(data, layout.block, rows)) << layout.block;
            const bool written = !SectionOf(WriteProject(data), HeaderStart(layout.block)).empty();
            EXPECT_EQ(written, rows >= layout.leastRows) << layout.block << " of " << rows << " rows";
        }
    }
}

TEST(Writer, WritingChangesNothingInTheProject)
{
    CSbdData data = Load("[SEC_V_STIFF]\n G1 G2\n[END]\n[CBD_GRID]\n 主桁 1 G1\n[END]\n[X]\n[END]\n");
    const CSbdData before = data;
    const std::string first = WriteProject(data);
    EXPECT_TRUE(data.SameProject(before));
    EXPECT_EQ(first, WriteProject(data));
}

TEST(Writer, ABlockWithItsControlRowAloneIsDroppedAndComesBackAtTheNextLoad)
{
    CSbdData data = Load("[SEC_V_STIFF]\n 自動計算(YES_NO) NO\n[END]\n[SEC_S_STIFF]\n 自動計算(YES_NO) NO\n[END]\n");
    const std::string saved = WriteProject(data);
    EXPECT_THAT(SectionOf(saved, "[SEC_V_STIFF]"), IsEmpty());
    EXPECT_THAT(SectionOf(saved, "[SEC_S_STIFF]"), IsEmpty());
    EXPECT_THAT(TableText(LoadBytes(saved), 313), ElementsAre("自動計算(YES_NO)|YES_1")) << "from the switch of 301";
    EXPECT_EQ(LoadBytes(saved).RowCount(314), 0U);
}

// --- options -----------------------------------------------------------------------------------

TEST(WriterOptions, ARowOf301HasItsValueTwoBytesWideAtLeast)
{
    CSbdData data;
    data.SetOption(301, 1, "Y");
    data.SetOption(301, 3, "YES, 3");
    const std::vector<std::string> section = SectionOf(WriteProject(data), "[SEC_CONTROL]");
    EXPECT_EQ(section.at(1), "! タイプ                               説明文                                                    入力データ");
    EXPECT_EQ(section.at(2), "  RESET_RESULTS                        前回計算結果を削除する(YES_NO)                             Y");
    EXPECT_EQ(section.at(4), "  DONOT_DESIGN_CROSS                   横桁設計を行わない(YES_NO)                                YES, 3");
    EXPECT_EQ(section.size(), 2U + 35U + 1U) << "row 0 is the title's line";
}

TEST(WriterOptions, RowsOfTheOtherFamiliesHaveTheirWidths)
{
    CSbdData data;
    const std::string saved = WriteProject(data);
    EXPECT_EQ(SectionOf(saved, "[SEC_OPTION_SECTION]").at(2),
              "  SIGMA_ROOM                           断面計算での応力度の余裕値N／mm2                          0");
    EXPECT_EQ(SectionOf(saved, "[DRAW_COMMON]").at(3),
              "  R_V_STIFF                            標準スカーラップ(R_T_RR)                                               "
              "35, 16, 40");
    EXPECT_EQ(SectionOf(saved, "[MBD_CONTROL]").at(1),
              "! タイプ                                                                              データ");
    EXPECT_EQ(SectionOf(saved, "[MBD_CONTROL]").at(2),
              "  主桁ブロックに主桁継手を含むか(YES_NO)                                                  NO");
}

TEST(WriterOptions, RowsAreNotCut)
{
    CSbdData data;
    data.SetOption(302, 0, "");
    data.SetOption(801, 0, "");
    const std::string saved = WriteProject(data);
    EXPECT_EQ(LinesOf(saved).at(0), "TITLE:SBD1");
    EXPECT_TRUE(SectionOf(saved, "[SEC_OPTION_SECTION]").at(2).ends_with("  ")) << "a blank for the empty value";
    EXPECT_EQ(SectionOf(saved, "[MBD_CONTROL]").at(2).back(), ' ');
}

TEST(WriterOptions, AnEmptyValueIsWrittenAndNotReadBack)
{
    CSbdData data = Load("");
    data.SetOption(302, 0, "");
    const CSbdData again = LoadBytes(WriteProject(data));
    EXPECT_EQ(OptionText(again, 302, 0), "0") << "the value before the load";
}

TEST(WriterOptions, EveryValueComesBack)
{
    CSbdData data;
    for (const OptionBlock& block : OptionBlocks())
        for (std::size_t row = 0; row < block.rows.size(); ++row)
            data.SetOption(block.block, row, "V" + std::to_string(block.block) + " " + std::to_string(row) + ", x");
    CSbdData again;
    ReadSections(WriteProject(data), again);
    for (const OptionBlock& block : OptionBlocks())
        EXPECT_EQ(*again.Options(block.block), *data.Options(block.block)) << block.block;
}

TEST(WriterOptions, ThePlaceholderHoldsTitleAndBlock301Back)
{
    for (const std::size_t row : {0U, 1U, 35U}) {
        CSbdData data;
        const std::size_t blocks = BlocksOf(WriteProject(data)).size();
        data.SetOption(301, row, "<?>");
        WriteReport report;
        const std::string saved = WriteProject(data, &report);
        EXPECT_TRUE(report.controlBlockHeldBack);
        EXPECT_TRUE(saved.starts_with("[SEC_OPTION_SECTION]")) << row;
        EXPECT_EQ(BlocksOf(saved).size(), blocks - 1) << "all others are written";
    }
    EXPECT_STREQ(kControlBlockMessage, "Input error in 301 [SEC_CONTROL]");
}

TEST(WriterOptions, OnlyTheWholePlaceholderIn301Counts)
{
    CSbdData data;
    data.SetOption(301, 1, "<?> ");
    data.SetOption(302, 1, "<?>");
    WriteReport report;
    EXPECT_TRUE(WriteProject(data, &report).starts_with("TITLE:"));
    EXPECT_FALSE(report.controlBlockHeldBack);
}

TEST(WriterOptions, ABlock301WithoutRowsIsRebuiltWith32)
{
    CSbdData data;
    data.Options(301)->clear();
    const std::string saved = WriteProject(data);
    ASSERT_EQ(data.Options(301)->size(), 32U);
    std::vector<std::string> values;
    for (const std::string& value : *data.Options(301))
        values.push_back(FromCp932(value));
    std::vector<std::string> expected = {"SBD1", "YES", "YES", "NO", "NO", "NO", "NO", "NO"};
    expected.resize(21, "YES");
    for (const char* value : {"死荷重", "1", "一般", "YES", "NO", "100", "0.03", "非合成", "自動", "横桁腹板", "3次"})
        expected.push_back(value);
    EXPECT_EQ(values, expected);
    EXPECT_EQ(LinesOf(saved).at(0), "TITLE:SBD1");
    EXPECT_EQ(SectionOf(saved, "[SEC_CONTROL]").size(), 2U + 31U + 1U);
}

// --- tables ------------------------------------------------------------------------------------

TEST(WriterTables, ColumnsAreBytesWide)
{
    EXPECT_THAT(RowsOfTable(305, {{"主桁", "W1", "ポ"}, {"a name too long", "b", "", "", "e"}}),
                ElementsAre("     主桁        W1        ポ", "a name too long         b" + std::string(45, ' ') + "e"));
}

TEST(WriterTables, TrailingBlanksAreCutExceptInTheirBlocks)
{
    EXPECT_THAT(RowsOfTable(304, {{"G1"}}), ElementsAre("       G1"));
    EXPECT_THAT(RowsOfTable(313, {{"自動", "NO"}, {"G1", "G2 "}}), ElementsAre("  自動      NO", "  G1        G2"));
    for (const int block : {291, 292, 293, 294, 295, 296})
        EXPECT_THAT(RowsOfTable(block, {{"G1", "A1"}}), ElementsAre("  G1        A1       " + std::string(89, ' '))) << block;
    for (const int block : {391, 392, 393, 394, 395, 396})
        EXPECT_THAT(RowsOfTable(block, {{"G1", "A1"}}), ElementsAre("  G1        A1       " + std::string(45, ' '))) << block;
    EXPECT_THAT(RowsOfTable(352, {{"G1"}}), ElementsAre("       G1" + std::string(60, ' ')));
}

TEST(WriterTables, ARowOfEmptyCellsIsAnEmptyLine)
{
    EXPECT_THAT(RowsOfTable(304, {{""}}), ElementsAre(""));
}

TEST(WriterTables, TheShorterFormatServesOnlyRowsWhoseOptionalColumnsAreAllEmpty)
{
    EXPECT_THAT(RowsOfTable(502, {{"自動", "NO"}, {"G1", "L", "R"}, {"G1", "L", "R", "LL"}, {"G1", "L", "R", "", "RR"}}),
                ElementsAre("  自動      NO", "  G1        L         R", "  G1        L         R         LL",
                            "  G1        L         R                   RR"));
    EXPECT_THAT(RowsOfTable(707, {{"自動", "NO"}, {"S", "G", "1", "2"}, {"S", "G", "1", "2", "3"}, {"S", "G", "1", "2", "", "4"},
                                  {"S", "G", "1", "2", "", "", "5"}}),
                ElementsAre("  自動      NO", "  S         G                       1              2",
                            "  S         G                       1              2   3",
                            "  S         G                      1              2                             4",
                            "  S         G                      1              2                                 5"));
}

TEST(WriterTables, Row0OfTheStudBlocksHasAFormatOfItsOwn)
{
    const std::vector<std::string> studs = RowsOfTable(402, {{"手動", "B", "C"}, {"G1", "G2", "I桁"}});
    EXPECT_EQ(studs.at(0), "  手動  B                       C");
    EXPECT_EQ(studs.at(1), "  G1  G2      I桁");
    const std::vector<std::string> cells(14, "x");
    EXPECT_EQ(RowsOfTable(402, {cells})[0].back(), 'x');
    EXPECT_EQ(std::ranges::count(RowsOfTable(402, {cells})[0], 'x'), 10);
    EXPECT_EQ(std::ranges::count(RowsOfTable(403, {cells})[0], 'x'), 9);
    EXPECT_EQ(std::ranges::count(RowsOfTable(662, {cells, cells})[0], 'x'), 10);
    EXPECT_EQ(std::ranges::count(RowsOfTable(662, {cells, cells})[1], 'x'), 11);
}

TEST(WriterTables, Block659LosesColumns14And15AndBlock559DoesNot)
{
    const std::vector<std::string> cells(16, "x");
    EXPECT_EQ(std::ranges::count(RowsOfTable(659, {cells, cells})[1], 'x'), 14);
    EXPECT_EQ(std::ranges::count(RowsOfTable(559, {cells, cells})[1], 'x'), 16);
}

TEST(WriterTables, TheControlRowOf412HasItsWordFromTheFormat)
{
    EXPECT_THAT(RowsOfTable(412, {{"NO"}, {"L 1"}, {""}}), ElementsAre("  自動計算  NO", "  L 1", ""));
    EXPECT_THAT(RowsOfTable(412, {{""}, {"CL"}}), ElementsAre("  自動計算", "  CL"));
}

TEST(WriterTables, TheCommentOf321And322FollowsTheInputMethod)
{
    const auto comment = [](int block, const std::string& method) {
        CSbdData data;
        data.Table(block)->AppendRow({"最大"_cp932, "12"});
        data.Table(block)->AppendRow({"入力方法"_cp932, Cp932(method)});
        return SectionOf(WriteProject(data), HeaderStart(block)).at(1);
    };
    for (const char* lengths : {"継手長", "継手長より", "断面長", "自動_継手長", "自動_断面長より"}) {
        EXPECT_EQ(comment(321, lengths), "! 継手名    I左右両    主桁始    主桁終    継手長   [継手TYPE]") << lengths;
        EXPECT_EQ(comment(322, lengths), "! 断面名    I左右両    主桁始    主桁終    断面長") << lengths;
    }
    for (const char* others : {"横桁と垂直補剛材より", "", "自動", "長さ", "継手", "より継手長", "自動継手長"}) {
        EXPECT_EQ(comment(321, others), "! 継手名    I左右両    主桁始    主桁終   左側横桁名   VSTIFF番号     間隔   [継手TYPE]")
            << others;
        EXPECT_EQ(comment(322, others), "! 断面名    I左右両    主桁始    主桁終   左側横桁名   VSTIFF番号     間隔") << others;
    }
}

TEST(WriterTables, LaterCommentsStandBehindRow0AlsoIfNoRowFollows)
{
    for (const int block : {335, 336, 337, 338, 402, 403}) {
        CSbdData data;
        data.Table(block)->AppendRow({"自動"_cp932});
        const SectionLayout& layout = *FindSectionLayout(block);
        const std::vector<std::string> section = SectionOf(WriteProject(data), HeaderStart(block));
        ASSERT_EQ(section.size(), 3 + layout.comments.size() + layout.rowComments.size()) << block;
        EXPECT_EQ(section[layout.comments.size() + 1].find("自動") != std::string::npos, true) << block;
        EXPECT_EQ(section[layout.comments.size() + 2], FromCp932(layout.rowComments[0])) << block;
    }
}

TEST(WriterTables, AllCommentsOf339And340StandAheadOfTheControlRow)
{
    CSbdData data;
    data.Table(339)->AppendRow({"自動"_cp932, "NO"});
    data.Table(340)->AppendRow({"自動"_cp932, "NO"});
    const std::string saved = WriteProject(data);
    EXPECT_EQ(SectionOf(saved, "[SEC_SLAB_MIN_REINFORCE]").at(3).substr(0, 14), "  自動   NO");
    EXPECT_EQ(SectionOf(saved, "[SEC_SLAB_CRACK_SIZE]").at(4).substr(0, 14), "  自動   NO");
}

TEST(WriterTables, TheVersionWordStandsAheadOfTheRowsOf315)
{
    CSbdData data;
    AddRows(data, 315, 2);
    EXPECT_EQ(SectionOf(WriteProject(data), "[SEC_H_STIFF]").at(2), "NEW_VERSION_20051205");
    data.versionWord = "OLD_VERSION_1";
    EXPECT_EQ(SectionOf(WriteProject(data), "[SEC_H_STIFF]").size(), 5U) << "no other word is written";
}

TEST(WriterTables, UnknownLinesGoOutAsTheyAre)
{
    CSbdData data;
    data.unknownLines = {"", "  [not checked", "\x85\xFF\t"};
    const std::vector<std::string> lines = LinesOf(WriteProject(data));
    EXPECT_THAT(std::vector<std::string>(lines.end() - 3, lines.end()), ElementsAre("", "  [not checked", "\\x85\\xff\t"));
}

// --- records -----------------------------------------------------------------------------------

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
    const std::string seven = "  G1     G2     A1     A2         1.000000     2.000000     3.000000     4.000000     5.000000     6.000000     7.000000";
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
    const std::string numbers = "       桁高始       桁高終          DXB          DXE   X(-H)_LFLG      DZ_LFLG   X(-H)_UFLG";
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
    EXPECT_TRUE(row.starts_with(std::string(39, ' ') + "   0.0   0.0   0.0   0.0   100   0.5000   1.5000")) << row.substr(0, 90);
    EXPECT_NE(row.find("  99.5000   基準線   1.0   2.0   4.0   1.0"), std::string::npos) << "a size not given is left out";
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
    EXPECT_THAT(rows(10), ElementsAre("  横桁(対傾構)  10        " + line1, blanks + "C6        C7        C8        C9        C10"));
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
                ElementsAre("  自動取得(YES_NO)        NO", "  主桁          0", "  横桁(対傾構)  0", "  支承線        1         S1",
                            "  箱桁          0"));
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
