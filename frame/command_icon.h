// The icons of commands.
#pragma once

#include <QIcon>

namespace sbd {

/// The drawing of a name (CommandRow::icon) in the colours of the program's palette as it is when the icon is painted:
/// sharp in menus and tool bars at screen scales of 100 to 300 % (SBD_ICON_SIZES), scaled from the next larger size
/// elsewhere. A name without a drawing gives a null icon.
[[nodiscard]] QIcon CommandIcon(const QString& name);

} // namespace sbd
