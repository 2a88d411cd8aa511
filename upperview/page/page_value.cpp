#include "upperview/page/page_value.h"

#include "project/catalogue.h"
#include "project/option_rows.h"
#include "project/panel_columns.h"
#include "project/sbd_data.h"
#include "project/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace sbd {

namespace {

constexpr int kFlangeTypes = 4;

/// The parts of `text` between colons.
std::vector<std::string_view> Parts(std::string_view text)
{
    std::vector<std::string_view> parts;
    while (true) {
        const std::size_t colon = text.find(':');
        parts.push_back(text.substr(0, colon));
        if (colon == std::string_view::npos)
            return parts;
        text.remove_prefix(colon + 1);
    }
}

/// A whole number from 1 and nothing else.
std::optional<int> Number(std::string_view text)
{
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number < 1)
        return std::nullopt;
    return number;
}

/// Columns of a block's table in the document.
int StoredColumns(int block)
{
    const CatalogueRow* row = FindBlock(block);
    return row == nullptr ? 0 : row->columns;
}

bool HasRows(int block)
{
    return FindOptionBlock(block) != nullptr || GridColumns(block) > 0;
}

/// The item at `index`, or an empty one.
template <typename Items>
typename Items::value_type ItemAt(const Items& items, int index)
{
    const auto i = static_cast<std::size_t>(index);
    return index >= 0 && i < items.size() ? items[i] : typename Items::value_type{};
}

std::string SpacingText(const RibSpacing& spacing, int count)
{
    std::string text = spacing.word;
    for (int i = 0; spacing.word.empty() && i < count; ++i)
        text += (i == 0 ? "" : ", ") + NumberCell(spacing.At(static_cast<std::size_t>(i)));
    return text;
}

/// A cell of 311: four rows of types, then the records.
std::string HeightText(const HGirder& girder, int row, int column)
{
    constexpr int typeRows = 4;
    constexpr int names = 4;
    if (row <= typeRows)
        return column == 2 ? ItemAt(girder.types, row - 1) : std::string();
    if (row - typeRows > static_cast<int>(girder.records.size()))
        return {};
    const HGirderRecord& record = girder.records[static_cast<std::size_t>(row - typeRows - 1)];
    if (column <= names)
        return ItemAt(record.names, column - 1);
    const int number = column - names - 1;
    return number < static_cast<int>(record.numbers.size()) ? NumberCell(ItemAt(record.numbers, number)) : "";
}

/// A cell of 324, row 1 (the automatic row) left out.
std::string CrossRibText(const std::vector<CrossRibRecord>& records, int row, int column)
{
    if (row < 2 || row - 1 > static_cast<int>(records.size()))
        return {};
    const CrossRibRecord& record = records[static_cast<std::size_t>(row - 2)];
    if (column <= 5)
        return ItemAt(record.names, column - 1);
    if (column <= 9)
        return NumberCell(ItemAt(record.sizes, column - 6));
    if (column == 10)
        return std::to_string(record.n);
    return column <= 12 ? SpacingText(column == 11 ? record.left : record.right, record.n) : std::string();
}

/// A cell of 325, row 1 left out.
std::string LongRibText(const std::vector<LRibRecord>& records, int row, int column)
{
    if (row < 2 || row - 1 > static_cast<int>(records.size()))
        return {};
    const LRibRecord& record = records[static_cast<std::size_t>(row - 2)];
    if (column <= 5)
        return ItemAt(record.names, column - 1);
    if (column <= 7)
        return std::to_string(column == 6 ? record.n1 : record.n2);
    return column == 8 ? SpacingText(record.left, record.n1) : SpacingText(record.right, record.n2);
}

/// A cell of 501 or 702, row 1 left out.
std::string NameText(const NameLists& names, int row, int column)
{
    return ItemAt(ItemAt(names.lists, column - 1), row - 2);
}

std::optional<PageOperand> ParseNamed(std::string_view name, std::span<const std::string_view> rest)
{
    using Kind = PageOperand::Kind;
    PageOperand operand;
    if (rest.empty()) {
        static constexpr std::array<std::pair<std::string_view, Kind>, 4> plain = {
            {{"block", Kind::Block}, {"row", Kind::Row}, {"column", Kind::Column}, {"search", Kind::Search}}};
        for (const auto& [word, kind] : plain)
            if (word == name) {
                operand.kind = kind;
                return operand;
            }
        return std::nullopt;
    }
    const std::optional<int> number = Number(rest.front());
    if (!number || rest.size() != 1)
        return std::nullopt;
    if (name == "cell") {
        operand.kind = Kind::CurrentCell;
        operand.column = *number;
        return operand;
    }
    if (name == "types" && *number <= kFlangeTypes) {
        operand.kind = Kind::FlangeType;
        operand.row = *number;
        return operand;
    }
    if (name == "rows" && HasRows(*number)) {
        operand.kind = Kind::Rows;
        operand.block = *number;
        return operand;
    }
    return std::nullopt;
}

