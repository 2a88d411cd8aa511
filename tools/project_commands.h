// Commands that read, write, check and compare projects.
#pragma once

#include "tools/commands.h"

namespace sbd {

[[nodiscard]] CommandResult RunNew(std::span<const std::string> arguments);
[[nodiscard]] CommandResult RunRewrite(std::span<const std::string> arguments);
[[nodiscard]] CommandResult RunDump(std::span<const std::string> arguments);
[[nodiscard]] CommandResult RunNames(std::span<const std::string> arguments);
[[nodiscard]] CommandResult RunCheck(std::span<const std::string> arguments);
[[nodiscard]] CommandResult RunDiff(std::span<const std::string> arguments);

} // namespace sbd
