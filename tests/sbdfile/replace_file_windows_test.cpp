// Saving on Windows: whatever goes wrong on the way, the old file stands whole, and the user can be told why.
#include "project/file_access.h"
#include "sbdfile/project_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#define WIN32_LEAN_AND_MEAN
// clang-format off
#include <windows.h>
#include <sddl.h> // in need of the one before
// clang-format on

#include <chrono>
#include <string>
#include <thread>
#include <vector>

namespace sbd {

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr DWORD kAlone = 0; // sharing: with nobody

/// An open file, until it is let go.
class Held {
public:
    Held(const fs::path& path, DWORD access, DWORD sharing, DWORD disposition = OPEN_EXISTING)
        : handle_(CreateFileW(SystemPath(path).c_str(), access, sharing, nullptr, disposition, 0, nullptr))
    {
        EXPECT_NE(handle_, INVALID_HANDLE_VALUE) << path << ": error " << GetLastError();
    }
    ~Held() { LetGo(); }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

    void LetGo()
    {
        if (handle_ != INVALID_HANDLE_VALUE)
            CloseHandle(handle_);
        handle_ = INVALID_HANDLE_VALUE;
    }
    void Write(std::string_view bytes) const
    {
        DWORD count = 0;
        EXPECT_TRUE(::WriteFile(handle_, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr));
    }
    /// As though the file had been written that long ago.
    void Age(std::chrono::seconds age) const
    {
        FILETIME now{};
        GetSystemTimeAsFileTime(&now);
        std::uint64_t ticks = std::uint64_t{now.dwHighDateTime} << 32 | now.dwLowDateTime; // of 100 ns
        ticks -= static_cast<std::uint64_t>(age.count()) * 10'000'000U;
        const FILETIME then{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
        EXPECT_TRUE(SetFileTime(handle_, nullptr, nullptr, &then));
    }

private:
    HANDLE handle_;
};

void WriteBytes(const fs::path& path, std::string_view bytes)
{
    Held(path, GENERIC_WRITE, kAlone, CREATE_ALWAYS).Write(bytes);
}

std::string Bytes(const fs::path& path)
{
    std::string bytes;
    return ReadFileBytes(path, bytes).Ok() ? bytes : "(not to be read)";
}

DWORD Attributes(const fs::path& path)
{
    return GetFileAttributesW(SystemPath(path).c_str());
}

bool SetAttributes(const fs::path& path, DWORD attributes)
{
    return SetFileAttributesW(SystemPath(path).c_str(), attributes) != 0;
}

bool MakeFolder(const fs::path& path)
{
    return CreateDirectoryW(SystemPath(path).c_str(), nullptr) != 0;
}

/// Gives a file or folder the rights that a text in the system's own language tells.
bool SetRights(const fs::path& path, const wchar_t* text)
{
    PSECURITY_DESCRIPTOR rights = nullptr;
    if (!ConvertStringSecurityDescriptorToSecurityDescriptorW(text, SDDL_REVISION_1, &rights, nullptr))
        return false;
    const bool done = SetFileSecurityW(SystemPath(path).c_str(), DACL_SECURITY_INFORMATION, rights) != 0;
    LocalFree(rights);
    return done;
}

std::vector<BYTE> RightsOf(const fs::path& path)
{
    const std::wstring name = SystemPath(path);
    DWORD size = 0;
    GetFileSecurityW(name.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::vector<BYTE> rights(size);
    EXPECT_TRUE(GetFileSecurityW(name.c_str(), DACL_SECURITY_INFORMATION, rights.data(), size, &size));
    return rights;
}

/// The names that stand in a folder and match a pattern, at any length of the path.
std::vector<std::wstring> Names(const fs::path& folder, const wchar_t* pattern)
{
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW((SystemPath(folder) + L'\\' + pattern).c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return names;
    do {
        const std::wstring name = found.cFileName;
        if (name != L"." && name != L"..")
            names.push_back(name);
    } while (FindNextFileW(search, &found));
    FindClose(search);
    return names;
}

/// The names of new files that have not taken their place.
std::vector<std::wstring> Leftovers(const fs::path& folder)
{
    return Names(folder, L".sbdsave-*");
}

void RemoveAll(const fs::path& folder)
{
    for (const std::wstring& name : Names(folder, L"*")) {
        const fs::path entry = folder / name;
        SetAttributes(entry, FILE_ATTRIBUTE_NORMAL);
        if (!DeleteFileW(SystemPath(entry).c_str()))
            RemoveAll(entry);
    }
    RemoveDirectoryW(SystemPath(folder).c_str());
}

/// A folder of its own for each test.
class ReplaceFileWindowsTest : public testing::Test {
protected:
    ReplaceFileWindowsTest()
    {
        static int number = 0;
        wchar_t temporary[MAX_PATH + 1] = {};
        GetTempPathW(MAX_PATH, temporary);
        folder_ = fs::path(temporary)
                  / (L"replace_file " + std::to_wstring(GetCurrentProcessId()) + L'-' + std::to_wstring(++number));
        EXPECT_TRUE(MakeFolder(folder_));
        file_ = folder_ / "bridge.sbd";
        WriteBytes(file_, old_);
    }
    ~ReplaceFileWindowsTest() override { RemoveAll(folder_); }

    /// What is wrong if a save fails otherwise than with `error`, tells no reason, or leaves something behind.
    [[nodiscard]] std::string Fails(const fs::path& path, FileError error) const
    {
        const FileResult result = ReplaceFileBytes(path, new_);
        if (result.error != error)
            return "error " + std::to_string(static_cast<int>(result.error)) + ": " + result.detail;
        if (result.detail.empty())
            return "the failure has no reason";
        return Leftovers(folder_).empty() ? "" : "a new file is left behind";
    }

    fs::path folder_;
    fs::path file_;
    const std::string old_ = "TITLE:old\r\n" + std::string(20000, 'o');
    const std::string new_ = "TITLE:new\r\n" + std::string(300000, 'n');
};

} // namespace

TEST_F(ReplaceFileWindowsTest, TheNewFileTakesThePlaceOfTheOldOne)
{
    EXPECT_TRUE(ReplaceFileBytes(file_, new_).Ok());
    EXPECT_TRUE(Bytes(file_) == new_);
    EXPECT_TRUE(ReplaceFileBytes(file_, "").Ok());
    EXPECT_EQ(LookAtFile(file_).size, 0U) << "a shorter file leaves nothing of the longer one";
    EXPECT_THAT(Leftovers(folder_), IsEmpty());
}

TEST_F(ReplaceFileWindowsTest, AFileThatIsNotThereIsMade)
{
    const FileResult result = ReplaceFileBytes(folder_ / "fresh.sbd", new_);
    ASSERT_TRUE(result.Ok()) << result.detail;
    EXPECT_TRUE(Bytes(folder_ / "fresh.sbd") == new_);
    EXPECT_TRUE(Bytes(file_) == old_);
    EXPECT_THAT(Leftovers(folder_), IsEmpty());
}

TEST_F(ReplaceFileWindowsTest, AJapaneseNameAndTheLongestNameAreSaved)
{
    for (const fs::path& name : {fs::path(u8"県道１２号線　ソ表𠮷.sbd"), fs::path(std::wstring(251, L'x') + L".sbd")}) {
        for (int turn = 0; turn < 2; ++turn) { // new, and in place of the old one
            const FileResult result = ReplaceFileBytes(folder_ / name, new_);
            EXPECT_TRUE(result.Ok()) << name << ": " << result.detail;
            EXPECT_TRUE(Bytes(folder_ / name) == new_) << name;
        }
    }
    EXPECT_THAT(Leftovers(folder_), IsEmpty());
}

TEST_F(ReplaceFileWindowsTest, APathOfMoreThan260CharactersIsSaved)
{
    fs::path deep = folder_;
    while (deep.native().size() < 600) {
        deep /= std::wstring(60, L'd') + L" 橋";
        ASSERT_TRUE(MakeFolder(deep)) << GetLastError();
    }
    const fs::path file = deep / fs::path(u8"橋.sbd");
    for (int turn = 0; turn < 2; ++turn) {
        const FileResult result = ReplaceFileBytes(file, new_);
        EXPECT_TRUE(result.Ok()) << result.detail;
        EXPECT_TRUE(Bytes(file) == new_);
    }
    EXPECT_THAT(Leftovers(deep), IsEmpty());
}

TEST_F(ReplaceFileWindowsTest, AFileOfTheCurrentFolderNeedsNoFolderInItsPath)
{
    const fs::path before = fs::current_path();
    fs::current_path(folder_);
    const FileResult result = ReplaceFileBytes("bridge.sbd", new_);
    fs::current_path(before);
    EXPECT_TRUE(result.Ok()) << result.detail;
    EXPECT_TRUE(Bytes(file_) == new_);
}

TEST_F(ReplaceFileWindowsTest, SlashesOfBothKindsLeadThere)
{
    const FileResult result = ReplaceFileBytes(folder_.generic_wstring() + L"/bridge.sbd", new_);
    EXPECT_TRUE(result.Ok()) << result.detail;
    EXPECT_TRUE(Bytes(file_) == new_);
}

TEST_F(ReplaceFileWindowsTest, AReadOnlyFileIsNotReplaced)
{
    ASSERT_TRUE(SetAttributes(file_, FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(Fails(file_, FileError::NoPermission), "");
    EXPECT_TRUE(Bytes(file_) == old_);
    EXPECT_TRUE(Attributes(file_) & FILE_ATTRIBUTE_READONLY);
}

TEST_F(ReplaceFileWindowsTest, AttributesStay)
{
    ASSERT_TRUE(SetAttributes(file_, FILE_ATTRIBUTE_HIDDEN));
    const FileResult result = ReplaceFileBytes(file_, new_);
    ASSERT_TRUE(result.Ok()) << result.detail;
    EXPECT_TRUE(Bytes(file_) == new_);
    EXPECT_TRUE(Attributes(file_) & FILE_ATTRIBUTE_HIDDEN);
}

TEST_F(ReplaceFileWindowsTest, AFolderIsNotReplaced)
{
    ASSERT_TRUE(MakeFolder(folder_ / "folder.sbd"));
    EXPECT_EQ(Fails(folder_ / "folder.sbd", FileError::IsFolder), "");
    EXPECT_EQ(LookAtFile(folder_ / "folder.sbd").kind, FileFacts::Kind::Folder);
}

TEST_F(ReplaceFileWindowsTest, AFolderThatIsNotThereIsToldAsNotFound)
{
    EXPECT_EQ(Fails(folder_ / "missing" / "bridge.sbd", FileError::NotFound), "");
    EXPECT_EQ(LookAtFile(folder_ / "missing").kind, FileFacts::Kind::NotThere);
    EXPECT_EQ(Fails(file_ / "bridge.sbd", FileError::NotFound), "") << "a file where a folder is named";
    EXPECT_TRUE(Bytes(file_) == old_);
}

TEST_F(ReplaceFileWindowsTest, AFolderThatTakesNoFileKeepsItsOwn)
{
    ASSERT_TRUE(SetRights(folder_, L"D:P(D;;DCLC;;;WD)(A;OICI;FA;;;WD)")); // nobody adds files or folders
    const bool binds = !MakeFolder(folder_ / "folder");
    const std::string wrong = binds ? Fails(file_, FileError::NoPermission) : "";
    ASSERT_TRUE(SetRights(folder_, L"D:P(A;OICI;FA;;;WD)"));
    if (!binds)
        GTEST_SKIP() << "rights do not bind this user";
    EXPECT_EQ(wrong, "");
    EXPECT_TRUE(Bytes(file_) == old_);
}

TEST_F(ReplaceFileWindowsTest, TheRightsOfTheFileStay)
{
    ASSERT_TRUE(SetRights(file_, L"D:P(A;;FA;;;WD)(A;;FR;;;BG)"));
    const std::vector<BYTE> before = RightsOf(file_);
    const FileResult result = ReplaceFileBytes(file_, new_);
    ASSERT_TRUE(result.Ok()) << result.detail;
    EXPECT_TRUE(Bytes(file_) == new_);
    EXPECT_EQ(RightsOf(file_), before);
}

TEST_F(ReplaceFileWindowsTest, AFileThatIsHeldForAMomentIsReplacedAfterAll)
{
    // As virus scanners do: open to be looked at, shared with nobody who would rename it, or with nobody at all.
    for (const DWORD sharing : {DWORD{FILE_SHARE_READ | FILE_SHARE_WRITE}, kAlone}) {
        WriteBytes(file_, old_);
        Held scanner(file_, GENERIC_READ, sharing);
        std::thread end([&] {
            std::this_thread::sleep_for(200ms);
            scanner.LetGo();
        });
        const FileResult result = ReplaceFileBytes(file_, new_);
        end.join();
        EXPECT_TRUE(result.Ok()) << "shared " << sharing << ": " << result.detail;
        EXPECT_TRUE(Bytes(file_) == new_) << "shared " << sharing;
        EXPECT_THAT(Leftovers(folder_), IsEmpty());
    }
}

TEST_F(ReplaceFileWindowsTest, AFileThatIsHeldForGoodStays)
{
    for (const DWORD sharing :
         {kAlone, DWORD{FILE_SHARE_READ}, DWORD{FILE_SHARE_WRITE}, DWORD{FILE_SHARE_READ | FILE_SHARE_WRITE}}) {
        Held holder(file_, GENERIC_READ, sharing);
        EXPECT_EQ(Fails(file_, FileError::NoPermission), "") << "shared as " << sharing;
        holder.LetGo();
        EXPECT_TRUE(Bytes(file_) == old_) << "shared as " << sharing;
    }
}

TEST_F(ReplaceFileWindowsTest, OldLeftoversAreRemovedFreshAndHeldOnesAreNot)
{
    const Held held(folder_ / ".sbdsave-1-held", GENERIC_WRITE, kAlone, CREATE_NEW);
    held.Age(10min);
    WriteBytes(folder_ / ".sbdsave-2-fresh", "half of a");
    {
        const Held old(folder_ / ".sbdsave-3-old", GENERIC_WRITE, kAlone, CREATE_NEW);
        old.Write("half of a");
        old.Age(10min);
    }
    ASSERT_TRUE(ReplaceFileBytes(file_, new_).Ok());
    EXPECT_THAT(Leftovers(folder_), testing::UnorderedElementsAre(L".sbdsave-1-held", L".sbdsave-2-fresh"));
}

TEST_F(ReplaceFileWindowsTest, SweepingTouchesNothingElse)
{
    for (const char* name : {"sbdsave-a", ".sbdsave", ".other", "bridge.bak"}) {
        const Held other(folder_ / name, GENERIC_WRITE, kAlone, CREATE_NEW);
        other.Write("mine");
        other.Age(10min);
    }
    ASSERT_TRUE(MakeFolder(folder_ / ".sbdsave-folder"));
    ASSERT_TRUE(ReplaceFileBytes(file_, new_).Ok());
    for (const char* name : {"sbdsave-a", ".sbdsave", ".other", "bridge.bak"})
        EXPECT_EQ(Bytes(folder_ / name), "mine") << name;
    EXPECT_EQ(LookAtFile(folder_ / ".sbdsave-folder").kind, FileFacts::Kind::Folder);
}

} // namespace sbd
