#include "grid/grid_ctrl.h"

#include "grid/cell_editor.h"
#include "grid/grid_delegate.h"
#include "grid/grid_head.h"
#include "grid/grid_model.h"
#include "grid/grid_style.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethod>
#include <QKeyEvent>
#include <QMessageBox>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>

namespace sbd {

using namespace gridstyle;

CGridCtrl::CGridCtrl(QWidget* parent)
    : QTableView(parent)
    , model_(new CGridModel(this))
    , head_(new CGridHead(Qt::Horizontal, this))
    , numbers_(new CGridHead(Qt::Vertical, this))
    , corner_(new CGridCorner(this))
    , rowHeight_(kRowHeight)
{
    showMessage = [this](const QString& message) {
        QMessageBox::warning(this, QApplication::applicationDisplayName(), message);
    };
    setHorizontalHeader(head_);
    setVerticalHeader(numbers_);
    setModel(model_);
    setItemDelegate(new CGridDelegate(*this));
    SetUpView();
    connect(corner_, &CGridCorner::clicked, this, &CGridCtrl::selectAll);
}

CGridCtrl::~CGridCtrl()
{
    setModel(nullptr); // no more questions to the source
}

void CGridCtrl::SetUpView()
{
    setFont(GridFont());
    setFrameShape(QFrame::NoFrame);
    setShowGrid(false); // the delegate draws the lines
    setCornerButtonEnabled(false);
    setWordWrap(false);
    setSelectionMode(ContiguousSelection);
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerItem);
    numbers_->setSectionResizeMode(QHeaderView::Fixed);
    numbers_->setMinimumSectionSize(1);
    numbers_->setDefaultSectionSize(rowHeight_);
    head_->setMinimumSectionSize(10);
    head_->setSectionResizeMode(QHeaderView::Interactive);
}

void CGridCtrl::SetSource(CGridSource* source)
{
    refused_.reset();
    head_->SetSource(source);
    numbers_->SetSource(source);
    model_->SetSource(source);
    head_->SetFocusRow(0);
    if (!source)
        return;
    head_->setFixedHeight(source->HeadHeight());
    numbers_->setFixedWidth(source->ColumnWidth(0));
    corner_->SetText(source->Head(0, 0));
    for (int column = 1; column <= source->ColumnCount(); ++column)
        setColumnWidth(column - 1, source->ColumnWidth(column));
    ApplyRowHeights();
    updateGeometries();
}

CGridSource* CGridCtrl::Source() const
{
    return model_->Source();
}

void CGridCtrl::SetRowHeight(int pixels)
{
    rowHeight_ = pixels;
    numbers_->setDefaultSectionSize(pixels);
    ApplyRowHeights();
}

/// All rows have one height but for those whose texts have several lines.
void CGridCtrl::ApplyRowHeights()
{
    for (int row = 1; Source() && row <= model_->rowCount(); ++row) {
        const int lines = Source()->RowLines(row);
        const int height = lines == 1 ? rowHeight_ : std::max(rowHeight_, lines * fontMetrics().height() + 4);
        if (rowHeight(row - 1) != height)
            setRowHeight(row - 1, height);
    }
}

// --- focus -------------------------------------------------------------------------------------------

GridCell CGridCtrl::FocusCell() const
{
    return currentIndex().isValid() ? CGridModel::CellOf(currentIndex()) : GridCell{};
}

void CGridCtrl::SetFocusCell(int row, int column)
{
    const QModelIndex index = model_->IndexOf({row, column});
    if (index.isValid())
        setCurrentIndex(index);
}

void CGridCtrl::MoveFocus(int rows, int columns)
{
    const GridCell cell = FocusCell();
    if (cell.row == 0)
        return;
    MoveTo({std::clamp(cell.row + rows, 1, model_->rowCount()),
            std::clamp(cell.column + columns, 1, model_->columnCount())},
           false);
}

