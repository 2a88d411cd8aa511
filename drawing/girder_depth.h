// The depth of a girder along its length (block 311).
#pragma once

#include "drawing/girder_line.h"

#include <optional>
#include <vector>

namespace sbd {

struct DepthPoint {
    double x = 0;
    double depth = 0; ///< mm
};

/// A stretch of a girder whose depth is known.
struct DepthPiece {
    std::vector<DepthPoint> points; ///< two or more, x growing
    SourceCell source;
};

struct GirderDepth {
    bool upperFlangeIncluded = true; ///< depth is measured from the outer face of the flange, else from the web's end
    bool lowerFlangeIncluded = true;
    std::vector<DepthPiece> pieces; ///< x growing

    /// Nothing where the depth is not known.
    [[nodiscard]] std::optional<double> At(double x) const;
    /// The greatest one; 0 without any.
    [[nodiscard]] double Most() const;
};

/// Depths by the three forms of block 311. Behind the first and last station the depth stays as it is there.
[[nodiscard]] GirderDepth DepthOf(CDrawingBuild& build, const CSbdData& data, const CGirderLine& line);

} // namespace sbd
