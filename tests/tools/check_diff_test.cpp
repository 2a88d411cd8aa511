#include "tests/surroundings.h"
#include "tests/tools/tool_runs.h"

namespace sbd {

namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class CheckCommand : public ToolRuns {};
class DiffCommand : public ToolRuns {};

} // namespace

// --- check -------------------------------------------------------------------------------------

TEST_F(CheckCommand, OfAFileInTheWritersOwnFormSaysSo)
{
    const std::string out = At("out.sbd");
    ASSERT_EQ(Tool({"rewrite", Put("in.sbd", "TITLE:A\n[SEC_GROUP]\n G1 G2\n[END]\n"), out}).exitCode, 0);
    const CommandResult result = Tool({"check", out});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.error, "");
    EXPECT_EQ(result.output, "このファイルは本システムの書式どおりです。読み込んで保存しても1バイトも変わりません。\n");
    const json report = Printed(Tool({"check", out, "--json"}));
    EXPECT_EQ(report.at("ownForm"), true);
    EXPECT_EQ(report.at("firstOtherLine"), 0);
    for (const char* list : {"lost", "repaired", "unstable"})
        EXPECT_EQ(report.at(list), json::array()) << list;
}

TEST_F(CheckCommand, TellsTheFirstLineThatChanges)
{
    const CommandResult result =
        Tool({"check", Put("in.sbd", "TITLE:A\n[SEC_CONTROL] 301     入力必要\n! another comment\n[END]\n")});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.output,
                StartsWith("このファイルは本システムの書式と異なります。読み込んで保存すると 3行目から変わります。\n"));
}

TEST_F(CheckCommand, ListsLinesThatArePassedOver)
{
    const std::string in =
        Put("in.sbd",
            "stray\n[SEC_CONTROL]\n NO_SUCH_ROW x y\n RESET_RESULTS x\n[END]\n[CBD_GIRDER_H]\n 自動 NO more\n[END]\n");
    const std::string text = Tool({"check", in}).output;
    EXPECT_THAT(text, HasSubstr("読み込むと失われる行(4件)\n"));
    EXPECT_THAT(text, HasSubstr("  1行目 「stray」: どの区分にも属さない行なので読まれません。\n"));
    EXPECT_THAT(text, HasSubstr("  3行目 301 主桁(床組・断面)_CONTROL 「NO_SUCH_ROW x y」: "
                                "このブロックにない項目名なので読まれません。\n"));
    EXPECT_THAT(text, HasSubstr("  4行目 301 主桁(床組・断面)_CONTROL 「RESET_RESULTS x」: 値がないので、"));
    EXPECT_THAT(text, HasSubstr("「more」: 先頭行の値より後ろの語なので読まれません。\n"));
    const json report = json::parse(Tool({"check", in, "--json"}).output);
    EXPECT_EQ(report.at("lost").at(1),
              json({{"reason", "unknownKeyword"}, {"line", 3}, {"block", 301}, {"text", "NO_SUCH_ROW x y"}}));
}

TEST_F(CheckCommand, ListsValuesThatTheLoadRepairs)
{
    const std::string in = Put(
        "in.sbd", "[CBD_CONTROL_MAIN]\n 使用地域 東北\n[END]\n[SEC_V_STIFF]\n 自動計算(YES_NO) NO\n G1 G1\n[END]\n");
    const CommandResult result = Tool({"check", in});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.output, HasSubstr("読み込むと補正される値"));
    EXPECT_THAT(result.output, HasSubstr("313 垂直補剛材 1行目 2列目"));
    EXPECT_THAT(result.output, HasSubstr("「NO」→「YES_1」"));
    EXPECT_THAT(result.output, HasSubstr("521 "));
    EXPECT_THAT(result.output, HasSubstr("「東北」→「一般」"));
    EXPECT_THAT(result.output, Not(HasSubstr("326"))) << "a control row that never reaches the file is not told";
}

TEST_F(CheckCommand, ListsWhatAnotherLoadWouldReadOtherwise)
{
    const std::string in = Put("in.sbd", "[SEC_CONTROL]\n TITLE x ELEVATED\n[END]\n");
    const CommandResult result = Tool({"check", in});
    EXPECT_EQ(result.exitCode, 3) << "a value is another one after a save";
    EXPECT_THAT(result.output, HasSubstr("保存後にもう一度読み込むと変わる値(1件)\n"));
    EXPECT_THAT(result.output, HasSubstr("「ELEVATED」→「VATED」"));
}

