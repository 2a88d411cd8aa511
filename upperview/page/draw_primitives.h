// The vocabulary of the sketches.
#pragma once

#include "upperview/page/draw_context.h"

namespace sbd {

/// From the first point to the second with the pen.
void DrawLine(CDrawContext& dc, int x1, int y1, int x2, int y2);

/// Circle with centre (x, y) and radius r, with pen and brush.
void DrawCircle(CDrawContext& dc, int x, int y, int r);

/// Disc without outline: bolts from the front, supports.
void DrawFilledCircle(CDrawContext& dc, int x, int y, int r, DrawColour colour);

/// Dimension line with ticks at its ends and, if `withArrows`, arrows inside. Meant for horizontal and vertical lines:
/// each coordinate is sorted by itself, a slanted line gets neither ticks nor arrows. Equal points draw nothing.
void DrawDimension(CDrawContext& dc, int x1, int y1, int x2, int y2, bool withArrows);

/// Thin arrow with its head at the second point. The wings grow by a hundredth of the arrow's length. Equal points draw
/// nothing.
void DrawArrow(CDrawContext& dc, int x1, int y1, int x2, int y2);

/// Outlined arrow with its tip at the second point. `angle` (degrees) is that of the axis and turns the tail alone:
/// 0 for a vertical arrow, 90 for a horizontal one. Equal points draw nothing.
void DrawBlockArrow(CDrawContext& dc, int x1, int y1, int x2, int y2, double angle);

} // namespace sbd
