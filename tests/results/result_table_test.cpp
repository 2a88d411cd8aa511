#include "results/result_table.h"
#include "tests/results/result_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace sbd {

using namespace literals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

ResultSelection Selection(ResultKind kind, std::string girder, std::string station = NoneWord())
{
    ResultSelection selection;
    selection.kind = kind;
    selection.load = "死荷重"_cp932;
    selection.girder = std::move(girder);
    selection.station = std::move(station);
    return selection;
}

std::vector<std::string> Names(const CResultTable& table)
{
    std::vector<std::string> names;
    for (std::size_t row = 0; row < table.RowCount(); ++row)
        names.emplace_back(table.Name(row));
    return names;
}

} // namespace

TEST(ResultTable, ForcesStandAtBothEndsWithTheRightOnesTurned)
{
    const AnalysisResults results = SmallBridge();
    ResultSelection selection = Selection(ResultKind::Force, "G2");
    selection.columnOn = {false, true, false, false, true, false};
    const CResultTable table(results, selection);
    ASSERT_EQ(table.GridColumnCount(), 6U);
    EXPECT_EQ(table.CellText(0, 0), "253");
    EXPECT_EQ(table.CellText(0, 1), "要素名"_cp932);
    EXPECT_EQ(table.CellText(0, 2), "左Sy"_cp932);
    EXPECT_EQ(table.CellText(0, 5), "右My"_cp932);
    EXPECT_THAT(Names(table), ElementsAre("G2-S1", "G2-C1"));
    EXPECT_EQ(table.Value(0, 0), 2001);
    EXPECT_EQ(table.Value(1, 3), -3010);
    EXPECT_EQ(table.CellText(4, 5), "           -3010.000") << "20 characters";
}

TEST(ResultTable, OnlyUzChangesItsSign)
{
    const AnalysisResults results = SmallBridge();
    const CResultTable table(results, Selection(ResultKind::Displacement, "G1"));
    EXPECT_EQ(table.Value(1, 1), 1001e3);
    EXPECT_EQ(table.Value(1, 2), -1002e3);
    EXPECT_EQ(table.Value(1, 3), 1003e3);
    EXPECT_EQ(table.CellText(0, 4), "1000･Uz"_cp932);
    EXPECT_EQ(table.CellText(4, 4), "-1002000.000");
}

TEST(ResultTable, NodesWithoutResultsAreSkippedButMembersNever)
{
    AnalysisResults results = SmallBridge();
    EXPECT_THAT(Names(CResultTable(results, Selection(ResultKind::Displacement, "G1"))), ElementsAre("G1-S1", "G1-C1"));
    results.nodeTable.nodeFlags.assign(6, -1);
    EXPECT_EQ(Names(CResultTable(results, Selection(ResultKind::Force, "G1"))).size(), 2U);
    EXPECT_THAT(Names(CResultTable(results, Selection(ResultKind::Displacement, AllWord()))), IsEmpty());
}

TEST(ResultTable, NamesAreTakenByTheirBeginnings)
{
    AnalysisResults results = SmallBridge();
    results.model.girderNames = {"G1", "G10"};
    results.model.elementNames = {"G1-A", "G10-A", "G1", "なし-A"_cp932, "A-G1", "G1A-B", ""};
    const auto taken = [&](const std::string& girder, const std::string& station) {
        return Names(CResultTable(results, Selection(ResultKind::Force, girder, station)));
    };
    EXPECT_THAT(taken("G1", NoneWord()), ElementsAre("G1-A", "なし-A"_cp932)) << "なし is a beginning like any other";
    EXPECT_THAT(taken(AllWord(), "x"), ElementsAre("G1-A", "G10-A"));
    EXPECT_THAT(taken(NoneWord(), "G1"), ElementsAre("G1-A", "G10-A", "G1", "なし-A"_cp932, "G1A-B"));
    EXPECT_EQ(taken("x", AllWord()).size(), 7U);
    EXPECT_EQ(taken("x", "").size(), 7U) << "every name begins with nothing";
}

