#include "sbdfile/reader.h"
#include "project/catalogue.h"
#include "project/option_rows.h"
#include "sbdfile/layout.h"
#include "sbdfile/reader_rules.h"
#include "tests/sbdfile/sections.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace sbd {

namespace {

using namespace literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

/// Blocks whose content is another one than that of a new document.
std::vector<int> FilledBlocks(const CSbdData& data)
{
    const CSbdData fresh;
    std::vector<int> blocks;
    for (const CatalogueRow& row : Catalogue()) {
        const bool filled = data.Options(row.block)   ? *data.Options(row.block) != *fresh.Options(row.block)
                            : data.Names(row.block)   ? !(*data.Names(row.block) == *fresh.Names(row.block))
                            : data.Table(row.block)   ? data.RowCount(row.block) > 0
                            : row.block == 311        ? !data.hGirder.records.empty()
                            : row.block == 324        ? !data.crossRibs.empty()
                            : row.block == 325 ? !data.lRibs.empty()
                                                      : false;
        if (filled)
            blocks.push_back(row.block);
    }
    return blocks;
}

/// A line that any block takes as a row of its own.
std::string SomeRow(int block)
{
    if (const OptionBlock* options = FindOptionBlock(block))
        return "  " + options->rows[1].keyword + " label another_value\r\n";
    return block == 501 || block == 702 ? FileOf("  主桁 2 G1 G2\n") : "  a b c d\r\n";
}

CSbdData ReadBytes(std::string_view bytes, std::vector<ReadNote>* notes = nullptr)
{
    CSbdData data;
    ReadSections(bytes, data, notes);
    return data;
}

std::string Reasons(const std::vector<ReadNote>& notes)
{
    std::string text;
    for (const ReadNote& note : notes)
        text += std::to_string(static_cast<int>(note.reason)) + "/" + std::to_string(note.line) + "/" +
                std::to_string(note.block) + "/" + FromCp932(note.text) + "\n";
    return text;
}

} // namespace

// --- headers -----------------------------------------------------------------------------------

TEST(ReaderHeaders, TheHeaderThatIsWrittenOpensItsOwnBlockAlone)
{
    for (const int block : SectionOrder()) {
        const OptionBlock* options = FindOptionBlock(block);
        const SectionLayout* layout = FindSectionLayout(block);
        const std::string& header = options ? options->header : layout->header;
        const std::string& end = options ? options->end : layout->end;
        const CSbdData data = ReadBytes(header + "\r\n" + SomeRow(block) + end + "\r\n" + "  behind the end\r\n");
        EXPECT_THAT(FilledBlocks(data), ElementsAre(block));
        EXPECT_THAT(data.unknownLines, IsEmpty()) << block;
    }
}

TEST(ReaderHeaders, EveryPrefixOpensItsBlockWithAnyTextBehindIt)
{
    for (const CatalogueRow& row : Catalogue())
        for (const std::string_view prefix : row.prefixes)
            for (const char* tail : {"", "] 999.text", "X"}) {
                if (prefix.empty())
                    continue;
                EXPECT_THAT(FilledBlocks(ReadBytes(std::string(prefix) + tail + "\r\n" + SomeRow(row.block))),
                            ElementsAre(row.block))
                    << prefix << tail;
            }
}

TEST(ReaderHeaders, APrefixShortOfAByteOpensNothing)
{
    for (const CatalogueRow& row : Catalogue()) {
        for (std::string_view prefix : row.prefixes) {
            if (prefix.empty())
                continue;
            prefix.remove_suffix(1);
            const CSbdData data = ReadBytes(std::string(prefix) + "\r\n" + SomeRow(row.block));
            EXPECT_THAT(FilledBlocks(data), testing::Not(testing::Contains(row.block))) << prefix;
        }
    }
}

TEST(ReaderHeaders, NoBlankNeedsToFollowTheBracket)
{
    EXPECT_EQ(OptionText(ReadOnly("[SEC_STANDARD]310. 標準値\n  DISTANCE_SPLICE_to_V_STIFF x 25\n"), 310, 0), "25");
}

TEST(ReaderHeaders, AHeaderMayBeIndented)
{
    EXPECT_THAT(TableText(ReadOnly("\t　[SEC_GROUP]\n  G1 G2\n"), 323), ElementsAre("G1|G2"));
}

