#include "tools/replace_command.h"

#include "check/read_back.h"
#include "panelmodel/replace.h"
#include "project/sbd_data.h"
#include "project/text.h"
#include "sbdfile/writer.h"
#include "tools/command_support.h"
#include "tools/project_arguments.h"
#include "tools/report.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <set>
#include <tuple>

namespace sbd {

namespace {

using nlohmann::json;

/// Why a cell stays as it is; empty: it is replaced.
std::string_view StateName(HitState state)
{
    switch (state) {
    case HitState::Locked:
        return "locked";
    case HitState::Hidden:
        return "hidden";
    case HitState::NoNumber:
        return "noNumber";
    case HitState::LosesRow:
        return "losesRow";
    case HitState::Free:
        break;
    }
    return {};
}

json CellJson(const CellHit& hit)
{
    json cell{{"block", hit.block},
              {"row", hit.row},
              {"column", hit.column},
              {"before", FromCp932(hit.before)},
              {"after", FromCp932(hit.after)}};
    if (hit.state != HitState::Free)
        cell["stays"] = StateName(hit.state);
    if (!hit.alsoIn.empty())
        cell["alsoIn"] = hit.alsoIn;
    if (hit.leavesList)
        cell["leavesList"] = true;
    return cell;
}

using Place = std::tuple<int, int, int>;

/// The replaced cells that come back from the file as another text. `data`: with the texts replaced.
json ReturnedJson(const CSbdData& data, const std::vector<CellHit>& hits)
{
    std::set<Place> replaced;
    for (const CellHit& hit : hits)
        if (hit.state == HitState::Free)
            replaced.emplace(hit.block, hit.row, hit.column);
    json list = json::array();
    for (const ReturnedCell& cell : ReturnedCells(data))
        if (replaced.contains({cell.block, cell.row, cell.column}))
            list.push_back(ReturnedCellJson(cell));
    return list;
}

/// Takes a word off the arguments; true if it was there.
bool TakeOff(std::vector<std::string>& arguments, std::string_view word)
{
    return std::erase(arguments, word) > 0;
}

/// Takes "--block N" off them. A text that is no number is told as a wrong one.
std::optional<std::string> TakeBlock(std::vector<std::string>& arguments, int& block)
{
    const auto option = std::ranges::find(arguments, "--block");
    if (option == arguments.end())
        return std::nullopt;
    if (option + 1 == arguments.end())
        return "値がありません: --block";
    const std::string word = *(option + 1);
    arguments.erase(option, option + 2);
    const std::optional<int> number = WholeNumber(word);
    block = number ? PanelBlock(*number) : 0;
    return block == 0 ? std::optional("「" + word + "」は入力する表のあるブロックの番号ではありません") : std::nullopt;
}

/// A text of the command line in the project's code; the message in `refused` if it is none.
std::string Encoded(const std::string& utf8, std::string& refused)
{
    const Cp932Result text = ToCp932(utf8);
    if (text.refused)
        refused = "「" + text.refused->character + "」はこのシステムの文字コード(シフトJIS)にない文字です";
    return text.bytes;
}

} // namespace

CommandResult RunReplace(std::span<const std::string> arguments)
{
    std::vector<std::string> words(arguments.begin(), arguments.end());
    FindRequest request;
    const bool dryRun = TakeOff(words, "--dry-run");
    request.rule.wholeCell = TakeOff(words, "--whole");
    request.rule.foldCase = !TakeOff(words, "--exact-case");
    request.rule.foldWidth = !TakeOff(words, "--exact-width");
    if (const std::optional<std::string> wrong = TakeBlock(words, request.block))
        return WrongUse("replace", *wrong);
    const ParsedArguments parsed = ParseArguments(words, {.names = true}, dryRun ? 3 : 4);
    if (parsed.wrong)
        return WrongUse("replace", *parsed.wrong);
    const std::string& in = parsed.words[0];
    const std::string out = dryRun ? std::string() : parsed.words[1];
    if (out == kStandardStream)
        return WrongUse("replace", "OUT に標準出力「-」は指定できません");
    std::error_code error; // a file that is not there is none of the others
    if (!dryRun && in != kStandardStream && std::filesystem::equivalent(PathOf(out), PathOf(in), error))
        return WrongUse("replace", "OUT は IN と別のファイルにしてください");
    std::string refused;
    request.wanted = Encoded(parsed.words[dryRun ? 1 : 2], refused);
    request.by = Encoded(parsed.words[dryRun ? 2 : 3], refused);
    if (!refused.empty())
        return WrongUse("replace", refused);
    if (request.wanted.empty())
        return WrongUse("replace", "TEXT が空です");

    CSbdData data;
    if (const FileResult result = LoadInput(in, NamesFor(parsed, in), data); !result.Ok())
        return CannotRead(in, result);
    const std::vector<CellHit> hits = FindCells(data, request);
    CProjectWriter writer(data);
    const ReplaceOutcome outcome = ReplaceCells(writer, hits);

    CommandResult done;
    if (!dryRun) {
        WriteReport report;
        if (const FileResult result = WriteOutput(out, WriteProject(data, &report), done); !result.Ok())
            return CannotWrite(out, result);
        if (report.controlBlockHeldBack)
            done.error = std::string(kControlBlockMessage) + "\n";
    }
    json cells = json::array();
    for (const CellHit& hit : hits)
        cells.push_back(CellJson(hit));
    json returned = ReturnedJson(data, hits);
    done.exitCode = returned.empty() ? 0 : 3;
    done.output = Print({{"replaced", outcome.put},
                         {"stayed", outcome.stayed},
                         {"cells", std::move(cells)},
                         {"returnsDifferent", std::move(returned)}})
                      .output;
    return done;
}

} // namespace sbd
