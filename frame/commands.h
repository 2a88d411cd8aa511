// The commands of the windows as a table: texts, keys, tips, icons, and where they stand.
#pragma once

#include <QKeySequence>
#include <QList>
#include <QString>

#include <span>
#include <string_view>
#include <variant>

namespace sbd {

/// What has to hold so that a command can be given.
enum class CommandNeeds {
    Nothing,
    Project,   ///< a project is in front
    FreeView,  ///< and no print job is under way
    FreePage,  ///< and block 253 is not on show
    Grid,      ///< a project's panel with a grid
    Undo,      ///< a project, or a field of text, with something to take back
    Redo,      ///< and with something to make again
    RowUp,     ///< a grid whose row may move up
    RowDown,   ///< a grid whose row may move down
    InsertRow, ///< a grid that takes a row at its focus
    AddRows,   ///< a grid that takes rows at its end
    Filters,   ///< a project, and not all items of the tree are shown
    Hit,       ///< the search panel, on a result
    HomePage,  ///< the deployment names the page
    SecondHomePage,
};

/// Whether an entry has a mark.
enum class CommandMark {
    None,
    Check, ///< set or not, each for itself
    Radio, ///< one of its group, which is the entries between two separators
};

/// Where a command's keys work.
enum class KeyScope {
    Window, ///< wherever the focus is
    Grid,   ///< in the grid and its editor, which know these keys themselves
    Search, ///< in the search panel
};

/// One command. Texts are UTF-8. "(&X)" in a text marks the entry's letter; any other "&" is a character.
struct CommandRow {
    int id;
    std::string_view text;
    std::string_view keys; ///< portable names of keys, "; " between them; the first is shown
    std::string_view tip;  ///< of the tool bar; empty: the text
    std::string_view icon; ///< name of a drawing in icons/; empty: none
    CommandNeeds needs = CommandNeeds::Project;
    CommandMark mark = CommandMark::None;
    KeyScope scope = KeyScope::Window;
};

/// Commands without a number from elsewhere.
inline constexpr int kOtherPane = 31001;
inline constexpr int kNextWindow = 31002;
inline constexpr int kPreviousWindow = 31003;
inline constexpr int kTabbedWindows = 31004;
inline constexpr int kSavePicture = 31005;
inline constexpr int kPaneBefore = 31006;
inline constexpr int kRedo = 31007;
/// The version at the end of the menu bar.
inline constexpr int kVersionEntry = 33002;

/// All commands but those that open a block, which are the catalogue's.
[[nodiscard]] std::span<const CommandRow> CommandTable();
/// The row of a command; null if there is none.
[[nodiscard]] const CommandRow* FindCommand(int id);

enum class MenuId { File, Edit, View, Cells, TreeItems, Data, Run, Settings, Window, Help };

/// Entries that are known only when the menu is made or opens.
enum class MenuFill { DataEntries, RecentFiles, Windows };

/// A command (0: a separator), a menu below the menu, or entries made there.
using MenuItem = std::variant<int, MenuId, MenuFill>;
inline constexpr int kSeparator = 0;

/// A menu and what stands in it, from top to bottom.
struct MenuRow {
    MenuId menu;
    std::string_view title; ///< as CommandRow::text
    std::span<const MenuItem> items;
};

[[nodiscard]] const MenuRow& MenuOf(MenuId menu);
/// The menu bar from left to right.
[[nodiscard]] std::span<const MenuItem> MenuBarItems();
/// The tool bar from left to right; 0 is a separator.
[[nodiscard]] std::span<const int> ToolBarItems();
/// The menu of the right mouse button in a grid.
[[nodiscard]] std::span<const int> GridMenuItems();

/// A text as Qt takes it for entries and titles: an "&" that marks no letter is doubled.
[[nodiscard]] QString EntryText(std::string_view text);
/// A command's text for a menu; keys that are not the window's stand in it as text.
[[nodiscard]] QString EntryText(const CommandRow& command);
[[nodiscard]] QList<QKeySequence> KeysOf(const CommandRow& command);
/// What the tool bar and the status bar say about a command, its first key included.
[[nodiscard]] QString TipOf(const CommandRow& command);

} // namespace sbd
