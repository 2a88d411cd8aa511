// The table of block 253: displacements, forces or reactions of one load case, or the largest and the smallest of
// several. It holds which names are taken and the extremes; the text of a cell is made when it is asked for.
#pragma once

#include "results/result_envelope.h"
#include "results/result_selection.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

/// Grid rows of the extremes and of the first value; row 0 is the head.
inline constexpr std::size_t kMaxRow = 1;
inline constexpr std::size_t kMinRow = 2;
inline constexpr std::size_t kFirstValueRow = 3;

/// Grid columns of the row number, the name and the first value.
inline constexpr std::size_t kNumberColumn = 0;
inline constexpr std::size_t kNameColumn = 1;
inline constexpr std::size_t kFirstValueColumn = 2;

// Colours are 0x00BBGGRR.
inline constexpr std::uint32_t kMaxColor = 16711935;           ///< magenta
inline constexpr std::uint32_t kMinColor = 16711680;           ///< blue
inline constexpr std::uint32_t kExtremesBackground = 11842740; ///< grey

/// What a column has of a component.
enum class ResultPart { Value, Greatest, GreatestCase, Least, LeastCase };

/// One column of values, or of the load cases that decide.
struct ResultColumn {
    std::string head; ///< CP932
    int width = 0;
    std::size_t component = 0;
    std::size_t place = 0; ///< of the value among those of its item and load case
    double factor = 1;
    ResultPart part = ResultPart::Value;

    [[nodiscard]] bool IsCase() const { return part == ResultPart::GreatestCase || part == ResultPart::LeastCase; }
};

/// The largest and the smallest value of a column and where they stand: rows from 0, the first of equal ones. No row if
/// no value is a number above -1e100 and below 1e100.
struct ColumnExtremes {
    std::optional<std::size_t> maxRow;
    std::optional<std::size_t> minRow;
    double max = -1e100;
    double min = 1e100;
};

/// The head of the column that rules the order of the rows, in CP932; empty: none does.
[[nodiscard]] std::string SortHead(const ResultSelection& selection);

/// The grid column with this head, for `sortColumn`; 0: none has it.
[[nodiscard]] std::size_t SortColumnOf(const ResultSelection& selection, std::string_view head);

/// The taken names count as rows from 0, the columns of values as columns from 0. A table without its load case is
/// empty. The results must outlive the table. Where they have become other ones, the cells of rows that are not there
/// any more are empty; Name and Value must not be asked for then.
class CResultTable {
public:
    CResultTable() = default;
    CResultTable(const AnalysisResults& results, const ResultSelection& selection);

    /// What is wrong with the files of the results, in one line of CP932; empty: nothing.
    [[nodiscard]] std::string FaultLine() const;

    [[nodiscard]] ResultKind Kind() const { return kind_; }
    /// The load case, the first one of an envelope. Nothing: there is none, and the table has neither columns nor rows.
    [[nodiscard]] std::optional<std::size_t> LoadIndex() const { return load_; }
    [[nodiscard]] const std::vector<ResultColumn>& Columns() const { return columns_; }
    [[nodiscard]] std::size_t RowCount() const { return items_.size(); }
    [[nodiscard]] std::string_view Name(std::size_t row) const;
    /// In a column of load cases the place of the load case, from 0; what is not there is no number.
    [[nodiscard]] double Value(std::size_t row, std::size_t column) const;
    [[nodiscard]] const ColumnExtremes& Extremes(std::size_t column) const { return extremes_[column]; }
    /// Values of the rows that are no numbers. They stand in the table as texts and are no extremes.
    [[nodiscard]] std::size_t NotNumbers() const { return notNumbers_; }

    // The same as a grid with its head row, its rows of extremes and its margin.

    [[nodiscard]] std::size_t GridRowCount() const;
    [[nodiscard]] std::size_t GridColumnCount() const;
    [[nodiscard]] int GridColumnWidth(std::size_t gridColumn) const;
    /// Text of a cell in CP932, blanks included; empty outside of what is filled.
    [[nodiscard]] std::string CellText(std::size_t gridRow, std::size_t gridColumn) const;
    /// True for names and load cases.
    [[nodiscard]] bool HasWords(std::size_t gridColumn) const;
    /// The unit of a column of values in CP932; empty for the others.
    [[nodiscard]] std::string Unit(std::size_t gridColumn) const;
    /// Nothing: the grid's own colour.
    [[nodiscard]] std::optional<std::uint32_t> CellColor(std::size_t gridRow, std::size_t gridColumn) const;
    [[nodiscard]] std::optional<std::uint32_t> CellBackground(std::size_t gridRow, std::size_t gridColumn) const;

private:
    void TakeNames(const ResultSelection& selection);
    void DropSmallReactions();
    void Filter(std::string_view text);
    /// Stable; what is no number stands last.
    void Sort(std::size_t gridColumn, bool descending);
    void FindExtremes();
    /// Items that have all their values of the columns in the cube.
    [[nodiscard]] std::size_t ItemsThere() const;
    /// Of the load case; `item` must be below ItemsThere().
    [[nodiscard]] const double* ValuesOf(std::size_t item) const;
    void FindEnvelope();
    [[nodiscard]] double EnvelopeValueOf(std::uint32_t item, const ResultColumn& column) const;
    void FindEnvelopeExtremes();
    [[nodiscard]] std::string CellOf(const ResultColumn& column, double value) const;
    [[nodiscard]] std::string HeadText(std::size_t gridColumn) const;
    [[nodiscard]] std::string ValueText(double value) const;
    [[nodiscard]] std::string ExtremeText(std::size_t gridRow, std::size_t gridColumn) const;
    /// True for the extremes and the taken names with their values.
    [[nodiscard]] bool IsFilled(std::size_t gridRow, std::size_t gridColumn) const;

    const AnalysisResults* results_ = nullptr;
    ResultKind kind_ = ResultKind::Displacement;
    std::optional<std::size_t> load_;
    // The load cases of the model rule the places in the cube, whatever the cube's own sizes say.
    std::uint64_t valuesOfItem_ = 1; ///< of all load cases
    std::uint64_t valuesBefore_ = 0; ///< those of the load cases ahead
    std::uint64_t valuesBehind_ = 0; ///< that the columns need, from the first of the load case on
    std::vector<ResultColumn> columns_;
    std::vector<std::uint32_t> items_;      ///< the item of each row
    std::vector<std::size_t> cases_;        ///< of the envelope; none: the values of the load case
    std::vector<EnvelopeValue> envelope_;   ///< all values of the items, one item behind the other
    std::vector<std::uint32_t> envelopeOf_; ///< the place of each item in it
    std::vector<ColumnExtremes> extremes_;
    std::size_t notNumbers_ = 0;
};

} // namespace sbd
