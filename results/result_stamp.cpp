#include "results/result_stamp.h"

#include "results/byte_source.h"
#include "results/result_paths.h"

#include <system_error>

namespace sbd {

namespace {

std::optional<FileStamp> StampOfFile(std::filesystem::path file)
{
    std::error_code failed;
    const auto changed = std::filesystem::last_write_time(file, failed);
    if (failed)
        return std::nullopt;
    const std::uintmax_t size = std::filesystem::file_size(file, failed);
    if (failed) // a folder, or gone in between
        return std::nullopt;
    return FileStamp{std::move(file), size, changed};
}

} // namespace

ResultStamp StampOf(const std::filesystem::path& projectFile)
{
    ResultStamp stamp;
    for (std::size_t i = 0; i < stamp.size(); ++i)
        stamp[i] = StampOfFile(ResultFile(projectFile, kResultExtensions[i]));
    return stamp;
}

bool HasOtherFiles(const ResultStamp& onDisk, const ResultStamp& asRead)
{
    for (std::size_t i = 0; i < onDisk.size(); ++i)
        if (onDisk[i] && onDisk[i] != asRead[i])
            return true;
    return false;
}

ResultFilesRead ReadStampedResultFiles(const std::filesystem::path& projectFile, AnalysisResults& results,
                                       ResultStamp& asRead)
{
    const ResultStamp before = StampOf(projectFile);
    for (std::size_t i = 0; i < before.size(); ++i)
        if (before[i] && FileSource::Open(before[i]->file) != nullptr)
            asRead[i] = before[i];
    return ReadResultFiles(projectFile, results);
}

} // namespace sbd
