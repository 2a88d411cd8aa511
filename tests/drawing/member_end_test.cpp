// The ends of cross beams and sway bracings, and the gussets of laterals, against measures worked out by hand.
#include "drawing/beam_end_detail.h"
#include "drawing/bridge_plan.h"
#include "drawing/dxf_writer.h"
#include "drawing/joint_detail.h"
#include "tests/drawing/sample_bridges.h"
#include "tests/seed.h"

#include <gmock/gmock.h>

#include <cmath>
#include <set>

namespace sbd {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

namespace {

constexpr double kNear = 0.05; // mm
constexpr std::size_t kStation = 1;

/// The small bridge with a member at C1 between its girders. The cross beam is 2,000 - 150 - 270 = 1,580 deep; between
/// its flanges of 12 its web has 1,556.
CSbdData WithMember(const char* type, const char* connection)
{
    CSbdData data = SmallInput();
    AddRow(data, 523, {"自動計算(YES_NO)", "NO"});
    AddRow(data, 523, {"C1", "C1", "G1", "G2", type});
    AddRow(data, 532, {"自動計算(YES_NO)", "NO"});
    AddRow(data, 532, {"C1", "C1", "G1", "G2", "要素両側", "150", "270"});
    AddRow(data, 533, {"自動計算(YES_NO)", "NO"});
    AddRow(data, 533, {"C1", "C1", "G1", "G2", "240", "12", "260", "12", "9", "SM400", "SM400", "SM400"});
    AddRow(data, 551, {"自動計算(YES_NO)", "NO"});
    AddRow(data, 551, {"C1", "C1", "G1", "G2", "要素両側", connection, "終"});
    return data;
}

CSbdData Bracketed()
{
    CSbdData data = WithMember("中間横桁", "仕口");
    AddRow(data, 557, {"自動計算(YES_NO)", "NO"});
    AddRow(data, 557, {"C1", "C1", "G1", "G2", "要素両側", "UFLG", "9", "10", "230", "95", "470"});
    AddRow(data, 557, {"C1", "C1", "G1", "G2", "要素両側", "LFLG", "9", "10", "390", "95", "320"});
    AddRow(data, 557, {"C1", "C1", "G1", "G2", "要素両側", "WEB", "9", "9", "320", "320", "1420"});
    AddRow(data, 558, {"自動計算(YES_NO)", "NO"});
    AddRow(data, 558, {"C1", "C1", "G1", "G2", "要素両側", "UFLG", "M22(S10T)", "6", "全孔引き"});
    AddRow(data, 558, {"C1", "C1", "G1", "G2", "要素両側", "LFLG", "M24(S10T)", "8", "全孔引き"});
    AddRow(data, 558, {"C1", "C1", "G1", "G2", "要素両側", "WEB", "M22(S10T)", "4", "9"});
    AddRow(data, 559, {"自動計算(YES_NO)", "NO"});
    AddRow(data, 559, {"C1", "C1", "G1", "G2", "要素両側", "UFLG", "90", "75", "40", "150", "40"});
    AddRow(data, 559, {"C1", "C1", "G1", "G2", "要素両側", "LFLG", "90", "75", "40", "150", "40"});
    AddRow(data, 560, {"自動計算(YES_NO)", "NO"});
    AddRow(data, 560,
           {"C1", "C1", "G1", "G2", "要素両側", "110", "85", "85", "110", "90", "75", "0", "0", "0", "NO", "NO"});
    AddRow(data, 561, {"自動計算(YES_NO)", "NO"});
    AddRow(data, 561, {"C1", "C1", "G1", "G2",  "要素両側", "300", "240", "700", "720", "0",
                       "50", "50", "50", "300", "320",      "260", "50",  "50",  "50",  "300"});
    return data;
}

BridgeDrawing EndOf(const CSbdData& data, int end)
{
    return MemberEndDetail(data, {}, {0, kStation, end});
}

/// Bolts between two levels: their places, rounded to the tenth of a millimetre.
std::set<std::pair<double, double>> Bolts(const BridgeDrawing& drawing, double low, double high)
{
    std::set<std::pair<double, double>> bolts;
    for (const DrawnShape* bolt : ShapesOf(drawing, DrawingLayer::Bolt))
        if (bolt->points[0].y > low && bolt->points[0].y < high)
            bolts.emplace(std::round(bolt->points[0].x * 10) / 10, std::round(bolt->points[0].y * 10) / 10);
    return bolts;
}

std::vector<std::string> Places(const BridgeDrawing& drawing)
{
    std::vector<std::string> places;
    for (const Omission& omission : drawing.omissions)
        places.push_back(std::to_string(omission.place.block) + " " + std::to_string(omission.place.row) + " "
                         + std::to_string(omission.place.column));
    return places;
}

constexpr double kWeb = 1'556;
constexpr double kUpperMiddle = 300 + 300 / 2.0; // a flange has 300 at least
constexpr double kLowerMiddle = -kWeb - kUpperMiddle;

} // namespace

TEST(MemberEnd, TheSpliceOfABracketStandsByItsRows)
{
    const BridgeDrawing drawing = EndOf(Bracketed(), 0);
    EXPECT_THAT(Places(drawing), ElementsAre("557 2 8", "557 3 8")); // the inner plates of the flanges
    EXPECT_EQ(drawing.omissions[0].kind, OmissionKind::Limit);
    EXPECT_EQ(FromCp932(drawing.title), "C1 G1-G2 左端 横桁連結図 仕口");
    // 470/2 = 45 + 2 x 75 + 40: three columns of one row on each side.
    const auto upper = Bolts(drawing, 0, 5'000);
    EXPECT_THAT(upper, SizeIs(12));
    for (const double x : {-195.0, -120.0, -45.0, 45.0, 120.0, 195.0})
        for (const double y : {75.0, -75.0})
            EXPECT_TRUE(upper.contains({x, kUpperMiddle + y})) << x << " " << y;
    // 390 wide: 75 from the web, 40 from the edge, the second row at (390 - 150 - 80) / 2 = 80; two columns.
    const auto lower = Bolts(drawing, -9'000, -kWeb);
    EXPECT_THAT(lower, SizeIs(16));
    for (const double x : {45.0, 120.0})
        for (const double y : {75.0, 155.0, -75.0, -155.0})
            EXPECT_TRUE(lower.contains({x, kLowerMiddle + y})) << x << " " << y;
    // The web: two columns of four on each side; (1,556 - 2 x 195) / 9 between the second rows.
    const auto web = Bolts(drawing, -kWeb, 0);
    EXPECT_THAT(web, SizeIs(4 * 12));
    EXPECT_TRUE(web.contains({45, -110}));
    EXPECT_TRUE(web.contains({120, -195}));
    EXPECT_TRUE(web.contains({-120, -kWeb + 110}));
    const double step = (kWeb - 2 * 195) / 9;
    EXPECT_TRUE(web.contains({-45, std::round((-195 - step) * 10) / 10}));
    for (const DrawnShape* bolt : ShapesOf(drawing, DrawingLayer::Bolt))
        EXPECT_EQ(bolt->radius, bolt->points[0].y < -kWeb ? 12 : 11);
    // The girder's web is as far away as the bracket is long; the upper flange's splice has its own length.
    std::set<double> girders;
    for (const DrawnShape* line : ShapesOf(drawing, DrawingLayer::Girder))
        girders.insert(line->points[0].x);
    EXPECT_EQ(girders, (std::set<double>{-720, -700}));
    const auto plates = ShapesOf(drawing, DrawingLayer::SplicePlate);
    ASSERT_THAT(plates, SizeIs(3));
    EXPECT_NEAR(Height(*plates[0]), 1'420, kNear); // web
    EXPECT_NEAR(Width(*plates[0]), 320, kNear);
    EXPECT_NEAR(Height(*plates[1]), 230, kNear);
    EXPECT_NEAR(Width(*plates[1]), 470, kNear);
    EXPECT_EQ(plates[1]->source, (SourceCell{557, 2, 9}));
}

TEST(MemberEnd, TheRightEndIsTheLeftOneInTheMirror)
{
    const BridgeDrawing left = EndOf(Bracketed(), 0);
    const BridgeDrawing right = EndOf(Bracketed(), 1);
    ASSERT_EQ(left.shapes.size(), right.shapes.size());
    for (const DrawingLayer layer : {DrawingLayer::Girder, DrawingLayer::Flange, DrawingLayer::Web}) {
        const auto ones = ShapesOf(left, layer);
        const auto others = ShapesOf(right, layer);
        ASSERT_EQ(ones.size(), others.size());
        for (std::size_t i = 0; i < ones.size(); ++i) {
            EXPECT_NEAR(Least(*ones[i], &DrawnPoint::x), -Most(*others[i], &DrawnPoint::x), kNear);
            EXPECT_NEAR(Most(*ones[i], &DrawnPoint::x), -Least(*others[i], &DrawnPoint::x), kNear);
        }
    }
}

TEST(MemberEnd, ALaterRowOfOneEndHoldsForThatEndAlone)
{
    CSbdData data = Bracketed();
    AddRow(data, 561, {"C1", "C1", "G1", "G2", "要素右側", "300", "240", "900", "900", "0",
                       "0",  "0",  "0",  "0",  "320",      "260", "0",   "0",   "0",   "0"});
    const auto girderAt = [&](int end) { return ShapesOf(EndOf(data, end), DrawingLayer::Girder)[0]->points[0].x; };
    EXPECT_EQ(girderAt(0), -700);
    EXPECT_EQ(girderAt(1), 900);
}

TEST(MemberEnd, MeasuresOfTheGirdersSideThatDifferAreNotDrawn)
{
    CSbdData data = Bracketed();
    const auto cell = [&](std::size_t column, const char* text) {
        data.Table(559)->columns.at(column - 1).Set(1, text);
    };
    cell(12, "90"); // the same measures again are no others
    cell(13, "75");
    cell(14, "40");
    cell(15, "150");
    cell(16, "40");
    EXPECT_THAT(Bolts(EndOf(data, 0), 0, 5'000), SizeIs(12));
    cell(12, "100");
    const BridgeDrawing drawing = EndOf(data, 0);
    EXPECT_THAT(Bolts(drawing, 0, 5'000), IsEmpty());
    EXPECT_THAT(Places(drawing), Contains("559 2 12"));
}

TEST(MemberEnd, ANumberOfColumnsOfOneSideIsSeen)
{
    CSbdData data = Bracketed();
    data.Table(558)->columns[7].Set(3, "3");
    const BridgeDrawing drawing = EndOf(data, 0);
    EXPECT_THAT(Bolts(drawing, -kWeb, 0), IsEmpty());
    EXPECT_THAT(Places(drawing), Contains("558 4 8"));
}

TEST(MemberEnd, ALappedWebHasItsBoltsFromItsEndAndItsUpperEdge)
{
    CSbdData data = WithMember("荷重分配横桁", "せん断");
    AddRow(data, 556, {"自動計算(YES_NO)", "NO"});
    AddRow(data, 556,
           {"C1", "C1", "G1", "G2", "要素両側", "M20(S10T)", "2", "3", "75", "40", "90", "966", "150 200 150"});
    const BridgeDrawing left = EndOf(data, 0);
    EXPECT_THAT(Places(left), IsEmpty()); // 90 + 500 + 966 = 1,556
    EXPECT_EQ(Bolts(left, -kWeb, 0),
              (std::set<std::pair<double, double>>{
                  {40, -90}, {40, -240}, {40, -440}, {40, -590}, {115, -90}, {115, -240}, {115, -440}, {115, -590}}));
    EXPECT_TRUE(Bolts(EndOf(data, 1), -kWeb, 0).contains({-115, -590}));
    data.Table(556)->columns[11].Set(1, "900");
    EXPECT_THAT(Places(EndOf(data, 0)), ElementsAre("556 2 12"));
    data.Table(556)->columns[12].Set(1, "150 200");
    const BridgeDrawing less = EndOf(data, 0);
    EXPECT_THAT(Bolts(less, -kWeb, 0), IsEmpty());
    EXPECT_THAT(Places(less), ElementsAre("556 2 13"));
}

namespace {

CSbdData Welded()
{
    CSbdData data = WithMember("荷重分配横桁", "上曲げ(1面摩擦)");
    AddRow(data, 552, {"自動計算(YES_NO)", "NO"});
    AddRow(data, 552, {"C1", "C1", "G1", "G2", "要素両側", "上下", "W1"});
    AddRow(data, 553, {"自動計算(YES_NO)", "NO"});
    AddRow(data, 553, {"C1", "C1", "G1", "G2", "要素両側", "上下", "230", "14"});
    AddRow(data, 554, {"自動計算(YES_NO)", "NO"});
    AddRow(data, 554, {"C1", "C1", "G1", "G2", "要素両側", "上下", "M22(S10T)", "全孔引き", "6", "1"});
    AddRow(data, 555, {"自動計算(YES_NO)", "NO"});
    AddRow(data, 555, {"C1", "C1", "G1", "G2", "要素両側", "上下", "400", "75", "45", "40", "150", "40"});
    AddRow(data, 556, {"自動計算(YES_NO)", "NO"});
    AddRow(data, 556, {"C1", "C1", "G1", "G2", "要素両側", "M22(S10T)", "1", "1", "0", "40", "90", "90", "1376"});
    return data;
}

} // namespace

TEST(MemberEnd, APlateOnTheGirdersWebReachesBehindItsLastBolt)
{
    const BridgeDrawing left = EndOf(Welded(), 0);
    EXPECT_THAT(Places(left), IsEmpty());
    const auto plates = ShapesOf(left, DrawingLayer::SplicePlate);
    ASSERT_THAT(plates, SizeIs(1)); // the lower flange is not joined
    EXPECT_NEAR(Most(*plates[0], &DrawnPoint::x), 400.0 / 2 + 2 * 75 + 40, kNear);
    EXPECT_NEAR(Least(*plates[0], &DrawnPoint::x), 0, kNear);
    EXPECT_NEAR(Height(*plates[0]), 230, kNear);
    const auto flanges = ShapesOf(left, DrawingLayer::Flange);
    ASSERT_THAT(flanges, SizeIs(1));
    EXPECT_NEAR(Least(*flanges[0], &DrawnPoint::x), 200 - 45, kNear);
    for (const double x : {200.0, 275.0, 350.0})
        for (const double y : {75.0, -75.0})
            EXPECT_TRUE(Bolts(left, -100, 100).contains({x, y}));
    // On the other end left and right are changed.
    const BridgeDrawing right = EndOf(Welded(), 1);
    EXPECT_NEAR(Least(*ShapesOf(right, DrawingLayer::SplicePlate)[0], &DrawnPoint::x), -(350 + 45), kNear);
    EXPECT_NEAR(Most(*ShapesOf(right, DrawingLayer::Flange)[0], &DrawnPoint::x), -(200 - 40), kNear);
}

TEST(MemberEnd, WhatTheCellsOfAPlateDoNotTellIsListed)
{
    CSbdData connected = Welded();
    connected.Table(552)->columns[6].Set(1, "C1");
    EXPECT_THAT(Places(EndOf(connected, 0)), Contains("552 2 7"));
    CSbdData rows = Welded();
    rows.Table(554)->columns[9].Set(1, "2");
    EXPECT_THAT(Places(EndOf(rows, 0)), Contains("554 2 10"));
    CSbdData notched = Welded();
    notched.Table(553)->columns[10].Set(1, "50");
    EXPECT_THAT(Places(EndOf(notched, 0)), ElementsAre("553 2 11"));
    EXPECT_THAT(ShapesOf(EndOf(notched, 0), DrawingLayer::SplicePlate), SizeIs(1));
    CSbdData width = Welded();
    width.Table(553)->columns[6].Set(1, "240");
    const BridgeDrawing drawing = EndOf(width, 0);
    EXPECT_THAT(Places(drawing), Contains("553 2 7"));
    EXPECT_THAT(ShapesOf(drawing, DrawingLayer::SplicePlate), IsEmpty());
    EXPECT_THAT(Places(EndOf(WithMember("中間横桁", "内仕口"), 0)), Contains("551 2 6"));
}

TEST(MemberEnd, AGussetHasTheOuterLineOfItsCells)
{
    CSbdData data = WithMember("中間対傾構", "上下曲げ(1面摩擦)");
    AddRow(data, 562, {"自動計算(YES_NO)", "NO"});
    AddRow(data, 562,
           {"C1", "C1", "G1", "G2", "要素両側", "上下", "9", "400", "80", "100", "10", "250", "220", "1", "1", "1",
            "150", "200"});
    AddRow(data, 563, {"自動計算(YES_NO)", "NO"});
    AddRow(data, 563, {"C1", "C1", "G1", "G2", "要素両側", "上下", "M22(S10T)", "1", "2", "0", "45", "40", "80 85"});
    const BridgeDrawing left = EndOf(data, 0);
    EXPECT_THAT(Places(left), IsEmpty());
    const auto gussets = ShapesOf(left, DrawingLayer::Gusset);
    ASSERT_THAT(gussets, SizeIs(2));
    EXPECT_EQ(gussets[0]->points, (std::vector<DrawnPoint>{{0, 80}, {400, 80}, {400, -100}, {220, -250}, {0, -250}}));
    EXPECT_NEAR(Height(*gussets[1]), 80 + 250, kNear);
    EXPECT_EQ(Bolts(left, -500, 500), (std::set<std::pair<double, double>>{{45, 40}, {45, -40}, {45, -125}}));
    EXPECT_EQ(ShapesOf(EndOf(data, 1), DrawingLayer::Gusset)[0]->points[1], (DrawnPoint{-400, 80}));
    data.Table(562)->columns[13].Set(1, "4");
    const BridgeDrawing other = EndOf(data, 0);
    EXPECT_THAT(ShapesOf(other, DrawingLayer::Gusset), IsEmpty());
    EXPECT_THAT(Places(other), Contains("562 2 14"));
}

TEST(MemberEnd, TheChordPlatesOfASwayBracingAreListedAsNotDrawn)
{
    CSbdData data = WithMember("中間対傾構", "上下曲げ(1面摩擦)");
    for (const int block : {552, 553, 554, 555}) {
        AddRow(data, block, {"自動計算(YES_NO)", "NO"});
        AddRow(data, block, {"C1", "C1", "G1", "G2", "要素左側", "上下", "1"});
    }
    for (const char* place : {"552 2 1", "553 2 1", "554 2 1", "555 2 1"}) {
        EXPECT_THAT(Places(EndOf(data, 0)), Contains(place));
        EXPECT_THAT(Places(EndOf(data, 1)), Not(Contains(place))); // these rows are of the left end
    }
}

TEST(MemberEnd, EndsStandBehindTheJointsOfTheirGirderAndInFiles)
{
    const CSbdData data = Bracketed();
    EXPECT_EQ(FromCp932(JointNames(data, {}, 0, GirderSide::Left).at(0)), "C1 G1-G2 左端");
    EXPECT_EQ(FromCp932(JointNames(data, {}, 1, GirderSide::Left).at(0)), "C1 G1-G2 右端");
    const BridgeDrawing drawing = JointDetail(data, {}, 1, GirderSide::Left, 0);
    EXPECT_EQ(FromCp932(drawing.title), "C1 G1-G2 右端 横桁連結図 仕口");
    const std::string dxf = FromCp932(DxfOf(drawing, 20));
    std::size_t circles = 0;
    for (std::size_t at = dxf.find("\r\nCIRCLE\r\n"); at != std::string::npos; at = dxf.find("\r\nCIRCLE\r\n", at + 1))
        ++circles;
    EXPECT_EQ(circles, 12U + 16U + 48U);
    EXPECT_NE(dxf.find("ガセット"), std::string::npos); // a layer of its own
}

// --- gussets of laterals in the plan -------------------------------------------------------------------

TEST(MemberEnd, AGussetOfALateralLiesAlongItsGirderOnTheMembersSide)
{
    CSbdData data = SmallInput(); // G1 at y 3 m, G2 at 0; S1, C1 and C2 at 0, 6 and 12 m
    AddRow(data, 573, {"自動計算(YES_NO)", "NO"});
    AddRow(data, 573, {"G1", "G2", "S1", "C1", "B", "E"});
    AddRow(data, 578, {"自動計算(YES_NO)", "NO"});
    AddRow(data, 578, {"G1", "G2", "S1", "S2", "格点", "I桁両側", "接線1", "400", "450", "9", "300", "60", "70"});
    AddRow(data, 578, {"G2", "G2", "C1", "C1", "両", "I桁左側", "接線1", "350", "500", "9", "300"});
    const BridgeDrawing drawing = BridgePlan(data, {});
    const auto gussets = ShapesOf(drawing, DrawingLayer::Gusset);
    ASSERT_THAT(gussets, SizeIs(2)); // where the member ends, and nowhere else
    EXPECT_EQ(gussets[0]->source, (SourceCell{578, 2, 8}));
    const DrawnPoint middle = gussets[0]->points[2];
    EXPECT_NEAR(gussets[0]->points[1].x, middle.x - 400, kNear);
    EXPECT_NEAR(gussets[0]->points[3].x, middle.x + 450, kNear);
    EXPECT_NEAR(gussets[0]->points[0].y, middle.y - 60, kNear); // the member lies on the right of G1
    EXPECT_NEAR(gussets[0]->points[4].y, middle.y - 70, kNear);
    EXPECT_EQ(gussets[1]->source, (SourceCell{578, 3, 8})); // the later row wins
    EXPECT_NEAR(gussets[1]->points[1].x, gussets[1]->points[2].x - 350, kNear);
    EXPECT_NEAR(gussets[1]->points[0].y, gussets[1]->points[2].y, kNear);
    data.Table(578)->columns[7].Set(1, Cp932("直角"));
    data.Table(578)->columns[4].Set(2, Cp932("中間"));
    const std::vector<std::string> places = Places(BridgePlan(data, {}));
    EXPECT_THAT(places, Contains("578 2 8"));
    EXPECT_THAT(places, Contains("578 3 5"));
}

// --- any cells -----------------------------------------------------------------------------------------

class MemberEndOfAnyCells : public RandomTest {};

TEST_F(MemberEndOfAnyCells, StaysWithinItsBounds)
{
    const std::vector<std::string> words = {"C1",       "G1",        "G2",       "S1",       "S2",
                                            "要素両側", "要素左側",  "上下",     "上",       "FLG",
                                            "UFLG",     "WEB",       "仕口",     "せん断",   "上下曲げ(1面摩擦)",
                                            "W1",       "C1",        "全孔引き", "千鳥_外",  "千鳥_内",
                                            "4孔引き",  "M22(S10T)", "M(",       "80 80 80", "1e9 1e9",
                                            "0",        "1",         "2",        "4",        "6",
                                            "60",       "61",        "40",       "75",       "0.001",
                                            "470",      "1000000",   "-90",      "1e300",    "nan",
                                            "",         "直角",      "格点",     "両",       "I桁両側",
                                            "J1",       "横桁"};
    const std::vector<int> blocks = {341, 342, 343, 344, 523, 532, 533, 551, 552, 553, 554,
                                     555, 556, 557, 558, 559, 560, 561, 562, 563, 573, 578};
    for (int i = 0; i < 400; ++i) {
        CSbdData data = i % 2 == 0 ? Bracketed() : Welded();
        AddRow(data, 321, {"J1", "I桁", "G1", "G2", "S1", "1", "CENTER", ""});
        for (const int block : blocks) {
            AddRow(data, block, {"自動計算(YES_NO)", "NO"});
            for (std::size_t row = UpTo(2); row > 0; --row) {
                std::vector<std::string> cells;
                const bool isOfGirders = block < 500 || block >= 570;
                for (const char* name :
                     isOfGirders ? std::array{"G1", "G2", "J1", "J1"} : std::array{"C1", "C1", "G1", "G2"})
                    cells.push_back(UpTo(9) == 0 ? words[UpTo(words.size() - 1)] : name);
                while (cells.size() < 17)
                    cells.push_back(words[UpTo(words.size() - 1)]);
                AddRow(data, block, cells);
            }
        }
        for (const BridgeDrawing& drawing :
             {EndOf(data, 0), EndOf(data, 1), JointDetail(data, {}, 0, GirderSide::Left, 0), BridgePlan(data, {})}) {
            ASSERT_LT(drawing.shapes.size(), 60'000U);
            for (const DrawnShape& shape : drawing.shapes) {
                ASSERT_TRUE(std::isfinite(shape.radius));
                for (const DrawnPoint& point : shape.points)
                    ASSERT_TRUE(std::isfinite(point.x) && std::isfinite(point.y));
            }
            for (const DimensionChain& chain : drawing.chains)
                for (const ChainPart& part : chain.parts)
                    ASSERT_TRUE(std::isfinite(part.from) && std::isfinite(part.to) && part.from <= part.to);
        }
    }
}

} // namespace sbd
