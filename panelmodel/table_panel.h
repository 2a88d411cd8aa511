// The panels of the table blocks.
#pragma once

#include "panelmodel/row_panel.h"
#include "project/sbd_data.h"

namespace sbd {

/// A table block. Row 1 is the block's automatic row where it has one; a row with an empty first cell is not written.
class CTablePanelModel : public CRowPanelModel {
public:
    CTablePanelModel(const CSbdData& data, int block, const PanelSettings& settings);

    [[nodiscard]] int ColumnCount() const override { return static_cast<int>(panel_.columns.size()); }
    [[nodiscard]] int ColumnWidth(int column) const override;
    [[nodiscard]] int HeadHeight() const override { return panel_.headHeight; }
    [[nodiscard]] int NameColumns() const override;
    [[nodiscard]] std::string Head(int column, int focusRow = 0) const override;
    [[nodiscard]] std::string RowNumber(int row) const override;
    [[nodiscard]] std::string Text(int row, int column) const override;
    [[nodiscard]] bool IsLocked(int row, int column) const override;
    [[nodiscard]] CellColor TextColor(int row, int column) const override;
    [[nodiscard]] bool IsRightAligned(int row, int column) const override;

protected:
    [[nodiscard]] bool IsAutomaticRow(int row) const { return row <= panel_.automaticRows; }
    /// The text as it stands in the working copy, seen or not.
    [[nodiscard]] std::string_view Cell(int row, int column) const;
    /// True for a cell that other cells make meaningless: it is shown locked and empty, and written empty.
    [[nodiscard]] virtual bool IsMasked(int row, int column) const;
    /// Marks the entries whose masked cells hold text.
    void TouchMasked();

    [[nodiscard]] const WordList& DoWords(int row, int column) const override;
    [[nodiscard]] bool DoIsEditable(int row, int column) const override;
    CellEffect DoSetCell(int row, int column, std::string_view text) override;

    [[nodiscard]] int EntryCount() const override { return static_cast<int>(cells_.RowCount()); }
    void AppendEmptyEntries(int count) override;
    void MoveEntry(int from, int to) override;
    void ClearEntry(int entry) override;
    [[nodiscard]] bool IsKept(int entry) const override;
    [[nodiscard]] bool SameAsBaseline(int entry, int baseline) const override;
    void CopyToBaseline() override;
    void Store(CProjectWriter& writer, int entry, int storedRow) override;
    void InsertStored(CProjectWriter& writer, int entry, int storedRow) override;
    void EraseStored(CProjectWriter& writer, int storedRow) override;
    void StoreAll(CProjectWriter& writer, const std::vector<int>& entries) override;

public:
    void Commit(CProjectWriter& writer) override;

private:
    void ResolveColumns(CListNames& names);
    [[nodiscard]] std::string_view ToBeStored(int entry, std::size_t column) const;
    [[nodiscard]] bool AddAutomaticRows();
    [[nodiscard]] bool PutFixedTexts();

    const PanelTable& panel_;
    TableBlock cells_;
    TableBlock baseline_;
    std::vector<WordList> words_; // of the data rows, by column
};

} // namespace sbd
