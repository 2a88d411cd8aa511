// The camber output, block 259, as it is written.
#pragma once

#include "project/sbd_data.h"

namespace sbd {

/// The rows of block 259 that are written: without the mark "-->(荷重名は無効)", rows without a load name left out.
[[nodiscard]] TableBlock CleanedCamber(const TableBlock& table);

} // namespace sbd
