#include "project/catalogue.h"
#include "project/option_rows.h"
#include "sbdfile/layout.h"
#include "tests/sbdfile/sections.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <vector>

namespace sbd {

namespace {

using testing::ElementsAre;
using testing::Pair;

struct Place {
    int block;
    int leastRows; ///< 0: always written; option blocks always are
};

// clang-format off
constexpr Place kOrder[] = {
    {301, 0}, {302, 0}, {303, 0}, {304, 1}, {305, 1}, {306, 2}, {307, 1}, {308, 0}, {309, 0}, {310, 0}, {311, 1},
    {312, 1}, {313, 2}, {314, 2}, {315, 2}, {316, 2}, {321, 2}, {322, 2}, {323, 1}, {324, 1}, {325, 1}, {326, 2},
    {327, 2}, {328, 2}, {329, 1}, {331, 2}, {332, 2}, {333, 2}, {334, 2}, {335, 1}, {336, 1}, {337, 1}, {338, 1},
    {339, 1}, {340, 1}, {341, 2}, {342, 2}, {343, 2}, {344, 2}, {351, 1}, {352, 1}, {353, 1}, {354, 1}, {359, 2},
    {259, 1}, {291, 0}, {292, 0}, {293, 0}, {294, 0}, {295, 0}, {296, 0}, {391, 0}, {392, 0}, {393, 0}, {394, 0},
    {395, 0}, {396, 0}, {401, 0}, {402, 1}, {403, 1}, {404, 1}, {405, 1}, {407, 1}, {408, 2}, {409, 2}, {412, 2},
    {413, 2}, {421, 0}, {422, 1}, {423, 2}, {481, 2}, {482, 2}, {483, 2}, {484, 2}, {485, 2}, {486, 2}, {501, 0},
    {502, 2}, {503, 2}, {504, 2}, {505, 2}, {506, 2}, {507, 2}, {511, 2}, {512, 2}, {513, 2}, {514, 2}, {515, 2},
    {516, 2}, {517, 2}, {521, 0}, {522, 0}, {523, 2}, {524, 2}, {531, 0}, {532, 2}, {533, 2}, {534, 2}, {535, 2},
    {541, 0}, {542, 2}, {543, 2}, {551, 2}, {552, 2}, {553, 2}, {554, 2}, {555, 2}, {556, 2}, {557, 2}, {558, 2},
    {559, 2}, {560, 2}, {561, 2}, {562, 2}, {563, 2}, {564, 2}, {565, 2}, {566, 2}, {571, 0}, {572, 2}, {573, 0},
    {574, 2}, {575, 2}, {576, 2}, {577, 2}, {578, 2}, {579, 2}, {581, 2}, {582, 2}, {583, 2}, {601, 0}, {602, 2},
    {603, 2}, {604, 2}, {605, 2}, {606, 2}, {607, 2}, {608, 2}, {609, 2}, {610, 2}, {611, 2}, {612, 2}, {613, 2},
    {621, 2}, {622, 2}, {623, 2}, {624, 2}, {625, 2}, {631, 2}, {632, 2}, {633, 2}, {640, 0}, {641, 2}, {642, 2},
    {643, 2}, {644, 2}, {645, 2}, {646, 2}, {647, 2}, {648, 2}, {649, 2}, {651, 2}, {652, 2}, {653, 2}, {654, 2},
    {655, 2}, {656, 2}, {657, 2}, {658, 2}, {659, 2}, {660, 2}, {661, 2}, {662, 2}, {665, 2}, {666, 2}, {668, 2},
    {669, 2}, {670, 0}, {671, 2}, {672, 2}, {673, 2}, {674, 2}, {675, 2}, {676, 2}, {677, 2}, {678, 2}, {679, 2},
    {680, 2}, {681, 2}, {682, 2}, {683, 2}, {689, 2}, {701, 0}, {702, 1}, {703, 2}, {704, 2}, {705, 2}, {706, 2},
    {707, 2}, {708, 2}, {711, 2}, {713, 2}, {721, 0}, {723, 2}, {724, 2}, {725, 2}, {726, 2}, {731, 2}, {734, 2},
    {735, 2}, {741, 2}, {742, 2}, {743, 2}, {744, 2}, {745, 2}, {746, 2}, {747, 2}, {751, 2}, {752, 2}, {801, 0},
};
// clang-format on

std::vector<std::size_t> FieldCounts(const SectionLayout& layout)
{
    std::vector<std::size_t> counts;
    for (const RowFormat& format : layout.formats)
        counts.push_back(format.fields.size());
    return counts;
}

bool IsWholeText(const std::string& text)
{
    return FromCp932(text).find("\\x") == std::string::npos;
}

} // namespace

TEST(SectionOrder, IsThatOfTheFile)
{
    std::vector<int> expected;
    for (const Place& place : kOrder)
        expected.push_back(place.block);
    std::vector<int> order; // a block that is newer than this list stands by its number
    std::ranges::copy_if(SectionOrder(), std::back_inserter(order),
                         [&](int block) { return std::ranges::count(expected, block) > 0; });
    EXPECT_EQ(order, expected);
}

TEST(SectionOrder, HoldsEveryBlockWithASectionOnce)
{
    std::set<int> blocks(SectionOrder().begin(), SectionOrder().end());
    EXPECT_EQ(blocks.size(), SectionOrder().size());
    for (const CatalogueRow& row : Catalogue())
        EXPECT_EQ(blocks.contains(row.block), row.kind != BlockKind::None) << row.block;
}

TEST(SectionOrder, TheForcesStandBehind359AndAheadOf401)
{
    const std::vector<int> order(SectionOrder().begin(), SectionOrder().end());
    const auto at = std::ranges::find(order, 359);
    EXPECT_THAT(std::vector<int>(at, at + 15),
                ElementsAre(359, 259, 291, 292, 293, 294, 295, 296, 391, 392, 393, 394, 395, 396, 401));
}

TEST(SectionLayouts, AreOneForEachTableBlock)
{
    std::size_t tables = 0;
    for (const CatalogueRow& row : Catalogue()) {
        const bool table = row.kind == BlockKind::Table || row.kind == BlockKind::OwnTable;
        const SectionLayout* layout = FindSectionLayout(row.block);
        tables += table ? 1 : 0;
        ASSERT_EQ(layout != nullptr, table) << row.block << (table ? " has no layout in the file" : " is no table");
        EXPECT_TRUE(layout == nullptr || layout->block == row.block) << row.block;
    }
    EXPECT_EQ(SectionLayouts().size(), tables);
    EXPECT_EQ(FindSectionLayout(300), nullptr);
    EXPECT_EQ(FindSectionLayout(301), nullptr);
}

TEST(SectionLayouts, EachIsWrittenFromItsLeastNumberOfRowsOn)
{
    for (const Place& place : kOrder) {
        const SectionLayout* layout = FindSectionLayout(place.block);
        if (layout == nullptr)
            continue;
        EXPECT_EQ(layout->leastRows, place.leastRows) << place.block;
    }
}

TEST(SectionLayouts, HeaderBeginsWithTheTagAndEndLineWithItsMark)
{
    for (const SectionLayout& layout : SectionLayouts()) {
        EXPECT_TRUE(layout.header.starts_with("[" + std::string(FindBlock(layout.block)->tag) + "]")) << layout.block;
        EXPECT_TRUE(layout.end.starts_with("[E")) << layout.block;
        for (const std::string& comment : layout.comments)
            EXPECT_TRUE(TrimLeft(comment).starts_with('!')) << layout.block;
        for (const std::string& comment : layout.rowComments)
            EXPECT_TRUE(TrimLeft(comment).starts_with('!')) << layout.block;
    }
}

TEST(SectionLayouts, EveryTextIsWholeCharacters)
{
    for (const SectionLayout& layout : SectionLayouts()) {
        EXPECT_TRUE(IsWholeText(layout.header) && IsWholeText(layout.end)) << layout.block;
        for (const std::vector<std::string>* comments : {&layout.comments, &layout.rowComments})
            for (const std::string& comment : *comments)
                EXPECT_TRUE(IsWholeText(comment)) << layout.block << " " << FromCp932(comment);
    }
}

TEST(SectionLayouts, EndLinesKeepTheirOddSpellings)
{
    EXPECT_EQ(FindSectionLayout(407)->end, Cp932("[END_DRAW_HAND_HOLE] 入力行数制限なし"));
    EXPECT_TRUE(FindSectionLayout(392)->end.starts_with("[END_SPL_SF_MY]"));
    EXPECT_TRUE(FindSectionLayout(329)->end.starts_with("[END_SEC_IMAGINATION]"));
    EXPECT_EQ(FindSectionLayout(336)->end, Cp932("[END SEC_SLAB_REINFOCING_BAR]\t336.合成桁床版の配力鉄筋"));
    EXPECT_EQ(FindSectionLayout(422)->end, "[END DRAW_END_WEB_CUT] ");
    EXPECT_TRUE(FindSectionLayout(325)->end.starts_with("[END_SEC_NUMBER_L_RIB 325")) << "no bracket at all";
}

TEST(SectionLayouts, OnlyForcesRecordsAnd352KeepTheirTrailingBlanks)
{
    std::vector<int> kept;
    for (const SectionLayout& layout : SectionLayouts())
        if (!layout.cutTrailingBlanks)
            kept.push_back(layout.block);
    std::ranges::sort(kept);
    EXPECT_THAT(kept, ElementsAre(291, 292, 293, 294, 295, 296, 311, 324, 325, 352, 391, 392, 393, 394, 395, 396));
}

TEST(SectionLayouts, FiveBlocksWriteTheirRowsThemselves)
{
    std::vector<int> blocks;
    for (const SectionLayout& layout : SectionLayouts()) {
        EXPECT_EQ(layout.rule == RowRule::RecordsOfTheirOwn, layout.formats.empty()) << layout.block;
        if (layout.formats.empty())
            blocks.push_back(layout.block);
    }
    EXPECT_THAT(blocks, ElementsAre(311, 324, 325, 501, 702));
}

TEST(SectionLayouts, TheLongestFormatHasAFieldForEveryColumnButIn659)
{
    std::map<int, std::pair<std::size_t, int>> exceptions;
    for (const SectionLayout& layout : SectionLayouts()) {
        const int columns = FindBlock(layout.block)->columns;
        if (!layout.formats.empty() && static_cast<int>(layout.formats.back().fields.size()) != columns)
            exceptions[layout.block] = {layout.formats.back().fields.size(), columns};
    }
    EXPECT_THAT(exceptions, ElementsAre(Pair(659, Pair(14U, 16))));
}

TEST(SectionLayouts, ThirteenBlocksHaveSeveralFormatsTheShortestFirst)
{
    std::map<int, std::vector<std::size_t>> several;
    for (const SectionLayout& layout : SectionLayouts())
        if (layout.formats.size() > 1)
            several[layout.block] = FieldCounts(layout);
    EXPECT_THAT(several,
                ElementsAre(Pair(402, ElementsAre(10, 12)), Pair(403, ElementsAre(9, 14)), Pair(412, ElementsAre(1, 1)),
                            Pair(502, ElementsAre(3, 5)), Pair(504, ElementsAre(5, 7)), Pair(506, ElementsAre(9, 10)),
                            Pair(507, ElementsAre(6, 8)), Pair(662, ElementsAre(10, 11)), Pair(673, ElementsAre(9, 18)),
                            Pair(674, ElementsAre(11, 13)), Pair(681, ElementsAre(11, 12)),
                            Pair(707, ElementsAre(4, 5, 6, 7)), Pair(713, ElementsAre(14, 15))));
}

TEST(SectionLayouts, RowsApartAndCommentsBehindRow0BelongToTheirBlocks)
{
    std::map<RowRule, std::vector<int>> blocks;
    for (const SectionLayout& layout : SectionLayouts()) {
        if (layout.rule != RowRule::ShortestThatHolds && layout.rule != RowRule::RecordsOfTheirOwn)
            blocks[layout.rule].push_back(layout.block);
        const bool apart = layout.rule == RowRule::FirstRowApart || layout.rule == RowRule::ControlRowFirst;
        EXPECT_TRUE(apart || layout.rowComments.empty()) << layout.block;
    }
    EXPECT_THAT(blocks[RowRule::FirstRowApart], ElementsAre(402, 403, 412, 662));
    EXPECT_THAT(blocks[RowRule::ControlRowFirst], ElementsAre(335, 336, 337, 338));
    EXPECT_THAT(blocks[RowRule::CommentByInputMethod], ElementsAre(321, 322));
}

TEST(SectionLayouts, SeveralCommentsStandAheadOfTheRowsInTheseBlocks)
{
    std::vector<int> blocks;
    for (const SectionLayout& layout : SectionLayouts())
        if (layout.rule == RowRule::ShortestThatHolds && layout.comments.size() > 1)
            blocks.push_back(layout.block);
    std::ranges::sort(blocks);
    EXPECT_THAT(blocks, ElementsAre(307, 312, 339, 340, 507, 512, 552, 558, 565, 575, 576, 579, 583, 602, 603, 642, 645,
                                    652, 658, 707, 711, 713, 723, 745));
}

TEST(SectionLayouts, AFormatIsCutIntoTextWidthAndSide)
{
    // 404: "  %-8s %-10s %14s %16s   %-20s %-20s %-20s %-1s"
    const RowFormat& format = FindSectionLayout(404)->formats[0];
    ASSERT_EQ(format.fields.size(), 8U);
    EXPECT_EQ(format.fields[0].before, "  ");
    EXPECT_EQ(format.fields[0].width, 8U);
    EXPECT_TRUE(format.fields[0].left);
    EXPECT_EQ(format.fields[3].before, " ");
    EXPECT_EQ(format.fields[3].width, 16U);
    EXPECT_FALSE(format.fields[3].left);
    EXPECT_EQ(format.fields[4].before, "   ");
    EXPECT_EQ(format.fields[7].width, 1U);
    EXPECT_EQ(format.behind, "");
    EXPECT_EQ(FindSectionLayout(673)->formats[0].behind, " ") << "text behind the last field";
}

TEST(SectionLayouts, EveryFormatDividesItsFields)
{
    for (const SectionLayout& layout : SectionLayouts()) {
        for (const RowFormat& format : layout.formats) {
            for (std::size_t i = 0; i < format.fields.size(); ++i) {
                EXPECT_TRUE(i == 0 || format.fields[i].before.starts_with(' ')) << layout.block << " field " << i;
                EXPECT_GE(format.fields[i].width, 1U) << layout.block << " field " << i;
            }
        }
    }
}

} // namespace sbd
