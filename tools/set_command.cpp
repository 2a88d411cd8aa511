#include "tools/set_command.h"

#include "check/read_back.h"
#include "panelmodel/panel_editor.h"
#include "panelmodel/panel_model.h"
#include "project/sbd_data.h"
#include "project/text.h"
#include "sbdfile/writer.h"
#include "tools/command_support.h"
#include "tools/project_arguments.h"
#include "tools/report.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace sbd {

namespace {

using nlohmann::json;

constexpr std::size_t kMostFaults = 100; // of a file of edits that are told

/// One edit as the file gives it. Text in UTF-8.
struct Edit {
    std::int64_t block = 0;
    std::int64_t row = 0;
    std::int64_t column = 0;
    std::string text;
};

struct Refusal {
    const Edit* edit;
    std::string reason; // UTF-8
};

/// What is wrong with an entry; empty: nothing.
std::string FaultOf(const json& entry)
{
    if (!entry.is_object())
        return "オブジェクトではありません";
    for (const char* key : {"block", "row", "column"}) {
        const auto value = entry.find(key);
        if (value == entry.end())
            return std::string("「") + key + "」がありません";
        const bool fits =
            value->is_number_integer()
            && (!value->is_number_unsigned()
                || value->get<std::uint64_t>() <= std::uint64_t{std::numeric_limits<std::int64_t>::max()});
        if (!fits)
            return std::string("「") + key + "」が整数ではありません";
    }
    const auto text = entry.find("text");
    if (text == entry.end())
        return "「text」がありません";
    return text->is_string() ? std::string() : "「text」が文字列ではありません";
}

/// The edits of a file; every fault of it in `faults`.
std::vector<Edit> ParseEdits(const std::string& bytes, std::string& faults)
{
    const json list = json::parse(bytes, nullptr, false);
    if (list.is_discarded()) {
        faults = "JSON として読めません";
        return {};
    }
    if (!list.is_array()) {
        faults = "編集の配列ではありません";
        return {};
    }
    std::vector<Edit> edits;
    std::size_t wrong = 0;
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (const std::string fault = FaultOf(list[i]); !fault.empty()) {
            if (++wrong <= kMostFaults)
                faults += (faults.empty() ? "" : "\n") + std::string("  ") + std::to_string(i + 1) + "番目: " + fault;
            continue;
        }
        edits.push_back({list[i]["block"], list[i]["row"], list[i]["column"], list[i]["text"]});
    }
    if (wrong > kMostFaults)
        faults += "\n  ほか " + std::to_string(wrong - kMostFaults) + "件";
    if (!faults.empty())
        faults = "編集として読めないものがあります:\n" + faults;
    return edits;
}

int Within(std::int64_t number)
{
    return number >= 0 && number <= std::numeric_limits<int>::max() ? static_cast<int>(number) : -1;
}

/// Why a cell of a panel takes no text; empty: it takes it.
std::string ReasonAgainst(const CPanelModel& panel, int row, int column)
{
    if (row < 1 || row > panel.GridRows())
        return "この行はありません(1～" + std::to_string(panel.GridRows()) + "行目)。";
    if (column < 1 || column >= panel.ColumnCount())
        return "この列はありません(1～" + std::to_string(panel.ColumnCount() - 1) + "列目)。";
    return panel.IsEditable(row, column) ? std::string() : "この欄は入力できません。";
}

/// A panel with edits when it was closed: what it showed, and what a fresh one showed right after.
struct ClosedPanel {
    ShownBlock shown;
    ShownBlock fresh;
};

/// Carries edits out, one open panel at a time, as a window does.
class EditDesk {
public:
    explicit EditDesk(CSbdData& data) : data_(data) {}

    void Carry(const Edit& edit)
    {
        const Cp932Result text = ToCp932(edit.text);
        if (text.refused)
            return Refuse(edit, "Shift-JIS(CP932)にない文字「" + text.refused->character + "」があります。");
        const int block = PanelBlock(Within(edit.block));
        if (block == 0)
            return Refuse(edit, "このブロックには入力する表がありません。");
        Open(block);
        const int row = Within(edit.row);
        const int column = Within(edit.column);
        if (const std::string reason = ReasonAgainst(*panel_, row, column); !reason.empty())
            return Refuse(edit, reason);
        editor_->SetCell(row, column, text.bytes);
        ++applied_;
    }

