#include "panelmodel/table_import.h"
#include "tests/panelmodel/panel_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

namespace sbd {
namespace {

using namespace test;
using ::testing::ElementsAre;

using Cells = std::vector<std::string>;

TextTable Csv(std::string_view text, TableSeparator separator = TableSeparator::Comma)
{
    return ReadTextTable(text, TextCode::Utf8, separator);
}

TEST(TextTables, CellsBetweenMarksHoldSeparatorsMarksAndLineEnds)
{
    const TextTable table = Csv("a,\"b,c\",\"d\"\"e\"\r\n\"two\nlines\",,x\r\n");
    EXPECT_THAT(table.rows, ElementsAre(Cells{"a", "b,c", "d\"e"}, Cells{"two\nlines", "", "x"}));
    EXPECT_THAT(table.lines, ElementsAre(1U, 2U));
    EXPECT_EQ(table.columns, 3U);
    EXPECT_EQ(table.openQuotes, 0U);
    EXPECT_THAT(Csv("a\rb\r\nc\nd").rows, ElementsAre(Cells{"a"}, Cells{"b"}, Cells{"c"}, Cells{"d"}));
}

TEST(TextTables, LinesWithoutATextAreLeftOutAndCounted)
{
    const TextTable table = Csv("a,b\n\n,,\nc,d\n\n\n");
    EXPECT_THAT(table.rows, ElementsAre(Cells{"a", "b"}, Cells{"c", "d"}));
    EXPECT_THAT(table.lines, ElementsAre(1U, 4U));
    EXPECT_EQ(table.blankLines, 2U) << "those at the end are none";
    EXPECT_TRUE(Csv("").rows.empty());
    EXPECT_TRUE(Csv("\n\n").rows.empty());
}

TEST(TextTables, BlanksDivideTogether)
{
    EXPECT_THAT(Csv("  G1   G2\t A1  \nG2 G3", TableSeparator::Blanks).rows,
                ElementsAre(Cells{"G1", "G2", "A1"}, Cells{"G2", "G3"}));
}

TEST(TextTables, AMarkThatNothingClosesIsACharacter)
{
    const TextTable table = Csv("a,\"b\nc,d\n");
    EXPECT_THAT(table.rows, ElementsAre(Cells{"a", "\"b"}, Cells{"c", "d"}));
    EXPECT_EQ(table.openQuotes, 1U);
    EXPECT_THAT(Csv("\"a\"b,c").rows, ElementsAre(Cells{"\"a\"b", "c"}));
    EXPECT_THAT(Csv("5\",6").rows, ElementsAre(Cells{"5\"", "6"})) << "within a cell it is one anyhow";
}

TEST(TextTables, ATextOfAnotherCodeIsReadOrNamed)
{
    EXPECT_THAT(Csv("両面,1").rows, ElementsAre(Cells{Cp932("両面"), "1"}));
    const TextTable table = Csv("𠮷野,1");
    EXPECT_THAT(table.rows, ElementsAre(Cells{std::string(1, kKeepCell), "1"}));
    EXPECT_EQ(table.strange, 1U);
    EXPECT_THAT(table.refused, ElementsAre("𠮷"));
    const std::string bytes = Cp932("表,ソ\n");
    EXPECT_THAT(ReadTextTable(bytes, TextCode::Cp932, TableSeparator::Comma).rows,
                ElementsAre(Cells{Cp932("表"), Cp932("ソ")}));
    EXPECT_EQ(PlainText(std::string("\xFF\xFE\x31\x00\x2C\x00\x21\x6F\n\x00", 10)), "1,漡\n");
    EXPECT_EQ(PlainText(std::string("\xFE\xFF\x00\x31\xD8\x42\xDF\xB7", 8)), "1𠮷");
    EXPECT_EQ(PlainText("\xFF\xFE\x31"), "") << "half a character";
    EXPECT_EQ(PlainText("\xEF\xBB\xBF"
                        "a"),
              "a");
}

TEST(TextTables, TheSeparatorIsGuessedByLinesOfOneWidth)
{
    EXPECT_EQ(GuessSeparator("a,b\nc,d\n"), TableSeparator::Comma);
    EXPECT_EQ(GuessSeparator("1000 1250\t2\n1000 1250 1250\t3\n"), TableSeparator::Tab);
    EXPECT_EQ(GuessSeparator("1,5;2\n3,5;4\n7;4\n"), TableSeparator::Semicolon);
    EXPECT_EQ(GuessSeparator("G1 G2  A1\nG1 G2  A2"), TableSeparator::Blanks);
    EXPECT_EQ(GuessSeparator("\"a,b\";c\n\"d,e\";f\n"), TableSeparator::Semicolon);
    EXPECT_EQ(GuessSeparator(""), TableSeparator::Comma);
}

TEST(TextTables, BadFilesNeitherHangNorFill)
{
    const auto start = std::chrono::steady_clock::now();
    const std::string line(30'000'000, 'x');
    const TextTable one = Csv(line);
    ASSERT_EQ(one.rows.size(), 1U);
    EXPECT_EQ(one.tooLong, 1U);
    EXPECT_EQ(one.rows[0][0], std::string(1, kKeepCell));

    const TextTable wide = Csv(std::string(10'000'000, ','));
    EXPECT_TRUE(wide.rows.empty()) << "nothing stands in it";
    std::string commas = "a" + std::string(10'000'000, ',') + "b";
    const TextTable columns = Csv(commas);
    EXPECT_FALSE(columns.isWhole);
    EXPECT_EQ(columns.columns, kMostTableColumns);

    std::string rows;
    for (int i = 0; i < 200'000; ++i)
        rows += "a,b\n";
    const TextTable long_ = Csv(rows);
    EXPECT_FALSE(long_.isWhole);
    EXPECT_EQ(long_.rows.size(), kMostTableRows);

    const std::string marks(10'000'000, '"');
    EXPECT_EQ(Csv(marks).rows.size(), 1U);
    std::string broken;
    while (broken.size() < 5'000'000)
        broken += "\"a\"\"b,";
    EXPECT_FALSE(Csv(broken).rows.empty());
    std::string nul(1'000'000, '\0');
    nul[500] = ',';
    EXPECT_EQ(Csv(nul).rows.size(), 1U);
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - start);
    EXPECT_LT(seconds.count(), 60) << "a file may be bad, but is read in time";
}

TEST(TextTables, ALineOfCsvIsReadAsItWas)
{
    const Cells cells{"a", "b,c", "say \"x\"", "", " lead", "two\nlines"};
    EXPECT_EQ(Csv(CsvLine(cells)).rows.front(), cells);
}

/// 313 with its automatic row and two rows.
class TableImport : public ::testing::Test {
protected:
    TableImport()
    {
        NameBridge(data_);
        AddRow(data_, 313, {"自動計算(YES_NO)", "YES_1"});
        for (const std::string_view station : {"A1", "C1"})
            AddRow(data_, 313, {"G1", "G2", station, "A2", "両面", "110", "9", "2", "1000"});
        panel_ = MakePanelModel(data_, 313);
        editor_ = std::make_unique<CPanelEditor>(*panel_);
    }
    PasteOutcome Import(const TextTable& table, const ImportPlan& plan)
    {
        return editor_->PutCells(EditCommand::Import, ImportedCells(table, plan));
    }
    [[nodiscard]] std::string Copy(const CellRange& range) const { return FromCp932(editor_->Copy(range)); }

