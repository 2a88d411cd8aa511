// A drawing of the bridge on a sheet.
#pragma once

#include "drawing/bridge_drawing.h"
#include "upperview/page/draw_context.h"

namespace sbd {

/// How a drawing is put on its sheet.
struct SheetLook {
    double scale = 0;     ///< 1 : scale; 0: the first usual one at which it fits on a broad sheet
    int exaggeration = 1; ///< of heights
    CellPlace selected{}; ///< the row under the cursor: its parts are red, its range is shaded
};

/// Size in units of 0.1 mm.
struct SheetExtent {
    int width = 0;
    int height = 0;
};

/// Draws with the origin in the upper left corner, y at or below 0; gives the size that the sheet needs.
SheetExtent DrawBridgeSheet(CDrawContext& dc, const BridgeDrawing& drawing, const SheetLook& look);

/// The scale that a look without one gets.
[[nodiscard]] double UsualScale(const BridgeDrawing& drawing);

} // namespace sbd
