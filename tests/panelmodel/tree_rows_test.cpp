#include "panelmodel/tree_rows.h"
#include "project/catalogue.h"
#include "project/sbd_data.h"
#include "project/text.h"
#include "tests/expected_totals.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace sbd {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsSupersetOf;
using testing::Not;

CSbdData ProjectOfType(std::string_view type)
{
    CSbdData data;
    data.SetOption(301, 2, Cp932(type));
    return data;
}

void AddRow(CSbdData& data, int block, const std::vector<std::string>& cells)
{
    std::vector<std::string_view> row(cells.begin(), cells.end());
    data.Table(block)->AppendRow(row);
}

void AddControlRow(CSbdData& data, int block, std::string_view value)
{
    AddRow(data, block, {Cp932("自動計算(YES_NO)"), std::string(value)});
}

void MakeBox(CSbdData& data)
{
    AddRow(data, 305, {"G1", "W1", "W2"});
}

std::vector<int> TopLevel(const std::vector<TreeRow>& rows)
{
    std::vector<int> numbers;
    for (const TreeRow& row : rows) {
        if (row.level == 0)
            numbers.push_back(row.block);
    }
    return numbers;
}

/// The items of a group; an empty list also if the group is not shown.
std::vector<int> ItemsOf(const std::vector<TreeRow>& rows, int group)
{
    std::vector<int> numbers;
    bool inside = false;
    for (const TreeRow& row : rows) {
        if (row.level == 0)
            inside = row.group && row.block == group;
        else if (inside)
            numbers.push_back(row.block);
    }
    return numbers;
}

bool Shows(const std::vector<TreeRow>& rows, int block)
{
    return std::ranges::any_of(rows, [=](const TreeRow& row) { return !row.group && row.block == block; });
}

std::string TextOf(const std::vector<TreeRow>& rows, int block, bool group)
{
    const auto row = std::ranges::find_if(rows, [=](const TreeRow& r) { return r.block == block && r.group == group; });
    return row == rows.end() ? "(not shown)" : row->text;
}

TreeView Filtered(std::set<TreeFilter> filters)
{
    return {TreeMode::Filtered, std::move(filters), TitleLanguage::Japanese, false};
}

TreeView Automatic()
{
    return {TreeMode::Automatic, {}, TitleLanguage::Japanese, false};
}

TEST(TreeRows, AWholeBridgeHasEveryGroupBetweenItsOwnItems)
{
    const std::vector<TreeRow> rows = TreeRows(CSbdData());
    EXPECT_EQ(rows.size(), expected::kTreeRows);
    EXPECT_THAT(TopLevel(rows), ElementsAre(999, 253, 254, 255, 256, 259, 290, 300, 400, 500, 520, 570, 600, 640, 670,
                                            700, 801, 481, 482, 483, 484, 485, 486, 999));
}

TEST(TreeRows, EveryBlockOfTheMenuCanBeReached)
{
    const std::vector<TreeRow> rows = TreeRows(CSbdData());
    for (const CatalogueRow& row : Catalogue()) {
        const bool secondCommand = row.block == 569 || row.block == 570; // of 521 and 522
        EXPECT_EQ(Shows(rows, row.block), !row.menuText.empty() && !secondCommand) << row.block;
    }
}

TEST(TreeRows, TheBracketLoadStandsAmongTheStringersBehindTheirOwnLoad)
{
    const std::vector<int> items = ItemsOf(TreeRows(CSbdData()), 640);
    EXPECT_THAT(std::vector<int>(items.begin(), items.begin() + 5), ElementsAre(640, 641, 642, 671, 643));
}

