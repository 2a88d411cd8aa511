#include "tests/expected_totals.h"
#include "tests/surroundings.h"
#include "tests/tools/tool_runs.h"
#include "tools/command_support.h"

#include <cstdio>

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace sbd {

namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
using testing::UnorderedElementsAre;

class Commands : public ToolRuns {};

constexpr const char* kWrongCount = "引数の数が違います";
constexpr const char* kUnknownOption = "知らないオプションです";

} // namespace

// --- the command line --------------------------------------------------------------------------

TEST_F(Commands, NoCommandIsRefusedWithTheHelp)
{
    ExpectRefused(Tool({}), "コマンドがありません");
    EXPECT_THAT(Tool({}).error, HasSubstr("rewrite IN OUT"));
}

TEST_F(Commands, AnUnknownCommandIsNamed)
{
    ExpectRefused(Tool({"frobnicate", "in.sbd"}), "知らないコマンドです: frobnicate");
    ExpectRefused(Tool({""}), "知らないコマンドです");
    ExpectRefused(Tool({"DUMP", "in.sbd"}), "知らないコマンドです: DUMP");
}

TEST_F(Commands, HelpListsEveryCommand)
{
    for (const char* word : {"--help", "help"}) {
        const CommandResult help = Tool({word});
        EXPECT_EQ(help.exitCode, 0);
        EXPECT_EQ(help.error, "");
        for (const ToolCommand& command : ToolCommands())
            EXPECT_THAT(help.output, HasSubstr("  " + std::string(command.usage) + "\n"));
    }
}

TEST_F(Commands, EachCommandTellsItsOwnHelpWhateverElseStandsThere)
{
    for (const ToolCommand& command : ToolCommands()) {
        const std::string name(command.name);
        for (const CommandResult& help :
             {Tool({name, "--help"}), Tool({name, "a", "b", "c", "--help", "--nonsense"})}) {
            EXPECT_EQ(help.exitCode, 0) << name;
            EXPECT_THAT(help.output, StartsWith("sbdtool " + std::string(command.usage) + "\n\n")) << name;
            EXPECT_THAT(help.output, HasSubstr(std::string(command.help))) << name;
        }
        EXPECT_THAT(command.usage, StartsWith(name)) << "the usage begins with the command";
        EXPECT_FALSE(command.help.empty()) << name;
    }
}

TEST_F(Commands, AreNamedOnce)
{
    std::vector<std::string_view> names;
    for (const ToolCommand& command : ToolCommands())
        names.push_back(command.name);
    std::ranges::sort(names);
    EXPECT_EQ(std::ranges::adjacent_find(names), names.end());
}

TEST_F(Commands, AWrongNumberOfArgumentsIsRefusedWithTheUsage)
{
    const std::vector<std::vector<std::string>> wrong = {{"new"},
                                                         {"new", "a", "b"},
                                                         {"rewrite"},
                                                         {"rewrite", "a"},
                                                         {"rewrite", "a", "b", "c"},
                                                         {"dump"},
                                                         {"dump", "a", "b"},
                                                         {"names"},
                                                         {"names", "a", "b"},
                                                         {"catalogue", "a"},
                                                         {"options", "301", "302"},
                                                         {"columns", "313", "314"},
                                                         {"pages", "a"},
                                                         {"check"},
                                                         {"diff"},
                                                         {"diff", "a"},
                                                         {"diff", "a", "b", "c"},
                                                         {"tree"},
                                                         {"panel", "a"}};
    for (const std::vector<std::string>& line : wrong) {
        const CommandResult result = Tool(line);
        ExpectRefused(result, kWrongCount);
        EXPECT_THAT(result.error, StartsWith("sbdtool " + line[0] + ": "));
        EXPECT_THAT(result.error, HasSubstr("使い方: sbdtool " + line[0]));
    }
    EXPECT_THAT(Files(), IsEmpty());
}

TEST_F(Commands, EveryCommandRefusesAnUnknownOption)
{
    for (const char* name : {"new", "rewrite", "dump", "names", "catalogue", "options", "columns", "pages", "check",
                             "diff", "tree", "panel"})
        ExpectRefused(Tool({name, "--nonsense"}), std::string(kUnknownOption) + ": --nonsense");
    ExpectRefused(Tool({"dump", "a.sbd", "--json"}), kUnknownOption);
    ExpectRefused(Tool({"new", "a.sbd", "--names", "b"}), kUnknownOption);
    EXPECT_THAT(Files(), IsEmpty());
}

