// Commands that print the tables of the program, and what the window shows of a project.
#pragma once

#include "tools/commands.h"

namespace sbd {

[[nodiscard]] CommandResult RunCatalogue(std::span<const std::string> arguments);
[[nodiscard]] CommandResult RunOptions(std::span<const std::string> arguments);
[[nodiscard]] CommandResult RunColumns(std::span<const std::string> arguments);
[[nodiscard]] CommandResult RunPages(std::span<const std::string> arguments);
[[nodiscard]] CommandResult RunTree(std::span<const std::string> arguments);
[[nodiscard]] CommandResult RunPanel(std::span<const std::string> arguments);

} // namespace sbd
