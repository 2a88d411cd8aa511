#include "document/recovery.h"
#include "other_process.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

const auto kProject = u"/data/設計 課/橋.sbd"_s;

QByteArray Bytes(const QString& path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList Files(const QString& folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::Hidden);
}

/// The other process: a session with a copy, until it is told to end.
int Session(const QString& folder)
{
    CRecoveryCopy copy(folder);
    OtherProcess::Say(copy.Write(kProject, "TITLE:lost\r\n") ? "written" : "failed");
    OtherProcess::WaitForEnd();
    copy.Discard();
    return 0;
}

} // namespace

class RecoveryTest : public QObject {
    Q_OBJECT

private slots:
    void aCopyHoldsTheBytesAndNoOneElseSeesIt();
    void theLastWriteStands();
    void aCleanEndLeavesNothing();
    void aCopyThatIsLetGoIsFound();
    void aCopyOfAnUnsavedProjectIsFound();
    void theNewestCopyStandsFirst();
    void aRemovedCopyLeavesNothing();
    void aFolderThatTakesNothingIsTold();
    void copiesAreForTheUserAlone();
    void aCopyWithoutItsOriginIsFoundToo();
    void theFolderFollowsTheStateFolder();

    void aLivingSessionKeepsItsCopy();
    void aKilledSessionLeavesItsCopy();
    void aSessionThatEndsCleanlyLeavesNothing();
    void aCopyOfAProcessThatHadOurNumberIsFound();
    void ourOwnCopyIsNotFound();
    void namesSortByTime();
};

void RecoveryTest::aCopyHoldsTheBytesAndNoOneElseSeesIt()
{
    const QTemporaryDir home;
    CRecoveryCopy copy(home.filePath(u"a/b/recovery"_s));
    QVERIFY(copy.File().isEmpty());
    QVERIFY(copy.Write(kProject, std::string_view("TITLE:\x83\x5C\0x\r\n", 12)));
    QVERIFY(copy.File().endsWith(u".sbd"_s));
    QCOMPARE(Bytes(copy.File()), QByteArray("TITLE:\x83\x5C\0x\r\n", 12));
    QVERIFY(FindRecoveryCopies(home.filePath(u"a/b/recovery"_s)).isEmpty());
    copy.Discard();
}

void RecoveryTest::theLastWriteStands()
{
    const QTemporaryDir folder;
    CRecoveryCopy copy(folder.path());
    QVERIFY(copy.Write(kProject, "one"));
    const QString file = copy.File();
    QVERIFY(copy.Write(kProject, "two"));
    QCOMPARE(copy.File(), file);
    QCOMPARE(Bytes(file), "two");
    QCOMPARE(Files(folder.path()).size(), 3);
    copy.Discard();
}

void RecoveryTest::aCleanEndLeavesNothing()
{
    const QTemporaryDir folder;
    CRecoveryCopy copy(folder.path());
    copy.Discard(); // there is none yet
    QVERIFY(copy.Write(kProject, "one"));
    copy.Discard();
    QVERIFY(copy.File().isEmpty());
    QCOMPARE(Files(folder.path()), QStringList());
    QVERIFY(copy.Write(kProject, "again"));
    QCOMPARE(Bytes(copy.File()), "again");
    copy.Discard();
}

void RecoveryTest::aCopyThatIsLetGoIsFound()
{
    const QTemporaryDir folder;
    {
        CRecoveryCopy copy(folder.path());
        QVERIFY(copy.Write(kProject, "left"));
    }
    const QList<RecoveryCopy> copies = FindRecoveryCopies(folder.path());
    QCOMPARE(copies.size(), 1);
    QCOMPARE(copies[0].project, kProject);
    QCOMPARE(Bytes(copies[0].file), "left");
    QVERIFY(qAbs(copies[0].time.secsTo(QDateTime::currentDateTime())) < 60);
    QCOMPARE(FindRecoveryCopies(folder.path()).size(), 1); // looking takes nothing
}

void RecoveryTest::aCopyOfAnUnsavedProjectIsFound()
{
    const QTemporaryDir folder;
    {
        CRecoveryCopy copy(folder.path());
        QVERIFY(copy.Write(QString(), "left"));
    }
    const QList<RecoveryCopy> copies = FindRecoveryCopies(folder.path());
    QCOMPARE(copies.size(), 1);
    QVERIFY(copies[0].project.isEmpty());
}

void RecoveryTest::theNewestCopyStandsFirst()
{
    const QTemporaryDir folder;
    const QDateTime now = QDateTime::currentDateTime();
    for (int age : {300, 100, 200}) {
        CRecoveryCopy copy(folder.path());
        QVERIFY(copy.Write(QString::number(age), "left"));
        QFile file(copy.File());
        QVERIFY(file.open(QFile::ReadWrite));
        QVERIFY(file.setFileTime(now.addSecs(-age), QFileDevice::FileModificationTime));
    }
    QStringList projects;
    for (const RecoveryCopy& copy : FindRecoveryCopies(folder.path()))
        projects += copy.project;
    QCOMPARE(projects, QStringList({u"100"_s, u"200"_s, u"300"_s}));
}

void RecoveryTest::aRemovedCopyLeavesNothing()
{
    const QTemporaryDir folder;
    {
        CRecoveryCopy copy(folder.path());
        QVERIFY(copy.Write(kProject, "left"));
    }
    RemoveRecoveryCopy(FindRecoveryCopies(folder.path()).at(0));
    QCOMPARE(Files(folder.path()), QStringList());
}

