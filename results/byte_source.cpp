#include "results/byte_source.h"

#include <algorithm>
#include <system_error>

namespace sbd {

std::unique_ptr<FileSource> FileSource::Open(const std::filesystem::path& path)
{
    std::error_code error;
    // Asked ahead of the opening, which would wait for a writer if this were a pipe.
    if (!std::filesystem::is_regular_file(path, error) || error)
        return nullptr;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (error)
        return nullptr;
#ifdef _WIN32
    FileHandle file(_wfopen(path.c_str(), L"rb"));
#else
    FileHandle file(std::fopen(path.c_str(), "rb"));
#endif
    if (!file)
        return nullptr;
    return std::unique_ptr<FileSource>(new FileSource(std::move(file), size));
}

std::size_t FileSource::Read(std::span<std::byte> into)
{
    return std::fread(into.data(), 1, into.size(), file_.get());
}

std::size_t MemorySource::Read(std::span<std::byte> into)
{
    const std::size_t count = std::min(into.size(), left_.size());
    std::ranges::copy(left_.first(count), into.begin());
    left_ = left_.subspan(count);
    return count;
}

} // namespace sbd
