#include "tests/tools/tool_runs.h"

namespace sbd {

namespace {

using nlohmann::json;
using testing::HasSubstr;

constexpr std::string_view kProject = "TITLE:X\n[SEC_GROUP]\n G1 G2\n[END]\n";

class TableCommands : public ToolRuns {};

} // namespace

TEST_F(TableCommands, ABlockIsPrintedAndItsRowsAreAppended)
{
    const std::string in = Put("in.sbd", kProject);
    const CommandResult exported = Tool({"export", in, "323"});
    EXPECT_EQ(exported.exitCode, 0) << exported.error;
    EXPECT_THAT(exported.output, HasSubstr("G1,G2"));
    const CommandResult imported =
        Tool({"import", in, At("out.sbd"), "323", PutBytes("t.csv", exported.output + "G3,G4\r\n")});
    EXPECT_EQ(imported.exitCode, 0) << imported.error << imported.output;
    EXPECT_EQ(json::parse(imported.output).at("put"), 4);
    EXPECT_EQ(LoadBytes(BytesOf(At("out.sbd"))).Table(323)->RowCount(), 3U);
    EXPECT_EQ(LoadBytes(BytesOf(At("out.sbd"))).Table(323)->Row(2)[1], "G4");
    EXPECT_EQ(BytesOf(in), FileOf(kProject));
}

TEST_F(TableCommands, WhatDoesNotFitIsCountedAndTheExitCodeSaysSo)
{
    const std::string in = Put("in.sbd", kProject);
    const CommandResult result =
        Tool({"import", in, At("out.sbd"), "323", PutBytes("t.csv", "𠮷,G4\nG5,G6,a,b,c,d,e,f,g,h,i,j,k,l,m,n\n")});
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_EQ(json::parse(result.output).at("unreadable"), 1);
}

TEST_F(TableCommands, WrongUseIsToldAndNothingIsWritten)
{
    const std::string in = Put("in.sbd", kProject);
    EXPECT_EQ(Tool({"export", in, "300"}).exitCode, 2);
    EXPECT_EQ(Tool({"export", in, "x"}).exitCode, 2);
    EXPECT_EQ(Tool({"import", in, in, "323", PutBytes("t.csv", "a,b\n")}).exitCode, 2);
    EXPECT_EQ(Tool({"import", in, At("out.sbd"), "323", At("none.csv")}).exitCode, 2);
    EXPECT_EQ(BytesOf(in), FileOf(kProject));
}

} // namespace sbd
