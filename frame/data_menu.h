// The data input menu: which entries stand in it, in which groups.
#pragma once

#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace sbd {

/// A submenu of the data input menu, or entries that stand in the menu itself.
struct DataMenuPart {
    std::string_view title;                  ///< UTF-8, in the form of a block's title; empty: no submenu
    std::vector<std::pair<int, int>> ranges; ///< blocks from, to; those without menu text have no entry
};

[[nodiscard]] std::span<const DataMenuPart> DataMenuParts();

} // namespace sbd
