// The general drawing of a bridge on one sheet: plan, elevation and sections in a frame, with a title block.
#pragma once

#include "drawing/bridge_drawing.h"
#include "drawing/girder_line.h"
#include "project/sbd_data.h"
#include "results/records.h"

#include <QFont>
#include <QSizeF>
#include <QString>

#include <array>
#include <vector>

class QPainter;

namespace sbd {

struct GeneralDrawing {
    BridgeDrawing plan;
    BridgeDrawing elevation;
    std::vector<BridgeDrawing> sections;        ///< side by side
    std::vector<std::array<QString, 2>> titles; ///< rows of the title block: what, its text
};

/// What is put on the sheet, as numbers among the names of the bridge.
struct GeneralChoice {
    std::size_t girder = 0;
    GirderSide side = GirderSide::Left;
    bool camber = false;
    std::vector<std::size_t> stations; ///< empty: the first cross line, and the one in the middle of the bridge
};

[[nodiscard]] GeneralDrawing MakeGeneralDrawing(const CSbdData& data, const AnalysisResults& results,
                                                const GeneralChoice& choice, const QString& project);

/// The drawings as rows of a file in true measure: plan, elevation, and the sections side by side.
[[nodiscard]] std::vector<std::vector<const BridgeDrawing*>> RowsOf(const GeneralDrawing& drawing);

/// A3 lying, in units of 0.1 mm.
inline constexpr QSizeF kSheetUnits{4200, 2970};

/// Paints the sheet on a painter whose unit is 0.1 mm, y downward from the upper left corner of the paper.
void PaintGeneralDrawing(QPainter& painter, QSizeF units, const QFont& font, const GeneralDrawing& drawing);

} // namespace sbd
