#include "panels/input_panel.h"

#include "document/cell_input.h"
#include "document/section_doc.h"
#include "grid/grid_ctrl.h"
#include "grid/text_fold.h"
#include "panelmodel/panel_model.h"
#include "panelmodel/range_summary.h"
#include "panels/command_text.h"
#include "panels/panel_source.h"
#include "panels/row_filter.h"
#include "project/catalogue.h"
#include "project/text.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QInputMethod>
#include <QLayout>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace sbd {

namespace {

/// "313 垂直補剛材": what the menu calls the block.
QString NameOfBlock(int block)
{
    const CatalogueRow* row = FindBlock(block);
    const QString number = QString::number(block);
    const QString text =
        row != nullptr ? QString::fromUtf8(row->menuText.data(), qsizetype(row->menuText.size())) : QString();
    return text.startsWith(number) ? text : number + u' ' + text;
}

std::string Number(int number)
{
    std::string text;
    AppendFixed(text, number, 0, 0);
    return text;
}

/// A head in one line.
std::string OneLine(std::string head)
{
    std::ranges::replace(head, '\n', ' ');
    return std::string(Trim(head));
}

/// "313 間隔 5行" for a cell, "313 5行 貼り付け" for more.
std::string NameOf(const CPanelModel& model, const EditDone& done)
{
    const std::string block = Number(model.Block());
    const std::string row = Number(done.place.row) + Cp932("行");
    switch (done.command) {
    case EditCommand::Cell:
        return block + ' ' + OneLine(model.Head(done.place.column)) + ' ' + row;
    case EditCommand::Clear:
        return block + ' ' + row + Cp932(" 消去");
    case EditCommand::Paste:
        return block + ' ' + row + Cp932(" 貼り付け");
    case EditCommand::Replace:
        return block + ' ' + row + Cp932(" 置換");
    case EditCommand::Import:
        return block + ' ' + row + Cp932(" 取り込み");
    case EditCommand::MoveUp:
        return block + ' ' + row + Cp932(" 順序上へ移動");
    case EditCommand::MoveDown:
        return block + ' ' + row + Cp932(" 順序下へ移動");
    case EditCommand::Fill:
        return block + ' ' + row + Cp932(" 一括入力");
    case EditCommand::DeleteRow:
        return block + ' ' + row + Cp932(" 行の削除");
    case EditCommand::DuplicateRow:
        return block + ' ' + row + Cp932(" 行の複製");
    case EditCommand::InsertRow:
        break;
    }
    return block + ' ' + row + Cp932(" 挿入行");
}

PanelSettings SettingsOf(const CKELDSectionDoc& doc)
{
    return {doc.comboOrList != kPlainCells, doc.rowWidthMode, ListNames::OfTheProject};
}

} // namespace

CInputPanel::CInputPanel(CKELDSectionDoc* doc, int block, QWidget* parent) : CPanel(doc, block, parent), block_(block)
{
    // An edit that ends without moving the focus, as in the last row; most edits are written by the focus before that.
    connect(Grid(), &CGridCtrl::cellEdited, this, &CInputPanel::CommitGrid, Qt::QueuedConnection);
    connect(Grid(), &CGridCtrl::listChosen, this, &CInputPanel::CommitGrid);
    connect(Grid(), &CGridCtrl::cellsChanged, this, &CInputPanel::CommitGrid);
    connect(Grid(), &CGridCtrl::rangeChanged, this, &CInputPanel::TellSummary);
    connect(Grid(), &CGridCtrl::cellEdited, this, &CInputPanel::TellSummary);
    connect(Grid(), &CGridCtrl::cellsChanged, this, &CInputPanel::TellSummary);
    connect(Grid(), &CGridCtrl::columnsChanged, this, [this] {
        Doc().display.grids[block_].widened = Grid()->Widened();
        emit displayChanged();
    });
    connect(doc, &CKELDSectionDoc::aboutToSave, this, &CInputPanel::OnAboutToSave);
    connect(doc, &CKELDSectionDoc::modifiedChanged, this, &CInputPanel::OnModifiedChanged);
    connect(doc, &CKELDSectionDoc::changed, this, &CInputPanel::OnChanged);
    connect(doc, &CKELDSectionDoc::stepped, this, &CInputPanel::OnStepped);
    connect(doc, &CKELDSectionDoc::historyChanged, this, &CInputPanel::undoChanged);
    connect(doc, &CKELDSectionDoc::reloaded, this, &CInputPanel::SetUp);
    Grid()->show();
    SetUp();
}

