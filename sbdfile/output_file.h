// Files that are made for others to read: tables, figures, reports.
#pragma once

#include "sbdfile/project_file.h"

namespace sbd {

/// True for the name of a project, of a file that belongs to one, or of a result of the analysis, also behind a link.
[[nodiscard]] bool IsFileOfAProject(const std::filesystem::path& path);

/// ReplaceFileBytes, but never over a file of a project: a wrong name in a dialog must not cost a bridge.
[[nodiscard]] FileResult WriteOutputFile(const std::filesystem::path& path, std::string_view bytes);

} // namespace sbd
