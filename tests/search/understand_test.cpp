#include "search/synonyms.h"
#include "search/understand.h"

#include <gmock/gmock.h>

#include <map>
#include <set>

namespace sbd {

namespace {

std::vector<std::string> Shown(const std::string& line)
{
    std::vector<std::string> shown;
    for (const SearchTerm& term : SearchTerms(line))
        shown.push_back(term.shown + (term.weak ? "~" : ""));
    return shown;
}

using testing::ElementsAre;
using testing::IsEmpty;

} // namespace

TEST(Skeleton, SpellingsOfOneWordFallTogether)
{
    const std::vector<std::vector<std::string>> same = {
        {"ウェブ", "ウエブ", "ｳｪﾌﾞ", "うぇぶ", "腹板", "WEB", "ｗｅｂ"},
        {"ダイヤフラム", "ダイアフラム", "ﾀﾞｲﾔﾌﾗﾑ", "だいやふらむ"},
        {"継手", "継ぎ手", "ジョイント", "ｼﾞｮｲﾝﾄ"},
        {"切欠", "切り欠き", "切欠き"},
        {"スカーラップ", "スカラップ", "すかーらっぷ"},
        {"ソールプレート", "SOLE_PL", "sole plate", "ソールPL"},
        {"垂直補剛材", "V.STIFF", "VSTIFF", "V_STIFF", "垂直スチフナー"},
        {"たわみ", "撓み", "タワミ"},
        {"せん断", "剪断", "セン断"},
        {"吊金具", "吊り金具", "吊りピース"},
    };
    for (const std::vector<std::string>& words : same)
        for (const std::string& word : words)
            EXPECT_EQ(Skeleton(word), Skeleton(words.front())) << word;
    EXPECT_NE(Skeleton("主桁"), Skeleton("横桁"));
}

TEST(Skeleton, LettersOfAnotherWordAreNoSynonym)
{
    EXPECT_EQ(SkeletonText(Skeleton("webster")), "webster") << "not a web";
    EXPECT_EQ(Skeleton("stiffness"), Skeleton("STIFFNESS"));
    EXPECT_NE(Skeleton("stiffness"), Skeleton("stiffener"));
}

TEST(Skeleton, AnyBytesAreTaken)
{
    EXPECT_EQ(Skeleton(""), u"");
    static_cast<void>(Skeleton("\xE3\x81 \xFF\xF0\x9F\x8D\xA3"));
    static_cast<void>(SearchTerms(std::string(50'000, '\xE3')));
}

TEST(SearchTerms, AQuestionIsCutAtItsParticles)
{
    EXPECT_THAT(Shown("添接板の板厚を変えたい"), ElementsAre("添接板", "厚", "変化~"));
    EXPECT_THAT(Shown("ウェブの最小板厚はどこで決めますか"), ElementsAre("ウェブ", "最小", "厚"));
    EXPECT_THAT(Shown("支点の条件"), ElementsAre("支点", "条件~"));
    EXPECT_THAT(Shown("水平補剛材を２段にする方法"), ElementsAre("水平", "補剛材", "2~", "段", "方法~"));
}

TEST(SearchTerms, WordsWithoutABlankAreTakenApart)
{
    EXPECT_THAT(Shown("ボルトピッチ"), ElementsAre("ボルト", "間隔"));
    EXPECT_THAT(Shown("主桁間隔"), ElementsAre("主桁", "間隔"));
    EXPECT_THAT(Shown("UFLG幅"), ElementsAre("上", "フランジ", "幅"));
    EXPECT_THAT(Shown("FLG FLG"), ElementsAre("フランジ")) << "each once";
}

TEST(SearchTerms, OfSignsAloneThereIsNone)
{
    for (const char* line : {"", " \t\n", "!?#$%&", "《》【】", "🍣🍺", "、。"})
        EXPECT_THAT(Shown(line), IsEmpty()) << line;
}

TEST(SearchTerms, LettersAndDigitsAreFoundAsWordsOnly)
{
    EXPECT_TRUE(HoldsTerm(Skeleton("M22(S10T)"), u"m22"));
    EXPECT_FALSE(HoldsTerm(Skeleton("M220"), u"m22"));
    EXPECT_FALSE(HoldsTerm(Skeleton("AXIS"), u"is"));
    EXPECT_TRUE(HoldsTerm(u"automatic", u"autom")) << "a long beginning";
}

TEST(NearWords, OneWrongLetterIsForgivenInWordsThatAreLongEnough)
{
    EXPECT_TRUE(IsNear(u"添加物", u"添架物"));
    EXPECT_TRUE(IsNear(u"フランヂ", u"フランジ"));
    EXPECT_TRUE(IsNear(u"ブラツケト", u"ブラケツト")) << "two exchanged";
    EXPECT_TRUE(IsNear(u"ボルド", u"ボルト")) << "a mark of voice";
    EXPECT_TRUE(IsNear(u"stifener", u"stiffener"));
    EXPECT_FALSE(IsNear(u"横坂", u"横桁")) << "two characters may be anything";
    EXPECT_FALSE(IsNear(u"カレ", u"カラ"));
    EXPECT_FALSE(IsNear(u"web", u"wet"));
    EXPECT_FALSE(IsNear(u"フランジ", u"フランジ")) << "it is the word itself";
}

TEST(Synonyms, NoWordStandsInTwoRowsAndEachRowHasAReason)
{
    std::map<std::string, std::string> rows; // by what is compared
    for (const Synonyms& row : SynonymTable()) {
        EXPECT_FALSE(row.reason.empty()) << row.words;
        std::string_view rest = row.words;
        while (!rest.empty()) {
            const std::size_t end = std::min(rest.find('|'), rest.size());
            const std::string word(rest.substr(0, end));
            rest.remove_prefix(std::min(end + 1, rest.size()));
            EXPECT_FALSE(word.empty()) << row.words;
            const auto [place, added] = rows.emplace(word, row.words);
            EXPECT_TRUE(added) << word << " in " << row.words << " and " << place->second;
        }
    }
}

TEST(Synonyms, WhatARowIsReadAsAreWordsOfTheTableOrPlainOnes)
{
    for (const Synonyms& row : SynonymTable()) {
        if (!row.means.empty()) {
            EXPECT_FALSE(SearchTerms(row.means).empty()) << row.words;
        }
    }
}

} // namespace sbd
