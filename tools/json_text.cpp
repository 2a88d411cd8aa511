#include "tools/json_text.h"

#include <cmath>

namespace sbd {

nlohmann::json NumberJson(double number)
{
    if (std::isfinite(number))
        return number;
    if (std::isnan(number))
        return "NaN";
    return number > 0 ? "Infinity" : "-Infinity";
}

bool IsWholeText(std::string_view bytes)
{
    for (std::size_t pos = 0; pos < bytes.size(); pos += CharacterLength(bytes, pos))
        if (!DecodeCharacter(bytes, pos))
            return false;
    return true;
}

std::string Hex(std::string_view bytes)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string hex;
    for (const char c : bytes) {
        hex.push_back(digits[static_cast<unsigned char>(c) >> 4]);
        hex.push_back(digits[static_cast<unsigned char>(c) & 0xF]);
    }
    return hex;
}

} // namespace sbd
