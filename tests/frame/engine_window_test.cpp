// The window over a running engine.
#include "frame/engine_runner.h"
#include "frame/left_view.h"
#include "grid/grid_ctrl.h"
#include "panels/panel.h"
#include "run_bench.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>
#include <QWindow>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

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

} // namespace

class EngineWindowTest : public QObject {
    Q_OBJECT

private slots:
    void theWindowShowsEngineAndTime();
    void theWindowCannotBeClosed();
    void thePaintsGoOnButInputDoesNotArrive();
    void theWindowShowsTheReportAsItIsWritten();
    void cancellingEndsTheEngineAndWhatItStarted();
    void aCancelThatIsTakenBackLetsTheEngineGoOn();
    void theQuestionGoesWithTheEngine();
    void theTimeIsShownInMinutesAndSeconds();
    void theEndOfTheProgramWaitsForTheEngine();
};

void EngineWindowTest::theWindowShowsEngineAndTime()
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

void EngineWindowTest::theWindowCannotBeClosed()
{
    RunBench bench;
    bench.Engine("sleep 1500\n");
    bool stood = false;
    QTimer::singleShot(400, [&] {
        QWidget* window = EngineWindow();
        if (window == nullptr)
            return;
        QVERIFY(!window->windowFlags().testFlag(Qt::WindowCloseButtonHint));
        QTest::keyClick(window->windowHandle(), Qt::Key_Escape);
        QTest::keyClick(window->windowHandle(), Qt::Key_Return);
        QVERIFY(!window->close());
        stood = window->isVisible() && EngineWindow() == window;
    });
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    QVERIFY(stood);
}

void EngineWindowTest::thePaintsGoOnButInputDoesNotArrive()
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

void EngineWindowTest::theWindowShowsTheReportAsItIsWritten()
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

void EngineWindowTest::cancellingEndsTheEngineAndWhatItStarted()
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

void EngineWindowTest::aCancelThatIsTakenBackLetsTheEngineGoOn()
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

void EngineWindowTest::theQuestionGoesWithTheEngine()
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

void EngineWindowTest::theTimeIsShownInMinutesAndSeconds()
{
    QCOMPARE(CEngineWindow::TimeText(0), u"00:00"_s);
    QCOMPARE(CEngineWindow::TimeText(61), u"01:01"_s);
    QCOMPARE(CEngineWindow::TimeText(3659), u"60:59"_s);
    QCOMPARE(CEngineWindow::TimeText(6000), u"100:00"_s);
}

void EngineWindowTest::theEndOfTheProgramWaitsForTheEngine()
{
    RunBench bench;
    bench.Engine("sleep 1000\nvalue RESET_RESULTS NO\n");
    QTimer::singleShot(200, [] { QCoreApplication::exit(0); });
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    QCOMPARE(bench.Doc().Data().Option(301, 1), std::string_view("NO"));
}

QTEST_MAIN(EngineWindowTest)
#include "engine_window_test.moc"
