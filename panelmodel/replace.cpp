#include "panelmodel/replace.h"

#include "panelmodel/panel_parts.h"
#include "project/block_rules.h"
#include "project/catalogue.h"
#include "project/links.h"
#include "project/option_rows.h"
#include "project/sbd_data.h"

#include <algorithm>
#include <map>
#include <utility>

namespace sbd {

namespace {

constexpr int kLabelColumn = 1;
constexpr int kHeightBlock = 511; // follows the one behind it
constexpr int kHeightOptions = 721;

/// Places that show one value: the kind of the link, and which of its kind.
using LinkKey = std::pair<int, int>;

/// The value that a cell shares with cells of other blocks; nothing for most.
std::optional<LinkKey> LinkOf(int block, int row, int column)
{
    if (column != kValueColumn)
        return std::nullopt;
    if (block == kHeightOptions && (row == 1 || row == 2))
        return LinkKey{0, row};
    if (block == kHeightBlock && (row == 2 || row == 3))
        return LinkKey{0, row - 1};
    int index = 0;
    for (const SharedOption& places : SharedOptions()) {
        for (const OptionPlace& place : places)
            if (place.block == block && place.row == row && block != 0)
                return LinkKey{1, index};
        ++index;
    }
    for (const AutomaticLink& link : AutomaticLinks())
        if (block == 301 ? link.optionRow == row
                         : row == 1 && std::ranges::find(link.blocks, block) != link.blocks.end())
            return LinkKey{2, link.optionRow};
    return std::nullopt;
}

/// The blocks that have a panel of their own, ascending.
const std::vector<int>& PanelBlocks()
{
    static const std::vector<int> blocks = [] {
        std::vector<int> result;
        for (const CatalogueRow& row : Catalogue())
            if (PanelBlock(row.block) == row.block)
                result.push_back(row.block);
        std::ranges::sort(result);
        result.erase(std::unique(result.begin(), result.end()), result.end());
        return result;
    }();
    return blocks;
}

/// False for a block in whose panel the text cannot be, at the cost of a look at its columns.
bool MayHold(const CSbdData& data, int block, const CTextMatcher& matcher)
{
    const TableBlock* table = data.Table(block);
    if (table == nullptr || table->RowCount() == 0) // the panel shows rows of its own
        return true;
    for (const CColumnVector& column : table->columns)
        for (std::size_t row = 0; row < column.size(); ++row)
            if (matcher.IsIn(column[row]))
                return true;
    const PanelTable* panel = FindPanelTable(block);
    return panel == nullptr
           || std::ranges::any_of(panel->fixedTexts, [&](const std::string& text) { return matcher.IsIn(text); });
}

/// Looks through one panel.
class PanelSearch {
public:
    PanelSearch(const CSbdData& data, const FindRequest& request, const CTextMatcher& matcher, CPanelModel& panel)
        : data_(data)
        , request_(request)
        , matcher_(matcher)
        , panel_(panel)
        , isOption_(FindOptionBlock(panel.Block()) != nullptr)
    {
    }

    void Find(const OpenGrid& open, std::vector<CellHit>& hits)
    {
        const int first = isOption_ && request_.by ? kValueColumn : kLabelColumn;
        const int rows = std::min(panel_.BlockRows(), panel_.GridRows());
        for (int row = 1; row <= rows; ++row)
            for (int column = first; column < panel_.ColumnCount(); ++column) {
                std::string text = panel_.Text(row, column);
                if (text.empty())
                    continue;
                if (!request_.by) {
                    if (!matcher_.IsIn(text))
                        continue;
                    CellHit& hit = hits.emplace_back(CellHit{panel_.Block(), row, column, text, {}});
                    hit.after = std::move(text);
                    continue;
                }
                std::optional<std::string> after = matcher_.Replaced(text, *request_.by);
                if (!after || *after == text)
                    continue;
                hits.push_back({panel_.Block(), row, column, std::move(text), CellLine(*after)});
                Judge(hits.back(), open);
            }
    }

private:
    void Judge(CellHit& hit, const OpenGrid& open)
    {
        const std::size_t index = static_cast<std::size_t>(hit.row) - 1;
        if (open.block == hit.block && index < open.hidden.size() && open.hidden[index] != 0)
            hit.state = HitState::Hidden;
        else if (!panel_.IsEditable(hit.row, hit.column))
            hit.state = HitState::Locked;
        else if (std::optional<CPanelModel::Refusal> refusal = panel_.WhyNot(hit.row, hit.column, hit.after)) {
            hit.state = HitState::NoNumber;
            hit.part = std::move(refusal->part);
        } else if (hit.after.empty() && LosesRow(hit))
            hit.state = HitState::LosesRow;
        const WordList& words = panel_.Words(hit.row, hit.column);
        const auto isWord = [&words](const std::string& text) { return std::ranges::find(words, text) != words.end(); };
        hit.leavesList = hit.state == HitState::Free && isWord(hit.before) && !isWord(hit.after);
    }

