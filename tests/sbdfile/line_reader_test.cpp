#include "project/text.h"
#include "sbdfile/line_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace sbd {

namespace {

using namespace literals;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> Lines(std::string_view bytes)
{
    CLineReader reader(bytes);
    std::vector<std::string> lines;
    std::string_view line;
    while (reader.Next(line)) {
        lines.emplace_back(line);
        EXPECT_EQ(reader.Number(), lines.size());
    }
    return lines;
}

std::string Clean(std::string_view line)
{
    CLineCleaner cleaner;
    return std::string(cleaner.Clean(line));
}

std::string CleanRow(std::string_view line)
{
    CLineCleaner cleaner;
    return std::string(cleaner.CleanRow(line));
}

} // namespace

TEST(LineReader, ALineEndsWithLfAndOneCrInFrontOfItGoesToo)
{
    EXPECT_THAT(Lines("a\r\nb\nc\r\r\n"), ElementsAre("a", "b", "c\r"));
}

TEST(LineReader, ACrElsewhereStaysInItsLine)
{
    EXPECT_THAT(Lines("a\rb\r\n\rc\n"), ElementsAre("a\rb", "\rc"));
}

TEST(LineReader, WhatStandsBehindTheLastLineEndIsALine)
{
    EXPECT_THAT(Lines("a\r\nb"), ElementsAre("a", "b"));
    EXPECT_THAT(Lines("a\r"), ElementsAre("a\r")) << "a CR without its LF is a byte like another";
}

TEST(LineReader, EmptyLinesAreLinesAndAnEmptyFileHasNone)
{
    EXPECT_THAT(Lines("\n\r\na\n"), ElementsAre("", "", "a"));
    EXPECT_THAT(Lines(""), IsEmpty());
}

TEST(LineReader, AnyByteMayStandInALine)
{
    const std::string line("a\0\x81\x1A\v\f\xFF", 7);
    EXPECT_THAT(Lines(line + "\r\n" + line), ElementsAre(line, line));
}

TEST(LineCleaner, TabAndTheThreeFullWidthDividersBecomeTwoBlanksEach)
{
    EXPECT_EQ(Clean("a\tb　c，d、e"_cp932), "a  b  c  d  e");
}

TEST(LineCleaner, BothEndsAreTrimmedBehindTheReplacing)
{
    EXPECT_EQ(Clean("　\t G1、 \v\f\r"_cp932), "G1");
    EXPECT_EQ(Clean(" \t　"_cp932), "");
    EXPECT_EQ(Clean("  plain  "), "plain");
}

TEST(LineCleaner, AnAsciiCommaIsABlankInRowsAlone)
{
    EXPECT_EQ(Clean("YES, 3"), "YES, 3");
    EXPECT_EQ(CleanRow("G1,,G2,"), "G1  G2");
    EXPECT_EQ(CleanRow(","), "");
}

TEST(LineCleaner, ACharacterWhoseBytesLookLikeADividerIsNotSplit)
{
    // 83 81 | 40: the character メ and an "@"; the bytes 81 40 in it are no full-width blank.
    EXPECT_EQ(Clean("メ@\tx"_cp932), "メ@  x"_cp932);
    // 88 81 | 41, 8B 81 | 43
    EXPECT_EQ(Clean("\x88\x81\x41 \x8B\x81\x43\ty"), "\x88\x81\x41 \x8B\x81\x43  y");
}

TEST(LineCleaner, OtherCharactersOfTheSameLeadByteStay)
{
    EXPECT_EQ(CleanRow("。．・：；？！\t"_cp932), "。．・：；？！"_cp932);
}

TEST(LineCleaner, ALeadByteWithoutATrailByteSwallowsNothing)
{
    EXPECT_EQ(CleanRow("\x81,\x81\tx\x81"), "\x81 \x81  x\x81");
}

TEST(LineCleaner, AZeroByteIsNoBlank)
{
    EXPECT_EQ(Clean(std::string_view("\0 a\0", 4)), std::string_view("\0 a\0", 4));
}

TEST(LineCleaner, ItMayCleanLineAfterLine)
{
    CLineCleaner cleaner;
    EXPECT_EQ(cleaner.CleanRow("a,b"), "a b");
    EXPECT_EQ(cleaner.CleanRow("a much longer line,\tthan the first"), "a much longer line   than the first");
    EXPECT_EQ(cleaner.CleanRow("c,d"), "c d");
}

} // namespace sbd
