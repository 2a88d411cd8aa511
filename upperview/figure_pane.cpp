#include "upperview/figure_pane.h"

#include "document/result_session.h"
#include "document/section_doc.h"
#include "project/catalogue.h"
#include "upperview/display_look.h"
#include "upperview/result_diagram.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kResultBlock = 253;

FigureLook LookOf(const DisplaySettings& display)
{
    return {PaperColour(display), FigureFont(display)};
}

} // namespace

CFigurePane::CFigurePane(CKELDSectionDoc* doc, QWidget* parent) : QWidget(parent), doc_(doc)
{
    setAccessibleName(u"モデル図"_s);
    setFocusPolicy(Qt::ClickFocus);
    const auto repaint = [this] { update(); };
    connect(doc_, &CKELDSectionDoc::changed, this, repaint);
    connect(doc_, &CKELDSectionDoc::reloaded, this, repaint);
    connect(&ResultSessionOf(*doc_), &CResultSession::figureChanged, this, repaint);
}

void CFigurePane::RunViewCommand(int command)
{
    ApplyViewCommand(view_, command);
    update();
}

bool CFigurePane::ShowsResult() const
{
    return doc_->showHelpPage && doc_->CurrentBlock() == kResultBlock;
}

void CFigurePane::Paint(QPainter& painter)
{
    const FigureScreen screen = FigureScreenOf(*this);
    if (ShowsResult()) {
        DrawResultPage(painter, screen, doc_->Results(), ResultSessionOf(*doc_).selection, LookOf(doc_->display),
                       view_);
        return;
    }
    const int block = doc_->HelpBlock() >= 0 ? doc_->HelpBlock() : doc_->CurrentBlock();
    DrawModelFigure(painter, screen, doc_->Results(), doc_->Data(), {CanonicalBlock(block), doc_->HelpRow()},
                    LookOf(doc_->display), view_);
}

void CFigurePane::PaintPicture(QPainter& painter)
{
    painter.fillRect(rect(), PaperColour(doc_->display));
    Paint(painter);
}

void CFigurePane::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    PaintPicture(painter);
    if (const auto band = mouse_.RubberBand())
        DrawRubberBand(painter, *band);
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
    Paint(painter);
    painter.restore();
}

void CFigurePane::mousePressEvent(QMouseEvent* event)
{
    Follow(mouse_.Press(*event));
}

void CFigurePane::mouseMoveEvent(QMouseEvent* event)
{
    Follow(mouse_.Move(*event));
}

void CFigurePane::mouseReleaseEvent(QMouseEvent* event)
{
    Follow(mouse_.Release(*event, !doc_->showHelpPage));
}

void CFigurePane::Follow(FigureMouseEffect effect)
{
    if (effect != FigureMouseEffect::None)
        update();
}

} // namespace sbd
