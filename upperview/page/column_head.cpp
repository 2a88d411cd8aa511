#include "upperview/page/column_head.h"

#include "project/option_rows.h"
#include "project/text.h"

#include <algorithm>
#include <array>

namespace sbd {

namespace {

/// The longer ones first: "kN/m2" is no "kN".
constexpr std::array<std::string_view, 18> kUnits = {"mm/mm^2", "kN/mm2", "kN/mm", "kN/m2",  "kN/m",  "kN･m",
                                                     "kN・m",   "kN.m",   "kNm",   "N/mm^2", "N/mm2", "cm^2",
                                                     "kN",      "mm",     "m",     "%",      "°",     "度"};

bool IsLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// The unit in the words of a bracket, UTF-8. "HHmm" has one too, "Dm" none.
std::string_view UnitIn(std::string_view words)
{
    for (const std::string_view unit : kUnits)
        for (std::size_t at = words.find(unit); at != std::string_view::npos; at = words.find(unit, at + 1)) {
            const bool begins = at == 0 || !IsLetter(words[at - 1]) || unit == "mm";
            const std::size_t end = at + unit.size();
            if (begins && (end == words.size() || !IsLetter(words[end])))
                return unit;
        }
    return {};
}

std::vector<std::string> LinesOf(std::string_view text)
{
    std::vector<std::string> lines;
    while (true) {
        const std::size_t end = text.find('\n');
        lines.emplace_back(Trim(text.substr(0, end)));
        if (end == std::string_view::npos)
            return lines;
        text.remove_prefix(end + 1);
    }
}

/// A line that stands for "no such cell" or "as above".
bool SaysNothing(std::string_view line)
{
    static const std::array<std::string, 4> nothing = {"", "---", "-", Cp932("〃")};
    return std::ranges::find(nothing, line) != nothing.end();
}

/// The unit in one of the brackets of a head, UTF-8.
std::string_view UnitInBrackets(std::string_view head)
{
    constexpr std::string_view brackets = "()[]\n";
    for (std::size_t open = head.find_first_of("(["); open != std::string_view::npos;
         open = head.find_first_of("([", open + 1)) {
        const std::size_t end = std::min(head.find_first_of(brackets, open + 1), head.size());
        if (const std::string_view unit = UnitIn(head.substr(open + 1, end - open - 1)); !unit.empty())
            return unit;
    }
    return {};
}

/// The brackets that hold a unit, and single brackets around a name, taken away: "[Hi]" and "(GLc" as well. UTF-8.
std::string WithoutUnit(std::string_view line)
{
    std::string name(line);
    for (std::size_t open = name.find('('); open != std::string::npos; open = name.find('(', open + 1)) {
        const std::size_t close = name.find(')', open);
        if (!UnitInBrackets(name.substr(open, close - open)).empty()) {
            name.erase(open, close == std::string::npos ? close : close - open + 1);
            --open;
        }
    }
    constexpr std::string_view outside = "()[] ";
    while (!name.empty() && outside.find(name.front()) != std::string_view::npos)
        name.erase(0, 1);
    while (!name.empty() && outside.find(name.back()) != std::string_view::npos)
        name.pop_back();
    return name;
}

} // namespace

std::vector<ColumnHead> ColumnHeads(int block)
{
    std::vector<ColumnHead> columns;
    if (FindOptionBlock(block) != nullptr)
        return columns;
    if (const RecordPanel* record = FindRecordPanel(block)) {
        for (std::size_t i = 1; i < record->heads.size(); ++i)
            columns.push_back({record->heads[i], i < record->sectionHeads.size() ? record->sectionHeads[i] : "",
                               i < record->words.size() ? record->words[i] : WordList()});
    } else if (const PanelTable* table = FindPanelTable(block)) {
        for (std::size_t i = 1; i < table->columns.size(); ++i) {
            const PanelColumn& column = table->columns[i];
            columns.push_back({column.head, table->hasSectionHeads ? column.sectionHead : "", column.words});
        }
    }
    return columns;
}

int HeadRows(int block)
{
    if (FindRecordPanel(block) != nullptr)
        return block == 311 ? 4 : 1;
    const PanelTable* table = FindPanelTable(block);
    return table == nullptr ? 0 : table->automaticRows;
}

std::string UnitOf(std::string_view head)
{
    return Cp932(UnitInBrackets(FromCp932(head)));
}

std::vector<std::string> NamesOf(std::string_view head)
{
    std::vector<std::string> names;
    const auto add = [&](std::string name) {
        if (!name.empty() && std::ranges::find(names, name) == names.end())
            names.push_back(std::move(name));
    };
    std::string whole;
    for (const std::string& line : LinesOf(head)) {
        if (SaysNothing(line))
            continue;
        std::string name = WithoutUnit(FromCp932(line));
        // A long bracket explains the name before it: "間隔(n個,m)  [幅2,厚2,...]".
        if (const std::size_t bracket = name.find_first_of("(["); bracket != std::string::npos && bracket > 0)
            name = WithoutUnit(name.substr(0, bracket));
        whole += name;
        add(name);
    }
    add(std::move(whole));
    return names;
}

std::vector<std::string> HeadsByKind(std::string_view firstHead, std::string_view head)
{
    const std::size_t kinds = LinesOf(firstHead).size();
    std::vector<std::string> heads(kinds);
    const auto append = [](std::string& to, const std::string& line) {
        if (!to.ends_with(line))
            to += (to.empty() ? "" : " ") + line;
    };
    std::size_t lines = 0;
    std::size_t kind = 0;
    bool closed = false; // by a line of a unit alone: it and what follows belong to the name above
    for (const std::string& line : LinesOf(head)) {
        const std::string text = FromCp932(line);
        const bool unitAlone = lines > 0 && WithoutUnit(text).empty() && !UnitInBrackets(text).empty();
        closed = closed || unitAlone;
        if (lines > 0 && !closed && kind + 1 < kinds)
            ++kind;
        if (unitAlone && lines >= kinds) { // below the names of all kinds
            for (std::string& name : heads)
                if (!name.empty())
                    append(name, line);
        } else if (!SaysNothing(line)) {
            append(heads[kind], line);
        }
        ++lines;
    }
    return heads;
}

std::string OneLineHead(std::string_view head)
{
    std::vector<std::string> seen;
    std::string line;
    for (std::string& part : LinesOf(head)) {
        if (SaysNothing(part) || std::ranges::find(seen, part) != seen.end())
            continue;
        line += (line.empty() ? "" : " ") + part;
        seen.push_back(std::move(part));
    }
    return line;
}

} // namespace sbd
