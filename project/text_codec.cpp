// CP932 to Unicode and back, by two tables made once from the platform's converter.
#include "project/text.h"

#include <cstdint>
#include <memory>

#ifdef _WIN32
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
#else
#include <iconv.h>
#endif

namespace sbd {

namespace {

constexpr char32_t kNoCharacter = 0;
constexpr char32_t kByteSurrogates = 0xDC00; // a byte that is no character, as U+DC00 + byte

/// The platform's converter for one character.
class PlatformConverter {
public:
#ifdef _WIN32
    [[nodiscard]] char32_t Decode(const char* bytes, int count) const
    {
        wchar_t wide[2] = {};
        const int size = MultiByteToWideChar(932, MB_ERR_INVALID_CHARS, bytes, count, wide, 2);
        return size == 1 ? static_cast<char32_t>(wide[0]) : kNoCharacter;
    }
    [[nodiscard]] int Encode(char32_t character, char* bytes) const
    {
        if (character > 0xFFFF)
            return 0;
        const wchar_t wide = static_cast<wchar_t>(character);
        BOOL replaced = FALSE;
        const int size = WideCharToMultiByte(932, WC_NO_BEST_FIT_CHARS, &wide, 1, bytes, 2, nullptr, &replaced);
        return replaced ? 0 : size;
    }
#else
    PlatformConverter() : decoder_(iconv_open("UTF-32LE", "CP932")), encoder_(iconv_open("CP932", "UTF-32LE")) {}
    ~PlatformConverter()
    {
        iconv_close(decoder_);
        iconv_close(encoder_);
    }
    PlatformConverter(const PlatformConverter&) = delete;
    PlatformConverter& operator=(const PlatformConverter&) = delete;

    [[nodiscard]] char32_t Decode(const char* bytes, int count) const
    {
        unsigned char unit[8] = {};
        if (Convert(decoder_, bytes, static_cast<std::size_t>(count), reinterpret_cast<char*>(unit), 4) != 4)
            return kNoCharacter;
        return static_cast<char32_t>(unit[0] | (unit[1] << 8) | (unit[2] << 16)); // the fourth byte is always 0
    }
    [[nodiscard]] int Encode(char32_t character, char* bytes) const
    {
        const char unit[4] = {static_cast<char>(character & 0xFF), static_cast<char>((character >> 8) & 0xFF),
                              static_cast<char>((character >> 16) & 0xFF), 0};
        return static_cast<int>(Convert(encoder_, unit, 4, bytes, 2));
    }

private:
    /// Bytes written, or 0 if the input is no whole character or has no counterpart.
    static std::size_t Convert(iconv_t converter, const char* in, std::size_t inSize, char* out, std::size_t outSize)
    {
        if (converter == reinterpret_cast<iconv_t>(-1))
            return 0;
        iconv(converter, nullptr, nullptr, nullptr, nullptr);
        char* from = const_cast<char*>(in); // iconv's interface predates const
        char* to = out;
        std::size_t left = outSize;
        const std::size_t result = iconv(converter, &from, &inSize, &to, &left);
        return result == 0 && inSize == 0 ? outSize - left : 0;
    }

    iconv_t decoder_;
    iconv_t encoder_;
#endif
};

/// Both directions of the code page.
struct CodeTables {
    std::unique_ptr<char16_t[]> decode = std::make_unique<char16_t[]>(0x10000); // index: lead << 8 | trail, or the byte
    std::unique_ptr<std::uint16_t[]> encode = std::make_unique<std::uint16_t[]>(0x10000); // 0: none

    CodeTables()
    {
        const PlatformConverter converter;
        for (unsigned byte = 1; byte < 0x100; ++byte)
            Enter(converter, byte, 1);
        for (unsigned lead = 0x81; lead < 0xFD; ++lead)
            for (unsigned trail = 0x40; IsLeadByte(static_cast<unsigned char>(lead)) && trail < 0xFD; ++trail)
                if (IsTrailByte(static_cast<unsigned char>(trail)))
                    Enter(converter, lead << 8 | trail, 2);
    }

private:
    void Enter(const PlatformConverter& converter, unsigned code, int size)
    {
        if (size == 1 && (code < 0x80)) { // ASCII stands for itself, the backslash and the tilde with it
            decode[code] = static_cast<char16_t>(code);
            encode[code] = static_cast<std::uint16_t>(code);
            return;
        }
        if (size == 1 && !(code >= 0xA1 && code <= 0xDF))
            return; // 0x80, 0xA0, 0xFD-0xFF and lead bytes alone are no characters
        const char bytes[2] = {static_cast<char>(size == 2 ? code >> 8 : code), static_cast<char>(code & 0xFF)};
        const char32_t character = converter.Decode(bytes, size);
        if (character == kNoCharacter || character > 0xFFFF)
            return;
        decode[code] = static_cast<char16_t>(character);
        // Several codes stand for one character; the converter knows which one Windows writes.
        char back[2] = {};
        const int backSize = converter.Encode(character, back);
        if (backSize == 1)
            encode[character] = static_cast<unsigned char>(back[0]);
        else if (backSize == 2)
            encode[character] = static_cast<std::uint16_t>(static_cast<unsigned char>(back[0]) << 8
                                                           | static_cast<unsigned char>(back[1]));
    }
};

const CodeTables& Tables()
{
    static const CodeTables tables;
    return tables;
}

void AppendUtf8(std::string& out, char32_t c)
{
    if (c < 0x80) {
        out.push_back(static_cast<char>(c));
    } else if (c < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (c >> 6)));
        out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xE0 | (c >> 12)));
        out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    }
}

