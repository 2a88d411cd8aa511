// Values that stand in several blocks at once.
#pragma once

#include "project/project_writer.h"

namespace sbd {

/// Copies the values that follow block `block` to the other places where they stand.
void FollowLinks(CProjectWriter& writer, int block);

} // namespace sbd
