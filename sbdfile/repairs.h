// The repairs behind the last line of a project file.
#pragma once

namespace sbd {

class CSbdData;

/// Puts a freshly read project in order: name lists, automatic rows, and the values that one block copies to another.
void RepairAfterRead(CSbdData& data);

/// The beam names again: those of the *.abd file and behind them those of block 501.
void RefreshSwayNames(CSbdData& data);

} // namespace sbd
