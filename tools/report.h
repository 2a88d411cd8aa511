// Differences and lost lines in words an engineer reads, and as JSON.
#pragma once

#include "sbdfile/compare.h"
#include "sbdfile/reader.h"

#include <nlohmann/json_fwd.hpp>

#include <string>
#include <string_view>

namespace sbd {

/// One line, UTF-8, as "313 垂直補剛材 6行目 6列目(幅1): 「130」→「150」".
[[nodiscard]] std::string DifferenceText(const Difference& difference);
[[nodiscard]] nlohmann::json DifferenceJson(const Difference& difference);

[[nodiscard]] std::string NoteText(const ReadNote& note);
[[nodiscard]] nlohmann::json NoteJson(const ReadNote& note);

/// What a load and a save would do to a file.
struct CheckReport {
    bool ownForm = false;              ///< load and save gives the same bytes
    std::size_t firstOtherLine = 0;    ///< first line that is written otherwise, from 1; 0: none
    std::vector<ReadNote> lost;        ///< lines that are passed over
    std::vector<Difference> repaired;  ///< what the repairs behind the last line change
    std::vector<Difference> unstable;  ///< what another load would read otherwise than is held now
    bool controlBlockHeldBack = false; ///< "<?>" in block 301: title and block would not be written
};

/// `names` goes with the project: the data with the names of its bridge already read.
[[nodiscard]] CheckReport CheckProject(std::string_view bytes, const CSbdData& names);
[[nodiscard]] std::string CheckText(const CheckReport& report);
[[nodiscard]] nlohmann::json CheckJson(const CheckReport& report);

} // namespace sbd
