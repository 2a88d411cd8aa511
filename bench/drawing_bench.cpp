// The elevation of a long girder: making its parts, and painting its sheet against the bare painting of as many lines. The
// limits stand in docs/performance.md.
#include "bench/baseline.h"
#include "bench/long_bridge.h"
#include "bench/window_main.h"
#include "document/section_doc.h"
#include "drawing/girder_elevation.h"
#include "sbdfile/writer.h"
#include "upperview/bridge_sheet.h"
#include "upperview/draw_painter.h"
#include "upperview/drawing_canvas.h"
#include "upperview/drawing_pane.h"
#include "upperview/wide_registers.h"

#include <QApplication>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

#include <string>
#include <vector>

namespace sbd::bench {

namespace {

constexpr QSize kSize(1600, 700);
constexpr double kScale = 96 / 254.0; // pixels a unit

ShortestTimes makeTimes;
ShortestTimes bareTimes;
ShortestTimes paintTimes;
ShortestTimes editTimes;

QImage Sheet()
{
    QImage sheet(kSize, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    LeaveWideRegisters(); // for the bare lines too
    return sheet;
}

void BM_MakeElevation(benchmark::State& state)
{
    const CSbdData data = LongBridge();
    std::size_t shapes = 0;
    Measure(state, makeTimes, [&] {
        BridgeDrawing drawing = GirderElevation(data, {}, {});
        shapes = drawing.shapes.size();
        return drawing;
    });
    state.counters["shapes"] = static_cast<double>(shapes);
}

/// The outlines of all parts as bare lines, and the texts of the sheet as bare texts are not in it.
void BM_BareElevationLines(benchmark::State& state)
{
    const BridgeDrawing drawing = GirderElevation(LongBridge(), {}, {});
    std::vector<QPolygonF> outlines;
    for (const DrawnShape& shape : drawing.shapes) {
        QPolygonF outline;
        for (const DrawnPoint& point : shape.points)
            outline << QPointF(20 + point.x / 510, 100 - point.y / 510);
        if (shape.kind == ShapeKind::Polygon)
            outline << outline.front();
        outlines.push_back(outline);
    }
    Measure(state, bareTimes, [&] {
        QImage sheet = Sheet();
        QPainter painter(&sheet);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Qt::black, 1));
        for (const QPolygonF& outline : outlines)
            painter.drawPolyline(outline);
        return sheet;
    });
}

void BM_PaintElevation(benchmark::State& state)
{
    const BridgeDrawing drawing = GirderElevation(LongBridge(), {}, {});
    QFont font;
    font.setPixelSize(28);
    Measure(state, paintTimes, [&] {
        QImage sheet = Sheet();
        QPainter painter(&sheet);
        painter.setBackground(Qt::white);
        painter.scale(kScale, kScale);
        CPainterContext context(painter, font);
        DrawBridgeSheet(context, drawing, {});
        return sheet;
    });
    state.counters["times_bare"] = paintTimes.Of(0) / bareTimes.Of(0);
    state.counters["edit_ms"] = (paintTimes.Of(0) + makeTimes.Of(0)) * 1e3;
}

/// A cell is written as a panel does it, and the pane shows it: the elevation is made and painted.
void BM_EditInThePane(benchmark::State& state)
{
    const QTemporaryDir folder;
    const CSbdData data = LongBridge();
    const auto write = [&](const char* name, const std::string& bytes) {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        if (file.open(QFile::WriteOnly))
            file.write(bytes.data(), static_cast<qint64>(bytes.size()));
    };
    std::string names =
        "[GRID_GRID]\r\n GIRDER_N_NAME = 1 G1\r\n SWAY_N_NAME = " + std::to_string(data.gridNames.swayNames.size());
    for (const std::string& name : data.gridNames.swayNames)
        names += " " + name;
    write("long.abd", names + "\r\n[END_GRID_GRID]\r\n");
    write("long.sbd", WriteProject(data));
    CKELDSectionDoc doc;
    static_cast<void>(doc.OpenDocument(folder.filePath(QStringLiteral("long.sbd"))));
    CDrawingPane pane(&doc);
    pane.resize(kSize);
    pane.show();
    QApplication::processEvents();
    bool even = false;
    Measure(state, editTimes, [&] {
        even = !even;
        PanelEdit edit;
        edit.place.block = 313;
        edit.write = [&](CProjectWriter& writer) { writer.SetCell(313, 5, 7, even ? "9" : "10"); };
        edit.isModified = [] { return true; };
        edit.looseAfter = [] { return LooseRows(); };
        doc.Commit(edit);
        QApplication::processEvents(); // makes the drawing, and paints
        pane.Canvas().repaint();
        return pane.TimesMade();
    });
    state.counters["shapes"] = static_cast<double>(pane.Canvas().Drawing().shapes.size());
    state.counters["made"] = pane.TimesMade();
}

// The baseline first: the ratio is taken from the times measured so far.
BENCHMARK(BM_MakeElevation)->ArgName("size")->Arg(0)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BareElevationLines)->ArgName("size")->Arg(0)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PaintElevation)->ArgName("size")->Arg(0)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_EditInThePane)->ArgName("size")->Arg(0)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

} // namespace sbd::bench

int main(int argc, char** argv)
{
    return sbd::bench::RunBenchmarks<QApplication>(argc, argv);
}
