#include "panels/panel.h"

#include "document/cell_input.h"
#include "document/section_doc.h"
#include "grid/grid_ctrl.h"
#include "panelmodel/panel_model.h"
#include "panels/command_text.h"
#include "panels/panel_source.h"
#include "panels/result_panel.h"
#include "panels/row_count_dialog.h"
#include "panels/search_panel.h"
#include "project/catalogue.h"
#include "sbdfile/repairs.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QInputMethod>
#include <QMenu>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <map>

namespace sbd {

namespace {

/// "313 垂直補剛材": what the menu calls the block.
QString NameOfBlock(int block)
{
    const CatalogueRow* row = FindBlock(block);
    const QString number = QString::number(block);
    const QString text = row ? QString::fromUtf8(row->menuText.data(), qsizetype(row->menuText.size())) : QString();
    return text.startsWith(number) ? text : number + u' ' + text;
}

PanelSettings SettingsOf(const CKELDSectionDoc& doc)
{
    return {doc.comboOrList != kPlainCells, doc.rowWidthMode};
}

} // namespace

CPanel::CPanel(CKELDSectionDoc* doc, int block, QWidget* parent)
    : QWidget(parent)
    , doc_(doc)
    , openedFor_(block)
    , block_(block)
    , grid_(new CGridCtrl(this))
{
    askRowCount = &AskRowCount;
    QVBoxLayout* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(grid_);
    setFocusProxy(grid_);
    connect(grid_, &CGridCtrl::currentCellChanged, this, &CPanel::OnCellEntered);
    // An edit that ends without moving the focus, as in the last row; most edits are written by the focus before that.
    connect(grid_, &CGridCtrl::cellEdited, this, &CPanel::CommitGrid, Qt::QueuedConnection);
    connect(grid_, &CGridCtrl::listChosen, this, &CPanel::CommitGrid);
    connect(grid_, &CGridCtrl::cellsChanged, this, &CPanel::CommitGrid);
    connect(grid_, &CGridCtrl::currentCellChanged, this, &CPanel::undoChanged);
    connect(grid_, &CGridCtrl::editorOpened, this, &CPanel::undoChanged);
    connect(grid_, &CGridCtrl::editorClosed, this, &CPanel::undoChanged);
    connect(grid_, &CGridCtrl::cellEdited, this, &CPanel::undoChanged);
    connect(grid_, &CGridCtrl::cellsChanged, this, &CPanel::undoChanged);
    connect(doc_, &CKELDSectionDoc::aboutToSave, this, &CPanel::OnAboutToSave);
    connect(doc_, &CKELDSectionDoc::modifiedChanged, this, &CPanel::OnModifiedChanged);
    connect(doc_, &CKELDSectionDoc::changed, this, &CPanel::OnChanged);
    connect(doc_, &CKELDSectionDoc::reloaded, this, &CPanel::SetUp);
    SetUp();
    if (!model_)
        grid_->hide(); // reports and searches have none of their own
}

CPanel::~CPanel()
{
    grid_->SetSource(nullptr);
}

/// Builds the grid from the document; what an earlier grid had not written is dropped.
void CPanel::SetUp()
{
    grid_->SetSource(nullptr);
    source_.reset();
    model_ = MakePanelModel(doc_->Data(), openedFor_, SettingsOf(*doc_));
    firstCommit_ = true;
    wasModified_ = false;
    if (!model_)
        return;
    block_ = model_->Block();
    source_ = std::make_unique<CPanelSource>(*model_);
    grid_->SetRowHeight(doc_->display.rowHeight);
    grid_->SetSource(source_.get());
    grid_->setAccessibleName(NameOfBlock(block_));
    doc_->SetHelpCell(block_, 0, 0);
    RestoreCell();
    emit undoChanged();
}

// --- writing back ------------------------------------------------------------------------------------

void CPanel::CommitGrid()
{
    if (!model_ || committing_)
        return;
    if (firstCommit_)
        wasModified_ = wasModified_ || doc_->IsModified();
    firstCommit_ = false;
    committing_ = true;
    const std::vector<ChangedRow> changed = model_->Commit();
    if (std::ranges::any_of(changed, [](const ChangedRow& row) { return row.block == 501; }))
        RefreshSwayNames(doc_->Data());
    if (!wasModified_)
        doc_->SetModifiedFlag(model_->IsChanged());
    else if (model_->IsChanged())
        doc_->SetModifiedFlag(true); // whatever those who wrote before have made of it
    Notify(changed);
    committing_ = false;
}

/// One notification a row, or one for the whole block where many rows are concerned.
void CPanel::Notify(const std::vector<ChangedRow>& changed)
{
    constexpr std::size_t fewRows = 20;
    std::map<int, std::vector<int>> rowsOfBlock;
    for (const ChangedRow& row : changed) {
        std::vector<int>& rows = rowsOfBlock[row.block];
        if (std::ranges::find(rows, row.row) == rows.end() && rows.size() <= fewRows)
            rows.push_back(row.row);
    }
    for (const auto& [block, rows] : rowsOfBlock) {
        if (rows.size() > fewRows || std::ranges::find(rows, -1) != rows.end()) {
            doc_->NotifyChanged({block, -1});
            continue;
        }
        for (const int row : rows)
            doc_->NotifyChanged({block, row});
    }
}

void CPanel::OnCellEntered(int row, int column)
{
    CommitGrid();
    doc_->SetHelpCell(block_, row, column);
}

void CPanel::OnAboutToSave()
{
    grid_->CommitEditor(tr("それまでは、元の値がファイルに書かれます。"));
    CommitGrid();
}

void CPanel::OnModifiedChanged(bool modified)
{
    if (committing_ || !model_)
        return;
    wasModified_ = modified;
    if (!modified) // saved: this is what the next change is measured by
        model_->TakeBaseline();
}

void CPanel::OnChanged()
{
    if (committing_)
        return;
    if (model_)
        SetUpAnew();
    wasModified_ = true; // somebody else wrote to the document
}

/// Shows what somebody else wrote: the block's own rows, or what its heads, locks and lists follow. Cell, scroll position
/// and the text of an open editor stay.
void CPanel::SetUpAnew()
{
    QGuiApplication::inputMethod()->commit();
    CommitGrid(); // an edit that has ended but waits for its turn
    const QWidget* focus = QApplication::focusWidget();
    const bool hadFocus = focus && (focus == grid_ || grid_->isAncestorOf(focus));
    const std::optional<CGridCtrl::OpenText> open = grid_->Edited();
    Remember();
    SetUp();
    if (hadFocus)
        grid_->setFocus();
    if (open && model_)
        grid_->EditAgain(*open);
}

bool CPanel::MayClose()
{
    return !model_ || grid_->CommitEditor();
}

void CPanel::ClosePanel()
{
    if (!model_)
        return;
    grid_->CommitEditor();
    Remember();
    doc_->SetHelpCell(-1, 0, 0);
    CommitGrid();
    grid_->SetSource(nullptr);
    source_.reset();
    model_.reset();
}

// --- focus and scroll position -----------------------------------------------------------------------

void CPanel::Remember()
{
    const GridCell focus = grid_->FocusCell();
    const GridRange range = grid_->SelectedRange();
    const bool allSelected =
        focus.row <= 1 && focus.column <= 1 && range.top == 1 && range.bottom == model_->GridRows();
    CellMemory& memory = doc_->MemoryOf(block_);
    memory.horizontal = grid_->horizontalScrollBar()->value();
    memory.vertical = grid_->verticalScrollBar()->value();
    memory.row = allSelected ? 0 : focus.row;
    memory.column = focus.column;
}

void CPanel::RestoreCell()
{
    const CellMemory& memory = doc_->MemoryOf(block_);
    if (memory.row <= 0 || memory.row > model_->GridRows())
        return;
    grid_->SetFocusCell(memory.row, memory.column);
    scrollToRestore_ = true;
    if (isVisible())
        RestoreScroll();
}

void CPanel::RestoreScroll()
{
    if (!scrollToRestore_ || !model_)
        return;
    scrollToRestore_ = false;
    const CellMemory& memory = doc_->MemoryOf(block_);
    grid_->horizontalScrollBar()->setValue(memory.horizontal);
    grid_->verticalScrollBar()->setValue(memory.vertical);
}

void CPanel::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (scrollToRestore_)
        QTimer::singleShot(0, this, &CPanel::RestoreScroll); // when the grid has its size
}

