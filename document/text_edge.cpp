// The edge between the bytes of a project and the text on the screen.
#include "document/section_doc.h"
#include "project/text.h"

#include <algorithm>

namespace sbd {

namespace {

constexpr char16_t kByteSurrogates = 0xDC00; // a byte that is no character, as U+DC00 + byte

bool IsAscii(std::string_view bytes)
{
    return std::ranges::all_of(bytes, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// The character that CP932 has for one that other systems' input methods write in its place.
char16_t WindowsSpelling(char16_t c)
{
    switch (c) {
    case u'\u301C': // wave dash
        return u'\uFF5E';
    case u'\u2016': // double vertical line
        return u'\u2225';
    case u'\u2212': // minus sign
        return u'\uFF0D';
    case u'\u2014': // em dash
        return u'\u2015';
    case u'\u00A2': // cent
        return u'\uFFE0';
    case u'\u00A3': // pound
        return u'\uFFE1';
    case u'\u00AC': // not sign
        return u'\uFFE2';
    case u'\u00A5': // yen sign: byte 5C, the backslash
        return u'\\';
    default:
        return c;
    }
}

bool IsByteSurrogate(QChar c)
{
    return c.unicode() >= kByteSurrogates + 0x80 && c.unicode() <= kByteSurrogates + 0xFF;
}

/// `text` in UTF-8. Unlike QString::toUtf8 it keeps the surrogates that stand for bytes.
std::string Utf8WithBytes(const QString& text)
{
    std::string utf8;
    utf8.reserve(static_cast<std::size_t>(text.size()) * 3);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool pair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (pair) {
            utf8 += QStringView(text).mid(i, 2).toUtf8().toStdString();
            ++i;
        } else if (IsByteSurrogate(text[i])) {
            const char16_t c = text[i].unicode();
            utf8 += {'\xED', static_cast<char>(0x80 | ((c >> 6) & 0x3F)), static_cast<char>(0x80 | (c & 0x3F))};
        } else {
            // Half a pair is no character; as such it is refused.
            const QChar c(text[i].isSurrogate() ? char16_t(QChar::ReplacementCharacter)
                                                : WindowsSpelling(text[i].unicode()));
            utf8 += QStringView(&c, 1).toUtf8().toStdString();
        }
    }
    return utf8;
}

} // namespace

QString toQString(std::string_view bytes)
{
    if (IsAscii(bytes))
        return QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QString text;
    text.reserve(static_cast<qsizetype>(bytes.size()));
    for (std::size_t pos = 0; pos < bytes.size();) {
        if (const std::optional<char32_t> character = DecodeCharacter(bytes, pos)) {
            text.append(QChar(static_cast<char16_t>(*character))); // CP932 has nothing beyond U+FFFF
            pos += CharacterLength(bytes, pos);
        } else {
            text.append(QChar(static_cast<char16_t>(kByteSurrogates + static_cast<unsigned char>(bytes[pos]))));
            ++pos;
        }
    }
    return text;
}

std::optional<std::string> fromQString(const QString& text, QString* refused)
{
    if (std::ranges::all_of(text, [](QChar c) { return c.unicode() < 0x80; }))
        return text.toLatin1().toStdString();
    Cp932Result result = ToCp932(Utf8WithBytes(text));
    if (!result.refused)
        return std::move(result.bytes);
    if (refused != nullptr)
        *refused = QString::fromStdString(result.refused->character);
    return std::nullopt;
}

} // namespace sbd