    CSbdData data_;
    std::unique_ptr<CPanelModel> panel_;
    std::unique_ptr<CPanelEditor> editor_;
};

TEST_F(TableImport, RowsAreAppendedInTheirColumnsAsOneStep)
{
    const TextTable table = Csv("G1,G2,C2,A2\nG3,G4,C3,A2\n");
    const ImportPlan plan = ProposedImport(*panel_, table);
    EXPECT_EQ(plan.row, 4);
    EXPECT_THAT(plan.targets, ElementsAre(1, 2, 3, 4));
    EXPECT_FALSE(plan.hasHeads);
    const PasteOutcome outcome = Import(table, plan);
    EXPECT_EQ(outcome.put, 8);
    EXPECT_EQ(Copy({4, 1, 5, 5}), "G1\tG2\tC2\tA2\t\nG3\tG4\tC3\tA2\t");
    EXPECT_EQ(editor_->Done()->command, EditCommand::Import);
}

TEST_F(TableImport, WhatIsExportedComesBackByItsHeads)
{
    const std::string text = ExportedText(*panel_, {true, false, TextCode::Utf8});
    EXPECT_TRUE(text.starts_with("\xEF\xBB\xBF"));
    const TextTable table = Csv(PlainText(text));
    ASSERT_EQ(table.rows.size(), 3U) << "heads and two rows";
    ImportPlan plan = ProposedImport(*panel_, table);
    EXPECT_TRUE(plan.hasHeads);
    EXPECT_THAT(plan.targets, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9));
    const std::string before = Copy({2, 1, 3, 9});
    plan.row = 2;
    EXPECT_EQ(Import(table, plan).put, 0);
    plan.row = 4;
    EXPECT_EQ(Import(table, plan).put, 18);
    EXPECT_EQ(Copy({4, 1, 5, 9}), before);
    EXPECT_EQ(ExportedText(*panel_, {false, true, TextCode::Cp932}).substr(0, 16), Cp932("自動計算(YES_NO)"));
}

TEST_F(TableImport, ColumnsCanBeLeftOutAndChanged)
{
    const TextTable table = Csv("no,120,G1\n");
    ImportPlan plan;
    plan.targets = {0, 6, 1};
    plan.row = 2;
    EXPECT_EQ(Import(table, plan).put, 1);
    EXPECT_EQ(Copy({2, 1, 2, 7}), "G1\tG2\tA1\tA2\t両面\t120\t9");
}

TEST_F(TableImport, WhatDoesNotFitIsCounted)
{
    const TextTable table = Csv("a,b\n𠮷,d\n");
    ImportPlan plan;
    plan.targets = {1, panel_->ColumnCount()};
    plan.row = 2;
    const PasteOutcome outcome = Import(table, plan);
    EXPECT_EQ(outcome.beyond, 2);
    EXPECT_EQ(outcome.kept, 1);
    EXPECT_EQ(outcome.put, 1);
    EXPECT_EQ(outcome.firstKept, (CellPlace{3, 1}));
}

TEST_F(TableImport, TenThousandRowsAddTheRowsThatAreMissing)
{
    std::string text;
    for (int i = 0; i < 10'000; ++i)
        text += "G1,G2,C" + std::to_string(i) + ",A2,両面,110,9,2,1000 1250\n";
    const TextTable table = Csv(text);
    EXPECT_EQ(Import(table, ProposedImport(*panel_, table)).put, 90'000);
    EXPECT_EQ(panel_->BlockRows(), 10'003);
    CommitPanel(*panel_, data_);
    EXPECT_EQ(data_.RowCount(313), 10'003U);
    EXPECT_EQ(FromCp932(data_.Table(313)->columns[2][10'002]), "C9999");
}

} // namespace
} // namespace sbd
