#include "project/text.h"
#include "results/figure_pick.h"
#include "tests/results/result_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace sbd {

using namespace literals;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr FigureScreen kScreen{.clientWidth = 900, .clientHeight = 500, .horzRes = 1920, .vertRes = 1080};

struct Shown {
    AnalysisResults results = SmallBridge();
    GirderDiagram diagram;
    DiagramScale scale;

    explicit Shown(ResultKind kind, std::size_t component = 4)
    {
        diagram = MakeGirderDiagram(results, 0, "G1", kind, component);
        scale = FitDiagram(diagram, kScreen, kFitZoom, {});
    }
    [[nodiscard]] FigurePoint Tip(double position, double value) const { return {scale.X(position), scale.Y(value)}; }
    [[nodiscard]] std::optional<DiagramPick> At(FigurePoint pointer) const
    {
        return PickOrdinate(results, diagram, scale, pointer);
    }
};

} // namespace

TEST(PickOrdinate, TheTipUnderThePointerTellsMemberEndNodeValueAndUnit)
{
    const Shown shown(ResultKind::Force);
    const DiagramBay& bay = shown.diagram.bays[1];
    const FigurePoint tip = shown.Tip(bay.x1, bay.right);
    const std::optional<DiagramPick> pick = shown.At({tip.x + 3, tip.y - 3});
    ASSERT_TRUE(pick);
    EXPECT_EQ(pick->name, shown.results.model.elementNames[1]);
    EXPECT_TRUE(pick->rightEnd);
    EXPECT_EQ(pick->value, bay.right);
    const std::string words = FromCp932(pick->words);
    EXPECT_TRUE(words.starts_with("要素 " + pick->name + " 右端\n格点 G1-S2 (S2)\nMy = ")) << words;
    EXPECT_TRUE(words.ends_with(" kN・m")) << words;
}

TEST(PickOrdinate, ABarIsFoundAlongItsWholeLength)
{
    const Shown shown(ResultKind::Reaction, 2);
    const double value = shown.diagram.points[1];
    const std::optional<DiagramPick> pick = shown.At(shown.Tip(5, value / 2));
    ASSERT_TRUE(pick);
    EXPECT_EQ(pick->name, "G1-C1");
    EXPECT_EQ(pick->value, value);
    EXPECT_FALSE(shown.At(shown.Tip(7.5, -value))) << "nothing stands above the axis";
}

TEST(PickOrdinate, InsideABayTheNearerEndCounts)
{
    const Shown shown(ResultKind::Force);
    const DiagramBay& bay = shown.diagram.bays[0];
    const double inside = std::abs(bay.left) < std::abs(bay.right) ? bay.left : bay.right;
    const auto left = shown.At(shown.Tip(1.5, bay.left * 0.1 + (bay.left == 0 ? inside * 0.1 : 0)));
    if (left) {
        EXPECT_EQ(left->name, shown.results.model.elementNames[0]);
        EXPECT_FALSE(left->rightEnd);
    }
    EXPECT_FALSE(shown.At({1, 1}));
}

TEST(PickOrdinate, OfTwoThatLieOverEachOtherTheFirstIsThatOfTheTable)
{
    const Shown shown(ResultKind::Force);
    GirderDiagram other = shown.diagram;
    other.bays[1].right *= 0.4;
    const std::vector<DiagramCurve> curves{{shown.diagram, FigurePen::Plain, "first"},
                                           {other, FigurePen::Second, "second"}};
    const auto at = [&](const GirderDiagram& diagram, std::size_t bay) {
        return PickOrdinate(shown.results, curves, shown.scale,
                            shown.Tip(diagram.bays[bay].x1, diagram.bays[bay].right));
    };
    const auto apart = at(other, 1);
    ASSERT_TRUE(apart);
    EXPECT_EQ(apart->pen, FigurePen::Second);
    EXPECT_TRUE(apart->words.starts_with("second\n")) << apart->words;
    EXPECT_EQ(apart->value, other.bays[1].right);
    const auto first = at(shown.diagram, 1);
    ASSERT_TRUE(first);
    EXPECT_EQ(first->pen, FigurePen::Plain);
    const auto both = at(shown.diagram, 0);
    ASSERT_TRUE(both);
    EXPECT_EQ(both->pen, FigurePen::Plain) << "the row that is found is that of the table";
}

TEST(PickOrdinate, WhatIsNoNumberIsNeverFound)
{
    Shown shown(ResultKind::Displacement, 2);
    const double gone = shown.diagram.points[1];
    for (DiagramBay& bay : shown.diagram.bays)
        for (double* value : {&bay.left, &bay.right})
            if (*value == gone)
                *value = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(shown.At(shown.Tip(5, gone)));
    EXPECT_THAT(OrdinatesOf(shown.results, shown.diagram, shown.scale, "G1-C1"), IsEmpty());
}

TEST(OrdinatesOfARow, AMemberHasTwoAndANodeOne)
{
    const Shown forces(ResultKind::Force);
    EXPECT_THAT(OrdinatesOf(forces.results, forces.diagram, forces.scale, forces.results.model.elementNames[0]),
                SizeIs(2));
    const Shown reactions(ResultKind::Reaction, 2);
    EXPECT_THAT(OrdinatesOf(reactions.results, reactions.diagram, reactions.scale, "G1-C1"), SizeIs(1));
    EXPECT_THAT(OrdinatesOf(reactions.results, reactions.diagram, reactions.scale, "nobody"), IsEmpty());
    EXPECT_THAT(OrdinatesOf(reactions.results, reactions.diagram, reactions.scale, ""), IsEmpty());
}

TEST(PickFrame, ANodeTellsItsNameItsPlaceAndHowItMoves)
{
    AnalysisResults results = SmallBridge();
    EXPECT_EQ(FromCp932(NodeWords(results, 2)), "格点 G1-C1 (2)\nx = 5.000  y = 0.000  z = 1.000 m");
    for (std::size_t k = 0; k < 3; ++k)
        results.displacement.values[12 + k] = 0.001 * static_cast<double>(k + 1);
    EXPECT_EQ(FromCp932(NodeWords(results, 2, 0)),
              "格点 G1-C1 (2)\nx = 5.000  y = 0.000  z = 1.000 m\nUx = 1.000  Uy = 2.000  Uz = -3.000 mm");
}

} // namespace sbd
