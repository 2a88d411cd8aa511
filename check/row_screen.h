// Tells the rows of a table that surely come back from the file as they are.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace sbd {

struct TableBlock;
struct SectionLayout;

/// Judges the rows of one block by their texts alone. What it passes comes back as it is; what it does not pass may.
class CRowScreen {
public:
    explicit CRowScreen(int block);

    [[nodiscard]] bool Passes(const TableBlock& table, std::size_t row) const;
    /// The rows that it does not pass, ascending.
    [[nodiscard]] std::vector<int> Doubtful(const TableBlock& table) const;

private:
    [[nodiscard]] bool PassesFirst(std::string_view cell) const;

    int block_;
    std::size_t fields_ = 0; // columns that every format of a data row has a place for
};

} // namespace sbd
