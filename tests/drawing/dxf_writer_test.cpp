#include "drawing/dxf_writer.h"
#include "drawing/girder_elevation.h"
#include "tests/drawing/sample_bridges.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <set>

namespace sbd {

namespace {

struct Group {
    int code = 0;
    std::string value;
};

std::vector<Group> GroupsOf(const std::string& dxf)
{
    std::vector<Group> groups;
    std::vector<std::string> lines;
    for (std::size_t pos = 0; pos < dxf.size();) {
        const std::size_t end = dxf.find("\r\n", pos);
        if (end == std::string::npos)
            break;
        lines.push_back(dxf.substr(pos, end - pos));
        pos = end + 2;
    }
    EXPECT_EQ(lines.size() % 2, 0U) << "a code without a value";
    for (std::size_t i = 0; i + 1 < lines.size(); i += 2)
        groups.push_back({std::atoi(lines[i].c_str()), lines[i + 1]});
    return groups;
}

struct Entity {
    std::string type;
    std::string layer;
    std::vector<DrawnPoint> points;
    double radius = 0;
    std::string text;
};

/// What stands in the section of entities.
std::vector<Entity> EntitiesOf(const std::vector<Group>& groups)
{
    std::vector<Entity> entities;
    bool within = false;
    for (const Group& group : groups) {
        if (group.code == 2 && group.value == "ENTITIES")
            within = true;
        else if (group.code == 0 && group.value == "ENDSEC")
            within = false;
        if (!within)
            continue;
        if (group.code == 0)
            entities.push_back({group.value, {}, {}, 0, {}});
        if (entities.empty())
            continue;
        Entity& entity = entities.back();
        if (group.code == 8)
            entity.layer = group.value;
        else if (group.code == 1)
            entity.text = group.value;
        else if (group.code == 40)
            entity.radius = std::strtod(group.value.c_str(), nullptr);
        else if (group.code == 10 || group.code == 11)
            entity.points.push_back({std::strtod(group.value.c_str(), nullptr), 0});
        else if (group.code == 20 || group.code == 21)
            entity.points.back().y = std::strtod(group.value.c_str(), nullptr);
    }
    return entities;
}

} // namespace

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
