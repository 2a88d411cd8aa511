// The commands of sbdtool.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

/// What a command gives: the exit code and both outputs, UTF-8. No control character but the line end stands in them:
/// those of a file are shown by their number.
struct CommandResult {
    int exitCode = 0; ///< 0 done; 1 done, and something differs; 2 could not be done; 3 done, and something gets lost
    std::string output;
    std::string error;
    std::string bytes = {}; ///< of a project that goes to the standard output
};

/// One command, with what --help tells of it.
struct ToolCommand {
    std::string_view name;
    std::string_view usage;
    std::string_view help;         ///< English
    std::string_view japaneseHelp; ///< shown where the user's language is Japanese
    CommandResult (*run)(std::span<const std::string> arguments);
};

[[nodiscard]] std::span<const ToolCommand> ToolCommands();

/// Runs the command line (without the program's name).
[[nodiscard]] CommandResult RunCommandLine(const std::vector<std::string>& arguments);

} // namespace sbd
