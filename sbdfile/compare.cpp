#include "sbdfile/compare.h"

#include "project/block_rules.h"
#include "project/catalogue.h"
#include "project/option_rows.h"
#include "project/panel_columns.h"
#include "project/sbd_data.h"
#include "project/text.h"

#include <algorithm>
#include <charconv>
#include <unordered_map>

namespace sbd {

namespace {

using namespace literals;

/// A block as rows of texts, whatever it is stored as.
using Rows = std::vector<std::vector<std::string>>;

std::string NumberText(double value)
{
    if (!IsGiven(value))
        return {};
    char buffer[32];
    const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, value);
    return {buffer, end};
}

std::string SpacingText(const RibSpacing& spacing)
{
    if (!spacing.word.empty())
        return spacing.word;
    std::string text;
    for (const double number : spacing.numbers)
        text += (text.empty() ? "" : ", ") + NumberText(number);
    return text;
}

Rows HGirderRows(const CSbdData& data)
{
    Rows rows;
    for (const HGirderRecord& record : data.hGirder.records) {
        std::vector<std::string>& row = rows.emplace_back(record.names.begin(), record.names.end());
        for (const double number : record.numbers)
            row.push_back(NumberText(number));
    }
    return rows;
}

Rows CrossRibRows(const CSbdData& data)
{
    Rows rows;
    for (const CrossRibRecord& record : data.crossRibs) {
        std::vector<std::string>& row = rows.emplace_back(record.names.begin(), record.names.end());
        for (const double size : record.sizes)
            row.push_back(NumberText(size));
        row.push_back(std::to_string(record.n));
        row.push_back(SpacingText(record.left));
        row.push_back(SpacingText(record.right));
        std::string further;
        for (const std::array<double, 4>& sizes : record.furtherSizes)
            for (const double size : sizes)
                further += (further.empty() ? "" : ", ") + NumberText(size);
        row.push_back(further);
    }
    return rows;
}

Rows LRibRows(const CSbdData& data)
{
    Rows rows;
    for (const LRibRecord& record : data.lRibs) {
        std::vector<std::string>& row = rows.emplace_back(record.names.begin(), record.names.end());
        row.push_back(std::to_string(record.n1));
        row.push_back(std::to_string(record.n2));
        row.push_back(SpacingText(record.left));
        row.push_back(SpacingText(record.right));
    }
    return rows;
}

Rows TableRows(const TableBlock& table)
{
    Rows rows(table.RowCount());
    for (std::size_t row = 0; row < rows.size(); ++row)
        for (const ColumnVector& column : table.columns)
            rows[row].emplace_back(column[row]);
    return rows;
}

std::string ColumnName(int block, std::size_t column)
{
    const auto oneLine = [](std::string text) {
        std::ranges::replace(text, '\n', ' ');
        return text;
    };
    if (const PanelTable* panel = FindPanelTable(block); panel && column + 1 < panel->columns.size())
        return oneLine(panel->columns[column + 1].head);
    if (const RecordPanel* panel = FindRecordPanel(block); panel && column + 1 < panel->heads.size())
        return oneLine(panel->heads[column + 1]);
    return {};
}

bool SameTexts(std::vector<std::string> a, std::vector<std::string> b)
{
    std::erase(a, std::string());
    std::erase(b, std::string());
    return a == b;
}

std::string Joined(const std::vector<std::string>& row)
{
    std::string text;
    for (const std::string& cell : row)
        if (!cell.empty())
            text += (text.empty() ? "" : " ") + cell;
    return text;
}

/// Collects the differences of one block's rows.
class RowComparison {
public:
    RowComparison(int block, const Rows& before, const Rows& after, std::vector<Difference>& found)
        : block_(block)
        , before_(before)
        , after_(after)
        , found_(found)
    {
    }

