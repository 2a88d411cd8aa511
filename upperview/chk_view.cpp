#include "upperview/chk_view.h"

#include "document/section_doc.h"
#include "upperview/display_look.h"
#include "upperview/help_page.h"
#include "upperview/paper.h"
#include "upperview/run_poster.h"

#include <QFileInfo>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <utility>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

bool IsStepKey(const QKeyEvent& key)
{
    return key.key() == Qt::Key_F8 && (key.modifiers() & ~Qt::ShiftModifier) == Qt::NoModifier;
}

} // namespace

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
    connect(doc_, &CKELDSectionDoc::reloaded, this, &CChkView::ForgetPlaces);
    connect(doc_, &CKELDSectionDoc::changed, this, &CChkView::ForgetPlaces);
    viewport()->setMouseTracking(true);
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
    hasWeighed_.reset();
    chosen_.reset();
    pressed_.reset();
    ForgetPlaces();
}

void CChkView::ForgetPlaces()
{
    places_.reset();
    placeOfLine_.clear();
}

std::optional<ReportPlace> CChkView::PlaceOfLine(std::size_t line)
{
    if (line >= text_.lines.size())
        return std::nullopt;
    if (const auto known = placeOfLine_.find(line); known != placeOfLine_.end())
        return known->second;
    constexpr std::size_t mostKept = 10'000;
    if (placeOfLine_.size() >= mostKept)
        placeOfLine_.clear();
    if (places_ == nullptr)
        places_ = std::make_unique<CReportPlaces>(doc_->Data());
    return placeOfLine_[line] = places_->PlaceOf(text_.lines[line]);
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
    std::vector<ChkLine> lines = Lines();
    painter.setFont(Font());
    PaintChkPage(painter, lines, visible);
    if (painter.device() == viewport()) {
        painted_ = std::move(lines);
        PaintLinks(painter, painted_, visible);
        return ChkPageSize(painted_, QFontMetricsF(Font()));
    }
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

/// Of the lines in view alone: a report may have a million.
void CChkView::PaintLinks(QPainter& painter, const std::vector<ChkLine>& lines, const QRectF& visible)
{
    const QFontMetricsF metrics(Font());
    const ChkRange range = ChkLinesWithin(lines, visible.top(), visible.bottom(), metrics);
    for (std::size_t i = range.first; i < range.end; ++i) {
        const std::optional<std::size_t> line = ReportLineOf(lines[i], text_);
        if (!line)
            continue;
        const QRectF place = ChkTextRect(lines[i], metrics);
        painter.setBrush(Qt::NoBrush);
        if (PlaceOfLine(*line)) {
            const double y = place.top() + metrics.ascent() + metrics.underlinePos();
            painter.setPen(QPen(Ink(Qt::red, painter.background().color()), metrics.lineWidth()));
            painter.drawLine(QPointF(place.left(), y), QPointF(place.right(), y));
        }
        if (chosen_ == line) {
            painter.setPen(QPen(Ink(Qt::blue, painter.background().color()), 0, Qt::DotLine));
            painter.drawRect(place);
        }
    }
}

QRectF CChkView::RectOfLine(std::size_t line)
{
    const QFontMetricsF metrics(Font());
    for (const ChkLine& shown : painted_) {
        if (ReportLineOf(shown, text_) != line)
            continue;
        const QRectF place = ChkTextRect(shown, metrics);
        const QPointF scrolled(horizontalScrollBar()->value(), verticalScrollBar()->value());
        return {place.topLeft() * Scale() - scrolled, place.size() * Scale()};
    }
    return {};
}

std::optional<std::size_t> CChkView::LinkAt(QPointF place)
{
    if (!IsShown())
        return std::nullopt;
    const QPointF onPage = (place + QPointF(horizontalScrollBar()->value(), verticalScrollBar()->value())) / Scale();
    const QFontMetricsF metrics(Font());
    const ChkRange range = ChkLinesWithin(painted_, onPage.y(), onPage.y(), metrics);
    for (std::size_t i = range.first; i < range.end; ++i) {
        const std::optional<std::size_t> line = ReportLineOf(painted_[i], text_);
        if (line && ChkTextRect(painted_[i], metrics).contains(onPage) && PlaceOfLine(*line))
            return line;
    }
    return std::nullopt;
}

std::optional<std::size_t> CChkView::NextLine(std::optional<std::size_t> from, bool back,
                                              const std::function<bool(std::size_t)>& wanted) const
{
    const std::size_t count = text_.lines.size();
    // Counted from 1, so that 0 is ahead of all.
    for (std::size_t at = from ? *from + 1 : (back ? count + 1 : 0);;) {
        at = back ? at - 1 : at + 1;
        if (at < 1 || at > count)
            return std::nullopt;
        if (wanted(at - 1))
            return at - 1;
    }
}

bool CChkView::HasWeighedLines()
{
    if (!hasWeighed_)
        hasWeighed_ = std::ranges::any_of(
            text_.lines, [](const std::string& line) { return WeightOfLine(line) != ReportWeight::None; });
    return *hasWeighed_;
}

void CChkView::StepToWeighed(bool back)
{
    const auto weighs = [this](std::size_t line) { return WeightOfLine(text_.lines[line]) != ReportWeight::None; };
    std::optional<std::size_t> next = NextLine(chosen_, back, weighs);
    if (!next)
        next = NextLine(std::nullopt, back, weighs); // round again
    Choose(next);
}

void CChkView::Choose(std::optional<std::size_t> line)
{
    chosen_ = line;
    if (line) {
        const QRectF place = RectOfLine(*line);
        QScrollBar* bar = verticalScrollBar();
        if (place.top() < 0)
            bar->setValue(bar->value() + static_cast<int>(std::floor(place.top())));
        else if (place.bottom() > viewport()->height())
            bar->setValue(bar->value() + static_cast<int>(std::ceil(place.bottom() - viewport()->height())));
    }
    viewport()->update();
}

void CChkView::Follow(std::size_t line)
{
    if (const std::optional<ReportPlace> place = PlaceOfLine(line))
        emit placeWanted(place->block, place->row, std::max(place->column, 1));
}

bool CChkView::event(QEvent* event)
{
    // On a report with errors the key is the report's.
    if (event->type() == QEvent::ShortcutOverride && IsStepKey(*static_cast<QKeyEvent*>(event)) && HasWeighedLines()) {
        event->accept();
        return true;
    }
    return CPageView::event(event);
}

bool CChkView::focusNextPrevChild(bool next)
{
    const std::optional<std::size_t> line =
        hasFocus() ? NextLine(chosen_, !next, [this](std::size_t at) { return PlaceOfLine(at).has_value(); })
                   : std::nullopt;
    Choose(line);
    return line || CPageView::focusNextPrevChild(next);
}

void CChkView::focusOutEvent(QFocusEvent* event)
{
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        Choose(std::nullopt);
    CPageView::focusOutEvent(event);
}

void CChkView::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    if (IsStepKey(*event) && HasWeighedLines())
        StepToWeighed(event->modifiers() == Qt::ShiftModifier);
    else if (chosen_ && (key == Qt::Key_Return || key == Qt::Key_Enter))
        Follow(*chosen_);
    else
        CPageView::keyPressEvent(event);
}

void CChkView::mouseMoveEvent(QMouseEvent* event)
{
    if (LinkAt(event->position()))
        viewport()->setCursor(Qt::PointingHandCursor);
    else
        viewport()->unsetCursor();
}

void CChkView::mousePressEvent(QMouseEvent* event)
{
    pressed_ = event->button() == Qt::LeftButton ? LinkAt(event->position()) : std::nullopt;
    CPageView::mousePressEvent(event);
}

void CChkView::mouseReleaseEvent(QMouseEvent* event)
{
    const std::optional<std::size_t> pressed = std::exchange(pressed_, std::nullopt);
    if (pressed && event->button() == Qt::LeftButton && LinkAt(event->position()) == pressed)
        Follow(*pressed);
    else
        CPageView::mouseReleaseEvent(event);
}

} // namespace sbd
