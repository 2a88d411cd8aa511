// The book as a spreadsheet file.
#pragma once

#include "book/input_book.h"
#include "sbdfile/project_file.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

namespace sbd {

/// Called ahead of each block, or page, with how many are done; false: the user gives up.
using BookProgress = std::function<bool(int done, int of)>;

/// A sheet with cover and contents, then one a block: heads stay, numbers are numbers. Nothing if `progress` gave up; then
/// no file is written.
[[nodiscard]] std::optional<FileResult> WriteBookSheets(const std::filesystem::path& path, const CSbdData& data,
                                                        const std::vector<int>& blocks, const BookFacts& facts,
                                                        const BookProgress& progress = {});

/// Label and text of each line of the cover that has one.
[[nodiscard]] std::vector<std::pair<std::string, std::string>> CoverLines(const BookFacts& facts);

} // namespace sbd
