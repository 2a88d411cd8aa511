#include "sbdfile/reader_records.h"

#include "project/block_rules.h"
#include "project/sbd_data.h"
#include "project/text.h"

#include <algorithm>
#include <functional>
#include <span>

namespace sbd {

namespace {

using namespace literals;
using Words = std::span<const std::string_view>;

/// Calls `take` with each cleaned row of a section, comments and empty lines left out.
template <typename Take>
void ForEachRow(ReadSource& source, int block, Take take)
{
    CLineCleaner cleaner;
    std::string_view raw;
    while (source.lines.Next(raw)) {
        const std::string_view line = cleaner.CleanRow(raw);
        if (line.empty() || line.starts_with('!'))
            continue;
        if (line.starts_with("[E"))
            return source.Tell(ReadStep::SectionEnds, block, -1, line);
        source.Tell(ReadStep::Line, block, -1, line);
        take(line);
    }
    source.Tell(ReadStep::FileEnds, block);
}

void TellSurplus(const ReadSource& source, int block, Words words, std::size_t taken)
{
    if (words.size() > taken)
        source.Tell(ReadStep::Surplus, block, -1, words[taken]);
}

std::string_view WordAt(Words words, std::size_t index)
{
    return index < words.size() ? words[index] : std::string_view();
}

/// A size or spacing; 0 where the line has none.
double SizeAt(Words words, std::size_t index)
{
    return LeadingNumber(WordAt(words, index)).value_or(0.0);
}

/// Takes a spacing off the left of `words`: one of the words that stand for it, or `count` numbers.
RibSpacing TakeSpacing(Words& words, int count, std::span<const std::string> standIns)
{
    RibSpacing spacing;
    const std::string_view first = WordAt(words, 0);
    if (std::ranges::any_of(standIns,
                            [&](const std::string& word) { return first.find(word) != std::string_view::npos; })) {
        spacing.word = first;
        words = words.subspan(1);
        return spacing;
    }
    const std::size_t wanted = count > 0 ? static_cast<std::size_t>(count) : 0;
    const std::size_t there = std::min(wanted, words.size());
    for (std::size_t i = 0; i < there; ++i)
        spacing.Append(SizeAt(words, i));
    spacing.Tidy();
    words = words.subspan(there);
    return spacing;
}

template <std::size_t N>
void TakeNames(Words words, std::array<std::string, N>& names)
{
    for (std::size_t i = 0; i < N; ++i)
        names[i] = WordAt(words, i);
}

} // namespace

void ReadHGirder(ReadSource& source, CSbdData& data)
{
    constexpr std::array<std::string_view, 4> typeWords = {"T_U", "T_L", "Z_U", "Z_L"};
    ForEachRow(source, 311, [&](std::string_view line) {
        const std::vector<std::string_view> words = SplitWords(line);
        for (std::size_t type = 0; type < typeWords.size(); ++type) {
            if (line.find(typeWords[type]) == std::string_view::npos)
                continue;
            if (words.size() > 1)
                data.hGirder.types[type] = words[1];
            return TellSurplus(source, 311, words, 2);
        }
        HGirderRecord record;
        TakeNames(words, record.names);
        for (std::size_t i = 0; i < record.numbers.size(); ++i)
            record.numbers[i] = LeadingNumber(WordAt(words, record.names.size() + i)).value_or(kNotGiven);
        data.hGirder.records.push_back(std::move(record));
        source.Tell(ReadStep::Row, 311, static_cast<int>(data.hGirder.records.size()) - 1);
        TellSurplus(source, 311, words, HGirderRecord().names.size() + HGirderRecord().numbers.size());
    });
}

void ReadCrossRibs(ReadSource& source, CSbdData& data)
{
    static const std::vector<std::string> leftWords = {"等間隔"_cp932};
    static const std::vector<std::string> rightWords = {"等間隔"_cp932, "基準線"_cp932};
    ForEachRow(source, 324, [&](std::string_view line) {
        const std::vector<std::string_view> all = SplitWords(line);
        Words words(all);
        CrossRibRecord record;
        TakeNames(words, record.names);
        for (std::size_t i = 0; i < record.sizes.size(); ++i)
            record.sizes[i] = SizeAt(words, 5 + i);
        record.n = LeadingInteger(WordAt(words, 9));
        words = words.subspan(std::min<std::size_t>(10, words.size()));
        record.left = TakeSpacing(words, record.n, leftWords);
        record.right = TakeSpacing(words, record.n, rightWords);
        for (int i = 1; i < record.n && !words.empty(); ++i) {
            std::array<double, 4>& sizes = record.furtherSizes.emplace_back();
            for (std::size_t k = 0; k < sizes.size(); ++k)
                sizes[k] = k < words.size() ? SizeAt(words, k) : kNotGiven;
            words = words.subspan(std::min(sizes.size(), words.size()));
        }
        data.crossRibs.push_back(std::move(record));
        source.Tell(ReadStep::Row, 324, static_cast<int>(data.crossRibs.size()) - 1);
        TellSurplus(source, 324, words, 0);
    });
}

void ReadLRibs(ReadSource& source, CSbdData& data)
{
    static const std::vector<std::string> standIns = {"等間隔"_cp932};
    ForEachRow(source, 325, [&](std::string_view line) {
        const std::vector<std::string_view> all = SplitWords(line);
        Words words(all);
        LRibRecord record;
        TakeNames(words, record.names);
        record.n1 = LeadingInteger(WordAt(words, 5));
        record.n2 = LeadingInteger(WordAt(words, 6));
        words = words.subspan(std::min<std::size_t>(7, words.size()));
        record.left = TakeSpacing(words, record.n1, standIns);
        record.right = TakeSpacing(words, record.n2, standIns);
        data.lRibs.push_back(std::move(record));
        source.Tell(ReadStep::Row, 325, static_cast<int>(data.lRibs.size()) - 1);
        TellSurplus(source, 325, words, 0);
    });
}

void ReadUnusedLines(ReadSource& source, CSbdData& data)
{
    CColumnVector& column = data.Table(412)->columns[0];
    bool first = true;
    ForEachRow(source, 412, [&](std::string_view line) {
        if (first) {
            first = false;
            if (line.starts_with("自動"_cp932)) {
                static_cast<void>(TakeToken(line));
                line = TrimLeft(line);
                column.Append(TakeToken(line));
                source.Tell(ReadStep::HeadRow, 412, 0);
                if (line = TrimLeft(line); !line.empty())
                    source.Tell(ReadStep::Surplus, 412, -1, line);
                return;
            }
            column.Append("YES");
        }
        column.Append(line); // a line name is the whole line: it may hold blanks
        source.Tell(ReadStep::Row, 412, static_cast<int>(column.size()) - 1, line);
    });
}

namespace {

bool IsWholeNumber(std::string_view word)
{
    if (word.starts_with('-') || word.starts_with('+'))
        word.remove_prefix(1);
    return !word.empty() && word.front() >= '0' && word.front() <= '9';
}

/// The list that a line starts; -1: none. A heading's first word may be longer than the heading word ("主桁名 2 G1 G2").
/// Inside a list that is not full it is the word alone, with its number, as a name may be spelled so.
int HeadingOf(std::span<const std::string> headings, Words words, bool insideList)
{
    const auto found = std::ranges::find_if(headings, [&](const std::string& heading) {
        return insideList ? words.front() == heading : words.front().starts_with(heading);
    });
    if (found == headings.end() || (insideList && !IsWholeNumber(WordAt(words, 1))))
        return -1;
    return static_cast<int>(found - headings.begin());
}

} // namespace

void ReadNames(ReadSource& source, int block, CSbdData& data)
{
    const std::string automatic = "自動"_cp932;
    const std::string automaticNames = "自動取得"_cp932;
    const std::span<const std::string> headings = NameHeadings(block);
    NameLists& names = *data.Names(block);
    std::vector<std::string>* list = nullptr;
    std::size_t wanted = 0; // names the list still takes
    ForEachRow(source, block, [&](std::string_view line) {
        const std::vector<std::string_view> all = SplitWords(line);
        Words words(all);
        if (words.front().starts_with(wanted > 0 ? automaticNames : automatic)) {
            wanted = 0;
            if (words.size() > 1)
                names.autoValue = words[1];
            return TellSurplus(source, block, words, 2);
        }
        if (const int heading = HeadingOf(headings, words, wanted > 0); heading >= 0) {
            list = &names.lists[static_cast<std::size_t>(heading)];
            list->clear();
            wanted = static_cast<std::size_t>(std::max(0, LeadingInteger(WordAt(words, 1))));
            const bool countMissing = words.size() > 1 && !IsWholeNumber(words[1]);
            words = words.subspan(std::min<std::size_t>(2, words.size()));
            if (countMissing || words.size() > wanted)
                source.Tell(ReadStep::NamesBeyond, block, -1, line);
        } else if (wanted == 0) {
            source.Tell(ReadStep::NamesOutside, block, -1, line);
        } else if (words.size() > wanted) {
            source.Tell(ReadStep::NamesBeyond, block, -1, line);
        }
        for (const std::string_view word : words.first(std::min(wanted, words.size())))
            list->emplace_back(word);
        wanted -= std::min(wanted, words.size());
    });
}

} // namespace sbd
