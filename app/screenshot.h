// A picture of the window, without a screen.
#pragma once

#include <QString>

class QSize;

namespace sbd {

class CMainFrame;

/// Shows the window in `size` (device independent pixels), laid out and ready to be drawn.
void ShowInSize(CMainFrame& frame, QSize size);

/// Draws the whole window, which must be shown, into a PNG file. Gives back what went wrong, or nothing.
[[nodiscard]] QString TakeScreenshot(CMainFrame& frame, const QString& path);

} // namespace sbd
