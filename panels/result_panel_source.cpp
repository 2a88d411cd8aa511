#include "panels/result_panel_source.h"

#include "document/section_doc.h"
#include "panelmodel/panel_parts.h"

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kHeadHeight = 2 * 16; // the unit stands below the head
constexpr std::size_t kMostSteps = 100;

std::size_t Place(int number)
{
    return number < 0 ? static_cast<std::size_t>(-1) : static_cast<std::size_t>(number); // beyond every cell
}

/// From a colour with blue in the high byte.
QColor ToColor(std::uint32_t color)
{
    return QColor(static_cast<int>(color & 0xFF), static_cast<int>((color >> 8) & 0xFF),
                  static_cast<int>((color >> 16) & 0xFF));
}

} // namespace

void CResultSource::SetTable(CResultTable table)
{
    table_ = std::move(table);
    edits_.clear();
    steps_.clear();
}

int CResultSource::RowCount() const
{
    return std::max(static_cast<int>(table_.GridRowCount()) - 1, 0);
}

int CResultSource::UsedRows() const
{
    return table_.RowCount() == 0 ? 0 : static_cast<int>(kFirstValueRow + table_.RowCount()) - 1;
}

int CResultSource::ColumnCount() const
{
    return std::max(static_cast<int>(table_.GridColumnCount()) - 1, 0);
}

std::string CResultSource::WidthKey(int column) const
{
    // Heads of load cases are alike; the value that they belong to stands ahead of them.
    std::string key = KindWord(table_.Kind());
    if (column > 1 && table_.HasWords(Place(column)))
        key += "/" + table_.CellText(0, Place(column - 1));
    return key + "/" + table_.CellText(0, Place(column));
}

int CResultSource::ColumnWidth(int column) const
{
    if (const auto own = widths_.find(column > 0 ? WidthKey(column) : std::string()); own != widths_.end())
        return std::max(own->second, kLeastWidth);
    return std::max(table_.GridColumnWidth(Place(column)) + (column > 0 ? widening_ : 0), kLeastWidth);
}

int CResultSource::HeadHeight() const
{
    return kHeadHeight;
}

QString CResultSource::Head(int column, int) const
{
    const QString head = toQString(table_.CellText(0, Place(column)));
    const QString unit = toQString(table_.Unit(Place(column)));
    return unit.isEmpty() ? head : head + u"\n["_s + unit + u']';
}

QString CResultSource::Text(int row, int column) const
{
    if (const auto edit = edits_.constFind({row, column}); edit != edits_.constEnd())
        return *edit;
    const QString text = toQString(table_.CellText(Place(row), Place(column)));
    return IsRightAligned(row, column) ? text.trimmed() : text;
}

bool CResultSource::IsLocked(int row, int column) const
{
    return table_.CellBackground(Place(row), Place(column)).has_value();
}

QColor CResultSource::TextColor(int row, int column) const
{
    const std::optional<std::uint32_t> color = table_.CellColor(Place(row), Place(column));
    return color ? ToColor(*color) : QColor();
}

bool CResultSource::IsRightAligned(int, int column) const
{
    return Place(column) >= kFirstValueColumn && !table_.HasWords(Place(column));
}

void CResultSource::Begin(GridCell at)
{
    if (steps_.size() == kMostSteps)
        steps_.erase(steps_.begin());
    steps_.push_back({at, {}});
}

void CResultSource::Put(Cell cell, const QString& text)
{
    const auto edit = edits_.constFind(cell);
    steps_.back().before.emplace_back(cell, edit == edits_.constEnd() ? std::nullopt : std::optional(*edit));
    edits_.insert(cell, text);
}

GridEffect CResultSource::SetText(int row, int column, const QString& text)
{
    if (!IsEditable(row, column) || text == Text(row, column))
        return GridEffect::None;
    Begin({row, column});
    Put({row, column}, text);
    return GridEffect::Cell;
}

GridEffect CResultSource::Clear(const GridRange& range)
{
    Begin({range.top, range.left});
    for (int row = range.top; row <= std::min(range.bottom, UsedRows()); ++row)
        for (int column = range.left; column <= range.right; ++column)
            if (IsEditable(row, column))
                Put({row, column}, QString());
    return GridEffect::All;
}

QString CResultSource::Copy(const GridRange& range) const
{
    QString text;
    for (int row = range.top; row <= range.bottom; ++row) {
        for (int column = range.left; column <= range.right; ++column) {
            if (column > range.left)
                text += u'\t';
            text += Text(row, column);
        }
        text += u"\r\n";
    }
    return text;
}

GridEffect CResultSource::Paste(int row, int column, const QString& text, GridRange* filled)
{
    QStringList lines = text.split(u'\n');
    if (lines.size() > 1 && lines.last().isEmpty())
        lines.removeLast();
    Begin({row, column});
    GridRange range{row, column, row, column};
    for (int line = 0; line < lines.size() && row + line <= RowCount(); ++line) {
        const QStringList cells = lines[line].split(u'\t');
        for (int cell = 0; cell < cells.size() && column + cell <= ColumnCount(); ++cell) {
            if (!IsEditable(row + line, column + cell))
                continue;
            Put({row + line, column + cell}, cells[cell].trimmed());
            range.bottom = std::max(range.bottom, row + line);
            range.right = std::max(range.right, column + cell);
        }
    }
    if (filled != nullptr)
        *filled = range;
    return GridEffect::All;
}

std::optional<GridCell> CResultSource::Undo()
{
    if (steps_.empty())
        return std::nullopt;
    const GridCell at = steps_.back().at;
    for (auto& [cell, text] : steps_.back().before) {
        if (text)
            edits_.insert(cell, *text);
        else
            edits_.remove(cell);
    }
    steps_.pop_back();
    return at;
}

} // namespace sbd
