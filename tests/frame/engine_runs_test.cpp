// Runs of real processes, and the window over them.
#include "document/path.h"
#include "frame/engine_runner.h"
#include "frame/left_view.h"
#include "grid/grid_ctrl.h"
#include "panels/panel.h"
#include "run_bench.h"
#include "tests/document/data_of.h"
#include "tests/document/other_process.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QDir>
#include <QLabel>
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
int RunInside(const QString& project, const QString& recovery)
{
    CProjectLock lock;
    auto doc = std::make_unique<CKELDSectionDoc>();
    (void)OnOpenDocument(*doc, lock, project, [](const QString&) { return false; });
    CChildFrame child(std::move(doc));
    test::DataOf(child.Doc()).SetOption(301, 0, "UNSAVED");
    child.Doc().SetModifiedFlag(true);
    RunSeams seams = ScreenRunSeams();
    seams.programFolder = [] { return QStringLiteral(ENGINE_FOLDER); };
    seams.recoveryFolder = [recovery] { return recovery; };
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
    void theExitCodeIsNotLookedAt();
    void aCheckLosesChangesButTheCopyHasThem();
    void aFileThatIsStillHeldIsNotRead();
    void rubbishIsToldAndTheCopyHasTheProject();
    void aCutFileIsTold();
    void aFileThatIsGoneIsTold();
    void aFileCutAtASectionsEndIsTold();
    void aKeptCopyOutlivesFurtherRuns();
    void everyCopyIsKept();
    void aFileThatBrokeWhileItsProjectWasClosedKeepsItsCopy();
    void aCheckWithoutRoomForTheCopyIsNotMade();
    void aKilledProgramLeavesItsCopy();

    // the window
    void theWindowShowsEngineAndTime();
    void theWindowCannotBeClosed();
    void thePaintsGoOnButInputDoesNotArrive();
    void theEndOfTheProgramWaitsForTheEngine();
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
    QCOMPARE(bench.RecoveryFiles(), QStringList());
    QCOMPARE(Told(bench), QStringList());
    QCOMPARE(bench.notices, QStringList());
}

void EngineRunsTest::aMissingEngineIsTold()
{
    RunBench bench;
    EngineStart start{EngineRun::Cross, bench.folder.Path(u"HOLM4_W_CROSS.exe"_s), bench.path};
    QVERIFY(!RunEngineProcess(&bench.window, start));
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
    QVERIFY(!RunEngineProcess(&bench.window, {EngineRun::Cross, engine, bench.path}));
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QVERIFY(!RunEngineProcess(&bench.window, {EngineRun::Cross, engine, bench.path}));
}

void EngineRunsTest::aCrashComesBackLikeAnEnd()
{
    RunBench bench;
    bench.Engine("value RESET_RESULTS NO\ncrash\n");
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    QCOMPARE(bench.Doc().Data().Option(301, 1), std::string_view("NO"));
    QVERIFY(bench.lock.IsHeld());
    QCOMPARE(Told(bench), QStringList());
}

void EngineRunsTest::theExitCodeIsNotLookedAt()
{
    RunBench bench;
    bench.Engine("value RESET_RESULTS NO\nexit 77\n");
    QVERIFY(bench.runner.RunAndReload(EngineRun::Support, bench.Project()));
    QCOMPARE(bench.Doc().Data().Option(301, 1), std::string_view("NO"));
    QCOMPARE(Told(bench), QStringList());
}

void EngineRunsTest::aCheckLosesChangesButTheCopyHasThem()
{
    RunBench bench;
    const QString title = bench.Title();
    bench.Enter("BRIDGE OF TODAY");
    bench.Engine("chk ok\n");
    QVERIFY(bench.runner.RunAndReload(EngineRun::Check, bench.Project()));
    QCOMPARE(bench.Title(), title);
    QVERIFY(!bench.Doc().IsModified());
    const QList<RecoveryCopy> copies = FindRecoveryCopies(bench.Recovery());
    QCOMPARE(copies.size(), 1);
    QCOMPARE(copies[0].project, bench.path);
    QVERIFY(Bytes(copies[0].file).startsWith("TITLE:BRIDGE OF TODAY\r\n"));
    QCOMPARE(bench.notices, QStringList({u"保存していなかった変更は回復用コピーに残っています: "_s
                                         + QDir::toNativeSeparators(copies[0].file)}));
    QCOMPARE(Told(bench), QStringList());
}

