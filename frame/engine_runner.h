// CEngineRunner: the five runs of the engines.
#pragma once

#include "document/engine_command.h"
#include "document/run_end.h"
#include "frame/engine_process.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace sbd {

class CChildFrame;
class CKELDSectionDoc;
class CProjectLock;
class CSbdData;

/// The mutex of a run: it is closed with its last owner.
struct AnalysisMutexHandle {
    bool existed = false;
    std::shared_ptr<void> handle;
};

/// What the runs ask, tell and use; tests put their own in.
struct RunSeams {
    std::function<bool(QWidget* parent, const QString& text)> askYesNo;
    std::function<bool(QWidget* parent, const QString& text)> askOkCancel;
    std::function<void(QWidget* parent, const QString& text)> tell;
    /// The folder of our own program, where the engines are.
    std::function<QString()> programFolder;
    std::function<AnalysisMutexHandle()> createMutex;
    /// Starts the engine and waits for its end.
    std::function<EngineEnd(QWidget* parent, const EngineStart& start)> runEngine;
    /// The folder of the kept inputs.
    std::function<QString()> keptFolder;
};

/// The dialogs on the screen and the system's own programs and folders.
[[nodiscard]] RunSeams ScreenRunSeams();

/// What has become of the project's file in a run.
enum class RunTrouble {
    None,
    Gone,      ///< it is not there any more
    Broken,    ///< it looks broken
    Held,      ///< something still holds it; it was not read
    FreeAgain, ///< it was held, is free now and holds something else; the user has gone on in the window
};

/// What a run has left, to be shown until the user closes it.
struct RunReport {
    EngineRun run = EngineRun::Main;
    QString path;
    RunEnd end;
    RunTrouble trouble = RunTrouble::None;
    bool fileChanged = false;                   ///< the engine has written to the project
    bool reloaded = false;                      ///< the window shows the file
    std::vector<std::string> lostSections = {}; ///< whose rows have gone; CP932
    QString kept = {};                          ///< the project as it was handed over; empty: it could not be kept
    QString keptUnsaved = {};                   ///< the changes that a check did not see
    std::shared_ptr<const CSbdData> unsaved = nullptr; ///< the same, as they stood in the window; null: there were none
};

/// The project a run is made on. The lock lives as long as the document.
struct RunProject {
    QPointer<CKELDSectionDoc> doc;
    CProjectLock* lock = nullptr;
    QPointer<QWidget> window; ///< messages stand over it
    /// The save wrapper: saves under the project's own name and takes the lock. False: not saved, the user knows.
    std::function<bool()> save;
    /// Calls `change`, which reads the project anew, and shows it where the user stood.
    std::function<void(const std::function<void()>& change)> changeProject;
    /// Keeps a copy of what is not saved, for the next start to find if we do not live to see the engine's end.
    std::function<void()> keepRecoveryCopy;
    /// Shows what a run has left.
    std::function<void(const RunReport& report)> show;
};

/// The project of a window; `lock` is its lock, `save` its save wrapper.
[[nodiscard]] RunProject RunProjectOf(CChildFrame& child, CProjectLock& lock, std::function<bool()> save);

/// What came of the project after a run.
enum class AfterRunResult {
    NoDocument, ///< it is closed
    NotRead,    ///< the engine still holds the file, or it cannot be written or read
    Reloaded,
};

/// The end of a run: reads the project again if the engine has let go of it, and clears the modified flag in any case:
/// what was not saved is kept, and the window says where.
AfterRunResult AfterRun(const RunProject& project);

/// Runs the engines, one at a time.
class CEngineRunner : public QObject {
    Q_OBJECT

public:
    explicit CEngineRunner(RunSeams seams = ScreenRunSeams(), QObject* parent = nullptr);
    ~CEngineRunner() override;

    /// Makes a run and comes back when the engine has ended; the project is read again after the messages that wait
    /// already. Does nothing while another run is under way. True if the engine ran.
    bool Run(EngineRun run, const RunProject& project);

    /// The same, but the project has been read again when it comes back. True if it has.
    bool RunAndReload(EngineRun run, const RunProject& project);

    /// A run that a page asked for. With a question, a cancel ends it and an OK saves before the run. True if the
    /// engine ran.
    bool RunFromPage(EngineRun run, const QString& question, const RunProject& project);

    /// From the begin of a run until the project has been read again.
    [[nodiscard]] bool IsRunning() const { return running_; }

signals:
    /// A run begins.
    void begun();
    /// A run is over; `started` is false if there was none. The project has not been read again yet.
    void finished(bool started);
    /// The project has been read again, or will not be.
    void projectIsBack(bool reloaded);

private:
    struct Record;

    [[nodiscard]] bool MayStart(const RunProject& project) const;
    [[nodiscard]] bool SaveChanges(const RunProject& project) const;
    [[nodiscard]] bool RunSteps(EngineRun run, const RunProject& project);
    [[nodiscard]] bool StartAndWait(EngineRun run, const QString& engine, const RunProject& project);
    [[nodiscard]] std::shared_ptr<Record> MakeRecord(EngineRun run, const RunProject& project) const;
    [[nodiscard]] bool MayRunWithoutCopy(const RunProject& project, const Record& record) const;
    void BringBack(const RunProject& project, const std::shared_ptr<Record>& record);
    void JudgeFile(const RunProject& project, AfterRunResult result, Record& record);
    void WaitForFile(const RunProject& project, const std::shared_ptr<Record>& record);
    void OnFileFree(const RunProject& project, const std::shared_ptr<Record>& record);
    void Tell(const RunProject& project, const QString& text) const;

    RunSeams seams_;
    bool running_ = false;
    bool reloaded_ = false;
};

} // namespace sbd
