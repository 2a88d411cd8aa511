// The panels of blocks 324 and 325: cross ribs and longitudinal ribs of box girders.
#pragma once

#include "panelmodel/record_panel.h"

namespace sbd {

/// What 324 and 325 share: row 1 shows the switch of block 301 that they follow.
template <typename Record>
class CRibPanelModel : public CRecordPanelModel<Record> {
public:
    [[nodiscard]] int ColumnWidth(int column) const override;
    [[nodiscard]] std::string Head(int column, int focusRow = 0) const override;
    [[nodiscard]] bool IsLocked(int row, int column) const override;
    [[nodiscard]] CellColor TextColor(int row, int column) const override;
    [[nodiscard]] bool IsChanged() const override;
    void TakeBaseline() override;
    void Commit(CProjectWriter& writer) override;

protected:
    /// `texts`: the cells of row 1 from column 3 on. `limits`: least row width modes of the last columns.
    CRibPanelModel(const CSbdData& data, int block, const PanelSettings& settings, const std::vector<Record>& stored,
                   WordList texts, std::vector<int> limits);

    [[nodiscard]] const WordList& DoWords(int row, int column) const override;
    [[nodiscard]] bool DoIsEditable(int row, int column) const override;
    [[nodiscard]] std::string HeadRowText(int row, int column) const override;
    CellEffect SetHeadRowCell(int row, int column, std::string_view text) override;

private:
    int optionRow_;         // of block 301, from 1
    std::string automatic_; // its value
    std::string baselineAutomatic_;
    WordList texts_;
    WordList automaticWords_;
    std::vector<int> limits_;
};

/// Block 324. Lengths in mm, spacings in m.
class CDown324Model : public CRibPanelModel<CrossRibRecord> {
public:
    CDown324Model(const CSbdData& data, const PanelSettings& settings);

protected:
    [[nodiscard]] std::string Field(const CrossRibRecord& record, int column) const override;
    void SetField(CrossRibRecord& record, int column, std::string_view text) const override;
    [[nodiscard]] CellTakes Takes(int row, int column) const override;
    [[nodiscard]] bool RulesOthers(int column) const override;
    [[nodiscard]] CrossRibRecord Empty() const override;
    void Unfold(CrossRibRecord& record) const override;
    [[nodiscard]] CrossRibRecord ToBeStored(const CrossRibRecord& record) const override;
};

/// Block 325. Spacings in mm.
class CDown325Model : public CRibPanelModel<LRibRecord> {
public:
    CDown325Model(const CSbdData& data, const PanelSettings& settings);

protected:
    [[nodiscard]] std::string Field(const LRibRecord& record, int column) const override;
    void SetField(LRibRecord& record, int column, std::string_view text) const override;
    [[nodiscard]] CellTakes Takes(int row, int column) const override;
    [[nodiscard]] bool RulesOthers(int column) const override;
    [[nodiscard]] LRibRecord Empty() const override;
    void Unfold(LRibRecord& record) const override;
    [[nodiscard]] LRibRecord ToBeStored(const LRibRecord& record) const override;
};

} // namespace sbd
