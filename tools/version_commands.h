// Commands for version control: a project as lines of text, and three projects merged.
#pragma once

#include "tools/commands.h"

namespace sbd {

[[nodiscard]] CommandResult RunText(std::span<const std::string> arguments);
[[nodiscard]] CommandResult RunMerge(std::span<const std::string> arguments);

} // namespace sbd
