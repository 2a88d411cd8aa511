#include "project/catalogue.h"
#include "project/option_rows.h"
#include "sbdfile/layout.h"
#include "sbdfile/reader.h"
#include "tests/sbdfile/sections.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace sbd {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Blocks whose content is another one than that of a new document.
std::vector<int> FilledBlocks(const CSbdData& data)
{
    const CSbdData fresh;
    std::vector<int> blocks;
    for (const CatalogueRow& row : Catalogue()) {
        const bool filled = data.Options(row.block) != nullptr ? *data.Options(row.block) != *fresh.Options(row.block)
                            : data.Names(row.block) != nullptr ? !(*data.Names(row.block) == *fresh.Names(row.block))
                            : data.Table(row.block) != nullptr ? data.RowCount(row.block) > 0
                            : row.block == 311                 ? !data.hGirder.records.empty()
                            : row.block == 324                 ? !data.crossRibs.empty()
                            : row.block == 325                 ? !data.lRibs.empty()
                                                               : false;
        if (filled)
            blocks.push_back(row.block);
    }
    return blocks;
}

/// A line that any block takes as a row of its own.
std::string SomeRow(int block)
{
    if (const OptionBlock* options = FindOptionBlock(block))
        return "  " + options->rows[1].keyword + " label another_value\r\n";
    return block == 501 || block == 702 ? FileOf("  主桁 2 G1 G2\n") : "  a b c d\r\n";
}

CSbdData ReadBytes(std::string_view bytes, std::vector<ReadNote>* notes = nullptr)
{
    CSbdData data;
    ReadSections(bytes, data, notes);
    return data;
}

std::string Reasons(const std::vector<ReadNote>& notes)
{
    std::string text;
    for (const ReadNote& note : notes)
        text += std::to_string(static_cast<int>(note.reason)) + "/" + std::to_string(note.line) + "/"
                + std::to_string(note.block) + "/" + FromCp932(note.text) + "\n";
    return text;
}

} // namespace

// --- headers -----------------------------------------------------------------------------------

TEST(ReaderHeaders, TheHeaderThatIsWrittenOpensItsOwnBlockAlone)
{
    for (const int block : SectionOrder()) {
        const OptionBlock* options = FindOptionBlock(block);
        const SectionLayout* layout = FindSectionLayout(block);
        const std::string& header = options != nullptr ? options->header : layout->header;
        const std::string& end = options != nullptr ? options->end : layout->end;
        const CSbdData data = ReadBytes(header + "\r\n" + SomeRow(block) + end + "\r\n" + "  behind the end\r\n");
        EXPECT_THAT(FilledBlocks(data), ElementsAre(block));
        EXPECT_THAT(data.unknownLines, IsEmpty()) << block;
    }
}

TEST(ReaderHeaders, EveryPrefixOpensItsBlockWithAnyTextBehindIt)
{
    for (const CatalogueRow& row : Catalogue())
        for (const std::string_view prefix : row.prefixes)
            for (const char* tail : {"", "] 999.text", "X"}) {
                if (prefix.empty())
                    continue;
                EXPECT_THAT(FilledBlocks(ReadBytes(std::string(prefix) + tail + "\r\n" + SomeRow(row.block))),
                            ElementsAre(row.block))
                    << prefix << tail;
            }
}

TEST(ReaderHeaders, APrefixShortOfAByteOpensNothing)
{
    for (const CatalogueRow& row : Catalogue()) {
        for (std::string_view prefix : row.prefixes) {
            if (prefix.empty())
                continue;
            prefix.remove_suffix(1);
            const CSbdData data = ReadBytes(std::string(prefix) + "\r\n" + SomeRow(row.block));
            EXPECT_THAT(FilledBlocks(data), testing::Not(testing::Contains(row.block))) << prefix;
        }
    }
}

TEST(ReaderHeaders, NoBlankNeedsToFollowTheBracket)
{
    EXPECT_EQ(OptionText(ReadOnly("[SEC_STANDARD]310. 標準値\n  DISTANCE_SPLICE_to_V_STIFF x 25\n"), 310, 0), "25");
}

TEST(ReaderHeaders, AHeaderMayBeIndented)
{
    EXPECT_THAT(TableText(ReadOnly("\t　[SEC_GROUP]\n  G1 G2\n"), 323), ElementsAre("G1|G2"));
}

TEST(ReaderHeaders, LowerCaseOpensABlockMixedCaseDoesNot)
{
    EXPECT_EQ(OptionText(ReadOnly("[sec_control]\n  RESET_RESULTS x NO\n[END]\n"), 301, 1), "NO");
    const CSbdData data = ReadOnly("[Sec_Control]\n  RESET_RESULTS x NO\n[END]\n");
    EXPECT_EQ(OptionText(data, 301, 1), "YES");
    EXPECT_THAT(data.unknownLines, ElementsAre("[Sec_Control]", "  RESET_RESULTS x NO", "[END]", ""));
}

