// Splices (block 321), sections (322) and the plates of the sections (331, 332) of a girder.
#pragma once

#include "drawing/girder_stiffeners.h"

#include <optional>
#include <string>
#include <vector>

namespace sbd {

struct GirderSplice {
    std::string name; ///< CP932
    std::string type; ///< CP932; empty: the first one, with bolts
    double x = 0;
    SourceCell source;
};

/// A stretch of a girder with plates of its own.
struct GirderSection {
    std::string name;
    double from = 0;
    double to = 0;
    SourceCell source; ///< of its end
};

/// A plate over a section; width and thickness in mm at both ends.
struct SectionPlate {
    std::size_t section = 0;
    double widthFrom = 0;
    double widthTo = 0;
    double thickFrom = 0;
    double thickTo = 0;
    std::string material; ///< CP932
    SourceCell source;    ///< of the thickness
};

struct GirderPlates {
    std::vector<GirderSection> sections;          ///< x growing, side by side
    std::vector<std::optional<SectionPlate>> web; ///< one a section
    std::vector<std::optional<SectionPlate>> upper;
    std::vector<std::optional<SectionPlate>> lower;

    /// The section at x, at a change the left one; nothing outside of all.
    [[nodiscard]] std::optional<std::size_t> SectionAt(double x) const;
    /// Thickness of a plate at x; 0 where it is not known.
    [[nodiscard]] static double ThicknessAt(const std::optional<SectionPlate>& plate, const GirderSection& section,
                                            double x);
    [[nodiscard]] static double WidthAt(const std::optional<SectionPlate>& plate, const GirderSection& section,
                                        double x);
};

[[nodiscard]] std::vector<GirderSplice> SplicesOf(CDrawingBuild& build, const CSbdData& data, const CGirderLine& line,
                                                  const GirderStiffeners& stiffeners);
[[nodiscard]] GirderPlates PlatesOf(CDrawingBuild& build, const CSbdData& data, const CGirderLine& line,
                                    const GirderStiffeners& stiffeners);

} // namespace sbd
