// The words of the field that mean one thing.
#pragma once

#include <span>
#include <string_view>

namespace sbd {

/// Words that are searched as one. UTF-8.
struct Synonyms {
    std::string_view words;  ///< divided by '|'; the first one is the name
    std::string_view means;  ///< what they are read as, words divided by blanks; empty: they are one word of their own
    std::string_view reason; ///< why they stand together
};
[[nodiscard]] std::span<const Synonyms> SynonymTable();

/// Words that nearly every label or question holds: they weigh little, and nothing has to hold them.
[[nodiscard]] std::span<const std::string_view> WeakWords();

/// Stems of verbs that ask and say nothing of what is asked for: 変える, 決める.
[[nodiscard]] bool IsAskingStem(char16_t kanji);

} // namespace sbd
