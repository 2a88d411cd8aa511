// CSbdData: everything the user can enter, in memory.
#pragma once

#include "project/column_vector.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

/// A number that is not given.
inline constexpr double kNotGiven = 1e40;
[[nodiscard]] constexpr bool IsGiven(double value)
{
    return value < kNotGiven;
}
/// A number as a cell shows it: six decimals at most, without trailing zeros; empty if it is not given.
[[nodiscard]] std::string NumberCell(double value);

/// The columns of a table block. All columns have the same length, the number of rows.
struct TableBlock {
    std::vector<CColumnVector> columns;

    [[nodiscard]] std::size_t RowCount() const { return columns.empty() ? 0 : columns.front().size(); }
    /// Appends a row; cells that `cells` has not are empty, those beyond the last column are dropped.
    void AppendRow(const std::vector<std::string_view>& cells);
    [[nodiscard]] std::vector<std::string_view> Row(std::size_t row) const;
    friend bool operator==(const TableBlock&, const TableBlock&) = default;
};

/// Block 311: girder heights. Numbers in m.
struct HGirderRecord {
    std::array<std::string, 4> names; ///< girder from, to; cross beam from, to
    std::array<double, 7> numbers{kNotGiven, kNotGiven, kNotGiven, kNotGiven, kNotGiven, kNotGiven, kNotGiven};
    friend bool operator==(const HGirderRecord&, const HGirderRecord&) = default;
};

struct HGirder {
    std::array<std::string, 4> types; ///< T_U, T_L, Z_U, Z_L
    std::vector<HGirderRecord> records;
    friend bool operator==(const HGirder&, const HGirder&) = default;
};

/// Ribs of one row that are written at most.
inline constexpr int kMostRibs = 100;

/// The spacings on one side: a word that stands for them, or the numbers. Zeros at the end are not held, so that a
/// count alone costs nothing: ask by At.
struct RibSpacing {
    std::string word;
    std::vector<double> numbers;
    [[nodiscard]] double At(std::size_t i) const { return i < numbers.size() ? numbers[i] : 0.0; }
    void Append(double number) { numbers.push_back(number); }
    /// Drops the zeros at the end.
    void Tidy();
    friend bool operator==(const RibSpacing&, const RibSpacing&) = default;
};

/// Block 324: cross ribs of a box girder. Sizes in mm, spacings in m.
struct CrossRibRecord {
    std::array<std::string, 5> names; ///< girder from, to; cross beam from, to; flange
    std::array<double, 4> sizes{};    ///< Bri, Tri, Bfi, Tfi
    int n = 0;                        ///< ribs
    RibSpacing left;                  ///< n numbers
    RibSpacing right;
    /// Sizes of the ribs from the second on, n - 1 of them; sizes at the end that are not given are not held.
    std::vector<std::array<double, 4>> furtherSizes;
    [[nodiscard]] std::array<double, 4> FurtherSizesAt(std::size_t i) const
    {
        return i < furtherSizes.size() ? furtherSizes[i] : std::array{kNotGiven, kNotGiven, kNotGiven, kNotGiven};
    }
    friend bool operator==(const CrossRibRecord&, const CrossRibRecord&) = default;
};

/// Block 325: longitudinal ribs of a box girder. Spacings in mm.
struct LRibRecord {
    std::array<std::string, 5> names; ///< girder from, to; cross beam; flange; rib number
    int n1 = 0;
    int n2 = 0;
    RibSpacing left;  ///< n1 numbers
    RibSpacing right; ///< n2 numbers
    friend bool operator==(const LRibRecord&, const LRibRecord&) = default;
};

/// Blocks 501 and 702: name lists with the value of "自動取得(YES_NO)".
struct NameLists {
    std::string autoValue = "YES";
    std::vector<std::vector<std::string>> lists; ///< 501: girders, cross beams, lines; 702: and box girders
    friend bool operator==(const NameLists&, const NameLists&) = default;
};

/// The names of a bridge as its analysis has them; not part of the project file.
struct GridNames {
    std::vector<std::string> girderNames;
    std::vector<std::string> swayNames;
    std::vector<int> swayMarks; ///< one a sway name: 0 none, 1 "-", 2 "-+"
    std::vector<std::string> lineNames;
    int girderNameWidth = 3; ///< bytes of the longest name; only ever grows
    int swayNameWidth = 3;
};

/// Everything the user can enter. Plain data: copy, compare, assign.
class CSbdData {
public:
    /// All option blocks at their defaults, all tables empty.
    CSbdData();

    /// Reset: empties all tables, record lists and unknown lines; option values and names stay.
    void ClearBlocks();

    /// Columns of a table block; 2 for a number that is none.
    [[nodiscard]] int ColumnCount(int block) const;
    /// Appends a cell to column `column` of table block `block`; ignored where there is no such column.
    void Append(int block, int column, std::string_view text);
    /// Rows of a table block, of 311, 324 and 325, values of an option block; 0 for other numbers.
    [[nodiscard]] std::size_t RowCount(int block) const;

    /// The columns of a table block read by rows; null for other numbers (options, 311, 324, 325, 501, 702).
    [[nodiscard]] TableBlock* Table(int block);
    [[nodiscard]] const TableBlock* Table(int block) const;

    /// The values of an option block, one a row; null if the number is none.
    [[nodiscard]] std::vector<std::string>* Options(int block);
    [[nodiscard]] const std::vector<std::string>* Options(int block) const;
    /// Value of a row (from 0) of an option block; empty if there is none.
    [[nodiscard]] std::string_view Option(int block, std::size_t row) const;
    void SetOption(int block, std::size_t row, std::string_view value);

    /// The project's type: row 2 of block 301.
    [[nodiscard]] std::string_view Type() const { return Option(301, 2); }

    /// The lists of 501 or 702; null for other numbers.
    [[nodiscard]] NameLists* Names(int block);
    [[nodiscard]] const NameLists* Names(int block) const;

    HGirder hGirder;                       ///< 311
    std::vector<CrossRibRecord> crossRibs; ///< 324
    std::vector<LRibRecord> lRibs;         ///< 325
    std::string versionWord;               ///< format version, written with block 315
    std::vector<std::string> unknownLines; ///< sections this version does not know

    GridNames gridNames;                    ///< from the *.abd file; swayNames grows by the names of 501
    std::size_t swayNameCount = 0;          ///< how many of gridNames.swayNames the *.abd file gave
    std::vector<std::string> stringerNames; ///< from 640

    /// Bytes held by the tables, reserve included.
    [[nodiscard]] std::size_t MemoryUsed() const;
    /// Gives back what growing has reserved.
    void Shrink();

    /// Same project: what a file stores, without names and session.
    [[nodiscard]] bool SameProject(const CSbdData& other) const;

private:
    std::vector<TableBlock> tables_;                // one a catalogue row that has columns
    std::vector<std::vector<std::string>> options_; // one an option block, in the order of OptionBlocks()
    NameLists names501_;
    NameLists names702_;
};

} // namespace sbd
