// The parts of the bridge on a sheet, in the looks of their kinds.
#pragma once

#include "upperview/sheet_frame.h"

namespace sbd {

/// Parts, the shading of the selected row's range, and the labels at points.
void DrawParts(CSheetFrame& frame);

/// The colour of a kind's surfaces.
[[nodiscard]] DrawColour FillOf(DrawingLayer layer);

} // namespace sbd
