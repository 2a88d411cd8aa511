#include "document/broken_file.h"

#include "project/block_rules.h"
#include "project/catalogue.h"
#include "project/sbd_data.h"
#include "project/text.h"
#include "sbdfile/line_reader.h"
#include "sbdfile/reader.h"

#include <algorithm>
#include <set>
#include <utility>

namespace sbd {

namespace {

struct Facts {
    bool hasKnownSection = false;
    bool endIsOpen = false; ///< the last line in brackets is no end of a section
    bool hasZeroByte = false;
    std::ptrdiff_t linesOutside = 0;
};

/// The block that a header opens, as the reader finds it; 0: none that is known.
int BlockOfHeader(std::string_view line)
{
    for (const CatalogueRow& row : Catalogue()) {
        for (const std::string_view prefix : row.prefixes) {
            if (!prefix.empty() && line.starts_with(prefix))
                return row.block;
        }
    }
    return 0;
}

/// True for a control or head row, which every file may hold or leave out.
bool StandsAhead(int block, std::string_view line)
{
    const std::string_view word = line.substr(0, line.find(' '));
    const ControlRowRule* control = ControlRowOf(block);
    const bool isControl = control != nullptr && std::ranges::any_of(control->words, [word](const std::string& begin) {
                               return word.starts_with(begin);
                           });
    return isControl || FindHeadRow(HeadRowsOf(block), word) >= 0;
}

/// A section: the number of its block, or 0 and the word that opens it.
using Section = std::pair<int, std::string>;

/// The sections that have rows, in the order of their numbers.
std::set<Section> SectionsWithRows(std::string_view bytes)
{
    std::set<Section> filled;
    CLineReader lines(bytes);
    CLineCleaner cleaner;
    bool inside = false;
    Section section;
    std::string_view raw;
    while (lines.Next(raw)) {
        const std::string_view line = cleaner.CleanRow(raw);
        if (line.empty() || line.starts_with('!'))
            continue;
        if (inside) {
            inside = !line.starts_with("[E");
            if (inside && !StandsAhead(section.first, line))
                filled.insert(section);
        } else if (line.starts_with('[')) {
            const int block = BlockOfHeader(line);
            section = {block, block != 0 ? std::string() : std::string(line.substr(0, line.find(']') + 1))};
            inside = block != 0 || line.find(']') != std::string_view::npos;
        }
    }
    return filled;
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
        facts.hasKnownSection = facts.hasKnownSection || (facts.endIsOpen && BlockOfHeader(line) != 0);
    }
    CSbdData scratch;
    std::vector<ReadNote> notes;
    ReadSections(bytes, scratch, &notes);
    facts.linesOutside = std::ranges::count(notes, LostLine::OutsideSection, &ReadNote::reason);
    return facts;
}

} // namespace

std::vector<std::string> SectionsThatLostTheirRows(std::string_view before, std::string_view after)
{
    std::vector<std::string> known;
    std::vector<std::string> unknown;
    const std::set<Section> now = SectionsWithRows(after);
    for (const Section& section : SectionsWithRows(before)) {
        if (now.contains(section))
            continue;
        if (section.first != 0)
            known.push_back(std::to_string(section.first));
        else
            unknown.push_back(section.second);
    }
    known.insert(known.end(), unknown.begin(), unknown.end());
    return known;
}

bool LooksBroken(std::string_view before, std::string_view after)
{
    const Facts old = FactsOf(before);
    if (!old.hasKnownSection || before == after)
        return false; // nothing that could have been lost
    if (after.size() < before.size() / 2)
        return true;
    const Facts now = FactsOf(after);
    return !now.hasKnownSection || (now.endIsOpen && !old.endIsOpen) || (now.hasZeroByte && !old.hasZeroByte)
           || now.linesOutside > old.linesOutside || !SectionsThatLostTheirRows(before, after).empty();
}

} // namespace sbd
