// Private to the file functions: the system's error numbers as FileError.
#pragma once

#include "sbdfile/project_file.h"

namespace sbd {

/// By an errno value.
[[nodiscard]] FileResult ErrorOfCode(int code);

#ifdef _WIN32
/// By a value of GetLastError.
[[nodiscard]] FileResult ErrorOfSystem(unsigned long error);
#endif

} // namespace sbd
