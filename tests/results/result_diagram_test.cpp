#include "results/diagram_drawing.h"
#include "results/result_diagram.h"
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
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

GirderDiagram Forces(const AnalysisResults& results, std::string_view girder, std::size_t component = 4)
{
    return MakeGirderDiagram(results, 0, girder, ResultKind::Force, component);
}

/// Two bays with the ordinates l1 r1 and l2 r2.
AnalysisResults WithForces(double l1, double r1, double l2, double r2)
{
    AnalysisResults results = SmallBridge();
    results.force.values[4] = l1;
    results.force.values[10] = -r1;
    results.force.values[24 + 4] = l2;
    results.force.values[24 + 10] = -r2;
    return results;
}

std::vector<std::string> LabelsAt(const GirderDiagram& diagram, std::size_t point)
{
    const std::vector<std::vector<DiagramLabel>> labels = LabelsOf(diagram);
    std::vector<std::string> texts;
    for (const DiagramLabel& label : labels.at(point))
        texts.push_back(label.text);
    return texts;
}

} // namespace

TEST(GirderDiagram, ForcesStandAtBothEndsOfEachBay)
{
    const GirderDiagram diagram = Forces(SmallBridge(), "G2");
    ASSERT_THAT(diagram.bays, SizeIs(2));
    EXPECT_EQ(diagram.girder, 1U);
    EXPECT_EQ(diagram.bays[1].element, 4);
    EXPECT_EQ(diagram.bays[1].left, 3004);
    EXPECT_EQ(diagram.bays[1].right, -3010);
    EXPECT_THAT(diagram.positions, ElementsAre(0, 5, 10));
    EXPECT_THAT(diagram.stationNames, ElementsAre("S1", "C1", "S2"));
    EXPECT_EQ(diagram.least, -3010);
    EXPECT_EQ(diagram.greatest, 3004);
    EXPECT_EQ(diagram.Amplitude(), 3010);
    EXPECT_THAT(diagram.points, IsEmpty());
}

TEST(GirderDiagram, DisplacementsAreMillimetresDownwardAndReactionsAsTheyAre)
{
    const AnalysisResults results = SmallBridge();
    const GirderDiagram down = MakeGirderDiagram(results, 1, "G1", ResultKind::Displacement, 0);
    EXPECT_THAT(down.points, ElementsAre(-100e3, -1100e3, -2100e3));
    const GirderDiagram reactions = MakeGirderDiagram(results, 0, "G2", ResultKind::Reaction, 2);
    EXPECT_THAT(reactions.points, ElementsAre(3002, 4002, 5002));
}

TEST(GirderDiagram, AnUnknownGirderStandsForTheFirst)
{
    EXPECT_EQ(Forces(SmallBridge(), "nobody").girder, 0U);
}

TEST(GirderDiagram, BaysWithoutAMemberHaveNoLength)
{
    AnalysisResults results = SmallBridge();
    results.model.stationCount = 4;
    results.model.stationNames = {"S1", "C1", "C2", "S2"};
    results.model.girderElements = {1, 0, 2};
    const GirderDiagram diagram = MakeGirderDiagram(results, 0, "G1", ResultKind::Reaction, 0);
    ASSERT_THAT(diagram.bays, SizeIs(2));
    EXPECT_EQ(diagram.bays[1].bay, 2U);
    EXPECT_THAT(diagram.positions, ElementsAre(0, 5, 10));
    EXPECT_THAT(diagram.stationNames, ElementsAre("S1", "C2", "S2")) << "of two at one point the later left one";
}

TEST(GirderDiagram, BaysWhoseMemberNodesOrValuesAreNotThereAreLeftOut)
{
    AnalysisResults results = SmallBridge();
    results.model.girderElements = {1'000'000, 2, 3};
    EXPECT_THAT(Forces(results, "G1").bays, SizeIs(1));
    EXPECT_THAT(Forces(results, "G2").bays, SizeIs(1)) << "the list ends";
    results.elementTable.ends[1] = {2, 7, 0};
    EXPECT_THAT(Forces(results, "G1").bays, IsEmpty());
    results = SmallBridge();
    results.force.values.resize(24);
    EXPECT_THAT(Forces(results, "G1").bays, SizeIs(1));
    results.nodeTable.coordinates[0] = {kNone, 0, 0};
    EXPECT_THAT(Forces(results, "G1").bays, IsEmpty()) << "a bay without a length";
}

TEST(GirderDiagram, WithoutAnythingIsEmptyAndDrawsNothing)
{
    const GirderDiagram diagram = Forces({}, "G1");
    EXPECT_THAT(diagram.positions, ElementsAre(0));
    EXPECT_EQ(diagram.Length(), 0);
    EXPECT_THAT(LabelsOf(diagram), IsEmpty());
    const DiagramDrawing drawing = DrawDiagram(diagram, FitDiagram(diagram, kScreen, kFitZoom, {}));
    EXPECT_THAT(drawing.lines, IsEmpty());
    EXPECT_THAT(drawing.values, IsEmpty());
}

TEST(GirderDiagram, ACountThatLiesEndsWithTheList)
{
    AnalysisResults results = SmallBridge();
    results.model.stationCount = std::numeric_limits<std::int32_t>::max();
    const GirderDiagram diagram = Forces(results, "G1");
    EXPECT_THAT(diagram.bays, SizeIs(4));
    EXPECT_EQ(diagram.stationNames.back(), "") << "more stations than names";
}

