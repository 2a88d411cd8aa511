#include "tools/project_commands.h"

#include "book/difference_report.h"
#include "check/file_check.h"
#include "compare/compare.h"
#include "project/file_time.h"
#include "project/sbd_data.h"
#include "sbdfile/grid_names.h"
#include "sbdfile/writer.h"
#include "tools/command_support.h"
#include "tools/dump.h"
#include "tools/project_arguments.h"
#include "tools/report.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace sbd {

using nlohmann::json;

CommandResult RunNew(std::span<const std::string> arguments)
{
    const ParsedArguments parsed = ParseArguments(arguments, {}, 1);
    if (parsed.wrong)
        return WrongUse("new", *parsed.wrong);
    CSbdData data;
    CommandResult done;
    const FileResult result = WriteOutput(parsed.words[0], WriteProject(data), done);
    return result.Ok() ? done : CannotWrite(parsed.words[0], result);
}

CommandResult RunRewrite(std::span<const std::string> arguments)
{
    const ParsedArguments parsed = ParseArguments(arguments, {.names = true}, 2);
    if (parsed.wrong)
        return WrongUse("rewrite", *parsed.wrong);
    const std::string& in = parsed.words[0];
    const std::string& out = parsed.words[1];
    CSbdData data;
    if (const FileResult result = LoadInput(in, NamesFor(parsed, in), data); !result.Ok())
        return CannotRead(in, result);
    WriteReport report;
    const std::string text = WriteProject(data, &report);
    CommandResult done;
    if (const FileResult result = WriteOutput(out, text, done); !result.Ok())
        return CannotWrite(out, result);
    if (report.controlBlockHeldBack)
        done.error = std::string(kControlBlockMessage) + "\n";
    return done;
}

CommandResult RunDump(std::span<const std::string> arguments)
{
    const ParsedArguments parsed = ParseArguments(arguments, {.names = true}, 1);
    if (parsed.wrong)
        return WrongUse("dump", *parsed.wrong);
    CSbdData data;
    if (const FileResult result = LoadInput(parsed.words[0], NamesFor(parsed, parsed.words[0]), data); !result.Ok())
        return CannotRead(parsed.words[0], result);
    return Print(DumpProject(data));
}

CommandResult RunNames(std::span<const std::string> arguments)
{
    const ParsedArguments parsed = ParseArguments(arguments, {}, 1);
    if (parsed.wrong)
        return WrongUse("names", *parsed.wrong);
    CSbdData data;
    ReadGridNames(PathOf(parsed.words[0]), data);
    return Print(DumpNames(data));
}

CommandResult RunCheck(std::span<const std::string> arguments)
{
    const ParsedArguments parsed = ParseArguments(arguments, {.names = true, .asJson = true}, kSomeWords);
    if (parsed.wrong)
        return WrongUse("check", *parsed.wrong);
    CommandResult all;
    json list = json::array();
    for (const std::string& in : parsed.words) {
        std::string bytes;
        if (const FileResult result = ReadInput(in, bytes); !result.Ok())
            return CannotRead(in, result);
        CSbdData names;
        if (const auto file = NamesFor(parsed, in))
            ReadGridNames(*file, names);
        const FileCheck check = CheckFile(bytes, names);
        const int exitCode = check.findings.anyLoss ? 3 : check.findings.list.empty() ? 0 : 1;
        all.exitCode = std::max(all.exitCode, exitCode);
        if (parsed.asJson) {
            json one = CheckJson(check);
            one["file"] = in;
            list.push_back(std::move(one));
        } else {
            all.output += (parsed.words.size() > 1 ? in + ":\n" : std::string()) + CheckText(check);
        }
    }
    if (parsed.asJson)
        all.output = Print(list.size() > 1 ? json{{"files", std::move(list)}} : list.front()).output;
    return all;
}

CommandResult RunDiff(std::span<const std::string> arguments)
{
    const ParsedArguments parsed = ParseArguments(arguments, {.names = true, .asJson = true, .sheets = true}, 2);
    if (parsed.wrong)
        return WrongUse("diff", *parsed.wrong);
    if (parsed.words[0] == kStandardStream && parsed.words[1] == kStandardStream)
        return WrongUse("diff", "標準入力「-」は一度だけ指定できます");
    CSbdData sides[2];
    for (std::size_t i = 0; i < 2; ++i) {
        const std::string& in = parsed.words[i];
        if (const FileResult result = LoadInput(in, NamesFor(parsed, in), sides[i]); !result.Ok())
            return CannotRead(in, result);
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
    if (parsed.sheets) {
        const ReportSides names{parsed.words[0] + " → " + parsed.words[1], parsed.words[0], parsed.words[1],
                                LocalTimeText(FileTimeNow())};
        if (const FileResult written = WriteDifferenceSheets(PathOf(*parsed.sheets), names, differences); !written.Ok())
            return CannotWrite(*parsed.sheets, written);
    }
    return result;
}

} // namespace sbd
