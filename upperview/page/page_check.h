// Checks of a page file against the tables of the program.
#pragma once

#include "upperview/page/page_parser.h"

#include <span>
#include <string_view>

namespace sbd {

/// All faults of a page file: what the parser finds, option rows without a branch, branches that never come, columns
/// and rows that the block has not, sketches that are not there or that no branch shows. `shared` are the sketches
/// that all pages may show.
[[nodiscard]] std::vector<PageFault> CheckPage(std::string_view fileName, std::string_view text,
                                               const std::map<std::string, Sketch>& shared);

} // namespace sbd
