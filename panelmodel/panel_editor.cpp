#include "panelmodel/panel_editor.h"

#include <algorithm>

namespace sbd {

namespace {

constexpr std::size_t kMostSteps = 1024;

/// Lines of a clipboard text; one line end at its end is no line of its own.
std::vector<std::string_view> Lines(std::string_view text)
{
    if (text.ends_with('\n'))
        text.remove_suffix(1);
    std::vector<std::string_view> lines;
    while (true) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        lines.push_back(line);
        if (end == std::string_view::npos)
            return lines;
        text.remove_prefix(end + 1);
    }
}

std::vector<std::string_view> Cells(std::string_view line)
{
    std::vector<std::string_view> cells;
    while (true) {
        const std::size_t end = line.find('\t');
        cells.push_back(line.substr(0, end));
        if (end == std::string_view::npos)
            return cells;
        line.remove_prefix(end + 1);
    }
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

void CPanelEditor::Keep(Step step)
{
    if (step.cells.empty() && step.movedFrom == 0)
        return;
    steps_.push_back(std::move(step));
    if (steps_.size() > kMostSteps)
        steps_.pop_front();
}

CellEffect CPanelEditor::SetCell(int row, int column, std::string_view text)
{
    Step step;
    const CellEffect effect = SetInStep(step, row, column, text);
    Keep(std::move(step));
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
    Keep(std::move(step));
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

CellEffect CPanelEditor::Paste(int row, int column, std::string_view text)
{
    const std::vector<std::string_view> lines = Lines(text);
    const int lastRow = row + static_cast<int>(lines.size()) - 1;
    bool grown = false;
    if (lastRow > model_.GridRows())
        grown = model_.AddRows(lastRow - model_.GridRows());
    Step step;
    for (std::size_t line = 0; line < lines.size(); ++line) {
        int target = column;
        for (const std::string_view cell : Cells(lines[line])) {
            std::string clean(cell);
            std::ranges::replace(clean, '\r', ' ');
            SetInStep(step, row + static_cast<int>(line), target++, clean);
        }
    }
    const bool any = !step.cells.empty() || grown;
    Keep(std::move(step));
    return any ? CellEffect::Panel : CellEffect::None;
}

CellRange CPanelEditor::PasteRange(int row, int column, std::string_view text) const
{
    const std::vector<std::string_view> lines = Lines(text);
    std::size_t widest = 1;
    for (const std::string_view line : lines)
        widest = std::max(widest, Cells(line).size());
    return {row, column, std::min(row + static_cast<int>(lines.size()) - 1, model_.GridRows()),
            std::min(column + static_cast<int>(widest), model_.ColumnCount()) - 1};
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
        return UndoOutcome{{step.movedFrom, 1}, CellEffect::Panel};
    }
    for (auto cell = step.cells.rbegin(); cell != step.cells.rend(); ++cell) {
        outcome.effect = std::max(outcome.effect, model_.SetCell(cell->place.row, cell->place.column, cell->text));
        outcome.place = cell->place;
    }
    if (step.cells.size() > 1)
        outcome.effect = CellEffect::Panel;
    return outcome;
}

bool CPanelEditor::Move(int from, int to)
{
    model_.MoveRow(from, to);
    Step step;
    step.movedFrom = from;
    step.movedTo = to;
    Keep(std::move(step));
    return true;
}

bool CPanelEditor::MoveUp(int row)
{
    return model_.CanMoveUp(row) && Move(row, row - 1);
}

bool CPanelEditor::MoveDown(int row)
{
    return model_.CanMoveDown(row) && Move(row, row + 1);
}

bool CPanelEditor::InsertRow(int row)
{
    if (!model_.CanInsert(row))
        return false;
    int blank = model_.GridRows();
    while (blank > row && !model_.IsBlankRow(blank))
        --blank;
    return blank > row && Move(blank, row);
}

} // namespace sbd
