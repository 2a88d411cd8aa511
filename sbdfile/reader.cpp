#include "sbdfile/reader.h"

#include "project/block_rules.h"
#include "project/catalogue.h"
#include "project/option_rows.h"
#include "project/sbd_data.h"
#include "project/text.h"
#include "sbdfile/line_reader.h"
#include "sbdfile/reader_records.h"
#include "sbdfile/repairs.h"

#include <algorithm>

namespace sbd {

namespace {

using namespace literals;

std::string_view FirstToken(std::string_view line)
{
    return line.substr(0, line.find(' '));
}

/// The block whose header prefix the token begins with; 0: none.
int BlockOfHeader(std::string_view token)
{
    // In the order of the tests: the blocks below 300 first, then by rising number, which the catalogue's order is.
    if (!token.starts_with('['))
        return 0;
    for (const CatalogueRow& row : Catalogue())
        for (const std::string_view prefix : row.prefixes)
            if (!prefix.empty() && token.starts_with(prefix))
                return row.block;
    return 0;
}

/// Takes the value of one line "keyword [label] value"; false if the line has too few words.
bool TakeOptionValue(std::string_view& rest, OptionShape shape)
{
    const int wordsAhead = shape == OptionShape::KeywordLabelValue ? 2 : 1;
    for (int word = 0; word < wordsAhead; ++word) {
        const std::size_t blank = rest.find(' ');
        if (blank == std::string_view::npos)
            return false;
        rest = TrimLeft(rest.substr(blank + 1));
    }
    return true;
}

/// Calls `take` with the rows that a keyword means. 301, 302 and 303: the first whose short key it begins with. Other
/// blocks: all rows with the longest such key. False if there is none.
template <typename Take>
bool ForEachOptionRow(const OptionBlock& block, std::string_view token, Take take)
{
    if (block.block == 401) { // these two keywords begin like those of other rows
        const std::size_t row = token.starts_with("VS_R_UP_SU") ? 11 : token.starts_with("VS_R_BOTTOM_SU") ? 12 : 0;
        if (row > 0) {
            take(row);
            return true;
        }
    }
    const bool firstOnly = block.block <= 303;
    std::size_t longest = 0;
    for (const OptionRow& row : block.rows)
        if (token.starts_with(row.shortKey))
            longest = std::max(longest, row.shortKey.size());
    for (std::size_t row = 0; row < block.rows.size(); ++row) {
        const std::string& key = block.rows[row].shortKey;
        if ((!firstOnly && key.size() < longest) || !token.starts_with(key))
            continue;
        take(row);
        if (firstOnly)
            return true;
    }
    return longest > 0;
}

/// Reads one project text; the sections take their lines from it in turn.
class ProjectReader {
public:
    ProjectReader(std::string_view bytes, CSbdData& data, CReadObserver* observer)
        : source_{CLineReader(bytes), observer}
        , lines_(source_.lines)
        , data_(data)
    {
    }

    void Read()
    {
        std::string_view raw;
        while (lines_.Next(raw)) {
            const std::string_view line = cleaner_.Clean(raw);
            const std::string_view token = FirstToken(line);
            if (line.empty() || token.starts_with('!'))
                continue;
            if (line.starts_with("TITLE:"))
                ReadTitle(line);
            else if (const int block = BlockOfHeader(token); block != 0)
                OpenSection(block, line);
            else if (line.starts_with('[') && line.find(']') != std::string_view::npos)
                KeepUnknownSection(line);
            else
                source_.Tell(ReadStep::Outside, 0, -1, line);
        }
    }

private:
    void ReadTitle(std::string_view line)
    {
        source_.Tell(ReadStep::Title, 301, 0, line);
        // A set of characters, not the word: a title that begins with one of these letters loses them.
        const std::size_t begin = std::min(line.find_first_not_of("TITLE:"), line.size());
        data_.SetOption(301, 0, line.substr(begin));
    }

    void KeepUnknownSection(std::string_view header)
    {
        data_.unknownLines.emplace_back(header);
        source_.Tell(ReadStep::UnknownOpens, 0, -1, header);
        std::string_view raw;
        while (lines_.Next(raw)) {
            data_.unknownLines.emplace_back(raw);
            const std::string_view line = cleaner_.Clean(raw);
            if (line.starts_with("[E")) {
                data_.unknownLines.emplace_back();
                return source_.Tell(ReadStep::SectionEnds, 0, -1, line);
            }
            source_.Tell(ReadStep::UnknownLine, 0, -1, line);
        }
        source_.Tell(ReadStep::FileEnds, 0);
    }

