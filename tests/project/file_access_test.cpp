// What stands at a path, and its bytes: any characters, any length.
#include "project/file_access.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#ifdef _WIN32
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
#endif

namespace sbd {

namespace {

namespace fs = std::filesystem;

#ifdef _WIN32
bool MakeFolder(const fs::path& path)
{
    return CreateDirectoryW(SystemPath(path).c_str(), nullptr) != 0;
}

void RemoveFolder(const fs::path& path)
{
    RemoveDirectoryW(SystemPath(path).c_str());
}

void RemoveFile(const fs::path& path)
{
    DeleteFileW(SystemPath(path).c_str());
}

FileHandle OpenForWriting(const fs::path& path)
{
    return FileHandle(_wfopen(SystemPath(path).c_str(), L"wb"));
}
#else
bool MakeFolder(const fs::path& path)
{
    return fs::create_directory(path);
}

void RemoveFolder(const fs::path& path)
{
    fs::remove(path);
}

void RemoveFile(const fs::path& path)
{
    fs::remove(path);
}

FileHandle OpenForWriting(const fs::path& path)
{
    return FileHandle(std::fopen(path.c_str(), "wb"));
}
#endif

std::string Bytes(const fs::path& path)
{
    const FileHandle file = OpenForReading(path);
    if (!file)
        return "(not to be read)";
    std::string bytes(100, '\0');
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file.get()));
    return bytes;
}

/// A folder of its own for each test.
class FileAccessTest : public testing::Test {
protected:
    FileAccessTest() { EXPECT_TRUE(Make(folder_)); }
    ~FileAccessTest() override
    {
        for (const fs::path& file : files_)
            RemoveFile(file);
        for (; !folders_.empty(); folders_.pop_back())
            RemoveFolder(folders_.back());
    }

    bool Make(const fs::path& folder)
    {
        folders_.push_back(folder);
        return MakeFolder(folder);
    }
    void Write(const fs::path& path, std::string_view bytes)
    {
        files_.push_back(path);
        const FileHandle file = OpenForWriting(path);
        ASSERT_TRUE(file);
        ASSERT_EQ(std::fwrite(bytes.data(), 1, bytes.size(), file.get()), bytes.size());
    }

    const fs::path folder_ = fs::temp_directory_path() / ("file access " + std::to_string(std::random_device()()));

private:
    std::vector<fs::path> folders_;
    std::vector<fs::path> files_;
};

} // namespace

TEST_F(FileAccessTest, AFileTellsItsSizeAndBytes)
{
    const fs::path file = folder_ / "bridge.sbd";
    Write(file, "TITLE:A\r\n\x1A after");
    const FileFacts facts = LookAtFile(file);
    EXPECT_EQ(facts.kind, FileFacts::Kind::File);
    EXPECT_EQ(facts.size, 16U);
    EXPECT_NE(facts.changed, 0);
    EXPECT_EQ(Bytes(file), "TITLE:A\r\n\x1A after") << "bytes come as they are";
}

TEST_F(FileAccessTest, ALaterChangeHasALaterTime)
{
    const fs::path file = folder_ / "bridge.sbd";
    Write(file, "A");
    const FileFacts before = LookAtFile(file);
    fs::last_write_time(file, fs::last_write_time(file) + std::chrono::seconds(2));
    EXPECT_GT(LookAtFile(file).changed, before.changed);
}

TEST_F(FileAccessTest, AFolderIsAFolderAndNotRead)
{
    EXPECT_EQ(LookAtFile(folder_).kind, FileFacts::Kind::Folder);
    EXPECT_TRUE(Bytes(folder_).empty() || Bytes(folder_) == "(not to be read)");
}

TEST_F(FileAccessTest, NothingIsNotThere)
{
    for (const fs::path& path : {folder_ / "no.sbd", folder_ / "no folder" / "no.sbd", fs::path()}) {
        EXPECT_EQ(LookAtFile(path).kind, FileFacts::Kind::NotThere) << path;
        errno = 0;
        EXPECT_FALSE(OpenForReading(path)) << path;
        EXPECT_NE(errno, 0) << path;
    }
}

