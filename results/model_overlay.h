// What lies over the members in the figure of the model: the bracing and cross beams of the input, nodes, supports, names.
#pragma once

#include "project/sbd_data.h"
#include "results/model_projection.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace sbd {

/// Pens of the figures; the view knows their colours.
enum class FigurePen {
    Member,     ///< members and cross beams
    Lateral,    ///< lateral bracing
    Sway,       ///< sway bracing
    Background, ///< members that are not there, painted over
    Selected,   ///< the row under the cursor
    Plain,      ///< supports, diagrams
    Faint,      ///< the undeformed structure
    Second,     ///< a diagram laid over another one
    Greatest,   ///< the largest values of several load cases, and the smallest
    Least,
};

/// The grid row under the cursor, from 1, and its block.
struct FigureSelection {
    int block = 0;
    int row = 0;
};

/// A place on the line between two nodes: a node itself (both are the same), or the middle of two.
struct NodePlace {
    std::int32_t node1 = 0;
    std::int32_t node2 = 0;
};

/// A line of block 573.
struct LateralLine {
    std::size_t row = 0; ///< stored row, from 0
    NodePlace from;
    NodePlace to;
    FigurePen pen = FigurePen::Lateral;
};

/// The lateral bracing, a line a row. Rows that name a node that is not there have none. Nodes are found by an index of
/// their names, the last of equal ones; `nodeCount` is the number of nodes in the figure.
[[nodiscard]] std::vector<LateralLine> LateralBracing(const AnalysisModel& model, const CSbdData& data,
                                                      std::size_t nodeCount, FigureSelection selection = {});

/// A row of block 523: a rectangle of the grid of girders and stations (from 0, last ones included).
struct CrossBeamRow {
    std::size_t row = 0; ///< stored row, from 0
    std::size_t girderFrom = 0;
    std::size_t girderTo = 0;
    std::size_t stationFrom = 0;
    std::size_t stationTo = 0;
    FigurePen pen = FigurePen::Lateral;
};

/// The rows of block 523 whose names are there. A row of another type than those with a pen takes the pen of the row
/// before.
[[nodiscard]] std::vector<CrossBeamRow> CrossBeamRows(const AnalysisModel& model, const CSbdData& data,
                                                      FigureSelection selection = {});

/// A cross beam or sway bracing between two girders at a station.
struct CrossLine {
    std::size_t row = 0;
    std::int32_t node1 = 0;
    std::int32_t node2 = 0;
    FigurePen pen = FigurePen::Lateral;
};

/// The lines of the rows in the order in which they are drawn.
[[nodiscard]] std::vector<CrossLine> CrossLines(const AnalysisModel& model, const std::vector<CrossBeamRow>& rows,
                                                std::size_t nodeCount);
/// The same without those that a later row draws again at the same place: never more than the grid has.
[[nodiscard]] std::vector<CrossLine> VisibleCrossLines(const AnalysisModel& model,
                                                       const std::vector<CrossBeamRow>& rows, std::size_t nodeCount);

/// "523 3行 対傾構": block, grid row and, where it has one, the type of a row under the cursor, in CP932.
[[nodiscard]] std::string SelectedRowName(const CSbdData& data, FigureSelection selection);

/// Numbers of the nodes with a dot (that take part in the results) and with a support.
[[nodiscard]] std::vector<std::int32_t> DottedNodes(const NodeTable& table, std::size_t nodeCount);
[[nodiscard]] std::vector<std::int32_t> SupportedNodes(const NodeTable& table, std::size_t nodeCount);

/// A name of the grid, set off from a point of the screen along a line.
struct FigureLabel {
    std::string_view text; ///< CP932
    FigurePoint at;
    FigurePoint away; ///< of length 1: where it may go on from there
};

/// Names in front of the girders and beside the last girder; those that have no place are left out. `characterWidth`
/// is the average of the font, in pixels.
[[nodiscard]] std::vector<FigureLabel> GirderLabels(const AnalysisResults& results, const CModelProjection& projection,
                                                    const ModelScale& scale, double characterWidth);
[[nodiscard]] std::vector<FigureLabel> StationLabels(const AnalysisModel& model, const CModelProjection& projection,
                                                     const ModelScale& scale, double characterWidth);

// On the screen.
[[nodiscard]] FigurePoint ScreenOf(std::int32_t node, const CModelProjection& projection, const ModelScale& scale);
[[nodiscard]] FigurePoint ScreenOf(NodePlace place, const CModelProjection& projection, const ModelScale& scale);

} // namespace sbd
