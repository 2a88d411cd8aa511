#include "check/list_columns.h"

#include <algorithm>
#include <iterator>

namespace sbd {

namespace {

// In rising order. Spacings, pairs of width and thickness, remarks: what stands in these columns is several words by
// its nature. In every other block a further word is one that has slipped in.
constexpr int kBlocks[] = {259, 307, 313, 315, 316, 343, 402, 405, 408, 409, 412, 423, 481, 482, 483, 484, 485, 486,
                           513, 517, 535, 556, 563, 574, 605, 606, 645, 646, 656, 662, 668, 676, 682, 683, 689, 725};
static_assert(std::ranges::is_sorted(kBlocks));

} // namespace

bool LastColumnTakesWords(int block)
{
    return std::ranges::binary_search(kBlocks, block);
}

} // namespace sbd
