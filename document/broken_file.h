// Whether a project file that an engine has written can still be what it was.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace sbd {

/// The sections that had rows in the file `before` the run and have none in the file `after` it: a file that was cut at a
/// section's end is whole to the reader. Numbers of the known blocks in their order, behind them the headers of sections
/// that this version does not know (CP932). Control and head rows do not count, since a block that holds nothing else
/// may be left out of a file.
[[nodiscard]] std::vector<std::string> SectionsThatLostTheirRows(std::string_view before, std::string_view after);

/// True if the file `after` the run looks broken beside the one `before`: less than half the size, no section of a known
/// name, a last section without its end, zero bytes, more lines that belong to no section, or a section that has lost all
/// its rows. Such faults count only where the file before did not have them. A guess: good enough for a warning, for nothing
/// else.
[[nodiscard]] bool LooksBroken(std::string_view before, std::string_view after);

} // namespace sbd
