// Where the bytes of a result file come from: the file, or memory.
#pragma once

#include "project/file_access.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <utility>

namespace sbd {

/// Bytes of one read, still in the cache when they are looked at. Reading straight into an array is slower: behind the
/// first words of a file its arrays stand at odd places, and the system copies such bytes slowly.
inline constexpr std::size_t kPiece = std::size_t{1} << 17;

/// Bytes that are read once, from the front to the end.
class CByteSource {
public:
    CByteSource() = default;
    CByteSource(const CByteSource&) = delete;
    CByteSource& operator=(const CByteSource&) = delete;
    virtual ~CByteSource() = default;

    /// Bytes in all; the source never gives more.
    [[nodiscard]] virtual std::uint64_t Size() const = 0;
    /// Fills `into` with the next bytes; gives how many came, fewer only at the end or when reading fails.
    [[nodiscard]] virtual std::size_t Read(std::span<std::byte> into) = 0;
    /// The next bytes where they lie, at most `most`; none at the end. They stay there until the next call.
    [[nodiscard]] virtual std::span<const std::byte> Next(std::size_t most) = 0;
};

/// A regular file. Folders, pipes and devices do not open: they have no size that could bound what is read.
class CFileSource final : public CByteSource {
public:
    /// Null if the file is not there or cannot be read.
    [[nodiscard]] static std::unique_ptr<CFileSource> Open(const std::filesystem::path& path);

    [[nodiscard]] std::uint64_t Size() const override { return size_; }
    [[nodiscard]] std::size_t Read(std::span<std::byte> into) override;
    [[nodiscard]] std::span<const std::byte> Next(std::size_t most) override;

private:
    void Fill();
    CFileSource(FileHandle file, std::uint64_t size);

    FileHandle file_;
    std::uint64_t size_;
    std::unique_ptr<std::byte[]> piece_; ///< read ahead
    std::span<const std::byte> ahead_;   ///< what of it is still to be given
};

/// Bytes in memory, which must outlive the source.
class CMemorySource final : public CByteSource {
public:
    explicit CMemorySource(std::span<const std::byte> bytes) : left_(bytes), size_(bytes.size()) {}

    [[nodiscard]] std::uint64_t Size() const override { return size_; }
    [[nodiscard]] std::size_t Read(std::span<std::byte> into) override;
    [[nodiscard]] std::span<const std::byte> Next(std::size_t most) override;

private:
    std::span<const std::byte> left_;
    std::uint64_t size_;
};

} // namespace sbd
