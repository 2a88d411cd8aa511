#include "drawing/joint_detail.h"
#include "tests/drawing/sample_bridges.h"

#include <gmock/gmock.h>

#include <set>

namespace sbd {

namespace {

using testing::Contains;
using testing::ElementsAre;

std::vector<std::string> Reasons(const BridgeDrawing& drawing)
{
    std::vector<std::string> reasons;
    for (const Omission& omission : drawing.omissions)
        reasons.push_back(std::to_string(omission.place.block) + " " + std::to_string(omission.place.row) + " "
                          + std::to_string(omission.place.column));
    return reasons;
}

/// Bolts between two levels.
std::size_t BoltsIn(const BridgeDrawing& drawing, double low, double high)
{
    return static_cast<std::size_t>(std::ranges::count_if(drawing.shapes, [&](const DrawnShape& shape) {
        return shape.layer == DrawingLayer::Bolt && shape.points[0].y > low && shape.points[0].y < high;
    }));
}

/// plate4 with a joint J1 whose numbers fit.
SampleBridge FittingBridge()
{
    SampleBridge bridge = ExampleBridge("plate4");
    const auto set = [&](int block, std::size_t row, std::size_t column, const char* text) {
        bridge.data.Table(block)->columns.at(column - 1).Set(row - 1, Cp932(text));
    };
    // Along: 45, 120, 195 from the middle and 40 to the end; across: 65, 170 and 40 to the edge.
    for (const std::size_t row : {2, 3}) {
        set(342, row, 8, "420");
        set(342, row, 10, "470");
        set(343, row, 11, "105");
    }
    set(341, 2, 7, "10"); // 4 + 4 + 2
    set(341, 2, 8, "2孔引き");
    set(341, 3, 7, "12");
    set(341, 3, 8, "全孔引き");
    return bridge;
}

} // namespace

TEST(JointDetail, BoltsStandWhereTheSpacingsPutThem)
{
    const SampleBridge bridge = FittingBridge();
    const BridgeDrawing drawing = JointDetail(bridge.data, bridge.results, 0, GirderSide::Left, 0);
    EXPECT_EQ(BoltsIn(drawing, 0, 5'000), 20U); // both sides of the joint
    EXPECT_EQ(BoltsIn(drawing, -5'000, -2'200), 24U);
    // The web: 17 spaces, three rows from each edge, two columns on each side.
    EXPECT_EQ(BoltsIn(drawing, -2'200, 0), 22U * 4U);
    std::set<long> xs;
    std::set<long> levels;
    for (const DrawnShape& shape : drawing.shapes) {
        if (shape.layer != DrawingLayer::Bolt)
            continue;
        EXPECT_EQ(shape.radius, 11);
        if (shape.points[0].y > 0)
            xs.insert(std::lround(shape.points[0].x));
        else if (shape.points[0].y > -2'200)
            levels.insert(std::lround(-shape.points[0].y));
    }
    EXPECT_THAT(xs, ElementsAre(-195, -120, -45, 45, 120, 195));
    EXPECT_EQ(levels.size(), 22U);
    EXPECT_EQ(*levels.begin(), 16 + 110); // behind the flange of the section on the left
    EXPECT_EQ(*levels.rbegin(), 2'200 - 19 - 110);
    EXPECT_THAT(levels, Contains(16 + 110 + 85));
    EXPECT_THAT(levels, Contains(16 + 110 + 85 + 105));
}

TEST(JointDetail, ANumberOfBoltsThatDoesNotFitIsToldAndNoBoltsAreDrawn)
{
    SampleBridge bridge = FittingBridge();
    bridge.data.Table(341)->columns[6].Set(1, "14");
    const BridgeDrawing drawing = JointDetail(bridge.data, bridge.results, 0, GirderSide::Left, 0);
    EXPECT_EQ(BoltsIn(drawing, 0, 5'000), 0U);
    EXPECT_EQ(BoltsIn(drawing, -5'000, -2'200), 24U);
    EXPECT_THAT(Reasons(drawing), Contains("341 2 7"));
}

TEST(JointDetail, TwoRowsOfOnePartAreNotChosenFrom)
{
    SampleBridge bridge = FittingBridge();
    bridge.data.Table(343)->columns[2].Set(3, "J1"); // the upper flange of J2, from J1 on
    const BridgeDrawing drawing = JointDetail(bridge.data, bridge.results, 0, GirderSide::Left, 0);
    EXPECT_EQ(BoltsIn(drawing, 0, 5'000), 0U);
    EXPECT_THAT(Reasons(drawing), Contains("343 4 5"));
}

TEST(JointDetail, AWeldedFlangeHasNoPlate)
{
    SampleBridge bridge = FittingBridge();
    bridge.data.Table(341)->columns[7].Set(1, Cp932("溶接"));
    const BridgeDrawing drawing = JointDetail(bridge.data, bridge.results, 0, GirderSide::Left, 0);
    EXPECT_TRUE(std::ranges::none_of(drawing.shapes, [](const DrawnShape& shape) {
        return shape.layer == DrawingLayer::SplicePlate && shape.points[0].y > 0;
    }));
}

TEST(JointDetail, TheJointsOfAGirderAreNamedInTheirOrder)
{
    const SampleBridge bridge = ExampleBridge("plate4");
    const std::vector<std::string> names = JointNames(bridge.data, bridge.results, 0, GirderSide::Left);
    ASSERT_EQ(names.size(), 10U + 21U); // a member at each cross line
    EXPECT_EQ(names.front(), "J1");
    EXPECT_EQ(names[9], "J10");
    EXPECT_EQ(FromCp932(names[10]), "S1 G1-G2 左端");
    EXPECT_EQ(FromCp932(names.back()), "S4 G1-G2 左端");
    EXPECT_TRUE(JointNames(bridge.data, bridge.results, 99, GirderSide::Left).empty());
    EXPECT_TRUE(JointDetail(bridge.data, bridge.results, 0, GirderSide::Left, 99).shapes.empty());
    EXPECT_TRUE(JointDetail(bridge.data, bridge.results, 99, GirderSide::Left, 0).shapes.empty());
}

TEST(JointDetail, TheAreaOfARowIsThatOfItsPart)
{
    const SampleBridge bridge = FittingBridge();
    const BridgeDrawing drawing = JointDetail(bridge.data, bridge.results, 0, GirderSide::Left, 0);
    const auto rangeOf = [&](int block, int row) {
        const RowUse* use = drawing.UseOf(block, row);
        EXPECT_NE(use, nullptr);
        const auto [least, most] = std::ranges::minmax(use->area, {}, &DrawnPoint::y);
        return std::pair(least.y, most.y);
    };
    EXPECT_EQ(rangeOf(341, 2), (std::pair(500.0, 1'000.0))); // the upper flange, 500 wide
    EXPECT_EQ(rangeOf(344, 2), (std::pair(-2'200.0 + 19, -16.0)));
    EXPECT_EQ(rangeOf(342, 3), (std::pair(-2'700.0 - 560, -2'700.0)));
}

// --- staggered bolts -----------------------------------------------------------------------------------

namespace {

/// Bolts of the upper flange on the right and above the web, by column from the joint and row from the web.
std::set<std::pair<long, long>> UpperBolts(const BridgeDrawing& drawing, double middle)
{
    std::set<std::pair<long, long>> bolts;
    for (const DrawnShape& shape : drawing.shapes)
        if (shape.layer == DrawingLayer::Bolt && shape.points[0].x > 0 && shape.points[0].y > middle)
            bolts.emplace(std::lround(shape.points[0].x), std::lround(shape.points[0].y - middle));
    return bolts;
}

double UpperMiddle(const BridgeDrawing& drawing)
{
    double middle = 0;
    for (const DrawnShape& shape : drawing.shapes)
        if (shape.layer == DrawingLayer::SplicePlate && shape.points[0].y > 0)
            middle = (Least(shape, &DrawnPoint::y) + Most(shape, &DrawnPoint::y)) / 2;
    return middle;
}

SampleBridge StaggeredBridge(const char* form, const char* count)
{
    SampleBridge bridge = FittingBridge(); // 45, 120, 195 along; 65, 170 across
    bridge.data.Table(341)->columns[6].Set(1, count);
    bridge.data.Table(341)->columns[7].Set(1, Cp932(form));
    return bridge;
}

} // namespace

TEST(JointDetail, StaggeredBoltsBeginAtTheEdgeOrAtTheWebInTheOutermostColumn)
{
    const SampleBridge outer = StaggeredBridge("千鳥_外", "6");
    const BridgeDrawing fromEdge = JointDetail(outer.data, outer.results, 0, GirderSide::Left, 0);
    EXPECT_EQ(UpperBolts(fromEdge, UpperMiddle(fromEdge)),
              (std::set<std::pair<long, long>>{{45, 170}, {120, 65}, {195, 170}}));
    const SampleBridge inner = StaggeredBridge("千鳥_内", "6");
    const BridgeDrawing fromWeb = JointDetail(inner.data, inner.results, 0, GirderSide::Left, 0);
    EXPECT_EQ(UpperBolts(fromWeb, UpperMiddle(fromWeb)),
              (std::set<std::pair<long, long>>{{45, 65}, {120, 170}, {195, 65}}));
}

TEST(JointDetail, TheNumberOfStaggeredBoltsTellsWhetherAStepIsThatOfOneRow)
{
    // Five columns and three rows of half the steps: 2 + 1 + 2 + 1 + 2 bolts on each side of the web.
    const SampleBridge half = StaggeredBridge("千鳥_外", "16");
    const BridgeDrawing drawing = JointDetail(half.data, half.results, 0, GirderSide::Left, 0);
    const auto bolts = UpperBolts(drawing, UpperMiddle(drawing));
    EXPECT_EQ(bolts.size(), 8U);
    for (const std::pair<long, long>& corner : {std::pair(45L, 65L), {45L, 170L}, {195L, 65L}, {195L, 170L}})
        EXPECT_TRUE(bolts.contains(corner)) << corner.first << " " << corner.second;
    // Five columns and two rows have as many as three columns and three rows.
    const SampleBridge doubtful = StaggeredBridge("千鳥_外", "10");
    const BridgeDrawing without = JointDetail(doubtful.data, doubtful.results, 0, GirderSide::Left, 0);
    EXPECT_TRUE(UpperBolts(without, 0).empty());
    EXPECT_THAT(Reasons(without), Contains("341 2 8"));
}

TEST(JointDetail, StaggeredBoltsOfANumberThatNothingGivesAreTold)
{
    const SampleBridge bridge = StaggeredBridge("千鳥_外", "9");
    const BridgeDrawing drawing = JointDetail(bridge.data, bridge.results, 0, GirderSide::Left, 0);
    EXPECT_TRUE(UpperBolts(drawing, 0).empty());
    EXPECT_THAT(Reasons(drawing), Contains("341 2 7"));
}

// --- flanges of box girders ----------------------------------------------------------------------------

namespace {

/// box2 with an upper flange at J1 whose numbers fit: webs 2,200 apart, four ribs at equal spaces (440 each).
SampleBridge FittingBox()
{
    SampleBridge bridge = ExampleBridge("box2");
    const auto set = [&](int block, std::size_t row, std::size_t column, const char* text) {
        bridge.data.Table(block)->columns.at(column - 1).Set(row - 1, Cp932(text));
    };
    set(333, 2, 6, "205"); // beyond the webs: 85, then one step of 80, then 40
    set(333, 2, 7, "205");
    set(342, 2, 8, "2610"); // 2,200 and twice 205
    set(342, 2, 10, "470");
    set(343, 2, 9, "85");
    set(343, 2, 10, "40");
    set(343, 2, 11, "80 85 90 85 85 90 85 85 90 85 85 90 85 85 90 85 85 80 40"); // 85 + 3 x 90 + 85 = 440
    set(341, 2, 7, "72");                                                        // 3 columns of 2 + 5 x 4 + 2 rows
    set(341, 2, 8, "全孔引き");
    return bridge;
}

} // namespace

TEST(JointDetail, TheFlangeOfABoxHasItsBoltsBetweenWebsAndRibs)
{
    const SampleBridge bridge = FittingBox();
    const BridgeDrawing drawing = JointDetail(bridge.data, bridge.results, 0, GirderSide::Left, 0);
    EXPECT_THAT(Reasons(drawing), testing::Not(Contains(testing::StartsWith("343 2"))));
    std::set<long> levels;
    std::size_t bolts = 0;
    for (const DrawnShape& shape : drawing.shapes)
        if (shape.layer == DrawingLayer::Bolt && shape.points[0].y > 0) {
            levels.insert(std::lround(shape.points[0].y));
            ++bolts;
        }
    EXPECT_EQ(bolts, 2U * 72U);
    ASSERT_EQ(levels.size(), 24U);
    EXPECT_NEAR(static_cast<double>(*levels.rbegin() - *levels.begin()), 2'200 + 2 * 165, 1.5);
    const auto plates = ShapesOf(drawing, DrawingLayer::SplicePlate);
    const auto plate = std::ranges::find_if(plates, [](const DrawnShape* shape) { return shape->points[0].y > 0; });
    ASSERT_NE(plate, plates.end());
    EXPECT_NEAR(Height(**plate), 2'610, 1);
    EXPECT_EQ(Width(**plate), 470);
    // The plate ends where the flange ends.
    const auto flanges = ShapesOf(drawing, DrawingLayer::Web);
    const auto flange = std::ranges::find_if(flanges, [](const DrawnShape* shape) { return shape->points[0].y > 0; });
    ASSERT_NE(flange, flanges.end());
    EXPECT_NEAR(Most(**flange, &DrawnPoint::y), Most(**plate, &DrawnPoint::y), 1);
}

TEST(JointDetail, InnerPlatesAndSplicesOfRibsAreListedAsNotDrawn)
{
    SampleBridge bridge = FittingBox();
    const auto places = [&](std::size_t joint) {
        return Reasons(JointDetail(bridge.data, bridge.results, 0, GirderSide::Left, joint));
    };
    bridge.data.Table(342)->columns[6].Set(1, "");
    EXPECT_THAT(places(0), testing::Not(Contains("342 2 7")));
    bridge.data.Table(342)->columns[6].Set(1, "10"); // the inner thickness of the upper flange at J1
    EXPECT_THAT(places(0), Contains("342 2 7"));
    // A row of ribs at J1 alone.
    TableBlock& bolts = *bridge.data.Table(341);
    bolts.AppendRow({"G1", "G1", "J1", "J1", "URIB", "M22(S10T)", "4", "2"});
    const std::string rib = "341 " + std::to_string(bolts.RowCount()) + " 5";
    EXPECT_THAT(places(0), Contains(rib));
    EXPECT_THAT(places(1), testing::Not(Contains(rib)));
}

TEST(JointDetail, APlateThatIsWiderThanItsBoxFlangeIsToldAndNotDrawn)
{
    SampleBridge bridge = FittingBox();
    bridge.data.Table(333)->columns[5].Set(1, "120");
    const BridgeDrawing drawing = JointDetail(bridge.data, bridge.results, 0, GirderSide::Left, 0);
    EXPECT_EQ(BoltsIn(drawing, 0, 9'000), 0U);
    EXPECT_THAT(Reasons(drawing), Contains("342 2 8"));
}

TEST(JointDetail, SpacingsThatDoNotGoWithTheRibsAreTold)
{
    SampleBridge bridge = FittingBox();
    bridge.data.Table(343)->columns[10].Set(1, "80 85 90 85 85 91 85 85 90 85 85 90 85 85 90 85 85 80 40");
    const BridgeDrawing drawing = JointDetail(bridge.data, bridge.results, 0, GirderSide::Left, 0);
    EXPECT_EQ(BoltsIn(drawing, 0, 9'000), 0U);
    EXPECT_THAT(Reasons(drawing), Contains("343 2 11"));
}

} // namespace sbd
