// CGoLine: one line over the window that leads to blocks, cells, commands and what the search finds.
#pragma once

#include "search/go_line.h"

#include <QFrame>
#include <QPointer>

#include <functional>

class QLineEdit;
class QListWidget;
class QListWidgetItem;

namespace sbd {

/// A line with its live list, over a window. Enter or a click chooses; Esc takes it away, and the keyboard is where it
/// was, in an open editor too.
class CGoLine : public QFrame {
    Q_OBJECT

public:
    explicit CGoLine(QWidget* window);

    /// Comes up, or begins anew if it is there.
    void Open(GoScope scope);
    [[nodiscard]] QLineEdit* Line() const { return line_; }
    [[nodiscard]] QListWidget* List() const { return list_; }
    [[nodiscard]] const std::vector<GoTarget>& Targets() const { return targets_; }

    /// Where a line leads.
    std::function<std::vector<GoTarget>(const QString& line, GoScope scope)> find;
    /// Whether a command may be given now.
    std::function<bool(Command command)> may;

signals:
    /// The user wants to go there; the line has gone.
    void chosen(const sbd::GoTarget& target);
    /// The keyboard went elsewhere, and the line with it; what was being edited has to end as it would have.
    void left();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Fill();
    void Place();
    void Step(int rows);
    void Choose();
    void GoAway(bool giveBack);
    void OnFocusChanged(QWidget* now);
    [[nodiscard]] bool OnKey(int key);

    QLineEdit* line_;
    QListWidget* list_;
    GoScope scope_ = GoScope::All;
    std::vector<GoTarget> targets_;
    QPointer<QWidget> before_; // where the keyboard was
    bool closing_ = false;
};

} // namespace sbd