    /// A row whose first cell is empty is not written, and names close up: who replaces a text by nothing in many rows
    /// does not mean that.
    bool LosesRow(const CellHit& hit)
    {
        if (data_.Names(hit.block) != nullptr)
            return true;
        const bool was = panel_.IsWritten(hit.row);
        panel_.SetCell(hit.row, hit.column, {});
        const bool is = panel_.IsWritten(hit.row);
        panel_.SetCell(hit.row, hit.column, hit.before);
        return was && !is;
    }

    const CSbdData& data_;
    const FindRequest& request_;
    const CTextMatcher& matcher_;
    CPanelModel& panel_;
    bool isOption_;
};

/// Leaves one of the places of each shared value, and names the blocks of the others.
void MergeLinked(std::vector<CellHit>& hits)
{
    std::map<LinkKey, std::size_t> kept;
    std::vector<char> drop(hits.size(), 0);
    for (std::size_t i = 0; i < hits.size(); ++i) {
        const std::optional<LinkKey> key = LinkOf(hits[i].block, hits[i].row, hits[i].column);
        if (!key)
            continue;
        const auto [place, isFirst] = kept.try_emplace(*key, i);
        if (isFirst)
            continue;
        // What is written to the one follows from the other, not the other way round.
        std::size_t stays = place->second;
        std::size_t goes = i;
        if (hits[stays].block == kHeightBlock
            || (hits[stays].state != HitState::Free && hits[i].state == HitState::Free))
            std::swap(stays, goes);
        place->second = stays;
        drop[goes] = 1;
        hits[stays].alsoIn.insert(hits[stays].alsoIn.end(), hits[goes].alsoIn.begin(), hits[goes].alsoIn.end());
        if (hits[goes].block != hits[stays].block)
            hits[stays].alsoIn.push_back(hits[goes].block);
    }
    std::size_t i = 0;
    std::erase_if(hits, [&](const CellHit&) { return drop[i++] != 0; });
}

} // namespace

std::vector<CellHit> FindCells(const CSbdData& data, const FindRequest& request, const OpenGrid& open)
{
    std::vector<CellHit> hits;
    const CTextMatcher matcher(request.wanted, request.rule);
    if (request.wanted.empty())
        return hits;
    for (const int block : PanelBlocks()) {
        if (request.block != 0 && request.block != block)
            continue;
        if (block != open.block && !MayHold(data, block, matcher))
            continue;
        const std::unique_ptr<CPanelModel> panel = MakePanelModel(data, block, {.listNames = ListNames::OfTheProject});
        if (panel == nullptr)
            continue;
        if (block == open.block)
            panel->PutLoose(open.loose);
        PanelSearch(data, request, matcher, *panel).Find(open, hits);
    }
    if (request.by)
        MergeLinked(hits);
    return hits;
}

std::vector<CellEntry> TextsOf(const CPanelModel& panel, std::span<const CellHit> hits)
{
    std::vector<CellEntry> texts;
    for (const CellHit& hit : hits)
        if (hit.block == panel.Block() && hit.state == HitState::Free && panel.Text(hit.row, hit.column) == hit.before)
            texts.push_back({{hit.row, hit.column}, hit.after});
    return texts;
}

ReplaceOutcome ReplaceCells(CProjectWriter& writer, std::span<const CellHit> hits)
{
    ReplaceOutcome outcome;
    while (!hits.empty()) {
        const int block = hits.front().block;
        const auto end = std::ranges::find_if(hits, [block](const CellHit& hit) { return hit.block != block; });
        const std::span<const CellHit> own = hits.first(static_cast<std::size_t>(end - hits.begin()));
        hits = hits.subspan(own.size());
        const std::unique_ptr<CPanelModel> panel =
            MakePanelModel(writer.Data(), block, {.listNames = ListNames::OfTheProject}); // as the ones before left it
        std::size_t put = 0;
        if (panel != nullptr)
            for (const CellEntry& cell : TextsOf(*panel, own))
                put += panel->SetCell(cell.place.row, cell.place.column, cell.text) != CellEffect::None ? 1 : 0;
        outcome.put += put;
        outcome.stayed += own.size() - put;
        if (put == 0)
            continue;
        panel->Commit(writer);
        FollowLinks(writer, block);
    }
    return outcome;
}

} // namespace sbd
