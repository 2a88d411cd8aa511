// The parts of a zip file, as a spreadsheet file is one.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace sbd {

/// Calls `take` with each part's name and content, one in memory at a time. False if the bytes are no whole zip file, or
/// a part is not what its check sum says. Parts of more than 1 GB are refused.
[[nodiscard]] bool ReadZipParts(std::string_view bytes,
                                const std::function<void(const std::string& name, const std::string& content)>& take);

} // namespace sbd