TEST(ReaderHeaders, LowerCaseOpensABlockMixedCaseDoesNot)
{
    EXPECT_EQ(OptionText(ReadOnly("[sec_control]\n  RESET_RESULTS x NO\n[END]\n"), 301, 1), "NO");
    const CSbdData data = ReadOnly("[Sec_Control]\n  RESET_RESULTS x NO\n[END]\n");
    EXPECT_EQ(OptionText(data, 301, 1), "YES");
    EXPECT_THAT(data.unknownLines, ElementsAre("[Sec_Control]", "  RESET_RESULTS x NO", "[END]", ""));
}

TEST(ReaderHeaders, OldNamesOpen309And335)
{
    for (const char* header : {"[SEC_OPTION_PCP]", "[sec_option_pcp", "[SEC_OPTION_COMPOSITE]", "[sec_option_compos"})
        EXPECT_EQ(OptionText(ReadOnly(std::string(header) + "\n  SIGMA_CK x 40\n"), 309, 0), "40") << header;
    for (const char* header : {"[SEC_SLAB_PCPRC]", "[sec_slab_pcprc] 335", "[SEC_SLAB_COMPOSITE]"})
        EXPECT_EQ(ReadOnly(std::string(header) + "\n  自動計算 NO\n").RowCount(335), 1U) << header;
    EXPECT_EQ(ReadOnly("[SEC_SLAB_PCPRC 335\n  自動計算 NO\n").RowCount(335), 0U) << "the old name wants its bracket";
}

TEST(ReaderHeaders, SomeLowerCaseFormsAreSpelledOtherwise)
{
    for (const char* header : {"[bracket_dz_angle]", "[stringer_load]", "[cbd_sheet_lateral]", "[mbd_sheet_lateral]"})
        EXPECT_THAT(ReadOnly(std::string(header) + "\n  a b\n[END]\n").unknownLines, ElementsAre(header, "  a b", "[END]", ""));
    EXPECT_GT(ReadOnly("[bracker_dz_angle]\n  a b\n[END]\n").RowCount(672), 0U);
    EXPECT_GT(ReadOnly("[stringer_type_load]\n  a b\n[END]\n").RowCount(642), 0U);
    EXPECT_GT(ReadOnly("[cbd_sheet_LATERAL]\n  a b\n[END]\n").RowCount(483), 0U);
    EXPECT_GT(ReadOnly("[mbd_sheet_LATERAL]\n  a b\n[END]\n").RowCount(486), 0U);
}

// --- the container -----------------------------------------------------------------------------

TEST(ReaderContainer, ATitleLosesTheLettersOfItsKeyword)
{
    const auto title = [](std::string_view line) { return OptionText(ReadOnly(line), 301, 0); };
    EXPECT_EQ(title("TITLE:県道１２号\n"), "県道１２号");
    EXPECT_EQ(title("TITLE:EAST\n"), "AST");
    EXPECT_EQ(title("TITLE:TITLE\n"), "");
    EXPECT_EQ(title("TITLE: A\n"), " A");
    EXPECT_EQ(title("TITLE: EAST\n"), " EAST") << "a blank is none of the letters";
    EXPECT_EQ(title("TITLE:east LITTLE\n"), "east LITTLE") << "lower case, and letters further on, stay";
    EXPECT_EQ(title("TITLE:\n"), "");
    EXPECT_EQ(title("  TITLE:x　y，z、w\n"), "x  y  z  w") << "cleaned as any line";
}

TEST(ReaderContainer, ATitleMayStandAnywhereOutsideASectionAndTheLastOneHolds)
{
    const CSbdData data = ReadOnly("TITLE:A\n[SEC_GROUP]\nTITLE:B G2\n[END]\nTITLE:C\n");
    EXPECT_EQ(OptionText(data, 301, 0), "C");
    EXPECT_THAT(TableText(data, 323), ElementsAre("TITLE:B|G2")) << "inside a section it is a row";
}

TEST(ReaderContainer, OutsideASectionOtherLinesAreDropped)
{
    const CSbdData data = ReadOnly("\n! [SEC_GROUP]\n![SEC_GROUP]\nwords [SEC_GROUP]\n[no bracket\nTITLE A\n");
    EXPECT_TRUE(data.SameProject(CSbdData()));
}

TEST(ReaderContainer, AnUnknownSectionIsKeptHeaderCleanedLinesRaw)
{
    const CSbdData data = ReadBytes("  [X]\t1 \r\n  a,\tb \r\n\r\n! c\r\n  [END X] d\r\n[SEC_GROUP]\r\n G1 G2\r\n");
    EXPECT_THAT(data.unknownLines, ElementsAre("[X]  1", "  a,\tb ", "", "! c", "  [END X] d", ""));
    EXPECT_EQ(data.RowCount(323), 1U);
}

