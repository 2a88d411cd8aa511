// Text between CP932 and UTF-8: no byte is lost on the way to the screen and back.
#include "fuzz/property.h"
#include "project/text.h"

#include <cmath>

namespace {

using sbd::fuzz::Require;

/// Does UTF-8 hold a byte that is no character, as U+DC80 to U+DCFF?
bool HoldsSingleBytes(std::string_view utf8)
{
    return utf8.find("\xED\xB2") != std::string_view::npos || utf8.find("\xED\xB3") != std::string_view::npos;
}

/// Bytes of a file, shown in a cell and taken back unchanged. Where CP932 has two codes for one character, the one
/// that Windows writes comes back; beside a byte that is no character, that may be refused.
void CheckBytes(std::string_view bytes)
{
    const std::string shown = sbd::FromCp932Lossless(bytes);
    const sbd::Cp932Result back = sbd::ToCp932(shown);
    if (back.refused) {
        Require(HoldsSingleBytes(shown), "what the file holds can be stored");
        return;
    }
    Require(back.bytes.size() == bytes.size(), "a text keeps its width");
    Require(sbd::FromCp932Lossless(back.bytes) == shown, "a text looks the same when it comes back");
    Require(sbd::FromCp932(back.bytes) == sbd::FromCp932(bytes), "a report shows the same text");
}

/// Text from the keyboard or the clipboard, broken UTF-8 with it.
void CheckTyped(std::string_view utf8)
{
    const sbd::Cp932Result stored = sbd::ToCp932(utf8);
    if (stored.refused) {
        Require(stored.bytes.empty(), "a text that is refused stores nothing");
        Require(utf8.substr(stored.refused->offset).starts_with(stored.refused->character),
                "the character that is refused is named where it stands");
        return;
    }
    Require(sbd::FromCp932Lossless(stored.bytes) == utf8, "a text that is stored reads as it was typed");
}

void CheckNumber(std::string_view text)
{
    const std::optional<double> number = sbd::LeadingNumber(text);
    static_cast<void>(sbd::LeadingInteger(text));
    if (!number)
        return;
    Require(std::isfinite(*number), "a number that is read is finite");
    std::string written;
    sbd::AppendFixed(written, *number, 12, 6);
    Require(written.size() >= 12, "a number is as wide as its field");
    const std::optional<double> again = sbd::LeadingNumber(written);
    Require(again.has_value(), "a number that is written can be read");
    std::string second;
    sbd::AppendFixed(second, *again, 12, 6);
    Require(second == written, "a number that is written and read stands still");
}

void CheckWords(std::string_view text)
{
    Require(sbd::Trim(sbd::Trim(text)) == sbd::Trim(text), "what is trimmed needs no trimming");
    for (const std::string_view word : sbd::SplitWords(text))
        Require(!word.empty() && word.find_first_of(" ,") == std::string_view::npos, "a word holds no divider");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const std::string_view text = sbd::fuzz::Text(bytes, size);
    CheckBytes(text);
    CheckTyped(text);
    CheckNumber(text);
    CheckWords(text);
    return 0;
}
