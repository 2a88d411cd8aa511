#include "document/analysis_mutex.h"
#include "document/project_lock.h"
#include "other_process.h"
#include "sbdfile/project_file.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

/// The other process: holds a file, or the analysis mutex of a folder.
int Hold(const QString& what, const QString& path)
{
    if (what == u"--hold"_s) {
        CProjectLock lock;
        OtherProcess::Say(lock.Take(path) ? "held" : "refused");
        OtherProcess::WaitForEnd();
    } else {
        const CAnalysisMutex mutex(path);
        OtherProcess::Say(mutex.Existed() ? "existed" : "new");
        OtherProcess::WaitForEnd();
    }
    return 0;
}

struct Project {
    QTemporaryDir folder;
    QString path = folder.filePath(u"橋.sbd"_s);

    Project()
    {
        QFile file(path);
        if (file.open(QFile::WriteOnly))
            file.write("TITLE:A\r\n");
    }
};

} // namespace

class ProjectLockTest : public QObject {
    Q_OBJECT

private slots:
    void aHeldFileIsSeenAndNotTakenTwice();
    void aReleasedFileIsFree();
    void takingAnotherFileLetsTheFirstGo();
    void aMissingFileIsNotFound();
    void aFolderCannotBeTaken();
    void aPipeCannotBeTakenAndKeepsNobodyWaiting();
    void aHeldFileCanStillBeRead();
    void aReplacedFileIsFreeUntilItIsTakenAgain();
    void aSecondProcessCannotTakeAHeldFile();
    void theLockGoesWithAKilledProcess();
    void theLockDoesNotOutliveItsOwnerInAChild();

    void theMutexStandsAsLongAsOneHolderLives();
    void theMutexIsSeenByAnotherProcess();
    void theMutexGoesWithAKilledProcess();
    void withoutItsFolderTheMutexHindersNobody();
};

void ProjectLockTest::aHeldFileIsSeenAndNotTakenTwice()
{
    const Project project;
    CProjectLock first;
    CProjectLock second;
    QVERIFY(!first.IsHeld());
    QVERIFY(first.Take(project.path));
    QVERIFY(first.IsHeld());
    QCOMPARE(CProjectLock::Look(project.path), CProjectLock::State::Held);
    QVERIFY(!second.Take(project.path));
    QVERIFY(!second.IsHeld());
    QVERIFY(first.Take(project.path)); // its own hold is no hindrance
}

void ProjectLockTest::aReleasedFileIsFree()
{
    const Project project;
    CProjectLock lock;
    QVERIFY(lock.Take(project.path));
    lock.Release();
    QVERIFY(!lock.IsHeld());
    QCOMPARE(CProjectLock::Look(project.path), CProjectLock::State::Free);
    lock.Release();
    {
        CProjectLock shortLived;
        QVERIFY(shortLived.Take(project.path));
    }
    QVERIFY(lock.Take(project.path));
}

void ProjectLockTest::takingAnotherFileLetsTheFirstGo()
{
    const Project project;
    const Project other;
    CProjectLock lock;
    QVERIFY(lock.Take(project.path));
    QVERIFY(lock.Take(other.path));
    QCOMPARE(CProjectLock::Look(project.path), CProjectLock::State::Free);
    QVERIFY(!lock.Take(other.folder.filePath(u"no.sbd"_s)));
    QCOMPARE(CProjectLock::Look(other.path), CProjectLock::State::Free);
}

void ProjectLockTest::aMissingFileIsNotFound()
{
    const Project project;
    QCOMPARE(CProjectLock::Look(project.folder.filePath(u"no.sbd"_s)), CProjectLock::State::NotFound);
    QCOMPARE(CProjectLock::Look(project.folder.filePath(u"no folder/no.sbd"_s)), CProjectLock::State::NotFound);
    QCOMPARE(CProjectLock::Look(project.path + u"/no.sbd"_s), CProjectLock::State::NotFound);
    QVERIFY(!QFile::exists(project.folder.filePath(u"no.sbd"_s)));
}

void ProjectLockTest::aFolderCannotBeTaken()
{
    const Project project;
    QCOMPARE(CProjectLock::Look(project.folder.path()), CProjectLock::State::Failed);
}

