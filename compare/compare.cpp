#include "compare/compare.h"

#include "compare/rows.h"
#include "project/block_rules.h"
#include "project/catalogue.h"
#include "project/option_rows.h"
#include "project/sbd_data.h"
#include "project/text.h"

#include <algorithm>

namespace sbd {

namespace {

using namespace literals;

bool SameTexts(std::vector<std::string> a, std::vector<std::string> b)
{
    std::erase(a, std::string());
    std::erase(b, std::string());
    return a == b;
}

void CompareRow(int block, const Cells& a, const Cells& b, const RowMatch& match, std::vector<Difference>& found)
{
    const int row = GridRow(block, match.after);
    const int otherRow = GridRow(block, match.before);
    if (a != b && SameTexts(a, b)) {
        const auto changed = std::ranges::mismatch(a, b).in1;
        const std::size_t column = static_cast<std::size_t>(changed - a.begin());
        found.push_back({DifferenceKind::RowMoved,
                         block,
                         row,
                         static_cast<int>(column) + 1,
                         ColumnName(block, column),
                         Joined(a),
                         Joined(b),
                         {},
                         otherRow});
        return;
    }
    for (std::size_t column = 0; column < std::max(a.size(), b.size()); ++column) {
        const std::string before = column < a.size() ? a[column] : std::string();
        const std::string after = column < b.size() ? b[column] : std::string();
        if (before != after)
            found.push_back({DifferenceKind::Value,
                             block,
                             row,
                             static_cast<int>(column) + 1,
                             ColumnName(block, column),
                             before,
                             after,
                             {},
                             otherRow});
    }
}

void CompareRows(int block, const Rows& before, const Rows& after, std::vector<Difference>& found)
{
    std::size_t nextBefore = 0; // where a row that is not there would stand
    std::size_t nextAfter = 0;
    for (const RowMatch& match : MatchRows(before, after)) {
        if (match.before == kNoRow)
            found.push_back({DifferenceKind::RowAdded,
                             block,
                             GridRow(block, match.after),
                             0,
                             {},
                             {},
                             Joined(after[match.after]),
                             after[match.after],
                             GridRow(block, nextBefore)});
        else if (match.after == kNoRow)
            found.push_back({DifferenceKind::RowRemoved,
                             block,
                             GridRow(block, match.before),
                             0,
                             {},
                             Joined(before[match.before]),
                             {},
                             before[match.before],
                             GridRow(block, nextAfter)});
        else if (before[match.before] != after[match.after])
            CompareRow(block, before[match.before], after[match.after], match, found);
        if (match.before != kNoRow)
            nextBefore = match.before + 1;
        if (match.after != kNoRow)
            nextAfter = match.after + 1;
    }
}

void CompareOptions(const OptionBlock& block, const CSbdData& before, const CSbdData& after,
                    std::vector<Difference>& found)
{
    for (std::size_t row = 0; row < block.rows.size(); ++row) {
        const std::string_view a = before.Option(block.block, row);
        const std::string_view b = after.Option(block.block, row);
        if (a != b)
            found.push_back({DifferenceKind::Value, block.block, static_cast<int>(row) + 1, 0,
                             block.rows[row].panelLabel, std::string(a), std::string(b)});
    }
}

void CompareNameLists(int block, const NameLists& before, const NameLists& after, std::vector<Difference>& found)
{
    if (before.autoValue != after.autoValue)
        found.push_back({DifferenceKind::Value, block, 1, 2, "自動取得"_cp932, before.autoValue, after.autoValue});
    for (std::size_t list = 0; list < before.lists.size(); ++list) {
        const std::vector<std::string>& a = before.lists[list];
        const std::vector<std::string>& b = after.lists[list];
        for (std::size_t i = 0; i < std::max(a.size(), b.size()); ++i) {
            const std::string name = i < a.size() ? a[i] : std::string();
            const std::string newName = i < b.size() ? b[i] : std::string();
            if (name != newName)
                found.push_back({DifferenceKind::Value, block, static_cast<int>(i) + 2, static_cast<int>(list) + 1,
                                 NameHeadings(block)[list], name, newName});
        }
    }
}

void CompareHGirder(const CSbdData& before, const CSbdData& after, std::vector<Difference>& found)
{
    const std::array<std::string, 4> names = {"上フランジ厚のタイプ"_cp932, "下フランジ厚のタイプ"_cp932,
                                              "上フランジＺ座標のタイプ"_cp932, "下フランジＺ座標のタイプ"_cp932};
    for (std::size_t type = 0; type < names.size(); ++type)
        if (before.hGirder.types[type] != after.hGirder.types[type])
            found.push_back({DifferenceKind::Value, 311, static_cast<int>(type) + 1, 2, names[type],
                             before.hGirder.types[type], after.hGirder.types[type]});
    CompareRows(311, HGirderRows(before), HGirderRows(after), found);
}

void CompareUnknown(const CSbdData& before, const CSbdData& after, std::vector<Difference>& found)
{
    Rows a;
    Rows b;
    for (const std::string& line : before.unknownLines)
        a.push_back({line});
    for (const std::string& line : after.unknownLines)
        b.push_back({line});
    const std::size_t first = found.size();
    CompareRows(0, a, b, found);
    for (std::size_t i = first; i < found.size(); ++i) {
        found[i].kind = DifferenceKind::UnknownLine;
        found[i].column = 0;
        found[i].cells.clear();
    }
}

} // namespace

std::vector<Difference> CompareProjects(const CSbdData& before, const CSbdData& after)
{
    std::vector<Difference> found;
    for (const CatalogueRow& row : Catalogue()) {
        const int block = row.block;
        if (const OptionBlock* options = FindOptionBlock(block))
            CompareOptions(*options, before, after, found);
        else if (const NameLists* names = before.Names(block))
            CompareNameLists(block, *names, *after.Names(block), found);
        else if (block == 311)
            CompareHGirder(before, after, found);
        else if (block == 324)
            CompareRows(block, CrossRibRows(before), CrossRibRows(after), found);
        else if (block == 325)
            CompareRows(block, LRibRows(before), LRibRows(after), found);
        else if (const TableBlock* table = before.Table(block); table != nullptr && !(*table == *after.Table(block)))
            CompareRows(block, TableRows(*table), TableRows(*after.Table(block)), found);
    }
    if (before.versionWord != after.versionWord)
        found.push_back({DifferenceKind::Value, 315, 0, 0, "NEW_VERSION"_cp932, before.versionWord, after.versionWord});
    CompareUnknown(before, after, found);
    return found;
}

} // namespace sbd
