#include "check/cell_changes.h"
#include "tests/sbdfile/sections.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace sbd {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kKinds[] = {"cell", "added", "removed", "unseen"};

/// "kind block/row/column@at: before > after", one a change.
std::vector<std::string> Texts(const CCellChanges& changes)
{
    std::vector<std::string> texts;
    for (const ShownChange& change : changes.List())
        texts.push_back(std::string(kKinds[static_cast<int>(change.kind)]) + " " + std::to_string(change.block) + "/"
                        + std::to_string(change.row) + "/" + std::to_string(change.column) + "@"
                        + std::to_string(change.at) + ": " + FromCp932(change.before) + " > "
                        + FromCp932(change.after));
    return texts;
}

CSbdData Groups(const std::vector<std::vector<std::string_view>>& rows)
{
    CSbdData data;
    for (const std::vector<std::string_view>& row : rows)
        data.Table(323)->AppendRow(row);
    return data;
}

} // namespace

TEST(CellChanges, TheSameProjectHasNone)
{
    const CSbdData data = Groups({{"G1", "G2"}});
    const CCellChanges changes(data, data);
    EXPECT_THAT(changes.List(), IsEmpty());
    EXPECT_EQ(changes.Counts(), ChangeCounts());
}

TEST(CellChanges, ACellStandsAtItsPlaceInTheGrid)
{
    const CCellChanges changes(Groups({{"G1", "G2"}, {"G3", "G4"}}), Groups({{"G1", "G2"}, {"G3", "X"}}));
    EXPECT_THAT(Texts(changes), ElementsAre("cell 323/2/2@2: G4 > X"));
    EXPECT_EQ(changes.Counts(), (ChangeCounts{1, 1, 0, 0, 0}));
}

TEST(CellChanges, AnOptionStandsInTheColumnOfValues)
{
    CSbdData after;
    after.SetOption(301, 0, "A");
    const CCellChanges changes(CSbdData(), after);
    EXPECT_THAT(Texts(changes), ElementsAre("cell 301/1/2@1: SBD1 > A"));
}

TEST(CellChanges, ABlockOfManyNumbersIsOne)
{
    CSbdData after;
    after.SetOption(521, 0, "NEW");
    const CCellChanges changes(CSbdData(), after);
    EXPECT_EQ(changes.Counts(), (ChangeCounts{1, 1, 0, 0, 0}));
    ASSERT_EQ(changes.List().size(), 1U);
    EXPECT_EQ(changes.List()[0].block, 521);
}

TEST(CellChanges, RowsAheadOfTheStoredOnesAreCounted)
{
    CSbdData after;
    after.hGirder.types[1] = "X";
    EXPECT_THAT(Texts(CCellChanges(CSbdData(), after)), ElementsAre(testing::StartsWith("cell 311/2/2@2: ")));
    CSbdData girders;
    girders.hGirder.records.resize(2);
    girders.hGirder.records[0].names[0] = "G1";
    girders.hGirder.records[1].names[0] = "G2";
    CSbdData other = girders;
    other.hGirder.records[1].names[0] = "G3";
    EXPECT_THAT(Texts(CCellChanges(girders, other)), ElementsAre("cell 311/6/1@6: G2 > G3"));
}

TEST(CellChanges, ARowPutInIsOneChangeAndTheRowsBelowAreNone)
{
    const CSbdData before = Groups({{"G1", "a"}, {"G2", "b"}, {"G3", "c"}});
    EXPECT_THAT(Texts(CCellChanges(before, Groups({{"G1", "a"}, {"X", "x"}, {"G2", "b"}, {"G3", "c"}}))),
                ElementsAre("added 323/2/0@2:  > X x"));
    EXPECT_THAT(Texts(CCellChanges(before, Groups({{"G1", "a"}, {"G3", "c"}}))),
                ElementsAre("removed 323/2/0@1: G2 b > "));
}

TEST(CellChanges, WhatNoPanelShowsIsToldWithoutAPlace)
{
    CSbdData after;
    after.unknownLines = {"[X]", " a", "[END]"};
    const CCellChanges changes(CSbdData(), after);
    EXPECT_EQ(changes.Counts(), (ChangeCounts{0, 0, 0, 0, 3}));
    EXPECT_EQ(changes.List().front().row, 0);
}

TEST(CellChanges, AnEditEndsTheChangeOfItsCellAlone)
{
    const CSbdData before = Groups({{"G1", "a"}, {"G2", "b"}});
    CSbdData now = Groups({{"G1", "A"}, {"G2", "B"}});
    CCellChanges changes(before, now);
    EXPECT_FALSE(changes.Follow(now, 323));
    now = Groups({{"G1", "A"}, {"G2", "mine"}});
    EXPECT_TRUE(changes.Follow(now, 323));
    EXPECT_THAT(Texts(changes), ElementsAre("cell 323/1/2@1: a > A"));
    // Back again: the user has had it in hand.
    EXPECT_FALSE(changes.Follow(Groups({{"G1", "A"}, {"G2", "B"}}), 323));
}

TEST(CellChanges, ChangesGoAlongWithTheirRow)
{
    CCellChanges changes(Groups({{"G1", "a"}, {"G2", "b"}, {"G5", "c"}}),
                         Groups({{"G1", "a"}, {"G2", "B"}, {"X", "x"}, {"G5", "c"}}));
    EXPECT_THAT(Texts(changes), ElementsAre("cell 323/2/2@2: b > B", "added 323/3/0@3:  > X x"));
    changes.Follow(Groups({{"NEW", ""}, {"G1", "a"}, {"G2", "B"}, {"X", "x"}, {"G5", "c"}}), 323);
    EXPECT_THAT(Texts(changes), ElementsAre("cell 323/3/2@3: b > B", "added 323/4/0@4:  > X x"));
    changes.Follow(Groups({{"NEW", ""}, {"G1", "a"}, {"X", "x"}, {"G5", "c"}}), 323);
    EXPECT_THAT(Texts(changes), ElementsAre("added 323/3/0@3:  > X x"));
}

TEST(CellChanges, TakenBackNothingIsLeft)
{
    const CSbdData before = Groups({{"G1", "a"}, {"G2", "b"}, {"G3", "c"}});
    CCellChanges changes(before, Groups({{"G1", "A"}, {"G3", "c"}, {"G4", "d"}}));
    EXPECT_THAT(Texts(changes),
                ElementsAre("cell 323/1/2@1: a > A", "removed 323/2/0@1: G2 b > ", "added 323/3/0@3:  > G4 d"));
    changes.Follow(before, 323);
    EXPECT_THAT(Texts(changes), IsEmpty());
}

TEST(CellChanges, TheListIsBoundAndTheCountIsWhole)
{
    CSbdData before;
    CSbdData after;
    for (int row = 0; row < 15'000; ++row) {
        before.Table(323)->AppendRow({std::string_view("G" + std::to_string(row)), "a"});
        after.Table(323)->AppendRow({std::string_view("H" + std::to_string(row)), "b"});
    }
    const CCellChanges changes(before, after);
    EXPECT_EQ(changes.Counts().cells, 30'000U);
    EXPECT_EQ(changes.List().size(), CCellChanges::kMostListed);
    EXPECT_EQ(changes.More(), 10'000U);
}

} // namespace sbd
