#include "tests/tools/tool_runs.h"

namespace sbd {

namespace {

using nlohmann::json;
using testing::HasSubstr;

constexpr std::string_view kProject = "TITLE:X\n[SEC_GROUP]\n G1 G2\n[END]\n";

class SetCommand : public ToolRuns {
protected:
    CommandResult Set(const json& edits)
    {
        return Tool({"set", Put("in.sbd", kProject), At("out.sbd"), PutBytes("edits.json", edits.dump())});
    }
    static json Edit(int block, int row, int column, const std::string& text)
    {
        return {{"block", block}, {"row", row}, {"column", column}, {"text", text}};
    }
};

} // namespace

TEST_F(SetCommand, TypesEditsAndSaysThatAllComesBack)
{
    const CommandResult result = Set(json::array({Edit(323, 1, 2, "G3")}));
    EXPECT_EQ(result.exitCode, 0) << result.error;
    EXPECT_EQ(json::parse(result.output),
              json::parse(R"({"applied": 1, "refused": [], "returnsDifferent": [], "more": 0})"));
    EXPECT_EQ(LoadBytes(BytesOf(At("out.sbd"))).Table(323)->Row(0)[1], "G3");
    EXPECT_EQ(BytesOf(At("in.sbd")), FileOf(kProject));
}

TEST_F(SetCommand, TellsACellThatComesBackDifferentAndWritesAllTheSame)
{
    const CommandResult result = Set(json::array({Edit(323, 1, 1, "")}));
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_EQ(json::parse(result.output).at("returnsDifferent"),
              json::parse(R"([{"block": 323, "row": 1, "column": 2, "is": "G2", "returns": ""}])"));
    EXPECT_FALSE(BytesOf(At("out.sbd")).empty());
}

TEST_F(SetCommand, RefusesInTheOrderOfTheEditsAndCarriesOutTheOthers)
{
    const CommandResult result = Set({Edit(300, 1, 1, "x"), Edit(323, 0, 1, "x"), Edit(323, 1, 1, "𠮷"),
                                      Edit(314, 1, 1, "x"), Edit(323, 1, 2, "G4"), Edit(323, 99999, 1, "x")});
    EXPECT_EQ(result.exitCode, 0);
    const json report = json::parse(result.output);
    EXPECT_EQ(report.at("applied"), 1);
    std::string blocks;
    for (const json& refused : report.at("refused"))
        blocks += std::to_string(refused.at("block").get<int>()) + " ";
    EXPECT_EQ(blocks, "300 323 323 314 323 ");
    EXPECT_THAT(report.at("refused").at(2).at("reason"), HasSubstr("「𠮷」"));
}

TEST_F(SetCommand, NamesEveryFaultOfTheEditsAndLeavesOutAsItIs)
{
    const std::string in = Put("in.sbd", kProject);
    const std::string out = PutBytes("out.sbd", "old");
    const auto with = [&](const std::string& edits) { return Tool({"set", in, out, PutBytes("edits.json", edits)}); };
    ExpectRefused(with("[{\"block\": 323,"), "JSON として読めません");
    ExpectRefused(with("{}"), "編集の配列ではありません");
    const CommandResult several = with(R"([{"block": 323, "row": 1, "column": 2},
        7, {"block": 1.5, "row": 1, "column": 1, "text": ""}, {"block": 1, "row": 1, "column": 1, "text": 3}])");
    ExpectRefused(several, "1番目: 「text」がありません");
    EXPECT_THAT(several.error, HasSubstr("2番目: オブジェクトではありません"));
    EXPECT_THAT(several.error, HasSubstr("3番目: 「block」が整数ではありません"));
    EXPECT_THAT(several.error, HasSubstr("4番目: 「text」が文字列ではありません"));
    EXPECT_EQ(BytesOf(out), "old");
}

TEST_F(SetCommand, NeverWritesOverItsInput)
{
    const std::string in = Put("in.sbd", kProject);
    const std::string edits = PutBytes("edits.json", "[]");
    ExpectRefused(Tool({"set", in, in, edits}), "別のファイル");
    ExpectRefused(Tool({"set", in, edits, edits}), "別のファイル");
    EXPECT_EQ(BytesOf(in), FileOf(kProject));
    EXPECT_EQ(BytesOf(edits), "[]");
}

TEST_F(SetCommand, AnEditOfAnotherBlockClosesThePanelAndRowsAreNumberedAnew)
{
    // Row 1 of 323 goes when its panel is closed; what was row 2 is row 1 at the third edit.
    const std::string in = Put("in.sbd", "[SEC_GROUP]\n G1 G2\n G3 G4\n[END]\n");
    const json edits = {Edit(323, 1, 1, ""), Edit(302, 6, 2, "10"), Edit(323, 1, 2, "G5")};
    const CommandResult result = Tool({"set", in, At("out.sbd"), PutBytes("edits.json", edits.dump())});
    EXPECT_EQ(result.exitCode, 0) << result.output;
    EXPECT_EQ(TableText(LoadBytes(BytesOf(At("out.sbd"))), 323), std::vector<std::string>{"G3|G5"});
}

TEST_F(SetCommand, AnyEditsOfAnyNumbersAreCarriedOutOrRefused)
{
    std::mt19937 random(std::random_device{}());
    json edits = json::array();
    for (int i = 0; i < 300; ++i)
        edits.push_back(Edit(static_cast<int>(random() % 800), static_cast<int>(random() % 60) - 2,
                             static_cast<int>(random() % 20) - 2, random() % 3 == 0 ? "" : "a b"));
    edits.push_back(
        json::parse(R"({"block": 9223372036854775807, "row": -5000000000, "column": 0, "text": "\u0000"})"));
    const CommandResult result = Set(edits);
    EXPECT_TRUE(result.exitCode == 0 || result.exitCode == 3) << result.error << edits.dump();
    const json report = json::parse(result.output);
    EXPECT_EQ(report.at("applied").get<std::size_t>() + report.at("refused").size(), edits.size());
}

} // namespace sbd