TEST(ReaderContainer, TheBracketOfAnUnknownHeaderMayStandAnywhereInItsLine)
{
    EXPECT_THAT(ReadOnly("[X y z] 1\n[E\n").unknownLines, ElementsAre("[X y z] 1", "[E", ""));
    EXPECT_THAT(ReadOnly("[]\n[E\n").unknownLines, ElementsAre("[]", "[E", ""));
    EXPECT_THAT(ReadOnly("[\n[E\n").unknownLines, IsEmpty());
}

TEST(ReaderContainer, AtTheEndOfTheFileAnUnknownSectionGetsNoEmptyLine)
{
    EXPECT_THAT(ReadOnly("[X]\n  a\n").unknownLines, ElementsAre("[X]", "  a"));
    EXPECT_THAT(ReadOnly("[X]\n[END").unknownLines, ElementsAre("[X]", "[END", ""));
}

TEST(ReaderContainer, AStrayEndLineOpensAnUnknownSectionIfItHasItsBracket)
{
    const CSbdData data = ReadOnly("[END A]\n[SEC_GROUP]\n G1 G2\n[END B]\n[SEC_GROUP]\n G3 G4\n");
    EXPECT_THAT(data.unknownLines, ElementsAre("[END A]", "[SEC_GROUP]", " G1 G2", "[END B]", ""));
    EXPECT_THAT(TableText(data, 323), ElementsAre("G3|G4"));
    EXPECT_THAT(ReadOnly("[END\n[SEC_GROUP]\n G1 G2\n[END]\n").unknownLines, IsEmpty());
}

TEST(ReaderContainer, ASectionWithoutItsEndTakesTheNextHeaderAsARow)
{
    const CSbdData data = ReadOnly("[SEC_GROUP]\n G1 G2\n[SEC_BOX_WEB] 305\n G1 W1 W2\n");
    EXPECT_THAT(TableText(data, 323), ElementsAre("G1|G2", "[SEC_BOX_WEB]|305", "G1|W1 W2"));
    EXPECT_EQ(data.RowCount(305), 0U);
}

TEST(ReaderContainer, AnyWordThatBeginsWithTheEndMarkEndsASection)
{
    for (const char* end : {"[END SEC_GROUP]", "  [END", "[E", "[EXTRA] G3", "\t[END_X]"})
        EXPECT_THAT(TableText(ReadOnly("[SEC_GROUP]\n G1 G2\n" + std::string(end) + "\n G3 G4\n"), 323),
                    ElementsAre("G1|G2"))
            << end;
    EXPECT_EQ(ReadOnly("[SEC_GROUP]\n[end]\n").RowCount(323), 1U) << "lower case is a row";
}

TEST(ReaderContainer, SectionsComeInAnyOrder)
{
    const CSbdData data = ReadOnly("[MBD_CONTROL]\n主桁ブロックに主桁継手を含むか(YES_NO) YES\n[END]\n[SEC_CONTROL]\n"
                                   "RESET_RESULTS x NO\n[END]\n");
    EXPECT_EQ(OptionText(data, 801, 0), "YES");
    EXPECT_EQ(OptionText(data, 301, 1), "NO");
}

TEST(ReaderContainer, AProjectIsReadOnTopOfAResetWhichKeepsOptionValues)
{
    CSbdData data;
    data.SetOption(302, 0, "kept");
    data.Table(323)->AppendRow({"gone"});
    data.unknownLines = {"[gone]"};
    ReadProject(FileOf("[SEC_OPTION_SECTION]\n COMPRESSION_U_FLG x 局部\n[END]\n"), data);
    EXPECT_EQ(OptionText(data, 302, 0), "kept");
    EXPECT_EQ(OptionText(data, 302, 1), "局部");
    EXPECT_EQ(data.RowCount(323), 0U);
    EXPECT_THAT(data.unknownLines, IsEmpty());
}

// --- option blocks -----------------------------------------------------------------------------

TEST(ReaderOptions, EachOfThe601KeywordsSetsItsOwnRowAlone)
{
    for (const OptionBlock& block : OptionBlocks()) {
        for (std::size_t row = 0; row < block.rows.size(); ++row) {
            const std::string line = "  " + block.rows[row].keyword + " " +
                                     (block.shape == OptionShape::KeywordLabelValue ? block.rows[row].label : "") + " a value\r\n";
            CSbdData expected;
            expected.SetOption(block.block, row, "a value");
            EXPECT_TRUE(ReadBytes(block.header + "\r\n" + line).SameProject(expected))
                << block.block << " row " << row << " " << FromCp932(block.rows[row].keyword);
        }
    }
}

