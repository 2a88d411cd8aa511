#include "panelmodel/replace.h"
#include "project/block_rules.h"
#include "project/catalogue.h"
#include "tests/panelmodel/panel_fixture.h"
#include "tests/seed.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace sbd {
namespace {

using namespace test;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string Replaced(std::string_view text, std::string_view wanted, std::string_view by, const MatchRule& rule = {})
{
    const std::optional<std::string> replaced = CTextMatcher(Cp932(wanted), rule).Replaced(Cp932(text), Cp932(by));
    return replaced ? FromCp932(*replaced) : "none";
}

TEST(TextMatch, CaseAndWidthAreAlikeOnRequest)
{
    EXPECT_EQ(Replaced("SM490Y", "sm490", "SM520"), "SM520Y");
    EXPECT_EQ(Replaced("ＳＭ４９０Y", "sm490", "SM520"), "SM520Y");
    EXPECT_EQ(Replaced("SM490Y", "ｓｍ４９０", "SM520"), "SM520Y");
    EXPECT_EQ(Replaced("SM490Y", "sm490", "x", {false, true, false}), "none");
    EXPECT_EQ(Replaced("ＳＭ490", "SM490", "x", {true, false, false}), "none");
    EXPECT_EQ(Replaced("ｓｍ", "ＳＭ", "x", {true, false, false}), "x") << "case is alike in full width too";
    EXPECT_EQ(Replaced("ｶﾞｾｯﾄ板", "ガセット", "G"), "G板");
    EXPECT_EQ(Replaced("ガセット板", "ｶﾞｾｯﾄ", "G"), "G板");
    EXPECT_EQ(Replaced("ﾊﾟｲﾌﾟ", "パイプ", "P"), "P");
    EXPECT_EQ(Replaced("ｶﾞ", "カ", "x"), "none") << "a voiced kana is another one";
    EXPECT_EQ(Replaced("　a　", " ", "-"), "-a-");
}

TEST(TextMatch, WhatStandsAroundAMatchStays)
{
    EXPECT_EQ(Replaced("G1,G1 Ｇ１", "g1", "GA1"), "GA1,GA1 GA1");
    EXPECT_EQ(Replaced("aaa", "aa", "b"), "ba") << "from the left, none over another";
    EXPECT_EQ(Replaced("G10", "G1", "x", {true, true, true}), "none");
    EXPECT_EQ(Replaced("G1", "G1", "x", {true, true, true}), "x");
    EXPECT_EQ(Replaced("桁G1", "G1", "x", {true, true, true}), "none");
    EXPECT_EQ(Replaced("", "", "x"), "none");
    EXPECT_EQ(Replaced("abc", "", "x"), "none");
}

TEST(TextMatch, NoMatchBeginsWithinACharacter)
{
    // The second byte of 表 is that of a backslash, the one of ア (0x83 0x41) that of an A.
    EXPECT_EQ(Replaced("表示", "\\", "/"), "none");
    EXPECT_EQ(Replaced("ア", "a", "x"), "none");
    const std::string broken = "\x83";
    EXPECT_FALSE(CTextMatcher("a", {}).IsIn(broken));
    EXPECT_EQ(CTextMatcher(broken, {}).Replaced("x\x83", "y"), "xy")
        << "a byte that is no character is found as itself";
}

FindRequest Request(std::string_view wanted, std::optional<std::string_view> by, int block = 0)
{
    FindRequest request;
    request.wanted = Cp932(wanted);
    if (by)
        request.by = Cp932(*by);
    request.block = block;
    return request;
}

std::vector<std::string> Lines(const std::vector<CellHit>& hits)
{
    std::vector<std::string> lines;
    for (const CellHit& hit : hits)
        lines.push_back(std::to_string(hit.block) + ' ' + std::to_string(hit.row) + ' ' + std::to_string(hit.column)
                        + ' ' + FromCp932(hit.before) + ">" + FromCp932(hit.after));
    return lines;
}

/// 313 with its automatic row and three rows, 332 with one.
class Replace : public ::testing::Test {
protected:
    Replace()
    {
        NameBridge(data_);
        AddRow(data_, 313, {"自動計算(YES_NO)", "YES_1"});
        AddRow(data_, 313, {"G1", "G2", "A1", "A2", "両面", "110", "9", "2", "1000"});
        AddRow(data_, 313, {"G1", "G2", "C1", "A2", "内面", "110", "9", "2", "G1"});
        AddRow(data_, 313, {"G10", "G2", "C1", "A2", "内面", "110", "9", "2", ""});
        AddRow(data_, 332, {"自動計算(YES_NO)", "YES"});
        AddRow(data_, 332, {"G1", "G2"});
    }
    /// As the document does it; what the blocks show then.
    ReplaceOutcome Do(const std::vector<CellHit>& hits)
    {
        CProjectWriter writer(data_);
        const ReplaceOutcome outcome = ReplaceCells(writer, hits);
        changes_ = writer.TakeChanges();
        return outcome;
    }

