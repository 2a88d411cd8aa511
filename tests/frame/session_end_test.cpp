// The end of a session: what is asked, what is kept, and what the next start finds.
#include "frame/engine_runner.h"
#include "grid/grid_ctrl.h"
#include "life_station.h"
#include "panels/panel.h"

#include <QDir>
#include <QLineEdit>
#include <QPointer>
#include <QStatusBar>
#include <QTimer>

#include <memory>

using namespace sbd;

namespace {

/// The system: what it grants, and whether the end was stopped.
struct System {
    bool mayAsk = true;
    int asked = 0;
    int cancelled = 0;
    std::function<void()> whenAsked = [] {};

    [[nodiscard]] SessionEnd End()
    {
        return {[this] {
                    ++asked;
                    whenAsked();
                    return mayAsk;
                },
                [this] { ++cancelled; }};
    }
};

/// What the copies hold, newest first, as the next start finds them.
QStringList TitlesOfCopies()
{
    QStringList titles;
    for (const RecoveryCopy& copy : FindRecoveryCopies())
        titles += QString::fromUtf8(TitleLine(copy.file));
    return titles;
}

/// The same while their session goes on.
QStringList TitlesOfFiles()
{
    QStringList titles;
    for (const QString& name : QDir(RecoveryFolder()).entryList({u"*.sbd"_s}))
        titles += QString::fromUtf8(TitleLine(RecoveryFolder() + u'/' + name));
    return titles;
}

/// Opens the editor of the cell and leaves it open with `text`.
void TypeIntoCell(CChildFrame& child, const QString& text)
{
    QTest::keyClick(child.Panel()->Grid(), Qt::Key_A);
    child.Panel()->Grid()->viewport()->findChild<QLineEdit*>()->setText(text);
}

void Quit()
{
    QEvent quit(QEvent::Quit);
    QCoreApplication::sendEvent(qApp, &quit);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

class SessionEndTest : public QObject {
    Q_OBJECT

private slots:
    void init() { RemoveAllCopies(); }

    void aRunningEngineStopsTheEnd(); // first: behind a quit no loop of this process waits any more
    void withoutChangesNothingIsAsked();
    void theCopyStandsBeforeTheQuestion();
    void cancelStopsTheEnd();
    void aCancelForOneProjectLeavesThemAll();
    void whatIsSavedIsOnTheDisk();
    void whatIsNotWantedIsNotOfferedAgain();
    void theQuitBehindTheAnswersAsksNothing();
    void changesBehindTheAnswerAreKept();
    void anEndThatSomebodyElseStopsLosesNothing();
    void whereNobodyMayBeAskedTheCopiesStay();
    void withoutACopyAndAQuestionTheEndIsStopped();
    void anOpenEditorBelongsToTheCopy();
    void aRefusedTextStopsTheEnd();
    void anEndByForceKeepsAllAndAsksNothing();
};

void SessionEndTest::withoutChangesNothingIsAsked()
{
    LifeStation station;
    QVERIFY(station.frame.OpenProject(station.folder.Example(u"plate4"_s)) != nullptr);
    System system;
    station.frame.OnSessionEnd(system.End());
    QCOMPARE(system.asked, 0);
    QCOMPARE(system.cancelled, 0);
    QCOMPARE(TitlesOfFiles(), QStringList());
    Quit();
    QVERIFY(!station.frame.isVisible());
    QCOMPARE(station.user.asked, QStringList());
}

void SessionEndTest::theCopyStandsBeforeTheQuestion()
{
    LifeStation station;
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    Enter(*child, "MINE");
    System system;
    QStringList before;
    system.whenAsked = [&] { before = TitlesOfFiles(); };
    station.frame.OnSessionEnd(system.End());
    QCOMPARE(before, QStringList({u"TITLE:MINE"_s}));
}

void SessionEndTest::cancelStopsTheEnd()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    const QByteArray bytes = Bytes(path);
    CChildFrame* child = station.frame.OpenProject(path);
    Enter(*child, "MINE");
    station.user.save = SaveAnswer::Cancel;
    System system;
    station.frame.OnSessionEnd(system.End());
    QCOMPARE(station.user.asked.size(), 1);
    QCOMPARE(system.cancelled, 1);
    QVERIFY(child->Doc().IsModified());
    QCOMPARE(TitlesOfFiles(), QStringList({u"TITLE:MINE"_s}));
    QCOMPARE(Bytes(path), bytes);
    // The window asks as ever when it is closed.
    QVERIFY(!station.frame.close());
    QCOMPARE(station.user.asked.size(), 2);
}

void SessionEndTest::aCancelForOneProjectLeavesThemAll()
{
    LifeStation station;
    CChildFrame* first = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    CChildFrame* second = station.frame.OpenProject(station.folder.Example(u"box2"_s));
    Enter(*first, "ONE");
    Enter(*second, "TWO");
    int questions = 0;
    Prompts prompts = station.user.Dialogs();
    prompts.ask = [&](QWidget*, const QString&) { return ++questions == 1 ? SaveAnswer::Discard : SaveAnswer::Cancel; };
    CMainFrame frame(prompts);
    frame.show();
    CChildFrame* one = frame.OpenProject(station.folder.Example(u"plate4"_s, u"a"_s));
    CChildFrame* two = frame.OpenProject(station.folder.Example(u"plate4"_s, u"b"_s));
    Enter(*one, "THREE");
    Enter(*two, "FOUR");
    System system;
    frame.OnSessionEnd(system.End());
    QCOMPARE(questions, 2);
    QCOMPARE(system.cancelled, 1);
    QStringList files = TitlesOfFiles();
    files.sort();
    QCOMPARE(files, QStringList({u"TITLE:FOUR"_s, u"TITLE:THREE"_s})); // the first answer counts for nothing
}

void SessionEndTest::whatIsSavedIsOnTheDisk()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    CChildFrame* child = station.frame.OpenProject(path);
    Enter(*child, "MINE");
    station.user.save = SaveAnswer::Save;
    System system;
    station.frame.OnSessionEnd(system.End());
    QCOMPARE(system.cancelled, 0);
    QCOMPARE(TitleLine(path), "TITLE:MINE");
    Quit();
    QVERIFY(!station.frame.isVisible());
    QCOMPARE(station.user.asked.size(), 1);
    QCOMPARE(TitlesOfFiles(), QStringList());
}

