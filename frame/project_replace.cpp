#include "frame/project_replace.h"

#include "check/read_back.h"
#include "compare/difference_text.h"
#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/project_findings.h"
#include "frame/replace_pane.h"
#include "grid/grid_ctrl.h"
#include "panels/input_panel.h"
#include "project/text.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QTimer>

#include <algorithm>
#include <set>
#include <tuple>
#include <utility>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kDelay = 150;                // ms behind a key
constexpr std::size_t kMostReadBack = 500; // more hits are not written and read to see what would come back

using Place = std::tuple<int, int, int>;

Place PlaceOf(const CellHit& hit)
{
    return {hit.block, hit.row, hit.column};
}

CInputPanel* InputPanelOf(CChildFrame& frame)
{
    auto* panel = qobject_cast<CInputPanel*>(frame.Panel());
    return panel != nullptr && panel->Model() != nullptr ? panel : nullptr;
}

const ReturnedCell* Returned(const CReadBack& readBack, const CellHit& hit)
{
    for (const ReturnedCell& cell : readBack.CellsOf(hit.block))
        if (cell.row == hit.row && cell.column == hit.column)
            return &cell;
    return nullptr;
}

} // namespace

CProjectReplace::CProjectReplace(CChildFrame& frame)
    : frame_(frame)
    , pane_(new CReplacePane(&frame.Doc()))
    , soon_(new QTimer(this))
{
    pane_->hide();
    soon_->setSingleShot(true);
    soon_->setInterval(kDelay);
    connect(soon_, &QTimer::timeout, this, &CProjectReplace::Look);
    const auto lookSoon = [this] {
        if (!pane_->isHidden() && !looking_)
            soon_->start();
    };
    connect(&frame.Doc(), &CKELDSectionDoc::changed, this, lookSoon);
    connect(&frame.Doc(), &CKELDSectionDoc::reloaded, this, lookSoon);
    connect(&frame.Doc(), &CKELDSectionDoc::historyChanged, this, [this, lookSoon] {
        if (pane_->Scope()->currentIndex() == 0) // of the grid alone, it may be; at each move of the focus, too
            lookSoon();
    });
    connect(&frame.Doc(), &CKELDSectionDoc::stepped, this, [this] { // "replaced" is not so any more
        if (!std::exchange(remark_, {}).isEmpty())
            emit told({});
    });
    connect(pane_, &CReplacePane::requestChanged, this, [this] {
        remark_.clear();
        soon_->start();
    });
    connect(pane_, &CReplacePane::wanted, this, &CProjectReplace::GoTo);
    connect(pane_, &CReplacePane::replaceWanted, this, &CProjectReplace::Replace);
    connect(pane_, &CReplacePane::closeWanted, this, &CProjectReplace::Close);
    connect(pane_, &CReplacePane::nextWanted, this, [this](bool back) {
        const QPointer<QWidget> focus = QApplication::focusWidget();
        GoToNext(back);
        if (focus && pane_->isVisible() && pane_->isAncestorOf(focus))
            focus->setFocus(Qt::OtherFocusReason);
    });
}

CProjectReplace::~CProjectReplace() = default;

CReplacePane* CProjectReplace::Pane() const
{
    return pane_;
}

void CProjectReplace::Open(bool replaces)
{
    CPanel* panel = frame_.Panel();
    if (panel != nullptr && !panel->MayClose())
        return; // the cell has refused the text, and said so
    if (panel != nullptr)
        panel->CommitGrid();
    QString text;
    if (panel != nullptr && panel->Model() != nullptr && !pane_->isAncestorOf(QApplication::focusWidget())) {
        const GridCell focus = panel->Grid()->FocusCell();
        if (focus.row > 0 && panel->Model()->IsEditable(focus.row, focus.column))
            text = toQString(panel->Model()->Text(focus.row, focus.column));
    }
    remark_.clear();
    pane_->SetReplaces(replaces);
    pane_->show();
    OnPanelShown();
    pane_->GoToLine(text);
    soon_->start();
}

void CProjectReplace::Close()
{
    const bool hadFocus = pane_->isAncestorOf(QApplication::focusWidget());
    pane_->hide();
    soon_->stop();
    if (hadFocus)
        frame_.FocusPanel();
}

void CProjectReplace::OnPanelShown()
{
    const CInputPanel* panel = InputPanelOf(frame_);
    const int block = panel == nullptr ? 0 : panel->Block();
    pane_->SetBlock(block == 0 ? frame_.CurrentBlock() : block,
                    block == 0 ? QString() : QString::fromStdString(NumberAndTitle(block)));
    if (!pane_->isHidden())
        soon_->start();
}

void CProjectReplace::LookNow()
{
    if (soon_->isActive())
        Look();
}

