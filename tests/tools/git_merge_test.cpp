// docs/version-control.md as it is written there: a repository, two engineers, git's own merge with sbdtool as its driver.
#ifndef _WIN32

#include "project/sbd_data.h"
#include "sbdfile/project_file.h"
#include "sbdfile/writer.h"
#include "tests/surroundings.h"
#include "tests/tools/tool_runs.h"

#include <cstdlib>
#include <sys/wait.h>

namespace sbd {

namespace {

using testing::HasSubstr;
using testing::Not;

constexpr int kStiffeners = 313;

class GitMerge : public ToolRuns {
protected:
    void SetUp() override
    {
        if (Git("--version") != 0)
            GTEST_SKIP() << "git is not there";
        ASSERT_EQ(Git("init -q -b main"), 0) << said_;
        const std::string tool = test::SbdTool();
        for (const std::string& setting :
             {std::string("user.name Test"), std::string("user.email test@example.org"),
              std::string("commit.gpgsign false"), std::string("diff.sbd.xfuncname '^\\[.*$'"),
              "diff.sbd.textconv '" + tool + " text'", std::string("merge.sbd.name 'sbdtool merge'"),
              "merge.sbd.driver '" + tool + " merge %O %A %B %A %P'"})
            ASSERT_EQ(Git("config " + setting), 0) << said_;
        PutBytes(".gitattributes", "*.sbd  diff=sbd merge=sbd -text\n");
        const std::filesystem::path example = std::filesystem::path(test::ExamplesFolder()) / "plate4";
        PutBytes("plate4.sbd", BytesOf(example / "plate4.sbd"));
        PutBytes("plate4.abd", BytesOf(example / "plate4.abd"));
        Edit([](CSbdData&) {}); // in the writer's own form, so that only edits differ
        Commit("begin");
    }

    /// Runs git in the folder; what it says is in said_.
    int Git(const std::string& arguments)
    {
        const std::string log = At("said");
        const std::string home = "GIT_CONFIG_NOSYSTEM=1 GIT_CONFIG_GLOBAL=/dev/null LC_ALL=C.UTF-8 ";
        const int status =
            std::system((home + "git -C '" + At("") + "' " + arguments + " > '" + log + "' 2>&1").c_str());
        said_ = BytesOf(log);
        std::filesystem::remove(log);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    void Commit(const std::string& message)
    {
        ASSERT_EQ(Git("add -A"), 0) << said_;
        ASSERT_EQ(Git("commit -q -m '" + message + "'"), 0) << said_;
    }

    [[nodiscard]] CSbdData Project() const
    {
        CSbdData data;
        const std::filesystem::path path(At("plate4.sbd"));
        EXPECT_TRUE(LoadProject(path, NamesFileBeside(path), data).Ok());
        return data;
    }

    template <typename Change>
    void Edit(const Change& change)
    {
        CSbdData data = Project();
        change(data);
        PutBytes("plate4.sbd", WriteProject(data));
    }

    /// One engineer works on a branch of her own, the other on main.
    template <typename Hers, typename His>
    void WorkApart(const Hers& hers, const His& his)
    {
        ASSERT_EQ(Git("checkout -q -b hers"), 0) << said_;
        Edit(hers);
        Commit("hers");
        ASSERT_EQ(Git("checkout -q main"), 0) << said_;
        Edit(his);
        Commit("his");
    }

    std::string said_;
};

std::string CellOf(const CSbdData& data, std::size_t column, std::size_t row)
{
    return std::string(data.Table(kStiffeners)->columns[column][row]);
}

void SetCell(CSbdData& data, std::size_t column, std::size_t row, std::string_view text)
{
    data.Table(kStiffeners)->columns[column].Set(row, text);
}

} // namespace

TEST_F(GitMerge, EditsOfTwoEngineersComeTogetherRowByRow)
{
    std::size_t rows = 0;
    WorkApart(
        [](CSbdData& data) {
            SetCell(data, 5, 2, "141");     // a cell of a row
            std::vector<std::string> texts; // the table's own move as it grows
            for (const std::string_view cell : data.Table(kStiffeners)->Row(3))
                texts.emplace_back(cell);
            texts[6] = "31";
            data.Table(kStiffeners)->AppendRow({texts.begin(), texts.end()}); // and a row at the end
        },
        [&](CSbdData& data) {
            rows = data.Table(kStiffeners)->RowCount();
            SetCell(data, 6, 2, "12"); // another cell of the same row
            SetCell(data, 5, 4, "151");
            data.SetOption(301, 0, "HIS");
        });
    ASSERT_EQ(Git("merge -q hers -m merged"), 0) << said_;
    const CSbdData merged = Project();
    EXPECT_EQ(CellOf(merged, 5, 2), "141");
    EXPECT_EQ(CellOf(merged, 6, 2), "12");
    EXPECT_EQ(CellOf(merged, 5, 4), "151");
    EXPECT_EQ(merged.Option(301, 0), "HIS");
    ASSERT_EQ(merged.Table(kStiffeners)->RowCount(), rows + 1);
    EXPECT_EQ(CellOf(merged, 6, rows), "31");
    ASSERT_EQ(Git("status --porcelain"), 0);
    EXPECT_EQ(said_, "");
}

TEST_F(GitMerge, WhatBothHaveChangedStopsTheMergeAndIsNamed)
{
    WorkApart([](CSbdData& data) { SetCell(data, 5, 2, "141"); },
              [](CSbdData& data) {
                  SetCell(data, 5, 2, "151");
                  SetCell(data, 5, 4, "161");
              });
    EXPECT_EQ(Git("merge hers"), 1);
    EXPECT_THAT(said_, HasSubstr("plate4.sbd: 競合が1件あります"));
    EXPECT_THAT(said_, HasSubstr("313 "));
    EXPECT_THAT(said_, HasSubstr("こちら「151」 相手「141」"));
    ASSERT_EQ(Git("diff --name-only --diff-filter=U"), 0);
    EXPECT_EQ(said_, "plate4.sbd\n") << "git takes the file for merged";
    const CSbdData stands = Project(); // opens, without marks of its own
    EXPECT_EQ(CellOf(stands, 5, 2), "151");
    EXPECT_EQ(CellOf(stands, 5, 4), "161");

    Edit([](CSbdData& data) { SetCell(data, 5, 2, "145"); }); // the engineer decides
    Commit("decided");
    ASSERT_EQ(Git("log --oneline --merges"), 0);
    EXPECT_THAT(said_, HasSubstr("decided"));
}

TEST_F(GitMerge, ADiffIsReadable)
{
    Edit([](CSbdData& data) { SetCell(data, 5, 2, "141"); });
    ASSERT_EQ(Git("diff"), 0);
    EXPECT_THAT(said_, HasSubstr("[313 "));
    EXPECT_THAT(said_, HasSubstr("\n+  "));
    EXPECT_THAT(said_, HasSubstr("| 141 |"));
    EXPECT_THAT(said_, Not(HasSubstr("Binary files")));
    std::size_t changed = 0;
    for (std::size_t at = said_.find("\n+ "); at != std::string::npos; at = said_.find("\n+ ", at + 1))
        ++changed;
    EXPECT_EQ(changed, 1U) << said_;
}

} // namespace sbd

#endif
