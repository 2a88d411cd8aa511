#include "panels/panel.h"

#include "document/cell_input.h"
#include "document/section_doc.h"
#include "grid/grid_ctrl.h"
#include "panelmodel/panel_model.h"
#include "panels/input_panel.h"
#include "panels/result_panel.h"
#include "panels/row_count_dialog.h"
#include "panels/search_panel.h"
#include "project/catalogue.h"

#include <QVBoxLayout>

#include <algorithm>

namespace sbd {

CPanel::CPanel(CKELDSectionDoc* doc, int block, QWidget* parent)
    : QWidget(parent)
    , askRowCount(&AskRowCount)
    , doc_(doc)
    , openedFor_(block)
    , grid_(new CGridCtrl(this))
{
    QVBoxLayout* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(grid_);
    setFocusProxy(grid_);
    connect(grid_, &CGridCtrl::currentCellChanged, this, &CPanel::OnCellEntered);
    connect(grid_, &CGridCtrl::currentCellChanged, this, &CPanel::undoChanged);
    connect(grid_, &CGridCtrl::editorOpened, this, &CPanel::undoChanged);
    connect(grid_, &CGridCtrl::editorClosed, this, &CPanel::undoChanged);
    connect(grid_, &CGridCtrl::cellEdited, this, &CPanel::undoChanged);
    connect(grid_, &CGridCtrl::cellsChanged, this, &CPanel::undoChanged);
    connect(grid_, &CGridCtrl::commandWanted, this, &CPanel::RunGridCommand);
    connect(grid_, &CGridCtrl::zoomWanted, this, &CPanel::SetZoom);
    grid_->SetZoom(doc_->display.zoom);
    grid_->hide();
}

CPanel::~CPanel()
{
    grid_->SetSource(nullptr);
}

void CPanel::OnCellEntered(int row, int column)
{
    doc_->SetHelpCell(Block(), row, column);
}

void CPanel::GoToCell(int row, int column)
{
    grid_->SetFocusCell(row, column);
    grid_->scrollTo(grid_->currentIndex());
}

bool CPanel::CanUndo() const
{
    return grid_->CanUndo();
}

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

std::span<const Command> CPanel::GridCommands()
{
    using enum Command;
    static constexpr Command commands[] = {CopyWithHeads, FillDown,       FillRight,      FillSelection, OpenList,
                                           SelectRow,     SelectColumn,   SelectAllCells, MoveRowUp,     MoveRowDown,
                                           InsertRow,     DeleteRow,      DuplicateRow,   FilterRows,    ZoomCellsIn,
                                           ZoomCellsOut,  ZoomCellsReset, FreezeColumns};
    return commands;
}

void CPanel::RunGridCommand(Command command)
{
    switch (command) {
    case Command::MoveRowUp:
        MoveRowUp();
        break;
    case Command::MoveRowDown:
        MoveRowDown();
        break;
    case Command::InsertRow:
        InsertRow();
        break;
    case Command::DeleteRow:
        DeleteRow();
        break;
    case Command::DuplicateRow:
        DuplicateRow();
        break;
    case Command::FilterRows:
        FilterRows();
        break;
    case Command::FreezeColumns:
        FreezeColumns();
        break;
    default:
        if (std::ranges::find(GridCommands(), command) != GridCommands().end())
            grid_->RunCommand(command);
    }
}

/// Stays for all blocks of the project, and for the next one.
void CPanel::SetZoom(int percent)
{
    grid_->SetZoom(percent);
    doc_->display.zoom = grid_->Zoom();
    grid_->TellInStatusBar(tr("入力欄の大きさ: %1 %").arg(grid_->Zoom()));
    emit displayChanged();
}

void CPanel::FreezeColumns()
{
    grid_->TellInStatusBar(tr("この表では、列を固定できません。"));
}

void CPanel::AskRows()
{
    if (CanAddRows() && MayClose())
        AddRows(askRowCount(this));
}

std::unique_ptr<CPanel> CreatePanel(CKELDSectionDoc* doc, int block, QWidget* parent)
{
    if (PanelOfBlock(block).empty())
        return nullptr;
    if (PanelOfBlock(block) == "CDown253")
        return std::make_unique<CDown253>(doc, parent);
    if (PanelOfBlock(block) == "CDown999")
        return std::make_unique<CDown999>(doc, parent);
    if (PanelBlock(block) == 0)
        return std::make_unique<CPanel>(doc, block, parent); // a report
    return std::make_unique<CInputPanel>(doc, block, parent);
}

} // namespace sbd
