#include "panelmodel/panel_editor.h"

#include <algorithm>
#include <utility>

namespace sbd {

namespace {

constexpr std::size_t kMostSteps = 1024;

} // namespace

std::string CellLine(std::string_view text)
{
    std::string line(text);
    std::ranges::replace_if(
        line, [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == '\x7F'; }, ' ');
    return line;
}

CPanelEditor::CPanelEditor(CPanelModel& model) : model_(model) {}

CellEffect CPanelEditor::SetInStep(Step& step, int row, int column, std::string_view text)
{
    std::string before = model_.Text(row, column);
    const CellEffect effect = model_.SetCell(row, column, text);
    if (effect == CellEffect::None)
        return effect;
    if (step.changes.empty())
        step.place = {row, column};
    step.changes.emplace_back(CellBefore{{row, column}, std::move(before)});
    return effect;
}

void CPanelEditor::Keep(EditCommand command, Step step)
{
    if (step.changes.empty() && step.addedRows == 0)
        return;
    done_ = {command, step.place, step.rowAfter};
    steps_.push_back(std::move(step));
    if (steps_.size() > kMostSteps)
        steps_.pop_front();
}

CellEffect CPanelEditor::SetCell(int row, int column, std::string_view text)
{
    Step step;
    const CellEffect effect = SetInStep(step, row, column, CellLine(text));
    Keep(EditCommand::Cell, std::move(step));
    return effect;
}

CellEffect CPanelEditor::Clear(const CellRange& range)
{
    Step step;
    CellEffect effect = CellEffect::None;
    for (int row = range.top; row <= range.bottom; ++row)
        for (int column = range.left; column <= range.right && !IsHidden(row); ++column)
            effect = std::max(effect, SetInStep(step, row, column, {}));
    const bool several = step.changes.size() > 1;
    Keep(several ? EditCommand::Clear : EditCommand::Cell, std::move(step));
    return several ? CellEffect::Panel : effect;
}

std::string CPanelEditor::Copy(const CellRange& range) const
{
    std::string text;
    bool first = true;
    for (int row = range.top; row <= range.bottom; ++row) {
        if (IsHidden(row))
            continue;
        if (!std::exchange(first, false))
            text += '\n';
        for (int column = range.left; column <= range.right; ++column) {
            if (column > range.left)
                text += '\t';
            text += model_.Text(row, column);
        }
    }
    return text;
}

std::optional<UndoOutcome> CPanelEditor::Undo()
{
    if (steps_.empty())
        return std::nullopt;
    const Step step = std::move(steps_.back());
    steps_.pop_back();
    UndoOutcome outcome;
    for (auto change = step.changes.rbegin(); change != step.changes.rend(); ++change)
        TakeBack(*change, outcome);
    outcome.place = step.place;
    model_.TakeBackRows(step.addedRows);
    if (step.changes.size() > 1 || step.addedRows > 0)
        outcome.effect = CellEffect::Panel;
    return outcome;
}

void CPanelEditor::TakeBack(const Change& change, UndoOutcome& outcome)
{
    if (const auto* cell = std::get_if<CellBefore>(&change)) {
        outcome.effect = std::max(outcome.effect, model_.SetCell(cell->place.row, cell->place.column, cell->text));
        return;
    }
    outcome.effect = CellEffect::Panel;
    if (const auto* moved = std::get_if<MovedRow>(&change)) {
        model_.MoveRow(moved->to, moved->from);
        return;
    }
    const RemovedRow& removed = std::get<RemovedRow>(change);
    model_.MoveRow(model_.GridRows(), removed.row);
    for (int column = 1; column < model_.ColumnCount(); ++column)
        model_.SetCell(removed.row, column, removed.cells[static_cast<std::size_t>(column) - 1]);
}

} // namespace sbd
