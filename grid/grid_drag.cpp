#include "grid/grid_drag.h"

#include "grid/grid_ctrl.h"
#include "grid/grid_delegate.h"
#include "grid/grid_model.h"

#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace sbd {

namespace {

constexpr int kScrollPause = 60; // milliseconds between two cells

} // namespace

CGridDrag::CGridDrag(CGridCtrl& grid) : QObject(&grid), grid_(grid)
{
    timer_.setInterval(kScrollPause);
    connect(&timer_, &QTimer::timeout, this, &CGridDrag::Follow);
}

bool CGridDrag::Press(const QMouseEvent& event)
{
    drag_ = Drag::None;
    if (event.button() != Qt::LeftButton || grid_.Source() == nullptr)
        return false;
    pos_ = event.position().toPoint();
    fromFrozen_ = pos_.x() < grid_.FrozenWidth();
    if (!grid_.IsEditing() && grid_.FillHandle().contains(pos_)) {
        drag_ = Drag::Fill;
        from_ = grid_.SelectedRange();
        covered_.reset();
        return true;
    }
    const QModelIndex index = grid_.indexAt(pos_);
    if (!index.isValid())
        return false;
    if (event.modifiers() == Qt::ShiftModifier && grid_.FocusCell().row > 0 && grid_.CommitEditor()) {
        drag_ = Drag::Select;
        grid_.ExtendTo(CGridModel::CellOf(index));
        return true;
    }
    if (event.modifiers() == Qt::NoModifier)
        drag_ = Drag::Select;
    return false; // the view puts the focus there
}

bool CGridDrag::Move(const QMouseEvent& event)
{
    pos_ = event.position().toPoint();
    if (drag_ == Drag::None || !(event.buttons() & Qt::LeftButton)) {
        const bool onHandle = grid_.FillHandle().contains(pos_);
        if (event.buttons() == Qt::NoButton)
            onHandle ? grid_.viewport()->setCursor(Qt::CrossCursor) : grid_.viewport()->unsetCursor();
        return false;
    }
    if (drag_ == Drag::Select && grid_.IsEditing())
        return false;
    Follow();
    if (grid_.viewport()->rect().contains(pos_) && !IsPastFrozen())
        timer_.stop();
    else if (!timer_.isActive())
        timer_.start();
    return true;
}

bool CGridDrag::Release(const QMouseEvent& event)
{
    timer_.stop();
    const Drag drag = std::exchange(drag_, Drag::None);
    const std::optional<GridRange> covered = std::exchange(covered_, std::nullopt);
    if (drag != Drag::Fill)
        return false;
    grid_.viewport()->update();
    // The handle lies over the corner of a list's button: a click there is for the list.
    if (!covered && CGridDelegate::ButtonRect(grid_.visualRect(grid_.currentIndex())).contains(pos_))
        grid_.OpenList();
    if (covered)
        grid_.FillFrom(from_, *covered, event.modifiers() & Qt::ControlModifier);
    return true;
}

/// A drag that began among the scrolled columns has come over those that stay, while there is something to scroll to.
bool CGridDrag::IsPastFrozen() const
{
    return !fromFrozen_ && pos_.x() < grid_.FrozenWidth() && grid_.horizontalScrollBar()->value() > 0;
}

/// The cell at a place, or the nearest one beyond the edge of what is seen.
GridCell CGridDrag::CellAt(QPoint pos) const
{
    const QRect seen = grid_.viewport()->rect();
    const QPoint inside(std::clamp(pos.x(), seen.left(), seen.right()), std::clamp(pos.y(), seen.top(), seen.bottom()));
    const int rows = grid_.model()->rowCount();
    const int columns = grid_.model()->columnCount();
    int row = grid_.rowAt(inside.y()) + 1;
    int column = grid_.ColumnAtX(inside.x());
    if (row == 0) // below the last row
        row = grid_.SeenRow(rows, -1);
    if (column == 0)
        column = columns;
    if (pos.y() < seen.top())
        row = grid_.SeenRow(std::max(row - 1, 1), 1);
    if (pos.y() > seen.bottom())
        row = grid_.SeenRow(std::min(row + 1, rows), -1);
    if (IsPastFrozen()) { // what is scrolled below the columns that stay comes first
        const int border = grid_.FrozenWidth();
        column = grid_.ColumnAtX(border);
        if (grid_.columnViewportPosition(column - 1) >= border)
            column = std::max(column - 1, 1);
    } else if (pos.x() < seen.left()) {
        column = std::max(column - 1, 1);
    }
    if (pos.x() > seen.right())
        column = std::min(column + 1, columns);
    return {row, column};
}

/// The source of the fill and the cell, in the direction in which the cell is farther away.
GridRange CGridDrag::WithCell(GridCell cell) const
{
    const int rows = std::max({from_.top - cell.row, cell.row - from_.bottom, 0});
    const int columns = std::max({from_.left - cell.column, cell.column - from_.right, 0});
    GridRange range = from_;
    if (rows >= columns) {
        range.top = std::min(range.top, cell.row);
        range.bottom = std::max(range.bottom, cell.row);
    } else {
        range.left = std::min(range.left, cell.column);
        range.right = std::max(range.right, cell.column);
    }
    return range;
}

void CGridDrag::Follow()
{
    const GridCell cell = CellAt(pos_);
    if (drag_ == Drag::None || cell.row == 0)
        return;
    if (drag_ == Drag::Select) {
        grid_.ExtendTo(cell);
        return;
    }
    const GridRange range = WithCell(cell);
    const bool larger =
        range.top < from_.top || range.bottom > from_.bottom || range.left < from_.left || range.right > from_.right;
    covered_ = larger ? std::optional(range) : std::nullopt;
    grid_.scrollTo(grid_.model()->index(cell.row - 1, cell.column - 1));
    grid_.viewport()->update();
}

} // namespace sbd
