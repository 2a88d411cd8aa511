// A girder as a cross section sees it.
#pragma once

#include "drawing/bridge_drawing.h"
#include "drawing/bridge_grid.h"
#include "drawing/girder_joints.h"

#include <optional>
#include <string>
#include <vector>

namespace sbd {

struct SectionGirder {
    std::size_t girder = 0;
    std::string name;
    double x = 0;                ///< of the girder's line
    double y = 0;                ///< of its upper edge there
    std::optional<double> depth; ///< mm
    SourceCell depthSource;
    bool upperFlangeIncluded = true; ///< the upper edge is the flange's outer face, else the web's end
    bool lowerFlangeIncluded = true;
    double upperThick = 0; ///< 0: not known
    double lowerThick = 0;
    double webThick = 0;
    double upperWidth = 0;
    double lowerWidth = 0;
    SourceCell upperSource;
    SourceCell lowerSource;
    SourceCell webSource;
    std::string section; ///< its name

    bool box = false;
    double leftWeb = 0; ///< x of the webs of a box girder; of an I girder both are its line
    double rightWeb = 0;
    bool websKnown = true;

    /// Levels at the girder's line.
    [[nodiscard]] double FlangeTop() const { return y + (upperFlangeIncluded ? 0 : upperThick); }
    [[nodiscard]] double WebTop() const { return y - (upperFlangeIncluded ? upperThick : 0); }
    [[nodiscard]] double LowerEdge() const { return y - depth.value_or(0); }
    [[nodiscard]] double WebBottom() const { return LowerEdge() + (lowerFlangeIncluded ? lowerThick : 0); }
    [[nodiscard]] double FlangeBottom() const { return LowerEdge() - (lowerFlangeIncluded ? 0 : lowerThick); }
};

/// What the girder has at the station; its place is left at 0. Nothing if the girder does not reach it.
[[nodiscard]] std::optional<SectionGirder> SectionGirderAt(const CSbdData& data, const CBridgeGrid& grid,
                                                           std::size_t girder, std::size_t station);

enum class BoxFlange { Upper, Lower };

/// A flange of a box girder across, from its left web to the right.
struct BoxFlangeWidths {
    double webs = 0;    ///< from web to web
    double leftOut = 0; ///< of the flange beyond the webs
    double rightOut = 0;
    SourceCell outSource;
    std::vector<double> ribs;
    SourceCell ribSource;
};

/// The same in a bay of the grid; nothing, and omitted, where it is not the same at both of its ends.
[[nodiscard]] std::optional<BoxFlangeWidths> BoxFlangeIn(CDrawingBuild& build, const CSbdData& data,
                                                         const CBridgeGrid& grid, std::size_t girder,
                                                         std::size_t station, std::size_t nextStation,
                                                         BoxFlange flange);

/// The flanges, webs and ribs of a box girder, with the rows of blocks 333, 325 and 326.
void DrawBox(CDrawingBuild& build, const CSbdData& data, const CBridgeGrid& grid, const SectionGirder& girder,
             std::size_t station);
/// The two flanges and the web of an I girder.
void DrawPlateGirder(CDrawingBuild& build, const SectionGirder& girder);

} // namespace sbd
