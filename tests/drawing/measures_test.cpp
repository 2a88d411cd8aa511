// Measures of the drawn examples against their cells, worked out by hand.
#include "drawing/bridge_plan.h"
#include "drawing/cross_section.h"
#include "drawing/girder_elevation.h"
#include "tests/drawing/sample_bridges.h"

#include <gmock/gmock.h>

#include <cmath>

namespace sbd {

using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr double kNear = 0.05; // mm

double LowestAt(const std::vector<const DrawnShape*>& shapes, double x)
{
    double lowest = 0;
    for (const DrawnShape* shape : shapes)
        for (const DrawnPoint& point : shape->points)
            if (std::abs(point.x - x) < kNear)
                lowest = std::min(lowest, point.y);
    return lowest;
}

const DrawnShape* ShapeAt(const std::vector<const DrawnShape*>& shapes, double x)
{
    const auto found =
        std::ranges::find_if(shapes, [&](const DrawnShape* shape) { return std::abs(Middle(*shape) - x) < kNear; });
    return found == shapes.end() ? nullptr : *found;
}

const DimensionChain& Chain(const BridgeDrawing& drawing, std::string_view title)
{
    for (const DimensionChain& chain : drawing.chains)
        if (FromCp932(chain.title) == title)
            return chain;
    static const DimensionChain none;
    ADD_FAILURE() << "no chain " << title;
    return none;
}

std::vector<std::string> Texts(const DimensionChain& chain)
{
    std::vector<std::string> texts;
    for (const ChainPart& part : chain.parts)
        texts.push_back(part.text);
    return texts;
}

} // namespace

class Plate4Elevation : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        const SampleBridge bridge = ExampleBridge("plate4");
        drawing = GirderElevation(bridge.data, bridge.results, {});
    }
    static inline BridgeDrawing drawing;
};

TEST_F(Plate4Elevation, LengthsAreThoseOfTheNodesAndTheEndsOfBlock404)
{
    EXPECT_THAT(Texts(Chain(drawing, "支間")), testing::ElementsAre("350", "34000", "42000", "34000", "350"));
    EXPECT_THAT(Texts(Chain(drawing, "桁長")), testing::ElementsAre("110700"));
    const DimensionChain& bays = Chain(drawing, "格間");
    ASSERT_THAT(bays.parts, SizeIs(22));
    EXPECT_NEAR(bays.parts[1].to, 5666.67, kNear);
    EXPECT_NEAR(bays.parts[7].to - bays.parts[7].from, 5250, kNear);
}

TEST_F(Plate4Elevation, TheDepthIsGreaterOverTheInnerSupportForOneAndAHalfMetresOnBothSides)
{
    const auto outline = ShapesOf(drawing, DrawingLayer::Girder);
    EXPECT_NEAR(LowestAt(outline, 0), -2200, kNear);
    EXPECT_NEAR(LowestAt(outline, 28333.33), -2200, kNear); // C5
    EXPECT_NEAR(LowestAt(outline, 32500), -2250, kNear);
    EXPECT_NEAR(LowestAt(outline, 34000), -2250, kNear); // S2
    EXPECT_NEAR(LowestAt(outline, 35500), -2250, kNear);
    EXPECT_NEAR(LowestAt(outline, 39250), -2200, kNear); // C6
    EXPECT_NEAR(LowestAt(outline, 76000), -2200, kNear); // S3
}

TEST_F(Plate4Elevation, PlatesHaveTheThicknessOfTheirSection)
{
    const auto flanges = ShapesOf(drawing, DrawingLayer::Flange);
    ASSERT_THAT(flanges, SizeIs(22));
    EXPECT_NEAR(Height(*flanges[0]), 16, kNear); // SEC1, upper
    EXPECT_NEAR(Most(*flanges[0], &DrawnPoint::y), 0, kNear);
    EXPECT_NEAR(Height(*flanges[1]), 19, kNear); // SEC1, lower
    EXPECT_NEAR(Least(*flanges[1], &DrawnPoint::y), -2200, kNear);
    EXPECT_NEAR(Height(*flanges[6]), 32, kNear); // SEC4, upper
    const auto webs = ShapesOf(drawing, DrawingLayer::Web);
    ASSERT_THAT(webs, SizeIs(11));
    EXPECT_NEAR(Height(*webs[0]), 2200 - 16 - 19, kNear);
    EXPECT_NEAR(Width(*webs[0]), 350 + 8500, kNear);
    ASSERT_THAT(drawing.bands, SizeIs(3));
    EXPECT_EQ(drawing.bands[0].parts[3].thickFrom, 32); // 332, SEC4
    EXPECT_EQ(drawing.bands[1].parts[3].thickFrom, 11); // 331, SEC4
    EXPECT_EQ(drawing.bands[2].parts[3].thickFrom, 40);
    EXPECT_EQ(drawing.bands[2].parts[10].thickFrom, 19); // SEC11, which stands behind the last joint
    EXPECT_EQ(drawing.bands[0].parts[3].text, "500x32 SM490Y");
}

