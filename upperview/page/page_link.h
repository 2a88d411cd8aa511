// The links in the text of a page: 「313」 and 「313.垂直補剛材」 lead to block 313.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace sbd {

/// A link in a line: bytes from `start` on, brackets left out.
struct TextLink {
    std::size_t start = 0;
    std::size_t length = 0;
    int block = 0; ///< as it stands there, whether it exists or not
};

/// The links of a line in order. CP932.
[[nodiscard]] std::vector<TextLink> LinksOf(std::string_view line);

/// A block to which a link may lead: one of the catalogue, by any of its numbers, or the notes page.
[[nodiscard]] bool IsLinkTarget(int block);

} // namespace sbd
