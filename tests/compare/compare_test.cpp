#include "compare/compare.h"
#include "tests/sbdfile/sections.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace sbd {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

std::string KindText(DifferenceKind kind)
{
    switch (kind) {
    case DifferenceKind::Value:
        return "value";
    case DifferenceKind::RowAdded:
        return "added";
    case DifferenceKind::RowRemoved:
        return "removed";
    case DifferenceKind::RowMoved:
        return "moved";
    case DifferenceKind::UnknownLine:
        return "unknown";
    }
    return {};
}

/// "kind block/row/column: before > after", one a difference.
std::vector<std::string> Differences(const CSbdData& before, const CSbdData& after)
{
    std::vector<std::string> texts;
    for (const Difference& difference : CompareProjects(before, after))
        texts.push_back(KindText(difference.kind) + " " + std::to_string(difference.block) + "/"
                        + std::to_string(difference.row) + "/" + std::to_string(difference.column) + ": "
                        + FromCp932(difference.before) + " > " + FromCp932(difference.after));
    return texts;
}

std::vector<std::string> Differences(std::string_view before, std::string_view after)
{
    return Differences(ReadOnly(before), ReadOnly(after));
}

std::string Group(std::string_view rows)
{
    return "[SEC_GROUP]\n" + std::string(rows) + "[END]\n";
}

} // namespace

TEST(Compare, TheSameProjectHasNoDifference)
{
    const CSbdData data = Load("TITLE:A\n[SEC_GROUP]\n G1 G2\n[END]\n[X]\n a\n[END]\n");
    EXPECT_THAT(Differences(data, data), IsEmpty());
}

TEST(Compare, AnOptionValueIsTold)
{
    EXPECT_THAT(Differences("", "TITLE:A\n[MBD_CONTROL]\n ボルト長さの丸め方法 切り捨て\n[END]\n"),
                ElementsAre("value 301/1/0: SBD1 > A", "value 801/16/0: 切り上げ > 切り捨て"));
    EXPECT_EQ(CompareProjects(ReadOnly(""), ReadOnly("TITLE:A\n"))[0].place, "TITLE");
}

TEST(Compare, ACellIsToldByRowAndColumnFromOne)
{
    EXPECT_THAT(Differences(Group(" G1 G2\n G3 G4\n G5 G6\n"), Group(" G1 G2\n G3 X\n G5 G6\n")),
                ElementsAre("value 323/2/2: G4 > X"));
}

TEST(Compare, ARowPutInIsOneDifference)
{
    EXPECT_THAT(Differences(Group(" G1 a\n G2 b\n G3 c\n"), Group(" G1 a\n X x\n G2 b\n G3 c\n")),
                ElementsAre("added 323/2/0:  > X x"));
    EXPECT_THAT(Differences(Group(" G1 a\n"), Group(" G1 a\n G1 a\n")), SizeIs(1));
    EXPECT_THAT(Differences("", Group(" G1 a\n")), ElementsAre("added 323/1/0:  > G1 a"));
}

TEST(Compare, ARowTakenOutIsOneDifferenceAtItsOldPlace)
{
    EXPECT_THAT(Differences(Group(" G1 a\n G2 b\n G3 c\n"), Group(" G1 a\n G3 c\n")),
                ElementsAre("removed 323/2/0: G2 b > "));
}

TEST(Compare, ChangesFarApartAreToldWithoutTheRowsBetween)
{
    std::string before;
    std::string after;
    for (int i = 0; i < 100; ++i) {
        const std::string row = " G" + std::to_string(i) + " x\n";
        before += row;
        after += i == 10 ? "" : i == 90 ? row + " NEW x\n" : row;
    }
    EXPECT_THAT(Differences(Group(before), Group(after)),
                ElementsAre("removed 323/11/0: G10 x > ", "added 323/91/0:  > NEW x"));
}

