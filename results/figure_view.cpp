#include "results/figure_view.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace sbd {

namespace {

constexpr double kZoomFactor = 1.2;
constexpr int kMostSteps = 1'000'000; // far outside of every screen
constexpr double kLeastZoom = 1e-6;   // no pane shows anything of use beyond either
constexpr double kMostZoom = 1e6;
constexpr double kLeastBox = 4; // pixels; a smaller rectangle is the trembling of a click

struct MoveCommand {
    Command command;
    int stepsX;
    int stepsY;
};

constexpr MoveCommand kMoveCommands[] = {
    {Command::MoveUp, 0, -1}, {Command::MoveDown, 0, 1}, {Command::MoveLeft, -1, 0}, {Command::MoveRight, 1, 0}};

void SetZoom(FigureView& view, double zoom)
{
    if (std::isfinite(zoom))
        view.zoom = std::clamp(zoom, kLeastZoom, kMostZoom);
}

constexpr double kDegreesPerPixel = 0.5;
constexpr double kMostElevation = 89.9; // degrees; at the pole itself the direction of the plan is lost

/// Whole steps; what is no number leaves the steps as they were.
int Steps(double steps, int before)
{
    if (std::isnan(steps))
        return before;
    return static_cast<int>(std::clamp(std::trunc(steps), -double{kMostSteps}, double{kMostSteps}));
}

FigurePan Dragged(const FigureView& view, const FigureScreen& screen)
{
    return {double(Steps(view.panX + (view.rightMovePoint.x - view.rightDownPoint.x) / screen.StepX(), view.panX)),
            double(Steps(view.panY + (view.rightMovePoint.y - view.rightDownPoint.y) / screen.StepY(), view.panY))};
}

void ApplyZoomBox(FigureView& view, const FigureScreen& screen)
{
    const FigurePoint from = view.leftDownPoint;
    const FigurePoint to = view.leftUpPoint;
    const double width = std::abs(to.x - from.x);
    const double height = std::abs(to.y - from.y);
    if (!(std::max(width, height) >= kLeastBox) || screen.clientWidth <= 0 || screen.clientHeight <= 0)
        return;
    const FigurePan pan = PanOf(view);
    view.panX = Steps(pan.x - ((to.x + from.x) * 0.5 - screen.HalfWidth()) / screen.StepX(), view.panX);
    view.panY = Steps(pan.y - ((to.y + from.y) * 0.5 - screen.HalfHeight()) / screen.StepY(), view.panY);
    view.slideX = view.slideY = 0;
    SetZoom(view, view.zoom * std::max(width / screen.clientWidth, height / screen.clientHeight));
}

} // namespace

std::span<const Command> FigureCommands()
{
    using enum Command;
    static constexpr Command commands[] = {ViewXY, ViewYZ, ViewXZ,   ViewAll,  ZoomOut,
                                           ZoomIn, MoveUp, MoveDown, MoveLeft, MoveRight};
    return commands;
}

bool ApplyViewCommand(FigureView& view, Command command)
{
    if (const auto* const side = std::ranges::find(kViewCommands, command, &ViewCommand::command);
        side != std::end(kViewCommands)) {
        FitAgain(view);
        view.viewDirection = side->direction;
        return true;
    }
    if (const auto* const move = std::ranges::find(kMoveCommands, command, &MoveCommand::command);
        move != std::end(kMoveCommands)) {
        view.panX = std::clamp(view.panX + move->stepsX, -kMostSteps, kMostSteps);
        view.panY = std::clamp(view.panY + move->stepsY, -kMostSteps, kMostSteps);
        return true;
    }
    if (command == Command::ZoomOut)
        SetZoom(view, view.zoom * kZoomFactor);
    else if (command == Command::ZoomIn)
        SetZoom(view, view.zoom / kZoomFactor);
    else
        return false;
    return true;
}

