#include "sheets/zip_parts.h"

#include <cstdint>
#include <optional>
#include <zlib.h>

namespace sbd {

namespace {

constexpr std::uint32_t kEndOfDirectory = 0x06054b50;
constexpr std::uint32_t kEntry = 0x02014b50;
constexpr std::uint32_t kPart = 0x04034b50;
constexpr std::size_t kEndSize = 22;
constexpr std::size_t kEntrySize = 46;
constexpr std::size_t kPartSize = 30;
constexpr std::uint32_t kLargestPart = 1U << 30;

std::uint32_t NumberAt(std::string_view bytes, std::size_t pos, int size)
{
    std::uint32_t value = 0;
    for (int i = 0; i < size; ++i)
        value |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[pos + static_cast<std::size_t>(i)]))
                 << (8 * i);
    return value;
}

/// `bytes` from `pos` on, or nothing where fewer than `size` stand there.
std::optional<std::string_view> PieceAt(std::string_view bytes, std::size_t pos, std::size_t size)
{
    if (pos > bytes.size() || bytes.size() - pos < size)
        return std::nullopt;
    return bytes.substr(pos, size);
}

std::optional<std::string> Inflated(std::string_view packed, std::uint32_t size)
{
    std::string out(size, '\0');
    z_stream stream{};
    if (inflateInit2(&stream, -MAX_WBITS) != Z_OK)
        return std::nullopt;
    // zlib takes what it reads as bytes that could be written to.
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
    stream.avail_in = static_cast<uInt>(packed.size());
    stream.next_out = reinterpret_cast<Bytef*>(out.data());
    stream.avail_out = size;
    const int result = inflate(&stream, Z_FINISH);
    inflateEnd(&stream);
    if (result != Z_STREAM_END || stream.total_out != size)
        return std::nullopt;
    return out;
}

} // namespace

bool ReadZipParts(std::string_view bytes,
                  const std::function<void(const std::string& name, const std::string& content)>& take)
{
    if (bytes.size() < kEndSize)
        return false;
    std::size_t end = bytes.size() - kEndSize; // a comment may stand behind it
    while (NumberAt(bytes, end, 4) != kEndOfDirectory) {
        if (end == 0 || bytes.size() - end > 0xffff + kEndSize)
            return false;
        --end;
    }
    const std::uint32_t count = NumberAt(bytes, end + 10, 2);
    std::size_t at = NumberAt(bytes, end + 16, 4);
    for (std::uint32_t i = 0; i < count; ++i) {
        const auto entry = PieceAt(bytes, at, kEntrySize);
        if (!entry || NumberAt(*entry, 0, 4) != kEntry)
            return false;
        const std::uint32_t method = NumberAt(*entry, 10, 2);
        const std::uint32_t sum = NumberAt(*entry, 16, 4);
        const std::uint32_t packedSize = NumberAt(*entry, 20, 4);
        const std::uint32_t size = NumberAt(*entry, 24, 4);
        const auto name = PieceAt(bytes, at + kEntrySize, NumberAt(*entry, 28, 2));
        const std::size_t place = NumberAt(*entry, 42, 4);
        const auto head = PieceAt(bytes, place, kPartSize);
        if (!name || !head || NumberAt(*head, 0, 4) != kPart || size > kLargestPart)
            return false;
        const auto packed =
            PieceAt(bytes, place + kPartSize + NumberAt(*head, 26, 2) + NumberAt(*head, 28, 2), packedSize);
        if (!packed)
            return false;
        const std::optional<std::string> content = method == 0            ? std::optional<std::string>(*packed)
                                                   : method == Z_DEFLATED ? Inflated(*packed, size)
                                                                          : std::nullopt;
        if (!content || content->size() != size
            || crc32(0, reinterpret_cast<const Bytef*>(content->data()), static_cast<uInt>(size)) != sum)
            return false;
        take(std::string(*name), *content);
        at += kEntrySize + name->size() + NumberAt(*entry, 30, 2) + NumberAt(*entry, 32, 2);
    }
    return true;
}

} // namespace sbd
