// Doubts that show when the bridge is drawn: what its drawings leave out because of a cell.
#pragma once

#include "check/finding.h"
#include "results/records.h"

namespace sbd {

class CSbdData;

/// Is this block drawn at all?
[[nodiscard]] bool IsDrawn(int block);

/// What the elevations of all girders and the plan leave out, by block, row and column. Lengths are judged only where they
/// are known, and what the drawings alone do not show is not told. A bridge beyond all size is judged in part.
[[nodiscard]] FindingList DrawingDoubts(const CSbdData& data, const AnalysisResults& results);

} // namespace sbd
