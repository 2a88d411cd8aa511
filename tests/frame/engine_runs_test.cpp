// Runs of real processes: what they get, and what comes back of them.
#include "document/recovery.h"
#include "document/section_doc.h"
#include "frame/engine_runner.h"
#include "grid/grid_ctrl.h"
#include "panels/panel.h"
#include "run_bench.h"
#include "tests/document/data_of.h"
#include "tests/document/other_process.h"
#include "tests/surroundings.h"

#include <QApplication>
#include <QDir>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

/// The other process: the program with a project, an engine under way.
int RunInside(const QString& project, const QString& kept)
{
    CProjectLock lock;
    auto doc = std::make_unique<CKELDSectionDoc>();
    (void)OnOpenDocument(*doc, lock, project, [](const QString&) { return false; });
    CChildFrame child(std::move(doc));
    test::DataOf(child.Doc()).SetOption(301, 0, "UNSAVED");
    child.Doc().SetModifiedFlag(true);
    RunSeams seams = ScreenRunSeams();
    seams.programFolder = [] { return QString::fromUtf8(test::EngineFolder()); };
    seams.keptFolder = [kept] { return kept; };
    CEngineRunner runner(seams);
    QTimer::singleShot(100, [] { OtherProcess::Say("running"); });
    runner.Run(EngineRun::Check, RunProjectOf(child, lock, [] { return true; }));
    return 0;
}

} // namespace

class EngineRunsTest : public QObject {
    Q_OBJECT

private slots:
    void theFiveEnginesGetTheirArguments_data();
    void theFiveEnginesGetTheirArguments();
    void whatTheEngineChangedStandsInTheGrid();
    void aMissingEngineIsTold();
    void aFileThatIsNoProgramIsTold();
    void aCrashComesBackLikeAnEnd();
    void anExitCodeIsTold();
    void aCheckLosesChangesButTheyStayInReach();
    void cellsOfAListComeBackOneByOne();
    void aKilledProgramLeavesItsCopy();
    void aPathOfTheEngineWithBlanksIsQuoted();
};

void EngineRunsTest::theFiveEnginesGetTheirArguments_data()
{
    AddRuns();
}

void EngineRunsTest::theFiveEnginesGetTheirArguments()
{
    QFETCH(const EngineRun, run);
    RunBench bench(u"設計 課 の 橋 ソ表"_s);
    bench.Engine("args\n");
    QVERIFY(bench.runner.RunAndReload(run, bench.Project()));
    QString wanted = QDir::toNativeSeparators(bench.path) + u'\n';
    if (!InfoOf(run).argument.isEmpty())
        wanted += QString(InfoOf(run).argument).trimmed() + u'\n';
    QCOMPARE(QString::fromUtf8(Bytes(bench.Base() + u".args"_s)), wanted);
    QCOMPARE(Told(bench), QStringList());
}

void EngineRunsTest::whatTheEngineChangedStandsInTheGrid()
{
    RunBench bench;
    QCOMPARE(bench.Doc().Data().Option(301, 1), std::string_view("YES"));
    bench.Engine("value RESET_RESULTS NO\nchk Error = 3\nresult Z1D 300\n");
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    QCOMPARE(bench.Doc().Data().Option(301, 1), std::string_view("NO"));
    QCOMPARE(bench.child->Panel()->Grid()->model()->index(1, 1).data().toString(), u"NO"_s);
    QVERIFY(!bench.Doc().IsModified());
    QVERIFY(bench.lock.IsHeld());
    QVERIFY(QFile::exists(bench.Base() + u"_計算結果/橋 1.CHK"_s));
    QCOMPARE(Told(bench), QStringList());
    QCOMPARE(bench.Notices(), QStringList());
    QCOMPARE(bench.Kept().value(0).end, (RunEnd{RunEndKind::Report, 0, 3, 0}));
}

void EngineRunsTest::aMissingEngineIsTold()
{
    RunBench bench;
    EngineStart start{EngineRun::Cross, bench.folder.Path(u"HOLM4_W_CROSS.exe"_s), bench.path};
    QVERIFY(!RunEngineProcess(&bench.window, start).started);
    QVERIFY(EngineWindow() == nullptr);
}

