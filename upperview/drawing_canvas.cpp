#include "upperview/drawing_canvas.h"

#include "drawing/drawing_views.h"
#include "upperview/display_look.h"
#include "upperview/draw_painter.h"
#include "upperview/page_unit.h"
#include "upperview/paper.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace sbd {

namespace {

constexpr double kTextUnits = 28;
constexpr double kMostUnits = 1'900'000; // of the parts: the sheet is not cut
constexpr double kReach = 5;             // pixels

/// The font of the sheet, its size in page units.
QFont SheetFont(QFont font)
{
    font.setPixelSize(static_cast<int>(kTextUnits));
    return font;
}

} // namespace

CDrawingCanvas::CDrawingCanvas(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(QStringLiteral("橋の図"));
    setMinimumHeight(60); // beside the list
}

void CDrawingCanvas::SetDrawing(BridgeDrawing drawing)
{
    drawing_ = std::move(drawing);
    hits_.clear();
    update();
}

void CDrawingCanvas::SetView(const FigureView& view)
{
    Fitted();
    view_ = view;
    update();
}

void CDrawingCanvas::SetExaggeration(int times)
{
    exaggeration_ = times;
    update();
}

void CDrawingCanvas::SetSelected(SourceCell row)
{
    if (selected_ == row)
        return;
    selected_ = row;
    update();
}

void CDrawingCanvas::SetLook(const QColor& paper, const QFont& font)
{
    paper_ = paper;
    font_ = SheetFont(font);
    update();
}

/// What the mouse has begun is over.
void CDrawingCanvas::Fitted()
{
    mouse_.Forget();
    held_.Release();
    pressed_.Release();
}

void CDrawingCanvas::RunViewCommand(Command command)
{
    mouse_.Forget(); // the drawing moves away under it
    ApplyViewCommand(view_, command);
    update();
}

std::optional<CDrawingCanvas::Fit> CDrawingCanvas::FitOf() const
{
    const FigureScreen screen = FigureScreenOf(*this);
    const FigurePan pan = PanOf(view_);
    const TextMetrics metrics = MetricsOf(font_);
    Fit fit;
    fit.pixels = logicalDpiX() / kPageUnitsPerInch;
    fit.look.exaggeration = exaggeration_;
    fit.look.selected = selected_;
    fit.look.compact = true;
    const double width = screen.clientWidth / fit.pixels;
    const double height = screen.clientHeight / fit.pixels;
    const double whole = ScaleThatFills(drawing_, metrics, fit.look, width, height);
    fit.look.scale = whole;
    const std::optional<SheetPlaces> placed = PlacesOnSheet(metrics, drawing_, fit.look);
    if (!placed)
        return std::nullopt;
    // As long as nothing is moved the sheet begins at the top, in the middle where it is less wide than the pane.
    const auto middleOf = [](const SheetPlaces& places) {
        return QPointF(places.left + places.width * places.perX / 2, -(places.top - places.height * places.perY / 2));
    };
    const double used = placed->left + placed->width * placed->perX + placed->right;
    const QPointF begin(std::max(0.0, (width - used) / 2), 0);
    fit.shift = (middleOf(*placed) + begin) * fit.pixels - QPointF(screen.HalfWidth(), screen.HalfHeight());

    const double longest = std::max(placed->width, placed->height * exaggeration_);
    fit.look.scale = std::max(whole * view_.zoom / kFitZoom, longest * 10 / kMostUnits);
    fit.places = *PlacesOnSheet(metrics, drawing_, fit.look);
    const QPointF middle(screen.HalfWidth() + pan.x * screen.StepX() + fit.shift.x(),
                         screen.HalfHeight() + pan.y * screen.StepY() + fit.shift.y());
    fit.origin = middle - middleOf(fit.places) * fit.pixels;
    const auto units = [&](double pixels) { return static_cast<int>(std::floor(pixels / fit.pixels)); };
    fit.look.visible = SheetBox{units(-fit.origin.x()) - 1, -units(screen.clientHeight - fit.origin.y()) - 1,
                                units(screen.clientWidth - fit.origin.x()) + 1, -units(-fit.origin.y()) + 1};
    return fit;
}

void CDrawingCanvas::Paint(QPainter& painter)
{
    const std::optional<Fit> fit = FitOf();
    painter.setRenderHint(QPainter::TextAntialiasing);
    hits_.clear();
    painter.save();
    const double pixels = logicalDpiX() / kPageUnitsPerInch;
    painter.translate(fit ? fit->origin : QPointF());
    painter.scale(pixels, pixels);
    CPainterContext context(painter, font_);
    if (fit) {
        DrawBridgeSheet(context, drawing_, fit->look, &hits_);
    } else { // says why there is nothing
        int y = -40;
        for (const std::string& line : drawing_.notes) {
            context.Text({40, y}, line);
            y -= context.Metrics().LineHeight();
        }
    }
    painter.restore();
}

void CDrawingCanvas::PaintPicture(QPainter& painter, const QColor& paper)
{
    painter.setBackground(paper);
    painter.fillRect(rect(), paper);
    painter.save();
    painter.setClipRect(rect());
    Paint(painter);
    painter.restore();
}