void ProjectLockTest::aPipeCannotBeTakenAndKeepsNobodyWaiting()
{
#ifdef Q_OS_UNIX
    const Project project;
    const QString pipe = project.folder.filePath(u"pipe.sbd"_s);
    QCOMPARE(QProcess::execute(u"mkfifo"_s, {pipe}), 0);
    QCOMPARE(CProjectLock::Look(pipe), CProjectLock::State::Failed);
#endif
}

void ProjectLockTest::aHeldFileCanStillBeRead()
{
    const Project project;
    CProjectLock lock;
    QVERIFY(lock.Take(project.path));
    QFile file(project.path);
    QVERIFY(file.open(QFile::ReadOnly));
    QCOMPARE(file.readAll(), "TITLE:A\r\n");
}

void ProjectLockTest::aReplacedFileIsFreeUntilItIsTakenAgain()
{
#ifdef Q_OS_UNIX
    const Project project;
    CProjectLock lock;
    QVERIFY(lock.Take(project.path));
    QVERIFY(ReplaceFile(QFile::encodeName(project.path).toStdString(), "TITLE:B\r\n").Ok());
    QCOMPARE(CProjectLock::Look(project.path), CProjectLock::State::Free);
    QVERIFY(lock.Take(project.path));
    QCOMPARE(CProjectLock::Look(project.path), CProjectLock::State::Held);
#endif
}

void ProjectLockTest::aSecondProcessCannotTakeAHeldFile()
{
    const Project project;
    CProjectLock lock;
    QVERIFY(lock.Take(project.path));
    QCOMPARE(OtherProcess({u"--hold"_s, project.path}).Word(), u"refused"_s);
    lock.Release();
    OtherProcess other({u"--hold"_s, project.path});
    QCOMPARE(other.Word(), u"held"_s);
    QCOMPARE(CProjectLock::Look(project.path), CProjectLock::State::Held);
    QVERIFY(!lock.Take(project.path));
    other.End();
    QVERIFY(lock.Take(project.path));
}

void ProjectLockTest::theLockGoesWithAKilledProcess()
{
    const Project project;
    OtherProcess other({u"--hold"_s, project.path});
    QCOMPARE(other.Word(), u"held"_s);
    QCOMPARE(CProjectLock::Look(project.path), CProjectLock::State::Held);
    other.Kill();
    QCOMPARE(CProjectLock::Look(project.path), CProjectLock::State::Free);
}

void ProjectLockTest::theLockDoesNotOutliveItsOwnerInAChild()
{
    const Project project;
    CProjectLock lock;
    QVERIFY(lock.Take(project.path));
    const OtherProcess child({u"--mutex"_s, project.folder.path()}); // started while the lock is held
    QCOMPARE(child.Word(), u"new"_s);
    lock.Release();
    QCOMPARE(CProjectLock::Look(project.path), CProjectLock::State::Free);
}

void ProjectLockTest::theMutexStandsAsLongAsOneHolderLives()
{
    const QTemporaryDir folder;
    auto first = std::make_unique<CAnalysisMutex>(folder.path());
    QVERIFY(!first->Existed());
    auto second = std::make_unique<CAnalysisMutex>(folder.path());
    QVERIFY(second->Existed());
    first.reset();
    QVERIFY(CAnalysisMutex(folder.path()).Existed()); // the second goes on holding it
    second.reset();
    QVERIFY(!CAnalysisMutex(folder.path()).Existed());
}

void ProjectLockTest::theMutexIsSeenByAnotherProcess()
{
    const QTemporaryDir folder;
    const CAnalysisMutex mutex(folder.path());
    QCOMPARE(OtherProcess({u"--mutex"_s, folder.path()}).Word(), u"existed"_s);
}

void ProjectLockTest::theMutexGoesWithAKilledProcess()
{
    const QTemporaryDir folder;
    OtherProcess other({u"--mutex"_s, folder.path()});
    QCOMPARE(other.Word(), u"new"_s);
    QVERIFY(CAnalysisMutex(folder.path()).Existed());
    other.Kill();
    QVERIFY(!CAnalysisMutex(folder.path()).Existed());
}

void ProjectLockTest::withoutItsFolderTheMutexHindersNobody()
{
    const QTemporaryDir folder;
    QVERIFY(!CAnalysisMutex(folder.filePath(u"no folder"_s)).Existed());
}

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3 && arguments[1].startsWith(u"--"_s))
        return Hold(arguments[1], arguments[2]);
    ProjectLockTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "project_lock_test.moc"
