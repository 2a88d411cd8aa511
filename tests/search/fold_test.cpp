#include "search/fold.h"

#include <gtest/gtest.h>

namespace sbd {

using Words = std::vector<std::string>;

TEST(Fold, WidthOfLettersAndDigitsDoesNotCount)
{
    EXPECT_EQ(Fold("ＳＭ４９０Ｙ"), "sm490y");
    EXPECT_EQ(Fold("UFLG"), Fold("ｕｆｌｇ"));
    EXPECT_EQ(Fold("（mm）"), "(mm)");
}

TEST(Fold, HalfWidthKatakanaIsWide)
{
    EXPECT_EQ(Fold("ﾀｲﾌﾟ"), "タイプ");
    EXPECT_EQ(Fold("ﾃﾞｰﾀ"), "データ");
    EXPECT_EQ(Fold("ﾋﾟｯﾁ･ｳﾞ"), "ピッチ・ヴ");
    EXPECT_EQ(Fold("ｦﾝﾎﾞﾎﾟｧ"), "ヲンボポァ");
}

TEST(Fold, AMarkOfVoiceThatFitsNoLetterStaysBehindIt)
{
    EXPECT_EQ(Fold("ｱﾞ"), "ア゛");
    EXPECT_EQ(Fold("ｶﾟ"), "カ゜");
    EXPECT_EQ(Fold("ﾞ"), "゛");
    EXPECT_EQ(Fold("ｯﾞ"), "ッ゛");
}

TEST(Fold, EveryVoicedLetterHasItsOwnForm)
{
    EXPECT_EQ(Fold("ｶﾞｷﾞｸﾞｹﾞｺﾞｻﾞｼﾞｽﾞｾﾞｿﾞﾀﾞﾁﾞﾂﾞﾃﾞﾄﾞﾊﾞﾋﾞﾌﾞﾍﾞﾎﾞ"), "ガギグゲゴザジズゼゾダヂヅデドバビブベボ");
    EXPECT_EQ(Fold("ﾊﾟﾋﾟﾌﾟﾍﾟﾎﾟ"), "パピプペポ");
}

TEST(Fold, KanjiKanaAndSignsStay)
{
    EXPECT_EQ(Fold("垂直補剛材・ひび割れ"), "垂直補剛材・ひび割れ");
    EXPECT_EQ(Fold("Σ"), "σ");
}

TEST(Fold, BrokenBytesStayAndEndNothing)
{
    EXPECT_EQ(Fold("a\xFF\xE3\x81"), "a\xFF\xE3\x81");
    EXPECT_EQ(Fold("\xE3"), "\xE3");
    EXPECT_EQ(Fold("\xF0\x9F\x98\x80"), "\xF0\x9F\x98\x80");
    EXPECT_EQ(Fold("\xEF\xBD"), "\xEF\xBD");
    EXPECT_EQ(Fold(std::string_view("\0x", 2)), std::string_view("\0x", 2));
}

TEST(SearchWords, BlanksAndCommasOfAnyWidthDivide)
{
    EXPECT_EQ(SearchWords("板厚 材質"), (Words{"板厚", "材質"}));
    EXPECT_EQ(SearchWords("板厚　材質"), (Words{"板厚", "材質"}));
    EXPECT_EQ(SearchWords("板厚,材質，幅、高さ､桁\t長さ"), (Words{"板厚", "材質", "幅", "高さ", "桁", "長さ"}));
    EXPECT_EQ(SearchWords("  ,，、　"), Words());
    EXPECT_EQ(SearchWords(""), Words());
}

TEST(SearchWords, AreFolded)
{
    EXPECT_EQ(SearchWords("ＦＬＧ　ﾎﾞﾙﾄ"), (Words{"flg", "ボルト"}));
}

} // namespace sbd
