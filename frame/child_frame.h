// CChildFrame: the window of one project.
#pragma once

#include "document/project_lock.h"
#include "frame/visited_places.h"

#include <QMdiSubWindow>

#include <functional>
#include <memory>
#include <optional>

class QSplitter;

namespace sbd {

class CKELDSectionDoc;
class CLeftView;
class CNoticeBar;
class CPanel;
class CProjectFindings;
class CProjectReplace;
class CRecoveryCopy;
class CRunChanges;
class CSbdData;
class CTreePane;
class CUpView;
struct PaneSizes;
struct TreeView;
struct WantedRun;

/// One project's window: the tree on the left, on the right the help pane over the panel. Owns the document and what
/// belongs to it: the lock on its file, the recovery copy.
class CChildFrame : public QMdiSubWindow {
    Q_OBJECT

public:
    static constexpr int kFirstBlock = 301;

    /// `lock` is the lock on the document's file; a document without one may come without.
    explicit CChildFrame(std::unique_ptr<CKELDSectionDoc> doc, std::unique_ptr<CProjectLock> lock = nullptr,
                         QWidget* parent = nullptr);
    ~CChildFrame() override;

    [[nodiscard]] CKELDSectionDoc& Doc() { return *doc_; }
    [[nodiscard]] CProjectLock& Lock() { return *lock_; }
    [[nodiscard]] CLeftView& Tree() { return *tree_; }
    [[nodiscard]] CUpView& UpView() { return *upView_; }
    /// What the window has to say of its project, above the panel.
    [[nodiscard]] CNoticeBar& Notices() { return *notices_; }
    /// What is to be told of the project's data.
    [[nodiscard]] CProjectFindings& Findings() { return *findings_; }
    /// What the last run has changed.
    [[nodiscard]] CRunChanges& RunChanges() { return *runChanges_; }
    /// Find and replace, in a block and in the project.
    [[nodiscard]] CProjectReplace& Replace() { return *replace_; }
    /// The panel on show; null for a block whose panel is empty.
    [[nodiscard]] CPanel* Panel() { return panel_.get(); }

    /// The block on show, aliases resolved.
    [[nodiscard]] int CurrentBlock() const { return currentBlock_; }

    /// The block switch: leaves the old panel (which commits), shows that of `number`. False if nothing opens, or if
    /// the old panel holds a text that its cell refused.
    bool SwitchToBlock(int number);

    /// What a menu command does: selects the number in the tree and switches to it. False if nothing opens.
    bool GoToBlock(int number);

    /// Writes to the document what still stands in the panel alone, an open editor included.
    void CommitPanel();

    /// Takes the last step of the project back, or makes the next one again: goes to its block and shows its cell.
    void StepHistory(bool redo);

    /// Puts the cursor into the panel's grid.
    void FocusPanel();
    /// Builds the panel anew, at the cell where it stands.
    void RebuildPanel();
    /// Calls `change`, which reads the project anew or puts another state in its place; the panel stands where it stood.
    void ChangeProject(const std::function<void()>& change);
    /// The same behind a run: what is different is shown.
    void ChangeByRun(const std::function<void()>& change);
    /// Goes to a cell of a block, grid row and column; row 0: to the block as it was left.
    void JumpTo(int block, int row, int column);
    /// Back to the place that the last jump led away from, or forward again. A text that its cell refuses stays.
    void GoBack(bool forward = false);
    [[nodiscard]] const CVisitedPlaces& Places() const { return places_; }
    /// Block, grid row and column of the cursor; row 0: no cell.
    [[nodiscard]] SearchPlace CurrentPlace() const;
    /// The help pane stands to the right of the panel, else above it.
    void ShowHelpBeside(bool beside);
    /// Shows the help page, or the model figure instead.
    void ShowHelpPage(bool show);
    /// The drawing of the bridge in front of both, or not.
    void ShowDrawing(bool show);
    /// What the tree shows, and in which language.
    void SetTreeView(const TreeView& view);

