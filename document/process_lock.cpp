#include "document/process_lock.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QSysInfo>

namespace sbd {

namespace {

/// The lock files that this process holds. Locks are taken by the one thread that has the windows.
QSet<QString>& HeldHere()
{
    static QSet<QString> files;
    return files;
}

} // namespace

CProcessLock::CProcessLock(const QString& file) : file_(QFileInfo(file).absoluteFilePath()), lock_(file_)
{
    lock_.setStaleLockTime(0); // by the life of the process, not by age
}

CProcessLock::~CProcessLock()
{
    if (lock_.isLocked())
        HeldHere().remove(file_);
}

CProcessLock::Result CProcessLock::Take()
{
    // What is removed here is held by nobody: as long as its process lives, the system does not let go of the file.
    if (!lock_.tryLock()
        && !(lock_.error() == QLockFile::LockFailedError && IsOfAnEarlierProcess() && lock_.removeStaleLockFile()
             && lock_.tryLock()))
        return lock_.error() == QLockFile::LockFailedError ? Result::Held : Result::Failed;
    HeldHere().insert(file_);
    return Result::Taken;
}

/// True for a file that says it is ours and is not: it is of a process of this machine that had our number before us.
bool CProcessLock::IsOfAnEarlierProcess() const
{
    QFile file(file_);
    if (HeldHere().contains(file_) || !file.open(QFile::ReadOnly))
        return false;
    // One a line: process number, program, host, number of the machine where it has one.
    constexpr qint64 longest = 4096;
    const QList<QByteArray> lines = file.read(longest).split('\n');
    if (lines.size() < 3 || lines[0].toLongLong() != QCoreApplication::applicationPid())
        return false;
    const QByteArray machine = lines.value(3);
    return lines[2] == QSysInfo::machineHostName().toUtf8()
           || (!machine.isEmpty() && machine == QSysInfo::machineUniqueId());
}

} // namespace sbd
