#include "tests/surroundings.h"
#include "tests/tools/tool_runs.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace sbd {

using nlohmann::json;
using testing::SizeIs;

namespace {

std::string Example(const std::string& name)
{
    return std::string(test::ExamplesFolder()) + "/" + name + "/" + name + ".sbd";
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

TEST(ResultTableCommand, AnEnvelopeNamesTheCasesThatDecide)
{
    const std::vector<std::string> all = {"result-table", Example("plate4"), "--kind", "断面力",    "--girder",
                                          "G1",           "--station",       "なし",   "--envelope"};
    const json table = Printed(Tool(all));
    EXPECT_EQ(table.at("envelope").size(), 13U) << "all load cases";
    EXPECT_THAT(table.at("heads"), SizeIs(2 + 48));
    EXPECT_EQ(table.at("heads")[2], "左Nx最大");
    std::vector<std::string> two = all;
    two.insert(two.end(),
               {"--load", "前死荷重(鋼重+床版)", "--load", "温度変化(+30℃)", "--off", "Nx", "--off", "Sy", "--off",
                "Sz", "--off", "Tx", "--off", "Mz", "--sort", "左My最大", "--descending", "--filter", "C1"});
    const json sorted = Printed(Tool(two));
    EXPECT_EQ(sorted.at("envelope").size(), 2U);
    double before = 1e100;
    for (const json& row : sorted.at("rows")) {
        EXPECT_NE(row.at("name").get<std::string>().find("C1"), std::string::npos);
        const double value = std::stod(row.at("cells")[0].get<std::string>());
        EXPECT_LE(value, before);
        before = value;
        EXPECT_THAT(row.at("cells")[1], testing::AnyOf(json("前死荷重(鋼重+床版)"), json("温度変化(+30℃)")));
    }
    ASSERT_GT(sorted.at("rows").size(), 5U);
    ExpectRefused(Tool({"result-table", Example("plate4"), "--kind", "変位", "--girder", "G1", "--station", "なし",
                        "--envelope", "--sort", "左My最大"}),
                  "左My最大");
    EXPECT_EQ(Tool({"result-table", Example("plate4"), "--kind", "変位", "--girder", "G1", "--station", "なし",
                    "--envelope", "--load", "no"})
                  .exitCode,
              2);
}

TEST(ResultTableCommand, WritesTheTableForOtherPrograms)
{
    const std::filesystem::path folder = std::filesystem::temp_directory_path();
    const std::filesystem::path csv = folder / "result-table-test.csv";
    const std::filesystem::path xlsx = folder / "result-table-test.xlsx";
    const CommandResult done =
        Tool({"result-table", Example("box2"), "--kind", "反力", "--load", "前死荷重", "--girder", "すべて",
              "--station", "なし", "--csv", csv.string(), "--xlsx", xlsx.string()});
    EXPECT_EQ(done.exitCode, 0) << done.error;
    EXPECT_EQ(done.output, "");
    std::ifstream file(csv, std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    EXPECT_NE(text.find("格点名,Fx [kN],Fy [kN],Fz [kN],Mx [kN・m]"), std::string::npos) << text;
    std::ifstream book(xlsx, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(book), {}).substr(0, 2), "PK");
    file.close();
    book.close();
    std::filesystem::remove(csv);
    std::filesystem::remove(xlsx);
    EXPECT_EQ(Tool({"result-table", Example("box2"), "--kind", "反力", "--load", "前死荷重", "--girder", "すべて",
                    "--station", "なし", "--csv", "/no/such/folder/x.csv"})
                  .exitCode,
              2);
}

TEST(ResultDiagramCommand, AnEnvelopeHasTwoCurvesAndTheCasesOfEachEnd)
{
    const json shown = Printed(Tool({"result-diagram", Example("plate4"), "--kind", "断面力", "--girder", "G2",
                                     "--item", "My", "--envelope", "--width", "900", "--height", "500"}));
    ASSERT_THAT(shown.at("curves"), SizeIs(2));
    for (const json& curve : shown.at("curves")) {
        EXPECT_EQ(curve.at("girderUsed"), "G2");
        for (const json& bay : curve.at("bays"))
            EXPECT_TRUE(bay.at("leftLoad").is_string());
    }
    EXPECT_GE(shown.at("curves")[0].at("greatest"), shown.at("curves")[1].at("greatest"));
    ExpectRefused(
        Tool({"result-diagram", Example("plate4"), "--kind", "断面力", "--girder", "G2", "--item", "Ux", "--envelope"}),
        "Ux");
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
