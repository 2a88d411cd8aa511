// Where the results of a project lie: beside it, in a folder of their own.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace sbd {

/// The file of a project's results with this extension (".Z1D", ".CHK") on this system:
/// folder/bridge1_計算結果/bridge1.Z1D for folder/bridge1.sbd.
[[nodiscard]] std::filesystem::path ResultFile(const std::filesystem::path& projectFile, std::string_view extension);

// The same as pure text on CP932 paths with backslashes, as the analysis program and the engines form them.

/// Byte position of the last backslash that is a character of its own, not the second byte of another.
/// 0 if there is none, or only one at a position below 2.
[[nodiscard]] std::size_t LastBackslash(std::string_view projectPath);

/// Path of a result file: D:\data\bridge1_計算結果\bridge1.Z1D for D:\data\bridge1.sbd. The extension of a project
/// path counts as its last four bytes, whatever they are.
[[nodiscard]] std::string ResultPath(std::string_view projectPath, std::string_view extension);

/// Path of the engines' report: D:\data\bridge1_計算結果\bridge1.CHK.
[[nodiscard]] std::string ReportPath(std::string_view projectPath);

} // namespace sbd
