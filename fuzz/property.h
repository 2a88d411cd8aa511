// What a fuzz target asserts: a property that does not hold ends the run, so that the input is kept.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace sbd::fuzz {

inline void Require(bool holds, const char* property)
{
    if (holds)
        return;
    std::fprintf(stderr, "This does not hold: %s\n", property);
    std::abort();
}

[[nodiscard]] inline std::string_view Text(const std::uint8_t* bytes, std::size_t size)
{
    return {reinterpret_cast<const char*>(bytes), size};
}

} // namespace sbd::fuzz
