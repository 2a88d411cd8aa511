// How the top window leads to places: the line over it, the way back, the session of last time, what the cell takes.
#include "document/run_end.h"
#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/command_actions.h"
#include "frame/go_line_box.h"
#include "frame/guide_window.h"
#include "frame/main_frame.h"
#include "frame/settings.h"
#include "frame/shortcut_sheet.h"
#include "grid/grid_ctrl.h"
#include "panelmodel/panel_model.h"
#include "panelmodel/range_summary.h"
#include "panels/panel.h"
#include "panels/search_panel.h"
#include "project/block_numbers.h"
#include "project/sbd_data.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QTimer>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kTwice = 700; // ms between two keys that are one

} // namespace

void CMainFrame::AddPlaceHandlers()
{
    handlers_[Command::GoTo] = [this] { OpenGoLine(GoScope::All); };
    handlers_[Command::GoToNumber] = [this] { OpenGoLine(GoScope::Numbers); };
    OnChild(Command::Back, [](CChildFrame& child) { child.GoBack(); });
    OnChild(Command::Forward, [](CChildFrame& child) { child.GoBack(true); });
    handlers_[Command::Shortcuts] = [this] { ShowShortcuts(); };
    handlers_[Command::FirstBridge] = [this] { ShowGuide(); };
    handlers_[Command::Search] = [this, search = handlers_[Command::Search]] {
        const CChildFrame* child = CurrentChild(); // in the line already: nothing else was done in between
        const bool inLine = child != nullptr && child->CurrentPlace() == SearchPlace{kSearchBlock, 1, 1};
        const bool twice = inLine && sinceSearchKey_.isValid() && sinceSearchKey_.elapsed() < kTwice;
        sinceSearchKey_.start();
        if (twice)
            ShowShortcuts();
        else
            search();
    };
    handlers_[Command::HelpBeside] = [this] {
        const bool beside = !CSettings().HelpBeside();
        CSettings().SetHelpBeside(beside);
        for (CChildFrame* child : Children())
            child->ShowHelpBeside(beside);
    };
    handlers_[Command::KeepSession] = [] { CSettings().SetKeepsSession(!CSettings().KeepsSession()); };
}

void CMainFrame::ShowShortcuts()
{
    if (shortcuts_ == nullptr)
        shortcuts_ = MakeShortcutSheet(this);
    shortcuts_->show();
    shortcuts_->raise();
    shortcuts_->activateWindow();
}

void CMainFrame::ShowGuide()
{
    if (guide_ == nullptr)
        guide_ =
            MakeGuideWindow(this, [this](QWidget* parent) { return prompts_.chooseFolder(parent, files_->Folder()); });
    guide_->show();
    guide_->raise();
    guide_->activateWindow();
}

// --- the line ----------------------------------------------------------------------------------------

void CMainFrame::OpenGoLine(GoScope scope)
{
    if (goLine_ == nullptr) {
        goLine_ = new CGoLine(this);
        goLine_->find = [this](const QString& line, GoScope wanted) { return FindTargets(line, wanted); };
        goLine_->may = [this](Command command) { return MayBeGiven(command); };
        connect(goLine_, &CGoLine::chosen, this, &CMainFrame::GoTo);
        connect(goLine_, &CGoLine::left, this, &CMainFrame::EndEditBehindLine, Qt::QueuedConnection);
    }
    goLine_->Open(scope);
}

std::vector<GoTarget> CMainFrame::FindTargets(const QString& line, GoScope scope) const
{
    static const CSbdData none;
    CChildFrame* child = CurrentChild();
    if (child != nullptr && line.trimmed().isEmpty()) { // where the user has been
        std::vector<GoTarget> targets;
        for (SearchPlace place : child->Places().Recent()) {
            std::string text = PlaceInWords(child->Doc().Data(), place);
            targets.push_back({GoTarget::Kind::Place, place, Command::None, std::move(text), {}});
        }
        return targets;
    }
    std::vector<GoTarget> targets = GoTargets(line.toStdString(), child == nullptr ? none : child->Doc().Data(),
                                              child == nullptr ? 0 : child->CurrentBlock(), scope);
    if (child == nullptr) // nothing to go to
        std::erase_if(targets, [](const GoTarget& target) { return target.kind != GoTarget::Kind::Command; });
    return targets;
}

