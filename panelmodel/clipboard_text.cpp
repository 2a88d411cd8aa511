#include "panelmodel/clipboard_text.h"

#include <algorithm>

namespace sbd {

namespace {

constexpr char kQuote = '"';
constexpr std::string_view kEnds = "\t\n";

/// `text` up to a zero byte, without one line end at its end.
std::string_view Content(std::string_view text)
{
    text = text.substr(0, text.find('\0'));
    if (text.ends_with('\n'))
        text.remove_suffix(1);
    if (text.ends_with('\r'))
        text.remove_suffix(1);
    return text;
}

bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

} // namespace

CClipboardReader::CClipboardReader(std::string_view text) : text_(Content(text)) {}

int CClipboardReader::FilledLines() const
{
    CClipboardReader cells(text_);
    int lines = 0;
    while (const std::optional<ClipboardCell> cell = cells.Next())
        if (!std::ranges::all_of(cell->text, IsBlank))
            lines = cell->line + 1;
    return lines;
}

std::optional<ClipboardCell> CClipboardReader::Next()
{
    if (ended_)
        return std::nullopt;
    ClipboardCell cell{line_, column_, {}};
    std::optional<std::string> quoted = TakeQuoted();
    cell.text = quoted ? std::move(*quoted) : TakePlain();
    if (pos_ >= text_.size()) {
        ended_ = true;
    } else if (text_[pos_++] == '\t') {
        ++column_;
    } else {
        ++line_;
        column_ = 0;
    }
    return cell;
}

/// A cell between quotation marks with a line end in it.
std::optional<std::string> CClipboardReader::TakeQuoted()
{
    if (!quotesEnd_ || pos_ >= text_.size() || text_[pos_] != kQuote)
        return std::nullopt;
    std::string content;
    for (std::size_t at = pos_ + 1;;) {
        const std::size_t mark = text_.find(kQuote, at);
        if (mark == std::string_view::npos) {
            quotesEnd_ = false;
            return std::nullopt;
        }
        content += text_.substr(at, mark - at);
        at = mark + 1;
        if (at < text_.size() && text_[at] == kQuote) {
            content += kQuote;
            ++at;
            continue;
        }
        if (at < text_.size() && text_[at] == '\r')
            ++at;
        const bool closes = at >= text_.size() || kEnds.find(text_[at]) != std::string_view::npos;
        if (!closes || content.find('\n') == std::string::npos)
            return std::nullopt;
        pos_ = at;
        return content;
    }
}

std::string CClipboardReader::TakePlain()
{
    const std::size_t end = std::min(text_.find_first_of(kEnds, pos_), text_.size());
    std::string_view cell = text_.substr(pos_, end - pos_);
    pos_ = end;
    if (cell.ends_with('\r'))
        cell.remove_suffix(1);
    return std::string(cell);
}

} // namespace sbd
