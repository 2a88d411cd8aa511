#include "upperview/sheet_strips.h"

#include "project/text.h"
#include "upperview/sheet_parts.h"

#include <algorithm>
#include <array>

namespace sbd {

namespace {

/// The scale at which the thickest, or the widest, plate has its height.
double BandScale(const BridgeDrawing& drawing, int height, bool ofWidths)
{
    double most = 0;
    for (const PlateBand& band : drawing.bands)
        if (band.ofWidths == ofWidths)
            for (const BandPart& part : band.parts)
                most = std::max({most, part.thickFrom, part.thickTo});
    constexpr std::array<double, 10> usual{1, 2, 5, 10, 20, 50, 100, 200, 500, 1000};
    for (const double each : usual)
        if (most * kSheetUnitsPerMillimetre / each <= height)
            return each;
    return usual.back();
}

void Band(CSheetFrame& frame, const PlateBand& band, double scale)
{
    const int foot = frame.cursor - frame.steps.band;
    frame.dc.Text({kSheetMargin, foot + frame.height}, band.title);
    const auto heightOf = [&](double thickness) {
        return std::min(frame.steps.band, frame.Unit(thickness * kSheetUnitsPerMillimetre / scale));
    };
    const auto isSeen = [&](const BandPart& part) { return frame.IsSeen(frame.X(part.from), frame.X(part.to)); };
    frame.dc.SetPen({PenStyle::Solid, 1, colours::kBlack});
    for (const BandPart& part : band.parts) {
        if (!isSeen(part))
            continue;
        const std::array<DrawPoint, 5> outline{{{frame.X(part.from), foot},
                                                {frame.X(part.from), foot + heightOf(part.thickFrom)},
                                                {frame.X(part.to), foot + heightOf(part.thickTo)},
                                                {frame.X(part.to), foot},
                                                {frame.X(part.from), foot}}};
        frame.dc.SetBrush(
            {BrushStyle::Solid, frame.IsSelected(part.source) ? colours::kRed : FillOf(DrawingLayer::Flange)});
        frame.dc.FillPolygon(std::span(outline).first(4));
        frame.Hit({outline[0].x, foot, outline[2].x, std::max(outline[1].y, outline[2].y)}, part.source, part.text);
    }
    // The outlines of parts beside each other are one: foot, steps, and the ends.
    std::vector<DrawPoint> top;
    const auto close = [&] {
        if (top.size() >= 2) {
            frame.dc.Polyline(top);
            frame.dc.Line({top.front().x, foot}, {top.back().x, foot});
        }
        top.clear();
    };
    for (const BandPart& part : band.parts) {
        if (!isSeen(part))
            continue;
        const int from = frame.X(part.from);
        if (!top.empty() && top.back().x != from)
            close();
        for (const DrawPoint& point :
             {DrawPoint{from, foot}, DrawPoint{from, foot + heightOf(part.thickFrom)},
              DrawPoint{frame.X(part.to), foot + heightOf(part.thickTo)}, DrawPoint{frame.X(part.to), foot}})
            if (top.empty() || !(top.back() == point))
                top.push_back(point);
    }
    close();
    CTextRow row(frame.dc, foot - frame.height / 8, frame.steps.bandLines);
    const auto middleOf = [&](const BandPart& part) { return (frame.X(part.from) + frame.X(part.to)) / 2; };
    const auto halfOf = [&](const BandPart& part) { return frame.dc.Metrics().Width(part.text) / 2; };
    const auto isBroader = [&](const BandPart& part) {
        return 2 * halfOf(part) > frame.X(part.to) - frame.X(part.from);
    };
    for (std::size_t i = 0; i < band.parts.size(); ++i) {
        const BandPart& part = band.parts[i];
        // In a single line a text that is broader than its plate gives way to that of the next one.
        const BandPart* next = i + 1 < band.parts.size() ? &band.parts[i + 1] : nullptr;
        const bool givesWay = frame.steps.bandLines == 1 && next != nullptr && isBroader(part) && !isBroader(*next)
                              && middleOf(part) + halfOf(part) >= middleOf(*next) - halfOf(*next);
        if (!givesWay)
            frame.PutLabel(row, middleOf(part), part.text, part.source);
    }
    frame.dc.SetTextColour(colours::kBlack);
    frame.cursor = foot - BandFoot(frame.height, frame.steps);
}

/// The middle of a part's text. A short part at an end of its chain has it outside, so that its neighbour's has room.
int TextPlace(CSheetFrame& frame, const DimensionChain& chain, const ChainPart& part)
{
    const TextMetrics metrics = frame.dc.Metrics();
    const int from = std::min(frame.X(part.from), frame.X(part.to));
    const int to = std::max(frame.X(part.from), frame.X(part.to));
    const int width = metrics.Width(part.text);
    const int aside = (width + metrics.aveCharWidth) / 2;
    if (chain.parts.size() > 1 && to - from < width) {
        if (&part == &chain.parts.front())
            return from - aside;
        if (&part == &chain.parts.back())
            return to + aside;
    }
    return (from + to) / 2;
}

} // namespace

void DrawBands(CSheetFrame& frame)
{
    if (frame.drawing.bands.empty())
        return;
    const std::array<double, 2> scales{BandScale(frame.drawing, frame.steps.band, false),
                                       BandScale(frame.drawing, frame.steps.band, true)};
    std::string text = Cp932("板厚は縮尺 1:");
    AppendFixed(text, scales[0], 0, 0);
    if (std::ranges::any_of(frame.drawing.bands, &PlateBand::ofWidths)) {
        text += Cp932("，幅は 1:");
        AppendFixed(text, scales[1], 0, 0);
    }
    frame.Line(text + Cp932(" で描いています．"));
    for (const PlateBand& band : frame.drawing.bands)
        Band(frame, band, scales[band.ofWidths ? 1 : 0]);
    frame.cursor -= frame.steps.gap / 2;
}

void DrawChains(CSheetFrame& frame)
{
    for (const DimensionChain& chain : frame.drawing.chains) {
        const int y = frame.cursor - frame.steps.chain + frame.height / 2;
        frame.dc.SetTextColour(colours::kBlack);
        frame.dc.Text({kSheetMargin, y + frame.height}, chain.title);
        const int tick = 5 * frame.dc.unitY;
        int end = std::numeric_limits<int>::min(); // of the part before
        for (const ChainPart& part : chain.parts) {
            const int from = std::min(frame.X(part.from), frame.X(part.to));
            const int to = std::max(frame.X(part.from), frame.X(part.to));
            if (from == to || !frame.IsSeen(from, to))
                continue;
            frame.dc.SetPen({PenStyle::Solid, 1, frame.IsSelected(part.source) ? colours::kRed : colours::kBlack});
            frame.dc.Line({from, y}, {to, y});
            if (from != end || frame.IsSelected(part.source))
                frame.dc.Line({from, y - tick}, {from, y + tick});
            frame.dc.Line({to, y - tick}, {to, y + tick});
            end = to;
            frame.Hit({from, y - tick, to, y + tick}, part.source, part.text);
        }
        CTextRow above(frame.dc, y + frame.height + 4, 1);
        CTextRow below(frame.dc, y - 4, 1);
        for (const ChainPart& part : chain.parts) {
            const int middle = TextPlace(frame, chain, part);
            if (!frame.PutLabel(above, middle, part.text, part.source) && !frame.look.compact)
                frame.PutLabel(below, middle, part.text, part.source);
        }
        frame.cursor -= frame.steps.chain;
    }
    frame.dc.SetTextColour(colours::kBlack);
    frame.cursor -= frame.steps.gap + frame.height;
}

} // namespace sbd
