#include "project/text.h"

#include <gtest/gtest.h>

namespace sbd {

TEST(BrokenUtf8, ACharacterThatIsSpelledLongerThanItNeedsIsRefused)
{
    for (const char* text :
         {"\xC0\xAF", "\xC1\xBF", "\xE0\x80\xA0", "\xE0\x9F\xBF", "\xF0\x80\x80\xAF", "\xF0\x82\x82\xA0"})
        EXPECT_TRUE(ToCp932(text).refused.has_value()) << FromCp932(text);
}

TEST(BrokenUtf8, ACutOrLoneByteIsRefusedWhereItStands)
{
    for (const char* text : {"A\xE3\x81", "A\xE3", "A\x81", "A\xFF", "A\xF0\x90\x80"}) {
        const Cp932Result result = ToCp932(text);
        ASSERT_TRUE(result.refused.has_value()) << FromCp932(text);
        EXPECT_EQ(result.refused->offset, 1U);
        EXPECT_EQ(result.refused->character, std::string(1, text[1]));
        EXPECT_EQ(result.bytes, "");
    }
}

} // namespace sbd