TEST(Compare, ARowWhoseTextsShiftIsMovedNotChanged)
{
    CSbdData before;
    before.Table(305)->AppendRow({"G1", "", "W2"});
    CSbdData after;
    after.Table(305)->AppendRow({"G1", "W2"});
    EXPECT_THAT(Differences(before, after), ElementsAre("moved 305/1/2: G1 W2 > G1 W2"));
}

TEST(Compare, AColumnIsNamedByItsHead)
{
    const std::vector<Difference> differences =
        CompareProjects(ReadOnly("[SEC_BOX_WEB]\n G1 a\n[END]\n"), ReadOnly("[SEC_BOX_WEB]\n G1 b\n[END]\n"));
    ASSERT_THAT(differences, SizeIs(1));
    EXPECT_NE(FromCp932(differences[0].place).find("左腹板"), std::string::npos) << FromCp932(differences[0].place);
}

TEST(Compare, RowsOf311CountBehindTheFourTypes)
{
    EXPECT_THAT(Differences("[SEC_H_GIRDER]\n G1 G2 A1 A2 1.8\n[END]\n",
                            "[SEC_H_GIRDER]\n T_L_FLG_TYPE x\n G1 G2 A1 A2 1.85\n[END]\n"),
                ElementsAre("value 311/2/2: 桁高に含む > x", "value 311/5/5: 1.8 > 1.85"));
}

TEST(Compare, RowsOf324And325CountBehindTheControlRow)
{
    EXPECT_THAT(Differences("[SEC_CROSS_RIB]\n G1 G2 A1 A2 U 1 2 3 4 1 等間隔 2\n[END]\n[SEC_NUMBER_L_RIB]\n G1 G2 A1 "
                            "U 0 1 1 5 6\n[END]\n",
                            "[SEC_CROSS_RIB]\n G1 G2 A1 A2 U 1 2 3 4 1 1.5 2\n[END]\n[SEC_NUMBER_L_RIB]\n G1 G2 A1 U 0 "
                            "1 1 5 7\n[END]\n"),
                ElementsAre("value 324/2/11: 等間隔 > 1.5", "value 325/2/9: 6 > 7"));
}

TEST(Compare, NameListsAreToldNameByName)
{
    EXPECT_THAT(
        Differences("[CBD_GRID]\n 自動 YES\n 主桁 2 G1 G2\n[END]\n", "[CBD_GRID]\n 自動 NO\n 主桁 3 G1 X G3\n[END]\n"),
        ElementsAre("value 501/1/2: YES > NO", "value 501/3/1: G2 > X", "value 501/4/1:  > G3"));
}

TEST(Compare, TheVersionWordAndUnknownLinesAreTold)
{
    CSbdData before;
    CSbdData after;
    after.versionWord = "NEW_VERSION_2";
    before.unknownLines = {"[X]", "a", "[END]"};
    after.unknownLines = {"[X]", "b", "[END]"};
    EXPECT_THAT(Differences(before, after),
                ElementsAre("value 315/0/0: NEW_VERSION_20051205 > NEW_VERSION_2", "unknown 0/2/0: a > b"));
}

TEST(Compare, NamesOfTheBridgeAreNoDifference)
{
    CSbdData before;
    CSbdData after;
    after.gridNames.girderNames = {"G1"};
    EXPECT_THAT(Differences(before, after), IsEmpty());
}

TEST(Compare, ManyRowsOfWhichAllDifferAreComparedQuickly)
{
    CSbdData before;
    CSbdData after;
    for (int i = 0; i < 20000; ++i) {
        before.Table(323)->AppendRow({"a" + std::to_string(i), "x"});
        after.Table(323)->AppendRow({"b" + std::to_string(i), "x"});
    }
    EXPECT_THAT(CompareProjects(before, after), SizeIs(20000));
}

TEST(Compare, ManyEqualRowsAreMatchedInOrder)
{
    std::string rows;
    for (int i = 0; i < 2000; ++i)
        rows += " G1 G2\n";
    EXPECT_THAT(Differences(Group(" A a\n" + rows + " B b\n"), Group(" C c\n" + rows + " D d\n")), SizeIs(4));
}

} // namespace sbd
