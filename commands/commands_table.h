// The rows of the command table. Only here does a command have a number.
#pragma once

#include "commands/commands.h"

#include <cstddef>
#include <iterator>

namespace sbd {

namespace command_rows {

// clang-format off

using enum CommandNeeds;
using enum CommandMark;
using enum CommandOwner;

inline constexpr CommandRow kRows[] = {
    // command, number, text, keys, tip, icon, needs, mark, where the keys work, owner

    // Files and printing
    {Command::NewProject, 57600, "新規作成(&N)", "Ctrl+N", "", "new", Nothing},
    {Command::Open, 57601, "開く(&O)...", "Ctrl+O", "", "open", Nothing},
    {Command::Close, 57602, "閉じる(&C)", "Ctrl+W", "", ""},
    {Command::Save, 57603, "上書き保存(&S)", "Ctrl+S", "", "save"},
    {Command::SaveAs, 57604, "名前を付けて保存(&A)...", "Ctrl+Shift+S", "", ""},
    {Command::Print, 57607, "印刷(&P)...", "Ctrl+P", "", "print"},
    {Command::PrintPreview, 57609, "印刷プレビュー(&V)", "", "", "preview"},
    {Command::SavePicture, 0, "図を保存(&G)...", "", "", "", FreeView},
    {Command::InputBook, 0, "入力データの帳票(&B)...", "", "入力データを PDF または表計算ファイルに書き出す", ""},
    {Command::CompareProject, 0, "物件の比較(&M)...", "", "別の物件、保存してあるファイル、保管した入力との違い", ""},
    {Command::Exit, 57665, "アプリケーションの終了(&X)", "Ctrl+Q", "", "", Nothing},

    // Editing
    {Command::Undo, 57643, "元に戻す(&U)", "Ctrl+Z; Alt+Backspace", "", "undo", CommandNeeds::Undo},
    {Command::Redo, 0, "やり直す(&R)", "Ctrl+Y; Ctrl+Shift+Z", "", "", CommandNeeds::Redo},
    {Command::Cut, 57635, "切り取り", "Ctrl+X", "", "cut", Grid, None, KeyScope::Grid},
    {Command::Copy, 57634, "コピー", "Ctrl+C; Ctrl+Ins", "", "copy", Grid, None, KeyScope::Grid},
    {Command::Paste, 57637, "貼り付け", "Ctrl+V; Shift+Ins", "", "paste", Grid, None, KeyScope::Grid},
    {Command::Delete, 33001, "Delete", "Del", "選択したセルの内容を削除", "", Grid, None, KeyScope::Grid},
    {Command::FillDown, 0, "下方向へコピー(&D)", "Ctrl+D", "選択した範囲の一番上の行を、その下の行にコピー", "", Grid, None, KeyScope::Grid},
    {Command::FillRight, 0, "右方向へコピー(&G)", "Ctrl+R", "選択した範囲の一番左の列を、その右の列にコピー", "", Grid, None, KeyScope::Grid},
    {Command::FillSelection, 0, "選択範囲すべてに入力(&E)", "Ctrl+Return; Ctrl+Enter", "入力中の値、またはカーソルのあるセルの値を、選択したセルすべてに入力", "", Grid, None, KeyScope::Grid},
    {Command::CopyWithHeads, 0, "見出しを付けてコピー(&H)", "Ctrl+Shift+C", "", "", Grid, None, KeyScope::Grid},
    {Command::OpenList, 0, "選択肢の一覧を開く(&L)", "F4", "", "", Grid, None, KeyScope::Grid},
    {Command::SelectRow, 0, "行を選択", "Shift+Space", "", "", Grid, None, KeyScope::Grid},
    {Command::SelectColumn, 0, "列を選択", "Ctrl+Space", "", "", Grid, None, KeyScope::Grid},
    {Command::SelectAllCells, 0, "すべて選択(&A)", "Ctrl+A", "", "", Grid, None, KeyScope::Grid},
    {Command::MoveRowUp, 33038, "順序上へ移動", "Alt+Up", "", "", RowUp, None, KeyScope::Grid},
    {Command::MoveRowDown, 33039, "順序下へ移動", "Alt+Down", "", "", RowDown, None, KeyScope::Grid},
    {Command::InsertRow, 33040, "挿入行", "Ctrl++; Ctrl+Shift++", "選択した行の上に、同じ数の空の行を挿入", "", InsertRow, None, KeyScope::Grid},
    {Command::DeleteRow, 0, "行の削除", "Ctrl+-", "選択した行を削除", "", TableRow, None, KeyScope::Grid},
    {Command::DuplicateRow, 0, "行の複製", "Ctrl+Shift+D", "選択した行の写しを、その下に挿入", "", TableRow, None, KeyScope::Grid},
    {Command::AddRows, 32761, "入力ウィンドウ行数の追加...", "", "", "", AddRows},
    {Command::FilterRows, 0, "行の絞り込み", "Ctrl+Shift+L", "カーソルのある列の文字で、表示する行を絞り込む", "", Filter, Check, KeyScope::Grid},
    {Command::FindText, 0, "検索(&F)...", "Ctrl+F", "入力欄の文字列を、このブロックまたはプロジェクト全体から探す", ""},
    {Command::FindNext, 0, "次を検索", "F3", "", ""},
    {Command::FindPrevious, 0, "前を検索", "Shift+F3", "", ""},
    {Command::ReplaceText, 0, "置換(&P)...", "Ctrl+H", "入力欄の文字列を、このブロックまたはプロジェクト全体で置き換える", ""},
    {Command::ImportTable, 0, "表の取り込み(&M)...", "", "CSV や文字の表を、このブロックに取り込む", "", Filter},
    {Command::ExportTable, 0, "表の書き出し(&X)...", "", "このブロックを CSV に書き出す", "", Filter},
    {Command::JumpToHit, 33181, "入力位置へ移動 (  ダブルクリックもOK )", "Ctrl+M", "", "", Hit, None, KeyScope::Search},
    {Command::NextFinding, 0, "次の指摘へ移動(&N)", "F8", "開き直すと変わる値や入力の疑問点へ順に移動", ""},
    {Command::PreviousFinding, 0, "前の指摘へ移動(&V)", "Shift+F8", "", ""},
    {Command::FindingList, 0, "指摘の一覧(&I)", "Ctrl+F8", "", "", Project, Check},
    {Command::NextRunChange, 0, "解析で変わった次の所へ移動(&J)", "F7", "解析の前と後で値の違う所へ順に移動", ""},
    {Command::PreviousRunChange, 0, "解析で変わった前の所へ移動(&K)", "Shift+F7", "", ""},

    // Help page and model figure
    {Command::SwitchFigureAndHelp, 32989, "モデル図　と　ヘルプ　との切り替え", "", "", "model-help", FreePage},
    {Command::BridgeDrawing, 0, "橋の図(&D)", "F9", "入力から描いた側面図、断面図、平面図と、ヘルプとの切り替え", "bridge-drawing", FreePage, Check},
    {Command::Notes, 32990, "注意事項", "", "", "notes", FreePage},
    {Command::ViewXY, 32991, "XY面の表示", "", "", "plane-xy", FreeView},
    {Command::ViewYZ, 32992, "YZ面の表示", "", "", "plane-yz", FreeView},
    {Command::ViewXZ, 32993, "XZ面の表示", "", "", "plane-xz", FreeView},
    {Command::ViewAll, 32994, "全体表示", "", "", "whole", FreeView},
    {Command::ZoomOut, 32995, "縮小表示(0.80倍)", "", "", "zoom-out", FreeView},
    {Command::ZoomIn, 32996, "拡大表示(1.25倍)", "", "", "zoom-in", FreeView},
    {Command::MoveUp, 32997, "上へ移動", "", "", "move-up", FreeView},
    {Command::MoveDown, 32998, "下へ移動", "", "", "move-down", FreeView},
    {Command::MoveLeft, 32999, "左へ移動", "", "", "move-left", FreeView},
    {Command::MoveRight, 33000, "右へ移動", "", "", "move-right", FreeView},

    // Size and kind of the cells
    {Command::RowsHigher, 33033, "行を高くする", "", "行の高さを大きくする", "row-higher"},
    {Command::RowsLower, 33035, "行を低くする", "", "行の高さを小さくする", "row-lower"},
    {Command::ColumnsWider, 33153, "列を広くする", "", "列の幅を広くする", "column-wider"},
    {Command::ColumnsNarrower, 33154, "列を狭くする", "", "列の幅を狭くする", "column-narrower"},
    {Command::ResetCells, 33150, "行の高さと列の幅を元に戻す", "", "", "cell-reset"},
    {Command::WordLists, 33037, "選択リストで入力", "", "選択リストと直接入力の切り替え", "word-list", Project, Check},
    {Command::ZoomCellsIn, 0, "入力欄を拡大", "", "Ctrl キーを押しながらホイールを上へ回しても拡大", "", Grid},
    {Command::ZoomCellsOut, 0, "入力欄を縮小", "", "Ctrl キーを押しながらホイールを下へ回しても縮小", "", Grid},
    {Command::ZoomCellsReset, 0, "入力欄の拡大・縮小をやめる", "Ctrl+0", "", "", Grid, None, KeyScope::Grid},
    {Command::FreezeColumns, 0, "列の固定(&K)", "Ctrl+Shift+K", "カーソルのある列までを、横に動かしても見えるようにする、または固定を解除", "", Grid, Check, KeyScope::Grid},

    // Places
    {Command::GoTo, 0, "移動・コマンドの検索(&K)...", "Ctrl+K", "番号、題名、セル、コマンド、質問を 1 行で", "", Nothing},
    {Command::GoToNumber, 0, "番号・行へ移動(&J)...", "Ctrl+G", "", "", Project},
    {Command::Back, 0, "前にいた場所へ戻る(&B)", "Alt+Left", "", "", CommandNeeds::Back},
    {Command::Forward, 0, "戻る前の場所へ進む(&F)", "Alt+Right", "", "", CommandNeeds::Forward},

    // What the tree shows
    {Command::ShowAllItems, 33026, "すべての項目表示", "", "", "", Project, Radio},
    {Command::ShowItemsOfProject, 33007, "全項目自動表示（表示しない項目を除く）", "", "", "", Project, Radio},
    {Command::ShowUnfilteredItems, 33006, "全項目表示（表示しない項目を除く）", "", "", "", Project, Radio},
    {Command::HidePlate, 33015, "鈑桁項目表示しない", "", "", "", Filters, Check},
    {Command::HideBox, 33009, "箱桁項目表示しない", "", "", "", Filters, Check},
    {Command::HideDrawing, 33014, "400製図項目表示しない", "", "", "", Filters, Check},
    {Command::HideCross, 33010, "520横桁（対傾構）項目表示しない", "", "", "", Filters, Check},
    {Command::HideLateral, 33012, "570下横構項目表示しない", "", "", "", Filters, Check},
    {Command::HideFem, 33013, "600FEMモデル項目表示しない", "", "", "", Filters, Check},
    {Command::HideStringer, 33021, "640縦桁項目表示しない", "", "", "", Filters, Check},
    {Command::HideBracket, 33019, "670ブラケット項目表示しない", "", "", "", Filters, Check},
    {Command::HideSupport, 33024, "700支点補剛材・ダイヤフラム項目表示しない", "", "", "", Filters, Check},

    // Runs. The columns of blanks stand as they are.
    {Command::RunAll, 39255, "1.実行　　　　　　　　　　　（主桁・横桁・骨組などすべての計算を行います．主桁結果を画面表示）", "",
     "255.解析実行[RUN]", "run", FreeView},
    {Command::CheckData, 39254, "2.データをチェック", "", "254.データチェック[CHECK]", "", FreeView},
    {Command::RunAndPrint, 39256, "3.計算結果出力　　　　　　　（主桁・横桁・骨組などすべての計算を行い，その後出力画面を表示)", "",
     "256.解析実行＆出力[RESULT]", "", FreeView},
    {Command::ShowCrossResults, 33028, "4.横桁･対傾構結果表示; 選択出力 　　　　　　　　 (正しく表示には 1. 実行してから行ってください)", "",
     "横桁・対傾構結果画面表示", "", FreeView},
    {Command::ShowSupportResults, 33029, "5.支点補剛材・ダイヤフラム結果表示; 選択出力　　(正しく表示には 1. 実行してから行ってください)", "",
     "支点補剛材・ダイヤフランム結果画面表示", "", FreeView},
    {Command::KeptInputs, 0, "解析前の入力(&K)...", "", "解析などの前に保管した入力の一覧、違い、取り戻し", ""},

    // Display settings
    {Command::English, 32764, "英語", "", "", "", Project, Radio},
    {Command::Japanese, 32763, "日本語", "", "", "", Project, Radio},
    {Command::EnglishAndJapanese, 32762, "英語&日本語", "", "", "", Project, Radio},
    {Command::SavePanes, 32769, "ウィンドウ状態の保存", "", "", ""},
    {Command::BackColor, 32770, "背景色の選択", "", "", ""},
    {Command::Decimals, 32771, "小数点桁数", "", "", ""},
    {Command::Font, 32965, "フォント", "", "", ""},
    {Command::ResetDisplay, 32966, "初期設定に戻る", "", "", ""},

    // Windows
    {Command::NextPane, 0, "次の区画へ移動(&F)", "F6", "ツリー、入力欄、選択欄、説明の順に移動", ""},
    {Command::PreviousPane, 0, "前の区画へ移動(&E)", "Shift+F6", "", ""},
    {Command::NextWindow, 0, "次のウィンドウ(&N)", "Ctrl+F6", "", ""},
    {Command::PreviousWindow, 0, "前のウィンドウ(&P)", "Ctrl+Shift+F6", "", ""},
    {Command::CascadeWindows, 57650, "重ねて表示(&C)", "", "", ""},
    {Command::TileWindows, 57651, "並べて表示(&T)", "", "", ""},
    {Command::TabbedWindows, 0, "タブで表示(&B)", "", "", "", Nothing, Check},
    {Command::HelpBeside, 0, "説明を入力欄の右に表示(&H)", "", "幅の広い画面向け。もう一度選ぶと上に戻る", "", Nothing, Check},
    {Command::KeepSession, 0, "終了時に開いていた物件を次回開く(&S)", "", "", "", Nothing, Check},

    // Documents, pages, version
    {Command::Search, 49990, "999.KELD_検索_Q_&_A", "F1", "", ""},
    {Command::Shortcuts, 0, "キー操作の一覧(&K)", "", "F1 を続けて 2 回押しても表示", "", Nothing},
    {Command::FirstBridge, 0, "はじめての橋(&F)", "", "何もないところから最初の計算まで、絵を見ながら進む", "", Nothing},
    {Command::GirderDocument, 33168, "300＆４00　主桁自動設計・製図", "", "", "", Nothing, None, KeyScope::Window, Outside},
    {Command::CrossDocument, 33169, "500　横桁・対傾構・下横構の設計", "", "", "", Nothing, None, KeyScope::Window, Outside},
    {Command::FemDocument, 33175, "600　FEMモデル自動作成", "", "", "", Nothing, None, KeyScope::Window, Outside},
    {Command::StringerDocument, 33171, "640＆670　縦桁・ブラケットの設計", "", "", "", Nothing, None, KeyScope::Window, Outside},
    {Command::SupportDocument, 33173, "700　支点上補剛材・ダイヤフラムの設計", "", "", "", Nothing, None, KeyScope::Window, Outside},
    {Command::QuantityDocument, 33174, "800　数量計算", "", "", "", Nothing, None, KeyScope::Window, Outside},
    {Command::HomePage, 32766, "KELD Homepage...", "", "", "", HomePage, None, KeyScope::Window, Outside},
    {Command::SecondHomePage, 32767, " Homepage...", "", "", "", SecondHomePage, None, KeyScope::Window, Outside}, // behind the name that the deployment gives
    {Command::About, 57664, "バージョン情報(&A)", "", "", "", Nothing},
    {Command::Version, 33002, "Ver20110808", "", "", "", Nothing},
};

// clang-format on

consteval bool EachNameHasItsRow()
{
    for (std::size_t i = 0; i < std::size(kRows); ++i) {
        if (kRows[i].command != static_cast<Command>(i + 1))
            return false;
    }
    return true;
}
static_assert(std::size(kRows) + 1 == static_cast<std::size_t>(Command::Count), "a name of Command has no row");
static_assert(EachNameHasItsRow(), "the rows do not stand in the order of the names of Command");

} // namespace command_rows

/// The number of a command other than None.
[[nodiscard]] constexpr int NumberOf(Command command)
{
    return command_rows::kRows[static_cast<std::size_t>(command) - 1].number;
}

} // namespace sbd
