// Writing the text of a project file.
#pragma once

#include <string>

namespace sbd {

class CSbdData;

/// What the writer has to tell besides the text.
struct WriteReport {
    bool controlBlockHeldBack = false; ///< block 301 holds "<?>": title and block are not in the text
};

/// The text of a project file. `data` is changed only where block 301 has no rows at all: it is rebuilt.
[[nodiscard]] std::string WriteProject(CSbdData& data, WriteReport* report = nullptr);

/// The message for a block 301 that is held back.
inline constexpr const char* kControlBlockMessage = "Input error in 301 [SEC_CONTROL]";

} // namespace sbd
