// The languages of titles: commands, words of the profile, titles of the data menu.
#pragma once

#include "commands/commands.h"
#include "panelmodel/tree_rows.h"

#include <QString>

#include <span>

namespace sbd {

/// A form of the titles, as the user chooses it.
struct LanguageMode {
    Command command;
    TitleLanguage language;
    const char* word; ///< in the profile
};

/// In the order of the menu.
[[nodiscard]] std::span<const LanguageMode> LanguageModes();
[[nodiscard]] const LanguageMode& LanguageModeOf(TitleLanguage language);
/// Null if the command chooses no language.
[[nodiscard]] const LanguageMode* LanguageModeOf(Command command);

/// Title of a group (or else of a block's entry) in the data menu: that of the tree where the tree shows it, else the
/// menu's own. `tree` is in that language. As Qt takes it: an "&" is doubled.
[[nodiscard]] QString DataEntryTitle(int number, bool group, std::string_view menuText, TitleLanguage language,
                                     std::span<const TreeRow> tree);

} // namespace sbd
