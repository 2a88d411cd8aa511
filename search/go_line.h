// What one line leads to: a block, a cell, a command, or what the search finds.
#pragma once

#include "commands/commands.h"
#include "search/search_tables.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

class CSbdData;

/// One place that the line can lead to. Texts are UTF-8.
struct GoTarget {
    enum class Kind {
        Place,   ///< a block, or a cell of one
        Command, ///< a command of the table
        Search,  ///< the search block, with the line
    };
    Kind kind = Kind::Place;
    SearchPlace place;
    Command command = Command::None;
    std::string text;
    std::string detail; ///< what stands in the cell, the keys of a command
};

/// What the line takes.
enum class GoScope {
    All,
    Numbers, ///< blocks, rows and columns
};

/// So many targets a line has at most.
inline constexpr std::size_t kMostTargets = 40;

/// The numbers of a line: "313 5行 3列", "３１３の５行", "313-5-3", "5行" (of the current block). Nothing if the line holds
/// anything else, or no block of the catalogue.
[[nodiscard]] std::optional<SearchPlace> PlaceOfLine(std::string_view line, int currentBlock);

/// A place in words: "313.垂直補剛材　5行　3列　間隔"; row 0: the block alone. A row or column behind the last one stands
/// for the last one, and the text says so. `place` becomes what is meant.
[[nodiscard]] std::string PlaceInWords(const CSbdData& data, SearchPlace& place);

/// Where a line leads, best first.
[[nodiscard]] std::vector<GoTarget> GoTargets(std::string_view line, const CSbdData& data, int currentBlock,
                                              GoScope scope = GoScope::All);

/// A command's name without the letter of the menu and without runs of blanks.
[[nodiscard]] std::string NameOf(const CommandRow& command);

} // namespace sbd
