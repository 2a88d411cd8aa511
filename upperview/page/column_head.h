// What the head of a grid column says: names, unit, and the kinds of rows that it serves.
#pragma once

#include "project/panel_columns.h"

#include <string>
#include <string_view>
#include <vector>

namespace sbd {

/// A column of a block's grid, the row number not counted.
struct ColumnHead {
    std::string head;        ///< CP932, a line break is "\n"
    std::string sectionHead; ///< in a project of single sections; empty: the same
    WordList words;          ///< of the data rows
};

/// The columns of a table block in order; empty for any other.
[[nodiscard]] std::vector<ColumnHead> ColumnHeads(int block);

/// Rows at the top of a block's grid that are no data rows: what stands in them are no values of the columns.
[[nodiscard]] int HeadRows(int block);

/// The unit in the brackets of a head, as it stands there: "mm", "kN/m2"; empty without one. CP932.
[[nodiscard]] std::string UnitOf(std::string_view head);

/// What a text may call a column: the lines of its head without unit and brackets, and all of them in one word. UTF-8.
[[nodiscard]] std::vector<std::string> NamesOf(std::string_view head);

/// The head of a column for each kind of row that the block has, with the unit; empty for a kind without the column.
/// The kinds are the lines of the first column's head. CP932.
[[nodiscard]] std::vector<std::string> HeadsByKind(std::string_view firstHead, std::string_view head);

/// A head in one line: its lines, but for those that say nothing new. CP932.
[[nodiscard]] std::string OneLineHead(std::string_view head);

} // namespace sbd
