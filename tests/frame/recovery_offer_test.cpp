// What a crash leaves, and how the next start brings it back.
#include "document/project_lock.h"
#include "frame/notice_bar.h"
#include "grid/cell_editor.h"
#include "grid/grid_ctrl.h"
#include "life_station.h"
#include "panels/panel.h"
#include "sbdfile/writer.h"
#include "tests/document/other_process.h"

#include <QAbstractButton>
#include <QDir>
#include <QPushButton>
#include <QTimer>

#include <climits>

using namespace sbd;

namespace {

/// The other process: opens a project, changes it again and again and keeps copies, until it is killed.
int EditUntilKilled(const QString& project)
{
    return ChangeUntilKilled(project, [](CMainFrame&, CChildFrame& child, int number) {
        Enter(child, QByteArray::number(number).prepend("EDIT ").constData());
        if (!child.KeepRecoveryCopy())
            return false;
        if (number == 1)
            OtherProcess::Say("edited");
        return true;
    });
}

} // namespace

class RecoveryOfferTest : public QObject {
    Q_OBJECT

private slots:
    void init() { RemoveAllCopies(); }

    void aCrashLeavesACopyThatIsOffered();
    void aKilledProgramLosesNothingThatWasCopied();
    void aCleanEndLeavesNoCopy();
    void anUnwantedCopyIsRemoved();
    void laterOffersTheCopyAgain();
    void ofManyCopiesTheRestCanBePutOffAtOnce();
    void theCopyOfAProjectThatIsWorkedInComesWithoutAPath();
    void theUntouchedWindowOfItsProjectIsTakenOver();
    void aCopyThatTheFileHoldsIsDroppedWithoutAWord();
    void aCopyOlderThanItsFileIsPutOffByDefault();
    void theOfferTellsBothTimesAndHowMuchDiffers();
    void aCopyThatWasPutOffIsToldWhenItsProjectIsOpened();
    void aRunWhoseEndNobodySawIsToldWhenItsProjectIsOpened();
    void changesThatACheckDidNotSeeAreToldUntilTheNoticeIsClosed();
    void aChangeOfBlockWritesACopy();
    void anOpenEditorsTextIsInTheCopy();
    void anEditIsCopiedWithin20Seconds();
};

void RecoveryOfferTest::aCrashLeavesACopyThatIsOffered()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    const QByteArray before = Bytes(path);
    {
        const OtherProcess other({u"--edit"_s, path});
        QCOMPARE(other.Word(), u"edited"_s);
    } // killed
    QCOMPARE(Bytes(path), before);
    station.user.recovery = RecoveryAnswer::Open;
    station.frame.OfferRecoveryCopies();
    QCOMPARE(station.user.asked.size(), 1);
    QVERIFY(station.user.asked[0].contains(QDir::toNativeSeparators(path)));
    CChildFrame* child = station.frame.CurrentChild();
    QVERIFY(child->Doc().IsModified());
    QCOMPARE(child->Doc().PathName(), path);
    QVERIFY(child->Lock().IsHeld());
    QVERIFY(toQString(child->Doc().Data().Option(301, 0)).contains(u"DIT "_s));
    QCOMPARE(Bytes(path), before); // until it is saved
}

void RecoveryOfferTest::aKilledProgramLosesNothingThatWasCopied()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    constexpr int kills = 12;
    for (int i = 0; i < kills; ++i) {
        RemoveAllCopies();
        OtherProcess other({u"--edit"_s, path});
        QCOMPARE(other.Word(), u"edited"_s);
        QTest::qWait(i * 3); // somewhere in the middle of writing
        other.Kill();
        const QList<RecoveryCopy> copies = FindRecoveryCopies();
        QCOMPARE(copies.size(), 1);
        QCOMPARE(copies[0].project, path);
        const QByteArray bytes = Bytes(copies[0].file);
        QVERIFY2(bytes.startsWith("TITLE:EDIT ") && bytes.size() > 10'000, bytes.left(40).constData());
        CKELDSectionDoc doc;
        QVERIFY(doc.OpenRecoveryCopy(copies[0].file, path).Ok());
        QVERIFY(doc.Data().RowCount(313) > CSbdData().RowCount(313));
        QCOMPARE(CProjectLock::Look(path), CProjectLock::State::Free);
    }
}

