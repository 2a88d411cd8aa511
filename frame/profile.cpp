#include "frame/profile.h"

#include <QFileInfo>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

const auto kRecentFilesKey = u"Recent File List/Files"_s;

/// Case counts in the names of files, but not on Windows.
#ifdef _WIN32
constexpr Qt::CaseSensitivity kPathCase = Qt::CaseInsensitive;
#else
constexpr Qt::CaseSensitivity kPathCase = Qt::CaseSensitive;
#endif

} // namespace

CProfile::CProfile() : QSettings(QSettings::IniFormat, QSettings::UserScope, u"KELD"_s, u"KELD section"_s) {}

QStringList CRecentFiles::List()
{
    return CProfile().value(kRecentFilesKey).toStringList().mid(0, kMost);
}

void CRecentFiles::Add(const QString& path)
{
    const QString full = QFileInfo(path).absoluteFilePath();
    QStringList files = List();
    files.removeIf([&](const QString& file) { return file.compare(full, kPathCase) == 0; });
    files.prepend(full);
    CProfile().setValue(kRecentFilesKey, QStringList(files.mid(0, kMost)));
}

} // namespace sbd
