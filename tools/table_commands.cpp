#include "tools/table_commands.h"

#include "check/encoding.h"
#include "panelmodel/table_import.h"
#include "project/sbd_data.h"
#include "sbdfile/writer.h"
#include "tools/command_support.h"
#include "tools/project_arguments.h"

#include <nlohmann/json.hpp>

namespace sbd {

namespace {

/// The panel of a block that is given as a word; null: there is none.
std::unique_ptr<CPanelModel> PanelOf(const CSbdData& data, const std::string& word)
{
    const std::optional<int> block = WholeNumber(word);
    return block ? MakePanelModel(data, PanelBlock(*block)) : nullptr;
}

CommandResult NoBlock(std::string_view command, const std::string& word)
{
    return WrongUse(command, "「" + word + "」は入力する表のあるブロックの番号ではありません");
}

} // namespace

CommandResult RunExport(std::span<const std::string> arguments)
{
    const ParsedArguments parsed = ParseArguments(arguments, {.names = true}, 2);
    if (parsed.wrong)
        return WrongUse("export", *parsed.wrong);
    CSbdData data;
    if (const FileResult result = LoadInput(parsed.words[0], NamesFor(parsed, parsed.words[0]), data); !result.Ok())
        return CannotRead(parsed.words[0], result);
    const std::unique_ptr<CPanelModel> panel = PanelOf(data, parsed.words[1]);
    if (panel == nullptr)
        return NoBlock("export", parsed.words[1]);
    CommandResult result;
    result.output = PlainText(ExportedText(*panel, {true, false, TextCode::Utf8}));
    std::erase(result.output, '\r'); // the lines of a terminal
    return result;
}

CommandResult RunImport(std::span<const std::string> arguments)
{
    const ParsedArguments parsed = ParseArguments(arguments, {.names = true}, 4);
    if (parsed.wrong)
        return WrongUse("import", *parsed.wrong);
    const std::string& in = parsed.words[0];
    const std::string& out = parsed.words[1];
    const std::string& file = parsed.words[3];
    if (out == kStandardStream)
        return WrongUse("import", "OUT に標準出力「-」は指定できません");
    std::error_code error; // a file that is not there is none of the others
    if (in != kStandardStream && std::filesystem::equivalent(PathOf(out), PathOf(in), error))
        return WrongUse("import", "OUT は IN と別のファイルにしてください");
    std::string bytes;
    if (const FileResult result = ReadInput(file, bytes); !result.Ok())
        return CannotRead(file, result);
    CSbdData data;
    if (const FileResult result = LoadInput(in, NamesFor(parsed, in), data); !result.Ok())
        return CannotRead(in, result);
    const std::unique_ptr<CPanelModel> panel = PanelOf(data, parsed.words[2]);
    if (panel == nullptr)
        return NoBlock("import", parsed.words[2]);

    const std::string text = PlainText(bytes);
    const EncodingGuess guess = GuessEncoding(bytes);
    const bool isUtf8 = guess.encoding == Encoding::Utf16 || (guess.encoding == Encoding::Utf8 && guess.wholeText);
    const TextTable table = ReadTextTable(text, isUtf8 ? TextCode::Utf8 : TextCode::Cp932, GuessSeparator(text));
    const PasteOutcome outcome =
        CPanelEditor(*panel).PutCells(EditCommand::Import, ImportedCells(table, ProposedImport(*panel, table)));
    CommitPanel(*panel, data);
    CommandResult done;
    if (const FileResult result = WriteOutput(out, WriteProject(data), done); !result.Ok())
        return CannotWrite(out, result);
    done.output = Print({{"rows", table.rows.size()},
                         {"put", outcome.put},
                         {"notNumbers", outcome.notNumbers},
                         {"locked", outcome.locked},
                         {"beyond", outcome.beyond},
                         {"unreadable", outcome.kept}})
                      .output;
    const bool all = outcome.notNumbers + outcome.locked + outcome.beyond + outcome.kept == 0 && table.isWhole;
    done.exitCode = all ? 0 : 3;
    return done;
}

} // namespace sbd