void CMainFrame::GoTo(const GoTarget& target)
{
    CChildFrame* child = CurrentChild();
    if (target.kind == GoTarget::Kind::Command) {
        RunCommand(target.command);
    } else if (child != nullptr && target.place.block == kSearchBlock) {
        child->GoToBlock(kSearchBlock);
        if (auto* search = qobject_cast<CDown999*>(child->Panel())) {
            if (target.kind == GoTarget::Kind::Search)
                search->SearchFor(goLine_->Line()->text().trimmed());
            search->GoToLine();
        }
    } else if (child != nullptr) {
        child->JumpTo(target.place.block, target.place.row, target.place.column);
    }
    UpdateCommands();
}

/// The keyboard went from the line to somewhere else: what was being edited ends as if it had gone there at once.
void CMainFrame::EndEditBehindLine()
{
    CChildFrame* child = CurrentChild();
    CGridCtrl* grid = child == nullptr || child->Panel() == nullptr ? nullptr : child->Panel()->Grid();
    if (grid != nullptr && grid->IsEditing() && !grid->isAncestorOf(QApplication::focusWidget()))
        grid->CommitEditor();
}

// --- the session -------------------------------------------------------------------------------------

/// The project in front comes last, so that it is in front again.
void CMainFrame::KeepSessionPlaces() const
{
    QList<SessionPlace> places;
    QList<CChildFrame*> children = Children();
    if (CChildFrame* front = CurrentChild(); children.removeOne(front))
        children.append(front);
    for (CChildFrame* child : children) {
        const SearchPlace at = child->CurrentPlace();
        if (const QString path = child->Doc().PathName(); !path.isEmpty())
            places.append({path, at.block, at.row, at.column});
    }
    CSettings settings;
    if (settings.KeepsSession() || !settings.Session().isEmpty())
        settings.SetSession(settings.KeepsSession() ? places : QList<SessionPlace>());
}

bool CMainFrame::RestoreSession()
{
    const CSettings settings;
    if (!settings.KeepsSession())
        return false;
    bool opened = false;
    QStringList missing;
    for (const SessionPlace& place : settings.Session()) {
        QString trouble;
        CChildFrame* child = files_->OpenQuietly(place.path, trouble);
        if (child == nullptr) {
            missing << u"・%1\n　　%2"_s.arg(QDir::toNativeSeparators(place.path), trouble.section(u'\n', 0, 0));
            continue;
        }
        opened = true;
        child->JumpTo(place.block, place.row, place.column);
    }
    if (!missing.isEmpty())
        Warn(u"前回の終了時に開いていた物件のうち、次のものは開けませんでした。\n\n"_s + missing.join(u'\n')
             + u"\n\nファイルには何もしていません。場所が変わったときは［ファイル］の［開く］で選んでください。"_s);
    return opened;
}

// --- the status bar ----------------------------------------------------------------------------------

void CMainFrame::ShowIndicators()
{
    CChildFrame* child = CurrentChild();
    const auto show = [](QLabel* label, const QString& text, const QString& tip) {
        label->setText(text);
        label->setToolTip(tip);
        label->setVisible(!text.isEmpty());
    };
    QString expected;
    if (child != nullptr && child->Panel() != nullptr && child->Panel()->Model() != nullptr)
        if (const GridCell cell = child->Panel()->Grid()->FocusCell(); cell.row > 0)
            expected = toQString(ExpectedIn(*child->Panel()->Model(), cell.row, cell.column));
    if (expected.isEmpty())
        summaryLabel_->clear(); // of the panel before
    show(expectsLabel_, expected, tr("カーソルのあるセルに入力できるもの"));
    if (child == nullptr) {
        show(savedLabel_, {}, {});
        show(engineLabel_, {}, {});
        return;
    }
    const CKELDSectionDoc& doc = child->Doc();
    const bool modified = doc.IsModified();
    const bool named = !doc.PathName().isEmpty();
    show(savedLabel_,
         modified ? tr("未保存")
         : named  ? tr("保存済み")
                  : tr("新規"),
         modified ? tr("保存していない変更があります。") : tr("画面の内容はファイルと同じです。"));
    QFont font = savedLabel_->font();
    font.setBold(modified);
    savedLabel_->setFont(font);
    const bool runs = files_->Runner().IsRunning();
    show(engineLabel_,
         runs                            ? tr("計算中")
         : doc.lastRun.isEmpty()         ? tr("計算 未実行")
         : TellsOfAWholeRun(doc.lastRun) ? tr("計算 済み")
                                         : tr("計算 未完了"),
         runs                    ? tr("計算プログラムが動いています。")
         : doc.lastRun.isEmpty() ? tr("この物件の計算の記録はありません。")
                                 : doc.lastRun);
}

} // namespace sbd
