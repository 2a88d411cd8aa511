#include "results/label_room.h"

#include <algorithm>
#include <cmath>

namespace sbd {

namespace {

constexpr double kStrip = 32;        // pixels
constexpr double kMostPane = 20'000; // no pane is wider

bool IsNumber(const LabelBox& box)
{
    return std::isfinite(box.left) && std::isfinite(box.top) && std::isfinite(box.width) && std::isfinite(box.height);
}

} // namespace

CLabelRoom::CLabelRoom(const LabelBox& pane) : pane_(pane)
{
    const double width = IsNumber(pane) ? std::clamp(pane.width, 0.0, kMostPane) : 0;
    strips_.resize(static_cast<std::size_t>(width / kStrip) + 1);
}

CLabelRoom::Strips CLabelRoom::StripsOf(const LabelBox& box) const
{
    const auto last = static_cast<double>(strips_.size() - 1);
    const auto strip = [&](double x) {
        return static_cast<std::size_t>(std::clamp(std::floor((x - pane_.left) / kStrip), 0.0, last));
    };
    return {strip(box.left), strip(box.Right()) + 1};
}

bool CLabelRoom::IsFree(const LabelBox& box) const
{
    if (!IsNumber(box) || box.left < pane_.left || box.top < pane_.top || box.Right() > pane_.Right()
        || box.Bottom() > pane_.Bottom())
        return false;
    const Strips strips = StripsOf(box);
    for (std::size_t strip = strips.first; strip < strips.end; ++strip)
        for (const LabelBox& taken : strips_[strip])
            if (taken.Overlaps(box))
                return false;
    return true;
}

void CLabelRoom::Take(const LabelBox& box)
{
    if (!IsNumber(box) || !box.Overlaps(pane_))
        return;
    const Strips strips = StripsOf(box);
    for (std::size_t strip = strips.first; strip < strips.end; ++strip)
        strips_[strip].push_back(box);
}

} // namespace sbd
