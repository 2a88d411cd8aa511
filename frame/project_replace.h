// CProjectReplace: find and replace in a project's window.
#pragma once

#include "panelmodel/replace.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <map>

class QTimer;

namespace sbd {

class CChildFrame;
class CReplacePane;

/// Looks for a text in the block on show or in all blocks, leads through the cells that hold it, and replaces it in those
/// that are ticked, as one step. What stays as it is is listed with its reason.
class CProjectReplace : public QObject {
    Q_OBJECT

public:
    /// The frame's document is there already.
    explicit CProjectReplace(CChildFrame& frame);
    ~CProjectReplace() override;

    /// The lines and the list; the frame gives them their place.
    [[nodiscard]] CReplacePane* Pane() const;
    /// Opens them with the text of the cell, to be typed over.
    void Open(bool replaces);
    void Close();
    /// From the cell with the focus to the next one that holds the text, or the previous one, round and round.
    void GoToNext(bool back);
    /// Replaces what is ticked.
    void Replace();
    /// Another panel stands in the window.
    void OnPanelShown();
    /// Looks now for what is typed, if it has not been done yet.
    void LookNow();

signals:
    /// A cell is on show, or why not; a sentence.
    void told(const QString& text);

private:
    void Look();
    void GoTo(std::size_t line);
    [[nodiscard]] std::map<std::size_t, QString> NotesOf(const std::vector<CellHit>& hits) const;

    CChildFrame& frame_;
    QPointer<CReplacePane> pane_;
    QTimer* soon_;
    bool looking_ = false;
    QString remark_; // of what was done last
};

} // namespace sbd
