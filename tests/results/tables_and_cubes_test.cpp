#include "results/records.h"
#include "tests/results/file_bytes.h"
#include "tests/results/sample_records.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace sbd {

namespace {

constexpr std::int32_t kLie = 2'000'000'000;

} // namespace

TEST(ElementTable, EveryFieldIsReadFromItsPlace)
{
    const auto [record, read] = ReadFrom<ElementTable>(BytesOf(SampleElements()).Text());
    EXPECT_TRUE(read);
    EXPECT_EQ(record, SampleElements());
}

TEST(ElementTable, WithoutMembersItReadsTrue)
{
    for (const std::int32_t count : {0, -1}) {
        const auto [record, read] = ReadFrom<ElementTable>(FileBytes().Word(count).Text());
        EXPECT_TRUE(read);
        EXPECT_EQ(record.elementTableCount, count);
        EXPECT_TRUE(record.ends.empty());
    }
    EXPECT_TRUE(ReadFrom<ElementTable>("").read) << "an empty file";
}

TEST(ElementTable, WithoutItsEndsItReadsFalse)
{
    const auto [record, read] = ReadFrom<ElementTable>(FileBytes().Word(7).Text());
    EXPECT_FALSE(read);
    EXPECT_EQ(record.elementTableCount, 7);
}

TEST(ElementTable, WithoutItsValuesItReadsFalseAndKeepsTheEnds)
{
    const auto [record, read] = ReadFrom<ElementTable>(BytesOf(SampleElements()).Front(4 + 7 * 12));
    EXPECT_FALSE(read);
    EXPECT_EQ(record.ends, SampleElements().ends);
    EXPECT_TRUE(record.elementValues.empty());
}

TEST(ElementTable, CutInItsEndsItReadsFalseAndKeepsTheWholeOnes)
{
    const auto [record, read] = ReadFrom<ElementTable>(BytesOf(SampleElements()).Front(4 + 2 * 12 + 7));
    EXPECT_FALSE(read) << "nothing is left for the values";
    EXPECT_EQ(record.ends.size(), 2U);
}

TEST(ElementTable, CutInItsValuesItReadsTrueAndKeepsTheWholeOnes)
{
    const auto [record, read] = ReadFrom<ElementTable>(BytesOf(SampleElements()).Front(4 + 7 * 12 + 2 * 48 + 1));
    EXPECT_TRUE(read);
    EXPECT_EQ(record.elementValues.size(), 2U);
}

TEST(ElementTable, ACountThatLiesTakesWhatTheFileHolds)
{
    const auto [record, read] = ReadFrom<ElementTable>(FileBytes().Word(kLie).Raw(std::string(36, '\x01')).Text());
    EXPECT_FALSE(read);
    EXPECT_EQ(record.elementTableCount, kLie);
    EXPECT_EQ(record.ends.size(), 3U);
    EXPECT_LE(record.ends.capacity(), 3U);
}

TEST(NodeTable, EveryFieldIsReadFromItsPlace)
{
    const auto [record, read] = ReadFrom<NodeTable>(BytesOf(SampleNodes()).Text());
    EXPECT_TRUE(read);
    EXPECT_EQ(record, SampleNodes());
}

TEST(NodeTable, CutAnywhereItReadsTrueAndKeepsWhatIsWhole)
{
    const NodeTable whole = SampleNodes();
    const std::string bytes = BytesOf(whole).Text();
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        const auto [record, read] = ReadFrom<NodeTable>(std::string_view(bytes).substr(0, size));
        ASSERT_TRUE(read) << size;
        const std::size_t points = size < 4 ? 0 : std::min<std::size_t>(6, (size - 4) / 24);
        const std::size_t flags = size < 148 ? 0 : std::min<std::size_t>(6, (size - 148) / 4);
        const std::size_t values = size < 172 ? 0 : (size - 172) / 24;
        ASSERT_EQ(record.coordinates.size(), points) << size;
        ASSERT_EQ(record.nodeFlags.size(), flags) << size;
        ASSERT_EQ(record.nodeValues.size(), values) << size;
        ASSERT_TRUE(std::equal(record.nodeFlags.begin(), record.nodeFlags.end(), whole.nodeFlags.begin())) << size;
    }
}

TEST(NodeTable, ACountThatLiesTakesWhatTheFileHolds)
{
    const auto [record, read] = ReadFrom<NodeTable>(FileBytes().Word(kLie).Raw(std::string(60, '\x01')).Text());
    EXPECT_TRUE(read);
    EXPECT_EQ(record.coordinates.size(), 2U);
    EXPECT_TRUE(record.nodeFlags.empty()) << "the rest of a cut point is no flag";
}

TEST(ResultCube, ValuesAreReadInTheOrderOfTheFile)
{
    const ResultCube cube = SampleCube(3, 2, 6);
    const auto [record, read] = ReadFrom<ResultCube>(BytesOf(cube).Text());
    EXPECT_TRUE(read);
    EXPECT_EQ(record, cube);
}

