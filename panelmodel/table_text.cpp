#include "panelmodel/table_text.h"

#include "panelmodel/panel_editor.h"
#include "project/text.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

namespace sbd {

namespace {

constexpr char kQuote = '"';
constexpr std::size_t kLongestQuoted = 4 * kMostBytesOfCell; // a mark that is closed later than this closes nothing
constexpr std::size_t kNamedCharacters = 20;

constexpr bool IsLineEnd(char c)
{
    return c == '\n' || c == '\r';
}

/// Takes a text apart, cell by cell. Bytes of the separators and of line ends are never second bytes of a character.
class CellReader {
public:
    CellReader(std::string_view text, TableSeparator separator) : text_(text), separator_(separator) {}

    [[nodiscard]] bool AtEnd() const { return pos_ >= text_.size(); }
    [[nodiscard]] std::size_t Line() const { return line_; }
    [[nodiscard]] std::size_t OpenQuotes() const { return openQuotes_; }

    /// The cells of the next line; none for an empty one.
    std::vector<std::string> NextRow()
    {
        std::vector<std::string> row;
        SkipBlanks();
        if (AtLineEnd()) {
            PassLineEnd();
            return row;
        }
        for (;;) {
            std::string cell = NextCell();
            if (row.size() < kMostTableColumns)
                row.push_back(std::move(cell));
            else
                isWhole_ = false;
            const std::size_t cellEnd = pos_;
            SkipBlanks();
            if (AtLineEnd()) {
                PassLineEnd();
                return row;
            }
            if (separator_ == TableSeparator::Blanks && pos_ == cellEnd)
                ++pos_; // cannot be: a cell ends at a blank or at the end of its line
            else if (separator_ != TableSeparator::Blanks)
                ++pos_;
        }
    }
    [[nodiscard]] bool IsWhole() const { return isWhole_; }

private:
    [[nodiscard]] bool AtLineEnd() const { return AtEnd() || IsLineEnd(text_[pos_]); }
    [[nodiscard]] bool IsSeparator(char c) const
    {
        switch (separator_) {
        case TableSeparator::Comma:
            return c == ',';
        case TableSeparator::Tab:
            return c == '\t';
        case TableSeparator::Semicolon:
            return c == ';';
        default:
            return c == ' ' || c == '\t';
        }
    }
    /// Blanks that divide are passed over together.
    void SkipBlanks()
    {
        while (separator_ == TableSeparator::Blanks && !AtEnd() && IsSeparator(text_[pos_]))
            ++pos_;
    }
    void PassLineEnd()
    {
        if (AtEnd())
            return;
        if (text_[pos_] == '\r' && pos_ + 1 < text_.size() && text_[pos_ + 1] == '\n')
            ++pos_;
        ++pos_;
        ++line_;
    }
    std::string NextCell()
    {
        if (std::optional<std::string> quoted = Quoted())
            return *std::move(quoted);
        const std::size_t begin = pos_;
        while (!AtLineEnd() && !IsSeparator(text_[pos_]))
            ++pos_;
        return std::string(text_.substr(begin, pos_ - begin));
    }
    /// A cell between marks; nothing if none begins here, or none ends behind it.
    std::optional<std::string> Quoted()
    {
        if (AtEnd() || text_[pos_] != kQuote)
            return std::nullopt;
        std::string content;
        std::size_t lines = 0;
        const std::size_t limit = std::min(text_.size(), pos_ + kLongestQuoted);
        for (std::size_t at = pos_ + 1; at < limit; ++at) {
            if (text_[at] != kQuote) {
                lines += text_[at] == '\n' ? 1 : 0;
                content += text_[at];
            } else if (at + 1 < text_.size() && text_[at + 1] == kQuote) {
                content += text_[at++];
            } else if (at + 1 == text_.size() || IsLineEnd(text_[at + 1]) || IsSeparator(text_[at + 1])) {
                pos_ = at + 1;
                line_ += lines;
                return content;
            } else {
                break;
            }
        }
        ++openQuotes_;
        return std::nullopt;
    }

