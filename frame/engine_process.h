// Starting an engine and waiting for its end.
#pragma once

#include "document/engine_command.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QString>

class QLabel;
class QWidget;

namespace sbd {

/// What is started.
struct EngineStart {
    EngineRun run = EngineRun::Main;
    QString engine;  ///< path of the program
    QString project; ///< path of the project
};

/// The command line for a system that starts programs by a text: an engine's path with a blank in it is quoted.
[[nodiscard]] QString EngineCommandText(const EngineStart& start);

/// Starts an engine and comes back when it has ended, however it ended. Meanwhile windows are painted but take no input:
/// a window over `parent` says what is running. False if the engine could not be started.
[[nodiscard]] bool RunEngineProcess(QWidget* parent, const EngineStart& start);

/// The window that stands while an engine runs. The user cannot close it.
class CEngineWindow : public QDialog {
    Q_OBJECT

public:
    CEngineWindow(const QString& engine, QWidget* parent);

    /// Time since the start as it is shown: minutes and seconds.
    [[nodiscard]] static QString TimeText(qint64 seconds);

    void reject() override {} // Esc

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void ShowTime();

    QElapsedTimer clock_;
    QLabel* time_;
};

} // namespace sbd
