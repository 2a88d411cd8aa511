#include "panelmodel/table_import.h"

#include "panelmodel/text_match.h"
#include "project/text.h"

#include <algorithm>

namespace sbd {

namespace {

/// A head as people write it: one line.
std::string HeadText(const CPanelModel& panel, int column)
{
    return std::string(Trim(CellLine(panel.Head(column))));
}

bool SameText(const std::string& a, const std::string& b)
{
    return a == b || CTextMatcher(b, {true, true, true}).IsIn(a);
}

} // namespace

int AppendRowOf(const CPanelModel& panel)
{
    return std::max(panel.BlockRows(), panel.FixedRows()) + 1;
}

ImportPlan ProposedImport(const CPanelModel& panel, const TextTable& table)
{
    ImportPlan plan;
    plan.targets.assign(table.columns, 0);
    plan.row = AppendRowOf(panel);
    if (!table.rows.empty()) {
        const std::vector<std::string>& first = table.rows.front();
        std::vector<char> taken(static_cast<std::size_t>(panel.ColumnCount()), 0);
        for (std::size_t i = 0; i < first.size(); ++i) {
            const std::string text(Trim(CellLine(first[i])));
            for (int column = 1; column < panel.ColumnCount() && !text.empty(); ++column) {
                char& isTaken = taken[static_cast<std::size_t>(column)];
                if (isTaken || !SameText(HeadText(panel, column), text))
                    continue;
                isTaken = 1;
                plan.targets[i] = column;
                plan.hasHeads = true;
                break;
            }
        }
    }
    if (!plan.hasHeads)
        for (std::size_t i = 0; i < plan.targets.size() && static_cast<int>(i) + 1 < panel.ColumnCount(); ++i)
            plan.targets[i] = static_cast<int>(i) + 1;
    return plan;
}

std::vector<CellEntry> ImportedCells(const TextTable& table, const ImportPlan& plan)
{
    std::vector<CellEntry> cells;
    int row = plan.row;
    for (std::size_t i = plan.hasHeads ? 1 : 0; i < table.rows.size(); ++i, ++row)
        for (std::size_t column = 0; column < table.rows[i].size() && column < plan.targets.size(); ++column)
            if (plan.targets[column] > 0)
                cells.push_back({{row, plan.targets[column]}, table.rows[i][column]});
    return cells;
}

std::string ExportedText(const CPanelModel& panel, const ExportPlan& plan)
{
    std::string text;
    std::vector<std::string> line;
    if (plan.heads) {
        for (int column = 1; column < panel.ColumnCount(); ++column)
            line.push_back(HeadText(panel, column));
        text += CsvLine(line);
    }
    for (int row = plan.fixedRows ? 1 : panel.FixedRows() + 1; row <= panel.BlockRows(); ++row) {
        line.clear();
        for (int column = 1; column < panel.ColumnCount(); ++column)
            line.push_back(panel.Text(row, column));
        text += CsvLine(line);
    }
    return plan.code == TextCode::Utf8 ? "\xEF\xBB\xBF" + FromCp932(text) : text;
}

} // namespace sbd
