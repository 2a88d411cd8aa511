#include "project/edit_history.h"

#include <gtest/gtest.h>

#include <string>

namespace sbd {

namespace {

void Write(CEditHistory& history, CSbdData& data, const std::string& value)
{
    CProjectWriter writer(data);
    writer.SetOption(301, 0, value);
    history.Add({{301, 1, 2}, "301", writer.TakeChanges(), {}, {}});
}

TEST(EditHistory, HoldsAThousandStepsAndMoreAndLetsTheOldestGo)
{
    CSbdData data;
    CEditHistory history;
    for (int i = 1; i <= 10000; ++i)
        Write(history, data, std::to_string(i));
    EXPECT_GE(history.Size(), 1024U);
    EXPECT_LT(history.Size(), 10000U);
    const std::size_t steps = history.Size();
    while (history.NextUndo() != nullptr)
        history.Undo(data);
    EXPECT_EQ(data.Option(301, 0), std::to_string(10000 - steps));
    while (history.NextRedo() != nullptr)
        history.Redo(data);
    EXPECT_EQ(data.Option(301, 0), "10000");
}

TEST(EditHistory, HoldsNoMoreThan64MegabytesHoweverLargeTheSteps)
{
    CSbdData data;
    CEditHistory history;
    for (int i = 0; i < 200; ++i) {
        Write(history, data, std::string(1U << 20, static_cast<char>('a' + i % 20)));
        EXPECT_LE(history.Bytes(), 64U << 20);
    }
    EXPECT_GT(history.Size(), 50U);
    std::size_t steps = 0;
    for (; history.NextUndo() != nullptr; ++steps)
        history.Undo(data);
    EXPECT_LE(history.Bytes(), 64U << 20) << "the states have changed places";
    EXPECT_GT(steps, 50U);
}

TEST(EditHistory, TheSavedPointIsNotReachedAnyMoreWhenItsStepsHaveGone)
{
    CSbdData data;
    CEditHistory history;
    history.MarkSaved();
    Write(history, data, "a");
    EXPECT_FALSE(history.IsClean());
    history.MarkSaved();
    Write(history, data, "b");
    history.Undo(data);
    EXPECT_TRUE(history.IsClean());
    history.Undo(data);
    EXPECT_FALSE(history.IsClean());
    Write(history, data, "c"); // "a" cannot be made again
    EXPECT_EQ(history.NextRedo(), nullptr);
    EXPECT_FALSE(history.IsClean());
    history.Undo(data);
    EXPECT_FALSE(history.IsClean());
}

TEST(EditHistory, AStepOfTheGridAloneGoesWithItsPanel)
{
    CSbdData data;
    CEditHistory history;
    history.MarkSaved();
    Write(history, data, "a");
    history.Add({{313, 5, 2}, "313", {}, {60, {}}, {60, {{5, {"", "x"}}}}});
    history.ForgetGrid(301);
    EXPECT_EQ(history.Size(), 2U);
    history.ForgetGrid(313);
    EXPECT_EQ(history.Size(), 1U);
    history.Undo(data);
    EXPECT_TRUE(history.IsClean());
    EXPECT_EQ(history.NextUndo(), nullptr);
}

TEST(ProjectWriter, EveryKindOfChangeComesBack)
{
    CSbdData data;
    data.Table(313)->AppendRow({"a", "b"});
    data.hGirder.records.resize(1);
    const CSbdData before = data;
    CProjectWriter writer(data);
    writer.SetOption(301, 0, "x");
    writer.SetCell(313, 0, 1, "c");
    writer.InsertRow(313, 0, {"n"});
    writer.EraseRow(313, 1);
    writer.ReplaceTable(314, *data.Table(313));
    writer.SetRecord<HGirderRecord>(0, {{"G1", "G2", "", ""}});
    writer.InsertRecord<HGirderRecord>(0, {{"G0", "", "", ""}});
    writer.EraseRecord<HGirderRecord>(1);
    writer.ReplaceRecords<LRibRecord>({LRibRecord(), LRibRecord()});
    writer.InsertRecord<CrossRibRecord>(0, {});
    writer.SetHeightTypes({"1", "2", "3", "4"});
    writer.SetNames(501, {"NO", {{"G1"}, {}, {}}});
    const CSbdData after = data;
    std::vector<ProjectChange> changes = writer.TakeChanges();
    EXPECT_EQ(changes.size(), 12U);
    TakeBack(data, changes);
    EXPECT_TRUE(data.SameProject(before));
    MakeAgain(data, changes);
    EXPECT_TRUE(data.SameProject(after));

    CSbdData copy = before;
    CProjectWriter all(copy);
    all.Replace(after);
    EXPECT_TRUE(copy.SameProject(after));
    std::vector<ProjectChange> differing = all.TakeChanges();
    TakeBack(copy, differing);
    EXPECT_TRUE(copy.SameProject(before));
}

} // namespace

} // namespace sbd
