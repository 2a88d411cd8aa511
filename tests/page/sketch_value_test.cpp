// Values of the project in the labels of sketches, links, and the current value under a heading.
#include "project/sbd_data.h"
#include "project/text.h"
#include "upperview/page/page_drawing.h"
#include "upperview/page/page_link.h"
#include "upperview/page/page_parser.h"
#include "upperview/page/page_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace sbd;
using namespace sbd::literals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// 313 with an automatic row and one row of data.
CSbdData DataWith(std::string_view width, std::string_view spacings = "2.5")
{
    CSbdData data;
    TableBlock& table = *data.Table(313);
    table.AppendRow({"auto", "YES_1", "", "", "", "777"});
    table.AppendRow({"G1", "G2", "C1", "C2", "I", width, "9", "2", spacings});
    return data;
}

std::vector<std::string> LabelsOf(const std::string& elements, const CSbdData& data, int row, int column = 1)
{
    const ParsedPage parsed =
        ParsePage("[[branch]]\nsketches = ['a']\n[sketch.a]\nsize = [1000, 400]\ndraw = [" + elements + "]\n", 313);
    EXPECT_THAT(parsed.faults, IsEmpty());
    CDrawRecorder recorder;
    DrawSketch(recorder, parsed.page.sketches.at("a"), {data, 313, row, column}, {0, 0});
    std::vector<std::string> labels;
    for (const Primitive& primitive : recorder.Primitives())
        if (primitive.kind == PrimitiveKind::Text)
            labels.push_back(FromCp932(primitive.text));
    return labels;
}

const std::string kWidth = "['dim', 100, -50, 500, -50, '幅1', { col = [6] }]";

} // namespace

TEST(SketchValue, ADimensionOfOneColumnShowsTheCellOfTheCurrentRow)
{
    EXPECT_THAT(LabelsOf(kWidth, DataWith("130"), 2), ElementsAre("幅1=130"));
    EXPECT_THAT(LabelsOf(kWidth, DataWith(" 130 "), 2, 6), ElementsAre("幅1=130")); // in red, once
    EXPECT_THAT(LabelsOf(kWidth, DataWith(""), 2), ElementsAre("幅1"));
    EXPECT_THAT(LabelsOf(kWidth, DataWith("130"), 3), ElementsAre("幅1"));
    EXPECT_THAT(LabelsOf("['dim', 100, -50, 500, -50, '幅', { col = [6, 7] }]", DataWith("130"), 2), ElementsAre("幅"));
}

TEST(SketchValue, TheAutomaticRowHoldsNoValueOfAColumn)
{
    EXPECT_THAT(LabelsOf(kWidth, DataWith("130"), 1), ElementsAre("幅1"));
}

TEST(SketchValue, AKeySwitchesTheValueOffAndForATextOn)
{
    EXPECT_THAT(LabelsOf("['dim', 100, -50, 500, -50, '幅1', { col = [6], value = false }]", DataWith("130"), 2),
                ElementsAre("幅1"));
    EXPECT_THAT(LabelsOf("['text', 100, -50, '厚1', { col = [7] }]", DataWith("130"), 2), ElementsAre("厚1"));
    EXPECT_THAT(LabelsOf("['text', 100, -50, '厚1', { col = [7], value = true }]", DataWith("130"), 2),
                ElementsAre("厚1=9"));
}

TEST(SketchValue, APartOfAListHasNoValue)
{
    const std::string spacings = "['dim', 0, -50, 200, -50, '間隔1', { col = [9] }],"
                                 "['dim', 300, -50, 500, -50, '間隔2', { col = [9] }]";
    EXPECT_THAT(LabelsOf(spacings, DataWith("130"), 2), ElementsAre("間隔1", "間隔2"));
    const std::string one = "['dim', 100, -50, 500, -50, '間隔', { col = [9] }]";
    EXPECT_THAT(LabelsOf(one, DataWith("130", "2.5"), 2), ElementsAre("間隔=2.5"));
    EXPECT_THAT(LabelsOf(one, DataWith("130", "2.5, 3"), 2), ElementsAre("間隔"));
    EXPECT_THAT(LabelsOf(one, DataWith("130", "2.5 3"), 2), ElementsAre("間隔"));
    EXPECT_THAT(LabelsOf(one, DataWith("130", "123456789"), 2), ElementsAre("間隔"));
}

TEST(SketchValue, AValueWithoutRoomIsLeftOut)
{
    EXPECT_THAT(LabelsOf(kWidth + ", ['line', 330, 0, 330, -400]", DataWith("130"), 2), ElementsAre("幅1"));
    EXPECT_THAT(LabelsOf(kWidth + ", ['text', 330, -60, 'x']", DataWith("130"), 2), ElementsAre("幅1", "x"));
    EXPECT_THAT(LabelsOf("['dim', 960, -50, 960, -300, 'B', { col = [6] }]", DataWith("130"), 2), ElementsAre("B"));
}

TEST(SketchValue, ALabelQuotesTheProject)
{
    EXPECT_THAT(LabelsOf("['text', 100, -50, '幅 @{cell:6} mm']", DataWith("130"), 2), ElementsAre("幅 130 mm"));
}