TEST(ReaderHeaders, OldNamesOpen309And335)
{
    for (const char* header : {"[SEC_OPTION_PCP]", "[sec_option_pcp", "[SEC_OPTION_COMPOSITE]", "[sec_option_compos"})
        EXPECT_EQ(OptionText(ReadOnly(std::string(header) + "\n  SIGMA_CK x 40\n"), 309, 0), "40") << header;
    for (const char* header : {"[SEC_SLAB_PCPRC]", "[sec_slab_pcprc] 335", "[SEC_SLAB_COMPOSITE]"})
        EXPECT_EQ(ReadOnly(std::string(header) + "\n  自動計算 NO\n").RowCount(335), 1U) << header;
    EXPECT_EQ(ReadOnly("[SEC_SLAB_PCPRC 335\n  自動計算 NO\n").RowCount(335), 0U) << "the old name wants its bracket";
}

TEST(ReaderHeaders, SomeLowerCaseFormsAreSpelledOtherwise)
{
    for (const char* header : {"[bracket_dz_angle]", "[stringer_load]", "[cbd_sheet_lateral]", "[mbd_sheet_lateral]"})
        EXPECT_THAT(ReadOnly(std::string(header) + "\n  a b\n[END]\n").unknownLines,
                    ElementsAre(header, "  a b", "[END]", ""));
    EXPECT_GT(ReadOnly("[bracker_dz_angle]\n  a b\n[END]\n").RowCount(672), 0U);
    EXPECT_GT(ReadOnly("[stringer_type_load]\n  a b\n[END]\n").RowCount(642), 0U);
    EXPECT_GT(ReadOnly("[cbd_sheet_LATERAL]\n  a b\n[END]\n").RowCount(483), 0U);
    EXPECT_GT(ReadOnly("[mbd_sheet_LATERAL]\n  a b\n[END]\n").RowCount(486), 0U);
}

// --- the container -----------------------------------------------------------------------------

TEST(ReaderContainer, ATitleLosesTheLettersOfItsKeyword)
{
    const auto title = [](std::string_view line) { return OptionText(ReadOnly(line), 301, 0); };
    EXPECT_EQ(title("TITLE:県道１２号\n"), "県道１２号");
    EXPECT_EQ(title("TITLE:EAST\n"), "AST");
    EXPECT_EQ(title("TITLE:TITLE\n"), "");
    EXPECT_EQ(title("TITLE: A\n"), " A");
    EXPECT_EQ(title("TITLE: EAST\n"), " EAST") << "a blank is none of the letters";
    EXPECT_EQ(title("TITLE:east LITTLE\n"), "east LITTLE") << "lower case, and letters further on, stay";
    EXPECT_EQ(title("TITLE:\n"), "");
    EXPECT_EQ(title("  TITLE:x　y，z、w\n"), "x  y  z  w") << "cleaned as any line";
}

TEST(ReaderContainer, ATitleMayStandAnywhereOutsideASectionAndTheLastOneHolds)
{
    const CSbdData data = ReadOnly("TITLE:A\n[SEC_GROUP]\nTITLE:B G2\n[END]\nTITLE:C\n");
    EXPECT_EQ(OptionText(data, 301, 0), "C");
    EXPECT_THAT(TableText(data, 323), ElementsAre("TITLE:B|G2")) << "inside a section it is a row";
}

TEST(ReaderContainer, OutsideASectionOtherLinesAreDropped)
{
    const CSbdData data = ReadOnly("\n! [SEC_GROUP]\n![SEC_GROUP]\nwords [SEC_GROUP]\n[no bracket\nTITLE A\n");
    EXPECT_TRUE(data.SameProject(CSbdData()));
}

TEST(ReaderContainer, AnUnknownSectionIsKeptHeaderCleanedLinesRaw)
{
    const CSbdData data = ReadBytes("  [X]\t1 \r\n  a,\tb \r\n\r\n! c\r\n  [END X] d\r\n[SEC_GROUP]\r\n G1 G2\r\n");
    EXPECT_THAT(data.unknownLines, ElementsAre("[X]  1", "  a,\tb ", "", "! c", "  [END X] d", ""));
    EXPECT_EQ(data.RowCount(323), 1U);
}

TEST(ReaderContainer, TheBracketOfAnUnknownHeaderMayStandAnywhereInItsLine)
{
    EXPECT_THAT(ReadOnly("[X y z] 1\n[E\n").unknownLines, ElementsAre("[X y z] 1", "[E", ""));
    EXPECT_THAT(ReadOnly("[]\n[E\n").unknownLines, ElementsAre("[]", "[E", ""));
    EXPECT_THAT(ReadOnly("[\n[E\n").unknownLines, IsEmpty());
}

