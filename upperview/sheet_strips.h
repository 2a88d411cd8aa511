// What stands below the parts on a sheet: the bands of plates and the chains of dimensions.
#pragma once

#include "upperview/sheet_frame.h"

namespace sbd {

/// Each from the cursor downward, which they move.
void DrawBands(CSheetFrame& frame);
void DrawChains(CSheetFrame& frame);

} // namespace sbd
