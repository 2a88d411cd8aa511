// What a file says that is not taken as it was meant.
#include "check/file_check.h"
#include "check/file_findings.h"
#include "tests/sbdfile/sections.h"
#include "tests/seed.h"
#include "tests/surroundings.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <iterator>

namespace sbd {

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

/// Findings as "kind line block".
std::vector<std::string> Told(const FindingList& findings)
{
    std::vector<std::string> texts;
    for (const Finding& finding : findings.list)
        texts.push_back(std::string(RuleOf(finding.kind).word) + " " + std::to_string(finding.line) + " "
                        + std::to_string(finding.block));
    return texts;
}

std::vector<std::string> FoundInBytes(std::string_view bytes)
{
    CSbdData data;
    return Told(ReadWithFindings(bytes, data).findings);
}

std::vector<std::string> Found(std::string_view utf8)
{
    return FoundInBytes(FileOf(utf8));
}

std::string ExampleBytes(const std::string& name)
{
    std::ifstream file(std::string(test::ExamplesFolder()) + "/" + name + "/" + name + ".sbd", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

TEST(FileFindings, ASoundFileTellsNothing)
{
    for (const char* name : {"plate4", "box2"})
        EXPECT_THAT(FoundInBytes(ExampleBytes(name)), IsEmpty()) << name;
    CSbdData fresh;
    EXPECT_THAT(FoundInBytes(WriteProject(fresh)), IsEmpty());
}

TEST(FileFindings, AMissingEndLineIsToldAtItsHeaderAndTheNextHeaderAsARow)
{
    EXPECT_THAT(Found("[SEC_S_STIFF]\n G1 G4\n[SEC_GROUP]\n G1 G2\n[END SEC_GROUP]\n"),
                ElementsAre("unterminated-section 1 314", "swallowed-header 3 314"));
    EXPECT_THAT(Found("[SEC_GROUP]\n G1 G2\n"), ElementsAre("unterminated-section 1 323"));
    EXPECT_THAT(Found("[SEC_GROUP]\n G1 G2\n[END SEC_S_STIFF]\n"), ElementsAre("unterminated-section 1 323"))
        << "another section's end line";
}

TEST(FileFindings, AHeaderInsideASectionThatEndsByItsOwnLineIsToldAlone)
{
    EXPECT_THAT(Found("[SEC_S_STIFF]\n G1 G4\n[SEC_GROUP]\n[END_SEC_S_STIFF]\n"),
                ElementsAre("swallowed-header 3 314"));
}

TEST(FileFindings, APlainEndLineEndsAnySection)
{
    EXPECT_THAT(Found("[SEC_GROUP]\n G1 G2\n[END]\n"), IsEmpty());
}

TEST(FileFindings, AnUnknownSectionIsNamedByItsBlockWhereOnlyTheCaseDiffers)
{
    EXPECT_THAT(Found("[SEC_GROUP]\n[END]\n[Sec_Group]\n G1\n[END]\n[MEMO] x\n a\n[END]\n"),
                ElementsAre("unknown-section 3 323", "unknown-section 6 0"));
}

TEST(FileFindings, AnEndLineOutsideIsAStrayOneWithAndWithoutBracket)
{
    EXPECT_THAT(Found("[SEC_GROUP]\n[END]\n[END x\n[END SEC_GROUP]\n[SEC_S_STIFF]\n[END]\n"),
                ElementsAre("stray-end 3 0", "stray-end 4 0", "swallowed-header 5 0"));
}

TEST(FileFindings, NamesThatNoListTakesAreTold)
{
    EXPECT_THAT(Found("[CBD_GRID]\n A1\n 主桁 2 G1 G2 G3\n 横桁(対傾構) 1\n S1\n S2\n 主桁 G1\n[END]\n"),
                ElementsAre("names-without-heading 2 501", "names-beyond-count 3 501", "names-without-heading 6 501",
                            "names-beyond-count 7 501"));
}

TEST(FileFindings, OptionRowsAreToldThatGiveNoValueOrOneTwice)
{
    EXPECT_THAT(Found("[SEC_OPTION_SECTION]\n MIN_WEB_THICKNESS x 9\n MIN_WEB_THICKNESS x 10\n NO_ROW\n NO_ROW x y\n"
                      " MAX_WEB_THICKNESS\n[END]\n"),
                ElementsAre("option-twice 3 302", "unknown-option-row 4 302", "unknown-option-row 5 302",
                            "option-without-value 6 302"));
}

TEST(FileFindings, WordsThatNoFieldTakesAreTold)
{
    EXPECT_THAT(Found("[SEC_H_GIRDER]\n T_U_FLG_TYPE a b\n G1 G4 S1 S4 1 2 3 4 5 6 7 8\n[END]\n"),
                ElementsAre("tokens-beyond-row 2 311", "tokens-beyond-row 3 311"));
    EXPECT_THAT(Found("[CBD_GIRDER_H]\n 自動 NO more\n[END]\n"), ElementsAre("tokens-beyond-row 2 511"));
    EXPECT_THAT(Found("[SEC_GROUP]\n G1 G2 G3\n[END]\n"), ElementsAre("line-too-many-cells 2 323"));
    EXPECT_THAT(Found("[SEC_V_STIFF]\n 自動 YES 3 4 5 6 7 8 9 10\n G1 G4 S1 S4 I桁 120 9 3 0.5 0.6 0.7\n[END]\n"),
                IsEmpty())
        << "a list, and a control row";
}

TEST(FileFindings, AFileThatIsNoProjectTellsNothingElse)
{
    EXPECT_THAT(Found(""), ElementsAre("not-a-project 0 0"));
    EXPECT_THAT(Found("名前,径間\nG1,1\n"), ElementsAre("not-a-project 0 0"));
    EXPECT_THAT(FoundInBytes(std::string("[SEC_GROUP]\n\0[END]\nstray\n", 24)), ElementsAre("not-a-project 0 0"));
}

TEST(FileFindings, AForeignEncodingIsToldOnce)
{
    EXPECT_THAT(FoundInBytes("[SEC_GROUP]\n 主桁 G2\n 横桁 G3\n[END]\n"), ElementsAre("foreign-encoding 2 0"));
    EXPECT_THAT(FoundInBytes("\xEF\xBB\xBF[SEC_GROUP]\n[END]\n"), Contains("foreign-encoding 1 0"));
    EXPECT_THAT(FoundInBytes(std::string("\xFF\xFE[\0S\0", 6)), ElementsAre("foreign-encoding 1 0"));
    const std::string cp932 = FileOf("TITLE:県道\n[SEC_GROUP]\n 主桁 G2\n[END]\n");
    EXPECT_THAT(FoundInBytes(cp932 + "! 主桁\n stray\n"), ElementsAre("foreign-encoding 5 0", "line-outside 6 0"))
        << "one line in a file of another encoding";
    EXPECT_THAT(FoundInBytes("[SEC_GROUP]\n \xC4\xB3 G2\n[END]\n"), IsEmpty()) << "half-width kana";
}

TEST(FileFindings, TheListIsBoundedAndSaysHowManyMore)
{
    std::string text = "[SEC_GROUP]\n[END]\n";
    for (int i = 0; i < 12000; ++i)
        text += "x\n";
    CSbdData data;
    const FileFindings found = ReadWithFindings(text, data);
    EXPECT_EQ(found.findings.list.size(), kMostFindings);
    EXPECT_EQ(found.findings.more, 2000U);
    EXPECT_TRUE(found.findings.anyLoss);
}

TEST(FileCheck, AShiftIsToldOnceABlockWithItsCells)
{
    const FileCheck check =
        CheckFile(FileOf("[SEC_H_GIRDER]\n G1 G4 S1 S4 2.2 x 0.3\n G1 G4 S1 S4 x 2.2\n[END]\n"), {});
    EXPECT_EQ(std::ranges::count(check.findings.list, FindingKind::Shift, &Finding::kind), 1);
    EXPECT_THAT(Told(check.findings), Contains("shift 0 311"));
    EXPECT_EQ(check.shifted.at(311).size(), 4U);
}

// --- anything --------------------------------------------------------------------------------------

class FileFindingsRandom : public RandomTest {};

TEST_F(FileFindingsRandom, AnyBytesAreReadAndToldOf)
{
    const std::string source = ExampleBytes("plate4");
    for (int run = 0; run < 12; ++run) {
        std::string bytes = source;
        for (int i = 0; i < 200; ++i) {
            const std::size_t place = UpTo(bytes.size() - 1);
            if (UpTo(2) == 0)
                bytes.erase(place, UpTo(200));
            else
                bytes[place] = static_cast<char>(1 + UpTo(254));
        }
        const FileCheck check = CheckFile(bytes, {});
        EXPECT_LE(check.findings.list.size(), kMostFindings);
        EXPECT_LE(check.doubts.list.size(), kMostFindings);
        for (const Finding& finding : check.findings.list)
            EXPECT_FALSE(finding.text.empty());
        for (const Difference& difference : check.unstable)
            EXPECT_TRUE(difference.block == 0 || check.shifted.contains(difference.block)
                        || !check.findings.list.empty());
    }
}

} // namespace sbd