TEST(ResultCube, WithoutItemsItReadsTrue)
{
    EXPECT_TRUE(ReadFrom<ResultCube>("").read);
    const auto [record, read] = ReadFrom<ResultCube>(FileBytes().Word(0).Word(3).Word(6).Real(1.0).Text());
    EXPECT_TRUE(read);
    EXPECT_EQ(record.size2, 3);
    EXPECT_TRUE(record.values.empty());
    EXPECT_TRUE(ReadFrom<ResultCube>(FileBytes().Word(-4).Word(3).Word(6).Text()).read);
}

TEST(ResultCube, ItemsWithoutLoadCasesReadFalse)
{
    EXPECT_FALSE(ReadFrom<ResultCube>(FileBytes().Word(4).Word(0).Word(6).Real(1.0).Text()).read);
    EXPECT_FALSE(ReadFrom<ResultCube>(FileBytes().Word(4).Word(-1).Word(-6).Real(1.0).Text()).read);
}

TEST(ResultCube, CutBehindItsSizesItReadsFalseAndKeepsThem)
{
    const auto [record, read] = ReadFrom<ResultCube>(FileBytes().Word(4).Word(3).Word(6).Text());
    EXPECT_FALSE(read);
    EXPECT_EQ(record.size1, 4);
    EXPECT_EQ(record.size3, 6);
}

TEST(ResultCube, CutInItsValuesItReadsTrueAndKeepsTheWholeOnes)
{
    const auto [record, read] = ReadFrom<ResultCube>(BytesOf(SampleCube(3, 2, 6)).Front(12 + 5 * 8 + 3));
    EXPECT_TRUE(read);
    EXPECT_EQ(record.values, (ResultValues{1, 2, 3, 4, 5}));
}

TEST(ResultCube, ThreeSizesThatLieTakeWhatTheFileHolds)
{
    const std::string bytes = FileBytes().Word(kLie).Word(kLie).Word(kLie).All(std::vector<double>(3, 1.5)).Text();
    const auto [record, read] = ReadFrom<ResultCube>(bytes + "1234");
    ASSERT_EQ(bytes.size() + 4, 40U);
    EXPECT_TRUE(read);
    EXPECT_EQ(record.size1, kLie);
    EXPECT_EQ(record.values.size(), 3U);
    EXPECT_LE(record.values.capacity(), 3U);
}

TEST(ResultCube, ValuesThatAreNoNumbersStayAsTheyAre)
{
    ResultCube cube = SampleCube(1, 1, 6);
    cube.values[0] = std::numeric_limits<double>::infinity();
    cube.values[1] = -std::numeric_limits<double>::quiet_NaN();
    cube.values[2] = -0.0;
    cube.values[3] = std::numeric_limits<double>::denorm_min();
    const ResultValues values = ReadFrom<ResultCube>(BytesOf(cube).Text()).record.values;
    ASSERT_EQ(values.size(), 6U);
    for (std::size_t i = 0; i < values.size(); ++i)
        EXPECT_EQ(std::bit_cast<std::uint64_t>(values[i]), std::bit_cast<std::uint64_t>(cube.values[i])) << i;
}

TEST(ResultCube, AValueIsFoundByTheCountsOfTheModel)
{
    const ResultCube cube = SampleCube(4, 3, 6);
    EXPECT_EQ(cube.At(0, 0, 0, 3, 6), 1.0);
    EXPECT_EQ(cube.At(1, 2, 4, 3, 6), 1.0 + 1 * 18 + 2 * 6 + 4);
    EXPECT_EQ(cube.At(3, 2, 5, 3, 6), 72.0);
}

TEST(ResultCube, AValueOutsideTheCubeIsNone)
{
    const ResultCube cube = SampleCube(4, 3, 6);
    EXPECT_EQ(cube.At(4, 0, 0, 3, 6), std::nullopt);
    EXPECT_EQ(cube.At(3, 3, 0, 3, 6), std::nullopt) << "the load case of the next node";
    EXPECT_EQ(cube.At(0, 0, 6, 3, 6), std::nullopt) << "a component of the next load case";
    EXPECT_EQ(cube.At(0, 0, 0, 0, 6), std::nullopt);
    EXPECT_EQ(ResultCube().At(0, 0, 0, 1, 6), std::nullopt);
    constexpr std::size_t most = std::numeric_limits<std::size_t>::max();
    EXPECT_EQ(cube.At(most, 0, 0, 3, 6), std::nullopt);
    EXPECT_EQ(cube.At(most / 18 + 1, 0, 0, 3, 6), std::nullopt) << "a product that comes round to the first value";
    EXPECT_EQ(cube.At(1, 0, 0, 0x7FFFFFFF, 12), std::nullopt);
}

} // namespace sbd
