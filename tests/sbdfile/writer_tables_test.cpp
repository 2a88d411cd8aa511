#include "project/catalogue.h"
#include "sbdfile/layout.h"
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

std::string HeaderStart(int block)
{
    return "[" + std::string(FindBlock(block)->tag) + "]";
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
        EXPECT_THAT(RowsOfTable(block, {{"G1", "A1"}}), ElementsAre("  G1        A1       " + std::string(89, ' ')))
            << block;
    for (const int block : {391, 392, 393, 394, 395, 396})
        EXPECT_THAT(RowsOfTable(block, {{"G1", "A1"}}), ElementsAre("  G1        A1       " + std::string(45, ' ')))
            << block;
    EXPECT_THAT(RowsOfTable(352, {{"G1"}}), ElementsAre("       G1" + std::string(60, ' ')));
}

TEST(WriterTables, ARowOfEmptyCellsIsAnEmptyLine)
{
    EXPECT_THAT(RowsOfTable(304, {{""}}), ElementsAre(""));
}

TEST(WriterTables, TheShorterFormatServesOnlyRowsWhoseOptionalColumnsAreAllEmpty)
{
    EXPECT_THAT(
        RowsOfTable(502, {{"自動", "NO"}, {"G1", "L", "R"}, {"G1", "L", "R", "LL"}, {"G1", "L", "R", "", "RR"}}),
        ElementsAre("  自動      NO", "  G1        L         R", "  G1        L         R         LL",
                    "  G1        L         R                   RR"));
    EXPECT_THAT(RowsOfTable(707, {{"自動", "NO"},
                                  {"S", "G", "1", "2"},
                                  {"S", "G", "1", "2", "3"},
                                  {"S", "G", "1", "2", "", "4"},
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
        EXPECT_EQ(comment(321, others),
                  "! 継手名    I左右両    主桁始    主桁終   左側横桁名   VSTIFF番号     間隔   [継手TYPE]")
            << others;
        EXPECT_EQ(comment(322, others), "! 断面名    I左右両    主桁始    主桁終   左側横桁名   VSTIFF番号     間隔")
            << others;
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
    for (int row = 0; row < 2; ++row)
        data.Table(315)->AppendRow({"x", "x"});
    EXPECT_EQ(SectionOf(WriteProject(data), "[SEC_H_STIFF]").at(2), "NEW_VERSION_20051205");
    data.versionWord = "OLD_VERSION_1";
    EXPECT_EQ(SectionOf(WriteProject(data), "[SEC_H_STIFF]").size(), 5U) << "no other word is written";
}

TEST(WriterTables, UnknownLinesGoOutAsTheyAre)
{
    CSbdData data;
    data.unknownLines = {"", "  [not checked", "\x85\xFF\t"};
    const std::vector<std::string> lines = LinesOf(WriteProject(data));
    EXPECT_THAT(std::vector<std::string>(lines.end() - 3, lines.end()),
                ElementsAre("", "  [not checked", "\\x85\\xff\t"));
}

} // namespace sbd
