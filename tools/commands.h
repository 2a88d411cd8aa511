// The commands of sbdtool.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

/// What a command gives: the exit code and both outputs, UTF-8.
struct CommandResult {
    int exitCode = 0; ///< 0 done; 1 done, and something differs; 2 could not be done
    std::string output;
    std::string error;
};

/// One command, with what --help tells of it.
struct Command {
    std::string_view name;
    std::string_view usage;
    std::string_view help;
    CommandResult (*run)(std::span<const std::string> arguments);
};

[[nodiscard]] std::span<const Command> ToolCommands();

/// Runs the command line (without the program's name).
[[nodiscard]] CommandResult RunCommandLine(const std::vector<std::string>& arguments);

} // namespace sbd
