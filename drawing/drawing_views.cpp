#include "drawing/drawing_views.h"

#include "drawing/bridge_plan.h"
#include "drawing/cross_section.h"
#include "drawing/girder_elevation.h"
#include "drawing/joint_detail.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <span>

namespace sbd {

namespace {

// Names of webs and coordinates are read by all.
constexpr int kByElevation[] = {259, 302, 305, 307, 311, 313, 314, 315, 321, 322, 331, 332, 401, 402, 404, 408, 504};
constexpr int kBySection[] = {302, 305, 307, 311, 312, 313, 314, 321, 322, 324, 325, 326, 331, 332,
                              333, 401, 404, 504, 523, 532, 533, 542, 543, 642, 643, 671, 672};
constexpr int kByPlan[] = {305, 307, 313, 314, 321, 404, 504, 523, 533, 573, 574, 578};
constexpr int kByJoint[] = {302, 305, 307, 311, 313, 314, 321, 322, 325, 326, 331, 332, 333, 341, 342, 343, 344, 401,
                            404, 504, 523, 532, 533, 551, 552, 553, 554, 555, 556, 557, 558, 559, 560, 561, 562, 563};
constexpr std::span<const int> kReads[] = {kByElevation, kBySection, kByPlan, kByJoint};
static_assert(std::size(kReads) == kDrawingViews);

double DistanceOf(const DrawnPoint& at, const DrawnPoint& from, const DrawnPoint& to)
{
    const double x = to.x - from.x;
    const double y = to.y - from.y;
    const double length = x * x + y * y;
    const double share = length > 0 ? std::clamp(((at.x - from.x) * x + (at.y - from.y) * y) / length, 0.0, 1.0) : 0;
    return std::hypot(at.x - from.x - share * x, at.y - from.y - share * y);
}

constexpr std::size_t kMostDrawings = 400; // looked at for one row

/// Calls `look` with each drawing of a view, all alike but for what is drawn, until it says that it is enough.
template <typename Look>
void ForEachDrawing(const CSbdData& data, const AnalysisResults& results, DrawingView view, bool camber,
                    const Look& look)
{
    DrawingRequest request;
    request.view = view;
    if (view == DrawingView::Plan) {
        static_cast<void>(look(request));
        return;
    }
    if (view == DrawingView::Section) {
        for (; request.station < data.gridNames.swayNames.size(); ++request.station)
            if (!look(request))
                return;
        return;
    }
    const std::vector<std::string>& girders = data.gridNames.girderNames;
    request.camber = camber && view == DrawingView::Elevation;
    for (; request.girder < girders.size(); ++request.girder) {
        const bool isBox = WebsOf(data, girders[request.girder]).IsBox();
        for (const GirderSide side : {GirderSide::Left, GirderSide::Right}) {
            if (side == GirderSide::Right && !isBox)
                continue;
            request.side = side;
            const std::size_t drawings =
                view == DrawingView::Joint ? JointNames(data, results, request.girder, side).size() : 1;
            for (request.joint = 0; request.joint < drawings; ++request.joint)
                if (!look(request))
                    return;
            request.joint = 0;
        }
    }
}

struct Nearness {
    double distance = 0; ///< of the outline; 0 within
    double area = 0;     ///< of the box around; 0 for a line
};

Nearness NearnessOf(const DrawnShape& shape, DrawnPoint at, double stretch)
{
    const auto stretched = [&](const DrawnPoint& point) { return DrawnPoint{point.x, point.y * stretch}; };
    at = stretched(at);
    if (shape.kind == ShapeKind::Circle) {
        const DrawnPoint centre = stretched(shape.points.front());
        return {std::max(0.0, std::hypot(at.x - centre.x, at.y - centre.y) - shape.radius),
                shape.radius * shape.radius};
    }
    Nearness near{std::numeric_limits<double>::infinity(), 0};
    DrawnPoint least = stretched(shape.points.front());
    DrawnPoint most = least;
    bool inside = false;
    const std::size_t count = shape.points.size();
    const bool closed = shape.kind == ShapeKind::Polygon;
    for (std::size_t i = closed ? 0 : 1; i < count; ++i) {
        const DrawnPoint from = stretched(shape.points[(i + count - 1) % count]);
        const DrawnPoint to = stretched(shape.points[i]);
        near.distance = std::min(near.distance, DistanceOf(at, from, to));
        if ((from.y > at.y) != (to.y > at.y) && at.x < from.x + (at.y - from.y) / (to.y - from.y) * (to.x - from.x))
            inside = !inside;
        least = {std::min(least.x, to.x), std::min(least.y, to.y)};
        most = {std::max(most.x, to.x), std::max(most.y, to.y)};
    }
    if (closed) {
        near.area = (most.x - least.x) * (most.y - least.y);
        if (inside)
            near.distance = 0;
    }
    return near;
}

} // namespace

BridgeDrawing MakeDrawing(const CSbdData& data, const AnalysisResults& results, const DrawingRequest& request)
{
    switch (request.view) {
    case DrawingView::Section:
        return CrossSection(data, results, request.station);
    case DrawingView::Plan:
        return BridgePlan(data, results);
    case DrawingView::Joint:
        return JointDetail(data, results, request.girder, request.side, request.joint);
    case DrawingView::Elevation:
        break;
    }
    return GirderElevation(data, results, {request.girder, request.side, request.camber});
}

bool IsReadBy(DrawingView view, int block)
{
    return std::ranges::binary_search(kReads[static_cast<std::size_t>(view)], block);
}

bool IsDrawn(const BridgeDrawing& drawing, const SourceCell& row)
{
    const auto isOfRow = [&](const auto& part) { return part.source.SameRow(row); };
    return std::ranges::any_of(drawing.shapes, isOfRow) || std::ranges::any_of(drawing.labels, isOfRow);
}

bool SpeaksOf(const BridgeDrawing& drawing, const SourceCell& row)
{
    return drawing.UseOf(row.block, row.row) != nullptr || IsDrawn(drawing, row);
}

DrawingSearch DrawingOfRow(const CSbdData& data, const AnalysisResults& results, const DrawingRequest& request,
                           const SourceCell& row, std::chrono::milliseconds most)
{
    const auto end = std::chrono::steady_clock::now() + most;
    const auto isLate = [&] { return std::chrono::steady_clock::now() >= end; };
    DrawingSearch search;
    std::size_t looked = 0;
    for (std::size_t i = 0; i < kDrawingViews && search.all && !search.found; ++i) {
        const auto view = static_cast<DrawingView>((static_cast<std::size_t>(request.view) + i) % kDrawingViews);
        if (!IsReadBy(view, row.block))
            continue;
        std::vector<DrawingRequest> drawings;
        ForEachDrawing(data, results, view, request.camber, [&](const DrawingRequest& each) {
            search.all = looked + drawings.size() < kMostDrawings && !isLate();
            if (search.all)
                drawings.push_back(each);
            return search.all;
        });
        const auto shown = std::ranges::find(drawings, request);
        if (shown != drawings.end())
            std::rotate(drawings.begin(), shown + 1, drawings.end()); // clang has no ranges::rotate with this library
        for (const DrawingRequest& each : drawings) {
            if (isLate()) {
                search.all = false;
                break;
            }
            ++looked;
            if (SpeaksOf(MakeDrawing(data, results, each), row)) {
                search.found = each;
                break;
            }
        }
    }
    return search;
}

const DrawnShape* PartAt(const BridgeDrawing& drawing, DrawnPoint at, double reach, double stretch)
{
    const DrawnShape* best = nullptr;
    Nearness bestNear;
    for (const DrawnShape& shape : drawing.shapes) {
        if (shape.source.block == 0 || shape.points.empty())
            continue;
        const Nearness near = NearnessOf(shape, at, stretch);
        if (!(near.distance <= reach))
            continue;
        // A small thing lies on a large one, and what is drawn later lies on what was drawn before.
        if (best == nullptr || near.area < bestNear.area
            || (near.area == bestNear.area && near.distance <= bestNear.distance)) {
            best = &shape;
            bestNear = near;
        }
    }
    return best;
}

} // namespace sbd
