// The user's profile: what the program remembers beside the projects.
#pragma once

#include <QSettings>
#include <QStringList>

namespace sbd {

/// The profile: an INI file of the user's own, on Windows the registry. Open it where it is used; what is written is on
/// disk when it goes. Nothing is ever told: what cannot be read has its default, what cannot be written is forgotten.
class CProfile : private QSettings {
public:
    CProfile();

    using QSettings::contains;
    using QSettings::fileName;
    using QSettings::value;

    /// Before a write to a file that is no INI file, a copy of it is kept beside it; without that copy the value is not
    /// taken.
    void setValue(const QString& key, const QVariant& value);

private:
    [[nodiscard]] bool MayWrite() const;
};

/// The projects opened or saved last, newest first; at most 20.
class CRecentFiles {
public:
    static constexpr int kMost = 20;

    [[nodiscard]] static QStringList List();
    /// Puts a path in front, and tells the desktop of it.
    static void Add(const QString& path);
    /// Takes a path off the list.
    static void Remove(const QString& path);
};

} // namespace sbd
