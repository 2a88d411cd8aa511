#include "tests/tools/tool_runs.h"

namespace sbd {

namespace {

using testing::HasSubstr;
using testing::Not;

class VersionCommands : public ToolRuns {};

constexpr std::string_view kBase =
    "TITLE:A\n[SEC_RADIUS]\n 自動計算(YES_NO) NO\n G1 G2 C1 C2 100\n G1 G2 C2 C3 200\n[END]\n";

std::string Replaced(std::string_view text, std::string_view from, std::string_view to)
{
    std::string result(text);
    result.replace(result.find(from), from.size(), to);
    return result;
}

} // namespace

TEST_F(VersionCommands, TextGivesOneLineARowWithTheTitleOfTheBlockAbove)
{
    const CommandResult result = Tool({"text", Put("a.sbd", kBase)});
    EXPECT_EQ(result.exitCode, 0) << result.error;
    EXPECT_THAT(result.output, HasSubstr("[328 曲率半径]\n"));
    EXPECT_THAT(result.output, HasSubstr("\n  G1 | G2 | C1 | C2 | 100\n  G1 | G2 | C2 | C3 | 200\n"));
    EXPECT_THAT(result.output, HasSubstr("  TITLE: A\n"));
    EXPECT_THAT(result.output, Not(HasSubstr("[323 "))) << "an empty table says nothing";
}

TEST_F(VersionCommands, TextShowsLinesThatAreNotReadAndSectionsThatAreNotKnown)
{
    const CommandResult result = Tool({"text", Put("a.sbd", "stray\n[X]\n a\n[END]\n")});
    EXPECT_THAT(result.output, HasSubstr("[未知の区分]\n"));
    EXPECT_THAT(result.output, HasSubstr("[読まれない行]\n  stray\n"));
}

TEST_F(VersionCommands, MergePutsBothSidesTogether)
{
    const std::string base = Put("base.sbd", kBase);
    const std::string ours = Put("ours.sbd", Replaced(kBase, "C2 100", "C2 150"));
    const std::string theirs = Put("theirs.sbd", Replaced(kBase, "C3 200", "C3 250"));
    const CommandResult result = Tool({"merge", base, ours, theirs, ours, At("plate.sbd")});
    EXPECT_EQ(result.exitCode, 0) << result.error;
    EXPECT_EQ(result.error, "");
    const std::string text = Tool({"text", ours}).output;
    EXPECT_THAT(text, HasSubstr("G1 | G2 | C1 | C2 | 150\n  G1 | G2 | C2 | C3 | 250\n"));
}

TEST_F(VersionCommands, MergeNamesEachConflictAndKeepsOurs)
{
    const std::string base = Put("base.sbd", kBase);
    const std::string ours = Put("ours.sbd", Replaced(kBase, "C2 100", "C2 150"));
    const std::string theirs = Put("theirs.sbd", Replaced(kBase, "C2 100", "C2 160"));
    const CommandResult result = Tool({"merge", base, ours, theirs, At("out.sbd")});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.error, HasSubstr("競合が1件あります"));
    EXPECT_THAT(result.error, HasSubstr("328 曲率半径 2行目 5列目"));
    EXPECT_THAT(result.error, HasSubstr("元「100」 こちら「150」 相手「160」"));
    EXPECT_THAT(Tool({"text", At("out.sbd")}).output, HasSubstr("C2 | 150\n"));
}

TEST_F(VersionCommands, MergeRefusesAFileOfWhichSomethingWouldBeLostAndWritesNothing)
{
    const std::string base = Put("base.sbd", kBase);
    const std::string ours = Put("ours.sbd", kBase);
    const std::string theirs = Put("theirs.sbd", std::string(kBase) + "stray\n");
    const std::string before = BytesOf(ours);
    const CommandResult result = Tool({"merge", base, ours, theirs, ours});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_THAT(result.error, HasSubstr("相手のファイルに、読み込むと失われるものがある"));
    EXPECT_THAT(result.error, HasSubstr("stray"));
    EXPECT_EQ(BytesOf(ours), before);
}

TEST_F(VersionCommands, MergeWantsFourFilesAndAtMostOnePath)
{
    ExpectRefused(Tool({"merge", "a", "b", "c"}), "引数の数が違います");
    ExpectRefused(Tool({"merge", "a", "b", "c", "d", "e", "f"}), "引数の数が違います");
    ExpectRefused(Tool({"merge", At("none"), "b", "c", "d"}), At("none"));
}

} // namespace sbd
