// The cells of a panel as the grid asks for them.
#pragma once

#include "grid/grid_source.h"
#include "panelmodel/panel_editor.h"

#include <functional>

namespace sbd {

/// Between the grid, which speaks Unicode, and the panel model, which speaks CP932.
class CPanelSource : public CGridSource {
public:
    /// The model must outlive the source.
    explicit CPanelSource(CPanelModel& model);

    [[nodiscard]] CPanelEditor& Editor() { return editor_; }

    [[nodiscard]] int RowCount() const override;
    [[nodiscard]] int UsedRows() const override;
    [[nodiscard]] int ColumnCount() const override;
    [[nodiscard]] int ColumnWidth(int column) const override;
    [[nodiscard]] int HeadHeight() const override;
    [[nodiscard]] int NameColumns() const override;
    [[nodiscard]] QString Head(int column, int focusRow) const override;
    [[nodiscard]] QColor HeadColor(int column, int focusRow) const override;
    [[nodiscard]] QString RowNumber(int row) const override;
    [[nodiscard]] QString RowTitle(int row) const override;
    [[nodiscard]] QString Unit(int row, int column) const override;
    [[nodiscard]] int RowLines(int row) const override;
    [[nodiscard]] QString Text(int row, int column) const override;
    [[nodiscard]] bool HasWords(int row, int column) const override;
    [[nodiscard]] QStringList Words(int row, int column) const override;
    [[nodiscard]] bool IsLocked(int row, int column) const override;
    [[nodiscard]] bool IsEditable(int row, int column) const override;
    [[nodiscard]] QString WhyLocked(int row, int column) const override;
    [[nodiscard]] QColor TextColor(int row, int column) const override;
    [[nodiscard]] bool IsRightAligned(int row, int column) const override;
    [[nodiscard]] std::optional<QString> RefusedCharacter(const QString& text) const override;
    [[nodiscard]] QString Folded(int row, int column, const QString& text) const override;
    [[nodiscard]] std::optional<GridRefusal> WhyNot(int row, int column, const QString& text) const override;

    GridEffect SetText(int row, int column, const QString& text) override;
    GridEffect Clear(const GridRange& range) override;
    [[nodiscard]] QString Copy(const GridRange& range) const override;
    GridEffect Paste(int row, int column, const QString& text, GridRange* filled) override;
    /// Cells with a refused character stay as they are, the others are pasted.
    [[nodiscard]] GridPaste PasteChecked(int row, int column, const QString& text) override;
    [[nodiscard]] GridPaste PasteOver(const GridRange& range, const QString& text) override;
    GridPaste Fill(const GridFill& fill) override;
    [[nodiscard]] bool CanFill() const override { return true; }
    [[nodiscard]] bool MovesRows() const override;
    std::optional<GridCell> Undo() override;
    [[nodiscard]] bool CanUndo() const override { return editor_.Done() || (canUndo && canUndo()); }

    /// Takes a step of the project back, and shows it.
    std::function<void()> undo;
    std::function<bool()> canUndo;

private:
    CPanelModel& model_;
    CPanelEditor editor_;
};

} // namespace sbd
