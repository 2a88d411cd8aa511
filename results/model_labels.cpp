#include "results/model_labels.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace sbd {

namespace {

constexpr int kMostMoves = 5;
constexpr double kBeside = 6; // pixels

/// From near the point that the label belongs to up to the edge of a box further out.
FigureLine LeaderOf(const FigureLabel& label, const LabelBox& box)
{
    constexpr double back = 14; // pixels; the point lies 20 or more behind the label
    const FigurePoint middle{box.left + box.width / 2, box.top + box.height / 2};
    const double reach = std::min(box.width / 2 / std::max(std::abs(label.away.x), 1e-9),
                                  box.height / 2 / std::max(std::abs(label.away.y), 1e-9));
    return {{label.at.x - label.away.x * back, label.at.y - label.away.y * back},
            {middle.x - label.away.x * reach, middle.y - label.away.y * reach},
            FigurePen::Faint};
}

/// With the middle at a place. Nothing has changed where the texts of the figure have always stood: the first try.
std::optional<PlacedText> PlaceAround(const FigureLabel& label, const TextMetrics& metrics, CLabelRoom& room)
{
    std::string text(label.text);
    const auto boxOf = [&](int move, double width) {
        const double out = move * metrics.height;
        return LabelBox{label.at.x + label.away.x * out - width / 2,
                        label.at.y + label.away.y * out - metrics.height / 2, width, metrics.height};
    };
    const double leastWidth = metrics.leastWidth ? metrics.leastWidth(text) : 0;
    std::optional<double> width; // measured when there may be room: a long bridge has thousands of names
    for (int move = 0; move <= kMostMoves; ++move) {
        if (!width && !room.IsFree(boxOf(move, leastWidth)))
            continue;
        if (!width)
            width = metrics.width(text);
        const LabelBox box = boxOf(move, *width);
        if (!room.IsFree(box))
            continue;
        room.Take(box);
        return PlacedText{std::move(text), box, false, FigureMark::None,
                          move == 0 ? std::nullopt : std::optional(LeaderOf(label, box))};
    }
    return std::nullopt;
}

} // namespace

std::vector<PlacedText> PlaceModelLabels(std::span<const FigureLabel> girders, std::span<const FigureLabel> stations,
                                         const TextMetrics& metrics, CLabelRoom& room)
{
    std::vector<PlacedText> placed;
    const auto place = [&](const FigureLabel& label) {
        if (auto text = PlaceAround(label, metrics, room))
            placed.push_back(std::move(*text));
    };
    std::ranges::for_each(girders, place);
    if (!stations.empty())
        place(stations.back());
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i + 1 < stations.size(); ++i)
        order.push_back(i);
    std::ranges::stable_sort(order, std::ranges::greater(), [](std::size_t i) { return std::countr_zero(i); });
    for (const std::size_t i : order)
        place(stations[i]);
    return placed;
}

std::optional<PlacedText> PlaceBeside(std::string text, FigurePoint at, const TextMetrics& metrics, CLabelRoom& room)
{
    const double width = metrics.width(text);
    for (int row = 0; row <= kMostMoves; ++row)
        for (const double left : {at.x + kBeside, at.x - kBeside - width, at.x - width / 2})
            for (const double top :
                 {at.y - kBeside - metrics.height - row * metrics.height, at.y + kBeside + row * metrics.height}) {
                const LabelBox box{left, top, width, metrics.height};
                if (!room.IsFree(box))
                    continue;
                room.Take(box);
                return PlacedText{std::move(text), box, false, FigureMark::None, std::nullopt};
            }
    return std::nullopt;
}

} // namespace sbd
