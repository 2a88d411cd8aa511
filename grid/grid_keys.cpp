// The commands, keys and mouse of CGridCtrl.
#include "commands/commands.h"
#include "grid/cell_editor.h"
#include "grid/clipboard_table.h"
#include "grid/grid_ctrl.h"
#include "grid/grid_delegate.h"
#include "grid/grid_drag.h"
#include "grid/grid_model.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QStatusTipEvent>

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

namespace sbd {

// --- commands ----------------------------------------------------------------------------------------

void CGridCtrl::Undo()
{
    if (IsEditing()) {
        CommitEditor(); // the edit ends; the next undo takes it back
        return;
    }
    const std::optional<GridCell> cell = Source() != nullptr ? Source()->Undo() : std::nullopt;
    if (!cell)
        return;
    const int column = cell->column > 0 ? cell->column : std::max(FocusCell().column, 1);
    SetFocusCell(cell->row, column); // first: the row of the focus may be one of those that go
    ShowAll();
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
    else if (Source() != nullptr && FocusCell().row > 0)
        PutOnClipboard(false);
}

void CGridCtrl::Paste()
{
    if (QLineEdit* line = OpenLine()) {
        line->paste();
        return;
    }
    const QMimeData* onClipboard = Source() != nullptr ? QApplication::clipboard()->mimeData() : nullptr;
    const QString text = onClipboard != nullptr ? ClipboardTable(*onClipboard) : QString();
    if (Source() == nullptr || FocusCell().row == 0 || text.isEmpty())
        return;
    const GridRange range = SelectedRange();
    const GridPaste paste = Source()->PasteOver(range, text);
    if (paste.effect != GridEffect::None) {
        Show(paste.effect, {range.top, range.left});
        // Below an automatic row, where the range began with it.
        const int top = std::max(SeenRow(paste.filled.top, 1), 1);
        SetFocusCell(top, paste.filled.left);
        SelectRange({std::min(top, paste.filled.bottom), paste.filled.left, paste.filled.bottom, paste.filled.right});
        emit cellsChanged();
    }
    TellPaste(paste);
}

/// Names what the cells cannot hold, and says what that means.
void CGridCtrl::TellPaste(const GridPaste& paste)
{
    constexpr qsizetype named = 5;
    const bool pasted = paste.effect != GridEffect::None;
    QString numbers;
    if (paste.notNumbers > 0)
        numbers = tr("「%1」は数値として読めません。数値だけが入る %2 個のセル（最初は %3）は元のままです。")
                      .arg(paste.notNumber)
                      .arg(paste.notNumbers)
                      .arg(CellName(paste.firstNotNumber))
                  + (pasted ? tr("ほかのセルには貼り付けました。") : QString());
    if (const QString left = TellLeft(paste); !left.isEmpty())
        numbers += (numbers.isEmpty() ? QString() : QStringLiteral("\n")) + left;
    if (paste.refused.isEmpty() || (pasted && paste.keptCells == 0)) { // where nothing can be put, nothing is missing
        showNotice(numbers);
        return;
    }
    QString message = tr("「%1」%2はこのシステムの文字コード（シフトJIS）にない文字です。")
                          .arg(paste.refused.mid(0, named).join(tr("」「")),
                               paste.refused.size() > named ? tr("など %1 種類").arg(paste.refused.size()) : QString());
    if (pasted)
        message += tr("この文字のある %1 個のセル（最初は %2）は元のままです。ほかのセルには貼り付けました。"
                      "別の文字に置き換えて入力してください。")
                       .arg(paste.keptCells)
                       .arg(CellName(paste.firstKept));
    else
        message += tr("貼り付けは行いませんでした。別の文字に置き換えてから、もう一度貼り付けてください。");
    showNotice(numbers.isEmpty() ? message : message + u'\n' + numbers);
}

void CGridCtrl::Delete()
{
    if (QLineEdit* line = OpenLine()) {
        line->del();
        return;
    }
    if (Source() == nullptr || FocusCell().row == 0)
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

/// The command table's key, or one that the desktop has for the same (Shift+Del cuts).
Command CommandOf(const QKeyEvent& event)
{
    const QKeyCombination pressed(event.modifiers() & ~Qt::KeypadModifier, static_cast<Qt::Key>(event.key()));
    const std::string key = QKeySequence(pressed).toString(QKeySequence::PortableText).toStdString();
    if (const std::optional<Command> command = CommandOfKey(KeyScope::Grid, key))
        return *command;
    if (event.matches(QKeySequence::Copy))
        return Command::Copy;
    if (event.matches(QKeySequence::Cut))
        return Command::Cut;
    if (event.matches(QKeySequence::Paste))
        return Command::Paste;
    if (event.matches(QKeySequence::Undo))
        return Command::Undo;
    return Command::None;
}

} // namespace

/// The command of a key, as far as the cells have it: where they cannot be filled, Ctrl+Enter is the window's.
Command CGridCtrl::OwnCommandOf(const QKeyEvent& event) const
{
    const Command command = CommandOf(event);
    const bool fills =
        command == Command::FillDown || command == Command::FillRight || command == Command::FillSelection;
    return fills && (Source() == nullptr || !Source()->CanFill()) ? Command::None : command;
}

bool CGridCtrl::event(QEvent* event)
{
    // The grid's own keys come to the grid, whatever commands the window has on them.
    if (event->type() == QEvent::ShortcutOverride && !IsEditing()
        && OwnCommandOf(*static_cast<QKeyEvent*>(event)) != Command::None) {
        event->accept();
        return true;
    }
    return QTableView::event(event);
}

bool CGridCtrl::HandleCommandKey(QKeyEvent* event)
{
    const Command command = OwnCommandOf(*event);
    const bool movesRow = command == Command::MoveRowUp || command == Command::MoveRowDown;
    // Such a key is for the list of a single cell, as it is in an editor; rows that are selected move.
    if (movesRow && (!Source()->MovesRows() || OpensList()))
        return false;
    return RunCommand(command);
}

bool CGridCtrl::OpensList() const
{
    const GridCell focus = FocusCell();
    const GridRange range = SelectedRange();
    return focus.row > 0 && range.top == range.bottom && range.left == range.right
           && Source()->HasWords(focus.row, focus.column) && Source()->IsEditable(focus.row, focus.column);
}

bool CGridCtrl::RunCommand(Command command)
{
    if (Source() == nullptr)
        return false;
    const bool edits = IsEditing();
    switch (command) {
    case Command::FillDown:
        if (!edits)
            Fill(GridFill::Down);
        return true;
    case Command::FillRight:
        if (!edits)
            Fill(GridFill::Right);
        return true;
    case Command::FillSelection:
        if (!edits && FocusCell().row > 0)
            FillSelected(Source()->Text(FocusCell().row, FocusCell().column));
        else if (QWidget* editor = edits ? indexWidget(currentIndex()) : nullptr)
            static_cast<CGridDelegate*>(itemDelegate())->FinishInRange(editor);
        return true;
    case Command::CopyWithHeads:
        CopyWithHeads();
        return true;
    case Command::OpenList:
        OpenList();
        return true;
    case Command::SelectRow:
    case Command::SelectColumn:
        if (!edits && FocusCell().row > 0)
            SelectThrough(command == Command::SelectRow);
        return true;
    case Command::SelectAllCells:
        if (QLineEdit* line = OpenLine())
            line->selectAll();
        else
            selectAll();
        return true;
    case Command::ZoomCellsIn:
        emit zoomWanted(zoom_ + kZoomStep);
        return true;
    case Command::ZoomCellsOut:
        emit zoomWanted(zoom_ - kZoomStep);
        return true;
    case Command::ZoomCellsReset:
        emit zoomWanted(100);
        return true;
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
    default:
        emit commandWanted(command);
        return true;
    }
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
    // The next cell in sight; row 0 is outside.
    const auto behind = [&](GridCell cell) {
        return GridCell{rows == 0 ? cell.row : SeenRow(cell.row + rows, rows), cell.column + columns};
    };
    GridCell cell = from;
    GridCell next = behind(cell);
    if (!inside(next))
        return from;
    const bool run = filled(from) && filled(next); // then to the last filled one
    while (inside(next)) {
        if (run && !filled(next))
            break;
        cell = next;
        if (!run && filled(cell))
            break;
        next = behind(cell);
    }
    return cell;
}

/// Selects the whole row or the whole column of the focused cell, which keeps the focus.
void CGridCtrl::SelectThrough(bool row)
{
    const GridCell cell = FocusCell();
    const GridCell first = row ? GridCell{cell.row, 1} : GridCell{1, cell.column};
    const GridCell last = row ? GridCell{cell.row, model_->columnCount()} : GridCell{model_->rowCount(), cell.column};
    selectionModel()->select(QItemSelection(model_->IndexOf(first), model_->IndexOf(last)),
                             QItemSelectionModel::ClearAndSelect);
}

bool CGridCtrl::HandleMoveKey(QKeyEvent* event)
{
    const bool control = event->modifiers() & Qt::ControlModifier;
    const bool shift = event->modifiers() & Qt::ShiftModifier;
    const bool alt = event->modifiers() & Qt::AltModifier;
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        MoveByEnter(shift);
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
        if (alt && !control && !shift)
            return true; // the window's keys for back and forward, where there is such a place
        if ((control || shift) && FocusCell().row > 0)
            MoveTo(control ? JumpTarget(shift ? Extent() : FocusCell(), event->key())
                           : Neighbour(Extent(), event->key()),
                   shift);
        return control || shift;
    case Qt::Key_Home:
        MoveTo(control ? GridCell{SeenRow(1, 1), 1}
                       : GridCell{shift ? Extent().row : FocusCell().row, FirstFreeColumn()},
               shift);
        return true;
    case Qt::Key_End:
        if (control)
            MoveTo({SeenRow(std::max(1, Source()->UsedRows()), -1), model_->columnCount()}, shift);
        else if (shift)
            MoveTo({Extent().row, model_->columnCount()}, true);
        return control || shift;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        if (!control && FocusCell().row > 0)
            MoveTo(PageTarget(shift ? Extent() : FocusCell(), event->key() == Qt::Key_PageDown), shift);
        return !control;
    case Qt::Key_F10:
        if (shift && !control && !alt)
            OpenMenu();
        return shift && !control && !alt;
    case Qt::Key_Tab:
        MoveByTab(shift);
        return true;
    case Qt::Key_Backtab:
        MoveByTab(true);
        return true;
    default:
        return false;
    }
}

