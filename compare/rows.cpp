#include "compare/rows.h"

#include "project/panel_columns.h"
#include "project/sbd_data.h"

#include <algorithm>
#include <charconv>
#include <unordered_map>

namespace sbd {

namespace {

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

std::string Key(const Cells& row)
{
    std::string key;
    for (const std::string& cell : row) {
        key += cell;
        key += '\n'; // no cell holds one
    }
    return key;
}

/// Matches the rows of two projects.
class RowMatcher {
public:
    RowMatcher(const Rows& before, const Rows& after) : before_(before), after_(after) {}

    std::vector<RowMatch> Run()
    {
        std::size_t head = 0;
        const std::size_t shorter = std::min(before_.size(), after_.size());
        while (head < shorter && before_[head] == after_[head])
            ++head;
        std::size_t tail = 0;
        while (tail < shorter - head && before_[before_.size() - 1 - tail] == after_[after_.size() - 1 - tail])
            ++tail;
        for (std::size_t row = 0; row < head; ++row)
            matches_.push_back({row, row});
        MatchMiddle(head, before_.size() - tail, after_.size() - tail);
        for (std::size_t row = tail; row > 0; --row)
            matches_.push_back({before_.size() - row, after_.size() - row});
        return std::move(matches_);
    }

private:
    /// Rows from `begin` on, which differ at both ends. Rows that stand on both sides hold the rest in place.
    void MatchMiddle(std::size_t begin, std::size_t beforeEnd, std::size_t afterEnd)
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
            MatchStretch(from, row, to, place->second.back());
            matches_.push_back({row, place->second.back()});
            from = row + 1;
            to = place->second.back() + 1;
        }
        MatchStretch(from, beforeEnd, to, afterEnd);
    }

    /// Rows without an equal: as many pairs as there can be, those with most in common; what is left over is added or
    /// removed.
    void MatchStretch(std::size_t from, std::size_t fromEnd, std::size_t to, std::size_t toEnd)
    {
        constexpr std::size_t mostPairs = 250'000; // that are looked at; beyond, one by one
        const std::size_t rows = fromEnd - from;
        const std::size_t others = toEnd - to;
        if (rows == 0 || others == 0 || rows > mostPairs / others) {
            for (; from < fromEnd && to < toEnd; ++from, ++to)
                matches_.push_back({from, to});
            for (; from < fromEnd; ++from)
                matches_.push_back({from, kNoRow});
            for (; to < toEnd; ++to)
                matches_.push_back({kNoRow, to});
            return;
        }
        // The best sum for what begins at a pair of rows. A pair alone counts a little, its common cells much.
        constexpr std::size_t aCell = 4;
        const std::size_t width = others + 1;
        std::vector<std::size_t> best((rows + 1) * width);
        std::vector<std::size_t> common(rows * others);
        for (std::size_t i = rows; i-- > 0;) {
            for (std::size_t j = others; j-- > 0;) {
                common[i * others + j] = 1 + aCell * CellsInCommon(before_[from + i], after_[to + j]);
                best[i * width + j] = std::max({best[(i + 1) * width + j + 1] + common[i * others + j],
                                                best[(i + 1) * width + j], best[i * width + j + 1]});
            }
        }
        std::size_t i = 0;
        std::size_t j = 0;
        while (i < rows || j < others) {
            const std::size_t now = best[i * width + j];
            if (i < rows && j < others && now == best[(i + 1) * width + j + 1] + common[i * others + j]) {
                matches_.push_back({from + i++, to + j++});
            } else if (i < rows && now == best[(i + 1) * width + j]) {
                matches_.push_back({from + i++, kNoRow});
            } else {
                matches_.push_back({kNoRow, to + j++});
            }
        }
    }

    const Rows& before_;
    const Rows& after_;
    std::vector<RowMatch> matches_;
};

} // namespace

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
        for (const CColumnVector& column : table.columns)
            rows[row].emplace_back(column[row]);
    return rows;
}

std::string ColumnName(int block, std::size_t column)
{
    const auto oneLine = [](std::string text) {
        std::ranges::replace(text, '\n', ' ');
        return text;
    };
    if (const PanelTable* panel = FindPanelTable(block); panel != nullptr && column + 1 < panel->columns.size())
        return oneLine(panel->columns[column + 1].head);
    if (const RecordPanel* panel = FindRecordPanel(block); panel != nullptr && column + 1 < panel->heads.size())
        return oneLine(panel->heads[column + 1]);
    return {};
}

std::string Joined(const std::vector<std::string>& row)
{
    std::string text;
    for (const std::string& cell : row)
        if (!cell.empty())
            text += (text.empty() ? "" : " ") + cell;
    return text;
}

Rows ListRows(const std::vector<std::string>& list)
{
    Rows rows;
    for (const std::string& text : list)
        rows.push_back({text});
    return rows;
}

int GridRow(int block, std::size_t row)
{
    const int rowsAhead = block == 311 ? 4 : block == 324 || block == 325 ? 1 : 0; // types, control row
    return static_cast<int>(row) + 1 + rowsAhead;
}

std::size_t CellsInCommon(const Cells& a, const Cells& b)
{
    std::size_t count = 0;
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i)
        count += !a[i].empty() && a[i] == b[i];
    return count;
}

std::vector<RowMatch> MatchRows(const Rows& before, const Rows& after)
{
    return RowMatcher(before, after).Run();
}

} // namespace sbd
