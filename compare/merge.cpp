#include "compare/merge.h"

#include "compare/difference_text.h"
#include "compare/rows.h"
#include "project/block_rules.h"
#include "project/catalogue.h"
#include "project/option_rows.h"
#include "project/text.h"

#include <algorithm>
#include <functional>

namespace sbd {

namespace {

using namespace literals;

/// A row of the merged block: that of one side as it stands, or cells of both.
struct MergedRow {
    enum class From { Base, Ours, Theirs } from = From::Ours;
    std::size_t row = kNoRow;
    Cells cells;
};

/// What became of the rows of `base` on one side.
struct SideRows {
    std::vector<std::size_t> rows;               // by base row; kNoRow: removed
    std::vector<std::vector<std::size_t>> added; // by the base row that follows, the end included
};

/// Two rows are one that was changed if half of its cells are the same; a list of texts is changed text by text.
bool IsSameRow(const Cells& a, const Cells& b)
{
    const auto filled = [](const Cells& row) {
        return static_cast<std::size_t>(
            std::ranges::count_if(row, [](const std::string& cell) { return !cell.empty(); }));
    };
    const std::size_t most = std::max(filled(a), filled(b));
    return (a.size() <= 1 && b.size() <= 1) || CellsInCommon(a, b) * 2 >= most;
}

SideRows RowsOfSide(const Rows& base, const Rows& side)
{
    SideRows result{std::vector<std::size_t>(base.size(), kNoRow), {}};
    result.added.resize(base.size() + 1);
    std::vector<std::size_t> waiting;
    const auto put = [&](std::size_t place) {
        for (const std::size_t row : waiting)
            result.added[place].push_back(row);
        waiting.clear();
    };
    for (const RowMatch& match : MatchRows(base, side)) {
        if (match.before == kNoRow) {
            waiting.push_back(match.after);
            continue;
        }
        // What was added after rows that were removed stands in their place: before the next row that is still there.
        if (match.after != kNoRow && IsSameRow(base[match.before], side[match.after])) {
            put(match.before);
            result.rows[match.before] = match.after;
        } else if (match.after != kNoRow) {
            waiting.push_back(match.after);
        }
    }
    put(base.size());
    return result;
}

/// Merges the rows of one block.
class RowMerge {
public:
    /// `whole`: rows whose cells cannot be put together, only taken as a whole.
    RowMerge(int block, bool whole, const Rows& base, const Rows& ours, const Rows& theirs, MergeResult& result)
        : block_(block)
        , whole_(whole)
        , base_(base)
        , ours_(ours)
        , theirs_(theirs)
        , result_(result)
    {
    }

    std::vector<MergedRow> Run()
    {
        const SideRows our = RowsOfSide(base_, ours_);
        const SideRows their = RowsOfSide(base_, theirs_);
        for (const std::vector<std::size_t>& rows : our.added)
            ourAdded_.insert(ourAdded_.end(), rows.begin(), rows.end());
        for (std::size_t row = 0; row <= base_.size(); ++row) {
            PutAdded(our.added[row], their.added[row]);
            if (row < base_.size())
                PutRow(row, our.rows[row], their.rows[row]);
        }
        return std::move(merged_);
    }

private:
    using From = MergedRow::From;

    void PutAdded(const std::vector<std::size_t>& ours, const std::vector<std::size_t>& theirs)
    {
        for (const std::size_t row : ours)
            merged_.push_back({From::Ours, row, ours_[row]});
        for (const std::size_t row : theirs) {
            const Cells& cells = theirs_[row];
            const auto same = [&](std::size_t other) { return ours_[other] == cells; };
            if (std::ranges::any_of(ours, same))
                continue;
            merged_.push_back({From::Theirs, row, cells});
            ++result_.taken;
            const auto rival =
                std::ranges::find_if(ourAdded_, [&](std::size_t other) { return SamePlace(ours_[other], cells); });
            if (rival != ourAdded_.end())
                AddConflict(ConflictKind::AddedTwice, 0, {}, Joined(ours_[*rival]), Joined(cells));
        }
    }

    /// Rows for the same girders and beams: the first two cells are equal, and as many more as hold no number.
    static bool SamePlace(const Cells& a, const Cells& b)
    {
        constexpr std::size_t placeCells = 4;
        std::size_t same = 0;
        while (same < std::min({a.size(), b.size(), placeCells}) && a[same] == b[same])
            ++same;
        return same >= std::min({a.size(), b.size(), placeCells}) && same > 1;
    }

