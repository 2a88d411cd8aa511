// What a project file says that the reader does not take as its writer meant it.
#pragma once

#include "check/finding.h"

#include <string_view>

namespace sbd {

class CSbdData;

/// What was found, and how much of it makes sense to go on with.
struct FileFindings {
    FindingList findings; ///< in the order of the lines
    bool isProject = true;
    bool isForeign = false; ///< the text as a whole stands in another encoding
};

/// Reads the sections of `bytes` into `data` (see ReadSections) and tells what was not understood.
[[nodiscard]] FileFindings ReadWithFindings(std::string_view bytes, CSbdData& data);

} // namespace sbd
