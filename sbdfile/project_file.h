// Project files on disk.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace sbd {

class CSbdData;

/// Why a file could not be read or written.
enum class FileError {
    None,
    NotFound, ///< no such file, or no such folder
    IsFolder,
    NoPlainFile,  ///< a pipe, a device, a socket: nothing that a project could be kept in
    NoPermission, ///< not readable, not writable, or on a read-only file system
    DiskFull,     ///< also a quota or a limit on file size
    Other,
};

/// What happened: the error, and what the system says about it, in Japanese (UTF-8).
struct FileResult {
    FileError error = FileError::None;
    std::string detail;
    [[nodiscard]] bool Ok() const { return error == FileError::None; }
};

/// The bytes of a file. What is no plain file is refused at once: nobody may ever write to the other end of a pipe.
[[nodiscard]] FileResult ReadFileBytes(const std::filesystem::path& path, std::string& bytes);

/// Puts `bytes` in place of a file: afterwards the whole new file stands, or the whole old one. What is not a
/// regular file (a device, a pipe) is written to directly. A symbolic link stays a link; permissions stay.
[[nodiscard]] FileResult ReplaceFileBytes(const std::filesystem::path& path, std::string_view bytes);

/// Path of the *.abd file beside a project: base path + ".abd".
[[nodiscard]] std::filesystem::path NamesFileBeside(const std::filesystem::path& project);

/// Takes the bytes of a project file, with the names of `names` (nothing: none).
void TakeProject(std::string_view bytes, const std::optional<std::filesystem::path>& names, CSbdData& data);
/// Loads a project: names from `names` (nothing: none), then ReadProject.
[[nodiscard]] FileResult LoadProject(const std::filesystem::path& path,
                                     const std::optional<std::filesystem::path>& names, CSbdData& data);

} // namespace sbd
