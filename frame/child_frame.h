// CChildFrame: the window of one project.
#pragma once

#include <QMdiSubWindow>

#include <functional>
#include <memory>

class QSplitter;

namespace sbd {

class CKELDSectionDoc;
class CLeftView;
class CPanel;
class CUpView;

/// One project's window: the tree on the left, on the right the help pane over the panel. Owns the document.
class CChildFrame : public QMdiSubWindow {
    Q_OBJECT

public:
    static constexpr int kFirstBlock = 301;

    explicit CChildFrame(std::unique_ptr<CKELDSectionDoc> doc, QWidget* parent = nullptr);
    ~CChildFrame() override;

    [[nodiscard]] CKELDSectionDoc& Doc() { return *doc_; }
    [[nodiscard]] CLeftView& Tree() { return *tree_; }
    [[nodiscard]] CUpView& UpView() { return *upView_; }
    /// The panel on show; null for a block whose panel is empty.
    [[nodiscard]] CPanel* Panel() { return panel_.get(); }

    /// The block on show, aliases resolved.
    [[nodiscard]] int CurrentBlock() const { return currentBlock_; }

    /// The block switch: leaves the old panel (which commits), shows that of `number`. False if nothing opens.
    bool SwitchToBlock(int number);

    /// What a menu command does: selects the number in the tree and switches to it. False if nothing opens.
    bool GoToBlock(int number);

    /// Writes to the document what still stands in the panel alone, an open editor included.
    void CommitPanel();

    /// Puts the cursor into the panel's grid.
    void FocusPanel();
    /// Moves the cursor between tree and panel.
    void FocusOtherPane();

    /// Asked before the window closes; the window stays if the answer is false.
    std::function<bool(CChildFrame&)> mayClose;

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void CreatePanes();
    void ShowPanel(int block);
    void RemovePanel();
    void PlacePanes();
    void UpdateTitle();

    std::unique_ptr<CKELDSectionDoc> doc_;
    QSplitter* outer_ = nullptr; // tree | inner
    QSplitter* inner_ = nullptr; // help pane over panel
    CLeftView* tree_ = nullptr;
    CUpView* upView_ = nullptr;
    std::unique_ptr<CPanel> panel_;
    QWidget* panelPane_ = nullptr; // holds the panel; blank for blocks without one
    int currentBlock_ = 0;
    bool panesMoved_ = false; // by the user, who then decides about their sizes
};

} // namespace sbd
