#include "tests/tools/tool_runs.h"

namespace sbd {

namespace {

using nlohmann::json;

constexpr std::string_view kProject = "TITLE:X\n[SEC_GROUP]\n G1 G2\n G2 G10\n[END]\n";

class ReplaceCommand : public ToolRuns {};

} // namespace

TEST_F(ReplaceCommand, ReplacesAsTheWindowDoesAndListsEveryCell)
{
    const std::string in = Put("in.sbd", kProject);
    const CommandResult result = Tool({"replace", in, At("out.sbd"), "ｇ1", "GA1"});
    EXPECT_EQ(result.exitCode, 0) << result.error;
    EXPECT_EQ(json::parse(result.output), json::parse(R"({"replaced": 2, "stayed": 0, "returnsDifferent": [], "cells": [
        {"block": 323, "row": 1, "column": 1, "before": "G1", "after": "GA1"},
        {"block": 323, "row": 2, "column": 2, "before": "G10", "after": "GA10"}]})"));
    const CSbdData data = LoadBytes(BytesOf(At("out.sbd")));
    EXPECT_EQ(data.Table(323)->Row(0)[0], "GA1");
    EXPECT_EQ(data.Table(323)->Row(1)[1], "GA10");
    EXPECT_EQ(BytesOf(in), FileOf(kProject));
}

TEST_F(ReplaceCommand, ADryRunListsTheSameAndWritesNothing)
{
    const std::string in = Put("in.sbd", kProject);
    const json tried = Printed(Tool({"replace", in, "G1", "GA1", "--whole", "--dry-run"}));
    EXPECT_EQ(tried.at("replaced"), 1);
    EXPECT_EQ(Files(), std::vector<std::string>{"in.sbd"});
    EXPECT_EQ(tried, Printed(Tool({"replace", in, At("out.sbd"), "G1", "GA1", "--whole"})));
    EXPECT_EQ(Printed(Tool({"replace", in, "g1", "GA1", "--exact-case", "--dry-run"})).at("cells").size(), 0U);
    EXPECT_EQ(Printed(Tool({"replace", in, "Ｇ1", "GA1", "--exact-width", "--dry-run"})).at("cells").size(), 0U);
    EXPECT_EQ(Printed(Tool({"replace", in, "G1", "GA1", "--block", "313", "--dry-run"})).at("cells").size(), 0U);
    EXPECT_EQ(Printed(Tool({"replace", in, "G1", "GA1", "--block", "323", "--dry-run"})).at("cells").size(), 2U);
}

TEST_F(ReplaceCommand, WhatStaysIsListedWithItsReason)
{
    const std::string in = Put("in.sbd", kProject);
    const CommandResult result = Tool({"replace", in, At("out.sbd"), "G1", "", "--whole"});
    EXPECT_EQ(result.exitCode, 0) << result.error;
    const json report = json::parse(result.output);
    EXPECT_EQ(report.at("replaced"), 0);
    EXPECT_EQ(report.at("stayed"), 1);
    EXPECT_EQ(report.at("cells").at(0).at("stays"), "losesRow");
    EXPECT_EQ(LoadBytes(BytesOf(At("out.sbd"))).Table(323)->RowCount(), 2U);
}

TEST_F(ReplaceCommand, TellsAReplacedCellThatComesBackDifferent)
{
    const CommandResult result = Tool({"replace", Put("in.sbd", kProject), At("out.sbd"), "G2", "G 2"});
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_EQ(json::parse(result.output).at("returnsDifferent").at(0).at("is"), "G 2");
}

TEST_F(ReplaceCommand, WrongUseIsToldAndNothingIsWritten)
{
    const std::string in = Put("in.sbd", kProject);
    ExpectRefused(Tool({"replace", in, in, "G1", "G3"}), "別のファイル");
    ExpectRefused(Tool({"replace", in, "-", "G1", "G3"}), "標準出力");
    ExpectRefused(Tool({"replace", in, At("out.sbd"), "", "G3"}), "TEXT が空です");
    ExpectRefused(Tool({"replace", in, At("out.sbd"), "G1", "𠮷"}), "「𠮷」");
    ExpectRefused(Tool({"replace", in, At("out.sbd"), "G1"}), "引数の数");
    ExpectRefused(Tool({"replace", in, At("out.sbd"), "G1", "G3", "--dry-run"}), "引数の数");
    ExpectRefused(Tool({"replace", in, At("out.sbd"), "G1", "G3", "--block", "300"}), "「300」");
    ExpectRefused(Tool({"replace", in, At("out.sbd"), "G1", "G3", "--block"}), "値がありません");
    ExpectRefused(Tool({"replace", At("none.sbd"), At("out.sbd"), "G1", "G3"}), "読み込めません");
    EXPECT_EQ(Files(), std::vector<std::string>{"in.sbd"});
    EXPECT_EQ(BytesOf(in), FileOf(kProject));
}

TEST_F(ReplaceCommand, AFolderThatTakesNoFileLeavesNothing)
{
    const std::string in = Put("in.sbd", kProject);
    ExpectRefused(Tool({"replace", in, At("none/out.sbd"), "G1", "G3"}), "書き込めません");
    EXPECT_EQ(Files(), std::vector<std::string>{"in.sbd"});
}

} // namespace sbd
