#include "check/doubts.h"

#include "check/doubt_tables.h"
#include "check/list_columns.h"
#include "check/shown_block.h"
#include "compare/difference_text.h"
#include "panelmodel/project_type.h"
#include "project/block_rules.h"
#include "project/catalogue.h"
#include "project/panel_columns.h"
#include "project/sbd_data.h"
#include "project/text.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <unordered_map>
#include <unordered_set>

namespace sbd {

namespace {

using namespace literals;

using Order = std::unordered_map<std::string_view, int>; // a name's place along the bridge

/// The names that a project knows: of the *.abd file, of 501 and 702, and of the blocks that name parts.
class KnownNames {
public:
    explicit KnownNames(const CSbdData& data)
    {
        Take(data.gridNames.girderNames, girders_);
        Take(data.Names(501)->lists[0], girders_);
        Take(data.gridNames.swayNames, beams_);
        Take(data.Names(501)->lists[1], beams_);
        hasNames_ = !girders_.empty() && !beams_.empty();
        Order other;
        Take(data.gridNames.lineNames, other);
        Take(data.Names(501)->lists[2], other);
        for (const std::vector<std::string>& list : data.Names(702)->lists)
            Take(list, other);
        Take(data.stringerNames, other);
        const TableBlock& webs = *data.Table(305);
        for (const CColumnVector& column : webs.columns)
            for (std::size_t row = 0; row < column.size(); ++row)
                all_.insert(column[row]);
    }

    /// False if the project knows no names at all: then none is doubtful.
    [[nodiscard]] bool Any() const { return hasNames_; }
    [[nodiscard]] std::size_t Girders() const { return girders_.size(); }
    [[nodiscard]] bool Knows(std::string_view name) const
    {
        return all_.contains(name) || all_.contains(name.substr(0, name.find('_')));
    }
    [[nodiscard]] std::optional<int> PlaceOf(std::string_view name, bool girder) const
    {
        const Order& order = girder ? girders_ : beams_;
        const auto found = order.find(name);
        return found == order.end() ? std::nullopt : std::optional(found->second);
    }

private:
    void Take(const std::vector<std::string>& names, Order& order)
    {
        for (const std::string& name : names) {
            order.try_emplace(name, static_cast<int>(order.size()));
            all_.insert(name);
        }
    }

    Order girders_;
    Order beams_;
    std::unordered_set<std::string_view> all_;
    bool hasNames_ = false;
};

bool Holds(const WordList& words, std::string_view word)
{
    return std::ranges::find(words, word) != words.end();
}

constexpr std::string_view kGirderMark = "@girders";
constexpr std::string_view kBeamMark = "@beams";

/// A column that takes a name of the bridge and says so in its head (the list alone stands beside numbers too).
bool IsNameColumn(const PanelColumn& column)
{
    static const std::vector<std::string> heads = {"主桁"_cp932, "横桁"_cp932, "対傾構"_cp932};
    return (Holds(column.words, kGirderMark) || Holds(column.words, kBeamMark))
           && std::ranges::any_of(heads,
                                  [&](const std::string& head) { return column.head.find(head) != std::string::npos; });
}

bool IsNumberColumn(int block, int number, const PanelColumn& column)
{
    if (column.rightAlignedFromRow == 0 || !column.words.empty())
        return false;
    if (column.head.find("(mm)") == std::string::npos && column.head.find("(m)") == std::string::npos)
        return false;
    return std::ranges::none_of(
        MixedColumns(), [&](const MixedColumn& mixed) { return mixed.block == block && mixed.column == number; });
}

/// The closed list from which a column offers words; null if it takes others too.
const ClosedWords* ClosedListOf(const PanelColumn& column)
{
    if (column.words.empty())
        return nullptr;
    for (const ClosedWords& closed : ClosedWordLists()) {
        const bool all = std::ranges::all_of(column.words, [&](const std::string& word) {
            return std::ranges::find(closed.words, FromCp932(word)) != closed.words.end();
        });
        if (all)
            return &closed;
    }
    return nullptr;
}

/// A column of a range: it takes a name, whatever its list offers.
bool IsRangeColumn(const RangeBlock* block, int column)
{
    return block != nullptr && std::ranges::any_of(block->ranges, [column](const RangeColumns& range) {
               return column == range.start || column == range.start + 1;
           });
}

/// What of one panel is judged, found once.
struct ColumnDoubts {
    std::vector<int> names;
    std::vector<int> numbers;
    std::vector<std::pair<int, const ClosedWords*>> closed;
    const RangeBlock* range = nullptr; ///< null: its rows are no ranges
};

const std::map<int, ColumnDoubts>& JudgedBlocks()
{
    static const std::map<int, ColumnDoubts> blocks = [] {
        std::map<int, ColumnDoubts> result;
        for (const PanelTable& panel : PanelTables()) {
            ColumnDoubts judged;
            const auto range = std::ranges::find(RangeBlocks(), panel.block, &RangeBlock::block);
            judged.range = range == RangeBlocks().end() ? nullptr : &*range;
            for (std::size_t i = 1; i < panel.columns.size(); ++i) {
                const int number = static_cast<int>(i);
                if (IsNameColumn(panel.columns[i]) || IsRangeColumn(judged.range, number))
                    judged.names.push_back(number);
                if (IsNumberColumn(panel.block, number, panel.columns[i]))
                    judged.numbers.push_back(number);
                if (const ClosedWords* closed = ClosedListOf(panel.columns[i]))
                    judged.closed.emplace_back(number, closed);
            }
            result[panel.block] = std::move(judged);
        }
        return result;
    }();
    return blocks;
}

/// A range of places, and the texts that must be equal.
struct Box {
    std::array<int, 2> from{};
    std::array<int, 2> to{};
    int row = 0;

