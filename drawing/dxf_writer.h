// A drawing as a DXF file of release 2000, for other drawing programs.
#pragma once

#include "drawing/bridge_drawing.h"

#include <string>
#include <vector>

namespace sbd {

/// The parts in true measure (mm), on layers by their kind, dimensions and texts in a size that suits a print of
/// 1 : scale. Texts are CP932 and the file says so.
[[nodiscard]] std::string DxfOf(const BridgeDrawing& drawing, double scale);

/// Drawings beside each other in rows below each other, all in true measure.
[[nodiscard]] std::string DxfOfRows(const std::vector<std::vector<const BridgeDrawing*>>& rows, double scale);

/// The name of a kind's layer (CP932).
[[nodiscard]] std::string LayerName(DrawingLayer layer);

} // namespace sbd
