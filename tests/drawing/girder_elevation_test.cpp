#include "drawing/girder_depth.h"
#include "drawing/girder_elevation.h"
#include "tests/drawing/sample_bridges.h"
#include "tests/seed.h"

#include <gmock/gmock.h>

#include <cmath>

namespace sbd {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr double kNear = 0.05;

BridgeDrawing Elevation(const CSbdData& data)
{
    return GirderElevation(data, {}, {});
}

/// The depth of the first girder at x, in mm; 0 if it is not known.
double DepthAt(const CSbdData& data, double x)
{
    const AnalysisResults results;
    const CBridgeGrid grid(data, results);
    CDrawingBuild build;
    const CGirderLine line(build, data, grid, 0, GirderSide::Left);
    return DepthOf(build, data, line).At(x).value_or(0);
}

void SetForms(CSbdData& data, const char* upper, const char* lower)
{
    data.hGirder.types[2] = Cp932(upper);
    data.hGirder.types[3] = Cp932(lower);
}

} // namespace

TEST(GirderElevation, ALaterRowWinsAndARowThatIsWhollyCoveredSaysSo)
{
    CSbdData data = SmallInput();
    AddRow(data, 313, {"G1", "G1", "C1", "C2", "I桁", "120", "9", "1", "等間隔"});
    BridgeDrawing drawing = Elevation(data);
    EXPECT_THAT(ShapesOf(drawing, DrawingLayer::VerticalStiffener), SizeIs(2 + 1 + 2));
    ASSERT_NE(drawing.UseOf(313, 2), nullptr);
    EXPECT_FALSE(drawing.UseOf(313, 2)->covered);
    EXPECT_EQ(drawing.UseOf(313, 3)->area[0].x, 6000);
    EXPECT_EQ(drawing.UseOf(313, 3)->area[1].x, 12000);
    AddRow(data, 313, {"G2", "G1", "S2", "S1", "I桁", "120", "9", "0", ""}); // whichever way round
    drawing = Elevation(data);
    EXPECT_THAT(ShapesOf(drawing, DrawingLayer::VerticalStiffener), IsEmpty());
    EXPECT_TRUE(drawing.UseOf(313, 2)->covered);
    EXPECT_TRUE(drawing.UseOf(313, 3)->covered);
    EXPECT_FALSE(drawing.UseOf(313, 4)->covered);
}

TEST(GirderElevation, ARowOfOneSideOfTheWebDoesNotCoverTheOtherSide)
{
    CSbdData data = SmallInput();
    AddRow(data, 313, {"G1", "G1", "S1", "S2", "I桁左側", "120", "9", "1", "等間隔"});
    const BridgeDrawing drawing = Elevation(data);
    EXPECT_FALSE(drawing.UseOf(313, 2)->covered);
    EXPECT_THAT(ShapesOf(drawing, DrawingLayer::VerticalStiffener), SizeIs(3 * (2 + 1)));
}

TEST(GirderElevation, WithoutCoordinatesBaysAreEqualAndSaidToBeProvisional)
{
    CSbdData data = SmallInput();
    data.Table(504)->columns = CSbdData().Table(504)->columns;
    const BridgeDrawing drawing = Elevation(data);
    EXPECT_TRUE(drawing.provisional);
    EXPECT_THAT(FromCp932(drawing.notes.at(0)), HasSubstr("寸法は仮です"));
    for (const ChainPart& part : drawing.chains[1].parts)
        EXPECT_EQ(part.text, "5000");
}

TEST(GirderElevation, SpacingsAreMeasuredFromTheLeftCrossBeam)
{
    CSbdData data = SmallInput();
    AddRow(data, 313, {"G1", "G1", "C1", "C2", "I桁", "120", "9", "2", "1.5 2.0 130 12"});
    const BridgeDrawing drawing = Elevation(data);
    const auto stiffeners = ShapesOf(drawing, DrawingLayer::VerticalStiffener);
    ASSERT_THAT(stiffeners, SizeIs(6));
    EXPECT_NEAR(Middle(*stiffeners[2]), 7500, kNear);
    EXPECT_NEAR(Width(*stiffeners[2]), 9, kNear);
    EXPECT_NEAR(Middle(*stiffeners[3]), 9500, kNear);
    EXPECT_NEAR(Width(*stiffeners[3]), 12, kNear);
}

