#include "search/page_texts.h"
#include "upperview/page/page_store.h"

#include <gmock/gmock.h>

namespace sbd {

TEST(PageTexts, AreThoseOfTheBranchesWithTheirRows)
{
    const std::vector<PageText> texts =
        TextsOfPage("title = \"x\"\n[[branch]]\nrows = [2, 13]\ntext = '''\none\ntwo\n'''\n"
                    "[[branch]]\ntext = '''\nthree\n'''\nred = [4]\n[[limit]]\ntext = \"no\"\n");
    ASSERT_EQ(texts.size(), 2U);
    EXPECT_THAT(texts[0].rows, testing::ElementsAre(2, 13));
    EXPECT_EQ(texts[0].text, "\none\ntwo\n");
    EXPECT_TRUE(texts[1].rows.empty());
    EXPECT_EQ(texts[1].text, "\nthree\n");
    EXPECT_TRUE(TextsOfPage("").empty());
    EXPECT_EQ(TextsOfPage("text = '''open").size(), 1U);
}

TEST(PageTexts, AreFoundInEveryPageFile)
{
    for (const PageSource& source : PageSources())
        EXPECT_EQ(TextsOfPage(source.text).empty(), source.name == kSharedFile) << source.name;
}

} // namespace sbd
