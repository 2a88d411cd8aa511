// sbdtool set: edits without a window.
#pragma once

#include "tools/commands.h"

namespace sbd {

[[nodiscard]] CommandResult RunSet(std::span<const std::string> arguments);

} // namespace sbd
