#include "upperview/page/page_parser.h"

#include "project/catalogue.h"
#include "project/option_rows.h"
#include "project/text.h"
#include "upperview/page/page_link.h"
#include "upperview/page/sketch_parser.h"

#include <algorithm>
#include <charconv>

namespace sbd {

namespace {

constexpr std::string_view kQuoteStart = "@{";

void CheckLinks(const PageLine& line, const toml::node& node, int linesDown, const CPageReader& reader)
{
    for (const auto& piece : line.pieces)
        if (const auto* words = std::get_if<std::string>(&piece))
            for (const TextLink& link : LinksOf(*words))
                if (!IsLinkTarget(link.block))
                    reader.Complain(node, "a link to block " + std::to_string(link.block) + ", which does not exist",
                                    linesDown);
}

std::vector<PageLine> ParseLines(const toml::table& table, const CPageReader& reader)
{
    std::vector<PageLine> lines;
    const toml::node* node = table.get("text");
    const auto text = node == nullptr ? std::nullopt : node->value<std::string_view>();
    if (!text)
        return lines;
    std::string_view rest = *text;
    // A text of several lines begins below its quotes.
    for (int down = rest.find('\n') == std::string_view::npos ? 0 : 1; !rest.empty(); ++down) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        lines.push_back(reader.LineOf(*node, TrimRight(rest.substr(0, end)), down));
        CheckLinks(lines.back(), *node, down, reader);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return lines;
}

PageBranch ParseBranch(const toml::table& table, int block, const CPageReader& reader)
{
    reader.CheckKeys(table, {"rows", "when", "heading", "text", "red", "blue", "sketches"});
    PageBranch branch;
    branch.rows = reader.IntegersOf(table, "rows");
    branch.when = reader.ConditionOf(table);
    branch.hasHeading = table.contains("heading") || (FindOptionBlock(block) != nullptr && !branch.rows.empty());
    branch.heading = reader.TextOf(table, "heading");
    branch.lines = ParseLines(table, reader);
    branch.redLines = reader.IntegersOf(table, "red");
    branch.blueLines = reader.IntegersOf(table, "blue");
    const int lines = static_cast<int>(branch.lines.size()) + (branch.hasHeading ? 3 : 2);
    for (const std::vector<int>* indices : {&branch.redLines, &branch.blueLines})
        for (const int index : *indices)
            if (index < 0 || index >= lines)
                reader.Complain(table, "no line " + std::to_string(index) + " to colour, the last is "
                                           + std::to_string(lines - 1));
    if (const toml::array* names = table.get_as<toml::array>("sketches"))
        for (const toml::node& name : *names)
            branch.sketches.push_back(name.value_or(std::string()));
    return branch;
}

/// A number, or a text that names a value.
std::optional<PageBound> ParseBound(const toml::table& table, std::string_view key, const CPageReader& reader)
{
    const toml::node* node = table.get(key);
    if (node == nullptr)
        return std::nullopt;
    if (node->is_number())
        return *node->value<double>();
    const auto text = node->value<std::string_view>();
    const std::optional<PageOperand> operand = text ? ParseOperand(*text) : std::nullopt;
    if (!operand) {
        reader.Complain(*node, std::string(key) + " is a number or names a value");
        return std::nullopt;
    }
    return *operand;
}

PageLimit ParseLimit(const toml::table& table, const CPageReader& reader)
{
    reader.CheckKeys(table, {"col", "name", "min", "max", "when", "text"});
    PageLimit limit;
    limit.columns = reader.IntegersOf(table, "col");
    limit.least = ParseBound(table, "min", reader);
    limit.most = ParseBound(table, "max", reader);
    limit.when = reader.ConditionOf(table);
    limit.name = reader.TextOf(table, "name");
    limit.source = reader.TextOf(table, "text");
    if (limit.columns.empty() || (!table.contains("min") && !table.contains("max")))
        reader.Complain(table, "a limit needs its columns, and min or max");
    return limit;
}

} // namespace

void CPageReader::Complain(const toml::node& node, std::string message, int linesDown) const
{
    faults_->push_back({static_cast<int>(node.source().begin.line) + linesDown, std::move(message)});
}

void CPageReader::CheckKeys(const toml::table& table, std::initializer_list<std::string_view> keys) const
{
    for (const auto& [key, node] : table)
        if (std::ranges::find(keys, key.str()) == keys.end())
            Complain(node, "unknown key \"" + std::string(key.str()) + "\"");
}

std::string CPageReader::Bytes(const toml::node& node, std::string_view text, int linesDown) const
{
    Cp932Result result = ToCp932(text);
    if (result.refused) {
        Complain(node, "CP932 has no \"" + result.refused->character + "\"", linesDown);
        return {};
    }
    return std::move(result.bytes);
}

PageLine CPageReader::LineOf(const toml::node& node, std::string_view text, int linesDown) const
{
    PageLine line;
    while (!text.empty()) {
        const std::size_t start = text.find(kQuoteStart);
        if (start != 0)
            line.pieces.emplace_back(Bytes(node, text.substr(0, start), linesDown));
        if (start == std::string_view::npos)
            return line;
        text.remove_prefix(start + kQuoteStart.size());
        const std::size_t end = std::min(text.find('}'), text.size());
        if (const std::optional<PageOperand> operand = ParseOperand(text.substr(0, end)))
            line.pieces.emplace_back(*operand);
        else
            Complain(node, "no such value to quote: \"" + std::string(text.substr(0, end)) + "\"", linesDown);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return line;
}

std::string CPageReader::TextOf(const toml::table& table, std::string_view key) const
{
    const toml::node* node = table.get(key);
    if (node == nullptr)
        return {};
    const auto text = node->value<std::string_view>();
    if (!text)
        Complain(*node, std::string(key) + " is a text");
    return text ? Bytes(*node, *text) : std::string();
}

int CPageReader::IntegerOf(const toml::table& table, std::string_view key, int otherwise) const
{
    const toml::node* node = table.get(key);
    if (node == nullptr)
        return otherwise;
    if (!node->is_integer())
        Complain(*node, std::string(key) + " is a whole number");
    return node->value_or(otherwise);
}

bool CPageReader::BoolOf(const toml::table& table, std::string_view key, bool otherwise) const
{
    const toml::node* node = table.get(key);
    if (node == nullptr)
        return otherwise;
    if (!node->is_boolean())
        Complain(*node, std::string(key) + " is true or false");
    return node->value_or(otherwise);
}

std::vector<double> CPageReader::NumbersOf(const toml::table& table, std::string_view key) const
{
    std::vector<double> numbers;
    if (const toml::array* array = table.get_as<toml::array>(key))
        for (const toml::node& node : *array) {
            if (!node.is_number())
                Complain(node, std::string(key) + " holds numbers");
            numbers.push_back(node.value_or(0.0));
        }
    return numbers;
}

std::vector<int> CPageReader::IntegersOf(const toml::table& table, std::string_view key) const
{
    std::vector<int> numbers;
    const toml::node* node = table.get(key);
    if (node == nullptr)
        return numbers;
    const auto append = [&](const toml::node& part) {
        if (!part.is_integer())
            Complain(part, std::string(key) + " holds whole numbers");
        else
            numbers.push_back(part.value_or(0));
    };
    if (const toml::array* array = node->as_array())
        for (const toml::node& part : *array)
            append(part);
    else
        append(*node);
    return numbers;
}

PageCondition CPageReader::ConditionOf(const toml::table& table) const
{
    const toml::node* node = table.get("when");
    if (node == nullptr)
        return {};
    std::string fault = "a condition is a text";
    std::optional<PageCondition> condition;
    if (const auto text = node->value<std::string_view>())
        condition = ParseCondition(*text, fault);
    if (!condition)
        Complain(*node, fault);
    return condition.value_or(PageCondition());
}

ParsedPage ParsePage(std::string_view text, int block)
{
    ParsedPage parsed;
    const CPageReader reader(parsed.faults);
    const toml::parse_result result = toml::parse(text);
    if (!result) {
        parsed.faults.push_back(
            {static_cast<int>(result.error().source().begin.line), std::string(result.error().description())});
        return parsed;
    }
    const toml::table& file = result.table();
    reader.CheckKeys(file, {"title", "origin", "branch", "sketch", "limit"});
    Page& page = parsed.page;
    page.title = reader.TextOf(file, "title");
    page.originX = reader.IntegerOf(file, "origin", page.originX);
    if (const toml::array* branches = file.get_as<toml::array>("branch"))
        for (const toml::node& node : *branches)
            if (const toml::table* table = node.as_table())
                page.branches.push_back(ParseBranch(*table, block, reader));
    if (const toml::array* limits = file.get_as<toml::array>("limit"))
        for (const toml::node& node : *limits)
            if (const toml::table* table = node.as_table())
                page.limits.push_back(ParseLimit(*table, reader));
    if (const toml::table* sketches = file.get_as<toml::table>("sketch"))
        for (const auto& [name, node] : *sketches)
            if (const toml::table* table = node.as_table())
                page.sketches.emplace(std::string(name.str()), ParseSketch(*table, reader));
    return parsed;
}

std::vector<int> BlocksOfFileName(std::string_view name)
{
    std::vector<int> blocks;
    name = name.substr(0, name.rfind('.'));
    while (!name.empty()) {
        const std::size_t end = std::min(name.find('_'), name.size());
        const std::string_view range = name.substr(0, end);
        const char* const last = range.data() + range.size();
        int from = 0;
        const auto first = std::from_chars(range.data(), last, from);
        if (first.ec != std::errc())
            return {};
        int to = from;
        if (first.ptr != last) {
            const auto second = std::from_chars(first.ptr + 1, last, to);
            if (*first.ptr != '-' || second.ec != std::errc() || second.ptr != last)
                return {};
        }
        for (int block = from; block <= to && block < 1000; ++block)
            blocks.push_back(block);
        name.remove_prefix(std::min(end + 1, name.size()));
    }
    return blocks;
}

} // namespace sbd
