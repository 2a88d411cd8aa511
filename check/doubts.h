// Doubts: what in a project may be a mistake, though nothing of it gets lost.
#pragma once

#include "check/finding.h"

#include <set>

namespace sbd {

class CSbdData;

/// The kinds of doubts that a user has switched off.
using SilentKinds = std::set<FindingKind>;

/// The doubts of a whole project, by block.
[[nodiscard]] FindingList Doubts(const CSbdData& data, const SilentKinds& silent = {});

/// Those of one block.
void AddDoubts(const CSbdData& data, int block, const SilentKinds& silent, FindingList& doubts);

/// The blocks that may be judged otherwise when `block` has changed, itself included, ascending.
[[nodiscard]] std::vector<int> BlocksJudgedWith(int block);

} // namespace sbd
