// The table of results as a spreadsheet file.
#pragma once

#include "results/result_csv.h"
#include "results/result_state.h"
#include "results/result_table.h"
#include "sheets/workbook.h"

namespace sbd {

/// Adds the table to a book as a sheet: head lines, frozen heads with units, extremes and rows. Values are numbers with
/// three decimals, also where the grid shows fewer digits; what is no number is a text. `name`: of the sheet, in CP932.
/// False if it is not wanted any more.
[[nodiscard]] bool AddResultSheet(CWorkbook& book, const CResultTable& table, const ResultSelection& selection,
                                  const ResultState& state, std::string_view name, const TableProgress& progress = {});

/// The table as a file of one sheet. If it is not wanted any more, the file stays what it was, and that is no error.
[[nodiscard]] FileResult SaveResultWorkbook(const std::filesystem::path& path, const CResultTable& table,
                                            const ResultSelection& selection, const ResultState& state,
                                            const TableProgress& progress = {});

} // namespace sbd