CInputPanel::~CInputPanel()
{
    Grid()->SetSource(nullptr);
}

/// Builds the grid from the document; what an earlier grid had not written is dropped.
void CInputPanel::SetUp()
{
    SetUpWith({});
}

void CInputPanel::SetUpWith(const LooseRows& loose)
{
    Grid()->SetSource(nullptr);
    source_.reset();
    model_ = MakePanelModel(Doc().Data(), OpenedFor(), SettingsOf(Doc()));
    firstCommit_ = true;
    wasModified_ = false;
    if (!model_)
        return;
    block_ = model_->Block();
    model_->PutLoose(loose);
    loose_ = model_->Loose();
    source_ = std::make_unique<CPanelSource>(*model_);
    source_->undo = [this] { StepHere(false); };
    source_->canUndo = [this] { return Doc().NextUndo() != nullptr; };
    Grid()->SetRowHeight(Doc().display.rowHeight);
    Grid()->SetSource(source_.get());
    ApplyLayout();
    Grid()->setAccessibleName(NameOfBlock(block_));
    Doc().SetHelpCell(block_, 0, 0);
    if (filter_ != nullptr)
        ApplyFilter();
    RestoreCell();
    emit undoChanged();
}

// --- writing back ------------------------------------------------------------------------------------

void CInputPanel::CommitGrid()
{
    if (!model_ || committing_)
        return;
    if (firstCommit_)
        wasModified_ = wasModified_ || Doc().IsModified();
    firstCommit_ = false;
    const QScopedValueRollback committing(committing_, true);
    const std::optional<EditDone> done = source_->Editor().Done();
    PanelEdit edit;
    edit.place.block = block_;
    if (done) {
        const int column = done->place.column > 0 ? done->place.column : Grid()->FocusCell().column;
        edit.place = {block_, done->place.row, column, done->rowAfter};
        edit.name = NameOf(*model_, *done);
    }
    edit.write = [this](CProjectWriter& writer) { model_->Commit(writer); };
    edit.isModified = [this] { return model_->IsChanged() || (wasModified_ && Doc().IsModified()); };
    edit.looseBefore = loose_;
    edit.looseAfter = [this] { return loose_ = model_->Loose(); };
    source_->Editor().ForgetDone();
    Doc().Commit(edit);
    if (!done)
        loose_ = model_->Loose();
}

void CInputPanel::OnCellEntered(int row, int column)
{
    CommitGrid();
    CPanel::OnCellEntered(row, column);
}

void CInputPanel::OnAboutToSave()
{
    Grid()->CommitEditor(tr("それまでは、元の値がファイルに書かれます。"));
    CommitGrid();
}

void CInputPanel::OnModifiedChanged(bool modified)
{
    if (committing_ || !model_)
        return;
    wasModified_ = modified;
    if (!modified) // saved: this is what the next change is measured by
        model_->TakeBaseline();
}

void CInputPanel::OnChanged()
{
    if (committing_ || Doc().IsStepping())
        return;
    if (model_)
        SetUpAnew();
    wasModified_ = true; // somebody else wrote to the document
}

/// Shows what somebody else wrote: the block's own rows, or what its heads, locks and lists follow. Cell, scroll position
/// and the text of an open editor stay.
bool CInputPanel::SetUpAnew()
{
    QGuiApplication::inputMethod()->commit();
    CommitGrid(); // an edit that has ended but waits for its turn
    ShowAnew(model_->Loose());
    return true;
}

/// Builds the grid from the data, with what it holds beside them.
void CInputPanel::ShowAnew(const LooseRows& loose)
{
    const QWidget* focus = QApplication::focusWidget();
    const bool hadFocus = focus != nullptr && (focus == Grid() || Grid()->isAncestorOf(focus));
    const std::optional<CGridCtrl::OpenText> open = Grid()->Edited();
    KeepPlace();
    SetUpWith(loose);
    if (hadFocus)
        Grid()->setFocus();
    if (open && model_)
        Grid()->EditAgain(*open);
}

// --- taking back and making again --------------------------------------------------------------------

void CInputPanel::StepHere(bool redo)
{
    if (Grid()->IsEditing() && !Grid()->CommitEditor())
        return;
    CommitGrid();
    const EditStep* step = redo ? Doc().NextRedo() : Doc().NextUndo();
    if (step == nullptr)
        return;
    if (step->place.block != 0 && step->place.block != block_)
        emit otherBlockWanted(redo);
    else if (redo)
        Doc().Redo();
    else
        Doc().Undo();
}

