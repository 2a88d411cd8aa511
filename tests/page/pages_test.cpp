// The pages as they are built in.
#include "project/block_rules.h"
#include "project/option_rows.h"
#include "project/sbd_data.h"
#include "project/text.h"
#include "tests/share.h"
#include "upperview/page/page_families.h"
#include "upperview/page/page_parser.h"
#include "upperview/page/page_report.h"
#include "upperview/page/page_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <span>
#include <sstream>

using namespace sbd;
using namespace sbd::literals;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

struct Drawn {
    CDrawRecorder recorder;
    PageExtent extent;

    [[nodiscard]] bool HasRedLine() const
    {
        return std::ranges::any_of(recorder.Primitives(), [](const Primitive& primitive) {
            return primitive.kind != PrimitiveKind::Text && CDrawRecorder::IsRed(primitive);
        });
    }
    [[nodiscard]] std::string Text() const
    {
        std::string text;
        for (const Primitive& primitive : recorder.Primitives())
            if (primitive.kind == PrimitiveKind::Text)
                text += FromCp932(primitive.text) + "\n";
        return text;
    }
    /// Red primitives, the red of the text lines left out.
    [[nodiscard]] std::size_t RedBelow(int y) const
    {
        return static_cast<std::size_t>(std::ranges::count_if(recorder.Primitives(), [&](const Primitive& primitive) {
            return CDrawRecorder::IsRed(primitive) && primitive.points.front().y < y;
        }));
    }
};

Drawn Draw(const CSbdData& data, int block, int row, int column)
{
    Drawn drawn;
    const Page* page = FindPage(block);
    EXPECT_NE(page, nullptr) << block;
    if (page != nullptr)
        drawn.extent = DrawPage(drawn.recorder, *page, {data, block, row, column});
    return drawn;
}

int LastRow(int block)
{
    const OptionBlock* options = FindOptionBlock(block);
    return options == nullptr ? 3 : static_cast<int>(options->rows.size());
}

/// Projects in which pages take their other forms.
std::vector<CSbdData> Projects()
{
    std::vector<CSbdData> projects(4);
    projects[1].SetOption(301, 2, "断面1のみ"_cp932);
    projects[2].hGirder.types[3] = "２次"_cp932;
    for (const int block : {321, 322}) {
        for (const std::string& cell : {std::string("12"), "継手長"_cp932})
            projects[2].Append(block, 1, cell);
    }
    for (const int block : {333, 334, 342})
        for (int row = 0; row < 3; ++row)
            projects[2].Append(block, 5, "LFLG");
    projects[3].SetOption(301, 2, "ブラケット"_cp932);
    projects[3].hGirder.types[3] = "直線"_cp932;
    return projects;
}

} // namespace

TEST(Pages, EveryPageDrawsForEveryRowAndColumn)
{
    for (const CSbdData& data : Projects())
        for (const int block : BlocksWithPage())
            for (int row = -1; row <= LastRow(block) + 1; ++row)
                for (int column = -1; column <= GridColumns(block) + 1; ++column) {
                    const Drawn drawn = Draw(data, block, row, column);
                    if (block == 999)
                        continue; // an empty table shows nothing
                    ASSERT_FALSE(drawn.recorder.Primitives().empty()) << block << " row " << row;
                    ASSERT_GT(drawn.extent.height, 0) << block;
                }
}

TEST(Pages, EveryBlockHasAPageThatWasWrittenForIt)
{
    for (const int block : BlocksWithPage())
        EXPECT_TRUE(FindPage(block)->full) << block;
}

TEST(Pages, ASecondNumberOfABlockShowsThePageOfThatBlock)
{
    for (const auto& [number, block] :
         {std::pair{569, 521}, {570, 522}, {361, 521}, {406, 713}, {722, 702}, {313, 313}}) {
        EXPECT_EQ(PageBlock(number), block) << number;
        EXPECT_TRUE(HasPage(block)) << block;
        EXPECT_EQ(HasPage(number), number == block) << number;
    }
}

