// Files that are made to take time or memory. Where the work grew with the square of the size, a test here would run
// for an hour; the time limit of the test run is the check.
#include "tests/sbdfile/sections.h"

#include <gtest/gtest.h>

#include <string>

namespace sbd {

namespace {

std::string Repeated(const std::string& text, std::size_t count)
{
    std::string result;
    result.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i)
        result += text;
    return result;
}

} // namespace

TEST(HostileFiles, ACountThatIsToldAgainAndAgainTakesTheTimeOfItsLines)
{
    CSbdData data;
    const std::string turn = "SWAY_N_NAME = 2000000000 A\r\n[END]\r\nSWAY_N_NAME = 1 -B\r\n";
    ReadGridNamesFromBytes("[GRID_GRID]\r\n" + Repeated(turn, 40'000), data);
    EXPECT_EQ(data.gridNames.swayNames, std::vector<std::string>{"B"});
    EXPECT_EQ(data.gridNames.swayMarks, std::vector<int>{1});
}

TEST(HostileFiles, ACountAloneMakesNoMoreNamesThanTheFileCouldHold)
{
    CSbdData data;
    ReadGridNamesFromBytes("[GRID_GRID]\r\nGIRDER_N_NAME = 2000000000 G1\r\nSWAY_N_NAME = 9", data);
    EXPECT_LE(data.gridNames.girderNames.size(), 65536U);
    EXPECT_EQ(data.gridNames.girderNames[0], "G1");
    EXPECT_EQ(data.gridNames.girderNames[1], "SWAY_N_NAME") << "a list takes lines until it is full";
}

TEST(HostileFiles, ASwitchOfManyWordsTakesTheTimeOfItsLine)
{
    const std::string words = Repeated("3 ", 300'000);
    const std::string text = FileOf("[SEC_CONTROL]\nAUTOMATIC_V_STIFF x YES ") + words + "\r\n[END]\r\n"
                             + FileOf("[SEC_V_STIFF]\n自動計算(YES_NO) YES ") + words + " 4\r\n[END]\r\n";
    const CSbdData data = LoadBytes(text);
    EXPECT_EQ(data.Table(313)->columns[2][0], "4") << "the switch's own words are taken off the row";
}

TEST(HostileFiles, ASwitchWithControlCharactersComesToRest)
{
    // A vertical tab is trimmed off the front of a cell, so that it is no word of the row.
    CSbdData first = LoadBytes("[SEC_CONTROL]\r\nAUTOMATIC_V_STIFF x a \x0B b\r\n[END]\r\n");
    const std::string once = WriteProject(first);
    CSbdData second = LoadBytes(once);
    const std::string twice = WriteProject(second);
    EXPECT_EQ(FirstDifference(once, twice), "");
}

TEST(HostileFiles, ARibCountIsNoPromise)
{
    const CSbdData data = Load("[SEC_CROSS_RIB]\nG1 G2 A1 A2 U 1 2 3 4 2147483647 1.5\n[END]\n"
                               "[SEC_NUMBER_L_RIB]\nG1 G2 A1 U 0 2147483647 -2147483648 300\n[END]\n");
    EXPECT_LE(data.crossRibs.at(0).left.numbers.capacity(), 8U);
    EXPECT_LE(data.lRibs.at(0).left.numbers.capacity(), 8U);
}

TEST(HostileFiles, ALineOfOneMillionBytesIsOneCell)
{
    const CSbdData data = LoadBytes("[SEC_GROUP]\r\n" + std::string(1'000'000, 'x'));
    EXPECT_EQ(data.Table(323)->columns[0][0].size(), 1'000'000U);
}

} // namespace sbd
