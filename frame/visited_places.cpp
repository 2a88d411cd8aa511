#include "frame/visited_places.h"

#include <algorithm>

namespace sbd {

void CVisitedPlaces::Leave(const SearchPlace& from)
{
    forward_.clear();
    if (from.block == 0 || (!back_.empty() && back_.back() == from))
        return;
    back_.push_back(from);
    if (back_.size() > kMost)
        back_.erase(back_.begin());
}

std::optional<SearchPlace> CVisitedPlaces::Step(Places& from, Places& to, const SearchPlace& here)
{
    while (!from.empty() && from.back() == here) // the user has gone there by himself
        from.pop_back();
    if (from.empty())
        return std::nullopt;
    const SearchPlace place = from.back();
    from.pop_back();
    if (here.block != 0)
        to.push_back(here);
    return place;
}

std::vector<SearchPlace> CVisitedPlaces::Recent() const
{
    std::vector<SearchPlace> recent;
    for (auto place = back_.rbegin(); place != back_.rend(); ++place)
        if (std::ranges::find(recent, place->block, &SearchPlace::block) == recent.end())
            recent.push_back(*place);
    return recent;
}

} // namespace sbd
