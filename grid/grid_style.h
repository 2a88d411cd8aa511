// Font, colours and sizes of the grid.
#pragma once

#include <QColor>
#include <QFont>

namespace sbd::gridstyle {

inline constexpr QRgb kCell = 0xFFFFFFE0;
inline constexpr QRgb kLocked = 0xFFB4B4B4;
inline constexpr QRgb kLabelBesideFocus = 0xFFC6C6C6; ///< first column while the focus is in another row
inline constexpr QRgb kFocusRow = 0xFF00B400;         ///< the focused row but for the focused cell
inline constexpr QRgb kText = 0xFF000000;
inline constexpr QRgb kLine = 0xFFD2D2C4;
inline constexpr QRgb kHead = 0xFFECECEC;
inline constexpr QRgb kHeadLine = 0xFFB9B9B9;
inline constexpr QRgb kFocusFrame = 0xFF1B4F9C;
inline constexpr QRgb kSelected = 0x503A78D8; ///< laid over the cells of a selected range

inline constexpr int kRowHeight = 18;
inline constexpr int kPadding = 3; ///< between a cell's edge and its text
inline constexpr int kButtonWidth = 16;

/// The fixed-pitch Japanese font in which the cells align.
[[nodiscard]] QFont GridFont();

} // namespace sbd::gridstyle