void RecoveryOfferTest::aCleanEndLeavesNoCopy()
{
    LifeStation station;
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    Enter(*child, "MINE");
    QVERIFY(child->KeepRecoveryCopy());
    QVERIFY(!QDir(RecoveryFolder()).isEmpty());
    station.user.save = SaveAnswer::Discard;
    child->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(QDir(RecoveryFolder()).isEmpty());
}

void RecoveryOfferTest::anUnwantedCopyIsRemoved()
{
    LifeStation station;
    {
        const OtherProcess other({u"--edit"_s, station.folder.Example(u"plate4"_s)});
    }
    station.user.recovery = RecoveryAnswer::Remove;
    station.frame.OfferRecoveryCopies();
    QVERIFY(FindRecoveryCopies().isEmpty());
    QCOMPARE(station.frame.Children().size(), 1);
}

void RecoveryOfferTest::laterOffersTheCopyAgain()
{
    LifeStation station;
    {
        const OtherProcess other({u"--edit"_s, station.folder.Example(u"plate4"_s)});
    }
    station.frame.OfferRecoveryCopies();
    QCOMPARE(FindRecoveryCopies().size(), 1);
    station.frame.OfferRecoveryCopies();
    QCOMPARE(station.user.asked.size(), 2);
}

void RecoveryOfferTest::ofManyCopiesTheRestCanBePutOffAtOnce()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    for (const char* title : {"TITLE:A\r\n", "TITLE:B\r\n", "TITLE:C\r\n"})
        QVERIFY(CRecoveryCopy().Write(path, title));
    station.frame.OfferRecoveryCopies();
    QCOMPARE(station.user.asked.size(), 3);
    QVERIFY(station.user.asked[0].contains(u"3 個のうち 1 個目"_s));
    for (const QString& text : station.user.asked)
        QVERIFY(text.contains(QDir::toNativeSeparators(RecoveryFolder()))); // says where it is kept
    station.user.asked.clear();
    station.user.recovery = RecoveryAnswer::AllLater;
    station.frame.OfferRecoveryCopies();
    QCOMPARE(station.user.asked.size(), 1);
    QCOMPARE(FindRecoveryCopies().size(), 3);
}

void RecoveryOfferTest::theCopyOfAProjectThatIsWorkedInComesWithoutAPath()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    {
        const OtherProcess other({u"--edit"_s, path});
    }
    CChildFrame* open = station.frame.OpenProject(path);
    Enter(*open, "WORK OF NOW");
    station.user.recovery = RecoveryAnswer::Open;
    station.frame.OfferRecoveryCopies();
    QVERIFY(station.frame.CurrentChild() != open);
    QVERIFY(station.frame.CurrentChild()->Doc().PathName().isEmpty());
    QVERIFY(open->Lock().IsHeld());
    QCOMPARE(open->Doc().Data().Option(301, 0), std::string_view("WORK OF NOW"));
}

void RecoveryOfferTest::theUntouchedWindowOfItsProjectIsTakenOver()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    const QByteArray before = Bytes(path);
    {
        const OtherProcess other({u"--edit"_s, path});
    }
    CChildFrame* open = station.frame.OpenProject(path); // by a double click on the project
    open->GoToBlock(313);
    station.user.recovery = RecoveryAnswer::Open;
    station.frame.OfferRecoveryCopies();
    QCOMPARE(station.frame.Children().size(), 1);
    QVERIFY(station.frame.CurrentChild() == open);
    QCOMPARE(open->Doc().PathName(), path);
    QVERIFY(open->Doc().IsModified());
    QVERIFY(open->Lock().IsHeld());
    QCOMPARE(open->CurrentBlock(), 313);
    QVERIFY(toQString(open->Doc().Data().Option(301, 0)).contains(u"DIT "_s));
    QCOMPARE(Bytes(path), before);
    station.Trigger(u"上書き保存"_s);
    QVERIFY(Bytes(path) != before);
    QVERIFY(FindRecoveryCopies().isEmpty());
}

void RecoveryOfferTest::aCopyThatTheFileHoldsIsDroppedWithoutAWord()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    const QByteArray bytes = Bytes(path);
    QVERIFY(CRecoveryCopy().Write(path, {bytes.constData(), std::size_t(bytes.size())}));
    // The same project in another form: what is saved later holds it all the same.
    const QByteArray other = "! a line that nobody reads\r\n" + bytes;
    QVERIFY(CRecoveryCopy().Write(path, {other.constData(), std::size_t(other.size())}));
    QCOMPARE(FindRecoveryCopies().size(), 2);
    station.frame.OfferRecoveryCopies();
    QCOMPARE(station.user.asked, QStringList());
    QVERIFY(FindRecoveryCopies().isEmpty());
}

