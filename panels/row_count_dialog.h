// The dialog that asks for a number of rows.
#pragma once

class QWidget;

namespace sbd {

/// Asks how many rows shall be added below the grid; 0 if the user gives it up.
[[nodiscard]] int AskRowCount(QWidget* parent);

} // namespace sbd
