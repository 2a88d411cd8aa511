// How the display settings look in the pane above the panel.
#pragma once

#include "document/display_settings.h"

#include <QColor>
#include <QFont>

class QPainter;
class QWidget;

namespace sbd {

/// The colour behind pages and figures.
[[nodiscard]] QColor PaperColour(const DisplaySettings& display);
/// The font of the figures, measured in pixels; half of the pages' height.
[[nodiscard]] QFont FigureFont(const DisplaySettings& display);

/// Shows that a pane has the keyboard.
void DrawFocusFrame(QPainter& painter, const QWidget& pane);

} // namespace sbd
