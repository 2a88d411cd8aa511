#include "project/text.h"
#include "results/result_paths.h"

#include <gtest/gtest.h>

namespace sbd {

using namespace literals;

TEST(ResultPath, LiesInAFolderBesideTheProject)
{
    EXPECT_EQ(ResultPath("D:\\data\\bridge1.sbd", ".Z1D"), "D:\\data\\bridge1_計算結果\\bridge1.Z1D"_cp932);
}

TEST(ResultPath, WorksInTheRootOfADrive)
{
    EXPECT_EQ(LastBackslash("D:\\bridge1.sbd"), 2U);
    EXPECT_EQ(ResultPath("D:\\bridge1.sbd", ".Z3F"), "D:\\bridge1_計算結果\\bridge1.Z3F"_cp932);
}

TEST(ResultPath, TakesNoSecondByteForABackslash)
{
    EXPECT_EQ(LastBackslash("D:\\表\\橋.sbd"_cp932), 5U);
    EXPECT_EQ(LastBackslash("D:\\data\\能ソ表.sbd"_cp932), 7U) << "three second bytes 0x5C behind the last backslash";
    EXPECT_EQ(ResultPath("D:\\data\\能ソ表.sbd"_cp932, ".Z1R"), "D:\\data\\能ソ表_計算結果\\能ソ表.Z1R"_cp932);
}

TEST(ResultPath, FindsTheBackslashBehindHalfWidthKana)
{
    EXPECT_EQ(LastBackslash("D:\\ｱｲｳ\\ｴ.sbd"_cp932), 6U);
}

TEST(ResultPath, ABackslashAtThePlacesZeroAndOneIsNone)
{
    EXPECT_EQ(LastBackslash("\\x.sbd"), 0U);
    EXPECT_EQ(LastBackslash("a\\x.sbd"), 0U);
    EXPECT_EQ(LastBackslash("ab\\x.sbd"), 2U);
    EXPECT_EQ(ResultPath("a\\x.sbd", ".Z1D"), "a\\x_計算結果a\\x.Z1D"_cp932);
}

TEST(ResultPath, WithoutAFolderRepeatsTheName)
{
    EXPECT_EQ(ResultPath("x.sbd", ".Z1D"), "x_計算結果x.Z1D"_cp932);
}

TEST(ResultPath, ShorterThanAnExtensionIsNothing)
{
    EXPECT_EQ(ResultPath("", ".Z1D"), "_計算結果.Z1D"_cp932);
    EXPECT_EQ(ResultPath("abc", ".Z1D"), "_計算結果.Z1D"_cp932);
    EXPECT_EQ(ResultPath("D:\\ab", ".Z1D"), "D_計算結果.Z1D"_cp932) << "the backslash goes with the extension";
}

TEST(ReportPath, LiesBesideTheResults)
{
    EXPECT_EQ(ReportPath("D:\\data\\bridge1.sbd"), "D:\\data\\bridge1_計算結果\\bridge1.CHK"_cp932);
    EXPECT_EQ(ReportPath("D:\\a.b\\c.d.sbd"), "D:\\a.b\\c.d_計算結果\\c.d.CHK"_cp932);
}

TEST(ReportPath, WithoutABackslashLosesTheFirstByteOfTheName)
{
    EXPECT_EQ(ReportPath("x.sbd"), "x_計算結果\\.CHK"_cp932);
    EXPECT_EQ(ReportPath(""), "_計算結果\\.CHK"_cp932);
}

TEST(ReportPath, APointInTheFolderAloneLeavesNoName)
{
    EXPECT_EQ(ReportPath("D:\\a.b\\c"), "D:\\a_計算結果\\.CHK"_cp932);
}

TEST(ResultFile, LiesInAFolderBesideTheProject)
{
    const std::filesystem::path folder = std::filesystem::path("data") / "a.b";
    EXPECT_EQ(ResultFile(folder / "c.d.sbd", ".Z1D"), folder / u8"c.d_計算結果" / "c.d.Z1D");
    EXPECT_EQ(ResultFile(folder / u8"表 1.SBD", ".CHK"), folder / u8"表 1_計算結果" / u8"表 1.CHK");
}

TEST(ResultFile, OfAProjectWithoutAFolderLiesBesideIt)
{
    EXPECT_EQ(ResultFile("x.sbd", ".Z1D"), std::filesystem::path(u8"x_計算結果") / "x.Z1D");
}

TEST(ResultFile, OfANameShorterThanAnExtensionHasNoName)
{
    EXPECT_EQ(ResultFile("abc", ".Z1D"), std::filesystem::path(u8"_計算結果") / ".Z1D");
    EXPECT_EQ(ResultFile("", ".Z1D"), std::filesystem::path(u8"_計算結果") / ".Z1D");
}

} // namespace sbd
