// The input of a project as a book: which blocks stand in it, and each of them as a table. Texts are UTF-8.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

class CSbdData;

/// What the cover tells beside the blocks.
struct BookFacts {
    std::string project; ///< what the project is called
    std::string title;   ///< of row 1 of block 301
    std::string file;    ///< path; empty: not saved yet
    std::string saved;   ///< when the file was written
    std::string made;    ///< when the book is
    std::string program; ///< and its version
    std::string blocks;  ///< which blocks stand in it, in words
};

struct BookColumn {
    std::string head; ///< lines with "\n" between
    bool rightAligned = false;
};

/// One block as a table, the row numbers first.
struct BookBlock {
    int block = 0;
    std::string name; ///< "313 垂直補剛材"
    std::string tag;  ///< its word in the file
    std::vector<BookColumn> columns;
    std::size_t nameColumns = 1; ///< columns that say which row it is: row number and names
    std::vector<std::vector<std::string>> rows;
    std::size_t headRows = 0; ///< rows at the top that are no rows of the table
};

/// The blocks that hold input, in the order of their numbers: tables with a filled row, option blocks that are in force or
/// of which a value is not the default.
[[nodiscard]] std::vector<int> FilledBlocks(const CSbdData& data);
/// The blocks in which anything differs, of those that can be shown.
[[nodiscard]] std::vector<int> ChangedBlocks(const CSbdData& before, const CSbdData& now);
/// Those of `numbers` that can be shown, by the number whose data they show, each once and in order.
[[nodiscard]] std::vector<int> BookBlocks(const std::vector<int>& numbers);

/// The blocks that a text names, "301,313,600-639"; nothing if a piece is no number or range.
[[nodiscard]] std::optional<std::vector<int>> ReadBlockList(std::string_view text);

/// The facts of a project: called `project` (empty: as its file), kept in `file` (empty: not saved yet), written now.
[[nodiscard]] BookFacts FactsOf(const CSbdData& data, std::string_view project, const std::filesystem::path& file,
                                std::string_view program);

/// The title that block 301 gives the project.
[[nodiscard]] std::string BookTitle(const CSbdData& data);

[[nodiscard]] BookBlock MakeBookBlock(const CSbdData& data, int block);

} // namespace sbd
