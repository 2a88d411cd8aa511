// The cells of the sheet of web names.
#pragma once

#include "document/box_web.h"
#include "grid/grid_source.h"

#include <array>
#include <functional>
#include <vector>

namespace sbd {

/// Columns of the grid.
inline constexpr int kGirderColumn = 1;
inline constexpr int kLeftColumn = 2;
inline constexpr int kRightColumn = 3;

/// One row a girder: its name, which is fixed, and the names of its webs, each with the lines to choose from.
class CBoxWebSource : public CGridSource {
public:
    explicit CBoxWebSource(const BoxWebNames& names);

    [[nodiscard]] int RowCount() const override { return static_cast<int>(cells_.size()); }
    [[nodiscard]] int UsedRows() const override { return RowCount(); }
    [[nodiscard]] int ColumnCount() const override { return kRightColumn; }

    [[nodiscard]] int ColumnWidth(int column) const override;
    [[nodiscard]] int HeadHeight() const override;
    [[nodiscard]] QString Head(int column, int focusRow) const override;
    [[nodiscard]] QColor HeadColor(int column, int focusRow) const override;

    [[nodiscard]] QString RowNumber(int row) const override;
    [[nodiscard]] int RowLines(int row) const override;
    [[nodiscard]] QString Text(int row, int column) const override;
    [[nodiscard]] bool HasWords(int row, int column) const override;
    [[nodiscard]] QStringList Words(int row, int column) const override;
    [[nodiscard]] bool IsLocked(int row, int column) const override;
    [[nodiscard]] bool IsEditable(int row, int column) const override;
    [[nodiscard]] QColor TextColor(int row, int column) const override;
    [[nodiscard]] bool IsRightAligned(int row, int column) const override;
    [[nodiscard]] std::optional<QString> RefusedCharacter(const QString& text) const override;

    GridEffect SetText(int row, int column, const QString& text) override;
    GridEffect Clear(const GridRange& range) override;
    [[nodiscard]] QString Copy(const GridRange& range) const override;
    GridEffect Paste(int row, int column, const QString& text, GridRange* filled) override;
    std::optional<GridCell> Undo() override;

private:
    using Cells = std::vector<std::array<QString, kRightColumn>>;
    struct Step {
        Cells before;
        GridCell cell;
    };

    /// Changes the cells by `change` as one step to take back.
    GridEffect Change(GridCell cell, const std::function<void()>& change);
    [[nodiscard]] QString& At(int row, int column);

    Cells cells_;
    QStringList words_;
    std::vector<Step> steps_;
};

} // namespace sbd
