#include "panelmodel/tree_rows.h"

#include "panelmodel/tree_rows_table.h"
#include "project/catalogue.h"
#include "project/panel_columns.h"
#include "project/sbd_data.h"
#include "project/text.h"

#include <algorithm>
#include <array>
#include <span>

namespace sbd {

namespace {

bool Holds(const BlockRanges& ranges, int block)
{
    return std::ranges::any_of(ranges, [=](BlockRange r) { return r.first <= block && block <= r.last; });
}

// --- the layout ----------------------------------------------------------------------------------

/// Items of their own above and below the groups, for whole bridges only.
const BlockRanges kItemsAbove = {{999, 999}, {253, 256}, {259, 259}};
const BlockRanges kItemsBelow = {{801, 801}, {481, 486}};
constexpr int kLastItem = 999;                          // in every project
constexpr std::string_view kSearchTag = "[SEARCH_Q&A]"; // in English, where its title would be a number alone

// --- what kind of project it is ------------------------------------------------------------------

constexpr std::string_view kSectionType = "断面";
constexpr std::string_view kSectionSpliceType = "断面継";
const BlockRanges kSectionBoxItems = {{326, 326}, {333, 333}};
const BlockRanges kSectionSpliceItems = {{341, 344}};

/// Rows of block 301 behind the type: what the user does not want designed.
enum class DesignSwitch : std::size_t { Cross = 3, Sway = 4, Lateral = 5, Support = 6 };

/// The facts of a project that the rules ask for.
struct ProjectFacts {
    const ProjectKind* kind;
    bool spliceType;
    bool box;
    bool noCross;
    bool noSway;
    bool noLateral;
    bool noSupport;
};

ProjectFacts FactsOf(const CSbdData& data)
{
    const std::string_view type = data.Type();
    const auto begins = [&](std::string_view word) { return type.starts_with(Cp932(word)); };
    const auto left = [&](DesignSwitch row) { return data.Option(301, static_cast<std::size_t>(row)) == "YES"; };
    const auto kind = std::ranges::find_if(ProjectKinds(), [&](const ProjectKind& k) { return begins(k.typeBegins); });
    return {&*kind,
            begins(kSectionSpliceType),
            data.RowCount(305) > 0,
            left(DesignSwitch::Cross),
            left(DesignSwitch::Sway),
            left(DesignSwitch::Lateral),
            left(DesignSwitch::Support)};
}

bool IsWholeBridge(const ProjectFacts& facts)
{
    return facts.kind->groups.empty();
}

// --- what is left out ----------------------------------------------------------------------------

bool AutomaticHidesGroup(const ProjectFacts& facts, int group)
{
    const bool hides520 = facts.noCross && facts.noSway;
    switch (group) {
    case 520:
        return hides520;
    case 570:
        return facts.noLateral || facts.box;
    case 700:
        return facts.noSupport;
    case 500:
        return hides520 && facts.noLateral;
    default:
        return false;
    }
}

bool AutomaticHidesBlock(const ProjectFacts& facts, int block)
{
    static const BlockRanges cross = {{531, 535}, {552, 561}};
    static const BlockRanges sway = {{541, 543}};
    static const BlockRanges lateral = {{571, 584}};
    static const BlockRanges boxOnly = {{324, 326}, {333, 334}, {408, 409}, {721, 752}};
    static const BlockRanges plateOnly = {{483, 483}, {486, 486}, {571, 584}, {701, 719}};
    return (facts.noCross && Holds(cross, block)) || (facts.noSway && Holds(sway, block))
           || (facts.noLateral && Holds(lateral, block)) || Holds(facts.box ? plateOnly : boxOnly, block);
}

bool ShowGroup(const ProjectFacts& facts, const TreeView& view, int group)
{
    if (!IsWholeBridge(facts))
        return std::ranges::count(facts.kind->groups, group) != 0;
    if (view.mode == TreeMode::Everything)
        return true;
    if (view.mode == TreeMode::Automatic && AutomaticHidesGroup(facts, group))
        return false;
    if (group == 500 && view.filters.contains(TreeFilter::Cross) && view.filters.contains(TreeFilter::Lateral))
        return false;
    return std::ranges::none_of(FilteredItemTable(), [&](const FilteredItems& f) {
        return f.group == group && view.filters.contains(f.filter);
    });
}

bool ShowBlock(const ProjectFacts& facts, const TreeView& view, int block)
{
    if (!IsWholeBridge(facts)) {
        const bool section = facts.kind->typeBegins == kSectionType;
        return Holds(facts.kind->items, block)
               || (section && (facts.box || view.boxPanelChanged) && Holds(kSectionBoxItems, block))
               || (facts.spliceType && Holds(kSectionSpliceItems, block));
    }
    if (view.mode == TreeMode::Everything)
        return true;
    if (view.mode == TreeMode::Automatic && AutomaticHidesBlock(facts, block))
        return false;
    return std::ranges::none_of(FilteredItemTable(), [&](const FilteredItems& f) {
        return view.filters.contains(f.filter) && Holds(f.items, block);
    });
}

// --- marks of content ----------------------------------------------------------------------------

std::size_t MarkRows(const CSbdData& data, int block)
{
    const NameLists* names = data.Names(block);
    if (names == nullptr)
        return data.RowCount(block);
    std::size_t rows = 0;
    for (const std::vector<std::string>& list : names->lists)
        rows = std::max(rows, list.size());
    return rows;
}

/// The switch of a block's first row; in the one column of 412 it stands alone.
std::string_view ControlValue(const CSbdData& data, int block)
{
    if (const NameLists* names = data.Names(block))
        return names->autoValue;
    const TableBlock* table = data.Table(block);
    if (table == nullptr || table->RowCount() == 0)
        return {};
    return table->columns[table->columns.size() > 1 ? 1 : 0][0];
}

// --- rows ----------------------------------------------------------------------------------------

std::string_view GroupTitle(const ProjectFacts& facts, const TreeGroup& group)
{
    if (!group.title.empty())
        return group.title;
    return group.block == 290 ? facts.kind->group290 : facts.kind->group300;
}

std::string_view ItemTitle(const ProjectFacts& facts, int block)
{
    switch (block) {
    case 259:
        return "259.キャンバー出力[CAMBER]"; // the menu words it otherwise
    case 301:
        return facts.kind->block301;
    default:
        return FindBlock(block)->menuText;
    }
}

class RowMaker {
public:
    RowMaker(const CSbdData& data, const TreeView& view) : data_(data), view_(view), facts_(FactsOf(data)) {}

