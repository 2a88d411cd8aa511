#include "grid/grid_ctrl.h"

#include "grid/cell_editor.h"
#include "grid/grid_accessible.h"
#include "grid/grid_delegate.h"
#include "grid/grid_drag.h"
#include "grid/grid_head.h"
#include "grid/grid_model.h"
#include "grid/grid_style.h"

#include <QApplication>
#include <QInputMethod>
#include <QMessageBox>
#include <QPointer>
#include <QResizeEvent>
#include <QScopedValueRollback>
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
    , drag_(new CGridDrag(*this))
    , rowHeight_(kRowHeight)
{
    TellScreenReaders();
    showMessage = [this](const QString& message) {
        QMessageBox::warning(this, QStringLiteral("KELD section"), message);
    };
    showNotice = [this](const QString& text) {
        if (!text.isEmpty())
            showMessage(text);
    };
    setHorizontalHeader(head_);
    setVerticalHeader(numbers_);
    numbers_->SetMarks(&model_->Marks());
    setModel(model_);
    setItemDelegate(new CGridDelegate(*this));
    SetUpView();
    head_->SetFrozen([this] { return SeenFrozen(); });
    connect(head_, &QHeaderView::sectionHandleDoubleClicked, this, &CGridCtrl::FitColumn);
    connect(head_, &CGridHead::pulled, this, &CGridCtrl::KeepWidth);
    connect(corner_, &CGridCorner::clicked, this, &CGridCtrl::selectAll);
    // A head that is seen in part stands in the middle of that part.
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, head_->viewport(), qOverload<>(&QWidget::update));
}

CGridCtrl::~CGridCtrl()
{
    blockSignals(true); // who listens may be a panel that is half gone
    setModel(nullptr);  // no more questions to the source
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
    widened_.clear();
    head_->SetSource(source);
    numbers_->SetSource(source);
    model_->SetSource(source);
    head_->SetFocusRow(0);
    numbers_->SetFocusRow(0);
    if (source == nullptr)
        return;
    int headHeight = source->HeadHeight();
    for (int column = 0; column <= source->ColumnCount(); ++column)
        headHeight = std::max(headHeight, HeadTextHeight(fontMetrics(), source->Head(column, 0)));
    head_->setFixedHeight(std::max(headHeight, source->HeadHeight() * zoom_ / 100));
    numbers_->setFixedWidth(source->ColumnWidth(0) * zoom_ / 100);
    corner_->SetText(source->Head(0, 0));
    for (int column = 1; column <= source->ColumnCount(); ++column)
        setColumnWidth(column - 1, source->ColumnWidth(column) * zoom_ / 100);
    ApplyRowHeights();
    updateGeometries();
}

CGridSource* CGridCtrl::Source() const
{
    return model_->Source();
}

void CGridCtrl::SetMarks(MarkSource source, std::vector<CellMark> marks)
{
    model_->SetMarks(source, std::move(marks));
}

const CCellMarks& CGridCtrl::Marks() const
{
    return model_->Marks();
}

void CGridCtrl::SetRowHeight(int pixels)
{
    rowHeight_ = pixels;
    numbers_->setDefaultSectionSize(pixels * zoom_ / 100);
    ApplyRowHeights();
}

