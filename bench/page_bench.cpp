// Help pages, painted against a bare painter that draws the same primitives. The limits stand in docs/performance.md.
#include "bench/baseline.h"
#include "bench/window_main.h"
#include "document/section_doc.h"
#include "upperview/draw_painter.h"
#include "upperview/help_page.h"
#include "upperview/page/draw_recorder.h"
#include "upperview/page/page_parser.h"
#include "upperview/page/page_store.h"
#include "upperview/page_unit.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <vector>

namespace sbd::bench {

namespace {

constexpr QSize kClient(900, 400);
constexpr double kScale = 96 / kPageUnitsPerInch;

ShortestTimes bareTimes;
ShortestTimes pageTimes;
ShortestTimes parseTimes;
ShortestTimes firstTimes;

QImage Sheet()
{
    QImage sheet(kClient, QImage::Format_ARGB32_Premultiplied);
    sheet.fill(Qt::white);
    return sheet;
}

/// A page as a bare painter needs it: nothing left to work out.
struct ReadyPage {
    struct Text {
        QPointF at;
        QString text;
    };
    std::vector<QLineF> lines;
    std::vector<QPolygonF> polygons;
    std::vector<QRectF> rounds;
    std::vector<Text> texts;
};

ReadyPage MakeReady(int block, const QFont& font)
{
    const CSbdData data;
    CDrawRecorder recorder(MetricsOf(font));
    DrawPage(recorder, *FindPage(block), {data, block, 2, 6, kClient.width(), kClient.height()});
    ReadyPage ready;
    const auto point = [](DrawPoint at) { return QPointF(at.x, -at.y); };
    for (const Primitive& primitive : recorder.Primitives()) {
        const QPointF first = point(primitive.points.front());
        switch (primitive.kind) {
        case PrimitiveKind::Line:
            ready.lines.emplace_back(first, point(primitive.points.back()));
            break;
        case PrimitiveKind::Text:
            ready.texts.push_back({first, toQString(primitive.text)});
            break;
        case PrimitiveKind::Polyline:
        case PrimitiveKind::FillPolygon: {
            QPolygonF& polygon = ready.polygons.emplace_back();
            for (const DrawPoint& corner : primitive.points)
                polygon.append(point(corner));
            break;
        }
        default:
            ready.rounds.emplace_back(first.x() - primitive.rx, first.y() - primitive.ry, 2 * primitive.rx,
                                      2 * primitive.ry);
        }
    }
    return ready;
}

void BM_BarePainter(benchmark::State& state)
{
    const QFont font = HelpFont({});
    const ReadyPage ready = MakeReady(static_cast<int>(state.range(0)), font);
    Measure(state, bareTimes, [&] {
        QImage sheet = Sheet();
        QPainter painter(&sheet);
        painter.scale(kScale, kScale);
        painter.setFont(font);
        for (const ReadyPage::Text& text : ready.texts)
            painter.drawText(text.at, text.text);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(Qt::lightGray);
        for (const QPolygonF& polygon : ready.polygons)
            painter.drawPolygon(polygon);
        for (const QRectF& round : ready.rounds)
            painter.drawEllipse(round);
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setPen(QPen(Qt::black, 0));
        for (const QLineF& line : ready.lines)
            painter.drawLine(line);
        return sheet;
    });
}

void BM_PaintPage(benchmark::State& state)
{
    const CSbdData data;
    const QFont font = HelpFont({});
    const HelpCell cell{static_cast<int>(state.range(0)), 2, 6};
    (void)FindPage(cell.block); // read once, at its first show
    Measure(state, pageTimes, [&] {
        QImage sheet = Sheet();
        QPainter painter(&sheet);
        painter.scale(kScale, kScale);
        PaintHelpPage(painter, data, cell, kClient, font);
        return sheet;
    });
    state.counters["times_bare"] = pageTimes.Of(state.range(0)) / bareTimes.Of(state.range(0));
}

/// All page files, as each is read at its first show.
void BM_ParsePages(benchmark::State& state)
{
    Measure(state, parseTimes, [] {
        std::size_t branches = 0;
        for (const PageSource& source : PageSources())
            branches += ParsePage(source.text, 0).page.branches.size();
        return branches;
    });
}

/// What a start parses: the shared sketches and the page of the first block. The others come when they are shown.
void BM_ParseFirstPage(benchmark::State& state)
{
    Measure(state, firstTimes, [] {
        CPageStore store(PageSources());
        return store.Find(301)->branches.size();
    });
}

void Blocks(benchmark::internal::Benchmark* benchmark)
{
    benchmark->ArgName("block")->Arg(301)->Arg(313)->Arg(543)->Arg(551)->UseManualTime()->Unit(benchmark::kMillisecond);
}

// The baseline first: the ratio is taken from the times measured so far.
BENCHMARK(BM_BarePainter)->Apply(Blocks);
BENCHMARK(BM_PaintPage)->Apply(Blocks);
BENCHMARK(BM_ParsePages)->Arg(0)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ParseFirstPage)->Arg(0)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

} // namespace sbd::bench

int main(int argc, char** argv)
{
    return sbd::bench::RunBenchmarks<QGuiApplication>(argc, argv);
}
