// The block catalogue: what blocks there are, and how their numbers hang together.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace sbd {

enum class BlockKind {
    None,     ///< no section in the project file
    Option,   ///< rows of keyword, label, value
    Table,    ///< rows read by the generic table reader
    OwnTable, ///< rows with a reader of the block's own
};

/// When a block counts as filled, and its title in the tree is bold.
enum class MarkRule {
    Never,
    Always,
    MoreRows,               ///< more rows than the rule's number
    MoreRowsAndNoAutomatic, ///< and the control row says "NO"
};
struct BlockMark {
    MarkRule rule;
    std::size_t rows;
};

/// Heads of the groups, of the tree or the menu, in which a block stands; 0: no further one.
using BlockGroups = std::array<int, 3>;

/// One row of the catalogue. Texts are UTF-8; those that go into files are ASCII.
struct CatalogueRow {
    int block;                                ///< 253 to 999
    int command;                              ///< 16-bit menu command
    std::string_view menuText;                ///< entry of the data menu; empty: no entry
    std::string_view tag;                     ///< word in brackets in the project file; empty: no section
    std::array<std::string_view, 4> prefixes; ///< header prefixes the reader accepts, in order of their test
    BlockKind kind;
    int columns;              ///< column vectors of a table block; 0: none
    BlockGroups tree;         ///< what stands in no group is an item of its own, or in no tree
    BlockGroups menu;         ///< of the data menu; likewise
    BlockMark mark;           ///< of the canonical block: an alias has none of its own
    bool commandOpens = true; ///< the command stands in the command table (some stand in the menu alone)
    int fileBehind = 0;       ///< the block behind whose section its own stands in the file; 0: by its number
};

/// All rows in order of number.
[[nodiscard]] std::span<const CatalogueRow> Catalogue();

/// The row of a number (no alias step); null if there is none.
[[nodiscard]] const CatalogueRow* FindBlock(int block);

/// The pairs of command and block, in order of block.
[[nodiscard]] std::span<const std::pair<int, int>> Commands();

/// The numbers of a group of the tree or of the data menu, in their order there.
[[nodiscard]] std::vector<int> BlocksOfGroup(BlockGroups CatalogueRow::*where, int group);

/// The blocks that have a section in the file, in the order of writing.
[[nodiscard]] std::span<const int> SectionOrder();

/// The aliases: number shown, canonical block.
[[nodiscard]] std::span<const std::pair<int, int>> Aliases();
/// The block whose data and panel a number shows.
[[nodiscard]] int CanonicalBlock(int block);

/// The panel class that opens for a number, alias step included; empty if nothing opens.
[[nodiscard]] std::string_view PanelOfBlock(int block);
/// The block that the panel of a number shows: a class that serves one block carries its number (569 opens CDown521, and
/// with it 521). 0 if nothing opens.
[[nodiscard]] int BlockOnPanel(int block);

} // namespace sbd