    void OpenSection(int block, std::string_view header)
    {
        source_.Tell(ReadStep::SectionOpens, block, -1, header);
        ReadSection(block);
    }

    void ReadSection(int block)
    {
        if (const OptionBlock* options = FindOptionBlock(block))
            return ReadOptions(*options);
        switch (block) {
        case 311:
            return ReadHGirder(source_, data_);
        case 324:
            return ReadCrossRibs(source_, data_);
        case 325:
            return ReadLRibs(source_, data_);
        case 412:
            return ReadUnusedLines(source_, data_);
        case 501:
        case 702:
            return ReadNames(source_, block, data_);
        default:
            return ReadTable(block);
        }
    }

    void ReadOptions(const OptionBlock& block)
    {
        std::string_view raw;
        while (lines_.Next(raw)) {
            const std::string_view line = cleaner_.Clean(raw);
            if (line.empty() || line.starts_with('!'))
                continue;
            if (line.starts_with("[E"))
                return source_.Tell(ReadStep::SectionEnds, block.block, -1, line);
            source_.Tell(ReadStep::Line, block.block, -1, line);
            std::string_view value = line;
            if (!TakeOptionValue(value, block.shape))
                TellNoValue(block, line);
            else if (!ForEachOptionRow(block, FirstToken(line), [&](std::size_t row) {
                         data_.SetOption(block.block, row, value);
                         source_.Tell(ReadStep::OptionValue, block.block, static_cast<int>(row), value);
                     }))
                source_.Tell(ReadStep::NoOption, block.block, -1, line);
        }
        source_.Tell(ReadStep::FileEnds, block.block);
    }

    void TellNoValue(const OptionBlock& block, std::string_view line) const
    {
        int first = -1;
        ForEachOptionRow(block, FirstToken(line), [&](std::size_t row) {
            if (first < 0)
                first = static_cast<int>(row);
        });
        source_.Tell(ReadStep::NoValue, block.block, first, line);
    }

    /// The rows of a table block, head rows and control row included.
    void ReadTable(int block)
    {
        TableBlock& table = *data_.Table(block);
        const ControlRowRule* control = ControlRowOf(block);
        const std::span<const HeadRow> heads = HeadRowsOf(block);
        const std::size_t firstRow = table.RowCount();
        bool atFirstRow = true;
        std::string_view raw;
        while (lines_.Next(raw)) {
            std::string_view line = cleaner_.CleanRow(raw);
            if (line.empty() || line.starts_with('!'))
                continue;
            if (line.starts_with("[E"))
                return source_.Tell(ReadStep::SectionEnds, block, -1, line);
            source_.Tell(ReadStep::Line, block, -1, line);
            if (block == 315 && line.starts_with("NEW_VERSION_")) {
                data_.versionWord = line;
                continue;
            }
            std::string replaced;
            if (block == 306 && line.starts_with(kOldMainLoad)) {
                replaced = "主荷重"_cp932 + std::string(line.substr(kOldMainLoad.size()));
                line = replaced;
            }
            if (atFirstRow)
                AddRowsAhead(table, control, heads, FirstToken(line));
            atFirstRow = false;
            if (!ReplaceHeadRow(table, heads, firstRow, line, block)) {
                const std::string_view last = AppendLine(table, line);
                source_.Tell(ReadStep::Row, block, static_cast<int>(table.RowCount()) - 1, last);
            }
            if (block == 331)
                MoveOldWebRow(table);
        }
        source_.Tell(ReadStep::FileEnds, block);
    }

    /// Ahead of the first row: the head rows, or the control row if the file has none.
    static void AddRowsAhead(TableBlock& table, const ControlRowRule* control, std::span<const HeadRow> heads,
                             std::string_view firstWord)
    {
        for (const HeadRow& head : heads)
            table.AppendRow({head.word, head.value});
        if (control != nullptr && std::ranges::none_of(control->words, [&](const std::string& word) {
                return firstWord.starts_with(word);
            }))
            table.AppendRow({control->cells.begin(), control->cells.end()});
    }

