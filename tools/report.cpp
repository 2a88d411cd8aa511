#include "tools/report.h"

#include "project/text.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace sbd {

namespace {

using nlohmann::json;

std::string_view KindWord(DifferenceKind kind)
{
    switch (kind) {
    case DifferenceKind::Value:
        return "value";
    case DifferenceKind::RowAdded:
        return "rowAdded";
    case DifferenceKind::RowRemoved:
        return "rowRemoved";
    case DifferenceKind::RowMoved:
        return "rowMoved";
    case DifferenceKind::UnknownLine:
        return "unknownLine";
    }
    return {};
}

std::string_view ReasonWord(LostLine reason)
{
    switch (reason) {
    case LostLine::OutsideSection:
        return "outsideSection";
    case LostLine::UnknownKeyword:
        return "unknownKeyword";
    case LostLine::NoValue:
        return "noValue";
    case LostLine::FurtherWords:
        return "furtherWords";
    }
    return {};
}

/// `more`: how many stand behind the list that it does not hold.
template <typename List, typename Line>
void AppendList(std::string& text, std::string_view heading, const List& list, Line line, std::size_t more = 0)
{
    if (list.empty())
        return;
    text += std::string(heading) + "(" + std::to_string(list.size() + more) + "件)\n";
    const std::size_t shown = std::min(list.size(), kMostFindings);
    for (std::size_t i = 0; i < shown; ++i)
        text += "  " + line(list[i]) + "\n";
    if (list.size() + more > shown)
        text += "  ほか " + std::to_string(list.size() + more - shown) + "件\n";
}

/// The first of a list: what a file of nothing but faults gives stays readable.
template <typename List, typename ToJson>
json JsonList(const List& list, ToJson toJson)
{
    json result = json::array();
    for (std::size_t i = 0; i < std::min(list.size(), kMostFindings); ++i)
        result.push_back(toJson(list[i]));
    return result;
}

std::size_t Beyond(std::size_t count)
{
    return count - std::min(count, kMostFindings);
}

/// How many each list leaves out.
json MoreJson(const FileCheck& check)
{
    return {{"findings", check.findings.more},
            {"lost", Beyond(check.lost.size())},
            {"repaired", Beyond(check.repaired.size())},
            {"unstable", Beyond(check.unstable.size())},
            {"doubts", check.doubts.more}};
}

} // namespace

json DifferenceJson(const Difference& difference)
{
    json object = {{"kind", KindWord(difference.kind)},
                   {"block", difference.block},
                   {"row", difference.row},
                   {"column", difference.column},
                   {"place", FromCp932(difference.place)},
                   {"before", FromCp932(difference.before)},
                   {"after", FromCp932(difference.after)}};
    if (!difference.cells.empty())
        object["cells"] = JsonList(difference.cells, [](const std::string& cell) { return FromCp932(cell); });
    return object;
}

json ReturnedCellJson(const ReturnedCell& cell)
{
    return {{"block", cell.block},
            {"row", cell.row},
            {"column", cell.column},
            {"is", FromCp932(cell.is)},
            {"returns", FromCp932(cell.returns)}};
}

std::string NoteText(const ReadNote& note)
{
    const std::string place =
        std::to_string(note.line) + "行目 " + (note.block > 0 ? NumberAndTitle(note.block) + " " : "");
    switch (note.reason) {
    case LostLine::OutsideSection:
        return place + Quoted(note.text) + ": どの区分にも属さない行なので読まれません。";
    case LostLine::UnknownKeyword:
        return place + Quoted(note.text) + ": このブロックにない項目名なので読まれません。";
    case LostLine::NoValue:
        return place + Quoted(note.text) + ": 値がないので、読込み前の値（新規なら初期値）のままになります。";
    case LostLine::FurtherWords:
        return place + Quoted(note.text) + ": 先頭行の値より後ろの語なので読まれません。";
    }
    return {};
}

json NoteJson(const ReadNote& note)
{
    return {{"reason", ReasonWord(note.reason)},
            {"line", note.line},
            {"block", note.block},
            {"text", FromCp932(note.text)}};
}

std::string FindingText(const Finding& finding)
{
    std::string place;
    if (finding.line > 0)
        place += std::to_string(finding.line) + "行目 ";
    if (finding.block > 0)
        place += NumberAndTitle(finding.block) + " ";
    if (finding.line == 0 && finding.row > 0)
        place += std::to_string(finding.row) + "行目 ";
    if (finding.line == 0 && finding.column > 0)
        place += std::to_string(finding.column) + "列目 ";
    return place + finding.text;
}

json FindingJson(const Finding& finding)
{
    json object = {{"kind", std::string(RuleOf(finding.kind).word)},
                   {"severity", static_cast<int>(RuleOf(finding.kind).severity)},
                   {"line", finding.line},
                   {"block", finding.block},
                   {"row", finding.row},
                   {"column", finding.column},
                   {"text", finding.text}};
    if (!finding.is.empty() || !finding.returns.empty()) {
        object["is"] = FromCp932(finding.is);
        object["returns"] = FromCp932(finding.returns);
    }
    return object;
}

std::string CheckText(const FileCheck& check)
{
    std::string text = check.ownForm
                           ? "このファイルは本システムの書式どおりです。読み込んで保存しても1バイトも変わりません。\n"
                           : "このファイルは本システムの書式と異なります。読み込んで保存すると "
                                 + std::to_string(check.firstOtherLine) + "行目から変わります。\n";
    if (check.controlBlockHeldBack)
        text += "301に「<?>」があるので、保存すると題名と301が書かれません。値を入力してください。\n";
    AppendList(text, "見つかったこと", check.findings.list, FindingText, check.findings.more);
    AppendList(text, "読み込むと失われる行", check.lost, NoteText);
    AppendList(text, "読み込むと補正される値", check.repaired, DifferenceText);
    AppendList(text, "保存後にもう一度読み込むと変わる値", check.unstable, DifferenceText);
    AppendList(text, "入力の疑問点", check.doubts.list, FindingText, check.doubts.more);
    return text;
}

json CheckJson(const FileCheck& check)
{
    json findings = json::array();
    for (const Finding& finding : check.findings.list) {
        json object = FindingJson(finding);
        if (const auto cells = check.shifted.find(finding.block);
            finding.kind == FindingKind::Shift && cells != check.shifted.end())
            object["cells"] = JsonList(cells->second, [](const ReturnedCell& cell) {
                return json{{"row", cell.row},
                            {"column", cell.column},
                            {"is", FromCp932(cell.is)},
                            {"returns", FromCp932(cell.returns)}};
            });
        findings.push_back(std::move(object));
    }
    return {{"ownForm", check.ownForm},
            {"firstOtherLine", check.firstOtherLine},
            {"controlBlockHeldBack", check.controlBlockHeldBack},
            {"lost", JsonList(check.lost, NoteJson)},
            {"repaired", JsonList(check.repaired, DifferenceJson)},
            {"unstable", JsonList(check.unstable, DifferenceJson)},
            {"findings", std::move(findings)},
            {"more", MoreJson(check)},
            {"doubts", JsonList(check.doubts.list, FindingJson)}};
}

} // namespace sbd
