// The sheet of all keys.
#pragma once

class QWidget;

namespace sbd {

/// A window of its own that lists the keys of all commands, by menu, and those of cells, tree, pages and figures. It
/// leaves what is under it as it is; Esc closes it.
[[nodiscard]] QWidget* MakeShortcutSheet(QWidget* parent);

} // namespace sbd
