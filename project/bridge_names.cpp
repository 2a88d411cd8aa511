#include "project/bridge_names.h"

#include "project/block_rules.h"
#include "project/sbd_data.h"
#include "project/text.h"

#include <algorithm>
#include <array>
#include <unordered_set>
#include <utility>

namespace sbd {

namespace {

constexpr int kTypesBlock = 523;
constexpr std::size_t kGirderList = 0;
constexpr std::size_t kBeamList = 1;
constexpr std::array<std::size_t, 2> kBeamColumns = {0, 1}; // of 523, stored
constexpr std::array<std::size_t, 2> kGirderColumns = {2, 3};

/// Takes names in their order, each once.
class NameTaker {
public:
    void Take(std::string_view name)
    {
        if (!Trim(name).empty() && known_.insert(std::string(name)).second)
            names_.emplace_back(name);
    }
    void Take(const std::vector<std::string>& names)
    {
        for (const std::string& name : names)
            Take(name);
    }
    void TakeBeams(const std::vector<std::string>& names)
    {
        for (const std::string& name : names)
            Take(BeamNameOf(name));
    }
    /// Row by row: a range's start stands ahead of its end.
    void Take(const TableBlock& table, const std::array<std::size_t, 2>& columns, std::size_t firstRow)
    {
        for (std::size_t row = firstRow; row < table.RowCount(); ++row)
            for (const std::size_t column : columns)
                Take(table.columns[column][row]);
    }
    [[nodiscard]] std::vector<std::string> Names() { return std::move(names_); }

private:
    std::vector<std::string> names_;
    std::unordered_set<std::string> known_;
};

bool NamesAny(const std::vector<std::string>& names, std::size_t count)
{
    return std::ranges::any_of(names.begin(), names.begin() + static_cast<std::ptrdiff_t>(count),
                               [](const std::string& name) { return !Trim(name).empty(); });
}

} // namespace

std::vector<std::string> GirderNamesOf(const CSbdData& data)
{
    const std::vector<std::string>& names = data.gridNames.girderNames;
    if (NamesAny(names, names.size()))
        return names;
    NameTaker taker;
    taker.Take(data.Names(501)->lists[kGirderList]);
    taker.Take(data.Names(702)->lists[kGirderList]);
    taker.Take(*data.Table(kTypesBlock), kGirderColumns, static_cast<std::size_t>(WordRowsOf(kTypesBlock)));
    return taker.Names();
}

std::vector<std::string> BeamNamesOf(const CSbdData& data)
{
    const std::vector<std::string>& names = data.gridNames.swayNames;
    if (NamesAny(names, std::min(names.size(), data.swayNameCount)))
        return names;
    NameTaker taker;
    taker.Take(names); // those of 501, as the document keeps them
    taker.TakeBeams(data.Names(501)->lists[kBeamList]);
    taker.TakeBeams(data.Names(702)->lists[kBeamList]);
    taker.Take(*data.Table(kTypesBlock), kBeamColumns, static_cast<std::size_t>(WordRowsOf(kTypesBlock)));
    return taker.Names();
}

bool GivesNames(int block)
{
    return block == kTypesBlock;
}

std::string_view BeamNameOf(std::string_view name)
{
    if (name.empty())
        return name;
    for (std::size_t pos = CharacterLength(name, 0); pos < name.size(); pos += CharacterLength(name, pos))
        if (name[pos] == '_')
            return name.substr(0, pos);
    return name;
}

} // namespace sbd
