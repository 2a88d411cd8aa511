// Saving: whatever goes wrong on the way, the old file stands whole, and the user can be told why.
#include "project/file_access.h"
#include "sbdfile/file_errors.h"
#include "sbdfile/project_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#ifndef _WIN32

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <grp.h>
#include <iostream>
#include <random>
#include <sched.h>
#include <string>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace sbd {

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr uid_t kNobody = 65534;
constexpr const char* kSkip = "skip: ";

void WriteBytes(const fs::path& path, std::string_view bytes)
{
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string Bytes(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The names of new files that have not taken their place.
std::vector<std::string> Leftovers(const fs::path& folder)
{
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
        if (entry.path().filename().string().starts_with(".sbdsave-"))
            names.push_back(entry.path().filename().string());
    return names;
}

/// Runs `task` in a process of its own, which may limit itself or be killed. What it returns is what is wrong; empty:
/// nothing.
std::string InChild(const std::function<std::string()>& task)
{
    int ends[2];
    if (::pipe(ends) != 0)
        return std::strerror(errno);
    const pid_t child = ::fork();
    if (child == 0) {
        const std::string wrong = task();
        const bool told = ::write(ends[1], wrong.data(), wrong.size()) == static_cast<ssize_t>(wrong.size());
        ::_exit(told ? 0 : 1);
    }
    ::close(ends[1]);
    std::string wrong;
    char buffer[512];
    for (ssize_t count = 0; (count = ::read(ends[0], buffer, sizeof buffer)) > 0;)
        wrong.append(buffer, static_cast<std::size_t>(count));
    ::close(ends[0]);
    int status = 0;
    if (::waitpid(child, &status, 0) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
        wrong += " (the child ended with status " + std::to_string(status) + ")";
    return wrong;
}

/// What is wrong if a save fails otherwise than with `error`, if it tells no reason, or if it touched the old file or
/// left something behind.
std::string FailsAndLeaves(const fs::path& path, std::string_view bytes, FileError error, const std::string& old)
{
    const FileResult result = ReplaceFileBytes(path, bytes);
    if (result.error != error)
        return "error " + std::to_string(static_cast<int>(result.error)) + ": " + result.detail;
    if (result.detail.empty())
        return "the failure has no reason";
    if (Bytes(path) != old)
        return "the old file has changed";
    return Leftovers(path.parent_path()).empty() ? "" : "a new file is left behind";
}

/// A folder of its own for each test, which everybody may enter.
class ReplaceFileTest : public testing::Test {
protected:
    ReplaceFileTest()
    {
        std::string name = (fs::temp_directory_path() / "replace_file_XXXXXX").string();
        folder_ = ::mkdtemp(name.data());
        fs::permissions(folder_, fs::perms(0755));
        file_ = folder_ / "bridge.sbd";
        WriteBytes(file_, old_);
    }
    ~ReplaceFileTest() override
    {
        std::error_code ignored;
        fs::permissions(folder_, fs::perms(0755), ignored);
        fs::remove_all(folder_, ignored);
    }

    fs::path folder_;
    fs::path file_;
    const std::string old_ = "TITLE:old\r\n" + std::string(20000, 'o');
    const std::string new_ = "TITLE:new\r\n" + std::string(300000, 'n');
};

} // namespace

TEST_F(ReplaceFileTest, TheNewFileTakesThePlaceOfTheOldOne)
{
    EXPECT_TRUE(ReplaceFileBytes(file_, new_).Ok());
    EXPECT_TRUE(Bytes(file_) == new_);
    EXPECT_TRUE(ReplaceFileBytes(file_, "").Ok());
    EXPECT_EQ(fs::file_size(file_), 0U) << "a shorter file leaves nothing of the longer one";
    EXPECT_THAT(Leftovers(folder_), IsEmpty());
}

TEST_F(ReplaceFileTest, AFileThatIsNotThereIsMadeWithTheRightsThatOthersGet)
{
    const mode_t before = ::umask(0027);
    const FileResult result = ReplaceFileBytes(folder_ / "fresh.sbd", new_);
    ::umask(before);
    ASSERT_TRUE(result.Ok()) << result.detail;
    EXPECT_TRUE(Bytes(folder_ / "fresh.sbd") == new_);
    EXPECT_EQ(fs::status(folder_ / "fresh.sbd").permissions(), fs::perms(0640));
}

TEST_F(ReplaceFileTest, AJapaneseNameAndTheLongestNameAreSaved)
{
    for (const std::string& name : {std::string("県道１２号線.sbd"), std::string(251, 'x') + ".sbd"}) {
        const FileResult result = ReplaceFileBytes(folder_ / name, new_);
        EXPECT_TRUE(result.Ok()) << name << ": " << result.detail;
        EXPECT_TRUE(Bytes(folder_ / name) == new_) << name;
    }
}

TEST_F(ReplaceFileTest, AFileOfTheCurrentFolderNeedsNoFolderInItsPath)
{
    const fs::path before = fs::current_path();
    fs::current_path(folder_);
    const FileResult result = ReplaceFileBytes("bridge.sbd", new_);
    fs::current_path(before);
    EXPECT_TRUE(result.Ok()) << result.detail;
    EXPECT_TRUE(Bytes(file_) == new_);
}

TEST_F(ReplaceFileTest, RightsAndOwnerStay)
{
    fs::permissions(file_, fs::perms(0604));
    const bool given = ::chown(file_.c_str(), kNobody, kNobody) == 0; // the administrator alone can
    ASSERT_TRUE(ReplaceFileBytes(file_, new_).Ok());
    struct stat status {};
    ASSERT_EQ(::stat(file_.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0604U);
    EXPECT_EQ(status.st_uid, given ? kNobody : ::getuid());
}

TEST_F(ReplaceFileTest, ASymbolicLinkStaysALinkAndItsTargetIsReplaced)
{
    const fs::path link = folder_ / "links" / "linked.sbd";
    fs::create_directory(folder_ / "links");
    fs::create_symlink("../bridge.sbd", link);
    const FileResult result = ReplaceFileBytes(link, new_);
    ASSERT_TRUE(result.Ok()) << result.detail;
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_FALSE(fs::is_symlink(file_));
    EXPECT_TRUE(Bytes(file_) == new_);
    EXPECT_THAT(Leftovers(folder_ / "links"), IsEmpty());
}

TEST_F(ReplaceFileTest, ALinkToAFileThatIsNotThereMakesThatFile)
{
    fs::create_symlink("later.sbd", folder_ / "first.sbd");
    fs::create_symlink("first.sbd", folder_ / "second.sbd");
    const FileResult result = ReplaceFileBytes(folder_ / "second.sbd", new_);
    ASSERT_TRUE(result.Ok()) << result.detail;
    EXPECT_TRUE(fs::is_symlink(folder_ / "second.sbd"));
    EXPECT_TRUE(fs::is_symlink(folder_ / "first.sbd"));
    EXPECT_TRUE(Bytes(folder_ / "later.sbd") == new_);
}

TEST_F(ReplaceFileTest, LinksInACircleAreAnError)
{
    fs::create_symlink("b.sbd", folder_ / "a.sbd");
    fs::create_symlink("a.sbd", folder_ / "b.sbd");
    EXPECT_FALSE(ReplaceFileBytes(folder_ / "a.sbd", new_).Ok());
    EXPECT_TRUE(fs::is_symlink(folder_ / "a.sbd"));
    EXPECT_THAT(Leftovers(folder_), IsEmpty());
}

TEST_F(ReplaceFileTest, AnotherNameOfTheSameFileKeepsTheOldText)
{
    fs::create_hard_link(file_, folder_ / "copy.sbd");
    ASSERT_TRUE(ReplaceFileBytes(file_, new_).Ok());
    EXPECT_TRUE(Bytes(file_) == new_);
    EXPECT_TRUE(Bytes(folder_ / "copy.sbd") == old_) << "written in place, it would be lost with a save that fails";
}

TEST_F(ReplaceFileTest, AFolderIsNotReplaced)
{
    fs::create_directory(folder_ / "folder.sbd");
    const FileResult result = ReplaceFileBytes(folder_ / "folder.sbd", new_);
    EXPECT_EQ(result.error, FileError::IsFolder);
    EXPECT_EQ(result.detail, "フォルダーです");
    EXPECT_TRUE(fs::is_directory(folder_ / "folder.sbd"));
}

TEST_F(ReplaceFileTest, AFolderThatIsNotThereIsToldAsNotFound)
{
    const FileResult result = ReplaceFileBytes(folder_ / "missing" / "bridge.sbd", new_);
    EXPECT_EQ(result.error, FileError::NotFound);
    EXPECT_EQ(result.detail, "ファイルまたはフォルダーがありません");
    EXPECT_FALSE(fs::exists(folder_ / "missing"));
    EXPECT_EQ(ReplaceFileBytes(file_ / "bridge.sbd", new_).error, FileError::NotFound)
        << "a file where a folder is named";
    EXPECT_TRUE(Bytes(file_) == old_);
}

TEST_F(ReplaceFileTest, APipeThatNobodyReadsIsNotWaitedFor)
{
    ASSERT_EQ(::mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    const FileResult result = ReplaceFileBytes(folder_ / "pipe", new_);
    EXPECT_EQ(result.error, FileError::Other);
    EXPECT_TRUE(fs::is_fifo(folder_ / "pipe"));
}

TEST_F(ReplaceFileTest, WhatIsNoPlainFileIsNotRead)
{
    ASSERT_EQ(::mkfifo((folder_ / "pipe.sbd").c_str(), 0600), 0);
    fs::create_symlink(folder_ / "pipe.sbd", folder_ / "link.sbd");
    std::string bytes = "before";
    for (const fs::path& path :
         {folder_ / "pipe.sbd", folder_ / "link.sbd", fs::path("/dev/null"), fs::path("/dev/zero")}) {
        const FileResult result = ReadFileBytes(path, bytes); // waits for ever if it waits
        EXPECT_EQ(result.error, FileError::NoPlainFile) << path;
        EXPECT_FALSE(result.detail.empty());
        EXPECT_FALSE(OpenForReading(path)) << path;
    }
    EXPECT_EQ(bytes, "before");
}

TEST_F(ReplaceFileTest, TheSystemsWordsAreJapaneseForEveryCommonError)
{
    for (const int code : {ENOENT, ENOTDIR, EISDIR,       EACCES, EPERM,  EROFS,  ENOSPC, EFBIG,     EDQUOT, EIO, ENXIO,
                           EBUSY,  EINVAL,  ENAMETOOLONG, ELOOP,  EMFILE, ENFILE, ENOMEM, ETIMEDOUT, ESTALE, 9999}) {
        const std::string words = ErrorOfCode(code).detail;
        EXPECT_GT(static_cast<unsigned char>(words.at(0)), 0x7FU) << code << ": " << words;
    }
}

TEST_F(ReplaceFileTest, AFullDeviceIsToldAsDiskFull)
{
    if (!fs::exists("/dev/full"))
        GTEST_SKIP() << "this system has no /dev/full";
    const FileResult result = ReplaceFileBytes("/dev/full", new_);
    EXPECT_EQ(result.error, FileError::DiskFull);
    EXPECT_EQ(result.detail, "ディスクに空きがありません");
    EXPECT_TRUE(fs::is_character_file("/dev/full")) << "the device itself must not be replaced";
}

TEST_F(ReplaceFileTest, ADeviceIsWrittenToAsItStands)
{
    EXPECT_TRUE(ReplaceFileBytes("/dev/null", new_).Ok());
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(ReplaceFileTest, ASinkThatFailsAfterSomeBytesLeavesTheOldFile)
{
    // A limit on the size of files cuts the new one off after that many bytes, wherever that is.
    for (const rlim_t limit : {0UL, 1UL, 4095UL, 4096UL, 65536UL, 299999UL, 300010UL}) {
        const std::string wrong = InChild([&]() -> std::string {
            std::signal(SIGXFSZ, SIG_IGN);
            const struct rlimit limits {
                limit, limit
            };
            if (::setrlimit(RLIMIT_FSIZE, &limits) != 0)
                return "the limit cannot be set";
            return FailsAndLeaves(file_, new_, FileError::DiskFull, old_);
        });
        EXPECT_EQ(wrong, "") << "after " << limit << " bytes";
        EXPECT_TRUE(Bytes(file_) == old_) << "after " << limit << " bytes";
    }
    const std::string wrong = InChild([&]() -> std::string {
        const struct rlimit limits {
            new_.size(), new_.size()
        };
        return ::setrlimit(RLIMIT_FSIZE, &limits) == 0 && ReplaceFileBytes(file_, new_).Ok() ? "" : "it fits and fails";
    });
    EXPECT_EQ(wrong, "");
    EXPECT_TRUE(Bytes(file_) == new_);
}

TEST_F(ReplaceFileTest, AFullDiskLeavesTheOldFileAndTheNextSaveSucceeds)
{
    const std::string wrong = InChild([&]() -> std::string {
        // A mount that this child alone sees, so that nothing is left of it.
        if (::unshare(CLONE_NEWNS) != 0 || ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0
            || ::mount("tmpfs", folder_.c_str(), "tmpfs", 0, "size=64k") != 0)
            return kSkip + std::string("no small disk can be mounted here: ") + std::strerror(errno);
        WriteBytes(file_, old_);
        if (const std::string failure = FailsAndLeaves(file_, new_, FileError::DiskFull, old_); !failure.empty())
            return failure;
        const std::string fits = old_.substr(0, 10000);
        if (const FileResult result = ReplaceFileBytes(file_, fits); !result.Ok())
            return "there is room again, but: " + result.detail;
        return Bytes(file_) == fits ? "" : "the file that fits is not there";
    });
    if (wrong.starts_with(kSkip))
        GTEST_SKIP() << wrong;
    EXPECT_EQ(wrong, "");
}

TEST_F(ReplaceFileTest, AReadOnlyDiskIsToldAsNoPermission)
{
    const std::string wrong = InChild([&]() -> std::string {
        if (::unshare(CLONE_NEWNS) != 0 || ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0
            || ::mount("tmpfs", folder_.c_str(), "tmpfs", 0, "size=64k") != 0)
            return kSkip + std::string("no disk can be mounted here: ") + std::strerror(errno);
        WriteBytes(file_, old_);
        if (::mount(nullptr, folder_.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) != 0)
            return kSkip + std::string("the disk cannot be made read-only: ") + std::strerror(errno);
        return FailsAndLeaves(file_, new_, FileError::NoPermission, old_);
    });
    if (wrong.starts_with(kSkip))
        GTEST_SKIP() << wrong;
    EXPECT_EQ(wrong, "");
}

namespace {

/// FailsAndLeaves as a user whom rights bind.
std::string FailsForAUser(const fs::path& path, std::string_view bytes, FileError error, const std::string& old)
{
    return InChild([&]() -> std::string {
        if (::getuid() == 0 && (::setgid(kNobody) != 0 || ::setuid(kNobody) != 0))
            return kSkip + std::string("no other user can be taken on: ") + std::strerror(errno);
        return FailsAndLeaves(path, bytes, error, old);
    });
}

} // namespace

TEST_F(ReplaceFileTest, AReadOnlyFileIsNotReplacedThoughItsFolderMayBeWrittenTo)
{
    fs::permissions(file_, fs::perms(0444));
    fs::permissions(folder_, fs::perms(0777));
    const std::string wrong = FailsForAUser(file_, new_, FileError::NoPermission, old_);
    if (wrong.starts_with(kSkip))
        GTEST_SKIP() << wrong;
    EXPECT_EQ(wrong, "");
    EXPECT_TRUE(Bytes(file_) == old_);
}

TEST_F(ReplaceFileTest, AReadOnlyFolderKeepsItsFile)
{
    fs::permissions(file_, fs::perms(0666));
    fs::permissions(folder_, fs::perms(0555));
    const std::string wrong = FailsForAUser(file_, new_, FileError::NoPermission, old_);
    if (wrong.starts_with(kSkip))
        GTEST_SKIP() << wrong;
    EXPECT_EQ(wrong, "");
    EXPECT_TRUE(Bytes(file_) == old_);
}

TEST_F(ReplaceFileTest, AGroupMemberWhoSavesLeavesTheFileToTheGroup)
{
    constexpr gid_t group = 54321;
    if (::getuid() != 0 || ::chown(file_.c_str(), 0, group) != 0)
        GTEST_SKIP() << "only the administrator can give the file to a group";
    fs::permissions(file_, fs::perms(0664));
    fs::permissions(folder_, fs::perms(0777));
    const std::string wrong = InChild([&]() -> std::string {
        if (::setgroups(1, &group) != 0 || ::setgid(kNobody) != 0 || ::setuid(kNobody) != 0)
            return std::strerror(errno);
        return ReplaceFileBytes(file_, new_).detail;
    });
    EXPECT_EQ(wrong, "");
    struct stat status {};
    ASSERT_EQ(::stat(file_.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, kNobody) << "nobody but the administrator gives files away";
    EXPECT_EQ(status.st_gid, group);
    EXPECT_EQ(status.st_mode & 07777, 0664U);
}

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t kSizeOfContent = 2'000'000;

/// Some 2 MB that tell whether they are whole: one letter throughout, and a size that goes with it.
std::string Content(int turn)
{
    const char letter = static_cast<char>('a' + turn % 26);
    return std::string(kSizeOfContent + static_cast<std::size_t>(letter), letter);
}

bool IsWhole(const std::string& bytes)
{
    return !bytes.empty() && bytes.size() == kSizeOfContent + static_cast<unsigned char>(bytes[0])
           && bytes.find_first_not_of(bytes[0]) == std::string::npos;
}

/// A process that saves again and again, each time something else.
pid_t StartSaving(const fs::path& path)
{
    const pid_t child = ::fork();
    for (int turn = 1; child == 0; ++turn)
        if (!ReplaceFileBytes(path, Content(turn)).Ok())
            ::_exit(1);
    return child;
}

void Kill(pid_t child)
{
    ::kill(child, SIGKILL);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status)) << "it ended by itself: a save failed";
}

/// As though the file had been left there some time ago.
void MakeOld(const fs::path& path)
{
    fs::last_write_time(path, fs::file_time_type::clock::now() - 10min);
}

} // namespace

TEST_F(ReplaceFileTest, AKillAtAnyMomentLeavesAWholeFile)
{
    constexpr int kills = 250;
    const unsigned seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const Clock::time_point begin = Clock::now();
    ASSERT_TRUE(ReplaceFileBytes(file_, Content(0)).Ok());
    // On a slow disk no save would end within 10 ms.
    const auto span = std::max<std::chrono::microseconds>(
        10ms, std::chrono::duration_cast<std::chrono::microseconds>(2 * (Clock::now() - begin)));
    int changed = 0;
    for (int turn = 0; turn < kills; ++turn) {
        const char before = Bytes(file_)[0];
        const pid_t child = StartSaving(file_);
        ASSERT_GT(child, 0);
        std::this_thread::sleep_for(std::chrono::microseconds(random() % static_cast<std::size_t>(span.count())));
        ASSERT_NO_FATAL_FAILURE(Kill(child));
        const std::string bytes = Bytes(file_);
        ASSERT_TRUE(IsWhole(bytes)) << "after kill " << turn << ": " << bytes.size() << " bytes";
        changed += bytes[0] != before ? 1 : 0;
    }
    std::cout << "seed " << seed << ": " << changed << " of " << kills << " kills after a finished save, "
              << Leftovers(folder_).size() << " new files left behind\n";
}

TEST_F(ReplaceFileTest, WhatKilledSavesLeftBehindIsRemovedByALaterSave)
{
    // Kills until one of them has left something.
    for (int turn = 0; turn < 200 && Leftovers(folder_).empty(); ++turn) {
        const pid_t child = StartSaving(file_);
        ASSERT_GT(child, 0);
        std::this_thread::sleep_for(std::chrono::microseconds(turn * 50));
        ASSERT_NO_FATAL_FAILURE(Kill(child));
    }
    ASSERT_FALSE(Leftovers(folder_).empty());
    ASSERT_TRUE(ReplaceFileBytes(file_, new_).Ok());
    EXPECT_FALSE(Leftovers(folder_).empty()) << "a fresh one may belong to a save that has just begun";

    for (const std::string& name : Leftovers(folder_))
        MakeOld(folder_ / name);
    ASSERT_TRUE(ReplaceFileBytes(file_, new_).Ok());
    EXPECT_THAT(Leftovers(folder_), IsEmpty());
}

TEST_F(ReplaceFileTest, ANewFileThatALivingProcessHoldsIsNotRemoved)
{
    const fs::path held = folder_ / ".sbdsave-living";
    WriteBytes(held, "half of a");
    MakeOld(held);
    const int descriptor = ::open(held.c_str(), O_RDWR);
    ASSERT_EQ(::flock(descriptor, LOCK_EX), 0);
    ASSERT_TRUE(ReplaceFileBytes(file_, new_).Ok());
    EXPECT_THAT(Leftovers(folder_), ElementsAre(".sbdsave-living"));
    ::close(descriptor);
    ASSERT_TRUE(ReplaceFileBytes(file_, new_).Ok());
    EXPECT_THAT(Leftovers(folder_), IsEmpty());
}

TEST_F(ReplaceFileTest, SweepingTouchesNothingElse)
{
    for (const char* name : {"sbdsave-a", ".sbdsave", ".other", "bridge.bak"}) {
        WriteBytes(folder_ / name, "mine");
        MakeOld(folder_ / name);
    }
    fs::create_directory(folder_ / ".sbdsave-folder");
    MakeOld(folder_ / ".sbdsave-folder");
    ASSERT_EQ(::mkfifo((folder_ / ".sbdsave-pipe").c_str(), 0600), 0);
    MakeOld(folder_ / ".sbdsave-pipe");
    ASSERT_TRUE(ReplaceFileBytes(file_, new_).Ok());
    for (const char* name : {"sbdsave-a", ".sbdsave", ".other", "bridge.bak"})
        EXPECT_TRUE(fs::exists(folder_ / name)) << name;
    EXPECT_TRUE(fs::exists(folder_ / ".sbdsave-folder"));
}

TEST_F(ReplaceFileTest, ANameThatIsNoTextOfThisSystemIsSaved)
{
    const fs::path name = folder_ / "\x8b\xb4.sbd"; // bytes that are no UTF-8
    const FileResult result = ReplaceFileBytes(name, new_);
    EXPECT_TRUE(result.Ok()) << result.detail;
    EXPECT_TRUE(Bytes(name) == new_);
}

} // namespace sbd

#endif