    std::vector<TreeRow> Make()
    {
        if (IsWholeBridge(facts_))
            AddItems(0, kItemsAbove);
        for (const TreeGroup& group : TreeGroups()) {
            if (!ShowGroup(facts_, view_, group.block))
                continue;
            const std::string_view title = GroupTitle(facts_, group);
            rows_.push_back({0, group.block, true, false, TitleIn(view_.language, title), std::string(title)});
            for (const int block : BlocksOfGroup(&CatalogueRow::tree, group.block))
                if (ShowBlock(facts_, view_, block))
                    AddItem(1, block);
        }
        if (IsWholeBridge(facts_))
            AddItems(0, kItemsBelow);
        AddItem(0, kLastItem);
        return std::move(rows_);
    }

private:
    void AddItems(int level, const BlockRanges& ranges)
    {
        for (const BlockRange range : ranges)
            for (int block = range.first; block <= range.last; ++block)
                if (FindBlock(block) != nullptr && ShowBlock(facts_, view_, block))
                    AddItem(level, block);
    }

    void AddItem(int level, int block)
    {
        std::string title = TitleIn(view_.language, ItemTitle(facts_, block));
        if (block == kLastItem && view_.language == TitleLanguage::English)
            title += kSearchTag;
        rows_.push_back({level, block, false, HasInputInForce(data_, block), std::move(title),
                         std::string(ItemTitle(facts_, block))});
    }

    const CSbdData& data_;
    const TreeView& view_;
    ProjectFacts facts_;
    std::vector<TreeRow> rows_;
};

bool EqualsIgnoringCase(std::string_view a, std::string_view b)
{
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; };
    return std::ranges::equal(a, b, {}, lower, lower);
}

/// The first `count` characters of a UTF-8 text.
std::string_view FirstCharacters(std::string_view text, std::size_t count)
{
    std::size_t end = 0;
    while (end < text.size() && count > 0) {
        do
            ++end;
        while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80);
        --count;
    }
    return text.substr(0, end);
}

} // namespace

