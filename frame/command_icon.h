// The icons of commands.
#pragma once

#include <QIcon>

namespace sbd {

/// The drawing of a name (CommandRow::icon) in the colours of the program's palette as it is when the icon is painted,
/// sharp at every size and pixel ratio. A name without a drawing gives a null icon.
[[nodiscard]] QIcon CommandIcon(const QString& name);

} // namespace sbd
