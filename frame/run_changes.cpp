#include "frame/run_changes.h"

#include "compare/difference_text.h"
#include "document/section_doc.h"
#include "frame/change_pane.h"
#include "frame/child_frame.h"
#include "frame/left_view.h"
#include "frame/notice_bar.h"
#include "grid/grid_ctrl.h"
#include "panelmodel/panel_model.h"
#include "panels/panel.h"
#include "sbdfile/writer.h"

#include <QApplication>
#include <QScopedValueRollback>
#include <QTableView>
#include <QTimer>

#include <algorithm>
#include <tuple>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

const auto kNotice = u"run-changes"_s;

using Place = std::tuple<int, int, int>;

Place PlaceOf(const ShownChange& change)
{
    return {change.block, change.at, change.column};
}

std::size_t HashOf(const CSbdData& data)
{
    return std::hash<std::string>()(WriteProject(data));
}

QString NoticeText(const ChangeCounts& counts, bool unsavedBefore)
{
    QStringList parts;
    if (counts.cells > 0)
        parts << u"セル %1 個"_s.arg(counts.cells);
    if (counts.rowsAdded > 0)
        parts << u"増えた行 %1"_s.arg(counts.rowsAdded);
    if (counts.rowsRemoved > 0)
        parts << u"なくなった行 %1"_s.arg(counts.rowsRemoved);
    if (counts.unseen > 0)
        parts << u"画面に出ない値 %1"_s.arg(counts.unseen);
    QString text = u"解析の前と後でデータが違います: "_s;
    if (counts.blocks > 0)
        text += u"%1 個のブロックで、"_s.arg(counts.blocks);
    text += parts.join(u"、"_s) + u"。"_s;
    if (counts.cells + counts.rowsAdded > 0)
        text += u"そのセルに色を付けました。ポイントすると前の値が出ます。"_s;
    if (unsavedBefore)
        text += u"解析の前に保存していなかった変更が、読み直しで消えたものを含みます。"_s;
    return text;
}

QString ToolTipOf(const ShownChange& change)
{
    if (change.kind == ChangeKind::RowAdded)
        return u"この行は解析の前にはありませんでした。"_s;
    return change.before.empty() ? u"解析の前: 空欄"_s
                                 : u"解析の前: "_s + QString::fromStdString(Quoted(change.before));
}

QString Sentence(const ShownChange& change)
{
    const QString place =
        change.block == 0 ? u"画面に出ない行"_s : QString::fromStdString(NumberAndTitle(change.block));
    switch (change.kind) {
    case ChangeKind::RowAdded:
        return u"%1 %2 行目: この行は解析の前にはありませんでした。"_s.arg(place).arg(change.row);
    case ChangeKind::RowRemoved:
        return u"%1: 元の %2 行目 %3 がなくなりました。"_s.arg(place)
            .arg(change.row)
            .arg(QString::fromStdString(Quoted(change.before)));
    case ChangeKind::Cell:
    case ChangeKind::Unseen:
        break;
    }
    const QString row = change.row > 0 ? u" %1 行目 %2 列目"_s.arg(change.row).arg(change.column) : QString();
    return place + row + u": 解析の前 "_s + QString::fromStdString(Quoted(change.before)) + u"、解析の後 "_s
           + QString::fromStdString(Quoted(change.after));
}

void AddMarks(const ShownChange& change, std::vector<CellMark>& marks)
{
    const QString tip = ToolTipOf(change);
    if (change.kind == ChangeKind::Cell)
        marks.push_back({change.row, change.column, MarkKind::Changed, tip});
    if (change.kind != ChangeKind::RowAdded)
        return;
    for (std::size_t i = 0; i < change.cells.size(); ++i)
        if (!change.cells[i].empty())
            marks.push_back({change.row, static_cast<int>(i) + 1, MarkKind::Changed, tip});
}

} // namespace

