// What counts as doubtful, as tables: each entry with its reason.
#pragma once

#include <array>
#include <span>
#include <string_view>

namespace sbd {

/// Two columns that hold the start and the end of a range.
struct RangeColumns {
    int start;    ///< the end stands in the next column
    bool girders; ///< girders; else cross beams
};

/// A block whose rows hold for ranges of girders and cross beams. All texts of these tables are UTF-8.
struct RangeBlock {
    int block;
    std::array<RangeColumns, 2> ranges;
    bool laterRowWins;       ///< the block's page says so: an earlier row inside a later one has no effect
    std::array<int, 2> keys; ///< further columns that must be equal for two rows to mean the same; 0: none
    std::string_view reason;
};
[[nodiscard]] std::span<const RangeBlock> RangeBlocks();

/// Words of which a column offers some and takes no others.
struct ClosedWords {
    std::span<const std::string_view> words;
    std::string_view reason;
};
[[nodiscard]] std::span<const ClosedWords> ClosedWordLists();

/// A column of numbers in which words stand as well.
struct MixedColumn {
    int block;
    int column;
    std::string_view reason;
};
[[nodiscard]] std::span<const MixedColumn> MixedColumns();

/// When a block is needed.
enum class NeededBy {
    Girders,        ///< a project of main girders
    SeveralGirders, ///< likewise with more than one girder
    BoxGirders,     ///< likewise with box sections
};
struct NeededBlock {
    int block;
    NeededBy by;
    std::string_view reason;
};
[[nodiscard]] std::span<const NeededBlock> NeededBlocks();

} // namespace sbd
