#include "project/text.h"
#include "results/result_paths.h"
#include "results/result_state.h"
#include "tests/results/file_bytes.h"
#include "tests/results/sample_records.h"
#include "tests/results/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

namespace sbd {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ResultStates : public testing::Test {
protected:
    ResultStates()
    {
        WriteFile(project, "x");
        WriteFile(ResultFile(project, ".Z1D"), BytesOf(SampleModel()).Text());
        WriteFile(ResultFile(project, ".Z3R"), BytesOf(SampleCube(6, 2, 6)).Text());
        ReadStampedResultFiles(project, results, asRead);
    }
    /// Moves the last change of a file, against that of the results.
    void Change(const std::filesystem::path& file, std::chrono::seconds after)
    {
        std::filesystem::last_write_time(file, std::filesystem::last_write_time(ResultFile(project, ".Z1D")) + after);
    }
    [[nodiscard]] ResultState State(bool unsaved = false) const { return ResultStateOf(project, asRead, unsaved); }

    TemporaryFolder folder;
    std::filesystem::path project = folder.Path() / u8"橋1.sbd";
    AnalysisResults results;
    ResultStamp asRead;
};

} // namespace

TEST_F(ResultStates, NamesTheFilesThatWereReadAndThoseThatAreMissing)
{
    Change(project, -60s);
    const ResultState state = State();
    EXPECT_EQ(FromCp932(state.project), "橋1.sbd");
    EXPECT_THAT(state.files, ElementsAre("Z1D", "Z3R"));
    EXPECT_THAT(state.missing, ElementsAre("Z1F", "Z1R", "Z3D", "Z3F"));
    EXPECT_THAT(state.newerInput, IsEmpty());
    EXPECT_EQ(state.time.size(), std::string_view("2026/11/22 09:30").size()) << state.time;
    EXPECT_EQ(StaleLine(state), "");
    EXPECT_EQ(FromCp932(ResultStateLine(state)),
              "結果: " + state.time + "　ファイル: Z1D, Z3R　ない: Z1F, Z1R, Z3D, Z3F");
}

TEST_F(ResultStates, InputThatChangedAfterTheResultsMakesThemOld)
{
    Change(project, 60s);
    EXPECT_TRUE(FromCp932(StaleLine(State())).starts_with("結果は入力より古い: 橋1.sbd (2")) << StaleLine(State());
    Change(project, -60s);
    std::filesystem::path names = project;
    names.replace_extension(".abd");
    WriteFile(names, "x");
    Change(names, 60s);
    EXPECT_TRUE(FromCp932(StaleLine(State())).starts_with("結果は入力より古い: 橋1.abd (2")) << StaleLine(State());
}

TEST_F(ResultStates, ASecondIsNoChange)
{
    Change(project, 1s);
    EXPECT_EQ(StaleLine(State()), "") << "some disks know even seconds only";
}

TEST_F(ResultStates, ChangesThatAreNotSavedMakeThemOldToo)
{
    Change(project, -60s);
    EXPECT_EQ(FromCp932(StaleLine(State(true))), "結果は入力より古い: 保存していない変更");
}

TEST_F(ResultStates, WithoutResultsNothingIsSaid)
{
    const ResultState state = ResultStateOf(project, {}, true);
    EXPECT_EQ(ResultStateLine(state), "");
    EXPECT_EQ(StaleLine(state), "");
    EXPECT_EQ(ResultStateOf({}, {}, false).project, "");
}

} // namespace sbd
