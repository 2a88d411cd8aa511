// Which paths an engine can take.
#pragma once

#include <QString>

namespace sbd {

/// The first character of a project's path that an engine cannot take; empty if it can take them all. Engines read their
/// command line in CP932, between quotes. The rule is the same on all systems, so that a project can be moved.
[[nodiscard]] QString CharacterEnginesCannotTake(const QString& path);

/// What the user is told of such a path.
[[nodiscard]] QString EngineCannotTakeMessage(const QString& path, const QString& character);

} // namespace sbd
