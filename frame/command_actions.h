// CCommandActions: the command table as actions of a window.
#pragma once

#include "commands/commands.h"

#include <QObject>

#include <functional>
#include <map>

class QAction;
class QMenu;
class QMenuBar;
class QToolBar;
class QWidget;

namespace sbd {

/// One action for each command, shared by menus and tool bar. What a command does and whether it may is asked.
class CCommandActions : public QObject {
public:
    /// `run` is called with the command that the user gives.
    CCommandActions(QWidget* window, const std::function<void(Command command)>& run);

    /// Null for Command::None.
    [[nodiscard]] QAction* Of(Command command) const;
    /// Null before FillMenuBar.
    [[nodiscard]] QMenu* Menu(MenuId menu) const;

    /// Makes all menus. `fill` makes the entries that are no commands of the table, at the end of the menu as it is
    /// then.
    void FillMenuBar(QMenuBar& bar, const std::function<void(QMenu& menu, MenuFill entries)>& fill);
    void FillToolBar(QToolBar& bar) const;

    /// Enables what may be given now.
    void Update(const std::function<bool(CommandNeeds)>& holds);
    /// Sets or clears the mark of an entry; in a group of which one is marked the others lose theirs.
    void SetMark(Command command, bool marked);

private:
    void AddAction(const CommandRow& row, const std::function<void(Command)>& run);
    void FillMenu(QMenu& menu, const MenuRow& row, const std::function<void(QMenu&, MenuFill)>& fill);
    void GroupRadios(std::span<const MenuItem> items);

    QWidget* window_;
    std::map<Command, QAction*> actions_;
    std::map<MenuId, QMenu*> menus_;
};

} // namespace sbd
