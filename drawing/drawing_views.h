// The drawings by name: which there are, which blocks each reads.
#pragma once

#include "drawing/bridge_drawing.h"
#include "drawing/girder_line.h"
#include "project/sbd_data.h"
#include "results/records.h"

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace sbd {

enum class DrawingView {
    Elevation, ///< of a girder
    Section,   ///< at a cross line
    Plan,
    Joint, ///< of a girder
};
inline constexpr std::size_t kDrawingViews = static_cast<std::size_t>(DrawingView::Joint) + 1;

/// A drawing of a project. What a view does not need is not looked at.
struct DrawingRequest {
    DrawingView view = DrawingView::Elevation;
    std::size_t girder = 0; ///< number among the names of the bridge
    GirderSide side = GirderSide::Left;
    bool camber = false;
    std::size_t station = 0; ///< number among the names of the bridge
    std::size_t joint = 0;   ///< number among those of the girder
    friend bool operator==(const DrawingRequest&, const DrawingRequest&) = default;
};

[[nodiscard]] BridgeDrawing MakeDrawing(const CSbdData& data, const AnalysisResults& results,
                                        const DrawingRequest& request);

/// May a view be another one when this block has changed?
[[nodiscard]] bool IsReadBy(DrawingView view, int block);

/// Has this row of a block made a part or a label of the drawing?
[[nodiscard]] bool IsDrawn(const BridgeDrawing& drawing, const SourceCell& row);
/// Is the row drawn, or does the drawing say where it holds?
[[nodiscard]] bool SpeaksOf(const BridgeDrawing& drawing, const SourceCell& row);

struct DrawingSearch {
    std::optional<DrawingRequest> found;
    bool all = true; ///< every drawing was looked at that might have been the one
};

/// The next drawing after `request`, and round again, that speaks of a row: of the same view first, then of the others that
/// read its block. Some hundred drawings are looked at, none is begun after `most` has passed.
[[nodiscard]] DrawingSearch DrawingOfRow(const CSbdData& data, const AnalysisResults& results,
                                         const DrawingRequest& request, const SourceCell& row,
                                         std::chrono::milliseconds most);

/// The part at a place: a line within `reach` (mm), else the smallest surface around it; null without any. Only parts
/// that come from a cell are found. `stretch`: heights are seen that much larger.
[[nodiscard]] const DrawnShape* PartAt(const BridgeDrawing& drawing, DrawnPoint at, double reach, double stretch);

} // namespace sbd
