#include "upperview/help_view.h"

#include "document/search_session.h"
#include "document/section_doc.h"
#include "project/catalogue.h"
#include "upperview/display_look.h"

#include <QFontMetricsF>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolButton>

#include <cmath>
#include <utility>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

/// Where the links of a page lead, and where the way back leads.
struct Link {
    int returnBlock;
    int targetBlock;
};
constexpr Link kLinks[] = {{513, 514}, {503, 505}};

constexpr QRect kBackButton(5, 5, 23, 22); // px

} // namespace

CHelpView::CHelpView(CKELDSectionDoc* doc, QWidget* parent)
    : CPageView(parent)
    , doc_(doc)
    , backButton_(new QToolButton(viewport()))
{
    setAccessibleName(u"説明"_s);
    backButton_->setArrowType(Qt::LeftArrow);
    backButton_->setToolTip(u"戻る"_s);
    backButton_->setAccessibleName(u"戻る"_s);
    backButton_->setGeometry(kBackButton);
    backButton_->hide();
    connect(backButton_, &QToolButton::clicked, this, &CHelpView::OnBack);
    viewport()->setMouseTracking(true);
}

int CHelpView::LinkAt(QPointF place) const
{
    const QPointF onPage = (place + QPointF(horizontalScrollBar()->value(), verticalScrollBar()->value())) / Scale();
    for (std::size_t i = 0; i < linkRects.size(); ++i) {
        if (linkRects[i].contains(onPage))
            return static_cast<int>(i);
    }
    return -1;
}

void CHelpView::ShowPageOf(int block)
{
    linkRects = {};
    doc_->SetCurrentBlock(block);
    doc_->SetHelpCell(-1, 0, 0);
    Refresh();
}

void CHelpView::mouseMoveEvent(QMouseEvent* event)
{
    if (LinkAt(event->position()) >= 0)
        viewport()->setCursor(Qt::PointingHandCursor);
    else
        viewport()->unsetCursor();
}

void CHelpView::mousePressEvent(QMouseEvent* event)
{
    const int link = event->button() == Qt::LeftButton ? LinkAt(event->position()) : -1;
    if (link < 0) {
        CPageView::mousePressEvent(event);
        return;
    }
    returnBlock_ = kLinks[link].returnBlock;
    backButton_->show();
    ShowPageOf(kLinks[link].targetBlock);
}

void CHelpView::OnBack()
{
    backButton_->hide();
    ShowPageOf(std::exchange(returnBlock_, 0));
}

HelpCell CHelpView::Cell() const
{
    const int block = doc_->HelpBlock() >= 0 ? doc_->HelpBlock() : doc_->CurrentBlock();
    const std::string searched = fromQString(SearchSessionOf(*doc_).line).value_or(std::string());
    return {CanonicalBlock(block), doc_->HelpRow(), doc_->HelpColumn(), searched};
}

void CHelpView::Refresh()
{
    viewport()->update();
}

QSizeF CHelpView::PaintPage(QPainter& painter, const QRectF&)
{
    linkRects = {};
    extent_ = PaintHelpPage(painter, doc_->Data(), Cell(), viewport()->size(), HelpFont(doc_->display));
    return {static_cast<double>(extent_.width), static_cast<double>(extent_.height)};
}

QColor CHelpView::BackColour() const
{
    return PaperColour(doc_->display);
}

double CHelpView::LineStep() const
{
    return QFontMetricsF(HelpFont(doc_->display)).lineSpacing();
}

void CHelpView::Painted()
{
    const HelpCell cell = Cell();
    const int anchor = cell.column < 1 || extent_.anchor <= 1 ? 0 : extent_.anchor;
    const bool same = cell.block == positionedFor_.block && cell.row == positionedFor_.row
                      && cell.column == positionedFor_.column && anchor == positionedAt_;
    if (same)
        return;
    positionedFor_ = cell;
    positionedAt_ = anchor;
    verticalScrollBar()->setValue(static_cast<int>(std::lround(anchor * Scale())));
    viewport()->update();
}

} // namespace sbd
