#include "results/model_projection.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>

namespace sbd {

namespace {

constexpr double kAlongDepth = 1e-30; // a direction that is shorter than this in plan looks straight down or up

/// The axes of a view: a projected point is three sums of products.
struct ViewAxes {
    Point3 right;
    Point3 up;
    Point3 depth;
    double distance;
};

ViewAxes AxesOf(Point3 direction)
{
    if (std::hypot(direction[0], direction[1], direction[2]) <= kAlongDepth)
        direction = {0, 0, 1};
    const auto [vx, vy, vz] = direction;
    const double a = std::sqrt(vx * vx + vy * vy);
    const double b = std::sqrt(vx * vx + vy * vy + vz * vz);
    ViewAxes axes;
    if (a > kAlongDepth) {
        axes.right = {vy / a, -vx / a, 0};
        axes.up = {-vx * vz / (a * b), -vy * vz / (a * b), a / b};
    } else {
        axes.right = {1, 0, 0};
        axes.up = {0, -vz / b, a / b};
    }
    // The depth takes the height for the x of the point as well. No figure uses the depth.
    axes.depth = {0, -vy / b, -vz / b - vx / b};
    axes.distance = b;
    return axes;
}

Point3 Project(const ViewAxes& axes, const Point3& p)
{
    const double right = axes.right[0] * p[0] + axes.right[1] * p[1];
    const double up = axes.up[0] * p[0] + axes.up[1] * p[1] + axes.up[2] * p[2];
    const double depth = axes.depth[1] * p[1] + axes.depth[2] * p[2] + axes.distance;
    return {-right, up, depth};
}

} // namespace

Point3 ProjectPoint(const Point3& direction, const Point3& point)
{
    return Project(AxesOf(direction), point);
}

std::size_t FigureNodeCount(const AnalysisResults& results)
{
    const auto nodes = static_cast<std::size_t>(std::max(results.model.nodeCount, 0));
    return std::min(nodes, results.nodeTable.coordinates.size());
}

std::vector<Point3> FigurePlaces(const AnalysisResults& results)
{
    std::vector<Point3> places(FigureNodeCount(results));
    for (std::size_t node = 0; node < places.size(); ++node) {
        const Point3& at = results.nodeTable.coordinates[node];
        places[node] = {-at[0], -at[1], at[2]};
    }
    return places;
}

double SuitingMagnification(const AnalysisResults& results, std::size_t loadCase)
{
    constexpr double share = 0.05; // of the frame's longest side
    constexpr std::size_t moves = 3;
    const auto loads = static_cast<std::size_t>(std::max(results.model.loadCaseCount, 0));
    const std::vector<Point3> places = FigurePlaces(results);
    double largest = 0;
    double side = 0;
    for (std::size_t k = 0; k < moves; ++k) {
        double least = std::numeric_limits<double>::max();
        double most = std::numeric_limits<double>::lowest();
        for (std::size_t node = 0; node < places.size(); ++node) {
            const double move =
                std::abs(results.displacement.At(node, loadCase, k, loads, kNodeComponents).value_or(0));
            if (std::isfinite(move))
                largest = std::max(largest, move);
            if (std::isfinite(places[node][k])) {
                least = std::min(least, places[node][k]);
                most = std::max(most, places[node][k]);
            }
        }
        if (least <= most)
            side = std::max(side, most - least);
    }
    const double wanted = largest > 0 ? side * share / largest : 1;
    constexpr double mostTimes = 1e9;
    double times = 1;
    for (double power = 1; power <= mostTimes; power *= 10)
        for (const double digit : {1.0, 2.0, 5.0})
            if (digit * power <= wanted)
                times = digit * power;
    return times;
}

std::vector<Point3> DeformedPlaces(const AnalysisResults& results, std::size_t loadCase, double magnification)
{
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    constexpr double signs[] = {-1, -1, 1};
    const auto loads = static_cast<std::size_t>(std::max(results.model.loadCaseCount, 0));
    std::vector<Point3> places = FigurePlaces(results);
    for (std::size_t node = 0; node < places.size(); ++node)
        for (std::size_t k = 0; k < std::size(signs); ++k) {
            const std::optional<double> move = results.displacement.At(node, loadCase, k, loads, kNodeComponents);
            places[node][k] += move ? signs[k] * magnification * *move : none;
        }
    return places;
}

CModelProjection::CModelProjection(std::span<const Point3> places, const Point3& direction)
{
    const ViewAxes axes = AxesOf(direction);
    projected_.reserve(places.size());
    for (const Point3& place : places) {
        projected_.push_back(Project(axes, place));
        bounds_.Widen(projected_.back()[0], projected_.back()[1]);
    }
}

} // namespace sbd
