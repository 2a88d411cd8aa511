#include "compare/compare.h"
#include "compare/merge.h"
#include "compare/rows.h"
#include "sbdfile/reader.h"
#include "tests/sbdfile/sections.h"
#include "tests/seed.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace sbd {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

CSbdData Project(std::string_view utf8)
{
    CSbdData data;
    ReadProject(FileOf(utf8), data);
    return data;
}

std::string Radius(const std::vector<std::string>& rows)
{
    std::string text = "[SEC_RADIUS]\n 自動計算(YES_NO) NO\n";
    for (const std::string& row : rows)
        text += " " + row + "\n";
    return text + "[END]\n";
}

std::vector<std::string> RowsOf(const CSbdData& data, int block)
{
    std::vector<std::string> rows;
    for (const Cells& row : TableRows(*data.Table(block)))
        rows.push_back(Joined(row));
    return rows;
}

MergeResult Merged(const std::vector<std::string>& base, const std::vector<std::string>& ours,
                   const std::vector<std::string>& theirs)
{
    return MergeProjects(Project(Radius(base)), Project(Radius(ours)), Project(Radius(theirs)));
}

/// The rows behind the control row.
std::vector<std::string> MergedRows(const MergeResult& result)
{
    std::vector<std::string> rows = RowsOf(result.data, 328);
    rows.erase(rows.begin());
    return rows;
}

const std::string kA = "G1 G2 C1 C2 100";
const std::string kB = "G1 G2 C2 C3 200";
const std::string kC = "G1 G2 C3 C4 300";

} // namespace

TEST(Merge, ChangesOfDifferentRowsComeTogether)
{
    const MergeResult result = Merged({kA, kB, kC}, {"G1 G2 C1 C2 150", kB, kC}, {kA, kB, "G1 G2 C3 C4 350"});
    EXPECT_THAT(MergedRows(result), ElementsAre("G1 G2 C1 C2 150", kB, "G1 G2 C3 C4 350"));
    EXPECT_THAT(result.conflicts, IsEmpty());
    EXPECT_EQ(result.taken, 1U);
}

TEST(Merge, ChangesOfDifferentCellsOfOneRowComeTogether)
{
    const MergeResult result = Merged({kA, kB}, {"G1 G3 C1 C2 100", kB}, {"G1 G2 C1 C2 150", kB});
    EXPECT_THAT(MergedRows(result), ElementsAre("G1 G3 C1 C2 150", kB));
    EXPECT_THAT(result.conflicts, IsEmpty());
}

TEST(Merge, ACellThatBothHaveChangedIsAConflictAndOursStays)
{
    const MergeResult result = Merged({kA, kB}, {kA, "G1 G2 C2 C3 210"}, {kA, "G1 G2 C2 C3 220"});
    EXPECT_THAT(MergedRows(result), ElementsAre(kA, "G1 G2 C2 C3 210"));
    ASSERT_THAT(result.conflicts, SizeIs(1));
    const MergeConflict& conflict = result.conflicts[0];
    EXPECT_EQ(conflict.kind, ConflictKind::Value);
    EXPECT_EQ(conflict.block, 328);
    EXPECT_EQ(conflict.row, 3);
    EXPECT_EQ(conflict.column, 5);
    EXPECT_TRUE(ConflictText(conflict).starts_with("328 曲率半径 3行目 5列目(")) << ConflictText(conflict);
    EXPECT_TRUE(ConflictText(conflict).ends_with("元「200」 こちら「210」 相手「220」 (こちらの値を残しました)"))
        << ConflictText(conflict);
}

TEST(Merge, TheSameChangeOnBothSidesIsNone)
{
    const MergeResult result = Merged({kA}, {"G1 G2 C1 C2 1", kB}, {"G1 G2 C1 C2 1", kB});
    EXPECT_THAT(MergedRows(result), ElementsAre("G1 G2 C1 C2 1", kB));
    EXPECT_THAT(result.conflicts, IsEmpty());
}

TEST(Merge, ARowThatOneHasAddedAboveDoesNotMoveTheOthersChange)
{
    const std::string added = "G7 G8 C7 C8 900";
    const MergeResult result = Merged({kA, kB}, {added, "G1 G2 C1 C2 150", kB}, {"G1 G3 C1 C2 100", kB});
    EXPECT_THAT(MergedRows(result), ElementsAre(added, "G1 G3 C1 C2 150", kB));
    EXPECT_THAT(result.conflicts, IsEmpty());
}

TEST(Merge, RowsThatBothHaveAddedAreAllThere)
{
    const MergeResult result = Merged({kA}, {kA, kB}, {kA, kC});
    EXPECT_THAT(MergedRows(result), ElementsAre(kA, kB, kC));
    EXPECT_THAT(result.conflicts, IsEmpty());
}

