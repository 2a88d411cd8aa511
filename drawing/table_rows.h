// Rows of a table block as a drawing reads them: cells, numbers, ranges of names, and the rule that later rows win.
#pragma once

#include "drawing/bridge_drawing.h"
#include "project/sbd_data.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace sbd {

class CNameIndex;

/// Is `word` (CP932) in `text`, from the first byte of a character on?
[[nodiscard]] bool Holds(std::string_view text, std::string_view word);
/// The number that a cell is; nothing for other cells and for numbers that no bridge has.
[[nodiscard]] std::optional<double> NumberIn(std::string_view cell);
/// The words of a cell, divided by blanks, commas and semicolons.
[[nodiscard]] std::vector<std::string_view> CellWords(std::string_view cell);

/// The rows of a table block behind its head rows.
class CTableRows {
public:
    /// `heads`: rows at the top that are no data: control row, type of a table. `data` must outlive it.
    CTableRows(const CSbdData& data, int block, std::size_t heads);

    [[nodiscard]] std::size_t First() const { return first_; }
    [[nodiscard]] std::size_t Count() const { return count_; }
    /// Without blanks around; empty where there is no such cell.
    [[nodiscard]] std::string_view Cell(std::size_t row, std::size_t column) const;
    [[nodiscard]] SourceCell Place(std::size_t row, std::size_t column) const
    {
        return {block_, static_cast<int>(row) + 1, static_cast<int>(column) + 1};
    }
    /// The first four cells are empty: a row that is yet to be typed.
    [[nodiscard]] bool IsEmpty(std::size_t row) const;

private:
    const TableBlock* table_;
    int block_;
    std::size_t first_;
    std::size_t count_;
};

struct IndexRange {
    std::size_t from = 0;
    std::size_t to = 0; ///< last one included
    [[nodiscard]] bool Has(std::size_t i) const { return from <= i && i <= to; }
};

/// The range that two cells name, in whichever order; what is missing or unknown is omitted with its cell. `kind` says
/// what the names are (UTF-8).
[[nodiscard]] std::optional<IndexRange> RangeOfNames(CDrawingBuild& build, const CNameIndex& names,
                                                     std::string_view from, std::string_view to, SourceCell fromPlace,
                                                     std::string_view kind);

/// Which row wins at each place: rows are taken from the last one on, each takes what is still free of its range.
class CLastRowWins {
public:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    explicit CLastRowWins(std::size_t places);
    /// Gives how many places the row has got.
    std::size_t Take(std::size_t row, std::size_t first, std::size_t end);
    [[nodiscard]] std::size_t At(std::size_t place) const { return winner_[place]; }

private:
    std::size_t FreeFrom(std::size_t place);
    std::vector<std::size_t> winner_;
    std::vector<std::size_t> next_; // the place itself while it is free, else one behind it
};

} // namespace sbd
