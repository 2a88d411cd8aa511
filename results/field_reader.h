// The fields of a result file, one behind the other: little-endian numbers and fixed text fields, without padding.
#pragma once

#include "results/byte_source.h"
#include "results/zeroed_memory.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace sbd {

/// Bytes of a name field.
inline constexpr std::size_t kNameField = 20;

/// The text of a fixed field of blanks-padded CP932. The last byte of the field is never part of the text, blanks at
/// the end go but for the first byte of the field, and a zero byte ends the text.
[[nodiscard]] std::string TextOfField(std::string_view field);

/// Entries of an array with these extents: 0 if one is below 1, the largest number instead of an overflow.
[[nodiscard]] std::uint64_t EntryCount(std::int64_t extent1, std::int64_t extent2 = 1, std::int64_t extent3 = 1);

namespace detail {

template <typename T>
struct NumberIn {
    using Type = T;
};
template <typename T, std::size_t N>
struct NumberIn<std::array<T, N>> {
    using Type = T;
};

/// Turns each number of `size` bytes from the order of the file to that of this machine.
inline void FromFileOrder(std::span<std::byte> bytes, std::size_t size)
{
    static_assert(std::endian::native == std::endian::little || std::endian::native == std::endian::big);
    if constexpr (std::endian::native == std::endian::big) {
        for (std::size_t at = 0; at + size <= bytes.size(); at += size)
            std::ranges::reverse(bytes.subspan(at, size));
    }
}

} // namespace detail

/// Reads field after field. Behind the end of the source numbers are 0, texts and arrays are empty. A count is a claim
/// of the file: memory is taken for what the source still holds, never for more.
class CFieldReader {
public:
    explicit CFieldReader(CByteSource& source) : source_(source), left_(source.Size()) {}

    [[nodiscard]] std::int32_t Word();

    /// `N` whole numbers; those that the source has not are 0.
    template <std::size_t N>
    [[nodiscard]] std::array<std::int32_t, N> Words()
    {
        std::array<std::int32_t, N> words{};
        for (std::int32_t& word : words)
            word = Word();
        return words;
    }

    /// A text field of `size` bytes.
    [[nodiscard]] std::string Text(std::size_t size);

    /// `count` name fields, or as many as there are. A field that the end of the source cuts counts with the bytes it
    /// has, the rest of it zero.
    [[nodiscard]] std::vector<std::string> Names(std::uint64_t count);

    /// `count` entries (numbers, or arrays of numbers), or as many as there are whole.
    template <typename T>
    [[nodiscard]] std::vector<T> Array(std::uint64_t count);

    /// The same of numbers. Pieces of the source that are all zeros cost no memory.
    [[nodiscard]] ResultValues Values(std::uint64_t count);

    /// True if the last Array found no byte at all.
    [[nodiscard]] bool ArrayWasMissing() const { return arrayWasMissing_; }

    /// True once the source has had less than was asked for.
    [[nodiscard]] bool EndedEarly() const { return endedEarly_; }

private:
    /// The next bytes; fewer than asked for end the reading for good.
    [[nodiscard]] std::size_t Take(std::span<std::byte> into);

    CByteSource& source_;
    std::uint64_t left_;
    std::uint64_t taken_ = 0;
    bool arrayWasMissing_ = false;
    bool endedEarly_ = false;
};

template <typename T>
std::vector<T> CFieldReader::Array(std::uint64_t count)
{
    static_assert(std::is_trivially_copyable_v<T> && sizeof(T) <= kPiece);
    const std::uint64_t takenBefore = taken_;
    const auto whole = static_cast<std::size_t>(std::min<std::uint64_t>(count, left_ / sizeof(T)));
    std::vector<T> entries;
    entries.reserve(whole);
    while (entries.size() < whole && left_ > 0) {
        const std::size_t had = entries.size();
        const std::size_t wanted = std::min(whole - had, kPiece / sizeof(T));
        entries.resize(had + wanted);
        entries.resize(had + Take(std::as_writable_bytes(std::span(entries).subspan(had))) / sizeof(T));
    }
    if (entries.size() < count) {
        endedEarly_ = true;
        std::array<std::byte, sizeof(T)> cutEntry;
        static_cast<void>(Take(cutEntry));
    }
    arrayWasMissing_ = taken_ == takenBefore;
    detail::FromFileOrder(std::as_writable_bytes(std::span(entries)), sizeof(typename detail::NumberIn<T>::Type));
    return entries;
}

} // namespace sbd