void EngineRunsTest::aFileThatIsStillHeldIsNotRead()
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
    QCOMPARE(bench.notices.size(), 1);
    const QList<RecoveryCopy> copies = FindRecoveryCopies(bench.Recovery());
    QCOMPARE(copies.size(), 1);
    QVERIFY(Bytes(copies[0].file).startsWith("TITLE:ENTERED\r\n"));
    QTRY_COMPARE_WITH_TIMEOUT(CProjectLock::Look(bench.path), CProjectLock::State::Free, 20000);
}

void EngineRunsTest::rubbishIsToldAndTheCopyHasTheProject()
{
    RunBench bench;
    const QByteArray before = Bytes(bench.path);
    bench.Engine("rubbish "_ba + QByteArray::number(before.size()) + '\n');
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    QVERIFY(Bytes(bench.path) != before);
    const QList<RecoveryCopy> copies = FindRecoveryCopies(bench.Recovery());
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
    QCOMPARE(Bytes(FindRecoveryCopies(bench.Recovery()).at(0).file), before);
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
    QCOMPARE(Bytes(FindRecoveryCopies(bench.Recovery()).at(0).file), before);
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
    const QList<RecoveryCopy> copies = FindRecoveryCopies(bench.Recovery());
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
    const QList<RecoveryCopy> copies = FindRecoveryCopies(bench.Recovery());
    QCOMPARE(copies.size(), 3);
    QVERIFY(std::ranges::any_of(copies, [&](const RecoveryCopy& copy) { return Bytes(copy.file) == before; }));
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
    for (const QString& name : QDir(bench.Recovery()).entryList({u"*.sbd"_s}, QDir::Files, QDir::Name)) {
        const QByteArray bytes = Bytes(bench.Recovery() + u'/' + name);
        titles += QString::fromLatin1(bytes.left(bytes.indexOf('\r')));
    }
    QCOMPARE(titles, QStringList({u"TITLE:AAA"_s, u"TITLE:BBB"_s, u"TITLE:CCC"_s})); // the names sort by time
    QCOMPARE(bench.notices.size(), 3);
    for (const QString& notice : bench.notices)
        QVERIFY(notice.contains(QDir::toNativeSeparators(bench.Recovery())));
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
    QCOMPARE(Bytes(FindRecoveryCopies(bench.Recovery()).at(0).file), before);
    QCOMPARE(Told(bench).size(), 1);
    QVERIFY(!Told(bench)[0].contains(u"画面には"_s));
}

void EngineRunsTest::aCheckWithoutRoomForTheCopyIsNotMade()
{
    RunBench bench;
    QFile file(bench.Recovery());
    QVERIFY(file.open(QFile::WriteOnly)); // no folder can be made in its place
    bench.Engine("value RESET_RESULTS NO\n");
    bench.Enter("ENTERED");
    QVERIFY(!bench.runner.RunAndReload(EngineRun::Check, bench.Project()));
    QCOMPARE(Told(bench).size(), 1);
    QVERIFY(Told(bench)[0].contains(QDir::toNativeSeparators(bench.Recovery())));
    QCOMPARE(bench.Title(), u"ENTERED"_s);
    QVERIFY(bench.Doc().IsModified());
    QVERIFY(bench.lock.IsHeld());
    // What is saved is in no danger.
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    QCOMPARE(bench.Doc().Data().Option(301, 1), std::string_view("NO"));
}

void EngineRunsTest::aKilledProgramLeavesItsCopy()
{
    RunBench bench;
    bench.lock.Release();
    bench.Engine("sleep 1500\nargs\n");
    OtherProcess program({u"--run"_s, bench.path, bench.Recovery()});
    QCOMPARE(program.Word(), u"running"_s);
    QVERIFY(FindRecoveryCopies(bench.Recovery()).isEmpty()); // the program lives
    program.Kill();
    const QList<RecoveryCopy> copies = FindRecoveryCopies(bench.Recovery());
    QCOMPARE(copies.size(), 1);
    QCOMPARE(copies[0].project, bench.path);
    QVERIFY(Bytes(copies[0].file).startsWith("TITLE:UNSAVED\r\n"));
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
