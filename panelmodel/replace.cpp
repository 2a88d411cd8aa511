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

/// The cells of a table's panel whose stored texts hold the text, by row and column: a panel shows a stored row as the grid's
/// row of that number, each text as it stands or not at all.
std::vector<CellPlace> PlacesInTable(const TableBlock& table, int block, const CTextMatcher& matcher)
{
    std::vector<CellPlace> places;
    int columnNumber = 0;
    for (const CColumnVector& column : table.columns) {
        ++columnNumber;
        for (std::size_t row = 0; row < column.size(); ++row)
            if (matcher.IsIn(column[row]))
                places.push_back({static_cast<int>(row) + 1, columnNumber});
    }
    // An automatic row shows texts of its own.
    if (const PanelTable* panel = FindPanelTable(block);
        panel != nullptr
        && std::ranges::any_of(panel->fixedTexts, [&](const std::string& text) { return matcher.IsIn(text); }))
        for (int column = 1; column <= columnNumber; ++column)
            places.push_back({1, column});
    std::ranges::sort(places, {}, [](const CellPlace& place) { return std::pair(place.row, place.column); });
    places.erase(std::unique(places.begin(), places.end()), places.end());
    return places;
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

    void FindInAll(const OpenGrid& open, std::vector<CellHit>& hits)
    {
        const int rows = RowsOfBlock();
        for (int row = 1; row <= rows; ++row)
            for (int column = FirstColumn(); column < panel_.ColumnCount(); ++column)
                FindIn({row, column}, open, hits);
    }
    /// The cells that can hold the text are known.
    void FindInPlaces(std::span<const CellPlace> places, const OpenGrid& open, std::vector<CellHit>& hits)
    {
        const int rows = RowsOfBlock();
        for (const CellPlace& place : places)
            if (place.row <= rows && place.column >= FirstColumn())
                FindIn(place, open, hits);
    }

private:
    [[nodiscard]] int RowsOfBlock() const { return std::min(panel_.BlockRows(), panel_.GridRows()); }
    [[nodiscard]] int FirstColumn() const { return isOption_ && request_.by ? kValueColumn : kLabelColumn; }

    void FindIn(CellPlace place, const OpenGrid& open, std::vector<CellHit>& hits)
    {
        std::string text = panel_.Text(place.row, place.column);
        if (text.empty())
            return;
        if (!request_.by) {
            if (!matcher_.IsIn(text))
                return;
            CellHit& hit = hits.emplace_back(CellHit{panel_.Block(), place.row, place.column, text, {}});
            hit.after = std::move(text);
            return;
        }
        std::optional<std::string> after = matcher_.Replaced(text, *request_.by);
        if (!after || *after == text)
            return;
        hits.push_back({panel_.Block(), place.row, place.column, std::move(text), CellLine(*after)});
        Judge(hits.back(), open);
    }

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
    CListNames names(data, ListNames::OfTheProject);
    for (const int block : PanelBlocks()) {
        if (request.block != 0 && request.block != block)
            continue;
        const TableBlock* table = data.Table(block);
        // A panel shows rows of its own where there are none, and the one on show may hold more than the data.
        const bool byTable = table != nullptr && table->RowCount() > 0 && block != open.block;
        const std::vector<CellPlace> places =
            byTable ? PlacesInTable(*table, block, matcher) : std::vector<CellPlace>();
        if (byTable && places.empty())
            continue;
        const std::unique_ptr<CPanelModel> panel =
            MakePanelModel(data, block, {.names = &names, .tellsWhatChanged = false});
        if (block == open.block)
            panel->PutLoose(open.loose);
        PanelSearch search(data, request, matcher, *panel);
        if (byTable)
            search.FindInPlaces(places, open, hits);
        else
            search.FindInAll(open, hits);
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
    CListNames names(writer.Data(), ListNames::OfTheAnalysis); // no cell takes or refuses a text for a name
    while (!hits.empty()) {
        const int block = hits.front().block;
        const auto end = std::ranges::find_if(hits, [block](const CellHit& hit) { return hit.block != block; });
        const std::span<const CellHit> own = hits.first(static_cast<std::size_t>(end - hits.begin()));
        hits = hits.subspan(own.size());
        const std::unique_ptr<CPanelModel> panel = MakePanelModel(writer.Data(), block, // as the ones before left it
                                                                  {.names = &names, .tellsWhatChanged = false});
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
