#include "document/engine_path.h"
#include "frame/engine_runner.h"
#include "frame/left_view.h"
#include "grid/grid_ctrl.h"
#include "panels/panel.h"
#include "run_bench.h"
#include "tests/surroundings.h"

#include <QApplication>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

const auto kChanges =
    u"told: データに修正があり，解析方法を選択してください：\n\n\t はい：　　　　データを保存し，解析を行います．\n"
    u"\t キャンセル：　解析を行いません．"_s;
const auto kAnalysis = u"yes or no: KELD analysis.exe は既に実行されています！自動設計を行う場合，KELD analysis.exe "
                       u"を終了してください！"_s;
const QStringList kEngineAlone = {u"folder"_s,      u"mutex"_s,        u"engine"_s,
                                  u"(file free)"_s, u"mutex closed"_s, u"finished"_s};
const QStringList kReload = {u"panel away"_s, u"panel back"_s, u"read"_s};

} // namespace

class EngineRunnerTest : public QObject {
    Q_OBJECT

private slots:
    // the steps
    void anUnchangedProjectRunsAtOnce_data();
    void anUnchangedProjectRunsAtOnce();
    void changesAreSavedBeforeARun_data();
    void changesAreSavedBeforeARun();
    void aCheckSeesTheFileAsItStands();
    void aCellBeingEditedIsSavedToo();
    void withoutAPathNothingRuns();
    void theAnalysisProgramStopsARunOnYes();
    void theAnalysisProgramIsPassedByOnNo();
    void aSaveThatFailsStopsTheRun();
    void anEngineThatDoesNotStartIsTold_data();
    void anEngineThatDoesNotStartIsTold();
    void aPathThatTheEngineCannotTakeIsRefused();
    void oneRunAtATime();
    void aPageAsksSavesAndRuns();
    void aPageTakesCancelForAnAnswer();
    void aPageWithoutAQuestionRuns();
    void theProjectIsReadBehindTheRunNotInside();
    void aProjectClosedMeanwhileIsLeftAlone();
    void theRunnerMayGoWhileTheEngineRuns();
    void closingAQuestionStartsNothing();
    void theEnginesLieBesideTheProgram();

    // the way back
    void thePanelIsBuiltAnewAtItsCell();
    void aProjectWithoutAPathIsNotRead();
};

void EngineRunnerTest::anUnchangedProjectRunsAtOnce_data()
{
    AddRuns();
}

void EngineRunnerTest::anUnchangedProjectRunsAtOnce()
{
    QFETCH(const EngineRun, run);
    RunBench bench;
    QVERIFY(bench.isOpen && bench.lock.IsHeld());
    const QByteArray before = Bytes(bench.path);
    QVERIFY(bench.runner.Run(run, bench.Project()));
    QCOMPARE(bench.log, kEngineAlone);
    QVERIFY(!bench.lock.IsHeld());
    QVERIFY(bench.runner.IsRunning());
    Settle();
    QCOMPARE(bench.log, kEngineAlone + kReload);
    QVERIFY(bench.lock.IsHeld());
    QVERIFY(!bench.runner.IsRunning());
    QCOMPARE(bench.started.run, run);
    QCOMPARE(bench.started.project, QDir::toNativeSeparators(bench.path));
    QCOMPARE(bench.started.engine, EnginePath(run, QString::fromUtf8(test::EngineFolder())));
    QCOMPARE(Bytes(bench.path), before);
    QCOMPARE(bench.Kept().size(), 1);
    QCOMPARE(Bytes(bench.Kept()[0].file), before); // as it was handed over
    QCOMPARE(bench.Notices(), QStringList());
}

void EngineRunnerTest::changesAreSavedBeforeARun_data()
{
    AddRuns();
}

