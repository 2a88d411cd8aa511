// Commands of sbdpage that draw the figures of the analysis and print its tables: figure, diagram, sheets and table.
#pragma once

#include <QStringList>

#include <optional>

namespace sbd {

/// Runs `sbdpage figure ...`, or one of the others, and gives its exit code: 0 done, 1 nothing to draw, 2 a wrong call
/// or a file that could not be read or written. Nothing if `arguments`, the program's name in front, call neither.
[[nodiscard]] std::optional<int> RunFigureCommand(const QStringList& arguments);

} // namespace sbd
