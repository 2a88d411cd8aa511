#include "upperview/page/page_report.h"

#include "project/option_rows.h"
#include "project/text.h"
#include "upperview/page/column_head.h"
#include "upperview/page/page_store.h"

#include <algorithm>
#include <set>
#include <span>
#include <utility>

namespace sbd {

namespace {

bool IsLabel(const Primitive& primitive)
{
    return primitive.kind == PrimitiveKind::Text && !primitive.text.empty();
}

/// Words that heads have in half-width letters, for want of room.
std::string WithFullKana(std::string text)
{
    static constexpr std::pair<std::string_view, std::string_view> words[] = {
        {"ﾎﾞｽ", "ボス"},    {"ﾋﾟｯﾁ", "ピッチ"}, {"ｺﾝｸﾘｰﾄ", "コンクリート"},
        {"ｻｲｽﾞ", "サイズ"}, {"ﾀｲﾌﾟ", "タイプ"}, {"･", "・"}};
    for (const auto& [half, full] : words)
        for (std::size_t at = text.find(half); at != std::string::npos; at = text.find(half, at + full.size()))
            text.replace(at, half.size(), full);
    return text;
}

std::vector<std::string> ColumnNames(std::string_view head)
{
    std::vector<std::string> names = NamesOf(head);
    std::ranges::transform(names, names.begin(), WithFullKana);
    return names;
}

/// The constant text of a line, UTF-8; a quote is a blank.
std::string ConstantText(const PageLine& line)
{
    std::string text;
    for (const auto& piece : line.pieces) {
        const auto* words = std::get_if<std::string>(&piece);
        text += words == nullptr ? " " : *words;
    }
    return WithFullKana(FromCp932(text));
}

bool IsFilled(const PageLine& line)
{
    return !Trim(ConstantText(line)).empty();
}

bool IsWordByte(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

/// A word stands in the text by itself: no Latin letter or digit goes on with it. "T" is not in "TW".
bool HasWord(std::string_view text, std::string_view word)
{
    for (std::size_t at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1)) {
        const std::size_t end = at + word.size();
        const bool begins = at == 0 || !IsWordByte(text[at - 1]) || !IsWordByte(word.front());
        const bool ends = end == text.size() || !IsWordByte(text[end]) || !IsWordByte(word.back());
        if (begins && ends)
            return true;
    }
    return false;
}

/// The unit stands in the text: no other letter goes on with it. "m" is not in "mm" nor in "kN/m".
bool HasUnit(std::string_view text, const std::string& unit)
{
    const auto goesOn = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '/'; };
    std::vector<std::string> spellings = {unit};
    static const std::vector<std::vector<std::string>> same = {
        {"kN・m", "kN.m", "kNm"}, {"°", "度"}, {"%", "％"}, {"N/mm^2", "N/mm2", "N/mm²"}, {"cm^2", "cm2"}};
    for (const std::vector<std::string>& group : same)
        if (std::ranges::find(group, unit) != group.end())
            spellings = group;
    for (const std::string& spelling : spellings)
        for (std::size_t at = text.find(spelling); at != std::string_view::npos; at = text.find(spelling, at + 1)) {
            const std::size_t end = at + spelling.size();
            if ((at == 0 || !goesOn(text[at - 1])) && (end == text.size() || !goesOn(text[end])))
                return true;
        }
    return false;
}

/// "(3) ..." or "（３）...": a line that begins a new item of the text.
bool BeginsItem(std::string_view line)
{
    return line.starts_with("(") || line.starts_with("（");
}

/// The texts of a page in items, UTF-8: a unit stands for the whole item. A unit told for all is an item's as well.
std::vector<std::string> ItemsOf(const Page& page)
{
    std::vector<std::string> items;
    for (const PageBranch& branch : page.branches) {
        const std::size_t first = items.size();
        std::string forAll;
        for (const PageLine& line : branch.lines) {
            const std::string text = ConstantText(line);
            if (items.size() == first || BeginsItem(text))
                items.emplace_back();
            items.back() += text + "\n";
            if (text.find("単位") != std::string::npos)
                forAll += text + "\n";
        }
        for (std::size_t i = first; i < items.size(); ++i)
            items[i] += forAll;
    }
    return items;
}

/// An item tells the unit, and calls the column by a name that no other has, or by all lines of its head.
bool IsExplained(const std::vector<std::string>& items, std::string_view head, const std::string& unit,
                 const std::multiset<std::string>& allNames)
{
    const std::vector<std::string> names = ColumnNames(head);
    return !names.empty() && std::ranges::any_of(items, [&](const std::string& item) {
        const auto holds = [&item](const std::string& name) { return HasWord(item, name); };
        const auto isOwn = [&](const std::string& name) { return allNames.count(name) == 1 && holds(name); };
        const auto lines = std::span(names).first(std::max<std::size_t>(1, names.size() - 1)); // the last is the whole
        return HasUnit(item, unit) && (std::ranges::any_of(names, isOwn) || std::ranges::all_of(lines, holds));
    });
}

bool IsNumber(std::string_view word)
{
    return !word.empty() && LeadingNumber(word).has_value();
}

/// The page made from the tables offers words for a column, and says nowhere that a number is meant.
bool OffersWordsOnly(const Page& page, const ColumnHead& column, int number)
{
    if (page.full || column.words.empty() || std::ranges::any_of(column.words, IsNumber))
        return false;
    bool told = false;
    for (const PageBranch& branch : page.branches)
        for (const PageLine& line : branch.lines)
            told = told || (line.column == number && ConstantText(line).find("数値(") != std::string::npos);
    return !told;
}

void CountColumns(const Page& page, PageReport& report, const std::set<int>& red)
{
    const std::vector<std::string> items = page.full ? ItemsOf(page) : std::vector<std::string>();
    const std::vector<ColumnHead> heads = ColumnHeads(report.block);
    std::multiset<std::string> names;
    for (const ColumnHead& column : heads)
        for (std::string& name : ColumnNames(column.head))
            names.insert(std::move(name));
    int number = 0;
    for (const ColumnHead& column : heads) {
        ++number;
        const std::string unit = WithFullKana(FromCp932(UnitOf(column.head)));
        if (unit.empty())
            continue;
        ++report.unitColumns;
        if (!IsExplained(items, column.head, unit, names))
            report.unexplained.push_back(number);
        if (!page.full || !red.contains(number))
            report.notRed.push_back(number);
        if (OffersWordsOnly(page, column, number))
            report.wordsOnly.push_back(number);
    }
}

void CountSketch(const Sketch& sketch, PageReport& report, std::set<int>& columns)
{
    std::set<std::string> conditions;
    for (const SketchElement& element : sketch.elements) {
        columns.insert(element.columns.begin(), element.columns.end());
        report.strings += element.label.Empty() ? 0 : 1;
        if (!element.when.source.empty())
            conditions.insert(element.when.source);
    }
    ++report.sketches;
    report.states += 1 + static_cast<int>(conditions.size());
}

/// A branch of the row itself says something that its heading does not, apart from quoting the row or its default.
bool IsTold(const Page& page, int block, int row)
{
    const std::string heading = WithFullKana(FromCp932(OptionHeading(block, row)));
    const auto says = [&](const PageLine& line) {
        const std::string text(Trim(ConstantText(line)));
        return !text.empty() && heading.find(text) == std::string::npos && !text.starts_with("初期値")
               && !text.starts_with("現在の") && text.find("<--- 現在の入力") == std::string::npos;
    };
    return page.full && std::ranges::any_of(page.branches, [&](const PageBranch& branch) {
               return std::ranges::find(branch.rows, row) != branch.rows.end()
                      && std::ranges::any_of(branch.lines, says);
           });
}

} // namespace