TitleLanguage TitleLanguageOf(std::string_view word)
{
    if (EqualsIgnoringCase(word, "English"))
        return TitleLanguage::English;
    if (EqualsIgnoringCase(word, "EnglishAndJapanese"))
        return TitleLanguage::EnglishAndJapanese;
    return TitleLanguage::Japanese;
}

std::string TitleIn(TitleLanguage language, std::string_view title)
{
    const std::size_t open = title.find('[');
    switch (language) {
    case TitleLanguage::English: {
        const std::string_view tag = open == std::string_view::npos ? std::string_view() : title.substr(open);
        return std::string(FirstCharacters(title, 4)) + std::string(TrimRight(tag));
    }
    case TitleLanguage::EnglishAndJapanese:
        return std::string(title);
    case TitleLanguage::Japanese:
        break;
    }
    const std::size_t close = title.find(']');
    const std::string_view behind = close == std::string_view::npos ? std::string_view() : title.substr(close + 1);
    return std::string(title.substr(0, open)) + std::string(TrimLeft(behind));
}

std::optional<TreeMode> TreeModeOf(Command command)
{
    switch (command) {
    case Command::ShowAllItems:
        return TreeMode::Everything;
    case Command::ShowItemsOfProject:
        return TreeMode::Automatic;
    case Command::ShowUnfilteredItems:
        return TreeMode::Filtered;
    default:
        return std::nullopt;
    }
}

std::optional<TreeFilter> TreeFilterOf(Command command)
{
    const auto filter = std::ranges::find(FilteredItemTable(), command, &FilteredItems::command);
    return filter == FilteredItemTable().end() ? std::nullopt : std::optional(filter->filter);
}

std::vector<TreeRow> TreeRows(const CSbdData& data, const TreeView& view)
{
    return RowMaker(data, view).Make();
}

bool HasInputInForce(const CSbdData& data, int block)
{
    const int canonical = CanonicalBlock(block);
    const CatalogueRow* row = FindBlock(canonical);
    switch (row != nullptr ? row->mark.rule : MarkRule::Never) {
    case MarkRule::Never:
        return false;
    case MarkRule::Always:
        return true;
    case MarkRule::MoreRows:
        return MarkRows(data, canonical) > row->mark.rows;
    case MarkRule::MoreRowsAndNoAutomatic:
        return MarkRows(data, canonical) > row->mark.rows && ControlValue(data, canonical) == "NO";
    }
    return false;
}

BlockFill FillOf(const CSbdData& data, int block)
{
    const int canonical = CanonicalBlock(block);
    const CatalogueRow* row = FindBlock(canonical);
    if (row == nullptr)
        return {};
    BlockFill fill;
    bool automatic = false;
    if (data.Names(canonical) != nullptr) {
        fill.rows = static_cast<int>(MarkRows(data, canonical));
        automatic = ControlValue(data, canonical) == "YES";
    } else if (const TableBlock* table = data.Table(canonical)) {
        const PanelTable* panel = FindPanelTable(canonical);
        std::size_t first = panel == nullptr ? 0 : static_cast<std::size_t>(panel->automaticRows);
        const bool hasSwitch =
            table->RowCount() > 0 && table->columns.size() > 1 && table->columns[0][0].starts_with(Cp932("自動計算"));
        if (hasSwitch)
            first = std::max<std::size_t>(first, 1);
        automatic = hasSwitch && ControlValue(data, canonical) == "YES";
        fill.rows = 0;
        for (std::size_t r = first; r < table->RowCount(); ++r)
            fill.rows +=
                std::ranges::any_of(table->columns,
                                    [r](const auto& column) { return r < column.size() && !Trim(column[r]).empty(); })
                    ? 1
                    : 0;
    } else if (row->kind == BlockKind::OwnTable) {
        fill.rows = static_cast<int>(data.RowCount(canonical));
    }
    const bool needed = row->menuText.find("(必要)") != std::string_view::npos;
    const bool neededInBoxes = row->menuText.find("(箱桁必要)") != std::string_view::npos && data.RowCount(305) > 0;
    fill.lacks = (needed || neededInBoxes) && fill.rows == 0 && !automatic;
    return fill;
}

std::string TreeKey(const CSbdData& data)
{
    std::string key;
    for (std::size_t row = 2; row <= static_cast<std::size_t>(DesignSwitch::Support); ++row) {
        key += data.Option(301, row);
        key += '\n';
    }
    key += data.RowCount(305) > 0 ? "box" : "";
    return key;
}

} // namespace sbd