    [[nodiscard]] bool Covers(const Box& other) const
    {
        for (std::size_t i = 0; i < from.size(); ++i)
            if (other.from[i] < from[i] || other.to[i] > to[i])
                return false;
        return true;
    }
};

class BlockJudge {
public:
    BlockJudge(const CSbdData& data, int block, const KnownNames& names, const SilentKinds& silent, FindingList& doubts)
        : table_(*data.Table(block))
        , panel_(*FindPanelTable(block))
        , judged_(JudgedBlocks().at(block))
        , block_(block)
        , names_(names)
        , silent_(silent)
        , doubts_(doubts)
        , singleSections_(IsSectionType(data.Type()))
    {
    }

    void Judge()
    {
        for (int row = FixedRowsOf(block_) + 1; row <= static_cast<int>(table_.RowCount()); ++row) {
            JudgeNames(row);
            JudgeNumbers(row);
            JudgeClosed(row);
            JudgeRange(row);
        }
        JudgeCovered();
    }

private:
    [[nodiscard]] std::string_view Cell(int row, int column) const
    {
        const std::size_t index = static_cast<std::size_t>(column) - 1;
        return index < table_.columns.size() ? table_.columns[index][static_cast<std::size_t>(row) - 1]
                                             : std::string_view();
    }

    void Tell(FindingKind kind, int row, int column, std::string text)
    {
        Finding finding;
        finding.kind = kind;
        finding.block = block_;
        finding.row = row;
        finding.column = column;
        finding.is = Cell(row, column);
        finding.text = std::move(text);
        doubts_.Add(std::move(finding));
    }

    [[nodiscard]] bool Judges(FindingKind kind) const { return !silent_.contains(kind); }
    [[nodiscard]] const PanelColumn& Column(int column) const
    {
        return panel_.columns[static_cast<std::size_t>(column)];
    }

    void JudgeNames(int row)
    {
        // Single sections have no bridge: their girder is "G" between "左" and "右".
        if (!Judges(FindingKind::UnknownName) || !names_.Any() || singleSections_)
            return;
        for (const int column : judged_.names) {
            const std::string_view cell = Cell(row, column);
            if (cell.empty() || Holds(Column(column).words, cell))
                continue;
            const bool isList =
                static_cast<std::size_t>(column) == table_.columns.size() && LastColumnTakesWords(block_);
            const std::vector<std::string_view> words =
                isList ? SplitWords(cell) : std::vector<std::string_view>{Trim(cell)};
            const auto unknown =
                std::ranges::find_if(words, [&](std::string_view word) { return !names_.Knows(word); });
            if (unknown != words.end())
                Tell(FindingKind::UnknownName, row, column,
                     Quoted(*unknown)
                         + "は、このプロジェクト(骨組解析のファイル、501、702、305)にない名称です。"
                           "この行は使われないおそれがあります。名称を確かめてください。");
        }
    }

    void JudgeNumbers(int row)
    {
        if (!Judges(FindingKind::NotANumber))
            return;
        static const std::string automatic = "自動"_cp932;
        for (const int column : judged_.numbers) {
            const std::string_view cell = Trim(Cell(row, column));
            if (cell.empty() || LeadingNumber(cell) || cell.starts_with(automatic) || cell.starts_with('-'))
                continue;
            Tell(FindingKind::NotANumber, row, column,
                 Quoted(cell) + "は数値ではありません。この列は寸法の数値です。列がずれていないか確かめてください。");
        }
    }

