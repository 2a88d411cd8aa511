#include "frame/project_findings.h"

#include "frame/child_frame.h"
#include "frame/finding_pane.h"
#include "frame/finding_text.h"
#include "frame/left_view.h"
#include "frame/notice_bar.h"
#include "frame/settings.h"
#include "grid/grid_ctrl.h"
#include "panelmodel/panel_model.h"
#include "panels/panel.h"

#include <QApplication>
#include <QTableView>

#include <algorithm>
#include <tuple>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

const auto kFileNotice = u"file-findings"_s;

using Place = std::tuple<int, int, int>;

Place PlaceOf(const Finding& finding)
{
    return {finding.block, finding.row, finding.column};
}

/// The first thing that was not understood, and how many there are.
QString FileNoticeText(const FileFindings& found)
{
    const FindingList& list = found.findings;
    const Finding& first = list.list.front();
    const std::size_t count = list.list.size() + list.more;
    QString text;
    if (!found.isProject)
        text = u"プロジェクトとして読めないファイルを開きました。"_s;
    else if (found.isForeign)
        text = u"文字コードの違うファイルを開きました。"_s;
    else if (!list.anyLoss)
        text = u"知らない区分をそのまま残して開きました。"_s;
    else
        text =
            u"ファイルに、読み取れなかったか違う意味に読まれた所が %1 件あります。そのまま開いています。"_s.arg(count);
    text += u'\n';
    if (first.line > 0)
        text += u"%1 行目: "_s.arg(first.line);
    text += QString::fromStdString(first.text);
    if (count > 1)
        text += u"（ほか %1 件）"_s.arg(count - 1);
    return text;
}

} // namespace

CProjectFindings::CProjectFindings(CChildFrame& frame) : frame_(frame), check_(frame.Doc()), pane_(new CFindingPane)
{
    check_.openPanel = [this]() -> const CPanelModel* {
        return frame_.Panel() == nullptr ? nullptr : frame_.Panel()->Model();
    };
    SetSilent(CSettings().SilentFindings());
    pane_->setVisible(CSettings().ShowsFindings());
    connect(&check_, &CProjectCheck::updated, this, &CProjectFindings::Show);
    connect(&frame.Doc(), &CKELDSectionDoc::reloaded, this, &CProjectFindings::ShowFileNotice);
    connect(pane_, &CFindingPane::wanted, this, &CProjectFindings::GoTo);
    ShowFileNotice();
}

CProjectFindings::~CProjectFindings() = default;

CFindingPane* CProjectFindings::Pane()
{
    return pane_;
}

void CProjectFindings::SetSilent(const SilentKinds& kinds)
{
    check_.SetSilent(kinds);
    pane_->SetSilent(kinds);
}

void CProjectFindings::ShowPane(bool show)
{
    const bool hadFocus = pane_->isAncestorOf(QApplication::focusWidget());
    pane_->setVisible(show);
    ShowList(); // it is not filled while it is hidden
    if (hadFocus)
        frame_.FocusPanel();
}

bool CProjectFindings::ShowsPane() const
{
    return pane_ && !pane_->isHidden();
}

void CProjectFindings::FocusPane()
{
    if (ShowsPane())
        pane_->Lines()->setFocus(Qt::OtherFocusReason);
}

void CProjectFindings::OnPanelShown()
{
    if (pane_)
        pane_->SetCurrentBlock(frame_.Panel() == nullptr ? frame_.CurrentBlock() : frame_.Panel()->Block());
    ShowMarks();
    check_.LookSoon(); // rows of the panel that was closed are gone
}

void CProjectFindings::Show()
{
    ShowMarks();
    std::map<int, MarkKind> marks;
    for (const int block : check_.Blocks())
        marks[block] = LookOf(*check_.WorstOf(block)).mark;
    frame_.Tree().SetMarks(std::move(marks));
    ShowList();
    emit countsChanged();
}

void CProjectFindings::ShowMarks()
{
    if (CPanel* panel = frame_.Panel(); panel != nullptr && panel->Model() != nullptr)
        panel->Grid()->SetMarks(MarkSource::Check, MarksOf(check_.FindingsOf(panel->Block())));
}

