#include "project/text.h"
#include "upperview/page/column_head.h"
#include "upperview/page/page_parser.h"
#include "upperview/page/page_report.h"
#include "upperview/page/page_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace sbd;
using namespace sbd::literals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

PageReport ReportOfText(std::string_view text, int block)
{
    const ParsedPage parsed = ParsePage(text, block);
    EXPECT_THAT(parsed.faults, IsEmpty());
    return ReportOf(parsed.page, block);
}

} // namespace

TEST(ColumnHead, TheUnitStandsInBrackets)
{
    EXPECT_EQ(UnitOf("幅1\n(mm)"_cp932), "mm");
    EXPECT_EQ(UnitOf("後死荷重\n(kN/mm2)"_cp932), "kN/mm2");
    EXPECT_EQ(UnitOf("間隔(n個,m)  [幅2,厚n(mm)]"_cp932), "m");
    EXPECT_EQ(UnitOf("(HHmm)"_cp932), "mm");
    EXPECT_EQ(UnitOf("本数n"_cp932), "");
    EXPECT_EQ(UnitOf("(CT斜材取付)"_cp932), "");
}

TEST(ColumnHead, ANameIsALineWithoutUnitAndBrackets)
{
    EXPECT_THAT(NamesOf("[Hi]\n(mm)"_cp932), ElementsAre("Hi"));
    EXPECT_THAT(NamesOf("UFLG固定点\n距離(m)"_cp932), ElementsAre("UFLG固定点", "距離", "UFLG固定点距離"));
    EXPECT_THAT(NamesOf("間隔(n個,m)  [幅2,厚n(mm)]"_cp932), ElementsAre("間隔"));
    EXPECT_THAT(NamesOf("---\n-"_cp932), IsEmpty());
}

TEST(ColumnHead, TheKindsOfRowsAreTheLinesOfTheFirstHead)
{
    EXPECT_THAT(HeadsByKind("主桁始\n桁名\n桁名"_cp932, "UFLG最小幅\n(mm)\n0->332使用"_cp932),
                ElementsAre("UFLG最小幅 (mm) 0->332使用"_cp932, "", ""));
    EXPECT_THAT(HeadsByKind("自動計算\n主桁始"_cp932, "箱桁ハンチ内側幅\n床版高\n(mm)"_cp932),
                ElementsAre("箱桁ハンチ内側幅 (mm)"_cp932, "床版高 (mm)"_cp932));
    EXPECT_THAT(HeadsByKind("自動計算\n主桁始"_cp932, "---\nハンチ高h\n(mm)"_cp932),
                ElementsAre("", "ハンチ高h (mm)"_cp932));
    EXPECT_THAT(HeadsByKind("主桁始"_cp932, "幅1\n(mm)"_cp932), ElementsAre("幅1 (mm)"_cp932));
}

TEST(PageReport, AColumnIsExplainedByNameAndUnitInOneItem)
{
    const auto unexplained = [](const std::string& text) {
        return ReportOfText("[[branch]]\ntext = '''\n" + text + "'''\n", 313).unexplained;
    };
    EXPECT_THAT(unexplained("(1) 幅1，厚1(mm)：寸法\n(2) 間隔(m)：n個\n"), IsEmpty());
    EXPECT_THAT(unexplained("(1) 幅1，厚1：\n    寸法(mm)\n(2) 間隔：n個\n"), ElementsAre(9));
    EXPECT_THAT(unexplained("(1) 幅1，厚1：寸法\n(2) mm\n(3) 間隔(mm)\n"), ElementsAre(6, 7, 9));
    EXPECT_THAT(unexplained("(1) 幅1，厚1，間隔\n単位：mm，m\n"), IsEmpty());
    EXPECT_THAT(unexplained("(1) 幅，厚 (mm)，(m)\n"), ElementsAre(6, 7, 9));
}

TEST(PageReport, ARowIsToldByMoreThanItsHeadingAndDefault)
{
    std::string text;
    int row = 0;
    for (const std::string body :
         {"添接板と垂直補剛材最小間隔", "初期値：20", "@{310:3}  <--- 現在の入力", "", "純間隔です．", "x", "x"})
        text += "[[branch]]\nrows = [" + std::to_string(++row) + "]\ntext = '''\n" + body + "\n'''\n";
    const PageReport report = ReportOfText(text + "[[branch]]\n", 310);
    EXPECT_EQ(report.optionRows, 7);
    EXPECT_THAT(report.untold, ElementsAre(1, 2, 3, 4));
}

TEST(PageReport, APageFromTheTablesExplainsNothing)
{
    const PageReport report = ReportOf(MakeTablePage(313), 313);
    EXPECT_THAT(report.unexplained, ElementsAre(6, 7, 9));
    EXPECT_THAT(report.notRed, ElementsAre(6, 7, 9));
}

TEST(PageReport, AConditionOnElementsMakesAnotherState)
{
    const PageReport report = ReportOfText(
        "[[branch]]\nsketches = ['a']\n[sketch.a]\nsize = [10, 20]\ndraw = [['text', 0, 0, 'x', { when = "
        "'cell:6 filled' }], ['text', 0, 0, 'y', { when = 'cell:6 filled' }], ['line', 0, 0, 1, 1, { col = "
        "[6] }]]\n",
        313);
    EXPECT_EQ(report.sketches, 1);
    EXPECT_EQ(report.states, 2);
    EXPECT_EQ(report.strings, 2);
    EXPECT_THAT(report.notRed, ElementsAre(7, 9));
}
