// The bolts across a flange of a box girder.
#pragma once

#include "drawing/bolted_splice.h"
#include "drawing/section_girder.h"

#include <optional>
#include <vector>

namespace sbd {

/// The rows of bolts across a flange and the edges of its splice plate, from the left web to the right.
struct BoxFlangeRows {
    double left = 0;
    double right = 0;
    std::vector<double> rows;
};

/// From a row of 343, whose last cell has the spacings from the left to the right, and the width of the outer plate.
/// Nothing, and omitted, where they do not go with the places of webs and ribs.
[[nodiscard]] std::optional<BoxFlangeRows> BoxFlangeRowsOf(CDrawingBuild& build, const SpliceRow& spacings,
                                                           const BoxFlangeWidths& widths, double plateWidth,
                                                           SourceCell plateSource);

} // namespace sbd
