#include "frame/desktop_recent.h"

#include <QDir>
#include <QFileInfo>

#ifdef Q_OS_WIN
#include <shlobj.h>
#include <windows.h>
#endif

namespace sbd {

void TellDesktopOfProject([[maybe_unused]] const QString& path)
{
#ifdef Q_OS_WIN
    const QString full = QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath());
    SHAddToRecentDocs(SHARD_PATHW, full.utf16()); // the shell looks at the file later, and by itself
#endif
}

} // namespace sbd
