// The panels of the option blocks.
#pragma once

#include "panelmodel/panel_model.h"

#include <set>

namespace sbd {

struct OptionBlock;

/// An option block: row number, label, value. The values are the only cells that take text.
class COptionPanelModel : public CPanelModel {
public:
    COptionPanelModel(const CSbdData& data, int block, const PanelSettings& settings);

    [[nodiscard]] int ColumnCount() const override { return 3; }
    [[nodiscard]] int ColumnWidth(int column) const override;
    [[nodiscard]] int HeadHeight() const override { return 30; }
    [[nodiscard]] std::string Head(int column, int focusRow = 0) const override;
    [[nodiscard]] int BlockRows() const override { return static_cast<int>(values_.size()); }
    [[nodiscard]] int GridRows() const override { return BlockRows() + 50; }
    [[nodiscard]] int RowLines(int row) const override;
    [[nodiscard]] std::string Text(int row, int column) const override;
    [[nodiscard]] bool IsLocked(int row, int column) const override;
    [[nodiscard]] std::string WhyLocked(int row, int column) const override;
    [[nodiscard]] bool IsChanged() const override { return values_ != baseline_; }
    void TakeBaseline() override { baseline_ = values_; }
    void Commit(CProjectWriter& writer) override;

protected:
    /// Value of a row, from 1, as it stands in the grid.
    [[nodiscard]] std::string_view Value(int row) const { return values_[static_cast<std::size_t>(row) - 1]; }
    /// The text of the label column; row within the block.
    [[nodiscard]] virtual std::string Label(int row) const;

    [[nodiscard]] const WordList& DoWords(int row, int column) const override;
    /// Only values of the block's own rows: what stood in a spare row would reach nobody.
    [[nodiscard]] bool DoIsEditable(int row, int column) const override;
    CellEffect DoSetCell(int row, int column, std::string_view text) override;

private:
    const OptionBlock& rows_;
    const OptionPanel* panel_; // null: 640 and 670, which show their rows in a table panel
    const PanelTable* table_;
    std::vector<std::string> values_;
    std::vector<std::string> baseline_;
    std::set<int> dirty_; // stored rows
};

/// Block 301: heads, labels and colours follow the project's type, which stands in its own row 3.
class CDown301Model : public COptionPanelModel {
public:
    CDown301Model(const CSbdData& data, const PanelSettings& settings);

    [[nodiscard]] std::string Head(int column, int focusRow = 0) const override;
    [[nodiscard]] CellColor HeadColor(int column, int focusRow = 0) const override;
    [[nodiscard]] CellColor TextColor(int row, int column) const override;

protected:
    [[nodiscard]] std::string Label(int row) const override;
    CellEffect DoSetCell(int row, int column, std::string_view text) override;

private:
    bool boxWebsGiven_; // block 305 has rows
};

/// Block 302: for single sections its first rows are the mandatory ones.
class CDown302Model : public COptionPanelModel {
public:
    CDown302Model(const CSbdData& data, const PanelSettings& settings);

    [[nodiscard]] std::string Head(int column, int focusRow = 0) const override;
    [[nodiscard]] CellColor HeadColor(int column, int focusRow = 0) const override;
    [[nodiscard]] CellColor TextColor(int row, int column) const override;

private:
    bool sections_;
};

} // namespace sbd
