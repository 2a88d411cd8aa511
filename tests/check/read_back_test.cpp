// What comes back from the file with another text.
#include "check/read_back.h"
#include "panelmodel/panel_editor.h"
#include "tests/sbdfile/sections.h"
#include "tests/seed.h"
#include "tests/surroundings.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

namespace sbd {

namespace {

using namespace literals;
using testing::ElementsAre;
using testing::IsEmpty;

CSbdData Example(const std::string& name)
{
    std::ifstream file(std::string(test::ExamplesFolder()) + "/" + name + "/" + name + ".sbd", std::ios::binary);
    return LoadBytes(std::string(std::istreambuf_iterator<char>(file), {}));
}

/// A cell as "314/2/5 180>19", UTF-8.
std::string Told(const ReturnedCell& cell)
{
    return std::to_string(cell.block) + "/" + std::to_string(cell.row) + "/" + std::to_string(cell.column) + " "
           + FromCp932(cell.is) + ">" + FromCp932(cell.returns);
}

std::vector<std::string> Told(std::span<const ReturnedCell> cells)
{
    std::vector<std::string> texts;
    for (const ReturnedCell& cell : cells)
        texts.push_back(Told(cell));
    return texts;
}

std::vector<std::string> Returned(const CSbdData& data)
{
    return Told(ReturnedCells(data));
}

std::vector<ChangedRow> Edit(CSbdData& data, int block, int row, int column, std::string_view utf8)
{
    const std::unique_ptr<CPanelModel> panel = MakePanelModel(data, block);
    CPanelEditor(*panel).SetCell(row, column, Cp932(utf8));
    return CommitPanel(*panel, data);
}

constexpr std::string_view kStiffeners =
    "[SEC_S_STIFF]\n 自動 YES\n G1 G4 S1 S1 I桁両側 180 19 SM400\n G1 G4 S2 S2 I桁両側 220 25 SM400\n[END]\n";

} // namespace

TEST(ReadBack, ASampleComesBackAsItIs)
{
    for (const char* name : {"plate4", "box2", "single1"}) {
        CReadBack back;
        back.Reset(Example(name));
        EXPECT_EQ(back.Count(), 0U) << name;
        EXPECT_THAT(Returned(Example(name)), IsEmpty()) << name;
    }
}

TEST(ReadBack, AnEmptyCellInFrontOfFilledOnesMovesThem)
{
    CSbdData data = Load(kStiffeners);
    Edit(data, 314, 2, 7, "");
    EXPECT_THAT(Returned(data), ElementsAre("314/2/7 >SM400", "314/2/8 SM400>"));
}

TEST(ReadBack, ARowThatBecomesAnotherLineIsLostAndTheRowsBehindItAreComparedWithTheirOwn)
{
    CSbdData data = Load(kStiffeners);
    Edit(data, 314, 2, 1, "!G1");
    EXPECT_THAT(Returned(data), ElementsAre("314/2/1 !G1>", "314/2/2 G4>", "314/2/3 S1>", "314/2/4 S1>",
                                            "314/2/5 I桁両側>", "314/2/6 180>", "314/2/7 19>", "314/2/8 SM400>"));
}

TEST(ReadBack, AnEndSignInAFirstCellTakesTheNextSectionWithIt)
{
    CSbdData data = Load("[SEC_S_STIFF]\n 自動 YES\n G1 G4\n[END]\n[SEC_GROUP]\n G1 G4\n[END]\n");
    CReadBack back;
    back.Reset(data);
    ASSERT_EQ(back.Count(), 0U);
    back.Update(data, Edit(data, 314, 2, 1, "[E"));
    EXPECT_THAT(Told(back.CellsOf(314)), ElementsAre("314/2/1 [E>", "314/2/2 G4>"));
    EXPECT_THAT(Told(back.CellsOf(323)), ElementsAre("323/1/1 G1>", "323/1/2 G4>")) << "no edit touched it";
    back.Update(data, Edit(data, 314, 2, 1, "G1"));
    EXPECT_EQ(back.Count(), 0U) << "and back again";
}

TEST(ReadBack, AnEmptiedOptionValueReturnsAsItsDefault)
{
    CSbdData data = Load("");
    const std::string before(data.Option(302, 1));
    Edit(data, 302, 2, 2, "");
    EXPECT_THAT(Returned(data), ElementsAre("302/2/2 >" + FromCp932(before)));
}

TEST(ReadBack, AValueThatAnotherBlockRulesReturnsAsThatOne)
{
    CSbdData data = Load("[CBD_GIRDER_H]\n G1 G4 S1 S4 2200\n[END]\n");
    CReadBack back;
    back.Reset(data);
    back.Update(data, Edit(data, 511, 2, 2, "NO"));
    EXPECT_THAT(Told(back.CellsOf(511)), ElementsAre("511/2/2 NO>YES"));
    // The block that rules is changed, the one that is ruled is looked at again.
    data.hGirder.records.emplace_back();
    data.hGirder.records[0].names = {"G1", "G4", "S1", "S4"};
    data.hGirder.records[0].numbers[0] = 2.2;
    data.hGirder.types[0] = "桁高に含まない"_cp932;
    back.Update(data, std::vector<ChangedRow>{{311, -1}});
    EXPECT_THAT(Told(back.CellsOf(511)), IsEmpty());
}

TEST(ReadBack, TheSwitchOfABlockWithoutOtherRowsIsLost)
{
    CSbdData data = Load("");
    Edit(data, 314, 1, 2, "NO");
    EXPECT_THAT(Returned(data), ElementsAre("314/1/2 NO>YES"));
}

TEST(ReadBack, RowsTypedBelowAnAutomaticRowComeBackBehindTheHeadRowsThatTheLoadPutsIn)
{
    CSbdData data = Load("");
    Edit(data, 672, 2, 1, "A2");
    EXPECT_THAT(TableText(data, 672), ElementsAre("自動計算(YES_NO)|YES", "A2"));
    EXPECT_THAT(Returned(data), IsEmpty()) << "the row comes back as it is, as row 4";
}

TEST(ReadBack, SpacingsFewerThanTheCountComeBackWithZeros)
{
    CSbdData data = Load("[SEC_NUMBER_L_RIB]\n G1 G2 S1 LFLG 1 3 2 0.5 0.6 0.7 0.4 0.5\n[END]\n");
    const std::unique_ptr<CPanelModel> panel = MakePanelModel(data, 325);
    CPanelEditor(*panel).SetCell(2, 8, "0.5");
    const ShownBlock shown = Show(*panel);
    CommitPanel(*panel, data);
    EXPECT_THAT(Told(ReturnedCells(data, std::vector{shown})), ElementsAre("325/2/8 0.5>0.5, 0, 0"));
    EXPECT_THAT(Returned(data), IsEmpty()) << "the data hold the zeros once the panel is closed";
}

TEST(ReadBack, ARowWithoutItsFirstCellIsToldWhileItsPanelIsOpen)
{
    CSbdData data = Load(kStiffeners);
    const std::unique_ptr<CPanelModel> panel = MakePanelModel(data, 314);
    CPanelEditor(*panel).SetCell(2, 1, "");
    const ShownBlock shown = Show(*panel);
    CommitPanel(*panel, data);
    const std::vector<std::string> told = Told(ReturnedCells(data, std::vector{shown}));
    ASSERT_EQ(told.size(), 7U);
    EXPECT_EQ(told.front(), "314/2/2 G4>");
    EXPECT_EQ(told.back(), "314/2/8 SM400>");
}

TEST(ReadBack, ABlockThatIsHeldBackReturnsItsDefaults)
{
    CSbdData data = Load("");
    data.SetOption(301, 0, "BRIDGE");
    data.SetOption(301, 1, "<?>");
    const std::vector<std::string> told = Returned(data);
    ASSERT_EQ(told.size(), 2U);
    EXPECT_THAT(told[0], testing::StartsWith("301/1/2 BRIDGE>"));
    EXPECT_THAT(told[1], testing::StartsWith("301/2/2 <?>>"));
}

// --- looking at changed blocks alone ---------------------------------------------------------------

namespace {

/// Texts that are likely to come back as others, and some that are not.
std::string RandomText(std::mt19937_64& random)
{
    static const std::vector<std::string> texts = {"",
                                                   "",
                                                   "G1",
                                                   "S2",
                                                   "12.5",
                                                   " ",
                                                   " 9",
                                                   "9 ",
                                                   "a b",
                                                   "a,b",
                                                   "，",
                                                   "、x",
                                                   "　",
                                                   "!x",
                                                   "[E",
                                                   "[END SEC_GROUP]",
                                                   "[X]",
                                                   "最大9",
                                                   "DZ_TYPE9",
                                                   "NEW_VERSION_1",
                                                   "自動計算(YES_NO)",
                                                   "NO",
                                                   "YES, 3",
                                                   "y",
                                                   "内面",
                                                   "-->(荷重名は無効)",
                                                   "?",
                                                   "等間隔",
                                                   "主桁 3",
                                                   "入力方法",
                                                   "継手長",
                                                   "線形(入力)",
                                                   "桁高に含まない",
                                                   "<?>",
                                                   "TITLE:T",
                                                   "YES_MAIN_LOAD",
                                                   "[SEC_GROUP] 323",
                                                   "ソ能",
                                                   "ｱｲｳ"};
    return Cp932(texts[random() % texts.size()]);
}

} // namespace

class ReadBackRandom : public RandomTest {};

TEST_F(ReadBackRandom, LookingAtChangedRowsTellsWhatLookingAtEverythingTells)
{
    const std::span<const int> blocks = ShownBlocks();
    for (const char* name : {"plate4", "box2", ""}) {
        CSbdData data = *name != '\0' ? Example(name) : CSbdData();
        CReadBack back;
        back.Reset(data);
        for (int step = 0; step < 60; ++step) {
            const int block = blocks[UpTo(blocks.size() - 1)];
            const std::unique_ptr<CPanelModel> panel = MakePanelModel(data, block);
            CPanelEditor editor(*panel);
            const std::size_t edits = 1 + UpTo(2);
            std::string what;
            for (std::size_t i = 0; i < edits; ++i) {
                const int row = 1 + static_cast<int>(UpTo(static_cast<std::size_t>(panel->BlockRows()) + 1));
                const int column = 1 + static_cast<int>(UpTo(static_cast<std::size_t>(panel->ColumnCount()) - 2));
                const std::string text = RandomText(random);
                editor.SetCell(row, column, text);
                what += std::to_string(block) + "/" + std::to_string(row) + "/" + std::to_string(column) + " "
                        + FromCp932(text) + "; ";
            }
            back.Update(data, CommitPanel(*panel, data));
            std::map<int, std::vector<std::string>> whole;
            for (const ReturnedCell& cell : ReturnedCells(data))
                whole[cell.block].push_back(Told(cell));
            std::map<int, std::vector<std::string>> parts;
            for (const int told : back.Blocks())
                parts[told] = Told(back.CellsOf(told));
            ASSERT_EQ(parts, whole) << name << " step " << step << ": " << what;
        }
    }
}

TEST_F(ReadBackRandom, NoProjectOfAnyBytesIsTooMuchForIt)
{
    const std::string source = WriteProject(*std::make_unique<CSbdData>(Example("box2")));
    for (int run = 0; run < 8; ++run) {
        std::string bytes = source;
        for (int i = 0; i < 300; ++i) {
            const std::size_t place = UpTo(bytes.size() - 1);
            if (UpTo(3) == 0)
                bytes.erase(place, UpTo(40));
            else
                bytes[place] = static_cast<char>(UpTo(255));
        }
        CSbdData data = LoadBytes(bytes);
        CReadBack back;
        back.Reset(data);
        std::map<int, std::vector<std::string>> whole;
        for (const ReturnedCell& cell : ReturnedCells(data))
            whole[cell.block].push_back(Told(cell));
        std::map<int, std::vector<std::string>> parts;
        for (const int told : back.Blocks())
            parts[told] = Told(back.CellsOf(told));
        ASSERT_EQ(parts, whole);
    }
}

} // namespace sbd
