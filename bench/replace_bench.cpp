// One replace over a whole project, and the import of a table, against the bare change of the same cells: set in the
// models of their blocks and written to the data. The limits stand in docs/performance.md.
#include "bench/baseline.h"
#include "bench/generated_project.h"
#include "panelmodel/replace.h"
#include "panelmodel/table_import.h"
#include "project/text.h"

#include <memory>
#include <string>
#include <vector>

namespace sbd::bench {

namespace {

constexpr int kBlock = 313;
constexpr std::string_view kWords[] = {"SM490Y", "SM520C"};

ShortestTimes bareTimes;
ShortestTimes replaceTimes;
ShortestTimes bareImportTimes;
ShortestTimes importTimes;

FindRequest RequestOf(bool back)
{
    FindRequest request;
    request.wanted = kWords[back ? 1 : 0];
    request.by = std::string(kWords[back ? 0 : 1]);
    return request;
}

/// The cells are known; each block gets its model, its texts, and is written.
void BM_BareChangeOfCells(benchmark::State& state)
{
    CSbdData data = ProjectOfMegabytes(static_cast<std::size_t>(state.range(0))).data;
    std::vector<CellHit> hits = FindCells(data, RequestOf(false));
    bool back = false;
    Measure(state, bareTimes, [&] {
        std::size_t i = 0;
        while (i < hits.size()) {
            const int block = hits[i].block;
            const std::unique_ptr<CPanelModel> panel = MakePanelModel(data, block);
            for (; i < hits.size() && hits[i].block == block; ++i)
                panel->SetCell(hits[i].row, hits[i].column, back ? hits[i].before : hits[i].after);
            (void)CommitPanel(*panel, data);
        }
        back = !back;
        return i;
    });
    state.counters["cells"] = static_cast<double>(hits.size());
}

/// From the two texts to the changed project: found, judged, replaced.
void BM_ReplaceInProject(benchmark::State& state)
{
    CSbdData data = ProjectOfMegabytes(static_cast<std::size_t>(state.range(0))).data;
    bool back = false;
    std::size_t cells = 0;
    Measure(state, replaceTimes, [&] {
        const std::vector<CellHit> hits = FindCells(data, RequestOf(back));
        back = !back;
        cells = hits.size();
        CProjectWriter writer(data);
        (void)ReplaceCells(writer, hits);
        return writer.TakeChanges();
    });
    state.counters["cells"] = static_cast<double>(cells);
    state.counters["times_bare"] = replaceTimes.Of(state.range(0)) / bareTimes.Of(state.range(0));
}

std::string TableOf(std::int64_t rows)
{
    std::string text;
    for (std::int64_t row = 0; row < rows; ++row)
        text += "G1,G4,C" + std::to_string(row) + ",A2," + Cp932("両面") + ",110,9,2,"
                + std::to_string(1000 + row % 700) + " 1250 1250.5\r\n";
    return text;
}

void BM_BareImport(benchmark::State& state)
{
    const std::string text = TableOf(state.range(0));
    const TextTable table = ReadTextTable(text, TextCode::Cp932, TableSeparator::Comma);
    Measure(state, bareImportTimes, [&] {
        auto data = std::make_unique<CSbdData>();
        const std::unique_ptr<CPanelModel> panel = MakePanelModel(*data, kBlock);
        panel->AddRows(static_cast<int>(table.rows.size()));
        int row = 2;
        for (const std::vector<std::string>& cells : table.rows) {
            for (std::size_t column = 0; column < cells.size(); ++column)
                panel->SetCell(row, static_cast<int>(column) + 1, cells[column]);
            ++row;
        }
        (void)CommitPanel(*panel, *data);
        return data;
    });
}

/// From the bytes of the file to the changed project, the look at what would not fit included.
void BM_ImportTable(benchmark::State& state)
{
    const std::string text = TableOf(state.range(0));
    Measure(state, importTimes, [&] {
        auto data = std::make_unique<CSbdData>();
        const TextTable table = ReadTextTable(text, TextCode::Cp932, GuessSeparator(text));
        const std::unique_ptr<CPanelModel> panel = MakePanelModel(*data, kBlock);
        const std::vector<CellEntry> cells = ImportedCells(table, ProposedImport(*panel, table));
        const std::unique_ptr<CPanelModel> tried = MakePanelModel(*data, kBlock);
        (void)CPanelEditor(*tried).PutCells(EditCommand::Import, cells);
        (void)CPanelEditor(*panel).PutCells(EditCommand::Import, cells);
        (void)CommitPanel(*panel, *data);
        return data;
    });
    state.counters["times_bare"] = importTimes.Of(state.range(0)) / bareImportTimes.Of(state.range(0));
}

// The baseline first: the ratio is taken from the times measured so far.
BENCHMARK(BM_BareChangeOfCells)->ArgName("MB")->Arg(1)->Arg(10)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReplaceInProject)->ArgName("MB")->Arg(1)->Arg(10)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BareImport)->ArgName("rows")->Arg(10'000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ImportTable)->ArgName("rows")->Arg(10'000)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

} // namespace sbd::bench
