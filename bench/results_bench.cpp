// Reading the results of a large bridge against plain fread of the same bytes into memory of their size, and choosing
// what the table shows of them against a look at the same values.
#include "bench/baseline.h"
#include "results/diagram_curves.h"
#include "results/field_reader.h"
#include "results/figure_pick.h"
#include "results/result_envelope.h"
#include "results/result_files.h"
#include "results/result_paths.h"
#include "results/result_table.h"
#include "tests/results/file_bytes.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <numeric>
#include <random>
#include <span>
#include <string>

namespace sbd::bench {

namespace {

constexpr std::int32_t kGirders = 20;
constexpr std::int32_t kStations = 1000;
constexpr std::int32_t kNodes = kGirders * kStations;
constexpr std::int32_t kAlong = kGirders * (kStations - 1);
constexpr std::int32_t kElements = kAlong + (kGirders - 1) * kStations;
constexpr std::array kExtensions = {".Z1D", ".Z1F", ".Z1R", ".Z3D", ".Z3F", ".Z3R"};

ShortestTimes freadTimes;
ShortestTimes readTimes;
ShortestTimes scanTimes;
ShortestTimes tableTimes;
ShortestTimes passTimes;
ShortestTimes envelopeTimes;
ShortestTimes envelopeTableTimes;
ShortestTimes pickTimes;

std::string StationName(std::int32_t station)
{
    return "S" + std::to_string(station);
}

std::string GirderName(std::int32_t girder)
{
    return "G" + std::to_string(girder + 1);
}

/// Girders and cross beams; the girders' section is the first one, whose axes are turned.
AnalysisModel Model(std::int32_t loadCases)
{
    AnalysisModel model;
    model.title = "20,000 nodes";
    model.loadCaseCount = loadCases;
    for (std::int32_t load = 0; load < loadCases; ++load)
        model.loadCaseNames.push_back("(B-L)" + std::to_string(load));
    model.nodeCount = kNodes;
    model.elementCount = kElements;
    for (std::int32_t girder = 0; girder < kGirders; ++girder)
        for (std::int32_t station = 0; station < kStations; ++station)
            model.nodeNames.push_back(GirderName(girder) + "-" + StationName(station));
    for (std::int32_t element = 0; element < kElements; ++element) {
        model.elementNames.push_back("E" + std::to_string(element));
        model.elementLinks.push_back({0, 0, element < kAlong ? 1 : 2, 0});
    }
    model.nodeWords.resize(kNodes);
    model.elementWords.resize(kElements);
    model.sectionCount = 2;
    model.sections = {{1}, {0}};
    model.sectionNames = {"main", "cross"};
    return model;
}

ElementTable Elements()
{
    ElementTable table;
    table.elementTableCount = kElements;
    table.ends.resize(kElements, {1, 2, 0});
    table.elementValues.resize(kElements);
    return table;
}

NodeTable Nodes()
{
    NodeTable table;
    table.nodeTableCount = kNodes;
    table.coordinates.resize(kNodes, {1.5, 2.5, 3.5});
    table.nodeFlags.resize(kNodes);
    table.nodeValues.resize(kNodes);
    return table;
}

ResultCube Cube(std::int32_t items, std::int32_t loadCases, std::int32_t components)
{
    ResultCube cube;
    cube.size1 = items;
    cube.size2 = loadCases;
    cube.size3 = components;
    cube.values.resize(EntryCount(items, loadCases, components));
    for (std::size_t i = 0; i < cube.values.size(); ++i)
        cube.values[i] = static_cast<double>(i) * 0.001;
    return cube;
}

/// The six files of a bridge of 20,000 nodes in a folder of their own, as long as the program runs.
class Files {
public:
    explicit Files(std::int32_t loadCases)
    {
        Write(".Z1D", BytesOf(Model(loadCases)));
        Write(".Z1F", BytesOf(Elements()));
        Write(".Z1R", BytesOf(Nodes()));
        Write(".Z3D", BytesOf(Cube(kNodes, loadCases, 6)));
        Write(".Z3F", BytesOf(Cube(kElements, loadCases, 12)));
        Write(".Z3R", BytesOf(Cube(kNodes, loadCases, 6)));
    }
    Files(const Files&) = delete;
    Files& operator=(const Files&) = delete;
    ~Files()
    {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    [[nodiscard]] const std::filesystem::path& Project() const { return project_; }
    [[nodiscard]] std::size_t Bytes() const { return bytes_; }

private:
    void Write(const char* extension, const FileBytes& bytes)
    {
        WriteFile(ResultFile(project_, extension), bytes.Text());
        bytes_ += bytes.Size();
    }

    std::filesystem::path folder_ =
        std::filesystem::temp_directory_path() / ("sbd-results-bench-" + std::to_string(std::random_device()()));
    std::filesystem::path project_ = folder_ / "large.sbd";
    std::size_t bytes_ = 0;
};

const Files& FilesOf(const benchmark::State& state)
{
    static std::map<std::int64_t, std::unique_ptr<Files>> files;
    std::unique_ptr<Files>& held = files[state.range(0)];
    if (!held)
        held = std::make_unique<Files>(static_cast<std::int32_t>(state.range(0)));
    return *held;
}

using Bytes = std::unique_ptr<char[]>;

/// Each file by one fread into memory of its size that nobody has cleared before.
std::array<Bytes, kExtensions.size()> PlainRead(const std::filesystem::path& project)
{
    std::array<Bytes, kExtensions.size()> all;
    for (std::size_t i = 0; i < all.size(); ++i) {
        const std::filesystem::path path = ResultFile(project, kExtensions[i]);
        const std::size_t size = std::filesystem::file_size(path);
        all[i] = std::make_unique_for_overwrite<char[]>(size);
        std::FILE* file = std::fopen(path.string().c_str(), "rb");
        if (file == nullptr || std::fread(all[i].get(), 1, size, file) != size)
            std::abort();
        std::fclose(file);
    }
    return all;
}

AnalysisResults Read(const std::filesystem::path& project)
{
    AnalysisResults results;
    if (ReadResultFiles(project, results) != ResultFilesRead{true, true, true, true, true, true, kAlong})
        std::abort();
    return results;
}

void BM_PlainFread(benchmark::State& state)
{
    const Files& files = FilesOf(state);
    Measure(state, freadTimes, [&] { return PlainRead(files.Project()); });
    CountBytes(state, files.Bytes());
}

void BM_ReadResultFiles(benchmark::State& state)
{
    const Files& files = FilesOf(state);
    Measure(state, readTimes, [&] { return Read(files.Project()); });
    CountBytes(state, files.Bytes());
    state.counters["times_fread"] = readTimes.Of(state.range(0)) / freadTimes.Of(state.range(0));

    const std::size_t heapBefore = HeapInUse();
    const AnalysisResults results = Read(files.Project());
    benchmark::DoNotOptimize(&results);
    state.counters["heap_per_byte"] =
        static_cast<double>(HeapInUse() - heapBefore) / static_cast<double>(files.Bytes());
}

/// Nodes, members and forces in memory, without the files.
const AnalysisResults& ResultsInMemory(std::int32_t loadCases)
{
    static const AnalysisResults results = [&] {
        AnalysisResults made;
        made.model = Model(loadCases);
        for (std::int32_t girder = 0; girder < kGirders; ++girder)
            made.model.girderNames.push_back(GirderName(girder));
        made.nodeTable = Nodes();
        made.displacement = Cube(kNodes, loadCases, 6);
        return made;
    }();
    return results;
}

/// The largest and the smallest value of each component in a load case, each value once.
std::array<double, 12> ScanLoadCase(const AnalysisResults& results, std::size_t load)
{
    constexpr std::size_t components = 6;
    std::array<double, 2 * components> extremes;
    std::fill_n(extremes.begin(), components, -1e100);
    std::fill_n(extremes.begin() + components, components, 1e100);
    const auto loads = static_cast<std::size_t>(results.model.loadCaseCount);
    for (std::size_t node = 0; node < kNodes; ++node) {
        const double* const values = results.displacement.values.data() + (node * loads + load) * components;
        for (std::size_t k = 0; k < components; ++k) {
            extremes[k] = std::max(extremes[k], values[k]);
            extremes[components + k] = std::min(extremes[components + k], values[k]);
        }
    }
    return extremes;
}

/// Every load case in turn, so that none is in the cache from the time before.
void BM_ScanLoadCases(benchmark::State& state)
{
    const AnalysisResults& results = ResultsInMemory(static_cast<std::int32_t>(state.range(0)));
    Measure(state, scanTimes, [&] {
        double sum = 0;
        for (std::size_t load = 0; load < results.model.loadCaseNames.size(); ++load)
            sum += ScanLoadCase(results, load)[0];
        return sum;
    });
}

/// A table of all girders for every load case in turn, with the texts of a pane.
void BM_ChangeSelection(benchmark::State& state)
{
    constexpr std::size_t rowsInView = 40;
    const AnalysisResults& results = ResultsInMemory(static_cast<std::int32_t>(state.range(0)));
    ResultSelection selection;
    selection.girder = AllWord();
    selection.station = NoneWord();
    Measure(state, tableTimes, [&] {
        std::size_t bytes = 0;
        for (const std::string& load : results.model.loadCaseNames) {
            selection.load = load;
            const CResultTable table(results, selection);
            if (table.RowCount() != kNodes)
                std::abort();
            for (std::size_t row = 1; row <= rowsInView; ++row)
                for (std::size_t column = 0; column < table.GridColumnCount(); ++column)
                    bytes += table.CellText(row, column).size();
        }
        return bytes;
    });
    state.counters["times_scan"] = tableTimes.Of(state.range(0)) / scanTimes.Of(state.range(0));
}

/// The largest and the smallest value of each component over all load cases, each value looked at once in the order of
/// the memory.
void BM_PassOverAllValues(benchmark::State& state)
{
    constexpr std::size_t components = 6;
    const AnalysisResults& results = ResultsInMemory(static_cast<std::int32_t>(state.range(0)));
    const auto& values = results.displacement.values;
    Measure(state, passTimes, [&] {
        std::array<double, 2 * components> extremes;
        std::fill_n(extremes.begin(), components, -1e100);
        std::fill_n(extremes.begin() + components, components, 1e100);
        for (std::size_t at = 0; at < values.size(); at += components)
            for (std::size_t k = 0; k < components; ++k) {
                extremes[k] = std::max(extremes[k], values[at + k]);
                extremes[components + k] = std::min(extremes[components + k], values[at + k]);
            }
        return extremes;
    });
}

/// The largest and the smallest value of each node and component, with the load cases that decide.
void BM_Envelope(benchmark::State& state)
{
    constexpr std::size_t components = 6;
    const AnalysisResults& results = ResultsInMemory(static_cast<std::int32_t>(state.range(0)));
    std::vector<std::size_t> cases(results.model.loadCaseNames.size());
    std::iota(cases.begin(), cases.end(), 0);
    std::vector<EnvelopeValue> envelope(kNodes * components);
    Measure(state, envelopeTimes, [&] {
        std::size_t notNumbers = 0;
        for (std::size_t node = 0; node < kNodes; ++node)
            notNumbers += EnvelopeOfItem(results.displacement.values.data() + node * cases.size() * components, cases,
                                         std::span(envelope).subspan(node * components, components));
        benchmark::DoNotOptimize(envelope.data());
        return notNumbers;
    });
    state.counters["times_pass"] = envelopeTimes.Of(state.range(0)) / passTimes.Of(state.range(0));
}

/// The whole table of it, with names, extremes and the texts of a pane.
void BM_EnvelopeTable(benchmark::State& state)
{
    constexpr std::size_t rowsInView = 40;
    const AnalysisResults& results = ResultsInMemory(static_cast<std::int32_t>(state.range(0)));
    ResultSelection selection;
    selection.girder = AllWord();
    selection.station = NoneWord();
    selection.envelope = true;
    selection.envelopeLoads = results.model.loadCaseNames;
    Measure(state, envelopeTableTimes, [&] {
        const CResultTable table(results, selection);
        if (table.RowCount() != kNodes)
            std::abort();
        std::size_t bytes = 0;
        for (std::size_t row = 1; row <= rowsInView; ++row)
            for (std::size_t column = 0; column < table.GridColumnCount(); ++column)
                bytes += table.CellText(row, column).size();
        return bytes;
    });
    state.counters["times_pass"] = envelopeTableTimes.Of(state.range(0)) / passTimes.Of(state.range(0));
}

/// A click into the diagram of a girder of 1,000 stations, two curves; and one among 20,000 nodes. The limit is 2 ms.
void BM_Pick(benchmark::State& state)
{
    const AnalysisResults& results = ResultsInMemory(static_cast<std::int32_t>(state.range(0)));
    DiagramCurve curve;
    curve.diagram.positions.clear();
    for (std::int32_t station = 0; station < kStations; ++station) {
        curve.diagram.positions.push_back(station);
        curve.diagram.points.push_back(station % 7);
        curve.diagram.nodes.push_back(station + 1);
        curve.diagram.stationNames.push_back(StationName(station));
        if (station > 0)
            curve.diagram.bays.push_back({static_cast<std::size_t>(station) - 1, station, station - 1.0,
                                          double(station), (station - 1) % 7 * 1.0, station % 7 * 1.0});
    }
    curve.diagram.greatest = 6;
    const std::vector<DiagramCurve> curves{curve, curve};
    const DiagramScale scale = FitCurves(curves, {1200, 500}, kFitZoom, {});
    FramePlaces places;
    for (std::int32_t node = 0; node < kNodes; ++node)
        places.nodes.push_back({double(node % 1200), double(node % 500)});
    double x = 0;
    Measure(state, pickTimes, [&] {
        x = x > 1000 ? 100 : x + 7;
        return std::pair(PickOrdinate(results, curves, scale, {x, 250}), PickNode(places, {x, 250}));
    });
}

void Sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->ArgName("load_cases")->Arg(40)->UseManualTime()->Unit(benchmark::kMillisecond);
}

// The baseline first: the ratio is taken from the times measured so far.
BENCHMARK(BM_PlainFread)->Apply(Sizes);
BENCHMARK(BM_ReadResultFiles)->Apply(Sizes);
BENCHMARK(BM_ScanLoadCases)->Apply(Sizes);
BENCHMARK(BM_ChangeSelection)->Apply(Sizes);
BENCHMARK(BM_PassOverAllValues)->Apply(Sizes);
BENCHMARK(BM_Envelope)->Apply(Sizes);
BENCHMARK(BM_EnvelopeTable)->Apply(Sizes);
BENCHMARK(BM_Pick)->Apply(Sizes);

} // namespace

} // namespace sbd::bench
