#include "project/catalogue.h"
#include "project/option_rows.h"
#include "project/text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace sbd {

namespace {

using testing::ElementsAre;
using testing::Pair;

/// Blanks at its end do no harm: the line is padded there.
bool IsOneWord(std::string_view text)
{
    const std::string shown = FromCp932(CutTrailingBlanks(text));
    for (const char* divider : {" ", "\t", "　", "，", "、"})
        if (shown.find(divider) != std::string::npos)
            return false;
    return !text.empty();
}

/// The rows that take the value of a line which begins with `word`.
std::vector<std::size_t> RowsOf(const OptionBlock& block, const std::string& word)
{
    std::vector<std::size_t> rows;
    std::size_t longest = 0;
    for (std::size_t row = 0; row < block.rows.size(); ++row) {
        const std::string& key = block.rows[row].shortKey;
        if (!word.starts_with(key))
            continue;
        if (block.block <= 303)
            return {row};
        if (key.size() > longest)
            rows.clear();
        longest = std::max(longest, key.size());
        if (key.size() == longest)
            rows.push_back(row);
    }
    return rows;
}

} // namespace

TEST(OptionRows, NineteenBlocksHaveTheirNumbersOfRows)
{
    std::map<int, std::size_t> counts;
    for (const OptionBlock& block : OptionBlocks())
        counts[block.block] = block.rows.size();
    EXPECT_THAT(counts, ElementsAre(Pair(301, 36), Pair(302, 37), Pair(303, 32), Pair(308, 10), Pair(309, 57),
                                    Pair(310, 7), Pair(401, 47), Pair(421, 9), Pair(521, 35), Pair(522, 21),
                                    Pair(531, 41), Pair(541, 17), Pair(571, 23), Pair(601, 39), Pair(640, 55),
                                    Pair(670, 48), Pair(701, 34), Pair(721, 37), Pair(801, 16)));
    std::size_t sum = 0;
    for (const auto& [block, rows] : counts)
        sum += rows;
    EXPECT_EQ(sum, 601U);
}

TEST(OptionRows, TheBlocksAreThoseOfTheCatalogue)
{
    std::vector<int> catalogue;
    for (const CatalogueRow& row : Catalogue())
        if (row.kind == BlockKind::Option)
            catalogue.push_back(row.block);
    std::vector<int> blocks;
    for (const OptionBlock& block : OptionBlocks())
        blocks.push_back(block.block);
    EXPECT_EQ(blocks, catalogue);
}

TEST(OptionRows, ABlockIsFoundByItsNumberAndNothingByAnother)
{
    for (std::size_t i = 0; i < OptionBlocks().size(); ++i) {
        const int block = OptionBlocks()[i].block;
        EXPECT_EQ(OptionBlockIndex(block), static_cast<int>(i));
        EXPECT_EQ(FindOptionBlock(block), &OptionBlocks()[i]);
    }
    for (const int block : {0, 300, 304, 311, 999}) {
        EXPECT_EQ(OptionBlockIndex(block), -1);
        EXPECT_EQ(FindOptionBlock(block), nullptr);
    }
}

TEST(OptionRows, TenBlocksHaveALabelInTheFileAndNineHaveNone)
{
    for (const OptionBlock& block : OptionBlocks()) {
        const std::set<int> withLabel = {301, 302, 303, 308, 309, 310, 401, 421, 640, 670};
        const bool label = withLabel.contains(block.block);
        EXPECT_EQ(block.shape == OptionShape::KeywordLabelValue, label) << block.block;
        EXPECT_EQ(block.labelWidth > 0, label) << block.block;
        for (const OptionRow& row : block.rows)
            EXPECT_EQ(!row.label.empty(), label) << block.block << " " << FromCp932(row.keyword);
    }
}

TEST(OptionRows, WidthsAreThoseOfTheirFamily)
{
    for (const OptionBlock& block : OptionBlocks()) {
        const bool label = block.shape == OptionShape::KeywordLabelValue;
        EXPECT_EQ(block.keywordWidth, label ? 36 : 64) << block.block;
        EXPECT_EQ(block.labelWidth, !label ? 0 : block.block < 400 ? 57 : 70) << block.block;
        EXPECT_EQ(block.valueWidth, !label ? 25 : block.block == 301 ? 2 : 1) << block.block;
    }
}

TEST(OptionRows, CommentsNameTheColumns)
{
    const auto ends = [](int block, std::string_view word) {
        return FromCp932(FindOptionBlock(block)->comment).ends_with(word);
    };
    for (const int block : {301, 302, 308, 309, 401, 421, 640, 670})
        EXPECT_TRUE(ends(block, " 入力データ")) << block;
    EXPECT_TRUE(ends(303, " OPTION"));
    EXPECT_TRUE(ends(310, " VALUE"));
    for (const int block : {521, 522, 531, 541, 571, 601, 701, 721, 801})
        EXPECT_TRUE(ends(block, " データ")) << block;
    for (const OptionBlock& block : OptionBlocks())
        EXPECT_TRUE(block.comment.starts_with('!')) << block.block;
}

