// The row commands of CPanelEditor.
#include "panelmodel/panel_editor.h"

#include <algorithm>
#include <utility>

namespace sbd {

void CPanelEditor::MoveInStep(Step& step, int from, int to)
{
    model_.MoveRow(from, to);
    ++step.changes;
}

/// `place`: the first row that the user moved, where it was.
bool CPanelEditor::Move(EditCommand command, int from, int to, int rowAfter, int place)
{
    Step step;
    MoveInStep(step, from, to);
    step.place = {place, 0};
    step.rowAfter = rowAfter;
    Keep(command, step);
    return true;
}

/// Rows go up as the row above them goes down behind the last of them.
bool CPanelEditor::MoveUp(int row, int rows)
{
    if (HidesRows() || !model_.CanMoveUp(row) || row + rows - 1 > model_.GridRows())
        return false;
    return rows == 1 ? Move(EditCommand::MoveUp, row, row - 1, row - 1, row)
                     : Move(EditCommand::MoveUp, row - 1, row + rows - 1, row - 1, row);
}

bool CPanelEditor::MoveDown(int row, int rows)
{
    if (HidesRows() || !model_.CanMoveDown(row) || row + rows > model_.GridRows())
        return false;
    return rows == 1 ? Move(EditCommand::MoveDown, row, row + 1, row + 1, row)
                     : Move(EditCommand::MoveDown, row + rows, row, row + 1, row);
}

/// The last blank row behind `row`; `row` itself if there is none.
int CPanelEditor::BlankRowBehind(int row) const
{
    int blank = model_.GridRows();
    while (blank > row && !model_.IsBlankRow(blank))
        --blank;
    return blank;
}

/// Takes blank rows from behind `row` and puts them there. If there are not enough everything is as before.
bool CPanelEditor::TakeBlankRows(Step& step, int row, int rows)
{
    std::vector<int> from; // where they stood, in the order in which they were taken
    for (int taken = 0; taken < rows; ++taken) {
        const int blank = BlankRowBehind(row + taken);
        if (blank == row + taken) {
            for (; !from.empty(); from.pop_back())
                model_.MoveRow(row, from.back());
            return false;
        }
        MoveInStep(step, blank, row);
        from.push_back(blank);
    }
    return true;
}

bool CPanelEditor::InsertRow(int row, int rows)
{
    Step step;
    if (HidesRows() || !model_.CanInsert(row) || !TakeBlankRows(step, row, rows))
        return false;
    step.place = {row, 0};
    Keep(EditCommand::InsertRow, step);
    return true;
}

bool CPanelEditor::DeleteRows(int row, int rows)
{
    const int first = std::max(row, model_.FixedRows() + 1);
    const int last = std::min(row + rows - 1, model_.GridRows());
    if (!model_.MovesRows() || first > last)
        return false;
    Step step;
    for (int gone = last; gone >= first; --gone) {
        if (IsHidden(gone))
            continue;
        ++step.changes;
        step.place = {gone, 0};
        model_.RemoveRow(gone);
        if (gone <= std::ssize(hidden_)) { // what is out of sight stays so
            hidden_.erase(hidden_.begin() + gone - 1);
            hidden_.push_back(1);
        }
    }
    const bool deleted = step.changes > 0;
    Keep(EditCommand::DeleteRow, step);
    return deleted;
}

bool CPanelEditor::DuplicateRows(int row, int rows)
{
    const int first = std::max(row, model_.FixedRows() + 1);
    const int last = std::min(row + rows - 1, model_.GridRows());
    if (HidesRows() || !model_.MovesRows() || first > last)
        return false;
    const int count = last - first + 1;
    Step step;
    int blanks = 0;
    while (blanks < count && last + blanks < model_.GridRows() && model_.IsBlankRow(model_.GridRows() - blanks))
        ++blanks;
    if (blanks < count && model_.AddRows(count - blanks))
        step.addedRows = count - blanks;
    for (int i = 0; i < count; ++i)
        if (last + 1 + i < model_.GridRows())
            MoveInStep(step, model_.GridRows(), last + 1 + i);
    for (int i = 0; i < count; ++i)
        for (int pass = 0; pass < 2; ++pass) // a cell may take its text only when one behind it has its own
            for (int column = 1; column < model_.ColumnCount(); ++column)
                SetInStep(step, last + 1 + i, column, model_.Text(first + i, column));
    step.place = {last + 1, 0};
    Keep(EditCommand::DuplicateRow, step);
    return true;
}

} // namespace sbd
