// What several panels have in common.
#pragma once

#include "project/panel_columns.h"

#include <algorithm>

namespace sbd {

/// Pixels that a column keeps, however narrow it is made.
inline constexpr int kLeastWidth = 10;
/// Rows of the grid behind those of the block.
inline constexpr int kSpareRows = 50;
/// The value of a row whose first cell says what it is.
inline constexpr int kValueColumn = 2;

/// A cell without a word list.
inline const WordList kFreeText;

[[nodiscard]] inline const WordList& YesNo()
{
    static const WordList words{"YES", "NO"};
    return words;
}

/// The width of a column that the user's setting widens, in pixels.
[[nodiscard]] constexpr int WidenedWidth(int base, int widening)
{
    return std::max(kLeastWidth, base + widening);
}

} // namespace sbd