TEST(GirderElevation, ASpliceThatCannotStandIsToldOfWithItsCell)
{
    CSbdData data = SmallInput();
    AddRow(data, 321, {"J1", "I桁", "G1", "G2", "C1", "1", "0.5", ""});
    AddRow(data, 321, {"J2", "I桁", "G1", "G2", "C1", "1", "45", ""});     // behind the bay
    AddRow(data, 321, {"J3", "I桁", "G1", "G2", "C9", "1", "0.5", ""});    // no such cross beam
    AddRow(data, 321, {"J4", "I桁", "G1", "G2", "C1", "3", "0.5", ""});    // no such stiffener
    AddRow(data, 321, {"J5", "両腹板", "G1", "G2", "C1", "1", "0.5", ""}); // a word of box girders
    AddRow(data, 321, {"J6", "I桁", "G1", "G7", "C1", "1", "0.5", ""});    // no such girder
    const BridgeDrawing drawing = Elevation(data);
    const auto splices = ShapesOf(drawing, DrawingLayer::Splice);
    ASSERT_THAT(splices, SizeIs(1));
    EXPECT_NEAR(Middle(*splices[0]), 6000 + 2000 + 500, kNear);
    EXPECT_THAT(ReasonsAt(drawing, 321, 4, 7), testing::ElementsAre(HasSubstr("格間の外")));
    EXPECT_THAT(ReasonsAt(drawing, 321, 5, 5), testing::ElementsAre(HasSubstr("C9")));
    EXPECT_THAT(ReasonsAt(drawing, 321, 6, 6), SizeIs(1));
    EXPECT_THAT(ReasonsAt(drawing, 321, 7, 2), SizeIs(1));
    EXPECT_THAT(ReasonsAt(drawing, 321, 8, 4), testing::ElementsAre(HasSubstr("G7")));
}

TEST(GirderElevation, ANumberNamesNoPlaceWhereTheSidesHaveStiffenersAtOtherPlaces)
{
    CSbdData data = SmallInput();
    AddRow(data, 313, {"G1", "G1", "S1", "S2", "I桁左側", "120", "9", "1", "等間隔"});
    AddRow(data, 321, {"J1", "I桁", "G1", "G2", "C1", "1", "0.5", ""});
    const BridgeDrawing drawing = Elevation(data);
    EXPECT_THAT(ShapesOf(drawing, DrawingLayer::Splice), IsEmpty());
    EXPECT_THAT(ReasonsAt(drawing, 321, 3, 6), SizeIs(1));
}

