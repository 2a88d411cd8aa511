#include "drawing/dxf_writer.h"
#include "drawing/girder_elevation.h"
#include "tests/drawing/dxf_reader.h"
#include "tests/drawing/sample_bridges.h"

#include <gmock/gmock.h>

#include <set>

namespace sbd {

TEST(DxfWriter, EachPartOfTheExampleStandsInTheFileInTrueMeasureOnItsLayer)
{
    const SampleBridge bridge = ExampleBridge("plate4");
    const BridgeDrawing drawing = GirderElevation(bridge.data, bridge.results, {});
    const std::vector<Entity> entities = EntitiesOf(GroupsOf(DxfOf(drawing, 150)));
    ASSERT_GE(entities.size(), drawing.shapes.size());
    for (std::size_t i = 0; i < drawing.shapes.size(); ++i) {
        const DrawnShape& shape = drawing.shapes[i];
        EXPECT_EQ(entities[i].layer, LayerName(shape.layer));
        EXPECT_EQ(entities[i].type, shape.kind == ShapeKind::Circle ? "CIRCLE"
                                    : shape.points.size() == 2      ? "LINE"
                                                                    : "LWPOLYLINE");
        ASSERT_EQ(entities[i].points.size(), shape.points.size());
        for (std::size_t k = 0; k < shape.points.size(); ++k) {
            EXPECT_NEAR(entities[i].points[k].x, shape.points[k].x, 1e-5);
            EXPECT_NEAR(entities[i].points[k].y, shape.points[k].y, 1e-5);
        }
    }
    EXPECT_TRUE(
        std::ranges::any_of(entities, [](const Entity& each) { return each.type == "TEXT" && each.text == "34000"; }));
    EXPECT_TRUE(std::ranges::any_of(entities, [](const Entity& each) { return FromCp932(each.text) == "支承線上点"; }));
}

TEST(DxfWriter, HandlesAreGivenOnceAndLayersOfPartsAreInTheTable)
{
    const SampleBridge bridge = ExampleBridge("box2");
    const std::vector<Group> groups = GroupsOf(DxfOf(
        GirderElevation(bridge.data, bridge.results, {.girder = 1, .side = GirderSide::Left, .camber = true}), 150));
    std::set<std::string> handles;
    std::set<std::string> layers;
    std::string kind;
    for (const Group& group : groups) {
        if (group.code == 0)
            kind = group.value;
        if ((group.code == 5 || group.code == 105) && kind != "SECTION") {
            EXPECT_TRUE(handles.insert(group.value).second) << group.value;
        }
        if (group.code == 2 && kind == "LAYER")
            layers.insert(group.value);
        if (group.code == 8) {
            EXPECT_TRUE(layers.contains(group.value)) << group.value;
        }
    }
    EXPECT_EQ(groups.back().value, "EOF");
}

TEST(DxfWriter, TextsHaveAStyleThatOtherProgramsShowJapaneseIn)
{
    const SampleBridge bridge = ExampleBridge("plate4");
    const std::vector<Group> groups = GroupsOf(DxfOf(GirderElevation(bridge.data, bridge.results, {}), 150));
    std::set<std::string> styles;
    std::string kind;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        if (groups[i].code == 0)
            kind = groups[i].value;
        if (kind == "STYLE" && groups[i].code == 2)
            styles.insert(groups[i].value);
        if (kind == "STYLE" && groups[i].code == 3) {
            EXPECT_EQ(groups[i].value, "msgothic.ttc");
        }
        if (kind == "TEXT" && groups[i].code == 7) {
            EXPECT_EQ(groups[i].value, "kst32b");
            EXPECT_TRUE(styles.contains(groups[i].value));
        }
    }
    EXPECT_EQ(styles.size(), 2U);
}

TEST(DxfWriter, ATextWithALineEndDoesNotBreakTheFile)
{
    CDrawingBuild build;
    build.Label({0, 0}, "G1\r\n0\r\nEOF", LabelRow::AtPoint, {});
    const std::vector<Entity> entities = EntitiesOf(GroupsOf(DxfOf(build.Take(), 0)));
    ASSERT_FALSE(entities.empty());
    EXPECT_EQ(entities[0].text, "G10EOF");
}

} // namespace sbd
