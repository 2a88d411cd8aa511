#include "panelmodel/panel_model.h"
#include "project/catalogue.h"
#include "project/option_rows.h"
#include "project/sbd_data.h"
#include "project/text.h"
#include "search/search_index.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>

namespace sbd {

namespace {

/// Whether there is a cell to jump to: a block that can be jumped to, with a grid that has the cell.
testing::AssertionResult IsCell(const SearchPlace& place)
{
    const auto bad = [&](std::string_view why) {
        return testing::AssertionFailure() << place.block << " row " << place.row << " column " << place.column << why;
    };
    if (!IsJumpBlock(place.block))
        return bad(": no jump goes there");
    CSbdData data;
    const std::unique_ptr<CPanelModel> panel = MakePanelModel(data, place.block);
    if (!panel || panel->Block() != place.block)
        return bad(": not a block of its own");
    if (place.row < 0 || place.row > panel->GridRows())
        return bad(": no such row");
    if (const OptionBlock* options = FindOptionBlock(place.block);
        (options != nullptr) && place.row > int(options->rows.size()))
        return bad(": behind the last row");
    if (place.column < 0 || place.column >= panel->ColumnCount())
        return bad(": no such column");
    if (place.row > 0 && place.column == 0)
        return bad(": the row number is no cell");
    return testing::AssertionSuccess();
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Takes the number at the start of `rest`; -1 if none stands there.
int TakeNumber(std::string_view& rest)
{
    if (rest.empty() || !IsDigit(rest.front()))
        return -1;
    const int number = LeadingInteger(rest);
    rest.remove_prefix(std::min(rest.find_first_not_of("0123456789"), rest.size()));
    return number;
}

bool Take(std::string_view& rest, std::string_view word)
{
    const bool there = rest.starts_with(word);
    if (there)
        rest.remove_prefix(word.size());
    return there;
}

/// The rows that a text names as "303の2行目", "303の23・24行目" or "640の37～39行目".
std::vector<SearchPlace> RowsNamedIn(std::string_view text)
{
    std::vector<SearchPlace> places;
    while (!text.empty()) {
        const int block = TakeNumber(text);
        if (block < 0) {
            text.remove_prefix(1);
            continue;
        }
        if (!Take(text, "の"))
            continue;
        std::string_view rest = text;
        std::vector<SearchPlace> named;
        do
            named.push_back({block, TakeNumber(rest), 1});
        while (Take(rest, "・") || Take(rest, "～"));
        if (rest.starts_with("行目"))
            places.insert(places.end(), named.begin(), named.end());
    }
    return places;
}

bool CanBeShown(std::string_view text)
{
    return !ToCp932(text).refused.has_value();
}

} // namespace

TEST(HelpTopics, KeysHoldTwoTwoAndThreeDigits)
{
    for (const HelpTopic& topic : HelpTopics()) {
        std::string form(topic.key);
        std::ranges::replace_if(form, IsDigit, '9');
        EXPECT_EQ(form, "99-99-999") << topic.key;
    }
    EXPECT_EQ(PlaceOfKey("12-03-405"), (SearchPlace{405, 12, 3}));
    EXPECT_EQ(PlaceOfKey("00-00-313"), (SearchPlace{313, 0, 0}));
    EXPECT_EQ(PlaceOfKey(""), SearchPlace());
}

TEST(HelpTopics, EveryTopicLeadsToACell)
{
    for (const HelpTopic& topic : HelpTopics())
        EXPECT_TRUE(IsCell(PlaceOfKey(topic.key))) << topic.title;
}

TEST(HelpTopics, TextsNameTheBlockAndTheRow)
{
    std::vector<std::string> texts;
    for (const HelpTopic& topic : HelpTopics()) {
        texts.push_back(TopicText(topic));
        EXPECT_TRUE(CanBeShown(topic.title)) << topic.title;
    }
    EXPECT_THAT(texts, testing::IsSupersetOf({"   垂直補剛材(配置・寸法) ---> 313",
                                              "   外側添接板を分割 ---> 303の第1行", "   部材間の隙間 ---> 303の第1行",
                                              "   上・下フランジ別々控え量の場合(添接板)---> 303の第2行"}));
    EXPECT_EQ(std::set<std::string>(texts.begin(), texts.end()).size(), texts.size()) << "a topic stands twice";
}

TEST(HelpTopics, StandInOrderOfTheirBlocks)
{
    EXPECT_TRUE(
        std::ranges::is_sorted(HelpTopics(), {}, [](const HelpTopic& topic) { return PlaceOfKey(topic.key).block; }));
}

TEST(ReadyMadeSearches, ThereAreSixtyAtLeastAndTheFirstOnesAreTheUsualOnes)
{
    const std::span<const std::string_view> words = ReadyMadeWords();
    ASSERT_GE(words.size(), 60U);
    EXPECT_THAT(std::vector<std::string_view>(words.begin(), words.begin() + 26),
                testing::ElementsAre("ガセット", "ジャッキアップ", "スカーラップ", "ソールプレート", "タイプ", "ボルト",
                                     "下横構", "吊金具", "地震荷重", "垂直補剛材", "孔引", "対傾構", "形鋼", "応力度",
                                     "支点垂直補剛材", "支点補強リブ", "板厚", "横リブ", "横桁", "水平補剛材", "疲労",
                                     "箱桁", "継手", "縦リブ", "耐候性", "補強材"));
    EXPECT_EQ(std::set<std::string_view>(words.begin(), words.end()).size(), words.size()) << "a word stands twice";
}

TEST(ReadyMadeSearches, EachFindsSomething)
{
    for (const std::string_view word : ReadyMadeWords()) {
        EXPECT_TRUE(CanBeShown(word)) << word;
        EXPECT_FALSE(SearchIndex().Search(std::string(kSearchPrefix) + std::string(word), {}).hits.empty()) << word;
    }
}

TEST(Questions, ThereAreFortyAtLeastWithDistinctTexts)
{
    std::set<std::string_view> texts;
    for (const Question& question : Questions()) {
        EXPECT_TRUE(question.question.starts_with("Q.")) << question.question;
        EXPECT_TRUE(CanBeShown(question.question)) << question.question;
        EXPECT_TRUE(CanBeShown(question.answer)) << question.question;
        EXPECT_FALSE(question.answer.empty()) << question.question;
        EXPECT_FALSE(question.answer.ends_with('\n')) << question.question;
        texts.insert(question.question);
    }
    EXPECT_EQ(texts.size(), Questions().size());
    EXPECT_GE(texts.size(), 40U);
    EXPECT_THAT(texts, testing::IsSupersetOf({"Q.桁高変化場合の入力", "Q.曲線桁の曲率について",
                                              "Q.箱桁突出長必要のない場合の入力", "Q.下部工反力について"}));
}

TEST(Questions, EveryPlaceIsACell)
{
    for (const Question& question : Questions()) {
        EXPECT_FALSE(question.places.empty()) << question.question;
        for (const SearchPlace& place : question.places) {
            EXPECT_TRUE(IsCell(place)) << question.question;
            EXPECT_GT(place.row, 0) << question.question;
        }
    }
}

TEST(Questions, RowsThatAnswersNameExist)
{
    std::size_t named = 0;
    for (const Question& question : Questions()) {
        const std::vector<SearchPlace> places = RowsNamedIn(question.answer);
        for (const SearchPlace& place : places)
            EXPECT_TRUE(place.row > 0 && IsCell(place)) << question.question << ' ' << place.block << ' ' << place.row;
        named += places.size();
    }
    EXPECT_GT(named, 100U);
}

/// Numbers of three digits in an answer are blocks, but for these.
TEST(Questions, BlocksThatAnswersNameExist)
{
    const std::set<int> sizesAndGrades{120, 130, 150, 170, 400, 490, 500, 570, 600,
                                       699, 121, 124, 100, 200, 123, 290, 0,   1};
    for (const Question& question : Questions()) {
        for (std::string_view rest = question.answer; !rest.empty();) {
            const std::size_t before = rest.size();
            const int number = TakeNumber(rest);
            if (number < 0) {
                rest.remove_prefix(1);
            } else if (before - rest.size() == 3 && !sizesAndGrades.contains(number)) {
                EXPECT_NE(FindBlock(number), nullptr) << number << " in " << question.question;
            }
        }
    }
}

} // namespace sbd
