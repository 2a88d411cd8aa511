// The nodes of the frame as they are seen from a direction.
#pragma once

#include "results/figure_view.h"
#include "results/records.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace sbd {

using Point3 = std::array<double, 3>;

/// `point` seen from `direction`: x to the right, y upward, depth.
[[nodiscard]] Point3 ProjectPoint(const Point3& direction, const Point3& point);

/// The nodes that the model and the table of nodes both have.
[[nodiscard]] std::size_t FigureNodeCount(const AnalysisResults& results);

/// The places of all nodes in the figures: plan turned by 180 degrees.
[[nodiscard]] std::vector<Point3> FigurePlaces(const AnalysisResults& results);

/// Displacements are shown this many times too large, unless another number was chosen.
inline constexpr int kDeformedMagnification = 100;
/// What can be chosen; 0: what suits the largest displacement.
inline constexpr int kMagnifications[] = {0, 1, 10, 100, 1000};
/// A number of 1, 2 or 5 and noughts by which the largest displacement of a load case is about a twentieth of the frame;
/// 1 where nothing moves.
[[nodiscard]] double SuitingMagnification(const AnalysisResults& results, std::size_t loadCase);

/// The same, moved by the displacements in a load case; a node that has none is no number.
[[nodiscard]] std::vector<Point3> DeformedPlaces(const AnalysisResults& results, std::size_t loadCase,
                                                 double magnification = kDeformedMagnification);

/// All nodes projected, by their numbers from 1, and the bounds of the figure. A place that is no number stays one.
class CModelProjection {
public:
    CModelProjection(std::span<const Point3> places, const Point3& direction);

    [[nodiscard]] std::size_t NodeCount() const { return projected_.size(); }
    [[nodiscard]] bool HasNode(std::int64_t number) const
    {
        return number >= 1 && static_cast<std::uint64_t>(number) <= projected_.size();
    }
    /// `number` must be a node.
    [[nodiscard]] const Point3& Node(std::int64_t number) const
    {
        return projected_[static_cast<std::size_t>(number) - 1];
    }
    [[nodiscard]] const FigureBounds& Bounds() const { return bounds_; }

private:
    std::vector<Point3> projected_;
    FigureBounds bounds_;
};

} // namespace sbd