    CSbdData data_;
    std::vector<ProjectChange> changes_;
};

TEST_F(Replace, FindsACellOfEveryBlockOnceAndByPlace)
{
    MatchRule whole;
    whole.wholeCell = true;
    FindRequest request = Request("g1", "GA1");
    request.rule = whole;
    const std::vector<CellHit> hits = FindCells(data_, request);
    EXPECT_THAT(Lines(hits), ElementsAre("313 2 1 G1>GA1", "313 3 1 G1>GA1", "313 3 9 G1>GA1", "332 2 1 G1>GA1"));
    const CSbdData before = data_;
    const ReplaceOutcome outcome = Do(hits);
    EXPECT_EQ(outcome.put, 4U);
    EXPECT_EQ(outcome.stayed, 0U);
    EXPECT_THAT(FindCells(data_, request), IsEmpty());
    EXPECT_EQ(FromCp932(data_.Table(313)->columns[0][3]), "G10");
    TakeBack(data_, changes_);
    EXPECT_TRUE(*data_.Table(313) == *before.Table(313));
    EXPECT_TRUE(*data_.Table(332) == *before.Table(332));
}

TEST_F(Replace, OneBlockAloneLeavesTheOthers)
{
    EXPECT_THAT(Lines(FindCells(data_, Request("G1", "X", 332))), ElementsAre("332 2 1 G1>X"));
    EXPECT_THAT(FindCells(data_, Request("no such text", "X")), IsEmpty());
    EXPECT_THAT(FindCells(data_, Request("", "X")), IsEmpty());
    EXPECT_THAT(FindCells(data_, Request("G1", "G1", 332)), IsEmpty()) << "nothing would change";
}

TEST_F(Replace, WhatStaysIsSaidWithItsReason)
{
    const std::vector<CellHit> heads = FindCells(data_, Request("自動計算", "手動", 313));
    ASSERT_EQ(heads.size(), 1U) << "the word of the automatic row";
    EXPECT_EQ(heads[0].state, HitState::Locked);
    EXPECT_EQ(Do(heads).put, 0U);

    const std::vector<CellHit> emptied = FindCells(data_, Request("G1", "", 332));
    ASSERT_EQ(emptied.size(), 1U);
    EXPECT_EQ(emptied[0].state, HitState::LosesRow) << "a row without its first cell is not written";
    EXPECT_EQ(Do(emptied).put, 0U);
    EXPECT_EQ(data_.RowCount(332), 2U);

    const std::vector<std::string> words = Words(*MakePanelModel(data_, 313), 2, 5);
    ASSERT_GE(words.size(), 2U);
    data_.Table(313)->columns[4].Set(1, Cp932(words[0]));
    const std::vector<CellHit> list = FindCells(data_, Request(words[0], "りょうめん", 313));
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(list[0].state, HitState::Free);
    EXPECT_TRUE(list[0].leavesList);
    EXPECT_FALSE(FindCells(data_, Request(words[0], words[1], 313))[0].leavesList);
}

TEST_F(Replace, ACellOfNumbersRefusesInThePreview)
{
    HGirderRecord record;
    record.names = {"G1", "G1", "A1", "A2"};
    record.numbers[0] = 2.5;
    data_.hGirder.records.push_back(record);
    const std::vector<CellHit> hits = FindCells(data_, Request("2.5", "2.x", 311));
    ASSERT_EQ(hits.size(), 1U);
    EXPECT_EQ(hits[0].state, HitState::NoNumber);
    EXPECT_EQ(hits[0].part, "2.x");
    EXPECT_EQ(Do(hits).stayed, 1U);
    EXPECT_EQ(Do(FindCells(data_, Request("2.5", "３．５", 311))).put, 1U);
    EXPECT_EQ(data_.hGirder.records[0].numbers[0], 3.5);
}

TEST_F(Replace, ACellThatHasChangedSinceStays)
{
    const std::vector<CellHit> hits = FindCells(data_, Request("G1", "X", 332));
    data_.Table(332)->columns[0].Set(1, "G7");
    const ReplaceOutcome outcome = Do(hits);
    EXPECT_EQ(outcome.put, 0U);
    EXPECT_EQ(outcome.stayed, 1U);
    EXPECT_EQ(data_.Table(332)->columns[0][1], "G7");
}

TEST_F(Replace, AValueThatBlocksShareIsThereOnceAndFollows)
{
    const SharedOption& places = SharedOptions().front();
    for (const OptionPlace& place : places)
        if (place.block != 0)
            SetOption(data_, place.block, place.row, "SM490Y-X");
    const std::vector<CellHit> hits = FindCells(data_, Request("490y-x", "520"));
    ASSERT_EQ(hits.size(), 1U) << "a shared value is one value";
    EXPECT_FALSE(hits[0].alsoIn.empty());
    EXPECT_EQ(Do(hits).put, 1U);
    for (const OptionPlace& place : places) {
        if (place.block == 0)
            continue;
        EXPECT_EQ(Option(data_, place.block, place.row), "SM520") << place.block;
    }
}

TEST_F(Replace, LabelsAreFoundButNotReplaced)
{
    const std::unique_ptr<CPanelModel> panel = MakePanelModel(data_, 301);
    const std::string label = FromCp932(panel->Text(3, 1));
    const std::vector<CellHit> found = FindCells(data_, Request(label, std::nullopt, 301));
    ASSERT_FALSE(found.empty());
    EXPECT_EQ(found[0].column, 1);
    EXPECT_THAT(FindCells(data_, Request(label, "x", 301)), IsEmpty());
}

TEST_F(Replace, TheGridOnShowHasRowsOfItsOwnAndRowsOutOfSight)
{
    OpenGrid open;
    open.block = 332;
    open.hidden = {0, 1};
    std::vector<CellHit> hits = FindCells(data_, Request("G1", "X", 332), open);
    ASSERT_EQ(hits.size(), 1U);
    EXPECT_EQ(hits[0].state, HitState::Hidden);
    open.hidden.clear();
    std::unique_ptr<CPanelModel> panel = MakePanelModel(data_, 332);
    panel->SetCell(4, 2, "G1"); // a row without its first cell
    open.loose = panel->Loose();
    hits = FindCells(data_, Request("G1", "X", 332), open);
    EXPECT_THAT(Lines(hits), ElementsAre("332 2 1 G1>X", "332 4 2 G1>X"));
    EXPECT_EQ(TextsOf(*panel, hits).size(), 2U);
}

// --- what is found without looking at each cell of each panel ------------------------------------------

class FoundInEveryPanel : public RandomTest {
protected:
    std::string AnyText()
    {
        static const std::vector<std::string> parts = {
            "G", "g1", "SM490Y", "12", Cp932("表"), Cp932("Ｇ１"), " ", "", Cp932("ｶﾞ"), Cp932("自動"), "NO", "\x83"};
        std::string text;
        for (std::size_t i = UpTo(2); i > 0; --i)
            text += parts[UpTo(parts.size() - 1)];
        return text;
    }
    void Fill(CSbdData& data)
    {
        for (const CatalogueRow& row : Catalogue())
            if (TableBlock* table = data.Table(row.block); table != nullptr && UpTo(2) > 0)
                for (std::size_t rows = UpTo(6); rows > 0; --rows) {
                    std::vector<std::string> cells;
                    for (std::size_t column = 0; column < table->columns.size(); ++column)
                        cells.push_back(AnyText());
                    table->AppendRow({cells.begin(), cells.end()});
                }
    }
};

/// Each cell that a panel shows, by block, row and column.
std::vector<std::string> InThePanels(const CSbdData& data, const CTextMatcher& matcher)
{
    std::set<int> blocks;
    for (const CatalogueRow& row : Catalogue())
        if (PanelBlock(row.block) == row.block)
            blocks.insert(row.block);
    std::vector<std::string> places;
    for (const int block : blocks) {
        const std::unique_ptr<CPanelModel> panel = MakePanelModel(data, block);
        for (int row = 1; row <= panel->BlockRows(); ++row)
            for (int column = 1; column < panel->ColumnCount(); ++column)
                if (matcher.IsIn(panel->Text(row, column)))
                    places.push_back(std::to_string(block) + ' ' + std::to_string(row) + ' ' + std::to_string(column));
    }
    return places;
}

TEST_F(FoundInEveryPanel, IsWhatThePanelsShow)
{
    for (int round = 0; round < 20; ++round) {
        CSbdData data;
        Fill(data);
        FindRequest request;
        do
            request.wanted = AnyText();
        while (request.wanted.empty());
        request.rule = {UpTo(1) > 0, UpTo(1) > 0, UpTo(3) == 0};
        std::vector<std::string> places;
        for (const CellHit& hit : FindCells(data, request))
            places.push_back(std::to_string(hit.block) + ' ' + std::to_string(hit.row) + ' '
                             + std::to_string(hit.column));
        EXPECT_EQ(places, InThePanels(data, CTextMatcher(request.wanted, request.rule))) << FromCp932(request.wanted);
    }
}

/// A replace in models that are made for a moment is the one that is typed into panels as the window makes them.
TEST_F(FoundInEveryPanel, IsReplacedAsIfTyped)
{
    for (int round = 0; round < 20; ++round) {
        CSbdData data;
        Fill(data);
        FindRequest request;
        request.wanted = "1";
        request.by = AnyText();
        const std::vector<CellHit> hits = FindCells(data, request);
        CSbdData typed = data;
        CProjectWriter writer(data);
        (void)ReplaceCells(writer, hits);
        for (std::size_t i = 0; i < hits.size();) {
            const int block = hits[i].block;
            const std::unique_ptr<CPanelModel> panel =
                MakePanelModel(typed, block, {.listNames = ListNames::OfTheProject});
            bool any = false;
            for (; i < hits.size() && hits[i].block == block; ++i)
                if (hits[i].state == HitState::Free && panel->Text(hits[i].row, hits[i].column) == hits[i].before)
                    any = panel->SetCell(hits[i].row, hits[i].column, hits[i].after) != CellEffect::None || any;
            if (any)
                (void)CommitPanel(*panel, typed);
        }
        EXPECT_TRUE(data.SameProject(typed)) << FromCp932(*request.by);
    }
}

} // namespace
} // namespace sbd
