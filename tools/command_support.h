// What the commands of sbdtool share.
#pragma once

#include "tools/commands.h"

#include <nlohmann/json_fwd.hpp>

#include <filesystem>
#include <string>
#include <string_view>

namespace sbd {

/// A path from the command line.
[[nodiscard]] std::filesystem::path PathOf(const std::string& utf8);

/// Exit code 2 with `message`, which gets its line end here.
[[nodiscard]] CommandResult Fail(std::string message);

/// Exit code 0 with `value` on one line.
[[nodiscard]] CommandResult Print(const nlohmann::json& value);

/// Exit code 2 with `why` and how the command is used.
[[nodiscard]] CommandResult WrongUse(std::string_view command, const std::string& why);

/// True where the user's language is Japanese: by LC_ALL, LC_MESSAGES and LANG, on Windows by the system's own too.
[[nodiscard]] bool SpeaksJapanese();

/// The text with each control character but the line end by its number, \\u001b: a terminal does what it is told by them.
[[nodiscard]] std::string WithoutControls(std::string_view utf8);

} // namespace sbd
