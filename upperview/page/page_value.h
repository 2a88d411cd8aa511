// What a page may ask of the project: values it quotes and conditions it hangs on.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

class CSbdData;

/// For whom a page is drawn. Row and column are those of the grid, from 1; below 1: none.
struct PageView {
    const CSbdData& data;
    int block = 0;
    int row = 0;
    int column = 0;
    int clientWidth = 900;       ///< pixels of the pane
    int clientHeight = 400;      ///< pixels of the pane
    std::string searchText = {}; ///< first cell of block 999, which the project does not hold; CP932
};

/// A value of the project or of the cell under the cursor, as page files write it:
///   301:3      row 3 of the option block 301
///   329:2:1    row 2, column 1 of the table block 329, as the grid counts them
///   cell:6     column 6 of the current row of the current block
///   types:2    flange type 2 of block 311 (1, 2: thickness, 3, 4: line shape; upper, lower)
///   rows:329   number of rows of a block
///   search     the first cell of block 999
///   block, row, column
/// "/4" behind it takes the first 4 bytes, "#2" the second of the words divided by commas and blanks. What does not exist is
/// empty.
struct PageOperand {
    enum class Kind { Option, Cell, CurrentCell, FlangeType, Search, Rows, Block, Row, Column };
    Kind kind = Kind::Option;
    int block = 0;
    int row = 0;
    int column = 0;
    int bytes = 0; ///< first bytes taken; 0: all
    int word = 0;  ///< word taken, from 1; 0: all

    [[nodiscard]] bool IsNumber() const { return kind >= Kind::Rows; }
    [[nodiscard]] int Number(const PageView& view) const;
    [[nodiscard]] std::string Text(const PageView& view) const;
};

/// One comparison: OPERAND [/BYTES] OP WORD. `=`, `!=`, `<`, `>=`, `>`, `<=` compare numbers as numbers, if both sides are
/// such, and else texts by byte, without blanks around them; `starts` and `contains` look into the text; `in` and `notin`
/// look for it among words divided by commas; `empty` and `filled` need no word.
struct PageTest {
    enum class Operator { Equal, Unequal, Below, AtLeast, Above, AtMost, Starts, Contains, In, NotIn, Empty, Filled };
    PageOperand operand;
    Operator op = Operator::Equal;
    std::string word; ///< CP932
    [[nodiscard]] bool Holds(const PageView& view) const;
};

/// Tests joined by " and "; without tests it holds.
struct PageCondition {
    std::vector<PageTest> tests;
    std::string source; ///< as the page file has it
    [[nodiscard]] bool Holds(const PageView& view) const;
};

/// Nothing if the text is no operand, or names a block, row or column that does not exist.
[[nodiscard]] std::optional<PageOperand> ParseOperand(std::string_view text);
/// UTF-8 text. On a fault nothing, and `fault` says what is wrong.
[[nodiscard]] std::optional<PageCondition> ParseCondition(std::string_view text, std::string& fault);

/// The text of a cell of a table or option block as its grid shows it; row and column from 1. Empty where there is none, and
/// in the automatic row of 324, 325, 501 and 702. CP932.
[[nodiscard]] std::string CellText(const CSbdData& data, int block, int row, int column);

/// The number that a text is, blanks around it left out; nothing if more than a number stands there.
[[nodiscard]] std::optional<double> WholeNumber(std::string_view text);

/// Columns of a block's grid, the row number not counted; 2 for an option block; 0 for a block without grid.
[[nodiscard]] int GridColumns(int block);

} // namespace sbd
