#include "upperview/model_figure.h"

#include "results/model_labels.h"
#include "results/result_table.h"
#include "upperview/figure_texts.h"
#include "upperview/paper.h"

#include <QFontMetricsF>
#include <QImage>
#include <QMouseEvent>
#include <QPaintEngine>
#include <QPainter>
#include <QScreen>
#include <QWidget>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace sbd {

namespace {

constexpr int kCrossBlock = 523;
constexpr int kDotRadius = 3;
constexpr double kSupportHalfWidth = 5;
constexpr double kSupportHeight = 10;
constexpr double kDragPixels = 10;    // a right drag is shown from here on
constexpr double kFarPixels = 10'000; // outside of every pane: lines are cut there

FigurePoint PointOf(const QMouseEvent& event)
{
    return {event.position().x(), event.position().y()};
}

bool IsNumber(FigurePoint point)
{
    return std::isfinite(point.x) && std::isfinite(point.y);
}

/// The part of a line between two bounds of one axis, as shares of its length.
bool CutAxis(double from, double to, double low, double high, double& begin, double& end)
{
    const double run = to - from;
    if (run == 0)
        return from >= low && from <= high;
    const double share1 = (low - from) / run;
    const double share2 = (high - from) / run;
    begin = std::max(begin, std::min(share1, share2));
    end = std::min(end, std::max(share1, share2));
    return begin <= end;
}

/// Is any of what stands at the point to be seen?
bool IsInPane(FigurePoint point, const FigureScreen& screen, double reach)
{
    return point.x > -reach && point.y > -reach && point.x < screen.clientWidth + reach
           && point.y < screen.clientHeight + reach;
}

std::optional<QLine> PixelLine(FigurePoint from, FigurePoint to, const FigureScreen& screen)
{
    if (!IsNumber(from) || !IsNumber(to))
        return std::nullopt;
    if (IsInPane(from, screen, kFarPixels) && IsInPane(to, screen, kFarPixels))
        return QLine(static_cast<int>(from.x), static_cast<int>(from.y), static_cast<int>(to.x),
                     static_cast<int>(to.y));
    double begin = 0;
    double end = 1;
    if (!CutAxis(from.x, to.x, -kFarPixels, screen.clientWidth + kFarPixels, begin, end)
        || !CutAxis(from.y, to.y, -kFarPixels, screen.clientHeight + kFarPixels, begin, end))
        return std::nullopt;
    const auto at = [&](double share) {
        if (share == 1)
            return QPoint(static_cast<int>(to.x), static_cast<int>(to.y));
        return QPoint(static_cast<int>(from.x + (to.x - from.x) * share),
                      static_cast<int>(from.y + (to.y - from.y) * share));
    };
    return QLine(at(begin), at(end));
}

void PaintDot(QPainter& painter, QPoint at, const FigureLook& look)
{
    painter.setPen(PenOf(FigurePen::Plain, look));
    painter.setBrush(Ink(Qt::red, look.backColor));
    painter.drawEllipse(at, kDotRadius, kDotRadius);
    painter.setBrush(Qt::NoBrush);
}

/// Many dots in one picture, which is then painted as a whole: painting an image costs more than its few pixels do.
void PaintDotsAsOne(QPainter& painter, const std::vector<QPoint>& dots, const QImage& dot, QPoint middle)
{
    QRect all;
    for (const QPoint at : dots)
        all |= QRect(at - middle, dot.size());
    QImage picture(all.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    struct Run {
        int row;
        int first;
        int length;
    };
    std::vector<Run> runs; // of the dot's pixels, which are round: one a row
    for (int row = 0; row < dot.height(); ++row) {
        const auto* const pixels = reinterpret_cast<const QRgb*>(dot.constScanLine(row));
        int first = 0;
        int end = dot.width();
        while (first < end && qAlpha(pixels[first]) == 0)
            ++first;
        while (end > first && qAlpha(pixels[end - 1]) == 0)
            --end;
        if (first < end)
            runs.push_back({row, first, end - first});
    }
    uchar* const bits = picture.bits();
    const qsizetype line = picture.bytesPerLine();
    for (const QPoint at : dots) {
        const QPoint corner = at - middle - all.topLeft();
        for (const Run& run : runs)
            std::copy_n(reinterpret_cast<const QRgb*>(dot.constScanLine(run.row)) + run.first, run.length,
                        reinterpret_cast<QRgb*>(bits + (corner.y() + run.row) * line) + corner.x() + run.first);
    }
    painter.drawImage(all.topLeft(), picture);
}

/// On pixels, copies of one dot: a large bridge has thousands. Paper gets circles of its own fineness. The dots lie in or
/// near the pane.
void PaintDots(QPainter& painter, const std::vector<QPoint>& dots, const FigureScreen& screen, const FigureLook& look)
{
    constexpr double pixelsOfADot = 400; // of a picture that cost as much to paint as a dot alone
    const bool isPixels = painter.paintEngine()->type() == QPaintEngine::Raster
                          && painter.deviceTransform().type() <= QTransform::TxTranslate
                          && painter.device()->devicePixelRatio() == 1;
    if (!isPixels) {
        for (const QPoint dot : dots)
            PaintDot(painter, dot, look);
        return;
    }
    const QPoint middle(kDotRadius + 1, kDotRadius + 1);
    QImage copy(2 * kDotRadius + 3, 2 * kDotRadius + 3, QImage::Format_ARGB32_Premultiplied);
    copy.fill(Qt::transparent);
    QPainter onCopy(&copy);
    PaintDot(onCopy, middle, look);
    onCopy.end();
    if (static_cast<double>(dots.size()) * pixelsOfADot > screen.clientWidth * screen.clientHeight) {
        PaintDotsAsOne(painter, dots, copy, middle);
        return;
    }
    for (const QPoint dot : dots)
        painter.drawImage(dot - middle, copy);
}

/// The layers of one paint, from the lowest to the uppermost.
class ModelPainter {
public:
    ModelPainter(QPainter& painter, const AnalysisResults& results, const FigureLook& look,
                 const CModelProjection& projection, const ModelScale& scale)
        : painter_(painter)
        , results_(results)
        , look_(look)
        , projection_(projection)
        , scale_(scale)
        , lines_(scale.screen)
    {
        for (std::size_t number = 1; number <= projection.NodeCount(); ++number)
            points_.push_back(ScreenOf(static_cast<std::int32_t>(number), projection, scale));
    }

    void Members()
    {
        lines_.Reserve(results_.elementTable.ends.size());
        for (const auto& ends : results_.elementTable.ends)
            if (projection_.HasNode(ends[0]) && projection_.HasNode(ends[1]))
                lines_.Add(At(ends[0]), At(ends[1]));
        lines_.Paint(painter_, PenOf(FigurePen::Member, look_));
    }

    void Lateral(const CSbdData& data, FigureSelection selection)
    {
        // The selected line is drawn last, so that no other one covers it.
        const std::vector<LateralLine> lateral =
            LateralBracing(results_.model, data, projection_.NodeCount(), selection);
        for (const FigurePen pen : {FigurePen::Lateral, FigurePen::Selected}) {
            for (const LateralLine& line : lateral)
                if (line.pen == pen) {
                    lines_.Add(At(line.from), At(line.to));
                    if (pen == FigurePen::Selected)
                        selected_.push_back({At(line.from), At(line.to), pen});
                }
            lines_.Paint(painter_, PenOf(pen, look_));
        }
    }

    void CrossBeams(const CSbdData& data, FigureSelection selection)
    {
        const AnalysisModel& model = results_.model;
        FigurePen pen = FigurePen::Lateral;
        for (const CrossLine& line :
             VisibleCrossLines(model, CrossBeamRows(model, data, selection), projection_.NodeCount())) {
            if (line.pen != pen)
                lines_.Paint(painter_, PenOf(pen, look_));
            pen = line.pen;
            lines_.Add(At(line.node1), At(line.node2));
            if (selection.block == kCrossBlock && static_cast<int>(line.row) + 1 == selection.row)
                selected_.push_back({At(line.node1), At(line.node2), pen});
        }
        lines_.Paint(painter_, PenOf(pen, look_));
    }

    void Nodes()
    {
        for (const std::int32_t node : SupportedNodes(results_.nodeTable, projection_.NodeCount())) {
            const FigurePoint top = At(node);
            const FigurePoint left{top.x - kSupportHalfWidth, top.y + kSupportHeight};
            const FigurePoint right{top.x + kSupportHalfWidth, top.y + kSupportHeight};
            lines_.Add(top, left);
            lines_.Add(top, right);
            lines_.Add(left, right);
        }
        PaintDots(painter_, Dots(), scale_.screen, look_);
        lines_.Paint(painter_, PenOf(FigurePen::Plain, look_));
    }

    /// Names beside what is in `taken`, that of the selected row first.
    void Names(const CSbdData& data, FigureSelection selection, const std::vector<LabelBox>& taken)
    {
        const double characterWidth = QFontMetricsF(look_.font, painter_.device()).averageCharWidth();
        const TextMetrics metrics = MetricsOf(painter_, look_.font);
        CLabelRoom room({0, 0, scale_.screen.clientWidth, scale_.screen.clientHeight});
        for (const LabelBox& box : taken)
            room.Take(box);
        std::vector<PlacedText> selected;
        if (const auto middle = SelectedMiddle(); middle && IsNumber(*middle))
            if (auto name = PlaceBeside(SelectedRowName(data, selection), *middle,
                                        MetricsOf(painter_, SmallFont(look_)), room)) {
                name->mark = FigureMark::Warning; // as red as the row
                selected.push_back(std::move(*name));
            }
        const std::vector<FigureLabel> girders = GirderLabels(results_, projection_, scale_, characterWidth);
        const std::vector<FigureLabel> stations = StationLabels(results_.model, projection_, scale_, characterWidth);
        PaintTexts(painter_, PlaceModelLabels(girders, stations, metrics, room), look_.font, look_,
                   TextRim::None);                               // they stand beside the frame
        PaintTexts(painter_, selected, SmallFont(look_), look_); // small: the frame lies under it
    }

private:
    /// One for each pixel of the pane that has a node.
    [[nodiscard]] std::vector<QPoint> Dots() const
    {
        const int columns = static_cast<int>(scale_.screen.clientWidth) + 2 * kDotRadius;
        const int rows = static_cast<int>(scale_.screen.clientHeight) + 2 * kDotRadius;
        std::vector<bool> taken(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows));
        std::vector<QPoint> dots;
        for (const std::int32_t node : DottedNodes(results_.nodeTable, projection_.NodeCount())) {
            const FigurePoint at = At(node);
            if (!IsInPane(at, scale_.screen, kDotRadius))
                continue;
            const QPoint dot(static_cast<int>(at.x), static_cast<int>(at.y));
            const auto pixel = static_cast<std::size_t>(dot.y() + kDotRadius) * static_cast<std::size_t>(columns)
                               + static_cast<std::size_t>(dot.x() + kDotRadius);
            if (pixel < taken.size() && taken[pixel])
                continue;
            if (pixel < taken.size())
                taken[pixel] = true;
            dots.push_back(dot);
        }
        return dots;
    }

    [[nodiscard]] FigurePoint At(std::int32_t node) const { return points_[static_cast<std::size_t>(node) - 1]; }
    [[nodiscard]] FigurePoint At(const NodePlace& place) const { return ScreenOf(place, projection_, scale_); }

    /// The middle of the line of the selected row that lies nearest to the middle of the pane.
    [[nodiscard]] std::optional<FigurePoint> SelectedMiddle() const
    {
        std::optional<FigurePoint> best;
        double bestDistance = 0;
        for (const FigureLine& line : selected_) {
            const FigurePoint middle{(line.from.x + line.to.x) / 2, (line.from.y + line.to.y) / 2};
            const double distance =
                std::hypot(middle.x - scale_.screen.HalfWidth(), middle.y - scale_.screen.HalfHeight());
            if (best && !(distance < bestDistance))
                continue;
            best = middle;
            bestDistance = distance;
        }
        return best;
    }

    QPainter& painter_;
    const AnalysisResults& results_;
    const FigureLook& look_;
    const CModelProjection& projection_;
    const ModelScale& scale_;
    CFigureLines lines_;
    std::vector<FigurePoint> points_;
    std::vector<FigureLine> selected_; // of the row under the cursor
};

} // namespace