TEST(ResultTable, AGirderWithADashInItsNameIsFound)
{
    AnalysisResults results = SmallBridge();
    results.model.girderNames = {"G-1", "G2"};
    results.model.elementNames = {"G-1-A", "G-2-A", "G2-A", "G-1", "G-1-B", "-", "--"};
    EXPECT_THAT(Names(CResultTable(results, Selection(ResultKind::Force, AllWord()))),
                ElementsAre("G-1-A", "G2-A", "G-1-B"));
}

TEST(ResultTable, ExcludedNamesVanishAndCountForNoExtreme)
{
    const AnalysisResults results = SmallBridge();
    ResultSelection selection = Selection(ResultKind::Force, AllWord());
    selection.excludedNames = {"G2-C1", "G1-S1", "nobody"};
    const CResultTable table(results, selection);
    EXPECT_THAT(Names(table), ElementsAre("G1-C1", "G2-S1"));
    EXPECT_EQ(table.Extremes(0).maxRow, 1U);
    EXPECT_EQ(table.Extremes(0).max, 2000);
    EXPECT_EQ(table.Extremes(1).maxRow, 0U) << "the right end has the other sign";
}

TEST(ResultTable, ReactionsBelowAThousandthVanishByTheColumnsOnShow)
{
    AnalysisResults results = SmallBridge();
    results.reaction.values.assign(results.reaction.values.size(), 0);
    results.reaction.values[0 * 12 + 2] = 0.001;  // G1-S1
    results.reaction.values[1 * 12 + 2] = -0.002; // G1-C1
    results.reaction.values[3 * 12 + 0] = 5;      // G2-S1
    ResultSelection selection = Selection(ResultKind::Reaction, AllWord());
    EXPECT_THAT(Names(CResultTable(results, selection)), ElementsAre("G1-C1", "G2-S1"));
    selection.columnOn[0] = false;
    EXPECT_THAT(Names(CResultTable(results, selection)), ElementsAre("G1-C1"));
    selection.columnOn.fill(false);
    EXPECT_THAT(Names(CResultTable(results, selection)), IsEmpty());
}

TEST(ResultTable, TheFirstOfEqualValuesIsTheExtremeAndOneThatIsBothIsBlue)
{
    AnalysisResults results = SmallBridge();
    results.force.values.assign(results.force.values.size(), 7);
    const CResultTable table(results, Selection(ResultKind::Force, AllWord()));
    EXPECT_EQ(table.Extremes(0).maxRow, 0U);
    EXPECT_EQ(table.Extremes(0).minRow, 0U);
    EXPECT_EQ(table.CellColor(kFirstValueRow, kFirstValueColumn), kMinColor);
    EXPECT_EQ(table.CellColor(kFirstValueRow + 1, kFirstValueColumn), std::nullopt);
}

TEST(ResultTable, ExtremesStandInGreyRowsAheadOfTheValues)
{
    const AnalysisResults results = SmallBridge();
    const CResultTable table(results, Selection(ResultKind::Force, "G1"));
    EXPECT_EQ(table.CellText(kMaxRow, kNameColumn), "最大値"_cp932);
    EXPECT_EQ(table.CellText(kMinRow, kNameColumn), "最小値"_cp932);
    EXPECT_EQ(table.CellText(kMaxRow, kFirstValueColumn), "            1000.000");
    EXPECT_EQ(table.CellColor(kMaxRow, kNameColumn), kMaxColor);
    EXPECT_EQ(table.CellColor(kMinRow, kNameColumn), kMinColor);
    EXPECT_EQ(table.CellBackground(kMaxRow, kFirstValueColumn), kExtremesBackground);
    EXPECT_EQ(table.CellBackground(kMinRow, kNumberColumn), std::nullopt);
    EXPECT_EQ(table.CellBackground(kFirstValueRow, kNameColumn), std::nullopt);
    EXPECT_EQ(table.CellColor(kFirstValueRow + 1, kFirstValueColumn), kMaxColor);
}

