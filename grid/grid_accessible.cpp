#include "grid/grid_accessible.h"

#include "grid/grid_ctrl.h"
#include "grid/grid_model.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QHeaderView>

#include <algorithm>
#include <map>

namespace sbd {

namespace {

class GridAccessible;

/// A cell, a head of a column (row 0), a number of a row (column 0), or the corner.
class CellAccessible : public QAccessibleInterface,
                       public QAccessibleTableCellInterface,
                       public QAccessibleActionInterface {
public:
    CellAccessible(GridAccessible& table, GridCell cell) : table_(table), cell_(cell) {}

    [[nodiscard]] GridCell Cell() const { return cell_; }

    [[nodiscard]] bool isValid() const override;
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    [[nodiscard]] QString text(QAccessible::Text what) const override;
    void setText(QAccessible::Text, const QString&) override {}
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TableCellInterface)
            return static_cast<QAccessibleTableCellInterface*>(this);
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }

    // --- the cell in its table
    [[nodiscard]] bool isSelected() const override;
    [[nodiscard]] QList<QAccessibleInterface*> columnHeaderCells() const override;
    [[nodiscard]] QList<QAccessibleInterface*> rowHeaderCells() const override;
    [[nodiscard]] int columnIndex() const override { return cell_.column - 1; }
    [[nodiscard]] int rowIndex() const override;
    [[nodiscard]] int columnExtent() const override { return 1; }
    [[nodiscard]] int rowExtent() const override { return 1; }
    [[nodiscard]] QAccessibleInterface* table() const override;

    // --- what can be done with it
    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& name) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    [[nodiscard]] bool IsCell() const { return cell_.row > 0 && cell_.column > 0; }

    GridAccessible& table_;
    GridCell cell_;
};

