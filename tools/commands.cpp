#include "tools/commands.h"

#include "commands/commands.h"
#include "panelmodel/tree_rows.h"
#include "tools/book_command.h"
#include "tools/command_support.h"
#include "tools/listing_commands.h"
#include "tools/project_commands.h"
#include "tools/replace_command.h"
#include "tools/result_commands.h"
#include "tools/result_figure_commands.h"
#include "tools/result_panel_commands.h"
#include "tools/search_command.h"
#include "tools/set_command.h"
#include "tools/table_commands.h"
#include "tools/version_commands.h"

#include <algorithm>
#include <array>

namespace sbd {

namespace {

using Arguments = std::span<const std::string>;

// Laid out by hand: one line a line of the help.
// clang-format off
constexpr ToolCommand kCommands[] = {
    {"new", "new OUT",
     "Writes a project that was never loaded: all option values at their defaults, no tables.",
     "一度も読み込んでいないプロジェクトを書き出します。項目の値はすべて初期値で、表は空です。",
     RunNew},
    {"rewrite", "rewrite IN OUT [--names F | --no-names]",
     "Loads IN, with the repairs of a load, and saves it as OUT. The names of the bridge come from F, else from the *.abd\n"
     "file beside IN, if there is one. OUT is put in place whole or not at all. - is standard input or output.",
     "IN を補正して読み込み、OUT として保存します。橋の名称は F から、なければ IN と同じ場所の *.abd ファイルから読みます。\n"
     "OUT は全体が置き換わるか、元のまま残るかのどちらかです。「-」は標準入力・標準出力です。",
     RunRewrite},
    {"dump", "dump IN [--names F | --no-names]",
     "Loads IN likewise and prints the whole document as JSON.",
     "IN を同様に読み込み、文書全体を JSON で出力します。",
     RunDump},
    {"names", "names F.abd",
     "Prints the names that a file of the frame analysis gives, as JSON.",
     "骨組解析のファイルにある名称を JSON で出力します。",
     RunNames},
    {"catalogue", "catalogue",
     "Prints the block catalogue as JSON: blocks, commands, aliases, panels.",
     "ブロックの一覧を JSON で出力します(ブロック、コマンド、共用番号、パネル)。",
     RunCatalogue},
    {"options", "options [BLOCK]",
     "Prints the rows of the option blocks as JSON, with word lists.",
     "項目ブロックの行と選択肢を JSON で出力します。",
     RunOptions},
    {"columns", "columns [BLOCK]",
     "Prints the columns of the table panels as JSON: heads, widths, word lists.",
     "表パネルの列(見出し、幅、選択肢)を JSON で出力します。",
     RunColumns},
    {"pages", "pages",
     "Prints the title lines of the help pages as JSON.",
     "説明ページの題名を JSON で出力します。",
     RunPages},
    {"tree", "tree PROJECT [--mode C] [--check C]... [--language W]",
     "Prints what the block tree shows for a project, as JSON. C is the number of a mode or a filter (below), W the\n"
     "language word of the profile.",
     "プロジェクトのブロックツリーを JSON で出力します。C は表示方法または表示しない項目のコマンド番号(下の表)、\n"
     "W は設定の言語の語です。",
     RunTree},
    {"panel", "panel PROJECT BLOCK [--names F.abd] [--plain]",
     "Prints the panel of a block as it is set up, as JSON: columns, rows, texts, word lists, locks, colours. The names come\n"
     "from F alone. --plain: without word lists.",
     "ブロックのパネルを JSON で出力します(列、行、文字、選択肢、固定、色)。名称は F だけから読みます。\n"
     "--plain: 選択肢を付けません。",
     RunPanel},
    {"results", "results PROJECT [--again OTHER]",
     "Reads the six result files of the frame analysis and prints what they hold, as JSON. --again reads those of OTHER\n"
     "into the same records afterwards.",
     "骨組解析の結果ファイル 6 個を読み、内容を JSON で出力します。--again: 続けて OTHER の結果を同じ記録に読み込みます。",
     RunResults},
    {"result-paths", "result-paths PROJECTPATH",
     "Prints where the result files of a project path are looked for, as JSON.",
     "結果ファイルを探す場所を JSON で出力します。",
     RunResultPaths},
    {"result-table", "result-table PROJECT --kind K --load L... --girder G --station S [--envelope] [--off C]... [--exclude N]...\n"
     "                        [--filter T] [--sort HEAD [--descending]] [--csv OUT] [--xlsx OUT]",
     "Prints the table of analysis results for a selection, as JSON. K is 変位, 断面力 or 反力, L a load case as the\n"
     "results name it, G a girder, すべて or なし, S the beginning of names, すべて or なし. --off leaves a component's\n"
     "columns out, --exclude a name. --envelope: the largest and smallest values of the load cases L (of all, without one)\n"
     "with the load cases that decide. --filter: only names that hold T. --sort: by the column with this head.\n"
     "--csv and --xlsx write the table to a file instead, with units.",
     "選択した解析結果の表を JSON で出力します。K は 変位・断面力・反力、L は結果にある荷重名、G は主桁・すべて・なし、\n"
     "S は名称の始まり・すべて・なしです。--off: その成分の列を除きます。--exclude: その名称を除きます。\n"
     "--envelope: 荷重 L(なければすべて)の最大・最小と、それを決める荷重名。--filter: T を含む名称だけ。\n"
     "--sort: その見出しの列で並べ替え。--csv, --xlsx: 表を単位付きでファイルに書き出します。",
     RunResultTable},
    {"result-choices", "result-choices PROJECT (--kind K | --first-use)",
     "Prints what the panel of the table offers for a kind of result, or what it shows at its first use, as JSON.",
     "結果の種類ごとに表のパネルで選べるもの、または最初に表示するものを JSON で出力します。",
     RunResultChoices},
    {"result-diagram", "result-diagram PROJECT --kind K --load L... --girder G --item C [--envelope] [--width W --height H]",
     "Prints the diagram of a component along a girder, as JSON, with its pixels in a pane of W x H. 変位 with the girder\n"
     "すべて: the deformed frame. --envelope: the largest and smallest ordinates of the load cases L (of all, without one).",
     "主桁に沿った成分の図を JSON で出力します。W x H の枠での画素も付きます。変位で主桁が すべて: 骨組の変形図。\n"
     "--envelope: 荷重 L(なければすべて)の最大・最小の図。",
     RunResultDiagram},
    {"projection", "projection PROJECT --width W --height H [--overlay]",
     "Prints the figure of the model in a pane of W x H pixels from its four sides, as JSON. --overlay: with bracing, cross\n"
     "beams, supports and names.",
     "W x H 画素の枠での骨組モデル図を 4 方向から JSON で出力します。--overlay: 横構、横桁、支点、名称も含めます。",
     RunProjection},
    {"set", "set IN OUT EDITS.json [--names F | --no-names]",
     "Loads IN, types the edits into the panels of their blocks, saves the project as OUT, and says as JSON which edits were\n"
     "refused and which cells would come back from OUT with another text. EDITS.json: an array of {\"block\", \"row\", \"column\",\n"
     "\"text\"}, rows and columns as panel prints them, from 1. Exit code 3 if a cell would come back different.",
     "IN を読み込み、各ブロックのパネルに編集を入力し、OUT として保存します。入力できなかった編集と、OUT を開き直すと変わるセルを\n"
     "JSON で出力します。EDITS.json は {\"block\", \"row\", \"column\", \"text\"} の配列で、行と列は panel の出力どおり 1 から数えます。\n"
     "開き直すと変わるセルがあれば終了コードは 3 です。",
     RunSet},
    {"replace", "replace IN OUT TEXT BY | replace IN TEXT BY --dry-run  [--block N] [--whole] [--exact-case] [--exact-width]\n"
     "                        [--names F | --no-names]",
     "Loads IN, replaces TEXT by BY in all cells as the window does, saves the project as OUT, and prints as JSON how many\n"
     "were replaced and every cell that holds TEXT: before, after, why it stays, which blocks follow. --dry-run writes\n"
     "nothing. --block: that block alone. --whole: TEXT is the whole cell. Capital and small letters, full and half width are\n"
     "alike, unless --exact-case or --exact-width. OUT is put in place whole or not at all. Exit code 3 if a replaced cell\n"
     "would come back from OUT with another text.",
     "IN を読み込み、すべてのセルの TEXT をウィンドウと同じ規則で BY に置換し、OUT として保存します。置換した数と、TEXT のある\n"
     "すべてのセル(前後の値、元のままの理由、一緒に変わるブロック)を JSON で出力します。--dry-run: 何も書き込みません。\n"
     "--block: そのブロックだけ。--whole: セル全体が一致するものだけ。大文字と小文字、全角と半角は同じとみなします(--exact-case、\n"
     "--exact-width で区別)。OUT は全体が置き換わるか、元のまま残るかのどちらかです。置換したセルのうち、OUT を開き直すと\n"
     "変わるものがあれば終了コードは 3 です。",
     RunReplace},
    {"export", "export IN BLOCK [--names F | --no-names]",
     "Prints the rows of a block as CSV in UTF-8, with heads, without its automatic rows.",
     "ブロックの行を、見出しを付けた CSV (UTF-8) で出力します。自動計算の行は含みません。",
     RunExport},
    {"import", "import IN OUT BLOCK TABLE [--names F | --no-names]",
     "Loads IN, appends the rows of a CSV or text table to a block, saves the project as OUT. Code and separator are guessed;\n"
     "columns go by the heads, if the first row has them. Prints as JSON what did not fit; exit code 3 if anything did not.",
     "IN を読み込み、CSV や文字の表の行をブロックの末尾に加えて、OUT として保存します。文字コードと区切りは自動で決めます。\n"
     "列は、1 行目が見出しならそれに従います。入らなかった値を JSON で出力し、あれば終了コードは 3 です。",
     RunImport},
    {"check", "check IN... [--names F | --no-names] [--json]",
     "Says whether IN stands in the writer's own form, and lists by block, row and column what a load and a save would\n"
     "change: lines that are passed over, values that are repaired, rows whose empty inner cell will shift, option values\n"
     "that an empty text will lose. Findings tell what was not understood, by kind and line. Exit code 3 if something is\n"
     "lost or misread, 1 if only the form differs or values are repaired, 0 if there is nothing to tell.",
     "IN が本システムの書式どおりかを調べ、読み込んで保存すると変わるものをブロック・行・列で示します。読まれない行、補正される値、\n"
     "空欄のためにずれる行、空の値のために失われる項目の値です。読み取れなかったものを種類と行で示します。失われるか誤って\n"
     "読まれるものがあれば終了コードは 3、書式の違いや補正だけなら 1、何もなければ 0 です。",
     RunCheck},
    {"diff", "diff A B [--names F | --no-names] [--json] [--xlsx OUT]",
     "Lists what differs between two projects, by block, row and column. --xlsx: also as a spreadsheet. Exit code 1 if\n"
     "anything does.",
     "二つのプロジェクトの違いをブロック・行・列で示します。--xlsx: 表計算ファイルにも書き出します。違いがあれば終了コードは\n"
     "1 です。",
     RunDiff},
    {"book", "book IN OUT.xlsx [--blocks LIST] [--since OTHER] [--names F | --no-names]",
     "Writes the input of IN as a spreadsheet: cover, contents, and a sheet for each block that holds input. --blocks: only\n"
     "these, \"301,313,600-639\". --since: only those in which IN differs from the project OTHER. As a PDF: sbdpage book.",
     "IN の入力データを表計算ファイルに書き出します。表紙、目次と、入力のあるブロックごとのシートです。--blocks: 「301,313,600-639」\n"
     "のように指定したブロックだけ。--since: プロジェクト OTHER と違うブロックだけ。PDF は sbdpage book で作ります。",
     RunBook},
    {"text", "text IN [--names F | --no-names]",
     "Prints a project as lines of text, one a row, in UTF-8: for a version control that compares line by line\n"
     "(docs/version-control.md).",
     "プロジェクトを一行ごとの文字(UTF-8)で出力します。行ごとに比べる版管理のためのものです(docs/version-control.md)。",
     RunText},
    {"merge", "merge BASE OURS THEIRS OUT [PATH] [--names F | --no-names]",
     "Puts together what OURS and THEIRS have made of BASE, row by row, and writes OUT. Where both have changed the same value,\n"
     "that of OURS stays; each such place is named, and the exit code is 1. PATH: the project's own place, for the names beside\n"
     "it and the messages. A file of which a load would lose something is not merged.",
     "BASE から OURS と THEIRS がそれぞれ変えたものを行ごとに合わせ、OUT に書き出します。両方が同じ値を変えた所は OURS の値を残し、\n"
     "その所をすべて示して、終了コードは 1 になります。PATH は物件ファイルの本来の場所で、名称のファイルと案内に使います。\n"
     "読み込むと失われるものがあるファイルは統合しません。",
     RunMerge},
    {"search", "search WORD... [--any] [--topics] [--items] | search --qa",
     "Prints what the search panel finds for the words, as JSON: help topics, questions and input items with the cell that\n"
     "each leads to. --any: one of the words is enough. --topics, --items: only there. --qa: all questions with their answers.",
     "検索パネルが言葉から見つけるもの(説明、質問、入力項目とそのセル)を JSON で出力します。--any: 言葉のどれか一つでよい。\n"
     "--topics、--items: そこだけを探します。--qa: すべての質問と回答。",
     RunSearch},
};
// clang-format on

std::string Help()
{
    std::string text =
        SpeaksJapanese()
            ? "sbdtool コマンド ...\n\n橋のプロジェクト(*.sbd)を読み、書き、表示します。出力は UTF-8 です。\n"
              "終了コード 0: 終わりました、1: 終わり、違いがありました、2: できませんでした、3: 終わり、失われるものがあります。\n\n"
            : "sbdtool COMMAND ...\n\nReads, writes and prints bridge projects (*.sbd). Output is UTF-8.\n"
              "Exit code 0: done, 1: done and something differs, 2: could not be done, 3: done and something gets lost.\n\n";
    for (const ToolCommand& command : kCommands)
        text += "  " + std::string(command.usage) + "\n";
    return text
           + (SpeaksJapanese() ? "\nsbdtool help コマンド: そのコマンドの説明。sbdtool --version: 版。\n"
                               : "\nsbdtool help COMMAND tells more of a command, sbdtool --version the version.\n");
}

/// The commands of modes and filters that "tree" takes: number and text of the menu, a line each.
std::string TreeCommands()
{
    std::string lines;
    for (const CommandRow& row : CommandTable()) {
        if (TreeModeOf(row.command) || TreeFilterOf(row.command))
            lines += "  " + std::to_string(row.number) + "  " + std::string(row.text) + "\n";
    }
    return lines;
}

CommandResult HelpOf(const ToolCommand& command)
{
    const std::string_view help = SpeaksJapanese() ? command.japaneseHelp : command.help;
    const std::string more = command.name == "tree" ? "\n" + TreeCommands() : std::string();
    return {0, "sbdtool " + std::string(command.usage) + "\n\n" + std::string(help) + "\n" + more, {}};
}

bool IsHelp(const std::string& word)
{
    return word == "--help" || word == "-h";
}

CommandResult Run(const std::vector<std::string>& arguments)
{
    if (arguments.empty())
        return Fail("sbdtool: コマンドがありません。\n" + Help());
    const bool asked = arguments[0] == "help" && arguments.size() > 1;
    const std::string& name = arguments[asked ? 1 : 0];
    if (IsHelp(name) || name == "help")
        return {0, Help(), {}};
    if (name == "--version")
        return {0, "sbdtool " SBD_VERSION "\n", {}};
    const auto command = std::ranges::find(kCommands, name, &ToolCommand::name);
    if (command == std::end(kCommands))
        return Fail("sbdtool: 知らないコマンドです: " + name + "\n" + Help());
    const Arguments rest = Arguments(arguments).subspan(1);
    return asked || std::ranges::any_of(rest, IsHelp) ? HelpOf(*command) : command->run(rest);
}

} // namespace

std::span<const ToolCommand> ToolCommands()
{
    return kCommands;
}

CommandResult RunCommandLine(const std::vector<std::string>& arguments)
{
    CommandResult result = Run(arguments);
    result.output = WithoutControls(result.output);
    result.error = WithoutControls(result.error);
    return result;
}

} // namespace sbd
