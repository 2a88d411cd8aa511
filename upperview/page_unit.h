// The unit of the pages in the pane above the panel.
#pragma once

namespace sbd {

/// A page is measured in 0.1 mm.
inline constexpr double kPageUnitsPerInch = 254;

} // namespace sbd
