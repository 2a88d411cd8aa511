#include "upperview/help_view.h"

#include "document/search_session.h"
#include "document/section_doc.h"
#include "project/catalogue.h"
#include "upperview/display_look.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QScrollBar>

#include <cmath>

namespace sbd {

using namespace Qt::StringLiterals;

CHelpView::CHelpView(CKELDSectionDoc* doc, QWidget* parent) : CPageView(parent), doc_(doc)
{
    setAccessibleName(u"説明"_s);
    setFocusPolicy(Qt::ClickFocus);
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
