// The pages by what they are about, and what must at least be there.
#pragma once

#include <span>
#include <string_view>

namespace sbd {

/// Blocks with numbers from `first` to `last`. The rest are floors: a family that falls below one fails the tests.
struct PageFamily {
    int first;
    int last;
    std::string_view name; ///< UTF-8
    int ownPages;          ///< pages with a file
    int explained;         ///< per cent of the columns with a unit, explained in the text with it
    int red;               ///< per cent of the columns with a unit, red in a sketch
    int told;              ///< per cent of the option rows, told by more than label and default
};

/// In order of number; together they hold every block with a page.
[[nodiscard]] std::span<const PageFamily> PageFamilies();
/// The family of a block; null if none has it.
[[nodiscard]] const PageFamily* FamilyOf(int block);

} // namespace sbd
