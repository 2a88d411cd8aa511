#include "upperview/figure_pane.h"

#include "document/result_session.h"
#include "document/section_doc.h"
#include "project/block_numbers.h"
#include "project/catalogue.h"
#include "upperview/display_look.h"
#include "upperview/paper.h"
#include "upperview/result_diagram.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEngine>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>
#include <utility>

namespace sbd {

using namespace Qt::StringLiterals;

CFigurePane::CFigurePane(CKELDSectionDoc* doc, QWidget* parent) : QWidget(parent), doc_(doc)
{
    setAccessibleName(u"モデル図"_s);
    setFocusPolicy(Qt::StrongFocus);
    const auto repaint = [this] { update(); };
    connect(doc_, &CKELDSectionDoc::changed, this, repaint);
    connect(doc_, &CKELDSectionDoc::reloaded, this, &CFigurePane::FigureIsAnother);
    connect(doc_, &CKELDSectionDoc::resultsRead, this, &CFigurePane::FigureIsAnother);
    const CResultSession& session = ResultSessionOf(*doc_);
    connect(&session, &CResultSession::figureChanged, this, &CFigurePane::FigureIsAnother);
    connect(&session, &CResultSession::stateChanged, this, repaint);
    connect(&session, &CResultSession::markChanged, this, repaint);
}

void CFigurePane::RunViewCommand(Command command)
{
    mouse_.Forget(); // the figure moves away under it
    ApplyViewCommand(view_, command);
    update();
}

bool CFigurePane::ShowsResult() const
{
    return doc_->CurrentBlock() == kResultBlock;
}

bool CFigurePane::HasFigure() const
{
    const AnalysisResults& results = doc_->Results();
    if (results.nodeTable.coordinates.empty())
        return false;
    if (!ShowsResult())
        return true;
    const ResultSelection& selection = ResultSessionOf(*doc_).selection;
    return selection.envelope ? !EnvelopeCases(results.model, selection).empty()
                              : LoadCaseOf(results.model, selection.load).has_value();
}

void CFigurePane::Refresh()
{
    if (ShowsResult() != showedResult_)
        FigureIsAnother();
    showedResult_ = ShowsResult();
    setAccessibleName(showedResult_ ? u"計算結果の図"_s : u"モデル図"_s);
    update();
}

void CFigurePane::FigureIsAnother()
{
    mouse_.Forget();
    hold_ = Hold::None;
    pressed_.Release();
    places_.reset();
    curves_.reset();
    update();
}

void CFigurePane::Paint(QPainter& painter, const QColor& paper, const FigureScreen& screen)
{
    const FigureLook look{paper, FigureFont(doc_->display)};
    const CResultSession& session = ResultSessionOf(*doc_);
    view_.panPreview = mouse_.Drags(); // for as long as the button is down, whatever else asks for a paint
    if (ShowsResult()) {
        DrawResultPage(painter, screen, doc_->Results(), session.selection, look, view_, session.State(),
                       session.Marked());
        return;
    }
    const int block = doc_->HelpBlock() >= 0 ? doc_->HelpBlock() : doc_->CurrentBlock();
    DrawModelFigure(painter, screen, doc_->Results(), doc_->Data(), {CanonicalBlock(block), doc_->HelpRow()}, look,
                    view_, session.State());
}

FigureScreen CFigurePane::ScreenFor(const QPainter& painter) const
{
    constexpr double inch = 25.4;
    FigureScreen screen = FigureScreenOf(*this);
    screen.isPaper = painter.paintEngine()->type() != QPaintEngine::Raster;
    if (screen.isPaper)
        screen.millimetresPerPixel = inch / painter.device()->logicalDpiX();
    return screen;
}

void CFigurePane::PaintPicture(QPainter& painter)
{
    painter.fillRect(rect(), PaperColour(doc_->display));
    Paint(painter, PaperColour(doc_->display), ScreenFor(painter));
}

void CFigurePane::paintEvent(QPaintEvent*)
{
    places_.reset();
    QPainter painter(this);
    const QColor paper = PaperOnScreen(PaperColour(doc_->display), palette());
    painter.fillRect(rect(), paper);
    Paint(painter, paper, FigureScreenOf(*this));
    if (const auto band = mouse_.RubberBand())
        DrawRubberBand(painter, *band, paper);
    if (hasFocus())
        DrawFocusFrame(painter, *this);
}

/// Arrows move the figure, + and - zoom it, Home fits it again.
void CFigurePane::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Home) {
        mouse_.Forget();
        FitAgain(view_);
        update();
        return;
    }
    if (event->key() == Qt::Key_Space) {
        HoldSpace(true);
        return;
    }
    if (const auto command = FigureCommandOf(*event))
        RunViewCommand(*command);
    else
        QWidget::keyPressEvent(event);
}