/// A table whose rows are those in sight. Its children are numbered as the view numbers them when it tells of one: row
/// by row, heads and row numbers among them, rows out of sight too; such a row's cells say that they are not seen.
class GridAccessible : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit GridAccessible(CGridCtrl& grid) : QAccessibleWidget(&grid, QAccessible::Table), grid_(grid) {}
    ~GridAccessible() override { Forget(); }

    [[nodiscard]] CGridCtrl& Grid() const { return grid_; }
    [[nodiscard]] const CGridSource* Source() const { return grid_.Source(); }
    [[nodiscard]] int Rows() const { return grid_.model()->rowCount(); }
    [[nodiscard]] int Columns() const { return grid_.model()->columnCount(); }
    [[nodiscard]] bool IsSeen(int row) const { return !grid_.isRowHidden(row - 1); }
    [[nodiscard]] bool IsInside(GridCell cell) const
    {
        return cell.row >= 0 && cell.row <= Rows() && cell.column >= 0 && cell.column <= Columns() && Source();
    }
    /// Rows in sight ahead of `row`.
    [[nodiscard]] int SeenAhead(int row) const
    {
        int seen = 0;
        for (int before = 1; before < row; ++before)
            seen += IsSeen(before) ? 1 : 0;
        return seen;
    }

    /// Made when it is asked for; it lives until the cells are others.
    [[nodiscard]] QAccessibleInterface* Child(GridCell cell) const
    {
        if (!IsInside(cell))
            return nullptr;
        const int place = PlaceOf(cell);
        if (const auto made = made_.find(place); made != made_.end())
            if (QAccessibleInterface* child = QAccessible::accessibleInterface(made->second))
                return child;
        auto* child = new CellAccessible(const_cast<GridAccessible&>(*this), cell);
        made_[place] = QAccessible::registerAccessibleInterface(child);
        return child;
    }
    void Forget() const
    {
        for (const auto& [place, id] : made_)
            QAccessible::deleteAccessibleInterface(id);
        made_.clear();
    }

    [[nodiscard]] int childCount() const override { return Source() != nullptr ? (Rows() + 1) * (Columns() + 1) : 0; }
    [[nodiscard]] QAccessibleInterface* child(int index) const override
    {
        return index < 0 || index >= childCount() ? nullptr : Child({index / (Columns() + 1), index % (Columns() + 1)});
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override
    {
        const auto* cell = dynamic_cast<const CellAccessible*>(child);
        return cell != nullptr ? PlaceOf(cell->Cell()) : -1;
    }
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override
    {
        const QModelIndex index = grid_.indexAt(grid_.viewport()->mapFromGlobal(QPoint(x, y)));
        return index.isValid() ? Child(CGridModel::CellOf(index)) : nullptr;
    }
    [[nodiscard]] QAccessibleInterface* focusChild() const override
    {
        const GridCell focus = grid_.FocusCell();
        return grid_.hasFocus() && focus.row > 0 ? Child(focus) : nullptr;
    }
    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.multiSelectable = true;
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }

    // --- the table
    [[nodiscard]] QAccessibleInterface* caption() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* summary() const override { return nullptr; }
    /// The `row`th in sight.
    [[nodiscard]] QAccessibleInterface* cellAt(int row, int column) const override
    {
        int at = row < 0 ? 0 : 1;
        for (int left = row; at > 0 && at <= Rows(); ++at)
            if (IsSeen(at) && left-- == 0)
                break;
        return at == 0 || at > Rows() || column < 0 || column >= Columns() ? nullptr : Child({at, column + 1});
    }
    [[nodiscard]] int rowCount() const override { return SeenAhead(Rows() + 1); }
    [[nodiscard]] int columnCount() const override { return Columns(); }
    [[nodiscard]] QString columnDescription(int column) const override
    {
        return Source() != nullptr && column >= 0 && column < Columns() ? HeadOnOneLine(Source()->Head(column + 1, 0))
                                                                        : QString();
    }
    [[nodiscard]] QString rowDescription(int row) const override
    {
        const auto* cell = dynamic_cast<CellAccessible*>(cellAt(row, 0));
        return cell != nullptr ? Source()->RowNumber(cell->Cell().row) : QString();
    }

    [[nodiscard]] int selectedCellCount() const override { return int(selectedCells().size()); }
    [[nodiscard]] QList<QAccessibleInterface*> selectedCells() const override
    {
        constexpr qsizetype most = 1000; // a screen reader says how many; more are told by no one
        QList<QAccessibleInterface*> cells;
        const GridRange range = grid_.SelectedRange();
        for (int row = range.top; row > 0 && row <= range.bottom && cells.size() < most; ++row)
            for (int column = range.left; IsSeen(row) && column <= range.right; ++column)
                cells << Child({row, column});
        return cells;
    }
    [[nodiscard]] int selectedRowCount() const override { return int(selectedRows().size()); }
    [[nodiscard]] int selectedColumnCount() const override { return int(selectedColumns().size()); }
    [[nodiscard]] QList<int> selectedRows() const override
    {
        QList<int> rows;
        const GridRange range = grid_.SelectedRange();
        if (range.left == 1 && range.right == Columns())
            for (int row = range.top; row > 0 && row <= range.bottom; ++row)
                if (IsSeen(row))
                    rows << SeenAhead(row);
        return rows;
    }
    [[nodiscard]] QList<int> selectedColumns() const override
    {
        QList<int> columns;
        const GridRange range = grid_.SelectedRange();
        if (range.top == 1 && range.bottom == Rows())
            for (int column = range.left; column <= range.right; ++column)
                columns << column - 1;
        return columns;
    }
    [[nodiscard]] bool isColumnSelected(int column) const override { return selectedColumns().contains(column); }
    [[nodiscard]] bool isRowSelected(int row) const override { return selectedRows().contains(row); }
    bool selectRow(int row) override
    {
        const auto* cell = dynamic_cast<CellAccessible*>(cellAt(row, 0));
        if (cell != nullptr)
            grid_.selectRow(cell->Cell().row - 1);
        // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): QAccessible owns what Child() makes
        return cell != nullptr;
    }
    bool selectColumn(int column) override
    {
        if (column < 0 || column >= Columns())
            return false;
        grid_.selectColumn(column);
        return true;
    }
    bool unselectRow(int) override { return false; } // a selection is one rectangle
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent*) override { Forget(); }

private:
    [[nodiscard]] int PlaceOf(GridCell cell) const { return cell.row * (Columns() + 1) + cell.column; }

    CGridCtrl& grid_;
    mutable std::map<int, QAccessible::Id> made_; // by place
};

bool CellAccessible::isValid() const
{
    return table_.isValid() && table_.IsInside(cell_);
}

QAccessibleInterface* CellAccessible::parent() const
{
    return &table_;
}

QAccessibleInterface* CellAccessible::table() const
{
    return &table_;
}