void CInputPanel::OnStepped(const EditPlace& place, const LooseRows& loose)
{
    if (!model_)
        return;
    ShowAnew(place.block == block_ ? loose : model_->Loose());
    if (place.block == block_ && place.row > 0)
        GoToCell(std::min(place.row, model_->GridRows()), place.column);
    // What a command has said of the cells is not so any more.
    Grid()->TellInStatusBar(place.block == block_ && place.movedRow > 0
                                ? tr("%1 行目から %2 行目へ移りました。").arg(place.movedRow).arg(place.row)
                                : QString());
    emit undoChanged();
}

bool CInputPanel::MayClose()
{
    return !model_ || Grid()->CommitEditor();
}

void CInputPanel::ClosePanel()
{
    if (!model_)
        return;
    Grid()->CommitEditor();
    KeepPlace();
    Doc().SetHelpCell(-1, 0, 0);
    CommitGrid();
    Grid()->SetSource(nullptr);
    source_.reset();
    model_.reset();
    Doc().ForgetGrid(block_);
}

// --- focus and scroll position -----------------------------------------------------------------------

void CInputPanel::KeepPlace()
{
    const GridCell focus = Grid()->FocusCell();
    const GridRange range = Grid()->SelectedRange();
    const bool allSelected =
        focus.row <= 1 && focus.column <= 1 && range.top == 1 && range.bottom == model_->GridRows();
    CellMemory& memory = Doc().MemoryOf(block_);
    memory.horizontal = Grid()->horizontalScrollBar()->value();
    memory.vertical = Grid()->verticalScrollBar()->value();
    memory.row = allSelected ? 0 : focus.row;
    memory.column = focus.column;
}

void CInputPanel::RestoreCell()
{
    const CellMemory& memory = Doc().MemoryOf(block_);
    if (memory.row <= 0 || memory.row > model_->GridRows())
        return;
    Grid()->SetFocusCell(memory.row, memory.column);
    scrollToRestore_ = true;
    if (isVisible())
        RestoreScroll();
}

void CInputPanel::RestoreScroll()
{
    if (!scrollToRestore_ || !model_)
        return;
    scrollToRestore_ = false;
    const CellMemory& memory = Doc().MemoryOf(block_);
    Grid()->horizontalScrollBar()->setValue(memory.horizontal);
    Grid()->verticalScrollBar()->setValue(memory.vertical);
}

void CInputPanel::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (scrollToRestore_)
        QTimer::singleShot(0, this, &CInputPanel::RestoreScroll); // when the grid has its size
}

void CInputPanel::GoToCell(int row, int column)
{
    scrollToRestore_ = false;
    if (source_ && source_->Editor().IsHidden(row))
        EndFilter();
    CPanel::GoToCell(row, column);
}

// --- commands ----------------------------------------------------------------------------------------

bool CInputPanel::CanMoveRowUp() const
{
    return model_ && model_->CanMoveUp(Grid()->FocusCell().row);
}

bool CInputPanel::CanMoveRowDown() const
{
    return model_ && model_->CanMoveDown(Grid()->FocusCell().row);
}

bool CInputPanel::CanInsertRow() const
{
    return model_ && model_->CanInsert(Grid()->FocusCell().row);
}

bool CInputPanel::CanDeleteRow() const
{
    return model_ && model_->MovesRows() && Grid()->SelectedRange().bottom > model_->FixedRows();
}

void CInputPanel::MoveRowUp()
{
    RunOnRows(&CPanelEditor::MoveUp, -1, tr("この行は、これより上へは移動できません。"));
}

void CInputPanel::MoveRowDown()
{
    RunOnRows(&CPanelEditor::MoveDown, 1, tr("この行は、これより下へは移動できません。"));
}

void CInputPanel::InsertRow()
{
    RunOnRows(
        &CPanelEditor::InsertRow, 0,
        tr("ここには行を挿入できません。下に空の行がないときは、「入力ウィンドウ行数の追加」で行を増やしてください。"));
}

void CInputPanel::DeleteRow()
{
    RunOnRows(&CPanelEditor::DeleteRows, 0, tr("この行は削除できません。"));
}