TEST(ReaderOptions, EachShortKeyWithAnyTailLeadsToARow)
{
    for (const OptionBlock& block : OptionBlocks()) {
        for (const OptionRow& row : block.rows) {
            const CSbdData data = ReadBytes(block.header + "\r\n" + row.shortKey + "~~~ label value_\r\n");
            EXPECT_THAT(FilledBlocks(data), ElementsAre(block.block)) << FromCp932(row.shortKey);
        }
    }
}

TEST(ReaderOptions, In301To303TheFirstMatchingKeyTakesTheValue)
{
    // Row 9 is known by AUTOMATIC_SP, row 8 by AUTOMATIC_SE.
    const CSbdData data = ReadOnly("[SEC_CONTROL]\n AUTOMATIC_SPLICE_AND_MORE x NO\n RESET x NO\n");
    EXPECT_EQ(OptionText(data, 301, 9), "NO");
    EXPECT_EQ(OptionText(data, 301, 8), "YES");
    EXPECT_EQ(OptionText(data, 301, 1), "NO");
}

TEST(ReaderOptions, InOtherBlocksTheLongestMatchingKeyTakesTheValue)
{
    const CSbdData data = ReadOnly("[DRAW_COMMON]\n DIS_JACK_H_STIFF_OVER x 71\n");
    EXPECT_EQ(OptionText(data, 401, 20), "71");
    EXPECT_EQ(OptionText(data, 401, 19), "30");
}

TEST(ReaderOptions, TheSupportScallopsOf401SetTheirOwnRows)
{
    const CSbdData data = ReadOnly("[DRAW_COMMON]\n VS_R_UP_SUPPORT x 50\n VS_R_BOTTOM_SUPPORT x 60\n");
    EXPECT_EQ(OptionText(data, 401, 11), "50");
    EXPECT_EQ(OptionText(data, 401, 12), "60");
    EXPECT_EQ(OptionText(data, 401, 9), "15C, 16, 15C");
    EXPECT_EQ(OptionText(data, 401, 10), "35R, 16, 40R");
    const CSbdData shorter = ReadOnly("[DRAW_COMMON]\n VS_R_UP x 70\n VS_R_BOTTOM x 80\n");
    EXPECT_EQ(OptionText(shorter, 401, 9), "70");
    EXPECT_EQ(OptionText(shorter, 401, 10), "80");
    EXPECT_EQ(OptionText(shorter, 401, 11), "15C, 16, 15C");
}

TEST(ReaderOptions, AValueIsKeptWholeWithBlanksAndAsciiCommas)
{
    const CSbdData data = ReadOnly("[SEC_CONTROL]\n  AUTOMATIC_H_STIFF   x     YES, 3  or\t4，5、6　7  \n");
    EXPECT_EQ(OptionText(data, 301, 10), "YES, 3  or  4  5  6  7");
}

TEST(ReaderOptions, TheLabelIsNotRead)
{
    const CSbdData data = ReadOnly("[SEC_CONTROL]\n RESET_RESULTS 全く違う説明文 NO\n");
    EXPECT_EQ(OptionText(data, 301, 1), "NO");
}

TEST(ReaderOptions, ALineWithTooFewWordsIsIgnored)
{
    EXPECT_EQ(OptionText(ReadOnly("[SEC_CONTROL]\n RESET_RESULTS\n RESET_RESULTS NO\n"), 301, 1), "YES")
        << "with a label three words are wanted";
    EXPECT_EQ(OptionText(ReadOnly("[MBD_CONTROL]\n ボルト長さの丸め方法\n"), 801, 15), "切り上げ");
    EXPECT_EQ(OptionText(ReadOnly("[MBD_CONTROL]\n ボルト長さの丸め方法 四捨五入 する\n"), 801, 15), "四捨五入 する");
}

TEST(ReaderOptions, ATokenThatMatchesNoRowIsDropped)
{
    EXPECT_TRUE(ReadOnly("[SEC_CONTROL]\n reset x NO\n XRESET x NO\n").SameProject(CSbdData()));
}

TEST(ReaderOptions, CommentsAndEmptyLinesArePassedOverAndTheLastLineOfAKeywordHolds)
{
    const CSbdData data = ReadOnly("[SEC_CONTROL]\n!RESET_RESULTS x 1\n\n RESET_RESULTS x 2\n RESET_RESULTS x 3\n[END]\n"
                                   "[SEC_CONTROL]\n RESET_RESULTS x 4\n[END]\n");
    EXPECT_EQ(OptionText(data, 301, 1), "4");
}

