#include "project/catalogue.h"
#include "project/option_rows.h"
#include "project/panel_columns.h"
#include "project/sbd_data.h"
#include "project/text.h"

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
using testing::IsEmpty;

template <typename Panel>
std::vector<int> BlocksOf(std::span<const Panel> panels)
{
    std::vector<int> blocks;
    for (const Panel& panel : panels)
        blocks.push_back(panel.block);
    return blocks;
}

bool RisesStrictly(const std::vector<int>& blocks)
{
    return std::ranges::adjacent_find(blocks, std::ranges::greater_equal()) == blocks.end();
}

/// The word list in UTF-8, divided by "|".
std::string Shown(const WordList& words)
{
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : "|") + FromCp932(word);
    return text;
}

const PanelColumn& Column(int block, std::size_t column)
{
    return FindPanelTable(block)->columns.at(column);
}

/// Every word list of every panel with the place where it stands.
std::vector<std::pair<std::string, WordList>> AllWordLists()
{
    std::vector<std::pair<std::string, WordList>> lists;
    const auto add = [&lists](int block, std::size_t place, const WordList& words) {
        lists.emplace_back(std::to_string(block) + " at " + std::to_string(place), words);
    };
    for (const PanelTable& panel : PanelTables())
        for (std::size_t i = 0; i < panel.columns.size(); ++i)
            add(panel.block, i, panel.columns[i].words);
    for (const RecordPanel& panel : RecordPanels())
        for (std::size_t i = 0; i < panel.words.size(); ++i)
            add(panel.block, i, panel.words[i]);
    for (const OptionPanel& panel : OptionPanels())
        for (std::size_t i = 0; i < panel.words.size(); ++i)
            add(panel.block, i + 1, panel.words[i]);
    return lists;
}

} // namespace

TEST(PanelColumns, TheTablePanelsStandInOrderOfNumber)
{
    EXPECT_TRUE(RisesStrictly(BlocksOf(PanelTables())));
}

TEST(PanelColumns, TheOptionPanelsAreTheseInOrderOfNumber)
{
    EXPECT_THAT(BlocksOf(OptionPanels()),
                ElementsAre(301, 302, 303, 308, 309, 310, 401, 421, 521, 522, 531, 541, 571, 601, 701, 721, 801));
}

TEST(PanelColumns, TheRecordPanelsAreThoseOfRecordsAndNameLists)
{
    EXPECT_THAT(BlocksOf(RecordPanels()), ElementsAre(311, 324, 325, 501, 702));
}

TEST(PanelColumns, EachPanelIsFoundByItsNumberAndNoOther)
{
    std::set<int> tables, options, records;
    for (int block = 0; block <= 1000; ++block) {
        if (const PanelTable* panel = FindPanelTable(block)) {
            EXPECT_EQ(panel->block, block);
            tables.insert(block);
        }
        if (const OptionPanel* panel = FindOptionPanel(block)) {
            EXPECT_EQ(panel->block, block);
            options.insert(block);
        }
        if (const RecordPanel* panel = FindRecordPanel(block)) {
            EXPECT_EQ(panel->block, block);
            records.insert(block);
        }
    }
    EXPECT_EQ(tables.size(), PanelTables().size());
    EXPECT_EQ(options.size(), OptionPanels().size());
    EXPECT_EQ(records.size(), RecordPanels().size());
}

TEST(PanelColumns, EveryTablePanelIsCanonicalAndOpensTheTablePanelOfTheCatalogue)
{
    for (const PanelTable& panel : PanelTables()) {
        SCOPED_TRACE(panel.block);
        const CatalogueRow* row = FindBlock(panel.block);
        ASSERT_NE(row, nullptr);
        EXPECT_EQ(CanonicalBlock(panel.block), panel.block);
        EXPECT_TRUE(PanelOfBlock(panel.block).starts_with("CDown_DATA_")) << PanelOfBlock(panel.block);
    }
}

TEST(PanelColumns, EveryOptionAndRecordPanelIsCanonicalAndOpensTheClassOfItsNumber)
{
    std::vector<int> blocks = BlocksOf(OptionPanels());
    for (const RecordPanel& panel : RecordPanels())
        blocks.push_back(panel.block);
    for (const int block : blocks) {
        SCOPED_TRACE(block);
        const CatalogueRow* row = FindBlock(block);
        ASSERT_NE(row, nullptr);
        EXPECT_EQ(CanonicalBlock(block), block);
        EXPECT_EQ(PanelOfBlock(block), "CDown" + std::to_string(block));
    }
}

