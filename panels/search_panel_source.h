// The cells of the search panel: the search line, and the rows that it found.
#pragma once

#include "grid/grid_source.h"

#include <functional>
#include <vector>

class QFontMetrics;

namespace sbd {

struct SearchEntry;

/// One row below the search line.
struct SearchRow {
    QString text;
    const SearchEntry* entry = nullptr; ///< null in a title
};

/// Row 1 is the search line; nothing else takes text. The number of rows never changes, so that an editor that is open in
/// the line stays: the panel hides the rows that hold nothing.
class CSearchPanelSource : public CGridSource {
public:
    /// `mostRows`: rows that a search can give at most. `lists`: the search line has its list of ready-made searches.
    CSearchPanelSource(int block, int mostRows, int rowWidthMode, bool lists);

    /// Called when the line was set through the grid.
    std::function<void()> onLine;

    [[nodiscard]] const QString& Line() const { return line_; }
    void SetLine(const QString& line) { line_ = line; }
    /// Keeps the line as it is now for Undo.
    void KeepLine();
    void SetRows(std::vector<SearchRow> rows);
    /// Breaks long rows where they reach `width` pixels.
    void Wrap(const QFontMetrics& metrics, int width);
    /// The row's entry; null for other rows.
    [[nodiscard]] const SearchEntry* Entry(int row) const;
    /// Rows on show.
    [[nodiscard]] int ShownRows() const { return static_cast<int>(rows_.size()) + 1; }

    [[nodiscard]] int RowCount() const override { return rowCount_; }
    [[nodiscard]] int UsedRows() const override { return ShownRows(); }
    [[nodiscard]] int ColumnCount() const override { return 1; }
    [[nodiscard]] int ColumnWidth(int column) const override;
    [[nodiscard]] int HeadHeight() const override;
    [[nodiscard]] QString Head(int column, int focusRow) const override;
    [[nodiscard]] QColor HeadColor(int, int) const override { return {}; }
    [[nodiscard]] QString RowNumber(int row) const override { return QString::number(row); }
    [[nodiscard]] int RowLines(int row) const override;
    [[nodiscard]] QString Text(int row, int column) const override;
    [[nodiscard]] bool HasWords(int row, int column) const override;
    [[nodiscard]] QStringList Words(int row, int column) const override;
    [[nodiscard]] bool IsLocked(int, int) const override { return false; }
    [[nodiscard]] bool IsEditable(int row, int column) const override;
    [[nodiscard]] QColor TextColor(int row, int column) const override;
    [[nodiscard]] bool IsRightAligned(int, int) const override { return false; }
    [[nodiscard]] std::optional<QString> RefusedCharacter(const QString&) const override { return std::nullopt; }

    GridEffect SetText(int row, int column, const QString& text) override;
    GridEffect Clear(const GridRange& range) override;
    [[nodiscard]] QString Copy(const GridRange& range) const override;
    GridEffect Paste(int row, int column, const QString& text, GridRange* filled) override;
    std::optional<GridCell> Undo() override;
    [[nodiscard]] bool CanUndo() const override;

private:
    [[nodiscard]] const SearchRow* RowAt(int row) const;

    int block_;
    int rowCount_;
    int rowWidthMode_;
    bool lists_;
    QString line_;
    QStringList earlierLines_;
    std::vector<SearchRow> rows_;
    std::vector<QString> wrapped_; // one a row
};

} // namespace sbd
