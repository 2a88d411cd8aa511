// Files by paths of any length and any characters: what stands at a path, and its bytes.
#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

namespace sbd {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, CloseFile>;

/// Opens the bytes of a plain file; null, with errno set, if that cannot be. Never waits, as for the writer of a pipe:
/// what is no plain file is not opened (ENXIO). Other programs may read and write meanwhile.
[[nodiscard]] FileHandle OpenForReading(const std::filesystem::path& path);

/// What stands at a path, links followed.
struct FileFacts {
    enum class Kind { NotThere, File, Folder, Other };
    Kind kind = Kind::NotThere;
    std::uintmax_t size = 0;  ///< bytes of a file
    std::int64_t changed = 0; ///< time of the last change, in the system's own ticks: to be compared, not to be shown
};
[[nodiscard]] FileFacts LookAtFile(const std::filesystem::path& path);

/// Which file stands at a path, links followed: the same numbers, the same file. A file that was put in another's place
/// has others. Zeros: there is none, or the system does not say.
struct FileIdentity {
    std::uint64_t volume = 0;
    std::uint64_t number = 0;
    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};
[[nodiscard]] FileIdentity IdentityOfFile(const std::filesystem::path& path);

#ifdef _WIN32
/// The absolute path in the form that the system takes at any length; the plain form ends at 260 characters.
[[nodiscard]] std::wstring SystemPath(const std::filesystem::path& path);
#endif

} // namespace sbd