TEST_F(CheckCommand, ListsARowOf331WhoseEmptyCellStaysStableAsNoChange)
{
    const std::string in =
        Put("in.sbd", "[SEC_WEB_T_MAT]\n 自動計算(YES_NO) YES\n G1 G1 A1 A2 I桁 SM490Y 12 14 内面 9\n[END]\n");
    EXPECT_EQ(json::parse(Tool({"check", in, "--json"}).output).at("unstable"), json::array());
}

TEST_F(CheckCommand, TellsABlock301ThatWouldBeHeldBack)
{
    const std::string in = Put("in.sbd", "[SEC_CONTROL]\n YEAR_FATIGUE x <?>\n[END]\n");
    EXPECT_THAT(Tool({"check", in}).output, HasSubstr("301に「<?>」があるので、保存すると題名と301が書かれません。"));
    EXPECT_EQ(json::parse(Tool({"check", in, "--json"}).output).at("controlBlockHeldBack"), true);
}

TEST_F(CheckCommand, LeavesTheFileAsItIs)
{
    const std::string in = Put("in.sbd", "TITLE:EAST\n");
    static_cast<void>(Tool({"check", in}));
    EXPECT_EQ(BytesOf(in), "TITLE:EAST\r\n");
    EXPECT_THAT(Files(), ElementsAre("in.sbd"));
}

TEST_F(CheckCommand, OfTheExamplesFindsNothingButASectionThatIsUnknownOnPurpose)
{
    const auto exitCode = [](const std::string& name) {
        const std::string file = std::string(test::ExamplesFolder()) + "/" + name + "/" + name + ".sbd";
        const int plain = Tool({"check", file}).exitCode;
        EXPECT_EQ(Tool({"check", file, "--json"}).exitCode, plain);
        return plain;
    };
    EXPECT_EQ(exitCode("plate4"), 0);
    EXPECT_EQ(exitCode("box2"), 0);
    EXPECT_EQ(exitCode("single1"), 1);
}

TEST_F(CheckCommand, TellsEachFindingByKindLineAndBlock)
{
    const std::string in = Put("in.sbd", "[SEC_GROUP]\n G1 G2\n[END]\nstray\n[SEC_GROUP]\n G1 G3\n[END]\n");
    const CommandResult text = Tool({"check", in});
    EXPECT_EQ(text.exitCode, 3);
    EXPECT_THAT(text.output, HasSubstr("  4行目 「stray」: どの区分にも属さない行なので読まれず"));
    const json report = json::parse(Tool({"check", in, "--json"}).output);
    std::vector<std::string> found;
    for (const json& finding : report.at("findings"))
        if (finding.at("line").get<int>() > 1)
            found.push_back(finding.at("kind").get<std::string>() + " " + finding.at("line").dump() + " "
                            + finding.at("block").dump());
    EXPECT_THAT(found, ElementsAre("line-outside 4 0", "section-twice 5 323"));
    EXPECT_EQ(report.at("more").at("findings"), 0);
}

TEST_F(CheckCommand, OfAFileOfFaultsAloneGivesListsThatAreBounded)
{
    std::string bytes = "[SEC_GROUP]\n[END]\n";
    for (int i = 0; i < 11000; ++i)
        bytes += "x\n";
    const json report = json::parse(Tool({"check", PutBytes("in.sbd", bytes), "--json"}).output);
    EXPECT_EQ(report.at("findings").size(), 10000U);
    EXPECT_GE(report.at("more").at("findings").get<int>(), 1000);
    EXPECT_EQ(report.at("lost").size(), 10000U);
    EXPECT_EQ(report.at("more").at("lost"), 1000);
}

// --- diff --------------------------------------------------------------------------------------

TEST_F(CheckCommand, OfSeveralFilesNamesEachAndGivesTheWorstExitCode)
{
    const std::string sound = At("sound.sbd");
    ASSERT_EQ(Tool({"rewrite", Put("a.sbd", "TITLE:A\n"), sound}).exitCode, 0);
    const std::string in = Put("in.sbd", "stray\n");
    const CommandResult result = Tool({"check", sound, in});
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_THAT(result.output, StartsWith(sound + ":\n"));
    EXPECT_THAT(result.output, HasSubstr("\n" + in + ":\n"));
    const json report = json::parse(Tool({"check", sound, in, "--json"}).output);
    EXPECT_EQ(report.at("files").at(0).at("file"), sound);
    EXPECT_EQ(report.at("files").at(0).at("ownForm"), true);
    EXPECT_EQ(report.at("files").at(1).at("lost").size(), 1U);
    ExpectRefused(Tool({"check", sound, At("missing.sbd")}), "読み込めません: " + At("missing.sbd"));
}