void CGridCtrl::MoveTo(GridCell cell, bool extend)
{
    const QModelIndex index = model_->IndexOf(cell);
    if (!index.isValid())
        return;
    if (extend) {
        // The selection reaches from where it began to the cell; the view knows where that is from a shift key.
        const GridRange range = SelectedRange();
        const GridCell focus = FocusCell();
        const int anchorRow = focus.row == range.top ? range.bottom : range.top;
        const int anchorColumn = focus.column == range.left ? range.right : range.left;
        const QItemSelection selection(model_->IndexOf({anchorRow, anchorColumn}), index);
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    } else {
        setCurrentIndex(index);
    }
    scrollTo(index);
}

GridRange CGridCtrl::SelectedRange() const
{
    const QItemSelection selection = selectionModel()->selection();
    const GridCell focus = FocusCell();
    if (selection.isEmpty())
        return {focus.row, focus.column, focus.row, focus.column};
    GridRange range{selection.first().top(), selection.first().left(), selection.first().bottom(),
                    selection.first().right()};
    for (const QItemSelectionRange& part : selection)
        range = {std::min(range.top, part.top()), std::min(range.left, part.left()),
                 std::max(range.bottom, part.bottom()), std::max(range.right, part.right())};
    return {range.top + 1, range.left + 1, range.bottom + 1, range.right + 1};
}

void CGridCtrl::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous); // writes what an open editor holds
    if (!Source())
        return;
    if (previous.isValid())
        emit selectionChanging(previous.row() + 1, previous.column() + 1);
    head_->SetFocusRow(current.row() + 1);
    viewport()->update();
    if (current.isValid())
        emit currentCellChanged(current.row() + 1, current.column() + 1);
}

// --- editing -----------------------------------------------------------------------------------------

bool CGridCtrl::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event)
{
    const bool editing = IsEditing();
    const bool opened = QTableView::edit(index, trigger, event);
    if (opened && !editing)
        typing_ = trigger == AnyKeyPressed;
    return opened;
}

QLineEdit* CGridCtrl::OpenLine() const
{
    return IsEditing() ? EditorLine(indexWidget(currentIndex())) : nullptr;
}

void CGridCtrl::StoreEdited(GridCell cell, const QString& text)
{
    if (text == Source()->Text(cell.row, cell.column))
        return;
    if (const std::optional<QString> character = Source()->RefusedCharacter(text)) {
        refused_ = RefusedText{cell, text, *character};
        QTimer::singleShot(0, this, &CGridCtrl::ReopenRefused); // when the editor that asks now is gone
        return;
    }
    Show(Source()->SetText(cell.row, cell.column, text), cell);
    emit cellEdited(cell.row, cell.column);
}

void CGridCtrl::TellRefused()
{
    showMessage(tr("「%1」はこのシステムの文字コード（シフトJIS）にない文字です。このセルは元のままです。"
                   "別の文字に置き換えて入力してください。")
                    .arg(refused_->character));
}

/// What was typed is not lost: the cell is open again with it, the refused character selected.
void CGridCtrl::ReopenRefused()
{
    if (!refused_)
        return;
    TellRefused();
    const RefusedText refused = *refused_;
    refused_.reset();
    SetFocusCell(refused.cell.row, refused.cell.column);
    if (!IsEditing())
        QTableView::edit(currentIndex());
    typing_ = false;
    QLineEdit* line = OpenLine();
    if (!line)
        return;
    line->setText(refused.text);
    line->setSelection(int(refused.text.indexOf(refused.character)), int(refused.character.size()));
}

bool CGridCtrl::CommitEditor()
{
    if (!IsEditing())
        return true;
    QGuiApplication::inputMethod()->commit();
    QWidget* editor = indexWidget(currentIndex());
    if (!editor)
        return true;
    commitData(editor);
    if (refused_) {
        TellRefused();
        refused_.reset();
        return false;
    }
    closeEditor(editor, QAbstractItemDelegate::NoHint);
    return true;
}

void CGridCtrl::OpenList()
{
    const GridCell cell = FocusCell();
    if (cell.row == 0 || !Source()->HasWords(cell.row, cell.column))
        return;
    if (!IsEditing())
        QTableView::edit(currentIndex());
    typing_ = false;
    if (CCellCombo* combo = qobject_cast<CCellCombo*>(indexWidget(currentIndex())))
        combo->showPopup();
}

void CGridCtrl::Show(GridEffect effect, GridCell cell)
{
    model_->Show(effect, cell);
    if (effect != GridEffect::All)
        return;
    ApplyRowHeights();
    head_->viewport()->update();
    viewport()->update();
}

