// The help page of a cell on a painter.
#pragma once

#include "document/display_settings.h"
#include "upperview/page/page_drawing.h"

#include <QColor>
#include <QFont>
#include <QSize>

#include <string>

class QPainter;

namespace sbd {

class CSbdData;

/// A cell and its block; row and column of the grid from 1, below 1: none.
struct HelpCell {
    int block = 0;
    int row = 0;
    int column = 0;
    std::string searchText = {}; ///< first cell of block 999; CP932
    bool topics = false;         ///< what the page of 999 has nothing to say of shows where to begin
};

/// The font that the user has set, twice its height in page units, so that it is read on the page as in the grid.
[[nodiscard]] QFont HelpFont(const DisplaySettings& display);

/// Paints the page of a cell. The painter's unit is 0.1 mm, y downward from the top of the page; `client` is the pane
/// in pixels, in whose middle sketches stand. The painter's background is the paper, which the caller paints. Draws
/// nothing for a block without a page; aliases are the caller's.
PageExtent PaintHelpPage(QPainter& painter, const CSbdData& data, const HelpCell& cell, QSize client,
                         const QFont& font);

/// What PaintHelpPage would say, without painting.
[[nodiscard]] PageExtent MeasureHelpPage(const CSbdData& data, const HelpCell& cell, QSize client, const QFont& font);

} // namespace sbd
