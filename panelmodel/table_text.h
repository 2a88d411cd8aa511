// Tables in text files: CSV, and columns between tabs, semicolons or blanks.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

enum class TextCode { Cp932, Utf8 };

enum class TableSeparator {
    Comma,
    Tab,
    Semicolon,
    Blanks, ///< any number of blanks and tabs
};

/// A table as a text file has it. Cells are CP932; one that no cell of a block can hold is kKeepCell.
struct TextTable {
    std::vector<std::vector<std::string>> rows; ///< lines that hold nothing are left out
    std::vector<std::size_t> lines;             ///< of each row, from 1
    std::size_t columns = 0;                    ///< of the longest row
    std::size_t blankLines = 0;                 ///< left out, those at the end not counted
    std::size_t openQuotes = 0; ///< quotation marks at the head of a cell that nothing closes: they stand as characters
    std::size_t tooLong = 0;    ///< cells longer than kMostBytesOfCell
    std::size_t strange = 0;    ///< cells with characters that CP932 has not
    std::vector<std::string> refused; ///< the first of these characters, UTF-8
    bool isWhole = true;              ///< false: there are more rows or columns than are read
};

inline constexpr std::size_t kMostBytesOfCell = 1024;
inline constexpr std::size_t kMostTableRows = 100'000;
inline constexpr std::size_t kMostTableColumns = 1'000;

/// The bytes of a file in UTF-16 (with its mark) as UTF-8; any other as they are, a mark at their beginning left out.
[[nodiscard]] std::string PlainText(std::string_view bytes);

/// What divides the columns: what most of the first lines have in the same number.
[[nodiscard]] TableSeparator GuessSeparator(std::string_view text);

/// Reads at most `mostRows` rows. A cell between quotation marks may hold separators and line ends, marks within it are
/// doubled. Never fails: what is no such cell is text.
[[nodiscard]] TextTable ReadTextTable(std::string_view text, TextCode code, TableSeparator separator,
                                      std::size_t mostRows = kMostTableRows);

/// A line of CSV, with its end.
[[nodiscard]] std::string CsvLine(const std::vector<std::string>& cells);

} // namespace sbd
