// A project's window, a user with answers, and engines that do what a test writes down for them.
#pragma once

#include "answers.h"
#include "document/kept_inputs.h"
#include "document/project_lock.h"
#include "document/save_flow.h"
#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/difference_dialog.h"
#include "frame/engine_runner.h"
#include "frame/notice_bar.h"
#include "frame/run_notices.h"
#include "tests/document/data_of.h"
#include "tests/surroundings.h"

#include <QDir>
#include <QMainWindow>
#include <QMdiArea>
#include <QPointer>
#include <QPushButton>
#include <QTest>

namespace sbd {

/// The runs are given this user, this project and a log of what they do. Until a test asks for the real engines, an
/// engine is a line in the log.
class RunBench {
public:
    explicit RunBench(const QString& name = QStringLiteral("橋 1"))
        : path(folder.Example(QStringLiteral("plate4"), name))
    {
        auto area = new QMdiArea;
        window.setCentralWidget(area);
        window.resize(1000, 700);
        auto doc = std::make_unique<CKELDSectionDoc>();
        const auto no = [](const QString&) { return false; };
        isOpen = OnOpenDocument(*doc, lock, path, no).Ok();
        child = new CChildFrame(std::move(doc));
        area->addSubWindow(child);
        child->showMaximized();
        window.show();
        QObject::connect(&runner, &CEngineRunner::finished, &window,
                         [this](bool ran) { log += ran ? QStringLiteral("finished") : QStringLiteral("not run"); });
        QObject::connect(&runner, &CEngineRunner::projectIsBack, &window, [this](bool reloaded) {
            log += reloaded ? QStringLiteral("read") : QStringLiteral("not read");
        });
    }

    [[nodiscard]] CKELDSectionDoc& Doc() { return child->Doc(); }
    [[nodiscard]] QString Base() const { return BasePath(path); }
    /// The folder of the kept inputs, and what is in it, newest first.
    [[nodiscard]] QString KeptIn() const { return folder.Path(QStringLiteral("inputs")); }
    [[nodiscard]] QList<KeptInput> Kept() const { return KeptInputsOf(path, KeptIn()); }
    /// What stands above the panel.
    /// What the bar tells of the end of runs; what they have changed is told beside it.
    [[nodiscard]] QStringList Notices()
    {
        QStringList texts = child->Notices().Texts();
        texts.removeOne(child->Notices().TextOf(QStringLiteral("run-changes")));
        return texts;
    }
    /// Presses a button of a notice; false: there is none.
    bool Press(const QString& text)
    {
        for (QPushButton* button : child->Notices().findChildren<QPushButton*>()) {
            if (button->text().startsWith(text) && button->isVisibleTo(&child->Notices())
                && button->parentWidget()->objectName() != QStringLiteral("run-changes")) {
                button->click();
                return true;
            }
        }
        return false;
    }

    [[nodiscard]] RunProject Project()
    {
        RunProject project = RunProjectOf(*child, lock, [this] { return Save(); });
        project.changeProject = [this, real = project.changeProject](const std::function<void()>& change) {
            log += QStringLiteral("panel away");
            real(change);
            log += QStringLiteral("panel back");
        };
        project.show = [this](const RunReport& report) {
            reports += report;
            ShowRunReport(*child, report, [this](DifferenceView view) { shown += std::move(view); });
        };
        return project;
    }

    /// The next engines do this, one verb a line (tests/engine/engine.cpp).
    void Engine(const QByteArray& verbs)
    {
        QFile file(Base() + QStringLiteral(".engine"));
        isOpen = isOpen && file.open(QFile::WriteOnly);
        file.write(verbs);
        realEngines = true;
    }

    /// Changes the project in memory.
    void Enter(const char* title)
    {
        test::DataOf(Doc()).SetOption(301, 0, title);
        Doc().SetModifiedFlag(true);
    }
    [[nodiscard]] QString Title() { return toQString(Doc().Data().Option(301, 0)); }

    TestFolder folder;
    QString path;
    bool isOpen = false;
    CProjectLock lock;
    QMainWindow window;
    QPointer<CChildFrame> child;
    CEngineRunner runner{Seams()};

    // What the user and the surroundings do.
    bool yes = false;
    bool ok = true;
    bool canSave = true;
    bool analysisRuns = false;
    bool canStart = true;
    bool realEngines = false;
    std::function<void()> whileEngineRuns = [] {};

    QStringList log;
    QList<DifferenceView> shown; ///< lists of differences
    EngineStart started;
    QList<RunReport> reports;

private:
    [[nodiscard]] bool Save()
    {
        log += QStringLiteral("save");
        const auto save = [this] { return canSave && Doc().SaveDocument(path).Ok(); };
        return SaveWrapper(Doc(), lock, {save, [](const QString&) {}}).saved;
    }

    [[nodiscard]] AnalysisMutexHandle CreateMutex()
    {
        log += QStringLiteral("mutex");
        mutexIsOpen_ = true;
        const auto close = [this](void*) {
            mutexIsOpen_ = false;
            log += QStringLiteral("mutex closed");
        };
        return {analysisRuns, std::shared_ptr<void>(this, close)};
    }

    [[nodiscard]] EngineEnd RunEngine(QWidget* parent, const EngineStart& start)
    {
        started = start;
        log += QStringLiteral("engine");
        log += lock.IsHeld() ? QStringLiteral("(file held)") : QStringLiteral("(file free)");
        if (!mutexIsOpen_)
            log += QStringLiteral("(no mutex)");
        whileEngineRuns();
        return realEngines ? RunEngineProcess(parent, start) : EngineEnd{.started = canStart};
    }

    [[nodiscard]] RunSeams Seams()
    {
        return {[this](QWidget*, const QString& text) {
                    log += QStringLiteral("yes or no: ") + text;
                    return yes;
                },
                [this](QWidget*, const QString& text) {
                    log += QStringLiteral("ok or cancel: ") + text;
                    return ok;
                },
                [this](QWidget*, const QString& text) { log += QStringLiteral("told: ") + text; },
                [this] {
                    log += QStringLiteral("folder");
                    return QString::fromUtf8(test::EngineFolder());
                },
                [this] { return CreateMutex(); },
                [this](QWidget* parent, const EngineStart& start) { return RunEngine(parent, start); },
                [this] { return KeptIn(); }};
    }

    bool mutexIsOpen_ = false;
};

/// The five runs as the data of a test.
inline void AddRuns()
{
    QTest::addColumn<EngineRun>("run");
    QTest::newRow("check") << EngineRun::Check;
    QTest::newRow("run") << EngineRun::Main;
    QTest::newRow("result") << EngineRun::Result;
    QTest::newRow("cross") << EngineRun::Cross;
    QTest::newRow("support") << EngineRun::Support;
}

/// Takes the messages that a run has left in the queue.
inline void Settle()
{
    QApplication::processEvents();
}

/// The texts of the log that begin with "told: ".
inline QStringList Told(const RunBench& bench)
{
    return bench.log.filter(QStringLiteral("told: "));
}

/// The window of a running engine.
inline QWidget* EngineWindow()
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == QStringLiteral("engineWindow") && window->isVisible())
            return window;
    }
    return nullptr;
}

/// Presses a button of a window by its text.
inline bool PressIn(QWidget* window, const QString& text)
{
    if (window == nullptr)
        return false;
    for (QPushButton* button : window->findChildren<QPushButton*>()) {
        if (button->text().startsWith(text) && button->isVisible()) {
            QTest::mouseClick(button, Qt::LeftButton);
            return true;
        }
    }
    return false;
}

} // namespace sbd
