// The two values of the setting "combo or list".
#pragma once

namespace sbd {

inline constexpr int kWordLists = 1;  ///< cells offer their words in a list
inline constexpr int kPlainCells = 2; ///< words are typed

} // namespace sbd
