#include "grid/grid_head.h"

#include "grid/grid_style.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace sbd {

using namespace gridstyle;

namespace {

constexpr int kMarkWidth = 10; // px

void DrawHeadGround(QPainter& painter, const QRect& rect, const Colors& colors)
{
    painter.fillRect(rect, QColor::fromRgba(colors.head));
    painter.setPen(QPen(QColor::fromRgba(colors.headLine), 0));
    painter.drawLine(rect.bottomLeft(), rect.bottomRight());
    painter.drawLine(rect.topRight(), rect.bottomRight());
}

/// The sign at the left edge, on the tint of its kind: it can be told by its shape alone.
void DrawMark(QPainter& painter, const QRect& rect, MarkKind kind, const QPalette& palette)
{
    const QRect place(rect.left(), rect.top(), kMarkWidth, rect.height() - 1);
    painter.fillRect(place, TintOf(kind, palette));
    QFont bold = painter.font();
    bold.setBold(true);
    painter.save();
    painter.setFont(bold);
    painter.setPen(SignColorOf(kind, palette));
    painter.drawText(place, int(Qt::AlignCenter | Qt::TextSingleLine), QString(QChar(LookOf(kind).sign)));
    painter.restore();
}

/// A line that is too wide for its column is drawn with narrower letters, but not so narrow that it cannot be read.
void DrawLine(QPainter& painter, const QRectF& rect, const QString& line)
{
    constexpr double narrowest = 0.6;
    const double width = painter.fontMetrics().horizontalAdvance(line);
    const double factor = width > rect.width() ? std::max(narrowest, rect.width() / width) : 1.0;
    painter.save();
    painter.translate(rect.center().x(), rect.top());
    painter.scale(factor, 1.0);
    painter.drawText(QRectF(-width / 2, 0, width, rect.height()), int(Qt::AlignCenter | Qt::TextSingleLine), line);
    painter.restore();
}

} // namespace

void DrawHead(QPainter& painter, const QRect& rect, const QString& text, const QColor& color)
{
    painter.setPen(color);
    const QStringList lines = text.split(u'\n');
    const QRectF inner = QRectF(rect).adjusted(2, 1, -2, -1);
    const double lineHeight =
        std::min(double(painter.fontMetrics().height()) + 1, inner.height() / double(lines.size()));
    double top = inner.center().y() - lineHeight * double(lines.size()) / 2;
    for (const QString& line : lines) {
        DrawLine(painter, QRectF(inner.left(), top, inner.width(), lineHeight), line);
        top += lineHeight;
    }
}

int HeadTextHeight(const QFontMetrics& metrics, const QString& text)
{
    return int(text.count(u'\n') + 1) * metrics.height() + 2;
}

CGridHead::CGridHead(Qt::Orientation orientation, QWidget* parent) : QHeaderView(orientation, parent)
{
    setSectionsClickable(true);
    setHighlightSections(false);
}

void CGridHead::SetFocusRow(int row)
{
    focusRow_ = row;
    viewport()->update();
}

/// Centred in what is seen of the column; where that is too narrow, from its visible edge on.
QRect CGridHead::TextRect(const QPainter& painter, const QRect& section, const QString& text) const
{
    constexpr int margins = 8;
    QRect seen = section & viewport()->rect();
    const int needed = painter.fontMetrics().size(0, text).width() + margins;
    if (needed >= section.width())
        return section;
    if (seen.width() >= needed)
        return seen;
    if (seen.left() > section.left())
        seen.setLeft(seen.right() - needed);
    else
        seen.setWidth(needed);
    return seen;
}

void CGridHead::paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const
{
    if (!source_ || !rect.isValid())
        return;
    painter->save();
    painter->setClipRect(rect);
    DrawHeadGround(*painter, rect, ColorsFor(palette()));
    if (orientation() == Qt::Horizontal) {
        DrawHead(*painter, TextRect(*painter, rect, source_->Head(logicalIndex + 1, focusRow_)),
                 source_->Head(logicalIndex + 1, focusRow_),
                 TextColorFor(palette(), source_->HeadColor(logicalIndex + 1, focusRow_)));
    } else {
        const auto mark = marks_ == nullptr ? std::nullopt : marks_->OfRow(logicalIndex + 1);
        if (mark)
            DrawMark(*painter, rect, *mark, palette());
        painter->setPen(TextColorFor(palette(), {}));
        const QRect inner = rect.adjusted(mark ? kMarkWidth : kPadding, 0, -kPadding - 1, -1);
        const QString number =
            painter->fontMetrics().elidedText(source_->RowNumber(logicalIndex + 1), Qt::ElideRight, inner.width());
        painter->drawText(inner, int(Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine), number);
        if (logicalIndex + 1 == focusRow_) { // the focused row is told by more than its colour
            const QPointF left(rect.left() + (mark ? kMarkWidth : 0) + 1, rect.center().y());
            const QPointF pointer[] = {left + QPointF(0, -3.5), left + QPointF(4.5, 0), left + QPointF(0, 3.5)};
            painter->setRenderHint(QPainter::Antialiasing);
            painter->setPen(Qt::NoPen);
            painter->setBrush(QColor::fromRgba(ColorsFor(palette()).focusFrame));
            painter->drawPolygon(pointer, 3);
        }
    }
    painter->restore();
}

CGridCorner::CGridCorner(QWidget* parent) : QWidget(parent) {}

void CGridCorner::SetText(const QString& text)
{
    text_ = text;
    setAccessibleName(text.simplified());
    update();
}

void CGridCorner::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    DrawHeadGround(painter, rect(), ColorsFor(palette()));
    DrawHead(painter, rect(), text_, TextColorFor(palette(), {}));
}

void CGridCorner::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        emit clicked();
}

} // namespace sbd
