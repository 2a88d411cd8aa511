// Runs of real processes, and the window over them.
#include "document/path.h"
#include "document/recovery.h"
#include "frame/engine_runner.h"
#include "frame/left_view.h"
#include "grid/grid_ctrl.h"
#include "panels/panel.h"
#include "run_bench.h"
#include "tests/document/data_of.h"
#include "tests/document/other_process.h"
#include "tests/surroundings.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

/// Takes the messages that a run has left in the queue.
void Settle()
{
    QApplication::processEvents();
}

/// The texts of the log that begin with "told: ".
QStringList Told(const RunBench& bench)
{
    return bench.log.filter(u"told: "_s);
}

/// The window of a running engine.
QWidget* EngineWindow()
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == u"engineWindow"_s && window->isVisible())
            return window;
    }
    return nullptr;
}

/// Counts what reaches a widget.
class Watcher : public QObject {
public:
    explicit Watcher(QObject* watched) { watched->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        input += event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress
                         || event->type() == QEvent::MouseButtonDblClick || event->type() == QEvent::Wheel
                     ? 1
                     : 0;
        return false;
    }
    int paints = 0;
    int input = 0;
};

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
    // real engines
    void theFiveEnginesGetTheirArguments_data();
    void theFiveEnginesGetTheirArguments();
    void whatTheEngineChangedStandsInTheGrid();
    void aMissingEngineIsTold();
    void aFileThatIsNoProgramIsTold();
    void aCrashComesBackLikeAnEnd();
    void anExitCodeIsTold();
    void aCheckLosesChangesButTheyStayInReach();
    void cellsOfAListComeBackOneByOne();
    void aFileThatIsStillHeldIsReadWhenItIsFree();
    void aFileThatIsFreeAgainWaitsForWhoHasGoneOn();
    void aHeldFileThatDidNotChangeIsTakenBack();
    void rubbishIsToldAndTheCopyHasTheProject();
    void aCutFileIsTold();
    void aFileThatIsGoneIsTold();
    void aFileCutAtASectionsEndIsTold();
    void aKeptCopyOutlivesFurtherRuns();
    void everyCopyIsKept();
    void aFileThatBrokeWhileItsProjectWasClosedKeepsItsCopy();
    void withoutRoomForTheCopyARunAsksFirst();
    void aKilledProgramLeavesItsCopy();

    // the window
    void theWindowShowsEngineAndTime();
    void theWindowCannotBeClosed();
    void thePaintsGoOnButInputDoesNotArrive();
    void theWindowShowsTheReportAsItIsWritten();
    void cancellingEndsTheEngineAndWhatItStarted();
    void aCancelThatIsTakenBackLetsTheEngineGoOn();
    void theQuestionGoesWithTheEngine();
    void theEndOfTheProgramWaitsForTheEngine(); // behind it no event loop runs any more
    void theTimeIsShownInMinutesAndSeconds();
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

void EngineRunsTest::aFileThatIsStillHeldIsReadWhenItIsFree()
{
    RunBench bench;
    bench.Enter("ENTERED");
    bench.Engine("value RESET_RESULTS NO\nhold 1500\n");
    QVERIFY(!bench.runner.RunAndReload(EngineRun::Check, bench.Project()));
    QCOMPARE(bench.log.last(), u"not read"_s);
    QVERIFY(!bench.log.contains(u"panel away"_s));
    QCOMPARE(bench.Title(), u"ENTERED"_s);
    QVERIFY(!bench.Doc().IsModified());
    QVERIFY(!bench.lock.IsHeld());
    QCOMPARE(bench.Notices().size(), 1);
    QVERIFY(bench.Notices()[0].contains(u"まだ使用中"_s));
    QCOMPARE(bench.Kept().value(0).end.kind, RunEndKind::Held);
    QVERIFY(Bytes(bench.Kept().value(0).file).startsWith("TITLE:ENTERED\r\n"));
    QVERIFY(bench.Doc().FileIsAnother()); // a save would ask

    QTRY_COMPARE_WITH_TIMEOUT(bench.Doc().Data().Option(301, 1), std::string_view("NO"), 20000);
    QVERIFY(bench.lock.IsHeld());
    QVERIFY(!bench.Doc().FileIsAnother());
    QCOMPARE(bench.Notices().size(), 1); // the held one has gone
    QVERIFY(bench.Notices()[0].contains(u"保存していなかった変更"_s));
    QVERIFY(bench.Press(u"元に戻す"_s));
    QCOMPARE(bench.Title(), u"ENTERED"_s);
}

