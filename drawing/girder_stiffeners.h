// The stiffeners of a girder: vertical ones between the stations (block 313) and at them (314), horizontal ones (315).
#pragma once

#include "drawing/girder_line.h"

#include <array>
#include <vector>

namespace sbd {

struct VerticalStiffener {
    double x = 0;
    double thickness = 0; ///< mm; 0 if it is not known
    SourceCell source;
};

/// The stiffeners between two stations, from left to right.
struct BayStiffeners {
    std::vector<VerticalStiffener> stiffeners;
    bool numbered = true; ///< both sides of the web have them at the same places, so that a number names one place
};

struct GirderStiffeners {
    std::vector<BayStiffeners> bays;         ///< one a bay of the girder
    std::vector<VerticalStiffener> stations; ///< of block 314
};

[[nodiscard]] GirderStiffeners StiffenersOf(CDrawingBuild& build, const CSbdData& data, const CGirderLine& line);

/// A horizontal stiffener of one panel between two vertical ones.
struct HorizontalStiffener {
    double from = 0;
    double to = 0;
    bool upper = true;
    double share = 0;     ///< of the depth, from the flange on its side
    double thickness = 0; ///< mm; 0 if it is not known
    SourceCell source;
};

struct HorizontalStiffeners {
    bool ofWholeDepth = true; ///< shares are of the girder's depth, else of the web's
    std::vector<HorizontalStiffener> stiffeners;
};

[[nodiscard]] HorizontalStiffeners HorizontalStiffenersOf(CDrawingBuild& build, const CSbdData& data,
                                                          const CGirderLine& line, const GirderStiffeners& vertical);

} // namespace sbd
