// A text looked for in the texts of cells.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

/// How texts are compared. A text that is to be replaced is found by its place, so that nothing around it changes.
struct MatchRule {
    bool foldCase = true;  ///< capital and small letters are alike
    bool foldWidth = true; ///< full and half width are alike: "ｶﾞ" is "ガ", "ＳＭ" is "SM"
    bool wholeCell = false;
};

/// Finds one text in others and replaces it. Texts are CP932: a match never begins or ends within a character.
class CTextMatcher {
public:
    /// An empty `wanted` is found nowhere.
    CTextMatcher(std::string_view wanted, const MatchRule& rule);

    [[nodiscard]] bool IsIn(std::string_view text) const;
    /// `text` with `by` in the place of each match, from the left; nothing if there is none.
    [[nodiscard]] std::optional<std::string> Replaced(std::string_view text, std::string_view by) const;

private:
    /// What is compared at once: a character, or one with its mark behind it, and its bytes.
    struct Unit {
        char32_t folded = 0;
        std::size_t begin = 0;
        std::size_t end = 0;
    };
    struct Match {
        std::size_t begin = 0;
        std::size_t end = 0;
    };

    [[nodiscard]] char32_t Folded(char32_t character) const;
    [[nodiscard]] char32_t SmallByte(char c) const;
    [[nodiscard]] std::vector<Unit> UnitsOf(std::string_view text) const;
    [[nodiscard]] bool MayBeIn(std::string_view text) const;
    [[nodiscard]] std::vector<Match> Matches(std::string_view text, bool firstAlone) const;

    MatchRule rule_;
    std::vector<char32_t> wanted_;
    std::array<bool, 256> mayBegin_{}; // bytes with which a match can begin
};

} // namespace sbd
