#include "project/option_rows.h"
#include "sbdfile/reader.h"
#include "tests/sbdfile/sections.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace sbd {

namespace {

using testing::ElementsAre;

CSbdData ReadBytes(std::string_view bytes)
{
    CSbdData data;
    ReadSections(bytes, data);
    return data;
}

/// Option blocks whose values are others than those of a new document.
std::vector<int> ChangedBlocks(const CSbdData& data)
{
    const CSbdData fresh;
    std::vector<int> blocks;
    for (const OptionBlock& block : OptionBlocks())
        if (*data.Options(block.block) != *fresh.Options(block.block))
            blocks.push_back(block.block);
    return blocks;
}

} // namespace

TEST(ReaderOptions, EachOfThe601KeywordsSetsItsOwnRowAlone)
{
    for (const OptionBlock& block : OptionBlocks()) {
        for (std::size_t row = 0; row < block.rows.size(); ++row) {
            const std::string line = "  " + block.rows[row].keyword + " "
                                     + (block.shape == OptionShape::KeywordLabelValue ? block.rows[row].label : "")
                                     + " a value\r\n";
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
            EXPECT_THAT(ChangedBlocks(data), ElementsAre(block.block)) << FromCp932(row.shortKey);
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
    const CSbdData data =
        ReadOnly("[SEC_CONTROL]\n!RESET_RESULTS x 1\n\n RESET_RESULTS x 2\n RESET_RESULTS x 3\n[END]\n"
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

} // namespace sbd