    /// A line with a head's key takes the place of that head row; false if it is none.
    bool ReplaceHeadRow(TableBlock& table, std::span<const HeadRow> heads, std::size_t firstRow, std::string_view line,
                        int block)
    {
        if (heads.empty())
            return false;
        const std::string_view word = TakeToken(line);
        const int head = FindHeadRow(heads, word);
        if (head < 0)
            return false;
        line = TrimLeft(line);
        const std::size_t row = firstRow + static_cast<std::size_t>(head);
        table.columns[0].Set(row, word);
        table.columns[1].Set(row, TakeToken(line));
        source_.Tell(ReadStep::HeadRow, block, static_cast<int>(row));
        if (!TrimLeft(line).empty())
            source_.Tell(ReadStep::Surplus, block, -1, TrimLeft(line));
        return true;
    }

    /// One word a column; the last column takes the rest of the line, which is given back.
    static std::string_view AppendLine(TableBlock& table, std::string_view line)
    {
        // Nearly all of a large file passes here: a plain walk, as cells are too short for a search to pay.
        const std::size_t last = table.columns.size() - 1;
        std::size_t pos = 0;
        for (std::size_t column = 0; column < last; ++column) {
            while (pos < line.size() && IsTrimmed(line[pos]))
                ++pos;
            const std::size_t begin = pos;
            while (pos < line.size() && line[pos] != ' ')
                ++pos;
            table.columns[column].Append(line.substr(begin, pos - begin));
        }
        const std::string_view rest = TrimLeft(line.substr(pos));
        table.columns[last].Append(rest);
        return rest;
    }

    /// A row of block 331 in the old layout moves to the right: the reason for the thickness had no column then.
    static void MoveOldWebRow(TableBlock& table)
    {
        const std::size_t row = table.RowCount() - 1;
        const auto cell = [&](std::size_t column) { return table.columns[column][row]; };
        static const std::vector<std::string> sides = {"内面"_cp932, "外面"_cp932, "中心"_cp932};
        if (row == 0 || !cell(10).empty() || cell(7).empty() || cell(9).empty()
            || std::ranges::find(sides, cell(8)) == sides.end())
            return;
        for (std::size_t column = 10; column > 7; --column)
            table.columns[column].Set(row, cell(column - 1));
        table.columns[7].Set(row, {});
    }

    static constexpr std::string_view kOldMainLoad = "YES_MAIN_LOAD";

    ReadSource source_;
    CLineReader& lines_; // of source_
    CLineCleaner cleaner_;
    CSbdData& data_;
};

/// Keeps the lines that do not come back at a save.
class NoteTaker : public CReadObserver {
public:
    explicit NoteTaker(std::vector<ReadNote>& notes) : notes_(notes) {}

    void Met(const ReadEvent& event) override
    {
        if (event.step == ReadStep::Outside)
            Note(LostLine::OutsideSection, event);
        else if (event.step == ReadStep::NoValue)
            Note(LostLine::NoValue, event);
        else if (event.step == ReadStep::NoOption)
            Note(LostLine::UnknownKeyword, event);
        else if (event.step == ReadStep::Surplus && !HeadRowsOf(event.block).empty())
            Note(LostLine::FurtherWords, event);
    }

private:
    void Note(LostLine reason, const ReadEvent& event)
    {
        notes_.push_back({reason, event.line, event.block, std::string(event.text)});
    }

    std::vector<ReadNote>& notes_;
};

} // namespace

void ReadSections(std::string_view bytes, CSbdData& data, std::vector<ReadNote>* notes)
{
    if (notes == nullptr)
        return ProjectReader(bytes, data, nullptr).Read();
    NoteTaker taker(*notes);
    ProjectReader(bytes, data, &taker).Read();
}

void ReadSections(std::string_view bytes, CSbdData& data, CReadObserver& observer)
{
    ProjectReader(bytes, data, &observer).Read();
}

int BlockOfHeaderLine(std::string_view line)
{
    return BlockOfHeader(FirstToken(line));
}

void ReadProject(std::string_view bytes, CSbdData& data)
{
    data.ClearBlocks();
    ReadSections(bytes, data);
    RepairAfterRead(data);
    data.Shrink();
}

} // namespace sbd
