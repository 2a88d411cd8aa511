#include "upperview/chk_view.h"

#include "document/section_doc.h"
#include "upperview/display_look.h"
#include "upperview/help_page.h"
#include "upperview/run_poster.h"

#include <QFileInfo>
#include <QFontMetricsF>
#include <QPainter>

namespace sbd {

using namespace Qt::StringLiterals;

CChkView::CChkView(CKELDSectionDoc* doc, QWidget* parent)
    : CPageView(parent)
    , doc_(doc)
    , poster_(new CRunPoster([this] { return IsShown() && doc_->runOnShow; }, this))
{
    setAccessibleName(u"解析結果の報告"_s);
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
    const std::string lastRun = fromQString(doc_->lastRun).value_or(std::string());
    return ChkPageLines({doc_->CurrentBlock(), !path.isEmpty(), stale, text_, lastRun});
}

QFont CChkView::Font() const
{
    return HelpFont(doc_->display);
}

QSizeF CChkView::PaintPage(QPainter& painter, const QRectF& visible)
{
    const std::vector<ChkLine> lines = Lines();
    painter.setFont(Font());
    PaintChkPage(painter, lines, visible);
    return ChkPageSize(lines, QFontMetricsF(Font()));
}

QColor CChkView::BackColour() const
{
    return PaperColour(doc_->display);
}

double CChkView::LineStep() const
{
    return ChkLineStep(QFontMetricsF(Font()));
}

void CChkView::Painted()
{
    if (!IsShown() || doc_->PathName().isEmpty())
        return;
    const bool stale = IsChkStale(doc_->PathName(), doc_->IsModified());
    if (const auto run = RunToPost(doc_->CurrentBlock(), doc_->runOnShow, stale, text_.opened))
        poster_->Want(*run);
}

} // namespace sbd
