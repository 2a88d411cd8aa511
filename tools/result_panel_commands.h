// The commands of sbdtool that print the table of the analysis results and the choices of its panel.
#pragma once

#include "tools/commands.h"

#include <span>
#include <string>

namespace sbd {

/// result-table PROJECT --kind K --load L... --girder G --station S [--envelope] [--off C]... [--exclude N]...
/// [--filter T] [--sort HEAD] [--descending] [--csv OUT] [--xlsx OUT]
[[nodiscard]] CommandResult RunResultTable(std::span<const std::string> arguments);

/// result-choices PROJECT (--kind K | --first-use)
[[nodiscard]] CommandResult RunResultChoices(std::span<const std::string> arguments);

} // namespace sbd
