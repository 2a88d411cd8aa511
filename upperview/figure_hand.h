// What the hand does with a figure or a drawing: keys, wheel, clicks and drags mean the same in both panes.
#pragma once

#include "commands/commands.h"

#include <QPointF>

#include <optional>

class QKeyEvent;
class QWheelEvent;

namespace sbd {

/// The command of a figure that a key carries out: arrows move, + and - zoom, Home fits. Nothing for other keys, and with Ctrl or Alt.
[[nodiscard]] std::optional<Command> FigureCommandOf(const QKeyEvent& event);

/// How many times larger a turn of the wheel makes a figure; 1 for a turn to the side.
[[nodiscard]] double FigureZoomOf(const QWheelEvent& event);

/// A button that is held, and the pointer with it.
class CHeldButton {
public:
    void Press(QPointF at) { at_ = at; }
    [[nodiscard]] bool IsDown() const { return at_.has_value(); }
    /// How far the pointer has come since it was asked last.
    [[nodiscard]] QPointF Moved(QPointF to);
    /// Where it was pressed, or asked last; nothing if it was not down.
    std::optional<QPointF> Release();

private:
    std::optional<QPointF> at_;
};

/// Is a press and a release at these places a click? A hand trembles.
[[nodiscard]] bool IsClick(QPointF pressed, QPointF released);

} // namespace sbd
