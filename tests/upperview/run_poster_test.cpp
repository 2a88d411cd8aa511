#include "upperview/run_poster.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;

class RunPosterTest : public QObject {
    Q_OBJECT

private slots:
    void aWantedRunComesBehindThePaint();
    void manyPaintsMakeOneRun();
    void aRunThatIsNoLongerWantedDoesNotCome();
    void behindARunThereIsAPause();
    void theUserNeedNotWaitForThePause();
};

void RunPosterTest::aWantedRunComesBehindThePaint()
{
    CRunPoster poster([] { return true; });
    QSignalSpy due(&poster, &CRunPoster::runIsDue);
    poster.Want({EngineRun::Result, u"?"_s});
    QCOMPARE(due.count(), 0);
    QTRY_COMPARE(due.count(), 1);
    QVERIFY(due[0][0].value<WantedRun>() == WantedRun({EngineRun::Result, u"?"_s}));
    QTest::qWait(20);
    QCOMPARE(due.count(), 1);
}

void RunPosterTest::manyPaintsMakeOneRun()
{
    CRunPoster poster([] { return true; });
    QSignalSpy due(&poster, &CRunPoster::runIsDue);
    poster.Want({EngineRun::Main, u"?"_s});
    poster.Want({EngineRun::Main, u"?"_s});
    poster.Want({EngineRun::Main, {}}); // what the last paint found
    QTRY_COMPARE(due.count(), 1);
    QVERIFY(due[0][0].value<WantedRun>() == WantedRun({EngineRun::Main, {}}));
    QTest::qWait(20);
    QCOMPARE(due.count(), 1);
}

void RunPosterTest::aRunThatIsNoLongerWantedDoesNotCome()
{
    bool wanted = true;
    CRunPoster poster([&] { return wanted; });
    QSignalSpy due(&poster, &CRunPoster::runIsDue);
    poster.Want({EngineRun::Main, {}});
    wanted = false;
    QTest::qWait(20);
    QCOMPARE(due.count(), 0);
}

void RunPosterTest::behindARunThereIsAPause()
{
    CRunPoster poster([] { return true; }, nullptr, 300);
    QSignalSpy due(&poster, &CRunPoster::runIsDue);
    poster.Want({EngineRun::Main, {}});
    QTRY_COMPARE(due.count(), 1);
    poster.Want({EngineRun::Main, {}}); // a paint while the engine runs
    poster.RunEnded();
    poster.Want({EngineRun::Main, {}});
    QTest::qWait(100);
    QCOMPARE(due.count(), 1);
    QTRY_COMPARE(due.count(), 2);
}

void RunPosterTest::theUserNeedNotWaitForThePause()
{
    CRunPoster poster([] { return true; }, nullptr, 60000);
    QSignalSpy due(&poster, &CRunPoster::runIsDue);
    poster.RunEnded();
    poster.Want({EngineRun::Main, {}});
    QTest::qWait(50);
    QCOMPARE(due.count(), 0);
    poster.UserAsked();
    QTRY_COMPARE(due.count(), 1);
    poster.RunEnded();
    poster.UserAsked();
    poster.Want({EngineRun::Main, {}});
    QTRY_COMPARE(due.count(), 2);
}

QTEST_GUILESS_MAIN(RunPosterTest)
#include "run_poster_test.moc"
