// The command table's texts and keys as menus, tool bars and panels show them.
#pragma once

#include "commands/commands.h"

#include <QKeySequence>
#include <QList>
#include <QString>

#include <functional>
#include <vector>

class QMenu;

namespace sbd {

/// A text of the table as it stands.
[[nodiscard]] QString CommandWords(std::string_view text);
/// A text as Qt takes it for entries and titles: an "&" that marks no letter is doubled.
[[nodiscard]] QString EntryText(std::string_view text);
/// A command's text for a menu; keys that are not the window's stand in it as text.
[[nodiscard]] QString EntryText(const CommandRow& command);
[[nodiscard]] QList<QKeySequence> KeysOf(const CommandRow& command);
/// What the tool bar and the status bar say about a command, its first key included.
[[nodiscard]] QString TipOf(const CommandRow& command);

/// What a panel does for an entry of its context menu.
struct ContextStep {
    Command command;
    std::function<void()> run;
    bool may = true;
};

/// The entries of a context menu. One without a step stands there in grey: the panel has nothing to do for it.
void FillContextMenu(QMenu& menu, MenuId which, const std::vector<ContextStep>& steps);

} // namespace sbd
