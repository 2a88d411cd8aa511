#include "compare/difference_text.h"
#include "project/text.h"

#include <gtest/gtest.h>

namespace sbd {

using namespace literals;

namespace {

TEST(DifferenceText, NamesBlockRowColumnAndBothValues)
{
    const Difference difference = {DifferenceKind::Value, 313, 6, 6, "幅1"_cp932, "130", "150"};
    EXPECT_EQ(DifferencePlaceText(difference), "313 垂直補剛材 6行目 6列目(幅1)");
    EXPECT_EQ(DifferenceText(difference), "313 垂直補剛材 6行目 6列目(幅1): 「130」→「150」");
}

TEST(DifferenceText, CutsALongValueBetweenTwoCharacters)
{
    std::string value = "x";
    for (int i = 0; i < 40; ++i)
        value += "桁"_cp932;
    const std::string quoted = Quoted(value);
    EXPECT_TRUE(quoted.ends_with("桁…」")) << quoted;
    EXPECT_EQ(Quoted(""), "「」");
}

TEST(DifferenceText, OfABlockThatTheCatalogueDoesNotKnowGivesTheNumber)
{
    EXPECT_EQ(NumberAndTitle(999999), "999999");
}

} // namespace

} // namespace sbd
