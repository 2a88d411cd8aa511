// The plan of the bridge.
#pragma once

#include "drawing/bridge_drawing.h"
#include "project/sbd_data.h"
#include "results/records.h"

namespace sbd {

/// Seen from above, turned so that the first girder runs from left to right; y of the left girders is greater.
[[nodiscard]] BridgeDrawing BridgePlan(const CSbdData& data, const AnalysisResults& results);

} // namespace sbd
