#include "sbdfile/camber.h"

#include "project/text.h"

#include <array>

namespace sbd {

namespace {

using namespace literals;

std::size_t SkipBlanks(std::string_view text, std::size_t pos)
{
    const std::size_t next = text.find_first_not_of(' ', pos);
    return next == std::string_view::npos ? text.size() : next;
}

/// Position behind one of `spellings` at `pos`; npos if none stands there.
template <std::size_t N>
std::size_t Behind(std::string_view text, std::size_t pos, const std::array<std::string, N>& spellings)
{
    for (const std::string& spelling : spellings)
        if (text.substr(pos).starts_with(spelling))
            return pos + spelling.size();
    return std::string_view::npos;
}

/// Length of the mark that begins at `pos`; 0 if none does. Arrow and brackets have two spellings each, with blanks
/// allowed between arrow, brackets and words.
std::size_t MarkLength(std::string_view text, std::size_t pos)
{
    static const std::array<std::string, 2> arrows = {"-->", "→"_cp932};
    static const std::array<std::string, 2> opening = {"(", "（"_cp932};
    static const std::array<std::string, 1> words = {"荷重名は無効"_cp932};
    static const std::array<std::string, 2> closing = {")", "）"_cp932};
    std::size_t end = Behind(text, pos, arrows);
    if (end != std::string_view::npos)
        end = Behind(text, SkipBlanks(text, end), opening);
    if (end != std::string_view::npos)
        end = Behind(text, SkipBlanks(text, end), words);
    if (end != std::string_view::npos)
        end = Behind(text, SkipBlanks(text, end), closing);
    return end == std::string_view::npos ? 0 : end - pos;
}

std::string WithoutMarks(std::string_view text)
{
    std::string result;
    for (std::size_t pos = 0; pos < text.size();) {
        if (const std::size_t mark = MarkLength(text, pos); mark > 0) {
            pos += mark;
            continue;
        }
        const std::size_t length = CharacterLength(text, pos);
        result.append(text, pos, length);
        pos += length;
    }
    return std::string(Trim(result));
}

} // namespace

TableBlock CleanedCamber(const TableBlock& table, std::vector<int>* from)
{
    TableBlock cleaned;
    cleaned.columns.resize(table.columns.size());
    for (std::size_t row = 0; row < table.RowCount(); ++row) {
        const std::string kind = WithoutMarks(table.columns[0][row]);
        const std::string load = WithoutMarks(table.columns[1][row]);
        if (load.empty() || load == "?")
            continue;
        cleaned.AppendRow({kind, load});
        if (from != nullptr)
            from->push_back(static_cast<int>(row));
    }
    return cleaned;
}

} // namespace sbd
