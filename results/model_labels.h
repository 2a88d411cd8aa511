// The names in the figure of the model, none over another one.
#pragma once

#include "results/diagram_layout.h"
#include "results/model_overlay.h"

#include <span>
#include <vector>

namespace sbd {

/// The names of the girders, then those of the stations, from both ends inward and evenly where there are more than have
/// room. A name that meets another one moves on in its direction, a few lines at most; what has no place then is left out.
[[nodiscard]] std::vector<PlacedText> PlaceModelLabels(std::span<const FigureLabel> girders,
                                                       std::span<const FigureLabel> stations,
                                                       const TextMetrics& metrics, CLabelRoom& room);

/// A text beside a point, wherever there is room near it; nothing if there is none.
[[nodiscard]] std::optional<PlacedText> PlaceBeside(std::string text, FigurePoint at, const TextMetrics& metrics,
                                                    CLabelRoom& room);

} // namespace sbd