/// The menu of the focused cell, as the key for menus opens it.
void CGridCtrl::OpenMenu()
{
    if (FocusCell().row == 0)
        return;
    scrollTo(currentIndex());
    const QRect cell = visualRect(currentIndex()) & viewport()->rect();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, mapFromGlobal(viewport()->mapToGlobal(cell.center())),
                            viewport()->mapToGlobal(cell.center()));
    QApplication::sendEvent(this, &event);
}

/// The view keeps the focus until the first composition in an editor has ended; so keys come here until then.
void CGridCtrl::GiveUpComposition()
{
    QInputMethodEvent nothing;
    inputMethodEvent(&nothing); // ends it for the view too
    if (QWidget* editor = indexWidget(currentIndex()))
        closeEditor(editor, QAbstractItemDelegate::RevertModelCache);
}

/// A key that would change a cell which takes no text: the status bar says why nothing happens.
void CGridCtrl::TellLocked(const QKeyEvent& event)
{
    const GridCell cell = FocusCell();
    const bool edits = event.key() == Qt::Key_F2 || event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete;
    const bool types = !event.text().isEmpty() && event.text()[0].isPrint()
                       && !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (cell.row == 0 || !(edits || types) || Source()->IsEditable(cell.row, cell.column))
        return;
    const GridRange range = SelectedRange();
    if (range.top == range.bottom && range.left == range.right) // a key on several cells is for those that take it
        TellInStatusBar(Source()->WhyLocked(cell.row, cell.column));
}