/// Bytes of the UTF-8 character at `pos` and its code point; a broken one is one byte and U+FFFD.
struct Utf8Character {
    char32_t code;
    std::size_t size;
};

Utf8Character ReadUtf8(std::string_view text, std::size_t pos)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[pos + i]); };
    const unsigned first = byte(0);
    if (first < 0x80)
        return {first, 1};
    const std::size_t size = first >= 0xF0 && first < 0xF8 ? 4 : first >= 0xE0 ? 3 : first >= 0xC2 ? 2 : 1;
    if (size == 1 || first >= 0xF8 || pos + size > text.size())
        return {0xFFFD, 1};
    char32_t code = first & (0xFFU >> (size + 1));
    for (std::size_t i = 1; i < size; ++i) {
        if ((byte(i) & 0xC0) != 0x80)
            return {0xFFFD, 1};
        code = code << 6 | (byte(i) & 0x3F);
    }
    constexpr char32_t least[] = {0, 0, 0x80, 0x800, 0x10000}; // a shorter character spelled longer is broken
    if (code < least[size])
        return {0xFFFD, 1};
    return {code, size};
}

} // namespace

std::optional<char32_t> DecodeCharacter(std::string_view bytes, std::size_t pos)
{
    const unsigned first = static_cast<unsigned char>(bytes[pos]);
    if (CharacterLength(bytes, pos) == 2) {
        const char16_t pair = Tables().decode[first << 8 | static_cast<unsigned char>(bytes[pos + 1])];
        return pair == 0 ? std::nullopt : std::optional<char32_t>(pair);
    }
    if (first == 0)
        return U'\0';
    const char16_t single = Tables().decode[first];
    return single == 0 ? std::nullopt : std::optional<char32_t>(single);
}

Cp932Result ToCp932(std::string_view utf8)
{
    Cp932Result result;
    result.bytes.reserve(utf8.size());
    std::optional<UnencodableCharacter> loneByte; // the first one
    for (std::size_t pos = 0; pos < utf8.size();) {
        const Utf8Character character = ReadUtf8(utf8, pos);
        const std::uint16_t code = character.code < 0x80      ? static_cast<std::uint16_t>(character.code)
                                   : character.code <= 0xFFFF ? Tables().encode[character.code]
                                                              : std::uint16_t{0};
        if (character.code >= kByteSurrogates + 0x80 && character.code <= kByteSurrogates + 0xFF) {
            result.bytes.push_back(static_cast<char>(character.code - kByteSurrogates));
            if (!loneByte)
                loneByte = UnencodableCharacter{pos, std::string(utf8.substr(pos, character.size))};
        } else if (code == 0 && character.code != 0) {
            result.refused = UnencodableCharacter{pos, std::string(utf8.substr(pos, character.size))};
            result.bytes.clear();
            return result;
        } else {
            if (code > 0xFF)
                result.bytes.push_back(static_cast<char>(code >> 8));
            result.bytes.push_back(static_cast<char>(code & 0xFF));
        }
        pos += character.size;
    }
    // A lone lead byte may have got a neighbour with which it is another character: then the text has no bytes.
    if (loneByte && FromCp932Lossless(result.bytes) != utf8) {
        result.refused = std::move(loneByte);
        result.bytes.clear();
    }
    return result;
}

namespace {

template <typename AppendByte>
std::string Decode(std::string_view bytes, AppendByte appendByte)
{
    std::string text;
    text.reserve(bytes.size() * 3 / 2);
    for (std::size_t pos = 0; pos < bytes.size();) {
        if (const std::optional<char32_t> character = DecodeCharacter(bytes, pos)) {
            AppendUtf8(text, *character);
            pos += CharacterLength(bytes, pos);
        } else {
            appendByte(text, static_cast<unsigned char>(bytes[pos]));
            ++pos;
        }
    }
    return text;
}

} // namespace

std::string FromCp932(std::string_view bytes)
{
    return Decode(bytes, [](std::string& text, unsigned char byte) {
        constexpr std::string_view digits = "0123456789abcdef";
        text += "\\x";
        text.push_back(digits[byte >> 4]);
        text.push_back(digits[byte & 0xF]);
    });
}

std::string FromCp932Lossless(std::string_view bytes)
{
    return Decode(bytes, [](std::string& text, unsigned char byte) { AppendUtf8(text, kByteSurrogates + byte); });
}

} // namespace sbd
