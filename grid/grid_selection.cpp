// The selected range of CGridCtrl: how it grows from the focused cell, and how the focus goes round in it.
#include "grid/grid_ctrl.h"
#include "grid/grid_drag.h"
#include "grid/grid_head.h"
#include "grid/grid_model.h"
#include "grid/grid_style.h"

#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace sbd {

int CGridCtrl::SeenRow(int row, int step) const
{
    while (row >= 1 && row <= model_->rowCount() && isRowHidden(row - 1))
        row += step;
    return row >= 1 && row <= model_->rowCount() ? row : 0;
}

bool CGridCtrl::HasRange() const
{
    const GridRange range = SelectedRange();
    const GridCell focus = FocusCell();
    return (range.top != range.bottom || range.left != range.right) && focus.row >= range.top
           && focus.row <= range.bottom && focus.column >= range.left && focus.column <= range.right;
}

void CGridCtrl::SelectRange(const GridRange& range)
{
    selectionModel()->select(
        QItemSelection(model_->IndexOf({range.top, range.left}), model_->IndexOf({range.bottom, range.right})),
        QItemSelectionModel::ClearAndSelect);
}

/// The corner of the selection that the keys move: the one across from the focused cell.
GridCell CGridCtrl::Extent() const
{
    const GridRange range = SelectedRange();
    const GridCell focus = FocusCell();
    return {focus.row == range.bottom ? range.top : range.bottom,
            focus.column == range.right ? range.left : range.right};
}

void CGridCtrl::ExtendTo(GridCell cell)
{
    const GridCell focus = FocusCell();
    const QModelIndex index = model_->IndexOf(cell);
    if (focus.row == 0 || !index.isValid())
        return;
    SelectRange({std::min(focus.row, cell.row), std::min(focus.column, cell.column), std::max(focus.row, cell.row),
                 std::max(focus.column, cell.column)});
    scrollTo(index);
}

GridCell CGridCtrl::Neighbour(GridCell from, int key) const
{
    const int rows = key == Qt::Key_Up ? -1 : key == Qt::Key_Down ? 1 : 0;
    const int columns = key == Qt::Key_Left ? -1 : key == Qt::Key_Right ? 1 : 0;
    const int row = rows == 0 ? from.row : SeenRow(from.row + rows, rows);
    return {row > 0 ? row : from.row, std::clamp(from.column + columns, 1, model_->columnCount())};
}

/// Of the focused row; the first column where no cell takes text.
int CGridCtrl::FirstFreeColumn() const
{
    const int row = FocusCell().row;
    for (int column = 1; row > 0 && column <= model_->columnCount(); ++column)
        if (Source()->IsEditable(row, column))
            return column;
    return 1;
}

/// As many rows away as are seen at once.
GridCell CGridCtrl::PageTarget(GridCell from, bool down) const
{
    const int step = down ? 1 : -1;
    int room = viewport()->height() - rowHeight(from.row - 1);
    int row = from.row;
    for (int next = SeenRow(row + step, step); next > 0; next = SeenRow(row + step, step)) {
        room -= rowHeight(next - 1);
        if (room < 0 && row != from.row)
            break;
        row = next;
    }
    return {row, from.column};
}

void CGridCtrl::MoveByEnter(bool back)
{
    if (HasRange()) {
        MoveInRange(back, false);
        return;
    }
    const GridCell cell = FocusCell();
    const int column = back || tabColumn_ == 0 ? cell.column : tabColumn_;
    if (cell.row > 0)
        MoveFocus(back ? -1 : 1, column - cell.column);
}

/// To the next cell of the range that takes text, along its rows or its columns, from its end to its beginning.
void CGridCtrl::MoveInRange(bool back, bool alongRow)
{
    const GridRange range = SelectedRange();
    const int rows = range.bottom - range.top + 1;
    const int columns = range.right - range.left + 1;
    const int count = rows * columns;
    const auto cellOf = [&](int place) {
        return alongRow ? GridCell{range.top + place / columns, range.left + place % columns}
                        : GridCell{range.top + place % rows, range.left + place / rows};
    };
    const GridCell focus = FocusCell();
    const int start = alongRow ? (focus.row - range.top) * columns + focus.column - range.left
                               : (focus.column - range.left) * rows + focus.row - range.top;
    for (int i = 1; i < count; ++i) {
        const GridCell cell = cellOf((start + (back ? count - i : i)) % count);
        if (isRowHidden(cell.row - 1) || !Source()->IsEditable(cell.row, cell.column))
            continue;
        const QModelIndex index = model_->IndexOf(cell);
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        scrollTo(index);
        return;
    }
}

void CGridCtrl::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    QTableView::selectionChanged(selected, deselected);
    viewport()->update(); // frame and handle
    emit rangeChanged();
}

// --- how it looks ------------------------------------------------------------------------------------

