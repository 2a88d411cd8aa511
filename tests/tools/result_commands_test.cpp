#include "results/records.h"
#include "tests/surroundings.h"
#include "tools/result_commands.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <limits>

namespace sbd {

using nlohmann::json;

namespace {

json Printed(const CommandResult& result)
{
    EXPECT_EQ(result.exitCode, 0) << result.error;
    return json::parse(result.output);
}

CommandResult Results(const std::vector<std::string>& arguments)
{
    return RunResults(arguments);
}

CommandResult Paths(const std::vector<std::string>& arguments)
{
    return RunResultPaths(arguments);
}

std::string Example(const std::string& name)
{
    return std::string(test::ExamplesFolder()) + "/" + name + "/" + name + ".sbd";
}

} // namespace

TEST(ResultsCommand, PrintsWhatAnExampleHolds)
{
    const json results = Printed(Results({Example("box2")}));
    EXPECT_EQ(results.at("project"), "box2.sbd");
    for (const auto& [file, read] : results.at("read").items())
        EXPECT_EQ(read, true) << file;
    EXPECT_EQ(results.at("model").at("girderNames"), json({"G1", "G2"}));
    EXPECT_EQ(results.at("elementTable").at("ends").size(), 145U);
    EXPECT_EQ(results.at("elementTable").at("elementValuesHex").at(0).get<std::string>().size(), 96U);
    EXPECT_EQ(results.at("nodeTable").at("coordinates").size(), 126U);
    EXPECT_EQ(results.at("force").at("size"), json({145, 12, 12}));
    EXPECT_EQ(results.at("force").at("count"), 145 * 12 * 12);
    EXPECT_EQ(results.at("forceInFile").at("count"), results.at("force").at("count"));
}

TEST(ResultsCommand, WithoutFilesPrintsEmptyRecords)
{
    const json results = Printed(Results({"no/such/folder/x.sbd"}));
    EXPECT_EQ(results.at("project"), "x.sbd");
    for (const auto& [file, read] : results.at("read").items())
        EXPECT_EQ(read, false) << file;
    EXPECT_EQ(results.at("model").at("title"), "");
    EXPECT_EQ(results.at("model").at("nodeNames"), json::array());
    EXPECT_EQ(results.at("forceInFile"), nullptr);
    EXPECT_EQ(results.at("force").at("min"), nullptr);
}

TEST(ResultsCommand, AgainLeavesTheRecordsOfFilesThatAreNotThere)
{
    const json results = Printed(Results({"--again", "no/such/folder/x.sbd", Example("single1")}));
    EXPECT_EQ(results.at("project"), "single1.sbd");
    EXPECT_EQ(results.at("read").at("Z1D"), false);
    EXPECT_EQ(results.at("model").at("girderNames"), json::array({"G1"}));
}

TEST(ResultsCommand, WrongUseIsToldAndPrintsNothing)
{
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{}, {"a.sbd", "b.sbd"}, {"a.sbd", "--again"}, {"a.sbd", "--other"}}) {
        const CommandResult result = Results(arguments);
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_EQ(result.output, "");
        EXPECT_NE(result.error, "");
    }
}

TEST(ModelJson, NamesThatAreNoWholeTextStandAsBytesToo)
{
    AnalysisModel model;
    model.nodeNames = {"G1", "A\x8c"};
    const json result = ModelJson(model);
    EXPECT_EQ(result.at("nodeNames").at(1), "A\\x8c");
    EXPECT_EQ(result.at("bytesOfUncleanNames"), (json{{"nodeNames", {{"1", "418c"}}}}));
    model.title = "\x81";
    EXPECT_EQ(ModelJson(model).at("bytesOfUncleanNames").at("title"), "81");
    EXPECT_FALSE(ModelJson(AnalysisModel()).contains("bytesOfUncleanNames"));
}

TEST(CubeSummaryJson, TellsSizesExtremesSumsAndBothEnds)
{
    ResultCube cube;
    cube.size1 = 1;
    cube.size2 = 1;
    cube.size3 = 6;
    cube.values = {1.5, -2, 3, 4, 5, 6};
    EXPECT_EQ(CubeSummaryJson(cube), json::parse(R"({"size": [1, 1, 6], "count": 6, "min": -2.0, "max": 6.0,
        "sum": 17.5, "weightedSum": 83.5, "first5": [1.5, -2.0, 3.0, 4.0, 5.0], "last5": [-2.0, 3.0, 4.0, 5.0, 6.0]})"));
}

TEST(CubeSummaryJson, NumbersThatJsonHasNotAreWords)
{
    ResultCube cube;
    constexpr double infinity = std::numeric_limits<double>::infinity();
    cube.values = {infinity, -infinity, std::numeric_limits<double>::quiet_NaN()};
    const json summary = CubeSummaryJson(cube);
    EXPECT_EQ(summary.at("first5"), json({"Infinity", "-Infinity", "NaN"}));
    EXPECT_EQ(summary.at("sum"), "NaN");
    EXPECT_EQ(summary.at("min"), "-Infinity");
}

TEST(ResultPathsCommand, PrintsThePathOfEachFile)
{
    const json paths = Printed(Paths({"D:\\data\\能ソ表.sbd"}));
    EXPECT_EQ(paths.at("project"), "D:\\data\\能ソ表.sbd");
    EXPECT_EQ(paths.at("lastBackslash"), 7);
    EXPECT_EQ(paths.at(".Z3R"), "D:\\data\\能ソ表_計算結果\\能ソ表.Z3R");
    EXPECT_EQ(paths.at(".CHK"), "D:\\data\\能ソ表_計算結果\\能ソ表.CHK");
}

TEST(ResultPathsCommand, APathThatCp932HasNotIsToldWithItsCharacter)
{
    const CommandResult result = Paths({"D:\\한.sbd"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.error.find("한"), std::string::npos);
    EXPECT_EQ(Paths({}).exitCode, 2);
}

} // namespace sbd
