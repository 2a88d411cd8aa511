#include "check/read_back.h"

#include "check/row_screen.h"
#include "compare/difference_text.h"
#include "project/block_rules.h"
#include "project/catalogue.h"
#include "project/option_rows.h"
#include "sbdfile/layout.h"

#include <algorithm>

namespace sbd {

namespace {

constexpr int kControlBlock = 301; // title, type and switches: all others may follow it

bool HasSection(int block)
{
    return FindOptionBlock(block) != nullptr || FindSectionLayout(block) != nullptr;
}

/// For each block: the blocks that a load lets it follow.
const std::map<int, std::set<int>>& Sources()
{
    static const std::map<int, std::set<int>> sources = [] {
        std::map<int, std::set<int>> result;
        for (const SharedOption& places : SharedOptions())
            for (const OptionPlace& place : places)
                if (place.block != 0)
                    result[place.block].insert(places[0].block);
        for (const AutomaticLink& link : AutomaticLinks())
            for (const int block : link.blocks)
                if (block != 0)
                    result[block].insert(kControlBlock);
        for (const std::array<int, 4>& tied : TiedBlocks())
            for (const int block : tied)
                result[block].insert(tied.begin(), tied.end());
        for (const int block : {511, 721})
            result[block].insert(311); // the flanges that count within the height
        return result;
    }();
    return sources;
}

/// `blocks` and those that follow one of them at a load.
std::set<int> WithFollowers(const std::set<int>& blocks)
{
    std::set<int> all = blocks;
    for (const auto& [block, from] : Sources())
        if (std::ranges::any_of(from, [&](int source) { return blocks.contains(source); }))
            all.insert(block);
    return all;
}

/// Rows that a part of a table always has: those at the top, and as many as the section needs to be written.
std::size_t RowsAlways(int block)
{
    const SectionLayout* layout = FindSectionLayout(block);
    const int atTop = std::max(FixedRowsOf(block), 1);
    return static_cast<std::size_t>(std::max(atTop, layout != nullptr ? layout->leastRows : 0));
}

/// A part of a table: the rows always there, and the doubtful ones. `rows`: where each stood.
TableBlock PartOf(const TableBlock& table, int block, const std::vector<int>& doubtful, std::vector<int>& rows)
{
    const int always = static_cast<int>(std::min(RowsAlways(block), table.RowCount()));
    for (int row = 0; row < always; ++row)
        rows.push_back(row);
    for (const int row : doubtful)
        if (row >= always)
            rows.push_back(row);
    TableBlock part;
    part.columns.resize(table.columns.size());
    for (std::size_t column = 0; column < table.columns.size(); ++column)
        for (const int row : rows)
            part.columns[column].Append(table.columns[column][static_cast<std::size_t>(row)]);
    return part;
}

void CopyOwnStores(const CSbdData& data, int block, CSbdData& part)
{
    if (FindOptionBlock(block) != nullptr)
        *part.Options(block) = *data.Options(block);
    else if (block == 311)
        part.hGirder = data.hGirder;
    else if (block == 324)
        part.crossRibs = data.crossRibs;
    else if (block == 325)
        part.lRibs = data.lRibs;
    else if (const NameLists* names = data.Names(block))
        *part.Names(block) = *names;
}

/// A project that was never loaded, to copy: faster than to make it anew.
const CSbdData& FreshProject()
{
    static const CSbdData fresh;
    return fresh;
}

} // namespace

std::span<const int> ShownBlocks()
{
    static const std::vector<int> blocks = [] {
        std::vector<int> result;
        for (const CatalogueRow& row : Catalogue())
            if (PanelBlock(row.block) == row.block && HasSection(row.block))
                result.push_back(row.block);
        return result;
    }();
    return blocks;
}

std::vector<ReturnedCell> ReturnedCells(const CSbdData& data, std::span<const ShownBlock> open)
{
    const CRoundTrip trip(data);
    std::vector<ReturnedCell> cells;
    for (const int block : ShownBlocks()) {
        const auto shown = std::ranges::find(open, block, &ShownBlock::block);
        const std::vector<ReturnedCell> own = trip.Different(block, shown == open.end() ? nullptr : &*shown);
        cells.insert(cells.end(), own.begin(), own.end());
    }
    return cells;
}

Finding FindingOf(const ReturnedCell& cell)
{
    Finding finding;
    finding.kind = FindingKind::ReturnsDifferent;
    finding.block = cell.block;
    finding.row = cell.row;
    finding.column = cell.column;
    finding.is = cell.is;
    finding.returns = cell.returns;
    if (cell.returns.empty())
        finding.text = Quoted(cell.is) + "は、保存して開き直すと失われます。";
    else if (cell.is.empty())
        finding.text = "空欄ですが、保存して開き直すと" + Quoted(cell.returns) + "が入ります。";
    else
        finding.text = Quoted(cell.is) + "は、保存して開き直すと" + Quoted(cell.returns) + "になります。";
    finding.text += "空欄、空白、カンマがないか、この行を確かめてください。";
    return finding;
}

void CReadBack::Reset(const CSbdData& data)
{
    doubtful_.clear();
    cells_.clear();
    for (const int block : ShownBlocks())
        if (const TableBlock* table = data.Table(block))
            if (std::vector<int> rows = CRowScreen(block).Doubtful(*table); !rows.empty())
                doubtful_[block] = std::move(rows);
    const std::span<const int> all = ShownBlocks();
    LookAt(data, {all.begin(), all.end()});
}

void CReadBack::Update(const CSbdData& data, std::span<const ChangedRow> changed)
{
    std::set<int> blocks;
    for (const ChangedRow& change : changed) {
        blocks.insert(change.block);
        const TableBlock* table = data.Table(change.block);
        if (table == nullptr)
            continue;
        std::vector<int>& rows = doubtful_[change.block];
        const CRowScreen screen(change.block);
        if (change.row < 0 || static_cast<std::size_t>(change.row) >= table->RowCount()) {
            rows = screen.Doubtful(*table);
            continue;
        }
        const auto place = std::ranges::lower_bound(rows, change.row);
        const bool was = place != rows.end() && *place == change.row;
        const bool is = !screen.Passes(*table, static_cast<std::size_t>(change.row));
        if (is && !was)
            rows.insert(place, change.row);
        else if (was && !is)
            rows.erase(place);
    }
    if (leaks_)
        return LookAtAll(data);
    LookAt(data, WithFollowers(blocks));
}

void CReadBack::LookAt(const CSbdData& data, const std::set<int>& blocks)
{
    std::set<int> written = blocks;
    written.insert(kControlBlock);
    for (const int block : blocks)
        if (const auto from = Sources().find(block); from != Sources().end())
            written.insert(from->second.begin(), from->second.end());
    CSbdData part = FreshProject();
    std::map<int, std::vector<int>> rowsOf;
    std::vector<int> sections;
    for (const int block : written) {
        if (!HasSection(block))
            continue;
        sections.push_back(block);
        if (const TableBlock* table = data.Table(block))
            *part.Table(block) = PartOf(*table, block, doubtful_[block], rowsOf[block]);
        else
            CopyOwnStores(data, block, part);
    }
    const CRoundTrip trip(std::move(part), sections);
    leaks_ = trip.Leaks();
    if (leaks_)
        return LookAtAll(data);
    const std::span<const int> shown = ShownBlocks();
    for (const int block : blocks) {
        if (!std::ranges::binary_search(shown, block))
            continue;
        std::vector<ReturnedCell> cells = trip.Different(block);
        if (const auto rows = rowsOf.find(block); rows != rowsOf.end())
            for (ReturnedCell& cell : cells)
                if (static_cast<std::size_t>(cell.row) <= rows->second.size())
                    cell.row = rows->second[static_cast<std::size_t>(cell.row) - 1] + 1;
        if (cells.empty())
            cells_.erase(block);
        else
            cells_[block] = std::move(cells);
    }
}

void CReadBack::LookAtAll(const CSbdData& data)
{
    const CRoundTrip trip(data);
    leaks_ = trip.Leaks();
    cells_.clear();
    for (const int block : ShownBlocks())
        if (std::vector<ReturnedCell> cells = trip.Different(block); !cells.empty())
            cells_[block] = std::move(cells);
}

std::vector<int> CReadBack::Blocks() const
{
    std::vector<int> blocks;
    for (const auto& [block, cells] : cells_)
        blocks.push_back(block);
    return blocks;
}

std::span<const ReturnedCell> CReadBack::CellsOf(int block) const
{
    const auto found = cells_.find(block);
    return found == cells_.end() ? std::span<const ReturnedCell>() : std::span<const ReturnedCell>(found->second);
}

std::size_t CReadBack::Count() const
{
    std::size_t count = 0;
    for (const auto& [block, cells] : cells_)
        count += cells.size();
    return count;
}

FindingList CReadBack::Findings() const
{
    FindingList findings;
    for (const auto& [block, cells] : cells_)
        for (const ReturnedCell& cell : cells)
            findings.Add(FindingOf(cell));
    return findings;
}

} // namespace sbd
