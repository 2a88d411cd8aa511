#include "upperview/page/page_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace sbd;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

std::vector<std::string> Faults(std::string_view name, std::string_view text)
{
    std::vector<std::string> faults;
    for (const PageFault& fault : CheckPage(name, text, {}))
        faults.push_back(std::to_string(fault.line) + ": " + fault.message);
    return faults;
}

constexpr std::string_view kGood = "[[branch]]\n"
                                   "text = '''\n"
                                   "幅 @{301:3}\n"
                                   "'''\n"
                                   "sketches = [\"a\"]\n"
                                   "[sketch.a]\n"
                                   "size = [10, 20]\n"
                                   "draw = [\n"
                                   "  [\"dim\", 0, 0, 10, 0, \"幅\", { col = [6] }],\n"
                                   "]\n";

/// The good page with one text in place of another.
std::string With(std::string_view old, std::string_view text)
{
    std::string page(kGood);
    page.replace(page.find(old), old.size(), text);
    return page;
}

} // namespace

TEST(PageCheck, AGoodPageHasNoFaults)
{
    EXPECT_THAT(Faults("313.toml", kGood), IsEmpty());
}

TEST(PageCheck, APageThatDoesNotParseIsToldWithItsLine)
{
    EXPECT_THAT(Faults("313.toml", "[[branch]]\ntext = 'a\n"), ElementsAre(HasSubstr("2: ")));
}

TEST(PageCheck, AnUnknownBlockIsAFault)
{
    EXPECT_THAT(Faults("317.toml", kGood), ElementsAre("1: there is no block 317"));
    EXPECT_THAT(Faults("girder.toml", kGood), ElementsAre("1: the file name says no block"));
}

TEST(PageCheck, AQuoteOfAnUnknownValueIsAFaultAtItsLine)
{
    EXPECT_THAT(Faults("313.toml", With("301:3", "301:37")), ElementsAre("3: no such value to quote: \"301:37\""));
}

TEST(PageCheck, ATextThatCp932HasNotIsAFaultAtItsLine)
{
    EXPECT_THAT(Faults("313.toml", With("幅 ", "☃")), ElementsAre("3: CP932 has no \"☃\""));
    EXPECT_THAT(Faults("313.toml", With("\"幅\"", "\"☃\"")), ElementsAre("9: CP932 has no \"☃\""));
}

TEST(PageCheck, AColumnThatTheBlockHasNotIsAFault)
{
    EXPECT_THAT(Faults("313.toml", With("[6]", "[10]")), ElementsAre("6: block 313 has no column 10"));
}

TEST(PageCheck, ASketchThatIsNotThereIsAFault)
{
    EXPECT_THAT(Faults("313.toml", With("[\"a\"]", "[\"a\", \"b\"]")), ElementsAre("5: no sketch \"b\""));
}

TEST(PageCheck, ASketchThatNobodyShowsIsAFault)
{
    EXPECT_THAT(Faults("313.toml", With("[\"a\"]", "[]")), ElementsAre("6: no branch shows the sketch \"a\""));
}

TEST(PageCheck, AnElementWithTheWrongCountOfNumbersIsAFault)
{
    EXPECT_THAT(Faults("313.toml", With("0, 0, 10, 0,", "0, 0, 10,")),
                ElementsAre("9: wrong count of numbers for \"dim\""));
    EXPECT_THAT(Faults("313.toml", With("\"dim\"", "\"plate\"")),
                ElementsAre("9: an element begins with a word for what is drawn"));
}

TEST(PageCheck, AnUnknownKeyIsAFault)
{
    EXPECT_THAT(Faults("313.toml", With("col =", "colum =")), ElementsAre("9: unknown key \"colum\""));
    EXPECT_THAT(Faults("313.toml", With("size =", "Size =")).size(), 2U); // the key, and no size
}

TEST(PageCheck, ALinkToABlockThatDoesNotExistIsAFaultAtItsLine)
{
    EXPECT_THAT(Faults("313.toml", With("幅 ", "「317」")),
                ElementsAre("3: a link to block 317, which does not exist"));
    EXPECT_THAT(Faults("313.toml", With("幅 ", "a\n「317.垂直補剛材」")),
                ElementsAre("4: a link to block 317, which does not exist"));
    for (const std::string_view text : {"「314」 ", "「406」「100」", "「3170」", "「317行」", "317", "「@{301:3}」"})
        EXPECT_THAT(Faults("313.toml", With("幅 ", text)), IsEmpty()) << text;
}

TEST(PageCheck, AFileMayNameABlockByAnAlias)
{
    EXPECT_THAT(Faults("712.toml", With("[6]", "[23]")), IsEmpty()); // 405
}

TEST(PageCheck, AQuoteInALabelMustExist)
{
    EXPECT_THAT(Faults("313.toml", With("\"幅\"", "\"幅@{301:3}\"")), IsEmpty());
    EXPECT_THAT(Faults("313.toml", With("\"幅\"", "\"幅@{301:37}\"")),
                ElementsAre("9: no such value to quote: \"301:37\""));
}

TEST(PageCheck, AnOptionRowWithoutABranchIsAFault)
{
    std::string rows;
    for (int row = 1; row <= 6; ++row)
        rows += std::to_string(row) + ", ";
    EXPECT_THAT(Faults("310.toml", "[[branch]]\nrows = [" + rows + "]\n[[branch]]\n"),
                ElementsAre("1: option row 7 has no branch"));
}

TEST(PageCheck, ABranchUnderAConditionServesNoRowForSure)
{
    EXPECT_THAT(Faults("310.toml", "[[branch]]\nrows = [1,2,3,4,5,6,7]\nwhen = \"row = 1\"\n[[branch]]\n").size(), 7U);
}

TEST(PageCheck, AnOptionPageNeedsALastBranchForRowsOutOfRange)
{
    EXPECT_THAT(Faults("310.toml", "[[branch]]\nrows = [1,2,3,4,5,6,7]\n"),
                ElementsAre(HasSubstr("rows out of range")));
}

TEST(PageCheck, AColouredLineMustExist)
{
    EXPECT_THAT(Faults("313.toml", "[[branch]]\ntext = \"a\"\nred = [3]\n"),
                ElementsAre("1: no line 3 to colour, the last is 2"));
}

TEST(PageCheck, BlocksComeFromTheFileName)
{
    EXPECT_THAT(BlocksOfFileName("291-293.toml"), ElementsAre(291, 292, 293));
    EXPECT_THAT(BlocksOfFileName("553_653.toml"), ElementsAre(553, 653));
    EXPECT_THAT(BlocksOfFileName("shared.toml"), IsEmpty());
    EXPECT_THAT(BlocksOfFileName("1-.toml"), IsEmpty());
}
