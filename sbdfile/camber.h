// The camber output, block 259, as it is written.
#pragma once

#include "project/sbd_data.h"

namespace sbd {

/// The rows of block 259 that are written: without the mark "-->(荷重名は無効)", rows without a load name left out.
/// `from`: null, or the list that takes the row of `table` for each row that is left.
[[nodiscard]] TableBlock CleanedCamber(const TableBlock& table, std::vector<int>* from = nullptr);

} // namespace sbd