TEST_F(Commands, AnOptionWithoutItsValueSaysSo)
{
    ExpectRefused(Tool({"dump", "a.sbd", "--names"}), "値がありません: --names");
    ExpectRefused(Tool({"tree", "a.sbd", "--mode"}), "値がありません: --mode");
    ExpectRefused(Tool({"result-table", "a.sbd", "--kind"}), "値がありません: --kind");
}

TEST_F(Commands, HelpHasItsShortFormAndTellsOneCommandInEitherOrder)
{
    EXPECT_EQ(Tool({"-h"}).output, Tool({"--help"}).output);
    EXPECT_EQ(Tool({"help", "check"}).output, Tool({"check", "-h"}).output);
    EXPECT_THAT(Tool({"help", "check"}).output, StartsWith("sbdtool check IN..."));
    ExpectRefused(Tool({"help", "frobnicate"}), "知らないコマンドです: frobnicate");
}

TEST_F(Commands, VersionIsOneLine)
{
    const CommandResult version = Tool({"--version"});
    EXPECT_EQ(version.exitCode, 0);
    int major = -1;
    int minor = -1;
    int patch = -1;
    char behind = 0;
    char tooMuch = 0;
    EXPECT_EQ(std::sscanf(version.output.c_str(), "sbdtool %d.%d.%d%c%c", &major, &minor, &patch, &behind, &tooMuch), 4)
        << version.output;
    EXPECT_EQ(behind, '\n') << version.output;
}

#ifndef _WIN32
TEST_F(Commands, HelpIsJapaneseWhereTheLocaleIs)
{
    const char* before = std::getenv("LC_ALL");
    const std::string kept = before != nullptr ? before : "";
    setenv("LC_ALL", "ja_JP.UTF-8", 1);
    const std::string japanese = Tool({"help", "new"}).output;
    const std::string all = Tool({"--help"}).output;
    setenv("LC_ALL", "C", 1);
    const std::string english = Tool({"help", "new"}).output;
    before != nullptr ? setenv("LC_ALL", kept.c_str(), 1) : unsetenv("LC_ALL");
    EXPECT_THAT(japanese, HasSubstr("プロジェクトを書き出します"));
    EXPECT_THAT(all, HasSubstr("終了コード"));
    EXPECT_THAT(english, HasSubstr("Writes a project"));
}
#endif

TEST_F(Commands, ControlBytesOfAFileReachNoTerminal)
{
    const std::string evil = "\x1b]0;owned\x07\x7f\x9b";
    const std::string a =
        PutBytes("a.sbd", "[SEC_RADIUS]\r\n \x8e\xa9\x93\xae YES\r\n G1 " + evil + "\r\n[END]\r\n" + evil);
    const std::string b = PutBytes("b.sbd", "[SEC_RADIUS]\r\n \x8e\xa9\x93\xae YES\r\n G1 G2\r\n[END]\r\n");
    for (const CommandResult& result : {Tool({"check", a}), Tool({"check", a, "--json"}), Tool({"diff", a, b}),
                                        Tool({"dump", a}), Tool({"dump", "\x1b[2J"}), Tool({"\x1b[2J"})}) {
        for (const std::string& text : {result.output, result.error}) {
            const auto control =
                std::ranges::find_if(text, [](char c) { return (c >= 0 && c < ' ' && c != '\n') || c == '\x7f'; });
            EXPECT_EQ(control, text.end()) << text;
            EXPECT_THAT(text, testing::Not(HasSubstr("\xc2\x9b"))) << "CSI in one character";
        }
    }
}

TEST_F(Commands, NamesAndNoNamesExcludeEachOther)
{
    const std::string in = Put("in.sbd", "");
    for (const char* name : {"dump", "check"})
        ExpectRefused(Tool({name, in, "--names", "x", "--no-names"}), "同時に指定できません");
    ExpectRefused(Tool({"rewrite", in, At("out.sbd"), "--no-names", "--names", "x"}), "同時に指定できません");
    EXPECT_THAT(Files(), ElementsAre("in.sbd"));
}

// --- files that cannot be read or written ------------------------------------------------------

