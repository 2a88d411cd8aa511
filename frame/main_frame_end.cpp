// How the top window meets the end of the session, and an end by force.
#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/main_frame.h"

#include <QCoreApplication>
#include <QEvent>
#include <QMouseEvent>
#include <QStatusBar>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kNoticeTime = 60'000; // ms

const auto kEngineRuns = u"計算の実行中のため、サインアウト (セッションの終了) を中止しました。計算が終わってから、"
                         u"もう一度サインアウトしてください。"_s;

} // namespace

/// False if a text is in an editor only, or a changed project could not be copied.
bool CMainFrame::KeepAllCopies()
{
    bool all = true;
    for (CChildFrame* child : Children()) {
        const bool taken = child->TakeOpenEditor();
        const bool copied = !child->Doc().IsModified() || child->KeepRecoveryCopy();
        all = all && taken && copied;
    }
    return all;
}

void CMainFrame::OnSessionEnd(const SessionEnd& end)
{
    sessionEnds_ = false;
    files_->KeepRecoveryCopies(); // as it stands in memory, before anything else can go wrong
    const bool allKept = KeepAllCopies();
    if (files_->Runner().IsRunning()) {
        statusBar()->showMessage(kEngineRuns, kNoticeTime);
        end.cancel();
        return;
    }
    QList<QPointer<CChildFrame>> letGo;
    const bool asks =
        !allKept || std::ranges::any_of(Children(), [](CChildFrame* child) { return child->Doc().IsModified(); });
    if (asks) {
        // Where nobody can be asked, the copies have to do.
        if (end.mayAsk() ? !AskAboutAll(letGo) : !allKept) {
            end.cancel();
            return;
        }
    }
    for (const QMetaObject::Connection& link : letGoLinks_)
        disconnect(link);
    letGoLinks_.clear();
    letGo_ = letGo;
    for (const QPointer<CChildFrame>& child : letGo) {
        child->DropRecoveryCopy();
        // Somebody else may stop the end, and the user go on.
        letGoLinks_.append(
            connect(&child->Doc(), &CKELDSectionDoc::changed, this, [this, child] { letGo_.removeAll(child); }));
    }
    sessionEnds_ = true;
}

/// False: the session has to stay. `letGo` takes the projects whose changes the user does not want.
bool CMainFrame::AskAboutAll(QList<QPointer<CChildFrame>>& letGo)
{
    for (const QPointer<CChildFrame> child : Children()) {
        if (child == nullptr)
            continue;
        if (!files_->MayClose(*child))
            return false;
        if (child != nullptr && child->Doc().IsModified())
            letGo.append(child);
    }
    return true;
}

/// The system ends the program. It has asked before, and will not wait for another answer.
void CMainFrame::OnQuit()
{
    if (!sessionEnds_)
        return;
    KeepSessionPlaces();
    for (CChildFrame* child : Children()) {
        if (letGo_.contains(child))
            continue;
        child->TakeOpenEditor();
        child->KeepRecoveryCopy();
        child->LeaveRecoveryCopy();
    }
    asksNothing_ = true;
}

bool CMainFrame::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Quit && watched == QCoreApplication::instance())
        OnQuit();
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick) {
        const Qt::MouseButton button = static_cast<QMouseEvent*>(event)->button();
        const bool side = button == Qt::BackButton || button == Qt::ForwardButton;
        if (side && watched->isWidgetType() && static_cast<QWidget*>(watched)->window() == this) {
            const Command command = button == Qt::BackButton ? Command::Back : Command::Forward;
            QMetaObject::invokeMethod( // what is pressed may go with its panel
                this, [this, command] { RunCommand(command); }, Qt::QueuedConnection);
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

void CMainFrame::EndNow()
{
    KeepSessionPlaces();
    files_->KeepRecoveryCopies();
    (void)KeepAllCopies();
    for (CChildFrame* child : Children())
        child->LeaveRecoveryCopy();
    asksNothing_ = true;
}

} // namespace sbd
