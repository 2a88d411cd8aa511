#include "panelmodel/panel_editor.h"

#include "panelmodel/clipboard_text.h"

#include <algorithm>
#include <utility>

namespace sbd {

namespace {

constexpr std::size_t kMostSteps = 1024;

/// A row of the file is one line: control characters become blanks. No second byte of a character is one.
std::string OneLine(std::string_view text)
{
    std::string line(text);
    std::ranges::replace_if(
        line, [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == '\x7F'; }, ' ');
    return line;
}

} // namespace

CPanelEditor::CPanelEditor(CPanelModel& model) : model_(model) {}

CellEffect CPanelEditor::SetInStep(Step& step, int row, int column, std::string_view text)
{
    std::string before = model_.Text(row, column);
    const CellEffect effect = model_.SetCell(row, column, text);
    if (effect != CellEffect::None)
        step.cells.push_back({{row, column}, std::move(before)});
    return effect;
}

void CPanelEditor::Keep(EditCommand command, Step step)
{
    if (step.cells.empty() && step.movedFrom == 0 && step.addedRows == 0)
        return;
    const int row = step.inserted ? step.movedTo : step.movedFrom; // the row that moved, where it was
    done_ = {command, step.cells.empty() ? CellPlace{row, 0} : step.cells.front().place};
    steps_.push_back(std::move(step));
    if (steps_.size() > kMostSteps)
        steps_.pop_front();
}

CellEffect CPanelEditor::SetCell(int row, int column, std::string_view text)
{
    Step step;
    const CellEffect effect = SetInStep(step, row, column, OneLine(text));
    Keep(EditCommand::Cell, std::move(step));
    return effect;
}

CellEffect CPanelEditor::Clear(const CellRange& range)
{
    Step step;
    CellEffect effect = CellEffect::None;
    for (int row = range.top; row <= range.bottom; ++row)
        for (int column = range.left; column <= range.right; ++column)
            effect = std::max(effect, SetInStep(step, row, column, {}));
    const bool several = step.cells.size() > 1;
    Keep(several ? EditCommand::Clear : EditCommand::Cell, std::move(step));
    return several ? CellEffect::Panel : effect;
}

std::string CPanelEditor::Copy(const CellRange& range) const
{
    std::string text;
    for (int row = range.top; row <= range.bottom; ++row) {
        for (int column = range.left; column <= range.right; ++column) {
            if (column > range.left)
                text += '\t';
            text += model_.Text(row, column);
        }
        if (row < range.bottom)
            text += '\n';
    }
    return text;
}

void CPanelEditor::PutPasted(Step& step, CellPlace place, const std::string& text, PasteOutcome& outcome)
{
    if (!model_.IsEditable(place.row, place.column))
        return;
    if (text.find(kKeepCell) != std::string::npos) {
        if (outcome.kept++ == 0)
            outcome.firstKept = place;
        return;
    }
    const std::string line = OneLine(text);
    if (const auto refusal = model_.WhyNot(place.row, place.column, line)) {
        if (outcome.notNumbers++ == 0) {
            outcome.firstNotNumber = place;
            outcome.notNumber = refusal->part;
        }
        return;
    }
    SetInStep(step, place.row, place.column, line);
}

PasteOutcome CPanelEditor::Paste(int row, int column, std::string_view text)
{
    CClipboardReader reader(text);
    PasteOutcome outcome;
    outcome.range = {row, column, row, column};
    const int rowsBefore = model_.GridRows();
    const int missingRows = row + reader.FilledLines() - 1 - rowsBefore;
    const bool grown = missingRows > 0 && model_.AddRows(missingRows);
    Step step;
    while (const std::optional<ClipboardCell> cell = reader.Next()) {
        const CellPlace place{row + cell->line, column + cell->column};
        if (place.row > model_.GridRows())
            break;
        outcome.range.bottom = std::max(outcome.range.bottom, place.row);
        outcome.range.right = std::max(outcome.range.right, std::min(place.column, model_.ColumnCount() - 1));
        PutPasted(step, place, cell->text, outcome);
    }
    if (!step.cells.empty() || grown)
        outcome.effect = CellEffect::Panel;
    step.addedRows = model_.GridRows() - rowsBefore;
    if (step.cells.empty()) { // nothing was put into them
        model_.TakeBackRows(std::exchange(step.addedRows, 0));
        outcome.effect = CellEffect::None;
    }
    Keep(EditCommand::Paste, std::move(step));
    return outcome;
}

std::optional<UndoOutcome> CPanelEditor::Undo()
{
    if (steps_.empty())
        return std::nullopt;
    const Step step = std::move(steps_.back());
    steps_.pop_back();
    UndoOutcome outcome;
    if (step.movedFrom != 0) {
        model_.MoveRow(step.movedTo, step.movedFrom);
        return UndoOutcome{{step.inserted ? step.movedTo : step.movedFrom, 0}, CellEffect::Panel};
    }
    for (auto cell = step.cells.rbegin(); cell != step.cells.rend(); ++cell) {
        outcome.effect = std::max(outcome.effect, model_.SetCell(cell->place.row, cell->place.column, cell->text));
        outcome.place = cell->place;
    }
    model_.TakeBackRows(step.addedRows);
    if (step.cells.size() > 1 || step.addedRows > 0)
        outcome.effect = CellEffect::Panel;
    return outcome;
}

bool CPanelEditor::Move(EditCommand command, int from, int to)
{
    model_.MoveRow(from, to);
    Step step;
    step.movedFrom = from;
    step.movedTo = to;
    step.inserted = command == EditCommand::InsertRow;
    Keep(command, std::move(step));
    return true;
}

bool CPanelEditor::MoveUp(int row)
{
    return model_.CanMoveUp(row) && Move(EditCommand::MoveUp, row, row - 1);
}

bool CPanelEditor::MoveDown(int row)
{
    return model_.CanMoveDown(row) && Move(EditCommand::MoveDown, row, row + 1);
}

bool CPanelEditor::InsertRow(int row)
{
    if (!model_.CanInsert(row))
        return false;
    int blank = model_.GridRows();
    while (blank > row && !model_.IsBlankRow(blank))
        --blank;
    return blank > row && Move(EditCommand::InsertRow, blank, row);
}

} // namespace sbd
