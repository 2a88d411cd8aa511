// CRunChanges: what a run has changed in a project, at all places of its window.
#pragma once

#include "check/cell_changes.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>
#include <set>

class QTimer;

namespace sbd {

class CChangePane;
class CChildFrame;
struct EditPlace;

/// Compares a project before and behind its run and puts what is different to the notices, the tree, the grid and a list
/// of its window, cell by cell until that cell is edited, or until the notice is closed.
class CRunChanges : public QObject {
    Q_OBJECT

public:
    /// The frame's document, tree and notices are there already.
    explicit CRunChanges(CChildFrame& frame);
    ~CRunChanges() override;

    /// Calls `change`, which may read the project anew, and shows what it has changed. Changes of an earlier run go if
    /// there are new ones.
    void Around(const std::function<void()>& change);

    /// What is shown now.
    [[nodiscard]] const std::vector<ShownChange>& List() const { return changes_.List(); }
    /// The list; the frame gives it its place.
    [[nodiscard]] CChangePane* Pane() const;
    void ShowPane(bool show);
    /// From the cell with the focus to the next change, or the previous one, over all blocks and round again.
    void GoToNext(bool back);
    /// Nothing is shown any more.
    void Dismiss();
    /// Another panel stands in the window.
    void OnPanelShown();

signals:
    /// A change is on show, or why not; a sentence.
    void told(const QString& text);

private:
    void ShowNotice(bool wasModified);
    void ShowAll();
    void ShowMarks();
    void FollowEdits();
    void OnStepped(const EditPlace& place);
    void GoTo(std::size_t line);
    void TakeRunBack();

    CChildFrame& frame_;
    QPointer<CChangePane> pane_;
    CCellChanges changes_;
    CCellChanges asRun_;          // as they were behind the run
    std::size_t bytesBefore_ = 0; // hash of the project ahead of the run
    std::size_t bytesBehind_ = 0;
    bool unsavedBefore_ = false;
    bool reading_ = false;
    bool hasRead_ = false;
    std::set<int> edited_; // blocks
    int openBlock_ = 0;    // of the panel
    QTimer* follow_;
    std::size_t last_ = 0; // line where GoTo() has been
    int lastBlock_ = 0;    // the focus there
    int lastRow_ = 0;
    int lastColumn_ = 0;
};

} // namespace sbd
