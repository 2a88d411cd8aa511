// The rows of the command table, the menus and the tool bar.
#include "frame/commands.h"

#include <algorithm>
#include <array>
#include <cassert>

namespace sbd {

namespace {

// clang-format off

using enum CommandNeeds;
using enum CommandMark;

constexpr CommandRow kRows[] = {
    // id, text, keys, tip, icon, needs, mark, where the keys work

    // Files and printing
    {57600, "新規作成(&N)", "Ctrl+N", "", "new", Nothing},
    {57601, "開く(&O)...", "Ctrl+O", "", "open", Nothing},
    {57602, "閉じる(&C)", "Ctrl+W", "", ""},
    {57603, "上書き保存(&S)", "Ctrl+S", "", "save"},
    {57604, "名前を付けて保存(&A)...", "Ctrl+Shift+S", "", ""},
    {57607, "印刷(&P)...", "Ctrl+P", "", "print"},
    {57609, "印刷プレビュー(&V)", "", "", "preview"},
    {kSavePicture, "図を保存(&G)...", "", "", "", FreeView},
    {57665, "アプリケーションの終了(&X)", "Ctrl+Q", "", "", Nothing},

    // Editing
    {57643, "元に戻す(&U)", "Ctrl+Z; Alt+Backspace", "", "undo", Undo},
    {kRedo, "やり直す(&R)", "Ctrl+Y; Ctrl+Shift+Z", "", "", Redo},
    {57635, "切り取り", "Ctrl+X", "", "cut", Grid, None, KeyScope::Grid},
    {57634, "コピー", "Ctrl+C; Ctrl+Ins", "", "copy", Grid, None, KeyScope::Grid},
    {57637, "貼り付け", "Ctrl+V; Shift+Ins", "", "paste", Grid, None, KeyScope::Grid},
    {33001, "Delete", "Del", "選択したセルの内容を削除", "", Grid, None, KeyScope::Grid},
    {33038, "順序上へ移動", "", "", "", RowUp},
    {33039, "順序下へ移動", "", "", "", RowDown},
    {33040, "挿入行", "", "", "", InsertRow},
    {32761, "入力ウィンドウ行数の追加...", "", "", "", AddRows},
    {33181, "入力位置へ移動 (  ダブルクリックもOK )", "Ctrl+M", "", "", Hit, None, KeyScope::Search},

    // Help page and model figure
    {32989, "モデル図　と　ヘルプ　との切り替え", "", "", "model-help", FreePage},
    {32990, "注意事項", "", "", "notes", FreePage},
    {32991, "XY面の表示", "", "", "plane-xy", FreeView},
    {32992, "YZ面の表示", "", "", "plane-yz", FreeView},
    {32993, "XZ面の表示", "", "", "plane-xz", FreeView},
    {32994, "全体表示", "", "", "whole", FreeView},
    {32995, "縮小表示(0.80倍)", "", "", "zoom-out", FreeView},
    {32996, "拡大表示(1.25倍)", "", "", "zoom-in", FreeView},
    {32997, "上へ移動", "", "", "move-up", FreeView},
    {32998, "下へ移動", "", "", "move-down", FreeView},
    {32999, "左へ移動", "", "", "move-left", FreeView},
    {33000, "右へ移動", "", "", "move-right", FreeView},

    // Size and kind of the cells
    {33033, "行を高くする", "", "行の高さを大きくする", "row-higher"},
    {33035, "行を低くする", "", "行の高さを小さくする", "row-lower"},
    {33153, "列を広くする", "", "列の幅を広くする", "column-wider"},
    {33154, "列を狭くする", "", "列の幅を狭くする", "column-narrower"},
    {33150, "行の高さと列の幅を元に戻す", "", "", "cell-reset"},
    {33037, "選択リストで入力", "", "選択リストと直接入力の切り替え", "word-list", Project, Check},

    // What the tree shows
    {33026, "すべての項目表示", "", "", "", Project, Radio},
    {33007, "全項目自動表示（表示しない項目を除く）", "", "", "", Project, Radio},
    {33006, "全項目表示（表示しない項目を除く）", "", "", "", Project, Radio},
    {33015, "鈑桁項目表示しない", "", "", "", Filters, Check},
    {33009, "箱桁項目表示しない", "", "", "", Filters, Check},
    {33014, "400製図項目表示しない", "", "", "", Filters, Check},
    {33010, "520横桁（対傾構）項目表示しない", "", "", "", Filters, Check},
    {33012, "570下横構項目表示しない", "", "", "", Filters, Check},
    {33013, "600FEMモデル項目表示しない", "", "", "", Filters, Check},
    {33021, "640縦桁項目表示しない", "", "", "", Filters, Check},
    {33019, "670ブラケット項目表示しない", "", "", "", Filters, Check},
    {33024, "700支点補剛材・ダイヤフラム項目表示しない", "", "", "", Filters, Check},

    // Runs. The columns of blanks stand as they are.
    {39255, "1.実行　　　　　　　　　　　（主桁・横桁・骨組などすべての計算を行います．主桁結果を画面表示）", "",
     "255.解析実行[RUN]", "run", FreeView},
    {39254, "2.データをチェック", "", "254.データチェック[CHECK]", "", FreeView},
    {39256, "3.計算結果出力　　　　　　　（主桁・横桁・骨組などすべての計算を行い，その後出力画面を表示)", "",
     "256.解析実行＆出力[RESULT]", "", FreeView},
    {33028, "4.横桁･対傾構結果表示; 選択出力 　　　　　　　　 (正しく表示には 1. 実行してから行ってください)", "",
     "横桁・対傾構結果画面表示", "", FreeView},
    {33029, "5.支点補剛材・ダイヤフラム結果表示; 選択出力　　(正しく表示には 1. 実行してから行ってください)", "",
     "支点補剛材・ダイヤフランム結果画面表示", "", FreeView},

    // Display settings
    {32764, "英語", "", "", "", Project, Radio},
    {32763, "日本語", "", "", "", Project, Radio},
    {32762, "英語&日本語", "", "", "", Project, Radio},
    {32769, "ウィンドウ状態の保存", "", "", ""},
    {32770, "背景色の選択", "", "", ""},
    {32771, "小数点桁数", "", "", ""},
    {32965, "フォント", "", "", ""},
    {32966, "初期設定に戻る", "", "", ""},

    // Windows
    {kOtherPane, "次の区画へ移動(&F)", "F6", "ツリー、入力欄、選択欄、説明の順に移動", ""},
    {kPaneBefore, "前の区画へ移動(&E)", "Shift+F6", "", ""},
    {kNextWindow, "次のウィンドウ(&N)", "Ctrl+F6", "", ""},
    {kPreviousWindow, "前のウィンドウ(&P)", "Ctrl+Shift+F6", "", ""},
    {57650, "重ねて表示(&C)", "", "", ""},
    {57651, "並べて表示(&T)", "", "", ""},
    {kTabbedWindows, "タブで表示(&B)", "", "", "", Nothing, Check},

    // Documents, pages, version
    {49990, "999.KELD_検索_Q_&_A", "F1", "", ""},
    {33168, "300＆４00　主桁自動設計・製図", "", "", "", Nothing},
    {33169, "500　横桁・対傾構・下横構の設計", "", "", "", Nothing},
    {33175, "600　FEMモデル自動作成", "", "", "", Nothing},
    {33171, "640＆670　縦桁・ブラケットの設計", "", "", "", Nothing},
    {33173, "700　支点上補剛材・ダイヤフラムの設計", "", "", "", Nothing},
    {33174, "800　数量計算", "", "", "", Nothing},
    {32766, "KELD Homepage...", "", "", "", HomePage},
    {32767, " Homepage...", "", "", "", SecondHomePage}, // behind the name that the deployment gives
    {57664, "バージョン情報(&A)", "", "", "", Nothing},
    {kVersionEntry, "Ver20110808", "", "", "", Nothing},
};

constexpr MenuItem kFile[] = {57600, 57601, 57602, kSeparator, 57603, 57604, kSeparator, 57607, 57609, kSavePicture,
                              kSeparator, MenuFill::RecentFiles, kSeparator, 57665};
constexpr MenuItem kEdit[] = {57643, kRedo, kSeparator, 57635, 57634, 57637, 33001, kSeparator, 33038, 33039, 33040,
                              kSeparator, 32761};
constexpr MenuItem kView[] = {32989, 32990, kSeparator, 32994, 32991, 32992, 32993, kSeparator, 32996, 32995,
                              kSeparator, 32997, 32998, 32999, 33000, kSeparator, MenuId::TreeItems, MenuId::Cells};
constexpr MenuItem kTreeItems[] = {33026, 33007, 33006, kSeparator, 33015, 33009, 33014, 33010, 33012, 33013, 33021,
                                   33019, 33024};
constexpr MenuItem kCells[] = {33033, 33035, kSeparator, 33153, 33154, kSeparator, 33150, kSeparator, 33037};
constexpr MenuItem kData[] = {MenuFill::DataEntries};
constexpr MenuItem kRun[] = {39255, 39254, 39256, 33028, 33029};
constexpr MenuItem kSettings[] = {32764, 32763, 32762, kSeparator, 32769, kSeparator, 32770, 32771, 32965, kSeparator,
                                  32966};
constexpr MenuItem kWindow[] = {kOtherPane, kPaneBefore, kSeparator, kNextWindow, kPreviousWindow, 57650, 57651, kSeparator,
                                kTabbedWindows, kSeparator, MenuFill::Windows};
constexpr MenuItem kHelp[] = {49990, kSeparator, 33168, 33169, 33175, 33171, 33173, 33174, kSeparator, 32766, 32767,
                              kSeparator, 57664};

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
};

/// The version stands at position 8, counted from 0.
constexpr MenuItem kMenuBar[] = {MenuId::File, MenuId::Edit, MenuId::View, MenuId::Data, MenuId::Run,
                                 MenuId::Settings, MenuId::Window, MenuId::Help, kVersionEntry};

constexpr int kToolBar[] = {57600, 57601, 57603, kSeparator, 57643, 57635, 57634, 57637, kSeparator, 57607, 57609,
                            kSeparator, 33037, kSeparator, 33150, 33153, 33154, 33033, 33035, kSeparator, 32990, 39255,
                            kSeparator, 32989, 32996, 32995, 32994, 32991, 32992, 32993, 32997, 32998, 32999, 33000};

constexpr int kGridMenu[] = {57635, 57634, 57637, 33001, 33038, 33039, 33040};

// clang-format on

} // namespace

std::span<const CommandRow> CommandTable()
{
    return kRows;
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

std::span<const int> ToolBarItems()
{
    return kToolBar;
}

std::span<const int> GridMenuItems()
{
    return kGridMenu;
}

} // namespace sbd