    void Close()
    {
        if (!panel_)
            return;
        const int block = panel_->Block();
        std::erase_if(closed_, [block](const ClosedPanel& panel) { return panel.shown.block == block; });
        ShownBlock shown = Show(*panel_);
        CommitPanel(*panel_, data_);
        editor_.reset();
        panel_.reset();
        closed_.push_back({std::move(shown), Show(*MakePanelModel(data_, block))});
    }

    [[nodiscard]] std::size_t Applied() const { return applied_; }
    [[nodiscard]] const std::vector<Refusal>& Refusals() const { return refusals_; }

    /// What the panels with edits showed last. A value at the top of a block that a later edit elsewhere has set
    /// shows as it is set.
    [[nodiscard]] std::vector<ShownBlock> Shown() const
    {
        std::vector<ShownBlock> all;
        for (const ClosedPanel& closed : closed_) {
            ShownBlock& shown = all.emplace_back(closed.shown);
            const ShownBlock now = Show(*MakePanelModel(data_, shown.block));
            const int rows = std::min({shown.fixedRows, shown.rows, now.rows});
            for (int row = 1; row <= rows; ++row)
                for (int column = 1; column < shown.columns; ++column)
                    if (now.Text(row, column) != closed.fresh.Text(row, column))
                        shown.SetText(row, column, now.Text(row, column));
        }
        return all;
    }

private:
    void Open(int block)
    {
        if (panel_ && panel_->Block() == block)
            return;
        Close();
        panel_ = MakePanelModel(data_, block);
        editor_.emplace(*panel_);
    }

    void Refuse(const Edit& edit, std::string reason) { refusals_.push_back({&edit, std::move(reason)}); }

    CSbdData& data_;
    std::unique_ptr<CPanelModel> panel_;
    std::optional<CPanelEditor> editor_;
    std::vector<ClosedPanel> closed_;
    std::vector<Refusal> refusals_;
    std::size_t applied_ = 0;
};

json RefusalsJson(const std::vector<Refusal>& refusals)
{
    json list = json::array();
    for (const Refusal& refusal : refusals)
        list.push_back({{"block", refusal.edit->block},
                        {"row", refusal.edit->row},
                        {"column", refusal.edit->column},
                        {"reason", refusal.reason}});
    return list;
}

json CellsJson(std::span<const ReturnedCell> cells)
{
    json list = json::array();
    for (const ReturnedCell& cell : cells)
        list.push_back(ReturnedCellJson(cell));
    return list;
}

bool SameFile(const std::string& a, const std::string& b)
{
    std::error_code error; // a file that is not there is none of the others
    return a != kStandardStream && b != kStandardStream && std::filesystem::equivalent(PathOf(a), PathOf(b), error);
}

} // namespace

CommandResult RunSet(std::span<const std::string> arguments)
{
    const ParsedArguments parsed = ParseArguments(arguments, {.names = true}, 3);
    if (parsed.wrong)
        return WrongUse("set", *parsed.wrong);
    const std::string& in = parsed.words[0];
    const std::string& out = parsed.words[1];
    const std::string& editsFile = parsed.words[2];
    if (out == kStandardStream)
        return WrongUse("set", "OUT に標準出力「-」は指定できません");
    if (SameFile(out, in) || SameFile(out, editsFile))
        return WrongUse("set", "OUT は IN や EDITS.json と別のファイルにしてください");

    std::string bytes;
    if (const FileResult result = ReadInput(editsFile, bytes); !result.Ok())
        return CannotRead(editsFile, result);
    std::string faults;
    const std::vector<Edit> edits = ParseEdits(bytes, faults);
    if (!faults.empty())
        return Fail("sbdtool: " + editsFile + ": " + faults);
    CSbdData data;
    if (const FileResult result = LoadInput(in, NamesFor(parsed, in), data); !result.Ok())
        return CannotRead(in, result);

    EditDesk desk(data);
    for (const Edit& edit : edits)
        desk.Carry(edit);
    desk.Close();

    CommandResult done;
    WriteReport report;
    if (const FileResult result = WriteOutput(out, WriteProject(data, &report), done); !result.Ok())
        return CannotWrite(out, result);
    if (report.controlBlockHeldBack)
        done.error = std::string(kControlBlockMessage) + "\n";
    const std::vector<ReturnedCell> cells = ReturnedCells(data, desk.Shown());
    const std::size_t told = std::min(cells.size(), kMostFindings);
    done.output = Print({{"applied", desk.Applied()},
                         {"refused", RefusalsJson(desk.Refusals())},
                         {"returnsDifferent", CellsJson(std::span(cells).first(told))},
                         {"more", cells.size() - told}})
                      .output;
    done.exitCode = cells.empty() ? 0 : 3;
    return done;
}

} // namespace sbd