void EngineRunsTest::aFileThatIsNoProgramIsTold()
{
    RunBench bench;
    const QString engine = bench.folder.Path(u"HOLM4_W_CROSS.exe"_s);
    QFile file(engine);
    QVERIFY(file.open(QFile::WriteOnly));
    file.write("no program");
    file.close();
    QVERIFY(!RunEngineProcess(&bench.window, {EngineRun::Cross, engine, bench.path}).started);
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QVERIFY(!RunEngineProcess(&bench.window, {EngineRun::Cross, engine, bench.path}).started);
}

void EngineRunsTest::aCrashComesBackLikeAnEnd()
{
    RunBench bench;
    const QByteArray before = Bytes(bench.path);
    bench.Engine("value RESET_RESULTS NO\ncrash\n");
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    QCOMPARE(bench.Doc().Data().Option(301, 1), std::string_view("NO"));
    QVERIFY(bench.lock.IsHeld());
    QCOMPARE(Told(bench), QStringList());
    QCOMPARE(bench.Kept().size(), 1);
    QCOMPARE(Bytes(bench.Kept()[0].file), before);
    QCOMPARE(bench.Kept()[0].end.kind, RunEndKind::Fault);
    QCOMPARE(bench.Notices().size(), 1);
    QVERIFY2(bench.Notices()[0].startsWith(u"解析プログラムが途中で終わりました: 異常終了 ("_s),
             qPrintable(bench.Notices()[0]));
    QVERIFY(bench.Notices()[0].contains(QDir::toNativeSeparators(bench.Kept()[0].file)));
    QVERIFY(bench.Doc().lastRun.contains(u"異常終了 ("_s));
    // The way back is one step.
    QVERIFY(bench.Press(u"元に戻す"_s));
    QCOMPARE(bench.Doc().Data().Option(301, 1), std::string_view("YES"));
    QVERIFY(bench.Doc().IsModified());
    QCOMPARE(bench.Notices(), QStringList());
    bench.Doc().Undo();
    QCOMPARE(bench.Doc().Data().Option(301, 1), std::string_view("NO"));
}

void EngineRunsTest::anExitCodeIsTold()
{
    RunBench bench;
    bench.Engine("value RESET_RESULTS NO\nexit 77\n");
    QVERIFY(bench.runner.RunAndReload(EngineRun::Support, bench.Project()));
    QCOMPARE(bench.Doc().Data().Option(301, 1), std::string_view("NO")); // read as after any end
    QCOMPARE(Told(bench), QStringList());
    QCOMPARE(bench.Kept().value(0).end, (RunEnd{RunEndKind::ExitCode, 77}));
    QCOMPARE(bench.Notices().size(), 1);
    QVERIFY(bench.Notices()[0].contains(u"終了コード 77"_s));
    // The next run that ends well takes the notice away.
    bench.Engine("chk ok\n");
    QVERIFY(bench.runner.RunAndReload(EngineRun::Support, bench.Project()));
    QCOMPARE(bench.Notices(), QStringList());
    QVERIFY(bench.runner.RunAndReload(EngineRun::Support, bench.Project()));
    bench.Engine("\n");
    QVERIFY(bench.runner.RunAndReload(EngineRun::Support, bench.Project()));
    QCOMPARE(bench.Kept().value(0).end.kind, RunEndKind::NoReport); // that of before is not its own
}

