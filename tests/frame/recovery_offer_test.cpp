// What a crash leaves, and how the next start brings it back.
#include "document/project_lock.h"
#include "life_station.h"
#include "tests/document/other_process.h"

#include <QDir>

using namespace sbd;

namespace {

/// The other process: opens a project, changes it again and again and keeps copies, until it is killed.
int EditUntilKilled(const QString& project)
{
    Answers user;
    CMainFrame frame(user.Dialogs());
    CChildFrame* child = frame.OpenProject(project);
    if (child == nullptr)
        return 1;
    for (int i = 1;; ++i) {
        Enter(*child, QByteArray::number(i).prepend("EDIT ").constData());
        if (!child->KeepRecoveryCopy())
            return 2;
        if (i == 1)
            OtherProcess::Say("edited");
    }
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
    void theCopyOfAProjectThatIsOpenComesWithoutAPath();
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

void RecoveryOfferTest::theCopyOfAProjectThatIsOpenComesWithoutAPath()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    {
        const OtherProcess other({u"--edit"_s, path});
    }
    CChildFrame* open = station.frame.OpenProject(path);
    station.user.recovery = RecoveryAnswer::Open;
    station.frame.OfferRecoveryCopies();
    QVERIFY(station.frame.CurrentChild() != open);
    QVERIFY(station.frame.CurrentChild()->Doc().PathName().isEmpty());
    QVERIFY(open->Lock().IsHeld());
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