TEST(SketchValue, TheRecordsOfRibsAndHeightsHaveCellsToo)
{
    CSbdData data;
    data.hGirder.types[0] = "桁高に含む"_cp932;
    data.hGirder.records.push_back(
        {{"G1", "G2", "C1", "C2"}, {1.9, 2.25, kNotGiven, kNotGiven, kNotGiven, kNotGiven, kNotGiven}});
    CrossRibRecord rib;
    rib.names = {"G1", "G2", "C1", "C2", "LFLG"};
    rib.sizes = {150, 12, 200, 0};
    rib.n = 2;
    rib.left.numbers = {1.5, 2};
    data.crossRibs.push_back(rib);
    LRibRecord along;
    along.n1 = 3;
    along.right.word = "等間隔"_cp932;
    data.lRibs.push_back(along);
    data.Names(501)->lists = {{"G1"}, {"C1", "C2"}, {}};
    EXPECT_EQ(FromCp932(CellText(data, 311, 1, 2)), "桁高に含む");
    EXPECT_EQ(CellText(data, 311, 5, 1), "G1");
    EXPECT_EQ(CellText(data, 311, 5, 6), "2.25");
    EXPECT_EQ(CellText(data, 311, 5, 7), "");
    EXPECT_EQ(CellText(data, 324, 2, 6), "150");
    EXPECT_EQ(CellText(data, 324, 2, 10), "2");
    EXPECT_EQ(CellText(data, 324, 2, 11), "1.5, 2");
    EXPECT_EQ(CellText(data, 325, 2, 6), "3");
    EXPECT_EQ(FromCp932(CellText(data, 325, 2, 9)), "等間隔");
    EXPECT_EQ(CellText(data, 501, 3, 2), "C2");
    for (const int block : {311, 324, 325, 501, 702})
        for (const int row : {-1, 0, 99})
            for (const int column : {-1, 0, 13, 99})
                EXPECT_EQ(CellText(data, block, row, column), "") << block;
}

TEST(PageLink, ABlockInBracketsIsALink)
{
    const auto blocks = [](std::string_view text) {
        std::vector<int> found;
        for (const TextLink& link : LinksOf(Cp932(text)))
            found.push_back(link.block);
        return found;
    };
    EXPECT_THAT(blocks("「313」と「314.支点上（格点上）垂直補剛材」です．"), ElementsAre(313, 314));
    EXPECT_THAT(blocks("「321．継手」"), ElementsAre(321));
    EXPECT_THAT(blocks("「31」「3134」「SM400」「-H」」「"), IsEmpty());
    EXPECT_THAT(blocks("「あ「313」"), ElementsAre(313));
    const std::string line = "ソ「313」"_cp932; // its second byte is a backslash
    const std::vector<TextLink> links = LinksOf(line);
    ASSERT_EQ(links.size(), 1U);
    EXPECT_EQ(line.substr(links[0].start, links[0].length), "313");
}

TEST(PageLink, ThePlaceOfALinkIsItsWordsButForThatToThePageItself)
{
    const CSbdData data;
    const ParsedPage parsed = ParsePage("[[branch]]\ntext = '''\nxx「313」「314」「406」\n'''\n", 313);
    CDrawRecorder recorder;
    const PageExtent extent = DrawPage(recorder, parsed.page, {data, 313, 2, 1});
    ASSERT_EQ(extent.links.size(), 2U);
    EXPECT_EQ(extent.links[0].block, 314);
    EXPECT_EQ(extent.links[0].box.left, 20 + (2 + 2 + 3 + 2 + 2) * 19);
    EXPECT_EQ(extent.links[0].box.right, extent.links[0].box.left + 3 * 19);
    EXPECT_EQ(extent.links[0].box.top, -10 - 2 * 38);
    EXPECT_EQ(extent.links[1].block, 406);
}

TEST(PageText, TheCurrentValueStandsUnderTheHeadingOnce)
{
    CSbdData data;
    const auto lines = [&](const std::string& text) {
        const ParsedPage parsed =
            ParsePage("[[branch]]\nrows = [1]\nblue = [3]\ntext = '''\n" + text + "\n'''\n[[branch]]\n", 310);
        return PageText(parsed.page, {data, 310, 1, 2});
    };
    EXPECT_EQ(FromCp932(lines("説明")[3].text), "    20  <--- 現在の入力");
    EXPECT_EQ(FromCp932(lines("説明")[4].text), "説明");
    EXPECT_EQ(lines("説明")[4].colour, colours::kBlue); // a page file does not count the line
    EXPECT_EQ(lines("説明")[3].colour, colours::kBlack);
    data.SetOption(310, 0, "25");
    EXPECT_EQ(FromCp932(lines("説明")[3].text), "    25  <--- 現在の入力");
    data.SetOption(310, 0, "");
    EXPECT_EQ(FromCp932(lines("説明")[3].text), "    (空白)  <--- 現在の入力");
    EXPECT_EQ(FromCp932(lines("値： @{310:1}  <--- 現在の入力")[3].text), "値： (空白)  <--- 現在の入力");
    EXPECT_EQ(lines("値 @{310:1}").size(), 4U); // the text quotes it itself
    EXPECT_EQ(lines("値 @{310:2}").size(), 5U);
}
