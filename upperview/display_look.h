// How the display settings look in the pane above the panel.
#pragma once

#include "document/display_settings.h"

#include <QColor>
#include <QFont>

namespace sbd {

/// The colour behind pages and figures.
[[nodiscard]] QColor PaperColour(const DisplaySettings& display);
/// A colour of the pages as it can be read on a ground: on a dark one it becomes lighter, on any other it stays.
[[nodiscard]] QColor ReadableOn(const QColor& ground, const QColor& colour);
/// The same for what is filled: it stays darker than the letters on it.
[[nodiscard]] QColor FillOn(const QColor& ground, const QColor& colour);
/// Contrast of two colours, from 1 (none) to 21 (black on white).
[[nodiscard]] double ContrastOf(const QColor& a, const QColor& b);

/// The font of the figures, measured in pixels; half of the pages' height.
[[nodiscard]] QFont FigureFont(const DisplaySettings& display);

} // namespace sbd
