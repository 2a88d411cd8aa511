// Commands of sbdpage that draw the bridge from its input: elevation, section and plan.
#pragma once

#include <QStringList>

#include <optional>

namespace sbd {

/// Runs `sbdpage elevation ...`, `sbdpage section ...` or `sbdpage plan ...` and gives its exit code: 0 done, 1 nothing
/// to draw, 2 a wrong call or a file that could not be read or written. Nothing if `arguments`, the program's name in
/// front, call none of them.
[[nodiscard]] std::optional<int> RunDrawingCommand(const QStringList& arguments);

} // namespace sbd