void CProjectReplace::Look()
{
    soon_->stop();
    const QScopedValueRollback looking(looking_, true);
    QString refused;
    FindRequest request = pane_->Request(refused);
    if (pane_->isHidden())
        request.by.reset(); // F3 only finds
    if (!refused.isEmpty()) {
        pane_->SetHits({}, tr("「%1」はこのシステムの文字コード（シフトJIS）にない文字です。").arg(refused), {});
        return;
    }
    CInputPanel* panel = InputPanelOf(frame_);
    if (panel != nullptr && !panel->Grid()->IsEditing())
        panel->CommitGrid();
    std::vector<CellHit> hits =
        FindCells(frame_.Doc().Data(), request, panel == nullptr ? OpenGrid() : panel->ShownGrid());
    const std::map<std::size_t, QString> notes = NotesOf(hits);
    pane_->SetHits(std::move(hits), remark_, notes);
}

/// What would come back from the file as another text, where it has not been so before.
std::map<std::size_t, QString> CProjectReplace::NotesOf(const std::vector<CellHit>& hits) const
{
    std::map<std::size_t, QString> notes;
    if (!pane_->Replaces() || hits.empty() || hits.size() > kMostReadBack)
        return notes;
    CProjectCheck& check = frame_.Findings().Check();
    check.LookNow();
    CSbdData replaced = frame_.Doc().Data();
    CProjectWriter writer(replaced);
    (void)ReplaceCells(writer, hits);
    CReadBack behind = check.ReadBack();
    behind.Update(replaced, ChangedRows(writer.Changes()));
    for (std::size_t i = 0; i < hits.size(); ++i) {
        const ReturnedCell* cell = Returned(behind, hits[i]);
        if (cell == nullptr || hits[i].state != HitState::Free || cell->is != hits[i].after)
            continue;
        notes[i] = cell->returns.empty() ? tr("保存して開き直すと失われます")
                                         : tr("保存して開き直すと「%1」になります").arg(toQString(cell->returns));
    }
    return notes;
}

void CProjectReplace::GoToNext(bool back)
{
    CPanel* panel = frame_.Panel();
    if (panel != nullptr && panel->Model() != nullptr && !panel->MayClose())
        return;
    if (pane_->WantedLine()->text().isEmpty()) {
        Open(false);
        return;
    }
    if (pane_->isHidden() || soon_->isActive())
        Look();
    const std::vector<CellHit>& hits = pane_->Hits();
    if (hits.empty()) {
        emit told(u"「%1」のあるセルはありません。"_s.arg(pane_->WantedLine()->text()));
        return;
    }
    const GridCell focus = panel == nullptr ? GridCell() : panel->Grid()->FocusCell();
    const Place here{panel == nullptr ? frame_.CurrentBlock() : panel->Block(), focus.row, focus.column};
    const auto behind = std::ranges::find_if(
        hits, [&](const CellHit& hit) { return back ? PlaceOf(hit) >= here : PlaceOf(hit) > here; });
    const auto index = static_cast<std::size_t>(behind - hits.begin());
    GoTo(back ? (index + hits.size() - 1) % hits.size() : index % hits.size());
}

void CProjectReplace::GoTo(std::size_t line)
{
    if (line >= pane_->Hits().size())
        return;
    const CellHit hit = pane_->Hits()[line]; // another block is another list, it may be
    const std::size_t count = pane_->Hits().size();
    emit told(u"%1 / %2 件目: %3 %4 行 %5 列"_s.arg(line + 1)
                  .arg(count)
                  .arg(QString::fromStdString(NumberAndTitle(hit.block)))
                  .arg(hit.row)
                  .arg(hit.column));
    frame_.JumpTo(hit.block, hit.row, hit.column);
    if (!pane_->isHidden())
        pane_->Select(line);
}

void CProjectReplace::Replace()
{
    LookNow();
    const std::vector<CellHit> chosen = pane_->Chosen();
    if (chosen.empty())
        return;
    std::set<int> blocks;
    for (const CellHit& hit : chosen)
        blocks.insert(hit.block);
    ReplaceOutcome outcome;
    if (CInputPanel* panel = InputPanelOf(frame_)) {
        outcome = panel->ReplaceHits(chosen);
    } else {
        PanelEdit edit;
        edit.place = {chosen.front().block, chosen.front().row, chosen.front().column};
        edit.name = Cp932(std::to_string(chosen.size()) + " セルの置換");
        edit.write = [&](CProjectWriter& writer) { outcome = ReplaceCells(writer, chosen); };
        edit.isModified = [&] { return outcome.put > 0 || frame_.Doc().IsModified(); };
        edit.looseAfter = [] { return LooseRows(); };
        frame_.Doc().Commit(edit);
    }
    const std::size_t stayed = pane_->Hits().size() - std::min(outcome.put, pane_->Hits().size());
    remark_ = tr("%1 個のセルを置換しました（%2 ブロック）。").arg(outcome.put).arg(blocks.size());
    if (stayed > 0)
        remark_ += tr("%1 個は元のままです。").arg(stayed);
    emit told(remark_ + u"「元に戻す」(Ctrl+Z) 1 回で、すべて戻ります。"_s);
    Look();
}

} // namespace sbd
