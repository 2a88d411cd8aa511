#include "project/sbd_data.h"
#include "project/text.h"
#include "search/go_line.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <random>

namespace sbd {

namespace {

std::vector<GoTarget> Targets(std::string_view line, GoScope scope = GoScope::All)
{
    static const CSbdData data;
    return GoTargets(line, data, 301, scope);
}

bool Leads(const std::vector<GoTarget>& targets, const SearchPlace& place, std::size_t first = kMostTargets)
{
    const auto end = targets.begin() + static_cast<std::ptrdiff_t>(std::min(first, targets.size()));
    return std::any_of(targets.begin(), end, [&](const GoTarget& target) {
        return target.kind == GoTarget::Kind::Place && target.place == place;
    });
}

bool Offers(const std::vector<GoTarget>& targets, Command command)
{
    return std::ranges::any_of(targets, [&](const GoTarget& target) { return target.command == command; });
}

} // namespace

TEST(GoLine, ReadsBlockRowAndColumnInAnyWidthAndWriting)
{
    const SearchPlace cell{313, 5, 3};
    for (const char* line : {"313 5行 3列", "３１３　５行　３列", "313 5 3", "313-5-3", "313の第5行3列", "313,5,3",
                             "313/5/3", " 313  5行目 3列 ", "313.5.3"})
        EXPECT_EQ(PlaceOfLine(line, 301), cell) << line;
    EXPECT_EQ(PlaceOfLine("313 5行", 301), (SearchPlace{313, 5, 0}));
    EXPECT_EQ(PlaceOfLine("313 3列 5行", 301), cell);
    EXPECT_EQ(PlaceOfLine("313", 301), (SearchPlace{313, 0, 0}));
    EXPECT_EQ(PlaceOfLine("5行", 332), (SearchPlace{332, 5, 0})) << "of the block on show";
    EXPECT_EQ(PlaceOfLine("406 2行", 301)->block, 713) << "an alias is the block behind it";
}

TEST(GoLine, TakesNothingElseForAPlace)
{
    for (const char* line : {"", " ", "31", "999999999999", "313 0行", "313 5行 3列 2", "313 5行 6行", "補剛材",
                             "313 ピッチ", "250", "1000", "313 99999999行", "-", "行"})
        EXPECT_EQ(PlaceOfLine(line, 301), std::nullopt) << line;
}

TEST(GoLine, ABlockNumberComesFirst)
{
    const std::vector<GoTarget> targets = Targets("313");
    ASSERT_FALSE(targets.empty());
    EXPECT_EQ(targets[0].place, (SearchPlace{313, 0, 0}));
    EXPECT_EQ(targets[0].text, "313.垂直補剛材(必要)");
}

TEST(GoLine, TheBeginningOfANumberListsItsBlocks)
{
    const std::vector<GoTarget> targets = Targets("31", GoScope::Numbers);
    for (const int block : {311, 312, 313, 314, 315, 316})
        EXPECT_TRUE(Leads(targets, {block, 0, 0})) << block;
    EXPECT_FALSE(Leads(targets, {321, 0, 0}));
    EXPECT_TRUE(Leads(targets, {301, 31, 2})) << "the row of the block on show";
}

TEST(GoLine, ARowBehindTheLastOneSaysSoAndLeadsToTheLast)
{
    const std::vector<GoTarget> targets = Targets("301 500行");
    ASSERT_FALSE(targets.empty());
    EXPECT_LT(targets[0].place.row, 500);
    EXPECT_GT(targets[0].place.row, 20);
    EXPECT_NE(targets[0].text.find("500行はありません"), std::string::npos) << targets[0].text;
}

TEST(GoLine, ATitleLeadsToItsBlockAndWhatTheCellHoldsIsTold)
{
    EXPECT_TRUE(Leads(Targets("垂直補剛材"), {313, 0, 0}, 3));
    EXPECT_TRUE(Leads(Targets("v_stiff"), {313, 0, 0}, 8)) << "the tag is a name too";
    CSbdData data;
    data.SetOption(301, 0, Cp932("試験橋"));
    const std::vector<GoTarget> targets = GoTargets("301 1行", data, 313);
    ASSERT_FALSE(targets.empty());
    EXPECT_EQ(targets[0].place, (SearchPlace{301, 1, 2}));
    EXPECT_EQ(targets[0].detail, "試験橋");
}

TEST(GoLine, ACommandIsFoundByItsNameAndByItsKey)
{
    const std::vector<GoTarget> targets = Targets("名前を付けて");
    ASSERT_FALSE(targets.empty());
    EXPECT_EQ(targets[0].command, Command::SaveAs);
    EXPECT_EQ(targets[0].text, "名前を付けて保存");
    EXPECT_EQ(targets[0].detail, "Ctrl+Shift+S");
    EXPECT_TRUE(Offers(Targets("ctrl+s"), Command::Save));
    EXPECT_TRUE(Offers(Targets("印刷"), Command::PrintPreview));
    EXPECT_FALSE(Offers(Targets("印刷", GoScope::Numbers), Command::Print));
}

TEST(GoLine, AQuestionLeadsToCellsAndAtTheEndToTheSearch)
{
    const std::vector<GoTarget> targets = Targets("添接板の板厚を変えたい");
    ASSERT_GT(targets.size(), 1U);
    EXPECT_EQ(targets[0].kind, GoTarget::Kind::Place);
    EXPECT_EQ(targets.back().kind, GoTarget::Kind::Search);
    EXPECT_LE(targets.size(), kMostTargets);
}

TEST(GoLine, NoPlaceIsOfferedTwice)
{
    for (const char* line : {"313", "ボルト", "31", "垂直補剛材", "横桁", "5"}) {
        std::vector<SearchPlace> places;
        for (const GoTarget& target : Targets(line)) {
            if (target.kind != GoTarget::Kind::Place)
                continue;
            EXPECT_EQ(std::ranges::count(places, target.place), 0) << line << ": " << target.text;
            places.push_back(target.place);
        }
    }
}

TEST(GoLine, AnyBytesAreALine)
{
    std::mt19937 random(3471);
    for (int i = 0; i < 300; ++i) {
        std::string line;
        for (unsigned k = 0; k < random() % 24; ++k)
            line += static_cast<char>(random() % 4 == 0 ? random() % 256 : "0123456789 行列-"[random() % 17]);
        for (const GoTarget& target : Targets(line))
            EXPECT_FALSE(target.text.empty()) << "seed 3471, line " << i;
    }
}

TEST(GoLine, EachKeyCostsLessThanAFewMilliseconds)
{
    (void)Targets("x"); // the index
    using Clock = std::chrono::steady_clock;
    double most = 0;
    for (const std::string_view line :
         {"添接板の板厚を変えたい", "313 5行 3列", "ボルトピッチ", "主桁間隔", "a", "3"}) {
        for (std::size_t end = 1; end <= line.size(); ++end) {
            if (end < line.size() && (static_cast<unsigned char>(line[end]) & 0xC0) == 0x80)
                continue;
            const auto begin = Clock::now();
            (void)Targets(line.substr(0, end));
            most = std::max(most, std::chrono::duration<double, std::milli>(Clock::now() - begin).count());
        }
    }
    RecordProperty("most_ms", std::to_string(most));
    std::cout << "slowest key: " << most << " ms\n";
    EXPECT_LT(most, 200) << "20 ms are wanted where nothing else runs";
}

} // namespace sbd