void EngineRunnerTest::changesAreSavedBeforeARun()
{
    QFETCH(const EngineRun, run);
    if (run == EngineRun::Check)
        return;
    RunBench bench;
    bench.Enter("ENTERED");
    bench.whileEngineRuns = [&] { QVERIFY(Bytes(bench.path).startsWith("TITLE:ENTERED\r\n")); };
    QVERIFY(bench.runner.Run(run, bench.Project()));
    QCOMPARE(bench.log, QStringList({u"folder"_s, u"mutex"_s, kChanges, u"save"_s, u"engine"_s, u"(file free)"_s,
                                     u"mutex closed"_s, u"finished"_s}));
    Settle();
    QCOMPARE(bench.Title(), u"NTERED"_s); // the title loses a letter of its keyword at each reading
    QVERIFY(!bench.Doc().IsModified());
    QVERIFY(Bytes(bench.Kept().value(0).file).startsWith("TITLE:ENTERED\r\n"));
}

void EngineRunnerTest::aCheckSeesTheFileAsItStands()
{
    RunBench bench;
    const QByteArray before = Bytes(bench.path);
    const QString title = bench.Title();
    bench.Enter("ENTERED");
    QVERIFY(bench.runner.Run(EngineRun::Check, bench.Project()));
    QCOMPARE(bench.log, kEngineAlone);
    QCOMPARE(Bytes(bench.path), before);
    QCOMPARE(bench.Title(), u"ENTERED"_s);
    QVERIFY(bench.Doc().IsModified());
    Settle();
    QCOMPARE(bench.Title(), title);
    QVERIFY(!bench.Doc().IsModified());
}

void EngineRunnerTest::aCellBeingEditedIsSavedToo()
{
    RunBench bench;
    connect(&bench.Doc(), &CKELDSectionDoc::aboutToSave, &bench.window, [&] {
        if (bench.Title() != u"EDITED"_s)
            bench.Enter("EDITED");
    });
    bench.whileEngineRuns = [&] { QVERIFY(Bytes(bench.path).startsWith("TITLE:EDITED\r\n")); };
    QVERIFY(bench.runner.Run(EngineRun::Main, bench.Project()));
    QVERIFY(bench.log.contains(u"save"_s));
}

void EngineRunnerTest::withoutAPathNothingRuns()
{
    RunBench bench;
    auto* child = new CChildFrame(std::make_unique<CKELDSectionDoc>());
    CProjectLock lock;
    bench.window.findChild<QMdiArea*>()->addSubWindow(child);
    for (const EngineRunInfo& info : EngineRuns()) {
        bench.log.clear();
        QVERIFY(!bench.runner.Run(info.run, RunProjectOf(*child, lock, [] { return true; })));
        QCOMPARE(bench.log, QStringList({u"told: 物件ファイルを開いてから操作できます！"_s, u"not run"_s}));
    }
}

void EngineRunnerTest::theAnalysisProgramStopsARunOnYes()
{
    RunBench bench;
    bench.analysisRuns = true;
    bench.yes = true;
    bench.Enter("ENTERED");
    QVERIFY(!bench.runner.Run(EngineRun::Main, bench.Project()));
    QCOMPARE(bench.log, QStringList({u"folder"_s, u"mutex"_s, kAnalysis, u"mutex closed"_s, u"not run"_s}));
    QVERIFY(bench.lock.IsHeld());
    QVERIFY(bench.Doc().IsModified());
    QVERIFY(!bench.runner.IsRunning());
}

void EngineRunnerTest::theAnalysisProgramIsPassedByOnNo()
{
    RunBench bench;
    bench.analysisRuns = true;
    QVERIFY(bench.runner.Run(EngineRun::Result, bench.Project()));
    QCOMPARE(bench.log, QStringList({u"folder"_s, u"mutex"_s, kAnalysis, u"engine"_s, u"(file free)"_s,
                                     u"mutex closed"_s, u"finished"_s}));
}

void EngineRunnerTest::aSaveThatFailsStopsTheRun()
{
    RunBench bench;
    bench.Enter("ENTERED");
    bench.canSave = false;
    QVERIFY(!bench.runner.Run(EngineRun::Main, bench.Project()));
    QCOMPARE(bench.log, QStringList({u"folder"_s, u"mutex"_s, kChanges, u"save"_s, u"mutex closed"_s, u"not run"_s}));
    Settle();
    QCOMPARE(bench.Title(), u"ENTERED"_s);
    QVERIFY(bench.Doc().IsModified());
    QVERIFY(bench.lock.IsHeld());
}

