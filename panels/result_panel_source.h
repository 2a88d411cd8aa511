// The cells of the result panel.
#pragma once

#include "grid/grid_source.h"
#include "results/result_table.h"

#include <QHash>

#include <map>
#include <string>
#include <vector>

namespace sbd {

/// The table of results as the grid asks for it. What the user types, pastes or deletes stands over the table until it is
/// filled anew; it never reaches the results.
class CResultSource : public CGridSource {
public:
    /// `widening`: pixels by which each column is wider than its base. `widths`: those that the user has given, by WidthKey.
    CResultSource(int widening, const std::map<std::string, int>& widths) : widening_(widening), widths_(widths) {}

    /// What a column is, whatever columns stand before it: its kind and its head.
    [[nodiscard]] std::string WidthKey(int column) const;

    void SetTable(CResultTable table);
    [[nodiscard]] const CResultTable& Table() const { return table_; }

    [[nodiscard]] int RowCount() const override;
    [[nodiscard]] int UsedRows() const override;
    [[nodiscard]] int ColumnCount() const override;
    [[nodiscard]] int ColumnWidth(int column) const override;
    [[nodiscard]] int HeadHeight() const override;
    [[nodiscard]] QString Head(int column, int focusRow) const override;
    [[nodiscard]] QColor HeadColor(int, int) const override { return {}; }
    [[nodiscard]] QString RowNumber(int row) const override { return QString::number(row); }
    [[nodiscard]] int RowLines(int) const override { return 1; }
    /// Without the blanks in front of a value, so that other programs take it for a number.
    [[nodiscard]] QString Text(int row, int column) const override;
    [[nodiscard]] bool HasWords(int, int) const override { return false; }
    [[nodiscard]] QStringList Words(int, int) const override { return {}; }
    /// The extremes, whose ground is that of locked cells.
    [[nodiscard]] bool IsLocked(int row, int column) const override;
    [[nodiscard]] bool IsEditable(int row, int column) const override { return !IsLocked(row, column); }
    [[nodiscard]] QColor TextColor(int row, int column) const override;
    [[nodiscard]] bool IsRightAligned(int row, int column) const override;
    [[nodiscard]] std::optional<QString> RefusedCharacter(const QString&) const override { return std::nullopt; }

    GridEffect SetText(int row, int column, const QString& text) override;
    GridEffect Clear(const GridRange& range) override;
    [[nodiscard]] QString Copy(const GridRange& range) const override;
    GridEffect Paste(int row, int column, const QString& text, GridRange* filled) override;
    std::optional<GridCell> Undo() override;
    [[nodiscard]] bool CanUndo() const override { return !steps_.empty(); }

private:
    using Cell = std::pair<int, int>; ///< row and column
    /// What a command has put over cells: the texts that stood over them before, if any did.
    struct Step {
        GridCell at;
        std::vector<std::pair<Cell, std::optional<QString>>> before;
    };

    void Begin(GridCell at);
    /// Part of the step that was begun last.
    void Put(Cell cell, const QString& text);

    CResultTable table_;
    int widening_;
    const std::map<std::string, int>& widths_;
    QHash<Cell, QString> edits_;
    std::vector<Step> steps_;
};

} // namespace sbd
