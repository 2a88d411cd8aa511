// Painting the figure of a large bridge against the bare painting of the same lines, and with many rows of lateral
// bracing against without. The limits stand in docs/performance.md.
#include "bench/baseline.h"
#include "bench/window_main.h"
#include "project/sbd_data.h"
#include "upperview/model_figure.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <string>
#include <vector>

namespace sbd::bench {

namespace {

constexpr std::int32_t kGirders = 20;
constexpr std::int32_t kStations = 1000;
constexpr std::int32_t kNodes = kGirders * kStations;
constexpr QSize kSize(900, 500);

ShortestTimes bareTimes;
ShortestTimes figureTimes;
ShortestTimes turnedBareTimes;
ShortestTimes turnedFigureTimes;

FigureScreen Screen()
{
    return {kSize.width(), kSize.height(), 1920, 1080};
}

/// Girders at 3 m with a station a metre, seen from above.
AnalysisResults Bridge()
{
    AnalysisResults results;
    AnalysisModel& model = results.model;
    model.nodeCount = kNodes;
    model.girderCount = kGirders;
    model.stationCount = kStations;
    for (std::int32_t girder = 0; girder < kGirders; ++girder) {
        const std::string name = "G" + std::to_string(girder);
        model.girderNames.push_back(name);
        for (std::int32_t station = 0; station < kStations; ++station) {
            const std::int32_t node = girder * kStations + station + 1;
            model.nodeNames.push_back(name + "-C" + std::to_string(station));
            model.gridNodes.push_back(node);
            results.nodeTable.coordinates.push_back({double(station), -3.0 * girder, 0});
            if (station > 0) {
                results.elementTable.ends.push_back({node - 1, node, 0});
                model.girderElements.push_back(static_cast<std::int32_t>(results.elementTable.ends.size()));
            }
            if (girder > 0)
                results.elementTable.ends.push_back({node - kStations, node, 0});
        }
    }
    for (std::int32_t station = 0; station < kStations; ++station)
        model.stationNames.push_back("C" + std::to_string(station));
    results.nodeTable.nodeFlags.resize(kNodes);
    results.nodeTable.nodeValues.resize(kNodes);
    return results;
}

CSbdData WithLateralBracing(std::int64_t rows)
{
    CSbdData data;
    TableBlock& table = *data.Table(573);
    for (std::int64_t row = 0; row < rows; ++row) {
        const std::int64_t girder = row % (kGirders - 1);
        const std::int64_t station = row % (kStations - 1);
        table.AppendRow({"G" + std::to_string(girder), "G" + std::to_string(girder + 1), "C" + std::to_string(station),
                         "C" + std::to_string(station + 1), "B", "E"});
    }
    return data;
}

FigureView FromAbove()
{
    FigureView view;
    ApplyViewCommand(view, Command::ViewXY);
    return view;
}

/// No line lies along the pixels.
FigureView Turned()
{
    FigureView view;
    ApplyViewCommand(view, Command::ViewAll);
    return view;
}

QImage Sheet()
{
    QImage sheet(kSize, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    return sheet;
}

/// The members as pixels, ready to be drawn.
std::vector<QLine> Lines(const AnalysisResults& results, const FigureView& view)
{
    const CModelProjection projection(FigurePlaces(results), view.viewDirection);
    const ModelScale scale = FitModel(projection.Bounds(), Screen(), kFitZoom, {});
    const auto at = [&](std::int32_t node) {
        const FigurePoint point = ScreenOf(node, projection, scale);
        return QPoint(static_cast<int>(point.x), static_cast<int>(point.y));
    };
    std::vector<QLine> lines;
    for (const auto& ends : results.elementTable.ends)
        lines.emplace_back(at(ends[0]), at(ends[1]));
    return lines;
}

void PaintBare(benchmark::State& state, const FigureView& view, ShortestTimes& times)
{
    const std::vector<QLine> lines = Lines(Bridge(), view);
    Measure(state, times, [&] {
        QImage sheet = Sheet();
        QPainter painter(&sheet);
        painter.setPen(QPen(Qt::blue, 2));
        painter.drawLines(lines.data(), static_cast<int>(lines.size()));
        return sheet;
    });
}

void PaintFigure(benchmark::State& state, FigureView view, ShortestTimes& times, const ShortestTimes& bare)
{
    const AnalysisResults results = Bridge();
    const CSbdData data = WithLateralBracing(state.range(0));
    const FigureLook look;
    Measure(state, times, [&] {
        QImage sheet = Sheet();
        QPainter painter(&sheet);
        DrawModelFigure(painter, Screen(), results, data, {573, 7}, look, view);
        return sheet;
    });
    state.counters["times_bare"] = times.Of(state.range(0)) / bare.Of(0);
    state.counters["times_without"] = times.Of(state.range(0)) / times.Of(0);
}

void BM_BareLines(benchmark::State& state)
{
    PaintBare(state, FromAbove(), bareTimes);
}

void BM_ModelFigure(benchmark::State& state)
{
    PaintFigure(state, FromAbove(), figureTimes, bareTimes);
}

void BM_BareLinesTurned(benchmark::State& state)
{
    PaintBare(state, Turned(), turnedBareTimes);
}

void BM_ModelFigureTurned(benchmark::State& state)
{
    PaintFigure(state, Turned(), turnedFigureTimes, turnedBareTimes);
}

// The baseline first: the ratio is taken from the times measured so far.
BENCHMARK(BM_BareLines)->ArgName("lateral")->Arg(0)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ModelFigure)->ArgName("lateral")->Arg(0)->Arg(2000)->UseManualTime()->Unit(benchmark::kMillisecond);

BENCHMARK(BM_BareLinesTurned)->ArgName("lateral")->Arg(0)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ModelFigureTurned)->ArgName("lateral")->Arg(0)->Arg(2000)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

} // namespace sbd::bench

int main(int argc, char** argv)
{
    return sbd::bench::RunBenchmarks<QGuiApplication>(argc, argv);
}
