#include "drawing/table_rows.h"

#include "drawing/bridge_grid.h"
#include "project/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numeric>

namespace sbd {

bool Holds(std::string_view text, std::string_view word)
{
    for (std::size_t pos = 0; pos < text.size(); pos += CharacterLength(text, pos))
        if (text.substr(pos).starts_with(word))
            return true;
    return false;
}

std::optional<double> NumberIn(std::string_view cell)
{
    constexpr double most = 1e9;
    cell = Trim(cell);
    if (cell.starts_with('+'))
        cell.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(cell.data(), cell.data() + cell.size(), value);
    if (error != std::errc() || end != cell.data() + cell.size() || !(std::abs(value) < most))
        return std::nullopt;
    return value;
}

std::vector<std::string_view> CellWords(std::string_view cell)
{
    std::vector<std::string_view> words;
    const auto divides = [](char c) { return IsTrimmed(c) || c == ',' || c == ';'; };
    for (std::size_t pos = 0; pos < cell.size();) {
        std::size_t end = pos;
        while (end < cell.size() && !divides(cell[end]))
            end += CharacterLength(cell, end);
        if (end > pos)
            words.push_back(cell.substr(pos, end - pos));
        pos = end + 1;
    }
    return words;
}

CTableRows::CTableRows(const CSbdData& data, int block, std::size_t heads) : table_(data.Table(block)), block_(block)
{
    count_ = table_ == nullptr ? 0 : table_->RowCount();
    first_ = std::min(heads, count_);
}

std::string_view CTableRows::Cell(std::size_t row, std::size_t column) const
{
    if (table_ == nullptr || column >= table_->columns.size() || row >= table_->columns[column].size())
        return {};
    return Trim(table_->columns[column][row]);
}

bool CTableRows::IsEmpty(std::size_t row) const
{
    constexpr std::size_t names = 4;
    for (std::size_t column = 0; column < names; ++column)
        if (!Cell(row, column).empty())
            return false;
    return true;
}

std::optional<IndexRange> RangeOfNames(CDrawingBuild& build, const CNameIndex& names, std::string_view from,
                                       std::string_view to, SourceCell fromPlace, std::string_view kind)
{
    const auto find = [&](std::string_view name, int column) {
        const std::optional<std::size_t> index = names.Find(name);
        if (!index) {
            SourceCell place = fromPlace;
            place.column = column;
            if (name.empty())
                build.Omit(place, std::string(kind) + "名が空白のため，図にできません．");
            else
                build.Omit(place, std::string("という") + std::string(kind) + "名がないため，図にできません．", name);
        }
        return index;
    };
    const std::optional<std::size_t> first = find(from, fromPlace.column);
    if (!first)
        return std::nullopt;
    const std::optional<std::size_t> last = find(to, fromPlace.column + 1);
    if (!last)
        return std::nullopt;
    return IndexRange{std::min(*first, *last), std::max(*first, *last)};
}

CLastRowWins::CLastRowWins(std::size_t places) : winner_(places, kNone), next_(places + 1)
{
    std::iota(next_.begin(), next_.end(), std::size_t{0});
}

std::size_t CLastRowWins::Take(std::size_t row, std::size_t first, std::size_t end)
{
    std::size_t taken = 0;
    end = std::min(end, winner_.size());
    for (std::size_t place = first < end ? FreeFrom(first) : end; place < end; place = FreeFrom(place)) {
        winner_[place] = row;
        next_[place] = place + 1;
        ++taken;
    }
    return taken;
}

std::size_t CLastRowWins::FreeFrom(std::size_t place)
{
    while (next_[place] != place) {
        next_[place] = next_[next_[place]];
        place = next_[place];
    }
    return place;
}

} // namespace sbd
