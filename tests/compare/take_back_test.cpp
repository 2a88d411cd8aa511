#include "compare/take_back.h"
#include "tests/sbdfile/sections.h"
#include "tests/seed.h"

#include <gtest/gtest.h>

namespace sbd {

namespace {

using namespace literals;

constexpr int kStiffBlock = 313; // a table of nine columns

CSbdData Table(const std::vector<std::vector<std::string>>& rows)
{
    CSbdData data;
    for (const std::vector<std::string>& row : rows)
        for (std::size_t column = 0; column < data.Table(kStiffBlock)->columns.size(); ++column)
            data.Append(kStiffBlock, static_cast<int>(column), column < row.size() ? row[column] : std::string());
    return data;
}

std::string RowsOf(const CSbdData& data)
{
    std::string text;
    const TableBlock& table = *data.Table(kStiffBlock);
    for (std::size_t row = 0; row < table.RowCount(); ++row) {
        for (const CColumnVector& column : table.columns)
            text += std::string(column[row]);
        text += ' ';
    }
    return text;
}

using TakeBackAtRandom = RandomTest;

} // namespace

TEST(TakeBack, BringsOneCellBackAndLeavesTheOthers)
{
    CSbdData before;
    CSbdData now;
    now.SetOption(301, 0, "TITLE");
    now.SetOption(301, 1, "NO");
    const std::vector<Difference> all = CompareProjects(before, now);
    ASSERT_EQ(all.size(), 2U);
    const CSbdData data = WithTakenBack(now, before, std::span(all).first(1));
    EXPECT_EQ(data.Option(301, 0), before.Option(301, 0));
    EXPECT_EQ(data.Option(301, 1), "NO");
}

TEST(TakeBack, BringsRowsBackWhereTheyStood)
{
    const CSbdData before = Table({{"a", "1"}, {"b", "2"}, {"c", "3"}, {"d", "4"}, {"e", "5"}});
    const CSbdData now = Table({{"a", "1"}, {"x", "9"}, {"y", "9"}, {"d", "4"}, {"e", "5"}, {"f", "6"}});
    EXPECT_EQ(RowsOf(WithTakenBack(now, before, CompareProjects(before, now))), RowsOf(before));
    const CSbdData shorter = Table({{"a", "1"}, {"d", "7"}});
    EXPECT_EQ(RowsOf(WithTakenBack(shorter, before, CompareProjects(before, shorter))), RowsOf(before));
    const CSbdData moved = Table({{"", "a", "1"}, {"b", "2"}, {"c", "3"}, {"d", "4"}, {"e", "5"}});
    EXPECT_EQ(RowsOf(WithTakenBack(moved, before, CompareProjects(before, moved))), RowsOf(before));
    EXPECT_EQ(RowsOf(WithTakenBack(before, CSbdData(), CompareProjects(CSbdData(), before))), "");
}

TEST(TakeBack, RowsThatWereNotChosenStay)
{
    const CSbdData before = Table({{"a", "1"}, {"b", "2"}, {"c", "3"}});
    const CSbdData now = Table({{"a", "1"}, {"n", "4"}, {"b", "2"}, {"m", "5"}, {"c", "8"}});
    const std::vector<Difference> all = CompareProjects(before, now);
    ASSERT_EQ(all.size(), 3U); // n and m were put in, c has another value
    EXPECT_EQ(RowsOf(WithTakenBack(now, before, std::span(all).subspan(1))), "a1 n4 b2 c3 ");
    EXPECT_EQ(RowsOf(WithTakenBack(now, before, std::span(all).first(1))), "a1 b2 m5 c8 ");
}

TEST_F(TakeBackAtRandom, AllDifferencesOfAnyTwoTablesTakenBackAreTheOldTable)
{
    const auto table = [this] {
        std::vector<std::vector<std::string>> rows(UpTo(7));
        for (std::vector<std::string>& row : rows)
            for (int column = 0; column < 3; ++column)
                row.push_back(std::string(1, static_cast<char>('a' + UpTo(2))));
        return Table(rows);
    };
    for (int i = 0; i < 3000; ++i) {
        const CSbdData before = table();
        const CSbdData now = table();
        const std::vector<Difference> all = CompareProjects(before, now);
        ASSERT_EQ(RowsOf(WithTakenBack(now, before, all)), RowsOf(before)) << RowsOf(now);
        // Any choice: as many rows as come and go.
        std::vector<Difference> chosen;
        std::ptrdiff_t rows = static_cast<std::ptrdiff_t>(now.RowCount(kStiffBlock));
        for (const Difference& difference : all) {
            if (UpTo(1) == 0)
                continue;
            chosen.push_back(difference);
            rows += difference.kind == DifferenceKind::RowRemoved ? 1
                    : difference.kind == DifferenceKind::RowAdded ? -1
                                                                  : 0;
        }
        ASSERT_EQ(static_cast<std::ptrdiff_t>(WithTakenBack(now, before, chosen).RowCount(kStiffBlock)), rows);
    }
}

TEST(TakeBack, RecordsNamesAndUnknownLinesComeBackAsAWhole)
{
    CSbdData before = ReadOnly("[UNKNOWN]\nx 1\n[END]\n");
    before.Names(501)->lists[0] = {"G1", "G2"};
    before.lRibs.resize(2);
    before.versionWord = "V1";
    const CSbdData now;
    const std::vector<Difference> all = CompareProjects(before, now);
    for (const Difference& difference : all)
        EXPECT_TRUE(ComesBackWithItsBlock(difference) || difference.block == 315) << difference.block;
    EXPECT_TRUE(WithTakenBack(now, before, all).SameProject(before));
}

} // namespace sbd