void EngineRunsTest::aFileThatIsFreeAgainWaitsForWhoHasGoneOn()
{
    RunBench bench;
    bench.Engine("value RESET_RESULTS NO\nhold 1500\n");
    QVERIFY(!bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    bench.Enter("GONE ON");
    QTRY_VERIFY_WITH_TIMEOUT(bench.Notices().value(0).startsWith(u"使用中だったプロジェクトファイルが空きました"_s),
                             20000);
    QCOMPARE(bench.Title(), u"GONE ON"_s);
    QVERIFY(bench.Press(u"読み込む"_s));
    QCOMPARE(bench.Doc().Data().Option(301, 1), std::string_view("NO"));
    QVERIFY(bench.Notices().value(0).startsWith(u"ファイルを読み直しました"_s));
    QVERIFY(bench.Press(u"元に戻す"_s));
    QCOMPARE(bench.Title(), u"GONE ON"_s);
}

void EngineRunsTest::aHeldFileThatDidNotChangeIsTakenBack()
{
    RunBench bench;
    bench.Enter("ENTERED");
    bench.Engine("hold 800\n");
    QVERIFY(!bench.runner.RunAndReload(EngineRun::Check, bench.Project()));
    QTRY_VERIFY_WITH_TIMEOUT(bench.lock.IsHeld(), 20000);
    QCOMPARE(bench.Title(), u"ENTERED"_s);
    QVERIFY(bench.Doc().IsModified()); // the file lacks it
    QCOMPARE(bench.Notices(), QStringList());
}

void EngineRunsTest::rubbishIsToldAndTheCopyHasTheProject()
{
    RunBench bench;
    const QByteArray before = Bytes(bench.path);
    bench.Engine("rubbish "_ba + QByteArray::number(before.size()) + '\n');
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    QVERIFY(Bytes(bench.path) != before);
    const QList<KeptInput> copies = bench.Kept();
    QCOMPARE(copies.size(), 1);
    QCOMPARE(Bytes(copies[0].file), before);
    QCOMPARE(Told(bench).size(), 1);
    QVERIFY(Told(bench)[0].startsWith(u"told: 解析プログラムが書いたプロジェクトファイルが壊れているようです。\n"_s));
    QVERIFY(Told(bench)[0].contains(QDir::toNativeSeparators(bench.path)));
    QVERIFY(Told(bench)[0].contains(QDir::toNativeSeparators(copies[0].file)));
    QVERIFY(bench.lock.IsHeld());

    // The way back that the message tells of.
    CKELDSectionDoc copy;
    CSbdData project;
    QVERIFY(copy.OpenDocument(copies[0].file).Ok());
    QVERIFY(LoadProject(ToPath(copies[0].file), NamesFileBeside(ToPath(bench.path)), project).Ok());
    QVERIFY(copy.Data().SameProject(project));
}

void EngineRunsTest::aCutFileIsTold()
{
    RunBench bench;
    const QByteArray before = Bytes(bench.path);
    bench.Engine("truncate "_ba + QByteArray::number(before.size() - 100) + "\ncrash\n");
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    QCOMPARE(Told(bench).size(), 1);
    QCOMPARE(Bytes(bench.Kept().at(0).file), before);
}

void EngineRunsTest::aFileThatIsGoneIsTold()
{
    RunBench bench;
    const QByteArray before = Bytes(bench.path);
    const QString title = bench.Title();
    bench.Engine("delete\n");
    QVERIFY(!bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    QCOMPARE(bench.Title(), title);
    QCOMPARE(Told(bench).size(), 1);
    QVERIFY(Told(bench)[0].contains(u"見つかりません"_s));
    QCOMPARE(Bytes(bench.Kept().at(0).file), before);
}

void EngineRunsTest::aFileCutAtASectionsEndIsTold()
{
    RunBench bench;
    const QByteArray before = Bytes(bench.path);
    const qsizetype end = before.indexOf("[CBD_GRID]");
    QVERIFY(end > before.size() / 2);
    bench.Engine("truncate "_ba + QByteArray::number(end) + '\n');
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    QCOMPARE(Told(bench).size(), 1);
    QVERIFY2(Told(bench)[0].contains(u"データがなくなったブロック: 501, 503, 504, 505, 506, 511, "_s),
             qPrintable(Told(bench)[0]));
    const QList<KeptInput> copies = bench.Kept();
    QCOMPARE(copies.size(), 1);
    QCOMPARE(Bytes(copies[0].file), before);
    QVERIFY(Told(bench)[0].contains(QDir::toNativeSeparators(copies[0].file)));
}

void EngineRunsTest::aKeptCopyOutlivesFurtherRuns()
{
    RunBench bench;
    const QByteArray before = Bytes(bench.path);
    bench.Engine("truncate "_ba + QByteArray::number(before.indexOf("[CBD_GRID]")) + '\n');
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    bench.Engine("chk ok\n");
    bench.Enter("ON TOP OF A BROKEN FILE");
    QVERIFY(bench.runner.RunAndReload(EngineRun::Check, bench.Project()));
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    bench.Engine("rubbish 1000\n");
    QVERIFY(bench.runner.RunAndReload(EngineRun::Result, bench.Project()));
    const QList<KeptInput> copies = bench.Kept();
    QCOMPARE(copies.size(), 5);
    QVERIFY(std::ranges::any_of(copies, [&](const KeptInput& copy) { return Bytes(copy.file) == before; }));
}

void EngineRunsTest::everyCopyIsKept()
{
    RunBench bench;
    bench.Engine("chk ok\n");
    for (const char* title : {"AAA", "BBB", "CCC"}) {
        bench.Enter(title);
        QVERIFY(bench.runner.RunAndReload(EngineRun::Check, bench.Project()));
    }
    QStringList titles;
    for (const KeptInput& input : bench.Kept()) {
        const QByteArray bytes = Bytes(input.file);
        if (input.kind == KeptKind::Unsaved)
            titles += QString::fromLatin1(bytes.left(bytes.indexOf('\r')));
    }
    QCOMPARE(titles, QStringList({u"TITLE:CCC"_s, u"TITLE:BBB"_s, u"TITLE:AAA"_s})); // newest first
}

void EngineRunsTest::aFileThatBrokeWhileItsProjectWasClosedKeepsItsCopy()
{
    RunBench bench;
    const QByteArray before = Bytes(bench.path);
    bench.Engine("truncate "_ba + QByteArray::number(before.indexOf("[CBD_GRID]")) + '\n');
    bench.whileEngineRuns = [&] { delete bench.child; };
    QVERIFY(bench.runner.Run(EngineRun::Main, bench.Project()));
    Settle();
    QCOMPARE(bench.log.last(), u"not read"_s);
    QCOMPARE(Bytes(bench.Kept().at(0).file), before);
    QCOMPARE(Told(bench).size(), 1);
    QVERIFY(!Told(bench)[0].contains(u"画面には"_s));
}

void EngineRunsTest::withoutRoomForTheCopyARunAsksFirst()
{
    RunBench bench;
    QFile file(bench.KeptIn());
    QVERIFY(file.open(QFile::WriteOnly)); // no folder can be made in its place
    bench.Engine("value RESET_RESULTS NO\n");
    bench.Enter("ENTERED");
    for (const EngineRun run : {EngineRun::Check, EngineRun::Main}) {
        bench.log.clear();
        QVERIFY(!bench.runner.RunAndReload(run, bench.Project())); // the user says no
        const QStringList asked = bench.log.filter(u"yes or no: 解析前の入力を次のフォルダーに保管できません。"_s);
        QCOMPARE(asked.size(), 1);
        QVERIFY(asked[0].contains(QDir::toNativeSeparators(bench.KeptIn())));
        QCOMPARE(asked[0].contains(u"保存していない変更があります"_s), run == EngineRun::Check);
        QVERIFY(bench.lock.IsHeld());
        QCOMPARE(bench.Doc().IsModified(), run == EngineRun::Check);
    }
    bench.Enter("ENTERED");
    bench.yes = true;
    QVERIFY(bench.runner.RunAndReload(EngineRun::Check, bench.Project()));
    QCOMPARE(bench.Doc().Data().Option(301, 1), std::string_view("NO"));
    QVERIFY(bench.Press(u"元に戻す"_s)); // the window still has them
    QCOMPARE(bench.Title(), u"ENTERED"_s);
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

void EngineRunsTest::theWindowShowsEngineAndTime()
{
    RunBench bench;
    bench.Engine("sleep 2500\n");
    QStringList texts;
    QTimer::singleShot(500, [&] {
        if (QWidget* window = EngineWindow()) {
            for (const QLabel* label : window->findChildren<QLabel*>())
                texts += label->text();
        }
    });
    QString later;
    QTimer::singleShot(2000, [&] {
        if (QWidget* window = EngineWindow())
            later = window->findChild<QLabel*>(u"time"_s)->text();
    });
    QVERIFY(bench.runner.RunAndReload(EngineRun::Support, bench.Project()));
    QVERIFY(texts.contains(u"KELD_Support_Stiff_Diaphragm.exe を実行しています。"_s));
    QVERIFY(texts.contains(u"経過時間 00:00"_s));
    QVERIFY2(later == u"経過時間 00:01"_s || later == u"経過時間 00:02"_s, qPrintable(later));
    QVERIFY(EngineWindow() == nullptr);
}

void EngineRunsTest::theWindowCannotBeClosed()
{
    RunBench bench;
    bench.Engine("sleep 1500\n");
    bool stood = false;
    QTimer::singleShot(400, [&] {
        QWidget* window = EngineWindow();
        QVERIFY(window != nullptr);
        QVERIFY(!window->windowFlags().testFlag(Qt::WindowCloseButtonHint));
        QTest::keyClick(window->windowHandle(), Qt::Key_Escape);
        QTest::keyClick(window->windowHandle(), Qt::Key_Return);
        QVERIFY(!window->close());
        stood = window->isVisible() && EngineWindow() == window;
    });
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    QVERIFY(stood);
}

void EngineRunsTest::thePaintsGoOnButInputDoesNotArrive()
{
    RunBench bench;
    QVERIFY(QTest::qWaitForWindowActive(&bench.window));
    Watcher grid(bench.child->Panel()->Grid());
    Watcher view(bench.child->Panel()->Grid()->viewport());
    Watcher tree(bench.child->Tree().viewport());
    const auto press = [&] {
        QWindow* window = bench.window.windowHandle();
        const auto at = [&](QWidget* widget) { return widget->mapTo(&bench.window, widget->rect().center()); };
        QTest::keyClick(window, Qt::Key_A);
        QTest::mouseClick(window, Qt::LeftButton, {}, at(bench.child->Panel()->Grid()->viewport()));
        QTest::mouseDClick(window, Qt::LeftButton, {}, at(bench.child->Tree().viewport()));
    };
    bench.Engine("sleep 1500\n");
    bool pressed = false;
    int paints = 0;
    QTimer::singleShot(400, [&] {
        press();
        view.paints = 0;
        bench.child->Panel()->Grid()->viewport()->update();
        pressed = true;
    });
    QTimer::singleShot(900, [&] { paints = view.paints; });
    QVERIFY(bench.runner.Run(EngineRun::Main, bench.Project()));
    QVERIFY(pressed);
    QVERIFY(paints > 0);
    QCOMPARE(grid.input + view.input + tree.input, 0);
    Settle();
    QVERIFY(!bench.Doc().IsModified());
    press(); // the same keys and clicks arrive now
    QVERIFY(tree.input > 0);
}

void EngineRunsTest::theEndOfTheProgramWaitsForTheEngine()
{
    RunBench bench;
    bench.Engine("sleep 1000\nvalue RESET_RESULTS NO\n");
    QTimer::singleShot(200, [] { QCoreApplication::exit(0); });
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    QCOMPARE(bench.Doc().Data().Option(301, 1), std::string_view("NO"));
}

void EngineRunsTest::theWindowShowsTheReportAsItIsWritten()
{
    RunBench bench;
    bench.Engine("chk of before\n");
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    bench.Engine("chk first\nsleep 2000\nchk second\n");
    QString text;
    QTimer::singleShot(1600, [&] {
        if (QWidget* window = EngineWindow())
            text = window->findChild<QPlainTextEdit*>(u"report"_s)->toPlainText();
    });
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    QCOMPARE(text, u"first"_s);
}

/// Presses a button of a window by its text.
static bool PressIn(QWidget* window, const QString& text)
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

void EngineRunsTest::cancellingEndsTheEngineAndWhatItStarted()
{
    RunBench bench;
    const QByteArray before = Bytes(bench.path);
    bench.Engine("value RESET_RESULTS NO\nhold 30000\nsleep 30000\nargs\n");
    int pressed = 0; // 中止 once the engine has written, then the question's answer
    QTimer hand;
    QObject::connect(&hand, &QTimer::timeout, [&] {
        if (pressed == 0 && Bytes(bench.path) != before && PressIn(EngineWindow(), u"中止("_s))
            pressed = 1;
        else if (pressed == 1 && PressIn(EngineWindow(), u"中止する"_s))
            pressed = 2;
    });
    hand.start(200);
    QElapsedTimer clock;
    clock.start();
    // On a machine that has other work the engine's child lets go of the file a moment behind the engine.
    const bool readAtOnce = bench.runner.RunAndReload(EngineRun::Main, bench.Project());
    hand.stop();
    QCOMPARE(pressed, 2);
    QTRY_COMPARE_WITH_TIMEOUT(bench.Doc().Data().Option(301, 1), std::string_view("NO"), 10'000); // as after any end
    QVERIFY(clock.elapsed() < 25'000);
    QVERIFY(!QFile::exists(bench.Base() + u".args"_s));
    QCOMPARE(bench.Kept().value(0).end.kind, RunEndKind::Cancelled);
    QCOMPARE(Bytes(bench.Kept().value(0).file), before);
    QVERIFY(EngineWindow() == nullptr);
    if (!readAtOnce)
        return;
    QVERIFY(bench.lock.IsHeld());
    QCOMPARE(bench.Notices().size(), 1);
    QVERIFY(bench.Notices()[0].contains(u"中止"_s));
}

void EngineRunsTest::aCancelThatIsTakenBackLetsTheEngineGoOn()
{
    RunBench bench;
    bench.Engine("sleep 2500\nargs\n");
    bool pressed = false;
    QTimer::singleShot(500, [&] { pressed = PressIn(EngineWindow(), u"中止("_s); });
    QTimer::singleShot(1000, [&] { pressed = pressed && PressIn(EngineWindow(), u"続ける"_s); });
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    QVERIFY(pressed);
    QVERIFY(QFile::exists(bench.Base() + u".args"_s));
    QCOMPARE(bench.Kept().value(0).end.kind, RunEndKind::NoReport);
}

void EngineRunsTest::theQuestionGoesWithTheEngine()
{
    RunBench bench;
    bench.Engine("sleep 1500\nargs\n");
    bool pressed = false;
    QTimer::singleShot(500, [&] { pressed = PressIn(EngineWindow(), u"中止("_s); });
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    QVERIFY(pressed);
    QVERIFY(QApplication::activeModalWidget() == nullptr);
    QCOMPARE(bench.Kept().value(0).end.kind, RunEndKind::NoReport);
}

void EngineRunsTest::theTimeIsShownInMinutesAndSeconds()
{
    QCOMPARE(CEngineWindow::TimeText(0), u"00:00"_s);
    QCOMPARE(CEngineWindow::TimeText(61), u"01:01"_s);
    QCOMPARE(CEngineWindow::TimeText(3600 + 59), u"60:59"_s);
    QCOMPARE(CEngineWindow::TimeText(100 * 60), u"100:00"_s);
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
