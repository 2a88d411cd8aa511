#include "tools/version_commands.h"

#include "check/file_check.h"
#include "compare/merge.h"
#include "compare/rows.h"
#include "project/block_rules.h"
#include "project/catalogue.h"
#include "project/option_rows.h"
#include "project/text.h"
#include "sbdfile/grid_names.h"
#include "sbdfile/reader.h"
#include "sbdfile/writer.h"
#include "tools/command_support.h"
#include "tools/project_arguments.h"
#include "tools/report.h"

#include <algorithm>

namespace sbd {

namespace {

constexpr std::string_view kBetweenCells = " | ";

/// A row as a line: cells up to the last one that is filled.
std::string RowLine(const Cells& row)
{
    std::size_t end = row.size();
    while (end > 0 && row[end - 1].empty())
        --end;
    std::string line = "  ";
    for (std::size_t i = 0; i < end; ++i)
        line += (i > 0 ? std::string(kBetweenCells) : std::string()) + FromCp932(row[i]);
    return line + "\n";
}

std::string HeadLine(int block)
{
    return "[" + NumberAndTitle(block) + "]\n";
}

std::string OptionText(const OptionBlock& block, const CSbdData& data)
{
    std::string text = HeadLine(block.block);
    for (std::size_t row = 0; row < block.rows.size(); ++row)
        text += "  " + FromCp932(block.rows[row].panelLabel) + ": " + FromCp932(data.Option(block.block, row)) + "\n";
    return text;
}

std::string RowsText(int block, const Rows& rows)
{
    if (rows.empty())
        return {};
    std::size_t columns = 0;
    for (const Cells& row : rows)
        columns = std::max(columns, row.size());
    std::string heads;
    for (std::size_t i = 0; i < columns; ++i)
        heads += (i > 0 ? std::string(kBetweenCells) : std::string()) + FromCp932(ColumnName(block, i));
    std::string text = HeadLine(block) + "  # " + heads + "\n";
    for (const Cells& row : rows)
        text += RowLine(row);
    return text;
}

std::string NamesText(int block, const NameLists& names)
{
    std::string text;
    for (std::size_t list = 0; list < names.lists.size(); ++list)
        for (const std::string& name : names.lists[list])
            text += "  " + FromCp932(NameHeadings(block)[list]) + ": " + FromCp932(name) + "\n";
    const bool plain = text.empty() && names.autoValue == NameLists().autoValue;
    return plain ? std::string() : HeadLine(block) + "  自動取得: " + FromCp932(names.autoValue) + "\n" + text;
}

std::string BlockText(int block, const CSbdData& data)
{
    if (const OptionBlock* options = FindOptionBlock(block))
        return OptionText(*options, data);
    if (const NameLists* names = data.Names(block))
        return NamesText(block, *names);
    if (block == 311) {
        std::string types = "  # タイプ:";
        for (const std::string& type : data.hGirder.types)
            types += " " + FromCp932(type);
        const std::string rows = RowsText(block, HGirderRows(data));
        return rows.empty() ? HeadLine(block) + types + "\n" : rows + types + "\n";
    }
    if (block == 324)
        return RowsText(block, CrossRibRows(data));
    if (block == 325)
        return RowsText(block, LRibRows(data));
    const TableBlock* table = data.Table(block);
    return table != nullptr ? RowsText(block, TableRows(*table)) : std::string();
}

/// What a load of a file would not bring into a merge; empty: nothing.
std::string LossOf(const std::string& bytes, const CSbdData& names)
{
    const FileCheck check = CheckFile(bytes, names);
    if (check.controlBlockHeldBack)
        return "301に「<?>」があるので、書き出すと題名と301が失われます。";
    if (!check.lost.empty())
        return NoteText(check.lost.front());
    const auto loss = std::ranges::find_if_not(check.findings.list, IsHarmless);
    return loss == check.findings.list.end() ? std::string() : FindingText(*loss);
}

} // namespace

CommandResult RunText(std::span<const std::string> arguments)
{
    const ParsedArguments parsed = ParseArguments(arguments, {.names = true}, 1);
    if (parsed.wrong)
        return WrongUse("text", *parsed.wrong);
    const std::string& in = parsed.words[0];
    std::string bytes;
    if (const FileResult result = ReadInput(in, bytes); !result.Ok())
        return CannotRead(in, result);
    CSbdData data;
    if (const auto names = NamesFor(parsed, in))
        ReadGridNames(*names, data);
    const FileCheck check = CheckFile(bytes, data);
    ReadProject(bytes, data);
    CommandResult done;
    for (const CatalogueRow& row : Catalogue())
        if (CanonicalBlock(row.block) == row.block)
            done.output += BlockText(row.block, data);
    if (!data.versionWord.empty())
        done.output += "[版]\n  " + FromCp932(data.versionWord) + "\n";
    if (!data.unknownLines.empty())
        done.output += "[未知の区分]\n";
    for (const std::string& line : data.unknownLines)
        done.output += "  " + FromCp932(line) + "\n";
    if (!check.lost.empty())
        done.output += "[読まれない行]\n";
    for (const ReadNote& note : check.lost)
        done.output += "  " + FromCp932(note.text) + "\n";
    return done;
}

CommandResult RunMerge(std::span<const std::string> arguments)
{
    constexpr std::size_t files = 3;
    ParsedArguments parsed = ParseArguments(arguments, {.names = true}, kSomeWords);
    if (!parsed.wrong && (parsed.words.size() < files + 1 || parsed.words.size() > files + 2))
        parsed.wrong = "引数の数が違います";
    if (parsed.wrong)
        return WrongUse("merge", *parsed.wrong);
    const std::string& out = parsed.words[files];
    const std::string& shown = parsed.words.back();
    CSbdData sides[files]; // base, ours, theirs
    for (std::size_t i = 0; i < files; ++i) {
        const std::string& in = parsed.words[i];
        std::string bytes;
        if (const FileResult result = ReadInput(in, bytes); !result.Ok())
            return CannotRead(in, result);
        if (const auto names = NamesFor(parsed, shown))
            ReadGridNames(*names, sides[i]);
        // A base is only compared with: nothing of it is lost.
        if (const std::string loss = i == 0 ? std::string() : LossOf(bytes, sides[i]); !loss.empty())
            return Fail("sbdtool merge: " + shown + ": " + (i == 1 ? "こちら" : "相手")
                        + "のファイルに、読み込むと失われるものがあるので統合しません。ファイルは元のままです。\n  "
                        + loss + "\n画面で開いて保存し直してから、もう一度統合して下さい。");
        ReadProject(bytes, sides[i]);
    }
    const MergeResult merged = MergeProjects(sides[0], sides[1], sides[2]);
    WriteReport report;
    const std::string text = WriteProject(merged.data, &report);
    if (report.controlBlockHeldBack)
        return Fail("sbdtool merge: " + shown + ": " + std::string(kControlBlockMessage));
    CommandResult done;
    if (const FileResult result = WriteOutput(out, text, done); !result.Ok())
        return CannotWrite(out, result);
    CSbdData again = sides[1]; // with the names
    ReadProject(text, again);
    const std::vector<Difference> changed = CompareProjects(merged.data, again);
    done.exitCode = merged.conflicts.empty() && changed.empty() ? 0 : 1;
    if (!merged.conflicts.empty())
        done.error +=
            shown + ": 競合が" + std::to_string(merged.conflicts.size()) + "件あります。次の所を確かめて下さい。\n";
    for (const MergeConflict& conflict : merged.conflicts)
        done.error += "  " + ConflictText(conflict) + "\n";
    if (!changed.empty())
        done.error += shown + ": 統合したファイルを開くと、次の値が補正されます。確かめて下さい。\n";
    for (const Difference& difference : changed)
        done.error += "  " + DifferenceText(difference) + "\n";
    return done;
}

} // namespace sbd