    std::string_view text_;
    TableSeparator separator_;
    std::size_t pos_ = 0;
    std::size_t line_ = 1;
    std::size_t openQuotes_ = 0;
    bool isWhole_ = true;
};

void AppendUtf8(std::string& out, char32_t c)
{
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

std::string FromUtf16(std::string_view bytes, bool bigEndian)
{
    std::string text;
    const auto unit = [bytes, bigEndian](std::size_t at) {
        const auto first = static_cast<unsigned char>(bytes[at]);
        const auto second = static_cast<unsigned char>(bytes[at + 1]);
        return static_cast<char32_t>(bigEndian ? first << 8 | second : second << 8 | first);
    };
    constexpr char32_t replacement = 0xFFFD;
    for (std::size_t at = 2; at + 1 < bytes.size(); at += 2) {
        char32_t c = unit(at);
        if (c >= 0xD800 && c <= 0xDBFF && at + 3 < bytes.size()) {
            const char32_t low = unit(at + 2);
            if (low >= 0xDC00 && low <= 0xDFFF) {
                c = 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
                at += 2;
            }
        }
        AppendUtf8(text, c >= 0xD800 && c <= 0xDFFF ? replacement : c);
    }
    return text;
}

bool IsBlankCell(const std::string& cell)
{
    return std::ranges::all_of(cell, IsTrimmed);
}

/// A cell of the file as the cells of a block hold texts.
std::string CellOf(std::string&& bytes, TextCode code, TextTable& table)
{
    const std::string keep(1, kKeepCell);
    if (bytes.size() > kMostBytesOfCell) {
        ++table.tooLong;
        return keep;
    }
    if (code == TextCode::Cp932)
        return std::move(bytes);
    if (std::ranges::all_of(bytes, [](char c) { return static_cast<unsigned char>(c) < 0x80; }))
        return std::move(bytes);
    Cp932Result converted = ToCp932(bytes);
    if (!converted.refused)
        return std::move(converted.bytes);
    ++table.strange;
    const std::string& character = converted.refused->character;
    if (table.refused.size() < kNamedCharacters && std::ranges::find(table.refused, character) == table.refused.end())
        table.refused.push_back(character);
    return keep;
}

} // namespace

std::string PlainText(std::string_view bytes)
{
    if (bytes.starts_with("\xFF\xFE"))
        return FromUtf16(bytes, false);
    if (bytes.starts_with("\xFE\xFF"))
        return FromUtf16(bytes, true);
    if (bytes.starts_with("\xEF\xBB\xBF"))
        bytes.remove_prefix(3);
    return std::string(bytes);
}

TableSeparator GuessSeparator(std::string_view text)
{
    constexpr std::size_t looked = 64 * 1024; // bytes; the first lines
    constexpr std::size_t lines = 100;
    const std::string_view head = text.substr(0, looked);
    TableSeparator best = TableSeparator::Comma;
    std::size_t most = 0;
    // Blanks stand within cells too: they divide only where nothing else does.
    for (const TableSeparator separator :
         {TableSeparator::Tab, TableSeparator::Comma, TableSeparator::Semicolon, TableSeparator::Blanks}) {
        if (separator == TableSeparator::Blanks && most > 0)
            break;
        CellReader reader(head, separator);
        std::map<std::size_t, std::size_t> linesOfWidth;
        for (std::size_t line = 0; line < lines && !reader.AtEnd(); ++line)
            if (const std::size_t width = reader.NextRow().size(); width > 1)
                ++linesOfWidth[width];
        std::size_t alike = 0;
        for (const auto& [width, count] : linesOfWidth)
            alike = std::max(alike, count);
        alike -= std::min(alike, reader.OpenQuotes()); // it divides what stands between marks
        if (alike > most) {
            most = alike;
            best = separator;
        }
    }
    return best;
}

TextTable ReadTextTable(std::string_view text, TextCode code, TableSeparator separator, std::size_t mostRows)
{
    TextTable table;
    CellReader reader(text, separator);
    std::size_t blanks = 0;
    while (!reader.AtEnd()) {
        const std::size_t line = reader.Line();
        std::vector<std::string> row = reader.NextRow();
        if (std::ranges::all_of(row, IsBlankCell)) {
            ++blanks;
            continue;
        }
        if (table.rows.size() == mostRows) {
            table.isWhole = false;
            break;
        }
        table.blankLines += std::exchange(blanks, 0);
        for (std::string& cell : row)
            cell = CellOf(std::move(cell), code, table);
        table.columns = std::max(table.columns, row.size());
        table.rows.push_back(std::move(row));
        table.lines.push_back(line);
    }
    table.openQuotes = reader.OpenQuotes();
    table.isWhole = table.isWhole && reader.IsWhole();
    return table;
}

std::string CsvLine(const std::vector<std::string>& cells)
{
    std::string line;
    bool first = true;
    for (const std::string& cell : cells) {
        if (!std::exchange(first, false))
            line += ',';
        const bool plain = cell.find_first_of(",\"\r\n") == std::string::npos
                           && (cell.empty() || (cell.front() != ' ' && cell.back() != ' '));
        if (plain) {
            line += cell;
            continue;
        }
        line += kQuote;
        for (const char c : cell) {
            if (c == kQuote)
                line += kQuote;
            line += c;
        }
        line += kQuote;
    }
    return line + "\r\n";
}

} // namespace sbd
