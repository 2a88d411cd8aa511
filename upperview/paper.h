// Colours on the paper of pages and figures, which may be dark.
#pragma once

#include <QColor>

class QPalette;

namespace sbd {

/// The paper on the screen: paper that is white because nobody has chosen another one is dark where the system is.
[[nodiscard]] QColor PaperOnScreen(const QColor& paper, const QPalette& palette);

/// A colour of lines and texts that was chosen for white paper, on `paper`: the same hue, and to be read on dark paper.
/// On light paper it is as it was.
[[nodiscard]] QColor Ink(const QColor& colour, const QColor& paper);
/// The same for surfaces, over which lines are drawn: as far from the paper as it is from white.
[[nodiscard]] QColor Surface(const QColor& colour, const QColor& paper);

/// How well one colour is seen on the other: 1 not at all, 21 black on white.
[[nodiscard]] double Contrast(const QColor& one, const QColor& other);

} // namespace sbd