TEST_F(Plate4Elevation, StiffenersStandAtEqualSpacesWithTheThicknessOfTheirRow)
{
    const auto stiffeners = ShapesOf(drawing, DrawingLayer::VerticalStiffener);
    ASSERT_THAT(stiffeners, SizeIs(6 * 3 + 14 * 2));
    EXPECT_NEAR(Middle(*stiffeners[0]), 5666.67 / 4, kNear);
    EXPECT_NEAR(Middle(*stiffeners[2]), 5666.67 * 3 / 4, kNear);
    EXPECT_NEAR(Width(*stiffeners[0]), 10, kNear);
    EXPECT_NEAR(Middle(*stiffeners[3]), 5666.67 * 4 / 3, kNear);
    EXPECT_NEAR(Width(*stiffeners[3]), 9, kNear);
    EXPECT_EQ(stiffeners[3]->source, (SourceCell{313, 3, 9}));
    const auto supports = ShapesOf(drawing, DrawingLayer::SupportStiffener);
    ASSERT_THAT(supports, SizeIs(4));
    EXPECT_NEAR(Width(*supports[0]), 19, kNear);
    EXPECT_NEAR(Middle(*supports[1]), 34000, kNear);
    EXPECT_NEAR(Width(*supports[1]), 25, kNear);
}

TEST_F(Plate4Elevation, HorizontalStiffenersLieAtTheirShareOfTheDepthOnTheSideOfTheirCount)
{
    const auto stiffeners = ShapesOf(drawing, DrawingLayer::HorizontalStiffener);
    // Upper: S1 to C4 4 + 3 x 3 panels, C7 to C11 4 x 3, C14 to S4 3 x 3 + 4; lower: C5 to C6 4 + 4, C12 to C13 4 + 4.
    ASSERT_THAT(stiffeners, SizeIs(13 + 12 + 13 + 8 + 8));
    const DrawnShape* first = ShapeAt(stiffeners, 5666.67 / 8);
    ASSERT_NE(first, nullptr);
    EXPECT_NEAR(Most(*first, &DrawnPoint::y), -16 - 0.2 * 2200 + 4.5, kNear);
    EXPECT_NEAR(Height(*first), 9, kNear);
    const DrawnShape* lower = ShapeAt(stiffeners, 76000 - 5250.0 / 8); // ahead of S3, the last panel
    ASSERT_NE(lower, nullptr);
    EXPECT_NEAR(Least(*lower, &DrawnPoint::y), -2200 + 40 + 0.2 * 2200 - 5, kNear);
    EXPECT_NEAR(Height(*lower), 10, kNear); // 120 9 130 10: from the second one on
}

TEST_F(Plate4Elevation, SplicesStandInTheMiddleBetweenTwoStiffeners)
{
    const auto splices = ShapesOf(drawing, DrawingLayer::Splice);
    ASSERT_THAT(splices, SizeIs(10));
    EXPECT_NEAR(Middle(*splices[0]), 5666.67 * 1.5, kNear);              // C1, 1, CENTER
    EXPECT_NEAR(Middle(*splices[1]), 17000 + 5666.67 / 2, kNear);        // C3
    EXPECT_NEAR(Middle(*splices[2]), 28333.33 + 5666.67 * 3 / 8, kNear); // C5, three stiffeners
    EXPECT_NEAR(Middle(*splices[3]), 39250 + 5250.0 / 2, kNear);         // C6
    EXPECT_EQ(splices[3]->source.row, 6);
}

