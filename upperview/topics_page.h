// The page over an empty search line.
#pragma once

#include "upperview/page/page.h"

namespace sbd {

/// How to search, and where the input of a bridge begins, with links to the blocks.
[[nodiscard]] const Page& TopicsPage();

} // namespace sbd
