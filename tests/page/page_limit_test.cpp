#include "project/sbd_data.h"
#include "project/text.h"
#include "upperview/page/page_check.h"
#include "upperview/page/page_drawing.h"
#include "upperview/page/page_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace sbd;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace {

/// 331 with an automatic row and a row of data.
CSbdData DataWith(std::string_view thickness)
{
    CSbdData data;
    data.Table(331)->AppendRow({"auto", "YES", "", "", "", "", "5"});
    data.Table(331)->AppendRow({"G1", "G1", "SEC1", "SEC1", "I", "SM400", thickness});
    return data;
}

std::vector<std::string> LinesOf(std::string_view limit, const CSbdData& data, DrawColour colour, int row = 2)
{
    const ParsedPage parsed = ParsePage("[[branch]]\ntext = 'x'\n[[limit]]\n" + std::string(limit), 331);
    EXPECT_THAT(parsed.faults, IsEmpty()) << limit;
    const std::vector<ColouredLine> lines = PageText(parsed.page, {data, 331, row, 1});
    std::vector<std::string> texts;
    for (std::size_t i = 3; i < lines.size(); ++i)
        if (lines[i].colour == colour && !lines[i].text.empty())
            texts.push_back(FromCp932(lines[i].text));
    return texts;
}

constexpr std::string_view kWeb = "col = [7, 9]\nmin = '302:6'\nmax = '302:7'\ntext = '「302」の6，7行目'\n";

} // namespace

TEST(PageLimit, TheBoundsAreQuotedFromTheProject)
{
    CSbdData data = DataWith("9");
    EXPECT_THAT(LinesOf(kWeb, data, colours::kBlack),
                ElementsAre("    制限値： 板厚Twb，板厚Twe  9 ～ 28  (「302」の6，7行目)"));
    data.SetOption(302, 6, "32");
    EXPECT_THAT(LinesOf(kWeb, data, colours::kBlack),
                ElementsAre("    制限値： 板厚Twb，板厚Twe  9 ～ 32  (「302」の6，7行目)"));
    data.SetOption(302, 5, "0"); // stands for no limit
    EXPECT_THAT(LinesOf(kWeb, data, colours::kBlack),
                ElementsAre("    制限値： 板厚Twb，板厚Twe  32 以下  (「302」の6，7行目)"));
    data.SetOption(302, 6, "");
    EXPECT_THAT(LinesOf(kWeb, data, colours::kBlack), IsEmpty());
}

TEST(PageLimit, AValueOfTheCurrentRowOutsideIsSaidInRed)
{
    for (const std::string_view inside : {"9", "28", "9.0", " 10 ", "", "0", "9以上", "自動"})
        EXPECT_THAT(LinesOf(kWeb, DataWith(Cp932(inside)), colours::kRed), IsEmpty()) << inside;
    EXPECT_THAT(LinesOf(kWeb, DataWith("8"), colours::kRed),
                ElementsAre("    板厚Twb = 8：制限値 9 ～ 28 の範囲外です．"));
    EXPECT_THAT(LinesOf(kWeb, DataWith("28.5"), colours::kRed),
                ElementsAre("    板厚Twb = 28.5：制限値 9 ～ 28 の範囲外です．"));
    EXPECT_THAT(LinesOf(kWeb, DataWith("8"), colours::kRed, 1), IsEmpty()); // the automatic row
    EXPECT_THAT(LinesOf(kWeb, DataWith("8"), colours::kRed, 3), IsEmpty());
}

TEST(PageLimit, ALimitMayBeAConstantAWordOfAListOrHangOnACondition)
{
    const CSbdData data = DataWith("80");
    EXPECT_THAT(LinesOf("col = [7]\nmax = 40.5\n", data, colours::kRed),
                ElementsAre("    板厚Twb = 80：制限値 40.5 以下 の範囲外です．"));
    EXPECT_THAT(LinesOf("col = [7]\nname = '厚'\nmin = '310:2#2'\n", data, colours::kRed),
                ElementsAre("    厚 = 80：制限値 85 以上 の範囲外です．"));
    EXPECT_THAT(LinesOf("col = [7]\nmin = '310:2#3'\n", data, colours::kBlack), IsEmpty());
    EXPECT_THAT(LinesOf("col = [7]\nmax = 40\nwhen = 'cell:6 = SM490Y'\n", data, colours::kBlack), IsEmpty());
}

TEST(PageLimit, AFaultyLimitIsToldWithItsLine)
{
    const auto faults = [](const std::string& limit) {
        std::vector<std::string> texts;
        for (const PageFault& fault : CheckPage("331.toml", "[[branch]]\ntext = 'x'\n[[limit]]\n" + limit, {}))
            texts.push_back(std::to_string(fault.line) + ": " + fault.message);
        return texts;
    };
    EXPECT_THAT(faults("col = 7\nmin = 1\n"), IsEmpty());
    EXPECT_THAT(faults("col = 7\n"), ElementsAre("3: a limit needs its columns, and min or max"));
    EXPECT_THAT(faults("col = 7\nmin = '302:99'\n"), ElementsAre("5: min is a number or names a value"));
    EXPECT_THAT(faults("col = 70\nmin = 1\n"), ElementsAre("3: block 331 has no column 70 to limit"));
}

TEST(PageLimit, ThePagesOfPlatesQuoteTheirLimits)
{
    CSbdData data = DataWith("8");
    std::vector<std::string> texts;
    for (const ColouredLine& line : PageText(*FindPage(331), {data, 331, 2, 7}))
        texts.push_back(FromCp932(line.text));
    const std::string red = "    板厚Twb = 8：制限値 9 ～ 28 の範囲外です．";
    EXPECT_THAT(texts, Contains(red));
    data.Table(304)->AppendRow({"G1", "G1"}); // its own limits may hold for this girder
    texts.clear();
    for (const ColouredLine& line : PageText(*FindPage(331), {data, 331, 2, 7}))
        texts.push_back(FromCp932(line.text));
    EXPECT_THAT(texts, Not(Contains(red)));
}
