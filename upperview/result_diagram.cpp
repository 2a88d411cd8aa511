#include "upperview/result_diagram.h"

#include "document/section_doc.h"
#include "results/diagram_drawing.h"
#include "results/result_faults.h"
#include "results/result_title.h"
#include "upperview/paper.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace sbd {

namespace {

constexpr double kFontShare = 0.6; // of the font of the model figure
constexpr double kGap = 3;         // pixels between a point and its text

QFont DiagramFont(const FigureLook& look)
{
    QFont font = look.font;
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(QFontInfo(look.font).pixelSize() * kFontShare))));
    return font;
}

/// Writes texts beside their points; upright where the points stand closer than the texts are wide.
class TextPainter {
public:
    TextPainter(QPainter& painter, const FigureScreen& screen, const QFont& font, const QColor& ink)
        : painter_(painter)
        , screen_(screen)
        , metrics_(font, painter.device())
    {
        painter_.setFont(font);
        painter_.setPen(ink);
    }

    void Write(const std::vector<FigureText>& texts)
    {
        const bool upright = AreCrowded(texts);
        for (const FigureText& text : texts)
            if (std::isfinite(text.at.x) && std::isfinite(text.at.y))
                Write(text, toQString(text.text).trimmed(), upright);
    }

private:
    [[nodiscard]] bool AreCrowded(const std::vector<FigureText>& texts) const
    {
        for (std::size_t i = 1; i < texts.size(); ++i) {
            const double distance = std::abs(texts[i].at.x - texts[i - 1].at.x);
            const double width = metrics_.horizontalAdvance(toQString(texts[i].text).trimmed());
            if (distance > 0 && distance < width + kGap)
                return true;
        }
        return false;
    }

    void Write(const FigureText& text, const QString& words, bool upright)
    {
        const double width = metrics_.horizontalAdvance(words);
        if (text.at.x < -width || text.at.y < -width || text.at.x > screen_.clientWidth + width
            || text.at.y > screen_.clientHeight + width)
            return;
        painter_.save();
        painter_.translate(std::trunc(text.at.x), std::trunc(text.at.y));
        const double across = upright ? metrics_.height() : width; // along the axis
        const double along = upright ? width : metrics_.height();
        const double left = text.place == TextPlace::Middle ? -across / 2
                            : text.place == TextPlace::Left ? -across - kGap
                                                            : kGap;
        const double top = text.below ? kGap : -along - kGap;
        if (upright) {
            painter_.translate(left, top + along);
            painter_.rotate(-90);
        } else {
            painter_.translate(left, top);
        }
        painter_.drawText(QPointF(0, metrics_.ascent()), words);
        painter_.restore();
    }

    QPainter& painter_;
    const FigureScreen& screen_;
    QFontMetricsF metrics_;
};

void PaintDiagram(QPainter& painter, const DiagramDrawing& drawing, const FigureScreen& screen, const FigureLook& look)
{
    CFigureLines lines(screen);
    for (const FigurePen pen : {FigurePen::Faint, FigurePen::Plain}) {
        for (const FigureLine& line : drawing.lines)
            if (line.pen == pen)
                lines.Add(line.from, line.to);
        lines.Paint(painter, PenOf(pen, look));
    }
    const QColor ink = Ink(Qt::black, look.backColor);
    painter.setBrush(ink);
    for (const auto& head : drawing.heads) {
        QPolygonF corners;
        for (const FigurePoint& corner : head)
            corners << QPointF(corner.x, corner.y);
        const bool isNumber = std::ranges::all_of(
            corners, [](const QPointF& corner) { return std::isfinite(corner.x()) && std::isfinite(corner.y()); });
        if (isNumber && corners.boundingRect().intersects({0, 0, screen.clientWidth, screen.clientHeight}))
            painter.drawPolygon(corners);
    }
    TextPainter texts(painter, screen, DiagramFont(look), ink);
    texts.Write(drawing.stationNames);
    texts.Write(drawing.values);
}

void PaintDeformed(QPainter& painter, const AnalysisResults& results, std::size_t loadCase, const FigureScreen& screen,
                   const FigureLook& look, FigureView& view)
{
    const FigurePan pan = TakeMouseMarks(view, screen);
    const CModelProjection before(FigurePlaces(results), view.viewDirection);
    const CModelProjection moved(DeformedPlaces(results, loadCase), view.viewDirection);
    FigureBounds bounds = before.Bounds();
    bounds.Widen(moved.Bounds().minX, moved.Bounds().minY);
    bounds.Widen(moved.Bounds().maxX, moved.Bounds().maxY);
    const ModelScale scale = FitModel(bounds, screen, view.zoom, pan);
    CFigureLines lines(screen);
    const auto paint = [&](const CModelProjection& shape, FigurePen pen) {
        for (const auto& ends : results.elementTable.ends)
            if (shape.HasNode(ends[0]) && shape.HasNode(ends[1]))
                lines.Add(ScreenOf(ends[0], shape, scale), ScreenOf(ends[1], shape, scale));
        lines.Paint(painter, PenOf(pen, look));
    };
    paint(before, FigurePen::Faint);
    paint(moved, FigurePen::Plain);
}

/// The title in the left upper corner, over what may lie there; below it what is wrong with the files.
void PaintTitle(QPainter& painter, const AnalysisResults& results, const ResultSelection& selection,
                const FigureLook& look)
{
    const QFont font = DiagramFont(look);
    const QFontMetricsF metrics(font, painter.device());
    painter.setFont(font);
    double top = kGap;
    for (const std::string& line : {FigureTitle(results.model, selection), ResultFaultLine(results)}) {
        const QString text = toQString(line);
        if (text.isEmpty())
            continue;
        painter.fillRect(QRectF(kGap, top, metrics.horizontalAdvance(text), metrics.height()), look.backColor);
        painter.setPen(Ink(top == kGap ? Qt::black : Qt::red, look.backColor));
        painter.drawText(QPointF(kGap, top + metrics.ascent()), text);
        top += metrics.height();
    }
}

} // namespace

void DrawResultPage(QPainter& painter, const FigureScreen& screen, const AnalysisResults& results,
                    const ResultSelection& selection, const FigureLook& look, FigureView& view)
{
    const std::optional<std::size_t> load = LoadCaseOf(results.model, selection.load);
    if (!load || screen.clientWidth <= 0 || screen.clientHeight <= 0)
        return;
    painter.save();
    if (selection.kind == ResultKind::Displacement && selection.girder == AllWord()) {
        PaintDeformed(painter, results, *load, screen, look, view);
    } else {
        const std::size_t component =
            ComponentOf(selection.kind, selection.figureItem).value_or(InfoOf(selection.kind).defaultComponent);
        const GirderDiagram diagram = MakeGirderDiagram(results, *load, selection.girder, selection.kind, component);
        const FigurePan pan = TakeMouseMarks(view, screen);
        const DiagramScale scale = FitDiagram(diagram, screen, view.zoom, pan);
        PaintDiagram(painter, DrawDiagram(diagram, scale), screen, look);
    }
    PaintTitle(painter, results, selection, look);
    painter.restore();
}

} // namespace sbd
