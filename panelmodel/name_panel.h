// The panels of the name lists: blocks 501 and 702.
#pragma once

#include "panelmodel/panel_model.h"
#include "project/sbd_data.h"

namespace sbd {

/// A block of name lists, one a column. Row 1 holds the switch "自動取得". Empty cells between the names close up when
/// the lists are written. The grid grows when its spare rows run out.
class CNameListModel : public CPanelModel {
public:
    CNameListModel(const CSbdData& data, int block, const PanelSettings& settings);

    [[nodiscard]] int ColumnCount() const override { return static_cast<int>(panel_.widths.size()); }
    [[nodiscard]] int ColumnWidth(int column) const override;
    [[nodiscard]] int HeadHeight() const override { return panel_.headHeight; }
    [[nodiscard]] std::string Head(int column, int focusRow = 0) const override;
    [[nodiscard]] int BlockRows() const override;
    [[nodiscard]] int GridRows() const override { return rows_; }
    [[nodiscard]] int FixedRows() const override { return 1; }
    [[nodiscard]] bool TakesRows() const override { return true; }
    bool AddRows(int count) override;
    [[nodiscard]] std::string Text(int row, int column) const override;
    [[nodiscard]] bool IsLocked(int row, int column) const override;
    [[nodiscard]] bool IsChanged() const override;
    void TakeBaseline() override;
    void Commit(CProjectWriter& writer) override;
    [[nodiscard]] LooseRows Loose() const override;
    void PutLoose(const LooseRows& loose) override;

protected:
    [[nodiscard]] const WordList& DoWords(int row, int column) const override;
    [[nodiscard]] bool DoIsEditable(int row, int column) const override;
    CellEffect DoSetCell(int row, int column, std::string_view text) override;
    void DropLastRow() override { --rows_; }

private:
    [[nodiscard]] NameLists Lists() const;

    const RecordPanel& panel_;
    NameLists cells_; // one entry a grid row from row 2 on; lists may be shorter than the grid
    NameLists baseline_;
    int rows_ = 0;
    bool dirty_ = false;
    mutable std::optional<bool> changed_ = false; // nothing: not compared since the last edit
};

} // namespace sbd