void CInputPanel::DuplicateRow()
{
    const GridRange range = Grid()->SelectedRange();
    RunOnRows(&CPanelEditor::DuplicateRows, range.bottom - range.top + 1, tr("この行は複製できません。"));
}

/// The selection goes with the rows; `rowsAway`: how far.
void CInputPanel::RunOnRows(bool (CPanelEditor::*run)(int row, int rows), int rowsAway, const QString& cannot)
{
    if (!model_ || !Grid()->CommitEditor() || Grid()->FocusCell().row == 0)
        return;
    CommitGrid(); // the text of an editor is a step of its own
    const GridCell focus = Grid()->FocusCell();
    const GridRange range = Grid()->SelectedRange();
    if (!(source_->Editor().*run)(range.top, range.bottom - range.top + 1)) {
        const bool byFilter = source_->Editor().HidesRows() && run != &CPanelEditor::DeleteRows;
        Grid()->TellInStatusBar(!model_->MovesRows() ? tr("このブロックの行は決まっています。")
                                : byFilter ? tr("絞り込み中は、行の挿入・複製・移動はできません。"
                                                "絞り込みを終えると（Ctrl+Shift+L）できます。")
                                           : cannot);
        return;
    }
    Grid()->ShowAll();
    if (filter_ != nullptr)
        ShowHiddenRows();
    const int last = model_->GridRows();
    if (source_->Editor().HidesRows()) { // of rows that were deleted the place is left, and the next one in sight
        const int below = Grid()->SeenRow(std::min(range.top, last), 1);
        Grid()->SetFocusCell(below > 0 ? below : Grid()->SeenRow(std::min(range.top, last), -1), focus.column);
    } else {
        Grid()->SetFocusCell(std::min(focus.row + rowsAway, last), focus.column);
        Grid()->SelectRange(
            {std::min(range.top + rowsAway, last), range.left, std::min(range.bottom + rowsAway, last), range.right});
    }
    CommitGrid();
    emit undoChanged();
}

bool CInputPanel::CanAddRows() const
{
    return model_ && model_->TakesRows();
}

void CInputPanel::AddRows(int count)
{
    if (model_ && count > 0 && model_->AddRows(count))
        Grid()->ShowAll();
}

// --- rows out of sight, and what is selected ---------------------------------------------------------

bool CInputPanel::FiltersRows() const
{
    return filter_ != nullptr;
}

/// Opens the line of the filter, for the column of the focus, or ends it.
void CInputPanel::FilterRows()
{
    if (filter_ != nullptr) {
        EndFilter();
        return;
    }
    if (!model_ || !Grid()->CommitEditor())
        return;
    const GridCell focus = Grid()->FocusCell();
    filterColumn_ = std::max(focus.column, 1);
    filter_ = new CRowFilter(HeadOnOneLine(source_->Head(filterColumn_, 0)), this);
    connect(filter_, &CRowFilter::textChanged, this, &CInputPanel::ApplyFilter);
    connect(filter_, &CRowFilter::entered, Grid(), qOverload<>(&QWidget::setFocus));
    connect(filter_, &CRowFilter::ended, this, &CInputPanel::EndFilter);
    layout()->addWidget(filter_);
    filter_->show();
    filter_->GoToLine(focus.row > model_->FixedRows() ? source_->Text(focus.row, filterColumn_) : QString());
    ApplyFilter();
    emit undoChanged();
}

void CInputPanel::ApplyFilter()
{
    if (!model_ || filter_ == nullptr)
        return;
    CommitGrid();
    const QString wanted = FoldedText(filter_->Text());
    std::vector<char> hidden;
    int rows = 0;
    int out = 0;
    if (!wanted.isEmpty()) {
        const int used = model_->BlockRows();
        hidden.assign(static_cast<std::size_t>(model_->GridRows()), 1);
        for (int row = 1; row <= model_->GridRows(); ++row) {
            const bool fixed = row <= model_->FixedRows();
            const bool fits = !fixed && row <= used && FoldedText(source_->Text(row, filterColumn_)).contains(wanted);
            hidden[static_cast<std::size_t>(row) - 1] = fixed || fits ? 0 : 1;
            rows += fits ? 1 : 0;
            out += !fixed && !fits && row <= used ? 1 : 0;
        }
    }
    source_->Editor().Hide(std::move(hidden));
    ShowHiddenRows();
    filter_->Tell(rows, out);
}

