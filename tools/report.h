// Differences and lost lines in words an engineer reads, and as JSON.
#pragma once

#include "check/file_check.h"
#include "check/read_back.h"
#include "compare/difference_text.h"
#include "sbdfile/reader.h"

#include <nlohmann/json_fwd.hpp>

#include <string>
#include <string_view>

namespace sbd {

[[nodiscard]] nlohmann::json DifferenceJson(const Difference& difference);
/// A cell that comes back from the file as another text.
[[nodiscard]] nlohmann::json ReturnedCellJson(const ReturnedCell& cell);

[[nodiscard]] std::string NoteText(const ReadNote& note);
[[nodiscard]] nlohmann::json NoteJson(const ReadNote& note);

/// One line, UTF-8, as "31行目 314 支点上補剛材: ...".
[[nodiscard]] std::string FindingText(const Finding& finding);
[[nodiscard]] nlohmann::json FindingJson(const Finding& finding);

[[nodiscard]] std::string CheckText(const FileCheck& check);
[[nodiscard]] nlohmann::json CheckJson(const FileCheck& check);

} // namespace sbd
