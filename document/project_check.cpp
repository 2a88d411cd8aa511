#include "document/project_check.h"

#include "check/drawing_doubts.h"
#include "compare/difference_text.h"
#include "panelmodel/panel_model.h"
#include "project/sbd_data.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <tuple>
#include <utility>

namespace sbd {

namespace {

bool SameNames(const GridNames& a, const GridNames& b)
{
    return a.girderNames == b.girderNames && a.swayNames == b.swayNames && a.lineNames == b.lineNames;
}

/// The grid row of a panel that holds `loose` beside the data, for a row of a panel that was built from the data alone.
int GridRowBeside(const LooseRows& loose, int row)
{
    for (const LooseRow& between : loose.rows)
        row += between.row <= row ? 1 : 0;
    return row;
}

/// Likewise for a list of names, which stands in the data without its gaps: `row` is that of a name, from 2.
int GridRowOfName(const LooseRows& loose, int row, int column)
{
    int name = 1;
    for (const LooseRow& kept : loose.rows)
        if (!kept.cells[static_cast<std::size_t>(column) - 1].empty() && ++name == row)
            return kept.row;
    return row;
}

/// A finding at its place in a panel that holds `loose` beside the data.
Finding MovedBeside(const LooseRows& loose, bool isNames, Finding finding)
{
    if (loose.rows.empty() || finding.row == 0)
        return finding;
    finding.row = isNames && finding.column > 0 ? GridRowOfName(loose, finding.row, finding.column)
                                                : GridRowBeside(loose, finding.row);
    return finding;
}

/// The cells of the rows that a panel shows but does not write: they go with the panel.
std::vector<Finding> LostWith(const CPanelModel& panel, const LooseRows& loose)
{
    std::vector<Finding> findings;
    for (const LooseRow& row : loose.rows) {
        for (int column = 1; column <= static_cast<int>(row.cells.size()); ++column) {
            const std::string& text = row.cells[static_cast<std::size_t>(column) - 1];
            if (text.empty() || panel.IsLocked(row.row, column))
                continue;
            Finding finding;
            finding.kind = FindingKind::ReturnsDifferent;
            finding.block = panel.Block();
            finding.row = row.row;
            finding.column = column;
            finding.is = text;
            finding.text =
                Quoted(text)
                + "の行は、行に必要な欄が空なのでファイルに書かれません。ほかのブロックへ移るか閉じると失われます。"
                  "行の先頭の欄を入力してください。";
            findings.push_back(std::move(finding));
        }
    }
    return findings;
}

/// What a new project tells of itself: some blocks have values of their own that a load puts others in place of.
struct OwnFindings {
    std::vector<ReturnedCell> cells;
    std::vector<Finding> doubts;
};
const OwnFindings& FindingsOfANewProject()
{
    static const OwnFindings own = [] {
        OwnFindings result;
        const CSbdData fresh;
        result.cells = ReturnedCells(fresh);
        result.doubts = Doubts(fresh).list;
        return result;
    }();
    return own;
}

template <typename Thing>
bool Holds(const std::vector<Thing>& things, const Thing& thing)
{
    return std::ranges::find(things, thing) != things.end();
}

/// Leaves out what the program says of its own values. A value that the user writes to such a block is another one, and
/// the blocks that share it follow.
void DropOwn(FindingList& doubts)
{
    std::erase_if(doubts.list, [](const Finding& doubt) { return Holds(FindingsOfANewProject().doubts, doubt); });
}

/// Is anything told of the finding's cell?
bool IsToldOf(const std::map<int, std::vector<Finding>>& told, const Finding& finding)
{
    const auto block = told.find(finding.block);
    return block != told.end() && std::ranges::any_of(block->second, [&](const Finding& other) {
               return other.row == finding.row && other.column == finding.column;
           });
}

} // namespace

CProjectCheck::CProjectCheck(const CKELDSectionDoc& doc, QObject* parent) : QObject(parent), doc_(doc)
{
    timer_.setSingleShot(true);
    timer_.setInterval(0);
    connect(&timer_, &QTimer::timeout, this, &CProjectCheck::LookNow);
    drawingTimer_.setSingleShot(true);
    constexpr int pause = 300; // ms without a change
    drawingTimer_.setInterval(pause);
    connect(&drawingTimer_, &QTimer::timeout, this, &CProjectCheck::LookAtAllNow);
    connect(&doc, &CKELDSectionDoc::changed, this, &CProjectCheck::OnChanged);
    connect(&doc, &CKELDSectionDoc::reloaded, this, [this] {
        lookAtAll_ = true;
        LookSoon();
    });
    connect(&doc, &CKELDSectionDoc::resultsRead, this, [this] {
        lookAtDrawings_ = true;
        LookSoon();
    });
    // A row of a grid that does not stand in the data changes these alone.
    connect(&doc, &CKELDSectionDoc::historyChanged, this, &CProjectCheck::LookSoon);
    connect(&doc, &CKELDSectionDoc::modifiedChanged, this, &CProjectCheck::LookSoon);
    connect(&doc, &CKELDSectionDoc::pathChanged, this, &CProjectCheck::LookSoon);
    LookSoon();
}

void CProjectCheck::SetSilent(SilentKinds kinds)
{
    if (silent_ == kinds)
        return;
    silent_ = std::move(kinds);
    lookAtAll_ = true;
    LookSoon();
}

void CProjectCheck::OnChanged(const BlockChange& change)
{
    changed_.push_back({change.block, change.row});
    lookAtDrawings_ = lookAtDrawings_ || IsDrawn(change.block);
    LookSoon();
}

void CProjectCheck::LookSoon()
{
    if (!timer_.isActive())
        timer_.start();
}

void CProjectCheck::LookNow()
{
    Look(false);
}

void CProjectCheck::LookAtAllNow()
{
    Look(true);
}

void CProjectCheck::Look(bool drawings)
{
    timer_.stop();
    drawingTimer_.stop();
    LookAtNames();
    LookAtData();
    if (drawings)
        LookAtDrawings();
    else if (lookAtDrawings_)
        drawingTimer_.start();
    LookAtPanel();
    if (!std::exchange(isNew_, false))
        return;
    Count();
    emit updated();
}

/// The names of the bridge come from a file beside the project, and nobody tells of them.
void CProjectCheck::LookAtNames()
{
    const bool isUntouched = doc_.PathName().isEmpty() && !doc_.IsModified();
    if (isUntouched == isUntouched_ && SameNames(doc_.Data().gridNames, names_))
        return;
    isUntouched_ = isUntouched;
    names_ = doc_.Data().gridNames;
    lookAtAll_ = true;
}

void CProjectCheck::LookAtData()
{
    const std::vector<ChangedRow> changed = std::exchange(changed_, {});
    if (!lookAtAll_ && changed.empty())
        return;
    std::set<int> judged;
    if (std::exchange(lookAtAll_, false)) {
        lookAtDrawings_ = true;
        readBack_.Reset(doc_.Data());
        const std::span<const int> all = ShownBlocks();
        judged.insert(all.begin(), all.end());
    } else {
        readBack_.Update(doc_.Data(), changed);
        for (const ChangedRow& change : changed) {
            const std::vector<int> blocks = BlocksJudgedWith(change.block);
            judged.insert(blocks.begin(), blocks.end());
        }
    }
    const bool returned = TellReturned();
    const bool doubts = TellDoubts({judged.begin(), judged.end()});
    isNew_ = isNew_ || returned || doubts;
}

/// True if the cells that come back different are others than before. Sentences are made for blocks with other cells.
bool CProjectCheck::TellReturned()
{
    std::map<int, std::vector<ReturnedCell>> cells;
    for (const int block : readBack_.Blocks()) {
        const std::span<const ReturnedCell> own = readBack_.CellsOf(block);
        std::vector<ReturnedCell>& told = cells[block];
        std::ranges::copy_if(own, std::back_inserter(told),
                             [&](const ReturnedCell& cell) { return !Holds(FindingsOfANewProject().cells, cell); });
        if (told.empty())
            cells.erase(block);
    }
    if (cells == cells_)
        return false;
    std::map<int, std::vector<Finding>> returned;
    for (const auto& [block, own] : cells) {
        const auto before = cells_.find(block);
        if (before != cells_.end() && before->second == own) {
            returned[block] = std::move(returned_[block]);
            continue;
        }
        FindingList list;
        for (const ReturnedCell& cell : own)
            list.Add(FindingOf(cell));
        returned[block] = std::move(list.list);
    }
    cells_ = std::move(cells);
    returned_ = std::move(returned);
    return true;
}

/// True if the doubts of these blocks are others than before.
bool CProjectCheck::TellDoubts(const std::vector<int>& blocks)
{
    std::map<int, std::vector<Finding>> judged;
    constexpr std::size_t few = 20;
    if (blocks.size() > few) { // the names are gathered once for all
        FindingList all;
        if (!isUntouched_)
            all = Doubts(doc_.Data(), silent_);
        DropOwn(all);
        for (Finding& doubt : all.list)
            judged[doubt.block].push_back(std::move(doubt));
        if (judged == doubts_)
            return false;
        doubts_ = std::move(judged);
        return true;
    }
    bool other = false;
    for (const int block : blocks) {
        FindingList own;
        if (!isUntouched_)
            AddDoubts(doc_.Data(), block, silent_, own);
        DropOwn(own);
        std::vector<Finding>& known = doubts_[block];
        other = other || known != own.list;
        known = std::move(own.list);
        if (known.empty())
            doubts_.erase(block);
    }
    return other;
}

void CProjectCheck::LookAtDrawings()
{
    if (!std::exchange(lookAtDrawings_, false))
        return;
    std::map<int, std::vector<Finding>> found;
    if (!isUntouched_ && !silent_.contains(FindingKind::NotDrawable))
        for (Finding& finding : DrawingDoubts(doc_.Data(), doc_.Results()).list)
            found[finding.block].push_back(std::move(finding));
    if (found == notDrawn_)
        return;
    notDrawn_ = std::move(found);
    isNew_ = true;
}

/// Puts together what is told: the findings in the data at their places in the grid, and what the grid holds alone.
void CProjectCheck::LookAtPanel()
{
    const CPanelModel* panel = openPanel ? openPanel() : nullptr;
    const int block = panel == nullptr ? 0 : panel->Block();
    LooseRows loose = panel == nullptr ? LooseRows() : panel->Loose();
    loose.gridRows = 0; // more empty rows tell nothing
    if (!isNew_ && block == openBlock_ && loose == loose_)
        return;
    const bool noLoose = loose.rows.empty() && loose_.rows.empty();
    openBlock_ = block;
    loose_ = std::move(loose);
    if (!isNew_ && noLoose)
        return;
    isNew_ = true;

    told_.clear();
    for (const std::map<int, std::vector<Finding>>* found : {&returned_, &doubts_, &notDrawn_}) {
        for (const auto& [number, findings] : *found) {
            std::vector<Finding>& own = told_[number];
            const bool isNames = doc_.Data().Names(number) != nullptr;
            for (const Finding& finding : findings)
                if (found != &notDrawn_ || !IsToldOf(doubts_, finding)) // a cell that is doubted cannot be drawn
                    own.push_back(number == openBlock_ ? MovedBeside(loose_, isNames, finding) : finding);
        }
    }
    if (panel != nullptr && doc_.Data().Names(openBlock_) == nullptr) {
        for (Finding& finding : LostWith(*panel, loose_))
            told_[openBlock_].push_back(std::move(finding));
    }
    for (auto& [number, findings] : told_)
        std::ranges::stable_sort(findings, {},
                                 [](const Finding& finding) { return std::tuple(finding.row, finding.column); });
    std::erase_if(told_, [](const auto& entry) { return entry.second.empty(); });
}

void CProjectCheck::Count()
{
    counts_ = {};
    for (const auto& [block, findings] : told_)
        for (const Finding& finding : findings)
            ++counts_[static_cast<std::size_t>(RuleOf(finding.kind).severity)];
}

std::vector<int> CProjectCheck::Blocks() const
{
    std::vector<int> blocks;
    for (const auto& [block, findings] : told_)
        blocks.push_back(block);
    return blocks;
}

std::span<const Finding> CProjectCheck::FindingsOf(int block) const
{
    const auto found = told_.find(block);
    return found == told_.end() ? std::span<const Finding>() : std::span<const Finding>(found->second);
}

FindingList CProjectCheck::All() const
{
    FindingList all;
    for (const auto& [block, findings] : told_)
        for (const Finding& finding : findings)
            all.Add(finding);
    return all;
}

std::optional<Severity> CProjectCheck::WorstOf(int block) const
{
    std::optional<Severity> worst;
    for (const Finding& finding : FindingsOf(block)) {
        const Severity own = RuleOf(finding.kind).severity;
        worst = worst ? std::min(*worst, own) : own;
    }
    return worst;
}

} // namespace sbd