TEST(OptionRows, HeaderOpensItsBlockAndEndLineEndsIt)
{
    for (const OptionBlock& block : OptionBlocks()) {
        const CatalogueRow& row = *FindBlock(block.block);
        EXPECT_TRUE(block.header.starts_with("[" + std::string(row.tag) + "]")) << block.block;
        EXPECT_TRUE(block.end.starts_with("[E")) << block.block;
    }
}

TEST(OptionRows, EndLinesKeepTheirOddSpellings)
{
    EXPECT_EQ(FindOptionBlock(310)->end, "[END SEC_STANDARD]]") << "two brackets";
    EXPECT_EQ(FindOptionBlock(541)->end, "[END CBD_L_LATERAL_COMMON]") << "the name of another block";
}

TEST(OptionRows, KeywordsAreUniqueInTheirBlock)
{
    for (const OptionBlock& block : OptionBlocks()) {
        std::set<std::string> keywords;
        for (const OptionRow& row : block.rows)
            EXPECT_TRUE(keywords.insert(row.keyword).second) << block.block << " " << FromCp932(row.keyword);
    }
}

TEST(OptionRows, KeywordAndLabelAreOneWordEachSoThatTheReaderFindsTheValue)
{
    for (const OptionBlock& block : OptionBlocks()) {
        for (const OptionRow& row : block.rows) {
            EXPECT_TRUE(IsOneWord(row.keyword)) << block.block << " " << FromCp932(row.keyword);
            EXPECT_TRUE(row.label.empty() || IsOneWord(row.label)) << block.block << " " << FromCp932(row.label);
        }
    }
}

TEST(OptionRows, TheShortKeyBeginsTheKeyword)
{
    for (const OptionBlock& block : OptionBlocks())
        for (const OptionRow& row : block.rows)
            EXPECT_TRUE(!row.shortKey.empty() && row.keyword.starts_with(row.shortKey))
                << block.block << " " << FromCp932(row.keyword) << " " << FromCp932(row.shortKey);
}

TEST(OptionRows, EveryKeywordLeadsToItsOwnRowAlone)
{
    for (const OptionBlock& block : OptionBlocks())
        for (std::size_t row = 0; row < block.rows.size(); ++row)
            EXPECT_THAT(RowsOf(block, block.rows[row].keyword), ElementsAre(row))
                << block.block << " " << FromCp932(block.rows[row].keyword);
}

TEST(OptionRows, EveryTextIsWholeCharacters)
{
    for (const OptionBlock& block : OptionBlocks())
        for (const OptionRow& row : block.rows)
            for (const std::string* text :
                 {&row.keyword, &row.shortKey, &row.defaultValue, &row.label, &row.panelLabel})
                EXPECT_EQ(FromCp932(*text).find("\\x"), std::string::npos) << block.block << " " << FromCp932(*text);
}

TEST(OptionRows, EveryDefaultStandsInItsFileAsItIs)
{
    for (const OptionBlock& block : OptionBlocks())
        for (const OptionRow& row : block.rows)
            EXPECT_EQ(row.defaultValue, Trim(row.defaultValue)) << block.block << " " << FromCp932(row.keyword);
}

TEST(OptionRows, EveryRowHasALabelForThePanel)
{
    for (const OptionBlock& block : OptionBlocks())
        for (const OptionRow& row : block.rows)
            EXPECT_FALSE(row.panelLabel.empty()) << block.block << " " << FromCp932(row.keyword);
}

TEST(OptionRows, TheTitleIsRow0Of301)
{
    const OptionRow& title = FindOptionBlock(301)->rows[0];
    EXPECT_EQ(title.keyword, "TITLE");
    EXPECT_EQ(title.defaultValue, "SBD1");
    EXPECT_EQ(FindOptionBlock(301)->rows[2].keyword, "KELD_analysis_used");
}

TEST(OptionRows, RowsThatFollowARowOfAnotherBlockHaveItsDefault)
{
    const auto value = [](int block, std::size_t row) { return FindOptionBlock(block)->rows[row].defaultValue; };
    EXPECT_EQ(value(301, 29), value(521, 2));
    EXPECT_EQ(value(301, 30), value(521, 3));
    EXPECT_EQ(value(301, 16), value(521, 4));
    EXPECT_EQ(value(301, 16), value(721, 9));
    EXPECT_EQ(value(301, 16), value(701, 16));
    EXPECT_EQ(value(302, 34), value(521, 33));
    EXPECT_EQ(value(303, 30), value(521, 34));
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_EQ(value(701, 9 + i), value(721, 4 + i)) << i;
}

} // namespace sbd
