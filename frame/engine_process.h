// Starting an engine and waiting for its end.
#pragma once

#include "document/engine_command.h"
#include "frame/report_tail.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QString>

class QLabel;
class QPlainTextEdit;
class QPushButton;
class QWidget;

namespace sbd {

/// What is started.
struct EngineStart {
    EngineRun run = EngineRun::Main;
    QString engine;      ///< path of the program
    QString project;     ///< path of the project
    QString report = {}; ///< path of the report that it writes; empty: none is shown
};

/// How the process has ended.
struct EngineEnd {
    bool started = false;
    bool cancelled = false; ///< by the user
    bool fault = false;     ///< by a signal, or on Windows by an exception
    int code = 0;           ///< exit code; of a fault its number
};

/// The command line for a system that starts programs by a text: an engine's path with a blank in it is quoted.
[[nodiscard]] QString EngineCommandText(const EngineStart& start);

/// Starts an engine and comes back when it has ended, however it ended. Meanwhile windows are painted but take no input:
/// a window over `parent` says what is running and lets the user cancel it, which ends the engine and all that it has
/// started.
[[nodiscard]] EngineEnd RunEngineProcess(QWidget* parent, const EngineStart& start);

/// The window that stands while an engine runs. The user cannot close it.
class CEngineWindow : public QDialog {
    Q_OBJECT

public:
    CEngineWindow(const EngineStart& start, CReportTail report, QWidget* parent);

    /// Time since the start as it is shown: minutes and seconds.
    [[nodiscard]] static QString TimeText(qint64 seconds);

    void reject() override {} // Esc

signals:
    /// The user wants the engine to end, and has been asked.
    void cancelled();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void ShowTime();
    void ShowReport();
    void AskToCancel();

    QElapsedTimer clock_;
    CReportTail tail_;
    QLabel* time_;
    QPlainTextEdit* report_;
    QPushButton* cancel_;
};

} // namespace sbd
