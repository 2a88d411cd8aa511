// The table in a clipboard text.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace sbd {

/// One cell of a clipboard text; line and column count from 0.
struct ClipboardCell {
    int line = 0;
    int column = 0;
    std::string text;
};

/// Takes a clipboard text apart, cell by cell: a tab between columns, a line end (LF or CR LF) between rows; one line
/// end at the end of the text begins no row. A zero byte ends the text. A cell with a line end in it stands between
/// quotation marks, those within it doubled, as spreadsheet programs write it; any other quotation mark is a character
/// like all others. The text is in CP932 or UTF-8 and must live as long as the reader.
class CClipboardReader {
public:
    explicit CClipboardReader(std::string_view text);

    /// Lines up to the last one that holds more than blanks; 0 if none does.
    [[nodiscard]] int FilledLines() const;
    /// The next cell; nothing behind the last one.
    [[nodiscard]] std::optional<ClipboardCell> Next();

private:
    [[nodiscard]] std::optional<std::string> TakeQuoted();
    [[nodiscard]] std::string TakePlain();

    std::string_view text_;
    std::size_t pos_ = 0;
    int line_ = 0;
    int column_ = 0;
    bool ended_ = false;
    bool quotesEnd_ = true; // false: a search for a closing mark has come to the end of the text in vain
};

} // namespace sbd
