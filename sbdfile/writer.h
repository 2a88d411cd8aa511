// Writing the text of a project file.
#pragma once

#include <string>

namespace sbd {

class CSbdData;

/// What the writer has to tell besides the text.
struct WriteReport {
    bool controlBlockHeldBack = false; ///< block 301 holds "<?>": title and block are not in the text
};

/// The text of a project file. A block 301 without rows, which no document has, is written as a new one.
[[nodiscard]] std::string WriteProject(const CSbdData& data, WriteReport* report = nullptr);

/// The message for a block 301 that is held back.
inline constexpr const char* kControlBlockMessage = "Input error in 301 [SEC_CONTROL]";

} // namespace sbd
