// The cross section of the bridge at a cross line.
#pragma once

#include "drawing/bridge_drawing.h"
#include "project/sbd_data.h"
#include "results/records.h"

#include <array>
#include <optional>

namespace sbd {

/// Looking from the begin of the bridge to its end, along the cross line of `station` (its number among the names): x
/// from the first girder along the line, y from the upper edge of the first girder.
[[nodiscard]] BridgeDrawing CrossSection(const CSbdData& data, const AnalysisResults& results, std::size_t station);

/// The depth of the cross beam between two girders at both of its ends; nothing if it is not known.
[[nodiscard]] std::optional<std::array<double, 2>> BeamDepths(const CSbdData& data, const AnalysisResults& results,
                                                              std::size_t gap, std::size_t station);

} // namespace sbd
