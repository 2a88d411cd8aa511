// Private to the layouts: the tables in UTF-8.
#pragma once

#include "sbdfile/layout.h"

#include <span>
#include <string_view>

namespace sbd {

struct RawSectionLayout {
    int block;
    int leastRows;
    bool cutTrailingBlanks;
    RowRule rule;
    std::string_view header;
    std::span<const std::string_view> comments;
    std::span<const std::string_view> rowComments;
    std::span<const std::string_view> formats;
    std::string_view end;
};

[[nodiscard]] std::span<const RawSectionLayout> RawSectionLayouts();

} // namespace sbd