void CGridCtrl::TellInStatusBar(const QString& text)
{
    hasTold_ = !text.isEmpty();
    QStatusTipEvent event(text);
    QApplication::sendEvent(this, &event);
}

void CGridCtrl::ForgetTold()
{
    if (hasTold_)
        TellInStatusBar({});
}

void CGridCtrl::keyPressEvent(QKeyEvent* event)
{
    if (IsEditing() && event->key() == Qt::Key_Escape) {
        GiveUpComposition();
        return;
    }
    if (Source() == nullptr || IsEditing()) {
        QTableView::keyPressEvent(event);
        return;
    }
    if (CommandOf(*event) == Command::Delete)
        TellLocked(*event);
    if (HandleCommandKey(event) || HandleMoveKey(event))
        return;
    TellLocked(*event);
    if (event->key() == Qt::Key_Backspace && !event->modifiers()) {
        if (edit(currentIndex(), AnyKeyPressed, nullptr))
            if (QLineEdit* line = OpenLine())
                line->clear();
        return;
    }
    QTableView::keyPressEvent(event);
}

/// There is one selected range, and the focused cell is in it: Ctrl puts no cells beside it and takes none out.
static QMouseEvent ForOneRange(const QMouseEvent& event)
{
    return {event.type(),
            event.position(),
            event.scenePosition(),
            event.globalPosition(),
            event.button(),
            event.buttons(),
            event.modifiers() & Qt::ShiftModifier,
            event.pointingDevice()};
}

