// What is told of a project in memory, beside one write and one read of the same. The limits stand in docs/performance.md.
#include "bench/baseline.h"
#include "bench/generated_project.h"
#include "bench/long_bridge.h"
#include "check/doubts.h"
#include "check/drawing_doubts.h"
#include "check/read_back.h"
#include "panelmodel/panel_editor.h"
#include "sbdfile/project_file.h"
#include "sbdfile/reader.h"
#include "sbdfile/writer.h"
#include "tests/surroundings.h"

namespace sbd::bench {

namespace {

ShortestTimes tripTimes;
ShortestTimes wholeTimes;
ShortestTimes editTripTimes;
ShortestTimes editTimes;
ShortestTimes doubtTimes;
ShortestTimes drawingTimes;

/// 0: the sample plate4; else a project of so many megabytes.
const CSbdData& ProjectOf(const benchmark::State& state)
{
    if (state.range(0) > 0)
        return ProjectOfMegabytes(static_cast<std::size_t>(state.range(0))).data;
    static const CSbdData sample = [] {
        CSbdData data;
        const std::filesystem::path path = std::filesystem::path(test::ExamplesFolder()) / "plate4" / "plate4.sbd";
        static_cast<void>(LoadProject(path, NamesFileBeside(path), data));
        return data;
    }();
    return sample;
}

void WriteAndRead(benchmark::State& state)
{
    CSbdData data = ProjectOf(state);
    Measure(state, tripTimes, [&] {
        CSbdData again;
        ReadProject(WriteProject(data), again);
        return again;
    });
}

void ReadBackOfAll(benchmark::State& state)
{
    const CSbdData& data = ProjectOf(state);
    Measure(state, wholeTimes, [&] {
        CReadBack back;
        back.Reset(data);
        return back;
    });
    state.counters["of_write_and_read"] = wholeTimes.Of(state.range(0)) / tripTimes.Of(state.range(0));
}

constexpr int kBlock = 314;

void WriteAndReadOfOneBlock(benchmark::State& state)
{
    CSbdData data;
    *data.Table(kBlock) = *ProjectOf(state).Table(kBlock);
    constexpr std::array<int, 1> blocks{kBlock};
    Measure(state, editTripTimes, [&] {
        WriteTrace trace;
        CSbdData again;
        ReadSections(WriteBlocks(data, blocks, trace), again);
        return again;
    });
}

void ReadBackOfOneEdit(benchmark::State& state)
{
    CSbdData data = ProjectOf(state);
    CReadBack back;
    back.Reset(data);
    CColumnVector& cells = data.Table(kBlock)->columns[5];
    bool divided = false;
    Measure(state, editTimes, [&] {
        divided = !divided;
        cells.Set(1, divided ? "18 0" : "180");
        back.Update(data, std::vector<ChangedRow>{{kBlock, 1}});
        return back.Count();
    });
    state.counters["of_write_and_read"] = editTimes.Of(state.range(0)) / editTripTimes.Of(state.range(0));
}

void DoubtsOfAll(benchmark::State& state)
{
    const CSbdData& data = ProjectOf(state);
    Measure(state, doubtTimes, [&] { return Doubts(data); });
}

/// Looked at once nobody types: of plate4, or of a bridge of 20 spans with so many girders.
void DrawingDoubtsOfAll(benchmark::State& state)
{
    const auto girders = static_cast<int>(state.range(0));
    const CSbdData data = girders == 0 ? ProjectOf(state) : LongBridge(girders);
    std::size_t found = 0;
    Measure(state, drawingTimes, [&] {
        const FindingList doubts = DrawingDoubts(data, {});
        found = doubts.list.size();
        return found;
    });
    state.counters["found"] = static_cast<double>(found);
    state.counters["girders"] = static_cast<double>(data.gridNames.girderNames.size());
}

BENCHMARK(WriteAndRead)->Arg(0)->Arg(10)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ReadBackOfAll)->Arg(0)->Arg(10)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(WriteAndReadOfOneBlock)->Arg(0)->Arg(10)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ReadBackOfOneEdit)->Arg(0)->Arg(10)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(DoubtsOfAll)->Arg(0)->Arg(10)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(DrawingDoubtsOfAll)->Arg(0)->Arg(1)->Arg(10)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

} // namespace sbd::bench