TEST(Plate4Plan, GirdersStandAtTheirPlaces)
{
    const SampleBridge bridge = ExampleBridge("plate4");
    const BridgeDrawing plan = BridgePlan(bridge.data, bridge.results);
    const auto girders = ShapesOf(plan, DrawingLayer::Girder);
    ASSERT_THAT(girders, SizeIs(4));
    EXPECT_NEAR(Width(*girders[0]), 110000, kNear);
    EXPECT_NEAR(girders[0]->points[0].y - girders[3]->points[0].y, 7800, kNear);
    const auto laterals = ShapesOf(plan, DrawingLayer::LateralBracing);
    ASSERT_THAT(laterals, SizeIs(43)); // 44 rows, one names a girder that is not there
    EXPECT_NEAR(Width(*laterals[0]), 5666.67, kNear);
    EXPECT_NEAR(Height(*laterals[0]), 2600, kNear);
    EXPECT_NEAR(Width(*laterals[40]), 5666.67 / 2, kNear); // from the begin of a bay to the middle
    EXPECT_THAT(ReasonsAt(plan, 573, 45, 2), SizeIs(1));
    EXPECT_THAT(ShapesOf(plan, DrawingLayer::CrossBeam), SizeIs(7 * 3));
    EXPECT_THAT(ShapesOf(plan, DrawingLayer::SwayBracing), SizeIs(12 * 3 + 2 * 2)); // two gaps have none
}

TEST(Plate4Section, GirdersBeamAndDeckHaveTheMeasuresOfTheirCells)
{
    const SampleBridge bridge = ExampleBridge("plate4");
    const BridgeDrawing section = CrossSection(bridge.data, bridge.results, 3); // C3
    const auto webs = ShapesOf(section, DrawingLayer::Web);
    ASSERT_THAT(webs, SizeIs(4));
    EXPECT_NEAR(Middle(*webs[3]), 7800, kNear);
    EXPECT_NEAR(Width(*webs[0]), 10, kNear);
    const auto flanges = ShapesOf(section, DrawingLayer::Flange);
    ASSERT_THAT(flanges, SizeIs(3 * 2 + 4 * 2)); // beams, then girders
    EXPECT_NEAR(Height(*flanges[0]), 12, kNear);
    EXPECT_NEAR(Width(*flanges[6]), 500, kNear);
    EXPECT_NEAR(Height(*flanges[6]), 22, kNear);
    EXPECT_NEAR(Width(*flanges[7]), 560, kNear);
    EXPECT_NEAR(Height(*flanges[7]), 28, kNear);
    const auto beams = ShapesOf(section, DrawingLayer::CrossBeam);
    ASSERT_THAT(beams, SizeIs(3));
    EXPECT_NEAR(Most(*beams[0], &DrawnPoint::y), -150, kNear);
    EXPECT_NEAR(Least(*beams[0], &DrawnPoint::y), -2200 + 270, kNear);
    EXPECT_NEAR(Width(*beams[1]), 2600, kNear);
    const auto slab = ShapesOf(section, DrawingLayer::Slab);
    ASSERT_THAT(slab, SizeIs(1));
    EXPECT_NEAR(Least(*slab[0], &DrawnPoint::y), 80, kNear);
    EXPECT_NEAR(Height(*slab[0]), 230, kNear);
    EXPECT_NEAR(Height(*ShapesOf(section, DrawingLayer::Pavement).at(0)), 75, kNear);
}

TEST(Plate4Section, SwayBracingRunsAlongItsFrameLines)
{
    const SampleBridge bridge = ExampleBridge("plate4");
    const BridgeDrawing section = CrossSection(bridge.data, bridge.results, 1); // C1
    const auto lines = ShapesOf(section, DrawingLayer::SwayBracing);
    ASSERT_THAT(lines, SizeIs(3 * 4));
    EXPECT_NEAR(lines[0]->points[0].y, -150, kNear);
    EXPECT_NEAR(lines[1]->points[0].y, -2200 + 270, kNear);
    EXPECT_NEAR(lines[2]->points[1].x, 1300, kNear); // the diagonals meet in the middle of the lower chord
    EXPECT_NEAR(lines[2]->points[1].y, -1930, kNear);
}