    void PutRow(std::size_t row, std::size_t our, std::size_t their)
    {
        const Cells& base = base_[row];
        if (our == kNoRow && their == kNoRow)
            return;
        if (our == kNoRow || their == kNoRow) {
            const bool oursIsLeft = their == kNoRow;
            const Cells& left = oursIsLeft ? ours_[our] : theirs_[their];
            if (left == base) {
                result_.taken += oursIsLeft ? 1 : 0;
                return;
            }
            merged_.push_back({oursIsLeft ? From::Ours : From::Theirs, oursIsLeft ? our : their, left});
            AddConflict(ConflictKind::RemovedOrChanged, 0, Joined(base), oursIsLeft ? Joined(left) : std::string(),
                        oursIsLeft ? std::string() : Joined(left));
            return;
        }
        const Cells& ours = ours_[our];
        const Cells& theirs = theirs_[their];
        if (theirs == base || theirs == ours) {
            merged_.push_back({From::Ours, our, ours});
        } else if (ours == base) {
            merged_.push_back({From::Theirs, their, theirs});
            ++result_.taken;
        } else if (whole_) {
            merged_.push_back({From::Ours, our, ours});
            AddConflict(ConflictKind::Value, 0, Joined(base), Joined(ours), Joined(theirs));
        } else {
            PutCells(base, ours, theirs);
        }
    }

    void PutCells(const Cells& base, const Cells& ours, const Cells& theirs)
    {
        const auto cell = [](const Cells& row, std::size_t i) { return i < row.size() ? row[i] : std::string(); };
        merged_.push_back({From::Base, kNoRow, ours});
        Cells& merged = merged_.back().cells;
        merged.resize(std::max(ours.size(), theirs.size()));
        for (std::size_t column = 0; column < merged.size(); ++column) {
            const std::string before = cell(base, column);
            const std::string our = cell(ours, column);
            const std::string their = cell(theirs, column);
            if (their == before || their == our)
                continue;
            if (our == before) {
                merged[column] = their;
                ++result_.taken;
            } else {
                AddConflict(ConflictKind::Value, column + 1, before, our, their);
            }
        }
    }

    void AddConflict(ConflictKind kind, std::size_t column, std::string base, std::string ours, std::string theirs)
    {
        result_.conflicts.push_back({kind, block_, GridRow(block_, merged_.size() - 1), static_cast<int>(column),
                                     column > 0 ? ColumnName(block_, column - 1) : std::string(), std::move(base),
                                     std::move(ours), std::move(theirs)});
    }

