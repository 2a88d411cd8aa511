#include "upperview/page/draw_primitives.h"
#include "upperview/page/draw_recorder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>

using namespace sbd;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

/// A line as x1, y1, x2, y2.
using Ends = std::array<int, 4>;

std::vector<Ends> LinesOf(const CDrawRecorder& recorder)
{
    std::vector<Ends> lines;
    for (const Primitive& primitive : recorder.Primitives())
        lines.push_back({primitive.points[0].x, primitive.points[0].y, primitive.points[1].x, primitive.points[1].y});
    return lines;
}

} // namespace

TEST(DrawPrimitives, ADimensionOfNoLengthDrawsNothing)
{
    CDrawRecorder recorder;
    DrawDimension(recorder, 7, -9, 7, -9, true);
    EXPECT_THAT(recorder.Primitives(), IsEmpty());
}

TEST(DrawPrimitives, AHorizontalDimensionHasUprightTicksAndArrowsInside)
{
    CDrawRecorder recorder;
    DrawDimension(recorder, 100, -50, 0, -50, true);
    EXPECT_THAT(LinesOf(recorder), ElementsAre(Ends{0, -50, 100, -50}, Ends{0, -65, 0, -35}, Ends{100, -65, 100, -35},
                                               Ends{0, -50, 18, -59}, Ends{0, -50, 18, -41}, Ends{100, -50, 82, -59},
                                               Ends{100, -50, 82, -41}));
}

TEST(DrawPrimitives, AVerticalDimensionHasFlatTicksAndArrowsInside)
{
    CDrawRecorder recorder;
    DrawDimension(recorder, 10, -20, 10, -200, true);
    EXPECT_THAT(LinesOf(recorder),
                ElementsAre(Ends{10, -200, 10, -20}, Ends{-5, -200, 25, -200}, Ends{-5, -20, 25, -20},
                            Ends{10, -200, 1, -182}, Ends{10, -200, 19, -182}, Ends{10, -20, 1, -38},
                            Ends{10, -20, 19, -38}));
}

TEST(DrawPrimitives, ADimensionWithoutArrowsKeepsItsTicks)
{
    CDrawRecorder recorder;
    DrawDimension(recorder, 0, 0, 100, 0, false);
    EXPECT_THAT(recorder.Primitives(), SizeIs(3));
}

TEST(DrawPrimitives, ASlantedDimensionIsALineWithSortedCoordinates)
{
    CDrawRecorder recorder;
    DrawDimension(recorder, 0, 100, 50, 20, true); // comes out mirrored
    EXPECT_THAT(LinesOf(recorder), ElementsAre(Ends{0, 20, 50, 100}));
}

TEST(DrawPrimitives, TicksFollowTheUnitScale)
{
    CDrawRecorder recorder;
    recorder.unitX = 1;
    recorder.unitY = 2;
    DrawDimension(recorder, 0, 0, 100, 0, false);
    EXPECT_THAT(LinesOf(recorder), ElementsAre(Ends{0, 0, 100, 0}, Ends{0, -10, 0, 10}, Ends{100, -10, 100, 10}));
}

TEST(DrawPrimitives, AnArrowOfNoLengthDrawsNothing)
{
    CDrawRecorder recorder;
    DrawArrow(recorder, 3, 4, 3, 4);
    DrawBlockArrow(recorder, 3, 4, 3, 4, 90);
    EXPECT_THAT(recorder.Primitives(), IsEmpty());
}

// Tail 300 to the left of the tip: back = -300, wings -300 -+ 2400 (cos 25, sin 25), cut, a hundredth of it.
TEST(DrawPrimitives, TheWingsOfAnArrowReachBackByAHundredthOfItsLength)
{
    CDrawRecorder recorder;
    DrawArrow(recorder, 0, 0, 300, 0);
    EXPECT_THAT(LinesOf(recorder),
                ElementsAre(Ends{0, 0, 300, 0}, Ends{300, 0, 300 - 24, -10}, Ends{300, 0, 300 - 24, 10}));
    CDrawRecorder longer;
    DrawArrow(longer, 0, 0, 3000, 0);
    EXPECT_EQ(LinesOf(longer)[1], (Ends{3000, 0, 3000 - 51, -10}));
}

// Tip (0, 0), tail (0, -150): back = -150i, wings (+-1376, -2115), of it a 75th. The tail is across: s = 36 / 4.
TEST(DrawPrimitives, ABlockArrowHasTipWingsShaftAndTail)
{
    CDrawRecorder recorder;
    DrawBlockArrow(recorder, 0, -150, 0, 0, 0);
    EXPECT_THAT(LinesOf(recorder),
                ElementsAre(Ends{0, 0, 18, -28}, Ends{0, 0, -18, -28}, Ends{18, -28, 9, -28}, Ends{-18, -28, -9, -28},
                            Ends{0, -141, -9, -28}, Ends{0, -159, 9, -28}, Ends{0, -159, 0, -141}));
}

// The sine of 90 degrees with this pi is a little below 1, so that 9 is cut to 8.
TEST(DrawPrimitives, TheTailOfABlockArrowFollowsTheAngleAlone)
{
    CDrawRecorder upright;
    DrawBlockArrow(upright, 0, -150, 0, 0, 90);
    const Ends tail = LinesOf(upright).back();
    EXPECT_EQ(tail, (Ends{8, -150, -8, -150}));
}

TEST(DrawRecorder, KeepsPenBrushAndTextColourOfEachCall)
{
    CDrawRecorder recorder;
    recorder.SetPen({PenStyle::DashDot, 5, colours::kBlue});
    DrawLine(recorder, 0, 0, 1, 1);
    recorder.SetBrush({BrushStyle::UpwardDiagonal, colours::kBlack});
    DrawCircle(recorder, 5, -5, 4);
    DrawFilledCircle(recorder, 1, 2, 3, colours::kDarkGreen);
    recorder.SetTextColour(colours::kRed);
    recorder.Text({10, -10}, "H");
    const std::vector<Primitive>& all = recorder.Primitives();
    EXPECT_EQ(all[0].pen, (DrawPen{PenStyle::DashDot, 5, colours::kBlue}));
    EXPECT_EQ(all[1].brush.style, BrushStyle::UpwardDiagonal);
    EXPECT_EQ(all[2].colour, colours::kDarkGreen);
    EXPECT_TRUE(CDrawRecorder::IsRed(all[3]));
    EXPECT_FALSE(CDrawRecorder::IsRed(all[0]));
}

TEST(DrawRecorder, ATextTakesUpOneAverageCharacterForAByte)
{
    CDrawRecorder recorder({.height = 40, .externalLeading = 0, .aveCharWidth = 20});
    recorder.Text({10, -10}, "ABC");
    const DrawBox box = recorder.BoxOf(recorder.Primitives().front());
    EXPECT_EQ(box.right, 70);
    EXPECT_EQ(box.bottom, -50);
}

TEST(DrawRecorder, TheJsonHoldsOneObjectForEachPrimitive)
{
    CDrawRecorder recorder;
    recorder.SetPen({PenStyle::Dash, 1, colours::kRed});
    DrawLine(recorder, 1, -2, 3, -4);
    recorder.Text({5, -6}, "\x95\xd0"); // 片
    EXPECT_EQ(recorder.ToJson(), "[\n"
                                 "{\"kind\":\"line\",\"points\":[[1,-2],[3,-4]],\"pen\":[\"dash\",1,\"0x0000ff\"]},\n"
                                 "{\"kind\":\"text\",\"points\":[[5,-6]],\"text\":\"片\",\"colour\":\"0x000000\"}\n"
                                 "]\n");
}
