// ReplaceFileBytes on Linux: the whole new file or the whole old one, through power loss, a full disk or a kill.
#include "sbdfile/file_errors.h"
#include "sbdfile/project_file.h"

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace sbd {

namespace {

/// An open file descriptor; closes itself.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor()
    {
        if (number_ >= 0)
            ::close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    [[nodiscard]] int Number() const { return number_; }
    [[nodiscard]] bool Open() const { return number_ >= 0; }
    /// Closes now; false if the system reports a late error.
    [[nodiscard]] bool Close()
    {
        const int number = number_;
        number_ = -1;
        return ::close(number) == 0;
    }

private:
    int number_;
};

[[nodiscard]] bool WriteAll(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return false;
        if (count == 0) {
            errno = ENOSPC;
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

/// Writes to a device or pipe as it stands. A pipe that nobody reads is not waited for.
FileResult WriteDirectly(const std::filesystem::path& path, std::string_view bytes)
{
    Descriptor file(::open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file.Open() || ::fcntl(file.Number(), F_SETFL, 0) != 0 || !WriteAll(file.Number(), bytes) || !file.Close())
        return ErrorOfCode(errno);
    return {};
}

/// Makes the new name last through a power loss. Some file systems cannot; the file itself is safe by then.
void SyncFolder(const std::filesystem::path& folder)
{
    const Descriptor descriptor(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.Open())
        static_cast<void>(::fsync(descriptor.Number()));
}

constexpr uid_t kSameOwner = static_cast<uid_t>(-1);
constexpr std::string_view kNewFilePrefix = ".sbdsave-"; // short: the target's own name may be as long as names can be

/// Removes what saves left behind that were killed on their way: new files that no process holds any more.
void SweepLeftovers(const std::filesystem::path& folder)
{
    using namespace std::chrono_literals;
    std::error_code error;
    std::filesystem::directory_iterator entry(folder.empty() ? "." : folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        std::error_code gone; // another save may sweep at the same time
        if (!entry->path().filename().string().starts_with(kNewFilePrefix) || !entry->is_regular_file(gone))
            continue;
        const auto age = std::filesystem::file_time_type::clock::now() - entry->last_write_time(gone);
        const Descriptor file(::open(entry->path().c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
        // A fresh one may be a save on its way that has not taken its lock yet.
        if (!gone && age > 1min && file.Open() && ::flock(file.Number(), LOCK_EX | LOCK_NB) == 0)
            ::unlink(entry->path().c_str());
    }
}

/// Where the links lead that `path` may be; the file there need not exist.
std::filesystem::path BehindLinks(std::filesystem::path path, std::error_code& error)
{
    constexpr int mostLinks = 40; // as the system itself
    std::error_code noLink;       // a file that is not there is none
    for (int links = 0; !error && std::filesystem::is_symlink(path, noLink); ++links) {
        path = path.parent_path() / std::filesystem::read_symlink(path, error);
        if (links == mostLinks)
            error = std::make_error_code(std::errc::too_many_symbolic_link_levels);
    }
    return path;
}

/// The new file beside the old one, until it takes its place. Removed if it never does.
class NewFile {
public:
    explicit NewFile(const std::filesystem::path& target)
        : name_((target.parent_path() / (std::string(kNewFilePrefix) + "XXXXXX")).string())
        , descriptor_(::mkostemp(name_.data(), O_CLOEXEC))
        , open_(descriptor_.Open())
    {
        if (open_)
            static_cast<void>(::flock(descriptor_.Number(), LOCK_EX | LOCK_NB)); // says that we live
    }
    ~NewFile()
    {
        if (open_)
            ::unlink(name_.c_str());
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    [[nodiscard]] bool Open() const { return open_; }

    /// Content, rights and owner of the old file, all of it on the disk.
    [[nodiscard]] bool Fill(std::string_view bytes, const std::optional<struct stat>& old)
    {
        if (!WriteAll(descriptor_.Number(), bytes))
            return false;
        if (old) {
            // The owner may only be kept by those who have the right, the group by its members; then the rights, which
            // chown may take away.
            if (::fchown(descriptor_.Number(), old->st_uid, old->st_gid) != 0)
                static_cast<void>(::fchown(descriptor_.Number(), kSameOwner, old->st_gid) == 0);
            if (::fchmod(descriptor_.Number(), old->st_mode & 07777) != 0)
                return false;
        } else {
            const mode_t mask = ::umask(0);
            ::umask(mask);
            if (::fchmod(descriptor_.Number(), 0666 & ~mask) != 0)
                return false;
        }
        return ::fsync(descriptor_.Number()) == 0 && descriptor_.Close();
    }

    [[nodiscard]] bool TakePlaceOf(const std::filesystem::path& target)
    {
        if (::rename(name_.c_str(), target.c_str()) != 0)
            return false;
        open_ = false;
        return true;
    }

private:
    std::string name_;
    Descriptor descriptor_;
    bool open_;
};

} // namespace

FileResult ReplaceFileBytes(const std::filesystem::path& path, std::string_view bytes)
{
    std::error_code error;
    const std::filesystem::path target = BehindLinks(path, error);
    if (error)
        return ErrorOfCode(error.value());
    std::optional<struct stat> old;
    struct stat status {};
    if (::stat(target.c_str(), &status) == 0) {
        if (S_ISDIR(status.st_mode))
            return ErrorOfCode(EISDIR);
        if (!S_ISREG(status.st_mode))
            return WriteDirectly(target, bytes);
        // A file that may not be written to is not replaced behind its owner's back either.
        if (::access(target.c_str(), W_OK) != 0)
            return ErrorOfCode(errno);
        old = status;
    }
    NewFile file(target);
    if (!file.Open() || !file.Fill(bytes, old) || !file.TakePlaceOf(target))
        return ErrorOfCode(errno);
    SyncFolder(target.parent_path());
    SweepLeftovers(target.parent_path());
    return {};
}

} // namespace sbd
