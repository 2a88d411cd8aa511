// What the program tells of itself.
#pragma once

#include <QString>

namespace sbd {

/// Versions and licences. Where their full text stands is told if it can be found from the folder of the program.
[[nodiscard]] QString AboutText(const QString& systemVersion, const QString& programVersion,
                                const QString& programFolder);

} // namespace sbd
