#include "frame/box_web_source.h"

#include "document/section_doc.h"

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kNumberWidth = 30; // px
constexpr int kNameWidth = 120;
constexpr int kHeadHeight = 24;
constexpr QStringView kHeads[] = {u"", u"主桁名", u"左腹板名", u"右腹板名"};

} // namespace

CBoxWebSource::CBoxWebSource(const BoxWebNames& names)
{
    for (std::size_t row = 0; row < names.girderNames.size(); ++row)
        cells_.push_back(
            {toQString(names.girderNames[row]), toQString(names.leftNames[row]), toQString(names.rightNames[row])});
    for (const std::string& choice : names.lineChoices)
        words_.append(toQString(choice));
}

QString& CBoxWebSource::At(int row, int column)
{
    return cells_[static_cast<std::size_t>(row - 1)][static_cast<std::size_t>(column - 1)];
}

int CBoxWebSource::ColumnWidth(int column) const
{
    return column == 0 ? kNumberWidth : kNameWidth;
}

int CBoxWebSource::HeadHeight() const
{
    return kHeadHeight;
}

QString CBoxWebSource::Head(int column, int) const
{
    return kHeads[column].toString();
}

QColor CBoxWebSource::HeadColor(int, int) const
{
    return {};
}

QString CBoxWebSource::RowNumber(int row) const
{
    return QString::number(row);
}

int CBoxWebSource::RowLines(int) const
{
    return 1;
}

QString CBoxWebSource::Text(int row, int column) const
{
    return cells_[static_cast<std::size_t>(row - 1)][static_cast<std::size_t>(column - 1)];
}

bool CBoxWebSource::HasWords(int, int column) const
{
    return column != kGirderColumn;
}

QStringList CBoxWebSource::Words(int, int column) const
{
    return column == kGirderColumn ? QStringList() : words_;
}

bool CBoxWebSource::IsLocked(int, int column) const
{
    return column == kGirderColumn;
}

bool CBoxWebSource::IsEditable(int row, int column) const
{
    return !IsLocked(row, column);
}

QColor CBoxWebSource::TextColor(int, int) const
{
    return {};
}

bool CBoxWebSource::IsRightAligned(int, int) const
{
    return false;
}

std::optional<QString> CBoxWebSource::RefusedCharacter(const QString& text) const
{
    QString refused;
    if (fromQString(text, &refused).has_value())
        return std::nullopt;
    return refused;
}

GridEffect CBoxWebSource::Change(GridCell cell, const std::function<void()>& change)
{
    Step step{cells_, cell};
    change();
    if (cells_ == step.before)
        return GridEffect::None;
    steps_.push_back(std::move(step));
    return GridEffect::All;
}

GridEffect CBoxWebSource::SetText(int row, int column, const QString& text)
{
    return Change({row, column}, [&] { At(row, column) = text; });
}

GridEffect CBoxWebSource::Clear(const GridRange& range)
{
    return Change({range.top, range.left}, [&] {
        for (int row = range.top; row <= range.bottom; ++row) {
            for (int column = std::max(range.left, kLeftColumn); column <= range.right; ++column)
                At(row, column).clear();
        }
    });
}

QString CBoxWebSource::Copy(const GridRange& range) const
{
    QStringList lines;
    for (int row = range.top; row <= range.bottom; ++row) {
        QStringList cells;
        for (int column = range.left; column <= range.right; ++column)
            cells.append(Text(row, column));
        lines.append(cells.join(u'\t'));
    }
    return lines.join(u"\r\n"_s);
}

GridEffect CBoxWebSource::Paste(int row, int column, const QString& text, GridRange* filled)
{
    QStringList lines = QString(text).remove(u'\r').split(u'\n');
    if (lines.size() > 1 && lines.constLast().isEmpty())
        lines.removeLast(); // the end of the last line begins no other one
    *filled = {row, column, row, column};
    return Change({row, column}, [&] {
        for (int r = row; r - row < lines.size() && r <= RowCount(); ++r) {
            const QStringList cells = lines[r - row].split(u'\t');
            for (int c = column; c - column < cells.size() && c <= kRightColumn; ++c) {
                if (IsLocked(r, c))
                    continue;
                At(r, c) = cells[c - column];
                filled->bottom = r;
                filled->right = std::max(filled->right, c);
            }
        }
    });
}

std::optional<GridCell> CBoxWebSource::Undo()
{
    if (steps_.empty())
        return std::nullopt;
    const GridCell cell = steps_.back().cell;
    cells_ = std::move(steps_.back().before);
    steps_.pop_back();
    return cell;
}

} // namespace sbd