void EngineRunnerTest::anEngineThatDoesNotStartIsTold_data()
{
    AddRuns();
}

void EngineRunnerTest::anEngineThatDoesNotStartIsTold()
{
    QFETCH(const EngineRun, run);
    RunBench bench;
    bench.canStart = false;
    QVERIFY(!bench.runner.Run(run, bench.Project()));
    Settle();
    QCOMPARE(bench.log, QStringList({u"folder"_s, u"mutex"_s, u"engine"_s, u"(file free)"_s,
                                     u"told: "_s + EngineMissingMessage(run), u"mutex closed"_s, u"not run"_s}));
    QVERIFY(!bench.lock.IsHeld());   // until the next save
    QVERIFY(bench.Kept().isEmpty()); // nothing was handed over
    QVERIFY(!bench.runner.IsRunning());
}

void EngineRunnerTest::aPathThatTheEngineCannotTakeIsRefused()
{
    RunBench bench(u"𠮷野川橋"_s);
    QVERIFY(bench.isOpen);
    bench.Enter("ENTERED");
    QVERIFY(!bench.runner.Run(EngineRun::Main, bench.Project()));
    QCOMPARE(bench.log, QStringList({u"told: "_s + EngineCannotTakeMessage(bench.path, u"𠮷"_s), u"not run"_s}));
    QVERIFY(bench.lock.IsHeld());
    QVERIFY(bench.Doc().IsModified());
}

void EngineRunnerTest::oneRunAtATime()
{
    RunBench bench;
    bool second = true;
    bench.whileEngineRuns = [&] {
        second = bench.runner.Run(EngineRun::Cross, bench.Project())
                 || bench.runner.RunFromPage(EngineRun::Main, u"?"_s, bench.Project());
    };
    QVERIFY(bench.runner.Run(EngineRun::Main, bench.Project()));
    QVERIFY(!second);
    QVERIFY(!bench.runner.Run(EngineRun::Main, bench.Project())); // the project is not back yet
    Settle();
    QCOMPARE(bench.log, kEngineAlone + kReload);
    bench.whileEngineRuns = [] {};
    QVERIFY(bench.runner.Run(EngineRun::Main, bench.Project()));
}

void EngineRunnerTest::aPageAsksSavesAndRuns()
{
    RunBench bench;
    bench.Enter("ENTERED");
    QVERIFY(bench.runner.RunFromPage(EngineRun::Check, u"?"_s, bench.Project()));
    QCOMPARE(bench.log, QStringList({u"ok or cancel: ?"_s, u"save"_s}) + kEngineAlone);
    Settle();
    QCOMPARE(bench.Title(), u"NTERED"_s);
    QCOMPARE(bench.Notices(), QStringList());
}

void EngineRunnerTest::aPageTakesCancelForAnAnswer()
{
    RunBench bench;
    bench.Enter("ENTERED");
    bench.ok = false;
    QVERIFY(!bench.runner.RunFromPage(EngineRun::Main, u"?"_s, bench.Project()));
    QCOMPARE(bench.log, QStringList({u"ok or cancel: ?"_s}));
    bench.ok = true;
    bench.canSave = false;
    QVERIFY(!bench.runner.RunFromPage(EngineRun::Main, u"?"_s, bench.Project()));
    QCOMPARE(bench.log.last(), u"save"_s);
    QVERIFY(bench.Doc().IsModified());
    QVERIFY(bench.lock.IsHeld());
}

void EngineRunnerTest::aPageWithoutAQuestionRuns()
{
    RunBench bench;
    QVERIFY(bench.runner.RunFromPage(EngineRun::Result, {}, bench.Project()));
    QCOMPARE(bench.log, kEngineAlone);
    QCOMPARE(bench.started.run, EngineRun::Result);
}

