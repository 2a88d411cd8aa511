// Where the texts of a diagram stand, so that none is written over another one, and what lies under it: supports and spans.
#pragma once

#include "results/diagram_curves.h"
#include "results/diagram_drawing.h"
#include "results/label_room.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

/// The size of texts in pixels.
struct TextMetrics {
    std::function<double(std::string_view cp932)> width;
    double height = 0;
    /// Quickly what a text is wide at least; where there is none, that is not known.
    std::function<double(std::string_view cp932)> leastWidth = {};
};

/// What a text of a figure says, which decides its colour.
enum class FigureMark { None, Greatest, Least, Warning };

/// A text that has found its place.
struct PlacedText {
    std::string text; ///< CP932
    LabelBox box;
    bool upright = false; ///< read from below
    FigureMark mark = FigureMark::None;
    std::optional<FigureLine> leader; ///< from the point to a text that had to give way
    FigurePen pen = FigurePen::Plain; ///< whose ink a text without a mark has
};

struct DiagramPage {
    DiagramDrawing drawing; ///< of all diagrams, with the supports and spans; its texts are those that ask for a place
    std::vector<PlacedText> texts;
    std::size_t values = 0; ///< whose points are in the pane
    std::size_t valuesShown = 0;
};

/// The diagrams with their texts, the names of the points being those of the longest one. No box of a text overlaps another one or one of `taken`. Where they do not all have room,
/// the extremes come first, then the ends, the supports, and of the others evenly what fits; an enlarged figure shows the
/// rest.
[[nodiscard]] DiagramPage LayOutDiagrams(std::span<const DiagramCurve> curves, const DiagramScale& scale,
                                         const TextMetrics& metrics, std::span<const LabelBox> taken);
[[nodiscard]] DiagramPage LayOutDiagram(const GirderDiagram& diagram, const DiagramScale& scale,
                                        const TextMetrics& metrics, std::span<const LabelBox> taken);

} // namespace sbd
