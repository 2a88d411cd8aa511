// How a project is shown: colours and font of the help pane, decimals, cells of the grids.
#pragma once

#include "document/grid_layout.h"

#include <QString>

#include <cstdint>
#include <map>

namespace sbd {

/// The user's display settings as one open project has them. None of them belongs to the project file.
struct DisplaySettings {
    // Help pane. Colours are 24-bit with blue in the high byte: 0x0000FF is red.
    std::uint32_t backColor = 0xFFFFFF;
    std::uint32_t textColor = 0;
    int fontHeight = -19; ///< negative: of the characters alone, positive: of the line
    int fontCharSet = 128;
    bool fontItalic = false;
    bool fontUnderline = false;
    bool fontStrikeOut = false;
    QString fontFaceName = QStringLiteral("ＭＳ ゴシック");
    int metreDecimals = 6; ///< shown behind the point; the project file keeps its own format
    int millimetreDecimals = 1;

    // Grids.
    int rowHeight = 18;              ///< pixels
    int zoom = 100;                  ///< percent; of texts, rows and columns alike
    std::map<int, GridLayout> grids; ///< by block, where the user has changed anything

    friend bool operator==(const DisplaySettings&, const DisplaySettings&) = default;
};

} // namespace sbd
