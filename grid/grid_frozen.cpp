// The first columns of CGridCtrl that stay in sight while the others are scrolled, and the widths that the user gives.
//
// The view below scrolls all columns alike. Here the first ones are put back to where they stand without scrolling: in
// where a cell is (visualRect), in which cell is at a place (indexAt) and in what is drawn. Whatever works with cells
// asks these.
#include "grid/grid_ctrl.h"
#include "grid/grid_delegate.h"
#include "grid/grid_head.h"
#include "grid/grid_model.h"
#include "grid/grid_style.h"

#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace sbd {

void CGridCtrl::SetFrozenColumns(int columns)
{
    frozen_ = std::max(columns, 0);
    updateGeometries();
    head_->viewport()->update();
    viewport()->update();
}

/// Nothing stays where all is seen. What would leave the others less than half of the room is not held.
int CGridCtrl::SeenFrozen() const
{
    if (frozen_ == 0 || horizontalScrollBar()->maximum() == 0)
        return 0;
    const int most = viewport()->width() / 2;
    const int columns = std::min(frozen_, model_->columnCount() - 1);
    int width = 0;
    for (int column = 0; column < columns; ++column) {
        width += columnWidth(column);
        if (width > most)
            return column;
    }
    return std::max(columns, 0);
}

int CGridCtrl::FrozenWidth() const
{
    int width = 0;
    for (int column = SeenFrozen(); column > 0; --column)
        width += columnWidth(column - 1);
    return width;
}

bool CGridCtrl::IsSeenFrozen(const QModelIndex& index) const
{
    return index.isValid() && index.column() < SeenFrozen();
}

int CGridCtrl::ColumnAtX(int x) const
{
    int right = 0;
    for (int column = 0, frozen = SeenFrozen(); column < frozen; ++column) {
        right += columnWidth(column);
        if (x < right)
            return column + 1;
    }
    return columnAt(x) + 1;
}

QRect CGridCtrl::visualRect(const QModelIndex& index) const
{
    QRect rect = QTableView::visualRect(index);
    if (rect.isValid() && IsSeenFrozen(index))
        rect.translate(head_->offset(), 0);
    return rect;
}

QModelIndex CGridCtrl::indexAt(const QPoint& pos) const
{
    const int row = rowAt(pos.y());
    const int column = ColumnAtX(pos.x()) - 1;
    return row < 0 || column < 0 ? QModelIndex() : model_->index(row, column);
}

/// The whole cell, or its beginning, is brought beside the columns that stay.
void CGridCtrl::scrollTo(const QModelIndex& index, ScrollHint hint)
{
    const int before = horizontalScrollBar()->value();
    QTableView::scrollTo(index, hint);
    if (!index.isValid())
        return;
    if (IsSeenFrozen(index)) {
        horizontalScrollBar()->setValue(before);
        return;
    }
    const int hidden = FrozenWidth() - columnViewportPosition(index.column());
    if (hidden > 0)
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - hidden);
}

void CGridCtrl::scrollContentsBy(int dx, int dy)
{
    QTableView::scrollContentsBy(dx, dy);
    if (dx == 0 || SeenFrozen() == 0)
        return;
    viewport()->update(); // the pixels of the columns that stay were moved along
    if (IsEditing())
        updateEditorGeometries();
}

/// Draws the columns that stay over those that were scrolled below them.
void CGridCtrl::PaintFrozen(QPainter& painter)
{
    const int frozen = SeenFrozen();
    const int first = rowAt(0);
    if (frozen == 0 || first < 0)
        return;
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    const QStyle::State state = option.state & ~QStyle::State_Selected;
    int bottom = 0;
    for (int row = first; row < model_->rowCount() && bottom < viewport()->height(); ++row) {
        if (isRowHidden(row))
            continue;
        bottom = rowViewportPosition(row) + rowHeight(row);
        for (int column = 0; head_->offset() > 0 && column < frozen; ++column) {
            const QModelIndex index = model_->index(row, column);
            option.rect = visualRect(index);
            option.state = selectionModel()->isSelected(index) ? state | QStyle::State_Selected : state;
            itemDelegate()->paint(&painter, option, index);
        }
    }
    painter.fillRect(FrozenWidth() - 1, 0, gridstyle::kFrozenBorder, std::min(bottom, viewport()->height()),
                     QColor::fromRgba(gridstyle::ColorsFor(palette()).frozenBorder));
}

/// Where a frame around cells may be drawn: what is scrolled is not seen below the columns that stay.
QRect CGridCtrl::ClipOf(const GridRange& range) const
{
    const QRect seen = viewport()->rect();
    return range.left <= SeenFrozen() ? seen : seen.adjusted(FrozenWidth(), 0, 0, 0);
}

// --- widths that the user gives ------------------------------------------------------------------------

void CGridCtrl::SetWidened(const std::map<int, int>& widened)
{
    widened_.clear();
    for (const auto& [column, pixels] : widened)
        if (Source() != nullptr && column >= 1 && column <= model_->columnCount()) {
            widened_[column] = pixels;
            setColumnWidth(column - 1, std::max(head_->minimumSectionSize(),
                                                (Source()->ColumnWidth(column) + pixels) * zoom_ / 100));
        }
}

/// The user has pulled at a column, or made it fit.
void CGridCtrl::KeepWidth(int section)
{
    if (Source() == nullptr || section < 0 || section >= model_->columnCount())
        return;
    const int pixels = (columnWidth(section) * 100 + zoom_ / 2) / zoom_ - Source()->ColumnWidth(section + 1);
    if (pixels == 0)
        widened_.erase(section + 1);
    else
        widened_[section + 1] = pixels;
    emit columnsChanged();
}

} // namespace sbd
