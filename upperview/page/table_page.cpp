// Pages made from the tables of the program, for blocks without a page file.
#include "project/option_rows.h"
#include "project/panel_columns.h"
#include "project/text.h"
#include "upperview/page/column_head.h"
#include "upperview/page/page_store.h"

#include <algorithm>
#include <array>
#include <span>

namespace sbd {

namespace {

constexpr std::size_t kHeadWidth = 44;  // bytes
constexpr std::size_t kWordsWidth = 60; // bytes before a word list goes on in the next line

PageLine Constant(std::string text)
{
    PageLine line;
    line.pieces.emplace_back(std::move(text));
    return line;
}

std::string WordText(const std::string& word)
{
    if (word == "@girders")
        return Cp932("(主桁名)");
    if (word == "@beams")
        return Cp932("(横桁名)");
    return word;
}

/// `label` and the words behind it, in as many lines as they need.
void AppendWords(std::vector<PageLine>& lines, const std::string& label, const WordList& words)
{
    std::string line = label;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string word = WordText(words[i]) + (i + 1 < words.size() ? ", " : "");
        if (line.size() > label.size() && line.size() + word.size() > label.size() + kWordsWidth) {
            lines.push_back(Constant(std::move(line)));
            line.assign(label.size(), ' ');
        }
        line += word;
    }
    lines.push_back(Constant(std::move(line)));
}

std::string Number(std::size_t number)
{
    std::string text;
    AppendPadded(text, std::to_string(number), 4, false);
    return text;
}

Page MakeOptionPage(int block, const OptionBlock& options)
{
    const OptionPanel* panel = FindOptionPanel(block);
    Page page;
    PageBranch rest;
    for (std::size_t i = 0; i < options.rows.size(); ++i) {
        const OptionRow& row = options.rows[i];
        PageBranch branch;
        branch.rows = {static_cast<int>(i) + 1};
        branch.hasHeading = true;
        if (panel != nullptr && i < panel->words.size() && !panel->words[i].empty())
            AppendWords(branch.lines, Cp932("    入力候補：    "), panel->words[i]);
        branch.lines.push_back(Constant(Cp932("    初期値：      ") + row.defaultValue));
        if (row.keyword != row.panelLabel)
            branch.lines.push_back(Constant(Cp932("    ファイルの語：") + row.keyword));
        page.branches.push_back(std::move(branch));
        rest.lines.push_back(Constant(Number(i + 1) + "  " + std::string(Trim(row.panelLabel))));
    }
    page.branches.push_back(std::move(rest));
    return page;
}

/// Words that stand for a length or an angle where a number is asked for.
bool StandsForNumber(const std::string& word)
{
    static const std::array<std::string, 15> words = {Cp932("等間隔"),
                                                      Cp932("等分割"),
                                                      Cp932("自動"),
                                                      Cp932("無し"),
                                                      Cp932("無"),
                                                      Cp932("終断面"),
                                                      Cp932("直線変化"),
                                                      Cp932("直角方向の値"),
                                                      Cp932("鉛直"),
                                                      Cp932("直角"),
                                                      Cp932("水平"),
                                                      Cp932("平行"),
                                                      "UU",
                                                      "LL",
                                                      "UL"};
    return word.starts_with('?') || std::ranges::find(words, word) != words.end();
}

bool IsNumber(const std::string& word)
{
    return LeadingNumber(word).has_value();
}

/// The list that a column has for want of one of its own.
bool IsYesNo(const WordList& words)
{
    return words == WordList{"YES", "NO"};
}

/// What a column offers: where its head has a unit a number, and of its words those that may stand for one.
WordList OfferedWords(const std::string& head, const WordList& words, bool yesNoForWantOfOthers)
{
    const std::string unit = UnitOf(head);
    if (unit.empty())
        return IsYesNo(words) && yesNoForWantOfOthers && head.find("YES") == std::string::npos ? WordList() : words;
    WordList offered = {Cp932("数値(") + unit + ")"};
    const bool meant = std::ranges::any_of(words, IsNumber);
    for (const std::string& word : words)
        if (meant || StandsForNumber(word))
            offered.push_back(word);
    return offered;
}

/// The first row of most tables, and what its value means.
void AppendAutomaticRow(PageBranch& branch, int block)
{
    const auto add = [&branch](std::string text) { branch.lines.push_back(Constant(std::move(text))); };
    const PanelTable* table = FindPanelTable(block);
    const bool hasRow = table == nullptr ? FindRecordPanel(block) != nullptr && block != 311 : table->automaticRows > 0;
    if (!hasRow)
        return;
    if (block == 501 || block == 702) {
        add(Cp932("  1行目： 自動取得(YES_NO)"));
        add(Cp932("      YES： 名称を自動で取得します．"));
        add(Cp932("      NO ： 2行目以降に入力した名称を使用します．"));
    } else {
        add(Cp932("  1行目： 自動計算(YES_NO)"));
        add(Cp932("      YES： 自動計算を行います．"));
        add(Cp932("      NO ： 自動計算を行わず，2行目以降に入力した値を使用します．"));
    }
    std::string link;
    for (const std::string& text : table == nullptr ? WordList() : table->fixedTexts)
        link += text;
    if (!link.empty())
        add("      " + std::string(Trim(link)));
    add({});
}

/// One kind of rows: its columns with their heads and what they offer. `heads` is empty where the kind has no column.
void AppendKind(PageBranch& branch, std::span<const std::string> heads, std::span<const ColumnHead> columns)
{
    const bool automatic = heads.front().starts_with(Cp932("自動"));
    const bool yesNo = std::ranges::any_of(
        columns, [](const ColumnHead& column) { return IsYesNo(column.words) && !UnitOf(column.head).empty(); });
    for (std::size_t i = 0; i < heads.size(); ++i) {
        if (heads[i].empty())
            continue;
        std::string line = Number(i + 1) + "  ";
        AppendPadded(line, heads[i] + "  ", kHeadWidth, true);
        const std::size_t first = branch.lines.size();
        AppendWords(branch.lines, line, OfferedWords(heads[i], automatic ? WordList() : columns[i].words, yesNo));
        for (std::size_t k = first; k < branch.lines.size(); ++k) {
            branch.lines[k].column = static_cast<int>(i) + 1;
            auto& text = std::get<std::string>(branch.lines[k].pieces.front());
            text.resize(TrimRight(text).size());
        }
    }
}

/// The list of columns, once for each kind of rows; heads and words without the row number.
PageBranch MakeColumnList(int block, std::span<const ColumnHead> columns, bool section)
{
    const auto headOf = [section](const ColumnHead& column) -> const std::string& {
        return section ? column.sectionHead : column.head;
    };
    PageBranch branch;
    AppendAutomaticRow(branch, block);
    branch.lines.push_back(Constant(Cp932("  列  見出し                                      入力")));
    const std::string& first = headOf(columns.front());
    const std::vector<std::string> firstHeads = HeadsByKind(first, first);
    for (std::size_t kind = 0; kind < firstHeads.size(); ++kind) {
        std::vector<std::string> heads;
        for (const ColumnHead& column : columns)
            heads.push_back(firstHeads.size() == 1 ? OneLineHead(headOf(column))
                                                   : HeadsByKind(first, headOf(column))[kind]);
        if (firstHeads.size() == 1)
            std::ranges::replace(heads, std::string(), Cp932("(見出しなし)"));
        if (std::ranges::all_of(heads, &std::string::empty))
            continue;
        if (firstHeads.size() > 1)
            branch.lines.push_back(
                Constant("(" + std::to_string(kind + 1) + Cp932(") 1列目が「") + firstHeads[kind] + Cp932("」の行")));
        AppendKind(branch, heads, columns);
    }
    return branch;
}

Page MakeColumnPage(int block, std::span<const ColumnHead> columns)
{
    Page page;
    const bool sections = std::ranges::any_of(columns, [](const ColumnHead& c) { return !c.sectionHead.empty(); });
    if (sections) {
        PageBranch section = MakeColumnList(block, columns, true);
        std::string fault;
        section.when = ParseCondition("301:3 starts 断面", fault).value_or(PageCondition());
        page.branches.push_back(std::move(section));
    }
    page.branches.push_back(MakeColumnList(block, columns, false));
    return page;
}

} // namespace

Page MakeTablePage(int block)
{
    Page page;
    const std::vector<ColumnHead> columns = ColumnHeads(block);
    if (const OptionBlock* options = FindOptionBlock(block))
        page = MakeOptionPage(block, *options);
    else if (!columns.empty())
        page = MakeColumnPage(block, columns);
    else
        page.branches.emplace_back();
    page.full = false;
    return page;
}

} // namespace sbd
