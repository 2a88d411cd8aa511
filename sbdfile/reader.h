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

/// Reads a project's text into `data`, on top of what it holds. Reads any bytes: what it does not understand
/// it skips, sections it does not know it keeps. Does not repair (see repairs.h). `notes`: null, or the list that
/// takes the lines passed over.
void ReadSections(std::string_view bytes, CSbdData& data, std::vector<ReadNote>* notes = nullptr);

/// Reset, ReadSections, RepairAfterRead: a project as it stands after a load. The names in `data` stay.
void ReadProject(std::string_view bytes, CSbdData& data);

} // namespace sbd
