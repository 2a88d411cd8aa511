#include "search/fold.h"

#include <array>
#include <cstddef>

namespace sbd {

namespace {

struct Decoded {
    char32_t character = 0;
    std::size_t length = 0; // bytes; 0: no character begins here
};

/// The character at `pos`, as far as its bytes have the form of one.
Decoded Decode(std::string_view text, std::size_t pos)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(pos);
    if (lead < 0x80)
        return {lead, 1};
    const std::size_t length = lead >= 0xF0 && lead < 0xF8 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 0;
    if (length == 0 || lead >= 0xF8 || pos + length > text.size())
        return {};
    char32_t character = lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(pos + i) & 0xC0) != 0x80)
            return {};
        character = character << 6 | (byte(pos + i) & 0x3F);
    }
    return {character, length};
}

void Append(std::string& out, char32_t c)
{
    const auto tail = [&](int shift) { out += static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | c >> 6);
        tail(0);
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | c >> 12);
        tail(6);
        tail(0);
    } else {
        out += static_cast<char>(0xF0 | c >> 18);
        tail(12);
        tail(6);
        tail(0);
    }
}

constexpr char32_t kFirstHalfKana = 0xFF61;
constexpr char32_t kHalfVoiced = 0xFF9E;
constexpr char32_t kHalfSemiVoiced = 0xFF9F;

/// U+FF61 to U+FF9F in order.
constexpr std::array<char32_t, 63> kWideKana = {
    U'。', U'「', U'」', U'、', U'・', U'ヲ', U'ァ', U'ィ', U'ゥ', U'ェ', U'ォ', U'ャ', U'ュ', U'ョ', U'ッ', U'ー',
    U'ア', U'イ', U'ウ', U'エ', U'オ', U'カ', U'キ', U'ク', U'ケ', U'コ', U'サ', U'シ', U'ス', U'セ', U'ソ', U'タ',
    U'チ', U'ツ', U'テ', U'ト', U'ナ', U'ニ', U'ヌ', U'ネ', U'ノ', U'ハ', U'ヒ', U'フ', U'ヘ', U'ホ', U'マ', U'ミ',
    U'ム', U'メ', U'モ', U'ヤ', U'ユ', U'ヨ', U'ラ', U'リ', U'ル', U'レ', U'ロ', U'ワ', U'ン', U'゛', U'゜'};

bool IsHaRow(char32_t kana)
{
    return kana == U'ハ' || kana == U'ヒ' || kana == U'フ' || kana == U'ヘ' || kana == U'ホ';
}

/// The letter with its mark of voice, where there is one; the wide letters stand in pairs or threes.
char32_t WithMark(char32_t kana, char32_t mark)
{
    if (mark == kHalfSemiVoiced)
        return IsHaRow(kana) ? kana + 2 : kana;
    if (kana == U'ウ')
        return U'ヴ';
    const bool hasVoice = (kana >= U'カ' && kana <= U'ト' && kana != U'ッ') || IsHaRow(kana);
    return hasVoice ? kana + 1 : kana;
}

char32_t FoldCharacter(char32_t c)
{
    if (c >= U'！' && c <= U'～')
        c = c - U'！' + U'!';
    else if (c == U'　' || c == U'\t')
        return U' ';
    else if (c == U'、')
        return U',';
    else if (c == U'〜')
        return U'~';
    else if (c == U'−')
        return U'-';
    if (c >= U'A' && c <= U'Z')
        return c - U'A' + U'a';
    return c >= U'Α' && c <= U'Ω' ? c - U'Α' + U'α' : c;
}

} // namespace

std::string Fold(std::string_view utf8)
{
    std::string out;
    out.reserve(utf8.size());
    for (std::size_t pos = 0; pos < utf8.size();) {
        const Decoded now = Decode(utf8, pos);
        if (now.length == 0) {
            out += utf8[pos++];
            continue;
        }
        pos += now.length;
        if (now.character < kFirstHalfKana || now.character > kHalfSemiVoiced) {
            Append(out, FoldCharacter(now.character));
            continue;
        }
        char32_t kana = kWideKana[now.character - kFirstHalfKana];
        const Decoded mark = pos < utf8.size() ? Decode(utf8, pos) : Decoded();
        if (mark.character == kHalfVoiced || mark.character == kHalfSemiVoiced) {
            if (const char32_t marked = WithMark(kana, mark.character); marked != kana) {
                kana = marked;
                pos += mark.length;
            }
        }
        Append(out, FoldCharacter(kana));
    }
    return out;
}

std::vector<std::string> SearchWords(std::string_view utf8)
{
    std::vector<std::string> words;
    std::string word;
    for (const char c : Fold(utf8) + " ") {
        const bool divides = c == ' ' || c == ',' || c == '\n' || c == '\r';
        if (!divides) {
            word += c;
        } else if (!word.empty()) {
            words.push_back(std::move(word));
            word.clear();
        }
    }
    return words;
}

} // namespace sbd
