// What CPanelEditor puts into several cells at once: pasted and filled texts.
#include "panelmodel/clipboard_text.h"
#include "panelmodel/fill_series.h"
#include "panelmodel/panel_editor.h"
#include "project/text.h"

#include <algorithm>
#include <utility>

namespace sbd {

namespace {

/// The cells of a clipboard text, and the rectangle around them.
struct ClipboardTable {
    std::vector<ClipboardCell> cells;
    int lines = 0;
    int columns = 0;
};

ClipboardTable TableOf(std::string_view text)
{
    CClipboardReader reader(text);
    ClipboardTable table;
    while (std::optional<ClipboardCell> cell = reader.Next()) {
        table.lines = std::max(table.lines, cell->line + 1);
        table.columns = std::max(table.columns, cell->column + 1);
        table.cells.push_back(*std::move(cell));
    }
    return table;
}

int Rows(const CellRange& range)
{
    return range.bottom - range.top + 1;
}

int Columns(const CellRange& range)
{
    return range.right - range.left + 1;
}

} // namespace

bool CPanelEditor::IsHidden(int row) const
{
    return row >= 1 && row <= std::ssize(hidden_) && hidden_[static_cast<std::size_t>(row) - 1];
}

/// The nearest row in sight from `row` on, which counts itself; outside of the grid: none is left.
int CPanelEditor::SeenRowFrom(int row, int step) const
{
    while (row >= 1 && row <= model_.GridRows() && IsHidden(row))
        row += step;
    return row;
}

/// The rows of a range that a fill may touch.
CellRange CPanelEditor::RowsOfTable(CellRange range) const
{
    const int first = model_.FixedRows() + 1;
    const bool wholeColumn = range.top <= first && range.bottom >= model_.GridRows() && range.bottom > first;
    if (range.bottom >= first)
        range.top = std::max(range.top, first);
    if (wholeColumn)
        range.bottom = std::max(model_.BlockRows(), range.top);
    return range;
}

void CPanelEditor::PutPasted(Step& step, CellPlace place, const std::string& text, PasteOutcome& outcome)
{
    const std::string line = CellLine(text);
    const bool isBlank = TrimRight(line).empty();
    if (place.row < 1 || place.row > model_.GridRows() || place.column >= model_.ColumnCount()) {
        outcome.beyond += isBlank ? 0 : 1;
        return;
    }
    if (!model_.IsEditable(place.row, place.column)) {
        if (!isBlank && line != model_.Text(place.row, place.column) && outcome.locked++ == 0)
            outcome.firstLocked = place;
        return;
    }
    if (text.find(kKeepCell) != std::string::npos) {
        if (outcome.kept++ == 0)
            outcome.firstKept = place;
        return;
    }
    if (const auto refusal = model_.WhyNot(place.row, place.column, line)) {
        if (outcome.notNumbers++ == 0) {
            outcome.firstNotNumber = place;
            outcome.notNumber = refusal->part;
        }
        return;
    }
    if (SetInStep(step, place.row, place.column, line) != CellEffect::None)
        ++outcome.put;
}

PasteOutcome CPanelEditor::KeepFill(EditCommand command, const Step& step, PasteOutcome outcome)
{
    if (step.changes > 0)
        outcome.effect = CellEffect::Panel;
    Keep(command, step);
    return outcome;
}

PasteOutcome CPanelEditor::Paste(int row, int column, std::string_view text)
{
    return PasteOver({row, column, row, column}, text);
}

PasteOutcome CPanelEditor::PasteOver(const CellRange& range, std::string_view text)
{
    const ClipboardTable table = TableOf(text);
    PasteOutcome outcome;
    outcome.range = {range.top, range.left, range.top, range.left};
    if (table.cells.empty())
        return outcome;
    const bool several = Rows(range) * Columns(range) > 1;
    const CellRange target = several ? RowsOfTable(range) : range;
    int seen = 0;
    for (int row = target.top; row <= target.bottom; ++row)
        seen += IsHidden(row) ? 0 : 1;
    const bool tiles = several && seen > 0 && seen % table.lines == 0 && Columns(target) % table.columns == 0;
    const int times = tiles ? seen / table.lines : 1;
    const int timesRight = tiles ? Columns(target) / table.columns : 1;

    int top = SeenRowFrom(tiles ? target.top : range.top, 1);
    const int rowsBefore = model_.GridRows();
    const int missingRows = top + CClipboardReader(text).FilledLines() - 1 - rowsBefore;
    if (!tiles && missingRows > 0 && !HidesRows())
        model_.AddRows(missingRows);
    outcome.range = {top, target.left, top, target.left};
    Step step;
    for (int time = 0; time < times; ++time) {
        int row = top;
        int line = 0;
        for (const ClipboardCell& cell : table.cells) {
            for (; line < cell.line; ++line)
                row = SeenRowFrom(row + 1, 1);
            for (int i = 0; i < timesRight; ++i) {
                const CellPlace place{row, target.left + i * table.columns + cell.column};
                PutPasted(step, place, cell.text, outcome);
                if (row > model_.GridRows())
                    continue;
                outcome.range.bottom = std::max(outcome.range.bottom, row);
                outcome.range.right = std::max(outcome.range.right, std::min(place.column, model_.ColumnCount() - 1));
            }
        }
        top = SeenRowFrom(row + 1, 1);
    }
    step.addedRows = model_.GridRows() - rowsBefore;
    if (step.changes == 0) // nothing was put into them
        model_.TakeBackRows(std::exchange(step.addedRows, 0));
    return KeepFill(EditCommand::Paste, step, std::move(outcome));
}

PasteOutcome CPanelEditor::PutCells(EditCommand command, std::span<const CellEntry> cells)
{
    PasteOutcome outcome;
    if (cells.empty())
        return outcome;
    const CellPlace first = cells.front().place;
    outcome.range = {first.row, first.column, first.row, first.column};
    for (const CellEntry& cell : cells)
        outcome.range = {std::min(outcome.range.top, cell.place.row), std::min(outcome.range.left, cell.place.column),
                         std::max(outcome.range.bottom, cell.place.row),
                         std::max(outcome.range.right, cell.place.column)};
    const int rowsBefore = model_.GridRows();
    if (outcome.range.bottom > rowsBefore && !HidesRows())
        model_.AddRows(outcome.range.bottom - rowsBefore);
    Step step;
    PasteOutcome before; // of a first pass: what is locked in it may be free in the second one
    for (const CellEntry& cell : cells)
        if (!IsHidden(cell.place.row))
            PutPasted(step, cell.place, cell.text, before);
    for (const CellEntry& cell : cells)
        if (!IsHidden(cell.place.row))
            PutPasted(step, cell.place, cell.text, outcome);
    outcome.put += before.put;
    step.addedRows = model_.GridRows() - rowsBefore;
    if (step.changes == 0)
        model_.TakeBackRows(std::exchange(step.addedRows, 0));
    return KeepFill(command, step, std::move(outcome));
}

/// A cell that takes no text has none to give: the words of an automatic row make it one.
void CPanelEditor::PutFilled(Step& step, CellPlace from, CellPlace to, PasteOutcome& outcome)
{
    if (model_.IsEditable(from.row, from.column))
        PutPasted(step, to, model_.Text(from.row, from.column), outcome);
}

PasteOutcome CPanelEditor::FillDown(const CellRange& range)
{
    CellRange target = RowsOfTable(range);
    PasteOutcome outcome;
    int source = SeenRowFrom(target.top, 1);
    if (source >= target.bottom) { // a single row
        source = SeenRowFrom(target.top - 1, -1);
        if (source <= model_.FixedRows())
            return outcome;
    } else {
        target.top = source + 1;
    }
    outcome.range = {source, target.left, target.bottom, target.right};
    Step step;
    for (int row = target.top; row <= target.bottom; ++row)
        for (int column = target.left; column <= target.right && !IsHidden(row); ++column)
            PutFilled(step, {source, column}, {row, column}, outcome);
    return KeepFill(EditCommand::Fill, step, std::move(outcome));
}

PasteOutcome CPanelEditor::FillRight(const CellRange& range)
{
    CellRange target = RowsOfTable(range);
    PasteOutcome outcome;
    const int source = target.left == target.right ? target.left - 1 : target.left;
    if (source < 1)
        return outcome;
    target.left = source;
    outcome.range = target;
    Step step;
    for (int row = target.top; row <= target.bottom; ++row)
        for (int column = source + 1; column <= target.right && !IsHidden(row); ++column)
            PutFilled(step, {row, source}, {row, column}, outcome);
    return KeepFill(EditCommand::Fill, step, std::move(outcome));
}

PasteOutcome CPanelEditor::FillWith(const CellRange& range, std::string_view text)
{
    PasteOutcome outcome;
    outcome.range = RowsOfTable(range);
    const std::string line(text);
    Step step;
    for (int row = outcome.range.top; row <= outcome.range.bottom; ++row)
        for (int column = outcome.range.left; column <= outcome.range.right && !IsHidden(row); ++column)
            PutPasted(step, {row, column}, line, outcome);
    const bool one = step.changes == 1;
    return KeepFill(one ? EditCommand::Cell : EditCommand::Fill, step, std::move(outcome));
}

/// `line` holds the cells of a row or a column, those from `first` to `last` the texts that go on.
void CPanelEditor::FillLine(Step& step, const std::vector<CellPlace>& line, std::size_t first, std::size_t last,
                            FillOn how, PasteOutcome& outcome)
{
    std::vector<std::string> texts;
    for (std::size_t i = first; i <= last; ++i) {
        if (!model_.IsEditable(line[i].row, line[i].column))
            return;
        texts.push_back(model_.Text(line[i].row, line[i].column));
    }
    const CFillSeries series(std::move(texts), how == FillOn::Count);
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (i >= first && i <= last)
            continue;
        const int index = static_cast<int>(i) - static_cast<int>(first);
        const std::string& repeated = series.Repeated(index);
        std::optional<std::string> next = series.At(index);
        if (!next)
            continue;
        // A word of a list goes on with another word of it only: behind "SM400" there is no "SM401".
        const WordList& words = model_.Words(line[i].row, line[i].column);
        const auto isWord = [&words](const std::string& text) { return std::ranges::find(words, text) != words.end(); };
        PutPasted(step, line[i], isWord(repeated) && !isWord(*next) ? repeated : *next, outcome);
    }
}

PasteOutcome CPanelEditor::FillFrom(const CellRange& from, const CellRange& to, FillOn how)
{
    PasteOutcome outcome;
    outcome.range = to;
    Step step;
    const bool down = to.left == from.left && to.right == from.right;
    for (int across = down ? from.left : from.top; across <= (down ? from.right : from.bottom); ++across) {
        std::vector<CellPlace> line;
        std::size_t first = 0;
        std::size_t last = 0;
        for (int along = down ? to.top : to.left; along <= (down ? to.bottom : to.right); ++along) {
            const CellPlace place = down ? CellPlace{along, across} : CellPlace{across, along};
            if (IsHidden(place.row) || place.row <= model_.FixedRows())
                continue;
            if (along < (down ? from.top : from.left))
                ++first;
            if (along <= (down ? from.bottom : from.right))
                last = line.size();
            line.push_back(place);
        }
        if (first < line.size() && first <= last)
            FillLine(step, line, first, last, how, outcome);
    }
    return KeepFill(EditCommand::Fill, step, std::move(outcome));
}

} // namespace sbd
