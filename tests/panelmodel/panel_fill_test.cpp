#include "panelmodel/fill_series.h"
#include "panelmodel/panel_editor.h"
#include "panelmodel/range_summary.h"
#include "tests/panelmodel/panel_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace sbd {
namespace {

using namespace test;
using ::testing::ElementsAre;

std::string At(std::vector<std::string> texts, int index)
{
    return CFillSeries(std::move(texts), true).At(index).value_or("none");
}

TEST(FillSeries, NumbersAndNamesCountOn)
{
    EXPECT_EQ(At({"9"}, 2), "11");
    EXPECT_EQ(At({"1000", "1250"}, 3), "1750");
    EXPECT_EQ(At({"1000", "1250"}, -1), "750");
    EXPECT_EQ(At({"0.5", "0.75"}, 2), "1.00");
    EXPECT_EQ(At({"-1"}, 1), "0");
    EXPECT_EQ(At({"G1"}, 3), "G4");
    EXPECT_EQ(At({"C09"}, 1), "C10");
    EXPECT_EQ(At({"C1", "C3"}, 2), "C5");
    EXPECT_EQ(At({Cp932("横桁1")}, 1), Cp932("横桁2"));
    EXPECT_EQ(At({"G1", "C1"}, 2), "G2") << "two names count each for themselves";
    EXPECT_EQ(At({"G1", "C1"}, 3), "C2");
}

TEST(FillSeries, WhatDoesNotCountIsRepeated)
{
    EXPECT_EQ(At({"9", "12", "10"}, 3), "9") << "no common difference";
    EXPECT_EQ(At({"1000 1250"}, 1), "1000 1250") << "a list of numbers is no name";
    EXPECT_EQ(At({"2@500"}, 1), "2@500");
    EXPECT_EQ(At({Cp932("両面")}, 5), Cp932("両面"));
    EXPECT_EQ(At({""}, 1), "");
    EXPECT_EQ(At({"12345678901234567890"}, 1), "12345678901234567890") << "too long to be counted exactly";
    EXPECT_EQ(At({"G0"}, -1), "none") << "there is no name below zero";
    EXPECT_EQ(CFillSeries({"G1", "G2"}, false).At(3), "G2");
    EXPECT_EQ(CFillSeries({"G1", "G2"}, false).At(-1), "G2");
}

/// 313 with its automatic row and four rows.
class PanelFill : public ::testing::Test {
protected:
    PanelFill()
    {
        NameBridge(data_);
        AddRow(data_, 313, {"自動計算(YES_NO)", "YES_1"});
        for (const std::string_view station : {"A1", "C1", "C2", "C3"})
            AddRow(data_, 313, {"G1", "G2", station, "A2", "両面", "110", "9", "2", "1000"});
        Open();
    }
    void Open()
    {
        panel_ = MakePanelModel(data_, 313);
        editor_ = std::make_unique<CPanelEditor>(*panel_);
        CommitPanel(*panel_, data_);
    }
    [[nodiscard]] std::string Copy(const CellRange& range) const { return FromCp932(editor_->Copy(range)); }

