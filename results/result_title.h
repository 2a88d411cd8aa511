// The words over a table or a figure of results: every choice that decides what stands in it.
#pragma once

#include "results/result_selection.h"

#include <string>

namespace sbd {

// Texts are CP932, the parts divided by a wide blank.

/// "断面力　荷重: 死荷重　主桁: G1". Names are taken by the girder and by the station, so a station that was chosen
/// before the girder is named too, and so are names that are left out.
[[nodiscard]] std::string TableTitle(const ResultSelection& selection);

/// The same for a file's name: without the names that are left out.
[[nodiscard]] std::string ShortTableTitle(const ResultSelection& selection);

/// "断面力 My [kN・m]　荷重: 死荷重　主桁: G1": what the figure of the selection draws, which has no station. Where no single
/// girder is chosen the diagram is that of the first one. `magnification`: that of a deformed frame, if the selection leaves it open.
[[nodiscard]] std::string FigureTitle(const AnalysisModel& model, const ResultSelection& selection,
                                      double magnification = kDeformedMagnification);

} // namespace sbd
