// sbdtool replace: one text by another over a project, without a window.
#pragma once

#include "tools/commands.h"

namespace sbd {

[[nodiscard]] CommandResult RunReplace(std::span<const std::string> arguments);

} // namespace sbd
