#include "tools/dump.h"

#include "project/catalogue.h"
#include "project/option_rows.h"
#include "project/sbd_data.h"
#include "project/text.h"
#include "tools/json_text.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace sbd {

namespace {

using nlohmann::json;

template <typename Numbers>
json NumberList(const Numbers& numbers)
{
    json list = json::array();
    for (const double number : numbers)
        list.push_back(IsGiven(number) ? json(number) : json());
    return list;
}

/// The word, or `count` numbers.
json Spacing(const RibSpacing& spacing, int count)
{
    if (!spacing.word.empty())
        return FromCp932(spacing.word);
    json list = json::array();
    const std::size_t held =
        std::max(spacing.numbers.size(), static_cast<std::size_t>(std::clamp(count, 0, kMostRibs)));
    for (std::size_t i = 0; i < held; ++i)
        list.push_back(spacing.At(i));
    return list;
}

json CrossRib(const CrossRibRecord& record)
{
    json further = json::array();
    const std::size_t held =
        std::max(record.furtherSizes.size(), static_cast<std::size_t>(std::clamp(record.n, 1, kMostRibs) - 1));
    for (std::size_t i = 0; i < held; ++i)
        further.push_back(NumberList(record.FurtherSizesAt(i)));
    return {{"names", TextList(record.names)},
            {"sizes", NumberList(record.sizes)},
            {"n", record.n},
            {"left", Spacing(record.left, record.n)},
            {"right", Spacing(record.right, record.n)},
            {"further_sizes", std::move(further)}};
}

json LRib(const LRibRecord& record)
{
    return {{"names", TextList(record.names)},
            {"n1", record.n1},
            {"n2", record.n2},
            {"left", Spacing(record.left, record.n1)},
            {"right", Spacing(record.right, record.n2)}};
}

json NameListsOf(const NameLists& names)
{
    json lists = json::array();
    for (const std::vector<std::string>& list : names.lists)
        lists.push_back(TextList(list));
    return {{"auto", FromCp932(names.autoValue)}, {"lists", std::move(lists)}};
}

json Tables(const CSbdData& data)
{
    json tables = json::object();
    for (const CatalogueRow& row : Catalogue()) {
        const TableBlock* table = data.Table(row.block);
        if (table == nullptr || table->RowCount() == 0)
            continue;
        json rows = json::array();
        for (std::size_t i = 0; i < table->RowCount(); ++i)
            rows.push_back(TextList(table->Row(i)));
        tables[std::to_string(row.block)] = std::move(rows);
    }
    return tables;
}

json HexList(const std::vector<std::string>& texts)
{
    json list = json::array();
    for (const std::string& text : texts)
        list.push_back(Hex(text));
    return list;
}

} // namespace

json DumpProject(const CSbdData& data)
{
    json options = json::object();
    for (const OptionBlock& block : OptionBlocks())
        options[std::to_string(block.block)] = TextList(*data.Options(block.block));

    json girderRecords = json::array();
    for (const HGirderRecord& record : data.hGirder.records)
        girderRecords.push_back({{"names", TextList(record.names)}, {"numbers", NumberList(record.numbers)}});
    json crossRibs = json::array();
    for (const CrossRibRecord& record : data.crossRibs)
        crossRibs.push_back(CrossRib(record));
    json lRibs = json::array();
    for (const LRibRecord& record : data.lRibs)
        lRibs.push_back(LRib(record));

    return {{"title", FromCp932(data.Option(301, 0))},
            {"version_word", FromCp932(data.versionWord)},
            {"options", std::move(options)},
            {"tables", Tables(data)},
            {"h_girder", {{"types", TextList(data.hGirder.types)}, {"records", std::move(girderRecords)}}},
            {"cross_rib", std::move(crossRibs)},
            {"l_rib", std::move(lRibs)},
            {"name_lists", {{"501", NameListsOf(*data.Names(501))}, {"702", NameListsOf(*data.Names(702))}}},
            {"stringer_names", TextList(data.stringerNames)},
            {"sway_names", TextList(data.gridNames.swayNames)},
            {"unknown_lines", TextList(data.unknownLines)}};
}

json DumpNames(const CSbdData& data)
{
    const GridNames& names = data.gridNames;
    json result = {{"girders", TextList(names.girderNames)},
                   {"sways", TextList(names.swayNames)},
                   {"marks", names.swayMarks},
                   {"lines", TextList(names.lineNames)},
                   {"girderWidth", names.girderNameWidth},
                   {"swayWidth", names.swayNameWidth}};
    const bool whole = std::ranges::all_of(names.girderNames, IsWholeText)
                       && std::ranges::all_of(names.swayNames, IsWholeText)
                       && std::ranges::all_of(names.lineNames, IsWholeText);
    if (!whole)
        result["bytes"] = {{"girders", HexList(names.girderNames)},
                           {"sways", HexList(names.swayNames)},
                           {"lines", HexList(names.lineNames)}};
    return result;
}

} // namespace sbd