std::optional<PageOperand> ParseNumbered(int block, std::span<const std::string_view> rest)
{
    PageOperand operand;
    operand.block = block;
    const std::optional<int> row = rest.empty() ? std::nullopt : Number(rest[0]);
    if (!row)
        return std::nullopt;
    operand.row = *row;
    if (const OptionBlock* options = FindOptionBlock(block)) {
        if (rest.size() != 1 || static_cast<std::size_t>(*row) > options->rows.size())
            return std::nullopt;
        return operand;
    }
    const std::optional<int> column = rest.size() == 2 ? Number(rest[1]) : std::nullopt;
    if (!column || *column > StoredColumns(block))
        return std::nullopt;
    operand.kind = PageOperand::Kind::Cell;
    operand.column = *column;
    return operand;
}

/// Takes the text up to the next blank off `rest`, and the blanks behind it.
std::string_view TakeWord(std::string_view& rest)
{
    const std::string_view word = rest.substr(0, std::min(rest.find(' '), rest.size()));
    rest.remove_prefix(word.size());
    rest = TrimLeft(rest);
    return word;
}

std::optional<PageTest> ParseTest(std::string_view text, std::string& fault)
{
    using Operator = PageTest::Operator;
    static constexpr std::array<std::pair<std::string_view, Operator>, 12> operators = {
        {{"=", Operator::Equal},
         {"!=", Operator::Unequal},
         {"<", Operator::Below},
         {">=", Operator::AtLeast},
         {">", Operator::Above},
         {"<=", Operator::AtMost},
         {"starts", Operator::Starts},
         {"contains", Operator::Contains},
         {"in", Operator::In},
         {"notin", Operator::NotIn},
         {"empty", Operator::Empty},
         {"filled", Operator::Filled}}};
    std::string_view rest = Trim(text);
    const std::string_view operand = TakeWord(rest);
    const std::string_view op = TakeWord(rest);
    PageTest test;
    const std::optional<PageOperand> parsed = ParseOperand(operand);
    if (!parsed) {
        fault = "no such value: \"" + std::string(operand) + "\"";
        return std::nullopt;
    }
    test.operand = *parsed;
    const auto found = std::ranges::find(operators, op, &std::pair<std::string_view, Operator>::first);
    if (found == operators.end()) {
        fault = "no such comparison: \"" + std::string(op) + "\"";
        return std::nullopt;
    }
    test.op = found->second;
    if ((test.op >= Operator::Empty) != rest.empty()) {
        fault = "a comparison needs a word behind it, empty and filled need none: \"" + std::string(text) + "\"";
        return std::nullopt;
    }
    Cp932Result word = ToCp932(rest);
    if (word.refused) {
        fault = "CP932 has no \"" + word.refused->character + "\"";
        return std::nullopt;
    }
    test.word = std::move(word.bytes);
    return test;
}

bool IsAmong(std::string_view text, std::string_view words)
{
    while (true) {
        const std::size_t comma = words.find(',');
        if (Trim(words.substr(0, comma)) == text)
            return true;
        if (comma == std::string_view::npos)
            return false;
        words.remove_prefix(comma + 1);
    }
}

template <typename Value>
bool Compares(const Value& left, PageTest::Operator op, const Value& right)
{
    switch (op) {
    case PageTest::Operator::Equal:
        return left == right;
    case PageTest::Operator::Unequal:
        return left != right;
    case PageTest::Operator::Below:
        return left < right;
    case PageTest::Operator::Above:
        return left > right;
    case PageTest::Operator::AtMost:
        return left <= right;
    default:
        return left >= right;
    }
}

} // namespace

std::string CellText(const CSbdData& data, int block, int row, int column)
{
    if (row < 1 || column < 1)
        return {};
    if (block == 311)
        return HeightText(data.hGirder, row, column);
    if (block == 324)
        return CrossRibText(data.crossRibs, row, column);
    if (block == 325)
        return LongRibText(data.lRibs, row, column);
    if (const NameLists* names = data.Names(block))
        return NameText(*names, row, column);
    const auto r = static_cast<std::size_t>(row - 1);
    if (data.Options(block) != nullptr)
        return std::string(data.Option(block, r));
    const TableBlock* table = data.Table(block);
    const auto c = static_cast<std::size_t>(column - 1);
    if (table == nullptr || c >= table->columns.size() || r >= table->columns[c].size())
        return {};
    return std::string(table->columns[c][r]);
}