QString CellAccessible::text(QAccessible::Text what) const
{
    if (!isValid())
        return {};
    const CGridSource& source = *table_.Source();
    if (IsCell()) {
        const QAbstractItemModel& cells = *table_.Grid().model();
        const QModelIndex index = cells.index(cell_.row - 1, cell_.column - 1);
        if (what == QAccessible::Name || what == QAccessible::Value)
            return index.data(Qt::DisplayRole).toString();
        return what == QAccessible::Description ? index.data(Qt::AccessibleDescriptionRole).toString() : QString();
    }
    if (what == QAccessible::Description && cell_.row > 0)
        return table_.Grid().Marks().RowToolTip(cell_.row);
    if (what != QAccessible::Name)
        return {};
    return cell_.row == 0 ? HeadOnOneLine(source.Head(cell_.column, 0)) : source.RowNumber(cell_.row);
}

QRect CellAccessible::rect() const
{
    if (!isValid())
        return {};
    const CGridCtrl& grid = table_.Grid();
    const QHeaderView& heads = *grid.horizontalHeader();
    const QHeaderView& numbers = *grid.verticalHeader();
    // A head stands above the cells of its column, a number beside those of its row.
    const GridCell beside{std::max(cell_.row, 1), std::max(cell_.column, 1)};
    QRect place = grid.visualRect(grid.model()->index(beside.row - 1, beside.column - 1));
    if (!place.isValid())
        return {};
    place.moveTopLeft(grid.viewport()->mapToGlobal(place.topLeft()));
    if (cell_.row == 0)
        place = QRect(place.left(), heads.mapToGlobal(QPoint()).y(), place.width(), heads.height());
    if (cell_.column == 0)
        place = QRect(numbers.mapToGlobal(QPoint()).x(), place.top(), numbers.width(), place.height());
    return place;
}

QAccessible::Role CellAccessible::role() const
{
    if (IsCell())
        return QAccessible::Cell;
    return cell_.row == 0 ? QAccessible::ColumnHeader : QAccessible::RowHeader;
}

QAccessible::State CellAccessible::state() const
{
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    const CGridCtrl& grid = table_.Grid();
    state.invisible = cell_.row > 0 && !table_.IsSeen(cell_.row);
    state.offscreen = !state.invisible && !rect().intersects(QRect(grid.mapToGlobal(QPoint()), grid.size()));
    if (!IsCell())
        return state;
    state.focusable = true;
    state.selectable = true;
    state.focused = grid.FocusCell() == cell_ && grid.hasFocus();
    state.selected = isSelected();
    state.editable = table_.Source()->IsEditable(cell_.row, cell_.column);
    state.readOnly = !state.editable;
    state.hasPopup = state.editable && table_.Source()->HasWords(cell_.row, cell_.column);
    return state;
}

bool CellAccessible::isSelected() const
{
    const GridRange range = table_.Grid().SelectedRange();
    return cell_.row >= range.top && cell_.row <= range.bottom && cell_.column >= range.left
           && cell_.column <= range.right;
}

QList<QAccessibleInterface*> CellAccessible::columnHeaderCells() const
{
    QList<QAccessibleInterface*> heads;
    if (QAccessibleInterface* head = table_.Child({0, cell_.column}); head != nullptr && cell_.row > 0)
        heads << head;
    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): QAccessible owns what Child() makes
    return heads;
}

QList<QAccessibleInterface*> CellAccessible::rowHeaderCells() const
{
    QList<QAccessibleInterface*> numbers;
    if (QAccessibleInterface* number = table_.Child({cell_.row, 0}); number != nullptr && cell_.column > 0)
        numbers << number;
    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): QAccessible owns what Child() makes
    return numbers;
}

int CellAccessible::rowIndex() const
{
    return cell_.row == 0 ? -1 : table_.SeenAhead(cell_.row);
}

QStringList CellAccessible::actionNames() const
{
    return isValid() && IsCell() ? QStringList{setFocusAction()} : QStringList();
}

void CellAccessible::doAction(const QString& name)
{
    if (name == setFocusAction() && isValid() && IsCell() && table_.IsSeen(cell_.row))
        table_.Grid().SetFocusCell(cell_.row, cell_.column);
}

QAccessibleInterface* MakeAccessible(const QString&, QObject* object)
{
    auto* grid = qobject_cast<CGridCtrl*>(object);
    return grid != nullptr ? new GridAccessible(*grid) : nullptr;
}

} // namespace

void TellScreenReaders()
{
    static const bool once = [] {
        QAccessible::installFactory(&MakeAccessible);
        return true;
    }();
    (void)once;
}

} // namespace sbd
