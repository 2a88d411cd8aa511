// Whether a project file that an engine has written can still be what it was.
#pragma once

#include <string_view>

namespace sbd {

/// True if the file `after` the run looks broken beside the one `before`: less than half the size, no section of a known
/// name, a last section without its end, zero bytes, or more lines that belong to no section. Such faults count only
/// where the file before did not have them. A guess: good enough for a warning, for nothing else.
[[nodiscard]] bool LooksBroken(std::string_view before, std::string_view after);

} // namespace sbd