void CFigurePane::PrintFigure(QPainter& painter)
{
    const QRectF sheet = painter.viewport().toRectF();
    constexpr double screenDpi = 96;
    constexpr double inch = 25.4;
    // As large as on the screen, smaller where the sheet is smaller.
    double scale = painter.device()->logicalDpiX() / screenDpi;
    scale = std::min({scale, sheet.width() / width(), sheet.height() / height()});
    painter.save();
    painter.translate((sheet.width() - width() * scale) / 2, 0);
    painter.scale(scale, scale);
    painter.setClipRect(rect());
    FigureScreen screen = ScreenFor(painter);
    screen.isPaper = true;
    screen.millimetresPerPixel = inch * scale / painter.device()->logicalDpiX();
    Paint(painter, Qt::white, screen); // the sheet
    painter.restore();
}

void CFigurePane::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat())
        HoldSpace(false);
    else
        QWidget::keyReleaseEvent(event);
}

void CFigurePane::focusOutEvent(QFocusEvent* event)
{
    HoldSpace(false); // the bar may come up elsewhere
    QWidget::focusOutEvent(event);
}

void CFigurePane::HoldSpace(bool down)
{
    spaceDown_ = down;
    if (down)
        setCursor(Qt::OpenHandCursor);
    else
        unsetCursor();
}

void CFigurePane::mousePressEvent(QMouseEvent* event)
{
    if (!HasFigure())
        return;
    const bool left = event->button() == Qt::LeftButton;
    if (event->button() == Qt::MiddleButton || (left && spaceDown_))
        hold_ = Hold::Slide;
    else if (left && event->modifiers().testFlag(Qt::ControlModifier) && !ShowsDiagram())
        hold_ = Hold::Turn;
    if (hold_ != Hold::None) {
        held_.Press(event->position());
        return;
    }
    if (left)
        pressed_.Press(event->position());
    Follow(mouse_.Press(*event));
}

void CFigurePane::mouseMoveEvent(QMouseEvent* event)
{
    if (hold_ == Hold::None) {
        Follow(mouse_.Move(*event));
        return;
    }
    const QPointF moved = held_.Moved(event->position());
    if (hold_ == Hold::Slide)
        Slide(view_, FigureScreenOf(*this), moved.x(), moved.y());
    else
        TurnView(view_, moved.x(), moved.y());
    update();
}

void CFigurePane::mouseReleaseEvent(QMouseEvent* event)
{
    if (hold_ != Hold::None) {
        hold_ = Hold::None;
        return;
    }
    const std::optional<QPointF> pressed = event->button() == Qt::LeftButton ? pressed_.Release() : std::nullopt;
    Follow(mouse_.Release(*event));
    if (pressed && IsClick(*pressed, event->position()))
        PickAt(*pressed);
}

void CFigurePane::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !HasFigure())
        return;
    mouse_.Forget();
    FitAgain(view_);
    update();
}

void CFigurePane::wheelEvent(QWheelEvent* event)
{
    if (!HasFigure() || event->angleDelta().y() == 0)
        return;
    mouse_.Forget(); // the figure moves away under it
    ZoomAt(view_, FigureScreenOf(*this), {event->position().x(), event->position().y()}, FigureZoomOf(*event));
    update();
}

// --- what lies under the pointer ---------------------------------------------------------------------

bool CFigurePane::ShowsDiagram() const
{
    return ShowsResult() && !ShowsDeformed(ResultSessionOf(*doc_).selection);
}

