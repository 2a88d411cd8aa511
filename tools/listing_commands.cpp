#include "tools/listing_commands.h"

#include "commands/commands.h"
#include "panelmodel/panel_model.h"
#include "panelmodel/tree_rows.h"
#include "project/sbd_data.h"
#include "tools/command_support.h"
#include "tools/listing.h"
#include "tools/project_arguments.h"
#include "tools/views.h"

#include <nlohmann/json.hpp>

#include <optional>

namespace sbd {

using nlohmann::json;

CommandResult RunCatalogue(std::span<const std::string> arguments)
{
    const ParsedArguments parsed = ParseArguments(arguments, {}, 0);
    return parsed.wrong ? WrongUse("catalogue", *parsed.wrong) : Print(CatalogueListing());
}

CommandResult RunPages(std::span<const std::string> arguments)
{
    const ParsedArguments parsed = ParseArguments(arguments, {}, 0);
    return parsed.wrong ? WrongUse("pages", *parsed.wrong) : Print(PagesListing());
}

namespace {

/// A listing of all blocks, or of one.
CommandResult RunListing(std::string_view command, std::span<const std::string> arguments, json (*all)(),
                         std::optional<json> (*one)(int))
{
    const ParsedArguments parsed = ParseArguments(arguments, {}, arguments.empty() ? 0 : 1);
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

} // namespace

CommandResult RunOptions(std::span<const std::string> arguments)
{
    return RunListing("options", arguments, OptionsListing, OptionsListing);
}

CommandResult RunColumns(std::span<const std::string> arguments)
{
    return RunListing("columns", arguments, ColumnsListing, ColumnsListing);
}

namespace {

/// The command that a text names by its number.
Command CommandWith(const std::string& number)
{
    return CommandOfNumber(WholeNumber(number).value_or(0)).value_or(Command::None);
}

} // namespace

CommandResult RunTree(std::span<const std::string> arguments)
{
    const ParsedArguments parsed = ParseArguments(arguments, {.tree = true}, 1);
    if (parsed.wrong)
        return WrongUse("tree", *parsed.wrong);
    TreeView view;
    view.language = TitleLanguageOf(parsed.language);
    if (parsed.mode) {
        const std::optional<TreeMode> mode = TreeModeOf(CommandWith(*parsed.mode));
        if (!mode)
            return WrongUse("tree", "表示方法のコマンドではありません: " + *parsed.mode);
        view.mode = *mode;
    }
    for (const std::string& check : parsed.checks) {
        const std::optional<TreeFilter> filter = TreeFilterOf(CommandWith(check));
        if (!filter)
            return WrongUse("tree", "表示しない項目のコマンドではありません: " + check);
        view.filters.insert(*filter);
    }
    CSbdData data;
    if (const FileResult result = LoadInput(parsed.words[0], NamesFor(parsed, parsed.words[0]), data); !result.Ok())
        return CannotRead(parsed.words[0], result);
    return Print(TreeListing(data, view));
}

CommandResult RunPanel(std::span<const std::string> arguments)
{
    const ParsedArguments parsed = ParseArguments(arguments, {.names = true, .plain = true}, 2);
    if (parsed.wrong)
        return WrongUse("panel", *parsed.wrong);
    const std::optional<int> block = WholeNumber(parsed.words[1]);
    if (!block)
        return WrongUse("panel", "ブロック番号ではありません: " + parsed.words[1]);
    CSbdData data;
    const auto names = parsed.names ? std::optional(PathOf(*parsed.names)) : std::nullopt;
    if (const FileResult result = LoadInput(parsed.words[0], names, data); !result.Ok())
        return CannotRead(parsed.words[0], result);
    const std::unique_ptr<CPanelModel> panel = MakePanelModel(data, *block, {.wordLists = !parsed.plain});
    return panel ? Print(PanelListing(*panel)) : Fail("sbdtool: 入力パネルのない番号です: " + parsed.words[1]);
}

} // namespace sbd