TEST(Pages, NoLabelLeavesThePageOrStandsInTheWayAtAnyPaneWidth)
{
    std::set<std::string> faults; // each once, whatever the row and the width
    for (const int block : BlocksWithPage()) {
        if (!test::IsOfThisShare(block))
            continue;
        const Page& page = *FindPage(block);
        for (const CSbdData& data : FormsOf(page, block))
            for (int row = 0; row <= LastRow(block); ++row)
                for (int column = 0; column <= GridColumns(block); ++column)
                    // Every column at one width; the other widths move the sketches as a whole.
                    for (const int width : column == 0 ? std::vector{400, 700, 1500} : std::vector{700}) {
                        CDrawRecorder recorder;
                        const PageExtent extent = DrawPage(recorder, page, {data, block, row, column, width, 500});
                        for (const std::string& fault : LabelFaults(recorder, extent, true))
                            faults.insert(std::to_string(block) + ": " + fault);
                    }
    }
    EXPECT_TRUE(faults.empty()) << [&] {
        std::string list;
        for (const std::string& fault : faults)
            list += fault + "\n";
        return list;
    }();
}

TEST(Pages, EveryConditionOnACellIsSeenInOneOfTheForms)
{
    const Page& page = *FindPage(551); // せん断, 上下曲げ, 上曲げ, 下曲げ, 仕口
    std::set<std::string> seen;
    for (const CSbdData& data : FormsOf(page, 551))
        for (const auto& [name, sketch] : page.sketches)
            for (const SketchElement& element : sketch.elements)
                if (!element.when.tests.empty() && element.when.Holds({data, 551, 2, 1}))
                    seen.insert(element.when.source);
    std::set<std::string> all;
    for (const auto& [name, sketch] : page.sketches)
        for (const SketchElement& element : sketch.elements)
            if (!element.when.tests.empty())
                all.insert(element.when.source);
    EXPECT_EQ(seen, all);
    EXPECT_GT(all.size(), 3U);
}

TEST(Pages, AnExplainedColumnIsRedAndTheAnchorAnyOtherIsNot)
{
    const CSbdData data;
    for (const int block : BlocksWithPage()) {
        if (FindOptionBlock(block) != nullptr || !FindPage(block)->full)
            continue;
        const int row = std::max(2, WordRowsOf(block) + 1); // a row of data: head rows are explained by row
        const int textEnd = Draw(data, block, row, 0).extent.height;
        for (int column = 1; column <= GridColumns(block); ++column) {
            const Page& page = *FindPage(block);
            const PageView view{data, block, row, column};
            bool explained = false;
            for (const std::string& name : page.BranchOf(view)->sketches) {
                const Sketch& sketch = *FindSketch(page, name);
                for (const SketchElement& element : sketch.elements)
                    explained = explained
                                || (sketch.when.Holds(view) && element.when.Holds(view)
                                    && std::ranges::find(element.columns, column) != element.columns.end());
            }
            const Drawn drawn = Draw(data, block, row, column);
            const Drawn plain = Draw(data, block, row, 0);
            EXPECT_EQ(drawn.extent.anchor > 1, explained) << block << " column " << column;
            EXPECT_EQ(drawn.RedBelow(0) > plain.RedBelow(0), explained) << block << " column " << column;
            EXPECT_LT(drawn.extent.anchor, textEnd) << block;
        }
    }
}

TEST(Pages, NoFamilyFallsBelowItsFloor)
{
    std::map<const PageFamily*, PageSum> sums;
    for (const int block : BlocksWithPage()) {
        ASSERT_NE(FamilyOf(block), nullptr) << block;
        sums[FamilyOf(block)] += ReportOf(*FindPage(block), block);
    }
    for (const PageFamily& family : PageFamilies()) {
        const PageSum& sum = sums[&family];
        EXPECT_GE(sum.own, family.ownPages) << family.name << ": pages with a file";
        EXPECT_GE(PercentOf(sum.explained, sum.unitColumns), family.explained) << family.name << ": explained";
        EXPECT_GE(PercentOf(sum.red, sum.unitColumns), family.red) << family.name << ": red in a sketch";
        EXPECT_GE(PercentOf(sum.told, sum.optionRows), family.told) << family.name << ": option rows told";
        EXPECT_EQ(sum.wordsOnly, 0) << family.name << ": offered words for a number";
        EXPECT_LE(family.ownPages, sum.pages) << family.name;
    }
}

TEST(Pages, FamiliesDoNotOverlap)
{
    const std::span<const PageFamily> families = PageFamilies();
    for (std::size_t i = 0; i < families.size(); ++i) {
        EXPECT_LE(families[i].first, families[i].last);
        const int before = i == 0 ? 0 : families[i - 1].last;
        EXPECT_LT(before, families[i].first);
    }
}

