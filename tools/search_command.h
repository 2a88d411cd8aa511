// sbdtool search: what the search panel finds.
#pragma once

#include "tools/commands.h"

namespace sbd {

[[nodiscard]] CommandResult RunSearch(std::span<const std::string> arguments);

} // namespace sbd
