#include "grid/grid_head.h"

#include "grid/grid_style.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cstdlib>

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
    connect(this, &QHeaderView::sectionResized, this, [this](int section) {
        if (pressed_) // by hand, not by a command
            pulledSection_ = section;
    });
}

void CGridHead::SetFocusRow(int row)
{
    focusRow_ = row;
    viewport()->update();
}

// --- sections that stay in sight -----------------------------------------------------------------------

int CGridHead::FrozenWidth() const
{
    int width = 0;
    for (int section = Frozen(); section > 0; --section)
        width += sectionSize(section - 1);
    return width;
}

void CGridHead::paintEvent(QPaintEvent* event)
{
    QHeaderView::paintEvent(event);
    const int frozen = Frozen();
    if (frozen == 0)
        return;
    QPainter painter(viewport());
    for (int section = 0; offset() > 0 && section < frozen; ++section)
        paintSection(&painter, {sectionPosition(section), 0, sectionSize(section), height()}, section);
    painter.fillRect(FrozenWidth() - 1, 0, kFrozenBorder, height(),
                     QColor::fromRgba(ColorsFor(palette()).frozenBorder));
}

/// The section that stays in sight and ends at `x`; -1: none. Those that stand where they are anyhow are the view's.
int CGridHead::FrozenHandleAt(int x) const
{
    constexpr int grip = 4; // px to both sides of a border
    int border = 0;
    for (int section = 0, frozen = offset() > 0 ? Frozen() : 0; section < frozen; ++section) {
        border += sectionSize(section);
        if (std::abs(x - border) <= grip)
            return section;
    }
    return -1;
}

/// The event where the section at its place stands among all: a section that stays is pressed where it is seen.
QMouseEvent CGridHead::InContents(const QMouseEvent& event) const
{
    const bool stays = event.position().x() < FrozenWidth();
    const QPointF moved = stays ? event.position() - QPointF(offset(), 0) : event.position();
    return {event.type(),   moved,           event.scenePosition(), event.globalPosition(),
            event.button(), event.buttons(), event.modifiers(),     event.pointingDevice()};
}

void CGridHead::mousePressEvent(QMouseEvent* event)
{
    pressed_ = event->button() == Qt::LeftButton;
    pulledSection_.reset();
    frozenHandle_ = pressed_ ? FrozenHandleAt(event->position().toPoint().x()) : -1;
    pulledFrom_ = event->position().toPoint().x() - (frozenHandle_ < 0 ? 0 : sectionSize(frozenHandle_));
    QMouseEvent moved = InContents(*event);
    if (frozenHandle_ < 0)
        QHeaderView::mousePressEvent(&moved);
}

void CGridHead::mouseMoveEvent(QMouseEvent* event)
{
    const int x = event->position().toPoint().x();
    if (frozenHandle_ >= 0) {
        resizeSection(frozenHandle_, std::max(minimumSectionSize(), x - pulledFrom_));
        return;
    }
    if (event->buttons() == Qt::NoButton && FrozenHandleAt(x) >= 0) {
        setCursor(Qt::SplitHCursor);
        return;
    }
    if (event->buttons() == Qt::NoButton && x < FrozenWidth())
        unsetCursor();
    QMouseEvent moved = InContents(*event);
    QHeaderView::mouseMoveEvent(&moved);
}

void CGridHead::mouseReleaseEvent(QMouseEvent* event)
{
    QMouseEvent moved = InContents(*event);
    if (std::exchange(frozenHandle_, -1) < 0)
        QHeaderView::mouseReleaseEvent(&moved);
    pressed_ = false;
    if (const std::optional<int> section = std::exchange(pulledSection_, std::nullopt))
        emit pulled(*section);
}

void CGridHead::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (const int section = FrozenHandleAt(event->position().toPoint().x()); section >= 0) {
        emit sectionHandleDoubleClicked(section);
        return;
    }
    QMouseEvent moved = InContents(*event);
    QHeaderView::mouseDoubleClickEvent(&moved);
}

// --- texts ---------------------------------------------------------------------------------------------

/// Centred in what is seen of the column; where that is too narrow, from its visible edge on.
QRect CGridHead::TextRect(const QPainter& painter, const QRect& section, const QString& text, bool stays) const
{
    constexpr int margins = 8;
    QRect seen = section & viewport()->rect().adjusted(stays ? 0 : FrozenWidth(), 0, 0, 0);
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
        const QString text = source_->Head(logicalIndex + 1, focusRow_);
        DrawHead(*painter, TextRect(*painter, rect, text, logicalIndex < Frozen()), text,
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
