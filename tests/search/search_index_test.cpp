#include "panelmodel/panel_model.h"
#include "project/catalogue.h"
#include "project/option_rows.h"
#include "project/page_titles.h"
#include "project/panel_columns.h"
#include "project/text.h"
#include "search/fold.h"
#include "search/search_index.h"
#include "search/understand.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace sbd {

namespace {

std::vector<std::string> TextsOf(const SearchResult& result)
{
    std::vector<std::string> texts;
    for (const SearchEntry* hit : result.hits)
        texts.push_back(hit->text);
    return texts;
}

/// Whether a search for all words of `text` finds the cell.
bool Finds(const std::string& text, const SearchPlace& place, SearchFlags flags = {})
{
    const SearchResult result = SearchIndex().Search(text, flags);
    return std::ranges::any_of(result.hits, [&](const SearchEntry* hit) { return hit->place == place; });
}

constexpr SearchFlags kTopicsOnly{.allWords = true, .topics = true, .items = false};
constexpr SearchFlags kItemsOnly{.allWords = true, .topics = false, .items = true};
constexpr SearchFlags kAnyWord{.allWords = false, .topics = true, .items = true};

} // namespace

TEST(SearchIndex, EveryOptionRowIsFoundByItsLabelAndItsKeyword)
{
    for (const OptionBlock& block : OptionBlocks()) {
        for (std::size_t i = 0; i < block.rows.size(); ++i) {
            const SearchPlace place{block.block, static_cast<int>(i) + 1, 2};
            EXPECT_TRUE(Finds(FromCp932(block.rows[i].panelLabel), place, kItemsOnly)) << block.block << ' ' << i + 1;
            EXPECT_TRUE(Finds(FromCp932(block.rows[i].keyword), place, kItemsOnly)) << block.block << ' ' << i + 1;
        }
    }
}

TEST(SearchIndex, EveryColumnIsFoundByItsHeads)
{
    int columns = 0;
    for (const PanelTable& table : PanelTables()) {
        if (FindOptionBlock(table.block) != nullptr)
            continue;
        for (std::size_t i = 1; i < table.columns.size(); ++i) {
            const SearchPlace place{table.block, table.automaticRows + 1, static_cast<int>(i)};
            for (const std::string& head : {table.columns[i].head, table.columns[i].sectionHead}) {
                if (SearchTerms(FromCp932(head)).empty())
                    continue; // signs alone
                EXPECT_TRUE(Finds(FromCp932(head), place, kItemsOnly)) << table.block << ": " << FromCp932(head);
                ++columns;
            }
        }
    }
    EXPECT_GT(columns, 1500);
    for (const RecordPanel& panel : RecordPanels())
        for (std::size_t i = 1; i < panel.heads.size(); ++i)
            EXPECT_TRUE(Finds(FromCp932(panel.heads[i]), {panel.block, panel.block == 311 ? 5 : 2, int(i)}, kItemsOnly))
                << panel.block << ' ' << i;
}

TEST(SearchIndex, EveryPageTitleIsFoundByItsWords)
{
    for (const PageTitle& title : PageTitles()) {
        const SearchResult result = SearchIndex().Search(title.title, kTopicsOnly);
        EXPECT_TRUE(std::ranges::any_of(result.hits, [&](const SearchEntry* hit) {
            return hit->place.block == CanonicalBlock(title.block) && hit->place.row == 0;
        })) << title.title;
    }
}

TEST(SearchIndex, EveryBlockWithAGridIsFoundByItsMenuText)
{
    for (const CatalogueRow& row : Catalogue()) {
        const int block = PanelBlock(row.block);
        if (block == 0 || row.menuText.empty())
            continue;
        const SearchResult result = SearchIndex().Search(row.menuText, kTopicsOnly);
        EXPECT_TRUE(std::ranges::any_of(result.hits, [&](const SearchEntry* hit) {
            return hit->place.block == block && hit->place.row == 0;
        })) << row.menuText;
    }
}

