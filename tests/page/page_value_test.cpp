#include "project/sbd_data.h"
#include "project/text.h"
#include "upperview/page/page_value.h"

#include <gtest/gtest.h>

using namespace sbd;
using namespace sbd::literals;

namespace {

bool Holds(std::string_view condition, const PageView& view)
{
    std::string fault;
    const std::optional<PageCondition> parsed = ParseCondition(condition, fault);
    EXPECT_TRUE(parsed.has_value()) << condition << ": " << fault;
    return parsed && parsed->Holds(view);
}

std::string Text(std::string_view operand, const PageView& view)
{
    const std::optional<PageOperand> parsed = ParseOperand(operand);
    EXPECT_TRUE(parsed.has_value()) << operand;
    return parsed ? parsed->Text(view) : std::string();
}

} // namespace

TEST(PageValue, OptionRowsCountFromOne)
{
    const CSbdData data;
    const PageView view{data, 301, 1, 1};
    EXPECT_EQ(Text("301:1", view), "SBD1");
    EXPECT_EQ(Text("302:10", view), "520");
    EXPECT_EQ(Text("302:10/2", view), "52");
}

TEST(PageValue, CellsAreThoseOfTheGrid)
{
    CSbdData data;
    for (const std::string_view sixth : {"", "LFLG"})
        for (int column = 0; column < data.ColumnCount(333); ++column)
            data.Append(333, column, column == 5 ? sixth : "x");
    const PageView view{data, 333, 2, 1};
    EXPECT_EQ(Text("333:2:6", view), "LFLG");
    EXPECT_EQ(Text("cell:6", view), "LFLG");
    EXPECT_TRUE(Holds("cell:6 in LFLG, lflg", view));
    EXPECT_FALSE(Holds("cell:6 in UFLG, uflg", view));
}

TEST(PageValue, WhatDoesNotExistIsEmpty)
{
    const CSbdData data;
    const PageView view{data, 313, 99, 1};
    EXPECT_EQ(Text("cell:6", view), "");
    EXPECT_EQ(Text("313:5:1", view), "");
    EXPECT_TRUE(Holds("cell:6 empty", view));
    EXPECT_FALSE(Holds("cell:6 filled", view));
}

TEST(PageValue, AnyBytesCanBeQuoted)
{
    CSbdData data;
    data.SetOption(301, 0, "\x81\xff\x80 @{");
    EXPECT_EQ(Text("301:1", {data, 301, 1, 1}), "\x81\xff\x80 @{");
}

TEST(PageValue, TheModesOfASingleSectionCompareByTheirFirstBytes)
{
    CSbdData data;
    for (const auto& [type, section] : {std::pair{"YES", false},
                                        {"単独", false},
                                        {"断面1のみ", true},
                                        {"断面1_2のみ", true},
                                        {"断面継手のみ", true},
                                        {"ブラケット", false}}) {
        data.SetOption(301, 2, Cp932(type));
        EXPECT_EQ(Holds("301:3/4 >= 断面", {data, 301, 3, 1}), section) << type;
    }
}

TEST(PageValue, RowsAndColumnsCompareAsNumbers)
{
    const CSbdData data;
    const PageView view{data, 402, 10, 12};
    EXPECT_TRUE(Holds("row >= 9", view));
    EXPECT_FALSE(Holds("row < 9", view));
    EXPECT_TRUE(Holds("column = 12 and block = 402", view));
    EXPECT_TRUE(Holds("rows:402 = 0", view));
}

TEST(PageValue, ANumberInACellComparesAsANumberAndAWordByItsBytes)
{
    CSbdData data;
    data.Table(333)->AppendRow({"90", " 100 ", "9.50", "SM490Y", "", "LFLG"});
    const PageView view{data, 333, 1, 1};
    for (const std::string_view holds :
         {"cell:1 < 100", "cell:1 <= 90", "cell:1 >= 90", "cell:1 > 9", "cell:2 = 100", "cell:2 > 90", "cell:3 = 9.5",
          "cell:3 != 9", "cell:4 = SM490Y", "cell:4 < SM520", "cell:4 starts SM", "cell:4 contains 490", "cell:5 empty",
          "cell:6 filled", "cell:6 in UFLG, LFLG", "cell:6 notin UFLG, FLG", "cell:5 != 0"})
        EXPECT_TRUE(Holds(holds, view)) << holds;
    for (const std::string_view fails : {"cell:1 >= 100", "cell:1 > 90", "cell:1 < 90", "cell:1 <= 9", "cell:2 != 100",
                                         "cell:3 = 9", "cell:4 != SM490Y", "cell:4 starts M", "cell:5 filled",
                                         "cell:6 empty", "cell:6 in UFLG", "cell:6 notin LFLG", "cell:5 = 0"})
        EXPECT_FALSE(Holds(fails, view)) << fails;
}

TEST(PageValue, AWordOfAListIsTakenByItsPlace)
{
    const CSbdData data;
    const PageView view{data, 310, 1, 1};
    EXPECT_EQ(Text("310:2#1", view), "90");
    EXPECT_EQ(Text("310:2#2", view), "85");
    EXPECT_EQ(Text("310:2#3", view), "");
    EXPECT_EQ(Text("310:2#2/1", view), "8");
    EXPECT_FALSE(ParseOperand("310:2#0").has_value());
    EXPECT_FALSE(ParseOperand("310:2#x").has_value());
}

TEST(PageValue, FlangeTypesOf311AreReadFromTheRecord)
{
    CSbdData data;
    data.hGirder.types[3] = "２次"_cp932;
    EXPECT_TRUE(Holds("types:4 contains ２次", {data, 311, 1, 1}));
}

TEST(PageValue, WhatNamesNothingIsNoOperand)
{
    for (const std::string_view text : {"", "301", "301:0", "301:99", "301:1:1", "313:1", "313:1:99", "rows:100",
                                        "types:5", "cell", "cell:0", "line", "301:3/0", "999999999999:1"})
        EXPECT_FALSE(ParseOperand(text).has_value()) << text;
}

TEST(PageValue, AFaultyConditionSaysWhatIsWrong)
{
    for (const std::string_view text :
         {"", "row", "row >=", "row like 3", "cell:6 empty x", "777:1:1 = 3", "row = ☃"}) {
        std::string fault;
        EXPECT_FALSE(ParseCondition(text, fault).has_value()) << text;
        EXPECT_FALSE(fault.empty()) << text;
    }
}
