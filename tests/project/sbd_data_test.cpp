#include "project/catalogue.h"
#include "project/option_rows.h"
#include "project/sbd_data.h"
#include "project/text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace sbd {

namespace {

using namespace literals;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

bool IsReadByRows(const CatalogueRow& row)
{
    return row.columns > 0 && row.block != 702;
}

} // namespace

TEST(SbdData, ANewDocumentHasAllOptionsAtTheirDefaultsAndNoRowInAnyTable)
{
    const CSbdData data;
    for (const OptionBlock& block : OptionBlocks()) {
        ASSERT_EQ(data.Options(block.block)->size(), block.rows.size());
        for (std::size_t row = 0; row < block.rows.size(); ++row)
            EXPECT_EQ(data.Option(block.block, row), block.rows[row].defaultValue) << block.block << " " << row;
    }
    for (const CatalogueRow& row : Catalogue())
        if (row.kind != BlockKind::Option) {
            EXPECT_EQ(data.RowCount(row.block), 0U) << row.block;
        }
    EXPECT_THAT(data.unknownLines, IsEmpty());
    EXPECT_EQ(data.versionWord, "NEW_VERSION_20051205");
    EXPECT_THAT(data.hGirder.types,
                ElementsAre("桁高に含む"_cp932, "桁高に含む"_cp932, "線形(入力)"_cp932, "線形(入力)"_cp932));
    for (const int block : {501, 702})
        EXPECT_EQ(data.Names(block)->autoValue, "YES");
    EXPECT_THAT(data.Names(501)->lists, AllOf(SizeIs(3), Each(IsEmpty())));
    EXPECT_THAT(data.Names(702)->lists, AllOf(SizeIs(4), Each(IsEmpty())));
    EXPECT_EQ(data.gridNames.girderNameWidth, 3);
    EXPECT_EQ(data.gridNames.swayNameWidth, 3);
}

TEST(SbdData, EveryTableBlockHasItsColumns)
{
    const CSbdData data;
    for (const CatalogueRow& row : Catalogue()) {
        const TableBlock* table = data.Table(row.block);
        ASSERT_EQ(table != nullptr, IsReadByRows(row)) << row.block;
        if (table != nullptr) {
            EXPECT_EQ(table->columns.size(), static_cast<std::size_t>(row.columns)) << row.block;
        }
    }
}

TEST(SbdData, AnUnknownNumberAnswersTwoColumnsAndIgnoresAppends)
{
    CSbdData data;
    const CSbdData before = data;
    for (const int block : {-1, 0, 252, 300, 301, 311, 999, 1000, 100000}) {
        EXPECT_EQ(data.ColumnCount(block), 2) << block;
        data.Append(block, 0, "lost");
        EXPECT_EQ(data.Table(block), nullptr) << block;
    }
    EXPECT_TRUE(data.SameProject(before));
}

TEST(SbdData, AnAppendToAColumnThatIsNotThereIsIgnored)
{
    CSbdData data;
    EXPECT_EQ(data.ColumnCount(305), 5);
    data.Append(305, 5, "lost");
    data.Append(305, -1, "lost");
    EXPECT_EQ(data.RowCount(305), 0U);
    for (int column = 0; column < 5; ++column)
        data.Append(305, column, std::to_string(column));
    EXPECT_EQ(data.RowCount(305), 1U);
    EXPECT_THAT(data.Table(305)->Row(0), ElementsAre("0", "1", "2", "3", "4"));
}

TEST(SbdData, ARowIsNeverRagged)
{
    CSbdData data;
    TableBlock& table = *data.Table(305);
    table.AppendRow({"G1"});
    table.AppendRow({"G2", "a", "b", "c", "d", "dropped"});
    table.AppendRow({});
    EXPECT_THAT(table.Row(0), ElementsAre("G1", "", "", "", ""));
    EXPECT_THAT(table.Row(1), ElementsAre("G2", "a", "b", "c", "d"));
    EXPECT_THAT(table.Row(2), Each(IsEmpty()));
    for (const CColumnVector& column : table.columns)
        EXPECT_EQ(column.size(), 3U);
}

TEST(SbdData, ResetEmptiesTablesRecordsListsAndUnknownLinesAndKeepsOptionsAndNames)
{
    CSbdData data;
    for (const CatalogueRow& row : Catalogue())
        if (IsReadByRows(row))
            data.Table(row.block)->AppendRow({"x"});
    data.hGirder.records.emplace_back();
    data.crossRibs.emplace_back();
    data.lRibs.emplace_back();
    data.Names(501)->lists[1] = {"A1"};
    data.Names(702)->lists[3] = {"B1"};
    data.unknownLines = {"[X]"};
    data.SetOption(302, 0, "kept");
    data.gridNames.girderNames = {"G1"};
    data.ClearBlocks();
    for (const CatalogueRow& row : Catalogue())
        if (row.kind != BlockKind::Option) {
            EXPECT_EQ(data.RowCount(row.block), 0U) << row.block;
        }
    EXPECT_THAT(data.Names(501)->lists, Each(IsEmpty()));
    EXPECT_THAT(data.Names(702)->lists, Each(IsEmpty()));
    EXPECT_THAT(data.unknownLines, IsEmpty());
    EXPECT_EQ(data.Option(302, 0), "kept");
    EXPECT_THAT(data.gridNames.girderNames, ElementsAre("G1"));
    EXPECT_EQ(data.ColumnCount(305), 5);
}

