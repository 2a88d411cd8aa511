#include "upperview/chk_view.h"

#include "document/section_doc.h"
#include "upperview/page_font.h"
#include "upperview/run_poster.h"

#include <QFileInfo>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

#include <cmath>

namespace sbd {

using namespace Qt::StringLiterals;

CChkView::CChkView(CKELDSectionDoc* doc, QWidget* parent)
    : QAbstractScrollArea(parent)
    , doc_(doc)
    , poster_(new CRunPoster([this] { return IsShown() && doc_->runOnShow; }, this))
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::ClickFocus);
    setAccessibleName(u"解析結果の報告"_s);
    viewport()->setBackgroundRole(QPalette::Base);
    connect(poster_, &CRunPoster::runIsDue, this, &CChkView::runIsDue);
    const auto repaint = [this] { viewport()->update(); };
    connect(doc_, &CKELDSectionDoc::modifiedChanged, this, repaint);
    connect(doc_, &CKELDSectionDoc::pathChanged, this, repaint);
    connect(doc_, &CKELDSectionDoc::reloaded, this, repaint);
}

void CChkView::UserAsked()
{
    poster_->UserAsked();
}

void CChkView::RunEnded()
{
    poster_->RunEnded();
    viewport()->update();
}

bool CChkView::IsShown() const
{
    return isVisible() && IsChkBlock(doc_->CurrentBlock());
}

void CChkView::LookAtReport()
{
    const QString path = doc_->PathName().isEmpty() ? QString() : ChkPath(doc_->PathName());
    const QFileInfo info(path);
    const bool exists = !path.isEmpty() && info.exists();
    const QDateTime time = exists ? info.lastModified() : QDateTime();
    const qint64 size = exists ? info.size() : -1;
    if (path == chkPath_ && time == chkTime_ && size == chkSize_)
        return;
    chkPath_ = path;
    chkTime_ = time;
    chkSize_ = size;
    text_ = exists ? ReadChkText(path) : ChkText();
}

std::vector<ChkLine> CChkView::Lines()
{
    LookAtReport();
    const QString path = doc_->PathName();
    const bool stale = !path.isEmpty() && IsChkStale(path, doc_->IsModified());
    return ChkPageLines({doc_->CurrentBlock(), !path.isEmpty(), stale, text_});
}

double CChkView::Scale() const
{
    return viewport()->logicalDpiX() / kPageUnitsPerInch;
}

void CChkView::SetScrollSize(const std::vector<ChkLine>& lines)
{
    const QSizeF page = ChkPageSize(lines, QFontMetricsF(PageFont())) * Scale();
    const QSize pane = viewport()->size();
    const int step = static_cast<int>(std::lround(ChkLineStep(QFontMetricsF(PageFont())) * Scale()));
    horizontalScrollBar()->setRange(0, std::max(0, static_cast<int>(std::ceil(page.width())) - pane.width()));
    horizontalScrollBar()->setPageStep(pane.width());
    horizontalScrollBar()->setSingleStep(step);
    verticalScrollBar()->setRange(0, std::max(0, static_cast<int>(std::ceil(page.height())) - pane.height()));
    verticalScrollBar()->setPageStep(pane.height());
    verticalScrollBar()->setSingleStep(step);
}

void CChkView::paintEvent(QPaintEvent*)
{
    const std::vector<ChkLine> lines = Lines();
    SetScrollSize(lines);
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), palette().base());
    painter.translate(-horizontalScrollBar()->value(), -verticalScrollBar()->value());
    painter.scale(Scale(), Scale());
    painter.setFont(PageFont());
    PaintChkPage(painter, lines, painter.transform().inverted().mapRect(QRectF(viewport()->rect())));
    PostRun();
}

void CChkView::PostRun()
{
    if (!IsShown() || doc_->PathName().isEmpty())
        return;
    const bool stale = IsChkStale(doc_->PathName(), doc_->IsModified());
    if (const auto run = RunToPost(doc_->CurrentBlock(), doc_->runOnShow, stale, text_.opened))
        poster_->Want(*run);
}

void CChkView::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    SetScrollSize(Lines());
}

void CChkView::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Home:
        verticalScrollBar()->triggerAction(QScrollBar::SliderToMinimum);
        break;
    case Qt::Key_End:
        verticalScrollBar()->triggerAction(QScrollBar::SliderToMaximum);
        break;
    default:
        QAbstractScrollArea::keyPressEvent(event);
    }
}

} // namespace sbd