TEST(Pages, BlockThreeThirteenExplainsColumnsSixToNine)
{
    EXPECT_THAT(ReportOf(*FindPage(313), 313).columns, testing::ElementsAre(6, 7, 8, 9));
    const CSbdData data;
    EXPECT_EQ(Draw(data, 313, 2, 1).extent.anchor, 1);
    EXPECT_GT(Draw(data, 313, 2, 9).extent.anchor, 400);
}

TEST(Pages, TheTitleComesFirstInEveryBranchAndIsBlue)
{
    const CSbdData data;
    for (int row = 0; row <= 37; ++row) {
        const std::vector<ColouredLine> lines = PageText(*FindPage(301), {data, 301, row, 2});
        EXPECT_EQ(FromCp932(lines[0].text), "301.CONTROL [SEC_CONTROL]");
        EXPECT_EQ(lines[0].colour, colours::kBlue);
        EXPECT_EQ(lines[1].text, "");
    }
}

TEST(Pages, TheHeadingOfAnOptionRowIsRedAndNamesItsDefault)
{
    const CSbdData data;
    const std::vector<ColouredLine> lines = PageText(*FindPage(303), {data, 303, 19, 2});
    EXPECT_EQ(FromCp932(lines[2].text), "継手計算用全強の倍数(初期値:0.75)");
    EXPECT_EQ(lines[2].colour, colours::kRed);
    EXPECT_EQ(FromCp932(PageText(*FindPage(310), {data, 310, 1, 2})[2].text),
              "添接板と垂直補剛材最小間隔(mm例20)  (初期値:20)");
}

TEST(Pages, RowsFourAndFiveOfBlock303HaveARedLineThirteen)
{
    const CSbdData data;
    for (const int row : {4, 5}) {
        const std::vector<ColouredLine> lines = PageText(*FindPage(303), {data, 303, row, 2});
        EXPECT_EQ(lines[13].colour, colours::kRed);
        EXPECT_EQ(lines[12].colour, colours::kBlack);
    }
}

TEST(Pages, ThePageOf302QuotesRowEightOf401)
{
    CSbdData data;
    EXPECT_THAT(Draw(data, 302, 24, 2).Text(), HasSubstr("基準位置(桁高かウェブ高か)： 桁高  <--- 現在の入力"));
    data.SetOption(401, 7, "腹板高"_cp932);
    EXPECT_THAT(Draw(data, 302, 24, 2).Text(), HasSubstr("基準位置(桁高かウェブ高か)： 腹板高  <--- 現在の入力"));
}

TEST(Pages, ThePageOf303QuotesRow31FromTheDocument)
{
    CSbdData data;
    data.SetOption(303, 30, "NO");
    EXPECT_THAT(Draw(data, 303, 31, 2).Text(),
                HasSubstr("    母材SM400の場合_連結板の材質はSS400とする:  NO  <--- 現在の入力"));
}

TEST(Pages, ThePageOf311HasNoSketchInASingleSectionProject)
{
    CSbdData data;
    EXPECT_GT(Draw(data, 311, 1, 5).extent.anchor, 1);
    data.SetOption(301, 2, "断面1のみ"_cp932);
    const Drawn drawn = Draw(data, 311, 1, 5);
    EXPECT_EQ(drawn.extent.anchor, 1);
    EXPECT_FALSE(drawn.HasRedLine());
    for (const Primitive& primitive : drawn.recorder.Primitives())
        EXPECT_EQ(primitive.kind, PrimitiveKind::Text);
}

TEST(Pages, ThePageOf311ShowsTheSelectedColumnInTheSketchOfTheLineShape)
{
    CSbdData data;
    const auto redCentre = [&] {
        const Drawn drawn = Draw(data, 311, 1, 6);
        int x = 0;
        for (const Primitive& primitive : drawn.recorder.Primitives())
            if (primitive.kind == PrimitiveKind::Text && FromCp932(primitive.text) == "Hi+1"
                && CDrawRecorder::IsRed(primitive))
                x = primitive.points.front().x;
        return x;
    };
    data.hGirder.types[3] = "２次"_cp932;
    const int left = redCentre();
    data.hGirder.types[3] = "直線"_cp932;
    EXPECT_GT(left, 0);
    EXPECT_GT(redCentre(), left);
}

