// The table of results as text for other programs.
#pragma once

#include "results/result_state.h"
#include "results/result_table.h"

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

/// Head lines, heads with units, extremes and rows, divided by commas; UTF-8 with its mark, by which spreadsheets know it.
[[nodiscard]] std::string CsvOfTable(const CResultTable& table, const ResultSelection& selection,
                                     const ResultState& state);

} // namespace sbd
