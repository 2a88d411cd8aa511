// What engines may do to us, and what may stand in the folder of the kept inputs: nothing of it stops a run or loses
// anything.
#include "document/path.h"
#include "frame/report_tail.h"
#include "run_bench.h"
#include "upperview/chk_page.h"

#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <atomic>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

constexpr int kHuge = 200'000'000; // bytes
constexpr int kPatience = 60'000;  // ms, of a busy machine

void Put(const QString& path, const QByteArray& bytes, QFile::OpenMode mode = QFile::Truncate)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    QVERIFY(file.open(QFile::WriteOnly | mode));
    QCOMPARE(file.write(bytes), bytes.size());
}

/// The most memory that this process has had, in MB; 0 where that is not known.
int MostMemory()
{
    const QByteArray status = Bytes(u"/proc/self/status"_s);
    const qsizetype at = status.indexOf("VmHWM:");
    return at < 0 ? 0 : status.mid(at + 6).simplified().split(' ').value(0).toInt() / 1024;
}

/// Cancels the run once the engine has written ".args", and says yes.
void CancelSoon(RunBench& bench)
{
    auto* look = new QTimer(&bench.window);
    QObject::connect(look, &QTimer::timeout, &bench.window, [&bench, look] {
        if (QFile::exists(bench.Base() + u".args"_s) && PressIn(EngineWindow(), u"中止("_s)) {
            look->stop();
            QTimer::singleShot(50, &bench.window, [] { PressIn(EngineWindow(), u"中止する"_s); });
        }
    });
    look->start(50);
}

} // namespace

class BadRunInputTest : public QObject {
    Q_OBJECT

private slots:
    void aHugeReportIsCountedToItsEnd_data();
    void aHugeReportIsCountedToItsEnd();
    void aReportThatGrowsForEverIsCountedOnce();
    void anEngineThatPrintsMuchComesToItsEnd();
    void aProjectThatHasBecomeHugeIsTold();
    void aChildThatWritesBehindTheRunIsAskedAboutAtTheSave();
    void aCancelWaitsForChildrenThatHoldTheFile_data();
    void aCancelWaitsForChildrenThatHoldTheFile();
    void aDamagedFolderOfKeptInputsKeepsOn();
    void inputsOfANewerVersionStandBesideOurs();
    void whereTheTwoInputsOfACheckDoNotFitItAsks();
};

void BadRunInputTest::aHugeReportIsCountedToItsEnd_data()
{
    QTest::addColumn<QByteArray>("form");
    QTest::addColumn<int>("errors");
    QTest::newRow("lines") << "lines"_ba << 1;
    QTest::newRow("without line ends") << "one-line"_ba << 1;
    QTest::newRow("line ends alone") << "blank-lines"_ba << 1;
    QTest::newRow("control bytes") << "control"_ba << 0;
}

void BadRunInputTest::aHugeReportIsCountedToItsEnd()
{
    QFETCH(const QByteArray, form);
    QFETCH(const int, errors);
    RunBench bench;
    const int before = MostMemory();
    bench.Engine("flood "_ba + QByteArray::number(kHuge) + ' ' + form + "\nsleep 1200\n");
    int shown = -1;
    QTimer::singleShot(800, &bench.window, [&] {
        if (QWidget* window = EngineWindow())
            shown = window->findChild<QPlainTextEdit*>()->blockCount();
    });
    QElapsedTimer time;
    time.start();
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    QVERIFY(time.elapsed() < kPatience);
    QVERIFY(shown <= 1000);
    QCOMPARE(bench.Kept().value(0).end, (RunEnd{RunEndKind::Report, 0, errors, 0}));
    bench.child->GoToBlock(255);
    QApplication::processEvents();
    const QPixmap page = bench.child->grab();
    QVERIFY(!page.isNull());
    const ChkText text = ReadChkText(ChkPath(bench.path));
    QVERIFY(text.opened && text.cut);
    QVERIFY(time.elapsed() < kPatience);
    const int more = MostMemory() - before;
#ifdef __SANITIZE_ADDRESS__   // what is given back is kept for a while
    constexpr int most = 600; // MB
#else
    constexpr int most = 200;
#endif
    QVERIFY2(more < most, qPrintable(u"%1 MB more"_s.arg(more)));
    qInfo("%s: %lld ms in all, %d MB more memory", form.constData(), static_cast<long long>(time.elapsed()), more);
}