TEST(TreeRows, TheTypeDecidesGroupsAndTitles)
{
    struct Case {
        std::string_view type;
        std::vector<int> top;
        std::string_view title290;
        std::string_view title300;
        std::string_view title301;
    };
    const Case cases[] = {
        {"ブラケット",
         {290, 300, 670, 999},
         "290.横断線などの定義",
         "300.ブラケット自動設計MAIN_CONTROL",
         "301.ブラケット_CONTROL(必要)"},
        {"床組",
         {290, 300, 640, 670, 999},
         "290.横断線・縦桁などの定義",
         "300.床組自動設計MAIN_CONTROL",
         "301.床組_CONTROL(必要)"},
        {"縦桁",
         {290, 300, 640, 999},
         "290.横断線・縦桁などの定義",
         "300.縦桁自動設計MAIN_CONTROL",
         "301.縦桁_CONTROL(必要)"},
        {"断面1_2のみ",
         {290, 300, 999},
         "290.断面のみ場合の断面力",
         "300.断面のみ自動設計MAIN_CONTROL",
         "301.断面のみ設計条件_CONTROL(必要)"},
    };
    for (const Case& c : cases) {
        const std::vector<TreeRow> rows = TreeRows(ProjectOfType(c.type));
        EXPECT_EQ(TopLevel(rows), c.top) << c.type;
        EXPECT_EQ(TextOf(rows, 290, true), c.title290);
        EXPECT_EQ(TextOf(rows, 300, true), c.title300);
        EXPECT_EQ(TextOf(rows, 301, false), c.title301);
    }
    const std::vector<TreeRow> bridge = TreeRows(ProjectOfType("YES_歩道橋"));
    EXPECT_EQ(TextOf(bridge, 290, true), "290.主桁単独・断面力");
    EXPECT_EQ(TextOf(bridge, 301, false), "301.主桁_CONTROL(必要)");
}

TEST(TreeRows, AStringerProjectShowsNoBracketLoad)
{
    EXPECT_FALSE(Shows(TreeRows(ProjectOfType("縦桁")), 671));
    EXPECT_TRUE(Shows(TreeRows(ProjectOfType("床組")), 671));
}

TEST(TreeRows, SplicesAppearForATypeThatNamesThem)
{
    EXPECT_THAT(ItemsOf(TreeRows(ProjectOfType("断面")), 300), ElementsAre(301, 302, 303, 305, 311, 331, 332));
    EXPECT_THAT(ItemsOf(TreeRows(ProjectOfType("断面継")), 300), IsSupersetOf({341, 342, 343, 344}));
}

TEST(TreeRows, BoxItemsOfASectionProjectAppearWithABox)
{
    CSbdData data = ProjectOfType("断面");
    EXPECT_FALSE(Shows(TreeRows(data), 333));
    TreeView view;
    view.boxPanelChanged = true;
    EXPECT_TRUE(Shows(TreeRows(data, view), 333));
    MakeBox(data);
    EXPECT_TRUE(Shows(TreeRows(data), 326));
    EXPECT_TRUE(Shows(TreeRows(data), 333));
}

TEST(TreeRows, FiltersTakeTheirGroupsAndItems)
{
    const CSbdData data;
    const auto withoutBox = TreeRows(data, Filtered({TreeFilter::Box}));
    EXPECT_TRUE(ItemsOf(withoutBox, 640).empty());
    EXPECT_FALSE(Shows(withoutBox, 751));
    EXPECT_TRUE(Shows(withoutBox, 752));

    const auto withoutPlate = TreeRows(data, Filtered({TreeFilter::Plate}));
    EXPECT_FALSE(Shows(withoutPlate, 714));
    EXPECT_TRUE(Shows(withoutPlate, 721));
    EXPECT_EQ(TopLevel(withoutPlate), TopLevel(TreeRows(data)));

    EXPECT_TRUE(ItemsOf(TreeRows(data, Filtered({TreeFilter::Fem})), 600).empty());
    EXPECT_TRUE(ItemsOf(TreeRows(data, Filtered({TreeFilter::Stringer})), 640).empty());
    EXPECT_TRUE(ItemsOf(TreeRows(data, Filtered({TreeFilter::Bracket})), 670).empty());
    EXPECT_TRUE(ItemsOf(TreeRows(data, Filtered({TreeFilter::Support})), 700).empty());
    EXPECT_TRUE(ItemsOf(TreeRows(data, Filtered({TreeFilter::Drawing})), 400).empty());
}

TEST(TreeRows, TheCommonGroupGoesWithBothCrossBeamsAndLaterals)
{
    const CSbdData data;
    EXPECT_FALSE(ItemsOf(TreeRows(data, Filtered({TreeFilter::Cross})), 500).empty());
    EXPECT_FALSE(ItemsOf(TreeRows(data, Filtered({TreeFilter::Lateral})), 500).empty());
    EXPECT_TRUE(ItemsOf(TreeRows(data, Filtered({TreeFilter::Cross, TreeFilter::Lateral})), 500).empty());
}

TEST(TreeRows, FiltersDoNothingWhileEverythingIsShown)
{
    TreeView view = Filtered({TreeFilter::Box, TreeFilter::Cross, TreeFilter::Drawing});
    view.mode = TreeMode::Everything;
    EXPECT_EQ(TreeRows(CSbdData(), view), TreeRows(CSbdData()));
}

