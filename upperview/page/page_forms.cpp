// The projects in which a page takes its forms.
#include "project/catalogue.h"
#include "project/text.h"
#include "upperview/page/page_report.h"

#include <algorithm>
#include <set>

namespace sbd {

namespace {

constexpr int kRows = 4;

TableBlock& TableWithRows(CSbdData& data, int block, std::size_t rows)
{
    TableBlock& table = *data.Table(block);
    while (table.RowCount() < rows)
        table.AppendRow({});
    return table;
}

CSbdData FilledProject(int block)
{
    CSbdData data;
    if (data.Table(block) != nullptr)
        for (CColumnVector& column : TableWithRows(data, block, kRows).columns)
            for (std::size_t row = 0; row < kRows; ++row)
                column.Set(row, "1250");
    return data;
}

void SetColumn(CSbdData& data, int block, int column, std::string_view text)
{
    if (data.Table(block) == nullptr)
        return;
    TableBlock& table = TableWithRows(data, block, kRows);
    if (static_cast<std::size_t>(column) <= table.columns.size())
        for (std::size_t row = 0; row < table.RowCount(); ++row)
            table.columns[static_cast<std::size_t>(column - 1)].Set(row, text);
}

/// Puts a text where an operand reads; what cannot be put in is left.
void SetValue(CSbdData& data, int block, const PageOperand& operand, std::string_view text)
{
    const auto row = static_cast<std::size_t>(operand.row - 1);
    switch (operand.kind) {
    case PageOperand::Kind::Option:
        data.SetOption(operand.block, row, text);
        break;
    case PageOperand::Kind::Cell:
        if (data.Table(operand.block) != nullptr)
            TableWithRows(data, operand.block, row + 1)
                .columns[static_cast<std::size_t>(operand.column - 1)]
                .Set(row, text);
        break;
    case PageOperand::Kind::CurrentCell:
        SetColumn(data, block, operand.column, text);
        break;
    case PageOperand::Kind::FlangeType:
        data.hGirder.types[row] = text;
        break;
    case PageOperand::Kind::Rows:
        if (data.Table(operand.block) != nullptr)
            TableWithRows(data, operand.block, kRows);
        break;
    default:
        break;
    }
}

/// The texts for which a test holds, if its word says one.
std::vector<std::string> TextsFor(const PageTest& test)
{
    using Operator = PageTest::Operator;
    switch (test.op) {
    case Operator::Equal:
    case Operator::Starts:
    case Operator::Contains:
    case Operator::AtLeast:
    case Operator::AtMost:
        return {test.word};
    case Operator::In: {
        std::vector<std::string> words;
        for (const std::string_view word : SplitWords(test.word))
            words.emplace_back(word);
        return words;
    }
    case Operator::Empty:
        return {std::string()};
    default:
        return {};
    }
}

std::vector<const PageCondition*> ConditionsOf(const Page& page)
{
    std::vector<const PageCondition*> conditions;
    for (const PageBranch& branch : page.branches)
        conditions.push_back(&branch.when);
    for (const auto& [name, sketch] : page.sketches) {
        conditions.push_back(&sketch.when);
        for (const SketchElement& element : sketch.elements)
            conditions.push_back(&element.when);
    }
    return conditions;
}

} // namespace

std::vector<CSbdData> FormsOf(const Page& page, int block)
{
    std::vector<CSbdData> forms = {CSbdData(), FilledProject(block)};
    std::set<std::string> seen;
    for (const PageCondition* condition : ConditionsOf(page)) {
        if (condition->tests.empty() || !seen.insert(condition->source).second)
            continue;
        const bool byPlaceAlone = std::ranges::all_of(condition->tests, [](const PageTest& test) {
            return test.operand.kind >= PageOperand::Kind::Block || test.operand.kind == PageOperand::Kind::Search;
        });
        if (byPlaceAlone)
            continue;
        std::size_t choices = 1;
        for (const PageTest& test : condition->tests)
            choices = std::max(choices, TextsFor(test).size());
        for (std::size_t choice = 0; choice < choices; ++choice) {
            CSbdData& form = forms.emplace_back(FilledProject(block));
            for (const PageTest& test : condition->tests)
                if (const std::vector<std::string> texts = TextsFor(test); !texts.empty())
                    SetValue(form, block, test.operand, texts[std::min(choice, texts.size() - 1)]);
        }
    }
    return forms;
}

} // namespace sbd