void CPanel::GoToCell(int row, int column)
{
    scrollToRestore_ = false;
    grid_->SetFocusCell(row, column);
    grid_->scrollTo(grid_->currentIndex());
}

// --- commands ----------------------------------------------------------------------------------------

void CPanel::Undo()
{
    grid_->Undo();
}

void CPanel::Cut()
{
    grid_->Cut();
}

void CPanel::Copy()
{
    grid_->Copy();
}

void CPanel::Paste()
{
    grid_->Paste();
}

void CPanel::Delete()
{
    grid_->Delete();
}

bool CPanel::CanUndo() const
{
    return grid_->CanUndo();
}

bool CPanel::CanMoveRowUp() const
{
    return model_ && model_->CanMoveUp(grid_->FocusCell().row);
}

bool CPanel::CanMoveRowDown() const
{
    return model_ && model_->CanMoveDown(grid_->FocusCell().row);
}

bool CPanel::CanInsertRow() const
{
    return model_ && model_->CanInsert(grid_->FocusCell().row);
}

void CPanel::MoveRowUp()
{
    if (!grid_->CommitEditor())
        return;
    const int row = grid_->FocusCell().row;
    if (model_ && source_->Editor().MoveUp(row))
        AfterRowCommand(row - 1);
}

void CPanel::MoveRowDown()
{
    if (!grid_->CommitEditor())
        return;
    const int row = grid_->FocusCell().row;
    if (model_ && source_->Editor().MoveDown(row))
        AfterRowCommand(row + 1);
}

