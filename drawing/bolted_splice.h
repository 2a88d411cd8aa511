// The bolts of a splice from the measures of its rows: those of a main girder and those of a cross beam's end.
#pragma once

#include "drawing/bridge_drawing.h"
#include "drawing/table_rows.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

/// A row of a block that speaks of a part of a splice.
struct SpliceRow {
    const CTableRows* rows = nullptr;
    std::size_t row = 0;

    [[nodiscard]] std::string_view Cell(std::size_t column) const { return rows->Cell(row, column); }
    [[nodiscard]] SourceCell Place(std::size_t column) const { return rows->Place(row, column); }
    /// A length of 0 or more; what is written with a minus stands for one that was set by hand.
    [[nodiscard]] std::optional<double> Size(std::size_t column) const;
};

/// The bolts of a flange. Columns run along the girder and are counted from the splice's middle, rows from the web.
struct FlangeBoltCells {
    SpliceRow spacings;
    std::size_t lc = 0; ///< between the columns on both sides of the middle
    std::size_t ld = 0;
    std::size_t le = 0;
    std::size_t bc = 0; ///< between the rows on both sides of the web
    std::size_t be = 0;
    std::optional<std::size_t> bd; ///< between rows; without a column rows share what is left of the width
    SpliceRow numbers;
    std::size_t count = 0; ///< of one side of the splice
    std::size_t form = 0;
    std::size_t kind = 0; ///< "M22(S10T)"
    double length = 0;    ///< of the splice plate
    double width = 0;
    std::string_view fits; ///< UTF-8: the name of the count
    double labelsAt = 0;   ///< x
};

/// The bolts of one side of a flange splice, as distances.
struct FlangeBolts {
    std::vector<double> columns;        ///< from the middle
    std::vector<double> rows;           ///< from the web
    std::vector<std::vector<bool>> has; ///< by column and row
    double radius = 0;
};

/// Bolts whose number follows from the spacings and is the one that the row tells; else nothing, and omitted.
[[nodiscard]] std::optional<FlangeBolts> FlangeBoltsOf(CDrawingBuild& build, const FlangeBoltCells& cells);

/// Draws them around a middle with their chain and their measures; `title` is UTF-8.
void DrawFlangeBolts(CDrawingBuild& build, const FlangeBoltCells& cells, const FlangeBolts& bolts, double middle,
                     std::string_view title);

/// The bolts of a web; the spacings stand in the same columns in blocks 344 and 560.
struct WebBoltCells {
    SpliceRow spacings;
    SpliceRow numbers;
    std::size_t kind = 0;
    std::size_t columns = 0;
    bool columnsOfBothSides = false;
    std::size_t parts = 0; ///< equal parts in the middle
    double top = 0;        ///< levels of the web's edges
    double bottom = 0;
    double labelsAt = 0;                 ///< x
    std::optional<std::size_t> reckoned; ///< column of a cell like "17@105"
    std::optional<SpliceRow> plate;
    std::size_t plateWidth = 0;
    std::size_t plateLength = 0; ///< along the height
};

void DrawWebBolts(CDrawingBuild& build, const WebBoltCells& cells);

/// Half of the diameter that "M22(S10T)" names; 0, and omitted, if it names none.
[[nodiscard]] double BoltRadius(CDrawingBuild& build, const SpliceRow& row, std::size_t column);

/// Leaves out the inner splice plates of a row that has some: their thickness is told, their place across the flange is
/// not. `thick`: the column of their thickness.
void OmitInnerPlates(CDrawingBuild& build, const SpliceRow& plate, std::size_t thick);

/// How many steps a length has; nothing if they do not come out even, or are too many.
[[nodiscard]] std::optional<std::size_t> StepsIn(double length, double step);

/// A chain through points; what is between two of them comes from the cell of the first.
void AddChain(CDrawingBuild& build, std::string_view title, const std::vector<double>& xs,
              const std::vector<SourceCell>& sources);

} // namespace sbd
