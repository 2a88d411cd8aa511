// The lines and texts that draw a diagram, in pixels.
#pragma once

#include "results/model_overlay.h"
#include "results/result_diagram.h"

#include <array>
#include <string>
#include <vector>

namespace sbd {

struct FigureLine {
    FigurePoint from;
    FigurePoint to;
    FigurePen pen = FigurePen::Plain;
};

/// On which side of its point a text stands; beside it, it ends or begins there.
enum class TextPlace { Middle, Left, Right };

struct FigureText {
    std::string text; ///< CP932
    FigurePoint at;
    TextPlace place = TextPlace::Middle;
    bool below = true;     ///< the text hangs from its point, else it stands on it
    std::size_t point = 0; ///< of the diagram
    double value = 0;      ///< the ordinate that the text tells, if it is one
};

/// The tip of a vertical reaction.
struct FigureHead {
    std::array<FigurePoint, 3> corners;
    FigurePen pen = FigurePen::Plain;
};

struct DiagramDrawing {
    std::vector<FigureLine> lines;
    std::vector<FigureHead> heads;        ///< filled
    std::vector<FigureText> stationNames; ///< at the axis, on the side where no values are
    std::vector<FigureText> values;
};

/// A diagram without bays draws nothing. `pen`: of its line; with another one than the plain one it is one of several,
/// whose bars stand beside each other.
[[nodiscard]] DiagramDrawing DrawDiagram(const GirderDiagram& diagram, const DiagramScale& scale,
                                         FigurePen pen = FigurePen::Plain);

} // namespace sbd
