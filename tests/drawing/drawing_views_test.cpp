#include "drawing/drawing_views.h"
#include "tests/drawing/sample_bridges.h"

#include <set>

namespace sbd {

namespace {

constexpr std::chrono::milliseconds kLong{60'000};

} // namespace

TEST(DrawingViews, TheDrawingOfARowSpeaksOfIt)
{
    struct Sample {
        const char* name;
        std::size_t least; // rows that are drawn
    };
    for (const auto& [name, least] : {Sample{"plate4", 30}, Sample{"box2", 30}, Sample{"single1", 4}}) {
        const SampleBridge bridge = ExampleBridge(name);
        std::size_t found = 0;
        for (const int block : {307, 313, 321, 331, 332, 341, 343, 523, 533, 573}) {
            for (std::size_t row = 1; row <= bridge.data.Table(block)->RowCount(); ++row) {
                const SourceCell place{block, static_cast<int>(row), 0};
                const DrawingSearch search = DrawingOfRow(bridge.data, bridge.results, {}, place, kLong);
                EXPECT_TRUE(search.all);
                if (!search.found)
                    continue;
                ++found;
                EXPECT_TRUE(SpeaksOf(MakeDrawing(bridge.data, bridge.results, *search.found), place))
                    << name << ": " << block << " row " << row;
            }
        }
        EXPECT_GE(found, least) << name;
    }
}

TEST(DrawingViews, AllDrawingsOfARowComeInTurn)
{
    const SampleBridge bridge = ExampleBridge("plate4");
    const SourceCell row{332, 2, 0};
    DrawingRequest request;
    std::set<std::size_t> girders;
    for (std::size_t i = 0; i < bridge.data.gridNames.girderNames.size(); ++i) {
        const DrawingSearch search = DrawingOfRow(bridge.data, bridge.results, request, row, kLong);
        ASSERT_TRUE(search.found);
        request = *search.found;
        EXPECT_EQ(request.view, DrawingView::Elevation);
        girders.insert(request.girder);
    }
    EXPECT_EQ(girders.size(), 4U); // the row is of all girders
}

TEST(DrawingViews, ARowOfABlockThatNoViewReadsHasNoDrawing)
{
    const SampleBridge bridge = ExampleBridge("plate4");
    const DrawingSearch search = DrawingOfRow(bridge.data, bridge.results, {}, {701, 1, 0}, kLong);
    EXPECT_FALSE(search.found);
    EXPECT_TRUE(search.all);
}

TEST(DrawingViews, ASearchWithoutTimeSaysThatItDidNotSeeAll)
{
    const SampleBridge bridge = ExampleBridge("plate4");
    const DrawingSearch search =
        DrawingOfRow(bridge.data, bridge.results, {}, {341, 24, 0}, std::chrono::milliseconds(0));
    EXPECT_FALSE(search.found);
    EXPECT_FALSE(search.all);
}

TEST(DrawingViews, AThousandGirdersAreNotAllLookedAt)
{
    SampleBridge bridge = ExampleBridge("plate4");
    for (int i = 0; i < 1000; ++i)
        bridge.data.gridNames.girderNames.push_back("X" + std::to_string(i));
    const DrawingSearch search = DrawingOfRow(bridge.data, bridge.results, {}, {332, 9000, 0}, kLong);
    EXPECT_FALSE(search.found);
    EXPECT_FALSE(search.all);
}

} // namespace sbd