    void JudgeClosed(int row)
    {
        if (!Judges(FindingKind::NotInList))
            return;
        for (const auto& [column, closed] : judged_.closed) {
            const std::string word = FromCp932(Trim(Cell(row, column)));
            if (word.empty() || std::ranges::find(closed->words, word) != closed->words.end())
                continue;
            Tell(FindingKind::NotInList, row, column,
                 Quoted(Cell(row, column)) + "は、この列の選択肢にありません。" + std::string(closed->reason)
                     + "。選択肢から選んでください。");
        }
    }

    /// The places of a range; nothing if a name is not known or the range is not given.
    [[nodiscard]] std::optional<std::pair<int, int>> PlacesOf(int row, const RangeColumns& range) const
    {
        const std::optional<int> from = names_.PlaceOf(Cell(row, range.start), range.girders);
        const std::optional<int> to = names_.PlaceOf(Cell(row, range.start + 1), range.girders);
        return from && to ? std::optional(std::pair(*from, *to)) : std::nullopt;
    }

    void JudgeRange(int row)
    {
        if (!Judges(FindingKind::RangeReversed) || judged_.range == nullptr || singleSections_)
            return;
        for (const RangeColumns& range : judged_.range->ranges)
            if (const auto places = PlacesOf(row, range); places && places->first > places->second)
                Tell(FindingKind::RangeReversed, row, range.start,
                     Quoted(Cell(row, range.start)) + "は" + Quoted(Cell(row, range.start + 1)) + "より後ろです。"
                         + std::string(judged_.range->reason)
                         + "。始と終を逆に入力した行は使われないおそれがあります。始と終を入れ替えてください。");
    }

    /// The range of a row in places; nothing if it is not one, or runs backward and is not used anyway.
    [[nodiscard]] std::optional<Box> BoxOf(int row) const
    {
        Box box;
        box.row = row;
        for (std::size_t i = 0; i < box.from.size(); ++i) {
            const auto places = PlacesOf(row, judged_.range->ranges[i]);
            if (!places || places->first > places->second)
                return std::nullopt;
            box.from[i] = places->first;
            box.to[i] = places->second;
        }
        return box;
    }

    void JudgeCovered()
    {
        constexpr std::size_t mostBoxes =
            1000; // of one key: enough for any bridge, and no more work than the rows need
        if (!Judges(FindingKind::RowCovered) || judged_.range == nullptr || !judged_.range->laterRowWins
            || singleSections_)
            return;
        std::map<std::pair<std::string_view, std::string_view>, std::vector<Box>> later;
        std::vector<std::pair<int, int>> covered; // row, the row that rules
        for (int row = static_cast<int>(table_.RowCount()); row > FixedRowsOf(block_); --row) {
            const std::optional<Box> box = BoxOf(row);
            if (!box)
                continue;
            const auto key = [&](std::size_t i) {
                const int column = judged_.range->keys[i];
                return column > 0 ? Cell(row, column) : std::string_view();
            };
            std::vector<Box>& boxes = later[{key(0), key(1)}];
            const auto ruling = std::ranges::find_if(boxes, [&](const Box& other) { return other.Covers(*box); });
            if (ruling != boxes.end())
                covered.emplace_back(row, ruling->row);
            else if (boxes.size() < mostBoxes)
                boxes.push_back(*box);
        }
        std::ranges::reverse(covered);
        for (const auto& [row, ruling] : covered)
            Tell(FindingKind::RowCovered, row, 0,
                 "この行の範囲は、" + std::to_string(ruling) + "行目の範囲にすべて含まれます。"
                     + std::string(judged_.range->reason)
                     + "。後の行が優先なので、この行は効きません。行の順序を確かめてください。");
    }

