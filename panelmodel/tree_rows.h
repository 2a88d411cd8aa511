// The block tree: what stands in it, in which order, under which titles, and what is bold.
#pragma once

#include "commands/commands.h"

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

class CSbdData;

/// Which form the titles have.
enum class TitleLanguage {
    Japanese,           ///< number and Japanese title
    English,            ///< number and tag
    EnglishAndJapanese, ///< the title as it stands
};

/// The form a word of the profile stands for, whatever its case; every other word means Japanese.
[[nodiscard]] TitleLanguage TitleLanguageOf(std::string_view word);

/// A title ("301.主桁_CONTROL[SEC_CONTROL](必要)") in one of its forms. UTF-8.
[[nodiscard]] std::string TitleIn(TitleLanguage language, std::string_view title);

/// How much of the tree is shown. One of the three holds; the filter commands count in the last two only.
enum class TreeMode {
    Everything, ///< all items
    Automatic,  ///< without what the project's switches leave out, and without the filtered items
    Filtered,   ///< without the filtered items
};

/// The commands that each leave a part of the tree out.
enum class TreeFilter {
    Plate,    ///< plate girder items
    Box,      ///< box girder items
    Drawing,  ///< 400
    Cross,    ///< 520
    Lateral,  ///< 570
    Fem,      ///< 600
    Stringer, ///< 640
    Bracket,  ///< 670
    Support,  ///< 700
};

/// What the user has chosen to see.
struct TreeView {
    TreeMode mode = TreeMode::Everything;
    std::set<TreeFilter> filters;
    TitleLanguage language = TitleLanguage::Japanese;
    bool boxPanelChanged = false; ///< block 305 was edited since the tree was built: a section project counts as a box
};

/// The mode that a command sets, or the filter that it sets and clears; nothing if it is no such command.
[[nodiscard]] std::optional<TreeMode> TreeModeOf(Command command);
[[nodiscard]] std::optional<TreeFilter> TreeFilterOf(Command command);

/// One line of the tree.
struct TreeRow {
    int level = 0;      ///< 0: group head or an item of its own, 1: item of the group head above it
    int block = 0;      ///< number at the start of the text; 290, 300, ... for a group head
    bool group = false; ///< head of a group
    bool bold = false;  ///< the block holds input that is in force
    std::string text;   ///< UTF-8
    std::string whole;  ///< the title with its tag, whatever the language; UTF-8
    friend bool operator==(const TreeRow&, const TreeRow&) = default;
};

/// The whole tree from top to bottom, as it stands after a rebuild.
[[nodiscard]] std::vector<TreeRow> TreeRows(const CSbdData& data, const TreeView& view = {});

/// True if a block (an alias counts as the block behind it) holds input that is in force.
[[nodiscard]] bool HasInputInForce(const CSbdData& data, int block);

/// What a block of rows holds, for the line of the tree.
struct BlockFill {
    int rows = -1;      ///< filled rows without those that are no data rows; -1: the block has no rows of its own
    bool lacks = false; ///< it is needed, and neither filled nor left to the automatic design
    friend bool operator==(const BlockFill&, const BlockFill&) = default;
};
[[nodiscard]] BlockFill FillOf(const CSbdData& data, int block);

/// What of a project decides which lines there are: the tree is rebuilt when this changes.
[[nodiscard]] std::string TreeKey(const CSbdData& data);

} // namespace sbd
