// The panel of block 311: girder heights.
#pragma once

#include "panelmodel/record_panel.h"

#include <array>

namespace sbd {

/// Block 311. Rows 1 to 4 hold the types of the flanges, the records follow. The types of rows 3 and 4 decide which
/// numbers a record has.
class CDown311Model : public CRecordPanelModel<HGirderRecord> {
public:
    CDown311Model(const CSbdData& data, const PanelSettings& settings);

    [[nodiscard]] int ColumnWidth(int column) const override;
    [[nodiscard]] std::string Head(int column, int focusRow = 0) const override;
    [[nodiscard]] bool IsLocked(int row, int column) const override;
    [[nodiscard]] bool IsChanged() const override;
    void TakeBaseline() override;
    void Commit(CProjectWriter& writer) override;

protected:
    [[nodiscard]] const WordList& DoWords(int row, int column) const override;
    [[nodiscard]] CellTakes Takes(int row, int column) const override;

    [[nodiscard]] std::string HeadRowText(int row, int column) const override;
    CellEffect SetHeadRowCell(int row, int column, std::string_view text) override;
    [[nodiscard]] std::string Field(const HGirderRecord& record, int column) const override;
    void SetField(HGirderRecord& record, int column, std::string_view text) const override;
    [[nodiscard]] HGirderRecord Empty() const override { return {}; }
    [[nodiscard]] HGirderRecord ToBeStored(const HGirderRecord& record) const override;
    [[nodiscard]] bool Same(const HGirderRecord& a, const HGirderRecord& b) const override;

private:
    void NameSingleSection();
    /// First number column that the types leave unused; 12: all are used.
    [[nodiscard]] int FirstUnusedColumn() const;

    std::array<std::string, 4> types_;
    std::array<std::string, 4> baselineTypes_;
    WordList flangeTypes_;
    WordList lineTypes_;
};

} // namespace sbd