TEST_F(DiffCommand, OfTheSameProjectSaysSo)
{
    const std::string a = Put("a.sbd", "TITLE:A\n");
    const std::string b = Put("b.sbd", "! another text of the same project\nTITLE:A\n");
    const CommandResult result = Tool({"diff", a, b});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, "違いはありません。\n");
    EXPECT_EQ(Printed(Tool({"diff", a, b, "--json"})).at("differences"), json::array());
}

TEST_F(DiffCommand, TellsBlockRowColumnAndBothValues)
{
    const std::string a = Put("a.sbd", "TITLE:A\n[SEC_GROUP]\n G1 G2\n G3 G4\n[END]\n[X]\n a\n[END]\n");
    const std::string b = Put("b.sbd", "TITLE:B\n[SEC_GROUP]\n G1 G9\n G3 G4\n G5 G6\n[END]\n[X]\n b\n[END]\n");
    const CommandResult result = Tool({"diff", a, b});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.output, HasSubstr("301 主桁(床組・断面)_CONTROL 1行目"));
    EXPECT_THAT(result.output, HasSubstr(": 「A」→「B」\n"));
    EXPECT_THAT(result.output, HasSubstr("323 主桁GROUP 1行目 2列目"));
    EXPECT_THAT(result.output, HasSubstr(": 「G2」→「G9」\n"));
    EXPECT_THAT(result.output, HasSubstr("323 主桁GROUP 3行目: 行が増える 「G5 G6」\n"));
    EXPECT_THAT(result.output, HasSubstr("未知の区分の行: 「 a」→「 b」\n"));
    EXPECT_EQ(std::ranges::count(result.output, '\n'), 4);
    const CommandResult asJson = Tool({"diff", a, b, "--json"});
    EXPECT_EQ(asJson.exitCode, 1);
    const json differences = json::parse(asJson.output).at("differences");
    ASSERT_EQ(differences.size(), 4U);
    EXPECT_EQ(differences.at(1).at("kind"), "value");
    EXPECT_EQ(differences.at(1).at("block"), 323);
    EXPECT_EQ(differences.at(1).at("row"), 1);
    EXPECT_EQ(differences.at(1).at("column"), 2);
    EXPECT_EQ(differences.at(1).at("before"), "G2");
    EXPECT_EQ(differences.at(1).at("after"), "G9");
    EXPECT_EQ(differences.at(2).at("kind"), "rowAdded");
    EXPECT_EQ(differences.at(3).at("kind"), "unknownLine");
}

TEST_F(DiffCommand, TheOtherWayRoundTellsTheRowThatIsGone)
{
    const std::string a = Put("a.sbd", "[SEC_GROUP]\n G1 G2\n G3 G4\n[END]\n");
    const std::string b = Put("b.sbd", "[SEC_GROUP]\n G3 G4\n[END]\n");
    EXPECT_EQ(Tool({"diff", a, b}).output, "323 主桁GROUP 1行目: 行がなくなる 「G1 G2」\n");
}

TEST_F(DiffCommand, AddedAndRemovedRowsComeAsListsOfTheirCells)
{
    const std::string a = Put("a.sbd", "[SEC_RADIUS]\n 自動 YES\n[END]\n");
    const std::string b = Put("b.sbd", "[SEC_RADIUS]\n 自動 YES\n G1 G2 C1 C2 100\n[END]\n");
    const json added = json::parse(Tool({"diff", a, b, "--json"}).output).at("differences").at(0);
    EXPECT_EQ(added.at("kind"), "rowAdded");
    EXPECT_EQ(added.at("cells"), json({"G1", "G2", "C1", "C2", "100"}));
    const json removed = json::parse(Tool({"diff", b, a, "--json"}).output).at("differences").at(0);
    EXPECT_EQ(removed.at("cells"), json({"G1", "G2", "C1", "C2", "100"}));
}

TEST_F(DiffCommand, TakesTheNamesOfBothSidesFromOneFileOrNone)
{
    const std::string a = Put("a.sbd", "");
    Put("a.abd", "[GRID_GRID]\nSWAY_NAME = 1 S1\n[END]\n");
    const std::string b = Put("b.sbd", "");
    for (const std::vector<std::string>& names : {std::vector<std::string>{"--no-names"}, {"--names", At("a.abd")}}) {
        std::vector<std::string> line = {"diff", a, b};
        line.insert(line.end(), names.begin(), names.end());
        EXPECT_EQ(Tool(line).exitCode, 0) << Tool(line).output << Tool(line).error;
    }
    ExpectRefused(Tool({"diff", a, b, "--names"}), "値がありません: --names");
}

} // namespace sbd