void SessionEndTest::whatIsNotWantedIsNotOfferedAgain()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    const QByteArray bytes = Bytes(path);
    Enter(*station.frame.OpenProject(path), "MINE");
    station.user.save = SaveAnswer::Discard;
    System system;
    station.frame.OnSessionEnd(system.End());
    QCOMPARE(system.cancelled, 0);
    QCOMPARE(TitlesOfFiles(), QStringList()); // the system may end us without another word
    QCOMPARE(Bytes(path), bytes);
}

void SessionEndTest::theQuitBehindTheAnswersAsksNothing()
{
    LifeStation station;
    Enter(*station.frame.OpenProject(station.folder.Example(u"plate4"_s)), "MINE");
    station.user.save = SaveAnswer::Discard;
    System system;
    station.frame.OnSessionEnd(system.End());
    Quit();
    QVERIFY(!station.frame.isVisible());
    QCOMPARE(station.user.asked.size(), 1);
    QCOMPARE(TitlesOfCopies(), QStringList());
}

void SessionEndTest::changesBehindTheAnswerAreKept()
{
    LifeStation station;
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    Enter(*child, "MINE");
    station.user.save = SaveAnswer::Discard;
    System system;
    station.frame.OnSessionEnd(system.End());
    Enter(*child, "LATER"); // the end took its time
    Quit();
    QVERIFY(!station.frame.isVisible());
    QCOMPARE(station.user.asked.size(), 1);
    QCOMPARE(TitlesOfCopies(), QStringList({u"TITLE:LATER"_s}));
}

void SessionEndTest::anEndThatSomebodyElseStopsLosesNothing()
{
    LifeStation station;
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    Enter(*child, "MINE");
    station.user.save = SaveAnswer::Discard;
    System system;
    station.frame.OnSessionEnd(system.End());
    QVERIFY(child->Doc().IsModified());
    station.frame.KeepRecoveryCopies(); // as the clock does
    QCOMPARE(TitlesOfFiles(), QStringList({u"TITLE:MINE"_s}));
    station.user.save = SaveAnswer::Cancel;
    QVERIFY(!station.frame.close());
    QCOMPARE(station.user.asked.size(), 2);
}

