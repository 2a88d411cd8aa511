// Reading the text of a project file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

class CSbdData;

/// Why a line of the file does not come back at a save.
enum class LostLine {
    OutsideSection, ///< no header, no comment, and no section it belongs to
    UnknownKeyword, ///< no row of the option block begins so
    NoValue,        ///< the line of an option row has too few words: the row keeps the value it had
    FurtherWords,   ///< words behind the value of a head row
};

/// A line that the reader passes over.
struct ReadNote {
    LostLine reason = LostLine::OutsideSection;
    std::size_t line = 0; ///< from 1
    int block = 0;        ///< 0: outside
    std::string text;     ///< CP932
};

/// What became of a line.
enum class ReadStep {
    Title,
    SectionOpens, ///< of a known block
    UnknownOpens, ///< a section that is kept as it is
    SectionEnds,  ///< by an end line; `text` is that line
    FileEnds,     ///< inside a section: its end line is missing
    Outside,      ///< a line that belongs to no section
    UnknownLine,  ///< a line of an unknown section, cleaned
    Line,         ///< a line of a known section, cleaned; what became of it follows
    Row,          ///< it became row `row` of its block; `text`: what its last column took
    HeadRow,      ///< it took the place of head row `row`
    OptionValue,  ///< it gave its value to row `row`
    NoOption,     ///< no row of the option block begins so
    NoValue,      ///< a row of an option block without a value; `row` -1: of no row of the block
    Surplus,      ///< `text`: words that no field takes
    NamesBeyond,  ///< more names than the list still takes
    NamesOutside, ///< names in front of the first heading or behind a full list
};

/// One step of reading.
struct ReadEvent {
    ReadStep step = ReadStep::Line;
    std::size_t line = 0;   ///< from 1
    std::size_t offset = 0; ///< of the line's first byte
    int block = 0;          ///< 0: none, or an unknown section
    int row = -1;           ///< stored row, from 0
    std::string_view text;  ///< CP932; holds during the call
};

/// Follows the reader line by line.
class CReadObserver {
public:
    virtual ~CReadObserver() = default;
    virtual void Met(const ReadEvent& event) = 0;
};

/// The block whose section a cleaned line opens; 0: none.
[[nodiscard]] int BlockOfHeaderLine(std::string_view line);

/// Reads a project's text into `data`, on top of what it holds. Reads any bytes: what it does not understand
/// it skips, sections it does not know it keeps. Does not repair (see repairs.h). `notes`: null, or the list that
/// takes the lines passed over.
void ReadSections(std::string_view bytes, CSbdData& data, std::vector<ReadNote>* notes = nullptr);
void ReadSections(std::string_view bytes, CSbdData& data, CReadObserver& observer);

/// Reset, ReadSections, RepairAfterRead: a project as it stands after a load. The names in `data` stay.
void ReadProject(std::string_view bytes, CSbdData& data);

} // namespace sbd
