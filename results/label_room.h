// The room that is left for texts in a figure: what is taken is not written over.
#pragma once

#include <cstddef>
#include <vector>

namespace sbd {

/// A rectangle of the screen in pixels, y downward.
struct LabelBox {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;

    [[nodiscard]] double Right() const { return left + width; }
    [[nodiscard]] double Bottom() const { return top + height; }
    /// Do both have more than an edge in common?
    [[nodiscard]] bool Overlaps(const LabelBox& other) const
    {
        return left < other.Right() && other.left < Right() && top < other.Bottom() && other.top < Bottom();
    }

    friend bool operator==(const LabelBox&, const LabelBox&) = default;
};

/// Finds out quickly whether a box touches one of thousands.
class CLabelRoom {
public:
    /// `pane`: nothing may lie outside of it.
    explicit CLabelRoom(const LabelBox& pane);

    /// False for a box that leaves the pane, lies on one that was taken, or is no number.
    [[nodiscard]] bool IsFree(const LabelBox& box) const;
    /// Takes the part of the box that lies in the pane.
    void Take(const LabelBox& box);

private:
    /// Strips of the pane from left to right that a box lies in.
    struct Strips {
        std::size_t first;
        std::size_t end;
    };
    [[nodiscard]] Strips StripsOf(const LabelBox& box) const;

    LabelBox pane_;
    std::vector<std::vector<LabelBox>> strips_;
};

} // namespace sbd