TEST(Merge, RowsThatBothHaveAddedForTheSamePlaceAreAConflictAndBothStay)
{
    const MergeResult result = Merged({kA}, {kA, kB}, {kA, "G1 G2 C2 C3 250"});
    EXPECT_THAT(MergedRows(result), ElementsAre(kA, kB, "G1 G2 C2 C3 250"));
    ASSERT_THAT(result.conflicts, SizeIs(1));
    EXPECT_EQ(result.conflicts[0].kind, ConflictKind::AddedTwice);
}

TEST(Merge, ARowThatOneHasRemovedIsGone)
{
    EXPECT_THAT(MergedRows(Merged({kA, kB, kC}, {kA, kC}, {kA, kB, kC})), ElementsAre(kA, kC));
    EXPECT_THAT(MergedRows(Merged({kA, kB, kC}, {kA, kB, kC}, {kA, kC})), ElementsAre(kA, kC));
}

TEST(Merge, ARowThatOneHasRemovedAndTheOtherChangedStaysAndIsAConflict)
{
    for (const bool oursRemoves : {true, false}) {
        const std::vector<std::string> without = {kA, kC};
        const std::vector<std::string> with = {kA, "G1 G2 C2 C3 250", kC};
        const MergeResult result =
            oursRemoves ? Merged({kA, kB, kC}, without, with) : Merged({kA, kB, kC}, with, without);
        EXPECT_THAT(MergedRows(result), ElementsAre(kA, "G1 G2 C2 C3 250", kC)) << oursRemoves;
        ASSERT_THAT(result.conflicts, SizeIs(1));
        EXPECT_EQ(result.conflicts[0].kind, ConflictKind::RemovedOrChanged);
    }
}

TEST(Merge, OptionValuesComeTogetherAndConflictsAreNamed)
{
    CSbdData base;
    CSbdData ours = base;
    CSbdData theirs = base;
    ours.SetOption(302, 5, "10");
    theirs.SetOption(302, 6, "30");
    ours.SetOption(302, 7, "11");
    theirs.SetOption(302, 7, "12");
    const MergeResult result = MergeProjects(base, ours, theirs);
    EXPECT_EQ(result.data.Option(302, 5), "10");
    EXPECT_EQ(result.data.Option(302, 6), "30");
    EXPECT_EQ(result.data.Option(302, 7), "11");
    ASSERT_THAT(result.conflicts, SizeIs(1));
    EXPECT_EQ(result.conflicts[0].row, 8);
}

TEST(Merge, RecordsNamesAndUnknownLinesComeTogether)
{
    CSbdData base;
    base.hGirder.records.resize(2);
    base.hGirder.records[0].names = {"G1", "G1", "C1", "C2"};
    base.hGirder.records[1].names = {"G2", "G2", "C1", "C2"};
    base.unknownLines = {"[X]", " a", "[END]"};
    CSbdData ours = base;
    CSbdData theirs = base;
    ours.hGirder.records[0].numbers[0] = 2.0;
    theirs.hGirder.records[1].numbers[0] = 3.0;
    ours.Names(501)->lists[0] = {"G1"};
    theirs.unknownLines[1] = " b";
    const MergeResult result = MergeProjects(base, ours, theirs);
    EXPECT_EQ(result.data.hGirder.records[0].numbers[0], 2.0);
    EXPECT_EQ(result.data.hGirder.records[1].numbers[0], 3.0);
    EXPECT_THAT(result.data.Names(501)->lists[0], ElementsAre("G1"));
    EXPECT_EQ(result.data.unknownLines[1], " b");
    EXPECT_THAT(result.conflicts, IsEmpty());
}

class MergeOfAnything : public RandomTest {};

TEST_F(MergeOfAnything, WithOneSideUnchangedTheOtherComesOut)
{
    for (int round = 0; round < 200; ++round) {
        std::vector<std::string> base;
        std::vector<std::string> other;
        for (int row = 0; row < 8; ++row) {
            const std::string text = "G1 G2 C" + std::to_string(random() % 4) + " C9 " + std::to_string(random() % 3);
            base.push_back(text);
            if (random() % 4 > 0)
                other.push_back(random() % 3 > 0 ? text : "G1 G2 C" + std::to_string(random() % 4) + " C9 7");
            if (random() % 4 == 0)
                other.push_back("G5 G6 C1 C2 " + std::to_string(random() % 3));
        }
        const CSbdData a = Project(Radius(base));
        const CSbdData b = Project(Radius(other));
        for (const MergeResult& result : {MergeProjects(a, a, b), MergeProjects(a, b, a), MergeProjects(a, b, b)}) {
            EXPECT_THAT(CompareProjects(result.data, b), IsEmpty()) << "round " << round;
            EXPECT_THAT(result.conflicts, IsEmpty()) << "round " << round;
        }
    }
}

} // namespace sbd
