// A drawing of the bridge on a sheet.
#pragma once

#include "drawing/bridge_drawing.h"
#include "upperview/page/draw_context.h"

#include <optional>
#include <string>
#include <vector>

namespace sbd {

/// A rectangle of a sheet in units of 0.1 mm, y upward.
struct SheetBox {
    int left = 0;
    int bottom = 0;
    int right = 0;
    int top = 0;
    [[nodiscard]] bool Has(DrawPoint point) const
    {
        return left <= point.x && point.x <= right && bottom <= point.y && point.y <= top;
    }
};

/// How a drawing is put on its sheet.
struct SheetLook {
    double scale = 0;      ///< 1 : scale; 0: the first usual one at which it fits on a broad sheet
    int exaggeration = 1;  ///< of heights
    SourceCell selected{}; ///< the row under the cursor: its parts are red, its range is shaded
    /// For a pane: rows closer to each other, and neither notes nor the list of what is left out.
    bool compact = false;
    /// What is seen of the sheet; parts outside need not be drawn.
    std::optional<SheetBox> visible{};
};

/// Something of a sheet beside the parts of the bridge: a dimension, a plate of a band, a label.
struct SheetHit {
    SheetBox box;
    SourceCell source;
    std::string text; ///< CP932
};

/// Where the drawing lies on its sheet.
struct SheetPlaces {
    DrawnPoint leftTop; ///< mm of the bridge
    double width = 0;   ///< mm
    double height = 0;  ///< mm
    double perX = 0;    ///< units of the sheet a mm
    double perY = 0;    ///< with the exaggeration
    int left = 0;       ///< units, of leftTop
    int top = 0;
    int below = 0; ///< units that labels, bands and chains take below the parts
    int right = 0; ///< units that stay free on the right

    [[nodiscard]] DrawnPoint ToDrawing(double x, double y) const
    {
        return {leftTop.x + (x - left) / perX, leftTop.y + (y - top) / perY};
    }
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

/// Where DrawBridgeSheet() puts the parts; `metrics` are those of its context. Nothing without parts.
[[nodiscard]] std::optional<SheetPlaces> PlacesOnSheet(const TextMetrics& metrics, const BridgeDrawing& drawing,
                                                       const SheetLook& look);

/// The scale that fills so many units, at most the largest usual one; a drawing without parts has the scale 1.
[[nodiscard]] double ScaleThatFills(const BridgeDrawing& drawing, const TextMetrics& metrics, const SheetLook& look,
                                    double width, double height);

/// "322 の 3行目 5列目： ..." (CP932).
[[nodiscard]] std::string OmissionText(const Omission& omission);

/// The scale that a look without one gets.
[[nodiscard]] double UsualScale(const BridgeDrawing& drawing);

} // namespace sbd
