#include "panelmodel/number_text.h"

#include "project/sbd_data.h"
#include "project/text.h"

#include <algorithm>
#include <cmath>

namespace sbd {

namespace {

using namespace literals;

/// The ASCII character of a full-width one that may stand in a number; 0: it may not.
char HalfWidth(std::string_view character)
{
    static const std::string wide = "０１２３４５６７８９＋－．，　ｅＥ"_cp932;
    static constexpr std::string_view narrow = "0123456789+-., eE";
    for (std::size_t i = 0; i < narrow.size(); ++i)
        if (std::string_view(wide).substr(2 * i, 2) == character)
            return narrow[i];
    return 0;
}

std::size_t Digits(std::string_view text, std::size_t pos)
{
    const std::size_t end = text.find_first_not_of("0123456789", pos);
    return std::min(end, text.size()) - pos;
}

bool IsWholeNumber(std::string_view text)
{
    if (text.starts_with('+'))
        text.remove_prefix(1);
    return !text.empty() && Digits(text, 0) == text.size();
}

} // namespace

std::string FoldNumber(std::string_view text)
{
    std::string folded;
    for (std::size_t pos = 0; pos < text.size();) {
        const std::string_view character = text.substr(pos, CharacterLength(text, pos));
        pos += character.size();
        if (const char narrow = character.size() == 2 ? HalfWidth(character) : '\0')
            folded += narrow;
        else
            folded += character;
    }
    return std::string(Trim(folded));
}

bool IsNumber(std::string_view text)
{
    std::size_t pos = !text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
    const std::size_t whole = Digits(text, pos);
    pos += whole;
    std::size_t behindPoint = 0;
    if (pos < text.size() && text[pos] == '.') {
        behindPoint = Digits(text, pos + 1);
        pos += 1 + behindPoint;
    }
    if (whole + behindPoint == 0)
        return false;
    if (pos < text.size() && (text[pos] == 'e' || text[pos] == 'E')) {
        ++pos;
        if (pos < text.size() && (text[pos] == '+' || text[pos] == '-'))
            ++pos;
        const std::size_t exponent = Digits(text, pos);
        if (exponent == 0)
            return false;
        pos += exponent;
    }
    return pos == text.size() && IsGiven(std::abs(LeadingNumber(text).value_or(kNotGiven)));
}

std::optional<std::string> NotTaken(CellTakes takes, std::string_view text)
{
    if (takes == CellTakes::Text || text.empty())
        return std::nullopt;
    if (takes == CellTakes::Number)
        return IsNumber(text) ? std::nullopt : std::optional(std::string(text));
    if (takes == CellTakes::Count)
        return IsWholeNumber(text) ? std::nullopt : std::optional(std::string(text));
    for (const std::string_view word : SplitWords(text))
        if (!IsNumber(word))
            return std::string(word);
    return std::nullopt;
}

} // namespace sbd