void CDrawingCanvas::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QColor paper = PaperOnScreen(paper_, palette());
    painter.setBackground(paper);
    painter.fillRect(rect(), paper);
    Paint(painter);
    if (const auto band = mouse_.RubberBand())
        DrawRubberBand(painter, *band, paper);
    if (hasFocus())
        DrawFocusFrame(painter, *this);
}

SourceCell CDrawingCanvas::PlaceAt(QPointF at)
{
    const std::optional<Fit> fit = FitOf();
    if (!fit)
        return {};
    const QPointF sheet = (at - fit->origin) / fit->pixels;
    const DrawPoint point{static_cast<int>(std::lround(sheet.x())), static_cast<int>(std::lround(-sheet.y()))};
    const DrawnPoint place = fit->places.ToDrawing(sheet.x(), -sheet.y());
    const double reach = kReach / fit->pixels / fit->places.perX;
    if (const DrawnShape* part = PartAt(drawing_, place, reach, exaggeration_))
        return part->source;
    const auto hit = std::ranges::find_if(hits_, [&](const SheetHit& each) { return each.box.Has(point); });
    return hit == hits_.end() ? SourceCell() : hit->source;
}

std::optional<QPointF> CDrawingCanvas::MiddleOf(SourceCell row) const
{
    const std::optional<Fit> fit = FitOf();
    const auto shape =
        std::ranges::find_if(drawing_.shapes, [&](const DrawnShape& each) { return each.source.SameRow(row); });
    if (!fit || shape == drawing_.shapes.end() || shape->points.empty())
        return std::nullopt;
    DrawnPoint middle;
    for (const DrawnPoint& point : shape->points)
        middle = {middle.x + point.x, middle.y + point.y};
    const auto count = static_cast<double>(shape->points.size());
    const SheetPlaces& places = fit->places;
    const double x = places.left + (middle.x / count - places.leftTop.x) * places.perX;
    const double y = places.top + (middle.y / count - places.leftTop.y) * places.perY;
    return fit->origin + QPointF(x, -y) * fit->pixels;
}

bool CDrawingCanvas::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const SourceCell place = PlaceAt(QPointF(help->pos()));
    const QString words = place.block != 0 && wordsOf ? wordsOf(place) : QString();
    if (words.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), words, this);
    return true;
}

void CDrawingCanvas::wheelEvent(QWheelEvent* event)
{
    const std::optional<Fit> fit = FitOf();
    if (!fit || event->angleDelta().y() == 0)
        return;
    mouse_.Forget();
    ZoomAt(view_, FigureScreenOf(*this),
           {event->position().x() - fit->shift.x(), event->position().y() - fit->shift.y()}, FigureZoomOf(*event));
    update();
}

void CDrawingCanvas::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        held_.Press(event->position());
        return;
    }
    pressed_.Press(event->position());
    if (mouse_.Press(*event) != FigureMouseEffect::None)
        update();
}

void CDrawingCanvas::mouseMoveEvent(QMouseEvent* event)
{
    if (held_.IsDown()) {
        const QPointF moved = held_.Moved(event->position());
        Slide(view_, FigureScreenOf(*this), moved.x(), moved.y());
        update();
    } else if (mouse_.Move(*event) != FigureMouseEffect::None) {
        update();
    }
}

/// The rectangle fills the pane.
void CDrawingCanvas::ZoomTo(const QRectF& box)
{
    const std::optional<Fit> fit = FitOf();
    if (!fit || box.isEmpty())
        return;
    const FigureScreen screen = FigureScreenOf(*this);
    const QPointF middle = box.center();
    ZoomAt(view_, screen, {middle.x() - fit->shift.x(), middle.y() - fit->shift.y()},
           std::min(screen.clientWidth / box.width(), screen.clientHeight / box.height()));
    Slide(view_, screen, screen.HalfWidth() - middle.x(), screen.HalfHeight() - middle.y());
}

void CDrawingCanvas::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        held_.Release();
        return;
    }
    const std::optional<QPointF> pressed = pressed_.Release();
    mouse_.Forget(); // its rectangle
    update();
    if (!pressed)
        return;
    if (!IsClick(*pressed, event->position()))
        ZoomTo(QRectF(*pressed, event->position()).normalized());
    else if (const SourceCell place = PlaceAt(*pressed); place.block != 0)
        emit cellWanted(place.block, place.row, std::max(place.column, 1));
}

void CDrawingCanvas::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    Fitted();
    FitAgain(view_);
    update();
}

/// Arrows move the drawing, + and - zoom it, Home fits it again.
void CDrawingCanvas::keyPressEvent(QKeyEvent* event)
{
    if (const auto command = FigureCommandOf(*event))
        RunViewCommand(*command);
    else
        QWidget::keyPressEvent(event);
}

void CDrawingCanvas::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    update();
}

void CDrawingCanvas::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    update();
}

void CDrawingCanvas::hideEvent(QHideEvent* event)
{
    Fitted(); // the button comes up over something else
    QWidget::hideEvent(event);
}

} // namespace sbd
