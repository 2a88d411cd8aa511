#include "results/figure_view.h"
#include "results/model_projection.h"
#include "tests/results/result_fixture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace sbd {

namespace {

constexpr FigureScreen kScreen{.clientWidth = 900, .clientHeight = 500, .horzRes = 1920, .vertRes = 1080};
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

} // namespace

TEST(ProjectPoint, TheFourViewsShowTheBridgeUpright)
{
    const Point3 place{-2, -3, 4}; // a node at x 2, y 3, z 4 with its plan turned
    const auto seen = [&](Point3 direction) {
        const Point3 point = ProjectPoint(direction, place);
        return std::pair(point[0], point[1]);
    };
    EXPECT_EQ(seen({0, 0, 1}), std::pair(2.0, 3.0));
    EXPECT_EQ(seen({1, 0, 0}), std::pair(-3.0, 4.0)) << "YZ";
    EXPECT_EQ(seen({0, 1, 0}), std::pair(2.0, 4.0)) << "XZ";
    const auto [x, y] = seen({1, 1, 1});
    EXPECT_NEAR(x, (2 - 3) / std::sqrt(2.0), 1e-12);
    EXPECT_NEAR(y, (2 + 3 + 2 * 4) / std::sqrt(6.0), 1e-12);
}

TEST(ProjectPoint, TheDepthTakesTheHeightForX)
{
    EXPECT_DOUBLE_EQ(ProjectPoint({1, 0, 0}, {7, 3, 4})[2], -4 + 1);
}

TEST(ProjectPoint, WithoutADirectionLooksDown)
{
    EXPECT_EQ(ProjectPoint({0, 0, 0}, {1, 2, 3}), ProjectPoint({0, 0, 1}, {1, 2, 3}));
}

TEST(FitModel, LeavesAMarginByTheZoom)
{
    FigureBounds bounds;
    bounds.Widen(0, 0);
    bounds.Widen(9, 5);
    const ModelScale scale = FitModel(bounds, kScreen, kFitZoom, {});
    EXPECT_DOUBLE_EQ(scale.scale, 500 / 5.0 / 1.4);
    EXPECT_DOUBLE_EQ(scale.ToScreen(4.5, 5).y, 250 - 250 / 1.4) << "y upward";
    EXPECT_DOUBLE_EQ(scale.ToScreen(9, 2.5).x, 450 + 450 / 1.4);
}

TEST(FitModel, TheLargerSideRules)
{
    FigureBounds wide;
    wide.Widen(0, 0);
    wide.Widen(90, 1);
    EXPECT_DOUBLE_EQ(FitModel(wide, kScreen, 1, {}).extentY, 50);
    FigureBounds high;
    high.Widen(0, 0);
    high.Widen(1, 50);
    EXPECT_DOUBLE_EQ(FitModel(high, kScreen, 1, {}).extentX, 90);
}

TEST(FitModel, AStepOfThePanIsMeasuredOnTheOtherSideOfTheScreen)
{
    FigureBounds bounds;
    bounds.Widen(0, 0);
    bounds.Widen(9, 5);
    const FigurePoint still = FitModel(bounds, kScreen, 1, {}).ToScreen(0, 0);
    const FigurePoint moved = FitModel(bounds, kScreen, 1, {1, -1}).ToScreen(0, 0);
    EXPECT_NEAR(moved.x - still.x, 1080 * 0.02, 1e-9);
    EXPECT_NEAR(moved.y - still.y, -1920 * 0.02, 1e-9);
}

TEST(FitModel, OneNodeStandsInTheMiddleAndNoNodeIsNoError)
{
    FigureBounds bounds;
    EXPECT_TRUE(bounds.IsEmpty());
    EXPECT_EQ(FitModel(bounds, kScreen, kFitZoom, {}).scale, 1);
    bounds.Widen(3, 4);
    const FigurePoint point = FitModel(bounds, kScreen, kFitZoom, {}).ToScreen(3, 4);
    EXPECT_EQ(point, (FigurePoint{450, 250}));
}

