#include "document/analysis_mutex.h"
#include "document/project_lock.h"
#include "other_process.h"
#include "sbdfile/project_file.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <memory>
#include <thread>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

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

#ifdef Q_OS_WIN
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// What another program is told that opens a file.
DWORD ErrorOfOpening(const std::wstring& name, DWORD access, DWORD sharing)
{
    const HANDLE file = CreateFileW(name.c_str(), access, sharing, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return GetLastError();
    CloseHandle(file);
    return ERROR_SUCCESS;
}
#endif

} // namespace

class ProjectLockTest : public QObject {
    Q_OBJECT

private slots:
    void aHeldFileIsSeenAndNotTakenTwice();
    void aReleasedFileIsFree();
    void whatIsHeldAMomentOnlyIsTakenAfterIt();
    void takingAnotherFileLetsTheFirstGo();
    void aMissingFileIsNotFound();
    void aFolderCannotBeTaken();
    void aPipeCannotBeTakenAndKeepsNobodyWaiting();
    void aHeldFileCanStillBeRead();
    void aReplacedFileIsFreeUntilItIsTakenAgain();
    void aSecondProcessCannotTakeAHeldFile();
    void theLockGoesWithAKilledProcess();
    void theLockDoesNotOutliveItsOwnerInAChild();
    void whileItIsHeldOtherProgramsReadAndDoNotWrite();
    void aProgramThatKeepsAFileForItselfIsSeen();
    void whoMayNotWriteTakesNoLockButSeesOne();
    void aPathOfMoreThan260CharactersIsHeld();