FigureScreen FigureScreenOf(const QWidget& pane)
{
    const QSizeF screen = pane.screen()->size();
    return {static_cast<double>(pane.width()), static_cast<double>(pane.height()), screen.width(), screen.height()};
}

QPen PenOf(FigurePen pen, const FigureLook& look)
{
    const auto ink = [&look](const QColor& colour, double width) { return QPen(Ink(colour, look.backColor), width); };
    switch (pen) {
    case FigurePen::Member:
        return ink(Qt::blue, 2);
    case FigurePen::Lateral:
        return ink(QColor(0, 255, 0), 1);
    case FigurePen::Sway:
        return ink(QColor(255, 0, 255), 1);
    case FigurePen::Background:
        return {look.backColor, 1};
    case FigurePen::Selected:
        return ink(Qt::red, 3);
    case FigurePen::Second: {
        QPen dashed = ink(QColor(0xB0, 0x50, 0), 1.5);
        dashed.setDashPattern({5, 3}); // told from the first one without colours too
        return dashed;
    }
    case FigurePen::Greatest:
        return ink(ColorOf(kMaxColor), 1.5);
    case FigurePen::Least:
        return ink(ColorOf(kMinColor), 1.5);
    case FigurePen::Faint:
        return ink(QColor(0x80, 0x80, 0x80), 1);
    case FigurePen::Plain:
        break;
    }
    return ink(Qt::black, 1);
}