void CGridCtrl::ShowAll()
{
    Show(GridEffect::All, {});
}

// --- commands ----------------------------------------------------------------------------------------

void CGridCtrl::Undo()
{
    if (IsEditing()) {
        CommitEditor(); // the edit ends; the next undo takes it back
        return;
    }
    const std::optional<GridCell> cell = Source() ? Source()->Undo() : std::nullopt;
    if (!cell)
        return;
    ShowAll();
    SetFocusCell(cell->row, cell->column);
    emit cellsChanged();
}

void CGridCtrl::Cut()
{
    if (QLineEdit* line = OpenLine()) {
        line->cut();
        return;
    }
    Copy();
    Delete();
}

void CGridCtrl::Copy()
{
    if (QLineEdit* line = OpenLine())
        line->copy();
    else if (Source() && FocusCell().row > 0)
        QApplication::clipboard()->setText(Source()->Copy(SelectedRange()));
}

void CGridCtrl::Paste()
{
    if (QLineEdit* line = OpenLine()) {
        line->paste();
        return;
    }
    const QString text = QApplication::clipboard()->text();
    if (!Source() || FocusCell().row == 0 || text.isEmpty())
        return;
    if (const std::optional<QString> character = Source()->RefusedCharacter(text)) {
        showMessage(tr("「%1」はこのシステムの文字コード（シフトJIS）にない文字です。貼り付けは行いませんでした。"
                       "別の文字に置き換えてから、もう一度貼り付けてください。")
                        .arg(*character));
        return;
    }
    const GridRange range = SelectedRange();
    GridRange filled;
    const GridEffect effect = Source()->Paste(range.top, range.left, text, &filled);
    if (effect == GridEffect::None)
        return;
    Show(effect, {range.top, range.left});
    SetFocusCell(range.top, range.left);
    selectionModel()->select(QItemSelection(model_->IndexOf({filled.top, filled.left}),
                                            model_->IndexOf({filled.bottom, filled.right})),
                             QItemSelectionModel::ClearAndSelect);
    emit cellsChanged();
}

void CGridCtrl::Delete()
{
    if (QLineEdit* line = OpenLine()) {
        line->del();
        return;
    }
    if (!Source() || FocusCell().row == 0)
        return;
    const GridRange range = SelectedRange();
    const GridEffect effect = Source()->Clear(range);
    if (effect == GridEffect::None)
        return;
    Show(effect, {range.top, range.left});
    viewport()->update();
    emit cellsChanged();
}

// --- keys and mouse ----------------------------------------------------------------------------------

namespace {

enum class Command { None, Undo, Cut, Copy, Paste, Delete };

Command CommandOf(const QKeyEvent& event)
{
    if (event.matches(QKeySequence::Copy))
        return Command::Copy;
    if (event.matches(QKeySequence::Cut))
        return Command::Cut;
    if (event.matches(QKeySequence::Paste))
        return Command::Paste;
    if (event.matches(QKeySequence::Undo))
        return Command::Undo;
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (event.key() == Qt::Key_Delete && modifiers == Qt::NoModifier)
        return Command::Delete;
    if (event.key() == Qt::Key_Insert && modifiers == Qt::ControlModifier)
        return Command::Copy;
    if (event.key() == Qt::Key_Insert && modifiers == Qt::ShiftModifier)
        return Command::Paste;
    if (event.key() == Qt::Key_Backspace && modifiers == Qt::AltModifier)
        return Command::Undo;
    return Command::None;
}

} // namespace

bool CGridCtrl::event(QEvent* event)
{
    // The grid's own keys come to the grid, whatever commands the window has on them.
    if (event->type() == QEvent::ShortcutOverride && !IsEditing()
        && CommandOf(*static_cast<QKeyEvent*>(event)) != Command::None) {
        event->accept();
        return true;
    }
    return QTableView::event(event);
}

bool CGridCtrl::HandleCommandKey(QKeyEvent* event)
{
    switch (CommandOf(*event)) {
    case Command::Undo:
        Undo();
        return true;
    case Command::Cut:
        Cut();
        return true;
    case Command::Copy:
        Copy();
        return true;
    case Command::Paste:
        Paste();
        return true;
    case Command::Delete:
        Delete();
        return true;
    case Command::None:
        return false;
    }
    return false;
}

