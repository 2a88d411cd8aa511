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
#include <QPainter>

#include <algorithm>

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
    connect(&ResultSessionOf(*doc_), &CResultSession::figureChanged, this, &CFigurePane::FigureIsAnother);
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
    return !results.nodeTable.coordinates.empty()
           && (!ShowsResult() || LoadCaseOf(results.model, ResultSessionOf(*doc_).selection.load));
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
    update();
}

void CFigurePane::Paint(QPainter& painter, const QColor& paper)
{
    const FigureLook look{paper, FigureFont(doc_->display)};
    const FigureScreen screen = FigureScreenOf(*this);
    view_.panPreview = mouse_.Drags(); // for as long as the button is down, whatever else asks for a paint
    if (ShowsResult()) {
        DrawResultPage(painter, screen, doc_->Results(), ResultSessionOf(*doc_).selection, look, view_);
        return;
    }
    const int block = doc_->HelpBlock() >= 0 ? doc_->HelpBlock() : doc_->CurrentBlock();
    DrawModelFigure(painter, screen, doc_->Results(), doc_->Data(), {CanonicalBlock(block), doc_->HelpRow()}, look,
                    view_);
}

void CFigurePane::PaintPicture(QPainter& painter)
{
    painter.fillRect(rect(), PaperColour(doc_->display));
    Paint(painter, PaperColour(doc_->display));
}

void CFigurePane::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QColor paper = PaperOnScreen(PaperColour(doc_->display), palette());
    painter.fillRect(rect(), paper);
    Paint(painter, paper);
    if (const auto band = mouse_.RubberBand())
        DrawRubberBand(painter, *band, paper);
    if (hasFocus())
        DrawFocusFrame(painter, *this);
}

/// Arrows move the figure, + and - zoom it, Home fits it again.
void CFigurePane::keyPressEvent(QKeyEvent* event)
{
    struct KeyCommand {
        int key;
        Command command;
    };
    static constexpr KeyCommand commands[] = {
        {Qt::Key_Up, Command::MoveUp},       {Qt::Key_Down, Command::MoveDown}, {Qt::Key_Left, Command::MoveLeft},
        {Qt::Key_Right, Command::MoveRight}, {Qt::Key_Plus, Command::ZoomIn},   {Qt::Key_Equal, Command::ZoomIn},
        {Qt::Key_Minus, Command::ZoomOut},
    };
    if (event->key() == Qt::Key_Home) {
        mouse_.Forget();
        view_.zoom = kFitZoom;
        view_.panX = view_.panY = 0;
        update();
        return;
    }
    const auto* const row = std::ranges::find(commands, event->key(), &KeyCommand::key);
    if (row == std::end(commands) || event->modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier))
        QWidget::keyPressEvent(event);
    else
        RunViewCommand(row->command);
}

void CFigurePane::PrintFigure(QPainter& painter)
{
    const QRectF sheet = painter.viewport().toRectF();
    constexpr double screenDpi = 96;
    // As large as on the screen, smaller where the sheet is smaller.
    double scale = painter.device()->logicalDpiX() / screenDpi;
    scale = std::min({scale, sheet.width() / width(), sheet.height() / height()});
    painter.save();
    painter.translate((sheet.width() - width() * scale) / 2, 0);
    painter.scale(scale, scale);
    painter.setClipRect(rect());
    Paint(painter, Qt::white); // the sheet
    painter.restore();
}

void CFigurePane::mousePressEvent(QMouseEvent* event)
{
    if (HasFigure())
        Follow(mouse_.Press(*event));
}

void CFigurePane::mouseMoveEvent(QMouseEvent* event)
{
    Follow(mouse_.Move(*event));
}

void CFigurePane::mouseReleaseEvent(QMouseEvent* event)
{
    Follow(mouse_.Release(*event));
}

void CFigurePane::hideEvent(QHideEvent* event)
{
    mouse_.Forget(); // the button comes up over something else
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
