// Numbers that code names because something of their own happens there.
#pragma once

namespace sbd {

inline constexpr int kNotesBlock = 100;  ///< the page of notes; no block of the catalogue
inline constexpr int kResultBlock = 253; ///< tables and diagrams of the results
inline constexpr int kSearchBlock = 999;

} // namespace sbd
