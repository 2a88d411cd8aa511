// sbdtool book: the input as a spreadsheet.
#pragma once

#include "tools/commands.h"

namespace sbd {

[[nodiscard]] CommandResult RunBook(std::span<const std::string> arguments);

} // namespace sbd
