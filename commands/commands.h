// The commands of the windows as a table: names, numbers, texts, keys, tips, icons, and where they stand.
#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <variant>

namespace sbd {

/// Every command but those that open a block, which are the catalogue's. In the order of the table's rows.
enum class Command {
    None, ///< no command; in a menu and in the tool bar a line

    // Files and printing
    NewProject,
    Open,
    Close,
    Save,
    SaveAs,
    Print,
    PrintPreview,
    SavePicture,
    InputBook,
    CompareProject,
    Exit,

    // Editing
    Undo,
    Redo,
    Cut,
    Copy,
    Paste,
    Delete,
    FillDown,
    FillRight,
    FillSelection,
    CopyWithHeads,
    OpenList,
    SelectRow,
    SelectColumn,
    SelectAllCells,
    MoveRowUp,
    MoveRowDown,
    InsertRow,
    DeleteRow,
    DuplicateRow,
    AddRows,
    FilterRows,
    FindText,
    FindNext,
    FindPrevious,
    ReplaceText,
    ImportTable,
    ExportTable,
    JumpToHit,
    NextFinding,
    PreviousFinding,
    FindingList,
    NextRunChange,
    PreviousRunChange,

    // Help page and model figure
    SwitchFigureAndHelp,
    BridgeDrawing,
    Notes,
    ViewXY,
    ViewYZ,
    ViewXZ,
    ViewAll,
    ZoomOut,
    ZoomIn,
    MoveUp,
    MoveDown,
    MoveLeft,
    MoveRight,

    // Size and kind of the cells
    RowsHigher,
    RowsLower,
    ColumnsWider,
    ColumnsNarrower,
    ResetCells,
    WordLists,
    ZoomCellsIn,
    ZoomCellsOut,
    ZoomCellsReset,
    FreezeColumns,

    // Places
    GoTo,
    GoToNumber,
    Back,
    Forward,

    // What the tree shows
    ShowAllItems,
    ShowItemsOfProject,
    ShowUnfilteredItems,
    HidePlate,
    HideBox,
    HideDrawing,
    HideCross,
    HideLateral,
    HideFem,
    HideStringer,
    HideBracket,
    HideSupport,

    // Runs
    RunAll,
    CheckData,
    RunAndPrint,
    ShowCrossResults,
    ShowSupportResults,
    KeptInputs,

    // Display settings
    English,
    Japanese,
    EnglishAndJapanese,
    SavePanes,
    BackColor,
    Decimals,
    Font,
    ResetDisplay,

    // Windows
    NextPane,
    PreviousPane,
    NextWindow,
    PreviousWindow,
    CascadeWindows,
    TileWindows,
    TabbedWindows,
    HelpBeside,
    KeepSession,

    // Documents, pages, version
    Search,
    Shortcuts,
    FirstBridge,
    GirderDocument,
    CrossDocument,
    FemDocument,
    StringerDocument,
    SupportDocument,
    QuantityDocument,
    HomePage,
    SecondHomePage,
    About,
    Version,

    Count ///< not a command: how many there are, None included
};

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
    TableRow,  ///< a grid whose row, at its focus, can be taken out
    Filter,    ///< a grid whose rows can be put out of sight
    AddRows,   ///< a grid that takes rows at its end
    Filters,   ///< a project, and not all items of the tree are shown
    Hit,       ///< the search panel, on a result
    Back,      ///< a project in which a jump has led away from a place
    Forward,   ///< and from which the user came back
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
    Grid,   ///< in the grid and its editor, which take them ahead of the window
    Search, ///< in the search panel
};

/// Who carries a command out.
enum class CommandOwner {
    Frame,   ///< the top window: it has a handler
    Outside, ///< what stands around the windows: documents and home pages
};

/// One command. Texts are UTF-8. "(&X)" in a text marks the entry's letter; any other "&" is a character.
struct CommandRow {
    Command command;
    int number; ///< as menus, deployments and scripts know it from elsewhere; 0: it has none
    std::string_view text;
    std::string_view keys; ///< portable names of keys, "; " between them; the first is shown
    std::string_view tip;  ///< of the tool bar; empty: the text
    std::string_view icon; ///< name of a drawing in frame/icons/; empty: none
    CommandNeeds needs = CommandNeeds::Project;
    CommandMark mark = CommandMark::None;
    KeyScope scope = KeyScope::Window;
    CommandOwner owner = CommandOwner::Frame;
};

/// All commands, in the order of their names.
[[nodiscard]] std::span<const CommandRow> CommandTable();
/// The row of a command other than None.
[[nodiscard]] const CommandRow& RowOf(Command command);
/// The command with a number; nothing if there is none, and for 0.
[[nodiscard]] std::optional<Command> CommandOfNumber(int number);
/// The command that has a key in a scope, by the key's portable name ("Ctrl+Z"); nothing if there is none.
[[nodiscard]] std::optional<Command> CommandOfKey(KeyScope scope, std::string_view key);

enum class MenuId {
    File,
    Edit,
    View,
    Cells,
    TreeItems,
    Data,
    Run,
    Settings,
    Window,
    Help,
    GridContext,   ///< of the right mouse button in a grid
    SearchContext, ///< and in the search panel's
};

/// Entries that are known only when the menu is made or opens.
enum class MenuFill { DataEntries, RecentFiles, Windows };

/// A command, a menu below the menu, or entries made there.
using MenuItem = std::variant<Command, MenuId, MenuFill>;
inline constexpr Command kSeparator = Command::None;

/// A menu and what stands in it, from top to bottom.
struct MenuRow {
    MenuId menu;
    std::string_view title; ///< as CommandRow::text; empty: a context menu
    std::span<const MenuItem> items;
};

[[nodiscard]] std::span<const MenuRow> Menus();
[[nodiscard]] const MenuRow& MenuOf(MenuId menu);
/// The menu bar from left to right.
[[nodiscard]] std::span<const MenuItem> MenuBarItems();
/// The tool bar from left to right.
[[nodiscard]] std::span<const Command> ToolBarItems();

} // namespace sbd
