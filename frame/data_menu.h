// The data input menu: its groups, and the entries that stand in none.
#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace sbd {

/// A submenu of the data input menu, or entries that stand in the menu itself.
struct DataMenuPart {
    int group;               ///< number of the submenu, as the rows of the catalogue name it; 0: no submenu
    std::string_view title;  ///< UTF-8, in the form of a block's title
    std::vector<int> blocks; ///< in the order of the menu; those without menu text have no entry
};

[[nodiscard]] std::span<const DataMenuPart> DataMenuParts();

} // namespace sbd
