#include "project/text.h"
#include "tests/seed.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace sbd {

namespace {

using namespace literals;
using testing::ElementsAre;
using testing::IsEmpty;

std::string Pair(unsigned first, unsigned second)
{
    return {static_cast<char>(first), static_cast<char>(second)};
}

/// The characters of a text, one a string.
std::vector<std::string> Characters(std::string_view text)
{
    std::vector<std::string> characters;
    for (std::size_t pos = 0; pos < text.size(); pos += CharacterLength(text, pos))
        characters.emplace_back(text.substr(pos, CharacterLength(text, pos)));
    return characters;
}

std::string Fixed(double value, int width, int decimals)
{
    std::string text;
    AppendFixed(text, value, width, decimals);
    return text;
}

/// As the C library prints it; the tests run in the C locale.
std::string Printed(double value, int width, int decimals)
{
    std::vector<char> buffer(512);
    const int size = std::snprintf(buffer.data(), buffer.size(), "%*.*f", width, decimals, value);
    return {buffer.data(), static_cast<std::size_t>(size)};
}

} // namespace

// --- stepping by character ---------------------------------------------------------------------

TEST(TextCharacters, TwoBytesAreOneCharacterExactlyIfLeadAndTrailByteMeet)
{
    for (unsigned first = 0; first < 0x100; ++first) {
        for (unsigned second = 0; second < 0x100; ++second) {
            const bool lead = (first >= 0x81 && first <= 0x9F) || (first >= 0xE0 && first <= 0xFC);
            const bool trail = (second >= 0x40 && second <= 0x7E) || (second >= 0x80 && second <= 0xFC);
            ASSERT_EQ(CharacterLength(Pair(first, second), 0), lead && trail ? 2U : 1U)
                << std::hex << first << " " << second;
        }
    }
}

TEST(TextCharacters, ALeadByteAtTheEndOrAheadOfABlankSwallowsNothing)
{
    EXPECT_EQ(CharacterLength("\x83", 0), 1U);
    EXPECT_THAT(Characters("\x83 A"), ElementsAre("\x83", " ", "A"));
}

TEST(TextCharacters, ASecondByteThatLooksLikeAsciiIsNotTakenForIt)
{
    EXPECT_THAT(Characters("表\\ポ|ァ@ー[ソ_"_cp932),
                ElementsAre("\x95\x5C", "\\", "\x83\x7C", "|", "\x83\x40", "@", "\x81\x5B", "[", "\x83\x5C", "_"));
}

// --- trimming and words ------------------------------------------------------------------------

TEST(TextTrim, ExactlyBlankTabCrLfVtAndFfAreRemoved)
{
    for (unsigned byte = 0; byte < 0x100; ++byte) {
        const std::string c(1, static_cast<char>(byte));
        const bool trimmed =
            byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n' || byte == '\v' || byte == '\f';
        EXPECT_EQ(Trim(c + "x" + c), trimmed ? "x" : c + "x" + c) << byte;
    }
}

TEST(TextTrim, EachSideAloneAndATextOfBlanks)
{
    EXPECT_EQ(TrimLeft(" \t a b "), "a b ");
    EXPECT_EQ(TrimRight(" a b \r\n"), " a b");
    EXPECT_EQ(Trim(" \t\r\n\v\f"), "");
    EXPECT_EQ(Trim(""), "");
}

TEST(TextTrim, AFullWidthBlankStays)
{
    EXPECT_EQ(Trim("　A　"_cp932), "　A　"_cp932);
}

TEST(TextTrim, CuttingRemovesBlanksAlone)
{
    EXPECT_EQ(CutTrailingBlanks(" a \t  "), " a \t");
    EXPECT_EQ(CutTrailingBlanks("   "), "");
}

TEST(TextWords, ATokenLeavesTheBlankBehindIt)
{
    std::string_view rest = "G1  G2";
    EXPECT_EQ(TakeToken(rest), "G1");
    EXPECT_EQ(rest, "  G2");
    EXPECT_EQ(TakeToken(rest), "") << "a blank stands first";
    rest = "alone";
    EXPECT_EQ(TakeToken(rest), "alone");
    EXPECT_EQ(rest, "");
}

