// From a page file to a page.
#pragma once

#include "upperview/page/page.h"

#include <string_view>
#include <vector>

namespace sbd {

/// What is wrong in a page file. Lines count from 1.
struct PageFault {
    int line = 0;
    std::string message;
};

struct ParsedPage {
    Page page;
    std::vector<PageFault> faults;
};

/// Reads a page file (TOML, UTF-8). `block` is one of the blocks that it serves, 0 for the file of shared sketches.
/// Parts with a fault are left out.
[[nodiscard]] ParsedPage ParsePage(std::string_view text, int block);

/// The blocks that a file name serves: "301.toml", "291-296.toml", "553_653.toml". Empty if it names none.
[[nodiscard]] std::vector<int> BlocksOfFileName(std::string_view name);

} // namespace sbd