void RecoveryTest::aFolderThatTakesNothingIsTold()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"file"_s));
    QVERIFY(file.open(QFile::WriteOnly));
    CRecoveryCopy copy(folder.filePath(u"file/recovery"_s));
    QVERIFY(!copy.Write(kProject, "one"));
    QVERIFY(copy.File().isEmpty());
    copy.Discard();
    QVERIFY(FindRecoveryCopies(folder.filePath(u"file/recovery"_s)).isEmpty());
}

void RecoveryTest::copiesAreForTheUserAlone()
{
#ifdef Q_OS_UNIX
    const QTemporaryDir home;
    const QString folder = home.filePath(u"recovery"_s);
    CRecoveryCopy copy(folder);
    QVERIFY(copy.Write(kProject, "one"));
    const QFile::Permissions others =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    QCOMPARE(QFile::permissions(folder) & others, QFile::Permissions());
    copy.Discard();
#endif
}

void RecoveryTest::aCopyWithoutItsOriginIsFoundToo()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"x.sbd"_s));
    QVERIFY(file.open(QFile::WriteOnly));
    file.close();
    const QList<RecoveryCopy> copies = FindRecoveryCopies(folder.path());
    QCOMPARE(copies.size(), 1);
    QVERIFY(copies[0].project.isEmpty());
}

void RecoveryTest::theFolderFollowsTheStateFolder()
{
#ifndef Q_OS_WIN
    qputenv("XDG_STATE_HOME", "/state");
    QCOMPARE(RecoveryFolder(), u"/state/sbdstation/recovery"_s);
    qputenv("XDG_STATE_HOME", "not absolute");
    QCOMPARE(RecoveryFolder(), QDir::homePath() + u"/.local/state/sbdstation/recovery"_s);
    qunsetenv("XDG_STATE_HOME");
    QCOMPARE(RecoveryFolder(), QDir::homePath() + u"/.local/state/sbdstation/recovery"_s);
#endif
}

void RecoveryTest::aLivingSessionKeepsItsCopy()
{
    const QTemporaryDir folder;
    OtherProcess session({u"--session"_s, folder.path()});
    QCOMPARE(session.Word(), u"written"_s);
    QVERIFY(FindRecoveryCopies(folder.path()).isEmpty());
    QCOMPARE(Files(folder.path()).size(), 3);
    session.End();
}

void RecoveryTest::aKilledSessionLeavesItsCopy()
{
    const QTemporaryDir folder;
    OtherProcess session({u"--session"_s, folder.path()});
    QCOMPARE(session.Word(), u"written"_s);
    session.Kill();
    const QList<RecoveryCopy> copies = FindRecoveryCopies(folder.path());
    QCOMPARE(copies.size(), 1);
    QCOMPARE(copies[0].project, kProject);
    QCOMPARE(Bytes(copies[0].file), "TITLE:lost\r\n");
    RemoveRecoveryCopy(copies[0]);
    QCOMPARE(Files(folder.path()), QStringList());
}

void RecoveryTest::aSessionThatEndsCleanlyLeavesNothing()
{
    const QTemporaryDir folder;
    OtherProcess session({u"--session"_s, folder.path()});
    QCOMPARE(session.Word(), u"written"_s);
    session.End();
    QCOMPARE(Files(folder.path()), QStringList());
}

void RecoveryTest::aCopyOfAProcessThatHadOurNumberIsFound()
{
    const QTemporaryDir folder;
    QByteArray lock;
    {
        CRecoveryCopy copy(folder.path());
        QVERIFY(copy.Write(kProject, "left"));
        lock = Bytes(copy.File().replace(u".sbd"_s, u".lock"_s));
    }
    QVERIFY(lock.startsWith(QByteArray::number(QCoreApplication::applicationPid()) + '\n'));
    const QString file = FindRecoveryCopies(folder.path()).at(0).file;
    QFile left(QString(file).replace(u".sbd"_s, u".lock"_s));
    QVERIFY(left.open(QFile::WriteOnly));
    left.write(lock); // as a process with our number leaves it that is killed
    left.close();
    const QList<RecoveryCopy> copies = FindRecoveryCopies(folder.path());
    QCOMPARE(copies.size(), 1);
    QCOMPARE(copies[0].file, file);
}

void RecoveryTest::ourOwnCopyIsNotFound()
{
    const QTemporaryDir folder;
    CRecoveryCopy mine(folder.path());
    QVERIFY(mine.Write(kProject, "mine"));
    const QStringList before = Files(folder.path());
    for (int i = 0; i < 2; ++i)
        QVERIFY(FindRecoveryCopies(folder.path()).isEmpty());
    QCOMPARE(Files(folder.path()), before);
    mine.Discard();
}

void RecoveryTest::namesSortByTime()
{
    const QTemporaryDir folder;
    for (const char* text : {"1", "2", "3", "4"}) {
        CRecoveryCopy copy(folder.path());
        QVERIFY(copy.Write(kProject, text));
        QTest::qWait(5);
    }
    QByteArray texts;
    for (const QString& name : QDir(folder.path()).entryList({u"*.sbd"_s}, QDir::Files, QDir::Name))
        texts += Bytes(folder.filePath(name));
    QCOMPARE(texts, "1234");
}

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3 && arguments[1] == u"--session"_s)
        return Session(arguments[2]);
    RecoveryTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "recovery_test.moc"