TEST(TreeRows, TheAutomaticModeFollowsTheDesignSwitches)
{
    CSbdData data = ProjectOfType("YES");
    for (const std::size_t row : {3u, 4u, 5u, 6u})
        data.SetOption(301, row, "NO");
    EXPECT_TRUE(Shows(TreeRows(data, Automatic()), 531));

    data.SetOption(301, 3, "YES"); // no cross beams
    EXPECT_FALSE(Shows(TreeRows(data, Automatic()), 531));
    EXPECT_FALSE(Shows(TreeRows(data, Automatic()), 561));
    EXPECT_TRUE(Shows(TreeRows(data, Automatic()), 541));
    EXPECT_THAT(TopLevel(TreeRows(data, Automatic())), Contains(520));

    data.SetOption(301, 4, "YES"); // no sway bracing either
    EXPECT_THAT(TopLevel(TreeRows(data, Automatic())), Not(Contains(520)));
    EXPECT_THAT(TopLevel(TreeRows(data, Automatic())), Contains(500));

    data.SetOption(301, 5, "YES"); // no laterals
    EXPECT_THAT(TopLevel(TreeRows(data, Automatic())), Not(Contains(500)));
    EXPECT_THAT(TopLevel(TreeRows(data, Automatic())), Not(Contains(570)));

    data.SetOption(301, 6, "YES"); // no support stiffeners
    EXPECT_THAT(TopLevel(TreeRows(data, Automatic())), Not(Contains(700)));
}

TEST(TreeRows, TheAutomaticModeTellsPlateGirdersFromBoxGirders)
{
    CSbdData data = ProjectOfType("YES");
    data.SetOption(301, 5, "NO");
    data.SetOption(301, 6, "NO");
    const auto plate = TreeRows(data, Automatic());
    EXPECT_FALSE(Shows(plate, 324));
    EXPECT_FALSE(Shows(plate, 721));
    EXPECT_TRUE(Shows(plate, 701));
    EXPECT_TRUE(Shows(plate, 483));

    MakeBox(data);
    const auto box = TreeRows(data, Automatic());
    EXPECT_TRUE(Shows(box, 324));
    EXPECT_TRUE(Shows(box, 721));
    EXPECT_FALSE(Shows(box, 701));
    EXPECT_FALSE(Shows(box, 483)) << "neither in its group nor below the groups";
    EXPECT_THAT(TopLevel(box), Not(Contains(570)));
}

TEST(TreeRows, ATitleHasThreeForms)
{
    const std::string_view title = "301.主桁_CONTROL[SEC_CONTROL] (必要)";
    EXPECT_EQ(TitleIn(TitleLanguage::Japanese, title), "301.主桁_CONTROL(必要)");
    EXPECT_EQ(TitleIn(TitleLanguage::English, title), "301.[SEC_CONTROL] (必要)");
    EXPECT_EQ(TitleIn(TitleLanguage::EnglishAndJapanese, title), title);
}

TEST(TreeRows, TitlesWithoutATagOrWithoutAPointKeepTheirForm)
{
    EXPECT_EQ(TitleIn(TitleLanguage::English, "999.KELD_検索_Q_&_A"), "999."); // the tree adds a word
    EXPECT_EQ(TitleIn(TitleLanguage::Japanese, "999.KELD_検索_Q_&_A"), "999.KELD_検索_Q_&_A");
    EXPECT_EQ(TitleIn(TitleLanguage::English, "396継手部面外 SY (kN)[SPL_SF_SY]"), "396継[SPL_SF_SY]");
    EXPECT_EQ(TitleIn(TitleLanguage::English, "421.伸縮孔寸法列数[DRAW_EXPANSION] "), "421.[DRAW_EXPANSION]");
}

TEST(TreeRows, NoItemIsANumberAloneInAnyLanguage)
{
    for (const TitleLanguage language :
         {TitleLanguage::English, TitleLanguage::Japanese, TitleLanguage::EnglishAndJapanese}) {
        TreeView view;
        view.language = language;
        for (const TreeRow& row : TreeRows(CSbdData(), view))
            EXPECT_GT(row.text.size(), 5U) << row.text;
    }
}

