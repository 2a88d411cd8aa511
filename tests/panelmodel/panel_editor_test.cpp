#include "panelmodel/panel_editor.h"
#include "tests/panelmodel/panel_fixture.h"
#include "tests/seed.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace sbd {
namespace {

using namespace test;

class PanelEditor : public ::testing::Test {
protected:
    PanelEditor()
    {
        AddRow(data_, 305, {"G1", "W1", "W2"});
        AddRow(data_, 305, {"G2", "W3", "W4"});
        AddRow(data_, 305, {"G3", "W5", "W6"});
        panel_ = MakePanelModel(data_, 305);
        editor_ = std::make_unique<CPanelEditor>(*panel_);
    }

    CSbdData data_;
    std::unique_ptr<CPanelModel> panel_;
    std::unique_ptr<CPanelEditor> editor_;
};

TEST_F(PanelEditor, ACommandIsToldWithItsFirstCell)
{
    editor_->SetCell(2, 3, "B");
    ASSERT_TRUE(editor_->Done());
    EXPECT_EQ(editor_->Done()->command, EditCommand::Cell);
    EXPECT_EQ(editor_->Done()->place, (CellPlace{2, 3}));
    editor_->Paste(1, 2, "a\tb\nc");
    EXPECT_EQ(editor_->Done()->command, EditCommand::Paste);
    EXPECT_EQ(editor_->Done()->place, (CellPlace{1, 2}));
    editor_->InsertRow(2);
    EXPECT_EQ(editor_->Done()->command, EditCommand::InsertRow);
    EXPECT_EQ(editor_->Done()->place, (CellPlace{2, 0})) << "not the blank row far below that was taken for it";
    editor_->ForgetDone();
    EXPECT_FALSE(editor_->Done());
}

TEST_F(PanelEditor, AnEditThatChangesNothingIsNoStep)
{
    editor_->SetCell(1, 2, "W1");
    editor_->Clear({panel_->GridRows(), 1, panel_->GridRows(), 5});
    EXPECT_FALSE(editor_->Done());
}

TEST_F(PanelEditor, CopyDividesByTabsAndLineFeeds)
{
    EXPECT_EQ(editor_->Copy({1, 1, 2, 3}), "G1\tW1\tW2\nG2\tW3\tW4");
}

TEST_F(PanelEditor, PasteFillsToTheRightAndDownward)
{
    editor_->Paste(2, 2, "a\tb\r\nc\td\r\n");
    EXPECT_EQ(editor_->Copy({1, 1, 3, 4}), "G1\tW1\tW2\t\nG2\ta\tb\t\nG3\tc\td\t");
}

TEST_F(PanelEditor, PasteBeyondTheLastColumnIsCutAndBeyondTheLastRowGrows)
{
    const int rows = panel_->GridRows();
    const PasteOutcome outcome = editor_->Paste(rows, 5, "x\ty\nz");
    EXPECT_EQ(panel_->GridRows(), rows + 1);
    EXPECT_EQ(Text(*panel_, rows, 5), "x");
    EXPECT_EQ(Text(*panel_, rows + 1, 5), "z");
    EXPECT_EQ(outcome.range, (CellRange{rows, 5, rows + 1, 5}));
}

TEST_F(PanelEditor, ACellWithLineBreaksIsOneCellOnOneLine)
{
    editor_->Paste(1, 2, "\"a\r\nb \"\"c\"\"\"\td\r\n\"e\"\tf\n");
    EXPECT_EQ(Text(*panel_, 1, 2), "a  b \"c\"") << "the file has one line for a row";
    EXPECT_EQ(Text(*panel_, 1, 3), "d");
    EXPECT_EQ(Text(*panel_, 2, 2), "\"e\"") << "marks that no line break needs belong to the text";
    EXPECT_EQ(Text(*panel_, 2, 3), "f");
}

TEST_F(PanelEditor, QuotationMarksInCopiedCellsComeBackAsTheyWere)
{
    editor_->SetCell(1, 2, "\"a");
    editor_->SetCell(1, 3, "b\"");
    editor_->Paste(3, 2, editor_->Copy({1, 2, 1, 3}));
    EXPECT_EQ(editor_->Copy({3, 2, 3, 3}), "\"a\tb\"");
}

TEST_F(PanelEditor, AQuotationMarkThatNothingClosesIsACharacter)
{
    editor_->Paste(1, 2, "\"a\tb\n\"c\td");
    EXPECT_EQ(Text(*panel_, 1, 2), "\"a");
    EXPECT_EQ(Text(*panel_, 1, 3), "b");
    EXPECT_EQ(Text(*panel_, 2, 2), "\"c");
    EXPECT_EQ(Text(*panel_, 2, 3), "d");
}

TEST_F(PanelEditor, AZeroByteEndsThePaste)
{
    editor_->Paste(1, 2, std::string_view("a\tb\0c\nd", 8));
    EXPECT_EQ(Text(*panel_, 1, 2), "a");
    EXPECT_EQ(Text(*panel_, 1, 3), "b");
    EXPECT_EQ(Text(*panel_, 2, 2), "W3");
}

TEST_F(PanelEditor, ControlCharactersBecomeBlanks)
{
    editor_->SetCell(1, 2, "a\nb\tc\x01");
    EXPECT_EQ(Text(*panel_, 1, 2), "a b c ");
    editor_->SetCell(1, 3, Cp932("表ソ能")); // second bytes that look like other characters
    EXPECT_EQ(Text(*panel_, 1, 3), "表ソ能");
}

TEST_F(PanelEditor, CellsThatThePasteKeepsAreCountedAndTheRestIsPasted)
{
    const PasteOutcome outcome = editor_->Paste(1, 2, "x\ty\x1A\n\x1A\tz");
    EXPECT_EQ(outcome.kept, 2);
    EXPECT_EQ(outcome.firstKept, (CellPlace{1, 3}));
    EXPECT_EQ(editor_->Copy({1, 2, 2, 3}), "x\tW2\nW3\tz");
}

TEST_F(PanelEditor, RowsThatAPasteAddedAreStored)
{
    const int rows = panel_->GridRows();
    const std::size_t stored = data_.RowCount(panel_->Block());
    editor_->Paste(rows, 1, "x\ny");
    EXPECT_EQ(panel_->GridRows(), rows + 1);
    EXPECT_EQ(Text(*panel_, rows + 1, 1), "y");
    CommitPanel(*panel_, data_);
    EXPECT_EQ(data_.RowCount(panel_->Block()), stored + 2);
}

TEST(PanelEditorOfNumbers, AWordPastedIntoACellOfNumbersLeavesTheNumberAndIsCounted)
{
    CSbdData data;
    const auto panel = MakePanelModel(data, 311);
    CPanelEditor editor(*panel);
    editor.SetCell(5, 5, "2.5");
    editor.SetCell(5, 6, "3");
    const PasteOutcome outcome = editor.Paste(5, 4, Cp932("S1\tabc\t４\nS2\t1,2\t5"));
    EXPECT_EQ(editor.Copy({5, 4, 6, 6}), "S1\t2.5\t4\nS2\t\t5");
    EXPECT_EQ(outcome.notNumbers, 2);
    EXPECT_EQ(outcome.firstNotNumber, (CellPlace{5, 5}));
    EXPECT_EQ(outcome.notNumber, "abc");
    EXPECT_EQ(outcome.kept, 0);
}

TEST_F(PanelEditor, EmptyLinesAtTheEndOfAPasteMakeNoRows)
{
    const int rows = panel_->GridRows();
    editor_->Paste(rows, 1, "x\n" + std::string(1000000, '\n'));
    EXPECT_EQ(panel_->GridRows(), rows);
    editor_->Paste(rows, 1, "x\n \ny\n" + std::string(1000000, '\t'));
    EXPECT_EQ(panel_->GridRows(), rows + 2);
}

TEST_F(PanelEditor, RaggedLinesFillWhatTheyHave)
{
    editor_->Paste(1, 1, "a\nb\t1\t2\t3\t4\t5\t6\n\nc\t\t9");
    EXPECT_EQ(editor_->Copy({1, 1, 4, 5}), "a\tW1\tW2\t\t\nb\t1\t2\t3\t4\n\tW5\tW6\t\t\nc\t\t9\t\t");
}

TEST_F(PanelEditor, PasteAndDeletePassOverCellsThatTakeNothing)
{
    CSbdData data;
    const auto panel = MakePanelModel(data, 331);
    CPanelEditor editor(*panel);
    editor.Paste(1, 1, "x\tNO\ty");
    EXPECT_EQ(Text(*panel, 1, 1), "自動計算(YES_NO)");
    EXPECT_EQ(Text(*panel, 1, 2), "NO");
    EXPECT_EQ(Text(*panel, 1, 3), " (301の");
    editor.Clear({1, 1, 1, 11});
    EXPECT_EQ(Text(*panel, 1, 1), "自動計算(YES_NO)");
    EXPECT_EQ(Text(*panel, 1, 2), "");
}

TEST_F(PanelEditor, ClearedRowsLeaveTheData)
{
    EXPECT_EQ(editor_->Clear({1, 1, 3, 5}), CellEffect::Panel);
    CommitPanel(*panel_, data_);
    EXPECT_EQ(data_.RowCount(305), 0U);
    EXPECT_EQ(editor_->Done()->command, EditCommand::Clear);
}

TEST_F(PanelEditor, RowsMoveAndComeBack)
{
    EXPECT_FALSE(editor_->MoveUp(1));
    EXPECT_TRUE(editor_->MoveUp(2));
    EXPECT_EQ(Text(*panel_, 1, 1), "G2");
    EXPECT_TRUE(editor_->MoveDown(1));
    EXPECT_EQ(Text(*panel_, 1, 1), "G1");
    EXPECT_FALSE(editor_->MoveDown(panel_->GridRows()));
    CommitPanel(*panel_, data_);
    EXPECT_FALSE(panel_->IsChanged());
}

TEST_F(PanelEditor, AnInsertedRowPushesTheOthersDown)
{
    const int rows = panel_->GridRows();
    EXPECT_TRUE(editor_->InsertRow(2));
    EXPECT_EQ(Text(*panel_, 2, 1), "");
    EXPECT_EQ(Text(*panel_, 3, 1), "G2");
    EXPECT_EQ(panel_->GridRows(), rows);
    Set(*panel_, 2, 1, "G1a");
    CommitPanel(*panel_, data_);
    EXPECT_EQ(Rows(data_, 305)[1][0], "G1a");
    EXPECT_EQ(Rows(data_, 305)[3][0], "G3");
}

TEST_F(PanelEditor, NoDataRowMovesOverTheAutomaticRow)
{
    CSbdData data;
    AddRow(data, 314, {"自動計算(YES_NO)", "YES"});
    AddRow(data, 314, {"G1", "G2"});
    const auto panel = MakePanelModel(data, 314);
    CPanelEditor editor(*panel);
    EXPECT_FALSE(editor.MoveUp(1));
    EXPECT_FALSE(editor.MoveDown(1));
    EXPECT_FALSE(editor.InsertRow(1));
    EXPECT_FALSE(editor.MoveUp(2));
    EXPECT_TRUE(editor.MoveDown(2));
}

TEST_F(PanelEditor, OptionRowsDoNotMove)
{
    CSbdData data;
    const auto panel = MakePanelModel(data, 301);
    CPanelEditor editor(*panel);
    EXPECT_FALSE(editor.MoveDown(4));
    EXPECT_FALSE(editor.InsertRow(4));
}

/// Whatever is done in whatever order: the data after every commit are the kept rows of the grid.
class RandomPanelEditing : public RandomTest {};

TEST_F(RandomPanelEditing, CommitsAlwaysGiveWhatWritingTheWholeGridGives)
{
    const auto pick = [this](int from, int to) {
        return from + static_cast<int>(UpTo(static_cast<std::size_t>(to - from)));
    };
    CSbdData data;
    for (int i = 0; i < 20; ++i)
        AddRow(data, 305, {"G", "W", "W"});
    const TableBlock opened = *data.Table(305);
    const auto panel = MakePanelModel(data, 305);
    CPanelEditor editor(*panel);
    for (int step = 0; step < 600; ++step) {
        const int row = pick(1, 30);
        switch (pick(0, 7)) {
        case 0:
        case 1:
            editor.SetCell(row, pick(1, 5), pick(0, 2) == 0 ? "" : std::to_string(pick(0, 9)));
            break;
        case 2:
            editor.Clear({row, 1, row + pick(0, 25), pick(1, 5)});
            break;
        case 3:
            editor.Paste(row, pick(1, 3), "a\tb\n\tc\nd");
            break;
        case 4:
            editor.MoveUp(row);
            break;
        case 5:
            editor.InsertRow(row);
            break;
        default:
            editor.DeleteRows(row, pick(1, 3));
        }
        if (pick(0, 1) == 0)
            continue;
        CommitPanel(*panel, data);
        TableBlock expected;
        expected.columns.resize(5);
        for (int gridRow = 1; gridRow <= panel->GridRows(); ++gridRow) {
            if (panel->Text(gridRow, 1).empty())
                continue;
            for (int column = 1; column <= 5; ++column)
                expected.columns[static_cast<std::size_t>(column) - 1].Append(panel->Text(gridRow, column));
        }
        ASSERT_EQ(*data.Table(305), expected) << "step " << step;
        ASSERT_EQ(panel->IsChanged(), !(expected == opened)) << "step " << step;
    }
}

} // namespace
} // namespace sbd
