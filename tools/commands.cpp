#include "tools/commands.h"

#include "panelmodel/panel_model.h"
#include "panelmodel/tree_rows.h"
#include "project/sbd_data.h"
#include "project/text.h"
#include "sbdfile/compare.h"
#include "sbdfile/grid_names.h"
#include "sbdfile/project_file.h"
#include "sbdfile/writer.h"
#include "tools/command_support.h"
#include "tools/dump.h"
#include "tools/listing.h"
#include "tools/report.h"
#include "tools/result_commands.h"
#include "tools/result_figure_commands.h"
#include "tools/result_panel_commands.h"
#include "tools/search_command.h"
#include "tools/views.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <charconv>
#include <optional>

namespace sbd {

namespace {

using nlohmann::json;
using Arguments = std::span<const std::string>;
using std::filesystem::path;

std::string_view ErrorWords(FileError error)
{
    switch (error) {
    case FileError::NotFound:
        return "ファイルまたはフォルダがありません";
    case FileError::IsFolder:
        return "フォルダです。ファイルを指定してください";
    case FileError::NoPlainFile:
        return "ふつうのファイルではありません";
    case FileError::NoPermission:
        return "アクセスする権限がありません";
    case FileError::DiskFull:
        return "ディスクの空きまたはファイルの大きさの上限が足りません";
    case FileError::None:
    case FileError::Other:
        break;
    }
    return "入出力エラーです";
}

CommandResult CannotRead(const std::string& file, const FileResult& result)
{
    return Fail("sbdtool: 読み込めません: " + file + ": " + std::string(ErrorWords(result.error)) + " (" + result.detail
                + ")");
}

CommandResult CannotWrite(const std::string& file, const FileResult& result)
{
    return Fail("sbdtool: 書き込めません: " + file + ": " + std::string(ErrorWords(result.error)) + " (" + result.detail
                + ")。元のファイルはそのまま残っています。");
}

/// Arguments of a command: plain words, and options with or without a value.
struct ParsedArguments {
    std::vector<std::string> words;
    std::optional<std::string> names;
    std::optional<std::string> mode;
    std::vector<std::string> checks;
    std::string language;
    bool plain = false;
    bool noNames = false;
    bool asJson = false;
    std::optional<std::string> wrong; ///< what could not be understood
};

struct AllowedOptions {
    bool names = false;
    bool asJson = false;
    bool plain = false;
    bool tree = false;
};

ParsedArguments Parse(Arguments arguments, AllowedOptions allowed, std::size_t words)
{
    ParsedArguments parsed;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (allowed.names && argument == "--names" && i + 1 < arguments.size())
            parsed.names = arguments[++i];
        else if (allowed.names && argument == "--no-names")
            parsed.noNames = true;
        else if (allowed.plain && argument == "--plain")
            parsed.plain = true;
        else if (allowed.tree && argument == "--mode" && i + 1 < arguments.size())
            parsed.mode = arguments[++i];
        else if (allowed.tree && argument == "--check" && i + 1 < arguments.size())
            parsed.checks.push_back(arguments[++i]);
        else if (allowed.tree && argument == "--language" && i + 1 < arguments.size())
            parsed.language = arguments[++i];
        else if (allowed.asJson && argument == "--json")
            parsed.asJson = true;
        else if (argument.starts_with("--"))
            parsed.wrong = "知らないオプションです: " + argument;
        else
            parsed.words.push_back(argument);
    }
    if (!parsed.wrong && parsed.words.size() != words)
        parsed.wrong = "引数の数が違います";
    if (!parsed.wrong && parsed.names && parsed.noNames)
        parsed.wrong = "--names と --no-names は同時に指定できません";
    return parsed;
}

std::optional<path> NamesFor(const ParsedArguments& parsed, const path& project)
{
    if (parsed.noNames)
        return std::nullopt;
    return parsed.names ? PathOf(*parsed.names) : NamesFileBeside(project);
}

/// A word that is a number as a whole.
std::optional<int> WholeNumber(const std::string& word)
{
    int number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    return error == std::errc() && end == word.data() + word.size() ? std::optional<int>(number) : std::nullopt;
}

CommandResult RunNew(Arguments arguments)
{
    const ParsedArguments parsed = Parse(arguments, {}, 1);
    if (parsed.wrong)
        return WrongUse("new", *parsed.wrong);
    CSbdData data;
    const FileResult result = ReplaceFileBytes(PathOf(parsed.words[0]), WriteProject(data));
    return result.Ok() ? CommandResult() : CannotWrite(parsed.words[0], result);
}

CommandResult RunRewrite(Arguments arguments)
{
    const ParsedArguments parsed = Parse(arguments, {.names = true}, 2);
    if (parsed.wrong)
        return WrongUse("rewrite", *parsed.wrong);
    CSbdData data;
    const path in = PathOf(parsed.words[0]);
    if (const FileResult result = LoadProject(in, NamesFor(parsed, in), data); !result.Ok())
        return CannotRead(parsed.words[0], result);
    WriteReport report;
    const std::string text = WriteProject(data, &report);
    if (const FileResult result = ReplaceFileBytes(PathOf(parsed.words[1]), text); !result.Ok())
        return CannotWrite(parsed.words[1], result);
    return {0, {}, report.controlBlockHeldBack ? std::string(kControlBlockMessage) + "\n" : std::string()};
}

CommandResult RunDump(Arguments arguments)
{
    const ParsedArguments parsed = Parse(arguments, {.names = true}, 1);
    if (parsed.wrong)
        return WrongUse("dump", *parsed.wrong);
    CSbdData data;
    const path in = PathOf(parsed.words[0]);
    if (const FileResult result = LoadProject(in, NamesFor(parsed, in), data); !result.Ok())
        return CannotRead(parsed.words[0], result);
    return Print(DumpProject(data));
}

CommandResult RunNames(Arguments arguments)
{
    const ParsedArguments parsed = Parse(arguments, {}, 1);
    if (parsed.wrong)
        return WrongUse("names", *parsed.wrong);
    CSbdData data;
    ReadGridNames(PathOf(parsed.words[0]), data);
    return Print(DumpNames(data));
}

CommandResult RunCatalogue(Arguments arguments)
{
    const ParsedArguments parsed = Parse(arguments, {}, 0);
    return parsed.wrong ? WrongUse("catalogue", *parsed.wrong) : Print(CatalogueListing());
}

CommandResult RunPages(Arguments arguments)
{
    const ParsedArguments parsed = Parse(arguments, {}, 0);
    return parsed.wrong ? WrongUse("pages", *parsed.wrong) : Print(PagesListing());
}

/// A listing of all blocks, or of one.
CommandResult RunListing(std::string_view command, Arguments arguments, json (*all)(), std::optional<json> (*one)(int))
{
    const ParsedArguments parsed = Parse(arguments, {}, arguments.empty() ? 0 : 1);
    if (parsed.wrong)
        return WrongUse(command, *parsed.wrong);
    if (parsed.words.empty())
        return Print(all());
    const std::string& word = parsed.words[0];
    const std::optional<int> block = WholeNumber(word);
    if (!block)
        return WrongUse(command, "ブロック番号ではありません: " + word);
    const std::optional<json> listing = one(*block);
    return listing ? Print(*listing) : Fail("sbdtool: " + std::string(command) + " に項目のないブロックです: " + word);
}

CommandResult RunOptions(Arguments arguments)
{
    return RunListing("options", arguments, OptionsListing, OptionsListing);
}

CommandResult RunColumns(Arguments arguments)
{
    return RunListing("columns", arguments, ColumnsListing, ColumnsListing);
}

CommandResult RunTree(Arguments arguments)
{
    const ParsedArguments parsed = Parse(arguments, {.tree = true}, 1);
    if (parsed.wrong)
        return WrongUse("tree", *parsed.wrong);
    TreeView view;
    view.language = TitleLanguageOf(parsed.language);
    if (parsed.mode) {
        const std::optional<TreeMode> mode = TreeModeOf(WholeNumber(*parsed.mode).value_or(0));
        if (!mode)
            return WrongUse("tree", "表示方法のコマンドではありません: " + *parsed.mode);
        view.mode = *mode;
    }
    for (const std::string& check : parsed.checks) {
        const std::optional<TreeFilter> filter = TreeFilterOf(WholeNumber(check).value_or(0));
        if (!filter)
            return WrongUse("tree", "表示しない項目のコマンドではありません: " + check);
        view.filters.insert(*filter);
    }
    CSbdData data;
    const path in = PathOf(parsed.words[0]);
    if (const FileResult result = LoadProject(in, NamesFileBeside(in), data); !result.Ok())
        return CannotRead(parsed.words[0], result);
    return Print(TreeListing(data, view));
}

CommandResult RunPanel(Arguments arguments)
{
    const ParsedArguments parsed = Parse(arguments, {.names = true, .plain = true}, 2);
    if (parsed.wrong)
        return WrongUse("panel", *parsed.wrong);
    const std::optional<int> block = WholeNumber(parsed.words[1]);
    if (!block)
        return WrongUse("panel", "ブロック番号ではありません: " + parsed.words[1]);
    CSbdData data;
    const std::optional<path> names = parsed.names ? std::optional<path>(PathOf(*parsed.names)) : std::nullopt;
    if (const FileResult result = LoadProject(PathOf(parsed.words[0]), names, data); !result.Ok())
        return CannotRead(parsed.words[0], result);
    const std::unique_ptr<CPanelModel> panel = MakePanelModel(data, *block, {.wordLists = !parsed.plain});
    return panel ? Print(PanelListing(*panel)) : Fail("sbdtool: 入力パネルのない番号です: " + parsed.words[1]);
}

CommandResult RunCheck(Arguments arguments)
{
    const ParsedArguments parsed = Parse(arguments, {.names = true, .asJson = true}, 1);
    if (parsed.wrong)
        return WrongUse("check", *parsed.wrong);
    const path in = PathOf(parsed.words[0]);
    std::string bytes;
    if (const FileResult result = ReadFileBytes(in, bytes); !result.Ok())
        return CannotRead(parsed.words[0], result);
    CSbdData names;
    if (const std::optional<path> file = NamesFor(parsed, in))
        ReadGridNames(*file, names);
    const CheckReport report = CheckProject(bytes, names);
    CommandResult result = parsed.asJson ? Print(CheckJson(report)) : CommandResult{0, CheckText(report), {}};
    result.exitCode = report.ownForm && report.unstable.empty() ? 0 : 1;
    return result;
}

CommandResult RunDiff(Arguments arguments)
{
    const ParsedArguments parsed = Parse(arguments, {.asJson = true}, 2);
    if (parsed.wrong)
        return WrongUse("diff", *parsed.wrong);
    CSbdData sides[2];
    for (std::size_t i = 0; i < 2; ++i) {
        const path in = PathOf(parsed.words[i]);
        if (const FileResult result = LoadProject(in, NamesFileBeside(in), sides[i]); !result.Ok())
            return CannotRead(parsed.words[i], result);
    }
    const std::vector<Difference> differences = CompareProjects(sides[0], sides[1]);
    CommandResult result;
    if (parsed.asJson) {
        json list = json::array();
        for (const Difference& difference : differences)
            list.push_back(DifferenceJson(difference));
        result = Print({{"differences", std::move(list)}});
    } else if (differences.empty()) {
        result.output = "違いはありません。\n";
    } else {
        for (const Difference& difference : differences)
            result.output += DifferenceText(difference) + "\n";
    }
    result.exitCode = differences.empty() ? 0 : 1;
    return result;
}

constexpr Command kCommands[] = {
    {"new", "new OUT", "Writes a project that was never loaded: all option values at their defaults, no tables.",
     RunNew},
    {"rewrite", "rewrite IN OUT [--names F | --no-names]",
     "Loads IN, with the repairs of a load, and saves it as OUT. The names of the bridge come from F, else from the "
     "*.abd\n"
     "file beside IN, if there is one. OUT is put in place whole or not at all.",
     RunRewrite},
    {"dump", "dump IN [--names F | --no-names]", "Loads IN likewise and prints the whole document as JSON.", RunDump},
    {"names", "names F.abd", "Prints the names that a file of the frame analysis gives, as JSON.", RunNames},
    {"catalogue", "catalogue", "Prints the block catalogue as JSON: blocks, commands, aliases, panels.", RunCatalogue},
    {"options", "options [BLOCK]", "Prints the rows of the option blocks as JSON, with word lists.", RunOptions},
    {"columns", "columns [BLOCK]", "Prints the columns of the table panels as JSON: heads, widths, word lists.",
     RunColumns},
    {"pages", "pages", "Prints the title lines of the help pages as JSON.", RunPages},
    {"tree", "tree PROJECT [--mode C] [--check C]... [--language W]",
     "Prints what the block tree shows for a project, as JSON. C is a mode (33026, 33007, 33006) or a filter command, "
     "W the\n"
     "language word of the profile.",
     RunTree},
    {"panel", "panel PROJECT BLOCK [--names F.abd] [--plain]",
     "Prints the panel of a block as it is set up, as JSON: columns, rows, texts, word lists, locks, colours. The "
     "names come\n"
     "from F alone. --plain: without word lists.",
     RunPanel},
    {"results", "results PROJECT [--again OTHER]",
     "Reads the six result files of the frame analysis and prints what they hold, as JSON. --again reads those of OTHER\n"
     "into the same records afterwards.",
     RunResults},
    {"result-paths", "result-paths PROJECTPATH",
     "Prints where the result files of a project path are looked for, as JSON.", RunResultPaths},
    {"result-table", "result-table PROJECT --kind K --load L --girder G --station S [--off C]... [--exclude N]...",
     "Prints the table of analysis results for a selection, as JSON. K is 変位, 断面力 or 反力, L a load case as the\n"
     "results name it, G a girder, すべて or なし, S the beginning of names, すべて or なし. --off leaves a component's\n"
     "columns out, --exclude a name.",
     RunResultTable},
    {"result-choices", "result-choices PROJECT (--kind K | --first-use)",
     "Prints what the panel of the table offers for a kind of result, or what it shows at its first use, as JSON.",
     RunResultChoices},
    {"result-diagram", "result-diagram PROJECT --kind K --load L --girder G --item C [--width W --height H]",
     "Prints the diagram of a component along a girder, as JSON, with its pixels in a pane of W x H. 変位 with the "
     "girder\n"
     "すべて: the deformed frame.",
     RunResultDiagram},
    {"projection", "projection PROJECT --width W --height H [--overlay]",
     "Prints the figure of the model in a pane of W x H pixels from its four sides, as JSON. --overlay: with bracing, "
     "cross\n"
     "beams, supports and names.",
     RunProjection},
    {"check", "check IN [--names F | --no-names] [--json]",
     "Says whether IN stands in the writer's own form, and lists by block, row and column what a load and a save "
     "would\n"
     "change: lines that are passed over, values that are repaired, rows whose empty inner cell will shift, option "
     "values\n"
     "that an empty text will lose. Exit code 1 if the file would change.",
     RunCheck},
    {"diff", "diff A B [--json]",
     "Lists what differs between two projects, by block, row and column. Exit code 1 if anything does.", RunDiff},
    {"search", "search WORD... [--any] [--topics] [--items] | search --qa",
     "Prints what the search panel finds for the words, as JSON: help topics, questions and input items with the cell "
     "that\n"
     "each leads to. --any: one of the words is enough. --topics, --items: only there. --qa: all questions with their "
     "answers.",
     RunSearch},
};

std::string Help()
{
    std::string text = "sbdtool COMMAND ...\n\nReads, writes and prints bridge projects (*.sbd). Output is UTF-8. Exit "
                       "code 0: done, 1: done and\n"
                       "something differs, 2: could not be done.\n\n";
    for (const Command& command : kCommands)
        text += "  " + std::string(command.usage) + "\n";
    return text + "\nsbdtool COMMAND --help tells more of a command.\n";
}

} // namespace

std::span<const Command> ToolCommands()
{
    return kCommands;
}

CommandResult RunCommandLine(const std::vector<std::string>& arguments)
{
    if (arguments.empty())
        return Fail("sbdtool: コマンドがありません。\n" + Help());
    if (arguments[0] == "--help" || arguments[0] == "help")
        return {0, Help(), {}};
    const auto command = std::ranges::find(kCommands, arguments[0], &Command::name);
    if (command == std::end(kCommands))
        return Fail("sbdtool: 知らないコマンドです: " + arguments[0] + "\n" + Help());
    const Arguments rest = Arguments(arguments).subspan(1);
    if (std::ranges::find(rest, "--help") != rest.end())
        return {0, "sbdtool " + std::string(command->usage) + "\n\n" + std::string(command->help) + "\n", {}};
    return command->run(rest);
}

} // namespace sbd
