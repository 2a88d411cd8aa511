#include "results/model_overlay.h"
#include "tests/results/result_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace sbd {

using namespace literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr FigureScreen kScreen{.clientWidth = 900, .clientHeight = 500, .horzRes = 1920, .vertRes = 1080};

CSbdData WithRows(int block, const std::vector<std::vector<std::string_view>>& rows)
{
    CSbdData data;
    for (const auto& row : rows)
        data.Table(block)->AppendRow(row);
    return data;
}

std::vector<FigurePen> Pens(const std::vector<CrossBeamRow>& rows)
{
    std::vector<FigurePen> pens;
    for (const CrossBeamRow& row : rows)
        pens.push_back(row.pen);
    return pens;
}

std::pair<int, int> Nodes(const NodePlace& place)
{
    return {place.node1, place.node2};
}

} // namespace

TEST(LateralBracing, ItsEndsStandAtTheBeginningTheMiddleOrTheEndOfTheBay)
{
    const CSbdData data = WithRows(573, {{"自動計算(YES_NO)"_cp932, "NO"},
                                         {"G1", "G2", "S1", "C1", "B", "E"},
                                         {"G1", "G2", "S1", "C1", "C", "C"},
                                         {"G1", "G2", "S1", "C1", "", "B"},
                                         {"G1", "G9", "S1", "C1", "B", "B"},
                                         {"G1", "G2", "S1"}});
    const std::vector<LateralLine> lines = LateralBracing(SmallBridge().model, data, 6);
    ASSERT_THAT(lines, SizeIs(3));
    EXPECT_EQ(lines[0].row, 1U);
    EXPECT_EQ(Nodes(lines[0].from), std::pair(1, 1));
    EXPECT_EQ(Nodes(lines[0].to), std::pair(5, 5));
    EXPECT_EQ(Nodes(lines[1].from), std::pair(1, 2));
    EXPECT_EQ(Nodes(lines[1].to), std::pair(4, 5));
    EXPECT_EQ(Nodes(lines[2].from), std::pair(2, 2));
    EXPECT_EQ(Nodes(lines[2].to), std::pair(4, 4));
}

TEST(LateralBracing, TheRowUnderTheCursorIsSelectedInItsOwnBlockOnly)
{
    const CSbdData data = WithRows(573, {{"x"}, {"G1", "G2", "S1", "C1", "B", "E"}});
    const AnalysisModel model = SmallBridge().model;
    EXPECT_EQ(LateralBracing(model, data, 6, {573, 2})[0].pen, FigurePen::Selected);
    EXPECT_EQ(LateralBracing(model, data, 6, {573, 1})[0].pen, FigurePen::Lateral);
    EXPECT_EQ(LateralBracing(model, data, 6, {523, 2})[0].pen, FigurePen::Lateral);
    EXPECT_EQ(LateralBracing(model, data, 6, {573, 0})[0].pen, FigurePen::Lateral);
}

TEST(LateralBracing, TheLastOfEqualNodeNamesCountsAndNodesWithoutAPlaceAreNone)
{
    const CSbdData data = WithRows(573, {{"G1", "G2", "S1", "C1", "B", "B"}});
    AnalysisModel model = SmallBridge().model;
    model.nodeNames[2] = "G1-S1";
    EXPECT_EQ(LateralBracing(model, data, 6)[0].from.node1, 3);
    EXPECT_THAT(LateralBracing(model, data, 4), IsEmpty()) << "G2-C1 is node 5";
    EXPECT_THAT(LateralBracing(model, data, 0), IsEmpty());
    model.nodeNames.clear();
    EXPECT_THAT(LateralBracing(model, data, 6), IsEmpty());
}

TEST(CrossBeamRows, ARowOfNoKnownTypeTakesThePenOfTheRowBefore)
{
    const CSbdData data = WithRows(523, {{"S1", "S1", "G1", "G2", "?"},
                                         {"S1", "S1", "G1", "G2", "中間対傾構"_cp932},
                                         {"S1", "S1", "G1", "G2", "x"},
                                         {"S1", "S1", "G1", "G2", "端横桁"_cp932},
                                         {"S1", "S9", "G1", "G2", "端対傾構"_cp932},
                                         {"S1", "S1", "G1", "G2", ""},
                                         {"S1", "S1", "G1", "G2", "要素無し"_cp932}});
    EXPECT_THAT(Pens(CrossBeamRows(SmallBridge().model, data)),
                ElementsAre(FigurePen::Lateral, FigurePen::Sway, FigurePen::Sway, FigurePen::Member, FigurePen::Member,
                            FigurePen::Background));
    EXPECT_EQ(CrossBeamRows(SmallBridge().model, data, {523, 4})[3].pen, FigurePen::Selected);
}