TEST(Pages, TheInputMethodChoosesTheSketchOf321)
{
    CSbdData data;
    EXPECT_THAT(Draw(data, 321, 3, 1).Text(), Not(HasSubstr("Ji")));
    for (const std::string& cell : {std::string("12"), "継手長"_cp932})
        for (int column = 0; column < data.ColumnCount(321); ++column)
            data.Append(321, column, cell);
    const std::string text = Draw(data, 321, 3, 1).Text();
    for (const char* label : {"Ji", "SEC1", "1.ボルト継手(省略可)", "8.LFLG&WEB溶接継手"})
        EXPECT_THAT(text, HasSubstr(label));
}

TEST(Pages, NumbersOfTheDesignTablesStandInTheirPages)
{
    const CSbdData data;
    const std::vector<std::pair<std::pair<int, int>, std::string>> facts = {
        {{303, 3}, "   4)3)もOUTの場合は，最後２列ボルト間隔を増加し再計算します．"},
        {{303, 4}, "圧縮軸力 = Ag*Max(σ,  0.75σca)"},
        {{303, 9}, "   >3d(mm):    最小間隔をボルト径d×3(mm)以上で直接指定します．"},
        {{302, 9}, "例：40, SM490Y, 100   SM490Y以下の場合40mmまで，SM490Y,SM570に対して最大板厚は100mmまでを使用"},
        {{302, 5}, "SM400   →(SM490)   →  SM490Y   →  SM570"},
        {{302, 8}, "6mm以上(合成桁は10mm)の値を入力してください．"},
        {{402, 1}, "スタッド_SS400相当品   19    150     32       10        50      50   (ハンチ幅)"},
        {{402, 1}, "スラブ止め_FB_SS400    6     600     50       200       1000    250     100      50"},
    };
    for (const auto& [cell, words] : facts)
        EXPECT_THAT(Draw(data, cell.first, cell.second, 0).Text(), HasSubstr(words)) << cell.first;
}

TEST(Pages, TheSearchPageFollowsItsFirstCell)
{
    const CSbdData data;
    const Page& page = *FindPage(999);
    PageView view{data, 999, 0, 1};
    EXPECT_THAT(PageText(page, view), IsEmpty()); // nothing looked for yet
    view.searchText = "Q&A";
    EXPECT_THAT(FromCp932(PageText(page, view)[2].text), HasSubstr("Q1."));
    view.searchText = "検索：桁高"_cp932;
    EXPECT_THAT(FromCp932(PageText(page, view)[2].text), HasSubstr("検索の結果"));
    view.searchText = "桁高"_cp932;
    EXPECT_THAT(PageText(page, view), IsEmpty());
}

TEST(Pages, AnAliasHasNoPageOfItsOwn)
{
    EXPECT_EQ(FindPage(406), nullptr);
    EXPECT_EQ(FindPage(99), nullptr);
    EXPECT_EQ(FindPage(1000), nullptr);
    EXPECT_NE(FindPage(713), nullptr);
}

TEST(Pages, EveryPageFileIsWithoutFault)
{
    for (const PageSource& source : PageSources())
        for (const int block : BlocksOfFileName(source.name))
            EXPECT_TRUE(FindPage(block)->full) << block;
}

TEST(Pages, ALongLineWidensThePage)
{
    const CSbdData data;
    Page page;
    PageBranch& branch = page.branches.emplace_back();
    branch.lines.emplace_back().pieces.emplace_back(std::string(1000, 'x'));
    CDrawRecorder recorder;
    EXPECT_EQ(DrawPage(recorder, page, {data, 313, 1, 1}).width, 20 + 50 + 1000 * 19);
}

TEST(Pages, ATablePageListsColumnsWithHeadsUnitsAndWords)
{
    const CSbdData data;
    const Page page = MakeTablePage(313);
    CDrawRecorder recorder;
    DrawPage(recorder, page, {data, 313, 1, 1});
    const Drawn drawn{recorder, {}};
    EXPECT_THAT(drawn.Text(), HasSubstr("6  幅1 (mm)"));
    EXPECT_THAT(drawn.Text(), HasSubstr("左腹板, 右腹板, 両腹板"));
}

