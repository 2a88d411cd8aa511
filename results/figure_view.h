// How the figures of the model and of the results lie in their pane: zoom, pan, direction of view, and the arithmetic
// of fitting. Screen coordinates are pixels, y downward; fractions are cut only when a point is drawn.
#pragma once

#include "commands/commands.h"

#include <array>
#include <optional>
#include <span>
#include <string_view>

namespace sbd {

struct FigurePoint {
    double x = 0;
    double y = 0;

    friend bool operator==(const FigurePoint&, const FigurePoint&) = default;
};

inline constexpr double kFitZoom = 1.4; ///< leaves a margin around the figure

/// What the user has done to the view. Marks of the mouse wait here for the next paint.
struct FigureView {
    double zoom = kFitZoom; ///< divisor of the fitted scale: larger shows the model smaller
    int panX = 0;           ///< steps, see FigureScreen
    int panY = 0;
    double slideX = 0; ///< further steps, parts of one included: wheel and middle button move by pixels
    double slideY = 0;
    std::array<double, 3> viewDirection{1, 1, 1};

    bool zoomBoxPending = false; ///< a rectangle with the corners leftDownPoint and leftUpPoint is to fill the pane
    bool panPending = false;     ///< a drag from rightDownPoint to rightMovePoint is to stay
    bool panPreview = false;     ///< such a drag is on its way: the next paint shows it and forgets it
    FigurePoint leftDownPoint;
    FigurePoint leftUpPoint;
    FigurePoint rightDownPoint;
    FigurePoint rightMovePoint;

    friend bool operator==(const FigureView&, const FigureView&) = default;
};

/// A command that shows the model from a side.
struct ViewCommand {
    Command command;
    std::string_view name;
    std::array<double, 3> direction;
};

inline constexpr ViewCommand kViewCommands[] = {
    {Command::ViewXY, "XY", {0, 0, 1}},
    {Command::ViewYZ, "YZ", {1, 0, 0}},
    {Command::ViewXZ, "XZ", {0, 1, 0}},
    {Command::ViewAll, "ALL", {1, 1, 1}},
};

/// The commands of the figure: views, zoom, moves.
[[nodiscard]] std::span<const Command> FigureCommands();
/// Carries out a command of the figure; false for another one.
bool ApplyViewCommand(FigureView& view, Command command);

/// The pane and the screen it is on, in pixels.
struct FigureScreen {
    double clientWidth = 0;
    double clientHeight = 0;
    double horzRes = 1920;
    double vertRes = 1080;
    double millimetresPerPixel = 25.4 / 96;
    bool isPaper = false; ///< what is measured on it is true; the fineness of a screen is not known

    [[nodiscard]] double HalfWidth() const { return clientWidth * 0.5; }
    [[nodiscard]] double HalfHeight() const { return clientHeight * 0.5; }
    /// Pixels of a step of the pan. A step along x is measured on the height of the screen, and the other way round.
    [[nodiscard]] double StepX() const { return vertRes * 0.02; }
    [[nodiscard]] double StepY() const { return horzRes * 0.02; }
};

/// Pan of one paint, in steps.
struct FigurePan {
    double x = 0;
    double y = 0;
};

/// The pan that a view has.
[[nodiscard]] FigurePan PanOf(const FigureView& view);

/// Enlarges (above 1) or reduces the figure; what lies at the point of the screen stays there.
void ZoomAt(FigureView& view, const FigureScreen& screen, FigurePoint at, double factor);
/// Moves the figure by pixels.
void Slide(FigureView& view, const FigureScreen& screen, double dx, double dy);
/// The whole figure in the middle of its pane, seen from where it is.
void FitAgain(FigureView& view);
/// Turns the frame by a drag of so many pixels: along x around the vertical, along y over it, as far as to the poles.
void TurnView(FigureView& view, double dx, double dy);

/// Carries out what the mouse has left in the view and clears the marks. Gives the pan to paint with, which differs
/// from that of the view while a drag is on its way. A rectangle of less than 4 pixels is nothing, in whichever
/// direction it was drawn; the zoom stays above 0.
[[nodiscard]] FigurePan TakeMouseMarks(FigureView& view, const FigureScreen& screen);

/// Extents of a figure in its own units.
struct FigureBounds {
    double minX = 1e100;
    double maxX = -1e100;
    double minY = 1e100;
    double maxY = -1e100;

    [[nodiscard]] bool IsEmpty() const { return minX > maxX; }
    /// Points that are no numbers are passed over.
    void Widen(double x, double y);
};

/// The values of one paint of a projected figure.
struct ModelScale {
    FigureScreen screen;
    FigurePan pan;
    double centerX = 0;
    double centerY = 0;
    double extentX = 0; ///< both extents in the proportions of the pane
    double extentY = 0;
    double scale = 1; ///< pixels per m

    /// Of a projected point.
    [[nodiscard]] FigurePoint ToScreen(double x, double y) const;
};

/// Fits the bounds into the pane. Bounds without extent get the scale 1.
[[nodiscard]] ModelScale FitModel(const FigureBounds& bounds, const FigureScreen& screen, double zoom, FigurePan pan);

} // namespace sbd
