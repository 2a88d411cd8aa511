// Whether the result files on the disk are still those that were read.
#pragma once

#include "results/result_files.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>

namespace sbd {

/// Extensions of the result files, in the order in which they are read.
inline constexpr std::array<std::string_view, 6> kResultExtensions{".Z1D", ".Z1F", ".Z1R", ".Z3D", ".Z3F", ".Z3R"};

/// One file as it stood on the disk.
struct FileStamp {
    std::filesystem::path file;
    std::uintmax_t size = 0;  ///< bytes
    std::int64_t changed = 0; ///< FileFacts::changed

    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

/// The result files of a project in the order of kResultExtensions; nothing for a file that is not there.
using ResultStamp = std::array<std::optional<FileStamp>, kResultExtensions.size()>;

/// The result files of a project as they stand now. Reads none of them.
[[nodiscard]] ResultStamp StampOf(const std::filesystem::path& projectFile);

/// True if a file of `onDisk` is another one than was read, or came since. A file that has gone counts as unchanged:
/// there is nothing to read in its place.
[[nodiscard]] bool HasOtherFiles(const ResultStamp& onDisk, const ResultStamp& asRead);

/// ReadResultFiles that puts into `asRead` how each file stood before it was read, so that a change during the reading
/// shows afterwards. A file that cannot be opened keeps its old stamp, as its record keeps its old content.
ResultFilesRead ReadStampedResultFiles(const std::filesystem::path& projectFile, AnalysisResults& results,
                                       ResultStamp& asRead);

} // namespace sbd