TEST(TextWords, BlanksAndCommasDivideTabsDoNot)
{
    EXPECT_THAT(SplitWords(" a,,b  c\td, "), ElementsAre("a", "b", "c\td"));
    EXPECT_THAT(SplitWords(" , "), IsEmpty());
}

// --- numbers -----------------------------------------------------------------------------------

TEST(TextNumbers, ANumberIsReadAsFarAsItGoes)
{
    EXPECT_EQ(LeadingNumber("1.5"), 1.5);
    EXPECT_EQ(LeadingNumber(" \t+2.25mm"), 2.25);
    EXPECT_EQ(LeadingNumber("-3,5"), -3.0);
    EXPECT_EQ(LeadingNumber(".5"), 0.5);
    EXPECT_EQ(LeadingNumber("+.5"), 0.5);
    EXPECT_EQ(LeadingNumber("-.5"), -0.5);
    EXPECT_EQ(LeadingNumber("5."), 5.0);
    EXPECT_EQ(LeadingNumber("1e5x"), 1e5);
    EXPECT_EQ(LeadingNumber("1E-2"), 0.01);
    EXPECT_EQ(LeadingNumber("1e"), 1.0);
    EXPECT_EQ(LeadingNumber("1e+"), 1.0);
    EXPECT_EQ(LeadingNumber("007"), 7.0);
    EXPECT_EQ(LeadingNumber("1.2.3"), 1.2);
}

TEST(TextNumbers, AWordIsNoNumber)
{
    for (const char* word : {"",   " ",  "+",   "-",  "+-1", "-+1",  "++1", "--1", ".",        "-.",
                             "+.", "e5", ".e5", "x1", "inf", "-inf", "nan", "NaN", "infinity", "INF"})
        EXPECT_FALSE(LeadingNumber(word)) << "\"" << word << "\"";
}

TEST(TextNumbers, AFullWidthDigitIsNoNumber)
{
    EXPECT_FALSE(LeadingNumber("１"_cp932));
}

TEST(TextNumbers, ANumberTooLargeIsTheLargestAndOneTooSmallIsZero)
{
    constexpr double largest = std::numeric_limits<double>::max();
    const std::string zeros(400, '0');
    EXPECT_EQ(LeadingNumber("1e999"), largest);
    EXPECT_EQ(LeadingNumber("-1e999"), -largest);
    EXPECT_EQ(LeadingNumber("+1e999"), largest);
    EXPECT_EQ(LeadingNumber("1e-999"), 0.0);
    EXPECT_EQ(LeadingNumber("-1e-999"), 0.0);
    EXPECT_EQ(LeadingNumber("1" + zeros), largest);
    EXPECT_EQ(LeadingNumber("-1" + zeros + ".5"), -largest);
    EXPECT_EQ(LeadingNumber("0." + zeros + "1"), 0.0);
    EXPECT_EQ(LeadingNumber("." + zeros + "1"), 0.0);
    EXPECT_EQ(LeadingNumber("0.5e99999999999999999999"), largest);
    EXPECT_EQ(LeadingNumber("0e999"), 0.0);
}

TEST(TextNumbers, WhetherTooLargeOrTooSmallIsToldByDigitsAndExponentTogether)
{
    constexpr double largest = std::numeric_limits<double>::max();
    const std::string zeros(400, '0');
    EXPECT_EQ(LeadingNumber("001" + zeros), largest) << "zeros in front";
    EXPECT_EQ(LeadingNumber("-001" + zeros), -largest);
    EXPECT_EQ(LeadingNumber("1" + zeros + "e-5"), largest) << "a small exponent behind many digits";
    EXPECT_EQ(LeadingNumber("0." + zeros + "1e+5"), 0.0) << "a large exponent behind many zeros";
    EXPECT_EQ(LeadingNumber("1" + zeros + "e-400"), 1.0) << "in range after all";
}

