// Font, colours and sizes of the grid.
#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

namespace sbd::gridstyle {

/// The colours of a grid. Each says one thing; in a row of colours no two are alike.
struct Colors {
    QRgb cell;
    QRgb locked;
    QRgb labelBesideFocus; ///< first column while the focus is in another row
    QRgb focusRow;         ///< the focused row but for the focused cell
    QRgb text;
    QRgb line;
    QRgb head;
    QRgb headLine;
    QRgb focusFrame;
    QRgb selected;           ///< laid over the cells of a selected range
    QRgb selectedInFocusRow; ///< the same in the focused row
    QRgb frozenBorder;       ///< behind the columns that stay in sight
};

inline constexpr Colors kLight{0xFFFFFFE0, 0xFFB4B4B4, 0xFFC6C6C6, 0xFF00B400, 0xFF000000, 0xFFD2D2C4,
                               0xFFECECEC, 0xFFB9B9B9, 0xFF1B4F9C, 0x503A78D8, 0xB0B4E0FF, 0xFF707070};
inline constexpr Colors kDark{0xFF24241C, 0xFF464646, 0xFF343434, 0xFF006400, 0xFFEDEDED, 0xFF5C5C54,
                              0xFF323232, 0xFF5E5E5E, 0xFF7DB4FF, 0x705A96FF, 0x904A86FF, 0xFFA0A0A0};

/// True for the palette of a dark desktop.
[[nodiscard]] bool IsDark(const QPalette& palette);
/// The colours that go with a palette.
[[nodiscard]] const Colors& ColorsFor(const QPalette& palette);
/// A colour of a text, for the grounds of the palette: on dark ones red stays a red, blue a blue, light enough to be
/// read; an invalid one is that of all texts.
[[nodiscard]] QColor TextColorFor(const QPalette& palette, const QColor& color);

inline constexpr int kRowHeight = 18;
inline constexpr int kPadding = 3; ///< between a cell's edge and its text
inline constexpr int kButtonWidth = 16;
inline constexpr int kFrozenBorder = 2; ///< behind the columns that stay in sight

/// The fixed-pitch Japanese font in which the cells align.
[[nodiscard]] QFont GridFont();

} // namespace sbd::gridstyle
