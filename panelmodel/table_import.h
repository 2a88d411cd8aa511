// Tables of text files into the grid of a block, and out of it.
#pragma once

#include "panelmodel/panel_editor.h"
#include "panelmodel/table_text.h"

namespace sbd {

/// Where the columns and rows of a table go.
struct ImportPlan {
    std::vector<int> targets; ///< by column of the table: the column of the grid; 0: left out
    bool hasHeads = false;    ///< its first row is no data row
    int row = 1;              ///< the row of the grid that the first data row goes to
};

/// The columns by their heads, if the first row of the table has those of the grid; else one after the other.
[[nodiscard]] ImportPlan ProposedImport(const CPanelModel& panel, const TextTable& table);

/// The row behind the last one that holds anything.
[[nodiscard]] int AppendRowOf(const CPanelModel& panel);

/// The texts of the table for the cells of the grid. A row that is shorter than others leaves the cells behind it alone.
[[nodiscard]] std::vector<CellEntry> ImportedCells(const TextTable& table, const ImportPlan& plan);

/// What of a block is written to a text file.
struct ExportPlan {
    bool heads = true;
    bool fixedRows = false; ///< automatic rows too
    TextCode code = TextCode::Cp932;
};

/// The rows that hold anything, as CSV.
[[nodiscard]] std::string ExportedText(const CPanelModel& panel, const ExportPlan& plan);

} // namespace sbd