TEST(PanelColumns, EveryBlockWithASectionHasExactlyOnePanel)
{
    for (const CatalogueRow& row : Catalogue()) {
        const int panels = (FindPanelTable(row.block) != nullptr ? 1 : 0)
                           + (FindOptionPanel(row.block) != nullptr ? 1 : 0)
                           + (FindRecordPanel(row.block) != nullptr ? 1 : 0);
        EXPECT_EQ(panels, row.kind == BlockKind::None ? 0 : 1) << row.block;
    }
}

TEST(PanelColumns, ATablePanelHasAGridColumnForEachColumnOfItsBlockAndTheRowNumber)
{
    for (const PanelTable& panel : PanelTables()) {
        const CatalogueRow* row = FindBlock(panel.block);
        ASSERT_NE(row, nullptr) << panel.block;
        const int dataColumns = row->kind == BlockKind::Option ? 2 : row->columns;
        EXPECT_EQ(panel.columns.size(), static_cast<std::size_t>(dataColumns) + 1) << panel.block;
    }
}

TEST(PanelColumns, EveryColumnHasAWidth)
{
    for (const PanelTable& panel : PanelTables())
        for (const PanelColumn& column : panel.columns)
            EXPECT_GT(column.width, 0) << panel.block << " " << FromCp932(column.head);
    for (const RecordPanel& panel : RecordPanels())
        for (const int width : panel.widths)
            EXPECT_GT(width, 0) << panel.block;
}

TEST(PanelColumns, OnlyThreeColumnsHaveNoHead)
{
    std::vector<std::string> headless;
    for (const PanelTable& panel : PanelTables())
        for (std::size_t i = 0; i < panel.columns.size(); ++i)
            if (panel.columns[i].head.empty())
                headless.push_back(std::to_string(panel.block) + "/" + std::to_string(i));
    EXPECT_THAT(headless, ElementsAre("315/9", "668/5", "689/5"));
}

TEST(PanelColumns, TheLockedPartOfAnAutomaticRowFitsIntoThePanel)
{
    for (const PanelTable& panel : PanelTables()) {
        SCOPED_TRACE(panel.block);
        EXPECT_THAT(panel.headHeight, testing::AnyOf(30, 45, 60, 70, 90));
        EXPECT_GE(panel.automaticRows, 0);
        EXPECT_LE(panel.automaticRows, 2);
        EXPECT_GE(panel.usable, 3);
        EXPECT_LE(static_cast<std::size_t>(panel.usable), std::max<std::size_t>(panel.columns.size(), 3));
        EXPECT_LE(panel.fixedTexts.size() + 3, std::max<std::size_t>(panel.columns.size(), 3));
    }
}

TEST(PanelColumns, TheColumnsOfABlockAreAllNamedOrNone)
{
    for (const PanelTable& panel : PanelTables()) {
        const auto count = std::count_if(panel.columns.begin() + 1, panel.columns.end(),
                                         [](const PanelColumn& column) { return !column.name.empty(); });
        if (count > 0) {
            EXPECT_EQ(static_cast<std::size_t>(count) + 1, panel.columns.size()) << panel.block;
        }
    }
}

TEST(PanelColumns, ASecondSetOfHeadsCoversEveryColumn)
{
    std::vector<int> blocks;
    for (const PanelTable& panel : PanelTables()) {
        for (std::size_t i = 1; i < panel.columns.size(); ++i)
            EXPECT_EQ(panel.columns[i].sectionHead.empty(), !panel.hasSectionHeads) << panel.block << " " << i;
        if (panel.hasSectionHeads)
            blocks.push_back(panel.block);
    }
    EXPECT_THAT(blocks, ElementsAre(305, 331, 332, 333, 334, 338, 341, 342, 343, 344));
}

TEST(PanelColumns, ARecordPanelHasAHeadAWidthAndAListForEachColumn)
{
    for (const RecordPanel& panel : RecordPanels()) {
        SCOPED_TRACE(panel.block);
        EXPECT_EQ(panel.widths.size(), panel.heads.size());
        EXPECT_EQ(panel.words.size(), panel.heads.size());
        EXPECT_EQ(panel.sectionHeads.size(), panel.block == 311 ? panel.heads.size() : 0);
    }
}

