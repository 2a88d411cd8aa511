#include "document/broken_file.h"

#include "project/catalogue.h"
#include "project/sbd_data.h"
#include "project/text.h"
#include "sbdfile/reader.h"

#include <algorithm>

namespace sbd {

namespace {

struct Facts {
    bool hasKnownSection = false;
    bool endIsOpen = false; ///< the last line in brackets is no end of a section
    bool hasZeroByte = false;
    std::ptrdiff_t linesOutside = 0;
};

bool IsKnownHeader(std::string_view line)
{
    return std::ranges::any_of(Catalogue(), [line](const CatalogueRow& row) {
        return std::ranges::any_of(
            row.prefixes, [line](std::string_view prefix) { return !prefix.empty() && line.starts_with(prefix); });
    });
}

Facts FactsOf(std::string_view bytes)
{
    Facts facts;
    facts.hasZeroByte = bytes.find('\0') != std::string_view::npos;
    for (std::size_t begin = 0; begin < bytes.size();) {
        const std::size_t end = std::min(bytes.find('\n', begin), bytes.size());
        const std::string_view line = TrimLeft(bytes.substr(begin, end - begin));
        begin = end + 1;
        if (!line.starts_with('['))
            continue;
        facts.endIsOpen = !line.starts_with("[E");
        facts.hasKnownSection = facts.hasKnownSection || (facts.endIsOpen && IsKnownHeader(line));
    }
    CSbdData scratch;
    std::vector<ReadNote> notes;
    ReadSections(bytes, scratch, &notes);
    facts.linesOutside = std::ranges::count(notes, LostLine::OutsideSection, &ReadNote::reason);
    return facts;
}

} // namespace

bool LooksBroken(std::string_view before, std::string_view after)
{
    const Facts old = FactsOf(before);
    if (!old.hasKnownSection || before == after)
        return false; // nothing that could have been lost
    if (after.size() < before.size() / 2)
        return true;
    const Facts now = FactsOf(after);
    return !now.hasKnownSection || (now.endIsOpen && !old.endIsOpen) || (now.hasZeroByte && !old.hasZeroByte)
           || now.linesOutside > old.linesOutside;
}

} // namespace sbd
