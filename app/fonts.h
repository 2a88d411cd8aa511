// Fonts that hold Japanese.
#pragma once

namespace sbd {

/// Puts fonts in place that show Japanese: for "ＭＳ ゴシック" where the platform has none, and for the windows.
void SetUpFonts();

} // namespace sbd