TEST(PanelColumns, AnOptionPanelHasAListPlaceForEachRowOfItsBlock)
{
    for (const OptionPanel& panel : OptionPanels()) {
        SCOPED_TRACE(panel.block);
        const OptionBlock* block = FindOptionBlock(panel.block);
        ASSERT_NE(block, nullptr);
        EXPECT_EQ(panel.words.size(), block->rows.size());
        EXPECT_EQ(panel.heads[0], std::to_string(panel.block));
        EXPECT_GT(panel.labelWidth, 0);
        EXPECT_GT(panel.valueWidth + panel.lowerLimit, 0) << "the value column would vanish";
    }
}

TEST(PanelColumns, EveryWordCanBeStoredAndShown)
{
    for (const auto& [place, words] : AllWordLists()) {
        for (const std::string& word : words) {
            EXPECT_FALSE(word.empty()) << place;
            EXPECT_EQ(word.find('\n'), std::string::npos) << place;
            EXPECT_EQ(Cp932(FromCp932(word)), word) << place;
        }
    }
}

TEST(PanelColumns, TheNameMarksAreTheTwoThatAreResolved)
{
    for (const auto& [place, words] : AllWordLists())
        for (const std::string& word : words)
            EXPECT_TRUE(!word.starts_with("@") || word == "@girders" || word == "@beams")
                << place << ": " << FromCp932(word);
}

TEST(PanelColumns, BlocksOfOneKindShareTheirColumns)
{
    for (const auto& [first, last] : {std::pair(291, 296), std::pair(391, 396)}) {
        for (int block = first + 1; block <= last; ++block) {
            const PanelTable& panel = *FindPanelTable(block);
            ASSERT_EQ(panel.columns.size(), FindPanelTable(first)->columns.size());
            EXPECT_EQ(panel.columns[0].head, std::to_string(block));
            for (std::size_t i = 1; i < panel.columns.size(); ++i)
                EXPECT_EQ(panel.columns[i].head, Column(first, i).head);
        }
    }
}

TEST(PanelColumns, ATablePanelShowsItsHeadsWidthsAndLists)
{
    const PanelTable& panel = *FindPanelTable(313);
    EXPECT_EQ(panel.columns[0].width, 35);
    EXPECT_EQ(panel.columns[5].head, "I左右両"_cp932);
    EXPECT_EQ(panel.columns[6].head, "幅1\n(mm)"_cp932);
    EXPECT_EQ(panel.columns[9].width, 860);
    EXPECT_EQ(Shown(panel.columns[1].words), "@girders");
    EXPECT_EQ(Shown(panel.columns[5].words), "I桁|左腹板|右腹板|両腹板|I桁左側|I桁右側|I桁両側");
    EXPECT_THAT(panel.columns[6].words, IsEmpty());
}

TEST(PanelColumns, TheWebPanelTellsWhereItsAutomaticValueComesFrom)
{
    const PanelTable& panel = *FindPanelTable(331);
    EXPECT_EQ(Shown(panel.fixedTexts), " (301の| 9行目と|331～332)|は同時自動|リンク");
    EXPECT_EQ(panel.columns[1].sectionHead, "G(固定)"_cp932);
    EXPECT_EQ(panel.columns[6].sectionHead, panel.columns[6].head);
    EXPECT_EQ(panel.columns[8].name, "決定要因"_cp932);
}

TEST(PanelColumns, NumbersStandRightBehindTheAutomaticRow)
{
    EXPECT_EQ(Column(332, 7).rightAlignedFromRow, 2);
    EXPECT_EQ(Column(332, 6).rightAlignedFromRow, 0) << "materials are no numbers";
    EXPECT_EQ(Column(340, 14).rightAlignedFromRow, 2);
    EXPECT_EQ(Column(340, 15).rightAlignedFromRow, 0);
    EXPECT_EQ(Column(333, 6).rightAlignedFromRow, 0);
}

