// Doubts: each kind by a project that gives rise to it, and one that does not.
#include "check/doubts.h"
#include "tests/sbdfile/sections.h"
#include "tests/surroundings.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

namespace sbd {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view kNames = "[CBD_GRID]\n 主桁 3 G1 G2 G3\n 横桁(対傾構) 4 S1 C1 C2 S2\n ライン 1 CL\n[END]\n";

/// Doubts of one block as "kind row column".
std::vector<std::string> DoubtsOf(int block, std::string_view section, const SilentKinds& silent = {})
{
    FindingList doubts;
    AddDoubts(Load(std::string(kNames) + std::string(section)), block, silent, doubts);
    std::vector<std::string> texts;
    for (const Finding& finding : doubts.list) {
        EXPECT_EQ(finding.block, block);
        texts.push_back(std::string(RuleOf(finding.kind).word) + " " + std::to_string(finding.row) + " "
                        + std::to_string(finding.column));
    }
    return texts;
}

std::string Stiffeners(std::string_view rows)
{
    return "[SEC_S_STIFF]\n 自動 NO\n" + std::string(rows) + "[END]\n";
}

} // namespace

TEST(Doubts, ANameThatTheProjectDoesNotKnow)
{
    EXPECT_THAT(DoubtsOf(314, Stiffeners(" G1 G9 S1 S2 I桁両側 180 19 SM400\n")), ElementsAre("unknown-name 2 2"));
    EXPECT_THAT(DoubtsOf(314, Stiffeners(" G1 G3 S1 S2 I桁両側 180 19 SM400\n")), IsEmpty());
    FindingList doubts;
    AddDoubts(Load(Stiffeners(" G1 G9 S1 S2 I桁両側 180 19 SM400\n")), 314, {}, doubts);
    EXPECT_THAT(doubts.list, IsEmpty()) << "a project without names knows none to doubt";
}

TEST(Doubts, AWordInAColumnOfNumbers)
{
    EXPECT_THAT(DoubtsOf(331, "[SEC_WEB_T_MAT]\n 自動 NO\n G1 G3 SEC1 SEC1 I桁 SM400 厚い\n[END]\n"),
                ElementsAre("not-a-number 2 7"));
    EXPECT_THAT(DoubtsOf(331, "[SEC_WEB_T_MAT]\n 自動 NO\n G1 G3 SEC1 SEC1 I桁 SM400 10\n[END]\n"), IsEmpty());
}

TEST(Doubts, AWordThatIsNoneOfAClosedList)
{
    EXPECT_THAT(DoubtsOf(314, Stiffeners(" G1 G3 S1 S2 両面 180 19 SM400\n")), ElementsAre("not-in-list 2 5"));
    EXPECT_THAT(DoubtsOf(314, Stiffeners(" G1 G3 S1 S2 I桁両側 180 19 HT780\n")), IsEmpty())
        << "materials are no closed list";
}

TEST(Doubts, ARangeThatEndsBeforeItStarts)
{
    EXPECT_THAT(DoubtsOf(314, Stiffeners(" G3 G1 C2 S1 I桁両側 180 19 SM400\n")),
                ElementsAre("range-reversed 2 1", "range-reversed 2 3"));
    EXPECT_THAT(DoubtsOf(573, "[CBD_L_LATERAL_POSITION]\n 自動 NO\n G1 G2 C2 S1 B E\n[END]\n"), IsEmpty())
        << "a brace may run backward";
}

TEST(Doubts, ARowThatALaterOneCoversWhole)
{
    EXPECT_THAT(DoubtsOf(314, Stiffeners(" G1 G1 C1 C1 I桁両側 200 22 SM400\n G1 G3 S1 S2 I桁両側 180 19 SM400\n")),
                ElementsAre("row-covered 2 0"));
    EXPECT_THAT(DoubtsOf(314, Stiffeners(" G1 G3 S1 S2 I桁両側 180 19 SM400\n G1 G1 C1 C1 I桁両側 200 22 SM400\n")),
                IsEmpty())
        << "the later row is the exception";
    EXPECT_THAT(DoubtsOf(314, Stiffeners(" G1 G1 C1 C1 I桁左側 200 22 SM400\n G1 G3 S1 S2 I桁右側 180 19 SM400\n")),
                IsEmpty())
        << "another side";
}

TEST(Doubts, ABlockThatTheTypeNeedsAndThatIsEmpty)
{
    EXPECT_THAT(DoubtsOf(321, ""), ElementsAre("needed-block-empty 0 0"));
    EXPECT_THAT(DoubtsOf(321, "[SEC_CONTROL]\n KELD_analysis_used x 縦桁\n[END]\n"), IsEmpty());
    EXPECT_THAT(DoubtsOf(324, ""), IsEmpty()) << "no box girders";
}

TEST(Doubts, BlocksThatSayTheSameThingDifferently)
{
    CSbdData data = Load(kNames);
    data.SetOption(521, 4, "1_2");
    FindingList doubts;
    AddDoubts(data, 521, {}, doubts);
    ASSERT_EQ(doubts.list.size(), 1U);
    EXPECT_EQ(doubts.list[0].kind, FindingKind::BlocksDisagree);
    EXPECT_EQ(doubts.list[0].row, 5);
}

TEST(Doubts, AKindCanBeSwitchedOff)
{
    const std::string row = Stiffeners(" G1 G9 S1 S2 両面 180 19 SM400\n");
    EXPECT_THAT(DoubtsOf(314, row), ElementsAre("unknown-name 2 2", "not-in-list 2 5"));
    EXPECT_THAT(DoubtsOf(314, row, {FindingKind::UnknownName}), ElementsAre("not-in-list 2 5"));
    EXPECT_THAT(DoubtsOf(314, row, {FindingKind::UnknownName, FindingKind::NotInList}), IsEmpty());
}

TEST(Doubts, OfTheSamplesAreTheirOddities)
{
    const auto told = [](const std::string& name) {
        const auto read = [&](const std::string& ending) {
            std::ifstream file(std::string(test::ExamplesFolder()) + "/" + name + "/" + name + ending,
                               std::ios::binary);
            return std::string(std::istreambuf_iterator<char>(file), {});
        };
        std::vector<std::string> texts;
        for (const Finding& finding : Doubts(LoadBytes(read(".sbd"), read(".abd"))).list)
            texts.push_back(std::string(RuleOf(finding.kind).word) + " " + std::to_string(finding.block) + " "
                            + std::to_string(finding.row));
        return texts;
    };
    // The last row of 523 has its girders in reverse order, the last row of 573 names a girder that is not there.
    EXPECT_THAT(told("plate4"), ElementsAre("range-reversed 523 16", "unknown-name 573 45"));
    // One row of 523 has cross beams and girders in reverse order.
    EXPECT_THAT(told("box2"), ElementsAre("range-reversed 523 5", "range-reversed 523 5"));
    EXPECT_THAT(told("single1"), IsEmpty());
}

} // namespace sbd
