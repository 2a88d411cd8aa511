#include "grid/cell_marks.h"

#include "grid/grid_style.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>
#include <limits>
#include <tuple>

namespace sbd {

namespace {

constexpr int kLastColumn = std::numeric_limits<int>::max();

// None of the tints is the ground of a locked, focused or selected cell; those on dark are no lighter than a locked cell,
// so that every text colour can be read on them.
constexpr MarkLook kLooks[] = {
    {MarkKind::Loss, u'!', 0xFFFFD8D0, 0xFF6A2A24, 0xFFC01808, 0xFFFF8A7A},
    {MarkKind::Doubt, u'?', 0xFFFFDC7A, 0xFF524008, 0xFF8A5A00, 0xFFFFC850},
    {MarkKind::Hint, u'i', 0xFFBFF0C8, 0xFF1F4A4A, 0xFF00695C, 0xFF6ADCC8},
    {MarkKind::Changed, u'*', 0xFFF0E2FF, 0xFF4A3668, 0xFF5E2CA5, 0xFFC8A4FF},
};

auto Place(const CellMark& mark)
{
    return std::tuple(mark.row, mark.column);
}

std::optional<MarkKind> Weightiest(const std::vector<const CellMark*>& marks)
{
    std::optional<MarkKind> most;
    for (const CellMark* mark : marks)
        most = most ? std::min(*most, mark->kind) : mark->kind;
    return most;
}

} // namespace

std::span<const MarkLook> MarkLooks()
{
    return kLooks;
}

const MarkLook& LookOf(MarkKind kind)
{
    return *std::ranges::find(kLooks, kind, &MarkLook::kind);
}

QColor TintOf(MarkKind kind, const QPalette& palette)
{
    const MarkLook& look = LookOf(kind);
    return QColor::fromRgba(gridstyle::IsDark(palette) ? look.tintOnDark : look.tintOnLight);
}

QColor SignColorOf(MarkKind kind, const QPalette& palette)
{
    const MarkLook& look = LookOf(kind);
    return QColor::fromRgba(gridstyle::IsDark(palette) ? look.signOnDark : look.signOnLight);
}

bool CCellMarks::Set(MarkSource source, std::vector<CellMark> marks)
{
    std::ranges::stable_sort(marks, {}, Place);
    std::vector<CellMark>& own = marks_[source];
    if (own == marks)
        return false;
    own = std::move(marks);
    return true;
}

/// The marks of a row's columns `firstColumn` to `lastColumn`, in the order of the sources.
std::vector<const CellMark*> CCellMarks::In(int row, int firstColumn, int lastColumn) const
{
    std::vector<const CellMark*> found;
    for (const auto& [source, marks] : marks_) {
        auto mark = std::ranges::lower_bound(marks, std::tuple(row, firstColumn), {}, Place);
        for (; mark != marks.end() && mark->row == row && mark->column <= lastColumn; ++mark)
            found.push_back(&*mark);
    }
    return found;
}

std::optional<MarkKind> CCellMarks::Of(int row, int column) const
{
    return Weightiest(In(row, column, column));
}

std::optional<MarkKind> CCellMarks::OfRow(int row) const
{
    return Weightiest(In(row, 0, kLastColumn));
}

QString CCellMarks::ToolTip(int row, int column) const
{
    QStringList lines;
    for (const CellMark* mark : In(row, column, column))
        lines << mark->toolTip;
    for (const CellMark* mark : In(row, 0, 0))
        lines << mark->toolTip;
    return lines.join(u'\n');
}

QString CCellMarks::RowToolTip(int row) const
{
    constexpr qsizetype mostLines = 6;
    QStringList lines;
    for (const CellMark* mark : In(row, 0, kLastColumn))
        lines << (mark->column == 0
                      ? mark->toolTip
                      : QCoreApplication::translate("CGridCtrl", "%1 列: %2").arg(mark->column).arg(mark->toolTip));
    if (const qsizetype more = lines.size() - mostLines; more > 0) {
        lines.resize(mostLines);
        lines << QCoreApplication::translate("CGridCtrl", "ほか %1 件").arg(more);
    }
    return lines.join(u'\n');
}

} // namespace sbd
