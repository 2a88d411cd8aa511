// One run of the program.
#pragma once

namespace sbd {

class CMainFrame;
struct StartOptions;

/// Exit codes.
inline constexpr int kExitDone = 0;
inline constexpr int kExitNothingOpened = 1; ///< none of the projects named could be opened in the window
inline constexpr int kExitFailed = 2;

/// Goes to the block and the cell that the command line names, the keyboard with them.
void ShowCell(CMainFrame& frame, const StartOptions& options);

/// Does what the command line asks for; in the window's case until it is closed. Messages of a run without a window
/// go to the error output. Needs a QApplication.
[[nodiscard]] int RunStation(const StartOptions& options);

} // namespace sbd