TEST(ResultTable, WithoutRowsTheExtremesStayEmpty)
{
    const AnalysisResults results = SmallBridge();
    const CResultTable table(results, Selection(ResultKind::Force, NoneWord()));
    EXPECT_EQ(table.RowCount(), 0U);
    EXPECT_EQ(table.GridRowCount(), 107U);
    EXPECT_EQ(table.CellText(kMaxRow, kNameColumn), "");
    EXPECT_EQ(table.CellText(kMaxRow, kNumberColumn), "1") << "the row numbers stand";
    EXPECT_EQ(table.CellBackground(kMaxRow, kNameColumn), std::nullopt);
}

TEST(ResultTable, AnUnknownLoadLeavesItEmpty)
{
    const AnalysisResults results = SmallBridge();
    ResultSelection selection = Selection(ResultKind::Force, "G1");
    selection.load += " ";
    const CResultTable table(results, selection);
    EXPECT_EQ(table.LoadIndex(), std::nullopt);
    EXPECT_EQ(table.GridRowCount(), 0U);
    EXPECT_EQ(table.GridColumnCount(), 0U);
    EXPECT_EQ(table.CellText(0, 0), "");
    EXPECT_EQ(CResultTable().CellText(3, 2), "") << "as does a table of nothing";
}

TEST(ResultTable, NamesOfBlanksAreNames)
{
    AnalysisResults results = SmallBridge();
    results.model.elementNames = {" ", "", "  "};
    const CResultTable table(results, Selection(ResultKind::Force, NoneWord(), AllWord()));
    EXPECT_THAT(Names(table), ElementsAre(" ", "", "  "));
}

TEST(ResultTable, RowsWhoseValuesAreNotInTheFileAreLeftOut)
{
    AnalysisResults results = SmallBridge();
    results.model.elementNames.resize(20, "G1-more");
    results.force.values.resize(2 * 24 + 12); // the third member has the first load case only
    EXPECT_EQ(CResultTable(results, Selection(ResultKind::Force, NoneWord(), AllWord())).RowCount(), 3U);
    ResultSelection second = Selection(ResultKind::Force, NoneWord(), AllWord());
    second.load = results.model.loadCaseNames[1];
    EXPECT_EQ(CResultTable(results, second).RowCount(), 2U);
    results.force.values.clear();
    EXPECT_EQ(CResultTable(results, second).RowCount(), 0U);
}

TEST(ResultTable, ALoadCaseCountThatLiesReadsNothingElsewhere)
{
    AnalysisResults results = SmallBridge();
    results.model.loadCaseCount = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(CResultTable(results, Selection(ResultKind::Force, NoneWord(), AllWord())).RowCount(), 1U);
    results.model.loadCaseCount = -3;
    EXPECT_LE(CResultTable(results, Selection(ResultKind::Force, NoneWord(), AllWord())).RowCount(), 7U);
}

TEST(ResultTable, FewerFlagsThanNodesHideNone)
{
    AnalysisResults results = SmallBridge();
    results.nodeTable.nodeFlags.clear();
    EXPECT_EQ(CResultTable(results, Selection(ResultKind::Displacement, AllWord())).RowCount(), 6U);
}

