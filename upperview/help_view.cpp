#include "upperview/help_view.h"

#include "document/search_session.h"
#include "document/section_doc.h"
#include "project/block_numbers.h"
#include "project/catalogue.h"
#include "upperview/display_look.h"
#include "upperview/page/page_store.h"
#include "upperview/paper.h"

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

constexpr QRect kBackButton(5, 5, 23, 22); // px

/// The place of a link, y downward from the top of the page.
QRectF RectOf(const PageLink& link)
{
    return QRectF(QPointF(link.box.left, -link.box.top), QPointF(link.box.right, -link.box.bottom));
}

} // namespace

CHelpView::CHelpView(CKELDSectionDoc* doc, QWidget* parent)
    : CPageView(parent)
    , doc_(doc)
    , backButton_(new QToolButton(viewport()))
{
    setAccessibleName(u"説明"_s);
    setFocusPolicy(Qt::StrongFocus); // Tab reaches its links
    backButton_->setArrowType(Qt::LeftArrow);
    backButton_->setToolTip(u"戻る"_s);
    backButton_->setAccessibleName(u"戻る"_s);
    backButton_->setGeometry(kBackButton);
    backButton_->hide();
    connect(backButton_, &QToolButton::clicked, this, &CHelpView::OnBack);
    // The page shows values of the row; not each edit moves the cursor.
    connect(doc_, &CKELDSectionDoc::changed, this, &CHelpView::Refresh);
    viewport()->setMouseTracking(true);
}

int CHelpView::LinkAt(QPointF place) const
{
    const QPointF onPage = (place + QPointF(horizontalScrollBar()->value(), verticalScrollBar()->value())) / Scale();
    for (std::size_t i = 0; i < extent_.links.size(); ++i) {
        if (RectOf(extent_.links[i]).contains(onPage))
            return static_cast<int>(i);
    }
    return -1;
}

void CHelpView::FollowLink(int link)
{
    returnBlock_ = Cell().block;
    const int number = extent_.links[static_cast<std::size_t>(link)].block;
    linkTarget_ = CanonicalBlock(number);
    ShowPageOf(number);
    backButton_->show();
}

void CHelpView::ShowPageOf(int number)
{
    const int block = CanonicalBlock(number);
    extent_.links.clear();
    chosenLink_ = -1;
    viewport()->unsetCursor();
    emit blockWanted(number);
    if (doc_->CurrentBlock() != block) {
        doc_->SetCurrentBlock(block);
        doc_->SetHelpCell(-1, 0, 0);
    }
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
    if (link < 0)
        CPageView::mousePressEvent(event);
    else
        FollowLink(link);
}

void CHelpView::OnBack()
{
    backButton_->hide();
    if (returnBlock_ != 0)
        ShowPageOf(std::exchange(returnBlock_, 0));
}

void CHelpView::ChooseLink(int link)
{
    chosenLink_ = link;
    if (link >= 0) {
        const QRectF place = RectOf(extent_.links[static_cast<std::size_t>(link)]);
        const auto show = [this](QScrollBar* bar, double from, double to, int room) {
            const int first = static_cast<int>(std::floor(from * Scale()));
            const int last = static_cast<int>(std::ceil(to * Scale()));
            if (first < bar->value() || last > bar->value() + room)
                bar->setValue(first < bar->value() ? first : last - room);
        };
        show(verticalScrollBar(), place.top(), place.bottom(), viewport()->height());
        show(horizontalScrollBar(), place.left(), place.right(), viewport()->width());
    }
    viewport()->update();
}

bool CHelpView::focusNextPrevChild(bool next)
{
    const int count = static_cast<int>(extent_.links.size());
    const int from = chosenLink_ < 0 && !next ? count : chosenLink_;
    const int link = from + (next ? 1 : -1);
    if (!hasFocus() || link < 0 || link >= count) {
        ChooseLink(-1);
        return CPageView::focusNextPrevChild(next);
    }
    ChooseLink(link);
    return true;
}

void CHelpView::focusOutEvent(QFocusEvent* event)
{
    ChooseLink(-1);
    CPageView::focusOutEvent(event);
}

void CHelpView::keyPressEvent(QKeyEvent* event)
{
    const bool onLink = chosenLink_ >= 0 && chosenLink_ < static_cast<int>(extent_.links.size());
    const int key = event->key();
    if (onLink && (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space))
        FollowLink(chosenLink_);
    else if (returnBlock_ != 0 && (key == Qt::Key_Backspace || key == Qt::Key_Back))
        OnBack();
    else
        CPageView::keyPressEvent(event);
}

HelpCell CHelpView::Cell() const
{
    const int block = doc_->HelpBlock() >= 0 ? doc_->HelpBlock() : doc_->CurrentBlock();
    const CSearchSession& search = SearchSessionOf(*doc_);
    if (block == kSearchBlock && search.hitBlock != 0) // what is marked there is read ahead
        return {PageBlock(search.hitBlock), search.hitRow, search.hitColumn};
    const std::string searched = fromQString(search.line).value_or(std::string());
    return {PageBlock(block), doc_->HelpRow(), doc_->HelpColumn(), searched, block == kSearchBlock};
}

int CHelpView::PageHeight() const
{
    const PageExtent page = MeasureHelpPage(doc_->Data(), Cell(), viewport()->size(), HelpFont(doc_->display));
    return static_cast<int>(std::ceil(page.height * Scale()));
}

void CHelpView::Refresh()
{
    viewport()->update();
}

QSizeF CHelpView::PaintPage(QPainter& painter, const QRectF&)
{
    extent_ = PaintHelpPage(painter, doc_->Data(), Cell(), viewport()->size(), HelpFont(doc_->display));
    if (chosenLink_ >= static_cast<int>(extent_.links.size()))
        chosenLink_ = -1;
    if (chosenLink_ >= 0 && painter.device() == viewport()) {
        painter.setPen(QPen(Ink(Qt::blue, painter.background().color()), 0, Qt::DotLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(RectOf(extent_.links[static_cast<std::size_t>(chosenLink_)]));
    }
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
    if (returnBlock_ != 0 && cell.block != linkTarget_) { // the user has gone elsewhere
        returnBlock_ = 0;
        backButton_->hide();
    }
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