    const TableBlock& table_;
    const PanelTable& panel_;
    const ColumnDoubts& judged_;
    int block_;
    const KnownNames& names_;
    const SilentKinds& silent_;
    FindingList& doubts_;
    bool singleSections_;
};

// --- needed blocks -----------------------------------------------------------------------------------

/// Rows that an engineer has entered.
bool HasRows(const CSbdData& data, int block)
{
    const int ahead = data.Table(block) != nullptr ? FixedRowsOf(block) : 0;
    return static_cast<int>(data.RowCount(block)) > ahead;
}

/// The types that design main girders begin so; the others begin with the part that they design.
bool DesignsGirders(const CSbdData& data)
{
    return data.Type().starts_with("YES");
}

bool IsNeeded(const NeededBlock& needed, const CSbdData& data, const KnownNames& names)
{
    if (!DesignsGirders(data) || !names.Any())
        return false;
    switch (needed.by) {
    case NeededBy::Girders:
        return true;
    case NeededBy::SeveralGirders:
        return names.Girders() > 1;
    case NeededBy::BoxGirders:
        return HasRows(data, 333);
    }
    return false;
}

void TellBlock(FindingKind kind, int block, int row, int column, std::string text, FindingList& doubts)
{
    Finding finding;
    finding.kind = kind;
    finding.block = block;
    finding.row = row;
    finding.column = column;
    finding.text = std::move(text);
    doubts.Add(std::move(finding));
}

void JudgeNeeded(const CSbdData& data, int block, const KnownNames& names, FindingList& doubts)
{
    const auto needed = std::ranges::find(NeededBlocks(), block, &NeededBlock::block);
    if (needed != NeededBlocks().end() && !HasRows(data, block) && IsNeeded(*needed, data, names))
        TellBlock(FindingKind::NeededBlockEmpty, block, 0, 0,
                  "入力が必要なブロックですが空です。" + std::string(needed->reason) + "。入力してください。", doubts);
}

// --- blocks that say the same ------------------------------------------------------------------------

std::string CellName(int block, int row)
{
    return NumberAndTitle(block) + "の" + std::to_string(row) + "行目";
}

void JudgeShared(const CSbdData& data, int block, FindingList& doubts)
{
    const auto valueAt = [&](const OptionPlace& place) {
        return data.Option(place.block, static_cast<std::size_t>(place.row) - 1);
    };
    for (const SharedOption& places : SharedOptions())
        for (const OptionPlace& place : places)
            if (place.block == block && place.block != places[0].block && valueAt(place) != valueAt(places[0]))
                TellBlock(FindingKind::BlocksDisagree, block, place.row, 2,
                          Quoted(valueAt(place)) + "ですが、同じ値の" + CellName(places[0].block, places[0].row) + "は"
                              + Quoted(valueAt(places[0])) + "です。開き直すとそちらの値になります。",
                          doubts);
}

void JudgeAutomatic(const CSbdData& data, int block, FindingList& doubts)
{
    const TableBlock* table = data.Table(block);
    const int option = AutomaticOptionRow(block);
    if (table == nullptr || option == 0 || table->RowCount() == 0)
        return;
    const std::string_view value = data.Option(301, static_cast<std::size_t>(option) - 1);
    if (table->columns[1][0] != value)
        TellBlock(FindingKind::BlocksDisagree, block, 1, 2,
                  Quoted(table->columns[1][0]) + "ですが、連動する" + CellName(301, option) + "は" + Quoted(value)
                      + "です。開き直すとそちらの値になります。",
                  doubts);
}

void JudgeStringerNames(const CSbdData& data, int block, FindingList& doubts)
{
    if (block != 640)
        return;
    const std::size_t names = SplitWords(data.Option(640, 1)).size();
    const int count = LeadingInteger(data.Option(640, 0));
    if (count > 0 && static_cast<std::size_t>(count) != names)
        TellBlock(FindingKind::BlocksDisagree, block, 1, 2,
                  "縦桁の本数は" + std::to_string(count) + "ですが、名称は" + std::to_string(names)
                      + "個です。本数と名称を合わせてください。",
                  doubts);
}

void AddDoubtsWith(const CSbdData& data, int block, const KnownNames& names, const SilentKinds& silent,
                   FindingList& doubts)
{
    if (!silent.contains(FindingKind::NeededBlockEmpty))
        JudgeNeeded(data, block, names, doubts);
    if (!silent.contains(FindingKind::BlocksDisagree)) {
        JudgeShared(data, block, doubts);
        JudgeAutomatic(data, block, doubts);
        JudgeStringerNames(data, block, doubts);
    }
    if (data.Table(block) != nullptr && JudgedBlocks().contains(block))
        BlockJudge(data, block, names, silent, doubts).Judge();
}

} // namespace

FindingList Doubts(const CSbdData& data, const SilentKinds& silent)
{
    FindingList doubts;
    const KnownNames names(data);
    for (const CatalogueRow& row : Catalogue())
        AddDoubtsWith(data, row.block, names, silent, doubts);
    return doubts;
}

std::vector<int> BlocksJudgedWith(int block)
{
    // Type and switches, names, webs, box sections: any block may be judged by them.
    constexpr std::array<int, 6> ruling = {301, 305, 333, 501, 640, 702};
    std::set<int> blocks = {block};
    if (std::ranges::find(ruling, block) != ruling.end())
        for (const CatalogueRow& row : Catalogue())
            blocks.insert(row.block);
    for (const SharedOption& places : SharedOptions())
        if (places[0].block == block)
            for (const OptionPlace& place : places)
                if (place.block != 0)
                    blocks.insert(place.block);
    return {blocks.begin(), blocks.end()};
}

void AddDoubts(const CSbdData& data, int block, const SilentKinds& silent, FindingList& doubts)
{
    AddDoubtsWith(data, block, KnownNames(data), silent, doubts);
}

} // namespace sbd
