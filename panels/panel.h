// CPanel: what stands in the lower right pane of a project's window.
#pragma once

#include "commands/commands.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <span>

namespace sbd {

class CGridCtrl;
class CKELDSectionDoc;
class CPanelModel;

/// A pane with a grid, and the commands that the window has for it. As it stands it belongs to a report: the grid is
/// hidden and empty. What can be typed in, searched or listed is its heirs'.
class CPanel : public QWidget {
    Q_OBJECT

public:
    /// `block` with the alias step done.
    CPanel(CKELDSectionDoc* doc, int block, QWidget* parent = nullptr);
    ~CPanel() override;

    /// The block whose data the panel shows (361: 521); the number it was made for if it shows none.
    [[nodiscard]] virtual int Block() const { return openedFor_; }
    /// Empty and hidden in a panel that has nothing to show in it.
    [[nodiscard]] CGridCtrl* Grid() const { return grid_; }
    /// What an input panel shows; null for others.
    [[nodiscard]] virtual CPanelModel* Model() const { return nullptr; }

    /// Writes what was typed to the document; an open editor keeps its text.
    virtual void CommitGrid() {}
    /// To be asked before the panel is closed: takes the text of an open editor. False if the cell refused it: the user
    /// has been told, the editor stays open with the text, and the panel should stay.
    [[nodiscard]] virtual bool MayClose() { return true; }
    /// Takes the text of an open editor, remembers cell and scroll position, commits. The panel is empty afterwards.
    virtual void ClosePanel() {}
    /// Keeps cell and scroll position for the panel that is built anew.
    virtual void KeepPlace() {}
    /// Builds the grid anew, by the settings of now; false if that needs another panel.
    virtual bool SetUpAnew() { return false; }
    /// Puts the focus on a cell and scrolls to it.
    virtual void GoToCell(int row, int column);

    [[nodiscard]] bool CanUndo() const;
    /// True if rows can be appended.
    [[nodiscard]] virtual bool CanAddRows() const { return false; }
    [[nodiscard]] virtual bool CanMoveRowUp() const { return false; }
    [[nodiscard]] virtual bool CanMoveRowDown() const { return false; }
    [[nodiscard]] virtual bool CanInsertRow() const { return false; }
    [[nodiscard]] virtual bool CanDeleteRow() const { return false; }
    [[nodiscard]] virtual bool CanFilterRows() const { return false; }
    [[nodiscard]] virtual bool FiltersRows() const { return false; }
    [[nodiscard]] virtual bool FreezesColumns() const { return false; }

    /// The commands beside undo and the clipboard that a panel, or its grid, carries out.
    [[nodiscard]] static std::span<const Command> GridCommands();
    /// One of them; what may not be done now is said in the status bar.
    void RunGridCommand(Command command);

public slots:
    void Undo();
    virtual void Redo() {}
    void Cut();
    void Copy();
    void Paste();
    void Delete();
    virtual void MoveRowUp() {}
    virtual void MoveRowDown() {}
    virtual void InsertRow() {}
    virtual void DeleteRow() {}
    virtual void DuplicateRow() {}
    virtual void FilterRows() {}
    /// Holds the columns up to that of the focus in sight, or lets all go.
    virtual void FreezeColumns();
    /// Appends empty rows; without effect where the block's rows are fixed.
    virtual void AddRows(int) {}
    /// Asks for a number of rows and appends them.
    void AskRows();

signals:
    /// CanUndo() may have become another answer.
    void undoChanged();
    /// The step that is taken back, or made again, next belongs to another block.
    void otherBlockWanted(bool redo);
    /// What the selected cells hold, as a line of text; empty: nothing to say.
    void summaryChanged(const QString& summary);
    /// The user wants the grid otherwise, and it should stay so: size, columns held, widths; the document's settings say
    /// how.
    void displayChanged();

public:
    /// Asks the user for a number of rows (0: none); by default in a dialog.
    std::function<int(QWidget* parent)> askRowCount;

protected:
    [[nodiscard]] CKELDSectionDoc& Doc() const { return *doc_; }
    [[nodiscard]] int OpenedFor() const { return openedFor_; }
    /// The focus has come to a cell.
    virtual void OnCellEntered(int row, int column);

private:
    void SetZoom(int percent);

    CKELDSectionDoc* doc_;
    int openedFor_;
    CGridCtrl* grid_;
};

/// The panel of a block (alias step done); null if nothing opens for it.
[[nodiscard]] std::unique_ptr<CPanel> CreatePanel(CKELDSectionDoc* doc, int block, QWidget* parent = nullptr);

} // namespace sbd
