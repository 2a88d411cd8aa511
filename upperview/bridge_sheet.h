// A drawing of the bridge on a sheet.
#pragma once

#include "drawing/bridge_drawing.h"
#include "upperview/page/draw_context.h"
#include "upperview/sheet_places.h"

#include <string>
#include <vector>

namespace sbd {

/// Something of a sheet beside the parts of the bridge: a dimension, a plate of a band, a label.
struct SheetHit {
    SheetBox box;
    SourceCell source;
    std::string text; ///< CP932
};

/// Size in units of 0.1 mm.
struct SheetExtent {
    int width = 0;
    int height = 0;
};

/// Draws with the origin in the upper left corner, y at or below 0; gives the size that the sheet needs.
/// `hits` gets what is drawn beside the parts.
SheetExtent DrawBridgeSheet(CDrawContext& dc, const BridgeDrawing& drawing, const SheetLook& look,
                            std::vector<SheetHit>* hits = nullptr);

/// "322 の 3行目 5列目： ..." (CP932).
[[nodiscard]] std::string OmissionText(const Omission& omission);

} // namespace sbd
