#include "project/column_vector.h"
#include "tests/seed.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace sbd {

namespace {

CColumnVector Column(const std::vector<std::string>& texts)
{
    CColumnVector column;
    for (const std::string& text : texts)
        column.Append(text);
    return column;
}

std::vector<std::string> Texts(const CColumnVector& column)
{
    std::vector<std::string> texts;
    for (std::size_t row = 0; row < column.size(); ++row)
        texts.emplace_back(column[row]);
    return texts;
}

using List = std::vector<std::string>;

} // namespace

TEST(ColumnVector, IsEmptyAtFirst)
{
    const CColumnVector column;
    EXPECT_TRUE(column.empty());
    EXPECT_EQ(column.size(), 0U);
}

TEST(ColumnVector, AnEmptyTextIsARow)
{
    const CColumnVector column = Column({"", "a", ""});
    EXPECT_EQ(Texts(column), (List{"", "a", ""}));
    EXPECT_FALSE(column.empty());
}

TEST(ColumnVector, ATextMayHoldAnyByte)
{
    const std::string text("\0\r\n\x83\xFF", 5);
    EXPECT_EQ(Column({text})[0], text);
}

TEST(ColumnVector, SettingChangesOneRowWhetherShorterLongerOrEqual)
{
    CColumnVector column = Column({"aaa", "bbb", "ccc"});
    column.Set(1, "b");
    EXPECT_EQ(Texts(column), (List{"aaa", "b", "ccc"}));
    column.Set(1, "longer");
    EXPECT_EQ(Texts(column), (List{"aaa", "longer", "ccc"}));
    column.Set(1, "longer");
    column.Set(1, "");
    EXPECT_EQ(Texts(column), (List{"aaa", "", "ccc"}));
}

TEST(ColumnVector, RowsGoInAndOutAtBothEndsAndInTheMiddle)
{
    CColumnVector column = Column({"b"});
    column.Insert(0, "a");
    column.Insert(2, "d");
    column.Insert(2, "c");
    EXPECT_EQ(Texts(column), (List{"a", "b", "c", "d"}));
    column.Erase(3);
    column.Erase(0);
    column.Erase(0);
    EXPECT_EQ(Texts(column), (List{"c"}));
    column.Erase(0);
    EXPECT_TRUE(column.empty());
}

TEST(ColumnVector, ItsOwnTextCanBeGivenToIt)
{
    CColumnVector column = Column({std::string(100, 'x'), "short"});
    column.Append(column[0]);
    column.Set(1, column[0]);
    column.Insert(0, column[2]);
    column.Set(0, column[0].substr(50));
    EXPECT_EQ(Texts(column),
              (List{std::string(50, 'x'), std::string(100, 'x'), std::string(100, 'x'), std::string(100, 'x')}));
}

TEST(ColumnVector, ACopyIsAValueOfItsOwn)
{
    CColumnVector column = Column({"a", "b"});
    const CColumnVector copy = column;
    column.Set(0, "changed");
    column.Erase(1);
    EXPECT_EQ(Texts(copy), (List{"a", "b"}));
}

TEST(ColumnVector, EqualIsByTextsNotByHistory)
{
    CColumnVector column = Column({"x", "a longer text", "b"});
    column.Set(1, "a");
    column.Erase(0);
    EXPECT_EQ(column, Column({"a", "b"}));
    EXPECT_FALSE(column == Column({"a"}));
    EXPECT_FALSE(column == Column({"a", "c"}));
}

TEST(ColumnVector, AnEmptiedColumnStartsAnew)
{
    CColumnVector column = Column({"a", "b"});
    column.Clear();
    EXPECT_TRUE(column.empty());
    column.Append("c");
    EXPECT_EQ(Texts(column), (List{"c"}));
}

TEST(ColumnVector, EditingOneCellForALongTimeKeepsTheMemoryBounded)
{
    CColumnVector column = Column({"first", "second"});
    for (int i = 0; i < 100000; ++i)
        column.Set(1, std::string(static_cast<std::size_t>(i % 300), 'x'));
    EXPECT_EQ(column[0], "first");
    EXPECT_LT(column.MemoryUsed(), 64U * 1024U);
}

TEST(ColumnVector, ShrinkingGivesBackTheReserveAndKeepsTheTexts)
{
    CColumnVector column;
    for (int i = 0; i < 1000; ++i)
        column.Append("cell " + std::to_string(i));
    const std::vector<std::string> before = Texts(column);
    column.Shrink();
    EXPECT_EQ(Texts(column), before);
    EXPECT_LT(column.MemoryUsed(), 1000 * (8 + 9) + 1024U) << "8 bytes a cell and its text";
}

class ColumnVectorAtRandom : public RandomTest {
protected:
    std::string AnyText()
    {
        // Mostly short as cells are, now and then long enough to move the buffer.
        const std::size_t size = UpTo(9) == 0 ? UpTo(3000) : UpTo(12);
        std::string text;
        for (std::size_t i = 0; i < size; ++i)
            text.push_back(static_cast<char>(UpTo(255)));
        return text;
    }
};

TEST_F(ColumnVectorAtRandom, BehavesAsAVectorOfStrings)
{
    for (int round = 0; round < 20; ++round) {
        CColumnVector column;
        std::vector<std::string> model;
        for (int step = 0; step < 2000; ++step) {
            const std::size_t row = model.empty() ? 0 : UpTo(model.size() - 1);
            const auto at = model.begin() + static_cast<std::ptrdiff_t>(row);
            // A text from outside or the column's own.
            const bool own = !model.empty() && UpTo(3) == 0;
            const std::size_t source = model.empty() ? 0 : UpTo(model.size() - 1);
            const std::string text = own ? model[source] : AnyText();
            const auto given = [&] { return own ? column[source] : std::string_view(text); };
            switch (UpTo(9)) {
            case 0:
            case 1:
            case 2:
                column.Append(given());
                model.push_back(text);
                break;
            case 3:
                column.Insert(row, given());
                model.insert(at, text);
                break;
            case 4:
            case 5:
                if (!model.empty()) {
                    column.Erase(row);
                    model.erase(at);
                }
                break;
            case 6:
                if (UpTo(200) == 0) {
                    column.Clear();
                    model.clear();
                } else {
                    column.Shrink();
                }
                break;
            default:
                if (!model.empty()) {
                    column.Set(row, given());
                    *at = text;
                }
            }
            ASSERT_EQ(column.size(), model.size()) << "step " << step;
            if (!model.empty()) {
                const std::size_t looked = UpTo(model.size() - 1);
                ASSERT_EQ(column[looked], model[looked]) << "step " << step << ", row " << looked;
            }
        }
        ASSERT_EQ(Texts(column), model);
    }
}

} // namespace sbd
