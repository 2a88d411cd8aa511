#include "panels/panel_source.h"

#include "document/section_doc.h"

namespace sbd {

namespace {

GridEffect ToGrid(CellEffect effect)
{
    switch (effect) {
    case CellEffect::None:
        return GridEffect::None;
    case CellEffect::Cell:
        return GridEffect::Cell;
    case CellEffect::Panel:
        break;
    }
    return GridEffect::All;
}

CellRange ToModel(const GridRange& range)
{
    return {range.top, range.left, range.bottom, range.right};
}

QColor ToColor(CellColor color)
{
    return color ? QColor::fromRgb(*color) : QColor();
}

} // namespace

CPanelSource::CPanelSource(CPanelModel& model) : model_(model), editor_(model) {}

int CPanelSource::RowCount() const
{
    return model_.GridRows();
}

int CPanelSource::UsedRows() const
{
    return model_.BlockRows();
}

int CPanelSource::ColumnCount() const
{
    return model_.ColumnCount() - 1;
}

int CPanelSource::ColumnWidth(int column) const
{
    return model_.ColumnWidth(column);
}

int CPanelSource::HeadHeight() const
{
    return model_.HeadHeight();
}

QString CPanelSource::Head(int column, int focusRow) const
{
    return toQString(model_.Head(column, focusRow));
}

QColor CPanelSource::HeadColor(int column, int focusRow) const
{
    return ToColor(model_.HeadColor(column, focusRow));
}

QString CPanelSource::RowNumber(int row) const
{
    return toQString(model_.RowNumber(row));
}

int CPanelSource::RowLines(int row) const
{
    return model_.RowLines(row);
}

QString CPanelSource::Text(int row, int column) const
{
    return toQString(model_.Text(row, column));
}

bool CPanelSource::HasWords(int row, int column) const
{
    return !model_.Words(row, column).empty();
}

QStringList CPanelSource::Words(int row, int column) const
{
    QStringList words;
    for (const std::string& word : model_.Words(row, column))
        words << toQString(word);
    return words;
}

bool CPanelSource::IsLocked(int row, int column) const
{
    return model_.IsLocked(row, column);
}

bool CPanelSource::IsEditable(int row, int column) const
{
    return model_.IsEditable(row, column);
}

QColor CPanelSource::TextColor(int row, int column) const
{
    return ToColor(model_.TextColor(row, column));
}

bool CPanelSource::IsRightAligned(int row, int column) const
{
    return model_.IsRightAligned(row, column);
}

std::optional<QString> CPanelSource::RefusedCharacter(const QString& text) const
{
    QString refused;
    return fromQString(text, &refused) ? std::nullopt : std::optional(refused);
}

GridEffect CPanelSource::SetText(int row, int column, const QString& text)
{
    const std::optional<std::string> bytes = fromQString(text);
    return bytes ? ToGrid(editor_.SetCell(row, column, *bytes)) : GridEffect::None;
}

GridEffect CPanelSource::Clear(const GridRange& range)
{
    return ToGrid(editor_.Clear(ToModel(range)));
}

QString CPanelSource::Copy(const GridRange& range) const
{
    return toQString(editor_.Copy(ToModel(range)));
}

GridEffect CPanelSource::Paste(int row, int column, const QString& text, GridRange* filled)
{
    const std::optional<std::string> bytes = fromQString(text);
    if (!bytes)
        return GridEffect::None;
    const CellEffect effect = editor_.Paste(row, column, *bytes);
    if (filled) {
        const CellRange range = editor_.PasteRange(row, column, *bytes);
        *filled = {range.top, range.left, range.bottom, range.right};
    }
    return ToGrid(effect);
}

std::optional<GridCell> CPanelSource::Undo()
{
    const std::optional<UndoOutcome> outcome = editor_.Undo();
    if (!outcome)
        return std::nullopt;
    return GridCell{outcome->place.row, outcome->place.column};
}

} // namespace sbd
