// Text of a project: bytes in CP932, from the file to the cell and back.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

/// True for a byte that may begin a two-byte CP932 character (0x81-0x9F, 0xE0-0xFC).
[[nodiscard]] constexpr bool IsLeadByte(unsigned char byte)
{
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

/// True for a byte that may end a two-byte CP932 character (0x40-0x7E, 0x80-0xFC).
[[nodiscard]] constexpr bool IsTrailByte(unsigned char byte)
{
    return (byte >= 0x40 && byte <= 0x7E) || (byte >= 0x80 && byte <= 0xFC);
}

/// Bytes of the character at `pos` (1 or 2); a lead byte without a trail byte is a character of its own.
[[nodiscard]] constexpr std::size_t CharacterLength(std::string_view text, std::size_t pos)
{
    return IsLeadByte(static_cast<unsigned char>(text[pos])) && pos + 1 < text.size()
                   && IsTrailByte(static_cast<unsigned char>(text[pos + 1]))
               ? 2
               : 1;
}

/// Bytes that trimming removes: blank, tab, CR, LF, VT, FF.
[[nodiscard]] constexpr bool IsTrimmed(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/// `text` without the bytes of IsTrimmed on its left, on its right, or on both sides.
[[nodiscard]] std::string_view TrimLeft(std::string_view text);
[[nodiscard]] std::string_view TrimRight(std::string_view text);
[[nodiscard]] std::string_view Trim(std::string_view text);

/// `text` without blanks at its end (blanks alone, no other white space).
[[nodiscard]] std::string_view CutTrailingBlanks(std::string_view text);

/// Takes the text up to the first blank off the left of `rest`; `rest` keeps that blank and what follows.
[[nodiscard]] std::string_view TakeToken(std::string_view& rest);

/// The words of `text`, divided by blanks and commas.
[[nodiscard]] std::vector<std::string_view> SplitWords(std::string_view text);

/// The number at the start of `text` as the C library reads it in the C locale, leading blanks skipped;
/// nothing if no number stands there. Never inf or nan.
[[nodiscard]] std::optional<double> LeadingNumber(std::string_view text);

/// The whole number at the start of `text`; 0 if none stands there; held within the range of int.
[[nodiscard]] int LeadingInteger(std::string_view text);

/// Appends `value` with `decimals` digits behind the point, padded with blanks on the left to `width`
/// bytes at least. Independent of the locale.
void AppendFixed(std::string& out, double value, int width, int decimals);

/// Appends `text` padded with blanks to `width` bytes, on the right (`left` true) or on the left. Longer texts stay whole.
void AppendPadded(std::string& out, std::string_view text, std::size_t width, bool left);

// --- the edge between CP932 and Unicode ----------------------------------------------------------

/// The CP932 bytes of one of the program's own UTF-8 literals. A literal that CP932 has not is a mistake of ours: aborts.
[[nodiscard]] std::string Cp932(std::string_view utf8);

/// A character that CP932 has not: where it stands (byte offset in the UTF-8 text) and the character itself.
struct UnencodableCharacter {
    std::size_t offset = 0;
    std::string character; // UTF-8
};

/// What ToCp932 gives: the bytes, or the first character that CP932 has not.
struct Cp932Result {
    std::string bytes;
    std::optional<UnencodableCharacter> refused;
};

/// UTF-8 from the user to CP932. A character U+DC80..U+DCFF (as FromCp932Lossless gives it) becomes its byte again;
/// it is refused where the byte would make another character with what is put behind it.
[[nodiscard]] Cp932Result ToCp932(std::string_view utf8);

/// CP932 to UTF-8 for reports: a byte where no CP932 character begins becomes the four characters \xNN.
[[nodiscard]] std::string FromCp932(std::string_view bytes);

/// CP932 to UTF-8 for editing: a byte where no CP932 character begins becomes U+DC00 + byte, so that ToCp932 gives it back.
[[nodiscard]] std::string FromCp932Lossless(std::string_view bytes);

/// The Unicode code point of the CP932 character at `pos` (one or two bytes by CharacterLength); nothing if there is none.
[[nodiscard]] std::optional<char32_t> DecodeCharacter(std::string_view bytes, std::size_t pos);

namespace literals {
/// "自動"_cp932: the bytes of a literal in CP932.
[[nodiscard]] inline std::string operator""_cp932(const char* utf8, std::size_t size)
{
    return Cp932(std::string_view(utf8, size));
}
} // namespace literals

} // namespace sbd
