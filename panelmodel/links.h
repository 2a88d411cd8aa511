// Values that stand in several blocks at once.
#pragma once

#include "panelmodel/panel_model.h"

namespace sbd {

/// Copies the values that follow block `block` to the other places where they stand. Returns what became different.
[[nodiscard]] std::vector<ChangedRow> ApplyLinks(CSbdData& data, int block);

/// Sets row `optionRow` (from 1) of block 301 and the automatic rows of the table blocks that go with it.
[[nodiscard]] std::vector<ChangedRow> LinkAutomaticValue(CSbdData& data, int optionRow, std::string_view value);

} // namespace sbd
