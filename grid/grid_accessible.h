// What a screen reader is told of a grid.
#pragma once

namespace sbd {

/// From now on the grids tell screen readers of themselves as told in GridAccessible. Once is enough.
void TellScreenReaders();

} // namespace sbd
