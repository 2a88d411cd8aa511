// The user's profile: what the program remembers beside the projects.
#pragma once

#include <QSettings>
#include <QStringList>

namespace sbd {

/// The profile, an INI file of the user's own. Open it where it is used; what is written is on disk when it goes.
class CProfile : public QSettings {
public:
    CProfile();
};

/// The projects opened or saved last, newest first; at most 20.
class CRecentFiles {
public:
    static constexpr int kMost = 20;

    [[nodiscard]] static QStringList List();
    /// Puts a path in front.
    static void Add(const QString& path);
};

} // namespace sbd
