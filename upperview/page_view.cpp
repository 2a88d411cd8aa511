#include "upperview/page_view.h"

#include "upperview/display_look.h"
#include "upperview/page_unit.h"
#include "upperview/paper.h"

#include <QImage>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace sbd {

CPageView::CPageView(QWidget* parent) : QAbstractScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
}

double CPageView::Scale() const
{
    return viewport()->logicalDpiX() / kPageUnitsPerInch;
}

void CPageView::SetScrollSize(QSizeF page)
{
    const QSize pane = viewport()->size();
    const int step = std::max(1, static_cast<int>(std::lround(LineStep() * Scale())));
    const auto set = [step](QScrollBar* bar, double size, int shown) {
        bar->setRange(0, std::max(0, static_cast<int>(std::ceil(size)) - shown));
        bar->setPageStep(shown);
        bar->setSingleStep(step);
    };
    set(horizontalScrollBar(), page.width() * Scale(), pane.width());
    set(verticalScrollBar(), page.height() * Scale(), pane.height());
}

void CPageView::paintEvent(QPaintEvent*)
{
    QPainter painter(viewport());
    painter.setBackground(PaperOnScreen(BackColour(), palette()));
    painter.fillRect(viewport()->rect(), painter.background());
    painter.translate(-horizontalScrollBar()->value(), -verticalScrollBar()->value());
    painter.scale(Scale(), Scale());
    const QRectF visible = painter.transform().inverted().mapRect(QRectF(viewport()->rect()));
    SetScrollSize(PaintPage(painter, visible));
    if (hasFocus()) {
        painter.resetTransform();
        DrawFocusFrame(painter, *viewport());
    }
    Painted();
}

void CPageView::PrintPage(QPainter& painter)
{
    constexpr double margin = 100; // 10 mm
    painter.save();
    painter.scale(painter.device()->logicalDpiX() / kPageUnitsPerInch,
                  painter.device()->logicalDpiY() / kPageUnitsPerInch);
    const QRectF sheet = painter.transform().inverted().mapRect(painter.viewport().toRectF());
    painter.translate(margin, margin);
    PaintPage(painter, sheet.translated(-margin, -margin));
    painter.restore();
}

QSize CPageView::PictureSize()
{
    QImage none(1, 1, QImage::Format_RGB32);
    QPainter painter(&none);
    return (PaintPage(painter, QRectF()) * Scale()).toSize().expandedTo(viewport()->size());
}

void CPageView::PaintPicture(QPainter& painter)
{
    const QSize size = PictureSize();
    painter.setBackground(BackColour());
    painter.fillRect(QRect(QPoint(), size), BackColour());
    painter.scale(Scale(), Scale());
    PaintPage(painter, QRectF(QPointF(), QSizeF(size) / Scale()));
}

void CPageView::focusInEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void CPageView::focusOutEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

void CPageView::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Home:
        verticalScrollBar()->triggerAction(QScrollBar::SliderToMinimum);
        break;
    case Qt::Key_Space:
        verticalScrollBar()->triggerAction(QScrollBar::SliderPageStepAdd);
        break;
    case Qt::Key_End:
        verticalScrollBar()->triggerAction(QScrollBar::SliderToMaximum);
        break;
    default:
        QAbstractScrollArea::keyPressEvent(event);
    }
}

} // namespace sbd
