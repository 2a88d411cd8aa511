#include "project/block_rules.h"
#include "project/catalogue.h"
#include "sbdfile/layout.h"
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
using testing::StartsWith;

CSbdData ReadBytes(std::string_view bytes)
{
    CSbdData data;
    ReadSections(bytes, data);
    return data;
}

} // namespace

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
            EXPECT_EQ(RowText(data, row.block, 0),
                      (row.block == 651 ? "自動計算(YES_NO)|YES-1" : "自動計算(YES_NO)|YES") + rest)
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
    const CSbdData data =
        ReadOnly("[SEC_H_STIFF]\n NEW_VERSION_1\n 自動計算 YES\n NEW_VERSION_2 x\n G1\n[END]\n[SEC_V_STIFF]\n"
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
    EXPECT_THAT(TableText(data, 331),
                ElementsAre("自動|1", "0|1|2|3|4|5|6|14|内側|9", "0|1|2|3|4|5|6|14|内面", "0|1|2|3|4|5|6|a|内面|9|x"));
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
    EXPECT_THAT(heads("STRINGER_SECTION"),
                ElementsAre("自動計算(YES_NO)|YES_最大断面", "桁高HBHE上FLGタイプ|桁高に含まない",
                            "桁高HBHE下FLGタイプ|桁高に含まない", "a|b"));
    EXPECT_THAT(heads("BRACKET_DZ_ANGLE"), ElementsAre("自動計算(YES_NO)|YES", "DZ_TYPE_G|下縁_主桁UFLG",
                                                       "DZ_TYPE_S|下縁_側縦桁・ブラケットUFLG", "a|b"));
    EXPECT_THAT(heads("BRACKET_H_SECTION"),
                ElementsAre("自動計算(YES_NO)|YES_最大断面", "桁高HG上FLGタイプ|桁高に含まない",
                            "桁高HG下FLGタイプ|桁高に含まない", "a|b"));
}

TEST(ReaderHeadRows, ALineWithAHeadWordReplacesWordAndValueAnywhereInTheSection)
{
    const CSbdData data =
        ReadOnly("[CBD_GIRDER_H]\n 下FLG厚を主桁高に NO\n G1 A1\n 自動 Y dropped words\n G2 A1\n 自動計算\n");
    EXPECT_THAT(TableText(data, 511),
                ElementsAre("自動計算", "上FLG厚を主桁高に含むか|YES", "下FLG厚を主桁高に|NO", "G1|A1", "G2|A1"))
        << "the last line holds, an empty value too";
}

TEST(ReaderHeadRows, HeadWordsCountByTheirBeginning)
{
    const CSbdData data = ReadOnly("[STRINGER_SECTION]\n 桁高HBHE上側 含む\n 桁高HBHE下 含む\n 桁高HB x\n");
    EXPECT_THAT(TableText(data, 644),
                ElementsAre("自動計算(YES_NO)|YES_最大断面", "桁高HBHE上側|含む", "桁高HBHE下|含む", "桁高HB|x"));
}

TEST(ReaderHeadRows, OldWordsOf321And322Count)
{
    const CSbdData data =
        ReadOnly("[SEC_SPLICE_POINT]\n MAX_LENGTH_SPLICE 14\n INPUT_METHOD 継手長\n[END]\n[SEC_SECTION_POINT]\n"
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
    const CSbdData data =
        ReadOnly("[STRINGER_DZ_ANGLE]\n 自動 NO\n ST1\n[END]\n[STRINGER_DZ_ANGLE]\n 横断差DZ x\n ST2\n[END]\n");
    EXPECT_THAT(TableText(data, 643), ElementsAre("自動|NO", "横断差DZ_TYPE|下縁_横桁UFLG", "ST1",
                                                  "自動計算(YES_NO)|YES", "横断差DZ|x", "ST2"));
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
    std::vector<int> heads;
    for (const CatalogueRow& row : Catalogue()) {
        const ControlRowRule* control = ControlRowOf(row.block);
        const bool head = !HeadRowsOf(row.block).empty();
        EXPECT_FALSE(control != nullptr && head) << row.block;
        if (head)
            heads.push_back(row.block);
        if (control != nullptr) {
            EXPECT_LE(control->cells.size(), static_cast<std::size_t>(row.columns)) << row.block;
            EXPECT_TRUE(std::ranges::any_of(
                control->words, [&](const std::string& word) { return control->cells[0].starts_with(word); }))
                << row.block << ": the row that is put in is known again";
        }
        for (const HeadRow& rule : HeadRowsOf(row.block))
            EXPECT_EQ(FindHeadRow(HeadRowsOf(row.block), rule.word), &rule - HeadRowsOf(row.block).data()) << row.block;
    }
    EXPECT_THAT(heads, ElementsAre(321, 322, 511, 611, 643, 644, 672, 674));
}

} // namespace sbd
