// Any bytes are a names file: reading ends, and what it gives hangs together.
#include "fuzz/property.h"
#include "project/sbd_data.h"
#include "sbdfile/grid_names.h"

#include <algorithm>

namespace {

constexpr std::size_t kLongestName = 35;

void CheckList(const std::vector<std::string>& names, int width)
{
    for (const std::string& name : names) {
        sbd::fuzz::Require(name.size() <= kLongestName, "a long name is cut");
        sbd::fuzz::Require(name.find(' ') == std::string::npos, "a name holds no blank");
        sbd::fuzz::Require(static_cast<int>(name.size()) <= width, "the width covers the longest name");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    static sbd::CSbdData data; // made once: its blocks are not touched
    data.gridNames = {};
    sbd::ReadGridNamesFromBytes(sbd::fuzz::Text(bytes, size), data);
    const sbd::GridNames& names = data.gridNames;
    CheckList(names.girderNames, names.girderNameWidth);
    CheckList(names.swayNames, names.swayNameWidth);
    CheckList(names.lineNames, static_cast<int>(kLongestName));
    sbd::fuzz::Require(names.swayMarks.size() == names.swayNames.size(), "each beam has a mark");
    sbd::fuzz::Require(std::ranges::all_of(names.swayMarks, [](int mark) { return mark >= 0 && mark <= 2; }),
                       "a mark is 0, 1 or 2");
    sbd::fuzz::Require(data.swayNameCount == names.swayNames.size(), "the beams of the file are counted");
    return 0;
}