TEST_F(Commands, AMissingFileIsToldAndNothingIsLeft)
{
    const std::string missing = At("missing.sbd");
    const std::string there = Put("there.sbd", "");
    for (const std::vector<std::string>& line : {std::vector<std::string>{"rewrite", missing, At("out.sbd")},
                                                 {"dump", missing},
                                                 {"check", missing},
                                                 {"diff", missing, there},
                                                 {"diff", there, missing},
                                                 {"tree", missing},
                                                 {"panel", missing, "313"}}) {
        const CommandResult result = Tool(line);
        ExpectRefused(result, "読み込めません: " + missing + ": ファイルまたはフォルダがありません");
    }
    EXPECT_THAT(Files(), ElementsAre("there.sbd"));
}

TEST_F(Commands, AFolderIsNoFile)
{
    const std::string folder = At("folder.sbd");
    fs::create_directory(folder);
    const std::string in = Put("in.sbd", "");
    ExpectRefused(Tool({"dump", folder}), "読み込めません: " + folder + ": フォルダです");
    ExpectRefused(Tool({"check", folder}), "フォルダです");
    ExpectRefused(Tool({"rewrite", folder, At("out.sbd")}), "フォルダです");
    ExpectRefused(Tool({"rewrite", in, folder}), "書き込めません: " + folder + ": フォルダです");
    ExpectRefused(Tool({"new", folder}), "書き込めません");
    EXPECT_THAT(Files(), UnorderedElementsAre("folder.sbd", "in.sbd"));
}

TEST_F(Commands, AFolderThatIsNotThereTakesNoFile)
{
    const std::string in = Put("in.sbd", "");
    const std::string out = At("no_folder/out.sbd");
    ExpectRefused(Tool({"new", out}), "書き込めません: " + out);
    ExpectRefused(Tool({"rewrite", in, out}), "書き込めません: " + out);
    EXPECT_THAT(Files(), ElementsAre("in.sbd"));
}

TEST_F(Commands, APathThroughAFileIsNoFolder)
{
    const std::string in = Put("in.sbd", "");
    ExpectRefused(Tool({"dump", in + "/x.sbd"}), "読み込めません");
    ExpectRefused(Tool({"new", in + "/x.sbd"}), "書き込めません");
    EXPECT_EQ(BytesOf(in), "");
}

TEST_F(Commands, APathThatIsNoTextIsNoCrash)
{
    ExpectRefused(Tool({"dump", At("") + "\xFF\xFE.sbd"}), "読み込めません");
}

#ifndef _WIN32
TEST_F(Commands, AFileThatMayNotBeReadIsToldAsSuch)
{
    if (::geteuid() == 0)
        GTEST_SKIP() << "rights do not bind the superuser";
    const std::string in = Put("in.sbd", "");
    fs::permissions(in, fs::perms::none);
    ExpectRefused(Tool({"dump", in}), "アクセスする権限がありません");
}
#endif

TEST_F(Commands, AJapanesePathIsAPathLikeAnother)
{
    const std::string in = Put("県道 表ポ.sbd", "TITLE:A\n");
    EXPECT_EQ(Printed(Tool({"dump", in})).at("title"), "A");
    EXPECT_EQ(Tool({"rewrite", in, At("写し.sbd")}).exitCode, 0);
    EXPECT_FALSE(BytesOf(PathOf(At("写し.sbd"))).empty());
}

// --- new, rewrite, dump, names -----------------------------------------------------------------

TEST_F(Commands, NewWritesADocumentThatWasNeverLoaded)
{
    const CommandResult result = Tool({"new", At("out.sbd")});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output + result.error, "");
    CSbdData data;
    EXPECT_EQ(FirstDifference(WriteProject(data), BytesOf(At("out.sbd"))), "");
}

TEST_F(Commands, NewReplacesWhatStandsThere)
{
    const std::string out = Put("out.sbd", "old\n");
    EXPECT_EQ(Tool({"new", out}).exitCode, 0);
    EXPECT_THAT(BytesOf(out), StartsWith("TITLE:SBD1\r\n"));
    EXPECT_THAT(Files(), ElementsAre("out.sbd"));
}