void EngineRunnerTest::theProjectIsReadBehindTheRunNotInside()
{
    RunBench bench;
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    QCOMPARE(bench.log, kEngineAlone + kReload); // without a turn of the event loop
    bench.canStart = false;
    QVERIFY(!bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
}

void EngineRunnerTest::aProjectClosedMeanwhileIsLeftAlone()
{
    RunBench bench;
    bench.whileEngineRuns = [&] { delete bench.child; };
    const RunProject project = bench.Project();
    QVERIFY(bench.runner.Run(EngineRun::Main, project));
    Settle();
    QCOMPARE(bench.log, kEngineAlone + QStringList({u"not read"_s}));
    QVERIFY(!bench.runner.Run(EngineRun::Main, project));
}

void EngineRunnerTest::theRunnerMayGoWhileTheEngineRuns()
{
    RunBench bench;
    RunSeams seams = ScreenRunSeams();
    auto* runner = new CEngineRunner(seams);
    const QString kept = bench.KeptIn();
    seams.keptFolder = [kept] { return kept; };
    seams.runEngine = [&](QWidget*, const EngineStart&) {
        delete runner;
        return EngineEnd{.started = true};
    };
    delete runner;
    runner = new CEngineRunner(seams);
    QVERIFY(runner->Run(EngineRun::Check, bench.Project()));
    Settle();
}

void EngineRunnerTest::closingAQuestionStartsNothing()
{
    const RunSeams seams = ScreenRunSeams();
    const auto press = [](Qt::Key key) {
        QTimer::singleShot(0, [key] { QTest::keyClick(QApplication::activeModalWidget(), key); });
    };
    press(Qt::Key_Escape);
    QVERIFY(seams.askYesNo(nullptr, u"KELD analysis.exe"_s)); // yes: stop
    press(Qt::Key_Escape);
    QVERIFY(!seams.askOkCancel(nullptr, u"?"_s));
    press(Qt::Key_Return);
    QVERIFY(seams.askOkCancel(nullptr, u"?"_s));
    press(Qt::Key_Return);
    seams.tell(nullptr, u"!"_s);
}

void EngineRunnerTest::theEnginesLieBesideTheProgram()
{
    const RunSeams seams = ScreenRunSeams();
    QCOMPARE(seams.programFolder(), QCoreApplication::applicationDirPath());
    QCOMPARE(seams.keptFolder(), KeptFolder());
    const AnalysisMutexHandle mutex = seams.createMutex();
    QVERIFY(!mutex.existed);
    QVERIFY(seams.createMutex().existed);
}

void EngineRunnerTest::thePanelIsBuiltAnewAtItsCell()
{
    RunBench bench;
    QVERIFY(bench.child->GoToBlock(313));
    bench.child->Panel()->GoToCell(3, 2);
    bench.child->Panel()->Grid()->setFocus();
    const QPointer<CPanel> before = bench.child->Panel();
    int shown = 0;
    connect(&bench.Doc(), &CKELDSectionDoc::reloaded, &bench.window, [&] { shown = bench.child->CurrentBlock(); });
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    QCOMPARE(shown, 313);
    QCOMPARE(bench.child->CurrentBlock(), 313);
    QCOMPARE(bench.Doc().CurrentBlock(), 313);
    QCOMPARE(bench.child->Tree().SelectedNumber(), 313);
    QVERIFY(before == bench.child->Panel());
    QCOMPARE(bench.child->Panel()->Grid()->FocusCell().row, 3);
    QCOMPARE(bench.child->Panel()->Grid()->FocusCell().column, 2);
    QVERIFY(bench.child->updatesEnabled());
    QVERIFY(bench.child->Panel()->isAncestorOf(bench.window.focusWidget()));
}

void EngineRunnerTest::aProjectWithoutAPathIsNotRead()
{
    CProjectLock lock;
    CChildFrame child(std::make_unique<CKELDSectionDoc>());
    child.Doc().SetModifiedFlag(true);
    QCOMPARE(AfterRun(RunProjectOf(child, lock, [] { return true; })), AfterRunResult::NotRead);
    QVERIFY(!child.Doc().IsModified());
    QCOMPARE(child.CurrentBlock(), 301);
    QCOMPARE(AfterRun({}), AfterRunResult::NoDocument);
}

QTEST_MAIN(EngineRunnerTest)
#include "engine_runner_test.moc"
