#include "upperview/sheet_places.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace sbd {

namespace {

constexpr int kBroadSheet = 7600; // units
constexpr SheetSteps kOpenSteps{kSheetMargin, 60, 95, 90, 2, 2};
constexpr SheetSteps kCloseSteps{30, 20, 60, 44, 1, 1};
constexpr SheetSteps kPrintedSteps{40, 24, 66, 44, 1, 2};

} // namespace

const SheetSteps& StepsOf(const SheetLook& look)
{
    return !look.compact ? kOpenSteps : look.printed ? kPrintedSteps : kCloseSteps;
}

SheetBounds BoundsOf(const BridgeDrawing& drawing)
{
    SheetBounds bounds;
    const auto widen = [&](double x, double y, double r) {
        bounds.left = std::min(bounds.left, x - r);
        bounds.right = std::max(bounds.right, x + r);
        bounds.bottom = std::min(bounds.bottom, y - r);
        bounds.top = std::max(bounds.top, y + r);
    };
    for (const DrawnShape& shape : drawing.shapes)
        for (const DrawnPoint& point : shape.points)
            widen(point.x, point.y, shape.radius);
    for (const DimensionChain& chain : drawing.chains)
        for (const ChainPart& part : chain.parts)
            if (!bounds.IsEmpty()) {
                bounds.left = std::min({bounds.left, part.from, part.to});
                bounds.right = std::max({bounds.right, part.from, part.to});
            }
    return bounds;
}

double UsualScale(const SheetBounds& bounds)
{
    constexpr std::array<double, 14> usual{10, 20, 30, 50, 100, 150, 200, 250, 300, 400, 500, 1000, 2000, 5000};
    constexpr double mostHeight = 2500;
    if (bounds.IsEmpty())
        return usual.front();
    for (const double scale : usual)
        if ((bounds.right - bounds.left) * 10 / scale <= kBroadSheet
            && (bounds.top - bounds.bottom) * 10 / scale <= mostHeight)
            return scale;
    return std::max(usual.back(), std::ceil((bounds.right - bounds.left) * 10 / kBroadSheet));
}

int LineStep(int height)
{
    return height + height / 5;
}

int LabelStep(int height, int lines)
{
    return lines * height + height / 3;
}

int BandFoot(int height, const SheetSteps& steps)
{
    return steps.bandLines * height + steps.gap / 2;
}

std::optional<SheetPlaces> PlacesOnSheet(const TextMetrics& metrics, const BridgeDrawing& drawing,
                                         const SheetLook& look)
{
    const SheetBounds bounds = BoundsOf(drawing);
    if (bounds.IsEmpty())
        return std::nullopt;
    const SheetSteps& steps = StepsOf(look);
    const auto has = [&](LabelRow place) {
        return std::ranges::any_of(drawing.labels, [&](const DrawnLabel& label) { return label.place == place; });
    };
    const double scale = look.scale > 0 ? look.scale : UsualScale(drawing);
    SheetPlaces places;
    places.leftTop = {bounds.left, bounds.top};
    places.width = bounds.right - bounds.left;
    places.height = bounds.top - bounds.bottom;
    places.perX = kSheetUnitsPerMillimetre / scale;
    places.perY = kSheetUnitsPerMillimetre * look.exaggeration / scale;
    places.left = kSheetLeftMargin;
    places.right = kSheetMargin;
    places.top = -steps.margin
                 - LineStep(metrics.height) * (1 + (look.compact ? 0 : static_cast<int>(drawing.notes.size())))
                 - steps.gap;
    for (const LabelRow place : {LabelRow::FarAbove, LabelRow::Above})
        if (has(place))
            places.top -= LabelStep(metrics.height, steps.labelLines);
    places.below = steps.gap / 3 + steps.gap + (has(LabelRow::Below) ? LabelStep(metrics.height, steps.labelLines) : 0)
                   + static_cast<int>(drawing.chains.size()) * steps.chain + steps.gap + metrics.height;
    if (!drawing.bands.empty())
        places.below += LineStep(metrics.height) + steps.gap / 2
                        + static_cast<int>(drawing.bands.size()) * (steps.band + BandFoot(metrics.height, steps));
    return places;
}

double ScaleThatFills(const BridgeDrawing& drawing, const TextMetrics& metrics, const SheetLook& look, double width,
                      double height)
{
    const std::optional<SheetPlaces> places = PlacesOnSheet(metrics, drawing, look);
    if (!places)
        return 1;
    constexpr double leastShare = 0.3; // of the height: what lies below is scrolled to
    const double across = std::max(width - places->left - places->right, width / 4);
    const double down = std::max(height + places->top - places->below, height * leastShare);
    const double scale = std::max(places->width * kSheetUnitsPerMillimetre / std::max(across, 1.0),
                                  places->height * kSheetUnitsPerMillimetre * look.exaggeration / std::max(down, 1.0));
    return scale > 0 ? scale : 1;
}

double UsualScale(const BridgeDrawing& drawing)
{
    return UsualScale(BoundsOf(drawing));
}

} // namespace sbd
