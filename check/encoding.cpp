#include "check/encoding.h"

#include "project/text.h"
#include "sbdfile/line_reader.h"

#include <algorithm>

namespace sbd {

namespace {

unsigned char ByteAt(std::string_view text, std::size_t pos)
{
    return pos < text.size() ? static_cast<unsigned char>(text[pos]) : static_cast<unsigned char>(0);
}

/// Bytes of the UTF-8 character at `pos`; 0 if none stands there.
std::size_t Utf8Length(std::string_view text, std::size_t pos)
{
    const unsigned char lead = ByteAt(text, pos);
    const std::size_t length = lead < 0x80                   ? 1
                               : lead >= 0xC2 && lead < 0xE0 ? 2
                               : lead >= 0xE0 && lead < 0xF0 ? 3
                               : lead >= 0xF0 && lead < 0xF5 ? 4
                                                             : 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((ByteAt(text, pos + i) & 0xC0U) != 0x80)
            return 0;
    // Longer than need be, or half of a pair.
    const unsigned char second = ByteAt(text, pos + 1);
    if ((lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) || (lead == 0xF0 && second < 0x90)
        || (lead == 0xF4 && second > 0x8F))
        return 0;
    return length;
}

bool IsAscii(std::string_view text)
{
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool IsCp932(std::string_view line)
{
    for (std::size_t pos = 0; pos < line.size(); pos += CharacterLength(line, pos))
        if (!DecodeCharacter(line, pos))
            return false;
    return true;
}

} // namespace

bool IsUtf8Line(std::string_view line)
{
    std::size_t longest = 1;
    for (std::size_t pos = 0; pos < line.size();) {
        const std::size_t length = Utf8Length(line, pos);
        if (length == 0)
            return false;
        longest = std::max(longest, length);
        pos += length;
    }
    // Characters of two bytes alone may as well be two half-width kana: "ﾄｳ".
    return longest > 2 || (longest == 2 && !IsCp932(line));
}

EncodingGuess GuessEncoding(std::string_view bytes)
{
    if (bytes.starts_with("\xEF\xBB\xBF"))
        return {Encoding::Utf8, 1, true};
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"))
        return {Encoding::Utf16, 1, true};
    if (bytes.find('\0') != std::string_view::npos)
        return {Encoding::Binary, 0, true};
    EncodingGuess guess;
    std::size_t utf8Lines = 0;
    std::size_t otherLines = 0;
    CLineReader lines(bytes);
    std::string_view line;
    while (lines.Next(line)) {
        if (IsAscii(line))
            continue;
        if (!IsUtf8Line(line)) {
            ++otherLines;
            continue;
        }
        if (utf8Lines++ == 0)
            guess.line = lines.Number();
    }
    if (utf8Lines == 0)
        return guess;
    guess.encoding = Encoding::Utf8;
    guess.wholeText = utf8Lines > otherLines;
    return guess;
}

} // namespace sbd