TEST(CrossBeamRows, AWordThatOnlyItsBytesHoldIsNoType)
{
    // The second byte of one character and the first of the next look like the first of a word.
    const std::string crossBeam = "横桁"_cp932;
    const CSbdData data = WithRows(523, {{"S1", "S1", "G1", "G2", "\x82" + crossBeam}});
    EXPECT_THAT(Pens(CrossBeamRows(SmallBridge().model, data)), ElementsAre(FigurePen::Lateral));
}

TEST(CrossLines, RunFromGirderToGirderAtEachStationOfTheRange)
{
    const CSbdData data = WithRows(523, {{"S2", "S1", "G2", "G1", "横桁"_cp932}});
    const AnalysisModel model = SmallBridge().model;
    const std::vector<CrossLine> lines = CrossLines(model, CrossBeamRows(model, data), 6);
    ASSERT_THAT(lines, SizeIs(3));
    EXPECT_EQ(lines[0].node1, 1);
    EXPECT_EQ(lines[0].node2, 4);
    EXPECT_EQ(lines[2].node2, 6);
}

TEST(CrossLines, NodesThatAreNotThereHaveNone)
{
    const CSbdData data = WithRows(523, {{"S1", "S2", "G1", "G2", "横桁"_cp932}});
    AnalysisModel model = SmallBridge().model;
    const std::vector<CrossBeamRow> rows = CrossBeamRows(model, data);
    EXPECT_THAT(CrossLines(model, rows, 4), SizeIs(1)) << "two of the nodes have no place";
    model.gridNodes = {1, -1, 0, 4, 5};
    EXPECT_THAT(CrossLines(model, rows, 6), SizeIs(1)) << "negative, none, and missing at the end of the list";
    model.stationCount = std::numeric_limits<std::int32_t>::max();
    EXPECT_THAT(CrossLines(model, rows, 6), IsEmpty());
}

TEST(VisibleCrossLines, AreTheLastOfThoseAtOnePlace)
{
    const CSbdData data = WithRows(523, {{"S1", "S2", "G1", "G2", "横桁"_cp932},
                                         {"C1", "C1", "G1", "G2", "要素無し"_cp932},
                                         {"S1", "C1", "G1", "G1", "対傾構"_cp932}});
    AnalysisModel model = SmallBridge().model;
    const std::vector<CrossBeamRow> rows = CrossBeamRows(model, data);
    EXPECT_THAT(CrossLines(model, rows, 6), SizeIs(4));
    const std::vector<CrossLine> lines = VisibleCrossLines(model, rows, 6);
    ASSERT_THAT(lines, SizeIs(3));
    EXPECT_EQ(lines[2].row, 1U) << "a later row is drawn later";
    EXPECT_EQ(lines[2].pen, FigurePen::Background);
    EXPECT_EQ(lines[2].node1, 2);
}

