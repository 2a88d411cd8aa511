// CInputPanel: one block of the project as a grid to type in.
#pragma once

#include "panels/panel.h"
#include "project/edit_history.h"

namespace sbd {

class CPanelEditor;
class CPanelSource;
class CRowFilter;
struct CellHit;
struct CellEntry;
struct OpenGrid;
struct PasteOutcome;
struct ReplaceOutcome;

/// One block on show. Holds nothing lasting: what the user types is handed to the document when the focus moves, before
/// a save and in ClosePanel(). A panel that is deleted without being closed leaves the document as it is.
class CInputPanel final : public CPanel {
    Q_OBJECT

public:
    /// `block` with the alias step done; one that has a grid.
    CInputPanel(CKELDSectionDoc* doc, int block, QWidget* parent = nullptr);
    ~CInputPanel() override;

    [[nodiscard]] int Block() const override { return block_; }
    /// Null behind ClosePanel().
    [[nodiscard]] CPanelModel* Model() const override { return model_.get(); }

    void CommitGrid() override;
    [[nodiscard]] bool MayClose() override;
    void ClosePanel() override;
    void KeepPlace() override;
    /// Cell, scroll position and the text of an open editor stay.
    bool SetUpAnew() override;
    void GoToCell(int row, int column) override;
    void Redo() override { StepHere(true); }

    [[nodiscard]] bool CanAddRows() const override;
    [[nodiscard]] bool CanMoveRowUp() const override;
    [[nodiscard]] bool CanMoveRowDown() const override;
    [[nodiscard]] bool CanInsertRow() const override;
    [[nodiscard]] bool CanDeleteRow() const override;
    // Row commands are for the selected rows.
    void MoveRowUp() override;
    void MoveRowDown() override;
    void InsertRow() override;
    void DeleteRow() override;
    void DuplicateRow() override;
    [[nodiscard]] bool CanFilterRows() const override { return model_ != nullptr; }
    [[nodiscard]] bool FiltersRows() const override;
    void FilterRows() override;

    // Several cells as one step (input_cells.cpp).
    /// Puts texts into cells, as a paste does.
    PasteOutcome ImportCells(const std::vector<CellEntry>& cells);
    /// What ImportCells() would do; nothing is changed.
    [[nodiscard]] PasteOutcome TryCells(const std::vector<CellEntry>& cells) const;
    /// Replaces texts in this block, and in others.
    ReplaceOutcome ReplaceHits(const std::vector<CellHit>& hits);
    /// What the grid holds beside the data, and what is out of sight.
    [[nodiscard]] OpenGrid ShownGrid() const;

    [[nodiscard]] bool FreezesColumns() const override;
    void FreezeColumns() override;
    /// Null while no filter is open.
    [[nodiscard]] CRowFilter* RowFilter() const { return filter_; }
    void AddRows(int count) override;

protected:
    void OnCellEntered(int row, int column) override;
    void showEvent(QShowEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void TellSummary();
    void ApplyFilter();
    void ShowHiddenRows();
    void EndFilter();
    void ApplyLayout();
    void SetUp();
    void SetUpWith(const LooseRows& loose);
    void RestoreCell();
    void RestoreScroll();
    void OnAboutToSave();
    void OnModifiedChanged(bool modified);
    void OnChanged();
    void OnStepped(const EditPlace& place, const LooseRows& loose);
    void StepHere(bool redo);
    void ShowAnew(const LooseRows& loose);
    void RunOnRows(bool (CPanelEditor::*run)(int row, int rows), int rowsAway, const QString& cannot);

    int block_;
    std::unique_ptr<CPanelModel> model_;
    std::unique_ptr<CPanelSource> source_;
    LooseRows loose_; // of the grid, as it was when it was last committed
    bool firstCommit_ = true;
    bool wasModified_ = false; // not by this panel: its undoing must not clear the document's flag
    bool committing_ = false;
    bool scrollToRestore_ = false;
    bool summaryWaits_ = false;
    CRowFilter* filter_ = nullptr; // null: no filter is open
    int filterColumn_ = 0;
};

} // namespace sbd