TEST_F(Commands, RewriteLoadsAndSaves)
{
    const std::string in = Put("in.sbd", "TITLE:EAST\n[SEC_GROUP]\n G1 G2\n[END]\n");
    EXPECT_EQ(Tool({"rewrite", in, At("out.sbd")}).exitCode, 0);
    CSbdData data = Load("TITLE:EAST\n[SEC_GROUP]\n G1 G2\n[END]\n");
    EXPECT_EQ(FirstDifference(WriteProject(data), BytesOf(At("out.sbd"))), "");
    EXPECT_THAT(BytesOf(in), StartsWith("TITLE:EAST")) << "the input stays";
}

TEST_F(Commands, RewriteMayReplaceItsInput)
{
    const std::string in = Put("in.sbd", "TITLE:A\n");
    EXPECT_EQ(Tool({"rewrite", in, in}).exitCode, 0);
    EXPECT_THAT(BytesOf(in), StartsWith("TITLE:A\r\n[SEC_CONTROL]"));
}

TEST_F(Commands, RewriteTellsABlock301ThatIsHeldBack)
{
    const std::string in = Put("in.sbd", "TITLE:<?>\n");
    const CommandResult result = Tool({"rewrite", in, At("out.sbd")});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.error, "Input error in 301 [SEC_CONTROL]\n");
    EXPECT_THAT(BytesOf(At("out.sbd")), StartsWith("[SEC_OPTION_SECTION]"));
}

TEST_F(Commands, NamesComeFromTheFileBesideOrTheOneGivenOrNone)
{
    const std::string in = Put("in.sbd", "");
    Put("in.abd", "[GRID_GRID]\nSWAY_N_NAME = 1 A1\n[END]\n");
    const std::string other = Put("other.txt", "[GRID_GRID]\nSWAY_N_NAME = 1 B1\n[END]\n");
    EXPECT_EQ(Printed(Tool({"dump", in})).at("sway_names"), json({"A1"}));
    EXPECT_EQ(Printed(Tool({"dump", in, "--names", other})).at("sway_names"), json({"B1"}));
    EXPECT_EQ(Printed(Tool({"dump", "--no-names", in})).at("sway_names"), json::array());
    EXPECT_EQ(Printed(Tool({"dump", in, "--names", At("missing.abd")})).at("sway_names"), json::array()) << "no error";
}

TEST_F(Commands, RewriteTakesNamesTheSameWay)
{
    const std::string in = Put("in.sbd", "[SEC_H_GIRDER]\n Z_U 直線\n G1 G1 A1 A2 1\n[END]\n");
    Put("in.abd", "[GRID_GRID]\nGIRDER_N_NAME = 1 GIRDER_ONE\n[END]\n");
    const auto head = [&](const std::vector<std::string>& options) {
        std::vector<std::string> line = {"rewrite", in, At("out.sbd")};
        line.insert(line.end(), options.begin(), options.end());
        EXPECT_EQ(Tool(line).exitCode, 0);
        return SectionOf(BytesOf(At("out.sbd")), "[SEC_H_GIRDER]").at(7);
    };
    EXPECT_THAT(head({}), StartsWith("! 主桁始   主桁終     "));
    EXPECT_THAT(head({"--no-names"}), StartsWith("! 主桁始 主桁終 "));
}