void CFigureLines::Add(FigurePoint from, FigurePoint to)
{
    if (const std::optional<QLine> line = PixelLine(from, to, screen_))
        lines_.push_back(*line);
}

namespace {

/// Lines along the pixels that touch each other become one; so do those that lie at the same place. What is painted by a
/// pen without dashes and without smoothing stays the same to the pixel.
void JoinLines(std::vector<QLine>& lines)
{
    const auto isAlong = [](const QLine& line) { return line.y1() == line.y2(); };
    const auto isUpright = [](const QLine& line) { return line.x1() == line.x2() && line.y1() != line.y2(); };
    const auto middle = std::partition(lines.begin(), lines.end(), isAlong);
    const auto end = std::partition(middle, lines.end(), isUpright);
    /// Of the lines from `first` to `last`: `across` tells them apart, `from` and `to` are the ends of one.
    const auto join = [](auto first, auto last, const auto& across, const auto& from, const auto& to,
                         const auto& lineOf) {
        std::sort(first, last, [&](const QLine& a, const QLine& b) {
            return std::pair(across(a), from(a)) < std::pair(across(b), from(b));
        });
        auto kept = first;
        for (auto line = first; line != last;) {
            const int place = across(*line);
            const int begin = from(*line);
            int reach = to(*line);
            for (++line; line != last && across(*line) == place && from(*line) <= reach; ++line)
                reach = std::max(reach, to(*line));
            *kept++ = lineOf(place, begin, reach);
        }
        return kept;
    };
    const auto uprightEnd = join(
        middle, end, [](const QLine& line) { return line.x1(); },
        [](const QLine& line) { return std::min(line.y1(), line.y2()); },
        [](const QLine& line) { return std::max(line.y1(), line.y2()); },
        [](int x, int from, int to) { return QLine(x, from, x, to); });
    const auto rest = std::move(end, lines.end(), uprightEnd);
    lines.erase(rest, lines.end());
    const auto alongEnd = join(
        lines.begin(), middle, [](const QLine& line) { return line.y1(); },
        [](const QLine& line) { return std::min(line.x1(), line.x2()); },
        [](const QLine& line) { return std::max(line.x1(), line.x2()); },
        [](int y, int from, int to) { return QLine(from, y, to, y); });
    lines.erase(alongEnd, middle);
}

} // namespace

