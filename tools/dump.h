// A project as JSON.
#pragma once

#include <nlohmann/json_fwd.hpp>

namespace sbd {

class CSbdData;

/// Everything a document holds, as one object. Texts are UTF-8; a byte that is no CP932 character is \xNN.
[[nodiscard]] nlohmann::json DumpProject(const CSbdData& data);

/// The names of a bridge: lists, marks, widths, and the bytes where a name is no whole text.
[[nodiscard]] nlohmann::json DumpNames(const CSbdData& data);

} // namespace sbd
