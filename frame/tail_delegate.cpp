#include "frame/tail_delegate.h"

#include "upperview/paper.h"

#include <QApplication>
#include <QLineEdit>
#include <QPainter>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAir = 6; // px
constexpr int kGap = 8; // px, ahead of the tail
constexpr QColor kAlert(0xC0, 0x40, 0x00);

QColor Mixed(const QColor& a, const QColor& b)
{
    constexpr int share = 60; // percent of the first
    const auto mix = [](int x, int y) { return (x * share + y * (100 - share)) / 100; };
    return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

} // namespace

CTailDelegate::CTailDelegate(QObject* parent, Place place) : QStyledItemDelegate(parent), place_(place) {}

QSize CTailDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    if (option.font != font_) {
        font_ = option.font;
        sizes_.clear();
    }
    const QString tail = index.data(kTailRole).toString();
    const bool bold = index.data(Qt::FontRole).value<QFont>().bold();
    const bool marked = index.data(Qt::DecorationRole).isValid();
    QSize& size =
        sizes_[index.data().toString() + u'\n' + tail + (bold ? u"b"_s : QString()) + (marked ? u"!"_s : QString())];
    if (!size.isValid()) {
        size = QStyledItemDelegate::sizeHint(option, index) + QSize(kAir, kAir);
        if (!tail.isEmpty())
            size.rwidth() += kGap + QFontMetrics(option.font).horizontalAdvance(tail);
    }
    return size;
}

void CTailDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QString tail = index.data(kTailRole).toString();
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    const QStyle* style = item.widget == nullptr ? QApplication::style() : item.widget->style();
    QRect place = style->subElementRect(QStyle::SE_ItemViewItemText, &item, item.widget);
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, item.widget) + 1;
    const int tailWidth = QFontMetrics(option.font).horizontalAdvance(tail);
    if (place_ == Place::RightEdge && !tail.isEmpty()) { // the text makes room
        const int room = place.width() - tailWidth - kGap - 2 * margin;
        item.text = item.fontMetrics.elidedText(item.text, Qt::ElideRight, room);
    }
    style->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);
    if (tail.isEmpty())
        return;
    const bool selected = item.state.testFlag(QStyle::State_Selected);
    const QPalette::ColorGroup group =
        item.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
    const QColor ground = item.palette.color(group, selected ? QPalette::Highlight : QPalette::Base);
    const QColor ink = item.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text);
    const bool alert = index.data(kAlertRole).toBool() && !selected;
    painter->save();
    painter->setFont(option.font);
    painter->setPen(alert ? Ink(kAlert, ground) : Mixed(ink, ground));
    if (place_ == Place::RightEdge)
        place.adjust(0, 0, -margin, 0);
    else
        place.setLeft(place.left() + margin + item.fontMetrics.horizontalAdvance(item.text) + kGap);
    const Qt::Alignment side = place_ == Place::RightEdge ? Qt::AlignRight : Qt::AlignLeft;
    painter->drawText(place, static_cast<int>(Qt::AlignVCenter | side), tail);
    painter->restore();
}

void ShowHint(QLineEdit& line)
{
    QPalette palette = line.palette();
    const QColor hint =
        Mixed(palette.color(QPalette::Active, QPalette::Text), palette.color(QPalette::Active, QPalette::Base));
    if (palette.color(QPalette::Active, QPalette::PlaceholderText) == hint)
        return;
    palette.setColor(QPalette::PlaceholderText, hint);
    line.setPalette(palette);
}

} // namespace sbd