TEST(Pages, ATablePageAsksForANumberWhereTheHeadHasAUnit)
{
    for (const int block : BlocksWithPage()) {
        const Page page = MakeTablePage(block);
        EXPECT_THAT(ReportOf(page, block).wordsOnly, IsEmpty()) << block;
    }
    const CSbdData data;
    const auto linesOf = [&](int block) {
        std::string text;
        for (const ColouredLine& line : PageText(MakeTablePage(block), {data, block, 2, 1}))
            text += FromCp932(line.text) + "\n";
        return text;
    };
    EXPECT_THAT(linesOf(735), HasSubstr("HOLE幅 (mm)                                 数値(mm)\n"));
    EXPECT_THAT(linesOf(534), HasSubstr("数値(mm), 等分割"));
    EXPECT_THAT(linesOf(707), Not(HasSubstr("YES, NO"))); // the list of columns without one
    EXPECT_THAT(linesOf(543), HasSubstr("山形, CT形"));
}

TEST(Pages, ATablePageTellsTheAutomaticRowAndTheKindsOfRows)
{
    const CSbdData data;
    const auto linesOf = [&](int block) {
        std::string text;
        for (const ColouredLine& line : PageText(MakeTablePage(block), {data, block, 2, 1}))
            text += FromCp932(line.text) + "\n";
        return text;
    };
    EXPECT_THAT(linesOf(313), HasSubstr("1行目： 自動計算(YES_NO)"));
    EXPECT_THAT(linesOf(331), HasSubstr("(301の 9行目と331～332)は同時自動リンク"));
    EXPECT_THAT(linesOf(304), Not(HasSubstr("1行目")));
    EXPECT_THAT(linesOf(507), HasSubstr("(2) 1列目が「箱桁横桁」の行\n"));
    EXPECT_THAT(linesOf(507), HasSubstr("せん断最大L (kN)"));
    EXPECT_THAT(linesOf(313), Not(HasSubstr("1列目が")));
}

TEST(Pages, ATablePageShowsTheLineOfTheColumnInRedAndMovesToIt)
{
    const CSbdData data;
    for (const int block : BlocksWithPage()) {
        const Page page = MakeTablePage(block);
        if (FindOptionBlock(block) != nullptr || GridColumns(block) == 0)
            continue;
        for (int column = 1; column <= GridColumns(block); ++column) {
            CDrawRecorder recorder;
            const PageExtent extent = DrawPage(recorder, page, {data, block, 2, column});
            const auto red = std::ranges::find_if(recorder.Primitives(), CDrawRecorder::IsRed);
            ASSERT_NE(red, recorder.Primitives().end()) << block << " column " << column;
            const int y = -red->points.front().y;
            EXPECT_LE(extent.anchor, y) << block;
            EXPECT_TRUE(extent.anchor > 1 || y <= 110) << block << " column " << column;
            EXPECT_THAT(FromCp932(red->text), HasSubstr(std::to_string(column) + "  ")) << block;
        }
    }
}

TEST(Pages, TheTablesOf543ShowAllSections)
{
    const CSbdData data;
    const std::string text = Draw(data, 543, 2, 1).Text();
    for (const char* title :
         {"等辺山形鋼 (JIS G 3192)", "不等辺山形鋼 (JIS G 3192)", "不等辺不等厚山形鋼 (JIS G 3192)",
          "ＣＴ形鋼 (橋梁用)", "溝形鋼 (JIS G 3192)", "(B-T1)/2", "90°", "(単位：mm)",
          "    H    B   T1   T2 使用頻度     H    B   T1   T2 使用頻度",
          "(5) H,B,T1,T2(mm): 使用部材断面の各寸法を指定します．(形鋼使用時の値は固定．下表を参照)"})
        EXPECT_THAT(text, HasSubstr(title));
    const auto sectionsBehind = [&](const std::string& title) {
        std::istringstream lines(text.substr(text.find("\n" + title) + 1));
        std::string line;
        int numbers = 0;
        for (int i = 0; i < 3; ++i)
            std::getline(lines, line);
        while (std::getline(lines, line) && line.starts_with("  ")) {
            std::istringstream words(line);
            std::string word;
            while (words >> word)
                numbers += word == "〇" ? 0 : 1;
        }
        return numbers / 4;
    };
    EXPECT_EQ(sectionsBehind("等辺山形鋼"), 25);
    EXPECT_EQ(sectionsBehind("不等辺山形鋼"), 13);
    EXPECT_EQ(sectionsBehind("不等辺不等厚山形鋼"), 10);
    EXPECT_EQ(sectionsBehind("ＣＴ形鋼"), 8);
    EXPECT_EQ(sectionsBehind("溝形鋼"), 16);
    EXPECT_THAT(text, HasSubstr("   75   75    9    9    〇"));
    EXPECT_THAT(text, HasSubstr("  380  100   13   20"));
    EXPECT_THAT(text, HasSubstr("  450  125 11.5   18"));
}

