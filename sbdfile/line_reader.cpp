#include "sbdfile/line_reader.h"

#include "project/text.h"

namespace sbd {

bool CLineReader::Next(std::string_view& line)
{
    if (rest_.empty())
        return false;
    ++number_;
    offset_ = size_ - rest_.size();
    const std::size_t end = rest_.find('\n');
    if (end == std::string_view::npos) {
        line = rest_;
        rest_ = {};
        return true;
    }
    line = rest_.substr(0, end);
    rest_.remove_prefix(end + 1);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return true;
}

namespace {

constexpr char kLeadOfPunctuation = '\x81'; // lead byte of all three double-byte characters that are replaced

bool BecomesBlanks(std::string_view text, std::size_t pos)
{
    constexpr std::string_view trails = "\x40\x41\x43"; // full-width blank, ideographic comma, full-width comma
    return text[pos] == kLeadOfPunctuation && pos + 1 < text.size()
           && trails.find(text[pos + 1]) != std::string_view::npos;
}

} // namespace

std::string_view CLineCleaner::Clean(std::string_view line)
{
    if (line.find('\t') == std::string_view::npos && line.find(kLeadOfPunctuation) == std::string_view::npos)
        return Trim(line);
    return Trim(Replace(line, false));
}

std::string_view CLineCleaner::CleanRow(std::string_view line)
{
    if (line.find(',') == std::string_view::npos && line.find('\t') == std::string_view::npos
        && line.find(kLeadOfPunctuation) == std::string_view::npos)
        return Trim(line);
    return Trim(Replace(line, true));
}

std::string_view CLineCleaner::Replace(std::string_view line, bool commas)
{
    buffer_.clear();
    for (std::size_t pos = 0; pos < line.size();) {
        const std::size_t length = CharacterLength(line, pos);
        if (line[pos] == '\t' || (length == 2 && BecomesBlanks(line, pos)))
            buffer_.append(2, ' ');
        else if (commas && line[pos] == ',')
            buffer_.push_back(' ');
        else
            buffer_.append(line, pos, length);
        pos += length;
    }
    return buffer_;
}

} // namespace sbd