CRunChanges::CRunChanges(CChildFrame& frame)
    : frame_(frame)
    , pane_(new CChangePane(&frame.Doc()))
    , follow_(new QTimer(this))
{
    pane_->hide();
    follow_->setSingleShot(true);
    follow_->setInterval(0); // one command tells of each of its rows
    connect(follow_, &QTimer::timeout, this, &CRunChanges::FollowEdits);
    connect(&frame.Doc(), &CKELDSectionDoc::changed, this, [this](const BlockChange& change) {
        edited_.insert(change.block);
        if (!changes_.List().empty())
            follow_->start();
    });
    connect(&frame.Doc(), &CKELDSectionDoc::historyChanged, this, [this] { // of the grid alone, it may be
        edited_.insert(openBlock_);
        if (!changes_.List().empty())
            follow_->start();
    });
    connect(&frame.Doc(), &CKELDSectionDoc::stepped, this, &CRunChanges::OnStepped);
    connect(&frame.Doc(), &CKELDSectionDoc::reloaded, this, [this] {
        hasRead_ = true;
        if (!reading_)
            Dismiss(); // another project stands in the window
    });
    connect(&frame.Notices(), &CNoticeBar::closed, this, [this](const QString& key) {
        if (key == kNotice)
            Dismiss();
    });
    connect(pane_, &CChangePane::wanted, this, &CRunChanges::GoTo);
    connect(pane_, &CChangePane::closeWanted, this, [this] { ShowPane(false); });
    connect(pane_, &CChangePane::nextWanted, this, [this](bool back) {
        GoToNext(back);
        if (pane_->isVisible())
            pane_->Lines()->setFocus(Qt::OtherFocusReason);
    });
}

CRunChanges::~CRunChanges() = default;

CChangePane* CRunChanges::Pane() const
{
    return pane_;
}

void CRunChanges::Around(const std::function<void()>& change)
{
    const CSbdData before = frame_.Doc().Data();
    const bool unsaved = frame_.Doc().IsModified();
    hasRead_ = false;
    {
        const QScopedValueRollback reading(reading_, true);
        change();
    }
    if (!hasRead_)
        return;
    CCellChanges found(before, frame_.Doc().Data());
    if (found.List().empty()) {
        ShowMarks(); // of an earlier run, in the panel that was built anew
        return;
    }
    changes_ = std::move(found);
    asRun_ = changes_;
    bytesBefore_ = HashOf(before);
    bytesBehind_ = HashOf(frame_.Doc().Data());
    unsavedBefore_ = unsaved;
    last_ = 0;
    lastBlock_ = 0;
    edited_.clear();
    ShowNotice(unsaved);
    ShowAll();
}

void CRunChanges::ShowNotice(bool wasModified)
{
    Notice notice{kNotice, NoticeText(asRun_.Counts(), wasModified), {}, true};
    notice.actions.append({u"次へ(&N)"_s, [this] { GoToNext(false); }});
    notice.actions.append({u"一覧(&C)"_s, [this] {
                               ShowPane(true);
                               pane_->Lines()->setFocus(Qt::OtherFocusReason);
                           }});
    notice.actions.append({u"元に戻す: 解析での変更(&U)"_s, [this] { TakeRunBack(); }});
    frame_.Notices().Show(notice);
}

/// One step takes back what the run has changed, if nothing has been done since.
void CRunChanges::TakeRunBack()
{
    frame_.CommitPanel();
    const EditStep* next = frame_.Doc().NextUndo();
    if (next != nullptr && next->place.block == 0 && HashOf(frame_.Doc().Data()) == bytesBehind_)
        frame_.StepHistory(false);
    else
        emit told(
            u"解析のあとに編集しています。「編集」→「元に戻す」(Ctrl+Z) で、新しいものから順に戻してください。"_s);
}

void CRunChanges::ShowPane(bool show)
{
    const bool hadFocus = pane_->isAncestorOf(QApplication::focusWidget());
    if (show)
        pane_->SetChanges(changes_.List(), changes_.More()); // it is not filled while it is hidden
    pane_->setVisible(show);
    if (hadFocus && !show)
        frame_.FocusPanel();
}

