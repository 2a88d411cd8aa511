// The command table: the numbers that are known elsewhere, and that names, rows and menus belong together. Only here do
// tests say numbers.
#include "commands/commands.h"
#include "commands/commands_table.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace sbd {

namespace {

using testing::ElementsAre;

std::vector<int> Numbers(std::span<const Command> commands)
{
    std::vector<int> numbers;
    for (const Command command : commands)
        numbers.push_back(command == kSeparator ? 0 : NumberOf(command));
    return numbers;
}

std::vector<int> Numbers(MenuId menu)
{
    std::vector<Command> commands;
    for (const MenuItem& item : MenuOf(menu).items) {
        if (const Command* command = std::get_if<Command>(&item))
            commands.push_back(*command);
    }
    return Numbers(commands);
}

/// How often each command stands in the menus of the menu bar.
void CountEntries(std::span<const MenuItem> items, std::map<Command, int>& counts)
{
    for (const MenuItem& item : items) {
        if (const Command* command = std::get_if<Command>(&item); command != nullptr && *command != kSeparator)
            ++counts[*command];
        else if (const MenuId* menu = std::get_if<MenuId>(&item))
            CountEntries(MenuOf(*menu).items, counts);
    }
}

} // namespace

TEST(CommandTable, HasARowForEachNameAtItsPlace)
{
    EXPECT_EQ(CommandTable().size() + 1, static_cast<std::size_t>(Command::Count));
    for (const CommandRow& row : CommandTable()) {
        EXPECT_EQ(&RowOf(row.command), &row) << row.text;
        EXPECT_FALSE(row.text.empty());
    }
}

TEST(CommandTable, GivesNoNumberTwice)
{
    std::set<int> numbers;
    for (const CommandRow& row : CommandTable()) {
        EXPECT_TRUE(row.number == 0 || numbers.insert(row.number).second) << row.text << ' ' << row.number;
        EXPECT_GE(row.number, 0);
        EXPECT_LE(row.number, 0xFFFF) << row.text;
    }
}

TEST(CommandTable, FindsACommandByItsNumber)
{
    for (const CommandRow& row : CommandTable()) {
        const std::optional<Command> expected = row.number == 0 ? std::nullopt : std::optional(row.command);
        EXPECT_EQ(CommandOfNumber(row.number), expected) << row.text;
    }
    EXPECT_EQ(CommandOfNumber(1), std::nullopt);
    EXPECT_EQ(CommandOfNumber(-1), std::nullopt);
    EXPECT_EQ(CommandOfNumber(43010), std::nullopt); // opens a block: the catalogue's
}

TEST(CommandTable, FindsACommandByEachOfItsKeysInItsScopeAlone)
{
    EXPECT_EQ(CommandOfKey(KeyScope::Grid, "Ctrl+C"), Command::Copy);
    EXPECT_EQ(CommandOfKey(KeyScope::Grid, "Ctrl+Ins"), Command::Copy);
    EXPECT_EQ(CommandOfKey(KeyScope::Window, "Alt+Backspace"), Command::Undo);
    EXPECT_EQ(CommandOfKey(KeyScope::Grid, "Del"), Command::Delete);
    EXPECT_EQ(CommandOfKey(KeyScope::Grid, "Ctrl+S"), std::nullopt);
    EXPECT_EQ(CommandOfKey(KeyScope::Window, "Ctrl+S"), Command::Save);
    EXPECT_EQ(CommandOfKey(KeyScope::Grid, "Ctrl"), std::nullopt); // part of a key is no key
    EXPECT_EQ(CommandOfKey(KeyScope::Grid, "Ctrl+C; Ctrl+Ins"), std::nullopt);
    EXPECT_EQ(CommandOfKey(KeyScope::Grid, ""), std::nullopt);
}

TEST(CommandTable, StandsInTheMenuBarOnceWithEachCommandButTheSearchPanels)
{
    std::map<Command, int> counts;
    CountEntries(MenuBarItems(), counts);
    for (const CommandRow& row : CommandTable())
        EXPECT_EQ(counts[row.command], row.scope == KeyScope::Search ? 0 : 1) << row.text;
}

TEST(Menus, AreAllThereOnce)
{
    std::set<MenuId> ids;
    for (const MenuRow& menu : Menus()) {
        EXPECT_TRUE(ids.insert(menu.menu).second) << menu.title;
        EXPECT_FALSE(menu.items.empty()) << menu.title;
    }
    EXPECT_EQ(ids.size(), static_cast<std::size_t>(MenuId::SearchContext) + 1);
}

TEST(Menus, OfTheRightMouseButtonHoldCommandsAlone)
{
    for (const MenuId menu : {MenuId::GridContext, MenuId::SearchContext}) {
        EXPECT_TRUE(MenuOf(menu).title.empty());
        for (const MenuItem& item : MenuOf(menu).items)
            EXPECT_TRUE(std::holds_alternative<Command>(item));
    }
}

TEST(Menus, KeepTheNumbersThatAreKnownElsewhere)
{
    EXPECT_THAT(Numbers(MenuId::File),
                ElementsAre(57600, 57601, 57602, 0, 57603, 57604, 0, 57607, 57609, 0, 0, 0, 0, 0, 0, 57665));
    EXPECT_THAT(Numbers(MenuId::Edit),
                ElementsAre(57643, 0, 0, 57635, 57634, 57637, 33001, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 33038, 33039,
                            33040, 0, 0, 0, 32761, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0));
    EXPECT_THAT(Numbers(MenuId::GridContext), ElementsAre(57635, 57634, 57637, 33001, 33038, 33039, 33040));
    EXPECT_THAT(Numbers(MenuId::SearchContext), ElementsAre(33181));
    EXPECT_THAT(Numbers(MenuId::Run), ElementsAre(39255, 39254, 39256, 33028, 33029, 0, 0));
    EXPECT_THAT(Numbers(MenuId::TreeItems),
                ElementsAre(33026, 33007, 33006, 0, 33015, 33009, 33014, 33010, 33012, 33013, 33021, 33019, 33024));
    EXPECT_THAT(Numbers(MenuId::Settings),
                ElementsAre(32764, 32763, 32762, 0, 32769, 0, 32770, 32771, 32965, 0, 32966));
    EXPECT_THAT(Numbers(MenuId::Help),
                ElementsAre(49990, 0, 0, 0, 33168, 33169, 33175, 33171, 33173, 33174, 0, 32766, 32767, 0, 57664));
}

TEST(ToolBar, StandsInItsOrder)
{
    EXPECT_EQ(Numbers(ToolBarItems()),
              (std::vector{57600, 57601, 57603, 0,     57643, 57635, 57634, 57637, 0,     57607, 57609, 0,
                           33037, 0,     33150, 33153, 33154, 33033, 33035, 0,     32990, 39255, 0,     32989,
                           0,     32996, 32995, 32994, 32991, 32992, 32993, 32997, 32998, 32999, 33000}));
}

} // namespace sbd
