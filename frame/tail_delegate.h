// CTailDelegate: rows of a list or a tree with a text in grey behind their own.
#pragma once

#include <QHash>
#include <QStyledItemDelegate>

class QLineEdit;

namespace sbd {

/// Paints what an item has for kTailRole in grey: behind its text, or at the right edge. Rows with some air: the
/// characters of Japanese titles fill their height. Each text is measured once: a tree asks for all widths again at every
/// rebuild, several times.
class CTailDelegate : public QStyledItemDelegate {
public:
    static constexpr int kTailRole = Qt::UserRole + 100;
    static constexpr int kAlertRole = Qt::UserRole + 101; ///< true: the tail asks for something, and is no grey

    enum class Place { BehindText, RightEdge };
    explicit CTailDelegate(QObject* parent, Place place = Place::BehindText);

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    Place place_;
    mutable QFont font_;                  // that of the sizes
    mutable QHash<QString, QSize> sizes_; // by text, tail, whether it is bold and has a sign
};

/// The hint of an empty line is seen on dark ground too: not every system's palette has a colour for it.
void ShowHint(QLineEdit& line);

} // namespace sbd
