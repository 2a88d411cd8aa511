// Where a drawing of the bridge lies on its sheet: scale, margins, and the room of what stands above and below its parts.
#pragma once

#include "drawing/bridge_drawing.h"
#include "upperview/page/draw_context.h"

#include <limits>
#include <optional>

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
    bool printed = false; ///< compact, but with room for texts that lie on others' in a pane
    /// What is seen of the sheet; parts outside need not be drawn.
    std::optional<SheetBox> visible{};
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

/// Where DrawBridgeSheet() puts the parts; `metrics` are those of its context. Nothing without parts.
[[nodiscard]] std::optional<SheetPlaces> PlacesOnSheet(const TextMetrics& metrics, const BridgeDrawing& drawing,
                                                       const SheetLook& look);

/// The scale that fills so many units, at most the largest usual one; a drawing without parts has the scale 1.
[[nodiscard]] double ScaleThatFills(const BridgeDrawing& drawing, const TextMetrics& metrics, const SheetLook& look,
                                    double width, double height);

/// The scale that a look without one gets.
[[nodiscard]] double UsualScale(const BridgeDrawing& drawing);

// --- for those who draw on the sheet -----------------------------------------------------------------

inline constexpr double kSheetUnitsPerMillimetre = 10;
inline constexpr int kSheetMargin = 150;     ///< units
inline constexpr int kSheetLeftMargin = 320; ///< titles of chains and bands stand there

/// Steps of a sheet, in units.
struct SheetSteps {
    int margin; ///< above and below
    int gap;
    int chain;
    int band;       ///< height of the thickest plate
    int labelLines; ///< in a row of labels
    int bandLines;  ///< of texts below a band
};
[[nodiscard]] const SheetSteps& StepsOf(const SheetLook& look);

/// What lines of text and rows of labels take, and a band below its plates; `height` is that of a text.
[[nodiscard]] int LineStep(int height);
[[nodiscard]] int LabelStep(int height, int lines);
[[nodiscard]] int BandFoot(int height, const SheetSteps& steps);

/// The rectangle around all parts in mm; chains widen it.
struct SheetBounds {
    double left = std::numeric_limits<double>::infinity();
    double right = -std::numeric_limits<double>::infinity();
    double bottom = std::numeric_limits<double>::infinity();
    double top = -std::numeric_limits<double>::infinity();
    [[nodiscard]] bool IsEmpty() const { return !(left <= right && bottom <= top); }
};
[[nodiscard]] SheetBounds BoundsOf(const BridgeDrawing& drawing);
[[nodiscard]] double UsualScale(const SheetBounds& bounds);

} // namespace sbd