const FramePlaces& CFigurePane::Places()
{
    if (places_)
        return *places_;
    const AnalysisResults& results = doc_->Results();
    const FigureScreen screen = FigureScreenOf(*this);
    const CModelProjection before(FigurePlaces(results), view_.viewDirection);
    if (!ShowsResult())
        return places_.emplace(
            PlacesOnScreen(results, doc_->Data(), before, FitModel(before.Bounds(), screen, view_.zoom, PanOf(view_))));
    const ResultSelection& selection = ResultSessionOf(*doc_).selection;
    FramePlaces places;
    if (const std::optional<std::size_t> load = LoadCaseOf(results.model, selection.load)) {
        const CModelProjection moved(DeformedPlaces(results, *load, MagnificationOf(results, selection, *load)),
                                     view_.viewDirection);
        const ModelScale scale = DeformedScale(before, moved, screen, view_, PanOf(view_));
        for (std::size_t number = 1; number <= moved.NodeCount(); ++number)
            places.nodes.push_back(ScreenOf(static_cast<std::int32_t>(number), moved, scale));
    }
    return places_.emplace(std::move(places));
}

std::optional<DiagramPick> CFigurePane::OrdinateAt(QPointF place)
{
    const AnalysisResults& results = doc_->Results();
    if (!curves_)
        curves_ = CurvesOf(results, ResultSessionOf(*doc_).selection);
    if (curves_->empty())
        return std::nullopt;
    const DiagramScale scale = FitCurves(*curves_, FigureScreenOf(*this), view_.zoom, PanOf(view_));
    return PickOrdinate(results, *curves_, scale, {place.x(), place.y()});
}

QString CFigurePane::WordsAt(QPointF place)
{
    if (!HasFigure())
        return {};
    if (ShowsDiagram()) {
        const std::optional<DiagramPick> pick = OrdinateAt(place);
        return pick ? toQString(pick->words) : QString();
    }
    const FigurePoint pointer{place.x(), place.y()};
    const AnalysisResults& results = doc_->Results();
    if (const std::optional<std::int32_t> node = PickNode(Places(), pointer)) {
        const std::optional<std::size_t> load =
            ShowsResult() ? LoadCaseOf(results.model, ResultSessionOf(*doc_).selection.load) : std::nullopt;
        return toQString(NodeWords(results, *node, load));
    }
    const std::optional<PickLine> line = PickRow(Places(), pointer);
    return line ? toQString(SelectedRowName(doc_->Data(), {line->block, static_cast<int>(line->row) + 1})) : QString();
}

void CFigurePane::PickAt(QPointF place)
{
    if (!HasFigure())
        return;
    CResultSession& session = ResultSessionOf(*doc_);
    const FigurePoint pointer{place.x(), place.y()};
    if (ShowsDiagram()) {
        const ResultSelection& selection = session.selection;
        if (const std::optional<DiagramPick> pick = OrdinateAt(place))
            session.Pick({.name = pick->name,
                          .component = ComponentOf(selection.kind, selection.figureItem)
                                           .value_or(InfoOf(selection.kind).defaultComponent),
                          .rightEnd = pick->rightEnd,
                          .isLeast = pick->pen == FigurePen::Least,
                          .isOver = pick->pen == FigurePen::Second,
                          .words = pick->words});
        return;
    }
    const std::optional<std::int32_t> node = PickNode(Places(), pointer);
    if (ShowsResult()) {
        const std::vector<std::string>& names = doc_->Results().model.nodeNames;
        if (node && static_cast<std::size_t>(*node) <= names.size())
            session.Pick({.name = names[static_cast<std::size_t>(*node) - 1],
                          .component = InfoOf(ResultKind::Displacement).defaultComponent,
                          .words = fromQString(WordsAt(place)).value_or(std::string())});
        return;
    }
    if (node) // tells its name; it belongs to no row
        QToolTip::showText(mapToGlobal(place.toPoint()), WordsAt(place), this);
    else if (const std::optional<PickLine> line = PickRow(Places(), pointer))
        emit cellWanted(line->block, static_cast<int>(line->row) + 1, 1);
}

bool CFigurePane::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QString words = WordsAt(QPointF(help->pos()));
    if (words.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), words, this);
    return true;
}

void CFigurePane::hideEvent(QHideEvent* event)
{
    mouse_.Forget(); // the button comes up over something else
    hold_ = Hold::None;
    pressed_.Release();
    QWidget::hideEvent(event);
}

void CFigurePane::Follow(FigureMouseEffect effect)
{
    if (effect == FigureMouseEffect::None)
        return;
    // At once: the next paint may be of another figure.
    if (view_.zoomBoxPending || view_.panPending)
        static_cast<void>(TakeMouseMarks(view_, FigureScreenOf(*this)));
    update();
}

} // namespace sbd