TEST(SbdData, AnOptionThatIsNotThereIsEmptyAndCannotBeSet)
{
    CSbdData data;
    EXPECT_EQ(data.Option(301, 36), "");
    EXPECT_EQ(data.Option(300, 0), "");
    const CSbdData before = data;
    data.SetOption(301, 36, "lost");
    data.SetOption(300, 0, "lost");
    EXPECT_TRUE(data.SameProject(before));
}

TEST(SbdData, AnOptionBehindTheLastValueFillsUpToItsRow)
{
    CSbdData data;
    data.Options(301)->clear();
    data.SetOption(301, 2, "単独"_cp932);
    EXPECT_THAT(*data.Options(301), ElementsAre("", "", "単独"_cp932));
}

TEST(SbdData, TheProjectsTypeIsRow2Of301)
{
    CSbdData data;
    EXPECT_EQ(data.Type(), "YES");
    data.SetOption(301, 2, "UC-GRID");
    EXPECT_EQ(data.Type(), "UC-GRID");
}

TEST(SbdData, RowsAreCountedByTheKindOfTheirBlock)
{
    CSbdData data;
    data.hGirder.records.resize(2);
    data.crossRibs.resize(3);
    data.lRibs.resize(4);
    data.Table(412)->AppendRow({"YES"});
    EXPECT_EQ(data.RowCount(311), 2U);
    EXPECT_EQ(data.RowCount(324), 3U);
    EXPECT_EQ(data.RowCount(325), 4U);
    EXPECT_EQ(data.RowCount(412), 1U);
    EXPECT_EQ(data.RowCount(301), 36U);
    EXPECT_EQ(data.RowCount(300), 0U);
}

TEST(SbdData, ACopyIsAProjectOfItsOwnAndEqualUntilSomethingChanges)
{
    CSbdData data;
    data.Table(313)->AppendRow({"G1"});
    const CSbdData copy = data;
    EXPECT_TRUE(data.SameProject(copy));
    const auto differs = [&](auto change) {
        CSbdData other = copy;
        change(other);
        return !other.SameProject(copy);
    };
    EXPECT_TRUE(differs([](CSbdData& d) { d.Table(313)->columns[1].Set(0, "G2"); }));
    EXPECT_TRUE(differs([](CSbdData& d) { d.SetOption(801, 15, "x"); }));
    EXPECT_TRUE(differs([](CSbdData& d) { d.Names(501)->autoValue = "NO"; }));
    EXPECT_TRUE(differs([](CSbdData& d) { d.Names(702)->lists[3] = {"B1"}; }));
    EXPECT_TRUE(differs([](CSbdData& d) { d.hGirder.types[0] = "x"; }));
    EXPECT_TRUE(differs([](CSbdData& d) { d.crossRibs.emplace_back(); }));
    EXPECT_TRUE(differs([](CSbdData& d) { d.lRibs.emplace_back(); }));
    EXPECT_TRUE(differs([](CSbdData& d) { d.versionWord = "x"; }));
    EXPECT_TRUE(differs([](CSbdData& d) { d.unknownLines.emplace_back(); }));
    EXPECT_FALSE(differs([](CSbdData& d) { d.gridNames.girderNames = {"G1"}; })) << "names are no part of the project";
}

TEST(SbdData, ANumberOf1e40OrMoreIsNotGiven)
{
    EXPECT_FALSE(IsGiven(kNotGiven));
    EXPECT_FALSE(IsGiven(1e300));
    EXPECT_TRUE(IsGiven(9.9e39));
    EXPECT_TRUE(IsGiven(-1e300));
    EXPECT_THAT(HGirderRecord().numbers, Each(kNotGiven));
}

TEST(SbdData, SpacingsAndSizesThatAreNotHeldAreZeroOrNotGiven)
{
    RibSpacing spacing;
    for (const double number : {0.0, 1.5, 0.0, 0.0})
        spacing.Append(number);
    spacing.Tidy();
    EXPECT_THAT(spacing.numbers, ElementsAre(0.0, 1.5));
    EXPECT_EQ(spacing.At(1), 1.5);
    EXPECT_EQ(spacing.At(1000000), 0.0);
    CrossRibRecord record;
    record.furtherSizes.push_back({1, 2, 3, 4});
    EXPECT_THAT(record.FurtherSizesAt(0), ElementsAre(1, 2, 3, 4));
    EXPECT_THAT(record.FurtherSizesAt(1), Each(kNotGiven));
}

TEST(SbdData, ShrinkingLowersTheMemoryUsedAndKeepsTheProject)
{
    CSbdData data;
    for (int row = 0; row < 1000; ++row)
        data.Table(313)->AppendRow({"G1", "G2", std::to_string(row)});
    const CSbdData copy = data;
    const std::size_t before = data.MemoryUsed();
    data.Shrink();
    EXPECT_LE(data.MemoryUsed(), before);
    EXPECT_TRUE(data.SameProject(copy));
}

} // namespace sbd