TEST(ReaderOptions, ARowThatTheFileLacksKeepsItsDefault)
{
    const CSbdData data = ReadOnly("[SEC_CONTROL]\n RESET_RESULTS x NO\n[END]\n");
    EXPECT_EQ(OptionText(data, 301, 2), "YES");
    EXPECT_EQ(data.Options(301)->size(), 36U);
}

TEST(ReaderOptions, ATitleRowInside301IsAValueLikeAnother)
{
    EXPECT_EQ(OptionText(ReadOnly("[SEC_CONTROL]\n TITLE x ELEVATED\n"), 301, 0), "ELEVATED");
}

// --- table blocks ------------------------------------------------------------------------------

TEST(ReaderTables, CellsAreWordsAndTheLastColumnIsTheRestOfTheLine)
{
    const CSbdData data = ReadOnly("[SEC_BOX_WEB]\n G1\n a b c d e\n a b c d e  f   g \n");
    EXPECT_THAT(TableText(data, 305), ElementsAre("G1", "a|b|c|d|e", "a|b|c|d|e  f   g"));
    EXPECT_EQ(RowText(data, 305, 0), "G1||||");
}

TEST(ReaderTables, CommasAndFullWidthDividersAreBlanks)
{
    EXPECT_THAT(TableText(ReadOnly("[SEC_BOX_WEB]\n 1.5,2.5，a、b　c,d,e\n"), 305), ElementsAre("1.5|2.5|a|b|c d e"));
}

TEST(ReaderTables, ACharacterWithASecondByteLikeAsciiStaysWhole)
{
    EXPECT_THAT(TableText(ReadOnly("[SEC_BOX_WEB]\n 表 ポ ァ ソ 能\n"), 305), ElementsAre("表|ポ|ァ|ソ|能"));
}

TEST(ReaderTables, ARowThatBeginsWithABracketIsARow)
{
    EXPECT_THAT(TableText(ReadOnly("[SEC_GROUP]\n[G1] x\n[ e\n"), 323), ElementsAre("[G1]|x", "[|e"));
}

TEST(ReaderTables, SeventeenFamiliesOfBlocksKeepTheirFirstRow)
{
    const std::set<int> without = {259, 291, 292, 293, 294, 295, 296, 304, 305, 307, 312, 323,
                                   329, 351, 352, 353, 354, 402, 403, 404, 405, 407, 422};
    for (const CatalogueRow& row : Catalogue()) {
        if (row.kind != BlockKind::Table)
            continue;
        const SectionLayout& layout = *FindSectionLayout(row.block);
        const CSbdData data = ReadBytes(layout.header + "\r\n  a b\r\n  c d\r\n");
        const std::size_t control = without.contains(row.block) ? 0U : 1U;
        ASSERT_EQ(data.RowCount(row.block), control + 2) << row.block;
        if (control > 0) {
            const std::string rest(static_cast<std::size_t>(row.columns - 2), '|');
            EXPECT_EQ(RowText(data, row.block, 0), (row.block == 651 ? "自動計算(YES_NO)|YES-1" : "自動計算(YES_NO)|YES") + rest)
                << row.block;
        }
        EXPECT_THAT(RowText(data, row.block, control), StartsWith("a|b")) << row.block;
    }
}

TEST(ReaderTables, AControlRowOfTheFileIsKeptByItsFirstTwoCharacters)
{
    for (const char* word : {"自動", "自動計算", "自動計算(YES_NO)", "自動取得"}) {
        const CSbdData data = ReadOnly("[SEC_FLG_B_T_MAT]\n " + std::string(word) + " NO x\n a b\n");
        EXPECT_THAT(TableText(data, 332), ElementsAre(std::string(word) + "|NO|x", "a|b"));
    }
    EXPECT_EQ(ReadOnly("[SEC_FLG_B_T_MAT]\n 手動 NO\n").RowCount(332), 2U);
    EXPECT_EQ(ReadOnly("[SEC_FLG_B_T_MAT]\n x 自動 NO\n").RowCount(332), 2U) << "the first word counts";
}

TEST(ReaderTables, ASectionWithoutARowGetsNoControlRow)
{
    EXPECT_EQ(ReadOnly("[SEC_FLG_B_T_MAT]\n! comment\n\n[END]\n").RowCount(332), 0U);
}

TEST(ReaderTables, ASecondSectionAppendsAndLooksForItsOwnControlRow)
{
    const CSbdData data = ReadOnly("[SEC_S_STIFF]\n 自動計算 NO\n G1\n[END]\n[SEC_S_STIFF]\n G2\n[END]\n[SEC_S_STIFF]\n"
                                   " 自動計算 Y\n G3\n[END]\n");
    EXPECT_THAT(TableText(data, 314),
                ElementsAre("自動計算|NO", "G1", "自動計算(YES_NO)|YES", "G2", "自動計算|Y", "G3"));
}

