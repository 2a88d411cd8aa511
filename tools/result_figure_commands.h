// The commands of sbdtool that print the figures of the analysis results and of the model.
#pragma once

#include "tools/commands.h"

#include <span>
#include <string>

namespace sbd {

/// result-diagram PROJECT --kind K --load L --girder G --item C [--width W --height H]
[[nodiscard]] CommandResult RunResultDiagram(std::span<const std::string> arguments);

/// projection PROJECT --width W --height H [--overlay]
[[nodiscard]] CommandResult RunProjection(std::span<const std::string> arguments);

} // namespace sbd