void EngineRunsTest::aCheckLosesChangesButTheyStayInReach()
{
    RunBench bench;
    const QString title = bench.Title();
    const QByteArray before = Bytes(bench.path);
    bench.Enter("BRIDGE OF TODAY");
    bench.Engine("value RESET_RESULTS NO\nchk ok\n");
    QVERIFY(bench.runner.RunAndReload(EngineRun::Check, bench.Project()));
    QCOMPARE(bench.Title(), title);
    QVERIFY(!bench.Doc().IsModified());
    QCOMPARE(bench.Kept().size(), 2); // what the engine got, and what it did not see
    QCOMPARE(bench.Kept()[0].kind, KeptKind::Unsaved);
    QVERIFY(Bytes(bench.Kept()[0].file).startsWith("TITLE:BRIDGE OF TODAY\r\n"));
    QCOMPARE(bench.Kept()[1].kind, KeptKind::Check);
    QCOMPARE(Bytes(bench.Kept()[1].file), before);
    QCOMPARE(Told(bench), QStringList());

    // A bar that stays, with both ways.
    QCOMPARE(bench.Notices().size(), 1);
    QVERIFY(bench.Notices()[0].contains(u"保存していなかった変更が画面から消えました"_s));
    QVERIFY(bench.Notices()[0].contains(QDir::toNativeSeparators(bench.Kept()[0].file)));
    QVERIFY(bench.Press(u"比べる"_s));
    QCOMPARE(bench.shown.size(), 1);
    QCOMPARE(bench.shown[0].differences.size(), std::size_t(2)); // the title, and what the engine wrote
    QCOMPARE(toQString(bench.shown[0].differences[0].before), u"BRIDGE OF TODAY"_s);
    QCOMPARE(bench.Notices().size(), 1);
    QVERIFY(bench.Press(u"元に戻す"_s));
    QCOMPARE(bench.Title(), u"BRIDGE OF TODAY"_s);
    QVERIFY(bench.Doc().IsModified());
    QCOMPARE(bench.Notices(), QStringList());
    bench.Doc().Undo();
    QCOMPARE(bench.Title(), title);
}

void EngineRunsTest::cellsOfAListComeBackOneByOne()
{
    RunBench bench;
    bench.Enter("BRIDGE OF TODAY");
    bench.Engine("value RESET_RESULTS NO\n");
    QVERIFY(bench.runner.RunAndReload(EngineRun::Check, bench.Project()));
    QVERIFY(bench.Press(u"比べる"_s));
    const DifferenceView view = bench.shown.value(0);
    QCOMPARE(view.differences.size(), std::size_t(2));
    view.takeBack({view.differences[0]});
    QCOMPARE(bench.Title(), u"BRIDGE OF TODAY"_s);
    QCOMPARE(bench.Doc().Data().Option(301, 1), std::string_view("NO")); // was not chosen
    view.goTo(view.differences[0]);
    QCOMPARE(bench.child->CurrentBlock(), 301);
}

void EngineRunsTest::aKilledProgramLeavesItsCopy()
{
    for (const RecoveryCopy& copy : FindRecoveryCopies())
        RemoveRecoveryCopy(copy);
    RunBench bench;
    bench.lock.Release();
    bench.Engine("sleep 1500\nargs\n");
    OtherProcess program({u"--run"_s, bench.path, bench.KeptIn()});
    QCOMPARE(program.Word(), u"running"_s);
    QVERIFY(FindRecoveryCopies().isEmpty()); // the program lives
    program.Kill();
    const QList<RecoveryCopy> copies = FindRecoveryCopies();
    QCOMPARE(copies.size(), 1);
    QCOMPARE(copies[0].project, bench.path);
    QVERIFY(Bytes(copies[0].file).startsWith("TITLE:UNSAVED\r\n"));
    RemoveRecoveryCopy(copies[0]);
    QCOMPARE(bench.Kept().size(), 2); // the project as it was handed over, and the same changes
    QCOMPARE(bench.Kept()[1].end.kind, RunEndKind::Unknown);
    // The engine comes to its end.
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(bench.Base() + u".args"_s), 20000);
}

void EngineRunsTest::aPathOfTheEngineWithBlanksIsQuoted()
{
    const auto project = uR"(D:\a b.sbd)"_s;
    QCOMPARE(EngineCommandText({EngineRun::Main, uR"(C:\K\E.exe)"_s, project}), uR"(C:\K\E.exe "D:\a b.sbd" RUN)"_s);
    QCOMPARE(EngineCommandText({EngineRun::Cross, uR"(C:\My K\E.exe)"_s, project}),
             uR"("C:\My K\E.exe" "D:\a b.sbd)"_s);
}

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 4 && arguments[1] == u"--run"_s)
        return RunInside(arguments[2], arguments[3]);
    EngineRunsTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "engine_runs_test.moc"
