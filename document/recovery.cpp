#include "document/recovery.h"

#include "document/path.h"
#include "document/process_lock.h"
#include "sbdfile/project_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUuid>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

// Beside each copy NAME.sbd stand NAME.origin, the project's path in UTF-8, and NAME.lock.
QString Sibling(const QString& file, QLatin1StringView suffix)
{
    return file.first(file.size() - 4) + suffix;
}

bool IsLeft(const QString& lockFile)
{
    return CProcessLock(lockFile).Take() == CProcessLock::Result::Taken;
}

/// A name that no other copy has, and that stands behind those of earlier copies.
QString NewName()
{
    constexpr int digits = 8;
    return QDateTime::currentDateTimeUtc().toString(u"yyyyMMdd-HHmmss-zzz"_s) + u'-'
           + QUuid::createUuid().toString(QUuid::Id128).first(digits);
}

} // namespace

QString StateFolder()
{
#ifdef Q_OS_WIN
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
#else
    // Qt 6.4 has no name for the state folder yet.
    QString base = qEnvironmentVariable("XDG_STATE_HOME");
    if (base.isEmpty() || !QDir::isAbsolutePath(base))
        base = QDir::homePath() + u"/.local/state"_s;
    return base + u"/sbdstation"_s;
#endif
}

QString RecoveryFolder()
{
    return StateFolder() + u"/recovery"_s;
}

CRecoveryCopy::CRecoveryCopy(const QString& folder) : folder_(folder) {}

CRecoveryCopy::~CRecoveryCopy() = default;

bool CRecoveryCopy::Prepare()
{
    if (!QDir().mkpath(folder_))
        return false;
    QFile::setPermissions(folder_, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    file_ = QDir(folder_).filePath(NewName() + u".sbd"_s);
    lock_ = std::make_unique<CProcessLock>(Sibling(file_, ".lock"_L1));
    if (lock_->Take() == CProcessLock::Result::Taken)
        return true;
    lock_.reset();
    return false;
}

bool CRecoveryCopy::Write(const QString& project, std::string_view bytes)
{
    if (!lock_ && !Prepare())
        return false;
    const QByteArray origin = project.toUtf8();
    const std::string_view originBytes(origin.constData(), static_cast<std::size_t>(origin.size()));
    if (!ReplaceFileBytes(ToPath(Sibling(file_, ".origin"_L1)), originBytes).Ok()
        || !ReplaceFileBytes(ToPath(file_), bytes).Ok())
        return false;
    written_ = true;
    return true;
}

void CRecoveryCopy::Discard()
{
    if (!lock_)
        return;
    QFile::remove(file_);
    QFile::remove(Sibling(file_, ".origin"_L1));
    lock_.reset(); // removes its own file
    written_ = false;
}

QList<RecoveryCopy> FindRecoveryCopies(const QString& folder)
{
    QList<RecoveryCopy> copies;
    for (const QFileInfo& info : QDir(folder).entryInfoList({u"*.sbd"_s}, QDir::Files)) {
        const QString file = info.absoluteFilePath();
        if (!IsLeft(Sibling(file, ".lock"_L1)))
            continue;
        QFile origin(Sibling(file, ".origin"_L1));
        const QString project = origin.open(QFile::ReadOnly) ? QString::fromUtf8(origin.readAll()) : QString();
        copies.append({file, project, info.lastModified()});
    }
    std::ranges::sort(copies, std::greater(), &RecoveryCopy::time);
    return copies;
}

void RemoveRecoveryCopy(const RecoveryCopy& copy)
{
    QFile::remove(copy.file);
    QFile::remove(Sibling(copy.file, ".origin"_L1));
    QFile::remove(Sibling(copy.file, ".lock"_L1));
}

} // namespace sbd
