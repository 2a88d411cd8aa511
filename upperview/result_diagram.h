// The result that the panel of block 253 has chosen, as a figure on a painter.
#pragma once

#include "results/result_selection.h"
#include "upperview/model_figure.h"

namespace sbd {

/// Paints the diagram along the chosen girder, or the deformed frame for the displacements of all girders, into the
/// pane of `screen`. Carries out the marks of the mouse in `view`. Paints nothing if the load case is not there. The font is that of the model figure.
void DrawResultPage(QPainter& painter, const FigureScreen& screen, const AnalysisResults& results,
                    const ResultSelection& selection, const FigureLook& look, FigureView& view);

} // namespace sbd
