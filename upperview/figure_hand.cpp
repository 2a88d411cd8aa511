#include "upperview/figure_hand.h"

#include <QKeyEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace sbd {

std::optional<Command> FigureCommandOf(const QKeyEvent& event)
{
    struct KeyCommand {
        int key;
        Command command;
    };
    static constexpr KeyCommand commands[] = {
        {Qt::Key_Up, Command::MoveUp},       {Qt::Key_Down, Command::MoveDown}, {Qt::Key_Left, Command::MoveLeft},
        {Qt::Key_Right, Command::MoveRight}, {Qt::Key_Plus, Command::ZoomIn},   {Qt::Key_Equal, Command::ZoomIn},
        {Qt::Key_Minus, Command::ZoomOut},   {Qt::Key_Home, Command::ViewAll},
    };
    const auto* const row = std::ranges::find(commands, event.key(), &KeyCommand::key);
    if (row == std::end(commands) || event.modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier))
        return std::nullopt;
    return row->command;
}

double FigureZoomOf(const QWheelEvent& event)
{
    constexpr double perNotch = 1.2;
    constexpr double notch = 120;
    return std::pow(perNotch, event.angleDelta().y() / notch);
}

QPointF CHeldButton::Moved(QPointF to)
{
    const QPointF from = std::exchange(at_, to).value_or(to);
    return to - from;
}

std::optional<QPointF> CHeldButton::Release()
{
    return std::exchange(at_, std::nullopt);
}

bool IsClick(QPointF pressed, QPointF released)
{
    constexpr double trembling = 4; // pixels, as for a rectangle that is none
    return (released - pressed).manhattanLength() < trembling;
}

} // namespace sbd
