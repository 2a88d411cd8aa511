// sbdtool export, import: the table of a block as CSV, without a window.
#pragma once

#include "tools/commands.h"

namespace sbd {

[[nodiscard]] CommandResult RunExport(std::span<const std::string> arguments);
[[nodiscard]] CommandResult RunImport(std::span<const std::string> arguments);

} // namespace sbd
