// Editing of a panel in steps that can be taken back: cells, clipboard, rows.
#pragma once

#include "panelmodel/panel_model.h"

#include <deque>

namespace sbd {

/// A rectangle of cells, bounds included.
struct CellRange {
    int top = 0;
    int left = 0;
    int bottom = 0;
    int right = 0;
    friend bool operator==(const CellRange&, const CellRange&) = default;
};

/// A cell of the grid.
struct CellPlace {
    int row = 0;
    int column = 0;
    friend bool operator==(const CellPlace&, const CellPlace&) = default;
};

/// What one undo did: where, and what to show again.
struct UndoOutcome {
    CellPlace place;
    CellEffect effect = CellEffect::None;
};

/// Carries out what the user does in a panel. Keeps the last 1024 steps of the panel's life; a step is what one
/// command did, however many cells it touched.
class CPanelEditor {
public:
    explicit CPanelEditor(CPanelModel& model);

    CellEffect SetCell(int row, int column, std::string_view text);
    /// Empties the cells that take text.
    CellEffect Clear(const CellRange& range);
    /// The texts of the range: a tab between columns, a line feed between rows.
    [[nodiscard]] std::string Copy(const CellRange& range) const;
    /// Puts lines and tab-divided cells from (row, column) on to the right and downward. Cells that do not take text
    /// are passed over; rows are added where the block allows it.
    CellEffect Paste(int row, int column, std::string_view text);
    /// The cells that `text` would fill from (row, column) on.
    [[nodiscard]] CellRange PasteRange(int row, int column, std::string_view text) const;

    [[nodiscard]] bool CanUndo() const { return !steps_.empty(); }
    std::optional<UndoOutcome> Undo();

    // Row commands; false if the row does not allow it.
    bool MoveUp(int row);
    bool MoveDown(int row);
    bool InsertRow(int row);

private:
    struct CellBefore {
        CellPlace place;
        std::string text;
    };
    struct Step {
        std::vector<CellBefore> cells;
        int movedFrom = 0; // a moved row; 0: none
        int movedTo = 0;
    };

    CellEffect SetInStep(Step& step, int row, int column, std::string_view text);
    void Keep(Step step);
    bool Move(int from, int to);

    CPanelModel& model_;
    std::deque<Step> steps_;
};

} // namespace sbd
