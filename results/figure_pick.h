// What of a figure lies under the pointer.
#pragma once

#include "results/diagram_curves.h"
#include "results/model_overlay.h"
#include "results/result_diagram.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace sbd {

/// An ordinate of a diagram.
struct DiagramPick {
    std::string name;                 ///< of the row in the table: member or node, in CP932
    bool rightEnd = false;            ///< of the member
    double value = 0;                 ///< as the figure has it
    FigurePen pen = FigurePen::Plain; ///< of the diagram, where there are several
    FigurePoint at;                   ///< its place on the screen
    std::string words;                ///< CP932, in lines: what, where, how much
};

/// The ordinate whose tip or bar lies at the pointer, else the nearer one of the bay between whose axis and line the
/// pointer is; nothing elsewhere. Ordinates that are no numbers are never found.
[[nodiscard]] std::optional<DiagramPick> PickOrdinate(const AnalysisResults& results, const GirderDiagram& diagram,
                                                      const DiagramScale& scale, FigurePoint pointer);

/// The same of several diagrams; of those equally near that of the last one, but never that which is laid over the first.
[[nodiscard]] std::optional<DiagramPick> PickOrdinate(const AnalysisResults& results,
                                                      std::span<const DiagramCurve> curves, const DiagramScale& scale,
                                                      FigurePoint pointer);

/// The ordinates of the row of the table with this name: both ends of a member, or the point of a node.
[[nodiscard]] std::vector<FigurePoint> OrdinatesOf(const AnalysisResults& results, const GirderDiagram& diagram,
                                                   const DiagramScale& scale, std::string_view name);

/// A line of a figure and what it stands for.
struct PickLine {
    FigurePoint from;
    FigurePoint to;
    int block = 0;       ///< 523 or 573
    std::size_t row = 0; ///< stored row, from 0
};

/// The places of a frame on the screen, made once for many picks.
struct FramePlaces {
    std::vector<FigurePoint> nodes; ///< of node 1 and so on
    std::vector<PickLine> lines;    ///< those drawn last stand last
};
[[nodiscard]] FramePlaces PlacesOnScreen(const AnalysisResults& results, const CSbdData& data,
                                         const CModelProjection& projection, const ModelScale& scale);

/// Number of the nearest node at the pointer; nothing if none is near.
[[nodiscard]] std::optional<std::int32_t> PickNode(const FramePlaces& places, FigurePoint pointer);
/// The line at the pointer, the uppermost of those equally near.
[[nodiscard]] std::optional<PickLine> PickRow(const FramePlaces& places, FigurePoint pointer);

/// "格点 G1-S1" and its coordinates in m; with a load case also how it moves, in mm. CP932, in lines.
[[nodiscard]] std::string NodeWords(const AnalysisResults& results, std::int32_t node,
                                    std::optional<std::size_t> loadCase = std::nullopt);

} // namespace sbd
