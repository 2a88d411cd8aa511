// The menus and the tool bar.
#include "commands/commands.h"

#include <algorithm>
#include <cassert>

namespace sbd {

namespace {

// clang-format off

using enum Command;

constexpr MenuItem kFile[] = {NewProject, Open, Close, kSeparator, Save, SaveAs, kSeparator, Print, PrintPreview,
                              SavePicture, InputBook, kSeparator, CompareProject, kSeparator, MenuFill::RecentFiles, kSeparator, Exit};
constexpr MenuItem kEdit[] = {Undo, Redo, kSeparator, Cut, Copy, Paste, Delete, CopyWithHeads, kSeparator, FillDown,
                              FillRight, FillSelection, OpenList, kSeparator, SelectRow, SelectColumn, SelectAllCells,
                              kSeparator, MoveRowUp, MoveRowDown, InsertRow, DeleteRow, DuplicateRow, kSeparator,
                               AddRows, FilterRows, kSeparator, FindText, FindNext, FindPrevious, ReplaceText,
                               kSeparator, ImportTable, ExportTable, kSeparator, NextFinding, PreviousFinding, FindingList,
                               NextRunChange, PreviousRunChange};
constexpr MenuItem kView[] = {GoTo, GoToNumber, Back, Forward, kSeparator, SwitchFigureAndHelp, BridgeDrawing, Notes, kSeparator, ViewAll, ViewXY, ViewYZ, ViewXZ, kSeparator,
                              ZoomIn, ZoomOut, kSeparator, MoveUp, MoveDown, MoveLeft, MoveRight, kSeparator,
                              MenuId::TreeItems, MenuId::Cells};
constexpr MenuItem kTreeItems[] = {ShowAllItems, ShowItemsOfProject, ShowUnfilteredItems, kSeparator, HidePlate,
                                   HideBox, HideDrawing, HideCross, HideLateral, HideFem, HideStringer, HideBracket,
                                   HideSupport};
constexpr MenuItem kCells[] = {RowsHigher, RowsLower, kSeparator, ColumnsWider, ColumnsNarrower, kSeparator, ResetCells,
                               kSeparator, ZoomCellsIn, ZoomCellsOut, ZoomCellsReset, kSeparator, FreezeColumns,
                               kSeparator, WordLists};
constexpr MenuItem kData[] = {MenuFill::DataEntries};
constexpr MenuItem kRun[] = {RunAll, CheckData, RunAndPrint, ShowCrossResults, ShowSupportResults, kSeparator,
                             KeptInputs};
constexpr MenuItem kSettings[] = {English, Japanese, EnglishAndJapanese, kSeparator, SavePanes, kSeparator, BackColor,
                                  Decimals, Font, kSeparator, ResetDisplay};
constexpr MenuItem kWindow[] = {NextPane, PreviousPane, kSeparator, NextWindow, PreviousWindow, CascadeWindows,
                                TileWindows, kSeparator, TabbedWindows, HelpBeside, KeepSession, kSeparator, MenuFill::Windows};
constexpr MenuItem kHelp[] = {Search, Shortcuts, FirstBridge, kSeparator, GirderDocument, CrossDocument, FemDocument, StringerDocument,
                              SupportDocument, QuantityDocument, kSeparator, HomePage, SecondHomePage, kSeparator,
                              About};

constexpr MenuItem kGridContext[] = {Cut, Copy, Paste, Delete, MoveRowUp, MoveRowDown, InsertRow};
constexpr MenuItem kSearchContext[] = {JumpToHit};

constexpr MenuRow kMenus[] = {
    {MenuId::File, "ファイル(&F)", kFile},
    {MenuId::Edit, "編集(&E)", kEdit},
    {MenuId::View, "表示(&V)", kView},
    {MenuId::TreeItems, "ツリーの項目(&T)", kTreeItems},
    {MenuId::Cells, "入力欄(&G)", kCells},
    {MenuId::Data, "データ入力(&I)", kData},
    {MenuId::Run, "解析&結果(&A)", kRun},
    {MenuId::Settings, "表示設定(&S)", kSettings},
    {MenuId::Window, "ウィンドウ(&W)", kWindow},
    {MenuId::Help, "ヘルプ(&H)", kHelp},
    {MenuId::GridContext, "", kGridContext},
    {MenuId::SearchContext, "", kSearchContext},
};

/// The version stands at position 8, counted from 0.
constexpr MenuItem kMenuBar[] = {MenuId::File, MenuId::Edit, MenuId::View, MenuId::Data, MenuId::Run, MenuId::Settings,
                                 MenuId::Window, MenuId::Help, Version};

constexpr Command kToolBar[] = {NewProject, Open, Save, kSeparator, Undo, Cut, Copy, Paste, kSeparator, Print,
                                PrintPreview, kSeparator, WordLists, kSeparator, ResetCells, ColumnsWider,
                                ColumnsNarrower, RowsHigher, RowsLower, kSeparator, Notes, RunAll, kSeparator,
                                SwitchFigureAndHelp, BridgeDrawing, ZoomIn, ZoomOut, ViewAll, ViewXY, ViewYZ, ViewXZ, MoveUp, MoveDown,
                                MoveLeft, MoveRight};

// clang-format on

} // namespace

std::span<const MenuRow> Menus()
{
    return kMenus;
}

const MenuRow& MenuOf(MenuId menu)
{
    const auto* const row = std::ranges::find(kMenus, menu, &MenuRow::menu);
    assert(row != std::end(kMenus));
    return *row;
}

std::span<const MenuItem> MenuBarItems()
{
    return kMenuBar;
}

std::span<const Command> ToolBarItems()
{
    return kToolBar;
}

} // namespace sbd