/// Where an arrow with Ctrl leads: to the end of the filled cells, or over the empty ones to the next filled cell.
GridCell CGridCtrl::JumpTarget(GridCell from, int key) const
{
    const int rows = key == Qt::Key_Up ? -1 : key == Qt::Key_Down ? 1 : 0;
    const int columns = key == Qt::Key_Left ? -1 : key == Qt::Key_Right ? 1 : 0;
    const int lastRow = std::max(Source()->UsedRows(), from.row);
    const auto inside = [&](GridCell cell) {
        return cell.row >= 1 && cell.row <= lastRow && cell.column >= 1 && cell.column <= model_->columnCount();
    };
    const auto filled = [&](GridCell cell) { return !Source()->Text(cell.row, cell.column).isEmpty(); };
    GridCell cell = from;
    GridCell next{cell.row + rows, cell.column + columns};
    if (!inside(next))
        return from;
    const bool run = filled(from) && filled(next); // then to the last filled one
    while (inside(next)) {
        if (run && !filled(next))
            break;
        cell = next;
        if (!run && filled(cell))
            break;
        next = {cell.row + rows, cell.column + columns};
    }
    return cell;
}

bool CGridCtrl::HandleMoveKey(QKeyEvent* event)
{
    const bool control = event->modifiers() & Qt::ControlModifier;
    const bool shift = event->modifiers() & Qt::ShiftModifier;
    const bool alt = event->modifiers() & Qt::AltModifier;
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        MoveFocus(shift ? -1 : 1, 0);
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (alt) {
            OpenList();
            return true;
        }
        [[fallthrough]];
    case Qt::Key_Left:
    case Qt::Key_Right:
        if (control && FocusCell().row > 0)
            MoveTo(JumpTarget(FocusCell(), event->key()), shift);
        return control;
    case Qt::Key_End:
        if (control)
            MoveTo({std::max(1, Source()->UsedRows()), model_->columnCount()}, shift);
        return control;
    default:
        return false;
    }
}

void CGridCtrl::keyPressEvent(QKeyEvent* event)
{
    if (!Source() || IsEditing()) {
        QTableView::keyPressEvent(event);
        return;
    }
    if (HandleCommandKey(event) || HandleMoveKey(event))
        return;
    if (event->key() == Qt::Key_Backspace && !event->modifiers()) {
        if (edit(currentIndex(), AnyKeyPressed, nullptr))
            if (QLineEdit* line = OpenLine())
                line->clear();
        return;
    }
    QTableView::keyPressEvent(event);
}

void CGridCtrl::mousePressEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    const bool onButton = index.isValid() && index == currentIndex() && event->button() == Qt::LeftButton
                          && CGridDelegate::ButtonRect(visualRect(index)).contains(event->position().toPoint());
    if (onButton && model_->flags(index).testFlag(Qt::ItemIsEditable)
        && Source()->HasWords(index.row() + 1, index.column() + 1)) {
        OpenList();
        return;
    }
    QTableView::mousePressEvent(event);
}

/// With the keyboard the focus comes to the first cell that takes text.
void CGridCtrl::focusInEvent(QFocusEvent* event)
{
    if (Source() && !currentIndex().isValid() && event->reason() != Qt::MouseFocusReason
        && event->reason() != Qt::ActiveWindowFocusReason && model_->rowCount() > 0) {
        int column = 1;
        while (column < model_->columnCount() && !Source()->IsEditable(1, column))
            ++column;
        SetFocusCell(1, Source()->IsEditable(1, column) ? column : 1);
    }
    QTableView::focusInEvent(event);
}

// --- geometry ----------------------------------------------------------------------------------------

void CGridCtrl::updateGeometries()
{
    QTableView::updateGeometries();
    if (!corner_ || !numbers_ || !head_)
        return;
    corner_->setGeometry(frameWidth(), frameWidth(), numbers_->width(), head_->height());
    corner_->raise();
}

void CGridCtrl::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    updateGeometries();
}

} // namespace sbd
