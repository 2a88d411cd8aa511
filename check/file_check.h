// All that is told of a project file before it is worked with.
#pragma once

#include "check/finding.h"
#include "check/round_trip.h"
#include "compare/difference_text.h"
#include "sbdfile/reader.h"

#include <cstddef>
#include <map>
#include <string_view>
#include <vector>

namespace sbd {

class CSbdData;

/// What a load and a save would do to a file.
struct FileCheck {
    bool ownForm = false;                             ///< load and save gives the same bytes
    std::size_t firstOtherLine = 0;                   ///< first line that is written otherwise, from 1; 0: none
    std::vector<ReadNote> lost;                       ///< lines that are passed over
    std::vector<Difference> repaired;                 ///< what the repairs behind the last line change
    std::vector<Difference> unstable;                 ///< what another load would read otherwise than is held now
    bool controlBlockHeldBack = false;                ///< "<?>" in block 301: title and block would not be written
    FindingList findings;                             ///< in the order of the lines, those without one at the end
    std::map<int, std::vector<ReturnedCell>> shifted; ///< by block: the cells behind its finding "shift"
    FindingList doubts;                               ///< of what is held after the load
};

/// `names` goes with the project: the data with the names of its bridge already read.
[[nodiscard]] FileCheck CheckFile(std::string_view bytes, const CSbdData& names);

} // namespace sbd