void RecoveryOfferTest::aCopyOlderThanItsFileIsPutOffByDefault()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    QByteArray old = Bytes(path);
    old.replace("TITLE:", "TITLE:OLD ");
    QVERIFY(CRecoveryCopy().Write(path, {old.constData(), std::size_t(old.size())}));
    const auto setTime = [](const QString& file, const QDateTime& time) {
        QFile open(file);
        QVERIFY(open.open(QFile::ReadWrite));
        QVERIFY(open.setFileTime(time, QFileDevice::FileModificationTime));
    };
    const QDateTime now = QDateTime::currentDateTime();
    setTime(path, now.addSecs(-60));
    station.frame.OfferRecoveryCopies();
    QCOMPARE(station.user.putOff, QList<bool>{false});
    setTime(path, now.addSecs(60)); // saved later, or written by an engine that went on without us
    station.frame.OfferRecoveryCopies();
    QCOMPARE(station.user.putOff, (QList<bool>{false, true}));
    QVERIFY(station.user.asked[1].contains(u"コピーより新しい"_s));
    QVERIFY(station.user.asked[1].contains(u"ファイルの新しい内容が失われます"_s));
}

void RecoveryOfferTest::theOfferTellsBothTimesAndHowMuchDiffers()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    {
        CKELDSectionDoc doc;
        QVERIFY(doc.OpenDocument(path).Ok());
        CSbdData& data = test::DataOf(doc);
        data.SetOption(301, 1, "NO");
        data.SetOption(301, 0, "OTHER");
        data.SetOption(302, 0, "123");
        const std::string bytes = WriteProject(data);
        QVERIFY(CRecoveryCopy().Write(path, bytes));
    }
    station.frame.OfferRecoveryCopies();
    QCOMPARE(station.user.asked.size(), 1);
    const QString text = station.user.asked[0];
    QVERIFY2(text.contains(u"ファイルとの違い: 3 か所 (2 ブロック)"_s), qPrintable(text));
    const QString format = u"yyyy/MM/dd HH:mm:ss"_s;
    QVERIFY(text.contains(u"コピーの時刻: "_s + FindRecoveryCopies().at(0).time.toString(format)));
    QVERIFY(text.contains(u"ファイルの時刻: "_s + QFileInfo(path).lastModified().toString(format)));
}

void RecoveryOfferTest::aCopyThatWasPutOffIsToldWhenItsProjectIsOpened()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    {
        const OtherProcess other({u"--edit"_s, path});
    }
    station.frame.OfferRecoveryCopies(); // later
    CChildFrame* child = station.frame.OpenProject(path);
    QCOMPARE(child->Notices().Texts().size(), 1);
    auto* open = child->Notices().findChild<QPushButton*>();
    QVERIFY(open != nullptr && open->text().startsWith(u"コピーを開く"_s));
    open->click();
    QCOMPARE(child->Doc().PathName(), path);
    QVERIFY(toQString(child->Doc().Data().Option(301, 0)).contains(u"DIT "_s));
    QCOMPARE(child->Notices().Texts(), QStringList());
}

void RecoveryOfferTest::aRunWhoseEndNobodySawIsToldWhenItsProjectIsOpened()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    const QByteArray bytes = Bytes(path);
    const QString kept = KeepInput(path, {bytes.constData(), std::size_t(bytes.size())}, KeptKind::Main);
    QVERIFY(!kept.isEmpty());
    station.frame.OfferRecoveryCopies();
    CChildFrame* child = station.frame.OpenProject(path);
    QCOMPARE(child->Notices().Texts().size(), 1);
    QVERIFY(child->Notices().Texts()[0].contains(QDir::toNativeSeparators(kept)));
    child->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    SetKeptEnd(kept, {RunEndKind::Report, 0, 1, 2});
    QCOMPARE(station.frame.OpenProject(path)->Notices().Texts(), QStringList());
}

