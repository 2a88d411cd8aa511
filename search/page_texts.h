// What the help pages say, without their sketches.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace sbd {

/// The text of one branch of a page. UTF-8.
struct PageText {
    std::vector<int> rows; ///< grid rows of which it tells; empty: all
    std::string_view text;
};

/// The texts of a page file as it is built in. Only looks for the lines that hold them: to parse all files with their
/// sketches takes a hundred times as long, and the build has checked them.
[[nodiscard]] std::vector<PageText> TextsOfPage(std::string_view toml);

} // namespace sbd
