// The panels of blocks 321 and 322: places of joints and sections.
#pragma once

#include "panelmodel/table_panel.h"

namespace sbd {

/// Blocks 321 and 322: row 2 says how a place is told, by length or by the stiffener behind a cross beam. That decides
/// what the columns from 5 on mean.
class CPlacePanelModel : public CTablePanelModel {
public:
    CPlacePanelModel(const CSbdData& data, int block, const PanelSettings& settings);

    [[nodiscard]] bool IsRightAligned(int row, int column) const override;

protected:
    [[nodiscard]] bool IsMasked(int row, int column) const override;
    [[nodiscard]] const WordList& DoWords(int row, int column) const override;
    CellEffect DoSetCell(int row, int column, std::string_view text) override;

private:
    [[nodiscard]] bool ByLength() const;

    WordList beams_;
    WordList methods_;
};

} // namespace sbd