TEST(TreeRows, TheLanguageIsReadWhateverItsCase)
{
    EXPECT_EQ(TitleLanguageOf("ENGLISH"), TitleLanguage::English);
    EXPECT_EQ(TitleLanguageOf("englishandjapanese"), TitleLanguage::EnglishAndJapanese);
    EXPECT_EQ(TitleLanguageOf("Japanese"), TitleLanguage::Japanese);
    EXPECT_EQ(TitleLanguageOf("Deutsch"), TitleLanguage::Japanese);
    EXPECT_EQ(TitleLanguageOf(""), TitleLanguage::Japanese);
}

TEST(TreeRows, CommandsStandForModesAndFilters)
{
    EXPECT_EQ(TreeModeOf(Command::ShowItemsOfProject), TreeMode::Automatic);
    EXPECT_EQ(TreeModeOf(Command::HideBox), std::nullopt);
    EXPECT_EQ(TreeFilterOf(Command::HideBox), TreeFilter::Box);
    EXPECT_EQ(TreeFilterOf(Command::ShowItemsOfProject), std::nullopt);
}

TEST(TreeMarks, ATableIsBoldWithADataRowAndAControlRowThatSaysNo)
{
    CSbdData data;
    EXPECT_FALSE(HasInputInForce(data, 503));
    AddControlRow(data, 503, "NO");
    EXPECT_FALSE(HasInputInForce(data, 503)) << "the control row alone is no input";
    AddRow(data, 503, {"G1", "S1", "S2"});
    EXPECT_TRUE(HasInputInForce(data, 503));

    AddControlRow(data, 523, "YES");
    AddRow(data, 523, {"S1", "S2"});
    EXPECT_FALSE(HasInputInForce(data, 523)) << "worked out by the engine";
}

TEST(TreeMarks, TheOneColumnOf412HoldsTheSwitchItself)
{
    CSbdData data;
    AddRow(data, 412, {"NO"});
    AddRow(data, 412, {"L1"});
    EXPECT_TRUE(HasInputInForce(data, 412));
    data.Table(412)->columns[0].Set(0, "YES");
    EXPECT_FALSE(HasInputInForce(data, 412));
}

TEST(TreeMarks, AnAliasIsBoldWithTheBlockBehindIt)
{
    CSbdData data;
    AddControlRow(data, 713, "NO");
    AddRow(data, 713, {"G1"});
    AddRow(data, 405, {"G1"});
    for (const int shown : {406, 713, 733, 405, 712, 732})
        EXPECT_TRUE(HasInputInForce(data, shown)) << shown;
    EXPECT_FALSE(HasInputInForce(data, 722));
}

TEST(TreeMarks, NameListsAreBoldWithNamesThatWereTypedIn)
{
    CSbdData data;
    EXPECT_FALSE(HasInputInForce(data, 702));
    data.Names(702)->lists = {{"G1", "G2"}, {}, {}, {}};
    EXPECT_FALSE(HasInputInForce(data, 702));
    data.Names(702)->autoValue = "NO";
    EXPECT_TRUE(HasInputInForce(data, 702));
    EXPECT_TRUE(HasInputInForce(data, 722));
}

TEST(TreeMarks, EachBlockHasItsOwnLeastNumberOfRows)
{
    const std::pair<int, std::size_t> firstBold[] = {{405, 1}, {315, 2}, {322, 3}, {402, 3}, {511, 4}, {672, 4}};
    for (const auto& [block, rows] : firstBold) {
        CSbdData data;
        while (data.RowCount(block) + 1 < rows)
            AddRow(data, block, {"G1"});
        EXPECT_FALSE(HasInputInForce(data, block)) << block;
        AddRow(data, block, {"G1"});
        EXPECT_TRUE(HasInputInForce(data, block)) << block;
    }
}

TEST(TreeMarks, TheNineRowsOf421AreNeverBold)
{
    EXPECT_FALSE(HasInputInForce(CSbdData(), 421));
}

TEST(TreeMarks, NoGroupHeadIsBold)
{
    for (const TreeRow& row : TreeRows(CSbdData()))
        EXPECT_FALSE(row.group && row.bold) << row.text;
}

TEST(TreeKey, ChangesWithTypeSwitchesAndBoxAlone)
{
    CSbdData data;
    const std::string before = TreeKey(data);
    AddRow(data, 405, {"G1"});
    data.SetOption(301, 7, "another");
    EXPECT_EQ(TreeKey(data), before);
    data.SetOption(301, 6, "another");
    EXPECT_NE(TreeKey(data), before);

    CSbdData box;
    MakeBox(box);
    EXPECT_NE(TreeKey(box), before);
}

} // namespace
} // namespace sbd