QRect CGridCtrl::RectOf(const GridRange& range) const
{
    const int top = SeenRow(range.top, 1);
    const int bottom = SeenRow(range.bottom, -1);
    if (top == 0 || bottom < top)
        return {};
    QRect last = visualRect(model_->IndexOf({bottom, range.right}));
    // Columns that are scrolled below those that stay: the frame goes on behind the border, unseen.
    if (range.left <= SeenFrozen() && last.right() < FrozenWidth() && range.right > SeenFrozen())
        last.moveRight(FrozenWidth());
    return visualRect(model_->IndexOf({top, range.left})) | last;
}

QRect CGridCtrl::FillHandle() const
{
    constexpr int half = 3;
    if (Source() == nullptr || !Source()->CanFill() || IsEditing() || FocusCell().row == 0)
        return {};
    const QRect range = RectOf(SelectedRange());
    if (range.isEmpty() || (SelectedRange().right > SeenFrozen() && range.right() <= FrozenWidth() + half))
        return {};
    return {range.right() - 2 * half, range.bottom() - 2 * half, 2 * half + 1, 2 * half + 1};
}

/// The frame of the selection is seen on every ground, that of the focused row too; so it needs no colour to tell.
void CGridCtrl::paintEvent(QPaintEvent* event)
{
    QTableView::paintEvent(event);
    if (Source() == nullptr)
        return;
    QPainter painter(viewport());
    PaintFrozen(painter);
    if (FocusCell().row == 0)
        return;
    const QColor frame = QColor::fromRgba(gridstyle::ColorsFor(palette()).focusFrame);
    if (HasRange()) {
        painter.setClipRect(ClipOf(SelectedRange()));
        QPen pen(frame, 2);
        pen.setJoinStyle(Qt::MiterJoin);
        painter.setPen(pen);
        painter.drawRect(RectOf(SelectedRange()).adjusted(1, 1, -1, -1));
        painter.setClipping(false);
    }
    if (const QRect handle = FillHandle(); !handle.isEmpty() && hasFocus()) {
        painter.fillRect(handle, QColor::fromRgba(gridstyle::ColorsFor(palette()).cell));
        painter.fillRect(handle.adjusted(1, 1, 0, 0), frame);
    }
    if (const std::optional<GridRange> covered = drag_->Covered()) {
        painter.setClipRect(ClipOf(*covered));
        painter.setPen(QPen(frame, 2, Qt::DashLine));
        painter.drawRect(RectOf(*covered).adjusted(1, 1, -1, -1));
    }
}

/// Makes a column as wide as its texts and its head need, and no wider than what is seen.
void CGridCtrl::FitColumn(int section)
{
    if (Source() == nullptr)
        return;
    constexpr int room = 2 * gridstyle::kPadding + 4;
    const int most = viewport()->width();
    int width = 0;
    for (const QString& line : Source()->Head(section + 1, 0).split(u'\n'))
        width = std::max(width, fontMetrics().horizontalAdvance(line.left(most)) + room);
    for (int row = 1; row <= Source()->UsedRows() && width < most; ++row)
        width = std::max(width, fontMetrics().horizontalAdvance(Source()->Text(row, section + 1).left(most)) + room);
    setColumnWidth(section,
                   std::clamp(width, head_->minimumSectionSize(), std::max(most, head_->minimumSectionSize())));
    KeepWidth(section);
}

void CGridCtrl::wheelEvent(QWheelEvent* event)
{
    const int turned = event->angleDelta().y();
    if (!(event->modifiers() & Qt::ControlModifier) || turned == 0) {
        QTableView::wheelEvent(event);
        return;
    }
    event->accept();
    emit zoomWanted(zoom_ + (turned > 0 ? kZoomStep : -kZoomStep));
}

void CGridCtrl::SetZoom(int percent)
{
    constexpr int least = 50;
    constexpr int most = 300;
    percent = std::clamp(percent, least, most);
    if (percent == zoom_)
        return;
    const int before = std::exchange(zoom_, percent);
    QFont scaled = gridstyle::GridFont();
    scaled.setPixelSize(std::max(1, scaled.pixelSize() * percent / 100));
    setFont(scaled);
    if (Source() == nullptr)
        return;
    const QModelIndex top = indexAt({0, 0});
    for (int column = 0; column < model_->columnCount(); ++column) // those that the user made wider stay so
        setColumnWidth(column, std::max(head_->minimumSectionSize(), columnWidth(column) * percent / before));
    int headHeight = Source()->HeadHeight() * percent / 100;
    for (int column = 0; column <= Source()->ColumnCount(); ++column)
        headHeight = std::max(headHeight, HeadTextHeight(fontMetrics(), Source()->Head(column, 0)));
    head_->setFixedHeight(headHeight);
    numbers_->setFixedWidth(Source()->ColumnWidth(0) * percent / 100);
    SetRowHeight(rowHeight_);
    updateGeometries();
    if (top.isValid())
        scrollTo(top, PositionAtTop);
    if (currentIndex().isValid())
        scrollTo(currentIndex());
}

} // namespace sbd
