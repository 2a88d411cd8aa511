// The commands of sbdtool that read analysis results.
#pragma once

#include "tools/commands.h"

#include <nlohmann/json_fwd.hpp>

#include <span>
#include <string>
#include <string_view>

namespace sbd {

struct AnalysisModel;
struct ElementTable;
struct NodeTable;
struct ResultCube;

/// results PROJECT [--again OTHER]: everything the six result files hold.
[[nodiscard]] CommandResult RunResults(std::span<const std::string> arguments);

/// result-paths PROJECTPATH: where the files of a Windows path lie.
[[nodiscard]] CommandResult RunResultPaths(std::span<const std::string> arguments);

// The records under the names of their fields. Texts are UTF-8; where a byte is no CP932 character, the bytes stand
// in "bytesOfUncleanNames" too. Numbers that JSON has not are "NaN", "Infinity" and "-Infinity".
[[nodiscard]] nlohmann::json ModelJson(const AnalysisModel& model);
[[nodiscard]] nlohmann::json ElementTableJson(const ElementTable& table);
[[nodiscard]] nlohmann::json NodeTableJson(const NodeTable& table);

/// Sizes, number, extremes, sums, first and last values of a cube.
[[nodiscard]] nlohmann::json CubeSummaryJson(const ResultCube& cube);

/// "lastBackslash" and the path of each file by its extension, for a path in CP932.
[[nodiscard]] nlohmann::json ResultPathsJson(std::string_view projectPath);

} // namespace sbd