void CFigureLines::Paint(QPainter& painter, const QPen& pen)
{
    constexpr std::size_t many = 500; // fewer are painted in no time
    if (lines_.size() > many && pen.style() == Qt::SolidLine && !painter.testRenderHint(QPainter::Antialiasing))
        JoinLines(lines_);
    painter.setPen(pen);
    painter.drawLines(lines_.data(), static_cast<int>(lines_.size()));
    lines_.clear();
}

void DrawModelFigure(QPainter& painter, const FigureScreen& screen, const AnalysisResults& results,
                     const CSbdData& data, FigureSelection selection, const FigureLook& look, FigureView& view,
                     const ResultState& state)
{
    const FigurePan pan = TakeMouseMarks(view, screen);
    const CModelProjection projection(FigurePlaces(results), view.viewDirection);
    if (projection.NodeCount() == 0 || screen.clientWidth <= 0 || screen.clientHeight <= 0)
        return;
    const ModelScale scale = FitModel(projection.Bounds(), screen, view.zoom, pan);
    painter.save();
    ModelPainter figure(painter, results, look, projection, scale);
    figure.Members();
    figure.Lateral(data, selection);
    figure.CrossBeams(data, selection);
    figure.Nodes();
    const FigureHeading heading = FrameHeading(results, ModelTitle(view.viewDirection), screen, scale.scale, state);
    figure.Names(data, selection, PaintHeading(painter, heading, screen, look));
    painter.restore();
}

