#include "upperview/page/page_store.h"

#include "project/catalogue.h"
#include "upperview/page/page_parser.h"

#include <algorithm>
#include <utility>

namespace sbd {

namespace {

constexpr int kNotes = 100;

} // namespace

int PageBlock(int block)
{
    const int shown = BlockOnPanel(block);
    return shown == 0 ? CanonicalBlock(block) : shown;
}

bool HasPage(int block)
{
    if (block == kNotes)
        return true;
    return block > 256 && FindBlock(block) != nullptr && PageBlock(block) == block
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

CPageStore::CPageStore(std::span<const PageSource> sources)
{
    for (const PageSource& source : sources) {
        if (source.name == kSharedFile)
            shared_ = ParsePage(source.text, 0).page.sketches;
        for (const int block : BlocksOfFileName(source.name))
            texts_.emplace(CanonicalBlock(block), source.text);
    }
}

const Page* CPageStore::Find(int block)
{
    if (!HasPage(block))
        return nullptr;
    std::unique_ptr<const Page>& page = pages_[block];
    if (!page) {
        const auto text = texts_.find(block);
        Page made = text == texts_.end() ? MakeTablePage(block) : ParsePage(text->second, block).page;
        TakeOverShared(made, shared_);
        page = std::make_unique<const Page>(std::move(made));
    }
    return page.get();
}

CPageStore& BuiltInPages()
{
    static CPageStore store(PageSources());
    return store;
}

const Page* FindPage(int block)
{
    return BuiltInPages().Find(block);
}

void TakeOverShared(Page& page, const std::map<std::string, Sketch>& shared)
{
    for (const PageBranch& branch : page.branches)
        for (const std::string& name : branch.sketches)
            if (const auto found = shared.find(name); found != shared.end())
                page.sketches.emplace(name, found->second); // one of its own stays
}

const Sketch* FindSketch(const Page& page, const std::string& name)
{
    const auto found = page.sketches.find(name);
    return found == page.sketches.end() ? nullptr : &found->second;
}

} // namespace sbd