TEST(ResultTable, ValuesThatAreNoNumbersAreShownAndAreNoExtremes)
{
    AnalysisResults results = SmallBridge();
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    results.force.values.assign(results.force.values.size(), none);
    results.force.values[24 + 1] = infinity; // second member, Sy
    const CResultTable table(results, Selection(ResultKind::Force, "G1"));
    EXPECT_EQ(table.Extremes(0).maxRow, std::nullopt);
    EXPECT_EQ(table.CellText(kMaxRow, kFirstValueColumn), "");
    EXPECT_TRUE(table.CellText(kFirstValueRow, kFirstValueColumn).ends_with(" NaN"));
    EXPECT_TRUE(table.CellText(kFirstValueRow + 1, kFirstValueColumn + 2).ends_with(" Inf"));
    EXPECT_EQ(table.Extremes(2).maxRow, std::nullopt) << "of infinity nothing is the largest";
    EXPECT_EQ(table.Extremes(2).minRow, std::nullopt);
    EXPECT_EQ(table.NotNumbers(), table.RowCount() * table.Columns().size());
    results.reaction.values.assign(results.reaction.values.size(), none);
    EXPECT_GT(CResultTable(results, Selection(ResultKind::Reaction, "G1")).RowCount(), 0U) << "has to be seen";
}

TEST(ResultTable, RowsStandInTheOrderOfAColumnAndWhatIsNoNumberLast)
{
    AnalysisResults results = SmallBridge();
    ResultSelection selection = Selection(ResultKind::Displacement, AllWord());
    const CResultTable files(results, selection);
    ASSERT_GT(files.RowCount(), 3U);
    selection.sortColumn = kFirstValueColumn;
    selection.descending = true;
    const CResultTable sorted(results, selection);
    ASSERT_EQ(sorted.RowCount(), files.RowCount());
    for (std::size_t row = 0; row < files.RowCount(); ++row)
        EXPECT_EQ(sorted.Name(row), files.Name(files.RowCount() - 1 - row));
    EXPECT_EQ(sorted.Extremes(0).maxRow, 0U) << "the extremes follow";
    for (const bool descending : {false, true}) {
        selection.descending = descending;
        AnalysisResults broken = results;
        broken.displacement.values[0] = std::numeric_limits<double>::quiet_NaN();
        const CResultTable table(broken, selection);
        EXPECT_EQ(table.Name(table.RowCount() - 1), files.Name(0)) << descending;
    }
    selection.sortColumn = 1000;
    EXPECT_EQ(CResultTable(results, selection).Name(0), files.Name(0));
}

TEST(ResultTable, AFilterKeepsNamesThatHoldItAndTheirExtremes)
{
    const AnalysisResults results = SmallBridge();
    ResultSelection selection = Selection(ResultKind::Displacement, AllWord());
    selection.filter = "-C1";
    const CResultTable table(results, selection);
    ASSERT_GT(table.RowCount(), 0U);
    for (std::size_t row = 0; row < table.RowCount(); ++row)
        EXPECT_TRUE(table.Name(row).ends_with("-C1")) << table.Name(row);
    selection.filter = "?";
    EXPECT_EQ(CResultTable(results, selection).RowCount(), 0U);
}

TEST(ResultTable, ResultsThatAreReadAnewUnderItLeaveItsCellsEmpty)
{
    AnalysisResults results = SmallBridge();
    const CResultTable table(results, Selection(ResultKind::Force, "G2"));
    EXPECT_EQ(table.CellText(kFirstValueRow, kNameColumn), "G2-S1");
    results = {};
    for (std::size_t row = 0; row < 10; ++row)
        for (std::size_t column = 0; column < 10; ++column) {
            static_cast<void>(table.CellText(row, column));
            EXPECT_EQ(table.CellColor(row + kFirstValueRow, column), std::nullopt);
        }
    EXPECT_EQ(table.CellText(kFirstValueRow, kNameColumn), "");
}

TEST(ResultTable, CellsOutsideAreEmpty)
{
    const AnalysisResults results = SmallBridge();
    const CResultTable table(results, Selection(ResultKind::Force, "G1"));
    constexpr std::size_t far = std::numeric_limits<std::size_t>::max();
    EXPECT_EQ(table.CellText(kFirstValueRow + 2, kNameColumn), "");
    EXPECT_EQ(table.CellText(far, far), "");
    EXPECT_EQ(table.CellColor(far, far), std::nullopt);
    EXPECT_EQ(table.CellBackground(0, far), std::nullopt);
}

} // namespace sbd
