// Writing the text of a project file.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace sbd {

class CSbdData;

/// What the writer has to tell besides the text.
struct WriteReport {
    bool controlBlockHeldBack = false; ///< block 301 holds "<?>": title and block are not in the text
};

/// The text of a project file. A block 301 without rows, which no document has, is written as a new one.
[[nodiscard]] std::string WriteProject(const CSbdData& data, WriteReport* report = nullptr);

/// Where a row of a table or record block begins in the text.
struct WrittenRow {
    std::size_t offset = 0;
    int block = 0;
    int row = 0; ///< stored row, from 0
};

/// Where the first and the last line of a section begin.
struct WrittenSection {
    int block = 0;
    std::size_t header = 0;
    std::size_t end = 0;
};

/// What stands where in a text, in the order of the text.
struct WriteTrace {
    std::vector<WrittenRow> rows;
    std::vector<WrittenSection> sections;
};

/// The whole text, with what stands where.
[[nodiscard]] std::string WriteProject(const CSbdData& data, WriteTrace& trace);

/// The text of some blocks alone (ascending numbers), as it stands in the whole: the title with block 301, then the
/// sections. `data`: as for WriteProject.
[[nodiscard]] std::string WriteBlocks(const CSbdData& data, std::span<const int> blocks, WriteTrace& trace);

/// The message for a block 301 that is held back.
inline constexpr const char* kControlBlockMessage = "Input error in 301 [SEC_CONTROL]";

} // namespace sbd
