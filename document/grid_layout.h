// How the user wants the grid of a block: its first columns held, widths of columns.
#pragma once

#include <QString>

#include <map>
#include <optional>

namespace sbd {

/// What differs from the grid as it is at first.
struct GridLayout {
    std::optional<int> frozen;  ///< the first columns that stay in sight; none: as at first
    std::map<int, int> widened; ///< by column: pixels by which it is wider (or narrower) than at first, at zoom 100
    friend bool operator==(const GridLayout&, const GridLayout&) = default;
};

/// As one line for the profile: "4 1:20 9:-300", "-" for columns held as at first; empty: nothing differs.
[[nodiscard]] QString GridLayoutLine(const GridLayout& layout);
/// Words that are none of a layout are passed over; numbers are limited to what a screen can show.
[[nodiscard]] GridLayout GridLayoutOf(const QString& line);

} // namespace sbd
