#include "results/byte_source.h"

#include <algorithm>
#include <cstring>

namespace sbd {

namespace {

/// Moves bytes from the front of `from` to `into`; gives how many.
std::size_t MoveFront(std::span<const std::byte>& from, std::span<std::byte> into)
{
    const std::size_t count = std::min(into.size(), from.size());
    if (count > 0)
        std::memcpy(into.data(), from.data(), count);
    from = from.subspan(count);
    return count;
}

/// Takes bytes off the front of `from`.
std::span<const std::byte> TakeFront(std::span<const std::byte>& from, std::size_t most)
{
    const std::span<const std::byte> front = from.first(std::min(most, from.size()));
    from = from.subspan(front.size());
    return front;
}

} // namespace

CFileSource::CFileSource(FileHandle file, std::uint64_t size)
    : file_(std::move(file))
    , size_(size)
    , piece_(std::make_unique_for_overwrite<std::byte[]>(kPiece))
{
    std::setvbuf(file_.get(), nullptr, _IONBF, 0);
}

std::unique_ptr<CFileSource> CFileSource::Open(const std::filesystem::path& path)
{
    // Looked at ahead of the opening, which would wait for a writer if this were a pipe.
    const FileFacts facts = LookAtFile(path);
    if (facts.kind != FileFacts::Kind::File)
        return nullptr;
    FileHandle file = OpenForReading(path);
    if (!file)
        return nullptr;
    return std::unique_ptr<CFileSource>(new CFileSource(std::move(file), facts.size));
}

void CFileSource::Fill()
{
    ahead_ = {piece_.get(), std::fread(piece_.get(), 1, kPiece, file_.get())};
}

std::span<const std::byte> CFileSource::Next(std::size_t most)
{
    if (ahead_.empty())
        Fill();
    return TakeFront(ahead_, most);
}

std::size_t CFileSource::Read(std::span<std::byte> into)
{
    std::size_t given = MoveFront(ahead_, into);
    while (given < into.size()) {
        Fill();
        if (ahead_.empty())
            break;
        given += MoveFront(ahead_, into.subspan(given));
    }
    return given;
}

std::span<const std::byte> CMemorySource::Next(std::size_t most)
{
    return TakeFront(left_, most);
}

std::size_t CMemorySource::Read(std::span<std::byte> into)
{
    return MoveFront(left_, into);
}

} // namespace sbd