TEST(SearchIndex, EveryQuestionIsFoundByItsText)
{
    for (const Question& question : Questions()) {
        const SearchResult result = SearchIndex().Search(question.question, kTopicsOnly);
        EXPECT_TRUE(std::ranges::any_of(result.hits, [&](const SearchEntry* hit) {
            return hit->question == &question;
        })) << question.question;
    }
}

TEST(SearchIndex, TheTitleTellsTheWordsAndTheNumberOfHits)
{
    const SearchResult result = SearchIndex().Search("検索：吊金具", {});
    EXPECT_EQ(result.title, "「吊金具」の検索結果：(計" + std::to_string(result.hits.size()) + "件)");
    EXPECT_GT(result.hits.size(), 3U);
    EXPECT_EQ(SearchIndex().Search("どこにもない言葉", {}).title, "「どこにもない言葉」の検索結果：(計0件)");
}

TEST(SearchIndex, ThePrefixOfAReadyMadeSearchIsNoWord)
{
    const std::vector<std::string> plain = TextsOf(SearchIndex().Search("ガセット", {}));
    EXPECT_EQ(TextsOf(SearchIndex().Search("検索：ガセット", {})), plain);
    EXPECT_EQ(TextsOf(SearchIndex().Search(" 検索:ガセット", {})), plain);
}

TEST(SearchIndex, WithoutAWordNothingIsLookedFor)
{
    for (const char* line : {"", "   ", "　，、,", "検索：", "検索: 　"}) {
        const SearchResult result = SearchIndex().Search(line, {});
        EXPECT_TRUE(result.title.empty()) << line;
        EXPECT_TRUE(result.hits.empty()) << line;
    }
}

TEST(SearchIndex, HitsHaveTheUsualLook)
{
    const std::vector<std::string> texts = TextsOf(SearchIndex().Search("控え", {}));
    EXPECT_THAT(texts, testing::Contains("   上・下フランジ別々控え量の場合(添接板)---> 303の第2行"));
    EXPECT_THAT(texts, testing::Contains("   303 ---> 添接板5mm控え(YES_NO_控える量mm)の第2行"));
    EXPECT_THAT(texts, testing::Contains("Q.添接板の5mm控えについて"));
    EXPECT_THAT(TextsOf(SearchIndex().Search("313 本数n", kItemsOnly)),
                testing::Contains("   313 ---> 垂直補剛材　本数nの第8列"));
}

TEST(SearchIndex, AHeadOfSeveralLinesStandsInOne)
{
    for (const SearchEntry& entry : SearchIndex().Entries()) {
        EXPECT_EQ(entry.text.find('\n'), std::string::npos) << entry.text;
        EXPECT_EQ(entry.text.find("---／"), std::string::npos) << entry.text;
        EXPECT_EQ(entry.text.find("〃"), std::string::npos) << entry.text;
    }
}

TEST(SearchIndex, AllWordsOrAnyOfThem)
{
    const SearchResult all = SearchIndex().Search("横桁 スカーラップ", {});
    const SearchResult any = SearchIndex().Search("横桁 スカーラップ", kAnyWord);
    const SearchResult one = SearchIndex().Search("横桁", {});
    const SearchResult other = SearchIndex().Search("スカーラップ", {});
    ASSERT_FALSE(all.hits.empty());
    EXPECT_LT(all.hits.size(), std::min(one.hits.size(), other.hits.size()));
    EXPECT_GE(any.hits.size(), std::max(one.hits.size(), other.hits.size()));
    EXPECT_LE(any.hits.size(), one.hits.size() + other.hits.size());
    EXPECT_EQ(TextsOf(SearchIndex().Search("横桁、スカーラップ", {})), TextsOf(all));
}

TEST(SearchIndex, AWordMayStandInTheTitleOfTheBlockIfAnotherStandsInTheItem)
{
    EXPECT_TRUE(Finds("垂直補剛材 幅1", {313, 2, 6}, kItemsOnly));
    EXPECT_FALSE(Finds("SEC_V_STIFF", {313, 2, 6}, kItemsOnly)) << "the block alone is no item";
}