/// All rows have one height but for those whose texts have several lines.
void CGridCtrl::ApplyRowHeights()
{
    const int oneLine = rowHeight_ * zoom_ / 100;
    for (int row = 1; Source() != nullptr && row <= model_->rowCount(); ++row) {
        const int lines = Source()->RowLines(row);
        const int height = lines == 1 ? oneLine : std::max(oneLine, lines * fontMetrics().height() + 4);
        if (!isRowHidden(row - 1) && rowHeight(row - 1) != height)
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
    // Not by the view's own call: that asks which keys are held, and would leave a part of the selection beside the cell.
    const QModelIndex index = model_->IndexOf({row, column});
    if (index.isValid())
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
}

void CGridCtrl::MoveFocus(int rows, int columns)
{
    const GridCell cell = FocusCell();
    if (cell.row == 0)
        return;
    int row = std::clamp(cell.row + rows, 1, model_->rowCount());
    if (const int seen = SeenRow(row, rows < 0 ? -1 : 1); rows != 0)
        row = seen > 0 ? seen : cell.row;
    MoveTo({row, std::clamp(cell.column + columns, 1, model_->columnCount())}, false);
}

void CGridCtrl::MoveByTab(bool back)
{
    if (HasRange()) {
        MoveInRange(back, true);
        return;
    }
    const GridCell cell = FocusCell();
    const int columns = model_->columnCount();
    const int step = back ? -1 : 1;
    const int row = SeenRow(cell.row + step, step);
    const int begun = tabColumn_ > 0 ? tabColumn_ : cell.column;
    const QScopedValueRollback tabbing(tabbing_, true);
    tabColumn_ = begun;
    if ((cell.column + step >= 1 && cell.column + step <= columns) || row < 1 || row > model_->rowCount()) {
        MoveFocus(0, step);
        return;
    }
    int column = back ? columns : 1;
    while (column + step >= 1 && column + step <= columns && !Source()->IsEditable(row, column))
        column += step;
    MoveTo({row, Source()->IsEditable(row, column) ? column : (back ? columns : 1)}, false);
}

void CGridCtrl::MoveTo(GridCell cell, bool extend)
{
    const QModelIndex index = model_->IndexOf(cell);
    if (!index.isValid())
        return;
    if (extend) {
        ExtendTo(cell);
        return;
    }
    SetFocusCell(cell.row, cell.column);
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
    if (Source() == nullptr)
        return;
    if (previous.isValid())
        emit selectionChanging(previous.row() + 1, previous.column() + 1);
    if (!tabbing_)
        tabColumn_ = 0;
    head_->SetFocusRow(current.row() + 1);
    numbers_->SetFocusRow(current.row() + 1);
    viewport()->update();
    ForgetTold();
    if (current.isValid())
        emit currentCellChanged(current.row() + 1, current.column() + 1);
}

// --- editing -----------------------------------------------------------------------------------------

bool CGridCtrl::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event)
{
    const bool editing = IsEditing();
    // The first cell of a long selection may be out of sight. Under the mouse nothing moves.
    if (!editing && (trigger == AnyKeyPressed || trigger == EditKeyPressed))
        scrollTo(index);
    const bool opened = QTableView::edit(index, trigger, event);
    if (opened && !editing) {
        typing_ = trigger == AnyKeyPressed;
        if (QWidget* editor = indexWidget(index)) {
            if (trigger == EditKeyPressed) // to go on with the text, not to type over it
                EditorLine(editor)->end(false);
            emit editorOpened(editor);
        }
    }
    return opened;
}

/// The line of a list has the focus in the list's place when offered words have just gone; then nobody gives the focus
/// back to the grid, and hiding the editor acts as a tab key.
void CGridCtrl::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint)
{
    const bool hadFocus = editor && (editor->hasFocus() || editor->isAncestorOf(QApplication::focusWidget()));
    closing_ = true;
    QTableView::closeEditor(editor, hint);
    closing_ = false;
    if (hadFocus && !hasFocus())
        setFocus();
    emit editorClosed();
}

bool CGridCtrl::focusNextPrevChild(bool next)
{
    return !closing_ && QTableView::focusNextPrevChild(next);
}

QLineEdit* CGridCtrl::OpenLine() const
{
    return IsEditing() ? EditorLine(indexWidget(currentIndex())) : nullptr;
}

/// Why a cell does not take a text; nothing if it does.
std::optional<GridRefusal> CGridCtrl::Refusal(GridCell cell, const QString& text) const
{
    if (const std::optional<QString> character = Source()->RefusedCharacter(text))
        return GridRefusal{*character,
                           tr("「%1」はこのシステムの文字コード（シフトJIS）にない文字です。").arg(*character),
                           tr("別の文字に置き換えて入力してください。")};
    return Source()->WhyNot(cell.row, cell.column, text);
}

