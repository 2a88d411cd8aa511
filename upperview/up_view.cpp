#include "upperview/up_view.h"

#include "document/section_doc.h"
#include "upperview/chk_view.h"
#include "upperview/figure_pane.h"
#include "upperview/help_view.h"

#include <QPainter>

namespace sbd {

namespace {

constexpr int kResultBlock = 253;
constexpr int kFirstZoomOrMove = 32995; // the commands below it choose a view

} // namespace

CUpView::CUpView(CKELDSectionDoc* doc, QWidget* parent)
    : QStackedWidget(parent)
    , doc_(doc)
    , help_(new CHelpView(doc))
    , chk_(new CChkView(doc))
    , figure_(new CFigurePane(doc))
{
    for (QWidget* pane : std::initializer_list<QWidget*>{help_, chk_, figure_})
        addWidget(pane);
    setFocusPolicy(Qt::NoFocus);
    connect(doc_, &CKELDSectionDoc::helpCellChanged, this, &CUpView::Refresh);
    connect(doc_, &CKELDSectionDoc::reloaded, this, &CUpView::Refresh);
    Refresh();
}

void CUpView::RunViewCommand(int command)
{
    figure_->RunViewCommand(command);
    if (command < kFirstZoomOrMove || doc_->CurrentBlock() != kResultBlock)
        doc_->showHelpPage = false;
    Refresh();
}

void CUpView::Print(QPaintDevice& sheet)
{
    QPainter painter(&sheet);
    if (!painter.isActive())
        return;
    if (currentWidget() == figure_)
        figure_->PrintFigure(painter);
    else
        static_cast<CPageView*>(currentWidget())->PrintPage(painter);
}

void CUpView::Refresh()
{
    const int block = doc_->CurrentBlock();
    if (!doc_->showHelpPage || block == kResultBlock)
        setCurrentWidget(figure_);
    else if (IsChkBlock(block))
        setCurrentWidget(chk_);
    else
        setCurrentWidget(help_);
    if (currentWidget() == figure_)
        figure_->update();
    else
        static_cast<CPageView*>(currentWidget())->viewport()->update();
}

} // namespace sbd