TEST(SearchIndex, TheScopeIsTopicsAndQuestionsOrItemsOrBoth)
{
    const SearchResult topics = SearchIndex().Search("ボルト", kTopicsOnly);
    const SearchResult items = SearchIndex().Search("ボルト", kItemsOnly);
    const SearchResult both = SearchIndex().Search("ボルト", {});
    EXPECT_TRUE(std::ranges::none_of(topics.hits, [](auto* hit) { return hit->kind == EntryKind::Item; }));
    EXPECT_TRUE(std::ranges::all_of(items.hits, [](auto* hit) { return hit->kind == EntryKind::Item; }));
    EXPECT_EQ(both.hits.size(), topics.hits.size() + items.hits.size());
    const SearchFlags nothing{.allWords = true, .topics = false, .items = false};
    EXPECT_TRUE(SearchIndex().Search("ボルト", nothing).hits.empty());
}

TEST(SearchIndex, WidthAndCaseDoNotCount)
{
    const std::vector<std::string> plain = TextsOf(SearchIndex().Search("UFLG ボルト", {}));
    ASSERT_FALSE(plain.empty());
    EXPECT_EQ(TextsOf(SearchIndex().Search("ｕｆｌｇ　ﾎﾞﾙﾄ", {})), plain);
    EXPECT_FALSE(SearchIndex().Search("ピッチ(列数分)", {}).hits.empty()) << "the head is in half-width letters";
}

TEST(SearchIndex, EveryPlaceHasAPanel)
{
    for (const SearchEntry& entry : SearchIndex().Entries())
        EXPECT_EQ(PanelBlock(entry.place.block), entry.place.block) << entry.text;
}

TEST(SearchIndex, NoEntryStandsTwice)
{
    std::vector<std::string> texts;
    for (const SearchEntry& entry : SearchIndex().Entries())
        texts.push_back(entry.text);
    std::ranges::sort(texts);
    const auto twice = std::ranges::adjacent_find(texts);
    EXPECT_EQ(twice, texts.end()) << *twice;
}

TEST(SearchIndex, TheListOfQuestionsIsAskedForByItsWord)
{
    EXPECT_TRUE(AsksForQuestions("Q&A"));
    EXPECT_TRUE(AsksForQuestions("Q&A 箱桁"));
    EXPECT_FALSE(AsksForQuestions("Q&"));
    EXPECT_FALSE(AsksForQuestions("検索：箱桁"));
    EXPECT_EQ(SearchIndex().AllQuestions().size(), Questions().size());
}

TEST(SearchIndex, JumpsGoFrom301To998)
{
    EXPECT_FALSE(IsJumpBlock(0));
    EXPECT_FALSE(IsJumpBlock(300));
    EXPECT_TRUE(IsJumpBlock(301));
    EXPECT_TRUE(IsJumpBlock(998));
    EXPECT_FALSE(IsJumpBlock(999));
}

TEST(SearchIndex, APlaceIsNamedByItsBlockAndItsRowOrColumn)
{
    EXPECT_EQ(PlaceText({303, 2, 2}), "303.継手設計設定　第2行　添接板5mm控え(YES_NO_控える量mm)");
    EXPECT_EQ(PlaceText({313, 0, 0}), "313.垂直補剛材");
    EXPECT_EQ(PlaceText({313, 1, 2}), "313.垂直補剛材　第1行");
    EXPECT_EQ(PlaceText({313, 2, 6}), "313.垂直補剛材　幅1(mm)");
    EXPECT_EQ(PlaceText({311, 4, 2}), "311.桁高の入力　第4行");
    EXPECT_EQ(PlaceText({640, 1, 2}), "640.縦桁名定義・縦桁設計基本条件　第1行　縦桁数");
    EXPECT_EQ(PlaceText({313, 2, 99}), "313.垂直補剛材");
    EXPECT_EQ(PlaceText({303, 99, 2}), "303.継手設計設定　第99行");
}

