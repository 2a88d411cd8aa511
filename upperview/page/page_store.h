// All help pages.
#pragma once

#include "upperview/page/page.h"

#include <span>
#include <string_view>
#include <vector>

namespace sbd {

/// File of the sketches that several pages show.
inline constexpr std::string_view kSharedFile = "shared.toml";

/// A page file as it is built in.
struct PageSource {
    std::string_view name; ///< file name
    std::string_view text; ///< UTF-8
};

/// The page files in order of name.
[[nodiscard]] std::span<const PageSource> PageSources();

/// True for a block with a page: the blocks of the catalogue that are no alias, and 100. 253 to 256 draw their own.
[[nodiscard]] bool HasPage(int block);
/// The blocks with a page in order of number.
[[nodiscard]] std::vector<int> BlocksWithPage();

/// The page of a block: that of its file, else one made from the tables. Each is parsed once. Null without a page.
/// Not for several threads.
[[nodiscard]] const Page* FindPage(int block);
/// A sketch of the page or a shared one; null if there is none.
[[nodiscard]] const Sketch* FindSketch(const Page& page, const std::string& name);
[[nodiscard]] const std::map<std::string, Sketch>& SharedSketches();

/// A page from the tables: title, a branch for each option row with its words, or the list of columns.
[[nodiscard]] Page MakeTablePage(int block);

/// A head in one line: its lines, but for those that say nothing new. CP932.
[[nodiscard]] std::string OneLineHead(std::string_view head);

} // namespace sbd
