// Numbers as a user types them into a cell.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace sbd {

/// What a cell takes.
enum class CellTakes {
    Text,    ///< anything
    Number,  ///< one number, or nothing
    Count,   ///< a whole number from 0 on, or nothing
    Numbers, ///< numbers, divided by blanks and commas; or a word that stands for them
};

/// `text` (CP932) with the full-width digits, signs, points, commas and blanks of a number as those of ASCII, without
/// blanks around it. Everything else stays.
[[nodiscard]] std::string FoldNumber(std::string_view text);

/// True if the whole of `text` is one number that a record can hold: "2.5", "-1", ".5", "1e3". Words, "1,2" and numbers
/// from 1e40 on, which stand for "not given", are none.
[[nodiscard]] bool IsNumber(std::string_view text);

/// The first word of a folded `text` that a cell of this kind cannot take; nothing if it takes the text.
[[nodiscard]] std::optional<std::string> NotTaken(CellTakes takes, std::string_view text);

} // namespace sbd
