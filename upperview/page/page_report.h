// What the pages hold, and what is wrong with how they are drawn.
#pragma once

#include "project/sbd_data.h"
#include "upperview/page/draw_recorder.h"
#include "upperview/page/page_drawing.h"

#include <string>
#include <vector>

namespace sbd {

/// Content of one page. What is counted, and how, stands in docs/add-a-help-page.md.
struct PageReport {
    int block = 0;
    bool full = false; ///< has a page file
    int branches = 0;
    int lines = 0;                ///< of all branches, without title, blank and heading
    int sketches = 0;             ///< that a branch shows
    int states = 0;               ///< of the sketches: each once, and once more for each condition on its elements
    int strings = 0;              ///< lines that are not blank, headings, labels
    std::vector<int> columns;     ///< red in a sketch
    std::vector<int> rowsWithout; ///< option rows without a branch of their own

    int unitColumns = 0;          ///< columns with a unit in the head
    std::vector<int> unexplained; ///< of these: not explained in the text of a page file, or without the unit
    std::vector<int> notRed;      ///< of these: not red in a sketch
    std::vector<int> wordsOnly;   ///< of these: offered nothing but words that are no numbers
    int optionRows = 0;
    std::vector<int> untold; ///< of these: told by no more than label, words and default
};

[[nodiscard]] PageReport ReportOf(const Page& page, int block);

/// Sums of several pages.
struct PageSum {
    int pages = 0;
    int own = 0; ///< with a page file
    int lines = 0;
    int sketches = 0;
    int states = 0;
    int strings = 0;
    int unitColumns = 0;
    int explained = 0;
    int red = 0;
    int wordsOnly = 0;
    int optionRows = 0;
    int told = 0;

    PageSum& operator+=(const PageReport& report);
};

/// Per cent, cut to whole ones; 100 of nothing.
[[nodiscard]] int PercentOf(int part, int whole);

/// Projects in which a page takes its forms: one at its defaults, one with all cells of the block filled, and for each
/// condition of the page one in which it holds, as far as a value can be put in for it.
[[nodiscard]] std::vector<CSbdData> FormsOf(const Page& page, int block);

/// Labels that overlap, that a line crosses, or that leave the page; one text each, UTF-8. Crossings
/// are looked for on request alone: a break line may well run behind a label. A red label over its black self is no fault.
[[nodiscard]] std::vector<std::string> LabelFaults(const CDrawRecorder& recorder, const PageExtent& extent,
                                                   bool crossings);

} // namespace sbd