void CGridCtrl::mousePressEvent(QMouseEvent* event)
{
    QMouseEvent plain = ForOneRange(*event);
    pressedBeside_ = !indexAt(event->position().toPoint()).isValid();
    if (drag_->Press(plain) || pressedBeside_)
        return;      // beside the cells there is nothing to select
    if (IsEditing()) // what is being composed belongs to the cell under edit, not to the one that is clicked
        QGuiApplication::inputMethod()->commit();
    pressedButton_ = IsOnListButton(*event);
    if (!pressedButton_)
        QTableView::mousePressEvent(&plain);
}

/// The second of two quick clicks on the button of a list: the first brought the focus, this one is for the list.
void CGridCtrl::mouseDoubleClickEvent(QMouseEvent* event)
{
    pressedButton_ = IsOnListButton(*event);
    if (!pressedButton_)
        QTableView::mouseDoubleClickEvent(event);
}

void CGridCtrl::mouseMoveEvent(QMouseEvent* event)
{
    QMouseEvent plain = ForOneRange(*event);
    const bool beside = pressedBeside_ && event->buttons() != Qt::NoButton;
    if (!pressedButton_ && !drag_->Move(*event) && !beside) // a press on the button begins no selection
        QTableView::mouseMoveEvent(&plain);
}

/// The list opens when the button is let go: opened by the press, it would close again by the same click.
void CGridCtrl::mouseReleaseEvent(QMouseEvent* event)
{
    if (drag_->Release(*event) || std::exchange(pressedBeside_, false))
        return;
    const bool pressed = std::exchange(pressedButton_, false);
    if (pressed && IsOnListButton(*event))
        OpenList();
    else if (!pressed) {
        QMouseEvent plain = ForOneRange(*event);
        QTableView::mouseReleaseEvent(&plain);
    }
}

bool CGridCtrl::IsOnListButton(const QMouseEvent& event) const
{
    const QPoint pos = event.position().toPoint();
    const QModelIndex index = indexAt(pos);
    return event.button() == Qt::LeftButton && index.isValid() && index == currentIndex()
           && CGridDelegate::ButtonRect(visualRect(index)).contains(pos)
           && model_->flags(index).testFlag(Qt::ItemIsEditable)
           && Source()->HasWords(index.row() + 1, index.column() + 1);
}

/// With the keyboard the focus comes to the first cell that takes text.
void CGridCtrl::focusInEvent(QFocusEvent* event)
{
    if (Source() != nullptr && !currentIndex().isValid() && event->reason() != Qt::MouseFocusReason
        && event->reason() != Qt::ActiveWindowFocusReason && model_->rowCount() > 0) {
        int column = 1;
        while (column < model_->columnCount() && !Source()->IsEditable(1, column))
            ++column;
        SetFocusCell(1, Source()->IsEditable(1, column) ? column : 1);
    }
    QTableView::focusInEvent(event);
}

} // namespace sbd