TEST(GirderDiagram, ExtremesPassOverWhatIsNoNumber)
{
    const GirderDiagram diagram = Forces(WithForces(kNone, 5, std::numeric_limits<double>::infinity(), -3), "G1");
    EXPECT_EQ(diagram.least, -3);
    EXPECT_EQ(diagram.greatest, 5);
}

TEST(DiagramLabels, AJumpOfFiftyShowsTheValueOfGreaterAmount)
{
    EXPECT_THAT(LabelsAt(Forces(WithForces(1, 100, 150, 2), "G1"), 1), ElementsAre("150.0     "));
    EXPECT_THAT(LabelsAt(Forces(WithForces(1, -20, 30, 2), "G1"), 1), ElementsAre("30.0      "));
    EXPECT_THAT(LabelsAt(Forces(WithForces(1, -30, 20, 2), "G1"), 1), ElementsAre("-30.0     "));
}

TEST(DiagramLabels, AJumpAboveFiftyShowsBothThePreviousOneFirst)
{
    EXPECT_THAT(LabelsAt(Forces(WithForces(1, 100, 150.01, 2), "G1"), 1), ElementsAre("100.0     ", "150.0     "));
}

TEST(DiagramLabels, ValuesOfNothingAreNotWritten)
{
    const GirderDiagram diagram = Forces(WithForces(0, 60, 0, -9e-7), "G1");
    EXPECT_THAT(LabelsAt(diagram, 0), IsEmpty());
    EXPECT_THAT(LabelsAt(diagram, 1), ElementsAre("60.0      "));
    EXPECT_THAT(LabelsAt(diagram, 2), IsEmpty());
    EXPECT_THAT(LabelsAt(Forces(WithForces(1e-6, 0, 0, 0), "G1"), 0), ElementsAre("0.0       "));
}

TEST(FitDiagram, PositiveValuesLieBelowTheAxis)
{
    const GirderDiagram diagram = Forces(WithForces(0, 100, 100, -50), "G1");
    const DiagramScale scale = FitDiagram(diagram, kScreen, kFitZoom, {});
    EXPECT_DOUBLE_EQ(scale.AxisY(), 250);
    EXPECT_DOUBLE_EQ(scale.Y(100), 250 + 250 / 1.4);
    EXPECT_DOUBLE_EQ(scale.X(0), 450 - 450 / 1.4);
    EXPECT_DOUBLE_EQ(FitDiagram(diagram, kScreen, kFitZoom, {2, 1}).AxisY(), 250 + 38.4);
}

TEST(FitDiagram, WithoutLengthOrValuesTheScaleIsOne)
{
    AnalysisResults results = WithForces(0, 0, 0, 0);
    for (auto& place : results.nodeTable.coordinates)
        place = {1, 1, 1};
    const DiagramScale scale = FitDiagram(Forces(results, "G1"), kScreen, kFitZoom, {});
    EXPECT_EQ(scale.sxScale, 1);
    EXPECT_EQ(scale.syScale, 1);
}

TEST(DrawDiagram, ForcesJoinNeighboursByAVertical)
{
    const GirderDiagram diagram = Forces(WithForces(10, 20, 90, 40), "G1");
    const DiagramScale scale = FitDiagram(diagram, kScreen, 1, {});
    const DiagramDrawing drawing = DrawDiagram(diagram, scale);
    const FigurePoint before{scale.X(5), scale.Y(20)};
    const FigurePoint behind{scale.X(5), scale.Y(90)};
    EXPECT_TRUE(std::ranges::any_of(drawing.lines, [&](const FigureLine& line) {
        return line.from == before && line.to == behind && line.pen == FigurePen::Plain;
    }));
    ASSERT_THAT(drawing.values, SizeIs(4));
    EXPECT_EQ(drawing.values[1].place, TextPlace::Left);
    EXPECT_EQ(drawing.values[2].place, TextPlace::Right);
    EXPECT_THAT(drawing.stationNames, SizeIs(3));
    EXPECT_THAT(drawing.heads, IsEmpty());
}

TEST(DrawDiagram, VerticalReactionsHaveAHeadAtTheirTip)
{
    AnalysisResults results = SmallBridge();
    results.reaction.values.assign(72, 0);
    results.reaction.values[2] = 80;
    const GirderDiagram diagram = MakeGirderDiagram(results, 0, "G1", ResultKind::Reaction, 2);
    const DiagramDrawing drawing = DrawDiagram(diagram, FitDiagram(diagram, kScreen, 1, {}));
    EXPECT_THAT(drawing.lines, SizeIs(2)) << "the axis and the one bar";
    ASSERT_THAT(drawing.heads, SizeIs(1));
    EXPECT_EQ(drawing.heads[0].corners[0].y, 500);
    EXPECT_DOUBLE_EQ(drawing.heads[0].corners[2].x - drawing.heads[0].corners[1].x, 2 * 7.2);
    const GirderDiagram along = MakeGirderDiagram(SmallBridge(), 0, "G1", ResultKind::Reaction, 0);
    EXPECT_THAT(DrawDiagram(along, FitDiagram(along, kScreen, 1, {})).heads, IsEmpty());
}

} // namespace sbd