TEST_F(FileAccessTest, JapaneseNamesAreFound)
{
    const fs::path folder = folder_ / fs::path(u8"設計　課 ソ表能");
    ASSERT_TRUE(Make(folder));
    const fs::path file = folder / fs::path(u8"県道１２号線 𠮷.sbd");
    Write(file, "A");
    EXPECT_EQ(LookAtFile(folder).kind, FileFacts::Kind::Folder);
    EXPECT_EQ(LookAtFile(file).kind, FileFacts::Kind::File);
    EXPECT_EQ(Bytes(file), "A");
}

TEST_F(FileAccessTest, APathOfMoreThan260CharactersIsFound)
{
    fs::path deep = folder_;
    while (deep.native().size() < 600) {
        deep /= std::string(80, 'd');
        ASSERT_TRUE(Make(deep));
    }
    const fs::path file = deep / fs::path(u8"橋.sbd");
    EXPECT_EQ(LookAtFile(file).kind, FileFacts::Kind::NotThere);
    Write(file, "A");
    EXPECT_EQ(LookAtFile(deep).kind, FileFacts::Kind::Folder);
    EXPECT_EQ(LookAtFile(file).kind, FileFacts::Kind::File);
    EXPECT_EQ(LookAtFile(file).size, 1U);
    EXPECT_EQ(Bytes(file), "A");
}

TEST_F(FileAccessTest, OthersMayWriteWhileAFileIsRead)
{
    const fs::path file = folder_ / "bridge.sbd";
    Write(file, "A");
    const FileHandle reader = OpenForReading(file);
    ASSERT_TRUE(reader);
    EXPECT_TRUE(OpenForWriting(file));
}

#ifdef _WIN32

TEST(SystemPathTest, EveryFormOfAPathBecomesTheLongOne)
{
    wchar_t here[MAX_PATH] = {};
    GetCurrentDirectoryW(MAX_PATH, here);
    std::wstring current = here;
    if (!current.ends_with(L'\\'))
        current += L'\\';
    const std::pair<const wchar_t*, std::wstring> forms[] = {
        {LR"(D:\data\bridge.sbd)", LR"(\\?\D:\data\bridge.sbd)"},
        {LR"(D:/data/橋 一.sbd)", LR"(\\?\D:\data\橋 一.sbd)"},
        {LR"(D:\data\.\old\..\bridge.sbd)", LR"(\\?\D:\data\bridge.sbd)"},
        {LR"(\\server\設計\bridge.sbd)", LR"(\\?\UNC\server\設計\bridge.sbd)"},
        {LR"(//server/data/bridge.sbd)", LR"(\\?\UNC\server\data\bridge.sbd)"},
        {LR"(\\?\D:\data\bridge.sbd)", LR"(\\?\D:\data\bridge.sbd)"},
        {LR"(\\?\UNC\server\data\bridge.sbd)", LR"(\\?\UNC\server\data\bridge.sbd)"},
        {LR"(\\.\COM1)", LR"(\\.\COM1)"},
        {L"NUL", LR"(\\.\NUL)"},
        {L"bridge.sbd", LR"(\\?\)" + current + L"bridge.sbd"},
        {LR"(data\bridge.sbd)", LR"(\\?\)" + current + LR"(data\bridge.sbd)"},
        {LR"(\data\bridge.sbd)", LR"(\\?\)" + current.substr(0, 2) + LR"(\data\bridge.sbd)"},
        {L"", L""},
    };
    for (const auto& [path, form] : forms)
        EXPECT_TRUE(SystemPath(path) == form) << fs::path(path) << " became " << fs::path(SystemPath(path));
}

TEST(SystemPathTest, ALongPathIsNotCut)
{
    const std::wstring path = LR"(D:\)" + std::wstring(1000, L'd') + LR"(\bridge.sbd)";
    EXPECT_TRUE(SystemPath(path) == LR"(\\?\)" + path);
}

#endif

} // namespace sbd