    CSbdData data_;
    std::unique_ptr<CPanelModel> panel_;
    std::unique_ptr<CPanelEditor> editor_;
};

TEST_F(PanelFill, DownTakesTheFirstRowAndIsOneStep)
{
    editor_->SetCell(2, 6, "150");
    editor_->SetCell(2, 7, "12");
    EXPECT_EQ(editor_->FillDown({2, 6, 4, 7}).put, 4);
    EXPECT_EQ(Copy({2, 6, 5, 7}), "150\t12\n150\t12\n150\t12\n110\t9");
    EXPECT_EQ(editor_->Done()->place, (CellPlace{3, 6}));
    EXPECT_EQ(editor_->Done()->command, EditCommand::Fill);
}

TEST_F(PanelFill, ASingleRowTakesFromTheRowAboveButNotFromTheAutomaticOne)
{
    editor_->SetCell(3, 6, "150");
    EXPECT_EQ(editor_->FillDown({4, 6, 4, 6}).put, 1);
    EXPECT_EQ(Text(*panel_, 4, 6), "150");
    EXPECT_EQ(editor_->FillDown({2, 1, 2, 9}).put, 0);
    EXPECT_EQ(Text(*panel_, 2, 1), "G1");
}

TEST_F(PanelFill, AnAutomaticRowIsNeitherSourceNorTargetOfALongerRange)
{
    editor_->SetCell(2, 2, "G9");
    editor_->FillDown({1, 2, 4, 2});
    EXPECT_EQ(Copy({1, 2, 4, 2}), "YES_1\nG9\nG9\nG9");
    editor_->FillWith({1, 2, 3, 2}, "G2");
    EXPECT_EQ(Copy({1, 2, 4, 2}), "YES_1\nG2\nG2\nG9");
    editor_->PasteOver({1, 2, 5, 2}, "G3");
    EXPECT_EQ(Copy({1, 2, 5, 2}), "YES_1\nG3\nG3\nG3\nG3");
}

TEST_F(PanelFill, AWholeColumnEndsWithTheLastUsedRow)
{
    editor_->FillWith({1, 7, panel_->GridRows(), 7}, "10");
    EXPECT_EQ(Copy({1, 7, 6, 7}), "\n10\n10\n10\n10\n");
    CommitPanel(*panel_, data_);
    EXPECT_EQ(data_.Table(313)->RowCount(), 5u);
}

TEST_F(PanelFill, RightTakesTheFirstColumnOrTheOneOnTheLeft)
{
    EXPECT_EQ(editor_->FillRight({2, 6, 3, 8}).put, 4);
    EXPECT_EQ(Copy({2, 6, 3, 8}), "110\t110\t110\n110\t110\t110");
    editor_->FillRight({4, 2, 4, 2});
    EXPECT_EQ(Text(*panel_, 4, 2), "G1");
    EXPECT_EQ(editor_->FillRight({4, 1, 4, 1}).put, 0);
}

TEST_F(PanelFill, ACopiedBlockIsRepeatedInAMultipleOfItself)
{
    const PasteOutcome outcome = editor_->PasteOver({2, 6, 5, 7}, "1\t2\n3\t4");
    EXPECT_EQ(Copy({2, 6, 5, 7}), "1\t2\n3\t4\n1\t2\n3\t4");
    EXPECT_EQ(outcome.range, (CellRange{2, 6, 5, 7}));
    editor_->PasteOver({2, 6, 4, 7}, "5\t6\n7\t8"); // three rows are no multiple of two
    EXPECT_EQ(Copy({2, 6, 5, 7}), "5\t6\n7\t8\n1\t2\n3\t4");
}

TEST_F(PanelFill, CellsThatStayAreCounted)
{
    const PasteOutcome outcome = editor_->Paste(1, 8, "a\tb\tc\nd\te\tf");
    EXPECT_EQ(outcome.locked, 2);
    EXPECT_EQ(outcome.firstLocked, (CellPlace{1, 8}));
    EXPECT_EQ(outcome.beyond, panel_->ColumnCount() == 10 ? 2 : 0);
    EXPECT_EQ(Text(*panel_, 2, 8), "d");
}

TEST_F(PanelFill, AFillFromARangeRepeatsOrCounts)
{
    editor_->FillFrom({2, 3, 2, 3}, {2, 3, 5, 3}, FillOn::Repeat);
    EXPECT_EQ(Copy({2, 3, 5, 3}), "A1\nA1\nA1\nA1");
    editor_->FillFrom({2, 9, 2, 9}, {2, 9, 5, 9}, FillOn::Count);
    EXPECT_EQ(Copy({2, 9, 5, 9}), "1000\n1001\n1002\n1003");
    editor_->FillFrom({2, 6, 2, 7}, {2, 6, 3, 7}, FillOn::Repeat);
    EXPECT_EQ(Copy({3, 6, 3, 7}), "110\t9");
    editor_->FillFrom({5, 9, 5, 9}, {1, 9, 5, 9}, FillOn::Count); // upward
    EXPECT_EQ(Copy({1, 9, 5, 9}).substr(Copy({1, 9, 1, 9}).size()), "\n1000\n1001\n1002\n1003");
}

TEST_F(PanelFill, AWordOfAListCountsOnToAnotherWordOnly)
{
    editor_->FillFrom({2, 1, 2, 1}, {2, 1, 5, 1}, FillOn::Count); // G1 and G2 are the girders
    EXPECT_EQ(Copy({2, 1, 5, 1}), "G1\nG2\nG1\nG1");
}

TEST_F(PanelFill, RowsOutOfSightAreNotTouched)
{
    std::vector<char> hidden(static_cast<std::size_t>(panel_->GridRows()), 0);
    hidden[2] = 1; // row 3
    editor_->Hide(hidden);
    editor_->SetCell(2, 6, "77");
    editor_->FillDown({2, 6, 5, 6});
    EXPECT_EQ(Text(*panel_, 3, 6), "110");
    EXPECT_EQ(Text(*panel_, 4, 6), "77");
    editor_->FillWith({2, 7, 5, 7}, "8");
    EXPECT_EQ(Text(*panel_, 3, 7), "9");
    editor_->Clear({2, 8, 5, 8});
    EXPECT_EQ(Text(*panel_, 3, 8), "2");
    EXPECT_EQ(Copy({2, 7, 4, 7}), "8\n8");
    editor_->Paste(2, 9, "1\n2\n3");
    EXPECT_EQ(Text(*panel_, 3, 9), "1000");
    EXPECT_EQ(Text(*panel_, 4, 9), "2");
    EXPECT_EQ(Text(*panel_, 5, 9), "3");
    EXPECT_FALSE(editor_->MoveDown(2));
    EXPECT_FALSE(editor_->InsertRow(2));
    EXPECT_FALSE(editor_->DuplicateRows(2));
    EXPECT_TRUE(editor_->DeleteRows(2, 3));
    EXPECT_EQ(Copy({2, 1, 3, 3}), "G1\tG2\tC3") << "row 3 has come up and is still out of sight";
    editor_->Hide({});
    EXPECT_EQ(Text(*panel_, 2, 3), "C1");
}

// --- rows --------------------------------------------------------------------------------------------

TEST_F(PanelFill, RowsAreDeletedFromGridAndDataWithoutWritingTheOthersAgain)
{
    EXPECT_TRUE(editor_->DeleteRows(2, 2));
    EXPECT_EQ(Copy({2, 3, 4, 3}), "C2\nC3\n");
    CProjectWriter writer(data_);
    panel_->Commit(writer);
    EXPECT_EQ(writer.Changes().size(), 2u) << "one change a row";
    EXPECT_THAT(Rows(data_, 313)[1], ElementsAre("G1", "G2", "C2", "A2", "両面", "110", "9", "2", "1000"));
    EXPECT_EQ(data_.Table(313)->RowCount(), 3u);
}

TEST_F(PanelFill, TheAutomaticRowIsNotDeleted)
{
    EXPECT_FALSE(editor_->DeleteRows(1, 1));
    EXPECT_TRUE(editor_->DeleteRows(1, 2));
    EXPECT_EQ(Text(*panel_, 1, 2), "YES_1");
    EXPECT_EQ(Text(*panel_, 2, 3), "C1");
}

TEST_F(PanelFill, ARowIsDeletedWithWhatWasTypedInItSinceTheLastCommit)
{
    editor_->SetCell(6, 1, "G1"); // a new row that is not in the data
    editor_->SetCell(3, 6, "55");
    EXPECT_TRUE(editor_->DeleteRows(6));
    EXPECT_TRUE(editor_->DeleteRows(3));
    CommitPanel(*panel_, data_);
    ASSERT_EQ(data_.Table(313)->RowCount(), 4u);
    EXPECT_EQ(Rows(data_, 313)[2][2], "C2");
}

TEST_F(PanelFill, ManyRowsAreDeletedAtOnce)
{
    for (int i = 0; i < 100; ++i)
        AddRow(data_, 313, {"G1", "G2", "N" + std::to_string(i)});
    Open();
    EXPECT_TRUE(editor_->DeleteRows(3, 90));
    CommitPanel(*panel_, data_);
    ASSERT_EQ(data_.Table(313)->RowCount(), 15u);
    EXPECT_EQ(Rows(data_, 313)[2][2], "N87");
}

TEST_F(PanelFill, SeveralRowsMoveTogether)
{
    EXPECT_FALSE(editor_->MoveUp(2, 2)) << "the automatic row stays";
    EXPECT_TRUE(editor_->MoveUp(3, 2));
    EXPECT_EQ(Copy({2, 3, 5, 3}), "C1\nC2\nA1\nC3");
    EXPECT_EQ(editor_->Done()->place, (CellPlace{3, 0}));
    EXPECT_EQ(editor_->Done()->rowAfter, 2);
    EXPECT_TRUE(editor_->MoveDown(2, 2));
    EXPECT_TRUE(editor_->MoveDown(2, 3));
    EXPECT_EQ(Copy({2, 3, 5, 3}), "C3\nA1\nC1\nC2");
}

TEST_F(PanelFill, SeveralRowsAreInserted)
{
    EXPECT_TRUE(editor_->InsertRow(3, 2));
    const std::string inserted = Copy({1, 1, 8, 9});
    EXPECT_EQ(Copy({2, 3, 6, 3}), "A1\n\n\nC1\nC2");
    EXPECT_FALSE(editor_->InsertRow(3, 5000)) << "there are not as many blank rows";
    EXPECT_EQ(Copy({1, 1, 8, 9}), inserted);
}

TEST_F(PanelFill, RowsAreDuplicatedBehindThemselves)
{
    EXPECT_TRUE(editor_->DuplicateRows(2, 2));
    EXPECT_EQ(Copy({2, 3, 7, 3}), "A1\nC1\nA1\nC1\nC2\nC3");
    CommitPanel(*panel_, data_);
    EXPECT_EQ(data_.Table(313)->RowCount(), 7u);
    EXPECT_THAT(Rows(data_, 313)[4], ElementsAre("G1", "G2", "C1", "A2", "両面", "110", "9", "2", "1000"));
    EXPECT_FALSE(editor_->DuplicateRows(1)) << "the automatic row stands there once";
}

TEST_F(PanelFill, ARowAtTheEndOfTheGridIsDuplicatedIntoANewOne)
{
    const int last = panel_->GridRows();
    editor_->SetCell(last, 1, "G7");
    EXPECT_TRUE(editor_->DuplicateRows(last));
    EXPECT_EQ(panel_->GridRows(), last + 1);
    EXPECT_EQ(Text(*panel_, last + 1, 1), "G7");
}

// --- what is selected --------------------------------------------------------------------------------

TEST_F(PanelFill, TheSummaryCountsNumbersAndNamesTheUnit)
{
    const auto all = [](int) { return false; };
    editor_->SetCell(2, 6, "100.5");
    editor_->SetCell(3, 6, "x");
    EXPECT_EQ(FromCp932(SummaryOf(*panel_, {2, 6, 5, 6}, all)).substr(0, 80).find("個数 4　数値 3　合計 320.5"), 0u)
        << FromCp932(SummaryOf(*panel_, {2, 6, 5, 6}, all));
    EXPECT_EQ(FromCp932(SummaryOf(*panel_, {4, 6, 5, 7}, all)), "個数 4　合計 238　平均 59.5　最小 9　最大 110");
    EXPECT_EQ(FromCp932(SummaryOf(*panel_, {8, 1, 8, 1}, all)), "");
    EXPECT_EQ(UnitIn(Cp932("間隔\n(mm)")), "mm");
    EXPECT_EQ(UnitIn(Cp932("応力(通常=0=自動)(N／mm2_自動)")), Cp932("N／mm2"));
    EXPECT_EQ(UnitIn(Cp932("材質(材質)")), "");
}

TEST_F(PanelFill, WhatACellTakesIsSaidInAWordOrTwo)
{
    EXPECT_EQ(FromCp932(ExpectedIn(*panel_, 4, 6)), "数値など"); // a unit, and words are not refused
    EXPECT_EQ(FromCp932(ExpectedIn(*panel_, 4, 8)), "数値など"); // what stands in the column
    EXPECT_EQ(FromCp932(ExpectedIn(*panel_, 1, 8)), "入力不可");
    EXPECT_EQ(FromCp932(ExpectedIn(*panel_, 4, 1)), "一覧または文字");
    const CSbdData data;
    const auto heights = MakePanelModel(data, 311);
    bool refuses = false;
    for (int row = 1; row <= heights->GridRows() && !refuses; ++row)
        for (int column = 1; column < heights->ColumnCount(); ++column)
            refuses = refuses || FromCp932(ExpectedIn(*heights, row, column)).starts_with("数値");
    EXPECT_TRUE(refuses);
    EXPECT_EQ(FromCp932(ExpectedIn(*heights, 10000, 1)), "入力不可") << "outside of the grid";
}

} // namespace
} // namespace sbd
