// What is a block's own in its rows: the rows ahead of the data rows, and the values that follow those of other blocks.
// Reader, repairs, panels and links ask here.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

struct TableBlock;

/// A control row: how it is known, and the one that is put in where the file has none. Bytes in CP932.
struct ControlRowRule {
    std::vector<std::string> words; ///< beginnings of the first word by which the row is known
    std::vector<std::string> cells; ///< the row that is put in ahead of the first row
};

/// A key of a head row: the first word begins with it, or is it.
struct HeadKey {
    std::string text;
    bool whole = false;
};

/// A head row: its keys, and word and value where the file has none.
struct HeadRow {
    std::vector<HeadKey> keys;
    std::string word;
    std::string value;
};

/// The control row of a block; null for blocks without one.
[[nodiscard]] const ControlRowRule* ControlRowOf(int block);

/// The head rows of a block, in their order; none for most blocks.
[[nodiscard]] std::span<const HeadRow> HeadRowsOf(int block);

/// Place of the head row whose key the word meets, whole keys first; -1: none.
[[nodiscard]] int FindHeadRow(std::span<const HeadRow> rows, std::string_view word);

/// Appends the head rows of a block to a table.
void AppendHeadRows(int block, TableBlock& table);

/// Rows at the top whose first cell is a word by which the reader knows them.
[[nodiscard]] int WordRowsOf(int block);

/// First cell of the row that a panel puts into a block without rows.
[[nodiscard]] std::string_view AutomaticWordOf(int block);

/// The value of such a row where no row of block 301 gives it.
[[nodiscard]] std::string_view AutomaticValueOf(int block);

/// A first row that has a form of its own in the file and stays where it is, though it is no automatic row.
struct OwnFirstRow {
    int block;
    std::string_view value; ///< put into its first cell when a row below is filled: else that one became the first
};
/// The rule of a block; null for most.
[[nodiscard]] const OwnFirstRow* FindOwnFirstRow(int block);

/// The heading words of the name blocks 501 and 702, one a list.
[[nodiscard]] std::span<const std::string> NameHeadings(int block);

/// A row (from 1) of an option block; block 0: none.
struct OptionPlace {
    int block = 0;
    int row = 0;
};

/// Rows of option blocks that hold one value: in the window whichever is written last counts, at load the first.
using SharedOption = std::array<OptionPlace, 4>;
[[nodiscard]] std::span<const SharedOption> SharedOptions();

/// A row (from 1) of block 301, and the blocks whose automatic row shows its value, in the window and at load. Blocks
/// of records (324, 325) hold no such row: their panel alone shows the value.
struct AutomaticLink {
    int optionRow = 0;
    std::array<int, 4> blocks{};
};
[[nodiscard]] std::span<const AutomaticLink> AutomaticLinks();

/// The row (from 1) of block 301 that a block's automatic row goes with; 0: none.
[[nodiscard]] int AutomaticOptionRow(int block);

/// Blocks of one splice: at load one control row of a single letter Y sets those of all to YES.
[[nodiscard]] std::span<const std::array<int, 4>> TiedBlocks();

/// The choice of block 311 for a flange that counts beside the girder height; rows 2 and 3 of block 511 and rows 1 and
/// 2 of block 721 say "NO" then, else "YES". CP932.
[[nodiscard]] const std::string& OutsideOfHeight();

} // namespace sbd
