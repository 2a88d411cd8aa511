// The font and the unit of the pages in the pane above the panel.
#pragma once

#include <QFont>

namespace sbd {

/// A page is measured in 0.1 mm.
inline constexpr double kPageUnitsPerInch = 254;

/// The pages' font: Japanese, of one width, so that texts align; its height in page units.
[[nodiscard]] QFont PageFont();

} // namespace sbd