TEST(SearchIndex, ChoicesAreThoseOfTheCell)
{
    EXPECT_THAT(ChoicesAt({302, 19, 2}), testing::ElementsAre("幅", "材質"));
    EXPECT_THAT(ChoicesAt({304, 1, 2}), testing::ElementsAre("仮想主桁", "縦桁", "設計しない", "(主桁名)"));
    EXPECT_THAT(ChoicesAt({324, 2, 5}), testing::ElementsAre("LFLG", "UFLG", "FLG"));
    EXPECT_TRUE(ChoicesAt({302, 1, 2}).empty());
    EXPECT_TRUE(ChoicesAt({313, 1, 2}).empty()) << "the automatic row has words of its own";
    EXPECT_TRUE(ChoicesAt({313, 2, 99}).empty());
    EXPECT_TRUE(ChoicesAt({0, 0, 0}).empty());
}

TEST(SearchIndex, LongAndBrokenLinesAreSearchedLikeOthers)
{
    EXPECT_TRUE(SearchIndex().Search(std::string(100'000, 'x'), {}).hits.empty());
    EXPECT_TRUE(SearchIndex().Search("\xE3\x81 \xFF", {}).hits.empty());
}

TEST(SearchIndex, TheTitleOfABlockComesBeforeItsLabelsAndTheseBeforeThePages)
{
    const SearchResult result = SearchIndex().Search("垂直補剛材 間隔", {});
    ASSERT_EQ(result.fields.size(), result.hits.size());
    ASSERT_FALSE(result.hits.empty());
    EXPECT_NE(result.fields.front(), HitField::Page);
    const SearchResult blocks = SearchIndex().Search("継手位置", {});
    ASSERT_FALSE(blocks.hits.empty());
    EXPECT_EQ(blocks.hits.front()->place, (SearchPlace{321, 0, 0}));
    EXPECT_EQ(blocks.fields.front(), HitField::Title);
}

TEST(SearchIndex, TheNumberOfABlockFindsItFirst)
{
    for (const char* line : {"342", "３４２", "block 342", "342番"}) {
        const SearchResult result = SearchIndex().Search(line, {});
        ASSERT_FALSE(result.hits.empty()) << line;
        EXPECT_EQ(result.hits.front()->place.block, 342) << line;
    }
    EXPECT_EQ(SearchIndex().Search("406", {}).hits.front()->place.block, 713) << "the other number of the same data";
}

TEST(SearchIndex, AWordThatStandsOnAPageAloneIsFound)
{
    const SearchResult result = SearchIndex().Search("クロソイド", {});
    ASSERT_FALSE(result.hits.empty());
    EXPECT_EQ(result.hits.front()->place.block, 328);
    EXPECT_EQ(result.fields.front(), HitField::Page);
}

TEST(SearchIndex, AMistypedWordIsReadAsTheOneThatWasMeantAndANoteSaysSo)
{
    const SearchResult result = SearchIndex().Search("添加物", {});
    ASSERT_FALSE(result.hits.empty());
    EXPECT_EQ(result.hits.front()->place.block, 517);
    ASSERT_EQ(result.notes.size(), 1U);
    EXPECT_EQ(result.notes[0], "「添加物」は見つからないので、「添架物」で検索しました。");
}

TEST(SearchIndex, WhereNoEntryHasAllWordsThoseWithMostOfThemComeAndANoteSaysSo)
{
    const SearchResult result = SearchIndex().Search("マンホール ハンチ", {});
    ASSERT_FALSE(result.hits.empty());
    EXPECT_FALSE(result.notes.empty());
    const SearchResult all = SearchIndex().Search("横桁 スカーラップ", {});
    EXPECT_TRUE(all.notes.empty()) << all.notes.front();
}

TEST(SearchIndex, AWordThatNothingHoldsIsNamedInTheTips)
{
    const SearchResult result = SearchIndex().Search("東京タワー 観光", {});
    EXPECT_TRUE(result.hits.empty());
    ASSERT_FALSE(result.tips.empty());
    EXPECT_EQ(result.tips[0], "「東京」は、どの項目にも説明にもありません。この言葉を外してみて下さい。");
    EXPECT_TRUE(SearchIndex().Search("横桁", {}).tips.empty());
}

} // namespace sbd
