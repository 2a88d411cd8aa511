// The desktop's own list of documents.
#pragma once

#include <QString>

namespace sbd {

/// Tells the desktop that the user has opened or saved a project. Windows lists it with the program in the task bar and
/// in the start menu, as far as the program is registered for *.sbd. Elsewhere nothing happens: the list of Linux
/// desktops is one file that all programs rewrite as a whole, with no lock among them.
void TellDesktopOfProject(const QString& path);

} // namespace sbd
