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

/// What one undo did: where (column 0: in none of them), and what to show again.
struct UndoOutcome {
    CellPlace place;
    CellEffect effect = CellEffect::None;
};

/// A cell of a clipboard text that holds this byte leaves its place in the grid as it is (the control character
/// "substitute", which no cell holds).
inline constexpr char kKeepCell = '\x1A';

/// What one paste did: the cells that its text covers, how many of them were kept, the first of those; how many cells of
/// numbers did not take their text, the first of those with what it did not take.
struct PasteOutcome {
    CellEffect effect = CellEffect::None;
    CellRange range;
    int kept = 0;
    CellPlace firstKept;
    int notNumbers = 0;
    CellPlace firstNotNumber;
    std::string notNumber;
};

/// What kind of command it was.
enum class EditCommand { Cell, Clear, Paste, MoveUp, MoveDown, InsertRow };

/// What the user did: the first cell that it concerned, or the row (column 0).
struct EditDone {
    EditCommand command = EditCommand::Cell;
    CellPlace place;
};

/// Carries out what the user does in a panel. Keeps the last 1024 steps of the panel's life; a step is what one
/// command did, however many cells it touched.
class CPanelEditor {
public:
    explicit CPanelEditor(CPanelModel& model);

    /// Control characters, line breaks among them, become blanks: a row of the file is one line.
    CellEffect SetCell(int row, int column, std::string_view text);
    /// Empties the cells that take text.
    CellEffect Clear(const CellRange& range);
    /// The texts of the range: a tab between columns, a line feed between rows.
    [[nodiscard]] std::string Copy(const CellRange& range) const;
    /// Puts lines and tab-divided cells from (row, column) on to the right and downward. Cells that do not take text
    /// are passed over, as are those for which `text` holds kKeepCell; rows are added where the block allows it.
    PasteOutcome Paste(int row, int column, std::string_view text);

    [[nodiscard]] bool CanUndo() const { return !steps_.empty(); }
    std::optional<UndoOutcome> Undo();

    /// The last command that changed a cell or a row, until it is taken; nothing if there was none.
    [[nodiscard]] const std::optional<EditDone>& Done() const { return done_; }
    void ForgetDone() { done_.reset(); }

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
        bool inserted = false; // the moved row was a blank one
        int addedRows = 0;     // at the end of the grid
    };

    void PutPasted(Step& step, CellPlace place, const std::string& text, PasteOutcome& outcome);
    CellEffect SetInStep(Step& step, int row, int column, std::string_view text);
    void Keep(EditCommand command, Step step);
    bool Move(EditCommand command, int from, int to);

    CPanelModel& model_;
    std::deque<Step> steps_;
    std::optional<EditDone> done_;
};

} // namespace sbd
