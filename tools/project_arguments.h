// Arguments of the commands that read projects: plain words, and options with or without a value.
#pragma once

#include "sbdfile/project_file.h"
#include "tools/commands.h"

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace sbd {

class CSbdData;

struct ParsedArguments {
    std::vector<std::string> words;
    std::optional<std::string> names;
    std::optional<std::string> mode;
    std::vector<std::string> checks;
    std::string language;
    bool plain = false;
    bool noNames = false;
    bool asJson = false;
    std::string blocks; ///< numbers with "," between
    std::optional<std::string> since;
    std::optional<std::string> sheets;
    std::optional<std::string> wrong; ///< what could not be understood, for the user
};

struct AllowedOptions {
    bool names = false;
    bool asJson = false;
    bool plain = false;
    bool tree = false;
    bool book = false;
    bool sheets = false;
};

/// Any number of words from one on.
inline constexpr std::size_t kSomeWords = static_cast<std::size_t>(-1);

[[nodiscard]] ParsedArguments ParseArguments(std::span<const std::string> arguments, AllowedOptions allowed,
                                             std::size_t words);

/// A word that is a number as a whole.
[[nodiscard]] std::optional<int> WholeNumber(const std::string& word);

/// The word for standard input and output in place of a file.
inline constexpr std::string_view kStandardStream = "-";

/// The file of names that goes with a project; the standard input has none beside it.
[[nodiscard]] std::optional<std::filesystem::path> NamesFor(const ParsedArguments& parsed, const std::string& project);

/// The bytes of a file, or of the standard input.
[[nodiscard]] FileResult ReadInput(const std::string& file, std::string& bytes);
/// Loads a project from a file or the standard input.
[[nodiscard]] FileResult LoadInput(const std::string& file, const std::optional<std::filesystem::path>& names,
                                   CSbdData& data);
/// Puts the bytes in place of a file, or into the result for the standard output.
[[nodiscard]] FileResult WriteOutput(const std::string& file, std::string_view bytes, CommandResult& result);

[[nodiscard]] CommandResult CannotRead(const std::string& file, const FileResult& result);
[[nodiscard]] CommandResult CannotWrite(const std::string& file, const FileResult& result);

} // namespace sbd
