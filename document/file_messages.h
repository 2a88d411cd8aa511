// What the user is told when a project file cannot be opened or saved.
#pragma once

#include "sbdfile/project_file.h"

#include <QString>

namespace sbd {

enum class FileOperation { Open, Save };

/// What happened, what it means for the project, and what to do. `result` must be an error.
[[nodiscard]] QString FileMessage(FileOperation operation, const QString& path, const FileResult& result);

/// The message for a file whose name does not end in ".sbd".
[[nodiscard]] QString NotAProjectMessage(const QString& path);

} // namespace sbd