void RecoveryOfferTest::changesThatACheckDidNotSeeAreToldUntilTheNoticeIsClosed()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    station.frame.OfferRecoveryCopies();
    CChildFrame* child = station.frame.OpenProject(path);
    Enter(*child, "UNSAVED");
    station.Engine(u"plate4"_s, "chk ok\n");
    station.frame.RunCommand(Command::CheckData);
    QApplication::processEvents();
    const auto openAgain = [&] {
        child->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        child = station.frame.OpenProject(path);
        return child->Notices().Shows(u"lost-changes"_s);
    };
    const auto press = [&](const QString& text) {
        for (QAbstractButton* button : child->Notices().findChildren<QAbstractButton*>())
            if (button->text().startsWith(text) && button->isVisible())
                return button->click();
        QFAIL(qPrintable(text));
    };
    QVERIFY(child->Notices().Shows(u"lost-changes"_s));
    QVERIFY(openAgain()); // the session has ended with the notice on show
    QVERIFY(
        child->Notices().TextOf(u"lost-changes"_s).contains(QDir::toNativeSeparators(KeptInputsOf(path).at(0).file)));
    press(u"元に戻す: 保存していなかった入力"_s);
    QCOMPARE(child->Doc().Data().Option(301, 0), std::string_view("UNSAVED"));
    station.user.save = SaveAnswer::Discard;
    QVERIFY(!openAgain()); // the user has had it
    // A notice that is closed stays so.
    Enter(*child, "MORE");
    station.frame.RunCommand(Command::CheckData);
    QApplication::processEvents();
    QVERIFY(openAgain());
    press(u"×"_s);
    QVERIFY(!openAgain());
}

void RecoveryOfferTest::aChangeOfBlockWritesACopy()
{
    LifeStation station;
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    Enter(*child, "MINE"); // on 302
    QVERIFY(QDir(RecoveryFolder()).entryList({u"*.sbd"_s}).isEmpty());
    QVERIFY(child->GoToBlock(313));
    const QStringList copies = QDir(RecoveryFolder()).entryList({u"*.sbd"_s});
    QCOMPARE(copies.size(), 1);
    QVERIFY(Bytes(RecoveryFolder() + u'/' + copies[0]).startsWith("TITLE:MINE\r\n"));
}

void RecoveryOfferTest::anOpenEditorsTextIsInTheCopy()
{
    LifeStation station;
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    QVERIFY(child->GoToBlock(301));
    CGridCtrl* grid = child->Panel()->Grid();
    child->Panel()->GoToCell(1, 2);
    grid->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(&station.frame));
    for (const QChar c : u"HALF A TITLE"_s)
        QTest::keyClick(QGuiApplication::focusWindow(), c.toLatin1());
    QVERIFY(grid->IsEditing());
    QWidget* editor = QApplication::focusWidget();
    // What is being composed is left alone: it stays in the editor, and is not in the copy.
    QInputMethodEvent composing(u"きょう"_s, {});
    QCoreApplication::sendEvent(editor, &composing);
    const auto copies = [] { return QDir(RecoveryFolder()).entryList({u"*.sbd"_s}); };
    station.frame.KeepRecoveryCopies();
    QCOMPARE(copies().size(), 1);
    const QByteArray bytes = Bytes(RecoveryFolder() + u'/' + copies()[0]);
    QVERIFY2(bytes.startsWith("TITLE:HALF A TITLE\r\n"), bytes.left(60).constData());
    QVERIFY(grid->IsEditing());
    QVERIFY(QApplication::focusWidget() == editor);
    QInputMethodEvent taken;
    taken.setCommitString(u"今日"_s);
    QCoreApplication::sendEvent(editor, &taken);
    QCOMPARE(EditorText(editor), u"HALF A TITLE今日"_s);
    QVERIFY(!child->Doc().IsModified());
    // An editor that is given up leaves no copy.
    QTest::keyClick(editor, Qt::Key_Escape);
    QVERIFY(!grid->IsEditing());
    station.frame.KeepRecoveryCopies();
    QVERIFY(copies().isEmpty());
}

void RecoveryOfferTest::anEditIsCopiedWithin20Seconds()
{
    LifeStation station;
    int shortest = INT_MAX;
    for (const QTimer* timer : station.frame.findChildren<QTimer*>(Qt::FindDirectChildrenOnly)) {
        if (timer->isActive() && !timer->isSingleShot())
            shortest = std::min(shortest, timer->interval());
    }
    QVERIFY2(shortest <= 20'000, qPrintable(QString::number(shortest)));
}

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.value(1) == u"--edit"_s)
        return EditUntilKilled(arguments.value(2));
    RecoveryOfferTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "recovery_offer_test.moc"