FigurePan TakeMouseMarks(FigureView& view, const FigureScreen& screen)
{
    if (view.zoomBoxPending)
        ApplyZoomBox(view, screen);
    if (view.panPending) {
        const FigurePan pan = Dragged(view, screen);
        view.panX = static_cast<int>(pan.x);
        view.panY = static_cast<int>(pan.y);
    }
    FigurePan pan = PanOf(view);
    if (view.panPreview) {
        pan = Dragged(view, screen);
        pan.x += view.slideX;
        pan.y += view.slideY;
    }
    view.zoomBoxPending = false;
    view.panPending = false;
    view.panPreview = false;
    return pan;
}

FigurePan PanOf(const FigureView& view)
{
    return {view.panX + view.slideX, view.panY + view.slideY};
}

void ZoomAt(FigureView& view, const FigureScreen& screen, FigurePoint at, double factor)
{
    if (!(factor > 0) || !(screen.StepX() > 0) || !(screen.StepY() > 0))
        return;
    const double before = view.zoom;
    SetZoom(view, before / factor);
    const double grown = before / view.zoom; // less where the zoom has come to its bound
    const FigurePan pan = PanOf(view);
    const double x = at.x - screen.HalfWidth() - pan.x * screen.StepX();
    const double y = at.y - screen.HalfHeight() - pan.y * screen.StepY();
    Slide(view, screen, x - x * grown, y - y * grown);
}

void Slide(FigureView& view, const FigureScreen& screen, double dx, double dy)
{
    const double x = view.slideX + dx / screen.StepX();
    const double y = view.slideY + dy / screen.StepY();
    if (!std::isfinite(x) || !std::isfinite(y))
        return;
    view.slideX = std::clamp(x, -double{kMostSteps}, double{kMostSteps});
    view.slideY = std::clamp(y, -double{kMostSteps}, double{kMostSteps});
}

void FitAgain(FigureView& view)
{
    view.zoom = kFitZoom;
    view.panX = view.panY = 0;
    view.slideX = view.slideY = 0;
}

void TurnView(FigureView& view, double dx, double dy)
{
    constexpr double degree = std::numbers::pi / 180;
    const auto [x, y, z] = view.viewDirection;
    const double plan = std::hypot(x, y);
    const double straightAhead = std::numbers::pi / 2; // as a plan is seen, which has no direction of its own
    double azimuth = plan > 0 ? std::atan2(y, x) : straightAhead;
    double elevation = std::atan2(z, plan) / degree;
    azimuth -= dx * kDegreesPerPixel * degree;
    elevation = std::clamp(elevation + dy * kDegreesPerPixel, -kMostElevation, kMostElevation);
    if (!std::isfinite(azimuth) || !std::isfinite(elevation))
        return;
    const double level = std::cos(elevation * degree);
    view.viewDirection = {level * std::cos(azimuth), level * std::sin(azimuth), std::sin(elevation * degree)};
}

void FigureBounds::Widen(double x, double y)
{
    if (!std::isfinite(x) || !std::isfinite(y))
        return;
    minX = std::min(minX, x);
    maxX = std::max(maxX, x);
    minY = std::min(minY, y);
    maxY = std::max(maxY, y);
}

FigurePoint ModelScale::ToScreen(double x, double y) const
{
    return {pan.x * screen.StepX() + (x - centerX) * scale + screen.HalfWidth(),
            pan.y * screen.StepY() + (y - centerY) * -scale + screen.HalfHeight()};
}

ModelScale FitModel(const FigureBounds& bounds, const FigureScreen& screen, double zoom, FigurePan pan)
{
    ModelScale fit{.screen = screen, .pan = pan};
    if (bounds.IsEmpty())
        return fit;
    fit.centerX = (bounds.maxX + bounds.minX) * 0.5;
    fit.centerY = (bounds.maxY + bounds.minY) * 0.5;
    fit.extentX = bounds.maxX - bounds.minX;
    fit.extentY = bounds.maxY - bounds.minY;
    const double aspect = screen.HalfWidth() / screen.HalfHeight();
    fit.extentX = std::max(fit.extentX, fit.extentY * aspect);
    fit.extentY = std::max(fit.extentY, fit.extentX / aspect);
    if (fit.extentY > 0)
        fit.scale = 2 * screen.HalfHeight() / fit.extentY / zoom;
    return fit;
}

} // namespace sbd