TEST(ReaderTables, TheControlRowsOf306And335To338And662HaveValuesOfTheirOwn)
{
    const CSbdData data = ReadOnly("[SEC_LOAD_DEF]\n 死荷重 D1\n[END]\n[SEC_SLAB_COMPOSITE]\n G1\n[END]\n"
                                   "[SEC_SLAB_REINFORCING_BAR]\n G1\n[END]\n[SEC_SLAB_CREEP_ETC_FORCE]\n G1\n[END]\n"
                                   "[SEC_SLAB_AND_GIRDER]\n G1\n[END]\n[STRINGER_STUD]\n ST1\n[END]\n");
    EXPECT_EQ(TableText(data, 306)[0], "主荷重と比較する|YES");
    EXPECT_EQ(TableText(data, 335)[0], "自動計算|YES|自動|自動|自動");
    EXPECT_EQ(TableText(data, 336)[0], "自動計算|YES|16|19|200|100|100|100|40|40|19");
    EXPECT_EQ(TableText(data, 337)[0], "自動計算|YES|20|1|10|1|1");
    EXPECT_EQ(TableText(data, 338)[0], "自動計算|YES|0|0|0|0|0|0|断面優先");
    EXPECT_EQ(TableText(data, 662)[0], "自動|スラブ止め_RB_SS400|16|600|50|200|1000|250|100");
}

TEST(ReaderTables, TheStudRowOf662IsKnownByTwoWords)
{
    for (const char* word : {"自動", "手動", "手動入力"})
        EXPECT_EQ(ReadOnly("[STRINGER_STUD]\n " + std::string(word) + " a b\n").RowCount(662), 1U) << word;
}

TEST(ReaderTables, TheOldWordOf306BecomesItsCell)
{
    const CSbdData data = ReadOnly("[SEC_LOAD_DEF]\n YES_MAIN_LOAD NO\n 死荷重 D1 × 1\n YES_MAIN_LOADX 2\n");
    EXPECT_THAT(TableText(data, 306), ElementsAre("主荷重|NO", "死荷重|D1|×|1", "主荷重X|2"));
}

TEST(ReaderTables, EveryVersionLineOf315IsTheVersionWordAndTheLastOneHolds)
{
    const CSbdData data = ReadOnly("[SEC_H_STIFF]\n NEW_VERSION_1\n 自動計算 YES\n NEW_VERSION_2 x\n G1\n[END]\n[SEC_V_STIFF]\n"
                                   " NEW_VERSION_3\n[END]\n");
    EXPECT_EQ(data.versionWord, "NEW_VERSION_2 x");
    EXPECT_THAT(TableText(data, 315), ElementsAre("自動計算|YES", "G1"));
    EXPECT_THAT(TableText(data, 313), ElementsAre("自動計算(YES_NO)|YES", "NEW_VERSION_3")) << "in 315 alone";
}

TEST(ReaderTables, OldRowsOf331MoveToTheRight)
{
    const CSbdData data = ReadOnly("[SEC_WEB_T_MAT]\n 自動 1 2 3 4 5 6 14 内面 9\n 0 1 2 3 4 5 6 14 内面 9\n"
                                   " 0 1 2 3 4 5 6 14 外面 9\n 0 1 2 3 4 5 6 14 中心 9\n");
    EXPECT_THAT(TableText(data, 331), ElementsAre("自動|1|2|3|4|5|6|14|内面|9", "0|1|2|3|4|5|6||14|内面|9",
                                                  "0|1|2|3|4|5|6||14|外面|9", "0|1|2|3|4|5|6||14|中心|9"))
        << "row 0 stays";
}

TEST(ReaderTables, OtherRowsOf331Stay)
{
    const CSbdData data = ReadOnly("[SEC_WEB_T_MAT]\n 自動 1\n 0 1 2 3 4 5 6 14 内側 9\n 0 1 2 3 4 5 6 14 内面\n"
                                   " 0 1 2 3 4 5 6 a 内面 9 x\n");
    EXPECT_THAT(TableText(data, 331), ElementsAre("自動|1", "0|1|2|3|4|5|6|14|内側|9", "0|1|2|3|4|5|6|14|内面",
                                                  "0|1|2|3|4|5|6|a|内面|9|x"));
    const CSbdData other = ReadOnly("[SEC_FLG_B_T_MAT]\n 自動 1\n 0 1 2 3 4 5 6 14 内面 9\n");
    EXPECT_EQ(TableText(other, 332)[1], "0|1|2|3|4|5|6|14|内面|9") << "in 331 alone";
}

