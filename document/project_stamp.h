// Whether the file of a project is still the one that was read or written.
#pragma once

#include "project/file_access.h"

#include <QByteArray>
#include <QString>

#include <string_view>

namespace sbd {

/// What a look at a file tells without reading it.
struct FileLook {
    bool isThere = false;
    FileIdentity identity;
    std::uintmax_t size = 0;
    std::int64_t changed = 0; ///< time of the last change, in the system's own ticks
    friend bool operator==(const FileLook&, const FileLook&) = default;
};
[[nodiscard]] FileLook LookAt(const QString& path);

/// A file as it was read or written.
struct ProjectStamp {
    QString path; ///< absolute; empty: none was read or written
    FileLook look;
    QByteArray content; ///< a sum of the bytes
};

/// The stamp of a file that held `bytes`. `look` was taken before they were read, or after they were written: what
/// comes to the file in between shows as a change.
[[nodiscard]] ProjectStamp StampOfProject(const QString& path, const FileLook& look, std::string_view bytes);

/// True if there is a file at `path` and it does not hold what `stamp` says. Identity, size and time first; only if
/// these differ, the content.
[[nodiscard]] bool IsAnotherFile(const ProjectStamp& stamp, const QString& path);

} // namespace sbd
