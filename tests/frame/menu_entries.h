// What stands in a menu.
#pragma once

#include <QAction>
#include <QList>
#include <QMenu>

namespace sbd {

/// All entries below a menu that do something.
[[nodiscard]] inline QList<QAction*> Entries(const QMenu* menu)
{
    QList<QAction*> entries;
    for (QAction* action : menu->actions()) {
        if (action->menu() != nullptr)
            entries += Entries(action->menu());
        else if (!action->isSeparator())
            entries.append(action);
    }
    return entries;
}

} // namespace sbd