void CPanel::InsertRow()
{
    if (!grid_->CommitEditor())
        return;
    const int row = grid_->FocusCell().row;
    if (model_ && source_->Editor().InsertRow(row))
        AfterRowCommand(row);
}

void CPanel::AfterRowCommand(int row)
{
    const int column = grid_->FocusCell().column;
    grid_->ShowAll();
    grid_->SetFocusCell(row, column);
    CommitGrid();
    emit undoChanged();
}

bool CPanel::CanAddRows() const
{
    return model_ && model_->TakesRows();
}

void CPanel::AddRows(int count)
{
    if (model_ && count > 0 && model_->AddRows(count))
        grid_->ShowAll();
}

void CPanel::AskRows()
{
    if (CanAddRows() && MayClose())
        AddRows(askRowCount(this));
}

void CPanel::contextMenuEvent(QContextMenuEvent* event)
{
    if (!model_)
        return;
    const QPoint inCells = grid_->viewport()->mapFromGlobal(event->globalPos());
    if (!grid_->viewport()->rect().contains(inCells) || !grid_->indexAt(inCells).isValid())
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

std::unique_ptr<CPanel> CreatePanel(CKELDSectionDoc* doc, int block, QWidget* parent)
{
    if (PanelOfBlock(block).empty())
        return nullptr;
    if (PanelOfBlock(block) == "CDown253")
        return std::make_unique<CDown253>(doc, parent);
    if (PanelOfBlock(block) == "CDown999")
        return std::make_unique<CDown999>(doc, parent);
    return std::make_unique<CPanel>(doc, block, parent);
}

} // namespace sbd
