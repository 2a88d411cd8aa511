// Bringing cells of an earlier state of a project back.
#pragma once

#include "compare/compare.h"

#include <span>

namespace sbd {

/// The project `now` with those differences taken back that were chosen out of CompareProjects(before, now). Rows of a
/// table come and go one by one. Records (311, 324, 325), name lists (501, 702) and the sections that are not known
/// come back as a whole: what one of their rows says hangs together with the others.
[[nodiscard]] CSbdData WithTakenBack(const CSbdData& now, const CSbdData& before, std::span<const Difference> chosen);

/// True for a difference that comes back together with all others of its block.
[[nodiscard]] bool ComesBackWithItsBlock(const Difference& difference);

} // namespace sbd