// --- head rows ---------------------------------------------------------------------------------

TEST(ReaderHeadRows, AreInsertedAheadOfTheFirstRow)
{
    const auto heads = [](const char* tag) {
        const CSbdData data = ReadOnly("[" + std::string(tag) + "]\n a b\n");
        for (const CatalogueRow& row : Catalogue())
            if (row.tag == tag)
                return TableText(data, row.block);
        return std::vector<std::string>();
    };
    EXPECT_THAT(heads("SEC_SPLICE_POINT"), ElementsAre("最大継手長|12", "入力方法|横桁と垂直補剛材より", "a|b"));
    EXPECT_THAT(heads("SEC_SECTION_POINT"), ElementsAre("最大断面長|12", "入力方法|横桁と垂直補剛材より", "a|b"));
    EXPECT_THAT(heads("CBD_GIRDER_H"), ElementsAre("自動計算(YES_NO)|YES", "上FLG厚を主桁高に含むか|YES",
                                                   "下FLG厚を主桁高に含むか|YES", "a|b"));
    EXPECT_THAT(heads("FBD_GIRDER_H"), ElementsAre("自動計算(YES_NO)|YES", "上FLG厚を主桁高に含むか|YES",
                                                   "下FLG厚を主桁高に含むか|YES", "a|b"));
    EXPECT_THAT(heads("STRINGER_DZ_ANGLE"), ElementsAre("自動計算(YES_NO)|YES", "横断差DZ_TYPE|下縁_横桁UFLG", "a|b"));
    EXPECT_THAT(heads("STRINGER_SECTION"), ElementsAre("自動計算(YES_NO)|YES_最大断面", "桁高HBHE上FLGタイプ|桁高に含まない",
                                                       "桁高HBHE下FLGタイプ|桁高に含まない", "a|b"));
    EXPECT_THAT(heads("BRACKET_DZ_ANGLE"), ElementsAre("自動計算(YES_NO)|YES", "DZ_TYPE_G|下縁_主桁UFLG",
                                                       "DZ_TYPE_S|下縁_側縦桁・ブラケットUFLG", "a|b"));
    EXPECT_THAT(heads("BRACKET_H_SECTION"), ElementsAre("自動計算(YES_NO)|YES_最大断面", "桁高HG上FLGタイプ|桁高に含まない",
                                                        "桁高HG下FLGタイプ|桁高に含まない", "a|b"));
}

TEST(ReaderHeadRows, ALineWithAHeadWordReplacesWordAndValueAnywhereInTheSection)
{
    const CSbdData data = ReadOnly("[CBD_GIRDER_H]\n 下FLG厚を主桁高に NO\n G1 A1\n 自動 Y dropped words\n G2 A1\n 自動計算\n");
    EXPECT_THAT(TableText(data, 511),
                ElementsAre("自動計算", "上FLG厚を主桁高に含むか|YES", "下FLG厚を主桁高に|NO", "G1|A1", "G2|A1"))
        << "the last line holds, an empty value too";
}

TEST(ReaderHeadRows, HeadWordsCountByTheirBeginning)
{
    const CSbdData data = ReadOnly("[STRINGER_SECTION]\n 桁高HBHE上側 含む\n 桁高HBHE下 含む\n 桁高HB x\n");
    EXPECT_THAT(TableText(data, 644), ElementsAre("自動計算(YES_NO)|YES_最大断面", "桁高HBHE上側|含む", "桁高HBHE下|含む", "桁高HB|x"));
}

TEST(ReaderHeadRows, OldWordsOf321And322Count)
{
    const CSbdData data = ReadOnly("[SEC_SPLICE_POINT]\n MAX_LENGTH_SPLICE 14\n INPUT_METHOD 継手長\n[END]\n[SEC_SECTION_POINT]\n"
                                   " MAX_LENGTH_S 15\n INPUT_METHODS x\n MAX_LENGTH y\n");
    EXPECT_THAT(TableText(data, 321), ElementsAre("MAX_LENGTH_SPLICE|14", "INPUT_METHOD|継手長"));
    EXPECT_THAT(TableText(data, 322), ElementsAre("MAX_LENGTH_S|15", "INPUT_METHODS|x", "MAX_LENGTH|y"))
        << "MAX_LENGTH alone is no head word";
}