TEST(GirderElevation, AWrongMetreOfTheDepthIsSeen)
{
    CSbdData data = SmallInput();
    data.hGirder.records.push_back(
        {{"G1", "G1", "C1", "C1"}, {18, kNotGiven, kNotGiven, kNotGiven, kNotGiven, kNotGiven, kNotGiven}});
    EXPECT_NEAR(DepthAt(data, 6000), 18'000, kNear);
    EXPECT_NEAR(DepthAt(data, 3000), 10'000, kNear);
    data.hGirder.records.back().numbers[0] = 2200; // millimetres: no picture, but a word
    const BridgeDrawing drawing = Elevation(data);
    EXPECT_THAT(ReasonsAt(drawing, 311, 6, 5), SizeIs(1));
    EXPECT_THAT(ShapesOf(drawing, DrawingLayer::Girder), SizeIs(1)); // only the bay away from C1
}

TEST(GirderElevation, AStraightHaunchChangesBetweenItsConstantEnds)
{
    CSbdData data = SmallInput();
    SetForms(data, "線形(入力)", "直線");
    data.hGirder.records = {{{"G1", "G2", "S1", "S2"}, {2, 3, 1, 3, 0, kNotGiven, kNotGiven}}};
    EXPECT_NEAR(DepthAt(data, 500), 2000, kNear);
    EXPECT_NEAR(DepthAt(data, 7000), 2500, kNear);
    EXPECT_NEAR(DepthAt(data, 14'000), 3000, kNear);
}

TEST(GirderElevation, ACurvedHaunchIsFlatAtItsPointAndPassesBothEnds)
{
    CSbdData data = SmallInput();
    SetForms(data, "線形(入力)", "２次");
    data.hGirder.records = {{{"G1", "G2", "S1", "S2"}, {2, 4, 0, 0, 0, kNotGiven, kNotGiven}}}; // flat at the begin
    EXPECT_NEAR(DepthAt(data, 0), 2000, kNear);
    EXPECT_NEAR(DepthAt(data, 8000), 2500, 10); // a quarter of the rise in the middle
    EXPECT_NEAR(DepthAt(data, 16'000), 4000, kNear);
    data.hGirder.records[0].numbers = {3, 3, 0, 0, -2, kNotGiven, kNotGiven}; // depth 2 where it is flat
    EXPECT_NEAR(DepthAt(data, 8000), 2000, kNear);
    EXPECT_NEAR(DepthAt(data, 4000), 2250, 10);
    data.hGirder.records[0].numbers = {3, 2.5, 0, 0, 8, kNotGiven, kNotGiven}; // no parabola does that
    EXPECT_EQ(DepthAt(data, 8000), 0);
    EXPECT_THAT(ReasonsAt(Elevation(data), 311, 5, 9), SizeIs(1));
}

TEST(GirderElevation, AFormThatIsNotToldIsLeftOut)
{
    CSbdData data = SmallInput();
    SetForms(data, "２次", "２次");
    data.hGirder.records = {{{"G1", "G2", "S1", "S2"}, {2, 3, 0, 0, 4, 0.3, 5}}};
    const BridgeDrawing drawing = Elevation(data);
    EXPECT_THAT(ShapesOf(drawing, DrawingLayer::Girder), IsEmpty());
    EXPECT_THAT(ReasonsAt(drawing, 311, 5, 9), testing::ElementsAre(HasSubstr("DZ_LFLG")));
}

TEST(GirderElevation, TwoStagesOfHorizontalStiffenersLieAtTheSharesOfTwo)
{
    CSbdData data = SmallInput();
    AddRow(data, 315, {"自動計算(YES_NO)", "NO"});
    AddRow(data, 315, {"G1", "G2", "S1", "S2", "I桁", "1段目", "L9", "0", "100 10"});
    AddRow(data, 315, {"G1", "G2", "C2", "S2", "I桁", "2段目", "R1", "0", "100 10"});
    const auto drawing = Elevation(data);
    const auto stiffeners = ShapesOf(drawing, DrawingLayer::HorizontalStiffener);
    ASSERT_THAT(stiffeners, SizeIs(9 + 1));
    EXPECT_NEAR(stiffeners[0]->points[0].y, -20 - 0.2 * 2000 + 5, kNear);
    EXPECT_NEAR(stiffeners[8]->points[0].y, -20 - 0.14 * 2000 + 5, kNear); // the last panel
    EXPECT_NEAR(stiffeners[9]->points[0].y, -20 - 0.36 * 2000 + 5, kNear);
    EXPECT_NEAR(Width(*stiffeners[9]), 4000.0 / 3, kNear);
}

TEST(GirderElevation, SupportsAreReadWithTheWordInEitherColumn)
{
    CSbdData data = SmallInput();
    AddRow(data, 307, {"G1", "G2", "S1", "S1", "0", "支点"});
    AddRow(data, 307, {"G1", "G2", "S2", "S2", "支承線上点", "0"});
    AddRow(data, 307, {"G1", "G2", "C1", "C1", "120", ""}); // a reduction of moments alone
    const BridgeDrawing drawing = Elevation(data);
    EXPECT_THAT(ShapesOf(drawing, DrawingLayer::Support), SizeIs(2));
    EXPECT_EQ(FromCp932(drawing.chains[drawing.chains.size() - 2].title), "支間");
}

TEST(GirderElevation, StudsAndManHolesStandWhereTheirRowsSay)
{
    CSbdData data = SmallInput();
    AddRow(data, 321, {"J1", "I桁", "G1", "G2", "C1", "0", "0", ""});
    AddRow(data, 402, {"手動", "スタッド_SS400相当品", "22", "150", "35", "10", "50", "50"});
    AddRow(data, 402, {"G1", "G2", "I桁", "J1", "300_3", "4_3", "200", "2_3", "250"});
    AddRow(data, 402, {"G1", "G2", "I桁", "J9", "300", "4", "200"});
    const BridgeDrawing drawing = Elevation(data);
    const auto studs = ShapesOf(drawing, DrawingLayer::Stud);
    ASSERT_THAT(studs, SizeIs(1 + 4 + 2));
    EXPECT_NEAR(Middle(*studs.front()), 6300, kNear);
    EXPECT_NEAR(Middle(*studs.back()), 6300 + 4 * 200 + 2 * 250, kNear);
    EXPECT_NEAR(Height(*studs.front()), 150, kNear);
    EXPECT_THAT(ReasonsAt(drawing, 402, 3, 4), SizeIs(1));

    AddRow(data, 305, {"G1", "G1L", "G1R"});
    AddRow(data, 408, {"自動計算(YES_NO)", "NO"});
    AddRow(data, 408, {"G1", "G1", "C1", "C2", "TYPE_400_600", "L_WEB", "1000", "800"});
    AddRow(data, 408, {"G1", "G1", "C1", "C2", "B_H_B1_H1", "L_WEB", "1000", "800"});
    AddRow(data, 408, {"G1", "G1", "C1", "C2", "400_600_600_800", "L_WEB", "9000", "800"});
    const BridgeDrawing box = Elevation(data);
    const auto holes = ShapesOf(box, DrawingLayer::ManHole);
    ASSERT_THAT(holes, SizeIs(1));
    EXPECT_NEAR(Middle(*holes[0]), 7000, kNear);
    EXPECT_NEAR(Width(*holes[0]), 400, kNear);
    EXPECT_NEAR(Height(*holes[0]), 600, kNear);
    EXPECT_THAT(ReasonsAt(box, 408, 3, 5), SizeIs(1));
    EXPECT_THAT(ReasonsAt(box, 408, 4, 7), SizeIs(1));
}

TEST(GirderElevation, ACountReservesNothing)
{
    CSbdData data = SmallInput();
    for (const char* count : {"999999999", "50000", "-3", "2.5", "1e300", "nan", "三"}) {
        AddRow(data, 313, {"G1", "G1", "S1", "S2", "I桁", "120", "9", count, "等間隔"});
        const BridgeDrawing drawing = Elevation(data);
        EXPECT_THAT(ShapesOf(drawing, DrawingLayer::VerticalStiffener), IsEmpty()) << count;
        EXPECT_THAT(ReasonsAt(drawing, 313, static_cast<int>(data.RowCount(313)), 8), SizeIs(1)) << count;
    }
    AddRow(data, 402, {"手動", "スタッド", "22", "150"});
    AddRow(data, 321, {"J1", "I桁", "G1", "G2", "C1", "0", "0", ""});
    AddRow(data, 402, {"G1", "G2", "I桁", "J1", "0", "1000000000", "0.000001"});
    EXPECT_LE(Elevation(data).shapes.size(), kMostShapes);
}

TEST(GirderElevation, ACountOfFiftyIsDrawnAsItStands)
{
    CSbdData data = SmallInput();
    AddRow(data, 313, {"G1", "G1", "C1", "C2", "I桁", "120", "9", "50", ""});
    EXPECT_THAT(ShapesOf(Elevation(data), DrawingLayer::VerticalStiffener), SizeIs(2 + 50 + 2));
}

using RandomElevation = RandomTest;

TEST_F(RandomElevation, AnyCellsGiveABoundedDrawingWhoseSourcesAreRows)
{
    const std::vector<std::string> cells = {
        "",      "G1",    "G2",  "G9",   "S1",   "C1",     "C2",     "S2",           "I桁",   "両腹板",  "左腹板",
        "1段目", "2段目", "L9",  "R2",   "0",    "1",      "3",      "-1",           "1e9",   "0.5 0.5", "等間隔",
        "C",     "SEC1",  "FLG", "UFLG", "支点", "終断面", "継手長", "TYPE_400_600", "L_WEB", "J1",      "100 9"};
    const std::vector<int> blocks = {305, 307, 313, 314, 315, 321, 322, 331, 332, 402, 404, 408, 504};
    for (int turn = 0; turn < 300; ++turn) {
        CSbdData data = SmallInput();
        for (int row = 0; row < 12; ++row) {
            std::vector<std::string> texts;
            for (int column = 0; column < 12; ++column)
                texts.push_back(cells[UpTo(cells.size() - 1)]);
            AddRow(data, blocks[UpTo(blocks.size() - 1)], texts);
        }
        for (const GirderSide side : {GirderSide::Left, GirderSide::Right}) {
            const BridgeDrawing drawing = GirderElevation(data, {}, {.girder = UpTo(1), .side = side, .camber = true});
            ASSERT_LE(drawing.shapes.size(), kMostShapes);
            ASSERT_LE(drawing.omissions.size(), kMostOmissions);
            for (const DrawnShape& shape : drawing.shapes) {
                const TableBlock* table = data.Table(shape.source.block);
                ASSERT_TRUE(table == nullptr || shape.source.row <= static_cast<int>(table->RowCount()));
            }
        }
    }
}

} // namespace sbd
