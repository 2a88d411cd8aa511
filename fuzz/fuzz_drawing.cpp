// Any project and any nodes: every view comes to an end, within its bounds, and its parts come from rows that are there.
#include "drawing/bridge_plan.h"
#include "drawing/cross_section.h"
#include "drawing/drawing_views.h"
#include "drawing/dxf_writer.h"
#include "drawing/girder_elevation.h"
#include "drawing/joint_detail.h"
#include "fuzz/property.h"
#include "results/byte_source.h"
#include "sbdfile/reader.h"

#include <cmath>
#include <cstdint>
#include <span>

namespace {

using sbd::fuzz::Require;

/// The first two bytes say how many of the others are the project; behind it stand the model and the nodes.
struct Parts {
    std::string_view project;
    std::span<const std::byte> results;
};

Parts Divide(const std::uint8_t* bytes, std::size_t size)
{
    if (size < 2)
        return {};
    const std::size_t length = std::min<std::size_t>(bytes[0] + 256 * std::size_t{bytes[1]}, size - 2);
    return {sbd::fuzz::Text(bytes + 2, length), std::as_bytes(std::span(bytes + 2 + length, size - 2 - length))};
}

void Check(const sbd::BridgeDrawing& drawing, const sbd::CSbdData& data)
{
    Require(drawing.shapes.size() <= sbd::kMostShapes, "no more shapes than the bound");
    Require(drawing.omissions.size() <= sbd::kMostOmissions, "no more omissions than the bound");
    for (const sbd::DrawnShape& shape : drawing.shapes) {
        for (const sbd::DrawnPoint& point : shape.points)
            Require(std::isfinite(point.x) && std::isfinite(point.y), "a point is a number");
        const sbd::TableBlock* table = data.Table(shape.source.block);
        Require(table == nullptr || static_cast<std::size_t>(shape.source.row) <= table->RowCount(),
                "a part comes from a row that is there");
    }
    const sbd::DrawnShape* part = sbd::PartAt(drawing, {0, 0}, 1e6, 5);
    Require(part == nullptr || part->source.block != 0, "what is found comes from a cell");
    if (drawing.shapes.size() < 100)
        Require(sbd::DxfOf(drawing, 100).ends_with("EOF\r\n"), "a file for other programs is whole");
    for (const sbd::RowUse& use : drawing.rows)
        for (const sbd::DrawnPoint& point : use.area)
            Require(std::isfinite(point.x) && std::isfinite(point.y), "an area has numbers");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const Parts parts = Divide(bytes, size);
    sbd::CSbdData data;
    sbd::ReadProject(parts.project, data);
    sbd::AnalysisResults results;
    sbd::CMemorySource model(parts.results);
    static_cast<void>(results.model.Read(model));
    sbd::CMemorySource nodes(parts.results.subspan(parts.results.size() / 2));
    static_cast<void>(results.nodeTable.Read(nodes));
    results.displacement.values.assign(std::min<std::size_t>(parts.results.size(), 64), 0.01);
    for (const sbd::AnalysisResults& each : {sbd::AnalysisResults(), results}) {
        for (std::size_t girder = 0; girder < 2; ++girder)
            for (const sbd::GirderSide side : {sbd::GirderSide::Left, sbd::GirderSide::Right})
                Check(sbd::GirderElevation(data, each, {girder, side, true}), data);
        Check(sbd::BridgePlan(data, each), data);
        const std::size_t joints = sbd::JointNames(data, each, 0, sbd::GirderSide::Left).size();
        for (std::size_t joint = 0; joint < std::min<std::size_t>(joints + 1, 3); ++joint)
            Check(sbd::JointDetail(data, each, 0, sbd::GirderSide::Left, joint), data);
        // The ends of cross members stand behind the joints.
        for (std::size_t joint = joints - std::min<std::size_t>(joints, 3); joint < joints; ++joint)
            Check(sbd::JointDetail(data, each, 0, sbd::GirderSide::Left, joint), data);
        for (std::size_t station = 0; station < 3; ++station)
            Check(sbd::CrossSection(data, each, station), data);
    }
    return 0;
}
