// sbdpage book: the input of a project as a PDF.
#pragma once

#include <QStringList>

#include <optional>

namespace sbd {

/// Runs the command if it is this one and gives its exit code.
[[nodiscard]] std::optional<int> RunBookCommand(const QStringList& arguments);

} // namespace sbd
