#include "sbdfile/output_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <string>

namespace sbd {

namespace {

struct Folder {
    std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("sbd-output-" + std::to_string(std::random_device()()));
    Folder() { std::filesystem::create_directory(path); }
    ~Folder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    [[nodiscard]] std::string Text(const char* name) const
    {
        std::string bytes;
        static_cast<void>(ReadFileBytes(path / name, bytes));
        return bytes;
    }
};

} // namespace

TEST(OutputFile, NoFileOfAProjectIsWrittenOver)
{
    const Folder folder;
    for (const char* name : {"a.sbd", "a.SBD", "a.abd", "a.Z1D", "a.z3r", "a.CHK", "a.li9", "a.sbd.", "a.b.Z3F"}) {
        ASSERT_TRUE(ReplaceFileBytes(folder.path / name, "a bridge").Ok());
        const FileResult result = WriteOutputFile(folder.path / name, "a table");
        EXPECT_FALSE(result.Ok()) << name;
        EXPECT_NE(result.detail.find("別の名前"), std::string::npos) << result.detail;
        EXPECT_EQ(folder.Text(name), "a bridge") << name;
    }
    EXPECT_FALSE(WriteOutputFile(folder.path / "new.sbd", "a table").Ok());
    EXPECT_FALSE(std::filesystem::exists(folder.path / "new.sbd"));
}

TEST(OutputFile, ALinkToAProjectIsOne)
{
    const Folder folder;
    ASSERT_TRUE(ReplaceFileBytes(folder.path / "a.sbd", "a bridge").Ok());
    std::error_code error;
    std::filesystem::create_symlink(folder.path / "a.sbd", folder.path / "table.csv", error);
    if (error)
        GTEST_SKIP() << "no links here";
    EXPECT_FALSE(WriteOutputFile(folder.path / "table.csv", "a table").Ok());
    EXPECT_EQ(folder.Text("a.sbd"), "a bridge");
}

TEST(OutputFile, OtherFilesAreReplaced)
{
    const Folder folder;
    for (const char* name : {"a.csv", "sbd", "a.sbd.csv", "a.xlsx", "a.pdf", "asbd"}) {
        ASSERT_TRUE(ReplaceFileBytes(folder.path / name, "before").Ok());
        EXPECT_TRUE(WriteOutputFile(folder.path / name, "a table").Ok()) << name;
        EXPECT_EQ(folder.Text(name), "a table");
    }
}

} // namespace sbd
