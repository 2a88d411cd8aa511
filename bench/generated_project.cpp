#include "bench/generated_project.h"

#include "project/block_rules.h"
#include "project/text.h"
#include "sbdfile/layout.h"
#include "sbdfile/writer.h"

#include <cstdint>
#include <map>
#include <random>
#include <vector>

namespace sbd::bench {

namespace {

using namespace literals;

/// Cells as they stand in real projects: two girders, two cross beams, then numbers with some words between.
class CellMaker {
public:
    [[nodiscard]] std::string Cell(std::size_t column)
    {
        if (column < 2)
            return "G" + std::to_string(1 + Below(8));
        if (column < 4)
            return "C" + std::to_string(1 + Below(120));
        switch (Below(8)) {
        case 0:
            return words_[Below(words_.size())];
        case 1:
            return std::to_string(Below(10));
        case 2:
        case 3:
            return std::to_string(Below(40)) + "." + std::to_string(100 + Below(900));
        default:
            return std::to_string(10 + Below(3000));
        }
    }

private:
    [[nodiscard]] std::size_t Below(std::size_t limit) { return random_() % limit; }

    std::mt19937 random_{20051205};
    std::vector<std::string> words_ = {"自動"_cp932,  "SM490Y"_cp932,    "SS400"_cp932,    "内面"_cp932,
                                       "1段目"_cp932, "M22(S10T)"_cp932, "全孔引き"_cp932, "桁高に含まない"_cp932};
};

void AppendRow(TableBlock& table, std::size_t columns, CellMaker& cells)
{
    std::vector<std::string> row;
    for (std::size_t column = 0; column < columns; ++column)
        row.push_back(cells.Cell(column));
    table.AppendRow({row.begin(), row.end()});
}

/// `rows` rows in each table block that the plain rule writes.
CSbdData FilledProject(std::size_t rows)
{
    CSbdData data;
    CellMaker cells;
    for (const SectionLayout& layout : SectionLayouts()) {
        TableBlock* table = data.Table(layout.block);
        if (table == nullptr || layout.rule != RowRule::ShortestThatHolds || !HeadRowsOf(layout.block).empty())
            continue;
        if (const ControlRowRule* control = ControlRowOf(layout.block))
            table->AppendRow({control->cells.begin(), control->cells.end()});
        for (std::size_t row = 0; row < rows; ++row)
            AppendRow(*table, layout.formats.back().fields.size(), cells);
    }
    data.Shrink();
    return data;
}

std::size_t TextSize(std::size_t rows)
{
    CSbdData data = FilledProject(rows);
    return WriteProject(data).size();
}

} // namespace

GeneratedProject MakeProject(std::size_t bytes)
{
    constexpr std::size_t sample = 20;
    const std::size_t empty = TextSize(0);
    const std::size_t bytesOfRow = (TextSize(sample) - empty) / sample;
    GeneratedProject project;
    project.data = FilledProject((bytes - std::min(empty, bytes)) / bytesOfRow);
    project.text = WriteProject(project.data);
    return project;
}

const GeneratedProject& ProjectOfMegabytes(std::size_t megabytes)
{
    static std::map<std::size_t, GeneratedProject> made;
    const auto found = made.find(megabytes);
    return found != made.end() ? found->second
                               : made.emplace(megabytes, MakeProject(megabytes * 1'000'000)).first->second;
}

} // namespace sbd::bench
