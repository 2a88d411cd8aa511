// Ends of the program that come from outside.
#pragma once

#include <QObject>

#include <array>

class QSocketNotifier;

namespace sbd {

class CMainFrame;

/// Keeps copies of what is not saved when the program is ended from outside, and lets it end then: by the signals that
/// ask a program to end (SIGTERM, SIGHUP, SIGINT), or because the screen has gone. One at a time. Signals are not met on
/// Windows, which has none.
class CEndSignals : public QObject {
    Q_OBJECT

public:
    explicit CEndSignals(CMainFrame& frame);
    ~CEndSignals() override;

    /// The exit code if a signal has ended the program, 0 before.
    [[nodiscard]] int ExitCode() const { return exitCode_; }

private:
    void TakeSignal();

    CMainFrame& frame_;
    QSocketNotifier* notifier_ = nullptr;
    int exitCode_ = 0;
};

/// Asks `frame` what becomes of unsaved changes before the system ends the session.
void ConnectSessionEnd(CMainFrame& frame);

} // namespace sbd