TEST(PanelColumns, AutomaticRowsFollowTheBlock)
{
    EXPECT_EQ(FindPanelTable(321)->automaticRows, 2);
    EXPECT_EQ(FindPanelTable(304)->automaticRows, 0);
    EXPECT_EQ(FindPanelTable(259)->automaticRows, 0);
    EXPECT_EQ(FindPanelTable(391)->automaticRows, 1);
    EXPECT_EQ(FindPanelTable(336)->usable, 12);
    EXPECT_EQ(FindPanelTable(402)->headHeight, 90);
    EXPECT_EQ(Column(412, 0).width, 120);
}

TEST(PanelColumns, SurplusWidthsAreDropped)
{
    EXPECT_EQ(Column(512, 19).width, 70);
    EXPECT_EQ(Column(668, 5).width, 300);
    EXPECT_EQ(Shown(Column(689, 4).words), "YES|NO");
}

TEST(PanelColumns, AListBuiltFromAnotherKeepsItsOrder)
{
    EXPECT_TRUE(Shown(Column(304, 9).words).starts_with("0|SS400|SM400|SM490Y|SM570|SM400-H"));
    EXPECT_TRUE(Shown(Column(341, 6).words).starts_with("なし|M20(S10T)|M20(F10T)"));
    EXPECT_TRUE(Shown(Column(514, 9).words).ends_with("部分_9|メタルタッチ|間隔_30|間隔_35|間隔_40"));
    EXPECT_EQ(Shown(FindOptionPanel(303)->words[12]), "自動|第１第２に同じ|75|80|85|90|95|100|105|110|115|120");
}

TEST(PanelColumns, AnOptionPanelOffersItsWordsByRow)
{
    const OptionPanel& panel = *FindOptionPanel(301);
    EXPECT_EQ(panel.labelWidth, 430);
    EXPECT_EQ(panel.valueWidth, 330);
    EXPECT_EQ(panel.lowerLimit, -250);
    EXPECT_EQ(panel.heads[1], "タイプ"_cp932);
    EXPECT_THAT(panel.words[0], IsEmpty());
    EXPECT_EQ(Shown(panel.words[1]), "YES|NO|自動");
    EXPECT_EQ(panel.words[2].size(), 10U);
    EXPECT_EQ(Shown(panel.words[16]), "一般|東北|北海道25|北海道35|北海道36");
    EXPECT_EQ(Shown(panel.words[35]), "YES|NO");
}

TEST(PanelColumns, ARibPatternKeepsItsBlanks)
{
    const WordList& words = FindOptionPanel(401)->words[4];
    ASSERT_EQ(words.size(), 12U);
    EXPECT_EQ(words[0], "UY, LY, A2,  100, 9, 120, 100, 20, 60, 50");
    EXPECT_EQ(words[4], "UY, LY,  B,   90, 9, 300, 35, 20, 24.5, 50, 90, 75, 75, 30, 65");
    EXPECT_EQ(words[11], "UN, LN, A1,  100, 9, 100, 0,  20, 60");
}

TEST(PanelColumns, TheGirderHeightPanelHasHeadsForSectionProjects)
{
    const RecordPanel& panel = *FindRecordPanel(311);
    EXPECT_EQ(panel.headHeight, 50);
    EXPECT_THAT(panel.widths, ElementsAre(35, 155, 100, 80, 80, 85, 85, 85, 85, 95, 90, 110));
    EXPECT_EQ(panel.heads[5], "桁高\n桁高始\n桁高始\n(m)"_cp932);
    EXPECT_EQ(panel.sectionHeads[3], "\n左(固定)"_cp932);
    EXPECT_EQ(panel.sectionHeads[11], "\n---");
    EXPECT_EQ(Shown(panel.words[3]), "@beams|左|右");
}

TEST(PanelColumns, NameMarksBecomeTheNamesOfTheProject)
{
    CSbdData data;
    data.gridNames.girderNames = {"G1", "G2"};
    data.gridNames.swayNames = {"S1"};
    EXPECT_THAT(ResolveWords({"G", "@girders"}, data), ElementsAre("G", "G1", "G2"));
    EXPECT_THAT(ResolveWords({"@girders", "@beams", "YES"}, data), ElementsAre("G1", "G2", "S1", "YES"));
    EXPECT_THAT(ResolveWords({}, data), IsEmpty());
}

TEST(PanelColumns, WithoutNamesOnlyTheFixedWordsStay)
{
    EXPECT_THAT(ResolveWords({"G", "@girders", "@beams"}, CSbdData()), ElementsAre("G"));
}

} // namespace sbd
