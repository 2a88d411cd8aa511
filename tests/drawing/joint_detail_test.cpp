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
    ASSERT_EQ(names.size(), 10U);
    EXPECT_EQ(names.front(), "J1");
    EXPECT_EQ(names.back(), "J10");
    EXPECT_TRUE(JointNames(bridge.data, bridge.results, 99, GirderSide::Left).empty());
    EXPECT_TRUE(JointDetail(bridge.data, bridge.results, 0, GirderSide::Left, 99).shapes.empty());
    EXPECT_TRUE(JointDetail(bridge.data, bridge.results, 99, GirderSide::Left, 0).shapes.empty());
}

} // namespace sbd
