#include "project/catalogue.h"
#include "project/option_rows.h"
#include "tests/panelmodel/panel_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace sbd {
namespace {

using namespace test;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(PanelModel, EveryNumberWithAGridPanelOpensAndShowsItsColumns)
{
    CSbdData data;
    std::set<int> shown;
    for (int number = 252; number <= 999; ++number) {
        const int block = PanelBlock(number);
        const std::unique_ptr<CPanelModel> panel = MakePanelModel(data, number);
        ASSERT_EQ(panel != nullptr, block != 0) << number;
        if (!panel)
            continue;
        EXPECT_EQ(panel->Block(), block) << number;
        EXPECT_EQ(panel->ClassName(), PanelOfBlock(number)) << number;
        EXPECT_GE(panel->SpareRows(), 50) << number;
        shown.insert(block);
        if (const PanelTable* table = FindPanelTable(block)) {
            EXPECT_EQ(panel->ColumnCount(), static_cast<int>(table->columns.size())) << number;
        } else if (const RecordPanel* record = FindRecordPanel(block)) {
            EXPECT_EQ(panel->ColumnCount(), static_cast<int>(record->widths.size())) << number;
        } else {
            EXPECT_EQ(panel->ColumnCount(), 3) << number;
            EXPECT_EQ(panel->BlockRows(), static_cast<int>(FindOptionBlock(block)->rows.size())) << number;
        }
    }
    EXPECT_EQ(shown.size(), PanelTables().size() + OptionPanels().size() + RecordPanels().size());
}

TEST(PanelModel, NumbersWithoutAGridOpenNothing)
{
    CSbdData data;
    for (const int number : {0, 253, 254, 255, 256, 300, 999, 1000})
        EXPECT_EQ(MakePanelModel(data, number), nullptr) << number;
}

TEST(PanelModel, AliasesAndSharedClassesShowTheOtherBlock)
{
    EXPECT_EQ(PanelBlock(406), 713);
    EXPECT_EQ(PanelBlock(567), 482);
    EXPECT_EQ(PanelBlock(722), 702);
    EXPECT_EQ(PanelBlock(361), 521);
    EXPECT_EQ(PanelBlock(362), 531);
    EXPECT_EQ(PanelBlock(363), 541);
    EXPECT_EQ(PanelBlock(569), 521);
    EXPECT_EQ(PanelBlock(570), 522);
}

TEST(PanelModel, LookingAtAnyPanelAndLeavingItChangesNothingOfALoadedProjectForTheUser)
{
    for (int number = 252; number <= 999; ++number) {
        CSbdData data;
        const std::unique_ptr<CPanelModel> panel = MakePanelModel(data, number);
        if (!panel)
            continue;
        CommitPanel(*panel, data);
        EXPECT_FALSE(panel->IsChanged()) << number;
        EXPECT_THAT(CommitPanel(*panel, data), IsEmpty()) << "a second commit wrote again: " << number;
    }
}

TEST(PanelModel, CellsOutsideOfTheGridAreEmptyAndTakeNothing)
{
    for (const int number : {301, 313, 311, 324, 501}) {
        CSbdData data;
        const std::unique_ptr<CPanelModel> panel = MakePanelModel(data, number);
        const int columns = panel->ColumnCount();
        const std::pair<int, int> outside[] = {{0, 1}, {1, 0}, {-1, 2}, {1, columns}, {panel->GridRows() + 1, 1}};
        for (const auto& [row, column] : outside) {
            EXPECT_EQ(panel->Text(row, column), "");
            EXPECT_TRUE(panel->IsLocked(row, column));
            EXPECT_TRUE(panel->Words(row, column).empty());
            EXPECT_EQ(panel->SetCell(row, column, "x"), CellEffect::None);
        }
    }
}

// --- option blocks -----------------------------------------------------------------------------------

TEST(OptionPanel, AnEditReachesTheDataAtTheCommit)
{
    CSbdData data;
    const auto panel = MakePanelModel(data, 302);
    EXPECT_EQ(Set(*panel, 6, 2, "12"), CellEffect::Cell);
    EXPECT_NE(Option(data, 302, 6), "12");
    EXPECT_THAT(CommitPanel(*panel, data), Contains(ChangedRow{302, 5}));
    EXPECT_EQ(Option(data, 302, 6), "12");
}

TEST(OptionPanel, LabelsAndSpareRowsTakeNothing)
{
    CSbdData data;
    const auto panel = MakePanelModel(data, 303);
    EXPECT_TRUE(panel->IsLocked(4, 1));
    EXPECT_EQ(Set(*panel, 4, 1, "x"), CellEffect::None);
    EXPECT_EQ(panel->SpareRows(), 50);
    EXPECT_EQ(Set(*panel, 33, 2, "x"), CellEffect::None);
    CommitPanel(*panel, data);
    EXPECT_EQ(data.RowCount(303), 32U);
}

TEST(OptionPanel, AValueThatIsDeletedLeavesItsRowEmpty)
{
    CSbdData data;
    const auto panel = MakePanelModel(data, 301);
    Set(*panel, 2, 2, "");
    CommitPanel(*panel, data);
    EXPECT_EQ(Option(data, 301, 2), "");
    EXPECT_EQ(data.RowCount(301), 36U);
}

TEST(OptionPanel, ChangingBackLeavesTheBlockUnchanged)
{
    CSbdData data;
    const auto panel = MakePanelModel(data, 302);
    const std::string before = Text(*panel, 2, 2);
    Set(*panel, 2, 2, "局部");
    CommitPanel(*panel, data);
    EXPECT_TRUE(panel->IsChanged());
    Set(*panel, 2, 2, before);
    CommitPanel(*panel, data);
    EXPECT_FALSE(panel->IsChanged());
}

TEST(OptionPanel, AfterASaveTheSavedStateIsWhatCounts)
{
    CSbdData data;
    const auto panel = MakePanelModel(data, 302);
    const std::string before = Text(*panel, 2, 2);
    Set(*panel, 2, 2, "局部");
    CommitPanel(*panel, data);
    panel->TakeBaseline();
    EXPECT_FALSE(panel->IsChanged());
    Set(*panel, 2, 2, before);
    EXPECT_TRUE(panel->IsChanged());
}

TEST(OptionPanel, PlainCellsHaveNoWordListButTheSameText)
{
    CSbdData data;
    const auto lists = MakePanelModel(data, 301);
    const auto plain = MakePanelModel(data, 301, {.wordLists = false});
    EXPECT_THAT(Words(*lists, 2, 2), ElementsAre("YES", "NO", "自動"));
    EXPECT_THAT(Words(*plain, 2, 2), IsEmpty());
    EXPECT_EQ(plain->Text(2, 2), lists->Text(2, 2));
}

TEST(OptionPanel, LabelsGrowWithTheWidthModeAndValuesShrinkToTheirLimit)
{
    CSbdData data;
    const auto widths = [&data](int mode) {
        const auto panel = MakePanelModel(data, 301, {.rowWidthMode = mode});
        return std::pair(panel->ColumnWidth(1), panel->ColumnWidth(2));
    };
    EXPECT_EQ(widths(0), std::pair(430, 330));
    EXPECT_EQ(widths(150), std::pair(530, 480));
    EXPECT_EQ(widths(-100), std::pair(430, 230));
    EXPECT_EQ(widths(-1000), std::pair(430, 80));
}

TEST(OptionPanel, TheTypeOf301DecidesHeadsLabelsAndColours)
{
    CSbdData data;
    const auto panel = MakePanelModel(data, 301);
    EXPECT_EQ(FromCp932(panel->Head(1)), "タイプ");
    EXPECT_EQ(panel->TextColor(3, 2), kEmphasisColor);
    EXPECT_EQ(panel->TextColor(9, 2), std::nullopt);
    EXPECT_EQ(Set(*panel, 3, 2, "断面1のみ"), CellEffect::Panel);
    EXPECT_EQ(FromCp932(panel->Head(1)), "タイプ\n301,302については，ピンク色の項目のみ入力必要");
    EXPECT_EQ(panel->HeadColor(1), kMandatoryColor);
    EXPECT_EQ(panel->TextColor(9, 2), kMandatoryColor);
    EXPECT_EQ(panel->TextColor(22, 2), std::nullopt) << "rows 22 to 24 count for box girders alone";
    EXPECT_EQ(Text(*panel, 14, 1), "格点曲率半径(単位m)");
    EXPECT_EQ(panel->RowLines(19), 2);
    EXPECT_EQ(FromCp932(panel->Head(2, 19)), "YES[NO]_上RIB数_下RIB数_上間隔_下間隔)");
    EXPECT_EQ(FromCp932(panel->Head(2, 20)), "入力データ(YES[NO], Group数, 幅1,厚1,幅2,厚2,......)");
    EXPECT_EQ(FromCp932(panel->Head(2, 5)), "入力データ");
    Set(*panel, 3, 2, "縦桁");
    EXPECT_EQ(FromCp932(panel->Head(1)), "タイプ\n３行目以外の入力は必要ありません．501及び640～669を入力して下さい");
    EXPECT_EQ(panel->TextColor(9, 2), std::nullopt);
}

TEST(OptionPanel, The302HeadTellsWhatSingleSectionsNeed)
{
    CSbdData data;
    SetOption(data, 301, 3, "断面1_2のみ");
    const auto panel = MakePanelModel(data, 302);
    EXPECT_EQ(FromCp932(panel->Head(1)), "タイプ(n301,302については，ピンク色の項目のみ入力必要)");
    EXPECT_EQ(panel->TextColor(11, 1), kMandatoryColor);
    EXPECT_EQ(panel->TextColor(12, 1), std::nullopt);
}

TEST(OptionPanel, StringerOptionsStandInATablePanel)
{
    CSbdData data;
    const auto panel = MakePanelModel(data, 640);
    EXPECT_EQ(panel->ColumnCount(), 3);
    EXPECT_EQ(panel->BlockRows(), 55);
    Set(*panel, 1, 2, "2");
    CommitPanel(*panel, data);
    EXPECT_EQ(Option(data, 640, 1), "2");
}

// --- table blocks ------------------------------------------------------------------------------------

TEST(TablePanel, AnEditReachesTheDataAtTheCommit)
{
    CSbdData data;
    AddRow(data, 314, {"自動計算(YES_NO)", "YES"});
    AddRow(data, 314, {"G1", "G2", "A1", "A2", "I桁", "200", "16", "SM400"});
    const auto panel = MakePanelModel(data, 314);
    Set(*panel, 2, 8, "SM490Y");
    EXPECT_THAT(CommitPanel(*panel, data), ElementsAre(ChangedRow{314, 1}));
    EXPECT_THAT(Rows(data, 314)[1], ElementsAre("G1", "G2", "A1", "A2", "I桁", "200", "16", "SM490Y"));
}

TEST(TablePanel, ABlockWithoutRowsBeginsWithItsAutomaticRowAndStaysUnchanged)
{
    CSbdData data;
    const auto panel = MakePanelModel(data, 314);
    EXPECT_EQ(panel->BlockRows(), 1);
    EXPECT_EQ(Text(*panel, 1, 1), "自動計算(YES_NO)");
    CommitPanel(*panel, data);
    EXPECT_THAT(Rows(data, 314), ElementsAre(ElementsAre("自動計算(YES_NO)", "YES")));
    EXPECT_FALSE(panel->IsChanged());
}

TEST(TablePanel, TheAutomaticRowOfANewBlockShowsTheSwitchOf301)
{
    CSbdData data;
    SetOption(data, 301, 9, "NO");
    const auto panel = MakePanelModel(data, 331);
    EXPECT_EQ(Text(*panel, 1, 2), "NO");
    CommitPanel(*panel, data);
    EXPECT_EQ(Option(data, 301, 9), "NO") << "looking at 331 changed the switch";
}

TEST(TablePanel, BlocksWithoutAutomaticRowStartEmpty)
{
    CSbdData data;
    for (const int block : {259, 291, 304, 305, 307, 312, 323, 329, 351, 354, 402, 405, 407, 412, 422}) {
        const auto panel = MakePanelModel(data, block);
        EXPECT_EQ(panel->BlockRows(), 0) << block;
        EXPECT_TRUE(panel->IsEditable(1, 1)) << block;
    }
}

TEST(TablePanel, TheAutomaticRowIsLockedBehindItsSwitch)
{
    CSbdData data;
    const auto panel = MakePanelModel(data, 331);
    EXPECT_FALSE(panel->IsEditable(1, 1)) << "the word that makes the row automatic could be lost";
    EXPECT_FALSE(panel->IsLocked(1, 1));
    EXPECT_TRUE(panel->IsEditable(1, 2));
    EXPECT_TRUE(panel->IsLocked(1, 3));
    EXPECT_EQ(panel->TextColor(1, 3), kMandatoryColor);
    EXPECT_EQ(Text(*panel, 1, 3), " (301の");
    EXPECT_EQ(Text(*panel, 1, 7), "リンク");
    EXPECT_THAT(Words(*panel, 1, 2), ElementsAre("YES", "NO"));
    EXPECT_FALSE(panel->IsLocked(2, 3));
}

TEST(TablePanel, NameListsStandInTheWordLists)
{
    CSbdData data;
    NameBridge(data);
    const auto panel = MakePanelModel(data, 331);
    EXPECT_THAT(Words(*panel, 2, 1), ElementsAre("G", "G1", "G2"));
    EXPECT_THAT(Words(*panel, 30, 3), ElementsAre("SEC1", "SEC2"));
}

/// As the window asks for it.
std::unique_ptr<CPanelModel> InWindow(const CSbdData& data, int block)
{
    return MakePanelModel(data, block, {.listNames = ListNames::OfTheProject});
}

TEST(TablePanel, WithoutNamesOfTheAnalysisTheProjectsOwnStandInTheWordLists)
{
    CSbdData data;
    data.Names(501)->lists[0] = {"G1", "G2"};
    data.Names(501)->lists[1] = {"A1", "C1_2", "C1_3", "A2"}; // the same beam twice: names end at "_"
    data.Names(702)->lists[0] = {"G2", "G3"};
    data.Names(702)->lists[1] = {"A2", "P1"};
    AddRow(data, 523, {"自動計算(YES_NO)", "YES"});
    AddRow(data, 523, {"C8", "C9", "G1", "G4", "中間対傾構"});
    EXPECT_THAT(Words(*InWindow(data, 313), 2, 1), ElementsAre("G1", "G2", "G3", "G4"));
    EXPECT_THAT(Words(*InWindow(data, 313), 2, 3), ElementsAre("A1", "C1", "A2", "P1", "C8", "C9"));
    EXPECT_THAT(Words(*InWindow(data, 332), 2, 1), ElementsAre("G", "G1", "G2", "G3", "G4"));
    EXPECT_THAT(Words(*InWindow(data, 324), 3, 3), ElementsAre("A1", "C1", "A2", "P1", "C8", "C9"));
    EXPECT_THAT(Words(*InWindow(data, 321), 3, 3), ElementsAre("G1", "G2", "G3", "G4"));
    EXPECT_THAT(Words(*MakePanelModel(data, 332), 2, 1), ElementsAre("G")) << "the tools list what the analysis names";
    data.Names(501)->lists[0][0] = "G"; // a fixed word of some lists
    EXPECT_THAT(Words(*InWindow(data, 332), 2, 1), ElementsAre("G", "G2", "G3", "G1", "G4"));
    data.Names(501)->lists[0][0] = "G1";
    // Once the analysis names them, its names are those of the bridge; its beams and girders each for themselves.
    data.gridNames.girderNames = {"AG1"};
    EXPECT_THAT(Words(*InWindow(data, 313), 2, 1), ElementsAre("AG1"));
    EXPECT_THAT(Words(*InWindow(data, 313), 2, 4), ElementsAre("A1", "C1", "A2", "P1", "C8", "C9"));
    data.gridNames.swayNames = {"S1", "A1"};
    data.swayNameCount = 1;
    EXPECT_THAT(Words(*InWindow(data, 313), 2, 4), ElementsAre("S1", "A1"));
    data.gridNames.girderNames = {"", ""}; // a count without names
    EXPECT_THAT(Words(*InWindow(data, 313), 2, 1), ElementsAre("G1", "G2", "G3", "G4"));
}

TEST(TablePanel, NamesTypedInto523AreOfferedInItsNextRow)
{
    CSbdData data;
    const auto panel = InWindow(data, 523);
    EXPECT_THAT(Words(*panel, 3, 3), ElementsAre());
    Set(*panel, 2, 1, "C1");
    Set(*panel, 2, 2, "C2");
    Set(*panel, 2, 3, "G1");
    Set(*panel, 2, 4, "G2");
    CommitPanel(*panel, data);
    EXPECT_THAT(Words(*panel, 3, 3), ElementsAre("G1", "G2"));
}

TEST(TablePanel, TheColumnsThatNameTheRowAreKnown)
{
    const CSbdData data;
    const struct {
        int block;
        int columns;
    } kKnown[] = {{301, 0}, {305, 5}, {311, 4}, {313, 4}, {324, 4}, {331, 4},
                  {332, 4}, {404, 2}, {501, 0}, {523, 4}, {604, 3}};
    for (const auto& known : kKnown)
        EXPECT_EQ(MakePanelModel(data, known.block)->NameColumns(), known.columns) << known.block;
}

TEST(TablePanel, ARowAppearsWithItsFirstCellAndGoesWithIt)
{
    CSbdData data;
    AddRow(data, 305, {"G1", "W1", "W2"});
    AddRow(data, 305, {"G2", "W3", "W4"});
    const auto panel = MakePanelModel(data, 305);
    Set(*panel, 4, 2, "W7"); // row 4: no first cell yet
    CommitPanel(*panel, data);
    EXPECT_EQ(data.RowCount(305), 2U);
    EXPECT_FALSE(panel->IsChanged());
    Set(*panel, 4, 1, "G4");
    EXPECT_THAT(CommitPanel(*panel, data), ElementsAre(ChangedRow{305, -1}));
    EXPECT_THAT(Rows(data, 305)[2], ElementsAre("G4", "W7"));
    Set(*panel, 1, 1, "");
    CommitPanel(*panel, data);
    EXPECT_THAT(Rows(data, 305), ElementsAre(ElementsAre("G2", "W3", "W4"), ElementsAre("G4", "W7")));
    EXPECT_EQ(Text(*panel, 1, 2), "W1") << "the row left the grid";
    Set(*panel, 2, 2, "W9");
    EXPECT_THAT(CommitPanel(*panel, data), ElementsAre(ChangedRow{305, 0})) << "the row stands one higher in the data";
    EXPECT_EQ(Rows(data, 305)[0][1], "W9");
}

TEST(TablePanel, TakingARowOutAndPuttingItBackLeavesTheBlockUnchanged)
{
    CSbdData data;
    AddRow(data, 305, {"G1", "W1", "W2"});
    AddRow(data, 305, {"G2", "W3", "W4"});
    const auto panel = MakePanelModel(data, 305);
    Set(*panel, 1, 1, "");
    CommitPanel(*panel, data);
    EXPECT_TRUE(panel->IsChanged());
    Set(*panel, 1, 1, "G1");
    CommitPanel(*panel, data);
    EXPECT_FALSE(panel->IsChanged());
    EXPECT_THAT(Rows(data, 305), ElementsAre(ElementsAre("G1", "W1", "W2"), ElementsAre("G2", "W3", "W4")));
}

TEST(TablePanel, RowsMovedInTheGridWithoutTextBetweenLeaveTheBlockUnchanged)
{
    CSbdData data;
    AddRow(data, 305, {"G1", "W1", "W2"});
    AddRow(data, 305, {"G2", "W3", "W4"});
    const auto panel = MakePanelModel(data, 305);
    panel->MoveRow(3, 2); // an empty row between the two: nothing to see in the data
    CommitPanel(*panel, data);
    EXPECT_EQ(Text(*panel, 3, 1), "G2");
    EXPECT_FALSE(panel->IsChanged());
    panel->MoveRow(3, 1);
    CommitPanel(*panel, data);
    EXPECT_TRUE(panel->IsChanged());
    EXPECT_EQ(Rows(data, 305)[0][0], "G2");
}

TEST(TablePanel, AStoredRowWithoutFirstCellIsDroppedAndCounts)
{
    CSbdData data;
    AddRow(data, 305, {"G1", "W1", "W2"});
    AddRow(data, 305, {"", "W3"});
    AddRow(data, 305, {"G3", "W5"});
    const auto panel = MakePanelModel(data, 305);
    CommitPanel(*panel, data);
    EXPECT_THAT(Rows(data, 305), ElementsAre(ElementsAre("G1", "W1", "W2"), ElementsAre("G3", "W5")));
    EXPECT_TRUE(panel->IsChanged());
}

TEST(TablePanel, ManyNewRowsAtOnceAreWrittenInOrder)
{
    CSbdData data;
    const auto panel = MakePanelModel(data, 305);
    for (int row = 1; row <= 40; ++row)
        Set(*panel, row, 1, "G" + std::to_string(row));
    EXPECT_THAT(CommitPanel(*panel, data), ElementsAre(ChangedRow{305, -1}));
    ASSERT_EQ(data.RowCount(305), 40U);
    EXPECT_EQ(Rows(data, 305)[39][0], "G40");
    Set(*panel, 40, 2, "W");
    EXPECT_THAT(CommitPanel(*panel, data), ElementsAre(ChangedRow{305, 39}));
}

TEST(TablePanel, SectionHeadsFollowTheType)
{
    CSbdData data;
    EXPECT_EQ(FromCp932(MakePanelModel(data, 331)->Head(1)), "主桁始");
    SetOption(data, 301, 3, "断面1のみ");
    EXPECT_EQ(FromCp932(MakePanelModel(data, 331)->Head(1)), "G(固定)");
}

TEST(TablePanel, LineNamesCarryTheControlRowInTheirRowNumber)
{
    CSbdData data;
    const auto panel = MakePanelModel(data, 412);
    EXPECT_EQ(FromCp932(panel->RowNumber(1)), "自動計算(YES_NO)1");
    EXPECT_EQ(FromCp932(panel->RowNumber(2)), "2");
    EXPECT_THAT(Words(*panel, 1, 1), ElementsAre("YES", "NO"));
}

TEST(TablePanel, TheMethodOf321DecidesWhatTheColumnsMean)
{
    CSbdData data;
    NameBridge(data);
    AddRow(data, 321, {"最大継手長", "12"});
    AddRow(data, 321, {"入力方法", "横桁と垂直補剛材より"});
    AddRow(data, 321, {"J1", "I桁", "G1", "G2", "C1", "2", "0.5", "溶接継手"});
    const auto panel = MakePanelModel(data, 321);
    EXPECT_THAT(Words(*panel, 3, 5), ElementsAre("A1", "C1", "A2"));
    EXPECT_THAT(Words(*panel, 3, 7), ElementsAre("CENTER"));
    EXPECT_EQ(Set(*panel, 2, 2, "自動_継手長出力"), CellEffect::Panel);
    EXPECT_THAT(Words(*panel, 3, 5), ElementsAre("終断面"));
    EXPECT_TRUE(panel->IsLocked(3, 7));
    EXPECT_TRUE(panel->IsLocked(20, 8));
    EXPECT_EQ(Text(*panel, 3, 8), "");
    CommitPanel(*panel, data);
    EXPECT_THAT(Rows(data, 321)[2], ElementsAre("J1", "I桁", "G1", "G2", "C1", "2"));
    Set(*panel, 2, 2, "横桁と垂直補剛材より");
    CommitPanel(*panel, data);
    EXPECT_THAT(Rows(data, 321)[2], ElementsAre("J1", "I桁", "G1", "G2", "C1", "2", "0.5", "溶接継手"))
        << "trying the other method cost what had been typed";
    EXPECT_FALSE(panel->IsChanged());
}

// --- size --------------------------------------------------------------------------------------------

TEST(TablePanel, AnEditInABlockOfTenThousandRowsWritesOneRow)
{
    CSbdData data;
    AddRow(data, 313, {"自動計算(YES_NO)", "YES_1"});
    SetOption(data, 301, 12, "YES_1");
    for (int row = 1; row < 10000; ++row)
        AddRow(data, 313, {"G1", "G2", "A1", "A2", "I桁", "130", "10", "3", "等間隔"});
    const auto panel = MakePanelModel(data, 313);
    EXPECT_EQ(panel->BlockRows(), 10000);
    EXPECT_EQ(panel->SpareRows(), 50);
    EXPECT_THAT(CommitPanel(*panel, data), IsEmpty());
    Set(*panel, 5000, 6, "140");
    EXPECT_THAT(CommitPanel(*panel, data), ElementsAre(ChangedRow{313, 4999}));
    EXPECT_TRUE(panel->IsChanged());
    Set(*panel, 5000, 6, "130");
    EXPECT_THAT(CommitPanel(*panel, data), ElementsAre(ChangedRow{313, 4999}));
    EXPECT_FALSE(panel->IsChanged());
}

TEST(TablePanel, ALineNameOf412NeverBecomesTheSwitchOfItsFirstRow)
{
    CSbdData data;
    const auto panel = MakePanelModel(data, 412);
    EXPECT_EQ(Set(*panel, 2, 1, "L1"), CellEffect::Panel);
    CommitPanel(*panel, data);
    EXPECT_THAT(Rows(data, 412), ElementsAre(ElementsAre("YES"), ElementsAre("L1")));
    Set(*panel, 1, 1, "NO");
    Set(*panel, 3, 1, "L2");
    CommitPanel(*panel, data);
    EXPECT_THAT(Rows(data, 412), ElementsAre(ElementsAre("NO"), ElementsAre("L1"), ElementsAre("L2")));
}

TEST(TablePanel, ARowThatComesAndOneThatGoesAreSeenAsAChangeOnlyWhereTheyDiffer)
{
    CSbdData data;
    for (const char* name : {"G1", "G2", "G3", "G4"})
        AddRow(data, 305, {name, "W"});
    const auto panel = MakePanelModel(data, 305);
    Set(*panel, 2, 1, ""); // G2 goes
    EXPECT_TRUE(panel->IsChanged());
    Set(*panel, 5, 1, "G5"); // another one comes
    EXPECT_TRUE(panel->IsChanged());
    Set(*panel, 5, 1, "");
    Set(*panel, 2, 1, "G2");
    EXPECT_FALSE(panel->IsChanged());
    // The rows G2 to G4 once more, one place further down: the block is the same.
    for (int row = 5; row > 2; --row)
        for (const int column : {1, 2})
            panel->SetCell(row, column, panel->Text(row - 1, column));
    Set(*panel, 2, 1, "");
    EXPECT_FALSE(panel->IsChanged());
    Set(*panel, 1, 2, "X"); // outside of the rows that moved
    EXPECT_TRUE(panel->IsChanged());
}

} // namespace
} // namespace sbd
