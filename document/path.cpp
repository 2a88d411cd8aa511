#include "document/path.h"

#include <QFile>

namespace sbd {

std::filesystem::path ToPath(const QString& path)
{
#ifdef _WIN32
    return std::filesystem::path(path.toStdWString());
#else
    return std::filesystem::path(QFile::encodeName(path).toStdString());
#endif
}

} // namespace sbd