TEST(ReaderHeadRows, In672EveryOtherDzTypeCountsForTheGirder)
{
    const CSbdData data = ReadOnly("[BRACKET_DZ_ANGLE]\n DZ_TYPE_S a\n DZ_TYPE b\n");
    EXPECT_THAT(TableText(data, 672), ElementsAre("自動計算(YES_NO)|YES", "DZ_TYPE|b", "DZ_TYPE_S|a"));
    const CSbdData other = ReadOnly("[BRACKET_DZ_ANGLE]\n DZ_TYPE_GX a\n DZ_TYPE_G b\n DZ_TYPE_SX c\n");
    EXPECT_THAT(TableText(other, 672),
                ElementsAre("自動計算(YES_NO)|YES", "DZ_TYPE_SX|c", "DZ_TYPE_S|下縁_側縦桁・ブラケットUFLG"));
}

TEST(ReaderHeadRows, ASecondSectionGetsHeadRowsOfItsOwn)
{
    const CSbdData data = ReadOnly("[STRINGER_DZ_ANGLE]\n 自動 NO\n ST1\n[END]\n[STRINGER_DZ_ANGLE]\n 横断差DZ x\n ST2\n[END]\n");
    EXPECT_THAT(TableText(data, 643), ElementsAre("自動|NO", "横断差DZ_TYPE|下縁_横桁UFLG", "ST1", "自動計算(YES_NO)|YES",
                                                  "横断差DZ|x", "ST2"));
}

TEST(ReaderHeadRows, FindsWholeKeysBeforeBeginnings)
{
    const std::span<const HeadRow> heads = HeadRowsOf(672);
    EXPECT_EQ(FindHeadRow(heads, "DZ_TYPE_S"), 2);
    EXPECT_EQ(FindHeadRow(heads, "DZ_TYPE_G"), 1);
    EXPECT_EQ(FindHeadRow(heads, "DZ_TYPE"), 1);
    EXPECT_EQ(FindHeadRow(heads, "自動計算(YES_NO)"_cp932), 0);
    EXPECT_EQ(FindHeadRow(heads, "DZ_TYP"), -1);
    EXPECT_EQ(FindHeadRow(HeadRowsOf(313), "自動"_cp932), -1);
}

// --- rules as tables ---------------------------------------------------------------------------

TEST(ReaderRules, ABlockHasAControlRowOrHeadRowsNeverBoth)
{
    int controls = 0;
    std::vector<int> heads;
    for (const CatalogueRow& row : Catalogue()) {
        const ControlRowRule* control = ControlRowOf(row.block);
        const bool head = !HeadRowsOf(row.block).empty();
        EXPECT_FALSE(control && head) << row.block;
        controls += control ? 1 : 0;
        if (head)
            heads.push_back(row.block);
        if (control) {
            EXPECT_LE(control->cells.size(), static_cast<std::size_t>(row.columns)) << row.block;
            EXPECT_TRUE(std::ranges::any_of(control->words, [&](const std::string& word) {
                return control->cells[0].starts_with(word);
            })) << row.block << ": the row that is put in is known again";
        }
        for (const HeadRow& rule : HeadRowsOf(row.block))
            EXPECT_EQ(FindHeadRow(HeadRowsOf(row.block), rule.word), &rule - HeadRowsOf(row.block).data()) << row.block;
    }
    EXPECT_THAT(heads, ElementsAre(321, 322, 511, 611, 643, 644, 672, 674));
    EXPECT_EQ(controls, 181 - 23 + 6);
}

// --- what is passed over -----------------------------------------------------------------------

TEST(ReaderNotes, TellEveryLineThatIsPassedOverWithItsPlace)
{
    std::vector<ReadNote> notes;
    ReadBytes(FileOf("TITLE:A\nstray\n[SEC_CONTROL]\n! comment\n UNKNOWN x y\n RESET_RESULTS x\n RESET_RESULTS x NO\n[END]\n"
                     "[CBD_GIRDER_H]\n 自動 NO more words\n G1\n[END]\n[X]\n kept\n[END]\n[END\n"),
              &notes);
    EXPECT_EQ(Reasons(notes), "0/2/0/stray\n1/5/301/UNKNOWN x y\n2/6/301/RESET_RESULTS x\n3/10/511/more words\n0/16/0/[END\n");
}

TEST(ReaderNotes, AFileOfTheWritersOwnHasNone)
{
    CSbdData data = Load("TITLE:A\n[SEC_GROUP]\n G1 G2\n[END]\n[X]\n a\n[END]\n");
    data.SetOption(302, 0, "x"); // an empty one would be told
    std::vector<ReadNote> notes;
    ReadBytes(WriteProject(data), &notes);
    EXPECT_EQ(Reasons(notes), "");
}

} // namespace sbd
