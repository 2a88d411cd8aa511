// All help pages.
#pragma once

#include "upperview/page/page.h"

#include <map>
#include <memory>
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

/// The block whose page a number shows.
[[nodiscard]] int PageBlock(int block);
/// True for a block with a page: the blocks of the catalogue that are not a second number of another one, and 100. 253 to
/// 256 draw their own.
[[nodiscard]] bool HasPage(int block);
/// The blocks with a page in order of number.
[[nodiscard]] std::vector<int> BlocksWithPage();

/// The pages of some page files.
class CPageStore {
public:
    /// The bytes behind `sources` outlive the store.
    explicit CPageStore(std::span<const PageSource> sources);

    /// The page of a block: that of its file, else one made from the tables. A file may name a block by an alias. Each is
    /// parsed once, and takes over the shared sketches that it shows. Null without a page. Not for several threads.
    [[nodiscard]] const Page* Find(int block);
    [[nodiscard]] const std::map<std::string, Sketch>& SharedSketches() const { return shared_; }

private:
    std::map<int, std::string_view> texts_; // by canonical block
    std::map<std::string, Sketch> shared_;
    std::map<int, std::unique_ptr<const Page>> pages_;
};

/// The pages as they are built in.
[[nodiscard]] CPageStore& BuiltInPages();
/// A page of them.
[[nodiscard]] const Page* FindPage(int block);

/// Takes the shared sketches that a branch of the page shows over into the page.
void TakeOverShared(Page& page, const std::map<std::string, Sketch>& shared);
/// A sketch of the page; null if there is none.
[[nodiscard]] const Sketch* FindSketch(const Page& page, const std::string& name);

/// A page from the tables: title, a branch for each option row with its words, or the list of columns.
[[nodiscard]] Page MakeTablePage(int block);

} // namespace sbd
