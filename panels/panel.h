// CPanel: the lower right pane of a project's window, one block as a grid.
#pragma once

#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

class QMenu;

namespace sbd {

class CGridCtrl;
class CKELDSectionDoc;
class CPanelModel;
class CPanelSource;
struct BlockChange;
struct ChangedRow;

/// One block on show. Holds nothing lasting: what the user types reaches the document when the focus moves, before a
/// save and in ClosePanel(). A panel that is deleted without being closed leaves the document as it is.
class CPanel : public QWidget {
    Q_OBJECT

public:
    /// `block` with the alias step done. A block without a grid of its own shows none.
    CPanel(CKELDSectionDoc* doc, int block, QWidget* parent = nullptr);
    ~CPanel() override;

    /// The block whose data the panel shows (361: 521); the number it was made for if it has no grid.
    [[nodiscard]] int Block() const { return block_; }
    /// The grid; empty and hidden in a panel without one.
    [[nodiscard]] CGridCtrl* Grid() const { return grid_; }
    /// Null in a panel without a grid.
    [[nodiscard]] CPanelModel* Model() const { return model_.get(); }

    /// Writes what was typed to the document; an open editor keeps its text.
    void CommitGrid();
    /// To be asked before the panel is closed: takes the text of an open editor. False if the cell refused it: the user
    /// has been told, the editor stays open with the text, and the panel should stay.
    [[nodiscard]] bool MayClose();
    /// Takes the text of an open editor, remembers cell and scroll position, commits. The panel is empty afterwards.
    void ClosePanel();
    /// Puts the focus on a cell and scrolls to it.
    void GoToCell(int row, int column);
    /// True if rows can be appended.
    [[nodiscard]] bool CanAddRows() const;

    [[nodiscard]] bool CanUndo() const;
    [[nodiscard]] bool CanMoveRowUp() const;
    [[nodiscard]] bool CanMoveRowDown() const;
    [[nodiscard]] bool CanInsertRow() const;

public slots:
    void Undo();
    void Cut();
    void Copy();
    void Paste();
    void Delete();
    void MoveRowUp();
    void MoveRowDown();
    void InsertRow();
    /// Appends empty rows; without effect where the block's rows are fixed.
    void AddRows(int count);
    /// Asks for a number of rows and appends them.
    void AskRows();

signals:
    /// CanUndo() may have become another answer.
    void undoChanged();

protected:
    void showEvent(QShowEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

public:
    /// Asks the user for a number of rows (0: none); by default in a dialog.
    std::function<int(QWidget* parent)> askRowCount;

private:
    void SetUp();
    void RestoreCell();
    void RestoreScroll();
    void Remember();
    void OnCellEntered(int row, int column);
    void OnAboutToSave();
    void OnModifiedChanged(bool modified);
    void OnChanged();
    void SetUpAnew();
    void Notify(const std::vector<ChangedRow>& changed);
    void AfterRowCommand(int row);

    CKELDSectionDoc* doc_;
    int openedFor_;
    int block_;
    CGridCtrl* grid_;
    std::unique_ptr<CPanelModel> model_;
    std::unique_ptr<CPanelSource> source_;
    bool firstCommit_ = true;
    bool wasModified_ = false; // not by this panel: its undoing must not clear the document's flag
    bool committing_ = false;
    bool scrollToRestore_ = false;
};

/// The panel of a block (alias step done); null if nothing opens for it.
[[nodiscard]] std::unique_ptr<CPanel> CreatePanel(CKELDSectionDoc* doc, int block, QWidget* parent = nullptr);

} // namespace sbd
