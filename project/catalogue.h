// The block catalogue: what blocks there are, and how their numbers hang together.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace sbd {

enum class BlockKind {
    None,     ///< no section in the project file
    Option,   ///< rows of keyword, label, value
    Table,    ///< rows read by the generic table reader
    OwnTable, ///< rows with a reader of the block's own
};

/// One row of the catalogue. Texts are UTF-8; those that go into files are ASCII.
struct CatalogueRow {
    int block;                                ///< 253 to 999
    int command;                              ///< 16-bit menu command
    std::string_view menuText;                ///< entry of the data menu; empty: no entry
    std::string_view tag;                     ///< word in brackets in the project file; empty: no section
    std::array<std::string_view, 4> prefixes; ///< header prefixes the reader accepts, in order of their test
    BlockKind kind;
    int columns;              ///< column vectors of a table block; 0: none
    std::string_view panel;   ///< class of the panel
    bool commandOpens = true; ///< the command stands in the command table (six stand in the menu alone)
};

/// All 241 rows in order of number.
[[nodiscard]] std::span<const CatalogueRow> Catalogue();

/// The row of a number (no alias step); null if there is none.
[[nodiscard]] const CatalogueRow* FindBlock(int block);

/// The 235 pairs of command and block, in order of block.
[[nodiscard]] std::span<const std::pair<int, int>> Commands();
/// Block of a menu command, or 0; command of a block, or 0.
[[nodiscard]] int BlockOfCommand(int command);
[[nodiscard]] int CommandOfBlock(int block);

/// The nine aliases: number shown, canonical block.
[[nodiscard]] std::span<const std::pair<int, int>> Aliases();
/// The block whose data and panel a number shows.
[[nodiscard]] int CanonicalBlock(int block);

/// The panel class that opens for a number, alias step included; empty if nothing opens.
[[nodiscard]] std::string_view PanelOfBlock(int block);

} // namespace sbd