void CInputPanel::ShowHiddenRows()
{
    const CPanelEditor& editor = source_->Editor();
    // A head that is drawn counts all rows anew for each one that comes or goes.
    QHeaderView& head = *Grid()->verticalHeader();
    head.setUpdatesEnabled(false);
    for (int row = 1; row <= model_->GridRows(); ++row)
        if (Grid()->isRowHidden(row - 1) != editor.IsHidden(row))
            Grid()->setRowHidden(row - 1, editor.IsHidden(row));
    head.setUpdatesEnabled(true);
    TellSummary(); // of the rows in sight
    const GridCell focus = Grid()->FocusCell();
    if (focus.row == 0 || !editor.IsHidden(focus.row))
        return;
    int seen = Grid()->SeenRow(std::min(model_->FixedRows() + 1, model_->GridRows()), 1);
    if (seen == 0)
        seen = Grid()->SeenRow(1, 1);
    if (seen > 0)
        Grid()->SetFocusCell(seen, focus.column);
    else
        Grid()->setCurrentIndex({});
}

void CInputPanel::EndFilter()
{
    if (filter_ == nullptr)
        return;
    filter_->deleteLater();
    filter_->hide();
    filter_ = nullptr;
    if (model_) {
        source_->Editor().Hide({});
        ShowHiddenRows();
        Grid()->scrollTo(Grid()->currentIndex());
    }
    Grid()->setFocus();
    emit undoChanged();
}

// --- columns that stay in sight, widths --------------------------------------------------------------

/// As the user has left this block, or as it is at first.
void CInputPanel::ApplyLayout()
{
    const auto kept = Doc().display.grids.find(block_);
    const GridLayout layout = kept == Doc().display.grids.end() ? GridLayout{} : kept->second;
    Grid()->SetWidened(layout.widened);
    Grid()->SetFrozenColumns(layout.frozen.value_or(source_->NameColumns()));
}

bool CInputPanel::FreezesColumns() const
{
    return model_ && Grid()->FrozenColumns() > 0;
}

void CInputPanel::FreezeColumns()
{
    if (!model_)
        return;
    const int columns = FreezesColumns() ? 0 : std::max(Grid()->FocusCell().column, 1);
    Doc().display.grids[block_].frozen = columns;
    Grid()->SetFrozenColumns(columns);
    Grid()->scrollTo(Grid()->currentIndex());
    QString told = tr("列の固定を解除しました。");
    if (columns == 1)
        told = tr("1 列目を固定しました。表が入力欄より広いとき、横に動かしても見えています。");
    if (columns > 1)
        told =
            tr("1～%1 列目を固定しました。表が入力欄より広いとき、入力欄の半分に収まる列は、横に動かしても見えています。")
                .arg(columns);
    Grid()->TellInStatusBar(told);
    emit displayChanged();
    emit undoChanged(); // the mark at the command
}

/// Once behind many changes of the selection.
void CInputPanel::TellSummary()
{
    if (std::exchange(summaryWaits_, true))
        return;
    QTimer::singleShot(0, this, [this] {
        summaryWaits_ = false;
        const GridRange range = Grid()->SelectedRange();
        if (!model_ || range.top == 0) {
            emit summaryChanged({});
            return;
        }
        const CPanelEditor& editor = source_->Editor();
        emit summaryChanged(toQString(SummaryOf(*model_, {range.top, range.left, range.bottom, range.right},
                                                [&editor](int row) { return editor.IsHidden(row); })));
    });
}

void CInputPanel::contextMenuEvent(QContextMenuEvent* event)
{
    if (!model_)
        return;
    const QPoint inCells = Grid()->viewport()->mapFromGlobal(event->globalPos());
    if (!Grid()->viewport()->rect().contains(inCells) || !Grid()->indexAt(inCells).isValid())
        return;
    QMenu menu(this);
    FillContextMenu(menu, MenuId::GridContext,
                    {{Command::Cut, [this] { Cut(); }},
                     {Command::Copy, [this] { Copy(); }},
                     {Command::Paste, [this] { Paste(); }},
                     {Command::Delete, [this] { Delete(); }},
                     {Command::MoveRowUp, [this] { MoveRowUp(); }, CanMoveRowUp()},
                     {Command::MoveRowDown, [this] { MoveRowDown(); }, CanMoveRowDown()},
                     {Command::InsertRow, [this] { InsertRow(); }, CanInsertRow()}});
    menu.exec(event->globalPos());
}

} // namespace sbd