    void theMutexStandsAsLongAsOneHolderLives();
    void theMutexIsSeenByAnotherProcess();
    void theMutexGoesWithAKilledProcess();
    void aProgramThatKeepsTheMutexToItselfIsNotWaitedFor();
    void withoutItsFolderTheMutexHindersNobody();
    void theMutexHasTheNameThatOtherProgramsUse();
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

void ProjectLockTest::whatIsHeldAMomentOnlyIsTakenAfterIt()
{
    // Somebody who looks holds the file for that moment: two starts at once, a virus scanner.
    const Project project;
    const auto glance = [&project] {
        auto lock = std::make_unique<CProjectLock>();
        if (!lock->Take(project.path))
            qFatal("the file is not free at first");
        return std::jthread([lock = std::move(lock)]() mutable {
            QThread::msleep(CProjectLock::kGlance / 4);
            lock.reset();
        });
    };
    CProjectLock ours;
    {
        const std::jthread other = glance();
        QVERIFY2(ours.Take(project.path), "a glance of somebody else has kept us from our file");
    }
    ours.Release();
    {
        const std::jthread other = glance();
        QCOMPARE(CProjectLock::Look(project.path), CProjectLock::State::Held);
        QCOMPARE(CProjectLock::LookPatiently(project.path), CProjectLock::State::Free);
    }
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
    QVERIFY(ReplaceFileBytes(QFile::encodeName(project.path).toStdString(), "TITLE:B\r\n").Ok());
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

void ProjectLockTest::whileItIsHeldOtherProgramsReadAndDoNotWrite()
{
#ifdef Q_OS_WIN
    const Project project;
    CProjectLock lock;
    QVERIFY(lock.Take(project.path));
    const std::wstring name = project.path.toStdWString();
    QCOMPARE(ErrorOfOpening(name, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE), DWORD{ERROR_SUCCESS});
    QCOMPARE(ErrorOfOpening(name, GENERIC_WRITE, kShareAll), DWORD{ERROR_SHARING_VIOLATION});
    QCOMPARE(ErrorOfOpening(name, DELETE, kShareAll), DWORD{ERROR_SHARING_VIOLATION});
    QVERIFY(!QFile::remove(project.path));
    QVERIFY(!QFile::rename(project.path, project.folder.filePath(u"away.sbd"_s)));
    lock.Release();
    QCOMPARE(ErrorOfOpening(name, GENERIC_WRITE, kShareAll), DWORD{ERROR_SUCCESS});
#endif
}

void ProjectLockTest::aProgramThatKeepsAFileForItselfIsSeen()
{
#ifdef Q_OS_WIN
    const Project project;
    const std::wstring name = project.path.toStdWString();
    for (const DWORD sharing : {DWORD{0}, DWORD{FILE_SHARE_READ}, DWORD{FILE_SHARE_WRITE}}) {
        const HANDLE editor =
            CreateFileW(name.c_str(), GENERIC_READ | GENERIC_WRITE, sharing, nullptr, OPEN_EXISTING, 0, nullptr);
        QVERIFY(editor != INVALID_HANDLE_VALUE);
        QCOMPARE(CProjectLock::Look(project.path), CProjectLock::State::Held);
        CloseHandle(editor);
    }
    QCOMPARE(CProjectLock::Look(project.path), CProjectLock::State::Free);
#endif
}

void ProjectLockTest::whoMayNotWriteTakesNoLockButSeesOne()
{
#ifdef Q_OS_WIN
    const Project project;
    const std::wstring name = project.path.toStdWString();
    QVERIFY(SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_READONLY));
    if (ErrorOfOpening(name, GENERIC_WRITE, kShareAll) == ERROR_SUCCESS)
        QSKIP("this user may write everything");
    CProjectLock lock;
    QVERIFY(!lock.Take(project.path));
    QCOMPARE(CProjectLock::Look(project.path), CProjectLock::State::Failed);
    const HANDLE editor = CreateFileW(name.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    QVERIFY(editor != INVALID_HANDLE_VALUE);
    QCOMPARE(CProjectLock::Look(project.path), CProjectLock::State::Held);
    CloseHandle(editor);
    QVERIFY(SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_NORMAL));
#endif
}

void ProjectLockTest::aPathOfMoreThan260CharactersIsHeld()
{
    const Project project;
    QString folder = project.folder.path();
    while (folder.size() < 400)
        folder += u'/' + QString(80, u'd');
    QVERIFY(QDir().mkpath(folder));
    const QString path = folder + u"/橋.sbd"_s;
    QCOMPARE(CProjectLock::Look(path), CProjectLock::State::NotFound);
    QVERIFY(QFile::copy(project.path, path));
    CProjectLock lock;
    QVERIFY(lock.Take(path));
    QCOMPARE(CProjectLock::Look(path), CProjectLock::State::Held);
    QCOMPARE(OtherProcess({u"--hold"_s, path}).Word(), u"refused"_s);
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

void ProjectLockTest::aProgramThatKeepsTheMutexToItselfIsNotWaitedFor()
{
#ifdef Q_OS_UNIX
    const QTemporaryDir folder;
    {
        const CAnalysisMutex mutex(folder.path()); // makes the file
    }
    const QStringList files = QDir(folder.path()).entryList(QDir::Files);
    QCOMPARE(files.size(), 1);
    const int file = ::open(QFile::encodeName(folder.filePath(files[0])).constData(), O_RDWR | O_CLOEXEC);
    QVERIFY(file >= 0 && ::flock(file, LOCK_EX | LOCK_NB) == 0);
    QElapsedTimer clock;
    clock.start();
    QVERIFY(CAnalysisMutex(folder.path()).Existed()); // waits for ever if it waits
    QVERIFY2(clock.elapsed() < 2000, qPrintable(QString::number(clock.elapsed())));
    ::close(file);
    QVERIFY(!CAnalysisMutex(folder.path()).Existed());
#endif
}

void ProjectLockTest::withoutItsFolderTheMutexHindersNobody()
{
    const QTemporaryDir folder;
    QVERIFY(!CAnalysisMutex(folder.filePath(u"no folder"_s)).Existed());
}

void ProjectLockTest::theMutexHasTheNameThatOtherProgramsUse()
{
#ifdef Q_OS_WIN
    const HANDLE analysis =
        CreateMutexA(nullptr, FALSE, "0x48a72353,0x76f4,0x4be7,0x9a,0x77,0x23,0xa0,0x6d,0xa7,0x51,0x81");
    QVERIFY(analysis != nullptr && GetLastError() != ERROR_ALREADY_EXISTS);
    QVERIFY(CAnalysisMutex().Existed());
    CloseHandle(analysis);
    QVERIFY(!CAnalysisMutex().Existed());
#endif
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
