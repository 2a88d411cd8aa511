// The end of a cross beam or of a sway bracing at a girder: splice of a bracket, lapped web, plates of flanges, gussets.
#pragma once

#include "drawing/bridge_drawing.h"
#include "drawing/bridge_grid.h"
#include "project/sbd_data.h"
#include "results/records.h"

#include <string>
#include <vector>

namespace sbd {

struct MemberEnd {
    std::size_t gap = 0;     ///< between the girders `gap` and `gap` + 1
    std::size_t station = 0; ///< of the grid
    int end = 0;             ///< 0: at the first girder, 1: at the second one
};

/// The ends at a girder, along it; at each cross line the member on its left first.
[[nodiscard]] std::vector<MemberEnd> MemberEndsAt(const CSbdData& data, const CBridgeGrid& grid, std::size_t girder);
/// "C3 G1-G2 左端" (CP932).
[[nodiscard]] std::string MemberEndName(const CBridgeGrid& grid, const MemberEnd& end);

/// Blocks 551 to 563. A bracket's splice: x from its middle; a plate welded to the girder's web: x from that web; a lapped
/// web and a gusset: x from its edge at the girder. The girder lies on the left at a left end, else on the right.
[[nodiscard]] BridgeDrawing MemberEndDetail(const CSbdData& data, const AnalysisResults& results, const MemberEnd& end);

} // namespace sbd
