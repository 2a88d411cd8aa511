// Times of files as people read them.
#pragma once

#include <cstdint>
#include <string>

namespace sbd {

/// "2026/11/22 09:30" for FileFacts::changed, by the clock of the place; empty for a time that the system cannot tell.
[[nodiscard]] std::string LocalTimeText(std::int64_t changed);

/// Now, as FileFacts::changed has it.
[[nodiscard]] std::int64_t FileTimeNow();

/// So many FileFacts::changed make a second.
[[nodiscard]] std::int64_t FileTicksPerSecond();

} // namespace sbd