void CGridCtrl::StoreEdited(GridCell cell, const QString& typed)
{
    if (typed == Source()->Text(cell.row, cell.column))
        return;
    const QString text = Source()->Folded(cell.row, cell.column, typed);
    if (const std::optional<GridRefusal> why = Refusal(cell, text)) {
        refused_ = RefusedText{cell, typed, *why};
        QTimer::singleShot(0, this, [this] { ReopenRefused({}); }); // when the editor that asks now is gone
        return;
    }
    Show(Source()->SetText(cell.row, cell.column, text), cell);
    emit cellEdited(cell.row, cell.column);
}

QString CGridCtrl::CellName(GridCell cell) const
{
    return tr("%1 行目「%2」").arg(Source()->RowNumber(cell.row), HeadOnOneLine(Source()->Head(cell.column, cell.row)));
}

void CGridCtrl::TellRefused(const QString& consequence)
{
    showMessage(refused_->why.what + tr("%1 のセルは元のままです。").arg(CellName(refused_->cell))
                + refused_->why.remedy + consequence);
}

/// What was typed is not lost: the cell is open again with it, the refused part selected.
void CGridCtrl::ReopenRefused(const QString& consequence)
{
    if (!refused_)
        return;
    const QPointer<CGridCtrl> self(this); // the message may stand for long
    const RefusedText refused = *refused_;
    TellRefused(consequence);
    if (!self || Source() == nullptr)
        return;
    refused_.reset();
    SetFocusCell(refused.cell.row, refused.cell.column);
    if (FocusCell() != refused.cell)
        return;
    if (!IsEditing())
        QTableView::edit(currentIndex());
    typing_ = false;
    QLineEdit* line = OpenLine();
    if (line == nullptr)
        return;
    line->setText(refused.text);
    if (const qsizetype place = refused.text.indexOf(refused.why.part); place >= 0)
        line->setSelection(int(place), int(refused.why.part.size()));
    else
        line->selectAll(); // the part was folded
}

bool CGridCtrl::CommitEditor(const QString& consequence)
{
    QWidget* editor = IsEditing() ? indexWidget(currentIndex()) : nullptr;
    if (editor != nullptr) {
        QGuiApplication::inputMethod()->commit();
        commitData(editor);
    }
    if (refused_) { // now, or in an editor that has just closed
        ReopenRefused(consequence);
        return false;
    }
    if (editor != nullptr)
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    return true;
}

std::optional<CGridCtrl::OpenText> CGridCtrl::Edited() const
{
    const QLineEdit* line = OpenLine();
    return line != nullptr ? std::optional(OpenText{line->text(), line->cursorPosition(), typing_}) : std::nullopt;
}

void CGridCtrl::EditAgain(const OpenText& open)
{
    if (!IsEditing())
        QTableView::edit(currentIndex());
    QLineEdit* line = OpenLine();
    if (line == nullptr)
        return;
    line->setText(open.text);
    line->setCursorPosition(open.caret);
    typing_ = open.typing;
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

QVariant CGridCtrl::inputMethodQuery(Qt::InputMethodQuery query) const
{
    if (query != Qt::ImCursorRectangle || !currentIndex().isValid() || IsEditing()) // the view asks the editor then
        return QTableView::inputMethodQuery(query);
    // A composition begins where the cell's text will stand; the candidates are shown there.
    const QRect cell = visualRect(currentIndex()).translated(viewport()->pos());
    return QRect(cell.left() + kPadding, cell.top(), 1, cell.height());
}

// --- geometry ----------------------------------------------------------------------------------------

void CGridCtrl::updateGeometries()
{
    QTableView::updateGeometries();
    if (!corner_ || !numbers_ || !head_)
        return;
    corner_->setGeometry(frameWidth(), frameWidth(), numbers_->width(), head_->height());
    corner_->raise();
    horizontalScrollBar()->setPageStep(std::max(1, viewport()->width() - FrozenWidth()));
}

void CGridCtrl::resizeEvent(QResizeEvent* event)
{
    // A pane that opens beside the grid, or below it, must not put the focus out of sight.
    const QRect seen(QPoint(0, 0), event->oldSize());
    const bool wasSeen = currentIndex().isValid() && seen.contains(visualRect(currentIndex()).center());
    QTableView::resizeEvent(event);
    updateGeometries();
    if (wasSeen && !viewport()->rect().contains(visualRect(currentIndex())))
        scrollTo(currentIndex());
}

} // namespace sbd
