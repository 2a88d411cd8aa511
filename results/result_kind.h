// The three kinds of result of the frame analysis: their components, names and words.
#pragma once

#include "results/records.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

enum class ResultKind { Displacement, Force, Reaction };

/// What is the same for all results of a kind. Texts are UTF-8.
struct ResultKindInfo {
    ResultKind kind;
    std::string_view word;
    std::array<std::string_view, kNodeComponents> components;
    std::array<std::string_view, kNodeComponents> units; ///< of the values as tables and figures show them
    std::size_t defaultComponent;                        ///< of the figure
    std::string_view stationLabel;
    std::string_view excludedLabel;
    std::string_view nameHead;
    int nameWidth; ///< pixels at 96 dpi, as all widths
    int valueWidth;
    std::string_view headPrefix; ///< of the heads of the values
    int textWidth;               ///< least characters of a value's text
    bool bothEnds;               ///< a component has a value at the left and one at the right end
};

/// In the order of ResultKind.
[[nodiscard]] std::span<const ResultKindInfo> ResultKinds();
[[nodiscard]] const ResultKindInfo& InfoOf(ResultKind kind);

// Words and components as a user chooses them, in CP932; nothing for other words.
[[nodiscard]] std::optional<ResultKind> ResultKindOf(std::string_view word);
[[nodiscard]] std::optional<std::size_t> ComponentOf(ResultKind kind, std::string_view component);

/// The word and the components of a kind in CP932.
[[nodiscard]] std::string KindWord(ResultKind kind);
[[nodiscard]] std::string ComponentWord(ResultKind kind, std::size_t component);
[[nodiscard]] std::string UnitWord(ResultKind kind, std::size_t component);

/// The nodes or the members that the results of a kind stand at.
[[nodiscard]] const std::vector<std::string>& NamesOf(const AnalysisModel& model, ResultKind kind);
[[nodiscard]] const ResultCube& CubeOf(const AnalysisResults& results, ResultKind kind);
/// Values that an item of the kind has in a load case.
[[nodiscard]] std::size_t ValuesOfItem(ResultKind kind);

/// Place of a load case by its whole name, the first of equal ones.
[[nodiscard]] std::optional<std::size_t> LoadCaseOf(const AnalysisModel& model, std::string_view name);

} // namespace sbd