    int block_;
    bool whole_;
    const Rows& base_;
    const Rows& ours_;
    const Rows& theirs_;
    MergeResult& result_;
    std::vector<std::size_t> ourAdded_; // anywhere
    std::vector<MergedRow> merged_;
};

/// A single value.
void MergeValue(const std::string& base, const std::string& ours, const std::string& theirs, MergeConflict place,
                MergeResult& result, const std::function<void(const std::string&)>& take)
{
    if (theirs == base || theirs == ours)
        return;
    if (ours == base) {
        take(theirs);
        ++result.taken;
        return;
    }
    place.base = base;
    place.ours = ours;
    place.theirs = theirs;
    result.conflicts.push_back(std::move(place));
}

void MergeOptions(const OptionBlock& block, const CSbdData& base, const CSbdData& ours, const CSbdData& theirs,
                  MergeResult& result)
{
    for (std::size_t row = 0; row < block.rows.size(); ++row)
        MergeValue(
            std::string(base.Option(block.block, row)), std::string(ours.Option(block.block, row)),
            std::string(theirs.Option(block.block, row)),
            {ConflictKind::Value, block.block, static_cast<int>(row) + 1, 0, block.rows[row].panelLabel, {}, {}, {}},
            result, [&](const std::string& text) { result.data.SetOption(block.block, row, text); });
}

void MergeTable(int block, const CSbdData& base, const CSbdData& ours, const CSbdData& theirs, MergeResult& result)
{
    TableBlock& table = *result.data.Table(block);
    const TableBlock& their = *theirs.Table(block);
    const TableBlock& before = *base.Table(block);
    if (their == before || their == table)
        return;
    const Rows baseRows = TableRows(before);
    const Rows ourRows = TableRows(*ours.Table(block));
    const Rows theirRows = TableRows(their);
    const std::vector<MergedRow> merged = RowMerge(block, false, baseRows, ourRows, theirRows, result).Run();
    for (CColumnVector& column : table.columns)
        column.Clear();
    for (const MergedRow& row : merged)
        table.AppendRow(std::vector<std::string_view>(row.cells.begin(), row.cells.end()));
}

template <typename Record>
void MergeRecords(int block, const Rows& baseRows, const Rows& ourRows, const Rows& theirRows,
                  const std::vector<Record>& ours, const std::vector<Record>& theirs, std::vector<Record>& records,
                  MergeResult& result)
{
    const std::vector<MergedRow> merged = RowMerge(block, true, baseRows, ourRows, theirRows, result).Run();
    std::vector<Record> together;
    together.reserve(merged.size());
    for (const MergedRow& row : merged)
        together.push_back(row.from == MergedRow::From::Theirs ? theirs[row.row] : ours[row.row]);
    records = std::move(together);
}

void MergeList(int block, const std::vector<std::string>& base, const std::vector<std::string>& ours,
               const std::vector<std::string>& theirs, std::vector<std::string>& list, MergeResult& result)
{
    const Rows baseRows = ListRows(base);
    const Rows ourRows = ListRows(ours);
    const Rows theirRows = ListRows(theirs);
    const std::vector<MergedRow> merged = RowMerge(block, false, baseRows, ourRows, theirRows, result).Run();
    list.clear();
    for (const MergedRow& row : merged)
        list.push_back(row.cells.front());
}

void MergeNames(int block, const CSbdData& base, const CSbdData& ours, const CSbdData& theirs, MergeResult& result)
{
    NameLists& names = *result.data.Names(block);
    const NameLists& before = *base.Names(block);
    const NameLists& our = *ours.Names(block);
    const NameLists& their = *theirs.Names(block);
    MergeValue(before.autoValue, our.autoValue, their.autoValue,
               {ConflictKind::Value, block, 1, 2, "自動取得"_cp932, {}, {}, {}}, result,
               [&](const std::string& text) { names.autoValue = text; });
    for (std::size_t list = 0; list < names.lists.size(); ++list) {
        const std::size_t first = result.conflicts.size();
        MergeList(block, before.lists[list], our.lists[list], their.lists[list], names.lists[list], result);
        for (std::size_t i = first; i < result.conflicts.size(); ++i) {
            MergeConflict& conflict = result.conflicts[i];
            ++conflict.row; // behind the row of the switch
            conflict.column = static_cast<int>(list) + 1;
            conflict.place = NameHeadings(block)[list];
        }
    }
}

void MergeHGirder(const CSbdData& base, const CSbdData& ours, const CSbdData& theirs, MergeResult& result)
{
    for (std::size_t type = 0; type < ours.hGirder.types.size(); ++type)
        MergeValue(base.hGirder.types[type], ours.hGirder.types[type], theirs.hGirder.types[type],
                   {ConflictKind::Value, 311, static_cast<int>(type) + 1, 2, {}, {}, {}, {}}, result,
                   [&](const std::string& text) { result.data.hGirder.types[type] = text; });
    MergeRecords(311, HGirderRows(base), HGirderRows(ours), HGirderRows(theirs), ours.hGirder.records,
                 theirs.hGirder.records, result.data.hGirder.records, result);
}

void MergeBeside(const CSbdData& base, const CSbdData& ours, const CSbdData& theirs, MergeResult& result)
{
    MergeValue(base.versionWord, ours.versionWord, theirs.versionWord,
               {ConflictKind::Value, 315, 0, 0, "NEW_VERSION"_cp932, {}, {}, {}}, result,
               [&](const std::string& text) { result.data.versionWord = text; });
    const std::size_t first = result.conflicts.size();
    MergeList(0, base.unknownLines, ours.unknownLines, theirs.unknownLines, result.data.unknownLines, result);
    for (std::size_t i = first; i < result.conflicts.size(); ++i)
        result.conflicts[i].column = 0;
}

} // namespace

MergeResult MergeProjects(const CSbdData& base, const CSbdData& ours, const CSbdData& theirs)
{
    MergeResult result{ours, {}, 0};
    for (const CatalogueRow& row : Catalogue()) {
        const int block = row.block;
        if (const OptionBlock* options = FindOptionBlock(block))
            MergeOptions(*options, base, ours, theirs, result);
        else if (ours.Names(block) != nullptr)
            MergeNames(block, base, ours, theirs, result);
        else if (block == 311)
            MergeHGirder(base, ours, theirs, result);
        else if (block == 324)
            MergeRecords(block, CrossRibRows(base), CrossRibRows(ours), CrossRibRows(theirs), ours.crossRibs,
                         theirs.crossRibs, result.data.crossRibs, result);
        else if (block == 325)
            MergeRecords(block, LRibRows(base), LRibRows(ours), LRibRows(theirs), ours.lRibs, theirs.lRibs,
                         result.data.lRibs, result);
        else if (ours.Table(block) != nullptr)
            MergeTable(block, base, ours, theirs, result);
    }
    MergeBeside(base, ours, theirs, result);
    return result;
}

std::string ConflictText(const MergeConflict& conflict)
{
    std::string text = conflict.block == 0 ? "未知の区分の行" : NumberAndTitle(conflict.block);
    if (conflict.row > 0)
        text += " " + std::to_string(conflict.row) + "行目";
    if (conflict.column > 0)
        text += " " + std::to_string(conflict.column) + "列目";
    if (!conflict.place.empty())
        text += "(" + FromCp932(conflict.place) + ")";
    switch (conflict.kind) {
    case ConflictKind::Value:
        return text + ": 元" + Quoted(conflict.base) + " こちら" + Quoted(conflict.ours) + " 相手"
               + Quoted(conflict.theirs) + " (こちらの値を残しました)";
    case ConflictKind::RemovedOrChanged:
        return text + ": "
               + (conflict.ours.empty() ? "こちらが削除し、相手が変更した行" : "相手が削除し、こちらが変更した行")
               + Quoted(conflict.ours.empty() ? conflict.theirs : conflict.ours) + " (行を残しました)";
    case ConflictKind::AddedTwice:
        return text + ": 両方が同じ範囲の行を加えました こちら" + Quoted(conflict.ours) + " 相手"
               + Quoted(conflict.theirs) + " (両方を残しました)";
    }
    return text;
}

} // namespace sbd
