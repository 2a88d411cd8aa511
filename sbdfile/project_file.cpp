#include "sbdfile/project_file.h"

#include "project/file_access.h"
#include "project/sbd_data.h"
#include "sbdfile/file_errors.h"
#include "sbdfile/grid_names.h"
#include "sbdfile/reader.h"

#include <cerrno>
#include <cstdio>
#include <limits>
#include <memory>
#include <system_error>

namespace sbd {

namespace {

/// Cells are found by 32-bit places in their column, so that no file may be larger.
constexpr std::uintmax_t kLargestFile = std::numeric_limits<std::uint32_t>::max();

} // namespace

FileResult ErrorOfCode(int code)
{
    FileResult result;
    result.detail = std::generic_category().message(code);
    switch (code) {
    case ENOENT:
    case ENOTDIR:
        result.error = FileError::NotFound;
        break;
    case EISDIR:
        result.error = FileError::IsFolder;
        break;
    case EACCES:
    case EPERM:
    case EROFS:
        result.error = FileError::NoPermission;
        break;
    case ENOSPC:
    case EFBIG:
#ifdef EDQUOT
    case EDQUOT:
#endif
        result.error = FileError::DiskFull;
        break;
    default:
        result.error = FileError::Other;
    }
    return result;
}

FileResult ReadFileBytes(const std::filesystem::path& path, std::string& bytes)
{
    const FileFacts facts = LookAtFile(path);
    if (facts.kind == FileFacts::Kind::Folder)
        return ErrorOfCode(EISDIR);
    const FileHandle file = OpenForReading(path);
    if (!file)
        return ErrorOfCode(errno);
    bytes.clear();
    if (facts.size <= kLargestFile)
        bytes.reserve(static_cast<std::size_t>(facts.size));
    std::unique_ptr<char[]> buffer = std::make_unique<char[]>(1U << 20);
    while (const std::size_t count = std::fread(buffer.get(), 1, 1U << 20, file.get())) {
        if (bytes.size() + count > kLargestFile)
            return ErrorOfCode(EFBIG);
        bytes.append(buffer.get(), count);
    }
    return std::ferror(file.get()) ? ErrorOfCode(errno) : FileResult();
}

std::filesystem::path NamesFileBeside(const std::filesystem::path& project)
{
    std::filesystem::path names = project;
    names.replace_extension(".abd");
    return names;
}

FileResult LoadProject(const std::filesystem::path& path, const std::optional<std::filesystem::path>& names,
                       CSbdData& data)
{
    std::string bytes;
    FileResult result = ReadFileBytes(path, bytes);
    if (!result.Ok())
        return result;
    if (names)
        ReadGridNames(*names, data);
    else
        ReadGridNamesFromBytes({}, data);
    ReadProject(bytes, data);
    return result;
}

} // namespace sbd