TEST(ReaderContainer, AtTheEndOfTheFileAnUnknownSectionGetsNoEmptyLine)
{
    EXPECT_THAT(ReadOnly("[X]\n  a\n").unknownLines, ElementsAre("[X]", "  a"));
    EXPECT_THAT(ReadOnly("[X]\n[END").unknownLines, ElementsAre("[X]", "[END", ""));
}

TEST(ReaderContainer, AStrayEndLineOpensAnUnknownSectionIfItHasItsBracket)
{
    const CSbdData data = ReadOnly("[END A]\n[SEC_GROUP]\n G1 G2\n[END B]\n[SEC_GROUP]\n G3 G4\n");
    EXPECT_THAT(data.unknownLines, ElementsAre("[END A]", "[SEC_GROUP]", " G1 G2", "[END B]", ""));
    EXPECT_THAT(TableText(data, 323), ElementsAre("G3|G4"));
    EXPECT_THAT(ReadOnly("[END\n[SEC_GROUP]\n G1 G2\n[END]\n").unknownLines, IsEmpty());
}

TEST(ReaderContainer, ASectionWithoutItsEndTakesTheNextHeaderAsARow)
{
    const CSbdData data = ReadOnly("[SEC_GROUP]\n G1 G2\n[SEC_BOX_WEB] 305\n G1 W1 W2\n");
    EXPECT_THAT(TableText(data, 323), ElementsAre("G1|G2", "[SEC_BOX_WEB]|305", "G1|W1 W2"));
    EXPECT_EQ(data.RowCount(305), 0U);
}

TEST(ReaderContainer, AnyWordThatBeginsWithTheEndMarkEndsASection)
{
    for (const char* end : {"[END SEC_GROUP]", "  [END", "[E", "[EXTRA] G3", "\t[END_X]"})
        EXPECT_THAT(TableText(ReadOnly("[SEC_GROUP]\n G1 G2\n" + std::string(end) + "\n G3 G4\n"), 323),
                    ElementsAre("G1|G2"))
            << end;
    EXPECT_EQ(ReadOnly("[SEC_GROUP]\n[end]\n").RowCount(323), 1U) << "lower case is a row";
}

TEST(ReaderContainer, SectionsComeInAnyOrder)
{
    const CSbdData data = ReadOnly("[MBD_CONTROL]\n主桁ブロックに主桁継手を含むか(YES_NO) YES\n[END]\n[SEC_CONTROL]\n"
                                   "RESET_RESULTS x NO\n[END]\n");
    EXPECT_EQ(OptionText(data, 801, 0), "YES");
    EXPECT_EQ(OptionText(data, 301, 1), "NO");
}

TEST(ReaderContainer, AProjectIsReadOnTopOfAResetWhichKeepsOptionValues)
{
    CSbdData data;
    data.SetOption(302, 0, "kept");
    data.Table(323)->AppendRow({"gone"});
    data.unknownLines = {"[gone]"};
    ReadProject(FileOf("[SEC_OPTION_SECTION]\n COMPRESSION_U_FLG x 局部\n[END]\n"), data);
    EXPECT_EQ(OptionText(data, 302, 0), "kept");
    EXPECT_EQ(OptionText(data, 302, 1), "局部");
    EXPECT_EQ(data.RowCount(323), 0U);
    EXPECT_THAT(data.unknownLines, IsEmpty());
}

// --- what is passed over -----------------------------------------------------------------------

TEST(ReaderNotes, TellEveryLineThatIsPassedOverWithItsPlace)
{
    std::vector<ReadNote> notes;
    ReadBytes(
        FileOf("TITLE:A\nstray\n[SEC_CONTROL]\n! comment\n UNKNOWN x y\n RESET_RESULTS x\n RESET_RESULTS x NO\n[END]\n"
               "[CBD_GIRDER_H]\n 自動 NO more words\n G1\n[END]\n[X]\n kept\n[END]\n[END\n"),
        &notes);
    EXPECT_EQ(Reasons(notes),
              "0/2/0/stray\n1/5/301/UNKNOWN x y\n2/6/301/RESET_RESULTS x\n3/10/511/more words\n0/16/0/[END\n");
}

TEST(ReaderNotes, AFileOfTheWritersOwnHasNone)
{
    CSbdData data = Load("TITLE:A\n[SEC_GROUP]\n G1 G2\n[END]\n[X]\n a\n[END]\n");
    data.SetOption(302, 0, "x"); // an empty one would be told
    std::vector<ReadNote> notes;
    ReadBytes(WriteProject(data), &notes);
    EXPECT_EQ(Reasons(notes), "");
}

} // namespace sbd
