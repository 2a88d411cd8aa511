#include "upperview/result_diagram.h"

#include "project/text.h"
#include "results/figure_pick.h"
#include "results/result_title.h"
#include "upperview/figure_texts.h"
#include "upperview/paper.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace sbd {

using namespace literals;

namespace {

void PaintDiagram(QPainter& painter, const DiagramPage& page, const FigureScreen& screen, const FigureLook& look)
{
    const DiagramDrawing& drawing = page.drawing;
    CFigureLines lines(screen);
    for (const FigurePen pen :
         {FigurePen::Faint, FigurePen::Least, FigurePen::Greatest, FigurePen::Plain, FigurePen::Second}) {
        for (const FigureLine& line : drawing.lines)
            if (line.pen == pen)
                lines.Add(line.from, line.to);
        lines.Paint(painter, PenOf(pen, look));
    }
    for (const FigureHead& head : drawing.heads) {
        painter.setPen(QPen(PenOf(head.pen, look).color(), 1));
        painter.setBrush(painter.pen().color());
        QPolygonF corners;
        for (const FigurePoint& corner : head.corners)
            corners << QPointF(corner.x, corner.y);
        const bool isNumber = std::ranges::all_of(
            corners, [](const QPointF& corner) { return std::isfinite(corner.x()) && std::isfinite(corner.y()); });
        if (isNumber && corners.boundingRect().intersects({0, 0, screen.clientWidth, screen.clientHeight}))
            painter.drawPolygon(corners);
    }
    PaintTexts(painter, page.texts, SmallFont(look), look);
}

/// The points of the table's row under the cursor.
void PaintRings(QPainter& painter, const std::vector<FigurePoint>& points, const FigureLook& look)
{
    constexpr double radius = 6;
    painter.setPen(PenOf(FigurePen::Selected, look));
    painter.setBrush(Qt::NoBrush);
    for (const FigurePoint& point : points)
        painter.drawEllipse(QPointF(point.x, point.y), radius, radius);
}

/// Gives the scale, pixels per metre.
double PaintDeformed(QPainter& painter, const AnalysisResults& results, std::size_t loadCase, double magnification,
                     const FigureScreen& screen, const FigureLook& look, FigureView& view, const std::string& marked)
{
    const FigurePan pan = TakeMouseMarks(view, screen);
    const CModelProjection before(FigurePlaces(results), view.viewDirection);
    const CModelProjection moved(DeformedPlaces(results, loadCase, magnification), view.viewDirection);
    const ModelScale scale = DeformedScale(before, moved, screen, view, pan);
    CFigureLines lines(screen);
    const auto paint = [&](const CModelProjection& shape, FigurePen pen) {
        for (const auto& ends : results.elementTable.ends)
            if (shape.HasNode(ends[0]) && shape.HasNode(ends[1]))
                lines.Add(ScreenOf(ends[0], shape, scale), ScreenOf(ends[1], shape, scale));
        lines.Paint(painter, PenOf(pen, look));
    };
    paint(before, FigurePen::Faint);
    paint(moved, FigurePen::Plain);
    const std::vector<std::string>& names = results.model.nodeNames;
    const auto node = std::ranges::find(names, marked) - names.begin();
    if (!marked.empty() && moved.HasNode(node + 1))
        PaintRings(painter, {ScreenOf(static_cast<std::int32_t>(node + 1), moved, scale)}, look);
    return scale.scale;
}

} // namespace

double MagnificationOf(const AnalysisResults& results, const ResultSelection& selection, std::size_t loadCase)
{
    return selection.magnification > 0 ? selection.magnification : SuitingMagnification(results, loadCase);
}

bool ShowsDeformed(const ResultSelection& selection)
{
    return selection.kind == ResultKind::Displacement && selection.girder == AllWord() && !selection.envelope;
}

ModelScale DeformedScale(const CModelProjection& before, const CModelProjection& moved, const FigureScreen& screen,
                         const FigureView& view, FigurePan pan)
{
    FigureBounds bounds = before.Bounds();
    bounds.Widen(moved.Bounds().minX, moved.Bounds().minY);
    bounds.Widen(moved.Bounds().maxX, moved.Bounds().maxY);
    return FitModel(bounds, screen, view.zoom, pan);
}

void DrawResultPage(QPainter& painter, const FigureScreen& screen, const AnalysisResults& results,
                    const ResultSelection& selection, const FigureLook& look, FigureView& view,
                    const ResultState& state, const std::string& marked)
{
    if (screen.clientWidth <= 0 || screen.clientHeight <= 0)
        return;
    painter.save();
    if (ShowsDeformed(selection)) {
        const std::optional<std::size_t> load = LoadCaseOf(results.model, selection.load);
        if (!load)
            return painter.restore();
        const double magnification = MagnificationOf(results, selection, *load);
        const double scale = PaintDeformed(painter, results, *load, magnification, screen, look, view, marked);
        FigureHeading heading =
            FrameHeading(results, FigureTitle(results.model, selection, magnification), screen, scale, state);
        heading.insert(heading.begin() + 1, {{"灰色: 変形前"_cp932}, {"黒: 変形後"_cp932}});
        static_cast<void>(PaintHeading(painter, heading, screen, look));
    } else {
        const std::vector<DiagramCurve> curves = CurvesOf(results, selection);
        if (curves.empty())
            return painter.restore();
        const FigurePan pan = TakeMouseMarks(view, screen);
        const DiagramScale scale = FitCurves(curves, screen, view.zoom, pan);
        const FigureHeading heading = DiagramHeading(results, selection, curves, scale, state);
        const std::vector<LabelBox> taken = BoxesOfHeading(painter, heading, screen, look);
        const DiagramPage page = LayOutDiagrams(curves, scale, MetricsOf(painter, SmallFont(look)), taken);
        PaintDiagram(painter, page, screen, look);
        for (const DiagramCurve& curve : curves)
            PaintRings(painter, OrdinatesOf(results, curve.diagram, scale, marked), look);
        static_cast<void>(PaintHeading(painter, heading, screen, look));
    }
    painter.restore();
}

} // namespace sbd
