#include "tools/report.h"

#include "project/catalogue.h"
#include "project/sbd_data.h"
#include "project/text.h"
#include "sbdfile/layout.h"
#include "sbdfile/repairs.h"
#include "sbdfile/writer.h"

#include <nlohmann/json.hpp>

namespace sbd {

namespace {

using nlohmann::json;

/// "313 垂直補剛材": number and title of a block, without tag and marks.
std::string BlockName(int block)
{
    const CatalogueRow* row = FindBlock(block);
    const std::string number = std::to_string(block);
    if (!row)
        return number;
    std::string_view title = row->menuText.substr(0, row->menuText.find('['));
    title.remove_prefix(std::min(title.find_first_not_of("0123456789."), title.size()));
    return number + " " + std::string(CutTrailingBlanks(title));
}

std::string Quoted(std::string_view bytes)
{
    return "「" + FromCp932(bytes) + "」";
}

std::string PlaceText(const Difference& difference)
{
    std::string text = BlockName(difference.block);
    if (difference.row > 0)
        text += " " + std::to_string(difference.row) + "行目";
    if (difference.column > 0)
        text += " " + std::to_string(difference.column) + "列目";
    if (!difference.place.empty())
        text += "(" + FromCp932(difference.place) + ")";
    return text;
}

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

std::size_t FirstOtherLine(std::string_view a, std::string_view b)
{
    std::size_t line = 1;
    for (std::size_t pos = 0; pos < std::min(a.size(), b.size()); ++pos) {
        if (a[pos] != b[pos])
            return line;
        line += a[pos] == '\n' ? 1 : 0;
    }
    return a.size() == b.size() ? 0 : line;
}

template <typename List, typename Line>
void AppendList(std::string& text, std::string_view heading, const List& list, Line line)
{
    if (list.empty())
        return;
    text += std::string(heading) + "(" + std::to_string(list.size()) + "件)\n";
    for (const auto& item : list)
        text += "  " + line(item) + "\n";
}

template <typename List, typename ToJson>
json JsonList(const List& list, ToJson toJson)
{
    json result = json::array();
    for (const auto& item : list)
        result.push_back(toJson(item));
    return result;
}

/// A control row that the load puts into a block without rows never reaches the file: nothing to tell.
bool StaysOutOfFile(const Difference& difference, const CSbdData& data)
{
    const SectionLayout* layout = FindSectionLayout(difference.block);
    return difference.kind == DifferenceKind::RowAdded && layout
           && data.RowCount(difference.block) < static_cast<std::size_t>(layout->leastRows);
}

} // namespace

std::string DifferenceText(const Difference& difference)
{
    switch (difference.kind) {
    case DifferenceKind::Value:
        return PlaceText(difference) + ": " + Quoted(difference.before) + "→" + Quoted(difference.after);
    case DifferenceKind::RowAdded:
        return PlaceText(difference) + ": 行が増える " + Quoted(difference.after);
    case DifferenceKind::RowRemoved:
        return PlaceText(difference) + ": 行がなくなる " + Quoted(difference.before);
    case DifferenceKind::RowMoved:
        return PlaceText(difference) + ": この列から後ろの値が別の列に移る " + Quoted(difference.after);
    case DifferenceKind::UnknownLine:
        return "未知の区分の行: " + Quoted(difference.before) + "→" + Quoted(difference.after);
    }
    return {};
}

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

std::string NoteText(const ReadNote& note)
{
    const std::string place = std::to_string(note.line) + "行目 " + (note.block > 0 ? BlockName(note.block) + " " : "");
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

CheckReport CheckProject(std::string_view bytes, const CSbdData& names)
{
    CheckReport report;
    CSbdData asRead = names;
    asRead.ClearBlocks();
    ReadSections(bytes, asRead, &report.lost);
    CSbdData repaired = asRead;
    RepairAfterRead(repaired);
    report.repaired = CompareProjects(asRead, repaired);
    std::erase_if(report.repaired, [&](const Difference& difference) { return StaysOutOfFile(difference, repaired); });

    WriteReport written;
    const std::string saved = WriteProject(repaired, &written);
    report.controlBlockHeldBack = written.controlBlockHeldBack;
    report.ownForm = saved == bytes;
    report.firstOtherLine = FirstOtherLine(bytes, saved);

    CSbdData again = names; // what a new session finds: defaults, then the saved file
    ReadProject(saved, again);
    report.unstable = CompareProjects(repaired, again);
    return report;
}

std::string CheckText(const CheckReport& report)
{
    std::string text = report.ownForm
                           ? "このファイルは本システムの書式どおりです。読み込んで保存しても1バイトも変わりません。\n"
                           : "このファイルは本システムの書式と異なります。読み込んで保存すると "
                                 + std::to_string(report.firstOtherLine) + "行目から変わります。\n";
    if (report.controlBlockHeldBack)
        text += "301に「<?>」があるので、保存すると題名と301が書かれません。値を入力してください。\n";
    AppendList(text, "読み込むと失われる行", report.lost, NoteText);
    AppendList(text, "読み込むと補正される値", report.repaired, DifferenceText);
    AppendList(text, "保存後にもう一度読み込むと変わる値", report.unstable, DifferenceText);
    return text;
}

json CheckJson(const CheckReport& report)
{
    return {{"ownForm", report.ownForm},
            {"firstOtherLine", report.firstOtherLine},
            {"controlBlockHeldBack", report.controlBlockHeldBack},
            {"lost", JsonList(report.lost, NoteJson)},
            {"repaired", JsonList(report.repaired, DifferenceJson)},
            {"unstable", JsonList(report.unstable, DifferenceJson)}};
}

} // namespace sbd
