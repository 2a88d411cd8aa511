// What the pages hold, and what is wrong with how they are drawn.
#pragma once

#include "upperview/page/draw_recorder.h"
#include "upperview/page/page_drawing.h"

#include <string>
#include <vector>

namespace sbd {

/// Content of one page.
struct PageReport {
    int block = 0;
    bool full = false; ///< has a page file
    int branches = 0;
    int lines = 0;                ///< of all branches, without title, blank and heading
    int sketches = 0;             ///< of the page itself
    std::vector<int> columns;     ///< explained by a sketch
    std::vector<int> rowsWithout; ///< option rows without a branch of their own
};

[[nodiscard]] PageReport ReportOf(int block);

/// Labels that overlap, that a line crosses, or that leave the page; one text each, UTF-8. Crossings
/// are looked for on request alone: a break line may well run behind a label. A red label over its black self is no fault.
[[nodiscard]] std::vector<std::string> LabelFaults(const CDrawRecorder& recorder, const PageExtent& extent,
                                                   bool crossings);

} // namespace sbd
