// The cross section of the bridge at a cross line.
#pragma once

#include "drawing/bridge_drawing.h"
#include "project/sbd_data.h"
#include "results/records.h"

namespace sbd {

/// Looking from the begin of the bridge to its end, along the cross line of `station` (its number among the names): x
/// from the first girder along the line, y from the upper edge of the first girder.
[[nodiscard]] BridgeDrawing CrossSection(const CSbdData& data, const AnalysisResults& results, std::size_t station);

} // namespace sbd