TEST(TextNumbers, ANumberBelowTheNormalRangeIsItself)
{
    EXPECT_EQ(LeadingNumber("4.9406564584124654e-324"), std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(LeadingNumber("1e-310"), 1e-310);
}

TEST(TextNumbers, AnIntegerIsReadAsFarAsItGoesAndHeldWithinItsRange)
{
    EXPECT_EQ(LeadingInteger("12x"), 12);
    EXPECT_EQ(LeadingInteger(" +7"), 7);
    EXPECT_EQ(LeadingInteger("-3.9"), -3);
    EXPECT_EQ(LeadingInteger("2000000000"), 2000000000);
    EXPECT_EQ(LeadingInteger("99999999999999999999"), std::numeric_limits<int>::max());
    EXPECT_EQ(LeadingInteger("-99999999999999999999"), std::numeric_limits<int>::min());
    for (const char* word : {"", "+", "-", "+-5", "--5", ".5", "x5", "e"})
        EXPECT_EQ(LeadingInteger(word), 0) << "\"" << word << "\"";
}

class TextNumbersAtRandom : public RandomTest {
protected:
    /// Any finite double, by its bits.
    double AnyDouble()
    {
        double value = 0;
        do {
            const std::uint64_t bits = random();
            static_assert(sizeof bits == sizeof value);
            std::memcpy(&value, &bits, sizeof value);
        } while (!std::isfinite(value));
        return value;
    }
};

TEST_F(TextNumbersAtRandom, WhatTheCLibraryPrintsIsReadBackAsTheCLibraryReadsIt)
{
    const char* const formats[] = {"%.17g", "%.6f", "%e", "%.3g", "%+.17g", "%012.4f"};
    const char* const tails[] = {"", " ", ",", "mm", "e", "e+x", ".5", "-"};
    for (int i = 0; i < 20000; ++i) {
        std::vector<char> buffer(512);
        std::snprintf(buffer.data(), buffer.size(), formats[UpTo(std::size(formats) - 1)], AnyDouble());
        const std::string text = std::string(buffer.data()) + tails[UpTo(std::size(tails) - 1)];
        const double read = std::strtod(text.c_str(), nullptr);
        ASSERT_TRUE(LeadingNumber(text)) << text;
        ASSERT_EQ(*LeadingNumber(text), read) << text;
    }
}

TEST_F(TextNumbersAtRandom, FixedNotationIsThatOfTheCLibrary)
{
    for (int i = 0; i < 20000; ++i) {
        const double value = i % 2 == 0 ? AnyDouble() : static_cast<double>(static_cast<std::int64_t>(random())) / 1e14;
        const int width = static_cast<int>(UpTo(20));
        const int decimals = static_cast<int>(UpTo(9));
        ASSERT_EQ(Fixed(value, width, decimals), Printed(value, width, decimals)) << value;
    }
}

TEST(TextNumbers, FixedNotationRoundsTiesAsTheCLibraryDoes)
{
    for (const double value : {0.5, 1.5, 2.5, 0.125, 0.375, 1e15 + 0.5, 2.675, 5.55, -0.0, -0.04, 999999.9999995})
        for (const int decimals : {0, 1, 2, 6})
            EXPECT_EQ(Fixed(value, 12, decimals), Printed(value, 12, decimals)) << value;
}

TEST(TextNumbers, FixedNotationHoldsTheLargestAndTheSmallestNumber)
{
    for (const double value : {std::numeric_limits<double>::max(), -std::numeric_limits<double>::max(),
                               std::numeric_limits<double>::denorm_min(), 1e40})
        EXPECT_EQ(Fixed(value, 12, 6), Printed(value, 12, 6));
}

TEST(TextPadding, PadsByBytesOnEitherSideAndLeavesLongTextsWhole)
{
    std::string out = "|";
    AppendPadded(out, "主桁"_cp932, 6, true);
    AppendPadded(out, "|G1", 5, false);
    AppendPadded(out, "longer", 3, false);
    EXPECT_EQ(out, "|主桁    |G1longer"_cp932);
}

} // namespace sbd
