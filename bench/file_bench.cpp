// Reading and writing a project file against what the work costs at least. The limits stand in docs/performance.md.
#include "bench/baseline.h"
#include "bench/generated_project.h"
#include "sbdfile/layout.h"
#include "sbdfile/reader.h"
#include "sbdfile/writer.h"

namespace sbd::bench {

namespace {

ShortestTimes splitTimes;
ShortestTimes readTimes;
ShortestTimes appendTimes;
ShortestTimes writeTimes;

const GeneratedProject& ProjectOf(const benchmark::State& state)
{
    return ProjectOfMegabytes(static_cast<std::size_t>(state.range(0)));
}

/// Lines by line feed, words by blank: what any reader of such a file does, and nothing kept.
std::size_t CountWords(std::string_view text)
{
    std::size_t words = 0;
    while (!text.empty()) {
        const std::size_t lineEnd = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, lineEnd);
        text.remove_prefix(std::min(lineEnd + 1, text.size()));
        while (!line.empty()) {
            const std::size_t begin = std::min(line.find_first_not_of(' '), line.size());
            line.remove_prefix(begin);
            const std::size_t end = std::min(line.find(' '), line.size());
            words += end > 0 ? 1 : 0;
            line.remove_prefix(end);
        }
    }
    return words;
}

/// The cells of all tables, line by line, without padding, heads or comments.
std::string AppendCells(const CSbdData& data)
{
    std::string out;
    for (const SectionLayout& layout : SectionLayouts()) {
        const TableBlock* table = data.Table(layout.block);
        if (table == nullptr)
            continue;
        for (std::size_t row = 0; row < table->RowCount(); ++row) {
            for (const CColumnVector& column : table->columns)
                out.append(column[row]);
            out.append("\r\n");
        }
    }
    return out;
}

CSbdData Read(std::string_view text)
{
    CSbdData data;
    ReadProject(text, data);
    return data;
}

void BM_BareSplit(benchmark::State& state)
{
    const std::string& text = ProjectOf(state).text;
    Measure(state, splitTimes, [&] { return CountWords(text); });
    CountBytes(state, text.size());
}

void BM_ReadProject(benchmark::State& state)
{
    const std::string& text = ProjectOf(state).text;
    Measure(state, readTimes, [&] { return Read(text); });
    CountBytes(state, text.size());
    state.counters["times_bare"] = readTimes.Of(state.range(0)) / splitTimes.Of(state.range(0));

    const std::size_t heapBefore = HeapInUse();
    const CSbdData data = Read(text);
    const double size = static_cast<double>(text.size());
    state.counters["held_per_byte"] = static_cast<double>(data.MemoryUsed()) / size;
    state.counters["heap_per_byte"] = static_cast<double>(HeapInUse() - heapBefore) / size;
}

void BM_AppendCells(benchmark::State& state)
{
    const CSbdData& data = ProjectOf(state).data;
    Measure(state, appendTimes, [&] { return AppendCells(data); });
    CountBytes(state, ProjectOf(state).text.size());
}

void BM_WriteProject(benchmark::State& state)
{
    CSbdData data = ProjectOf(state).data;
    Measure(state, writeTimes, [&] { return WriteProject(data); });
    CountBytes(state, ProjectOf(state).text.size());
    state.counters["times_bare"] = writeTimes.Of(state.range(0)) / appendTimes.Of(state.range(0));
}

void Sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->ArgName("MB")->Arg(1)->Arg(10)->Arg(100)->UseManualTime()->Unit(benchmark::kMillisecond);
}

// The baseline first: the ratio is taken from the times measured so far.
BENCHMARK(BM_BareSplit)->Apply(Sizes);
BENCHMARK(BM_ReadProject)->Apply(Sizes);
BENCHMARK(BM_AppendCells)->Apply(Sizes);
BENCHMARK(BM_WriteProject)->Apply(Sizes);

} // namespace

} // namespace sbd::bench