TEST_F(Commands, DumpPrintsTheWholeDocument)
{
    const std::string in =
        Put("in.sbd", "TITLE:県道\n[SEC_BOX_WEB]\n G1 G1L\n[END]\n"
                      "[SEC_H_GIRDER]\n T_L 桁高に含まない\n G1 G2 A1 C1 1.8 0.5\n[END]\n"
                      "[SEC_CROSS_RIB]\n G1 G2 A1 A2 U 250 9 200 10 2 等間隔 1.5 2 150 10\n[END]\n"
                      "[SEC_NUMBER_L_RIB]\n G1 G2 A1 U 0 2 1 312.5 300 等間隔\n[END]\n"
                      "[CBD_GRID]\n 自動 NO\n 主桁 1 G1\n[END]\n[STRINGER_COMMON]\n NUMBER_STRINGER x 1\n"
                      " NAME_STRINGER x ST1\n[END]\n[X]\n a\n[END]\n");
    const json dump = Printed(Tool({"dump", in}));
    EXPECT_EQ(dump.at("title"), "県道");
    EXPECT_EQ(dump.at("version_word"), "NEW_VERSION_20051205");
    EXPECT_EQ(dump.at("options").size(), expected::kOptionBlocks);
    EXPECT_EQ(dump.at("options").at("301").at(0), "県道");
    EXPECT_EQ(dump.at("tables").at("305"), json::array({json({"G1", "G1L", "", "", ""})}));
    EXPECT_FALSE(dump.at("tables").contains("304")) << "only blocks with rows";
    EXPECT_EQ(dump.at("h_girder").at("types").at(1), "桁高に含まない");
    EXPECT_EQ(dump.at("h_girder").at("records").at(0).at("numbers"),
              json({1.8, 0.5, nullptr, nullptr, nullptr, nullptr, nullptr}));
    const json& rib = dump.at("cross_rib").at(0);
    EXPECT_EQ(rib.at("n"), 2);
    EXPECT_EQ(rib.at("left"), "等間隔");
    EXPECT_EQ(rib.at("right"), json({1.5, 2.0}));
    EXPECT_EQ(rib.at("further_sizes"), json::array({json({150.0, 10.0, nullptr, nullptr})}));
    EXPECT_EQ(dump.at("l_rib").at(0).at("left"), json({312.5, 300.0}));
    EXPECT_EQ(dump.at("l_rib").at(0).at("right"), "等間隔");
    EXPECT_EQ(dump.at("name_lists").at("501"),
              json({{"auto", "NO"}, {"lists", {{"G1"}, json::array(), json::array()}}}));
    EXPECT_EQ(dump.at("name_lists").at("702").at("lists").size(), 4U);
    EXPECT_EQ(dump.at("stringer_names"), json({"ST1"}));
    EXPECT_EQ(dump.at("unknown_lines"), json({"[X]", " a", "[END]", ""}));
}

TEST_F(Commands, DumpShowsAByteThatIsNoCharacterByItsNumber)
{
    const std::string in = PutBytes("in.sbd", "TITLE:G1\x85\r\n[SEC_GROUP]\r\n \x85! a\\b\r\n[END]\r\n");
    const json dump = Printed(Tool({"dump", in}));
    EXPECT_EQ(dump.at("title"), "G1\\x85");
    EXPECT_EQ(dump.at("tables").at("323").at(0), json({"\\x85!", "a\\b"}));
}

TEST_F(Commands, DumpOfAnyBytesIsJson)
{
    std::string bytes = "[SEC_GROUP]\r\n";
    for (int byte = 0; byte < 256; ++byte)
        bytes.push_back(static_cast<char>(byte));
    EXPECT_TRUE(Printed(Tool({"dump", PutBytes("in.sbd", bytes)})).is_object());
    EXPECT_TRUE(Printed(Tool({"names", PutBytes("in.abd", "[GRID_GRID]\r\nGIRDER_N_NAME = 9 " + bytes)})).is_object());
}

TEST_F(Commands, NamesPrintsListsMarksAndWidths)
{
    const std::string abd = Put(
        "b.abd", "[GRID_GRID]\nGIRDER_N_NAME = 2 G1 GIRDER\nSWAY_N_NAME = 3 A1 -C1 -+A2\nLINE_N_NAME = 1 CL\n[END]\n");
    EXPECT_EQ(Printed(Tool({"names", abd})), json({{"girders", {"G1", "GIRDER"}},
                                                   {"sways", {"A1", "C1", "A2"}},
                                                   {"marks", {0, 1, 2}},
                                                   {"lines", {"CL"}},
                                                   {"girderWidth", 6},
                                                   {"swayWidth", 3}}));
}

TEST_F(Commands, NamesGivesTheBytesWhereANameIsNoWholeText)
{
    const json names =
        Printed(Tool({"names", PutBytes("b.abd", "[GRID_GRID]\r\nGIRDER_N_NAME = 2 G1 \x83\r\n[END]\r\n")}));
    EXPECT_EQ(names.at("girders"), json({"G1", "\\x83"}));
    EXPECT_EQ(names.at("bytes").at("girders"), json({"4731", "83"}));
}

TEST_F(Commands, NamesOfAMissingFileAreNoError)
{
    EXPECT_EQ(Printed(Tool({"names", At("missing.abd")})).at("girders"), json::array());
}

// --- listings ----------------------------------------------------------------------------------

