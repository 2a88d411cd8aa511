// How a search line is understood: the skeleton of a text, in which spellings fall together, and the terms of a question.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

/// What is compared in a search. Width and case are folded; small and large kana, katakana and hiragana, long and short
/// vowels are one; words that mean one thing are one character (search/synonyms.h); particles and okurigana are left out;
/// whatever divides words is a blank.
[[nodiscard]] std::u16string Skeleton(std::string_view utf8);

/// One thing that a question asks for.
struct SearchTerm {
    std::u16string text; ///< as it stands in a skeleton
    std::string shown;   ///< as it was typed, or the name of the word it is read as. UTF-8
    bool weak = false;   ///< helps to rank, nothing has to hold it
    friend bool operator==(const SearchTerm& a, const SearchTerm& b) { return a.text == b.text; }
};

/// The terms of a search line in their order, each once: cut at blanks, particles and changes of script, without the
/// words that only ask.
[[nodiscard]] std::vector<SearchTerm> SearchTerms(std::string_view utf8);

/// Whether `term` stands in the skeleton as a word: letters and digits do not go on at its ends.
[[nodiscard]] bool HoldsTerm(std::u16string_view skeleton, std::u16string_view term);

/// A word that a mistyped one may have meant.
struct KnownWord {
    std::u16string spelling; ///< sounds or characters, before synonyms fall together
    std::vector<SearchTerm> terms;
};
/// The words of the table of synonyms.
[[nodiscard]] std::span<const KnownWord> SynonymWords();
/// Whether one wrong, missing, added or exchanged letter makes `word` of `known`. Words that are too short to tell, or of
/// another script, are not near.
[[nodiscard]] bool IsNear(std::u16string_view word, std::u16string_view known);

/// The runs of one script in a skeleton that no row of synonyms knows.
[[nodiscard]] std::vector<std::u16string> PlainRuns(std::u16string_view skeleton);

/// UTF-8 of characters of a skeleton; of a word with synonyms its name.
[[nodiscard]] std::string SkeletonText(std::u16string_view skeleton);

} // namespace sbd
