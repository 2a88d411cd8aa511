#include "upperview/up_view.h"

#include "document/section_doc.h"
#include "project/block_numbers.h"
#include "upperview/chk_view.h"
#include "upperview/drawing_canvas.h"
#include "upperview/drawing_pane.h"
#include "upperview/figure_pane.h"
#include "upperview/help_view.h"
#include "upperview/page/page.h"
#include "upperview/svg_picture.h"

#include <QBuffer>
#include <QDate>
#include <QFileInfo>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

namespace sbd {

using namespace Qt::StringLiterals;

CUpView::CUpView(CKELDSectionDoc* doc, QWidget* parent)
    : QStackedWidget(parent)
    , doc_(doc)
    , help_(new CHelpView(doc))
    , chk_(new CChkView(doc))
    , figure_(new CFigurePane(doc))
    , drawing_(new CDrawingPane(doc))
{
    for (QWidget* pane : std::initializer_list<QWidget*>{help_, chk_, figure_, drawing_})
        addWidget(pane);
    setFocusPolicy(Qt::NoFocus);
    connect(doc_, &CKELDSectionDoc::helpCellChanged, this, &CUpView::Refresh);
    connect(doc_, &CKELDSectionDoc::reloaded, this, &CUpView::Refresh);
    Refresh();
}

void CUpView::RunViewCommand(Command command)
{
    if (currentWidget() == drawing_) {
        drawing_->RunViewCommand(command);
        return;
    }
    figure_->RunViewCommand(command);
    if (doc_->CurrentBlock() != kResultBlock)
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
    else if (currentWidget() == drawing_)
        drawing_->PrintSheet(painter);
    else
        static_cast<CPageView*>(currentWidget())->PrintPage(painter, Foot());
}

bool CUpView::IsWide() const
{
    return currentWidget() == figure_ && figure_->width() > figure_->height();
}

PrintFoot CUpView::Foot() const
{
    const int block = currentWidget() == help_ ? help_->Cell().block : doc_->CurrentBlock();
    const QString title = toQString(PageTitleText(block));
    return {doc_->Title() + u"   "_s + (title.isEmpty() ? QString::number(block) : title),
            QDate::currentDate().toString(u"yyyy/MM/dd"_s) + u"   1 / 1 ページ"_s};
}

QSize CUpView::PictureSize()
{
    if (currentWidget() == figure_)
        return figure_->size();
    if (currentWidget() == drawing_)
        return drawing_->Canvas().size();
    return static_cast<CPageView*>(currentWidget())->PictureSize();
}

void CUpView::PaintPicture(QPainter& painter)
{
    if (currentWidget() == figure_)
        figure_->PaintPicture(painter);
    else if (currentWidget() == drawing_)
        drawing_->PaintPicture(painter);
    else
        static_cast<CPageView*>(currentWidget())->PaintPicture(painter);
}

bool CUpView::SavePicture(const QString& file)
{
    constexpr int sharp = 2; // pixels of the picture a pixel of the screen
    const QSize size = PictureSize();
    const QString ending = QFileInfo(file).suffix().toLower();
    QBuffer bytes;
    if (ending == u"png"_s) {
        QImage picture(size * sharp, QImage::Format_RGB32);
        picture.setDevicePixelRatio(sharp);
        QPainter painter(&picture);
        PaintPicture(painter);
        painter.end();
        picture.save(&bytes, "PNG");
    } else if (ending == u"svg"_s) {
        bytes.open(QBuffer::WriteOnly);
        CSvgPicture picture(bytes, size, logicalDpiX());
        QPainter painter(&picture);
        PaintPicture(painter);
    } else if (ending == u"pdf"_s && currentWidget() == drawing_) { // goes into reports: the sheet
        bytes.open(QBuffer::WriteOnly);
        QPdfWriter picture(&bytes);
        picture.setPageSize(QPageSize(QPageSize::A3));
        picture.setPageOrientation(QPageLayout::Landscape);
        picture.setPageMargins({});
        QPainter painter(&picture);
        drawing_->PrintSheet(painter);
    } else if (ending == u"pdf"_s) {
        bytes.open(QBuffer::WriteOnly);
        QPdfWriter picture(&bytes);
        picture.setResolution(logicalDpiX());
        picture.setPageMargins({});
        picture.setPageSize(QPageSize(QSizeF(size) / logicalDpiX(), QPageSize::Inch));
        QPainter painter(&picture);
        PaintPicture(painter);
    }
    QSaveFile target(file);
    return !bytes.data().isEmpty() && target.open(QFile::WriteOnly) && target.write(bytes.data()) == bytes.data().size()
           && target.commit();
}

void CUpView::Refresh()
{
    const int block = doc_->CurrentBlock();
    const bool isReport = IsChkBlock(block); // whose runs begin by being shown
    if (doc_->showDrawing && block != kResultBlock && !isReport)
        setCurrentWidget(drawing_);
    else if (!doc_->showHelpPage || block == kResultBlock)
        setCurrentWidget(figure_);
    else if (isReport)
        setCurrentWidget(chk_);
    else
        setCurrentWidget(help_);
    if (currentWidget() == figure_)
        figure_->Refresh();
    else if (currentWidget() == drawing_)
        drawing_->Refresh();
    else
        static_cast<CPageView*>(currentWidget())->viewport()->update();
}

} // namespace sbd