    void Run()
    {
        std::size_t head = 0;
        const std::size_t shorter = std::min(before_.size(), after_.size());
        while (head < shorter && before_[head] == after_[head])
            ++head;
        std::size_t tail = 0;
        while (tail < shorter - head && before_[before_.size() - 1 - tail] == after_[after_.size() - 1 - tail])
            ++tail;
        CompareMiddle(head, before_.size() - tail, after_.size() - tail);
    }

private:
    /// Rows from `begin` on, which differ at both ends. Rows that stand on both sides hold the rest in place.
    void CompareMiddle(std::size_t begin, std::size_t beforeEnd, std::size_t afterEnd)
    {
        std::unordered_map<std::string, std::vector<std::size_t>> places; // in `after`, the last one first
        for (std::size_t row = afterEnd; row > begin; --row)
            places[Key(after_[row - 1])].push_back(row - 1);
        std::size_t from = begin;
        std::size_t to = begin;
        for (std::size_t row = begin; row < beforeEnd; ++row) {
            const auto place = places.find(Key(before_[row]));
            if (place == places.end())
                continue;
            while (!place->second.empty() && place->second.back() < to)
                place->second.pop_back();
            if (place->second.empty())
                continue;
            CompareStretch(from, row, to, place->second.back());
            from = row + 1;
            to = place->second.back() + 1;
        }
        CompareStretch(from, beforeEnd, to, afterEnd);
    }

    /// Rows without a counterpart: one by one as changed rows, what is left over as added or removed.
    void CompareStretch(std::size_t from, std::size_t fromEnd, std::size_t to, std::size_t toEnd)
    {
        for (; from < fromEnd && to < toEnd; ++from, ++to)
            CompareRow(from, to);
        for (; from < fromEnd; ++from)
            found_.push_back({DifferenceKind::RowRemoved,
                              block_,
                              GridRow(from),
                              0,
                              {},
                              Joined(before_[from]),
                              {},
                              before_[from],
                              GridRow(to)});
        for (; to < toEnd; ++to)
            found_.push_back({DifferenceKind::RowAdded,
                              block_,
                              GridRow(to),
                              0,
                              {},
                              {},
                              Joined(after_[to]),
                              after_[to],
                              GridRow(from)});
    }

    void CompareRow(std::size_t from, std::size_t to)
    {
        const std::vector<std::string>& a = before_[from];
        const std::vector<std::string>& b = after_[to];
        if (a != b && SameTexts(a, b)) {
            const auto changed = std::ranges::mismatch(a, b).in1;
            const std::size_t column = static_cast<std::size_t>(changed - a.begin());
            found_.push_back({DifferenceKind::RowMoved,
                              block_,
                              GridRow(to),
                              static_cast<int>(column) + 1,
                              ColumnName(block_, column),
                              Joined(a),
                              Joined(b),
                              {},
                              GridRow(from)});
            return;
        }
        for (std::size_t column = 0; column < std::max(a.size(), b.size()); ++column) {
            const std::string before = column < a.size() ? a[column] : std::string();
            const std::string after = column < b.size() ? b[column] : std::string();
            if (before != after)
                found_.push_back({DifferenceKind::Value,
                                  block_,
                                  GridRow(to),
                                  static_cast<int>(column) + 1,
                                  ColumnName(block_, column),
                                  before,
                                  after,
                                  {},
                                  GridRow(from)});
        }
    }

    static std::string Key(const std::vector<std::string>& row)
    {
        std::string key;
        for (const std::string& cell : row) {
            key += cell;
            key += '\n'; // no cell holds one
        }
        return key;
    }

    [[nodiscard]] int GridRow(std::size_t row) const
    {
        const int rowsAhead = block_ == 311 ? 4 : block_ == 324 || block_ == 325 ? 1 : 0; // types, control row
        return static_cast<int>(row) + 1 + rowsAhead;
    }

    int block_;
    const Rows& before_;
    const Rows& after_;
    std::vector<Difference>& found_;
};

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

void CompareRows(int block, const Rows& before, const Rows& after, std::vector<Difference>& found)
{
    RowComparison(block, before, after, found).Run();
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
        else if (const TableBlock* table = before.Table(block); table && !(*table == *after.Table(block)))
            CompareRows(block, TableRows(*table), TableRows(*after.Table(block)), found);
    }
    if (before.versionWord != after.versionWord)
        found.push_back({DifferenceKind::Value, 315, 0, 0, "NEW_VERSION"_cp932, before.versionWord, after.versionWord});
    CompareUnknown(before, after, found);
    return found;
}

} // namespace sbd
