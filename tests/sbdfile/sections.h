// Projects written as UTF-8 literals, and what became of them in a form that is read at a glance.
#pragma once

#include "project/sbd_data.h"
#include "project/text.h"
#include "sbdfile/grid_names.h"
#include "sbdfile/reader.h"
#include "sbdfile/writer.h"

#include <string>
#include <string_view>
#include <vector>

namespace sbd {

/// The bytes of a file of these lines: CP932, CR LF.
inline std::string FileOf(std::string_view utf8)
{
    std::string bytes;
    for (const char c : Cp932(utf8))
        bytes += c == '\n' ? std::string("\r\n") : std::string(1, c);
    return bytes;
}

/// Read on top of a new document, without the repairs.
inline CSbdData ReadOnly(std::string_view utf8)
{
    CSbdData data;
    ReadSections(FileOf(utf8), data);
    return data;
}

/// Loaded into a new document, names of the bridge included.
inline CSbdData LoadBytes(std::string_view bytes, std::string_view names = {})
{
    CSbdData data;
    ReadGridNamesFromBytes(names, data);
    ReadProject(bytes, data);
    return data;
}

inline CSbdData Load(std::string_view utf8, std::string_view names = {})
{
    return LoadBytes(FileOf(utf8), FileOf(names));
}

/// All cells of a row in UTF-8, divided by "|".
inline std::string RowText(const CSbdData& data, int block, std::size_t row)
{
    std::string text;
    for (const std::string_view cell : data.Table(block)->Row(row))
        text += FromCp932(cell) + "|";
    return text.substr(0, text.size() - 1);
}

/// All rows of a table block, empty cells at their ends left out.
inline std::vector<std::string> TableText(const CSbdData& data, int block)
{
    std::vector<std::string> rows;
    for (std::size_t row = 0; row < data.RowCount(block); ++row) {
        std::string text = RowText(data, block, row);
        text.resize(text.find_last_not_of('|') + 1);
        rows.push_back(text);
    }
    return rows;
}

inline std::string OptionText(const CSbdData& data, int block, std::size_t row)
{
    return FromCp932(data.Option(block, row));
}

/// The lines of a file in UTF-8, without their ends; a byte that is no CP932 character and a control character other
/// than a tab as \xNN. A line that does not end in CR LF has " (no CR LF)" behind it.
inline std::vector<std::string> LinesOf(std::string_view bytes)
{
    std::vector<std::string> lines;
    while (!bytes.empty()) {
        const std::size_t end = bytes.find('\n');
        std::string_view line = bytes.substr(0, end);
        bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
        const bool whole = end != std::string_view::npos && line.ends_with('\r');
        if (whole)
            line.remove_suffix(1);
        std::string shown;
        for (const char c : FromCp932(line)) {
            constexpr std::string_view digits = "0123456789abcdef";
            const unsigned byte = static_cast<unsigned char>(c);
            if ((byte < 0x20 && c != '\t') || byte == 0x7F)
                shown += {'\\', 'x', digits[byte >> 4], digits[byte & 15]};
            else
                shown += c;
        }
        lines.push_back(shown + (whole ? "" : " (no CR LF)"));
    }
    return lines;
}

/// The lines of one section of a file, header and end line included; none if it is not there.
inline std::vector<std::string> SectionOf(std::string_view bytes, std::string_view headerStart)
{
    std::vector<std::string> section;
    for (const std::string& line : LinesOf(bytes)) {
        if (section.empty() ? line.starts_with(headerStart) : true)
            section.push_back(line);
        if (!section.empty() && line.starts_with("[E"))
            break;
    }
    return section;
}

/// The rows of a section: its lines without header, comments and end line.
inline std::vector<std::string> WrittenRows(std::string_view bytes, std::string_view headerStart)
{
    std::vector<std::string> rows;
    const std::vector<std::string> section = SectionOf(bytes, headerStart);
    for (std::size_t i = 1; i + 1 < section.size(); ++i)
        if (!section[i].starts_with('!'))
            rows.push_back(section[i]);
    return rows;
}

/// Where two files part: number and text of the first line that differs; empty if they are the same.
inline std::string FirstDifference(std::string_view expected, std::string_view written)
{
    if (expected == written)
        return {};
    const std::vector<std::string> a = LinesOf(expected);
    const std::vector<std::string> b = LinesOf(written);
    std::size_t line = 0;
    while (line < a.size() && line < b.size() && a[line] == b[line])
        ++line;
    return "line " + std::to_string(line + 1) + "\n  expected |" + (line < a.size() ? a[line] : "(no line)")
           + "|\n  written  |" + (line < b.size() ? b[line] : "(no line)") + "|";
}

} // namespace sbd