    /// The panes as they are, and as they are at first.
    [[nodiscard]] PaneSizes Panes() const;
    [[nodiscard]] PaneSizes ComputedPanes() const;
    void SetPanes(const PaneSizes& panes);

    /// Moves the cursor on, or back: tree, panel, what the panel has beside its grid, the pane above, and round again.
    void FocusOtherPane(bool forward = true);

    /// Makes a text the project's title until it gets another path.
    void SetTitle(const QString& title);
    [[nodiscard]] QString Title() const { return title_; }
    /// What a project without a path is called where its title has been lost (by a save that was given up) too.
    [[nodiscard]] QString NameWithoutPath() const;

    /// Keeps a recovery copy of the project as it stands in memory, if it has unsaved changes that the last one lacks.
    /// What stands in an open editor is in it, as far as its cell takes it; the editor and a composition in it are left
    /// alone. False if changes are without a copy.
    bool KeepRecoveryCopy();

    /// Takes what stands in an open editor without a box. False if its cell refused the text.
    bool TakeOpenEditor();
    /// The copy stays when the window goes, for the next start to find.
    void LeaveRecoveryCopy() { leaveRecoveryCopy_ = true; }
    /// Removes the copy: the user does not want these changes. If the window stays after all, the next copy has them.
    void DropRecoveryCopy();

    /// The file that is no project, and that the user has let a save replace; empty: none.
    [[nodiscard]] QString ForeignFile() const { return foreignFile_; }
    void SetForeignFile(const QString& path) { foreignFile_ = path; }

    /// Asked before the window closes; the window stays if the answer is false.
    std::function<bool(CChildFrame&)> mayClose;

signals:
    /// Another block is on show.
    void blockShown();
    /// Where one can go back or forward to has changed.
    void placesChanged();
    /// The title or its mark is another one.
    void titleShown();
    /// The panel may have got, or lost, something to take back.
    void undoChanged();
    /// What the selected cells hold.
    void summaryChanged(const QString& summary);
    /// The user wants the grids otherwise; the document's display settings say how.
    void displayChanged();
    /// The page of a report asks for its run.
    void runIsDue(const sbd::WantedRun& run);

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void LeaveKeysToTheMenus();
    void CreatePanes();
    void ShowPanel(int block);
    void RemovePanel();
    void ShowPasteNotice(const QString& text);
    void ShowTitle();
    void OnModified(bool modified);
    void ShowOwnPage();
    [[nodiscard]] QList<QWidget*> FocusPlaces() const;
    void FitHelpToPage();
    [[nodiscard]] QString OpenText() const;
    [[nodiscard]] std::optional<CSbdData> WithOpenText() const;
    void OnTreePressed(int block);
    void OnTreeActivated(int block);

    std::unique_ptr<CKELDSectionDoc> doc_;
    std::unique_ptr<CProjectLock> lock_;
    std::unique_ptr<CRecoveryCopy> recovery_;
    bool recoveryLacksChanges_ = true;
    QString typedInCopy_; // place and text of the open editor that the copy has; empty: none
    bool leaveRecoveryCopy_ = false;
    QString title_;
    QString foreignFile_;
    QSplitter* outer_ = nullptr;    // tree | inner
    QSplitter* inner_ = nullptr;    // help pane over panel
    CTreePane* treePane_ = nullptr; // the line that filters, over the tree
    CLeftView* tree_ = nullptr;
    CUpView* upView_ = nullptr;
    CNoticeBar* notices_ = nullptr;
    QSplitter* lower_ = nullptr; // panel over the list of findings
    std::unique_ptr<CProjectFindings> findings_;
    std::unique_ptr<CRunChanges> runChanges_;
    std::unique_ptr<CProjectReplace> replace_;
    std::unique_ptr<CPanel> panel_;
    QWidget* panelPane_ = nullptr; // holds the panel; blank for blocks without one
    int currentBlock_ = 0;
    CVisitedPlaces places_;
    bool goingBack_ = false;  // what leads there is no jump
    bool panesMoved_ = false; // by the user, who then decides about their sizes
};

} // namespace sbd
