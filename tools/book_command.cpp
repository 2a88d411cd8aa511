#include "tools/book_command.h"

#include "book/book_sheets.h"
#include "project/sbd_data.h"
#include "tools/command_support.h"
#include "tools/project_arguments.h"

#include <algorithm>

namespace sbd {

CommandResult RunBook(std::span<const std::string> arguments)
{
    const ParsedArguments parsed = ParseArguments(arguments, {.names = true, .book = true}, 2);
    if (parsed.wrong)
        return WrongUse("book", *parsed.wrong);
    const std::string& in = parsed.words[0];
    const std::string& out = parsed.words[1];
    if (!out.ends_with(".xlsx"))
        return WrongUse("book", "OUT は .xlsx です(PDF は sbdpage book で作ります): " + out);
    const std::optional<std::vector<int>> wanted = ReadBlockList(parsed.blocks);
    if (!wanted)
        return WrongUse("book", "ブロックの番号が読めません: " + parsed.blocks);
    CSbdData data;
    if (const FileResult result = LoadInput(in, NamesFor(parsed, in), data); !result.Ok())
        return CannotRead(in, result);
    std::vector<int> blocks = wanted->empty() ? FilledBlocks(data) : BookBlocks(*wanted);
    BookFacts facts =
        FactsOf(data, {}, in == kStandardStream ? std::filesystem::path() : PathOf(in), "KELD section " SBD_VERSION);
    facts.blocks = wanted->empty() ? "入力済みのすべてのブロック" : "選んだブロック";
    if (parsed.since) {
        CSbdData before;
        if (const FileResult result = LoadInput(*parsed.since, NamesFor(parsed, *parsed.since), before); !result.Ok())
            return CannotRead(*parsed.since, result);
        std::vector<int> changed = ChangedBlocks(before, data); // also those that were emptied
        if (!wanted->empty())
            std::erase_if(changed, [&](int block) { return std::ranges::find(blocks, block) == blocks.end(); });
        blocks = changed;
        facts.blocks = *parsed.since + " から変わったブロック";
    }
    if (const std::optional<FileResult> result = WriteBookSheets(PathOf(out), data, blocks, facts);
        result && !result->Ok())
        return CannotWrite(out, *result);
    return {0, out + ": " + std::to_string(blocks.size()) + " ブロック\n", {}};
}

} // namespace sbd
