// What differs between two projects, by block, row and column.
#pragma once

#include <string>
#include <vector>

namespace sbd {

class CSbdData;

enum class DifferenceKind {
    Value, ///< an option value, a cell, a type or a name list's value
    RowAdded,
    RowRemoved,
    RowMoved,    ///< the row's texts are the same, in other columns
    UnknownLine, ///< a line of the sections that are not known
};

/// One difference. Texts in CP932.
struct Difference {
    DifferenceKind kind = DifferenceKind::Value;
    int block = 0;     ///< 0: the unknown sections, the version word
    int row = 0;       ///< from 1, as the grids count; 0: none
    int column = 0;    ///< from 1; 0: none
    std::string place; ///< row's label or column's name, as far as there is one
    std::string before;
    std::string after;
    std::vector<std::string> cells = {}; ///< of a row that was added or removed
    /// The row on the other side, from 1: of a row that is not there, the one ahead of which it would stand.
    int otherRow = 0;
};

/// From `before` to `after`. Rows are matched, so that one row put in is one difference and not a hundred.
[[nodiscard]] std::vector<Difference> CompareProjects(const CSbdData& before, const CSbdData& after);

} // namespace sbd
