// Editing of a panel, one command at a time: cells, clipboard, rows.
#pragma once

#include "panelmodel/panel_model.h"

#include <optional>
#include <span>
#include <vector>

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

/// A text for a cell.
struct CellEntry {
    CellPlace place;
    std::string text;
    friend bool operator==(const CellEntry&, const CellEntry&) = default;
};

/// A cell of a clipboard text that holds this byte leaves its place in the grid as it is (the control character
/// "substitute", which no cell holds).
inline constexpr char kKeepCell = '\x1A';

/// What one paste or fill did: the cells that its texts cover, how many of them were kept, the first of those; how many
/// cells of numbers did not take their text, the first of those with what it did not take; how many take no text at all,
/// and for how many texts there is no cell.
struct PasteOutcome {
    CellEffect effect = CellEffect::None;
    CellRange range;
    int kept = 0;
    CellPlace firstKept;
    int notNumbers = 0;
    CellPlace firstNotNumber;
    std::string notNumber;
    int locked = 0;
    CellPlace firstLocked;
    int beyond = 0;
    int put = 0; ///< cells that became another text
};

/// How a range goes on in the cells beside it.
enum class FillOn {
    Repeat,
    Count, ///< numbers and names with a number at the end count on
};

/// What kind of command it was.
enum class EditCommand {
    Cell,
    Clear,
    Paste,
    Fill,
    Replace,
    Import,
    MoveUp,
    MoveDown,
    InsertRow,
    DeleteRow,
    DuplicateRow
};

/// What the user did: the first cell that it concerned, or the row (column 0).
struct EditDone {
    EditCommand command = EditCommand::Cell;
    CellPlace place;
    int rowAfter = 0; ///< where a moved row stands now; 0: no row was moved
};

/// `text` as a cell can hold it: a row of the file is one line, so control characters become blanks.
[[nodiscard]] std::string CellLine(std::string_view text);

/// Carries out what the user does in a panel, and tells what it was (`Done`): one step of the project's history, however many
/// cells it touched.
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
    /// The same into a selected range: a text that fits into it several times without a rest is put there as often, one
    /// cell into every cell; any other is put in once from its first cell on.
    PasteOutcome PasteOver(const CellRange& range, std::string_view text);

    /// Puts a text into each of the cells, as a paste does, and adds the rows that are missing for them. A cell that
    /// takes its text only when another one has its own gets it.
    PasteOutcome PutCells(EditCommand command, std::span<const CellEntry> cells);

    // Fills. A range that goes beyond the rows of the table leaves them alone: automatic rows and, behind a whole column,
    // the rows below the last used one. A cell that takes no text is no source.
    /// The first row of the range into its other rows; a single row takes from the row above.
    PasteOutcome FillDown(const CellRange& range);
    /// The first column of the range into its other columns; a single column takes from the column on the left.
    PasteOutcome FillRight(const CellRange& range);
    /// One text into every cell.
    PasteOutcome FillWith(const CellRange& range, std::string_view text);
    /// The texts of `from` into the other cells of `to`, which holds it and is larger in one direction.
    PasteOutcome FillFrom(const CellRange& from, const CellRange& to, FillOn how);

    /// Rows that are out of sight (by row; those behind the end are seen): no command touches them.
    void Hide(std::vector<char> hidden) { hidden_ = std::move(hidden); }
    [[nodiscard]] bool IsHidden(int row) const;
    [[nodiscard]] bool HidesRows() const { return !hidden_.empty(); }

    /// The last command that changed a cell or a row, until it is taken; nothing if there was none.
    [[nodiscard]] const std::optional<EditDone>& Done() const { return done_; }
    void ForgetDone() { done_.reset(); }

    // Row commands, for `rows` rows from `row` on; false if a row does not allow it. While rows are out of sight, none
    // can be moved or put in.
    bool MoveUp(int row, int rows = 1);
    bool MoveDown(int row, int rows = 1);
    /// Blank rows from the end of the grid; false if there are not as many.
    bool InsertRow(int row, int rows = 1);
    bool DeleteRows(int row, int rows = 1);
    /// Puts copies of the rows behind them.
    bool DuplicateRows(int row, int rows = 1);

private:
    struct Step {
        int changes = 0; // of cells and rows
        CellPlace place; // of the first; column 0: a row
        int rowAfter = 0;
        int addedRows = 0; // at the end of the grid
    };

    void PutPasted(Step& step, CellPlace place, const std::string& text, PasteOutcome& outcome);
    void PutFilled(Step& step, CellPlace from, CellPlace to, PasteOutcome& outcome);
    PasteOutcome KeepFill(EditCommand command, const Step& step, PasteOutcome outcome);
    void FillLine(Step& step, const std::vector<CellPlace>& line, std::size_t first, std::size_t last, FillOn how,
                  PasteOutcome& outcome);
    [[nodiscard]] CellRange RowsOfTable(CellRange range) const;
    [[nodiscard]] int SeenRowFrom(int row, int step) const;
    [[nodiscard]] int BlankRowBehind(int row) const;
    [[nodiscard]] bool TakeBlankRows(Step& step, int row, int rows);
    void MoveInStep(Step& step, int from, int to);
    CellEffect SetInStep(Step& step, int row, int column, std::string_view text);
    void Keep(EditCommand command, const Step& step);
    bool Move(EditCommand command, int from, int to, int rowAfter, int place);

    CPanelModel& model_;
    std::vector<char> hidden_; // by row - 1; empty: none
    std::optional<EditDone> done_;
};

} // namespace sbd