TEST(Pages, TheRibOf450Is333InTheSketchAnd330InTheTableOf326)
{
    const CSbdData data;
    const std::string text = Draw(data, 326, 2, 1).Text();
    for (const char* words :
         {"U 450 333 8    40",
          "7)             450     330       8       40   117.9    212.1    7584   89430000   2.02E+08",
          "BP 200 10  26.5", "   Iy0 = T･B3/14Iz0 = B･T3/1.8  ", "    T   = (Hi+Bi/2)Ti/(1.2B)  ", "(1)  入力モデル",
          "4)             250      12      33     101      149    3813   23600000     352000",
          "（２）  換算後の面積，重心位置及び面内断面２次モーメントと実値との相対誤差は約2%以内です．"})
        EXPECT_THAT(text, HasSubstr(std::string(TrimRight(words))));
}

TEST(Pages, TheLimitsOf310StandInItsRows)
{
    const CSbdData data;
    const std::vector<std::pair<int, std::vector<std::string>>> rows = {
        {2, {"90", "85"}},
        {3, {"130", "120"}},
        {4, {"M20：  72", "M22：  82", "M24：  86", "添接板の板厚ts"}},
        {5, {"M20：  62", "M22：  69", "M24：  79"}},
        {6,
         {"最大中心間隔 = Min(n1*板厚, n2)    FLG等用", "最大中心間隔 = Min(n3*板厚, n4)    WEB専用",
          "170(M24)，150(M22)，130(M20)"}},
        {7, {"8", "12"}},
    };
    for (const auto& [row, words] : rows)
        for (const std::string& word : words)
            EXPECT_THAT(Draw(data, 310, row, 2).Text(), HasSubstr(word)) << row;
}

TEST(Pages, TheFatiguePointsStandOnTheNotesPage)
{
    const CSbdData data;
    const std::string text = Draw(data, 100, 0, 0).Text();
    for (const char* name :
         {"主桁上疲労照査位置名について：", "横桁上疲労照査位置名について：", "101(H)", "201(H)", "111(G),112(E)",
          "211(G)", "121(D),122(E),123(E)", "221(D),222(E),223(E)", "124(E)", "224(E)", "131(G)", "132(G)", "133(G)",
          "231(G)", "232(G)", "233(G)", "111(E)", "211(E)", "点線:BOX"})
        EXPECT_THAT(text, HasSubstr(name));
}

TEST(Pages, TheCrackWidthsStandIn340WithTheChoicesOf309)
{
    CSbdData data;
    data.SetOption(309, 51, "阪神高速"_cp932);
    const std::string text = Draw(data, 340, 2, 1).Text();
    for (const char* words :
         {"許容ひび割れ幅   Wa  = 0.0035c", "W   = k{4c+0.7(Cs-φ)}(σse/Es+εcsd)", "σse = σs - β・fct{1/ρs-1/(ρs/･αst}",
          "許容ひび割れ幅   Wa  = 0.005c", "許容ひび割れ幅   Wa  = 0.004c", "W   = 1.1k1k2k3{4c+0.7(Cs-φ)}(σs/Es+εcsd)",
          "       阪神高速  <--- 現在の入力"})
        EXPECT_THAT(text, HasSubstr(words));
}

TEST(Pages, ThePageOf338QuotesRows50And51Of309)
{
    CSbdData data;
    data.SetOption(309, 49, "JH");
    const std::string text = Draw(data, 338, 2, 1).Text();
    EXPECT_THAT(text, HasSubstr("   合成桁重ね合せ照査方法（示方書・JH)は３０９の５０行に入力して下さい．\n"
                                "       JH  <--- 現在の入力"));
    EXPECT_THAT(text, HasSubstr("σck/3.5"));
}

TEST(Pages, TheNetRatiosStandIn801)
{
    const CSbdData data;
    EXPECT_THAT(Draw(data, 801, 3, 2).Text(), HasSubstr("ネット率 =(BL+BR)/2/B*100％"));
    EXPECT_THAT(Draw(data, 801, 3, 2).Text(), HasSubstr("(通常BL=BR, ネット率=100％)"));
    EXPECT_THAT(Draw(data, 801, 4, 2).Text(), HasSubstr(" ネット率 = [(BL+BR)*L0 / 2 ] / (H*L) *100％"));
}
