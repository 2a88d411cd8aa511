#include "panelmodel/text_match.h"

#include "project/text.h"

#include <algorithm>

namespace sbd {

namespace {

constexpr char32_t kNoCharacter = 0xDC00; // with the byte added: a byte that is no character of CP932

constexpr char32_t kFirstHalfKana = 0xFF61;
constexpr char32_t kVoicedMark = 0xFF9E;
constexpr char32_t kSemiVoicedMark = 0xFF9F;
constexpr std::u32string_view kWideKana =
    U"。「」、・ヲァィゥェォャュョッーアイウエオカキクケコサシスセソタチツテトナニヌネノハヒフヘホマミムメモヤユヨラリルレロワン゛゜";
static_assert(kWideKana.size() == kSemiVoicedMark - kFirstHalfKana + 1);

char32_t Widened(char32_t c)
{
    if (c >= kFirstHalfKana && c <= kSemiVoicedMark)
        return kWideKana[c - kFirstHalfKana];
    if (c >= 0xFF01 && c <= 0xFF5E) // of ASCII, in full width
        return c - 0xFF01 + U'!';
    return c == 0x3000 ? U' ' : c;
}

/// A wide kana with the mark that stands behind it in half width; 0: there is no such character.
char32_t WithMark(char32_t kana, char32_t mark)
{
    const bool takesVoiced = (kana >= U'カ' && kana <= U'ト' && kana != U'ッ') || (kana >= U'ハ' && kana <= U'ホ');
    if (mark == kVoicedMark)
        return kana == U'ウ' ? U'ヴ' : takesVoiced ? kana + 1 : 0;
    return mark == kSemiVoicedMark && kana >= U'ハ' && kana <= U'ホ' ? kana + 2 : 0;
}

char32_t Small(char32_t c)
{
    const bool isCapital = (c >= U'A' && c <= U'Z') || (c >= 0xFF21 && c <= 0xFF3A)     // Latin in both widths
                           || (c >= 0x391 && c <= 0x3A9) || (c >= 0x410 && c <= 0x42F); // Greek, Cyrillic
    return isCapital ? c + 0x20 : c;
}

bool IsAscii(std::string_view text)
{
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace

CTextMatcher::CTextMatcher(std::string_view wanted, const MatchRule& rule) : rule_(rule)
{
    for (const Unit& unit : UnitsOf(wanted))
        wanted_.push_back(unit.folded);
    if (wanted_.empty())
        return;
    for (std::size_t byte = 0; byte < mayBegin_.size(); ++byte)
        mayBegin_[byte] = byte >= 0x80 || SmallByte(static_cast<char>(byte)) == wanted_.front();
}

char32_t CTextMatcher::Folded(char32_t character) const
{
    const char32_t wide = rule_.foldWidth ? Widened(character) : character;
    return rule_.foldCase ? Small(wide) : wide;
}

/// A byte of ASCII as it is compared.
char32_t CTextMatcher::SmallByte(char c) const
{
    const auto byte = static_cast<unsigned char>(c);
    return rule_.foldCase && byte >= 'A' && byte <= 'Z' ? byte + 0x20U : char32_t(byte);
}

std::vector<CTextMatcher::Unit> CTextMatcher::UnitsOf(std::string_view text) const
{
    std::vector<Unit> units;
    char32_t before = 0; // the character of the last unit, as it stands there
    for (std::size_t pos = 0; pos < text.size();) {
        const std::size_t end = pos + CharacterLength(text, pos);
        const auto byte = static_cast<unsigned char>(text[pos]);
        const char32_t character = DecodeCharacter(text, pos).value_or(kNoCharacter + byte);
        const bool followsHalfKana = rule_.foldWidth && before >= kFirstHalfKana && before <= kSemiVoicedMark;
        if (const char32_t marked = followsHalfKana ? WithMark(Widened(before), character) : 0; marked != 0) {
            units.back().folded = marked;
            units.back().end = end;
            before = 0;
        } else {
            units.push_back({Folded(character), pos, end});
            before = character;
        }
        pos = end;
    }
    return units;
}

/// False for most cells, at little cost.
bool CTextMatcher::MayBeIn(std::string_view text) const
{
    return text.size() >= wanted_.size() // what is compared at once is a byte or more
           && std::ranges::any_of(text, [this](char c) { return mayBegin_[static_cast<unsigned char>(c)]; });
}

std::vector<CTextMatcher::Match> CTextMatcher::Matches(std::string_view text, bool firstAlone) const
{
    std::vector<Match> matches;
    if (!MayBeIn(text))
        return matches;
    const std::size_t length = wanted_.size();
    if (IsAscii(text)) { // as most cells are: each byte is a character
        for (std::size_t at = 0; at + length <= text.size();) {
            std::size_t same = 0;
            while (same < length && SmallByte(text[at + same]) == wanted_[same])
                ++same;
            if (same < length || (rule_.wholeCell && length != text.size())) {
                ++at;
                continue;
            }
            matches.push_back({at, at + length});
            if (firstAlone)
                break;
            at += length;
        }
        return matches;
    }
    const std::vector<Unit> units = UnitsOf(text);
    if (rule_.wholeCell && units.size() != length)
        return matches;
    for (std::size_t at = 0; at + length <= units.size();) {
        std::size_t same = 0;
        while (same < length && units[at + same].folded == wanted_[same])
            ++same;
        if (same < length) {
            ++at;
            continue;
        }
        matches.push_back({units[at].begin, units[at + length - 1].end});
        if (firstAlone)
            break;
        at += length;
    }
    return matches;
}

bool CTextMatcher::IsIn(std::string_view text) const
{
    return !Matches(text, true).empty();
}

std::optional<std::string> CTextMatcher::Replaced(std::string_view text, std::string_view by) const
{
    const std::vector<Match> matches = Matches(text, false);
    if (matches.empty())
        return std::nullopt;
    std::string replaced;
    std::size_t from = 0;
    for (const Match& match : matches) {
        replaced += text.substr(from, match.begin - from);
        replaced += by;
        from = match.end;
    }
    replaced += text.substr(from);
    return replaced;
}

} // namespace sbd
