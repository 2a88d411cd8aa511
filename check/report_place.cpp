#include "check/report_place.h"

#include "panelmodel/panel_model.h"
#include "project/catalogue.h"
#include "project/option_rows.h"
#include "project/sbd_data.h"
#include "project/text.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace sbd {

namespace {

using namespace literals;

constexpr int kValueColumn = 2; // of an option

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool IsWordByte(char c)
{
    return IsDigit(c) || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

bool IsBlank(char c)
{
    return c == ' ' || c == '\t';
}

std::string_view WithoutBlanksAhead(std::string_view text)
{
    static const std::string wide = "　"_cp932;
    while (!text.empty()) {
        if (IsBlank(text.front()))
            text.remove_prefix(1);
        else if (text.starts_with(wide))
            text.remove_prefix(wide.size());
        else
            break;
    }
    return text;
}

/// Digits of ASCII in place of full-width ones, and half-width "=" and ":".
std::string Narrowed(std::string_view line)
{
    static const std::string zero = "０"_cp932;
    static const std::string equals = "＝"_cp932;
    static const std::string colon = "："_cp932;
    std::string text;
    for (std::size_t at = 0; at < line.size();) {
        const std::size_t length = std::min(CharacterLength(line, at), line.size() - at);
        const std::string_view character = line.substr(at, length);
        const int digit = length == 2 && character[0] == zero[0]
                              ? static_cast<unsigned char>(character[1]) - static_cast<unsigned char>(zero[1])
                              : -1;
        if (digit >= 0 && digit <= 9)
            text += static_cast<char>('0' + digit);
        else if (character == equals || character == colon)
            text += '=';
        else
            text += character;
        at += length;
    }
    return text;
}

/// A number from the front of a text, digits alone and few; 0: none.
int NumberAhead(std::string_view text)
{
    constexpr std::size_t most = 6;
    const std::size_t digits = static_cast<std::size_t>(std::ranges::find_if_not(text, IsDigit) - text.begin());
    return digits == 0 || digits > most ? 0 : LeadingInteger(text.substr(0, digits));
}

/// Where a text stands in a line, from `from` on, whole characters; npos: nowhere.
std::size_t FindWhole(std::string_view line, std::string_view text, std::size_t from = 0)
{
    for (std::size_t at = 0; at < line.size(); at += CharacterLength(line, at))
        if (at >= from && line.substr(at).starts_with(text))
            return at;
    return std::string_view::npos;
}

/// "5行目", "第5行" or "行 = 5" with the unit of a row or a column; 0: none of them.
int NumberOfUnit(std::string_view line, std::string_view unit)
{
    static const std::string nth = "目"_cp932;
    static const std::string the = "第"_cp932;
    static const std::string number = "番号"_cp932;
    for (std::size_t at = FindWhole(line, unit); at != std::string_view::npos;
         at = FindWhole(line, unit, at + unit.size())) {
        std::string_view behind = line.substr(at + unit.size());
        std::size_t end = at;
        while (end > 0 && IsBlank(line[end - 1]))
            --end;
        std::size_t start = end;
        // A digit is never the second byte of a character.
        while (start > 0 && IsDigit(line[start - 1]))
            --start;
        const bool isWhole =
            start == 0 || (line[start - 1] != '.' && line[start - 1] != '-' && !IsWordByte(line[start - 1]));
        if (start < end && isWhole && (behind.starts_with(nth) || line.substr(0, start).ends_with(the)))
            return NumberAhead(line.substr(start));
        if (behind.starts_with(number))
            behind.remove_prefix(number.size());
        behind = WithoutBlanksAhead(behind);
        if (!behind.starts_with('='))
            continue;
        behind = WithoutBlanksAhead(behind.substr(1));
        const int value = NumberAhead(behind);
        const auto after = std::ranges::find_if_not(behind, IsDigit);
        if (value > 0 && (after == behind.end() || (*after != '.' && !IsWordByte(*after))))
            return value;
    }
    return 0;
}

bool OpensAPanel(int block)
{
    const CatalogueRow* row = FindBlock(CanonicalBlock(block));
    return row != nullptr && row->kind != BlockKind::None && !PanelOfBlock(block).empty();
}

/// The title of a block as the menu has it, without number and tag; CP932.
std::string TitleOf(const CatalogueRow& row)
{
    std::string_view title = row.menuText.substr(0, row.menuText.find('['));
    title.remove_prefix(std::min(title.find_first_not_of("0123456789."), title.size()));
    return Cp932(CutTrailingBlanks(title));
}

/// The block that a text begins with by number and title: "313 垂直補剛材", "313.垂直補剛材".
int BlockByTitle(std::string_view text)
{
    const CatalogueRow* row = FindBlock(NumberAhead(text.substr(0, 3)));
    if (row == nullptr || row->menuText.empty())
        return 0;
    std::string_view rest = text.substr(3);
    if (rest.starts_with('.'))
        rest.remove_prefix(1);
    else if (rest.starts_with("．"_cp932))
        rest.remove_prefix(2);
    const std::string title = TitleOf(*row);
    return !title.empty() && WithoutBlanksAhead(rest).starts_with(title) ? row->block : 0;
}

/// The block whose tag is a word of the file; a word without "_" is one only in brackets.
int BlockByTag(std::string_view word, bool inBrackets)
{
    if (word.empty() || (!inBrackets && word.find('_') == std::string_view::npos))
        return 0;
    const auto row = std::ranges::find(Catalogue(), word, &CatalogueRow::tag);
    return row == Catalogue().end() ? 0 : row->block;
}

/// The block that a line names first; 0: none.
int BlockIn(std::string_view line)
{
    bool inWord = false;
    for (std::size_t at = 0; at < line.size();) {
        const std::string_view rest = line.substr(at);
        int block = 0;
        if (rest.front() == '[') {
            const std::string_view word = rest.substr(1, std::min(rest.find(']'), rest.size()) - 1);
            const bool isClosed = rest.find(']') != std::string_view::npos;
            if (isClosed && word.size() == 3 && std::ranges::all_of(word, IsDigit))
                block = LeadingInteger(word);
            else if (isClosed)
                block = BlockByTag(word, true);
        } else if (!inWord && IsWordByte(rest.front())) {
            const auto end = static_cast<std::size_t>(std::ranges::find_if_not(rest, IsWordByte) - rest.begin());
            const std::string_view word = rest.substr(0, end);
            block = end >= 3 && std::ranges::all_of(word.substr(0, 3), IsDigit) && end == 3 ? BlockByTitle(rest)
                                                                                            : BlockByTag(word, false);
        }
        if (block != 0 && OpensAPanel(block))
            return CanonicalBlock(block);
        inWord = IsWordByte(rest.front());
        at += std::max<std::size_t>(CharacterLength(line, at), 1);
    }
    return 0;
}

/// The words of a line that may be names: what stands between blanks, commas and brackets.
std::vector<std::string_view> WordsOf(std::string_view line)
{
    static const std::array<std::string, 8> ends = {"　"_cp932, "，"_cp932, "、"_cp932, "．"_cp932,
                                                    "。"_cp932, "「"_cp932, "」"_cp932, "～"_cp932};
    std::vector<std::string_view> words;
    std::size_t start = 0;
    const auto close = [&](std::size_t end) {
        if (end > start)
            words.push_back(line.substr(start, end - start));
    };
    for (std::size_t at = 0; at < line.size();) {
        const std::size_t length = std::min(std::max<std::size_t>(CharacterLength(line, at), 1), line.size() - at);
        const std::string_view character = line.substr(at, length);
        if ((length == 1 && std::string_view(" \t,;:=()[]<>\"'/").find(character[0]) != std::string_view::npos)
            || std::ranges::find(ends, character) != ends.end()) {
            close(at);
            start = at + length;
        }
        at += length;
    }
    close(line.size());
    return words;
}

} // namespace

ReportWeight WeightOfLine(std::string_view line)
{
    struct WeightWord {
        std::string word; // in lower case
        ReportWeight weight;
    };
    static const std::array<WeightWord, 4> words = {{{"error", ReportWeight::Error},
                                                     {"エラー"_cp932, ReportWeight::Error},
                                                     {"warning", ReportWeight::Warning},
                                                     {"警告"_cp932, ReportWeight::Warning}}};
    line = WithoutBlanksAhead(line);
    while (line.starts_with('*'))
        line = WithoutBlanksAhead(line.substr(1));
    for (const WeightWord& word : words) {
        std::string first(line.substr(0, word.word.size()));
        if (word.word[0] >= 'a' && word.word[0] <= 'z') // else of two bytes, to which case means nothing
            for (char& c : first)
                c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        if (first != word.word)
            continue;
        const std::string_view rest = line.substr(first.size());
        if (!rest.empty() && IsWordByte(rest.front()))
            return ReportWeight::None; // another word
        const std::string narrow = Narrowed(WithoutBlanksAhead(rest).substr(0, 8));
        const std::string_view total =
            WithoutBlanksAhead(std::string_view(narrow).substr(narrow.starts_with('=') ? 1 : 0));
        const bool isTotal = narrow.starts_with('=') && !total.empty() && IsDigit(total.front());
        return isTotal ? ReportWeight::None : word.weight;
    }
    return ReportWeight::None;
}

std::optional<ReportPlace> CReportPlaces::PlaceOf(std::string_view line)
{
    static const std::string rowUnit = "行"_cp932;
    static const std::string columnUnit = "列"_cp932;
    ReportPlace place{BlockIn(line), 0, 0};
    if (place.block == 0)
        return std::nullopt;
    const ShownBlock& shown = ShownOf(place.block);
    const std::string narrow = Narrowed(line);
    const int row = NumberOfUnit(narrow, rowUnit);
    if (row == 0) {
        FindNamed(line, place);
        return place;
    }
    if (row > shown.rows)
        return place;
    place.row = row;
    if (const int column = NumberOfUnit(narrow, columnUnit); column < shown.columns)
        place.column = column;
    return place;
}

const ShownBlock& CReportPlaces::ShownOf(int block)
{
    const auto known = shown_.find(block);
    if (known != shown_.end())
        return known->second;
    const std::unique_ptr<CPanelModel> panel = MakePanelModel(data_, block);
    return shown_.try_emplace(block, panel == nullptr ? ShownBlock() : Show(*panel)).first->second;
}

/// The option whose label stands in the line, the longest; or the row whose cells hold most of the names, the first.
void CReportPlaces::FindNamed(std::string_view line, ReportPlace& place)
{
    constexpr std::size_t leastLabel = 6; // bytes; shorter ones stand in other words too
    if (const OptionBlock* options = FindOptionBlock(place.block)) {
        std::size_t longest = leastLabel - 1;
        for (std::size_t row = 0; row < options->rows.size(); ++row) {
            const std::string label(CutTrailingBlanks(options->rows[row].panelLabel));
            if (label.size() > longest && FindWhole(line, label) != std::string_view::npos) {
                longest = label.size();
                place.row = static_cast<int>(row) + 1;
                place.column = kValueColumn;
            }
        }
        return;
    }
    std::vector<std::string_view> names;
    for (const std::string_view word : WordsOf(line))
        if (IsName(word) && std::ranges::find(names, word) == names.end())
            names.push_back(word);
    const ShownBlock& shown = ShownOf(place.block);
    std::size_t most = 0;
    for (int row = shown.fixedRows + 1; !names.empty() && row <= shown.rows; ++row) {
        std::size_t count = 0;
        int first = 0;
        for (const std::string_view name : names)
            for (int column = 1; column < shown.columns; ++column)
                if (shown.Text(row, column) == name) {
                    ++count;
                    first = first == 0 ? column : std::min(first, column);
                    break;
                }
        if (count > most) {
            most = count;
            place.row = row;
            place.column = first;
        }
    }
}

bool CReportPlaces::IsName(std::string_view word) const
{
    const GridNames& names = data_.gridNames;
    const auto holds = [word](const std::vector<std::string>& list) {
        return std::ranges::find(list, word) != list.end();
    };
    return holds(names.girderNames) || holds(names.swayNames) || holds(names.lineNames);
}

} // namespace sbd
