// The item model between a grid source and Qt's table view.
#pragma once

#include "grid/cell_marks.h"
#include "grid/grid_source.h"

#include <QAbstractTableModel>

namespace sbd {

/// Reads through a CGridSource; holds nothing but the number of rows it has told the view.
class CGridModel : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit CGridModel(QObject* parent = nullptr);

    /// The source must live as long as it is set. Null: an empty grid.
    void SetSource(CGridSource* source);
    [[nodiscard]] CGridSource* Source() const { return source_; }
    void SetMarks(MarkSource source, std::vector<CellMark> marks);
    [[nodiscard]] const CCellMarks& Marks() const { return marks_; }
    /// Tells the view what an edit did.
    void Show(GridEffect effect, GridCell cell);

    [[nodiscard]] static GridCell CellOf(const QModelIndex& index) { return {index.row() + 1, index.column() + 1}; }
    [[nodiscard]] QModelIndex IndexOf(GridCell cell) const { return index(cell.row - 1, cell.column - 1); }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    CGridSource* source_ = nullptr;
    CCellMarks marks_;
    int rows_ = 0;
    int columns_ = 0;
};

} // namespace sbd
