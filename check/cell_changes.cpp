#include "check/cell_changes.h"

#include "check/shown_block.h"
#include "compare/compare.h"
#include "compare/rows.h"
#include "panelmodel/panel_model.h"
#include "project/sbd_data.h"

#include <algorithm>
#include <optional>
#include <set>

namespace sbd {

namespace {

bool IsBlank(const Cells& row)
{
    return std::ranges::all_of(row, &std::string::empty);
}

Rows From(const Rows& rows, std::size_t first)
{
    return {rows.begin() + static_cast<std::ptrdiff_t>(std::min(first, rows.size())), rows.end()};
}

const std::string& TextAt(const Cells& row, std::size_t column)
{
    static const std::string empty;
    return column < row.size() ? row[column] : empty;
}

int GridNumber(std::size_t index)
{
    return static_cast<int>(index) + 1;
}

/// Rows at the top, `fixed` of them, keep their place; the others are matched by their texts.
std::vector<RowMatch> Match(const Rows& before, const Rows& after, std::size_t fixed)
{
    fixed = std::min({fixed, before.size(), after.size()});
    std::vector<RowMatch> matches;
    for (std::size_t row = 0; row < fixed; ++row)
        matches.push_back({row, row});
    for (const RowMatch& match : MatchRows(From(before, fixed), From(after, fixed)))
        matches.push_back({match.before == kNoRow ? kNoRow : match.before + fixed,
                           match.after == kNoRow ? kNoRow : match.after + fixed});
    return matches;
}

} // namespace

CCellChanges::CCellChanges(const CSbdData& before, const CSbdData& after)
{
    const std::vector<Difference> differences = CompareProjects(before, after);
    std::set<int> blocks;
    for (const Difference& difference : differences)
        blocks.insert(difference.block);
    for (const int block : blocks) {
        const ChangeCounts none = counts_;
        if (block != 0)
            AddShown(block, before, after);
        if (counts_ == none) { // the data are different, what the panel shows is not
            for (const Difference& difference : differences)
                if (difference.block == block)
                    Add({ChangeKind::Unseen, block, 0, 0, 0, difference.place, difference.before, difference.after});
        }
        counts_.blocks += block != 0 ? 1 : 0;
    }
}

CCellChanges::Shown CCellChanges::Show(const CSbdData& data, int block)
{
    const std::unique_ptr<CPanelModel> panel = MakePanelModel(data, block);
    return panel == nullptr ? Shown() : Show(*panel);
}

CCellChanges::Shown CCellChanges::Show(const CPanelModel& panel)
{
    const ShownBlock shown = sbd::Show(panel);
    Shown result;
    result.fixedRows = static_cast<std::size_t>(std::clamp(shown.fixedRows, 0, shown.rows));
    for (int row = 1; row <= shown.rows; ++row) {
        Cells& cells = result.rows.emplace_back();
        for (int column = 1; column < shown.columns; ++column)
            cells.push_back(shown.Text(row, column));
    }
    while (result.rows.size() > result.fixedRows && IsBlank(result.rows.back()))
        result.rows.pop_back();
    return result;
}

void CCellChanges::AddShown(int block, const CSbdData& before, const CSbdData& after)
{
    const Shown old = Show(before, block);
    Shown now = Show(after, block);
    int nearest = 1;
    for (const RowMatch& match : Match(old.rows, now.rows, std::max(old.fixedRows, now.fixedRows))) {
        if (match.after != kNoRow)
            nearest = GridNumber(match.after);
        if (match.before == kNoRow) {
            const Cells& cells = now.rows[match.after];
            if (!IsBlank(cells))
                Add({ChangeKind::RowAdded, block, nearest, 0, nearest, {}, {}, Joined(cells), cells});
        } else if (match.after == kNoRow) {
            const Cells& cells = old.rows[match.before];
            if (!IsBlank(cells))
                Add({ChangeKind::RowRemoved,
                     block,
                     GridNumber(match.before),
                     0,
                     nearest,
                     {},
                     Joined(cells),
                     {},
                     cells});
        } else {
            AddRow(block, old.rows[match.before], now.rows[match.after], nearest);
        }
    }
    shown_[block] = std::move(now);
}

void CCellChanges::AddRow(int block, const Cells& before, const Cells& after, int row)
{
    for (std::size_t column = 0; column < std::max(before.size(), after.size()); ++column)
        if (TextAt(before, column) != TextAt(after, column))
            Add({ChangeKind::Cell,
                 block,
                 row,
                 GridNumber(column),
                 row,
                 {},
                 TextAt(before, column),
                 TextAt(after, column)});
}

void CCellChanges::Add(ShownChange change)
{
    switch (change.kind) {
    case ChangeKind::Cell:
        ++counts_.cells;
        break;
    case ChangeKind::RowAdded:
        ++counts_.rowsAdded;
        break;
    case ChangeKind::RowRemoved:
        ++counts_.rowsRemoved;
        break;
    case ChangeKind::Unseen:
        ++counts_.unseen;
        break;
    }
    if (list_.size() < kMostListed)
        list_.push_back(std::move(change));
    else
        ++more_;
}

bool CCellChanges::Follow(const CSbdData& now, int block, const CPanelModel* open)
{
    const auto known = shown_.find(block);
    if (known == shown_.end() || std::ranges::find(list_, block, &ShownChange::block) == list_.end())
        return false;
    Shown shown = open == nullptr ? Show(now, block) : Show(*open);
    if (shown.rows == known->second.rows)
        return false;
    std::vector<std::optional<std::size_t>> rowNow(known->second.rows.size());
    std::vector<std::size_t> added;
    for (const RowMatch& match :
         Match(known->second.rows, shown.rows, std::max(known->second.fixedRows, shown.fixedRows))) {
        if (match.before == kNoRow)
            added.push_back(match.after);
        else if (match.after != kNoRow)
            rowNow[match.before] = match.after;
    }
    const auto nowAt = [&rowNow](int row) -> std::optional<std::size_t> {
        const auto index = static_cast<std::size_t>(row) - 1;
        return row > 0 && index < rowNow.size() ? rowNow[index] : std::nullopt;
    };
    const auto isOver = [&](ShownChange& change) {
        if (change.block != block || change.kind == ChangeKind::Unseen)
            return false;
        const std::optional<std::size_t> place = nowAt(change.at);
        if (change.kind == ChangeKind::RowRemoved) {
            if (place)
                change.at = GridNumber(*place);
            return std::ranges::any_of(added, [&](std::size_t row) { return shown.rows[row] == change.cells; });
        }
        if (!place)
            return true;
        change.row = change.at = GridNumber(*place);
        const Cells& cells = shown.rows[*place];
        return change.kind == ChangeKind::RowAdded
                   ? cells != change.cells
                   : TextAt(cells, static_cast<std::size_t>(change.column) - 1) != change.after;
    };
    const std::vector<ShownChange> last = list_;
    std::erase_if(list_, isOver);
    known->second = std::move(shown);
    return list_ != last;
}

} // namespace sbd
