// What the help pane says of a block and of a cell.
#pragma once

#include <string>
#include <string_view>

namespace sbd {

class CSbdData;

/// Title of a block's page: of its help page, else of the data menu; empty for a number that is no block. UTF-8.
[[nodiscard]] std::string_view PageTitleOf(int block);

/// The words that name a cell (grid row and column, both from 1): the label of an option row, the head of a table's
/// column. Empty where there is none. CP932.
[[nodiscard]] std::string CellTitle(const CSbdData& data, int block, int row, int column);

} // namespace sbd
