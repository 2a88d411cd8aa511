#include "project/catalogue.h"
#include "project/option_rows.h"
#include "sbdfile/layout.h"
#include "sbdfile/reader.h"
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

} // namespace

// --- the file ----------------------------------------------------------------------------------

TEST(Writer, ANewDocumentHoldsOptionsForcesNamesAndTheLateralPositionsAlone)
{
    CSbdData data;
    std::vector<int> expected;
    for (const int block : SectionOrder())
        if (FindOptionBlock(block) != nullptr || FindSectionLayout(block)->leastRows == 0)
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
        EXPECT_EQ(lines[line], FromCp932(options != nullptr ? options->header : FindSectionLayout(block)->header));
        while (line < lines.size() && !lines[line].starts_with("[E"))
            ++line;
        ASSERT_LT(line + 1, lines.size());
        EXPECT_EQ(lines[line], FromCp932(options != nullptr ? options->end : FindSectionLayout(block)->end));
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
    const char* const text = "[SEC_V_STIFF]\n G1 G2\n[END]\n[CBD_GRID]\n 主桁 1 G1\n[END]\n[X]\n[END]\n";
    const CSbdData data = Load(text);
    const std::string first = WriteProject(data);
    EXPECT_TRUE(data.SameProject(Load(text)));
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
    EXPECT_EQ(
        section.at(1),
        "! タイプ                               説明文                                                    入力データ");
    EXPECT_EQ(section.at(2),
              "  RESET_RESULTS                        前回計算結果を削除する(YES_NO)                             Y");
    EXPECT_EQ(
        section.at(4),
        "  DONOT_DESIGN_CROSS                   横桁設計を行わない(YES_NO)                                YES, 3");
    EXPECT_EQ(section.size(), 2U + 35U + 1U) << "row 0 is the title's line";
}

TEST(WriterOptions, RowsOfTheOtherFamiliesHaveTheirWidths)
{
    CSbdData data;
    const std::string saved = WriteProject(data);
    EXPECT_EQ(SectionOf(saved, "[SEC_OPTION_SECTION]").at(2),
              "  SIGMA_ROOM                           断面計算での応力度の余裕値N／mm2                          0");
    EXPECT_EQ(
        SectionOf(saved, "[DRAW_COMMON]").at(3),
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
    CSbdData read;
    ReadProject(saved, read);
    std::vector<std::string> values;
    for (std::size_t row = 0; row < 32; ++row)
        values.push_back(FromCp932(read.Option(301, row)));
    const std::size_t end = 3 + 31; // title, header, comment; the title is no row of the block
    EXPECT_TRUE(LinesOf(saved).at(end).starts_with("[END")) << "no row more than these";
    std::vector<std::string> expected = {"SBD1", "YES", "YES", "NO", "NO", "NO", "NO", "NO"};
    expected.resize(21, "YES");
    for (const char* value : {"死荷重", "1", "一般", "YES", "NO", "100", "0.03", "非合成", "自動", "横桁腹板", "3次"})
        expected.push_back(value);
    EXPECT_EQ(values, expected);
    EXPECT_EQ(LinesOf(saved).at(0), "TITLE:SBD1");
    EXPECT_EQ(SectionOf(saved, "[SEC_CONTROL]").size(), 2U + 31U + 1U);
}

} // namespace sbd
