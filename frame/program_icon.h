// The program's icon.
#pragma once

#include <QIcon>

namespace sbd {

/// A plate girder seen from its end.
[[nodiscard]] QIcon ProgramIcon();

} // namespace sbd
