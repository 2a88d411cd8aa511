// In which encoding a file stands, as far as its bytes tell.
#pragma once

#include <cstddef>
#include <string_view>

namespace sbd {

enum class Encoding { Cp932, Utf8, Utf16, Binary };

struct EncodingGuess {
    Encoding encoding = Encoding::Cp932;
    std::size_t line = 0;   ///< first line in another encoding, from 1; 0: none
    bool wholeText = false; ///< most lines that are no ASCII stand in it, or its mark does
};

[[nodiscard]] EncodingGuess GuessEncoding(std::string_view bytes);

/// True for a line of UTF-8 with characters of several bytes that is no CP932 as the program writes it.
[[nodiscard]] bool IsUtf8Line(std::string_view line);

} // namespace sbd
