// The result that the panel of block 253 has chosen, as a figure on a painter.
#pragma once

#include "results/diagram_curves.h"
#include "results/result_selection.h"
#include "results/result_state.h"
#include "upperview/model_figure.h"

namespace sbd {

/// Paints the diagrams along the chosen girder (CurvesOf), or the deformed frame for the displacements of all girders, into the
/// pane of `screen`. Carries out the marks of the mouse in `view`. Paints nothing if the load case is not there. The font is that of the model figure;
/// `state` is told in the heading. `marked`: the name of a row of the table, whose ordinates get rings.
void DrawResultPage(QPainter& painter, const FigureScreen& screen, const AnalysisResults& results,
                    const ResultSelection& selection, const FigureLook& look, FigureView& view,
                    const ResultState& state = {}, const std::string& marked = {});

// What the page shows, for whoever asks what lies under the pointer.

/// The deformed frame is shown, not a diagram.
[[nodiscard]] bool ShowsDeformed(const ResultSelection& selection);
[[nodiscard]] double MagnificationOf(const AnalysisResults& results, const ResultSelection& selection,
                                     std::size_t loadCase);
/// Fits both shapes.
[[nodiscard]] ModelScale DeformedScale(const CModelProjection& before, const CModelProjection& moved,
                                       const FigureScreen& screen, const FigureView& view, FigurePan pan);

} // namespace sbd
