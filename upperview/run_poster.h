// CRunPoster: from a repaint that asks for a run to the run.
#pragma once

#include "upperview/chk_page.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <functional>

namespace sbd {

/// Hands on the run that repaints ask for: once, never from inside the paint, and only if it is still wanted by then.
/// As long as the page's flag stands, a repaint after a run asks for the next one. Between them lies a pause, so that
/// the user can end it.
class CRunPoster : public QObject {
    Q_OBJECT

public:
    static constexpr int kPause = 3000; // ms

    /// `isWanted` is asked when the run is due: do page and flag still stand?
    explicit CRunPoster(std::function<bool()> isWanted, QObject* parent = nullptr, int pause = kPause);

    /// A paint asks for a run. Further paints ask in vain until it is due.
    void Want(const WantedRun& run);
    /// A run has ended, or its question was answered with cancel: the next one waits for the pause.
    void RunEnded();
    /// The user has just asked for a run: no pause.
    void UserAsked();

signals:
    /// Behind this stand question, save and run.
    void runIsDue(const sbd::WantedRun& run);

private:
    void Post();

    std::function<bool()> isWanted_;
    QTimer timer_;
    QElapsedTimer sinceRun_; // invalid: no pause to keep
    WantedRun run_;
    int pause_;
};

} // namespace sbd
