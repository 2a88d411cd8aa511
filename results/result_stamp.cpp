#include "results/result_stamp.h"

#include "project/file_access.h"
#include "results/byte_source.h"
#include "results/result_paths.h"

namespace sbd {

namespace {

std::optional<FileStamp> StampOfFile(std::filesystem::path file)
{
    const FileFacts facts = LookAtFile(file);
    if (facts.kind == FileFacts::Kind::NotThere || facts.kind == FileFacts::Kind::Folder)
        return std::nullopt;
    return FileStamp{std::move(file), facts.size, facts.changed};
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
        if (before[i] && CFileSource::Open(before[i]->file) != nullptr)
            asRead[i] = before[i];
    return ReadResultFiles(projectFile, results);
}

} // namespace sbd