TEST(VisibleCrossLines, ManyRowsOverTheSameGridStayAsManyAsTheGridHas)
{
    CSbdData data;
    for (int i = 0; i < 100'000; ++i)
        data.Table(523)->AppendRow({"S1", "S2", "G1", "G2", "横桁"_cp932});
    AnalysisModel model = SmallBridge().model;
    EXPECT_THAT(VisibleCrossLines(model, CrossBeamRows(model, data), 6), SizeIs(3));
    model.gridNodes.clear();
    EXPECT_THAT(VisibleCrossLines(model, CrossBeamRows(model, data), 6), IsEmpty());
    model.stationCount = -1;
    EXPECT_THAT(VisibleCrossLines(model, CrossBeamRows(model, data), 6), IsEmpty());
}

TEST(VisibleCrossLines, MoreGirdersThanStationsGiveTheSame)
{
    AnalysisModel model;
    model.girderNames = {"A", "B", "C", "D"};
    model.stationNames = {"S"};
    model.girderCount = 4;
    model.stationCount = 1;
    model.gridNodes = {1, 2, 3, 4};
    const CSbdData data = WithRows(523, {{"S", "S", "A", "D", "横桁"_cp932}, {"S", "S", "B", "C", "対傾構"_cp932}});
    const std::vector<CrossLine> lines = VisibleCrossLines(model, CrossBeamRows(model, data), 4);
    ASSERT_THAT(lines, SizeIs(3));
    EXPECT_EQ(lines[2].pen, FigurePen::Sway);
    EXPECT_EQ(lines[2].node1, 2);
}

TEST(NodeMarks, DotsByTheFlagAndSupportsByTheThirdWord)
{
    NodeTable table = SampleNodes();
    table.nodeValues[4][2] = 1;
    EXPECT_THAT(DottedNodes(table, 6), ElementsAre(1, 2, 4, 5, 6));
    EXPECT_THAT(SupportedNodes(table, 6), ElementsAre(5));
    EXPECT_THAT(DottedNodes(table, 2), ElementsAre(1, 2));
    EXPECT_THAT(SupportedNodes(table, 0), IsEmpty());
}

class FigureLabels : public testing::Test {
protected:
    [[nodiscard]] std::vector<FigureLabel> Girders() const { return GirderLabels(results_, Projection(), Scale(), 8); }
    [[nodiscard]] std::vector<FigureLabel> Stations() const
    {
        return StationLabels(results_.model, Projection(), Scale(), 8);
    }
    [[nodiscard]] CModelProjection Projection() const { return {FigurePlaces(results_), direction_}; }
    [[nodiscard]] ModelScale Scale() const { return FitModel(Projection().Bounds(), kScreen, 1, {}); }

    AnalysisResults results_ = SmallBridge();
    Point3 direction_{0, 0, 1};
};

TEST_F(FigureLabels, GirderNamesStandAheadOfTheFirstMember)
{
    const std::vector<FigureLabel> labels = Girders();
    ASSERT_THAT(labels, SizeIs(2));
    EXPECT_EQ(labels[1].text, "G2");
    EXPECT_DOUBLE_EQ(labels[1].at.x, ScreenOf(4, Projection(), Scale()).x - 40);
}

TEST_F(FigureLabels, AGirderThatBeginsLateHasItsNameBehindItsLastMember)
{
    results_.model.girderElements = {0, 2, 0, 0};
    std::vector<FigureLabel> labels = Girders();
    ASSERT_THAT(labels, SizeIs(1));
    EXPECT_DOUBLE_EQ(labels[0].at.x, ScreenOf(3, Projection(), Scale()).x + 40);
    results_.model.stationCount = 4;
    results_.model.girderElements = {-1, 2, 0};
    labels = Girders();
    ASSERT_THAT(labels, SizeIs(1));
    EXPECT_DOUBLE_EQ(labels[0].at.x, ScreenOf(2, Projection(), Scale()).x - 40) << "ahead of the first there is";
}

TEST_F(FigureLabels, StationNamesStandBesideTheLastGirder)
{
    const std::vector<FigureLabel> labels = Stations();
    ASSERT_THAT(labels, SizeIs(3));
    EXPECT_EQ(labels[0].text, "S1");
    EXPECT_DOUBLE_EQ(labels[0].at.y, ScreenOf(4, Projection(), Scale()).y - 20);
}

TEST_F(FigureLabels, WithoutLengthOrNeighbourThereIsNoPlace)
{
    direction_ = {0, 1, 0};
    EXPECT_THAT(Stations(), IsEmpty()) << "all girders behind one another";
    results_.model.girderCount = 1;
    EXPECT_THAT(Stations(), IsEmpty());
}

TEST_F(FigureLabels, MembersAndNodesThatAreNotThereGiveNoLabel)
{
    results_.model.girderElements = {99, 3, 1'000'000, -5};
    EXPECT_THAT(Girders(), SizeIs(1));
    results_.elementTable.ends.assign(7, {0, 77, 0});
    EXPECT_THAT(Girders(), IsEmpty());
    results_.model.girderElements.clear();
    EXPECT_THAT(Girders(), IsEmpty());
    results_.model.gridNodes.resize(2);
    EXPECT_THAT(Stations(), IsEmpty());
    results_ = {};
    EXPECT_THAT(Girders(), IsEmpty());
    EXPECT_THAT(Stations(), IsEmpty());
}

} // namespace sbd