void CProjectFindings::ShowList()
{
    if (!ShowsPane())
        return;
    const FindingList all = check_.All();
    const FindingList& ofFile = frame_.Doc().AsRead().findings;
    std::vector<ListedFinding> listed;
    for (const Finding& finding : ofFile.list)
        listed.push_back({finding, true});
    for (const Finding& finding : all.list)
        listed.push_back({finding, false});
    pane_->SetFindings(std::move(listed), all.more + ofFile.more);
}

void CProjectFindings::ShowFileNotice()
{
    const FileFindings& found = frame_.Doc().AsRead();
    ShowList();
    if (found.findings.list.empty()) {
        frame_.Notices().Close(kFileNotice);
        return;
    }
    // A run reads the file again: what was told and closed is not told twice.
    bool isTold = true;
    for (const Finding& finding : found.findings.list)
        isTold = !toldOfFile_.insert(finding.text).second && isTold;
    if (isTold)
        return;
    Notice notice{kFileNotice, FileNoticeText(found), {}, found.findings.anyLoss};
    const auto place =
        std::ranges::find_if(found.findings.list, [](const Finding& finding) { return finding.block != 0; });
    if (place != found.findings.list.end())
        notice.actions.append({u"%1 へ(&J)"_s.arg(place->block), [this, where = *place] { GoTo(where); }});
    notice.actions.append({u"一覧(&L)"_s, [this] { emit listWanted(); }});
    frame_.Notices().Show(notice);
}

void CProjectFindings::GoToNext(bool back)
{
    CPanel* panel = frame_.Panel();
    if (panel != nullptr && panel->Model() != nullptr && !panel->MayClose())
        return; // the cell has refused the text, and said so
    frame_.CommitPanel();
    check_.LookAtAllNow();
    const std::vector<int> blocks = check_.Blocks();
    if (blocks.empty()) {
        emit told(u"指摘はありません。"_s);
        return;
    }
    const GridCell focus = panel == nullptr ? GridCell() : panel->Grid()->FocusCell();
    const int block = panel == nullptr ? frame_.CurrentBlock() : panel->Block();
    Place here{block, focus.row, focus.column};
    // A finding of a row or a block as a whole stands ahead of the cell in which it is shown.
    if (last_.block == block && focus.row == lastRow_ && focus.column == lastColumn_)
        here = PlaceOf(last_);

    std::vector<Finding> all = check_.All().list;
    // A row that only the panel holds goes with the panel: what is told of it comes first, round and round.
    const CPanelModel* model = panel == nullptr ? nullptr : panel->Model();
    const bool wouldLose = model != nullptr && std::ranges::any_of(all, [&](const Finding& finding) {
                               return finding.block == block && finding.row > 0 && !model->IsWritten(finding.row);
                           });
    if (wouldLose)
        std::erase_if(all, [block](const Finding& finding) { return finding.block != block; });
    if (back)
        std::ranges::reverse(all);
    const auto next = std::ranges::find_if(
        all, [&](const Finding& finding) { return back ? PlaceOf(finding) < here : PlaceOf(finding) > here; });
    GoTo(next == all.end() ? all.front() : *next);
}

void CProjectFindings::GoTo(const Finding& finding)
{
    const Finding where = finding; // what is shown may be told anew on the way
    emit told(QString::fromStdString(where.text));
    if (where.block == 0)
        return;
    frame_.JumpTo(where.block, where.row, std::max(where.column, 1));
    last_ = where;
    const GridCell focus = frame_.Panel() == nullptr ? GridCell() : frame_.Panel()->Grid()->FocusCell();
    lastRow_ = focus.row;
    lastColumn_ = focus.column;
    if (pane_ && pane_->isVisible())
        pane_->Select(where);
}

QString CProjectFindings::LineBehindSave()
{
    check_.LookNow();
    ShowList(); // what was read is written anew
    const std::size_t count = check_.Counts()[static_cast<std::size_t>(Severity::Loss)];
    return count == 0 ? QString()
                      : u"保存しました。%1 個のセルは、開き直すと変わります。F8 でその場所へ移動します。"_s.arg(count);
}

} // namespace sbd