TEST(FigureBounds, PointsThatAreNoNumbersArePassedOver)
{
    FigureBounds bounds;
    bounds.Widen(kNone, 1);
    bounds.Widen(1, std::numeric_limits<double>::infinity());
    EXPECT_TRUE(bounds.IsEmpty());
    bounds.Widen(1, 2);
    EXPECT_EQ(bounds.maxX, 1);
}

TEST(ApplyViewCommand, ViewsZoomsAndMoves)
{
    FigureView view;
    view.panX = 3;
    EXPECT_TRUE(ApplyViewCommand(view, Command::ZoomOut));
    EXPECT_DOUBLE_EQ(view.zoom, 1.4 * 1.2);
    EXPECT_TRUE(ApplyViewCommand(view, Command::ZoomIn));
    EXPECT_DOUBLE_EQ(view.zoom, 1.4);
    for (const Command command : {Command::MoveUp, Command::MoveUp, Command::MoveDown, Command::MoveLeft,
                                  Command::MoveRight, Command::MoveRight})
        EXPECT_TRUE(ApplyViewCommand(view, command));
    EXPECT_EQ(view.panX, 4);
    EXPECT_EQ(view.panY, -1);
    EXPECT_TRUE(ApplyViewCommand(view, Command::ViewYZ));
    EXPECT_EQ(view.viewDirection, (Point3{1, 0, 0}));
    EXPECT_EQ(view.panX, 0);
    EXPECT_FALSE(ApplyViewCommand(view, Command::SwitchFigureAndHelp));
}

TEST(TakeMouseMarks, ARectangleComesToTheMiddleAndItsLargerSideFillsThePane)
{
    FigureView view;
    view.zoomBoxPending = true;
    view.leftDownPoint = {600, 100};
    view.leftUpPoint = {825, 200};
    const FigurePan pan = TakeMouseMarks(view, kScreen);
    EXPECT_DOUBLE_EQ(view.zoom, 1.4 * 0.25);
    EXPECT_EQ(view.panX, -12) << "262.5 pixels in steps of 21.6";
    EXPECT_EQ(view.panY, 2) << "100 pixels in steps of 38.4";
    EXPECT_EQ(pan.x, view.panX);
    EXPECT_FALSE(view.zoomBoxPending);
}

TEST(TakeMouseMarks, ARectangleOfLessThanFourPixelsIsNothing)
{
    for (const FigurePoint up : {FigurePoint{10, 10}, FigurePoint{13, 7}, FigurePoint{7, 13.9}}) {
        FigureView view;
        view.panX = 2;
        view.zoomBoxPending = true;
        view.leftDownPoint = {10, 10};
        view.leftUpPoint = up;
        static_cast<void>(TakeMouseMarks(view, kScreen));
        EXPECT_EQ(view.zoom, kFitZoom) << up.x << ' ' << up.y;
        EXPECT_EQ(view.panX, 2);
        EXPECT_FALSE(view.zoomBoxPending);
    }
}

TEST(TakeMouseMarks, ARectangleIsTheSameFromWhicheverCornerItIsDrawn)
{
    constexpr FigurePoint corners[] = {{600, 100}, {825, 100}, {825, 200}, {600, 200}};
    for (std::size_t from = 0; from < 4; ++from) {
        FigureView view;
        view.zoomBoxPending = true;
        view.leftDownPoint = corners[from];
        view.leftUpPoint = corners[(from + 2) % 4];
        static_cast<void>(TakeMouseMarks(view, kScreen));
        EXPECT_DOUBLE_EQ(view.zoom, 1.4 * 0.25) << from;
        EXPECT_EQ(view.panX, -12) << from;
        EXPECT_EQ(view.panY, 2) << from;
    }
}

