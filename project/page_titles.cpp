#include "project/page_titles.h"

#include "project/catalogue.h"

namespace sbd {

std::string_view FindPageTitle(int block)
{
    const int canonical = CanonicalBlock(block);
    for (const PageTitle& title : PageTitles())
        if (CanonicalBlock(title.block) == canonical)
            return title.title;
    return {};
}

} // namespace sbd
