#include "frame/profile.h"

#include "frame/desktop_recent.h"

#include <QFileInfo>
#include <QStringDecoder>

#include <algorithm>
#include <optional>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

const auto kRecentFilesKey = u"Recent File List/Files"_s;
constexpr int kMostCopies = 99;

/// Case counts in the names of files, but not on Windows. There the profile is in the registry, unless a test has made
/// INI files the default.
#ifdef _WIN32
constexpr Qt::CaseSensitivity kPathCase = Qt::CaseInsensitive;
QSettings::Format ProfileFormat()
{
    return QSettings::defaultFormat();
}
#else
constexpr Qt::CaseSensitivity kPathCase = Qt::CaseSensitive;
QSettings::Format ProfileFormat()
{
    return QSettings::IniFormat;
}
#endif

/// The bytes of a file; nothing if it cannot be read.
std::optional<QByteArray> BytesOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return file.readAll();
}

/// True for lines of the kinds that INI files have. Not asked of QSettings, which forgets that a file was broken as soon
/// as another object has read it.
bool IsIni(const QByteArray& bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(bytes);
    if (decoder.hasError() || text.contains(u'\0'))
        return false;
    const auto lines = QStringView(text).split(u'\n');
    return std::ranges::all_of(lines, [](QStringView line) {
        line = line.trimmed();
        const bool section = line.startsWith(u'[') && line.endsWith(u']');
        return line.isEmpty() || line.startsWith(u';') || line.startsWith(u'#') || section || line.indexOf(u'=') > 0;
    });
}

/// Keeps a copy of a file beside it, once. False if there is no room for it.
bool KeepCopy(const QString& path, const QByteArray& bytes)
{
    const QFileInfo file(path);
    for (int number = 1; number <= kMostCopies; ++number) {
        const QString copy =
            u"%1/%2.broken-%3.%4"_s.arg(file.path(), file.completeBaseName()).arg(number).arg(file.suffix());
        if (!QFileInfo::exists(copy))
            return QFile::copy(path, copy);
        if (BytesOf(copy) == bytes)
            return true;
    }
    return false;
}

QStringList ListWithout(const QString& path)
{
    const QString full = QFileInfo(path).absoluteFilePath();
    QStringList files = CRecentFiles::List();
    files.removeIf([&](const QString& file) { return file.compare(full, kPathCase) == 0; });
    return files;
}

} // namespace

CProfile::CProfile() : QSettings(ProfileFormat(), QSettings::UserScope, u"KELD"_s, u"KELD section"_s) {}

void CProfile::setValue(const QString& key, const QVariant& value)
{
    if (MayWrite())
        QSettings::setValue(key, value);
}

bool CProfile::MayWrite() const
{
    if (format() != QSettings::IniFormat || !QFileInfo::exists(fileName()))
        return true;
    const std::optional<QByteArray> bytes = BytesOf(fileName());
    return bytes && (IsIni(*bytes) || KeepCopy(fileName(), *bytes));
}

void CRecentFiles::Remove(const QString& path)
{
    const QStringList files = ListWithout(path);
    if (files.size() < List().size())
        CProfile().setValue(kRecentFilesKey, files);
}

QStringList CRecentFiles::List()
{
    return CProfile().value(kRecentFilesKey).toStringList().mid(0, kMost);
}

void CRecentFiles::Add(const QString& path)
{
    QStringList files = ListWithout(path);
    files.prepend(QFileInfo(path).absoluteFilePath());
    CProfile().setValue(kRecentFilesKey, QStringList(files.mid(0, kMost)));
    TellDesktopOfProject(path);
}

} // namespace sbd