void SessionEndTest::whereNobodyMayBeAskedTheCopiesStay()
{
    LifeStation station;
    Enter(*station.frame.OpenProject(station.folder.Example(u"plate4"_s)), "MINE");
    System system;
    system.mayAsk = false;
    station.frame.OnSessionEnd(system.End());
    QCOMPARE(system.cancelled, 0);
    Quit();
    QVERIFY(!station.frame.isVisible());
    QCOMPARE(station.user.asked, QStringList());
    QCOMPARE(TitlesOfCopies(), QStringList({u"TITLE:MINE"_s}));
}

void SessionEndTest::withoutACopyAndAQuestionTheEndIsStopped()
{
    LifeStation station;
    const QString aside = RecoveryFolder() + u".aside"_s;
    QDir().mkpath(StateFolder());
    QDir().rename(RecoveryFolder(), aside);
    QFile inTheWay(RecoveryFolder());
    QVERIFY(inTheWay.open(QFile::WriteOnly));
    Enter(*station.frame.OpenProject(station.folder.Example(u"plate4"_s)), "MINE");
    System system;
    system.mayAsk = false;
    station.frame.OnSessionEnd(system.End());
    inTheWay.remove();
    QDir().rename(aside, RecoveryFolder());
    QCOMPARE(system.cancelled, 1);
}

void SessionEndTest::anOpenEditorBelongsToTheCopy()
{
    LifeStation station;
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    child->GoToBlock(301);
    child->Panel()->GoToCell(1, 2);
    child->FocusPanel();
    TypeIntoCell(*child, u"TYPED"_s);
    QVERIFY(!child->Doc().IsModified());
    System system;
    QStringList before;
    system.whenAsked = [&] { before = TitlesOfFiles(); };
    station.frame.OnSessionEnd(system.End());
    QCOMPARE(system.asked, 1);
    QCOMPARE(before, QStringList({u"TITLE:TYPED"_s}));
}

void SessionEndTest::aRefusedTextStopsTheEnd()
{
    LifeStation station;
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    child->GoToBlock(301);
    child->Panel()->GoToCell(1, 2);
    child->FocusPanel();
    int told = 0;
    child->Panel()->Grid()->showMessage = [&](const QString&) { ++told; };
    TypeIntoCell(*child, u"𠮷野川橋"_s);
    System system;
    station.frame.OnSessionEnd(system.End());
    QCOMPARE(told, 1); // once, not at the copy as well
    QCOMPARE(system.cancelled, 1);
}

void SessionEndTest::aRunningEngineStopsTheEnd()
{
    LifeStation station;
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    Enter(*child, "MINE");
    station.Engine(u"plate4"_s, "sleep 1000\n");
    System system;
    QTimer::singleShot(400, &station.frame, [&] { station.frame.OnSessionEnd(system.End()); });
    station.frame.RunCommand(Command::CheckData);
    QCOMPARE(station.user.warned, QStringList());
    QCOMPARE(system.asked, 0);
    QCOMPARE(system.cancelled, 1);
    QVERIFY(station.frame.statusBar()->currentMessage().contains(u"実行中"_s));
}

void SessionEndTest::anEndByForceKeepsAllAndAsksNothing()
{
    auto station = std::make_unique<LifeStation>();
    Enter(*station->frame.OpenProject(station->folder.Example(u"plate4"_s)), "ONE");
    CChildFrame* child = station->frame.OpenProject(station->folder.Example(u"box2"_s));
    child->GoToBlock(301);
    child->Panel()->GoToCell(1, 2);
    child->FocusPanel();
    TypeIntoCell(*child, u"TWO"_s);
    station->frame.EndNow();
    QVERIFY(station->frame.close());
    QCOMPARE(station->user.asked, QStringList());
    station.reset();
    QStringList titles = TitlesOfCopies();
    titles.sort();
    QCOMPARE(titles, QStringList({u"TITLE:ONE"_s, u"TITLE:TWO"_s}));
}

QTEST_MAIN(SessionEndTest)
#include "session_end_test.moc"