TEST_F(Commands, ListingsPrintTheirTables)
{
    EXPECT_EQ(Printed(Tool({"catalogue"})).at("blocks").size(), expected::kCatalogueRows);
    EXPECT_EQ(Printed(Tool({"options"})).at("blocks").size(), expected::kOptionBlocks);
    EXPECT_EQ(Printed(Tool({"options", "301"})).at("blocks").size(), 1U);
    EXPECT_EQ(Printed(Tool({"columns", "313"})).at("blocks").at(0).at("block"), 313);
    EXPECT_EQ(Printed(Tool({"columns", "406"})).at("blocks").at(0).at("block"), 713) << "an alias";
    EXPECT_EQ(Printed(Tool({"pages"})).at("pages").size(), expected::kPageTitles);
}

TEST_F(Commands, AListingOfABlockWithoutAnEntryIsRefused)
{
    ExpectRefused(Tool({"options", "313"}), "options に項目のないブロックです: 313");
    ExpectRefused(Tool({"columns", "301"}), "columns に項目のないブロックです: 301");
    for (const char* word : {"x", "", "313x", " 313", "99999999999999"})
        ExpectRefused(Tool({"columns", word}), "ブロック番号ではありません");
    EXPECT_EQ(Tool({"options", "-301"}).exitCode, 2);
}

TEST_F(Commands, ThePanelOfANumberWithoutOneIsRefused)
{
    const std::string in = Put("in.sbd", "");
    EXPECT_EQ(Tool({"panel", in, "313"}).exitCode, 0);
    ExpectRefused(Tool({"panel", in, "257"}), "入力パネルのない番号です: 257");
    ExpectRefused(Tool({"panel", in, "x"}), "ブロック番号ではありません: x");
}

// --- the program -------------------------------------------------------------------------------

#ifndef _WIN32
namespace {

/// Exit code of the program; its output goes to `out`, as the shell takes it.
int RunProgram(const std::string& arguments, const std::string& out)
{
    const int status =
        std::system((std::string("'") + test::SbdTool() + "' " + arguments + " > " + out + " 2>/dev/null").c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

TEST_F(Commands, TheProgramGivesExitCodeAndOutput)
{
    EXPECT_EQ(RunProgram("catalogue", "'" + At("out.json") + "'"), 0);
    EXPECT_EQ(BytesOf(At("out.json")), Tool({"catalogue"}).output);
    EXPECT_EQ(RunProgram("frobnicate", "/dev/null"), 2);
    EXPECT_EQ(RunProgram("", "/dev/null"), 2);
    EXPECT_EQ(RunProgram("diff '" + Put("a.sbd", "TITLE:A\n") + "' '" + Put("b.sbd", "TITLE:B\n") + "'", "/dev/null"),
              1);
}

TEST_F(Commands, AStrokeStandsForTheStandardInputAndOutput)
{
    const std::string in = Put("in.sbd", "TITLE:A\n[SEC_RADIUS]\n 自動 YES\n G1 G2\n[END]\n");
    const std::string rewritten = At("rewritten.sbd");
    ASSERT_EQ(Tool({"rewrite", in, rewritten}).exitCode, 0);
    EXPECT_EQ(RunProgram("rewrite - - < '" + in + "'", "'" + At("out.sbd") + "'"), 0);
    EXPECT_EQ(BytesOf(At("out.sbd")), BytesOf(rewritten));
    EXPECT_EQ(RunProgram("dump - < '" + in + "'", "'" + At("dump.json") + "'"), 0);
    EXPECT_EQ(BytesOf(At("dump.json")), Tool({"dump", in}).output);
    EXPECT_EQ(RunProgram("check - < '" + rewritten + "'", "/dev/null"), 0);
    EXPECT_EQ(RunProgram("diff - '" + rewritten + "' < '" + in + "'", "/dev/null"), 0);
    EXPECT_EQ(RunProgram("new -", "'" + At("new.sbd") + "'"), 0);
    ASSERT_EQ(Tool({"new", At("new2.sbd")}).exitCode, 0);
    EXPECT_EQ(BytesOf(At("new.sbd")), BytesOf(At("new2.sbd")));
    EXPECT_EQ(RunProgram("diff - - < '" + in + "'", "/dev/null"), 2);
}

TEST_F(Commands, AnOutputThatIsFullIsAnError)
{
    if (!fs::exists("/dev/full"))
        GTEST_SKIP();
    EXPECT_EQ(RunProgram("catalogue", "/dev/full"), 2);
}
#endif

} // namespace sbd
