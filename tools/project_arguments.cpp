#include "tools/project_arguments.h"

#include "project/console.h"
#include "project/sbd_data.h"
#include "sbdfile/reader.h"
#include "tools/command_support.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace sbd {

namespace {

/// An option of a command line and where its value goes.
struct OptionRule {
    bool allowed;
    std::string_view name;
    void (*take)(ParsedArguments& parsed, const std::string& value);
    bool hasValue = true;
};

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

} // namespace

ParsedArguments ParseArguments(std::span<const std::string> arguments, AllowedOptions allowed, std::size_t words)
{
    const std::array rules = {
        OptionRule{allowed.names, "--names", [](ParsedArguments& p, const std::string& v) { p.names = v; }},
        OptionRule{allowed.names, "--no-names", [](ParsedArguments& p, const std::string&) { p.noNames = true; },
                   false},
        OptionRule{allowed.plain, "--plain", [](ParsedArguments& p, const std::string&) { p.plain = true; }, false},
        OptionRule{allowed.asJson, "--json", [](ParsedArguments& p, const std::string&) { p.asJson = true; }, false},
        OptionRule{allowed.book, "--blocks", [](ParsedArguments& p, const std::string& v) { p.blocks = v; }},
        OptionRule{allowed.book, "--since", [](ParsedArguments& p, const std::string& v) { p.since = v; }},
        OptionRule{allowed.sheets, "--xlsx", [](ParsedArguments& p, const std::string& v) { p.sheets = v; }},
        OptionRule{allowed.tree, "--mode", [](ParsedArguments& p, const std::string& v) { p.mode = v; }},
        OptionRule{allowed.tree, "--check", [](ParsedArguments& p, const std::string& v) { p.checks.push_back(v); }},
        OptionRule{allowed.tree, "--language", [](ParsedArguments& p, const std::string& v) { p.language = v; }},
    };
    ParsedArguments parsed;
    for (std::size_t i = 0; i < arguments.size() && !parsed.wrong; ++i) {
        const std::string& argument = arguments[i];
        const auto rule =
            std::ranges::find_if(rules, [&](const OptionRule& r) { return r.allowed && r.name == argument; });
        if (rule == rules.end() && argument.starts_with("--"))
            parsed.wrong = "知らないオプションです: " + argument;
        else if (rule == rules.end())
            parsed.words.push_back(argument);
        else if (rule->hasValue && i + 1 == arguments.size())
            parsed.wrong = "値がありません: " + argument;
        else
            rule->take(parsed, rule->hasValue ? arguments[++i] : argument);
    }
    const bool enough = words == kSomeWords ? !parsed.words.empty() : parsed.words.size() == words;
    if (!parsed.wrong && !enough)
        parsed.wrong = "引数の数が違います";
    if (!parsed.wrong && parsed.names && parsed.noNames)
        parsed.wrong = "--names と --no-names は同時に指定できません";
    if (!parsed.wrong && std::ranges::count(parsed.words, kStandardStream) > 1 && words != 2)
        parsed.wrong = "標準入力「-」は一度だけ指定できます";
    return parsed;
}

std::optional<int> WholeNumber(const std::string& word)
{
    int number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    return error == std::errc() && end == word.data() + word.size() ? std::optional<int>(number) : std::nullopt;
}

std::optional<std::filesystem::path> NamesFor(const ParsedArguments& parsed, const std::string& project)
{
    if (parsed.names)
        return PathOf(*parsed.names);
    if (parsed.noNames || project == kStandardStream)
        return std::nullopt;
    return NamesFileBeside(PathOf(project));
}

FileResult ReadInput(const std::string& file, std::string& bytes)
{
    if (file != kStandardStream)
        return ReadFileBytes(PathOf(file), bytes);
    FileResult result;
    if (!ReadAll(stdin, bytes)) {
        result.error = FileError::Other;
        result.detail = "standard input";
    }
    return result;
}

FileResult LoadInput(const std::string& file, const std::optional<std::filesystem::path>& names, CSbdData& data)
{
    std::string bytes;
    FileResult result = ReadInput(file, bytes);
    if (!result.Ok())
        return result;
    TakeProject(bytes, names, data);
    return result;
}

FileResult WriteOutput(const std::string& file, std::string_view bytes, CommandResult& result)
{
    if (file != kStandardStream)
        return ReplaceFileBytes(PathOf(file), bytes);
    result.bytes = bytes;
    return {};
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

} // namespace sbd
