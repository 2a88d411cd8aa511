#include "project/text.h"
#include "results/field_reader.h"
#include "tests/results/file_bytes.h"

#include <gtest/gtest.h>

#include <limits>

namespace sbd {

using namespace literals;
using namespace std::string_literals;
using namespace std::string_view_literals;

namespace {

/// A source whose reading fails behind some bytes, as on a disk that breaks.
class FailingSource final : public CByteSource {
public:
    FailingSource(std::uint64_t size, std::size_t good) : size_(size), good_(good) {}
    [[nodiscard]] std::uint64_t Size() const override { return size_; }
    [[nodiscard]] std::size_t Read(std::span<std::byte> into) override
    {
        const std::size_t count = std::min(into.size(), good_);
        good_ -= count;
        std::ranges::fill(into.first(count), std::byte{1});
        return count;
    }
    [[nodiscard]] std::span<const std::byte> Next(std::size_t most) override
    {
        piece_.resize(std::min(most, std::size_t{8}));
        return std::span(piece_).first(Read(piece_));
    }

private:
    std::uint64_t size_;
    std::size_t good_;
    std::vector<std::byte> piece_;
};

std::string Field20(std::string_view text)
{
    return FileBytes().Name(text).Text();
}

} // namespace

TEST(TextOfField, BlanksAtTheEndGo)
{
    EXPECT_EQ(TextOfField(Field20("G1-S1")), "G1-S1");
}

TEST(TextOfField, BlanksInFrontAndInsideStay)
{
    EXPECT_EQ(TextOfField(Field20("  a b")), "  a b");
}

TEST(TextOfField, AFieldOfBlanksGivesOneBlank)
{
    EXPECT_EQ(TextOfField(Field20("")), " ");
    EXPECT_EQ(TextOfField("  "), " ");
}

TEST(TextOfField, AnInnerZeroEndsTheText)
{
    EXPECT_EQ(TextOfField(Field20("A\0B"sv)), "A");
    EXPECT_EQ(TextOfField(std::string(20, '\0')), "");
}

TEST(TextOfField, BlanksAheadOfAZeroStay)
{
    EXPECT_EQ(TextOfField("A   \0\0\0"sv), "A   ");
}

TEST(TextOfField, AFullFieldLosesItsLastByte)
{
    EXPECT_EQ(TextOfField("12345678901234567890"), "1234567890123456789");
}

TEST(TextOfField, AFullFieldOfTwoByteCharactersLosesHalfOfTheLast)
{
    EXPECT_EQ(TextOfField("主桁主桁主桁主桁主桁"_cp932), "主桁主桁主桁主桁主"_cp932 + '\x8C');
}

TEST(TextOfField, BlanksAheadOfTheLostByteGo)
{
    EXPECT_EQ(TextOfField("A                  Z"), "A");
}

TEST(TextOfField, AFieldOfOneByteIsEmpty)
{
    EXPECT_EQ(TextOfField("A"), "");
    EXPECT_EQ(TextOfField(""), "");
}

TEST(EntryCount, AnExtentBelowOneGivesNone)
{
    EXPECT_EQ(EntryCount(3, 2), 6U);
    EXPECT_EQ(EntryCount(0), 0U);
    EXPECT_EQ(EntryCount(-3, -2), 0U) << "two negative counts are no positive one";
}

TEST(EntryCount, AnOverflowIsHeldAtTheLargestNumber)
{
    constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(EntryCount(most, most, most), std::numeric_limits<std::uint64_t>::max());
}

TEST(FieldReader, NumbersAreLittleEndian)
{
    const std::string bytes = "\x01\x02\x03\x84"s + "\0\0\0\0\0\0\xF8\x3F"s;
    CMemorySource source(std::as_bytes(std::span(bytes)));
    CFieldReader reader(source);
    EXPECT_EQ(reader.Word(), static_cast<std::int32_t>(0x84030201U));
    EXPECT_EQ(reader.Array<double>(1), std::vector<double>{1.5});
}

TEST(FieldReader, ANumberCutByTheEndIsZeroAndEndsTheReading)
{
    const std::string bytes = FileBytes().Word(7).Raw("\x01\x01\x01").Text();
    CMemorySource source(std::as_bytes(std::span(bytes)));
    CFieldReader reader(source);
    EXPECT_EQ(reader.Word(), 7);
    EXPECT_EQ(reader.Word(), 0);
    EXPECT_EQ(reader.Word(), 0);
}

TEST(FieldReader, AnArrayHoldsItsWholeEntriesAndNothingIsReadBehindACutOne)
{
    const std::string bytes = FileBytes().Word(1).Word(2).Raw("\x01\x01\x01").Text();
    CMemorySource source(std::as_bytes(std::span(bytes)));
    CFieldReader reader(source);
    EXPECT_EQ(reader.Array<std::int32_t>(5), (std::vector<std::int32_t>{1, 2}));
    EXPECT_FALSE(reader.ArrayWasMissing());
    EXPECT_EQ(reader.Text(3), "");
    EXPECT_TRUE(reader.Array<unsigned char>(3).empty()) << "the bytes of the cut entry are gone";
}

TEST(FieldReader, AnArrayIsMissingOnlyIfNoByteOfItIsThere)
{
    const std::string bytes = "\x01";
    CMemorySource source(std::as_bytes(std::span(bytes)));
    CFieldReader reader(source);
    EXPECT_TRUE(reader.Array<double>(2).empty());
    EXPECT_FALSE(reader.ArrayWasMissing());
    EXPECT_TRUE(reader.Array<double>(2).empty());
    EXPECT_TRUE(reader.ArrayWasMissing());
}

TEST(FieldReader, ACountBeyondTheSourceTakesNoMemory)
{
    const std::string bytes(100, '\x01');
    CMemorySource source(std::as_bytes(std::span(bytes)));
    CFieldReader reader(source);
    const std::vector<double> values = reader.Array<double>(std::numeric_limits<std::uint64_t>::max());
    EXPECT_EQ(values.size(), 12U);
    EXPECT_LE(values.capacity(), 12U);
}

TEST(FieldReader, NamesBeyondTheSourceTakeNoMemory)
{
    const std::string bytes = FileBytes().Name("G1").Name("G2").Text();
    CMemorySource source(std::as_bytes(std::span(bytes)));
    CFieldReader reader(source);
    const std::vector<std::string> names = reader.Names(std::numeric_limits<std::uint64_t>::max());
    EXPECT_EQ(names, (std::vector<std::string>{"G1", "G2"}));
    EXPECT_LE(names.capacity(), 4U);
}

TEST(FieldReader, ANameCutByTheEndKeepsItsBlanks)
{
    const std::string bytes = FileBytes().Name("G1-S1").Raw("G1-C1  ").Text();
    CMemorySource source(std::as_bytes(std::span(bytes)));
    CFieldReader reader(source);
    EXPECT_EQ(reader.Names(3), (std::vector<std::string>{"G1-S1", "G1-C1  "}));
}

TEST(FieldReader, AnArrayLargerThanOneReadComesWhole)
{
    std::vector<double> values(100'003);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = static_cast<double>(i) + 0.25;
    const std::string bytes = FileBytes().All(values).Word(5).Text();
    CMemorySource source(std::as_bytes(std::span(bytes)));
    CFieldReader reader(source);
    EXPECT_EQ(reader.Array<double>(values.size()), values);
    EXPECT_EQ(reader.Word(), 5);
}

TEST(FieldReader, MoreNamesThanOneReadComeWhole)
{
    std::vector<std::string> names(2500);
    for (std::size_t i = 0; i < names.size(); ++i)
        names[i] = "G" + std::to_string(i);
    const std::string bytes = FileBytes().Names(names).Word(5).Text();
    CMemorySource source(std::as_bytes(std::span(bytes)));
    CFieldReader reader(source);
    EXPECT_EQ(reader.Names(names.size()), names);
    EXPECT_EQ(reader.Word(), 5);
}

TEST(FieldReader, ADiskThatFailsEndsTheReading)
{
    FailingSource source(1'000'000'000'000, 20);
    CFieldReader reader(source);
    EXPECT_EQ(reader.Array<std::int32_t>(3).size(), 3U);
    EXPECT_EQ(reader.Words<3>(), (std::array<std::int32_t, 3>{0x01010101, 0x01010101, 0}));
    EXPECT_TRUE(reader.Array<std::int32_t>(10).empty());
    EXPECT_TRUE(reader.ArrayWasMissing());
}

} // namespace sbd
