// Draws the cells of a grid and makes their editors.
#pragma once

#include <QStyledItemDelegate>

namespace sbd {

class CGridCtrl;

class CGridDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    explicit CGridDelegate(CGridCtrl& grid);

    /// Where the button of a cell with a list stands.
    [[nodiscard]] static QRect ButtonRect(const QRect& cell);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    friend class CGridCtrl;

    [[nodiscard]] QColor Ground(const QModelIndex& index) const;
    [[nodiscard]] bool HasButton(const QModelIndex& index) const;
    [[nodiscard]] QRect TextRect(const QRect& cell, const QModelIndex& index) const;
    bool HandleKey(QWidget* editor, QKeyEvent* event);
    void FinishInRange(QWidget* editor);
    /// Takes the editor's text and moves the focus by (rows, columns).
    void Finish(QWidget* editor, int rows, int columns);

    CGridCtrl& grid_;
};

} // namespace sbd
