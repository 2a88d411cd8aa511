// CVisitedPlaces: where the user has been, as the way back knows it.
#pragma once

#include "search/search_tables.h"

#include <optional>
#include <vector>

namespace sbd {

/// The places that jumps led away from, and those that the user came back from. A place is a block with row and column;
/// moving the cursor is no jump.
class CVisitedPlaces {
public:
    static constexpr std::size_t kMost = 100;

    /// A jump leads away from `from`; what could be gone forward to is forgotten.
    void Leave(const SearchPlace& from);
    /// The place to go back to from `here`, which the way forward then knows; nothing: there is none.
    [[nodiscard]] std::optional<SearchPlace> Back(const SearchPlace& here) { return Step(back_, forward_, here); }
    [[nodiscard]] std::optional<SearchPlace> Forward(const SearchPlace& here) { return Step(forward_, back_, here); }
    [[nodiscard]] bool CanGoBack() const { return !back_.empty(); }
    [[nodiscard]] bool CanGoForward() const { return !forward_.empty(); }
    /// The places behind, the last one first, each block once.
    [[nodiscard]] std::vector<SearchPlace> Recent() const;

private:
    using Places = std::vector<SearchPlace>;
    [[nodiscard]] static std::optional<SearchPlace> Step(Places& from, Places& to, const SearchPlace& here);

    Places back_; // the nearest one last, as in the next
    Places forward_;
};

} // namespace sbd
