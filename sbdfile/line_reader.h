// The lines of a project file, and their cleaning.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace sbd {

/// Hands out the lines of a file's bytes. A line ends with LF, one CR in front of it goes too; what stands behind
/// the last LF is a line as well.
class CLineReader {
public:
    explicit CLineReader(std::string_view bytes) : rest_(bytes), size_(bytes.size()) {}

    /// False behind the last line.
    [[nodiscard]] bool Next(std::string_view& line);
    /// Number of the line handed out last, from 1.
    [[nodiscard]] std::size_t Number() const { return number_; }
    /// Where that line begins, in bytes.
    [[nodiscard]] std::size_t Offset() const { return offset_; }

private:
    std::string_view rest_;
    std::size_t size_;
    std::size_t number_ = 0;
    std::size_t offset_ = 0;
};

/// Cleans lines; the view it gives holds until the next call.
class CLineCleaner {
public:
    /// Tab, full-width blank, full-width comma and ideographic comma become two blanks each; trimmed on both sides.
    [[nodiscard]] std::string_view Clean(std::string_view line);
    /// The same, and each "," becomes one blank.
    [[nodiscard]] std::string_view CleanRow(std::string_view line);

private:
    std::string_view Replace(std::string_view line, bool commas);

    std::string buffer_;
};

} // namespace sbd
