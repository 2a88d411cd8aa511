// Pages made from the tables of the program, for blocks without a page file.
#include "project/option_rows.h"
#include "project/panel_columns.h"
#include "project/text.h"
#include "upperview/page/page_store.h"

#include <algorithm>

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

/// The list of columns; heads and words without the row number.
PageBranch MakeColumnList(std::span<const std::string> heads, std::span<const WordList> words)
{
    PageBranch branch;
    branch.lines.push_back(Constant(Cp932("  列  見出し                                      入力候補")));
    for (std::size_t i = 0; i < heads.size(); ++i) {
        std::string line = Number(i + 1) + "  ";
        AppendPadded(line, OneLineHead(heads[i]), kHeadWidth, true);
        AppendWords(branch.lines, line, i < words.size() ? words[i] : WordList());
    }
    for (PageLine& line : branch.lines) {
        auto& text = std::get<std::string>(line.pieces.front());
        text.resize(TrimRight(text).size());
    }
    return branch;
}

void AppendColumnLists(Page& page, std::span<const std::string> heads, std::span<const std::string> sectionHeads,
                       std::span<const WordList> words)
{
    if (!sectionHeads.empty()) {
        PageBranch section = MakeColumnList(sectionHeads, words);
        std::string fault;
        section.when = ParseCondition("301:3 starts 断面", fault).value_or(PageCondition());
        page.branches.push_back(std::move(section));
    }
    page.branches.push_back(MakeColumnList(heads, words));
}

Page MakeColumnPage(const PanelTable& table)
{
    std::vector<std::string> heads;
    std::vector<std::string> sectionHeads;
    std::vector<WordList> words;
    for (std::size_t i = 1; i < table.columns.size(); ++i) {
        heads.push_back(table.columns[i].head);
        if (table.hasSectionHeads)
            sectionHeads.push_back(table.columns[i].sectionHead);
        words.push_back(table.columns[i].words);
    }
    Page page;
    AppendColumnLists(page, heads, sectionHeads, words);
    return page;
}

} // namespace

std::string OneLineHead(std::string_view head)
{
    std::vector<std::string> seen = {"", "---", "-", Cp932("〃")};
    std::string line;
    while (!head.empty()) {
        const std::size_t end = std::min(head.find('\n'), head.size());
        std::string part(Trim(head.substr(0, end)));
        head.remove_prefix(std::min(end + 1, head.size()));
        if (std::ranges::find(seen, part) != seen.end())
            continue;
        line += (line.empty() ? "" : " ") + part;
        seen.push_back(std::move(part));
    }
    return line;
}

Page MakeTablePage(int block)
{
    Page page;
    if (const OptionBlock* options = FindOptionBlock(block)) {
        page = MakeOptionPage(block, *options);
    } else if (const RecordPanel* record = FindRecordPanel(block)) {
        const auto behindNumber = [](const auto& texts) {
            return std::span(texts).subspan(std::min<std::size_t>(1, texts.size()));
        };
        AppendColumnLists(page, behindNumber(record->heads), behindNumber(record->sectionHeads),
                          behindNumber(record->words));
    } else if (const PanelTable* table = FindPanelTable(block)) {
        page = MakeColumnPage(*table);
    } else {
        page.branches.emplace_back();
    }
    page.full = false;
    return page;
}

} // namespace sbd
