#include "upperview/page/page_store.h"

#include "project/catalogue.h"
#include "upperview/page/page_parser.h"

#include <algorithm>
#include <map>
#include <memory>

namespace sbd {

namespace {

constexpr int kNotes = 100;

/// The page file that serves a block; null if there is none.
const PageSource* SourceOf(int block)
{
    static const std::map<int, const PageSource*> sources = [] {
        std::map<int, const PageSource*> result;
        for (const PageSource& source : PageSources())
            for (const int served : BlocksOfFileName(source.name))
                result.emplace(served, &source);
        return result;
    }();
    const auto found = sources.find(block);
    return found == sources.end() ? nullptr : found->second;
}

} // namespace

bool HasPage(int block)
{
    if (block == kNotes)
        return true;
    return block > 256 && FindBlock(block) != nullptr && CanonicalBlock(block) == block
           && (GridColumns(block) > 0 || !PageTitleText(block).empty());
}

std::vector<int> BlocksWithPage()
{
    std::vector<int> blocks = {kNotes};
    for (const CatalogueRow& row : Catalogue())
        if (HasPage(row.block))
            blocks.push_back(row.block);
    return blocks;
}

const std::map<std::string, Sketch>& SharedSketches()
{
    static const std::map<std::string, Sketch> sketches = [] {
        for (const PageSource& source : PageSources())
            if (source.name == kSharedFile)
                return ParsePage(source.text, 0).page.sketches;
        return std::map<std::string, Sketch>();
    }();
    return sketches;
}

const Page* FindPage(int block)
{
    static std::map<int, std::unique_ptr<const Page>> pages;
    if (!HasPage(block))
        return nullptr;
    std::unique_ptr<const Page>& page = pages[block];
    if (!page) {
        const PageSource* source = SourceOf(block);
        page = std::make_unique<const Page>(source == nullptr ? MakeTablePage(block)
                                                              : ParsePage(source->text, block).page);
    }
    return page.get();
}

const Sketch* FindSketch(const Page& page, const std::string& name)
{
    const auto own = page.sketches.find(name);
    if (own != page.sketches.end())
        return &own->second;
    const auto shared = SharedSketches().find(name);
    return shared == SharedSketches().end() ? nullptr : &shared->second;
}

} // namespace sbd
