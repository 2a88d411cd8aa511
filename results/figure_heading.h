// What stands over a figure: what it shows, from where and when, at which scale, its extremes, and what is wrong with it.
#pragma once

#include "results/diagram_layout.h"
#include "results/result_selection.h"
#include "results/result_state.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace sbd {

/// A part of a line, in CP932.
struct FigureWords {
    std::string text;
    FigureMark mark = FigureMark::None;
    std::optional<FigurePen> sample = std::nullopt; ///< a piece of line in front of it, as in a legend

    friend bool operator==(const FigureWords&, const FigureWords&) = default;
};
using FigureHeading = std::vector<std::vector<FigureWords>>;

/// "計画: box2.sbd　結果: 2026/11/22 09:30": what of it is known.
[[nodiscard]] std::string OriginText(const ResultState& state);

/// Of the diagrams along girders, with a legend where there are several: extremes of each, and of an envelope the load
/// cases by the numbers that stand at the values.
[[nodiscard]] FigureHeading DiagramHeading(const AnalysisResults& results, const ResultSelection& selection,
                                           std::span<const DiagramCurve> curves, const DiagramScale& scale,
                                           const ResultState& state);

[[nodiscard]] FigureHeading DiagramHeading(const AnalysisResults& results, const ResultSelection& selection,
                                           const GirderDiagram& diagram, const DiagramScale& scale,
                                           const ResultState& state);

/// Of the deformed frame and of the model: `title` says what they are, `pixelsPerMetre` their scale.
[[nodiscard]] FigureHeading FrameHeading(const AnalysisResults& results, const std::string& title,
                                         const FigureScreen& screen, double pixelsPerMetre, const ResultState& state);

/// "モデル図　全体": the view by its direction.
[[nodiscard]] std::string ModelTitle(const std::array<double, 3>& viewDirection);

/// The lines in a width, broken between their parts, each part with its place; `metrics` measures. Gives the boxes of the
/// parts, which lie one below the other from `left` and `top` on.
struct HeadingPart {
    FigureWords words;
    LabelBox box; ///< of the words, the sample in front of them included
};
/// Length of a sample, and of the place that it takes.
inline constexpr double kSampleLength = 22;
inline constexpr double kSamplePlace = 26;
[[nodiscard]] std::vector<HeadingPart> PlaceHeading(const FigureHeading& heading, const TextMetrics& metrics,
                                                    double left, double top, double width);

} // namespace sbd
