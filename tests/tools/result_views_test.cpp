#include "tests/tools/tool_runs.h"

namespace sbd {

using nlohmann::json;
using testing::ElementsAre;
using testing::SizeIs;

namespace {

std::string Example(const std::string& name)
{
    return std::string(EXAMPLES_DIR) + "/" + name + "/" + name + ".sbd";
}

json TableOf(std::vector<std::string> more = {})
{
    std::vector<std::string> arguments = {"result-table",  Example("plate4"), "--kind", "断面力",    "--load",
                                          "-(B-L:MY最大)", "--girder",        "G1",     "--station", "なし"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return Printed(Tool(arguments));
}

} // namespace

TEST(ResultTableCommand, PrintsTheTableOfAGirder)
{
    const json table = TableOf({"--off", "Nx", "--exclude", "G1-C1", "--off", "Mz"});
    EXPECT_EQ(table.at("loadIndex"), 5);
    EXPECT_EQ(table.at("columnOn"), json({0, 1, 1, 1, 1, 0}));
    EXPECT_THAT(table.at("heads"), SizeIs(10));
    EXPECT_THAT(table.at("rows"), SizeIs(19)) << "20 bays without one";
    EXPECT_EQ(table.at("rows")[0].at("row"), 3);
    EXPECT_THAT(table.at("offered"), SizeIs(20));
    EXPECT_EQ(table.at("maxRow").at("text"), 16711935);
    EXPECT_EQ(table.at("figureItem"), "My");
}

TEST(ResultTableCommand, AnUnknownLoadIsNoError)
{
    const json table = Printed(Tool({"result-table", Example("plate4"), "--load", "", "--station", "--off", "--girder",
                                     "--kind", "--kind", "反力"}));
    EXPECT_EQ(table.at("loadIndex"), -1);
    EXPECT_EQ(table.at("station"), "--off") << "the word behind an option is its value";
    EXPECT_EQ(table.at("girder"), "--kind");
    EXPECT_EQ(table.at("figureItem"), nullptr);
    EXPECT_EQ(table.at("rows"), json::array());
}

TEST(ResultChoicesCommand, PrintsWhatIsOfferedAndWhatIsShownFirst)
{
    const json choices = Printed(Tool({"result-choices", Example("single1"), "--kind", "変位"}));
    EXPECT_EQ(choices.at("kinds"), json({"変位", "断面力", "反力"}));
    EXPECT_EQ(choices.at("girders"), json({"なし", "すべて", "G1"}));
    EXPECT_THAT(choices.at("stations"), SizeIs(11));
    const json first = Printed(Tool({"result-choices", "--first-use", Example("single1")}));
    EXPECT_EQ(first.at("load"), "-死+雪+群集-最大");
    EXPECT_THAT(first.at("offered"), SizeIs(8));
}

TEST(ResultChoicesCommand, WithoutResultsThereIsNothingToChoose)
{
    const json first = Printed(Tool({"result-choices", "no/such/folder/x.sbd", "--first-use"}));
    EXPECT_EQ(first.at("load"), nullptr);
    EXPECT_EQ(first.at("girder"), "なし");
}

TEST(ResultDiagramCommand, PrintsPixelsOnlyForAPane)
{
    const std::vector<std::string> arguments = {"result-diagram", Example("box2"), "--kind", "反力",   "--load",
                                                "死荷重(合計)",   "--girder",      "G2",     "--item", "Fz"};
    const json bare = Printed(Tool(arguments));
    EXPECT_EQ(bare.at("girderUsed"), "G2");
    EXPECT_THAT(bare.at("bays"), SizeIs(20));
    EXPECT_FALSE(bare.contains("screen"));
    std::vector<std::string> sized = arguments;
    sized.insert(sized.end(), {"--width", "900", "--height", "500"});
    EXPECT_THAT(Printed(Tool(sized)).at("screen").at("y"), SizeIs(21));
}

TEST(ResultDiagramCommand, AllGirdersShowTheDeformedFrame)
{
    const json deformed = Printed(Tool({"result-diagram", Example("single1"), "--kind", "変位", "--load", "死荷重",
                                        "--girder", "すべて", "--item", "Uz"}));
    EXPECT_THAT(deformed.at("deformed").at("points"), SizeIs(9));
    EXPECT_EQ(Printed(Tool({"result-diagram", Example("single1"), "--kind", "変位", "--load", "?", "--girder", "G1",
                            "--item", "Uz"}))
                  .at("nothing"),
              true);
}

TEST(ProjectionCommand, PrintsAllFourViews)
{
    const json bare = Printed(Tool({"projection", Example("single1"), "--width", "900", "--height", "500"}));
    EXPECT_THAT(bare.at("views"), SizeIs(4));
    EXPECT_EQ(bare.at("views").at("32993").at("direction"), json({0.0, 1.0, 0.0}));
    EXPECT_THAT(bare.at("views").at("32994").at("nodes"), SizeIs(9));
    EXPECT_FALSE(bare.at("views").at("32994").contains("overlay"));
    const json whole =
        Printed(Tool({"projection", Example("single1"), "--overlay", "--width", "900", "--height", "500"}));
    const json& overlay = whole.at("views").at("32991").at("overlay");
    EXPECT_THAT(overlay.at("lateral573"), SizeIs(1));
    EXPECT_EQ(overlay.at("cross523"), json::array());
    EXPECT_EQ(overlay.at("stationLabels"), json::array()) << "one girder has no neighbour";
    EXPECT_THAT(overlay.at("supports"), SizeIs(2));
}

TEST(ProjectionCommand, WithoutResultsHasNoNodesAndWithoutAProjectNoOverlay)
{
    const json empty = Printed(Tool({"projection", "no/such/folder/x.sbd", "--width", "9", "--height", "5"}));
    EXPECT_EQ(empty.at("views").at("32991").at("nodes"), json::array());
    ExpectRefused(Tool({"projection", "no/such/folder/x.sbd", "--overlay", "--width", "9", "--height", "5"}),
                  "読み込めません");
}

TEST(ResultCommands, WrongUseIsToldAndPrintsNothing)
{
    const std::string project = Example("single1");
    ExpectRefused(Tool({"result-table", project}), "--kind がありません");
    ExpectRefused(Tool({"result-table", project, "--kind"}), "値がありません");
    ExpectRefused(Tool({"result-table", project, "--kind", "応力"}), "応力");
    ExpectRefused(Tool({"result-table", project, project}), "引数の数");
    ExpectRefused(Tool({"result-table", project, "--load", "한"}), "CP932");
    ExpectRefused(
        Tool({"result-table", project, "--kind", "変位", "--load", "", "--girder", "", "--station", "", "--off", "My"}),
        "My");
    ExpectRefused(Tool({"result-choices", project}), "--kind がありません");
    ExpectRefused(Tool({"result-choices", project, "--first-use", "--kind", "変位"}), "同時に");
    ExpectRefused(Tool({"result-diagram", project, "--item", "Uz"}), "--kind");
    ExpectRefused(Tool({"projection", project, "--width", "900"}), "--height");
    for (const char* const height : {"0", "-5", "1e3", "", "99999999999", "5 "})
        ExpectRefused(Tool({"projection", project, "--width", "900", "--height", height}), "画素数");
    ExpectRefused(Tool({"projection", project, "--other"}), "--other");
}

} // namespace sbd
