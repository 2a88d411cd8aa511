#include "results/result_paths.h"
#include "results/result_stamp.h"
#include "tests/results/file_bytes.h"
#include "tests/results/sample_records.h"
#include "tests/results/temporary_folder.h"

#include <gtest/gtest.h>

#include <chrono>

namespace sbd {

namespace {

using namespace std::chrono_literals;

class ResultStamps : public testing::Test {
protected:
    void Write(std::string_view extension, std::string_view bytes) { WriteFile(ResultFile(project, extension), bytes); }
    void Age(std::string_view extension, std::chrono::seconds by)
    {
        const std::filesystem::path file = ResultFile(project, extension);
        std::filesystem::last_write_time(file, std::filesystem::last_write_time(file) - by);
    }
    void Read() { ReadStampedResultFiles(project, results, asRead); }
    [[nodiscard]] bool HasOther() const { return HasOtherFiles(StampOf(project), asRead); }

    TemporaryFolder folder;
    std::filesystem::path project = folder.Path() / u8"橋 1.sbd";
    AnalysisResults results;
    ResultStamp asRead;
};

} // namespace

TEST_F(ResultStamps, WithoutFilesThereIsNothingToRead)
{
    Read();
    EXPECT_FALSE(HasOther());
}

TEST_F(ResultStamps, AFileThatComesLaterIsOther)
{
    Read();
    Write(".Z3R", BytesOf(SampleCube(6, 2, 6)).Text());
    EXPECT_TRUE(HasOther());
    Read();
    EXPECT_FALSE(HasOther());
    EXPECT_EQ(results.reaction, SampleCube(6, 2, 6));
}

TEST_F(ResultStamps, EachOfTheSixFilesCounts)
{
    for (const std::string_view extension : kResultExtensions)
        Write(extension, "x");
    for (const std::string_view extension : kResultExtensions) {
        Read();
        EXPECT_FALSE(HasOther());
        Age(extension, 5s);
        EXPECT_TRUE(HasOther()) << extension;
    }
}

TEST_F(ResultStamps, AnotherSizeAtTheSameTimeIsOther)
{
    Write(".Z1D", "x");
    Read();
    const auto changed = std::filesystem::last_write_time(ResultFile(project, ".Z1D"));
    Write(".Z1D", "xy");
    std::filesystem::last_write_time(ResultFile(project, ".Z1D"), changed);
    EXPECT_TRUE(HasOther());
}

TEST_F(ResultStamps, AFileThatHasGoneIsNotOtherNorIsItsReturn)
{
    Write(".Z1D", BytesOf(SampleModel()).Text());
    Read();
    const std::filesystem::path file = ResultFile(project, ".Z1D");
    const std::filesystem::path away = folder.Path() / "away";
    std::filesystem::rename(file, away);
    EXPECT_FALSE(HasOther());
    Read();
    EXPECT_EQ(results.model, SampleModel());
    std::filesystem::rename(away, file);
    EXPECT_FALSE(HasOther());
}

TEST_F(ResultStamps, TheFilesOfAnotherProjectAreOther)
{
    Write(".Z1D", "x");
    Read();
    const std::filesystem::path copy = folder.Path() / u8"橋 2.sbd";
    std::filesystem::create_directories(ResultFile(copy, ".Z1D").parent_path());
    std::filesystem::copy_file(ResultFile(project, ".Z1D"), ResultFile(copy, ".Z1D"));
    project = copy;
    EXPECT_TRUE(HasOther());
}

TEST_F(ResultStamps, AFolderInPlaceOfAFileIsNone)
{
    std::filesystem::create_directories(ResultFile(project, ".Z1D"));
    EXPECT_FALSE(HasOther());
}

} // namespace sbd
