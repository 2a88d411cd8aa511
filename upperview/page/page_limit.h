// What a page says of the limits of the current row's values.
#pragma once

#include "upperview/page/page.h"

namespace sbd {

/// A line about limits. CP932.
struct LimitLine {
    std::string text;
    bool outside = false; ///< tells of a value of the current row that is outside
};

/// A line for each limit that holds, each followed by the values of the current row that are outside of it.
[[nodiscard]] std::vector<LimitLine> LimitLines(const Page& page, const PageView& view);

} // namespace sbd
