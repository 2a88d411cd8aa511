// The splice of a girder at one joint: plates and bolts of flanges and web; and the ends of cross members at the girder.
#pragma once

#include "drawing/bridge_drawing.h"
#include "drawing/girder_line.h"
#include "project/sbd_data.h"
#include "results/records.h"

#include <string>
#include <vector>

namespace sbd {

/// Names of the joints of a girder, from its begin on; behind them the ends of cross beams and sway bracings at it.
[[nodiscard]] std::vector<std::string> JointNames(const CSbdData& data, const AnalysisResults& results,
                                                  std::size_t girder, GirderSide side);

/// An end of a cross member (see MemberEndDetail), or: the upper flange from above, the web from the side and the lower flange from above, one below the other; x from the
/// joint's middle, y from the upper edge of the girder. Blocks 341 to 344; bolts only where their number is that of the
/// spacings.
[[nodiscard]] BridgeDrawing JointDetail(const CSbdData& data, const AnalysisResults& results, std::size_t girder,
                                        GirderSide side, std::size_t joint);

} // namespace sbd
