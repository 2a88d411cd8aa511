// A picture of the window, without a screen.
#pragma once

#include <QString>

class QSize;

namespace sbd {

class CMainFrame;

/// Draws the whole window in `size` (device independent pixels) into a PNG file.
/// Gives back what went wrong, or nothing.
[[nodiscard]] QString TakeScreenshot(CMainFrame& frame, QSize size, const QString& path);

} // namespace sbd
