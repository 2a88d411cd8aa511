// The title lines of the help pages.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace sbd {

struct PageTitle {
    int block;
    std::string_view title; ///< UTF-8
};

/// The 216 title lines in order of number.
[[nodiscard]] std::span<const PageTitle> PageTitles();
/// The title line of a block's page; empty if it has none of this form.
[[nodiscard]] std::string_view FindPageTitle(int block);

} // namespace sbd
