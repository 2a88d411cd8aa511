#include "panelmodel/panel_editor.h"

#include <algorithm>
#include <utility>

namespace sbd {

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
    const CellEffect effect = model_.SetCell(row, column, text);
    if (effect != CellEffect::None && step.changes++ == 0)
        step.place = {row, column};
    return effect;
}

void CPanelEditor::Keep(EditCommand command, const Step& step)
{
    if (step.changes > 0 || step.addedRows > 0)
        done_ = {command, step.place, step.rowAfter};
}

CellEffect CPanelEditor::SetCell(int row, int column, std::string_view text)
{
    Step step;
    const CellEffect effect = SetInStep(step, row, column, CellLine(text));
    Keep(EditCommand::Cell, step);
    return effect;
}

CellEffect CPanelEditor::Clear(const CellRange& range)
{
    Step step;
    CellEffect effect = CellEffect::None;
    for (int row = range.top; row <= range.bottom; ++row)
        for (int column = range.left; column <= range.right && !IsHidden(row); ++column)
            effect = std::max(effect, SetInStep(step, row, column, {}));
    const bool several = step.changes > 1;
    Keep(several ? EditCommand::Clear : EditCommand::Cell, step);
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

} // namespace sbd
