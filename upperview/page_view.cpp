#include "upperview/page_view.h"

#include "upperview/display_look.h"
#include "upperview/page_unit.h"
#include "upperview/paper.h"

#include <QFontMetricsF>
#include <QImage>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace sbd {

using namespace Qt::StringLiterals;

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

namespace {

constexpr double kMillimetre = 10; // page units
constexpr double kPrintMargin = 10 * kMillimetre;
constexpr double kFootHeight = 4 * kMillimetre;
constexpr double kAboveFoot = 3 * kMillimetre;
constexpr double kLeastPrintScale = 0.5;

/// A line of small letters at the foot of the area, the left text shortened where both have no room.
void PaintFoot(QPainter& painter, const QRectF& area, const PrintFoot& foot)
{
    const QRectF line(area.left(), area.bottom() - kFootHeight, area.width(), kFootHeight);
    QFont font = painter.font();
    font.setPixelSize(static_cast<int>(3 * kMillimetre));
    font.setStyle(QFont::StyleNormal);
    painter.setFont(font);
    painter.setPen(QPen(Qt::black, 1));
    painter.drawLine(line.topLeft(), line.topRight());
    const QFontMetricsF metrics(font);
    const double room = line.width() - metrics.horizontalAdvance(foot.right) - 2 * kMillimetre;
    painter.drawText(line, Qt::AlignLeft | Qt::AlignBottom, metrics.elidedText(foot.left, Qt::ElideMiddle, room));
    painter.drawText(line, Qt::AlignRight | Qt::AlignBottom, foot.right);
}

} // namespace

QSizeF CPageView::MeasurePage()
{
    QImage none(1, 1, QImage::Format_RGB32);
    QPainter painter(&none);
    return PaintPage(painter, QRectF());
}

void CPageView::PrintPage(QPainter& painter, const PrintFoot& foot)
{
    const QSizeF page = MeasurePage();
    painter.save();
    painter.setBackground(Qt::white);
    painter.scale(painter.device()->logicalDpiX() / kPageUnitsPerInch,
                  painter.device()->logicalDpiY() / kPageUnitsPerInch);
    const QRectF sheet = painter.transform().inverted().mapRect(painter.viewport().toRectF());
    const QRectF area = sheet.adjusted(kPrintMargin, kPrintMargin, -kPrintMargin, -kPrintMargin);
    const QSizeF room(area.width(), area.height() - kFootHeight - kAboveFoot);
    const double fitting = std::min({1.0, room.width() / page.width(), room.height() / page.height()});
    const double scale = std::max(fitting, std::min(kLeastPrintScale, room.width() / page.width()));

    painter.save();
    painter.setClipRect(QRectF(area.topLeft(), room));
    painter.translate(area.topLeft());
    painter.scale(scale, scale);
    PaintPage(painter, QRectF(QPointF(), room / scale));
    painter.restore();
    PrintFoot line = foot;
    if (scale > fitting)
        line.right = u"用紙に入らない部分は省略しています   "_s + line.right;
    PaintFoot(painter, area, line);
    painter.restore();
}

QSize CPageView::PictureSize()
{
    return (MeasurePage() * Scale()).toSize().expandedTo(viewport()->size());
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