void CRunChanges::ShowAll()
{
    std::map<int, MarkKind> marks;
    for (const ShownChange& change : changes_.List())
        marks[change.block] = MarkKind::Changed;
    frame_.Tree().SetMarks(std::move(marks), MarkSource::Run);
    ShowMarks();
    if (!pane_->isHidden())
        pane_->SetChanges(changes_.List(), changes_.More());
    if (changes_.List().empty()) {
        frame_.Notices().Close(kNotice);
        ShowPane(false);
    }
}

/// Rows that the last panel held beside the data are gone with it.
void CRunChanges::OnPanelShown()
{
    edited_.insert(std::exchange(openBlock_, frame_.Panel() == nullptr ? 0 : frame_.Panel()->Block()));
    FollowEdits();
    ShowMarks();
}

void CRunChanges::ShowMarks()
{
    CPanel* panel = frame_.Panel();
    if (panel == nullptr || panel->Model() == nullptr)
        return;
    std::vector<CellMark> marks;
    for (const ShownChange& change : changes_.List())
        if (change.block == panel->Block())
            AddMarks(change, marks);
    panel->Grid()->SetMarks(MarkSource::Run, std::move(marks));
}

void CRunChanges::Dismiss()
{
    changes_ = {};
    asRun_ = {};
    ShowAll();
}

void CRunChanges::FollowEdits()
{
    const CPanel* panel = frame_.Panel();
    const CPanelModel* model = panel == nullptr ? nullptr : panel->Model();
    bool other = false;
    for (const int block : std::exchange(edited_, {})) {
        const CPanelModel* open = model != nullptr && model->Block() == block ? model : nullptr;
        other = changes_.Follow(frame_.Doc().Data(), block, open) || other;
    }
    if (other)
        ShowAll();
}

/// The step of the run itself: taken back nothing is left to show, made again all of it is there again.
void CRunChanges::OnStepped(const EditPlace& place)
{
    if (place.block != 0 || asRun_.List().empty())
        return;
    const std::size_t bytes = HashOf(frame_.Doc().Data());
    if (bytes == bytesBefore_) {
        changes_ = {};
        ShowAll();
    }
    if (bytes != bytesBehind_)
        return;
    edited_.clear();
    changes_ = asRun_;
    ShowNotice(unsavedBefore_);
    ShowAll();
}

void CRunChanges::GoToNext(bool back)
{
    CPanel* panel = frame_.Panel();
    if (panel != nullptr && panel->Model() != nullptr && !panel->MayClose())
        return; // the cell has refused the text, and said so
    frame_.CommitPanel();
    FollowEdits();
    const std::vector<ShownChange>& list = changes_.List();
    if (list.empty()) {
        emit told(u"解析の前と後で違う所は、もう残っていません。"_s);
        return;
    }
    const GridCell focus = panel == nullptr ? GridCell() : panel->Grid()->FocusCell();
    const int block = panel == nullptr ? frame_.CurrentBlock() : panel->Block();
    std::size_t line = 0;
    if (lastBlock_ == block && lastRow_ == focus.row && lastColumn_ == focus.column && last_ < list.size()) {
        line = back ? (last_ + list.size() - 1) % list.size() : (last_ + 1) % list.size();
    } else {
        const Place here{block, focus.row, focus.column};
        const auto behind = std::ranges::find_if(
            list, [&](const ShownChange& change) { return back ? PlaceOf(change) >= here : PlaceOf(change) > here; });
        const auto index = static_cast<std::size_t>(behind - list.begin());
        line = back ? (index + list.size() - 1) % list.size() : index % list.size();
    }
    GoTo(line);
}

void CRunChanges::GoTo(std::size_t line)
{
    if (line >= changes_.List().size())
        return;
    const ShownChange change = changes_.List()[line]; // what is shown may be another list on the way
    emit told(Sentence(change));
    if (change.block != 0)
        frame_.JumpTo(change.block, change.at, std::max(change.column, 1));
    last_ = line;
    const CPanel* panel = frame_.Panel();
    const GridCell focus = panel == nullptr ? GridCell() : panel->Grid()->FocusCell();
    lastBlock_ = panel == nullptr ? 0 : panel->Block();
    lastRow_ = focus.row;
    lastColumn_ = focus.column;
    if (!pane_->isHidden())
        pane_->Select(line);
}

} // namespace sbd
