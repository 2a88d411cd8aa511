// The table of results as text for other programs.
#pragma once

#include "results/result_state.h"
#include "results/result_table.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace sbd {

/// What stands over a table, in CP932: its title, from where it is, and words of warning where the input is newer or the
/// files have faults.
[[nodiscard]] std::vector<std::string> TableHeadLines(const CResultTable& table, const ResultSelection& selection,
                                                      const ResultState& state);

/// Rows of the grid that are filled, the heads included.
[[nodiscard]] std::size_t FilledRows(const CResultTable& table);

/// The head of a column with its unit, "左My最大 [kN・m]", in CP932.
[[nodiscard]] std::string HeadWithUnit(const CResultTable& table, std::size_t gridColumn);

/// Told now and then how many rows are done of how many; false: the output is not wanted any more.
using TableProgress = std::function<bool(std::size_t done, std::size_t all)>;

/// Passes on one row of many, and the last one.
[[nodiscard]] bool IsWanted(const TableProgress& progress, std::size_t done, std::size_t all);

/// Head lines, heads with units, extremes and rows, divided by commas; UTF-8 with its mark, by which spreadsheets know it.
/// Nothing if it is not wanted any more.
[[nodiscard]] std::optional<std::string> CsvOfTable(const CResultTable& table, const ResultSelection& selection,
                                                    const ResultState& state, const TableProgress& progress);
[[nodiscard]] std::string CsvOfTable(const CResultTable& table, const ResultSelection& selection,
                                     const ResultState& state);

} // namespace sbd