// --- mouse -------------------------------------------------------------------------------------------

FigureMouseEffect CFigureMouse::Press(const QMouseEvent& event)
{
    if (event.button() == Qt::LeftButton) {
        view_.leftDownPoint = PointOf(event);
        rubberCorner_ = view_.leftDownPoint;
        leftButtonDown_ = true;
    } else if (event.button() == Qt::RightButton) {
        view_.rightDownPoint = PointOf(event);
        view_.rightMovePoint = view_.rightDownPoint;
        rightButtonDown_ = true;
        dragShown_ = false;
    }
    return FigureMouseEffect::None;
}

FigureMouseEffect CFigureMouse::Move(const QMouseEvent& event)
{
    if (leftButtonDown_) {
        rubberCorner_ = PointOf(event);
        return FigureMouseEffect::RubberBand;
    }
    return rightButtonDown_ ? FollowDrag(event) : FigureMouseEffect::None;
}

FigureMouseEffect CFigureMouse::FollowDrag(const QMouseEvent& event)
{
    view_.rightMovePoint = PointOf(event);
    dragShown_ = dragShown_ || std::abs(view_.rightMovePoint.x - view_.rightDownPoint.x) > kDragPixels
                 || std::abs(view_.rightMovePoint.y - view_.rightDownPoint.y) > kDragPixels;
    if (!dragShown_)
        return FigureMouseEffect::None;
    view_.panPreview = true;
    return FigureMouseEffect::Repaint;
}

FigureMouseEffect CFigureMouse::Release(const QMouseEvent& event)
{
    if (event.button() == Qt::LeftButton && leftButtonDown_) {
        leftButtonDown_ = false;
        view_.leftUpPoint = PointOf(event);
        view_.zoomBoxPending = true;
        return FigureMouseEffect::Repaint;
    }
    if (event.button() == Qt::RightButton && rightButtonDown_) {
        rightButtonDown_ = false;
        // The last place counts too, and stays exactly where it was shown: a drag that was not shown has no end.
        const FigureMouseEffect shown = FollowDrag(event);
        view_.panPending = dragShown_;
        view_.panPreview = false;
        dragShown_ = false;
        return shown;
    }
    return FigureMouseEffect::None;
}

void CFigureMouse::Forget()
{
    leftButtonDown_ = false;
    rightButtonDown_ = false;
    dragShown_ = false;
    view_.zoomBoxPending = false;
    view_.panPending = false;
    view_.panPreview = false;
}

std::optional<QRectF> CFigureMouse::RubberBand() const
{
    if (!leftButtonDown_)
        return std::nullopt;
    return QRectF(QPointF(view_.leftDownPoint.x, view_.leftDownPoint.y), QPointF(rubberCorner_.x, rubberCorner_.y))
        .normalized();
}

void DrawRubberBand(QPainter& painter, const QRectF& band, const QColor& paper)
{
    painter.save();
    painter.setPen(QPen(Ink(Qt::blue, paper), 1, Qt::DashLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(band.toRect());
    painter.restore();
}

} // namespace sbd