TEST(Box2, TheHaunchAndTheJointsHaveTheMeasuresOfTheirCells)
{
    const SampleBridge bridge = ExampleBridge("box2");
    const BridgeDrawing drawing = GirderElevation(bridge.data, bridge.results, {.girder = 1});
    const DimensionChain& bays = Chain(drawing, "格間");
    ASSERT_THAT(bays.parts, SizeIs(22));
    const auto outline = ShapesOf(drawing, DrawingLayer::Girder);
    const double c7 = bays.parts[7].to;
    const double s2 = bays.parts[10].to;
    EXPECT_NEAR(LowestAt(outline, c7), -2300, kNear);
    EXPECT_NEAR(LowestAt(outline, s2), -2800, kNear);
    EXPECT_NEAR(LowestAt(outline, bays.parts[8].to), -2300 - 500.0 / 3, kNear);
    const auto splices = ShapesOf(drawing, DrawingLayer::Splice);
    ASSERT_THAT(splices, SizeIs(9));
    const double c1 = bays.parts[1].to;
    const double bay = bays.parts[2].to - c1;
    EXPECT_NEAR(Middle(*splices[0]), c1 + bay * 2 / 3 + 450, kNear); // C1, 2, 0.45 m
    EXPECT_THAT(Texts(Chain(drawing, "断面"))[1], "SEC2 10500");
    const auto flanges = ShapesOf(drawing, DrawingLayer::Flange);
    EXPECT_NEAR(Most(*flanges[1], &DrawnPoint::y), -2300, kNear); // the depth is without the lower flange
    EXPECT_NEAR(Height(*flanges[1]), 21, kNear);
}

TEST(Box2, ItsSectionHasTheWebsFlangesAndRibsOfTheCells)
{
    const SampleBridge bridge = ExampleBridge("box2");
    const BridgeDrawing section = CrossSection(bridge.data, bridge.results, 11); // C10
    const auto webs = ShapesOf(section, DrawingLayer::Web);
    ASSERT_THAT(webs, SizeIs(4));
    EXPECT_NEAR(Middle(*webs[1]) - Middle(*webs[0]), 2200, kNear);
    const auto flanges = ShapesOf(section, DrawingLayer::Flange);
    ASSERT_THAT(flanges, SizeIs(2 + 2 * 2));
    EXPECT_NEAR(Width(*flanges[2]), 120 + 2200 + 120, kNear);
    EXPECT_NEAR(Height(*flanges[2]), 31, kNear); // SEC6
    const auto ribs = ShapesOf(section, DrawingLayer::Rib);
    ASSERT_THAT(ribs, SizeIs(2 * (4 + 2)));
    EXPECT_NEAR(Middle(*ribs[1]) - Middle(*ribs[0]), 2200.0 / 5, kNear);
    EXPECT_NEAR(Height(*ribs[0]), 140, kNear);
    EXPECT_NEAR(Width(*ribs[0]), 14, kNear);
    EXPECT_NEAR(Middle(*ribs[4]) - Middle(*webs[0]), 0.45, kNear); // a metre where millimetres belong
}

TEST(Single1, LengthsAndNumbersThatDoNotFitAreToldOf)
{
    const SampleBridge bridge = ExampleBridge("single1");
    const BridgeDrawing drawing = GirderElevation(bridge.data, bridge.results, {});
    const auto splices = ShapesOf(drawing, DrawingLayer::Splice);
    ASSERT_THAT(splices, SizeIs(2));
    EXPECT_NEAR(Middle(*splices[0]), 11000, kNear);
    EXPECT_NEAR(Middle(*splices[1]), 21000, kNear);
    const auto stiffeners = ShapesOf(drawing, DrawingLayer::VerticalStiffener);
    ASSERT_THAT(stiffeners, SizeIs(8));
    EXPECT_NEAR(Middle(*stiffeners[0]), 1850, kNear);
    EXPECT_THAT(ReasonsAt(drawing, 313, 2, 9), SizeIs(1));
    EXPECT_THAT(ReasonsAt(drawing, 322, 0, 0), SizeIs(1));
    EXPECT_THAT(ShapesOf(drawing, DrawingLayer::Flange), IsEmpty());
}

} // namespace sbd