void BadRunInputTest::aReportThatGrowsForEverIsCountedOnce()
{
    const TestFolder folder;
    const QString path = folder.Path(u"a.CHK"_s);
    Put(path, QByteArray("Error: x\n").repeated(10'000));
    std::atomic<bool> stop = false;
    const std::unique_ptr<QThread> writer(QThread::create([&] {
        QFile file(path);
        if (!file.open(QFile::Append))
            return;
        const QByteArray piece = QByteArray("Error: x\n").repeated(1000);
        for (int i = 0; !stop && i < 20'000; ++i) { // 180 MB at most
            file.write(piece);
            file.flush();
        }
    }));
    writer->start();
    const ReportCount count = CountReport(path);
    const bool wrote = writer->isRunning();
    stop = true;
    writer->wait();
    QVERIFY(wrote);
    QVERIFY(count.errors >= 10'000);
}

void BadRunInputTest::anEngineThatPrintsMuchComesToItsEnd()
{
    RunBench bench;
    const int before = MostMemory();
    bench.Engine("print "_ba + QByteArray::number(kHuge) + "\nchk ok\n");
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    QCOMPARE(bench.Kept().value(0).end, (RunEnd{RunEndKind::Report}));
    QVERIFY(MostMemory() - before < 100);
}

void BadRunInputTest::aProjectThatHasBecomeHugeIsTold()
{
    RunBench bench;
    const QByteArray before = Bytes(bench.path);
    bench.Engine("rubbish "_ba + QByteArray::number(kHuge / 4) + '\n');
    QElapsedTimer time;
    time.start();
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    qInfo("read in %lld ms", static_cast<long long>(time.elapsed()));
    QVERIFY(time.elapsed() < kPatience);
    QCOMPARE(bench.log.filter(u"told: 解析プログラムが書いたプロジェクトファイルが壊れているようです"_s).size(), 1);
    QCOMPARE(Bytes(bench.Kept().value(0).file), before);
    QVERIFY(bench.Press(u"元に戻す: 解析前の入力"_s));
    QCOMPARE(bench.Doc().Data().Option(301, 1), std::string_view("YES"));
}

void BadRunInputTest::aChildThatWritesBehindTheRunIsAskedAboutAtTheSave()
{
#ifdef Q_OS_WIN
    QSKIP("our lock keeps it out");
#endif
    RunBench bench;
    bench.Engine("chk ok\nlater 700 value RESET_RESULTS NO\n");
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    QVERIFY(!bench.Doc().FileIsAnother());
    QCOMPARE(bench.Doc().Data().Option(301, 1), std::string_view("YES"));
    QTRY_VERIFY_WITH_TIMEOUT(bench.Doc().FileIsAnother(), 10'000); // what a save looks at
}

void BadRunInputTest::aCancelWaitsForChildrenThatHoldTheFile_data()
{
    QTest::addColumn<QByteArray>("verbs");
    QTest::newRow("an obedient child") << "hold 60000\nargs\nsleep 60000\n"_ba;
#ifndef Q_OS_WIN // where nobody is asked
    QTest::newRow("a child that does not listen") << "term ignore\nhold 60000\nterm obey\nargs\nsleep 60000\n"_ba;
    QTest::newRow("an engine that does not listen") << "term ignore\nhold 60000\nargs\nsleep 60000\n"_ba;
#endif
}

void BadRunInputTest::aCancelWaitsForChildrenThatHoldTheFile()
{
    QFETCH(const QByteArray, verbs);
    RunBench bench;
    bench.Engine("value RESET_RESULTS NO\n" + verbs);
    CancelSoon(bench);
    QElapsedTimer time;
    time.start();
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project())); // it is free at once
    QVERIFY(time.elapsed() < 30'000);
    QCOMPARE(bench.Doc().Data().Option(301, 1), std::string_view("NO"));
    QVERIFY(bench.lock.IsHeld());
    QCOMPARE(bench.Notices().size(), 1);
    QVERIFY2(bench.Notices()[0].startsWith(u"解析プログラムが途中で終わりました: 中止"_s),
             qPrintable(bench.Notices()[0]));
    QCOMPARE(bench.Kept().value(0).end.kind, RunEndKind::Cancelled);
}

void BadRunInputTest::aDamagedFolderOfKeptInputsKeepsOn()
{
    RunBench bench;
    const QDir kept(bench.KeptIn());
    QVERIFY(kept.mkpath(u"20200101-000000-000-folder.sbd"_s)); // a folder in place of an input
    Put(kept.filePath(u"20200101-000001-000-a.sbd"_s), "TITLE:A\r\n");
    QVERIFY(kept.mkpath(u"20200101-000001-000-a.json"_s)); // and of a record
    Put(kept.filePath(u"20200101-000002-000-b.sbd"_s), "TITLE:B\r\n");
    Put(kept.filePath(u"20200101-000002-000-b.json"_s), QByteArray(1 << 20, '{'));
    Put(kept.filePath(u"20200101-000003-000-c.json"_s), R"({"version":1,"kind":"run"})"); // without an input
    Put(kept.filePath(u"20200101-000004-000-d.sbd"_s), "TITLE:D\r\n");
    Put(kept.filePath(u"20200101-000004-000-d.json"_s), R"({"version":"one","kind":7,"project":[],"time":{}})");
#ifndef Q_OS_WIN
    QVERIFY(QFile::link(u"/nowhere"_s, kept.filePath(u"20200101-000005-000-e.sbd"_s)));
#endif
    bench.Engine("value RESET_RESULTS NO\nchk ok\n");
    const QByteArray before = Bytes(bench.path);
    for (int i = 0; i < 12; ++i)
        QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    const QList<KeptInput> inputs = bench.Kept();
    const auto ofUs = [&](const KeptInput& input) { return !input.project.isEmpty(); };
    QCOMPARE(std::ranges::count_if(inputs, ofUs), 10);
    for (const char* name : {"a", "b", "d"}) { // nobody knows whose they are: they stay in reach
        const auto is = [&](const KeptInput& input) {
            return input.file.endsWith(u"-%1.sbd"_s.arg(QLatin1String(name)));
        };
        QCOMPARE(std::ranges::count_if(inputs, is), 1);
    }
    QCOMPARE(inputs[0].end.kind, RunEndKind::Report);
}

void BadRunInputTest::inputsOfANewerVersionStandBesideOurs()
{
    RunBench bench;
    const QDir kept(bench.KeptIn());
    const QByteArray large(30'000'000, 'x');
    QStringList names;
    for (int i = 0; i < 3; ++i) { // 90 MB of 50
        names += kept.filePath(u"2099010%1-000000-000-n"_s.arg(i + 1));
        Put(names.last() + u".sbd"_s, large);
        Put(names.last() + u".json"_s, R"({"version":2,"what":"ever"})");
    }
    bench.Engine("chk ok\n");
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    int ours = 0;
    for (const KeptInput& input : bench.Kept())
        ours += input.project.isEmpty() ? 0 : 1;
    QCOMPARE(ours, 2);
    for (const QString& name : names) {
        QCOMPARE(QFileInfo(name + u".sbd"_s).size(), large.size());
        QCOMPARE(Bytes(name + u".json"_s), QByteArray(R"({"version":2,"what":"ever"})"));
    }
    QCOMPARE(LastRunText(bench.path, bench.KeptIn()), bench.Doc().lastRun);
}

void BadRunInputTest::whereTheTwoInputsOfACheckDoNotFitItAsks()
{
    RunBench bench;
    // Lines of a section that nobody knows stay as they are: a project of 30 MB, twice, is more than may be kept.
    bench.lock.Release();
    Put(bench.path, "[UNKNOWN_BLOCK]\r\n" + ("  LINE " + QByteArray(993, 'x') + "\r\n").repeated(30'000) + "[END]\r\n",
        QFile::Append);
    QVERIFY(bench.Doc().OpenDocument(bench.path).Ok());
    QVERIFY(bench.lock.Take(bench.path));
    bench.Enter("ENTERED");
    bench.Engine("chk ok\n");
    QVERIFY(!bench.runner.RunAndReload(EngineRun::Check, bench.Project())); // the user says no
    QCOMPARE(bench.log.filter(u"yes or no: 解析前の入力を次のフォルダーに保管できません。"_s).size(), 1);
    QCOMPARE(bench.Title(), u"ENTERED"_s);
    QVERIFY(bench.Doc().IsModified());
    QVERIFY(bench.lock.IsHeld());
    QCOMPARE(bench.Kept().size(), 0); // no run, no input of it
}

QTEST_MAIN(BadRunInputTest)
#include "bad_run_input_test.moc"
