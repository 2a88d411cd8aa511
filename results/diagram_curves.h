// What the figure of a selection draws: one diagram, the two of an envelope, or two laid over each other.
#pragma once

#include "results/model_overlay.h"
#include "results/result_diagram.h"
#include "results/result_selection.h"

#include <span>
#include <string>
#include <vector>

namespace sbd {

struct DiagramCurve {
    GirderDiagram diagram;
    FigurePen pen = FigurePen::Plain;
    std::string name; ///< CP932, as the legend has it; empty for a single diagram
};

/// None if the selection has no load case, or an envelope none of its own.
[[nodiscard]] std::vector<DiagramCurve> CurvesOf(const AnalysisResults& results, const ResultSelection& selection);

/// True if the diagrams are those of an envelope.
[[nodiscard]] bool ShowsEnvelope(std::span<const DiagramCurve> curves);

/// The load cases that decide somewhere, from 0, by the numbers that they have in the texts of the diagrams, from 1.
[[nodiscard]] std::vector<std::size_t> DecidingCases(std::span<const DiagramCurve> curves);

/// Fits all of them into the pane, on one scale.
[[nodiscard]] DiagramScale FitCurves(std::span<const DiagramCurve> curves, const FigureScreen& screen, double zoom,
                                     FigurePan pan);

} // namespace sbd
