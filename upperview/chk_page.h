// The page of the blocks 254, 255 and 256: the report of the last run.
#pragma once

#include "document/engine_command.h"

#include <QColor>
#include <QRectF>
#include <QSizeF>
#include <QString>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

class QFontMetricsF;
class QPainter;

namespace sbd {

/// True for 254, 255 and 256.
[[nodiscard]] constexpr bool IsChkBlock(int block)
{
    return block >= 254 && block <= 256;
}

/// The report of a project: FOLDER\NAME.sbd has FOLDER\NAME_計算結果\NAME.CHK. Folders are divided by "\" or "/", in a
/// path from the root of a system without "\" by "/" alone; the report's path uses what the project's uses.
[[nodiscard]] QString ChkPath(const QString& projectPath);

/// The report is older than the project, to the second, or the document is modified. A file that is not there counts
/// as very old.
[[nodiscard]] bool IsChkStale(const QString& projectPath, bool modified);

/// A report as it is shown.
struct ChkText {
    bool opened = false;
    bool cut = false;               ///< more than can be shown stands behind the last line
    std::vector<std::string> lines; ///< CP932, without line ends
};

/// Reads a report while others may write to it; at most the first 2 MB and 100,000 lines.
[[nodiscard]] ChkText ReadChkText(const QString& chkPath);
[[nodiscard]] ChkText SplitChkText(std::string_view bytes);

/// What the page is made of.
struct ChkPage {
    int block = 255;
    bool hasPath = false;
    bool stale = false;
    ChkText text;
    std::string lastRun = {}; ///< how the last run has ended, CP932; empty: not known
};

/// One text of the page. It hangs from the point (x, y - steps * line step); 0.1 mm, y upward.
struct ChkLine {
    std::string text;       ///< CP932
    unsigned colour = 0xFF; ///< blue in the high byte: 0xFF is red
    int x = 100;
    int y = -10;
    int steps = 0;
    friend bool operator==(const ChkLine&, const ChkLine&) = default;
};

[[nodiscard]] std::vector<ChkLine> ChkPageLines(const ChkPage& page);

/// Height of the text and twice the leading: how far a line stands below the one before.
[[nodiscard]] double ChkLineStep(const QFontMetricsF& metrics);

/// Width and height that the lines take up from (0, 0) in the units of `metrics`.
[[nodiscard]] QSizeF ChkPageSize(const std::vector<ChkLine>& lines, const QFontMetricsF& metrics);

/// Paints the lines in the painter's font. The painter's unit is 0.1 mm, its y grows downward from the top of the page.
/// Only what touches `visible` is painted.
void PaintChkPage(QPainter& painter, const std::vector<ChkLine>& lines, const QRectF& visible);

/// The lines whose place is within `top` and `bottom` (0.1 mm from the top of the page): from the first to behind the last.
/// The lines stand below each other in their order.
struct ChkRange {
    std::size_t first = 0;
    std::size_t end = 0;
};
[[nodiscard]] ChkRange ChkLinesWithin(const std::vector<ChkLine>& lines, double top, double bottom,
                                      const QFontMetricsF& metrics);

/// Where the text of a line stands, blanks around it left out; y grows downward from the top of the page.
[[nodiscard]] QRectF ChkTextRect(const ChkLine& line, const QFontMetricsF& metrics);

/// The line of the report that a line of the page shows, from 0; nothing for what the page adds by itself.
[[nodiscard]] std::optional<std::size_t> ReportLineOf(const ChkLine& line, const ChkText& text);

/// A run that a repaint of the page asks for.
struct WantedRun {
    EngineRun run = EngineRun::Main;
    QString question; ///< asked before, with OK and cancel; OK saves the project. Empty: the run starts at once
    friend bool operator==(const WantedRun&, const WantedRun&) = default;
};

/// The run of a page, after a double click in the tree has set `runOnShow`. Without a report there is none, and a check
/// is not repeated while its report is fresh.
[[nodiscard]] std::optional<WantedRun> RunToPost(int block, bool runOnShow, bool stale, bool chkExists);

} // namespace sbd
