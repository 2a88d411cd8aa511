// Draws a help page.
#pragma once

#include "upperview/page/draw_recorder.h"
#include "upperview/page/page.h"

namespace sbd {

/// A place of the page that leads to another block. Page units, y upward.
struct PageLink {
    DrawBox box;
    int block = 0;
};

/// What a page says of itself once it is drawn. Page units.
struct PageExtent {
    int width = 0;
    int height = 0;
    int anchor = 1; ///< height to which the pane scrolls; 1: the top
    std::vector<PageLink> links;
};

/// The page's lines with their colours. The index is that of the line on the page.
struct ColouredLine {
    std::string text; ///< CP932
    DrawColour colour = colours::kBlack;
    int column = 0; ///< grid column that it tells of
};

/// The text of a page for a cell, title first. Empty if no branch holds.
[[nodiscard]] std::vector<ColouredLine> PageText(const Page& page, const PageView& view);

/// Draws text and sketches, then what the current column stands for once more in red.
PageExtent DrawPage(CDrawContext& dc, const Page& page, const PageView& view);

/// A sketch whose left upper corner is (left, top), y upward. Gives whether the selected cell is explained by it.
bool DrawSketch(CDrawContext& dc, const Sketch& sketch, const PageView& view, DrawPoint corner);

} // namespace sbd
