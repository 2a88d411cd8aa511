// CProjectFindings: what is to be told of a project, at all places of its window.
#pragma once

#include "document/project_check.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <set>
#include <string>

namespace sbd {

class CChildFrame;
class CFindingPane;

/// Puts the findings of a project to the grid, the tree, the list and the notices of its window, and goes to their
/// places. Nothing of it waits for an answer.
class CProjectFindings : public QObject {
    Q_OBJECT

public:
    /// The frame's document and tree are there already.
    explicit CProjectFindings(CChildFrame& frame);
    ~CProjectFindings() override;

    [[nodiscard]] CProjectCheck& Check() { return check_; }
    /// The list; the frame gives it its place.
    [[nodiscard]] CFindingPane* Pane();

    /// The kinds of doubts that are not told.
    void SetSilent(const SilentKinds& kinds);
    void ShowPane(bool show);
    [[nodiscard]] bool ShowsPane() const;
    /// Puts the cursor into the list.
    void FocusPane();
    /// From the cell with the focus to the next finding, or the previous one, over all blocks and round again.
    void GoToNext(bool back);
    /// Shows a finding's place and says what it is about.
    void GoTo(const Finding& finding);
    /// Another panel stands in the window.
    void OnPanelShown();

    /// What the status bar says behind a save: that cells will come back different. Empty: none will.
    [[nodiscard]] QString LineBehindSave();

signals:
    /// The status bar's count is another one.
    void countsChanged();
    /// The user wants to see the list.
    void listWanted();
    /// A finding is on show; its sentence.
    void told(const QString& text);

private:
    void Show();
    void ShowMarks();
    void ShowList();
    void ShowFileNotice();

    CChildFrame& frame_;
    CProjectCheck check_;
    QPointer<CFindingPane> pane_;
    std::set<std::string> toldOfFile_; // sentences
    Finding last_;                     // where GoTo() has been
    int lastRow_ = 0;
    int lastColumn_ = 0; // the focus there
};

} // namespace sbd
