// The elevation of one girder.
#pragma once

#include "drawing/bridge_drawing.h"
#include "drawing/girder_line.h"
#include "results/records.h"

namespace sbd {

struct ElevationOptions {
    std::size_t girder = 0;             ///< its number among the names of the bridge
    GirderSide side = GirderSide::Left; ///< the web of a box girder
    bool camber = false;                ///< deflections that block 259 names
};

/// The deflections of block 259 are drawn this much larger.
inline constexpr double kCamberScale = 50;

/// The girder unrolled: x from its first station in plan lengths, its upper edge level at y = 0.
[[nodiscard]] BridgeDrawing GirderElevation(const CSbdData& data, const AnalysisResults& results,
                                            const ElevationOptions& options);

/// Bearings and kinks by block 307.
struct GirderSupport {
    std::size_t station = 0;  ///< among the girder's stations
    bool bearing = false;     ///< a bearing stands there
    bool bearingLine = false; ///< on the line of bearings without one
    std::string word;         ///< CP932
    SourceCell source;
};
[[nodiscard]] std::vector<GirderSupport> SupportsOf(CDrawingBuild& build, const CSbdData& data,
                                                    const CGirderLine& line);

} // namespace sbd
