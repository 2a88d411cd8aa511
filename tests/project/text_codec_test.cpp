#include "project/text.h"
#include "tests/seed.h"

#include <gtest/gtest.h>

#include <string>

namespace sbd {

namespace {

std::string Pair(unsigned first, unsigned second)
{
    return {static_cast<char>(first), static_cast<char>(second)};
}

} // namespace

namespace {

/// A running digest over numbers, byte by byte from the highest.
class Digest {
public:
    void Add(std::uint32_t number)
    {
        for (int shift = 24; shift >= 0; shift -= 8)
            value_ = (value_ ^ ((number >> shift) & 0xFF)) * 0x100000001B3;
    }
    [[nodiscard]] std::uint64_t Value() const { return value_; }

private:
    std::uint64_t value_ = 0xCBF29CE484222325;
};

std::string Utf8Of(char32_t c)
{
    std::string text;
    const auto add = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    if (c < 0x80) {
        add(c);
    } else if (c < 0x800) {
        add(0xC0 | (c >> 6));
        add(0x80 | (c & 0x3F));
    } else {
        if (c < 0x10000) {
            add(0xE0 | (c >> 12));
        } else {
            add(0xF0 | (c >> 18));
            add(0x80 | ((c >> 12) & 0x3F));
        }
        add(0x80 | ((c >> 6) & 0x3F));
        add(0x80 | (c & 0x3F));
    }
    return text;
}

} // namespace

// The two digests come from the code page table of another program (docs/goldens.md).
TEST(TextCodec, EveryCharacterDecodesAsTheCodePageHasIt)
{
    Digest digest;
    int count = 0;
    const auto take = [&](std::uint32_t code, std::string_view bytes) {
        if (const std::optional<char32_t> character = DecodeCharacter(bytes, 0)) {
            digest.Add(code);
            digest.Add(*character);
            ++count;
        }
    };
    for (unsigned byte = 0xA1; byte <= 0xDF; ++byte)
        take(byte, std::string(1, static_cast<char>(byte)));
    for (unsigned lead = 0; lead < 0x100; ++lead)
        for (unsigned trail = 0; trail < 0x100; ++trail)
            if (CharacterLength(Pair(lead, trail), 0) == 2)
                take(lead << 8 | trail, Pair(lead, trail));
    EXPECT_EQ(count, 63 + 9604);
    EXPECT_EQ(digest.Value(), 0xE8C7DB2D31F28E4FU);
}

TEST(TextCodec, OfSeveralCodesForACharacterTheOneThatWindowsWritesIsTaken)
{
    EXPECT_EQ(Cp932("∵"), "\x81\xE6") << "not 879A, FA5B";
    EXPECT_EQ(Cp932("Ⅰ"), "\x87\x54") << "not FA4A";
    EXPECT_EQ(Cp932("ⅰ"), "\xFA\x40") << "not EEEF";
    EXPECT_EQ(Cp932("髙"), "\xFB\xFC") << "not EEE0";
}

TEST(TextCodec, EveryCharacterEncodesAsTheCodePageHasIt)
{
    Digest digest;
    int count = 0;
    for (char32_t c = 0x80; c < 0x10000; ++c) {
        if (c >= 0xD800 && c < 0xE000)
            continue;
        const Cp932Result result = ToCp932(Utf8Of(c));
        if (result.refused)
            continue;
        std::uint32_t code = 0;
        for (const char byte : result.bytes)
            code = code << 8 | static_cast<unsigned char>(byte);
        digest.Add(c);
        digest.Add(code);
        ++count;
    }
    EXPECT_EQ(count, 9269);
    EXPECT_EQ(digest.Value(), 0xACEFA1433848ABF2U);
}

TEST(TextCodec, AsciiStandsForItselfBackslashAndTildeIncluded)
{
    for (unsigned byte = 0; byte < 0x80; ++byte) {
        const std::string c(1, static_cast<char>(byte));
        EXPECT_EQ(FromCp932Lossless(c), c) << byte;
        EXPECT_EQ(ToCp932(c).bytes, c) << byte;
    }
}

TEST(TextCodec, TheWindowsSpellingsOfWaveDashAndMinusAreUsed)
{
    EXPECT_EQ(FromCp932("\x81\x60\x81\x7C\x81\x61\x81\x91"), "～－∥￠");
    EXPECT_EQ(Cp932("～－"), "\x81\x60\x81\x7C");
}

TEST(TextCodec, EverySingleByteComesBack)
{
    for (unsigned byte = 0; byte < 0x100; ++byte) {
        const std::string bytes(1, static_cast<char>(byte));
        const Cp932Result back = ToCp932(FromCp932Lossless(bytes));
        EXPECT_FALSE(back.refused) << byte;
        EXPECT_EQ(back.bytes, bytes) << byte;
    }
}

TEST(TextCodec, EveryPairOfBytesComesBackButForTheSecondCodesOfACharacter)
{
    int otherCode = 0;
    for (unsigned first = 0; first < 0x100; ++first) {
        for (unsigned second = 0; second < 0x100; ++second) {
            const std::string bytes = Pair(first, second);
            const std::string text = FromCp932Lossless(bytes);
            const Cp932Result back = ToCp932(text);
            ASSERT_FALSE(back.refused) << std::hex << first << " " << second;
            if (back.bytes == bytes)
                continue;
            // The code page has some characters twice or thrice; Windows writes one of the codes.
            ++otherCode;
            EXPECT_EQ(back.bytes.size(), 2U);
            EXPECT_EQ(FromCp932Lossless(back.bytes), text) << std::hex << first << " " << second;
        }
    }
    EXPECT_EQ(otherCode, 398);
}

class TextCodecAtRandom : public RandomTest {};

TEST_F(TextCodecAtRandom, AnyBytesKeepTheirTextThroughEditing)
{
    int kept = 0;
    for (int i = 0; i < 2000; ++i) {
        std::string bytes;
        for (std::size_t size = UpTo(40); size > 0; --size)
            bytes.push_back(static_cast<char>(UpTo(255)));
        const std::string text = FromCp932Lossless(bytes);
        const Cp932Result back = ToCp932(text);
        if (back.refused) // a lone lead byte in front of a character that is now written by its other code
            continue;
        ++kept;
        ASSERT_EQ(back.bytes.size(), bytes.size());
        ASSERT_EQ(FromCp932Lossless(back.bytes), text);
    }
    EXPECT_GT(kept, 1900);
}

TEST(TextCodec, ALoneByteThatWouldJoinItsNewNeighbourIsRefused)
{
    // 0x87 0xFA is no character; behind the lone 0x87 stands the roman four by its second code, 0xFA4D. Written by its
    // first code, 0x8757, the lone byte would pair with 0x87.
    const std::string text = FromCp932Lossless("\x87\xFA\x4D");
    const Cp932Result back = ToCp932(text);
    ASSERT_TRUE(back.refused);
    EXPECT_EQ(back.refused->offset, 0U);
    EXPECT_TRUE(back.bytes.empty());
}

TEST(TextCodec, AByteThatIsNoCharacterIsShownByItsNumberInReports)
{
    EXPECT_EQ(FromCp932("G1\x85"), "G1\\x85");
    EXPECT_EQ(FromCp932("\x85!"), "\\x85!") << "the next byte is looked at afresh";
    EXPECT_EQ(FromCp932("\x85\x40"), "\\x85@") << "a pair without a character";
    EXPECT_EQ(FromCp932("\x80\xA0\xFD\xFE\xFF"), "\\x80\\xa0\\xfd\\xfe\\xff");
    EXPECT_EQ(FromCp932("a\\b"), "a\\b") << "a backslash of the text is not doubled";
}

TEST(TextCodec, ACharacterThatTheCodePageLacksIsRefusedWithItsPlace)
{
    const Cp932Result result = ToCp932("主桁ä1");
    ASSERT_TRUE(result.refused);
    EXPECT_EQ(result.refused->offset, 6U);
    EXPECT_EQ(result.refused->character, "ä");
    EXPECT_EQ(result.bytes, "");
    EXPECT_EQ(ToCp932("𠮟").refused->character, "𠮟");
    EXPECT_EQ(ToCp932("あ😀").refused->offset, 3U);
}

TEST(TextCodec, NoTextOfUnicodeIsTakenForAnother)
{
    for (char32_t c = 1; c < 0x110000; ++c) {
        const bool byte = c >= 0xDC80 && c <= 0xDCFF;
        const Cp932Result result = ToCp932(Utf8Of(c));
        ASSERT_TRUE(result.refused || FromCp932Lossless(result.bytes) == Utf8Of(c) || byte) << std::hex << +c;
    }
}

TEST(TextCodec, BrokenUtf8IsRefusedAtItsFirstByte)
{
    for (const char* broken : {"a\x80", "a\xC3", "a\xE3\x81", "a\xF0\x9F\x98", "a\xFF", "a\xC0\x80", "a\xE3(\xA1"}) {
        const Cp932Result result = ToCp932(broken);
        ASSERT_TRUE(result.refused) << broken;
        EXPECT_EQ(result.refused->offset, 1U);
        EXPECT_FALSE(result.refused->character.empty());
    }
}

TEST(TextCodec, AZeroByteIsACharacterLikeAnother)
{
    const std::string bytes("a\0b", 3);
    EXPECT_EQ(FromCp932Lossless(bytes), bytes);
    EXPECT_EQ(ToCp932(bytes).bytes, bytes);
}

TEST(TextCodecDeathTest, ALiteralOfTheProgramThatTheCodePageLacksEndsIt)
{
    EXPECT_DEATH(static_cast<void>(Cp932("ä")), "CP932");
}

} // namespace sbd