PageReport ReportOf(const Page& page, int block)
{
    PageReport report;
    report.block = block;
    report.full = page.full;
    report.branches = static_cast<int>(page.branches.size());
    std::set<int> rows;
    std::set<std::string> sketches;
    for (const PageBranch& branch : page.branches) {
        report.lines += static_cast<int>(branch.lines.size());
        report.strings += static_cast<int>(std::ranges::count_if(branch.lines, IsFilled)) + (branch.hasHeading ? 1 : 0);
        rows.insert(branch.rows.begin(), branch.rows.end());
        sketches.insert(branch.sketches.begin(), branch.sketches.end());
    }
    std::set<int> columns;
    for (const std::string& name : sketches)
        if (const Sketch* sketch = FindSketch(page, name))
            CountSketch(*sketch, report, columns);
    report.columns.assign(columns.begin(), columns.end());
    CountColumns(page, report, columns);
    if (const OptionBlock* options = FindOptionBlock(block)) {
        report.optionRows = static_cast<int>(options->rows.size());
        for (int row = 1; row <= report.optionRows; ++row) {
            if (!rows.contains(row))
                report.rowsWithout.push_back(row);
            if (!IsTold(page, block, row))
                report.untold.push_back(row);
        }
    }
    return report;
}

PageSum& PageSum::operator+=(const PageReport& report)
{
    const auto without = [](int all, const std::vector<int>& missing) {
        return all - static_cast<int>(missing.size());
    };
    ++pages;
    own += report.full ? 1 : 0;
    lines += report.lines;
    sketches += report.sketches;
    states += report.states;
    strings += report.strings;
    unitColumns += report.unitColumns;
    explained += without(report.unitColumns, report.unexplained);
    red += without(report.unitColumns, report.notRed);
    wordsOnly += static_cast<int>(report.wordsOnly.size());
    optionRows += report.optionRows;
    told += without(report.optionRows, report.untold);
    return *this;
}

int PercentOf(int part, int whole)
{
    return whole == 0 ? 100 : 100 * part / whole;
}

std::vector<std::string> LabelFaults(const CDrawRecorder& recorder, const PageExtent& extent, bool crossings)
{
    std::vector<std::string> faults;
    const std::vector<Primitive>& all = recorder.Primitives();
    const auto name = [](const Primitive& primitive) { return "\"" + FromCp932(primitive.text) + "\""; };
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (!IsLabel(all[i]))
            continue;
        const DrawBox box = recorder.BoxOf(all[i]);
        if (box.left < 0 || box.top > 0 || box.right > extent.width || box.bottom < -extent.height)
            faults.push_back(name(all[i]) + " leaves the page");
        for (std::size_t k = i + 1; k < all.size(); ++k) {
            const bool itself = all[k].text == all[i].text && all[k].points == all[i].points;
            if (IsLabel(all[k]) && !itself && box.Overlaps(recorder.BoxOf(all[k])))
                faults.push_back(name(all[i]) + " overlaps " + name(all[k]));
        }
        const auto crosses = [&](const Primitive& line) {
            return line.kind == PrimitiveKind::Line && box.IsCrossedBy(line.points[0], line.points[1]);
        };
        if (crossings && std::ranges::any_of(all, crosses))
            faults.push_back(name(all[i]) + " is crossed by a line");
    }
    return faults;
}

} // namespace sbd
