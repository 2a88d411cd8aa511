// How many things the tables hold. A table grows on purpose or by mistake: whoever adds to one raises its total here, and
// nowhere else. tests/project/expected_totals_test.cpp compares.
#pragma once

#include <cstddef>

namespace sbd::expected {

inline constexpr std::size_t kCatalogueRows = 241;
inline constexpr std::size_t kCommandPairs = 235; ///< the other rows' commands stand in the menu alone
inline constexpr std::size_t kOptionBlocks = 19;
inline constexpr std::size_t kOptionRows = 601;
inline constexpr std::size_t kTableBlocks = 181;      ///< read by the generic reader
inline constexpr std::size_t kOwnTableBlocks = 20;    ///< with a reader of their own
inline constexpr std::size_t kTablePanels = 198;      ///< option blocks 640 and 670 included
inline constexpr std::size_t kNamedTablePanels = 136; ///< with the file's name for each column
inline constexpr std::size_t kPageTitles = 216;
inline constexpr std::size_t kTreeRows = 259; ///< of a whole bridge

} // namespace sbd::expected
