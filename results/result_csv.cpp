#include "results/result_csv.h"

#include "project/text.h"
#include "results/figure_heading.h"
#include "results/result_title.h"

#include <algorithm>

namespace sbd {

namespace {

void AppendCell(std::string& line, std::string text)
{
    if (text.find_first_of(",\"\n") != std::string::npos) {
        std::string quoted = "\"";
        for (const char character : text)
            quoted += character == '"' ? std::string("\"\"") : std::string(1, character);
        text = quoted + '"';
    }
    line += text;
}

} // namespace

std::vector<std::string> TableHeadLines(const CResultTable& table, const ResultSelection& selection,
                                        const ResultState& state)
{
    std::vector<std::string> lines{TableTitle(selection)};
    for (std::string line : {OriginText(state), StaleLine(state), table.FaultLine()})
        if (!line.empty())
            lines.push_back(std::move(line));
    return lines;
}

std::size_t FilledRows(const CResultTable& table)
{
    return table.RowCount() > 0 ? kFirstValueRow + table.RowCount() : std::min<std::size_t>(table.GridRowCount(), 1);
}

std::string HeadWithUnit(const CResultTable& table, std::size_t gridColumn)
{
    const std::string unit = table.Unit(gridColumn);
    std::string head(Trim(table.CellText(0, gridColumn)));
    return unit.empty() ? head : head + " [" + unit + "]";
}

bool IsWanted(const TableProgress& progress, std::size_t done, std::size_t all)
{
    constexpr std::size_t step = 256;
    return !progress || (done % step != 0 && done != all) || progress(done, all);
}

std::string CsvOfTable(const CResultTable& table, const ResultSelection& selection, const ResultState& state)
{
    return CsvOfTable(table, selection, state, {}).value_or(std::string());
}

std::optional<std::string> CsvOfTable(const CResultTable& table, const ResultSelection& selection,
                                      const ResultState& state, const TableProgress& progress)
{
    std::string text = "\xEF\xBB\xBF";
    for (const std::string& line : TableHeadLines(table, selection, state)) {
        AppendCell(text, FromCp932(line));
        text += "\r\n";
    }
    const std::size_t rows = FilledRows(table);
    for (std::size_t row = 0; row < rows; ++row) {
        if (!IsWanted(progress, row + 1, rows))
            return std::nullopt;
        for (std::size_t column = kNameColumn; column < table.GridColumnCount(); ++column) {
            if (column > kNameColumn)
                text += ',';
            AppendCell(text, FromCp932(row == 0 ? HeadWithUnit(table, column)
                                                : std::string(Trim(table.CellText(row, column)))));
        }
        text += "\r\n";
    }
    return text;
}

} // namespace sbd
