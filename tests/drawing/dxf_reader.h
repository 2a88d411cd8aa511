// What stands in a DXF file.
#pragma once

#include "drawing/bridge_drawing.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace sbd {

/// A pair of a DXF file.
struct Group {
    int code = 0;
    std::string value;
};

[[nodiscard]] inline std::vector<Group> GroupsOf(const std::string& dxf)
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

/// A line, polyline, circle or text.
struct Entity {
    std::string type;
    std::string layer;
    std::vector<DrawnPoint> points;
    double radius = 0;
    std::string text;
};

/// What stands in the section of entities.
[[nodiscard]] inline std::vector<Entity> EntitiesOf(const std::vector<Group>& groups)
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

} // namespace sbd
