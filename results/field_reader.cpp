#include "results/field_reader.h"

#include <cstring>
#include <limits>

namespace sbd {

std::string TextOfField(std::string_view field)
{
    if (field.empty())
        return {};
    std::size_t end = field.size() - 1;
    while (end > 1 && field[end - 1] == ' ')
        --end;
    const std::string_view text = field.substr(0, end);
    return std::string(text.substr(0, text.find('\0')));
}

std::uint64_t EntryCount(std::int64_t extent1, std::int64_t extent2, std::int64_t extent3)
{
    std::uint64_t count = 1;
    for (const std::int64_t extent : {extent1, extent2, extent3}) {
        if (extent < 1)
            return 0;
        const auto factor = static_cast<std::uint64_t>(extent);
        constexpr std::uint64_t most = std::numeric_limits<std::uint64_t>::max();
        count = count > most / factor ? most : count * factor;
    }
    return count;
}

std::size_t CFieldReader::Take(std::span<std::byte> into)
{
    const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(into.size(), left_));
    const std::size_t got = wanted > 0 ? source_.Read(into.first(wanted)) : 0;
    taken_ += got;
    left_ = got == into.size() ? left_ - got : 0;
    endedEarly_ = endedEarly_ || got < into.size();
    return got;
}

ResultValues CFieldReader::Values(std::uint64_t count)
{
    const auto whole = static_cast<std::size_t>(std::min<std::uint64_t>(count, left_ / sizeof(double)));
    using Memory = CZeroedMemory<double>;
    ResultValues values(whole, Memory(Memory::Fresh()));
    const std::size_t size = whole * sizeof(double);
    std::size_t got = 0;
    while (got < size) {
        const std::span<const std::byte> piece = source_.Next(std::min(size - got, kPiece));
        if (piece.empty())
            break;
        if (std::ranges::any_of(piece, [](std::byte byte) { return byte != std::byte{0}; }))
            std::memcpy(reinterpret_cast<std::byte*>(values.data()) + got, piece.data(), piece.size());
        got += piece.size();
    }
    taken_ += got;
    left_ = got == size ? left_ - got : 0;
    arrayWasMissing_ = got == 0;
    if (got < size || whole < count) {
        endedEarly_ = true;
        std::array<std::byte, sizeof(double)> cutEntry;
        arrayWasMissing_ = Take(cutEntry) == 0 && arrayWasMissing_;
    }
    values.resize(got / sizeof(double));
    detail::FromFileOrder(std::as_writable_bytes(std::span(values)), sizeof(double));
    return {std::move(values), Memory()}; // from now on a list like others
}

std::int32_t CFieldReader::Word()
{
    std::array<std::byte, sizeof(std::int32_t)> bytes;
    if (Take(bytes) < bytes.size())
        return 0;
    detail::FromFileOrder(bytes, bytes.size());
    return std::bit_cast<std::int32_t>(bytes);
}

std::string CFieldReader::Text(std::size_t size)
{
    std::string field(size, '\0');
    static_cast<void>(Take(std::as_writable_bytes(std::span(field))));
    return TextOfField(field);
}

std::vector<std::string> CFieldReader::Names(std::uint64_t count)
{
    constexpr std::size_t kFields = 1024;
    std::vector<std::string> names;
    names.reserve(static_cast<std::size_t>(std::min<std::uint64_t>(count, left_ / kNameField + 1)));
    std::string fields;
    while (names.size() < count && left_ > 0) {
        const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(count - names.size(), kFields));
        fields.assign(wanted * kNameField, '\0');
        const std::size_t got = Take(std::as_writable_bytes(std::span(fields)));
        for (std::size_t at = 0; at < got; at += kNameField)
            names.push_back(TextOfField(std::string_view(fields).substr(at, kNameField)));
    }
    endedEarly_ = endedEarly_ || names.size() < count;
    return names;
}

} // namespace sbd
