#include "grid/grid_model.h"

namespace sbd {

CGridModel::CGridModel(QObject* parent) : QAbstractTableModel(parent) {}

void CGridModel::SetSource(CGridSource* source)
{
    beginResetModel();
    source_ = source;
    rows_ = source != nullptr ? source->RowCount() : 0;
    columns_ = source != nullptr ? source->ColumnCount() : 0;
    endResetModel();
}

void CGridModel::SetMarks(MarkSource source, std::vector<CellMark> marks)
{
    if (!marks_.Set(source, std::move(marks)) || rows_ == 0 || columns_ == 0)
        return;
    emit dataChanged(index(0, 0), index(rows_ - 1, columns_ - 1), {Qt::ToolTipRole, Qt::AccessibleDescriptionRole});
    emit headerDataChanged(Qt::Vertical, 0, rows_ - 1);
}

void CGridModel::Show(GridEffect effect, GridCell cell)
{
    if (effect == GridEffect::None || source_ == nullptr)
        return;
    if (effect == GridEffect::Cell) {
        const QModelIndex changed = IndexOf(cell);
        emit dataChanged(changed, changed);
        return;
    }
    const int rows = source_->RowCount();
    if (rows > rows_) {
        beginInsertRows({}, rows_, rows - 1);
        rows_ = rows;
        endInsertRows();
    }
    if (rows < rows_) {
        beginRemoveRows({}, rows, rows_ - 1);
        rows_ = rows;
        endRemoveRows();
    }
    if (rows_ > 0 && columns_ > 0) {
        emit dataChanged(index(0, 0), index(rows_ - 1, columns_ - 1));
        emit headerDataChanged(Qt::Horizontal, 0, columns_ - 1);
    }
}

int CGridModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : rows_;
}

int CGridModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : columns_;
}

QVariant CGridModel::data(const QModelIndex& index, int role) const
{
    if (source_ == nullptr || !index.isValid())
        return {};
    const GridCell cell = CellOf(index);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return source_->Text(cell.row, cell.column);
    case Qt::AccessibleDescriptionRole: {
        const QString told = marks_.ToolTip(cell.row, cell.column);
        const QString description = source_->Description(cell.row, cell.column);
        return told.isEmpty() ? description : description + u'、' + told;
    }
    case Qt::ToolTipRole:
        return marks_.ToolTip(cell.row, cell.column);
    case Qt::TextAlignmentRole:
        return int(Qt::AlignVCenter
                   | (source_->IsRightAligned(cell.row, cell.column) ? Qt::AlignRight : Qt::AlignLeft));
    default:
        return {};
    }
}

QVariant CGridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (source_ != nullptr && orientation == Qt::Vertical && role == Qt::ToolTipRole)
        return marks_.RowToolTip(section + 1);
    if (source_ == nullptr || (role != Qt::DisplayRole && role != Qt::AccessibleTextRole))
        return {};
    if (orientation == Qt::Vertical)
        return source_->RowNumber(section + 1);
    const QString head = source_->Head(section + 1, 0);
    return role == Qt::DisplayRole ? head : HeadOnOneLine(head);
}

Qt::ItemFlags CGridModel::flags(const QModelIndex& index) const
{
    if (source_ == nullptr || !index.isValid())
        return Qt::NoItemFlags;
    const GridCell cell = CellOf(index);
    const Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
    return source_->IsEditable(cell.row, cell.column) ? flags | Qt::ItemIsEditable : flags;
}

} // namespace sbd
