// A block as rows of texts, whatever it is stored as, and which row of one project is which of another.
#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace sbd {

class CSbdData;
struct TableBlock;

using Cells = std::vector<std::string>;
using Rows = std::vector<Cells>;

[[nodiscard]] Rows HGirderRows(const CSbdData& data);
[[nodiscard]] Rows CrossRibRows(const CSbdData& data);
[[nodiscard]] Rows LRibRows(const CSbdData& data);
[[nodiscard]] Rows TableRows(const TableBlock& table);
/// A list of texts as rows of one cell.
[[nodiscard]] Rows ListRows(const std::vector<std::string>& list);

/// The head of a column (from 0) in one line; empty if it has none.
[[nodiscard]] std::string ColumnName(int block, std::size_t column);
/// The row of the grid that shows a stored row.
[[nodiscard]] int GridRow(int block, std::size_t row);
/// The cells that are not empty, with a blank between.
[[nodiscard]] std::string Joined(const Cells& row);

inline constexpr std::size_t kNoRow = std::numeric_limits<std::size_t>::max();

/// A row of both projects, the same or changed, or of one alone.
struct RowMatch {
    std::size_t before = kNoRow; ///< kNoRow: added
    std::size_t after = kNoRow;  ///< kNoRow: removed
    friend bool operator==(const RowMatch&, const RowMatch&) = default;
};

/// Every row of both sides once, in an order that is that of both. Rows that stand on both sides hold the rest in place;
/// between them the rows that have most cells in common are changed ones, the others added or removed.
[[nodiscard]] std::vector<RowMatch> MatchRows(const Rows& before, const Rows& after);

/// Cells that are the same in both rows and not empty.
[[nodiscard]] std::size_t CellsInCommon(const Cells& a, const Cells& b);

} // namespace sbd