TEST(TakeMouseMarks, TheZoomStaysAboveZeroHoweverOftenItIsAskedFor)
{
    FigureView view;
    for (int i = 0; i < 300; ++i) {
        view.zoomBoxPending = true;
        view.leftDownPoint = {450, 250};
        view.leftUpPoint = {455, 254};
        static_cast<void>(TakeMouseMarks(view, kScreen));
    }
    EXPECT_GT(view.zoom, 0);
    for (int i = 0; i < 10'000; ++i)
        ApplyViewCommand(view, Command::ZoomIn);
    EXPECT_GT(view.zoom, 0);
    for (int i = 0; i < 20'000; ++i)
        ApplyViewCommand(view, Command::ZoomOut);
    EXPECT_TRUE(std::isfinite(view.zoom));
    for (int i = 0; i < 200; ++i)
        ApplyViewCommand(view, Command::ZoomIn);
    EXPECT_LT(view.zoom, 1) << "the way back is not lost";
}

TEST(TakeMouseMarks, ADragShowsAtOnceAndOnlyItsEndStays)
{
    FigureView view;
    view.panX = 1;
    view.rightDownPoint = {100, 100};
    view.rightMovePoint = {100 + 3 * 21.6 + 1, 100 - 2 * 38.4 - 1};
    view.panPreview = true;
    const FigurePan shown = TakeMouseMarks(view, kScreen);
    EXPECT_EQ(shown.x, 4);
    EXPECT_EQ(shown.y, -2);
    EXPECT_EQ(view.panX, 1) << "forgotten after the paint";
    EXPECT_EQ(TakeMouseMarks(view, kScreen).x, 1);
    view.panPending = true;
    EXPECT_EQ(TakeMouseMarks(view, kScreen).x, 4);
    EXPECT_EQ(view.panX, 4);
}

TEST(TakeMouseMarks, APaneWithoutSizeIsNoError)
{
    FigureView view;
    view.zoomBoxPending = view.panPending = true;
    view.rightMovePoint = {1e300, kNone};
    const FigurePan pan = TakeMouseMarks(view, {.clientWidth = 0, .clientHeight = 0, .horzRes = 0, .vertRes = 0});
    EXPECT_LE(std::abs(pan.x), 1'000'000);
    EXPECT_EQ(pan.y, 0);
    EXPECT_EQ(view.zoom, kFitZoom);
}

TEST(ModelProjection, NodesBeyondTheModelOrTheTableAreNone)
{
    AnalysisResults results = SmallBridge();
    results.model.nodeCount = 4;
    EXPECT_EQ(FigureNodeCount(results), 4U);
    results.model.nodeCount = 2'000'000'000;
    EXPECT_EQ(FigureNodeCount(results), 6U);
    results.model.nodeCount = -1;
    EXPECT_EQ(FigureNodeCount(results), 0U);
    const CModelProjection projection(FigurePlaces(SmallBridge()), {0, 0, 1});
    EXPECT_FALSE(projection.HasNode(0));
    EXPECT_TRUE(projection.HasNode(6));
    EXPECT_FALSE(projection.HasNode(7));
    EXPECT_EQ(projection.Node(6)[0], 10);
}

TEST(DeformedPlaces, AreMovedAHundredTimesTheDisplacement)
{
    AnalysisResults results = SmallBridge();
    results.displacement.values.assign(72, 0);
    results.displacement.values[12 + 6] = 0.01; // node 2, second load case, Ux
    results.displacement.values[12 + 8] = -0.02;
    const std::vector<Point3> places = DeformedPlaces(results, 1);
    EXPECT_EQ(places[1], (Point3{-6, 0, -1}));
    EXPECT_EQ(places[0], FigurePlaces(results)[0]);
}

TEST(DeformedPlaces, OfNodesWithoutDisplacementsAreNoNumbers)
{
    AnalysisResults results = SmallBridge();
    results.displacement.values.resize(13);
    const std::vector<Point3> places = DeformedPlaces(results, 0);
    EXPECT_TRUE(std::isfinite(places[0][2]));
    EXPECT_TRUE(std::isnan(places[1][1]));
    EXPECT_TRUE(std::isnan(places[5][0]));
    const CModelProjection projection(places, {0, 0, 1});
    EXPECT_EQ(projection.Bounds().maxX, 0) << "they widen no bounds";
}

} // namespace sbd
