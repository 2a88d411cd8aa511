// Paths between the windows and the files.
#pragma once

#include <QString>

#include <filesystem>

namespace sbd {

/// A path as the file system takes it.
[[nodiscard]] std::filesystem::path ToPath(const QString& path);

} // namespace sbd