int GridColumns(int block)
{
    if (FindOptionBlock(block) != nullptr)
        return 2;
    if (const RecordPanel* record = FindRecordPanel(block))
        return static_cast<int>(record->heads.size()) - 1;
    const PanelTable* table = FindPanelTable(block);
    return table == nullptr ? 0 : static_cast<int>(table->columns.size()) - 1;
}

std::optional<double> WholeNumber(std::string_view text)
{
    text = Trim(text);
    constexpr std::string_view figures = "0123456789.+-eE";
    return text.find_first_not_of(figures) == std::string_view::npos ? LeadingNumber(text) : std::nullopt;
}

int PageOperand::Number(const PageView& view) const
{
    switch (kind) {
    case Kind::Rows:
        return static_cast<int>(view.data.RowCount(block));
    case Kind::Block:
        return view.block;
    case Kind::Row:
        return view.row;
    case Kind::Column:
        return view.column;
    default:
        return 0;
    }
}

std::string PageOperand::Text(const PageView& view) const
{
    std::string text;
    switch (kind) {
    case Kind::Option:
        text = view.data.Option(block, static_cast<std::size_t>(row - 1));
        break;
    case Kind::Cell:
        text = CellText(view.data, block, row, column);
        break;
    case Kind::CurrentCell:
        text = CellText(view.data, view.block, view.row, column);
        break;
    case Kind::Search:
        text = view.searchText;
        break;
    case Kind::FlangeType:
        text = view.data.hGirder.types[static_cast<std::size_t>(row - 1)];
        break;
    default:
        text = std::to_string(Number(view));
    }
    if (word > 0) {
        const std::vector<std::string_view> words = SplitWords(text);
        text = static_cast<std::size_t>(word) <= words.size() ? std::string(words[static_cast<std::size_t>(word - 1)])
                                                              : std::string();
    }
    if (bytes > 0 && text.size() > static_cast<std::size_t>(bytes))
        text.resize(static_cast<std::size_t>(bytes));
    return text;
}

bool PageTest::Holds(const PageView& view) const
{
    if (operand.IsNumber() && op <= Operator::AtMost)
        return Compares(operand.Number(view), op, LeadingInteger(word));
    const std::string text = operand.Text(view);
    switch (op) {
    case Operator::Starts:
        return text.starts_with(word);
    case Operator::Contains:
        return text.find(word) != std::string::npos;
    case Operator::In:
        return IsAmong(Trim(text), word);
    case Operator::NotIn:
        return !IsAmong(Trim(text), word);
    case Operator::Empty:
        return Trim(text).empty();
    case Operator::Filled:
        return !Trim(text).empty();
    default:
        if (const std::optional<double> left = WholeNumber(text), right = WholeNumber(word); left && right)
            return Compares(*left, op, *right);
        return Compares(Trim(text), op, Trim(word)); // char_traits compares bytes as unsigned
    }
}

bool PageCondition::Holds(const PageView& view) const
{
    return std::ranges::all_of(tests, [&](const PageTest& test) { return test.Holds(view); });
}

std::optional<PageOperand> ParseOperand(std::string_view text)
{
    /// Takes the number behind a sign off the end of the text; nothing if it is none.
    const auto takeBehind = [&text](char sign) -> std::optional<int> {
        const std::size_t at = text.find(sign);
        if (at == std::string_view::npos)
            return 0;
        const std::optional<int> number = Number(text.substr(at + 1));
        text = text.substr(0, at);
        return number;
    };
    const std::optional<int> bytes = takeBehind('/');
    const std::optional<int> word = takeBehind('#');
    if (!bytes || !word)
        return std::nullopt;
    const std::vector<std::string_view> parts = Parts(text);
    const std::span<const std::string_view> rest = std::span(parts).subspan(1);
    const std::optional<int> block = Number(parts.front());
    std::optional<PageOperand> operand = block ? ParseNumbered(*block, rest) : ParseNamed(parts.front(), rest);
    if (operand) {
        operand->bytes = *bytes;
        operand->word = *word;
    }
    return operand;
}

std::optional<PageCondition> ParseCondition(std::string_view text, std::string& fault)
{
    constexpr std::string_view joint = " and ";
    PageCondition condition;
    condition.source = text;
    while (true) {
        const std::size_t end = text.find(joint);
        const std::optional<PageTest> test = ParseTest(text.substr(0, end), fault);
        if (!test)
            return std::nullopt;
        condition.tests.push_back(*test);
        if (end == std::string_view::npos)
            return condition;
        text.remove_prefix(end + joint.size());
    }
}

} // namespace sbd
