#include "frame/command_actions.h"

#include "frame/command_icon.h"
#include "panels/command_text.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include <algorithm>

namespace sbd {

CCommandActions::CCommandActions(QWidget* window, const std::function<void(Command command)>& run)
    : QObject(window)
    , window_(window)
{
    for (const CommandRow& row : CommandTable())
        AddAction(row, run);
}

void CCommandActions::AddAction(const CommandRow& row, const std::function<void(Command)>& run)
{
    auto* action = new QAction(EntryText(row), window_);
    if (row.scope == KeyScope::Window)
        action->setShortcuts(KeysOf(row));
    const QString tip = TipOf(row);
    action->setToolTip(tip);
    action->setStatusTip(tip);
    action->setIconText(tip);
    action->setCheckable(row.mark != CommandMark::None);
    action->setMenuRole(QAction::NoRole);
    if (!row.icon.empty())
        action->setIcon(CommandIcon(CommandWords(row.icon)));
    connect(action, &QAction::triggered, this, [run, command = row.command] { run(command); });
    actions_.emplace(row.command, action);
}

QAction* CCommandActions::Of(Command command) const
{
    const auto found = actions_.find(command);
    return found == actions_.end() ? nullptr : found->second;
}

QMenu* CCommandActions::Menu(MenuId menu) const
{
    const auto found = menus_.find(menu);
    return found == menus_.end() ? nullptr : found->second;
}

void CCommandActions::FillMenuBar(QMenuBar& bar, const std::function<void(QMenu& menu, MenuFill entries)>& fill)
{
    for (const MenuItem& item : MenuBarItems()) {
        if (const Command* command = std::get_if<Command>(&item)) {
            bar.addAction(Of(*command));
            continue;
        }
        const MenuRow& row = MenuOf(std::get<MenuId>(item));
        FillMenu(*bar.addMenu(EntryText(row.title)), row, fill);
    }
}

void CCommandActions::FillMenu(QMenu& menu, const MenuRow& row, const std::function<void(QMenu&, MenuFill)>& fill)
{
    menus_[row.menu] = &menu;
    for (const MenuItem& item : row.items) {
        if (const MenuFill* entries = std::get_if<MenuFill>(&item)) {
            fill(menu, *entries);
        } else if (const MenuId* below = std::get_if<MenuId>(&item)) {
            const MenuRow& belowRow = MenuOf(*below);
            FillMenu(*menu.addMenu(EntryText(belowRow.title)), belowRow, fill);
        } else if (const Command command = std::get<Command>(item); command == kSeparator) {
            menu.addSeparator();
        } else {
            menu.addAction(Of(command));
        }
    }
    GroupRadios(row.items);
}

void CCommandActions::GroupRadios(std::span<const MenuItem> items)
{
    QActionGroup* group = nullptr;
    for (const MenuItem& item : items) {
        const Command* command = std::get_if<Command>(&item);
        if (command == nullptr || *command == kSeparator || RowOf(*command).mark != CommandMark::Radio) {
            group = nullptr;
            continue;
        }
        if (group == nullptr)
            group = new QActionGroup(this);
        group->addAction(Of(*command));
    }
}

void CCommandActions::FillToolBar(QToolBar& bar) const
{
    for (const Command command : ToolBarItems()) {
        if (command == kSeparator)
            bar.addSeparator();
        else
            bar.addAction(Of(command));
    }
}

void CCommandActions::Update(const std::function<bool(CommandNeeds)>& holds)
{
    for (const CommandRow& row : CommandTable())
        Of(row.command)->setEnabled(row.needs == CommandNeeds::Nothing || holds(row.needs));
}

void CCommandActions::SetMark(Command command, bool marked)
{
    if (QAction* action = Of(command); action != nullptr && action->isCheckable())
        action->setChecked(marked);
}

} // namespace sbd
